// One run of the move-text fuzzer, shared by the fuzzer and by the test that
// replays its corpus. The first byte picks the position (one of a set, or,
// from 128 up, the first line as a FEN when it loads); the lines that follow
// are typed one after another as moves. Each move played is written in the
// record, taken back (every position global as before, the same legal
// moves), typed again as the record wrote it and kept; at the end every move
// is taken back down to the loaded position.
#pragma once

#include <cstddef>
#include <cstdint>

// The broken property, or nullptr when the input held them all. Needs the
// in-memory platform.
const char* ProvaTestiMossa(const uint8_t* dati, size_t lunghezza);

// How many moves the last run kept, for the corpus test's figures.
extern int MosseTenute;
