// The 120 make functions, one per move type and colour (fai_o_o_del_bianco,
// fai_pedone_bianco_cattura_cavallo, fai_nero_promuove_donna_cattura_torre,
// ...). Each returns 1 when the move was made and recorded, 0 when it would
// leave the mover's own king attacked (every global is then as it was).
// Normally reached through fai_mossa[colour][type] of tavole.h.
#pragma once

#include <cstdint>

#include "moves/tipi_mossa.h"

#define PENDRINO_DICHIARA_FAI(tipo, prima, dopo) PENDRINO_DICHIARA_COPPIA(int, fai_, prima, dopo)
PENDRINO_TIPI_MOSSA(PENDRINO_DICHIARA_FAI)
#undef PENDRINO_DICHIARA_FAI
