// A deliberately simple second model of a position for the board tests: an
// 8 x 8 grid of FEN letters, and attacks found by walking the grid. It shares
// no table with the code under test.
#pragma once

#include <cstdint>
#include <string>

namespace riferimento {

struct Griglia {
  char casa[64];  // FEN letter, '.' when empty; square 0 is a8
};

// The placement field of a well-formed FEN text.
inline Griglia DaFen(const std::string& fen) {
  Griglia g;
  for (char& c : g.casa) c = '.';
  int s = 0;
  for (char c : fen) {
    if (c == ' ') break;
    if (c == '/') continue;
    if (c >= '1' && c <= '8')
      s += c - '0';
    else
      g.casa[s++] = c;
  }
  return g;
}

inline bool Bianco(char c) { return c >= 'A' && c <= 'Z'; }
inline char Minuscola(char c) { return Bianco(c) ? char(c - 'A' + 'a') : c; }

// Bitboard of the pieces of colour `bianco` that attack square s.
inline uint64_t Attaccanti(const Griglia& g, int s, bool bianco) {
  uint64_t b = 0;
  const int f0 = s % 8, r0 = s / 8;
  auto pezzo = [&](int f, int r, const char* tipi) {
    if (f < 0 || f > 7 || r < 0 || r > 7) return;
    const char c = g.casa[8 * r + f];
    if (c == '.' || Bianco(c) != bianco) return;
    for (const char* t = tipi; *t; ++t)
      if (Minuscola(c) == *t) b |= 1ull << (8 * r + f);
  };
  // A white pawn attacks towards rank 8 (row - 1), so it stands one row below.
  const int riga_pedone = bianco ? r0 + 1 : r0 - 1;
  pezzo(f0 - 1, riga_pedone, "p");
  pezzo(f0 + 1, riga_pedone, "p");
  const int cavallo[8][2] = {{1, 2},   {2, 1},   {2, -1}, {1, -2},
                             {-1, -2}, {-2, -1}, {-2, 1}, {-1, 2}};
  for (const auto& d : cavallo) pezzo(f0 + d[0], r0 + d[1], "n");
  for (int df = -1; df <= 1; ++df)
    for (int dr = -1; dr <= 1; ++dr)
      if (df || dr) pezzo(f0 + df, r0 + dr, "k");
  for (int df = -1; df <= 1; ++df)
    for (int dr = -1; dr <= 1; ++dr) {
      if (!df && !dr) continue;
      const char* tipi = df && dr ? "bq" : "rq";
      for (int f = f0 + df, r = r0 + dr; f >= 0 && f < 8 && r >= 0 && r < 8; f += df, r += dr) {
        pezzo(f, r, tipi);
        if (g.casa[8 * r + f] != '.') break;
      }
    }
  return b;
}

inline int CasaRe(const Griglia& g, bool bianco) {
  for (int s = 0; s < 64; ++s)
    if (g.casa[s] == (bianco ? 'K' : 'k')) return s;
  return 64;
}

}  // namespace riferimento
