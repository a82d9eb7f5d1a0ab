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

}  // namespace
