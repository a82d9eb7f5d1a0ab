#include <gtest/gtest.h>

#include <bit>

#include "board/geometria.h"

namespace {

// Reference attack set: walk each ray one square at a time up to the first
// occupied square, with no table of this module involved.
uint64_t Raggi(int casa, uint64_t occupazione, const int (&direzioni)[4][2]) {
  uint64_t attacchi = 0;
  for (const auto& d : direzioni) {
    int f = casa % 8 + d[0], r = casa / 8 + d[1];
    for (; f >= 0 && f < 8 && r >= 0 && r < 8; f += d[0], r += d[1]) {
      attacchi |= 1ull << (8 * r + f);
      if ((occupazione >> (8 * r + f)) & 1) break;
    }
  }
  return attacchi;
}
constexpr int Dritte[4][2] = {{0, -1}, {0, 1}, {-1, 0}, {1, 0}};
constexpr int Diagonali[4][2] = {{-1, -1}, {1, -1}, {-1, 1}, {1, 1}};

// Every subset of the mask, by the carry-rippler walk.
template <class F>
void PerOgniSottoinsieme(uint64_t maschera, F f) {
  uint64_t sotto = 0;
  do {
    f(sotto);
    sotto = (sotto - maschera) & maschera;
  } while (sotto);
}

TEST(Mobilita, TorreConcordaConIRaggiPerOgniOccupazione) {
  for (int s = 0; s < 64; ++s) {
    int errori = 0;
    PerOgniSottoinsieme(MascheraMobilita_torre_in[s], [&](uint64_t occ) {
      if (AttacchiTorre(s, occ) != Raggi(s, occ, Dritte)) ++errori;
    });
    EXPECT_EQ(errori, 0) << "rook square " << s;
  }
}

TEST(Mobilita, AlfiereConcordaConIRaggiPerOgniOccupazione) {
  for (int s = 0; s < 64; ++s) {
    int errori = 0;
    PerOgniSottoinsieme(MascheraMobilita_alfiere_in[s], [&](uint64_t occ) {
      if (AttacchiAlfiere(s, occ) != Raggi(s, occ, Diagonali)) ++errori;
    });
    EXPECT_EQ(errori, 0) << "bishop square " << s;
  }
}

constexpr int Casa(const char* nome) { return (nome[0] - 'a') + 8 * ('8' - nome[1]); }
constexpr uint64_t B(const char* nome) { return 1ull << Casa(nome); }

TEST(Mobilita, PezziSullOrloNonCambianoMaiLaRisposta) {
  // Outside the mask lie the square itself and each ray's last square (the
  // board's edge); filling all of them at once must change nothing.
  for (int s = 0; s < 64; ++s) {
    int errori = 0;
    PerOgniSottoinsieme(MascheraMobilita_torre_in[s], [&](uint64_t occ) {
      if (AttacchiTorre(s, occ | ~MascheraMobilita_torre_in[s]) != AttacchiTorre(s, occ)) ++errori;
    });
    PerOgniSottoinsieme(MascheraMobilita_alfiere_in[s], [&](uint64_t occ) {
      if (AttacchiAlfiere(s, occ | ~MascheraMobilita_alfiere_in[s]) != AttacchiAlfiere(s, occ))
        ++errori;
    });
    EXPECT_EQ(errori, 0) << s;
  }
}

TEST(Mobilita, TorreInA1ABoardVuoto) {
  const uint64_t attesi = B("a2") | B("a3") | B("a4") | B("a5") | B("a6") | B("a7") | B("a8") |
                          B("b1") | B("c1") | B("d1") | B("e1") | B("f1") | B("g1") | B("h1");
  EXPECT_EQ(AttacchiTorre(Casa("a1"), 0), attesi);
  EXPECT_EQ(std::popcount(attesi), 14);
  // Pieces of the edge are attacked but change nothing.
  EXPECT_EQ(AttacchiTorre(Casa("a1"), B("a8") | B("h1") | B("h8")), attesi);
}

TEST(Mobilita, AlfiereInA8ABoardVuoto) {
  EXPECT_EQ(AttacchiAlfiere(Casa("a8"), 0),
            B("b7") | B("c6") | B("d5") | B("e4") | B("f3") | B("g2") | B("h1"));
}

TEST(Mobilita, TorreInE4ConPezziInE6EC4) {
  EXPECT_EQ(AttacchiTorre(Casa("e4"), B("e6") | B("c4")), B("e5") | B("e6") | B("d4") | B("c4") |
                                                              B("f4") | B("g4") | B("h4") |
                                                              B("e3") | B("e2") | B("e1"));
}

TEST(Mobilita, LarghezzeDegliIndici) {
  for (int s = 0; s < 64; ++s) {
    const int colonna = s % 8, riga = s / 8;
    int torre = 10 + (riga == 0) + (colonna == 0 || colonna == 7);
    if (riga == 7) torre = (s == 57 || s == 58) ? 10 : 11;
    EXPECT_EQ(64 - int(ShiftIndiceMobilita_torre_in[s]), torre) << s;
    EXPECT_EQ(64 - int(ShiftIndiceMobilita_alfiere_in[s]),
              std::popcount(MascheraMobilita_alfiere_in[s]))
        << s;
  }
  // Narrower than their masks exactly at a1, b1, c1 and h1.
  for (int s = 0; s < 64; ++s) {
    const bool ridotta = s == 56 || s == 57 || s == 58 || s == 63;
    EXPECT_EQ(
        64 - int(ShiftIndiceMobilita_torre_in[s]) < std::popcount(MascheraMobilita_torre_in[s]),
        ridotta)
        << s;
  }
  const int alfiere[64] = {6, 5, 5, 5, 5, 5, 5, 6, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 7, 7, 7, 7,
                           5, 5, 5, 5, 7, 9, 9, 7, 5, 5, 5, 5, 7, 9, 9, 7, 5, 5, 5, 5, 7, 7,
                           7, 7, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 6, 5, 5, 5, 5, 5, 5, 6};
  for (int s = 0; s < 64; ++s) EXPECT_EQ(64 - int(ShiftIndiceMobilita_alfiere_in[s]), alfiere[s]);
}

TEST(Mobilita, PosizioniDelleSottotabelle) {
  EXPECT_EQ(mobilita_torre_da[0], DbMobilita);
  EXPECT_EQ(mobilita_torre_da[1] - DbMobilita, 4096);
  EXPECT_EQ(mobilita_torre_da[2] - DbMobilita, 6144);
  EXPECT_EQ(mobilita_alfiere_da[0] - DbMobilita, 96256);
  EXPECT_EQ(mobilita_alfiere_da[1] - DbMobilita, 96320);
  // Back to back, rooks before bishops, filling the whole table.
  for (int s = 0; s < 63; ++s) {
    EXPECT_EQ(mobilita_torre_da[s + 1] - mobilita_torre_da[s],
              1 << (64 - ShiftIndiceMobilita_torre_in[s]));
    EXPECT_EQ(mobilita_alfiere_da[s + 1] - mobilita_alfiere_da[s],
              1 << (64 - ShiftIndiceMobilita_alfiere_in[s]));
  }
  EXPECT_EQ(mobilita_alfiere_da[0] - mobilita_torre_da[63],
            1 << (64 - ShiftIndiceMobilita_torre_in[63]));
  EXPECT_EQ(DbMobilita + DIMENSIONE_DB_MOBILITA - mobilita_alfiere_da[63],
            1 << (64 - ShiftIndiceMobilita_alfiere_in[63]));
  EXPECT_EQ(DIMENSIONE_DB_MOBILITA, 101504);
}

TEST(Mobilita, CostantiDiEsempio) {
  const struct {
    int casa;
    uint64_t torre;
    uint32_t shift_torre;
    uint64_t alfiere;
    uint32_t shift_alfiere;
  } esempi[] = {{0, 0x80001020400080ull, 52, 0x2020202020200ull, 58},
                {7, 0x80002040800100ull, 52, 0x104104104000ull, 58},
                {36, 0x40080800800ull, 54, 0x404040040100ull, 55},
                {63, 0x1fffaabfad1a2ull, 53, 0x2020202020200ull, 58}};
  for (const auto& e : esempi) {
    EXPECT_EQ(FattoreMagicoMobilita_torre_in[e.casa], e.torre);
    EXPECT_EQ(ShiftIndiceMobilita_torre_in[e.casa], e.shift_torre);
    EXPECT_EQ(FattoreMagicoMobilita_alfiere_in[e.casa], e.alfiere);
    EXPECT_EQ(ShiftIndiceMobilita_alfiere_in[e.casa], e.shift_alfiere);
  }
}

}  // namespace
