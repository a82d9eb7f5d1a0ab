// The 120 unmake functions, partners of the make functions of fai.h
// (ritira_o_o_o_del_bianco, ritira_pedone_nero_cattura_alfiere, ...). The
// argument must be the last move made, ElencoMosse[ContatoreMosse], of the
// colour in the name; the caller saved the position's three words at the ply
// before it (SalvaParolePosizione). Normally reached through
// ritira_mossa[colour][type] of tavole.h.
#pragma once

#include <cstdint>

#include "moves/tipi_mossa.h"

#define PENDRINO_DICHIARA_RITIRA(tipo, prima, dopo)  \
  void ritira_##prima##bianco##dopo(uint64_t mossa); \
  void ritira_##prima##nero##dopo(uint64_t mossa);
PENDRINO_TIPI_MOSSA(PENDRINO_DICHIARA_RITIRA)
#undef PENDRINO_DICHIARA_RITIRA
