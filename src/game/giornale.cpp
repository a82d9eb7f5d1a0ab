#include "game/giornale.h"

#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "board/mossa.h"
#include "board/posizione.h"
#include "clock/cadenza.h"
#include "clock/orologio.h"
#include "game/aggiudicazione.h"
#include "game/partita.h"
#include "messaggi/messaggi.h"
#include "moves/tavole.h"
#include "piattaforma/piattaforma.h"
#include "testo/composizione.h"

const char* const NomeFileGiornale = "giornale.txt";
const char* const NomeFileGiornalePrecedente = "giornale_precedente.txt";
const char* const TestoGiornaleNonScrivibile =
    "Impossibile scrivere il giornale: la partita in corso non e' protetta da un'interruzione "
    "improvvisa.";

namespace {

constexpr uint32_t VERSIONE_GIORNALE = 2;
// The oldest format still taken up.
constexpr uint32_t PRIMA_VERSIONE_GIORNALE = 1;
constexpr const char* LETTERE_PROMOZIONE = "?NBRQ";  // by kind 1..4
constexpr size_t CIFRE_CONTROLLO = 8;
// " *" and the eight digits after the payload.
constexpr size_t CODA_RIGA = 2 + CIFRE_CONTROLLO;

uint32_t Controllo(const char* testo, size_t lunghezza) {
  uint32_t h = 2166136261u;
  for (size_t i = 0; i < lunghezza; ++i) {
    h ^= uint8_t(testo[i]);
    h *= 16777619u;
  }
  return h;
}

// ---------------------------------------------------------------------------
// Composing records into a fixed buffer: a whole game fits with room to
// spare (510 moves of at most 48 bytes, a few other lines); what does not
// fit marks the text as overflowed rather than cut a line.

constexpr size_t DIMENSIONE_TESTO = 40 * 1024;

struct Testo {
  char dati[DIMENSIONE_TESTO];
  Composizione c{dati, DIMENSIONE_TESTO};
  size_t inizio_riga = 0;

  void Svuota() {
    c.Svuota();
    inizio_riga = 0;
  }
  bool Pieno() const { return c.Troncato(); }
  size_t Usati() const { return c.Scritti(); }
  void Carattere(char ch) { c.Carattere(ch); }
  void Parola(const char* s) { c.Testo(s); }
  // A record begins: its letter and the UTC time of writing.
  void Inizia(char tipo) {
    inizio_riga = c.Scritti();
    c.Carattere(tipo);
    c.Carattere(' ');
    const piattaforma::DataOraUTC t = piattaforma::OraUTC();
    auto entro = [](int v, int massimo) { return v < 0 ? 0 : (v > massimo ? massimo : v); };
    c.Formato("%04d%02d%02dT%02d%02d%02dZ", entro(t.anno, 9999), entro(t.mese, 99),
              entro(t.giorno, 99), entro(t.ora, 99), entro(t.minuto, 99), entro(t.secondo, 99));
  }
  void Campo(const char* s) {
    c.Carattere(' ');
    c.Testo(s);
  }
  void Campo(int64_t n) {
    c.Carattere(' ');
    c.Numero(n);
  }
  // Once the text has overflowed it is not written at all: no checksum.
  void Termina() {
    if (Pieno()) return;
    c.Formato(" *%08X\n", unsigned(Controllo(dati + inizio_riga, c.Scritti() - inizio_riga)));
  }
};

Testo testo;

// The game as the journal writes it down, as one value: the journal compares
// the value it last wrote with the value now, and appends what differs.
struct StatoDaScrivere {
  uint32_t partita;
  uint64_t semimosse;
  uint64_t mossa[MAX_SEMIMOSSE];
  StatoAggiudicazione esito;
  CadenzaDiGioco cadenza;
  // The clock: each side's milliseconds left now, the running side's shown
  // second and the side it is.
  uint32_t in_moto, prima_volta;
  int32_t tempo[2];
  int32_t secondo;
  uint64_t lato;
  char data[16], ora[12];
};

StatoDaScrivere scritto;
StatoDaScrivere adesso;

// The times as a reader of the journal has them so far, and the last move
// written with no time record after it yet. A reader takes a move's time
// after it from the first time record that follows the move, or, with none
// before the next move, from the times it already has: when neither would
// be the move's own, a time record is written for it.
struct OrologioDelGiornale {
  int32_t tempo[2];
  uint64_t sospesa;  // 0: none
};
OrologioDelGiornale giornale_scritto;  // as the file on disk says
OrologioDelGiornale giornale;          // as the text being composed says

bool attivo = false;
bool da_riscrivere = true;  // a fresh file with the whole state next time
bool in_corso = false;
bool avviso_dovuto = false;
bool avvisato = false;  // in this game

// The game now, from its owners.
void Fotografa(StatoDaScrivere& s) {
  s.partita = PartiteIniziate;
  s.semimosse = ContatoreMosse;
  for (uint64_t p = 0; p <= ContatoreMosse && p < MAX_SEMIMOSSE; ++p) s.mossa[p] = ElencoMosse[p];
  s.esito = FotografiaAggiudicazione();
  const StatoOrologio orologio = FotografiaOrologio();
  s.cadenza = orologio.cadenza;
  s.in_moto = orologio.in_moto;
  s.prima_volta = orologio.prima_volta;
  s.tempo[0] = orologio.tempo[0];
  s.tempo[1] = orologio.tempo[1];
  s.secondo = 0;
  s.lato = ContatoreMosse & 1;
  if (orologio.in_moto) {
    const int lato = int(s.lato);
    s.tempo[lato] = TempoRimastoInMoto(lato);
    s.secondo = SecondiInMillisecondi(s.tempo[lato]);
  }
  CopiaLimitata(s.data, sizeof s.data, orologio.data);
  CopiaLimitata(s.ora, sizeof s.ora, orologio.ora);
}

void ComponiCadenza(const CadenzaDiGioco& c) {
  testo.Inizia('C');
  for (int32_t v :
       {c.periodi, c.mosse_primo_periodo, c.tempo_primo_periodo, c.incremento_primo_periodo,
        c.tempo_secondo_periodo, c.incremento_secondo_periodo})
    testo.Campo(v);
  testo.Termina();
}

void FissaTempoDellaMossa(const StatoDaScrivere& s, const int32_t tempo[2]);

void ComponiMossa(const StatoDaScrivere& s, uint64_t ply) {
  FissaTempoDellaMossa(s, giornale.tempo);
  const uint64_t mossa = ElencoMosse[ply];
  testo.Inizia('M');
  testo.Campo(int64_t(ply));
  for (uint64_t casa : {OrigineMossa(mossa), DestinazioneMossa(mossa)})
    testo.Campo(NomeCasa(casa).testo);
  const uint32_t promozione = TipoPromozioneMossa[TipoMossa(mossa)];
  testo.Carattere(' ');
  testo.Carattere(promozione >= 1 && promozione <= 4 ? LETTERE_PROMOZIONE[promozione] : '-');
  testo.Campo(ElencoStringaMossa[ply]);
  testo.Termina();
  giornale.sospesa = ply;
}

void ComponiEsito(const StatoAggiudicazione& e) {
  testo.Inizia('E');
  testo.Campo(e.result);
  testo.Carattere('|');
  testo.Parola(e.termination);
  testo.Carattere('|');
  testo.Parola(e.commento);
  testo.Termina();
}

void ComponiTempi(const StatoDaScrivere& s, int32_t bianco, int32_t nero) {
  testo.Inizia('T');
  testo.Campo(s.in_moto ? 1 : 0);
  testo.Campo(s.prima_volta ? 1 : 0);
  testo.Campo(bianco);
  testo.Campo(nero);
  testo.Campo(s.data);
  testo.Campo(s.ora);
  testo.Termina();
  giornale.tempo[0] = bianco;
  giornale.tempo[1] = nero;
  giornale.sospesa = 0;
}

// The time record a move waiting for one needs, unless the times a reader
// will take for it (`tempo`) already hold the move's own.
void FissaTempoDellaMossa(const StatoDaScrivere& s, const int32_t tempo[2]) {
  const uint64_t p = giornale.sospesa;
  if (p == 0) return;
  const int lato = int((p - 1) & 1);
  if (tempo[lato] == TempoDopoMossa[p]) return;
  int32_t tempi[2] = {giornale.tempo[0], giornale.tempo[1]};
  tempi[lato] = TempoDopoMossa[p];
  ComponiTempi(s, tempi[0], tempi[1]);
}

void ComponiOrologio(const StatoDaScrivere& s) {
  FissaTempoDellaMossa(s, s.tempo);
  ComponiTempi(s, s.tempo[0], s.tempo[1]);
}

bool OrologioCambiato(const StatoDaScrivere& prima, const StatoDaScrivere& dopo) {
  if (prima.in_moto != dopo.in_moto || prima.prima_volta != dopo.prima_volta ||
      std::strcmp(prima.data, dopo.data) != 0 || std::strcmp(prima.ora, dopo.ora) != 0)
    return true;
  if (!dopo.in_moto) return prima.tempo[0] != dopo.tempo[0] || prima.tempo[1] != dopo.tempo[1];
  // Running: the side waiting must be as written, the running one within
  // the same shown second.
  const uint64_t lato = dopo.lato;
  return prima.lato != lato || prima.tempo[1 - lato] != dopo.tempo[1 - lato] ||
         prima.secondo != dopo.secondo;
}

// The plies both values agree on.
uint64_t MossePrimaDellaDifferenza(const StatoDaScrivere& prima, const StatoDaScrivere& dopo) {
  uint64_t k = TurnoIniziale;
  const uint64_t fine = prima.semimosse < dopo.semimosse ? prima.semimosse : dopo.semimosse;
  while (k < fine && prima.mossa[k + 1] == dopo.mossa[k + 1]) ++k;
  return k;
}

void ComponiTutto(const StatoDaScrivere& s) {
  testo.Svuota();
  testo.Inizia('I');
  testo.Campo(VERSIONE_GIORNALE);
  testo.Termina();
  ComponiCadenza(s.cadenza);
  // A reader starts each side with the first period of the control.
  const int32_t primo = int32_t(int64_t(s.cadenza.tempo_primo_periodo) * 60000);
  giornale = {{primo, primo}, 0};
  for (uint64_t p = TurnoIniziale + 1; p <= s.semimosse; ++p) ComponiMossa(s, p);
  if (s.esito.result[0] != '*') ComponiEsito(s.esito);
  ComponiOrologio(s);
}

// The records that take the journal from `prima` to `dopo`; false when they
// do not fit (the whole journal is written instead).
bool ComponiDifferenze(const StatoDaScrivere& prima, const StatoDaScrivere& dopo) {
  testo.Svuota();
  giornale = giornale_scritto;
  if (!(prima.cadenza == dopo.cadenza)) ComponiCadenza(dopo.cadenza);
  const uint64_t comuni = MossePrimaDellaDifferenza(prima, dopo);
  for (uint64_t p = prima.semimosse; p > comuni; --p) {
    // A move taken back needs no time of its own any more.
    if (giornale.sospesa == p) giornale.sospesa = 0;
    testo.Inizia('R');
    testo.Campo(int64_t(p - 1));
    testo.Termina();
  }
  for (uint64_t p = comuni + 1; p <= dopo.semimosse; ++p) ComponiMossa(dopo, p);
  if (!(prima.esito == dopo.esito)) ComponiEsito(dopo.esito);
  if (OrologioCambiato(prima, dopo)) ComponiOrologio(dopo);
  return !testo.Pieno();
}

}  // namespace

void AvviaGiornale() {
  attivo = true;
  da_riscrivere = true;
  avvisato = false;
  avviso_dovuto = false;
  AggiornaGiornale();
}

void SospendiGiornale() {
  attivo = false;
  in_corso = false;
  da_riscrivere = true;
  avvisato = avviso_dovuto = false;
}

bool GiornaleAttivo() { return attivo; }

void AggiornaGiornale(bool avviso) {
  if (!attivo || in_corso) return;
  in_corso = true;
  Fotografa(adesso);
  const bool nuova_partita = scritto.partita != adesso.partita;
  if (nuova_partita) avvisato = avviso_dovuto = false;

  bool riuscito = true;
  if (da_riscrivere || nuova_partita || !ComponiDifferenze(scritto, adesso)) {
    ComponiTutto(adesso);
    riuscito =
        !testo.Pieno() && piattaforma::SostituisciFile(NomeFileGiornale, testo.dati, testo.Usati());
  } else if (testo.Usati() > 0) {
    riuscito = piattaforma::AccodaAlFile(NomeFileGiornale, testo.dati, testo.Usati());
  }
  // A failed append may have left part of a line: only a fresh file can
  // follow it. What was written stays remembered only once it is whole.
  if (riuscito) {
    da_riscrivere = false;
    scritto = adesso;
    giornale_scritto = giornale;
  } else {
    da_riscrivere = true;
    scritto.partita = adesso.partita;
    if (!avvisato) avviso_dovuto = true;
  }
  if (avviso && avviso_dovuto) {
    avviso_dovuto = false;
    avvisato = true;
    Avvisa(TestoGiornaleNonScrivibile);
  }
  in_corso = false;
}

void ChiudiGiornale() {
  if (!attivo) return;
  attivo = false;
  testo.Svuota();
  testo.Inizia('F');
  testo.Termina();
  // Behind a failed write the file may hold anything: better none at all.
  if (da_riscrivere || !piattaforma::AccodaAlFile(NomeFileGiornale, testo.dati, testo.Usati()))
    piattaforma::EliminaFile(NomeFileGiornale);
}

// ---------------------------------------------------------------------------
// Reading one line.

namespace {

// The fields of a payload, one at a time, separated by single blanks.
struct Campi {
  const char* p;
  const char* fine;
  // The next field; false at the end or on an empty field.
  bool Prossimo(const char*& inizio, size_t& lunghezza) {
    if (p >= fine) return false;
    inizio = p;
    while (p < fine && *p != ' ') ++p;
    lunghezza = size_t(p - inizio);
    if (p < fine) ++p;  // the blank
    return lunghezza > 0;
  }
  bool Finiti() const { return p >= fine; }
};

bool Cifra(char c) { return c >= '0' && c <= '9'; }

bool Intero(const char* s, size_t n, int64_t minimo, int64_t massimo, int64_t& valore) {
  size_t i = 0;
  bool negativo = false;
  if (n > 0 && s[0] == '-') {
    negativo = true;
    i = 1;
  }
  if (i >= n || n - i > 10) return false;
  int64_t v = 0;
  for (; i < n; ++i) {
    if (!Cifra(s[i])) return false;
    v = v * 10 + (s[i] - '0');
  }
  if (negativo) v = -v;
  if (v < minimo || v > massimo) return false;
  valore = v;
  return true;
}

bool Utc(const char* s, size_t n) {
  if (n != 16 || s[8] != 'T' || s[15] != 'Z') return false;
  for (size_t i = 0; i < 15; ++i)
    if (i != 8 && !Cifra(s[i])) return false;
  return true;
}

// Printable ASCII without the separator, into a zero-terminated field.
bool TestoLibero(const char* s, size_t n, char* destinazione, size_t dimensione) {
  if (n >= dimensione) return false;
  for (size_t i = 0; i < n; ++i) {
    if (s[i] < 0x20 || s[i] > 0x7E || s[i] == '|') return false;
    destinazione[i] = s[i];
  }
  destinazione[n] = 0;
  return true;
}

// "2026.11.23" / "09:05:00" as StampaTempoUTC writes them, or "?".
bool Forma(const char* s, size_t n, const char* modello, char* destinazione, size_t dimensione) {
  if (n >= dimensione) return false;
  const bool ignota = n == 1 && s[0] == '?';
  if (!ignota) {
    if (n != std::strlen(modello)) return false;
    for (size_t i = 0; i < n; ++i)
      if (modello[i] == '9' ? !Cifra(s[i]) : s[i] != modello[i]) return false;
  }
  std::memcpy(destinazione, s, n);
  destinazione[n] = 0;
  return true;
}

bool Casa(const char* s, size_t n, int8_t& colonna, int8_t& riga) {
  if (n != 2 || s[0] < 'a' || s[0] > 'h' || s[1] < '1' || s[1] > '8') return false;
  colonna = int8_t(s[0] - 'a');
  riga = int8_t('8' - s[1]);
  return true;
}

bool TestoMossa(const char* s, size_t n, char* destinazione) {
  if (n == 0 || n >= LUNGHEZZA_STRINGA_MOSSA) return false;
  for (size_t i = 0; i < n; ++i) {
    const char c = s[i];
    const bool ammesso = Cifra(c) || (c >= 'a' && c <= 'h') || c == 'x' || c == '=' || c == '+' ||
                         c == '#' || c == '-' || std::strchr("NBRQK", c) != nullptr;
    if (!c || !ammesso) return false;
    destinazione[i] = c;
  }
  destinazione[n] = 0;
  return true;
}

bool Esito(const char* s, size_t n, RecordGiornale& r) {
  const char* primo = static_cast<const char*>(std::memchr(s, '|', n));
  if (!primo) return false;
  const char* resto = primo + 1;
  const char* secondo = static_cast<const char*>(std::memchr(resto, '|', size_t(s + n - resto)));
  if (!secondo) return false;
  if (!TestoLibero(s, size_t(primo - s), r.result, sizeof r.result) ||
      !TestoLibero(resto, size_t(secondo - resto), r.termination, sizeof r.termination) ||
      !TestoLibero(secondo + 1, size_t(s + n - secondo - 1), r.commento, sizeof r.commento))
    return false;
  const bool aperta = std::strcmp(r.result, "*") == 0;
  if (aperta) return std::strcmp(r.termination, "?") == 0 && r.commento[0] == 0;
  return (std::strcmp(r.result, "1-0") == 0 || std::strcmp(r.result, "0-1") == 0 ||
          std::strcmp(r.result, "1/2-1/2") == 0) &&
         r.termination[0] != 0;
}

}  // namespace

bool LeggiRigaGiornale(const char* riga, size_t lunghezza, RecordGiornale& r) {
  if (lunghezza > 0 && riga[lunghezza - 1] == '\r') --lunghezza;
  if (lunghezza < CODA_RIGA + 1 + 1 + 16) return false;
  const size_t carico = lunghezza - CODA_RIGA;
  if (riga[carico] != ' ' || riga[carico + 1] != '*') return false;
  uint32_t atteso = 0;
  for (size_t i = carico + 2; i < lunghezza; ++i) {
    const char c = riga[i];
    uint32_t v;
    if (Cifra(c))
      v = uint32_t(c - '0');
    else if (c >= 'A' && c <= 'F')
      v = uint32_t(c - 'A' + 10);
    else
      return false;
    atteso = atteso << 4 | v;
  }
  if (Controllo(riga, carico) != atteso) return false;

  r = RecordGiornale{};
  r.promozione = -1;
  if (riga[1] != ' ') return false;
  r.tipo = riga[0];
  Campi campi{riga + 2, riga + carico};
  const char* s;
  size_t n;
  int64_t v;
  if (!campi.Prossimo(s, n) || !Utc(s, n)) return false;

  switch (r.tipo) {
    case 'I':
      if (!campi.Prossimo(s, n) || !Intero(s, n, PRIMA_VERSIONE_GIORNALE, VERSIONE_GIORNALE, v))
        return false;
      r.versione = uint32_t(v);
      break;
    case 'C': {
      // The ranges of the settings rows each value comes from.
      int32_t* campo[] = {&r.cadenza.periodi,
                          &r.cadenza.mosse_primo_periodo,
                          &r.cadenza.tempo_primo_periodo,
                          &r.cadenza.incremento_primo_periodo,
                          &r.cadenza.tempo_secondo_periodo,
                          &r.cadenza.incremento_secondo_periodo};
      for (int k = 0; k < 6; ++k) {
        const RigaIni& riga_ini = ParametroIni[PARAMETRO_PERIODI + k];
        if (!campi.Prossimo(s, n) || !Intero(s, n, riga_ini.minimo, riga_ini.massimo, v))
          return false;
        *campo[k] = int32_t(v);
      }
      break;
    }
    case 'F':
      break;
    case 'P':
      for (int k = 0; k < NUMERO_PARAMETRI; ++k) {
        const RigaIni& riga_ini = ParametroIni[k];
        if (!campi.Prossimo(s, n) || !Intero(s, n, riga_ini.minimo, riga_ini.massimo, v))
          return false;
        r.parametro[k] = int32_t(v);
      }
      break;
    case 'R':
      if (!campi.Prossimo(s, n) || !Intero(s, n, 0, MAX_SEMIMOSSE - 1, v)) return false;
      r.semimossa = uint32_t(v);
      break;
    case 'M':
      if (!campi.Prossimo(s, n) || !Intero(s, n, 1, MAX_SEMIMOSSE - 1, v)) return false;
      r.semimossa = uint32_t(v);
      for (int k = 0; k < 2; ++k)
        if (!campi.Prossimo(s, n) || !Casa(s, n, r.colonna[k], r.riga[k])) return false;
      if (!campi.Prossimo(s, n) || n != 1) return false;
      if (s[0] != '-') {
        const char* lettera = std::strchr(LETTERE_PROMOZIONE + 1, s[0]);
        if (!lettera || !s[0]) return false;
        r.promozione = int8_t(lettera - LETTERE_PROMOZIONE);
      }
      if (!campi.Prossimo(s, n) || !TestoMossa(s, n, r.testo)) return false;
      break;
    case 'E':
      // The rest of the line, blanks included.
      if (!Esito(campi.p, size_t(campi.fine - campi.p), r)) return false;
      campi.p = campi.fine;
      break;
    case 'T':
      if (!campi.Prossimo(s, n) || !Intero(s, n, 0, 1, v)) return false;
      r.in_moto = uint32_t(v);
      if (!campi.Prossimo(s, n) || !Intero(s, n, 0, 1, v)) return false;
      r.prima_volta = uint32_t(v);
      for (int k = 0; k < 2; ++k) {
        if (!campi.Prossimo(s, n) || !Intero(s, n, INT32_MIN, INT32_MAX, v)) return false;
        r.tempo[k] = int32_t(v);
      }
      if (!campi.Prossimo(s, n) || !Forma(s, n, "9999.99.99", r.data, sizeof r.data)) return false;
      if (!campi.Prossimo(s, n) || !Forma(s, n, "99:99:99", r.ora, sizeof r.ora)) return false;
      break;
    default:
      return false;
  }
  return campi.Finiti();
}

// ---------------------------------------------------------------------------
// Reading a journal.

void LettoreGiornale::Avvia(bool gioca) {
  gioca_ = gioca;
  fermo_ = lunga_ = false;
  versione_ = 0;
  cadenza_letta_ = false;
  sospesa_ = 0;
  usati_ = 0;
  esito_ = EsitoGiornale{};
  esito_.semimossa = gioca ? ContatoreMosse : 0;
}

void LettoreGiornale::Leggi(const char* pezzo, size_t lunghezza) {
  for (size_t i = 0; i < lunghezza && !fermo_; ++i) {
    const char c = pezzo[i];
    if (c == '\n') {
      Riga();
      usati_ = 0;
      lunga_ = false;
    } else if (usati_ < sizeof riga_) {
      riga_[usati_++] = c;
    } else {
      lunga_ = true;
    }
  }
}

EsitoGiornale LettoreGiornale::Fine() {
  // A last line without its end: a record cut short, left out in silence.
  if (!fermo_ && (usati_ > 0 || lunga_)) esito_.troncato = true;
  fermo_ = true;
  return esito_;
}

void LettoreGiornale::Riga() {
  RecordGiornale r;
  const bool buona = !lunga_ && LeggiRigaGiornale(riga_, usati_, r) &&
                     (esito_.record == 0) == (r.tipo == 'I') && !esito_.chiuso && Applica(r);
  if (!buona) {
    // Nothing of a game before its start: no damage to speak of.
    esito_.danneggiato = esito_.inizio;
    fermo_ = true;
    return;
  }
  esito_.inizio = true;
  esito_.chiuso = r.tipo == 'F';
  if (r.tipo == 'I') versione_ = r.versione;
  ++esito_.record;
}

bool LettoreGiornale::Applica(const RecordGiornale& r) {
  uint64_t& ply = esito_.semimossa;
  switch (r.tipo) {
    case 'M': {
      if (r.semimossa != ply + 1) return false;
      if (!gioca_) break;
      const StatoAggiudicazione esito = FotografiaAggiudicazione();
      const StatoRipetizioni ripetizioni = FotografiaRipetizioni();
      const uint64_t mossa =
          FaiMossaDaCase(r.colonna[0], r.riga[0], r.colonna[1], r.riga[1], r.promozione);
      if (!mossa) return false;
      // The same decisions as when it was played; what the arbiter answered
      // follows in the journal's own records.
      const EsitoMossa annotata = AnnotaMossa(mossa);
      if (annotata.domanda == DomandaAllArbitro::CinquantaMosse) RifiutaCinquantaMosse(annotata);
      if (std::strcmp(ElencoStringaMossa[ContatoreMosse], r.testo) != 0) {
        // Not the move that was written: back to the last good record.
        RitiraUltimaMossa();
        RipristinaAggiudicazione(esito);
        RipristinaRipetizioni(ripetizioni);
        return false;
      }
      sospesa_ = ContatoreMosse;
      break;
    }
    case 'R':
      if (ply == 0 || r.semimossa != ply - 1) return false;
      if (gioca_ && !RitiraUltimaMossa()) return false;
      sospesa_ = 0;
      break;
    case 'E':
      if (!gioca_) break;
      if (r.result[0] == '*')
        RevocaAggiudicazione();
      else
        Aggiudica(r.termination, r.commento, r.result);
      break;
    case 'C': {
      if (versione_ < 2) return false;
      if (!gioca_) break;
      // Each side starts with the first period, as the writer counts.
      StatoOrologio orologio = FotografiaOrologio();
      orologio.cadenza = r.cadenza;
      orologio.tempo[0] = orologio.tempo[1] = int32_t(int64_t(r.cadenza.tempo_primo_periodo) * 60000);
      RipristinaOrologio(orologio);
      break;
    }
    case 'P': {
      // The settings in force of the first format: its first record is the
      // game's time control.
      if (versione_ != 1) return false;
      if (!gioca_ || cadenza_letta_) break;
      cadenza_letta_ = true;
      const int32_t* p = r.parametro + PARAMETRO_PERIODI;
      ImpostaCadenzaPartita({p[0], p[1], p[2], p[3], p[4], p[5]});
      break;
    }
    case 'T': {
      if (!gioca_) break;
      if (sospesa_) ImpostaTempoDopoMossa(sospesa_, r.tempo[(sospesa_ - 1) & 1]);
      sospesa_ = 0;
      // Taken up again with the clock stopped; what is shown stays as it is.
      StatoOrologio orologio = FotografiaOrologio();
      orologio.in_moto = 0;
      orologio.tempo[0] = r.tempo[0];
      orologio.tempo[1] = r.tempo[1];
      orologio.prima_volta = r.prima_volta;
      CopiaLimitata(orologio.data, sizeof orologio.data, r.data);
      CopiaLimitata(orologio.ora, sizeof orologio.ora, r.ora);
      RipristinaOrologio(orologio);
      break;
    }
    default:
      break;
  }
  if (r.tipo == 'M') ++ply;
  if (r.tipo == 'R') --ply;
  return true;
}

EsitoGiornale LeggiGiornale(const char* testo_giornale, size_t lunghezza, bool gioca) {
  LettoreGiornale lettore;
  lettore.Avvia(gioca);
  lettore.Leggi(testo_giornale, lunghezza);
  return lettore.Fine();
}

EsitoGiornale LeggiFileGiornale(bool gioca) {
  static LettoreGiornale lettore;
  static char pezzo[4096];
  lettore.Avvia(gioca);
  uint64_t posizione = 0;
  for (;;) {
    const int64_t letti = piattaforma::LeggiFile(NomeFileGiornale, posizione, pezzo, sizeof pezzo);
    if (letti <= 0 || lettore.Fermo()) break;
    lettore.Leggi(pezzo, size_t(letti));
    posizione += uint64_t(letti);
  }
  return lettore.Fine();
}
