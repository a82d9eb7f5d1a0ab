// The chess clock's state: each side's remaining time, the instant from which
// the side to move is timed, and whether the clock runs.
#pragma once

#include <cstdint>

// Remaining time of each side in milliseconds as last charged; it may go
// negative. While the clock runs, the side to move really has
// TempoRimasto[side] + InizioTempo - Adesso() (32-bit wrapping arithmetic).
extern int32_t TempoRimasto[2];
extern uint32_t InizioTempo;
extern uint32_t InMoto;

// Milliseconds on a 32-bit wrapping count; only differences are meaningful.
uint32_t Adesso();

// Whole seconds of a millisecond count, rounded up: 1 ms is 1 s, -999 ms is 0.
int32_t SecondiInMillisecondi(int32_t millisecondi);

// The running side's true remaining time now.
int32_t TempoRimastoInMoto(int colore);

// How long the main loop may wait for keys: until the running side's shown
// second next changes (1..1000 ms), or -1 (keys only) while the clock is
// stopped.
int64_t AttesaProssimoSecondo();
