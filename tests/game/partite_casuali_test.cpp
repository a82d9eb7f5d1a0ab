// Whole games of random legal moves through the road of a typed move. Each
// move is first typed by its coordinates; the record's text for it must
// match the notation worked out here independently, and, after the move is
// taken back, typing that text must find the very same move and lead to the
// same position, record and status. Take-backs are mixed in; games end at
// mate, stalemate, insufficient material, an adjudication the arbiter keeps,
// or the record's last ply. Every game's file is read by pgn-extract.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "ambiente_partita.h"
#include "game/file_partita.h"
#include "moves/registro.h"
#include "supporto/partite_a_caso.h"
#include "verifiche/pgn_extract.h"

namespace {

using partite_a_caso::NotazioneAttesa;
using partite_a_caso::SottoScacco;

constexpr int PARTITE = 200;

struct Ply {
  Istantanea posizione;
  std::vector<uint64_t> legali;
};

class PartiteCasuali : public AmbientePartita, protected partite_a_caso::Dado {
 protected:
  // The state of the game after each ply so far, index = ply.
  std::vector<Ply> storia;

  // Counters over all games, to see that every ending was met.
  // Half-moves since the last capture or pawn move after each ply, worked
  // out from the boards: a pawn moved or a piece fewer.
  std::vector<uint64_t> reversibili;

  int finali[11] = {};
  enum {
    MATTO,
    STALLO,
    MATERIALE,
    CINQUANTA,
    TRIPLICE,
    LIMITE,
    TETTO,
    RITIRI,
    SATURO,
    SETTANTACINQUE,
    QUINTUPLA
  };

  static bool Irreversibile(const Istantanea& prima, const Istantanea& dopo) {
    return prima.pezzi[0][0] != dopo.pezzi[0][0] || prima.pezzi[1][0] != dopo.pezzi[1][0] ||
           __builtin_popcountll(prima.occupazione) != __builtin_popcountll(dopo.occupazione);
  }

  uint64_t ReversibiliDopo(const Istantanea& ora) const {
    if (storia.empty()) return 0;
    return Irreversibile(storia.back().posizione, ora) ? 0 : reversibili.back() + 1;
  }

  void Registra() {
    const Istantanea ora = Fotografa();
    reversibili.push_back(ReversibiliDopo(ora));
    storia.push_back({ora, ParoleLegali()});
    chiavi.push_back(ChiaveHash);
  }

  void Ritira() {
    ASSERT_EQ(RitiraUltimaMossa(), 1);
    storia.pop_back();
    chiavi.pop_back();
    reversibili.pop_back();
    const Istantanea ora = Fotografa();
    ASSERT_EQ(ora, storia.back().posizione) << Differenze(storia.back().posizione, ora);
    ASSERT_EQ(ParoleLegali(), storia.back().legali);
    ASSERT_FALSE(PartitaAggiudicata());
    ++finali[RITIRI];
  }

  // One ply: typed by coordinates, checked, taken back, typed again by the
  // record's text. False when the game is over.
  bool GiocaUnaMossa() {
    const uint64_t n = ContatoreMosse;
    const size_t quante = size_t(FineMosseGenerate - BufferMosseGenerate);
    EXPECT_GT(quante, 0u);
    if (quante == 0) return false;
    const uint64_t mossa = Scegli();
    const std::string coordinate = Coordinate(mossa);
    std::string attesa = NotazioneAttesa(mossa);
    const Ply prima = storia.back();

    // By the coordinates.
    EXPECT_EQ(LeggiDettagliMossaDaComando(coordinate.c_str()), 1) << coordinate;
    EXPECT_EQ(FaiMossaInComando(), mossa) << coordinate;
    if (ContatoreMosse != n + 1) return false;
    const size_t esiti_prima = Esiti.size();
    Annota(mossa);
    const std::string scritta = ElencoStringaMossa[n + 1];

    // What must have followed.
    const bool scacco = SottoScacco();
    const bool nessuna = FineMosseGenerate == BufferMosseGenerate;
    chiavi.push_back(ChiaveHash);
    std::vector<std::string> finestre;
    std::string stato = "* | ? | ";
    int finale = -1;
    if (nessuna) {
      attesa += scacco ? "#" : "";
      stato = scacco ? std::string(StringaSconfitta[AlTratto()]) + " | Checkmate | scaccomatto"
                     : "1/2-1/2 | stalemate | stallo";
      finestre.push_back(scacco ? "scaccomatto" : "stallo");
      finale = scacco ? MATTO : STALLO;
    } else {
      attesa += scacco ? "+" : "";
      if (!PuoVincereIl_bianco() && !PuoVincereIl_nero()) {
        stato = "1/2-1/2 | insufficient material | materiale insufficente";
        finestre.push_back("materiale insufficente");
        finale = MATERIALE;
      } else if (ReversibiliDopo(Fotografa()) >= 150) {
        // No claim needed: the arbiter ends the game.
        stato = "1/2-1/2 | 75-move rule | regola delle 75 mosse";
        finestre.push_back("settantacinque mosse");
        finale = SETTANTACINQUE;
      } else if (Occorrenze() >= 4) {
        stato = "1/2-1/2 | fivefold repetition | quintupla ripetizione";
        finestre.push_back("quintupla ripetizione");
        finale = QUINTUPLA;
      } else {
        // The claims are declined, the repetition is adjudicated all the
        // same.
        if (Semimosse(InfoPosizione) == 100) {
          finestre.push_back("cinquanta mosse");
          ++finali[CINQUANTA];
        }
        // A stopped half-move clock: the scan must still find everything.
        if (Semimosse(InfoPosizione) == MASCHERA_SEMIMOSSE) ++finali[SATURO];
        const int occorrenze = Occorrenze();
        EXPECT_EQ(Ripetizioni, uint32_t(std::min(occorrenze, 2)));
        if (occorrenze >= 2) {
          finestre.push_back("triplice ripetizione");
          stato = "1/2-1/2 | threefold repetition | triplice ripetizione";
          finale = TRIPLICE;
        }
      }
    }
    EXPECT_EQ(scritta, attesa) << "ply " << n + 1;
    EXPECT_EQ(Stato(), stato) << "ply " << n + 1 << " " << scritta;
    EXPECT_EQ(std::vector<std::string>(Esiti.begin() + long(esiti_prima), Esiti.end()), finestre)
        << "ply " << n + 1 << " " << scritta;
    // Not the whole key: queen-side castling keeps the rights' keys in it.
    EXPECT_EQ(CalcolaHashPedoni(), HashPedoni);
    chiavi.pop_back();
    const Ply dopo{Fotografa(), ParoleLegali()};

    // Taken back: the position, its moves and an open game.
    EXPECT_EQ(RitiraUltimaMossa(), 1);
    const Istantanea ritirata = Fotografa();
    EXPECT_EQ(ritirata, prima.posizione) << Differenze(prima.posizione, ritirata);
    EXPECT_EQ(ParoleLegali(), prima.legali);
    EXPECT_EQ(Stato(), "* | ? | ");

    // Typed again as the record wrote it.
    EXPECT_EQ(LeggiDettagliMossaDaComando(scritta.c_str()), 1) << scritta;
    EXPECT_EQ(FaiMossaInComando(), mossa) << scritta << " " << coordinate;
    if (ContatoreMosse != n + 1) return false;
    AnnotaConArbitro(mossa);
    EXPECT_EQ(std::string(ElencoStringaMossa[n + 1]), scritta);
    const Istantanea rifatta = Fotografa();
    EXPECT_EQ(rifatta, dopo.posizione) << Differenze(dopo.posizione, rifatta);
    EXPECT_EQ(ParoleLegali(), dopo.legali);
    EXPECT_EQ(Stato(), stato);
    Registra();
    if (::testing::Test::HasFailure()) return false;

    switch (finale) {
      case MATTO:
      case STALLO:
      case MATERIALE:
        ++finali[finale];
        // Sometimes the arbiter takes the last move back and play goes on.
        if (fino_al_limite || Caso(3) == 0) {
          Ritira();
          return true;
        }
        return false;
      case TRIPLICE:
      case SETTANTACINQUE:
      case QUINTUPLA:
        ++finali[finale];
        // Revoked as after a Yes to the revocation question.
        if (fino_al_limite || Caso(2) == 0) {
          RevocaAggiudicazione();
          return true;
        }
        return false;
      default:
        return true;
    }
  }

  void GiocaPartita(uint64_t seme) {
    caso.seed(seme);
    memoria::Azzera();
    RevocaAggiudicazione();
    Nuova(FenIniziale);
    storia.clear();
    chiavi.clear();
    reversibili.clear();
    Registra();
    // Most games stop early to keep the run short; in some the arbiter
    // goes on after every ending, up to the record's last ply.
    fino_al_limite = seme % 10 == 0;
    const uint64_t tetto = fino_al_limite ? ULTIMA_SEMIMOSSA : 200 + Caso(150);
    while (true) {
      if (ContatoreMosse >= tetto) {
        if (PartitaCompleta()) {
          // One more legal move is refused and changes nothing.
          const Istantanea prima = Fotografa();
          const uint64_t mossa = BufferMosseGenerate[0];
          ASSERT_EQ(LeggiDettagliMossaDaComando(Coordinate(mossa).c_str()), 1);
          EXPECT_EQ(FaiMossaInComando(), 0u);
          EXPECT_EQ(Fotografa(), prima);
          ++finali[LIMITE];
        } else {
          ++finali[TETTO];
        }
        return;
      }
      if (RitiriACaso([this] { Ritira(); }, HasFatalFailure)) {
        if (HasFatalFailure()) return;
        continue;
      }
      if (!GiocaUnaMossa()) return;
    }
  }
};

TEST_F(PartiteCasuali, DuecentoPartiteDallaPosizioneIniziale) {
  // The game files one after another, for one run of the outside reader.
  std::string file_partite;
  for (uint64_t seme = 1; seme <= PARTITE; ++seme) {
    GiocaPartita(seme);
    ASSERT_FALSE(HasFailure()) << "seme " << seme << ", ply " << ContatoreMosse;
    static char pgn[32768];
    const size_t lunghezza = TestoPartita(pgn, sizeof pgn);
    ASSERT_LT(lunghezza, sizeof pgn) << "seme " << seme;
    file_partite.append(pgn, lunghezza);
  }
  pgn_extract::LettePartite(file_partite, PARTITE);
  // Every way a game ends was met.
  EXPECT_GT(finali[MATTO], 0);
  EXPECT_GT(finali[STALLO], 0);
  EXPECT_GT(finali[MATERIALE], 0);
  EXPECT_GT(finali[CINQUANTA], 0);
  EXPECT_GT(finali[TRIPLICE], 0);
  EXPECT_GT(finali[LIMITE], 0);
  EXPECT_GT(finali[RITIRI], 0);
  EXPECT_GT(finali[SATURO], 0);
  EXPECT_GT(finali[SETTANTACINQUE], 0);
  EXPECT_GT(finali[QUINTUPLA], 0);
  std::printf(
      "matti %d, stalli %d, materiale %d, cinquanta %d, triplici %d, limite %d, tetto %d, "
      "ritiri %d, orologio fermo a 127 %d, settantacinque %d, quintuple %d\n",
      finali[MATTO], finali[STALLO], finali[MATERIALE], finali[CINQUANTA], finali[TRIPLICE],
      finali[LIMITE], finali[TETTO], finali[RITIRI], finali[SATURO], finali[SETTANTACINQUE],
      finali[QUINTUPLA]);
}

}  // namespace
