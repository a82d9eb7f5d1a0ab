// Shared helpers of the diagnostics tests: loading positions, reading perft
// tables, and a picture of every position global for before/after comparisons.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "board/posizione.h"
#include "supporto/istantanea.h"

// Empties the board and loads `fen`; false when the loader rejects it.
bool CaricaFen(const std::string& fen);

// One row of a perft table: name, FEN, depth, expected leaf count.
struct RigaPerft {
  std::string nome, fen;
  int profondita;
  uint64_t nodi;
};
// Rows of a tab-separated table with a header line; fails the calling test on
// a malformed row.
std::vector<RigaPerft> LeggiTabellaPerft(const std::string& percorso);
// The distinct FENs of a table, in order of first appearance.
std::vector<std::string> FenDistinte(const std::vector<RigaPerft>& righe);

inline const std::string TabellaRiferimento =
    std::string(PENDRINO_DATI_CONDIVISI) + "/perft-reference.tsv";
inline const std::string TabellaExtra = std::string(PENDRINO_DATI_TEST) + "/perft-extra.tsv";

// The four check states of the generators, read from InfoPosizione.
enum StatoScacco { NESSUNO_SCACCO_STATO, SCACCO_PRIMO, SCACCO_SECONDO, SCACCO_DOPPIO };
StatoScacco StatoDiScacco(uint64_t info);

// How many times the diagnostics asked for the board to be drawn.
extern int ScacchiereDisegnate;
