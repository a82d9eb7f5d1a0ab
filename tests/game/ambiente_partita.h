// A game on the in-memory platform for the tests of the game record: the
// tables built once, a loaded position with its legal moves, an open game,
// a stopped clock, and the road of a typed move as the console takes it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "board/fen.h"
#include "board/geometria.h"
#include "board/mossa.h"
#include "board/posizione.h"
#include "clock/orologio.h"
#include "game/aggiudicazione.h"
#include "game/partita.h"
#include "messaggi/messaggi.h"
#include "moves/genera.h"
#include "moves/tavole.h"
#include "piattaforma/memoria/memoria.h"
#include "supporto/arbitro.h"
#include "supporto/istantanea.h"
#include "supporto/partite_a_caso.h"
#include "supporto/stati.h"
#include "supporto/tabelle.h"

using namespace piattaforma::win32;

constexpr unsigned AVVISO = MB_OK | MB_ICONINFORMATION;

// Square number from its name, "a8" = 0 ... "h1" = 63.
constexpr uint64_t Casa(const char* nome) {
  return uint64_t((nome[0] - 'a') + 8 * ('8' - nome[1]));
}

using partite_a_caso::Coordinate;

// The legal move list as coordinates, sorted.
// The legal move list as move words, sorted: cheaper to compare.
inline std::vector<uint64_t> ParoleLegali() {
  std::vector<uint64_t> mosse(BufferMosseGenerate, FineMosseGenerate);
  std::sort(mosse.begin(), mosse.end());
  return mosse;
}

inline std::vector<std::string> Legali() {
  std::vector<std::string> mosse;
  for (const uint64_t* p = BufferMosseGenerate; p < FineMosseGenerate; ++p)
    mosse.push_back(Coordinate(*p));
  std::sort(mosse.begin(), mosse.end());
  return mosse;
}

// The one move that `testo` means in the legal list, without playing it;
// 0 when the text is no move or no single move matches.
inline uint64_t Cerca(const char* testo) {
  if (!LeggiDettagliMossaDaComando(testo)) return 0;
  return TrovaMossaCompatibile();
}

// What the moves played brought about, in order, as the console is told:
// the end adjudicated ("scaccomatto", "stallo", "materiale insufficente",
// "settantacinque mosse", "quintupla ripetizione"),
// the arbiter's questions ("cinquanta mosse", "triplice ripetizione"), and a
// disambiguation that found no unique origin ("disambigua").
inline std::vector<std::string> Esiti;
// The arbiter's answer to the fifty-move question; the threefold question
// adjudicates the draw whatever the answer.
inline bool AccettaLeCinquantaMosse = false;

// The move just played written in the record, and the arbiter's answers;
// what the console would be told goes to Esiti.
inline EsitoMossa Annota(uint64_t mossa) {
  const EsitoMossa esito = AnnotaConArbitro(mossa, AccettaLeCinquantaMosse);
  if (esito.disambigua_fallita) Esiti.push_back("disambigua");
  switch (esito.fine) {
    case FineDellaPartita::Scaccomatto:
      Esiti.push_back("scaccomatto");
      break;
    case FineDellaPartita::Stallo:
      Esiti.push_back("stallo");
      break;
    case FineDellaPartita::MaterialeInsufficiente:
      Esiti.push_back("materiale insufficente");
      break;
    case FineDellaPartita::SettantacinqueMosse:
      Esiti.push_back("settantacinque mosse");
      break;
    case FineDellaPartita::QuintuplaRipetizione:
      Esiti.push_back("quintupla ripetizione");
      break;
    case FineDellaPartita::Nessuna:
      break;
  }
  // A refused fifty-move draw leads on to the repetition scan.
  if (Semimosse(InfoPosizione) == 100 && esito.fine == FineDellaPartita::Nessuna)
    Esiti.push_back("cinquanta mosse");
  if (esito.domanda == DomandaAllArbitro::TripliceRipetizione)
    Esiti.push_back("triplice ripetizione");
  return esito;
}

// The road of a typed move: read, found and played, written in the record.
// The record's text, or "" when nothing was played.
inline std::string Gioca(const char* testo) {
  if (!LeggiDettagliMossaDaComando(testo)) return "";
  const uint64_t mossa = FaiMossaInComando();
  if (!mossa) return "";
  Annota(mossa);
  return ElencoStringaMossa[ContatoreMosse];
}

// Moves one after another, as the arbiter would after a Yes to the
// revocation question; the texts written, space-separated.
inline std::string GiocaRevocando(const std::vector<const char*>& testi) {
  std::string scritti;
  for (const char* testo : testi) {
    if (PartitaAggiudicata()) RevocaAggiudicazione();
    if (!scritti.empty()) scritti += ' ';
    const std::string scritto = Gioca(testo);
    scritti += scritto.empty() ? std::string("<") + testo + "?>" : scritto;
  }
  return scritti;
}

inline std::string FraseRipetizioni() {
  ComponiFraseRipetizioni();
  return messaggio;
}

inline std::string Stato() {
  return std::string(Result) + " | " + Termination + " | " + CommentoRisultato;
}

class AmbientePartita : public ::testing::Test {
 protected:
  void SetUp() override {
    InizializzaTabelleUnaVolta();
    memoria::Azzera();
    InstallaDopoFinestra(nullptr);
    InstallaSchermoOrologio({});
    SegnaOrologioInMoto(false);
    Esiti.clear();
    AccettaLeCinquantaMosse = false;
    RevocaAggiudicazione();
    Nuova(FenIniziale);
  }

  // A new game from the text, as the console starts one.
  static void Nuova(const char* fen) {
    SvuotaScacchiera();
    ASSERT_EQ(CaricaPosizioneDaStringaFen(fen), 1) << fen;
    RevocaAggiudicazione();
    AzzeraPartita();
  }

  // The boxes shown, as "text [style]".
  static std::vector<std::string> Finestre() {
    std::vector<std::string> f;
    for (const auto& finestra : memoria::Finestre()) {
      EXPECT_EQ(finestra.titolo, "Attenzione!");
      f.push_back(finestra.testo + " [" + std::to_string(finestra.stile) + "]");
    }
    return f;
  }
  static std::string Box(const std::string& testo, unsigned stile) {
    return testo + " [" + std::to_string(stile) + "]";
  }
};
