// The counter's walk as a table of functions. It is compiled twice from
// legali.h: once for every x86-64 processor and once with the population
// count instruction, which the counting of the last ply spends most of its
// time on; the program picks one when it starts (CamminoScelto).
#pragma once

#include <cstdint>

#include "conteggio/tavola.h"

// A legal root move, as the game's move word, and the board after it.
struct RadiceConteggio {
  uint64_t mossa;
  TavolaConteggio dopo;
};
constexpr int MASSIMO_MOSSE_CONTEGGIO = 256;

struct Cammino {
  // [side to move]: the leaves `profondita` plies below, profondita 0..20.
  uint64_t (*conta[2])(const TavolaConteggio& t, int profondita, const OpzioniConteggio& opzioni);
  // [side to move]: the legal moves into `radici` (room for
  // MASSIMO_MOSSE_CONTEGGIO), in the order of ContaFoglieDivise; how many.
  int (*elenca[2])(const TavolaConteggio& t, RadiceConteggio* radici);
};

extern const Cammino CamminoComune;  // any processor
extern const Cammino CamminoPopcnt;  // x86-64 with POPCNT (elsewhere the same as the other)
const Cammino& CamminoScelto();
