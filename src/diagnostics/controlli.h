// Self-checks of the incremental bookkeeping: the derived key tables against
// the Zobrist tables, and the current position rebuilt from its square lists.
#pragma once

#include <cstdint>

#include "board/posizione.h"

constexpr int DIMENSIONE_TESTO_CONTROLLO = 4096;

// Cleared at the start of every ControllaPosizione; a non-zero
// LunghezzaTesto means that something was found.
struct RecordControlloPosizione {
  uint64_t ChiaveRicalcolata;              // ChiaveHash rebuilt from the lists
  uint64_t HashPedoniRicalcolata;          // HashPedoni rebuilt from the pawn lists
  uint64_t CaseViste;                      // every square named by a list or a king square
  char testo[DIMENSIONE_TESTO_CONTROLLO];  // the report lines, NUL-terminated
  uint32_t LunghezzaTesto;
};
extern RecordControlloPosizione ReportControlloPosizione;

// The key tables ControllaChiaviHash compares: the base Zobrist keys and the
// tables derived from them. Tests hand in corrupted copies.
struct TabelleChiavi {
  const uint64_t (*base)[6][64];        // hash_in
  const uint64_t (*sposta_pedone)[64];  // HashSpostaPedone_in
  const uint64_t* sposta_pedone2;       // HashSpostaPedone2In
  const uint64_t* cattura_enpassant;    // HashCatturaEnpassantIn
};
extern const TabelleChiavi TabelleChiaviDelProgramma;

// Prints one label per derived key that disagrees with its base keys; with no
// argument, on the program's own tables.
void ControllaChiaviHash(const TabelleChiavi& tabelle = TabelleChiaviDelProgramma);

// dopo_ritira: 0 right after a make, non-zero right after an unmake (only the
// printed move line differs). Prints the report and the board when not empty.
void ControllaPosizione(int dopo_ritira);

// One part of the report per kind and colour, run by ControllaPosizione in
// this order.
void ControllaPosizione_pedone_bianco();
void ControllaPosizione_cavallo_bianco();
void ControllaPosizione_alfiere_bianco();
void ControllaPosizione_torre_bianco();
void ControllaPosizione_donna_bianco();
void ControllaPosizione_re_bianco();
void ControllaPosizione_pedone_nero();
void ControllaPosizione_cavallo_nero();
void ControllaPosizione_alfiere_nero();
void ControllaPosizione_torre_nero();
void ControllaPosizione_donna_nero();
void ControllaPosizione_re_nero();
