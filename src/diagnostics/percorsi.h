// Walks of the generator and of the make and unmake families from the current
// position: test_del_* runs the position self-check after every make and every
// unmake and stops at the first report; TestVelocita_del_* walks the same way
// without checks and counts the positions entered in PosizioniValutate.
//
// All levels share the one BufferMosseGenerate: each level writes its moves
// after those of the level above it and gives the space back on return. A
// level that might not fit in the space left is counted but not expanded, so
// walks are exact while the buffer holds every level (depth 1 always, depths
// 2 and 3 in ordinary positions) and grow inexact beyond, never writing past the buffer. Exact
// counts at any depth come from the perft walk.
#pragma once

#include <cstdint>

#include "board/posizione.h"

// Grows by one on every entry into TestVelocita_del_*, leaves included; the
// caller zeroes it before a run.
extern uint64_t PosizioniValutate;

// The caller picks the function of the side to move (AlTratto), by name or
// through the tables by colour.
void test_del_bianco(uint32_t profondita);
void test_del_nero(uint32_t profondita);
void TestVelocita_del_bianco(uint32_t profondita);
void TestVelocita_del_nero(uint32_t profondita);

using FunzionePercorso = void (*)(uint32_t profondita);
inline constexpr FunzionePercorso test_del[2] = {test_del_bianco, test_del_nero};
inline constexpr FunzionePercorso TestVelocita_del[2] = {TestVelocita_del_bianco,
                                                         TestVelocita_del_nero};
