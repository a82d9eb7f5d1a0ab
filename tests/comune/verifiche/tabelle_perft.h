// Perft tables for the tests: loading a position, reading a table of
// published counts, the distinct positions of a table.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

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
