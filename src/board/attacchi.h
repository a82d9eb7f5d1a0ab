// Is a square attacked by any piece of one colour, on the current occupancy.
#pragma once

#include <cstdint>

#include "board/geometria.h"
#include "board/posizione.h"

// Cheapest tests first: pawns, king, knights, then the two magic lookups.
template <Colore C>
inline int attaccano_pezzi(uint64_t casa) {
  if (btm_pezzi[C][PEDONE] & MscBersagliPedone_da[~C][casa]) return 1;
  if (Distanza[casa][casa_re[C]] == 1) return 1;
  if (btm_pezzi[C][CAVALLO] & MascheraMobilita_cavallo_in[casa]) return 1;
  if ((btm_pezzi[C][ALFIERE] | btm_pezzi[C][DONNA]) & AttacchiAlfiere(casa, btm_occupazione))
    return 1;
  if ((btm_pezzi[C][TORRE] | btm_pezzi[C][DONNA]) & AttacchiTorre(casa, btm_occupazione)) return 1;
  return 0;
}

int attaccano_pezzi_del_bianco(uint64_t casa);
int attaccano_pezzi_del_nero(uint64_t casa);
