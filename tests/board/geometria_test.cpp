#include "board/geometria.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdlib>

namespace {

// Squares by name, 0 = a8.
constexpr int Casa(const char* nome) { return (nome[0] - 'a') + 8 * ('8' - nome[1]); }
constexpr uint64_t B(const char* nome) { return 1ull << Casa(nome); }

int Colonna(int s) { return s % 8; }
int Riga(int s) { return s / 8; }

TEST(Geometria, Distanze) {
  EXPECT_EQ(Distanza[Casa("a8")][Casa("h1")], 7);
  EXPECT_EQ(Distanza[Casa("e1")][Casa("g2")], 2);
  EXPECT_EQ(TipoTraiettoria[Casa("e1")][Casa("g2")], 1);
  for (int a = 0; a < 64; ++a)
    for (int b = 0; b < 64; ++b) {
      const int attesa = std::max(std::abs(Colonna(a) - Colonna(b)), std::abs(Riga(a) - Riga(b)));
      ASSERT_EQ(Distanza[a][b], attesa) << a << " " << b;
    }
}

TEST(Geometria, TipiDiTraiettoria) {
  EXPECT_EQ(TipoTraiettoria[Casa("a1")][Casa("h8")], 2);
  EXPECT_EQ(TipoTraiettoria[Casa("a1")][Casa("a8")], 3);
  EXPECT_EQ(TipoTraiettoria[Casa("a1")][Casa("h1")], 3);
  EXPECT_EQ(TipoTraiettoria[Casa("a1")][Casa("a1")], 0);
  EXPECT_EQ(TipoTraiettoria[Casa("a1")][Casa("c4")], 0);
  for (int a = 0; a < 64; ++a)
    for (int b = 0; b < 64; ++b) {
      const int df = std::abs(Colonna(a) - Colonna(b)), dr = std::abs(Riga(a) - Riga(b));
      int atteso = 0;
      if (a == b)
        atteso = 0;
      else if (df == 0 || dr == 0)
        atteso = 3;
      else if (df == dr)
        atteso = 2;
      else if (std::max(df, dr) == 2)
        atteso = 1;
      ASSERT_EQ(TipoTraiettoria[a][b], atteso) << a << " " << b;
    }
}

TEST(Geometria, CaseInMezzo) {
  EXPECT_EQ(btm_InMezzo[Casa("a1")][Casa("h8")],
            B("b2") | B("c3") | B("d4") | B("e5") | B("f6") | B("g7"));
  EXPECT_EQ(btm_InMezzo[Casa("h8")][Casa("a1")], btm_InMezzo[Casa("a1")][Casa("h8")]);
  EXPECT_EQ(btm_InMezzo[Casa("e4")][Casa("e5")], 0u);
  EXPECT_EQ(btm_InMezzo[Casa("e4")][Casa("f5")], 0u);
  EXPECT_EQ(btm_InMezzo[Casa("g1")][Casa("f3")], 0u);
  EXPECT_EQ(btm_InMezzo[Casa("a4")][Casa("h4")],
            B("b4") | B("c4") | B("d4") | B("e4") | B("f4") | B("g4"));
  EXPECT_EQ(btm_InMezzo[Casa("a1")][Casa("c4")], 0u);
}

TEST(Geometria, CaseOltre) {
  EXPECT_EQ(btm_oltre[Casa("e1")][Casa("e3")], B("e4") | B("e5") | B("e6") | B("e7") | B("e8"));
  EXPECT_EQ(btm_oltre[Casa("e1")][Casa("e8")], 0u);
  EXPECT_EQ(btm_oltre[Casa("c3")][Casa("b2")], B("a1"));
  EXPECT_EQ(btm_oltre[Casa("g1")][Casa("f3")], 0u);
  EXPECT_EQ(btm_oltre[Casa("e4")][Casa("e4")], 0u);
}

TEST(Geometria, LineeECaseInMezzoSonoCoerenti) {
  for (int a = 0; a < 64; ++a) {
    uint64_t dritte = 0, diagonali = 0;
    for (int b = 0; b < 64; ++b) {
      if (TipoTraiettoria[a][b] == 3) dritte |= 1ull << b;
      if (TipoTraiettoria[a][b] == 2) diagonali |= 1ull << b;
      const bool linea = TipoTraiettoria[a][b] >= 2;
      // Between-set and beyond-set are disjoint, on the line, never a or b.
      const uint64_t estremi = (1ull << a) | (1ull << b);
      EXPECT_EQ(btm_InMezzo[a][b] & estremi, 0u);
      EXPECT_EQ(btm_oltre[a][b] & estremi, 0u);
      EXPECT_EQ(btm_InMezzo[a][b] & btm_oltre[a][b], 0u);
      if (linea) {
        EXPECT_EQ(std::popcount(btm_InMezzo[a][b]), Distanza[a][b] - 1);
        EXPECT_EQ(btm_InMezzo[a][b] & ~BitmapTraiettorieDa[a], 0u);
        EXPECT_EQ(btm_oltre[a][b] & ~BitmapTraiettorieDa[a], 0u);
      } else {
        EXPECT_EQ(btm_InMezzo[a][b], 0u);
        EXPECT_EQ(btm_oltre[a][b], 0u);
      }
    }
    EXPECT_EQ(BitmapTraiettorieDritteDa[a], dritte);
    EXPECT_EQ(BitmapTraiettorieDiagonaliDa[a], diagonali);
    EXPECT_EQ(BitmapTraiettorieDa[a], dritte | diagonali);
    EXPECT_EQ(std::popcount(dritte), 14);
  }
}

TEST(Geometria, ViciniSuOgniRaggio) {
  const uint64_t* raggi[8] = {AOvestDi,     AEstDi,     ANordDi,     ASudDi,
                              ANordovestDi, ANordestDi, ASudovestDi, ASudestDi};
  const int passi[8][2] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-1, -1}, {1, -1}, {-1, 1}, {1, 1}};
  for (int d = 0; d < 8; ++d)
    for (int s = 0; s < 64; ++s) {
      const int f = Colonna(s) + passi[d][0], r = Riga(s) + passi[d][1];
      const uint64_t atteso = f >= 0 && f < 8 && r >= 0 && r < 8 ? uint64_t(8 * r + f) : 64;
      EXPECT_EQ(raggi[d][s], atteso) << d << " " << s;
    }
  EXPECT_EQ(ANordDi[Casa("e2")], uint64_t(Casa("e3")));
  EXPECT_EQ(ASudovestDi[Casa("a5")], 64u);
}

TEST(Geometria, BersagliDeiPedoni) {
  EXPECT_EQ(MscBersagliPedone_bianco_da[Casa("e4")], B("d5") | B("f5"));
  EXPECT_EQ(MscBersagliPedone_bianco_da[Casa("a2")], B("b3"));
  EXPECT_EQ(MscBersagliPedone_bianco_da[Casa("h7")], B("g8"));
  EXPECT_EQ(MscBersagliPedone_bianco_da[Casa("c8")], 0u);
  EXPECT_EQ(MscBersagliPedone_nero_da[Casa("e5")], B("d4") | B("f4"));
  EXPECT_EQ(MscBersagliPedone_nero_da[Casa("h7")], B("g6"));
  EXPECT_EQ(MscBersagliPedone_nero_da[Casa("c1")], 0u);
  for (int s = 0; s < 64; ++s) {
    EXPECT_EQ(MscBersagliPedone_da[0][s], MscBersagliPedone_bianco_da[s]);
    EXPECT_EQ(MscBersagliPedone_da[1][s], MscBersagliPedone_nero_da[s]);
    // Read both ways: a white pawn on s attacks t exactly when t's black
    // target mask holds s.
    for (int t = 0; t < 64; ++t)
      EXPECT_EQ((MscBersagliPedone_bianco_da[s] >> t) & 1, (MscBersagliPedone_nero_da[t] >> s) & 1);
  }
}

TEST(Geometria, SaltiDiCavalloEPassiDiRe) {
  EXPECT_EQ(MascheraMobilita_cavallo_in[Casa("a8")], B("b6") | B("c7"));
  EXPECT_EQ(std::popcount(MascheraMobilita_cavallo_in[Casa("e4")]), 8);
  EXPECT_EQ(MascheraMobilita_re_in[Casa("h1")], B("g1") | B("g2") | B("h2"));
  for (int a = 0; a < 64; ++a)
    for (int b = 0; b < 64; ++b) {
      EXPECT_EQ((MascheraMobilita_cavallo_in[a] >> b) & 1, TipoTraiettoria[a][b] == 1);
      EXPECT_EQ((MascheraMobilita_re_in[a] >> b) & 1, Distanza[a][b] == 1);
    }
}

TEST(Geometria, MaschereDeiPezziLunghi) {
  EXPECT_EQ(MascheraMobilita_torre_in[Casa("a1")], B("a2") | B("a3") | B("a4") | B("a5") | B("a6") |
                                                       B("a7") | B("b1") | B("c1") | B("d1") |
                                                       B("e1") | B("f1") | B("g1"));
  EXPECT_EQ(MascheraMobilita_alfiere_in[Casa("e4")], B("d5") | B("c6") | B("b7") | B("f5") |
                                                         B("g6") | B("d3") | B("c2") | B("f3") |
                                                         B("g2"));
  for (int s = 0; s < 64; ++s) {
    const int torre = std::popcount(MascheraMobilita_torre_in[s]);
    const int alfiere = std::popcount(MascheraMobilita_alfiere_in[s]);
    EXPECT_TRUE(torre >= 10 && torre <= 12) << s;
    EXPECT_TRUE(alfiere >= 5 && alfiere <= 9) << s;
    EXPECT_EQ(MascheraMobilita_torre_in[s] & ~BitmapTraiettorieDritteDa[s], 0u);
    EXPECT_EQ(MascheraMobilita_alfiere_in[s] & ~BitmapTraiettorieDiagonaliDa[s], 0u);
    EXPECT_EQ(MascheraMobilita_donna_in[s],
              MascheraMobilita_torre_in[s] | MascheraMobilita_alfiere_in[s]);
    // Each ray loses exactly its last square.
    for (int b = 0; b < 64; ++b)
      if (TipoTraiettoria[s][b] >= 2) {
        const bool nella_maschera = (MascheraMobilita_donna_in[s] >> b) & 1;
        EXPECT_EQ(nella_maschera, btm_oltre[s][b] != 0) << s << " " << b;
      }
  }
}

TEST(Geometria, BitScan) {
  auto scan = [](uint64_t b) { return BitScanDatabase[((b & (0 - b)) * DE_BRUIJN_64) >> 58]; };
  EXPECT_EQ(scan(B("h1")), 63u);
  EXPECT_EQ(scan(B("a8") | B("h1")), 0u);
  EXPECT_EQ(PrimaCasa(B("h1")), 63u);
  EXPECT_EQ(PrimaCasa(B("a8") | B("h1")), 0u);
  const uint32_t primi[8] = {63, 0, 58, 1, 59, 47, 53, 2};
  for (int i = 0; i < 8; ++i) EXPECT_EQ(BitScanDatabase[i], primi[i]);
  for (int n = 0; n < 64; ++n) {
    const uint64_t b = 1ull << n;
    EXPECT_EQ(scan(b), uint32_t(n));
    EXPECT_EQ(PrimaCasa(b), uint64_t(n));
    // Higher bits never change the answer.
    const uint64_t sopra = n == 63 ? 0 : ~0ull << (n + 1);
    EXPECT_EQ(scan(b | (sopra & 0x9e3779b97f4a7c15ull)), uint32_t(n));
    EXPECT_EQ(PrimaCasa(b | sopra), uint64_t(n));
  }
}

}  // namespace
