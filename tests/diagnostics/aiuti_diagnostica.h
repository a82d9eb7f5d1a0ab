// Shared helpers of the diagnostics tests: loading positions, reading perft
// tables, and a picture of every position global for before/after comparisons.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "board/posizione.h"

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

// Every global of the position, with square lists as sorted sets and piece
// codes without their slot bits (an unmake may reorder the lists).
struct Istantanea {
  uint64_t pezzi[2][5];
  uint64_t colore[2];
  uint64_t occupazione;
  uint64_t tipo_in[65];
  std::vector<uint64_t> liste[2][5];
  uint64_t re[2];
  uint64_t materiale[2];
  uint64_t info, chiave, pedoni, contatore;
  bool operator==(const Istantanea&) const = default;
};
Istantanea Fotografa();
// Names of the fields that differ, for failure messages.
std::string Differenze(const Istantanea& prima, const Istantanea& dopo);

// The four check states of the generators, read from InfoPosizione.
enum StatoScacco { NESSUNO_SCACCO_STATO, SCACCO_PRIMO, SCACCO_SECONDO, SCACCO_DOPPIO };
StatoScacco StatoDiScacco(uint64_t info);
