// libFuzzer target for the journal reader. The input is copied into a buffer
// of exactly its length, so that AddressSanitizer catches a read past the
// text. Whatever the text, checking and playing agree on where the journal
// stops being good, the game rebuilt is a consistent one (the keys and the
// legal list of its position, its ply count), the clock stays stopped, no box
// opens, and the same text fed in pieces reads the same.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "board/fen.h"
#include "board/geometria.h"
#include "board/posizione.h"
#include "clock/orologio.h"
#include "game/aggiudicazione.h"
#include "game/giornale.h"
#include "game/partita.h"
#include "moves/genera.h"
#include "piattaforma/memoria/memoria.h"
#include "settings/parametri.h"

namespace {

// The fresh game the console starts before it reads a journal.
void NuovaPartitaVuota() {
  memoria::Azzera();
  DefaultIni();
  SvuotaScacchiera();
  if (!CaricaPosizioneDaStringaFen(FenIniziale)) std::abort();
  CaricaTempoDaiParametri();
  RevocaAggiudicazione();
  AzzeraPartita();
}

struct Fotografia {
  EsitoGiornale esito;
  uint64_t chiave, contatore, info;
  int32_t tempo[2];
  char result[8];
  uint32_t ripetizioni;
};

Fotografia Scatta(const EsitoGiornale& esito) {
  Fotografia f{esito, ChiaveHash, ContatoreMosse, InfoPosizione, {TempoRimasto[0], TempoRimasto[1]},
               {},    Ripetizioni};
  std::memcpy(f.result, Result, sizeof f.result);
  return f;
}

bool Uguali(const Fotografia& a, const Fotografia& b) {
  return a.esito.inizio == b.esito.inizio && a.esito.chiuso == b.esito.chiuso &&
         a.esito.danneggiato == b.esito.danneggiato && a.esito.troncato == b.esito.troncato &&
         a.esito.semimossa == b.esito.semimossa && a.esito.record == b.esito.record &&
         a.chiave == b.chiave && a.contatore == b.contatore && a.info == b.info &&
         a.tempo[0] == b.tempo[0] && a.tempo[1] == b.tempo[1] &&
         std::memcmp(a.result, b.result, sizeof a.result) == 0 && a.ripetizioni == b.ripetizioni;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
  static const bool tabelle = [] {
    InizializzaTabelle();
    return true;
  }();
  (void)tabelle;
  char* testo = static_cast<char*>(std::malloc(lunghezza ? lunghezza : 1));
  if (lunghezza) std::memcpy(testo, dati, lunghezza);

  NuovaPartitaVuota();
  const EsitoGiornale esame = LeggiGiornale(testo, lunghezza, false);
  NuovaPartitaVuota();
  const EsitoGiornale esito = LeggiGiornale(testo, lunghezza, true);
  const Fotografia intera = Scatta(esito);

  // Playing can only stop earlier than checking, never later.
  if (esito.record > esame.record || esito.inizio != esame.inizio) std::abort();
  if (esito.record == esame.record &&
      (esito.semimossa != esame.semimossa || esito.danneggiato != esame.danneggiato))
    std::abort();
  if (esito.semimossa != ContatoreMosse) std::abort();
  if (InMoto != 0 || !memoria::Finestre().empty() || !memoria::Toni().empty()) std::abort();
  for (const RigaIni& riga : ParametroIni)
    if (riga.valore < riga.minimo || riga.valore > riga.massimo) std::abort();
  // The position is a whole one: its keys recomputed and its legal list.
  const uint64_t chiave = ChiaveHash;
  const uint64_t* fine = FineMosseGenerate;
  GeneraMosseLegali();
  if (ChiaveHash != chiave || FineMosseGenerate != fine) std::abort();

  // Two pieces split where the first byte says, then one byte at a time.
  const size_t taglio = lunghezza ? size_t(dati[0]) % (lunghezza + 1) : 0;
  NuovaPartitaVuota();
  LettoreGiornale lettore;
  lettore.Avvia(true);
  lettore.Leggi(testo, taglio);
  lettore.Leggi(testo + taglio, lunghezza - taglio);
  if (!Uguali(Scatta(lettore.Fine()), intera)) std::abort();
  NuovaPartitaVuota();
  lettore.Avvia(true);
  for (size_t i = 0; i < lunghezza; ++i) lettore.Leggi(testo + i, 1);
  if (!Uguali(Scatta(lettore.Fine()), intera)) std::abort();

  std::free(testo);
  return 0;
}
