// The legal moves of the position on the board: the generator's candidates
// filtered by making and unmaking each one.
#pragma once

#include <cstdint>

#include "moves/genera.h"

// The legal moves of the side to move into BufferMosseGenerate, ending at
// FineMosseGenerate; the position's keys and information word are recorded
// for this ply first, as the unmakes need them.
void FiltraMosseLegali();

// The list ends at `fine`: the diagnostics' walks use the buffer as a stack.
inline void ChiudiListaMosse(uint64_t* fine) { FineMosseGenerate = fine; }
