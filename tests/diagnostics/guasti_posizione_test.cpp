// Faults planted in a sound position, one part of the bookkeeping at a time:
// the position self-check must name each of them with its own report line,
// for every kind and colour, in the order of its helpers.
#include <gtest/gtest.h>

#include <string>

#include "aiuti_diagnostica.h"
#include "board/fen.h"
#include "diagnostics/controlli.h"
#include "piattaforma/memoria/memoria.h"
#include "supporto/stati.h"

namespace {

// The report text of a self-check, the printout kept out of the log.
std::string Report() {
  testing::internal::CaptureStdout();
  ControllaPosizione(0);
  testing::internal::GetCapturedStdout();
  return ReportControlloPosizione.testo;
}

class GuastiPosizione : public testing::Test {
 protected:
  void SetUp() override {
    memoria::Azzera();
    ASSERT_TRUE(CaricaFen(FenIniziale));
    ASSERT_EQ(Report(), "");
  }
};

// One piece of each kind and colour in the starting position; `ultima` is
// the last square of its list (the loader reads the board from a8 to h1).
struct Pezzo {
  Colore colore;
  TipoPezzo tipo;
  uint64_t casa;
  const char *nome, *nome_casa, *ultima;
};
const Pezzo Pezzi[] = {
    {BIANCO, PEDONE, 52, "ControllaPosizione_pedone_bianco", "e2", "h2"},
    {BIANCO, CAVALLO, 57, "ControllaPosizione_cavallo_bianco", "b1", "g1"},
    {BIANCO, ALFIERE, 61, "ControllaPosizione_alfiere_bianco", "f1", "f1"},
    {BIANCO, TORRE, 56, "ControllaPosizione_torre_bianco", "a1", "h1"},
    {BIANCO, DONNA, 59, "ControllaPosizione_donna_bianco", "d1", "d1"},
    {NERO, PEDONE, 11, "ControllaPosizione_pedone_nero", "d7", "h7"},
    {NERO, CAVALLO, 6, "ControllaPosizione_cavallo_nero", "g8", "g8"},
    {NERO, ALFIERE, 2, "ControllaPosizione_alfiere_nero", "c8", "f8"},
    {NERO, TORRE, 7, "ControllaPosizione_torre_nero", "h8", "h8"},
    {NERO, DONNA, 3, "ControllaPosizione_donna_nero", "d8", "d8"},
};

TEST_F(GuastiPosizione, CodiceSbagliatoNominaIlControlloDelPezzoELaCasa) {
  for (const Pezzo& p : Pezzi) {
    SCOPED_TRACE(p.nome);
    ASSERT_TRUE(CaricaFen(FenIniziale));
    // Another slot of the same kind and colour.
    CambiaPosizione([&](StatoPosizione& s) { s.pezzo_in[p.casa] ^= 1; });
    EXPECT_EQ(Report(), std::string(p.nome) + " in " + p.nome_casa + "\n");
  }
}

TEST_F(GuastiPosizione, BitboardDelPezzoConUnaCasaInPiu) {
  for (const Pezzo& p : Pezzi) {
    SCOPED_TRACE(p.nome);
    ASSERT_TRUE(CaricaFen(FenIniziale));
    CambiaPosizione(
        [&](StatoPosizione& s) { s.pezzi[p.colore][p.tipo] ^= 1ull << 36; });  // e4, empty
    EXPECT_EQ(Report(),
              std::string("(BitmapMioPezzo != btm) ") + p.nome + " in " + p.ultima + "\n");
  }
}

TEST_F(GuastiPosizione, BitboardDelColoreSenzaIlPezzo) {
  for (const Pezzo& p : Pezzi) {
    SCOPED_TRACE(p.nome);
    ASSERT_TRUE(CaricaFen(FenIniziale));
    CambiaPosizione([&](StatoPosizione& s) { s.colore[p.colore] ^= 1ull << p.casa; });
    EXPECT_EQ(Report(),
              std::string("((BitmapMieiPezzi&btm) != btm) ") + p.nome + " in " + p.ultima + "\n");
  }
}

TEST_F(GuastiPosizione, UnaCasaInPiuNelColoreNonEUnGuasto) {
  // Only the pieces' own squares are required of the colour bitboard.
  CambiaPosizione([](StatoPosizione& s) {
    s.colore[BIANCO] |= 1ull << 36;
    s.colore[NERO] |= 1ull << 27;
  });
  EXPECT_EQ(Report(), "");
}

TEST_F(GuastiPosizione, ReDelBiancoSenzaCodiceOFuoriDalColore) {
  CambiaPosizione([](StatoPosizione& s) { s.pezzo_in[60] = CASA_VUOTA; });
  EXPECT_EQ(Report(), "(PezzoIn[CasaMioRe] != MioRe) - ControllaPosizione_re_bianco in e1\n");
}

TEST_F(GuastiPosizione, ReFuoriDalColore) {
  CambiaPosizione([](StatoPosizione& s) { s.colore[BIANCO] ^= 1ull << 60; });
  EXPECT_EQ(Report(),
            "(!(BitmapMieiPezzi & (1ull<<CasaMioRe))) ControllaPosizione_re_bianco in e1\n");
  ASSERT_TRUE(CaricaFen(FenIniziale));
  CambiaPosizione([](StatoPosizione& s) { s.colore[NERO] ^= 1ull << 4; });
  EXPECT_EQ(Report(),
            "(!(BitmapMieiPezzi & (1ull<<CasaMioRe))) ControllaPosizione_re_nero in e8\n");
}

TEST_F(GuastiPosizione, ReSpostatoNellaListaMaNonSullaScacchiera) {
  // The king square says e6, an empty square; e8 still holds the king.
  CambiaPosizione([](StatoPosizione& s) { s.re[NERO] = 20; });
  EXPECT_EQ(Report(),
            "(PezzoIn[CasaMioRe] != MioRe) - ControllaPosizione_re_nero in e6\n"
            "(!(BitmapMieiPezzi & (1ull<<CasaMioRe))) ControllaPosizione_re_nero in e6\n"
            "chiave hash scorretta\n"
            "nella casa e8 non dovrebbe esserci 5\n");
}

TEST_F(GuastiPosizione, LeParteDelReportSeguonoLOrdineDeiControlli) {
  // One fault for every helper at once: the lines come out white pawn to
  // white king, then black pawn to black king.
  CambiaPosizione([](StatoPosizione& s) {
    for (const Pezzo& p : Pezzi) s.pezzo_in[p.casa] ^= 1;
    s.pezzo_in[60] ^= 1;
    s.pezzo_in[4] ^= 1;
  });
  EXPECT_EQ(Report(),
            "ControllaPosizione_pedone_bianco in e2\n"
            "ControllaPosizione_cavallo_bianco in b1\n"
            "ControllaPosizione_alfiere_bianco in f1\n"
            "ControllaPosizione_torre_bianco in a1\n"
            "ControllaPosizione_donna_bianco in d1\n"
            "(PezzoIn[CasaMioRe] != MioRe) - ControllaPosizione_re_bianco in e1\n"
            "ControllaPosizione_pedone_nero in d7\n"
            "ControllaPosizione_cavallo_nero in g8\n"
            "ControllaPosizione_alfiere_nero in c8\n"
            "ControllaPosizione_torre_nero in h8\n"
            "ControllaPosizione_donna_nero in d8\n"
            "(PezzoIn[CasaMioRe] != MioRe) - ControllaPosizione_re_nero in e8\n");
}

TEST_F(GuastiPosizione, ListaPiuLungaDellaSuaCapienza) {
  // Eleven black rooks by the count; the list holds ten.
  CambiaPosizione([](StatoPosizione& s) { s.materiale[NERO] += 9ull << 24; });
  ASSERT_EQ((materiale_del_nero >> 24) & 0xFF, 11u);
  const std::string testo = Report();
  EXPECT_EQ(testo.rfind("(NumeroPezzi > CapienzaLista) ControllaPosizione_torre_nero\n", 0), 0u)
      << testo;
}

TEST_F(GuastiPosizione, ListaPienaNonEOltreLaCapienza) {
  // Ten white rooks fill their list exactly.
  ASSERT_TRUE(CaricaFen("RRRRRRRR/RR6/8/8/8/8/8/k1K5 b - - 0 1"));
  ASSERT_EQ((materiale_del_bianco >> 24) & 0xFF, 10u);
  EXPECT_EQ(Report(), "");
}

TEST_F(GuastiPosizione, PezziFuoriDalleListeSuOgniCasa) {
  // Stray codes that no list names, reported by square.
  CambiaPosizione([](StatoPosizione& s) {
    s.pezzo_in[35] = 0x80;                             // white queen on d4
    s.pezzo_in[36] = CODICE_RE_NERO;                   // black king on e4
    s.pezzo_in[27] = (uint64_t(ALFIERE) << 5) | 0x10;  // black bishop on d5
  });
  EXPECT_EQ(Report(),
            "nella casa d5 non dovrebbe esserci 2\n"
            "nella casa d4 non dovrebbe esserci 4\n"
            "nella casa e4 non dovrebbe esserci 5\n");
}

TEST_F(GuastiPosizione, PezziFuoriDalleListeAgliAngoli) {
  ASSERT_TRUE(CaricaFen("8/8/3k4/8/8/3K4/8/8 w - - 0 1"));
  CambiaPosizione([](StatoPosizione& s) {
    s.pezzo_in[0] = 0x60;   // a white rook on a8
    s.pezzo_in[63] = 0x30;  // a black knight on h1
  });
  EXPECT_EQ(Report(),
            "nella casa a8 non dovrebbe esserci 3\n"
            "nella casa h1 non dovrebbe esserci 1\n");
}

TEST_F(GuastiPosizione, ChiaveEChiaveDeiPedoni) {
  // The pawn key is a part of the full key: a pawn listed on another square
  // spoils both; a knight listed elsewhere only the full key.
  CambiaPosizione([](StatoPosizione& s) {
    s.pedone[NERO][s.pezzo_in[8] & 15] = 16;  // a7 listed on a6
    s.pezzo_in[16] = s.pezzo_in[8];
    s.pezzo_in[8] = CASA_VUOTA;
  });
  EXPECT_EQ(Report(),
            "(BitmapMioPezzo != btm) ControllaPosizione_pedone_nero in h7\n"
            "((BitmapMieiPezzi&btm) != btm) ControllaPosizione_pedone_nero in h7\n"
            "chiave hash scorretta\nhash pedoni scorretta\n");
  ASSERT_TRUE(CaricaFen(FenIniziale));
  CambiaPosizione([](StatoPosizione& s) {
    s.chiave ^= hash_in[BIANCO][CAVALLO][57] ^ hash_in[BIANCO][CAVALLO][42];  // b1 keyed on c3
  });
  EXPECT_EQ(Report(), "chiave hash scorretta\n");
  ASSERT_TRUE(CaricaFen(FenIniziale));
  CambiaPosizione([](StatoPosizione& s) { s.pedoni ^= hash_in[NERO][PEDONE][8]; });
  EXPECT_EQ(Report(), "hash pedoni scorretta\n");
}

TEST_F(GuastiPosizione, DirittiDiArroccoNellaChiaveRicalcolata) {
  // Each right's key belongs to the recomputed key while its bit is set.
  const uint64_t bit[4] = {0x80, 0x100, 0x200, 0x400};
  for (uint64_t b : bit) {
    SCOPED_TRACE(b);
    ASSERT_TRUE(CaricaFen(FenIniziale));
    CambiaPosizione([&](StatoPosizione& s) { s.info &= ~b; });
    EXPECT_EQ(Report(), "chiave hash scorretta\n");
  }
}

}  // namespace
