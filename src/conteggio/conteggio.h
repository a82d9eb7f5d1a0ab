// The fast exact leaf counter of perft, beside the make and unmake walk of
// the diagnostics: a legal move generator that finds checks and pins once per
// node, so that the last ply is counted by population counts of target sets
// instead of being made. It walks its own compact copy of the position (copy
// and make, no unmake), built from the position globals, with the board's
// geometry and sliding attack tables; it touches no global while counting and
// allocates nothing, so that several threads may count at once.
#pragma once

#include <atomic>
#include <cstdint>

#include "board/posizione.h"
#include "conteggio/tavola.h"

// The position of the globals.
PosizioneConteggio PosizioneConteggioCorrente();

// The largest power of two of entries that fits in `megabyte` (at least 1).
uint64_t VociTabellaConteggio(uint64_t megabyte);

// Number of move sequences of `profondita` plies: 1 at depth 0, 0 for a depth
// below 0 or above PROFONDITA_MASSIMA_CONTEGGIO.
uint64_t ContaFoglie(const PosizioneConteggio& posizione, int profondita,
                     const OpzioniConteggio& opzioni = {});

struct VoceConteggio {
  uint64_t mossa;  // a legal root move, as the game's move word
  uint64_t nodi;   // the count of profondita - 1 plies after it
};
// The count under each legal root move, into `voci` (room for 256 entries);
// returns how many were written, 0 when profondita < 1 or out of range. Pawn
// moves come first, promotions to queen, rook, bishop, knight in that order,
// and king moves last, castling on the king side before the queen side.
int ContaFoglieDivise(const PosizioneConteggio& posizione, int profondita, VoceConteggio* voci,
                      const OpzioniConteggio& opzioni = {});
