// The legal moves of the position on the board: the generator's candidates
// filtered by making and unmaking each one.
#pragma once

#include <cstddef>
#include <cstdint>

#include "moves/genera.h"

// The legal moves of the side to move into BufferMosseGenerate, ending at
// FineMosseGenerate; the position's keys and information word are recorded
// for this ply first, as the unmakes need them.
void FiltraMosseLegali();

// The list ends at `fine`: the diagnostics' walks use the buffer as a stack.
inline void ChiudiListaMosse(uint64_t* fine) { FineMosseGenerate = fine; }

// The list holds exactly the `n` words given (the buffer's size at most):
// what the diagnostics' dumps and walks are tried on where no position
// generates it, such as a word of no known type.
inline void ImpostaListaMosse(const uint64_t* mosse, size_t n) {
  if (n > size_t(DIMENSIONE_BUFFER_MOSSE)) n = DIMENSIONE_BUFFER_MOSSE;
  for (size_t i = 0; i < n; ++i) BufferMosseGenerate[i] = mosse[i];
  FineMosseGenerate = BufferMosseGenerate + n;
}
