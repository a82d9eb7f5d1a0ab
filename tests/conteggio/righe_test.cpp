// The counter against the make and unmake walk on every position of the
// published table and of the independent one (perft-extra): equal at every
// depth up to the deepest row that runs quickly here, and equal there to the
// published count. The deep rows run in `make bench`.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "confronto.h"
#include "verifiche/tabelle_perft.h"

namespace {

// The deepest row of each position with at most this many leaves.
constexpr uint64_t NODI_MASSIMI = 200000;

struct Caso {
  std::string nome, fen;
  int profondita;
  uint64_t nodi;
};
void PrintTo(const Caso& caso, std::ostream* uscita) {
  *uscita << caso.nome << " depth " << caso.profondita;
}

std::vector<Caso> Casi() {
  std::vector<Caso> casi;
  for (const std::string& tabella : {std::string(PENDRINO_DATI_CONDIVISI "/perft-reference.tsv"),
                                     std::string(PENDRINO_TABELLA_EXTRA)}) {
    for (const RigaPerft& r : LeggiTabellaPerft(tabella)) {
      if (r.nodi > NODI_MASSIMI) continue;
      if (!casi.empty() && casi.back().fen == r.fen) {
        if (r.profondita > casi.back().profondita)
          casi.back() = {r.nome, r.fen, r.profondita, r.nodi};
      } else {
        casi.push_back({r.nome, r.fen, r.profondita, r.nodi});
      }
    }
  }
  return casi;
}

class RighePerft : public testing::TestWithParam<Caso> {};

TEST_P(RighePerft, UgualeAlFaiRitiraAOgniProfondita) {
  const Caso& caso = GetParam();
  ASSERT_TRUE(CaricaFen(caso.fen));
  EXPECT_EQ(ConfrontaFinoA(caso.profondita), caso.nodi);
}

INSTANTIATE_TEST_SUITE_P(Posizioni, RighePerft, testing::ValuesIn(Casi()),
                         [](const testing::TestParamInfo<Caso>& info) { return info.param.nome; });

TEST(RighePerftCopertura, OgniPosizioneDelleDueTabelle) {
  // 7 published positions and 32 independent ones, none left out.
  EXPECT_EQ(Casi().size(), 39u);
  int profonde = 0;
  for (const Caso& caso : Casi()) profonde += caso.profondita >= 3;
  EXPECT_EQ(profonde, 39);
}

TEST(Divisione, UgualeAlFaiRitiraMossaPerMossa) {
  for (const Caso& caso : Casi()) {
    SCOPED_TRACE(caso.nome);
    ASSERT_TRUE(CaricaFen(caso.fen));
    const std::vector<std::string> attese = DivisioneFaiRitira(2);
    EXPECT_EQ(DivisioneConteggio(2), attese);
    EXPECT_EQ(DivisioneConteggio(2, {.thread = 3}), attese);
  }
}

}  // namespace
