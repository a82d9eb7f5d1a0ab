// The settings table and pendrino.ini.
#include "settings/parametri.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "messaggi/messaggi.h"
#include "piattaforma/piattaforma.h"
#include "settings/lettore_ini.h"

RigaIni ParametroIni[NUMERO_PARAMETRI] = {
    {"periodi", "periodi", "periodi", 1, 1, 1, 2},
    {"mosse_primo_periodo", "mosse primo periodo", "mosse", 40, 40, 10, 100},
    {"tempo_primo_periodo", "tempo primo periodo", "minuti", 120, 120, 1, 720},
    {"incremento_primo_periodo", "incremento primo periodo", "secondi", 0, 0, 0, 600},
    {"tempo_secondo_periodo", "tempo secondo periodo", "minuti", 30, 30, 1, 720},
    {"incremento_secondo_periodo", "incremento secondo periodo", "secondi", 0, 0, 0, 600},
    {"aggiornamento_automatico_a_schermo", "Aggiornamento automatico a schermo del tempo in moto",
     "valore booleano", 1, 1, 0, 1},
    {"allarme1", "primo allarme", "minuti", 15, 15, 0, 720},
    {"allarme2", "secondo allarme", "minuti", 30, 30, 0, 720},
    {"allarme3", "terzo allarme", "minuti", 60, 60, 0, 720},
    {"allarme4", "quarto allarme", "minuti", 90, 90, 0, 720},
    {"allarme5", "quinto allarme", "minuti", 120, 120, 0, 720},
};

const char* const NomeFileIni = "pendrino.ini";

namespace {

// The file is written as the platform's text mode writes it.
#ifdef _WIN32
constexpr char FINE_RIGA[] = "\r\n";
#else
constexpr char FINE_RIGA[] = "\n";
#endif

// scanf's white space in the C locale.
constexpr bool Spazio(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}
constexpr bool Cifra(char c) { return c >= '0' && c <= '9'; }

// The magnitude of the most negative 32-bit value: beyond it no sign helps.
constexpr uint64_t MODULO_MASSIMO = uint64_t(INT32_MAX) + 1;

// Twelve blocks of at most about 220 bytes each, with CR LF line ends.
struct TestoIni {
  char byte[4096];
  size_t lunghezza = 0;
  bool traboccato = false;
};

#if defined(__GNUC__) || defined(__clang__)
__attribute__((format(printf, 2, 3)))
#endif
void Accoda(TestoIni& testo, const char* formato, ...) {
  char pezzo[160];
  va_list argomenti;
  va_start(argomenti, formato);
  const int n = std::vsnprintf(pezzo, sizeof pezzo, formato, argomenti);
  va_end(argomenti);
  if (n < 0 || size_t(n) >= sizeof pezzo) {
    testo.traboccato = true;
    return;
  }
  for (int i = 0; i < n; ++i) {
    const char* aggiunta = pezzo[i] == '\n' ? FINE_RIGA : &pezzo[i];
    const size_t quanti = pezzo[i] == '\n' ? sizeof FINE_RIGA - 1 : 1;
    if (testo.lunghezza + quanti > sizeof testo.byte) {
      testo.traboccato = true;
      return;
    }
    std::memcpy(testo.byte + testo.lunghezza, aggiunta, quanti);
    testo.lunghezza += quanti;
  }
}

int CercaChiave(const char* chiave, size_t lunghezza) {
  for (int riga = 0; riga < NUMERO_PARAMETRI; ++riga) {
    const char* nota = ParametroIni[riga].chiave;
    if (std::strlen(nota) == lunghezza && std::memcmp(nota, chiave, lunghezza) == 0) return riga;
  }
  return -1;
}

}  // namespace

void LettoreIni::Avvia() {
  DefaultIni();
  *this = LettoreIni{};
}

bool LettoreIni::Leggi(const char* testo, size_t lunghezza) {
  for (size_t i = 0; i < lunghezza && stato_ != Stato::Fermo; ++i) Carattere(testo[i]);
  return stato_ != Stato::Fermo;
}

void LettoreIni::Carattere(char c) {
  switch (stato_) {
    case Stato::Fuori:
      if (c == '$') stato_ = Stato::PrimaDellaChiave;
      return;
    case Stato::PrimaDellaChiave:
      if (Spazio(c)) return;
      lunghezza_chiave_ = 0;
      stato_ = Stato::Chiave;
      [[fallthrough]];
    case Stato::Chiave:
      if (Spazio(c)) {
        ChiaveLetta();
      } else if (lunghezza_chiave_ == sizeof chiave_ - 1) {
        // Longer than any field can hold: no key can match it.
        Ferma();
      } else {
        chiave_[lunghezza_chiave_++] = c;
      }
      return;
    case Stato::PrimaDelNumero:
      if (Spazio(c)) return;
      negativo_ = c == '-';
      troppo_grande_ = false;
      modulo_ = 0;
      if (c == '+' || c == '-') {
        stato_ = Stato::Segno;
        return;
      }
      [[fallthrough]];
    case Stato::Segno:
      if (!Cifra(c)) {
        NumeroLetto(false);
        // As scanf, the character that ended the setting is read again.
        if (c == '$') stato_ = Stato::PrimaDellaChiave;
        return;
      }
      stato_ = Stato::Cifre;
      [[fallthrough]];
    case Stato::Cifre:
      if (!Cifra(c)) {
        NumeroLetto(true);
        if (c == '$') stato_ = Stato::PrimaDellaChiave;
        return;
      }
      if (!troppo_grande_) {
        modulo_ = modulo_ * 10 + uint64_t(c - '0');
        troppo_grande_ = modulo_ > MODULO_MASSIMO;
      }
      return;
    case Stato::Fermo:
      return;
  }
}

void LettoreIni::ChiaveLetta() {
  riga_ = CercaChiave(chiave_, lunghezza_chiave_);
  if (riga_ < 0) {
    Ferma();
    return;
  }
  stato_ = Stato::PrimaDelNumero;
}

void LettoreIni::NumeroLetto(bool leggibile) {
  stato_ = Stato::Fuori;
  trovate_ = uint16_t(trovate_ | (1u << riga_));
  const int64_t valore = negativo_ ? -int64_t(modulo_) : int64_t(modulo_);
  RigaIni& riga = ParametroIni[riga_];
  // A number that cannot be read, or does not fit 32 bits, is no value at all.
  if (leggibile && !troppo_grande_ && valore >= riga.minimo && valore <= riga.massimo) {
    riga.valore = int32_t(valore);
  } else {
    AvisaValoreIniErrato(riga_);
  }
}

void LettoreIni::Ferma() {
  stato_ = Stato::Fermo;
  DefaultIni();
}

EsitoIni LettoreIni::Fine() {
  switch (stato_) {
    case Stato::Chiave:
      ChiaveLetta();
      if (stato_ == Stato::Fermo) break;
      NumeroLetto(false);
      break;
    case Stato::PrimaDelNumero:
    case Stato::Segno:
      NumeroLetto(false);
      break;
    case Stato::Cifre:
      NumeroLetto(true);
      break;
    case Stato::Fuori:
    case Stato::PrimaDellaChiave:
    case Stato::Fermo:
      break;
  }
  if (stato_ == Stato::Fermo) return EsitoIni::ChiaveSconosciuta;
  stato_ = Stato::Fuori;
  return trovate_ == TUTTE_LE_RIGHE ? EsitoIni::Completo : EsitoIni::Incompleto;
}

void DefaultIni() {
  for (RigaIni& riga : ParametroIni) riga.valore = riga.valore_default;
}

void ScriviIni() {
  static TestoIni testo;
  testo = TestoIni{};
  for (const RigaIni& riga : ParametroIni) {
    Accoda(testo, "\n%s ", riga.descrizione);
    Accoda(testo, "(%s) ", riga.unita);
    Accoda(testo, "min: %d ", int(riga.minimo));
    Accoda(testo, "max: %d ", int(riga.massimo));
    Accoda(testo, "default: %d\n", int(riga.valore_default));
    Accoda(testo, "$\t%s\t", riga.chiave);
    Accoda(testo, "%d\n", int(riga.valore));
  }
  // Better the old file than a cut one; a failed write is not reported.
  if (!testo.traboccato) piattaforma::SostituisciFile(NomeFileIni, testo.byte, testo.lunghezza);
}

void LeggiIni() {
  LettoreIni lettore;
  lettore.Avvia();
  char blocco[4096];
  int64_t letti = piattaforma::LeggiFile(NomeFileIni, 0, blocco, sizeof blocco);
  if (letti < 0) {
    Avvisa("Non ho trovato pendrino.ini.\nVerranno ripristinati i valori default.");
    ScriviIni();
    return;
  }
  // A read error later on ends the text, as it ends a C stream.
  uint64_t posizione = 0;
  while (letti > 0 && size_t(letti) <= sizeof blocco && lettore.Leggi(blocco, size_t(letti))) {
    posizione += uint64_t(letti);
    letti = piattaforma::LeggiFile(NomeFileIni, posizione, blocco, sizeof blocco);
  }
  switch (lettore.Fine()) {
    case EsitoIni::Completo:
      return;
    case EsitoIni::ChiaveSconosciuta:
      Avvisa("'pendrino.ini' non leggibile.\nVerranno ripristinati i valori default.");
      break;
    case EsitoIni::Incompleto:
      Avvisa(
          "non ho trovato tutti i parametri in pendrino.ini.\n"
          "Verranno ripristinati i loro valori default.");
      break;
  }
  ScriviIni();
}

EsitoIni LeggiTestoIni(const char* testo, size_t lunghezza) {
  LettoreIni lettore;
  lettore.Avvia();
  if (testo) lettore.Leggi(testo, lunghezza);
  return lettore.Fine();
}

void AggiungiIntervallo(const RigaIni& riga) {
  AggiungiTesto("i valori ammessi sono compresi nell'intervallo ");
  AggiungiTesto("( ");
  AggiungiNumero(riga.minimo);
  AggiungiTesto(" - ");
  AggiungiNumero(riga.massimo);
  AggiungiTesto(").\n");
}

void AvisaValoreIniErrato(int indice) {
  if (indice < 0 || indice >= NUMERO_PARAMETRI) return;
  const RigaIni& riga = ParametroIni[indice];
  SvuotaMessaggio();
  AggiungiTesto("Errore in pendrino.ini: - valore non valido per ");
  AggiungiTesto("\"");
  AggiungiTesto(riga.descrizione);
  AggiungiTesto("\".\n");
  AggiungiIntervallo(riga);
  AggiungiTesto("Verra' ripristinato il suo valore default ");
  AggiungiTesto("( ");
  AggiungiNumero(riga.valore_default);
  AggiungiTesto(" ");
  AggiungiTesto(riga.unita);
  AggiungiTesto(" ).");
  Avvisa(messaggio);
}
