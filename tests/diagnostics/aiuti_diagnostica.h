// Shared helpers of the diagnostics tests: loading positions, reading perft
// tables, and a picture of every position global for before/after comparisons.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "board/posizione.h"
#include "supporto/istantanea.h"
#include "verifiche/tabelle_perft.h"

inline const std::string TabellaRiferimento =
    std::string(PENDRINO_DATI_CONDIVISI) + "/perft-reference.tsv";
inline const std::string TabellaExtra = std::string(PENDRINO_DATI_TEST) + "/perft-extra.tsv";

// The four check states of the generators, read from InfoPosizione.
enum StatoScacco { NESSUNO_SCACCO_STATO, SCACCO_PRIMO, SCACCO_SECONDO, SCACCO_DOPPIO };
StatoScacco StatoDiScacco(uint64_t info);

// How many times the diagnostics asked for the board to be drawn.
extern int ScacchiereDisegnate;
