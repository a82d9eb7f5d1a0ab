// The four castlings: where king and rook stand before and after, and the
// constant that the four piece keys of each castling XOR to. The key
// generator (tools/genera_zobrist.cpp) solves one rook key per castling for
// that constant, so that make-move adds the four keys in one step; this
// header includes nothing of the board for that reason.
#pragma once

#include <cstdint>

struct Arrocco {
  uint64_t re, re_arrivo, torre, torre_arrivo;
  uint64_t chiave_pezzi;
};

// [colour][0 king side, 1 queen side]
inline constexpr Arrocco Arrocchi[2][2] = {
    {{60, 62, 63, 61, 0x3aa3e0b15d7a91b6ull}, {60, 58, 56, 59, 0x7d94c8673fc52b60ull}},
    {{4, 6, 7, 5, 0xecfe612e1daf5aaeull}, {4, 2, 0, 3, 0xd11f82d3411bd340ull}}};

// The squares strictly between king and rook, which must be empty.
constexpr uint64_t ViaArrocco(const Arrocco& a) {
  const uint64_t basso = a.re < a.torre ? a.re : a.torre;
  const uint64_t alto = a.re < a.torre ? a.torre : a.re;
  return ((1ull << alto) - 1) & ~((2ull << basso) - 1);
}
static_assert(ViaArrocco(Arrocchi[0][0]) == 0x60ull << 56);
static_assert(ViaArrocco(Arrocchi[0][1]) == 0x0Eull << 56);
static_assert(ViaArrocco(Arrocchi[1][0]) == 0x60ull && ViaArrocco(Arrocchi[1][1]) == 0x0Eull);
