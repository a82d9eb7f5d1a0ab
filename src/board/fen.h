// Loading a position from Forsyth-Edwards Notation.
#pragma once

#include <cstdint>

extern const char* const FenIniziale;

// 1 when loaded, 0 when rejected. The caller empties the board first and
// again after a rejection.
int CaricaPosizioneDaStringaFen(const char* testo);
