// Exact move counts from the current position: every move down to the last
// ply is made and taken back (no counting of the last ply's list), each ply
// generating into a buffer of its own, so the game's BufferMosseGenerate is
// left alone. The backups of the current ply and the ones above it are
// rewritten, as by any move tried from here.
#pragma once

#include <cstdint>

// Deepest count accepted; deeper requests count nothing.
constexpr int PROFONDITA_MASSIMA_PERFT = 20;

// Number of move sequences of `profondita` plies from the current position,
// for the side to move by the parity of ContatoreMosse. 1 at depth 0; 0 when
// the depth is negative, above PROFONDITA_MASSIMA_PERFT, or would run the game
// record past its end. The position is left as it was.
uint64_t Perft(int profondita);

struct VocePerft {
  uint64_t mossa;  // a legal root move
  uint64_t nodi;   // the count of profondita - 1 plies after it
};
// The count under each legal root move, in generation order, written into
// `voci` (room for DIMENSIONE_BUFFER_MOSSE entries); returns how many were
// written (0 when profondita < 1 or out of range as for Perft).
int PerftDivide(int profondita, VocePerft* voci);

// The move in coordinates as the usual engines write it: "e2e4", "e7e8q",
// castling as the king's step "e1g1". Writes at most 6 bytes, NUL included.
void ScriviMossaCoordinate(uint64_t mossa, char* testo);
