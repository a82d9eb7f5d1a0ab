// A picture of every position global, for before/after comparisons in the
// tests of the moves and of the diagnostics.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "board/posizione.h"

// Square lists as sorted sets and piece codes without their slot bits, since a
// make and unmake may reorder the lists.
struct Istantanea {
  uint64_t pezzi[2][5];
  uint64_t colore[2];
  uint64_t occupazione;
  std::array<uint64_t, 65> codici;
  std::vector<uint64_t> liste[2][5];
  uint64_t re[2];
  uint64_t materiale[2];
  uint64_t info, chiave, pedoni, contatore;
  bool operator==(const Istantanea&) const = default;
};
Istantanea Fotografa();
// The square list of kind `tipo` (pawn..queen) of `colore`.
const uint64_t* ListaDi(int colore, int tipo);
// Names of the fields that differ, for failure messages.
std::string Differenze(const Istantanea& prima, const Istantanea& dopo);
