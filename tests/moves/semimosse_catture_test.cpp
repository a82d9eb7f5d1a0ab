// The half-move clock after a capture: every capturing piece, not only the
// pawn, starts it again from 0, whatever it takes and whatever the clock
// showed; a quiet move of the same piece adds one.
#include <gtest/gtest.h>

#include <string>

#include "aiuti.h"
#include "board/mossa.h"
#include "moves/genera.h"
#include "moves/registro.h"
#include "moves/tavole.h"
#include "supporto/stati.h"

namespace {

struct Caso {
  const char* fen;
  const char* mossa;
};

// The clock as the text gives it, then after the move.
uint64_t OrologioDopo(const Caso& caso, uint64_t prima) {
  EXPECT_TRUE(Carica(caso.fen));
  EXPECT_EQ(InfoPosizione & MASCHERA_SEMIMOSSE, prima);
  const uint64_t m = Trova(caso.mossa);
  EXPECT_NE(m, 0u);
  EXPECT_EQ(Fai(m), 1);
  return InfoPosizione & MASCHERA_SEMIMOSSE;
}

// Every mover, every captured kind, both colours; the clock at 50.
const Caso Catture[] = {
    {"4k3/8/8/3p4/8/4N3/8/4K3 w - - 50 1", "e3d5"},  // knight takes pawn
    {"4k3/8/8/3n4/8/1B6/8/4K3 w - - 50 1", "b3d5"},  // bishop takes knight
    {"4k3/8/8/3b4/8/8/8/3RK3 w - - 50 1", "d1d5"},   // rook takes bishop
    {"4k3/8/8/3r4/8/8/8/3QK3 w - - 50 1", "d1d5"},   // queen takes rook
    {"4k3/8/8/8/8/8/3q4/4K3 w - - 50 1", "e1d2"},    // king takes queen
    {"4k3/8/8/8/8/8/3n4/4K3 w - - 50 1", "e1d2"},    // king takes knight
    {"4k3/8/8/8/8/4n3/3P4/4K3 w - - 50 1", "d2e3"},  // pawn takes knight
    {"4k3/8/4n3/8/3P4/8/8/4K3 b - - 50 1", "e6d4"},  // and Black's the same
    {"4k3/8/1b6/8/3N4/8/8/4K3 b - - 50 1", "b6d4"}, {"3rk3/8/8/8/3B4/8/8/4K3 b - - 50 1", "d8d4"},
    {"3qk3/8/8/8/3R4/8/8/4K3 b - - 50 1", "d8d4"},  {"4k3/3Q4/8/8/8/8/8/4K3 b - - 50 1", "e8d7"},
    {"4k3/3p4/2B5/8/8/8/8/4K3 b - - 50 1", "d7c6"},
};

TEST(SemimosseDopoLeCatture, OgniCatturaRiportaAZero) {
  for (const Caso& caso : Catture) {
    SCOPED_TRACE(std::string(caso.fen) + " " + caso.mossa);
    EXPECT_EQ(OrologioDopo(caso, 50), 0u);
  }
}

TEST(SemimosseDopoLeCatture, AncheDaCentoventisette) {
  for (const Caso& caso : Catture) {
    SCOPED_TRACE(std::string(caso.fen) + " " + caso.mossa);
    ASSERT_TRUE(Carica(caso.fen));
    CambiaPosizione([](StatoPosizione& p) { p.info |= MASCHERA_SEMIMOSSE; });
    const uint64_t m = Trova(caso.mossa);
    ASSERT_NE(m, 0u);
    ASSERT_EQ(Fai(m), 1);
    EXPECT_EQ(InfoPosizione & MASCHERA_SEMIMOSSE, 0u);
  }
}

TEST(SemimosseDopoLeCatture, CatturaDellaTorreConDirittoEPromozioneConCattura) {
  // Taking a rook on its corner clears a right as well; a promotion that
  // captures is a pawn move and a capture at once.
  EXPECT_EQ(OrologioDopo({"r3k3/8/8/8/8/8/8/R3K3 w Qq - 50 1", "a1a8"}, 50), 0u);
  EXPECT_EQ(OrologioDopo({"1r2k3/P7/8/8/8/8/8/4K3 w - - 50 1", "a7b8q"}, 50), 0u);
  EXPECT_EQ(OrologioDopo({"4k3/8/8/8/8/8/p7/1R2K3 b - - 50 1", "a2b1n"}, 50), 0u);
}

TEST(SemimosseDopoLeCatture, MosseQuieteDegliStessiPezziAggiungonoUno) {
  const Caso quiete[] = {
      {"4k3/8/8/8/8/4N3/8/4K3 w - - 50 1", "e3c4"}, {"4k3/8/8/8/8/1B6/8/4K3 w - - 50 1", "b3c2"},
      {"4k3/8/8/8/8/8/8/3RK3 w - - 50 1", "d1d5"},  {"4k3/8/8/8/8/8/8/3QK3 w - - 50 1", "d1a4"},
      {"4k3/8/8/8/8/8/8/4K3 w - - 50 1", "e1d2"},   {"3qk3/8/8/8/8/8/8/4K3 b - - 50 1", "d8d4"}};
  for (const Caso& caso : quiete) {
    SCOPED_TRACE(std::string(caso.fen) + " " + caso.mossa);
    EXPECT_EQ(OrologioDopo(caso, 50), 51u);
  }
}

}  // namespace
