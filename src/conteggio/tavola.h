// What the counter's walk and its callers share: the compact position it
// walks, the table of subtree counts and the options of a count.
#pragma once

#include <atomic>
#include <cstdint>

#include "board/posizione.h"

// The position as the counter walks it.
struct TavolaConteggio {
  uint64_t pezzi[6];   // by kind, pawn..king, both colours
  uint64_t colore[2];  // every piece of a colour
  uint64_t diritti;    // castling rights, the bits of InfoPosizione
  uint64_t enpassant;  // where an en passant capture may land, 0 for none
};
struct PosizioneConteggio {
  TavolaConteggio tavola;
  Colore turno;
};

// Deepest count accepted, as for the make and unmake walk.
constexpr int PROFONDITA_MASSIMA_CONTEGGIO = 20;

// A table of subtree counts: a power of two of entries, shared by every
// thread of one count. Each entry holds the count and its key XOR the count,
// so that an entry torn by two threads writing at once reads as a miss.
struct VoceTabellaConteggio {
  std::atomic<uint64_t> controllo{0};
  std::atomic<uint64_t> nodi{0};
};
constexpr int MASSIMO_THREAD_CONTEGGIO = 64;

struct OpzioniConteggio {
  int thread = 1;  // root moves shared among this many threads, 1..MASSIMO_THREAD_CONTEGGIO
  VoceTabellaConteggio* tabella = nullptr;  // none: no table
  uint64_t voci = 0;                        // entries of `tabella`, a power of two
};
