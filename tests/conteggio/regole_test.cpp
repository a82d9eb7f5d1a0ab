// One position for each rule that a legal generator can get wrong, the
// counts given by an independent engine at depths 1 and 3, the counter equal
// to the make and unmake walk at every depth up to 3, and the root moves that
// must be there and must not.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "confronto.h"
#include "verifiche/tabelle_perft.h"

namespace {

struct Regola {
  const char* nome;
  const char* fen;
  uint64_t nodi1, nodi3;
  std::vector<std::string> presenti, assenti;
};

const Regola Regole[] = {
    // En passant would take both pawns off the king's rank, in front of a rook.
    {"enpassant_scoperto_traversa", "7k/8/8/KPp4r/8/8/8/8 w - c6 0 1", 4, 259, {"b5b6"}, {"b5c6"}},
    {"enpassant_scoperto_traversa_nero",
     "8/8/8/8/kpP4R/8/8/7K b - c3 0 1",
     4,
     259,
     {"b4b3"},
     {"b4c3"}},
    {"enpassant_scoperto_traversa_re_a_destra",
     "7k/8/8/r1pPK3/8/8/8/8 w - c6 0 1",
     7,
     602,
     {},
     {"d5c6"}},
    // Without the rook the same capture is legal.
    {"enpassant_senza_torre", "7k/8/8/KPp5/8/8/8/8 w - c6 0 1", 5, 99, {"b5c6", "b5b6"}, {}},
    // A pawn pinned on a diagonal takes en passant along it, never off it.
    {"enpassant_lungo_inchiodatura",
     "7k/5b2/8/3Pp3/8/8/K7/8 w - e6 0 1",
     6,
     362,
     {"d5e6"},
     {"d5d6"}},
    {"enpassant_lungo_inchiodatura_nero",
     "8/k7/8/8/3pP3/8/5B2/7K b - e3 0 1",
     6,
     362,
     {"d4e3"},
     {"d4d3"}},
    {"enpassant_fuori_inchiodatura",
     "7k/5b2/8/2pP4/8/8/K7/8 w - c6 0 1",
     5,
     298,
     {},
     {"d5c6", "d5d6"}},
    // A pawn pinned on its file steps, never takes.
    {"enpassant_inchiodato_colonna",
     "3r3k/8/8/3Pp3/8/8/8/3K4 w - e6 0 1",
     6,
     530,
     {"d5d6"},
     {"d5e6"}},
    // En passant takes the pawn that gives check.
    {"enpassant_cattura_chi_da_scacco",
     "7k/8/8/3Pp3/5K2/8/8/8 w - e6 0 1",
     9,
     250,
     {"d5e6", "f4e5"},
     {"d5d6"}},
    // Castling: not out of check, not through or into an attacked square; the
    // rook's b-file square may be attacked, never occupied.
    {"arrocco_sotto_scacco", "4k3/4r3/8/8/8/8/8/R3K2R w KQ - 0 1", 4, 1654, {}, {"e1g1", "e1c1"}},
    {"arrocco_attraverso_scacco",
     "2k2r2/8/8/8/8/8/8/R3K2R w KQ - 0 1",
     23,
     7580,
     {"e1c1"},
     {"e1g1"}},
    {"arrocco_verso_scacco", "2k3r1/8/8/8/8/8/8/R3K2R w KQ - 0 1", 25, 8661, {"e1c1"}, {"e1g1"}},
    {"arrocco_lungo_b1_attaccata",
     "1r4k1/8/8/8/8/8/8/R3K2R w KQ - 0 1",
     26,
     8684,
     {"e1c1", "e1g1"},
     {}},
    {"arrocco_lungo_attraverso_scacco",
     "3r2k1/8/8/8/8/8/8/R3K2R w KQ - 0 1",
     23,
     7300,
     {"e1g1"},
     {"e1c1"}},
    {"arrocco_nero_attraverso_scacco",
     "r3k2r/8/8/8/8/8/8/2K2R2 b kq - 0 1",
     23,
     7580,
     {"e8c8"},
     {"e8g8"}},
    {"arrocco_occupato", "r3k2r/8/8/8/8/8/8/RN2K1NR w KQkq - 0 1", 25, 14605, {}, {"e1g1", "e1c1"}},
    // Promotions, by a step and by capture, four pieces each; in check, only
    // the four that take the checker.
    {"promozioni_prendono_chi_da_scacco",
     "2r1r3/3P4/8/8/8/8/8/k3K3 w - - 0 1",
     8,
     1744,
     {"d7e8q", "d7e8r", "d7e8b", "d7e8n"},
     {"d7c8q", "d7d8q"}},
    {"promozioni_con_cattura_nero",
     "4k3/8/8/8/8/8/3p4/2R1N1K1 b - - 0 1",
     17,
     2939,
     {"d2d1q", "d2c1n", "d2e1b", "d2e1r"},
     {}},
    // Double check: the king alone moves, though the queen could take a checker.
    {"scacco_doppio",
     "4k3/8/8/8/8/3n4/Q7/r3K3 w - - 0 1",
     2,
     723,
     {"e1e2", "e1d2"},
     {"a2a1", "e1f2"}},
    // Pinned pieces: a knight never moves, a queen only along its pin.
    {"cavallo_inchiodato", "4r2k/8/8/8/4N3/8/8/4K3 w - - 0 1", 5, 792, {}, {"e4d6", "e4f2"}},
    {"donna_inchiodata",
     "7k/8/8/8/q7/8/2Q5/3K4 w - - 0 1",
     6,
     2084,
     {"c2b3", "c2a4"},
     {"c2c3", "c2d2"}},
    // The king does not step away along the ray of the rook that checks it.
    {"re_lungo_il_raggio", "7k/8/8/8/8/8/r3K3/8 w - - 0 1", 6, 459, {"e2e3"}, {"e2f2"}},
};

class RegolePerft : public testing::TestWithParam<Regola> {};

TEST_P(RegolePerft, ContiEMosseDellaRadice) {
  const Regola& r = GetParam();
  ASSERT_TRUE(CaricaFen(r.fen)) << r.fen;
  const std::vector<std::string> mosse = MosseRadice();
  EXPECT_EQ(mosse.size(), r.nodi1);
  for (const std::string& m : r.presenti)
    EXPECT_NE(std::find(mosse.begin(), mosse.end(), m), mosse.end()) << m << " missing";
  for (const std::string& m : r.assenti)
    EXPECT_EQ(std::find(mosse.begin(), mosse.end(), m), mosse.end()) << m << " generated";
  EXPECT_EQ(ConfrontaFinoA(3), r.nodi3);
  EXPECT_EQ(DivisioneConteggio(3), DivisioneFaiRitira(3));
}

INSTANTIATE_TEST_SUITE_P(Regole, RegolePerft, testing::ValuesIn(Regole),
                         [](const testing::TestParamInfo<Regola>& info) {
                           return info.param.nome;
                         });

TEST(RegolePerftCaricate, EnPassantNonTogliePiuUnoScaccoDiCavallo) {
  // A position no game reaches, which the loader takes: in check from a
  // knight with an en passant capture on the board. The capture leaves the
  // check, so only the king moves.
  ASSERT_TRUE(CaricaFen("7k/8/8/3Pp3/8/8/5n2/3K4 w - e6 0 1"));
  const std::vector<std::string> mosse = MosseRadice();
  EXPECT_EQ(mosse.size(), 5u);
  EXPECT_EQ(std::find(mosse.begin(), mosse.end(), "d5e6"), mosse.end());
  EXPECT_EQ(ConfrontaFinoA(3), 322u);
}

}  // namespace
