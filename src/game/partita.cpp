#include "game/partita.h"

#include <cstddef>
#include <cstdint>

#include "board/mossa.h"
#include "board/posizione.h"
#include "clock/orologio.h"
#include "game/aggiudicazione.h"
#include "messaggi/messaggi.h"
#include "moves/genera.h"
#include "moves/legali.h"
#include "moves/registro.h"
#include "moves/tavole.h"
#include "piattaforma/piattaforma.h"
#include "testo/composizione.h"

char ElencoStringaMossa[MAX_SEMIMOSSE][LUNGHEZZA_STRINGA_MOSSA];
int32_t TempoDopoMossa[MAX_SEMIMOSSE];
RecordDettagliMossa DettagliMossa;

const char* const CaratteriUtili = "12345678abcdefghNBRQK0";
const char* const ColonnaInMaiuscolo = "ACDEFGH";
const char* const PezzoInMinuscolo = "nrqk";
const char* const Oo = "Oo";

uint32_t Ripetizioni;
uint32_t PosizioneRipetuta[2];
const char* const StringaRipetizioni[3] = {
    "non si e' mai verificata prima", "e' identica a quella dopo", "e' identica a quelle dopo"};

const char* const TestoPartitaCompleta =
    "La partita ha raggiunto il numero massimo di semimosse registrabili: non si possono giocare "
    "altre mosse.";

namespace {

constexpr int8_t S = VALORE_SCONOSCIUTO;
constexpr int INDICE_LETTERA_PEZZO = 15;  // CaratteriUtili[kind + 15] is the kind's letter
constexpr int MASSIMO_CARATTERI_MOSSA = 5;
constexpr uint32_t NESSUN_PEZZO = 255;  // TipoPromozioneMossa of a move that promotes nothing
constexpr const char* PATTA = "1/2-1/2";
// The draws the arbiter declares without a claim.
constexpr uint64_t SEMIMOSSE_SETTANTACINQUE = 150;
constexpr uint32_t OCCORRENZE_QUINTUPLA = 5;

// Names of the kinds for the debug print; the diagnostics keep their own.
constexpr const char* NomePezzo[6] = {"Pedone", "Cavallo", "Alfiere", "Torre", "Donna", "Re"};

bool Contiene(const char* testo, char c) {
  for (; *testo; ++testo)
    if (*testo == c) return true;
  return false;
}
int IndiceIn(const char* testo, char c) {
  for (int i = 0; testo[i]; ++i)
    if (testo[i] == c) return i;
  return -1;
}

// ASCII only, whatever the locale: the field holds nothing else.
constexpr bool Minuscola(char c) { return c >= 'a' && c <= 'z'; }
constexpr bool Maiuscola(char c) { return c >= 'A' && c <= 'Z'; }
constexpr bool Cifra(char c) { return c >= '0' && c <= '9'; }

constexpr int8_t Colonna(uint64_t casa) { return int8_t(casa & 7); }
constexpr int8_t Riga(uint64_t casa) { return int8_t(casa >> 3); }
constexpr bool Vicine(int8_t a, int8_t b) { return a - b == 1 || b - a == 1; }

bool Noto(int8_t campo) { return campo != S; }

// The first earlier position of this game: the one the game started from.
uint64_t PlyIniziale() { return TurnoIniziale; }

// How much of the origin the record must show, left in DettagliMossa; the
// legal list still holds the moves of the position before the move. False
// when not even the whole origin makes it unique.
bool Disambigua(uint64_t mossa, int8_t pezzo) {
  const uint64_t o = OrigineMossa(mossa), d = DestinazioneMossa(mossa);
  RecordDettagliMossa& dm = DettagliMossa;
  dm = {pezzo, S, S, S, Colonna(d), Riga(d)};
  if (TrovaMossaCompatibile()) return true;
  dm.ColonnaPartenza = Colonna(o);
  if (TrovaMossaCompatibile()) return true;
  dm.ColonnaPartenza = S;
  dm.RigaPartenza = Riga(o);
  if (TrovaMossaCompatibile()) return true;
  // The full origin alone: the piece letter is left out, and so it stays.
  dm.ColonnaPartenza = Colonna(o);
  dm.TipoPezzo = S;
  return TrovaMossaCompatibile() != 0;
}

// "1.Nf3": the full-move number of ply p and its text.
void AggiungiMossaDelPly(uint64_t p) {
  AggiungiNumero(int64_t(((p - 1) >> 1) + 1));
  AggiungiCarattere('.');
  AggiungiTesto(ElencoStringaMossa[p]);
}

void ScriviTesto(const char* testo) {
  size_t n = 0;
  while (testo[n]) ++n;
  piattaforma::Scrivi(testo, n);
}

void ScriviPezzo(const char* etichetta, int8_t valore) {
  ScriviTesto(etichetta);
  ScriviTesto(valore >= 0 && valore <= RE ? NomePezzo[valore] : "valore sconosciuto");
}

void ScriviColonna(const char* etichetta, int8_t valore) {
  ScriviTesto(etichetta);
  if (valore >= 0 && valore < 8) {
    const char lettera = LetteraDellaColonna(uint64_t(valore));
    piattaforma::Scrivi(&lettera, 1);
  } else {
    ScriviTesto("valore sconosciuto");
  }
}

void ScriviRiga(const char* etichetta, int8_t valore) {
  ScriviTesto(etichetta);
  if (valore >= 0 && valore < 8) {
    const char cifra = CifraDellaRiga(uint64_t(valore));
    piattaforma::Scrivi(&cifra, 1);
  } else {
    ScriviTesto("valore sconosciuto");
  }
}

}  // namespace

// ---------------------------------------------------------------------------
// Reading the typed text.

int LeggiDettagliMossaDaComando(const char* testo) {
  DettagliMossa = {S, S, S, S, S, S};

  char letti[MASSIMO_CARATTERI_MOSSA];
  int numero = 0, zeri = 0;
  for (const char* p = testo; *p; ++p) {
    char c = *p;
    if (!(Minuscola(c) || Maiuscola(c) || Cifra(c)) || c == 'x' || c == 'X') continue;
    if (Contiene(ColonnaInMaiuscolo, c))
      c = char(c - 'A' + 'a');
    else if (Contiene(PezzoInMinuscolo, c))
      c = char(c - 'a' + 'A');
    else if (Contiene(Oo, c))
      c = '0';
    if (!Contiene(CaratteriUtili, c)) return 0;
    if (numero == MASSIMO_CARATTERI_MOSSA) return 0;
    if (c == '0') ++zeri;
    letti[numero++] = c;
  }
  if (numero < 2) return 0;

  if (zeri) {
    if (numero > 3 || zeri != numero) return 0;
    DettagliMossa.TipoPezzo = RE;
    DettagliMossa.ColonnaPartenza = 4;
    DettagliMossa.ColonnaDestinazione = zeri == 2 ? 6 : 2;
    return 1;
  }

  const char* resto = letti;
  if (Maiuscola(resto[0])) {
    DettagliMossa.TipoPezzo = int8_t(IndiceIn(CaratteriUtili, resto[0]) - INDICE_LETTERA_PEZZO);
    ++resto;
    --numero;
  } else if (Maiuscola(resto[numero - 1])) {
    DettagliMossa.TipoPromozione =
        int8_t(IndiceIn(CaratteriUtili, resto[numero - 1]) - INDICE_LETTERA_PEZZO);
    --numero;
  }
  if (numero < 2 || numero > 4) return 0;

  int8_t valore[4];
  unsigned cifre = 0;  // bit i: character i is a digit
  for (int i = 0; i < numero; ++i) {
    const char c = resto[i];
    if (Cifra(c)) {
      cifre |= 1u << i;
      valore[i] = int8_t(8 - (c - '0'));
    } else if (Minuscola(c)) {
      valore[i] = int8_t(c - 'a');
    } else {
      return 0;
    }
  }

  RecordDettagliMossa& dm = DettagliMossa;
  switch (numero) {
    case 2:
      if (!Noto(dm.TipoPezzo)) dm.TipoPezzo = PEDONE;
      if (cifre == 0b10) {
        dm.ColonnaDestinazione = valore[0];
        dm.RigaDestinazione = valore[1];
        return 1;
      }
      // Two files: a pawn capture, and only between neighbouring files.
      if (cifre == 0 && dm.TipoPezzo == PEDONE) {
        dm.ColonnaPartenza = valore[0];
        dm.ColonnaDestinazione = valore[1];
        return Vicine(valore[0], valore[1]) ? 1 : 0;
      }
      return 0;
    case 3:
      if (!Noto(dm.TipoPezzo)) dm.TipoPezzo = PEDONE;
      if (cifre == 0b100)
        dm.ColonnaPartenza = valore[0];
      else if (cifre == 0b101)
        dm.RigaPartenza = valore[0];
      else
        return 0;
      dm.ColonnaDestinazione = valore[1];
      dm.RigaDestinazione = valore[2];
      return 1;
    default:
      // Both squares: an unnamed piece stays unknown, so g1f3 is whatever
      // piece makes that move.
      if (cifre != 0b1010) return 0;
      dm.ColonnaPartenza = valore[0];
      dm.RigaPartenza = valore[1];
      dm.ColonnaDestinazione = valore[2];
      dm.RigaDestinazione = valore[3];
      return 1;
  }
}

// ---------------------------------------------------------------------------
// The legal moves and the typed move.

uint64_t TrovaMossaCompatibile() {
  const RecordDettagliMossa& dm = DettagliMossa;
  uint64_t trovata = 0;
  int quante = 0;
  for (const uint64_t* p = BufferMosseGenerate; p < FineMosseGenerate; ++p) {
    const uint64_t mossa = *p;
    const uint64_t tipo = TipoMossa(mossa);
    const uint64_t o = OrigineMossa(mossa), d = DestinazioneMossa(mossa);
    if (Noto(dm.TipoPezzo) && uint32_t(dm.TipoPezzo) != TipoPezzoMossa[tipo]) continue;
    if (Noto(dm.ColonnaPartenza) && dm.ColonnaPartenza != Colonna(o)) continue;
    if (Noto(dm.RigaPartenza) && dm.RigaPartenza != Riga(o)) continue;
    if (Noto(dm.ColonnaDestinazione) && dm.ColonnaDestinazione != Colonna(d)) continue;
    if (Noto(dm.RigaDestinazione) && dm.RigaDestinazione != Riga(d)) continue;
    const uint32_t promozione = TipoPromozioneMossa[tipo];
    if (Noto(dm.TipoPromozione)) {
      if (uint32_t(dm.TipoPromozione) != promozione) continue;
    } else if (promozione != NESSUN_PEZZO && promozione != DONNA) {
      // An unstated promotion is a queen's.
      continue;
    }
    ++quante;
    trovata = mossa;
  }
  return quante == 1 ? trovata : 0;
}

void GeneraMosseLegali() { FiltraMosseLegali(); }

bool PartitaCompleta() { return ContatoreMosse >= ULTIMA_SEMIMOSSA; }

uint64_t FaiMossaInComando() {
  if (PartitaCompleta()) return 0;
  RecordDettagliMossa& dm = DettagliMossa;
  const bool destinazione = Noto(dm.ColonnaDestinazione) && Noto(dm.RigaDestinazione);

  // Lower-case b as a bishop: a "pawn" between files that are not
  // neighbours can only be a bishop whose first letter is dropped.
  if (dm.TipoPezzo == PEDONE && Noto(dm.ColonnaPartenza) && !Noto(dm.RigaPartenza) &&
      destinazione && !Vicine(dm.ColonnaPartenza, dm.ColonnaDestinazione)) {
    dm.TipoPezzo = ALFIERE;
    dm.ColonnaPartenza = S;
  }
  uint64_t mossa = TrovaMossaCompatibile();
  // A b-pawn capture wins when it exists; otherwise the bishop.
  if (!mossa && dm.TipoPezzo == PEDONE && dm.ColonnaPartenza == 1 && !Noto(dm.RigaPartenza) &&
      destinazione) {
    dm.TipoPezzo = ALFIERE;
    dm.ColonnaPartenza = S;
    mossa = TrovaMossaCompatibile();
  }
  if (!mossa) return 0;

  const Colore lato = AlTratto();
  if (!fai_mossa[lato][TipoMossa(mossa)](mossa)) return 0;
  if (InMoto) PremiOrologio(lato);
  return mossa;
}

// ---------------------------------------------------------------------------
// Notation and the end of the game.

void ImpostaTempoDopoMossa(uint64_t semimossa, int32_t millisecondi) {
  if (semimossa < uint64_t(MAX_SEMIMOSSE)) TempoDopoMossa[semimossa] = millisecondi;
}

EsitoMossa AnnotaMossa(uint64_t mossa) {
  EsitoMossa esito{mossa, false, FineDellaPartita::Nessuna, DomandaAllArbitro::Nessuna, false};
  const uint64_t n = ContatoreMosse;
  // Before any adjudication can stop the clock: the mover's time as pressed.
  TempoDopoMossa[n] = TempoRimasto[(n - 1) & 1];
  // Never past its slot: seven characters at most.
  Composizione testo(ElencoStringaMossa[n], LUNGHEZZA_STRINGA_MOSSA);

  const uint64_t tipo = TipoMossa(mossa);
  if (tipo == ARROCCO_CORTO) {
    testo.Testo("0-0");
  } else if (tipo == ARROCCO_LUNGO) {
    testo.Testo("0-0-0");
  } else {
    const uint64_t o = OrigineMossa(mossa), d = DestinazioneMossa(mossa);
    const uint32_t pezzo = TipoPezzoMossa[tipo];
    const uint32_t promozione = TipoPromozioneMossa[tipo];
    if (pezzo == PEDONE) {
      if (Colonna(o) != Colonna(d)) {
        testo.Carattere(LetteraDellaColonna(uint64_t(Colonna(o))));
        testo.Carattere('x');
      }
    } else if (pezzo == RE) {
      testo.Carattere('K');
      if (tipo > PEDONE_CATTURA) testo.Carattere('x');
    } else {
      esito.disambigua_fallita = !Disambigua(mossa, int8_t(pezzo));
      const RecordDettagliMossa& dm = DettagliMossa;
      if (Noto(dm.TipoPezzo)) testo.Carattere(CaratteriUtili[dm.TipoPezzo + INDICE_LETTERA_PEZZO]);
      if (Noto(dm.ColonnaPartenza))
        testo.Carattere(LetteraDellaColonna(uint64_t(dm.ColonnaPartenza)));
      if (Noto(dm.RigaPartenza)) testo.Carattere(CifraDellaRiga(uint64_t(dm.RigaPartenza)));
      if (tipo > PEDONE_CATTURA) testo.Carattere('x');
    }
    testo.Testo(NomeCasa(d).testo);
    if (promozione != NESSUN_PEZZO) {
      testo.Carattere('=');
      testo.Carattere(CaratteriUtili[promozione + INDICE_LETTERA_PEZZO]);
    }
  }

  GeneraMosseLegali();

  // A check held only in the second checker field (a discovered check, the
  // rook of a castling) counts as well: the whole word is compared.
  esito.scacco = InfoPosizione < NESSUNO_SCACCO;

  if (FineMosseGenerate == BufferMosseGenerate) {
    if (esito.scacco) {
      testo.Carattere('#');
      Aggiudica("Checkmate", "scaccomatto", StringaSconfitta[n & 1]);
      esito.fine = FineDellaPartita::Scaccomatto;
    } else {
      Aggiudica("stalemate", "stallo", PATTA);
      esito.fine = FineDellaPartita::Stallo;
    }
    return esito;
  }

  if (esito.scacco) testo.Carattere('+');

  if (!PuoVincereIl_bianco() && !PuoVincereIl_nero()) {
    Aggiudica("insufficient material", "materiale insufficente", PATTA);
    esito.fine = FineDellaPartita::MaterialeInsufficiente;
    return esito;
  }

  if (SemimosseReversibili() >= SEMIMOSSE_SETTANTACINQUE) {
    ScansionaRipetizioni();
    Aggiudica("75-move rule", "regola delle 75 mosse", PATTA);
    esito.fine = FineDellaPartita::SettantacinqueMosse;
    return esito;
  }
  if (OccorrenzePosizione() >= OCCORRENZE_QUINTUPLA) {
    ScansionaRipetizioni();
    Aggiudica("fivefold repetition", "quintupla ripetizione", PATTA);
    esito.fine = FineDellaPartita::QuintuplaRipetizione;
    return esito;
  }

  // Exactly 100: a declined claim is not offered again at 101.
  if (Semimosse(InfoPosizione) == 100) {
    esito.domanda = DomandaAllArbitro::CinquantaMosse;
    return esito;
  }
  return RifiutaCinquantaMosse(esito);
}

void AccettaCinquantaMosse() { Aggiudica("Fifty-move rule", "regola delle 50 mosse", PATTA); }

EsitoMossa RifiutaCinquantaMosse(EsitoMossa esito) {
  ScansionaRipetizioni();
  esito.domanda =
      Ripetizioni == 2 ? DomandaAllArbitro::TripliceRipetizione : DomandaAllArbitro::Nessuna;
  return esito;
}

void AggiudicaTriplice() { Aggiudica("threefold repetition", "triplice ripetizione", PATTA); }

uint64_t FaiMossaDaCase(int8_t colonna_da, int8_t riga_da, int8_t colonna_a, int8_t riga_a,
                        int8_t promozione) {
  if (PartitaCompleta()) return 0;
  DettagliMossa = {S, promozione < 0 ? S : promozione, colonna_da, riga_da, colonna_a, riga_a};
  const uint64_t trovata = TrovaMossaCompatibile();
  const uint32_t promossa = promozione < 0 ? NESSUN_PEZZO : uint32_t(promozione);
  // An unstated promotion would also find a queen's: the kind must be the one given.
  if (!trovata || TipoPromozioneMossa[TipoMossa(trovata)] != promossa) return 0;
  const uint64_t mossa = FaiMossaInComando();
  return mossa == trovata ? mossa : 0;
}

// ---------------------------------------------------------------------------
// Repetitions and the panel sentences.

uint64_t SemimosseReversibili() {
  // Each ply's saved information word holds its count up to 127: back to
  // the last ply whose count is still exact.
  const uint64_t n = ContatoreMosse;
  auto conteggio = [n](uint64_t k) {
    return Semimosse(k == n ? InfoPosizione : backup_InfoPosizione[k]);
  };
  uint64_t k = n;
  while (k > PlyIniziale() && conteggio(k) == MASCHERA_SEMIMOSSE) --k;
  return n - k + conteggio(k);
}

namespace {

// The first ply a repetition of the current position can be found at: no
// position before an irreversible move can come back.
int64_t InizioRipetizioni() {
  const int64_t limite = int64_t(ContatoreMosse) - int64_t(SemimosseReversibili());
  return limite < int64_t(PlyIniziale()) ? int64_t(PlyIniziale()) : limite;
}

}  // namespace

uint32_t OccorrenzePosizione() {
  uint32_t occorrenze = 1;
  const int64_t limite = InizioRipetizioni();
  for (int64_t k = int64_t(ContatoreMosse) - 4; k >= limite; k -= 2)
    if (backup_ChiaveHash[k] == ChiaveHash) ++occorrenze;
  return occorrenze;
}

void ScansionaRipetizioni() {
  Ripetizioni = 0;
  const int64_t n = int64_t(ContatoreMosse);
  const int64_t limite = InizioRipetizioni();
  // n - 2 is one move of each side away: no such pair leaves every piece
  // where it stood.
  for (int64_t k = n - 4; k >= limite; k -= 2) {
    if (backup_ChiaveHash[k] != ChiaveHash) continue;
    PosizioneRipetuta[Ripetizioni++] = uint32_t(k);
    if (Ripetizioni == 2) break;
  }
}

void ComponiFraseRipetizioni() {
  SvuotaMessaggio();
  AggiungiTesto("la posizione corrente ");
  const uint64_t iniziale = PlyIniziale();
  switch (Ripetizioni) {
    case 0:
      AggiungiTesto(ContatoreMosse == iniziale ? "e' quella iniziale" : StringaRipetizioni[0]);
      break;
    case 1:
      if (PosizioneRipetuta[0] == iniziale) {
        AggiungiTesto("e' identica a quella iniziale");
      } else {
        AggiungiTesto(StringaRipetizioni[1]);
        AggiungiCarattere(' ');
        AggiungiMossaDelPly(PosizioneRipetuta[0]);
      }
      break;
    default:
      // The older occurrence first.
      if (PosizioneRipetuta[1] == iniziale) {
        AggiungiTesto("e' identica a quella iniziale e quella dopo ");
      } else {
        AggiungiTesto(StringaRipetizioni[2]);
        AggiungiCarattere(' ');
        AggiungiMossaDelPly(PosizioneRipetuta[1]);
        AggiungiTesto(" e ");
      }
      AggiungiMossaDelPly(PosizioneRipetuta[0]);
      break;
  }
}

void ComponiFraseSemimosse() {
  SvuotaMessaggio();
  AggiungiTesto("semimosse: ");
  if (ContatoreMosse > PlyIniziale()) {
    AggiungiTesto("ultima ");
    AggiungiTesto(ElencoStringaMossa[ContatoreMosse]);
    AggiungiTesto(", ");
  }
  AggiungiTesto("reversibili ");
  AggiungiNumero(int64_t(Semimosse(InfoPosizione)));
  AggiungiTesto(", totali ");
  AggiungiNumero(int64_t(ContatoreMosse));
}

// ---------------------------------------------------------------------------
// Take-back and a new game.

int RitiraUltimaMossa() {
  // The record before TurnoIniziale is not this game's (a position loaded
  // with Black to move, or the double step its en passant field implies).
  if (ContatoreMosse <= PlyIniziale()) return 0;
  const uint64_t mossa = ElencoMosse[ContatoreMosse];
  const Colore mosso = Colore((ContatoreMosse - 1) & 1);
  ritira_mossa[mosso][TipoMossa(mossa)](mossa);
  RevocaAggiudicazione();
  GeneraMosseLegali();
  // Ripetizioni stays: the panel still describes the position taken back.
  return 1;
}

uint32_t PartiteIniziate;

void AzzeraPartita() {
  ++PartiteIniziate;
  Ripetizioni = 0;
  PosizioneRipetuta[0] = PosizioneRipetuta[1] = 0;
  GeneraMosseLegali();
}

StatoRipetizioni FotografiaRipetizioni() {
  return {Ripetizioni, {PosizioneRipetuta[0], PosizioneRipetuta[1]}};
}

void RipristinaRipetizioni(const StatoRipetizioni& stato) {
  Ripetizioni = stato.ripetizioni;
  PosizioneRipetuta[0] = stato.posizione[0];
  PosizioneRipetuta[1] = stato.posizione[1];
}

// ---------------------------------------------------------------------------

void ScriviDettagliMossa() {
  const RecordDettagliMossa& dm = DettagliMossa;
  ScriviPezzo("\ntipo pezzo: ", dm.TipoPezzo);
  ScriviPezzo("\ntipo promozione: ", dm.TipoPromozione);
  ScriviColonna("\ncolonna partenza: ", dm.ColonnaPartenza);
  ScriviRiga("\nriga partenza: ", dm.RigaPartenza);
  ScriviColonna("\ncolonna destinazione: ", dm.ColonnaDestinazione);
  ScriviRiga("\nriga destinazione: ", dm.RigaDestinazione);
  ScriviTesto("\n");
}
