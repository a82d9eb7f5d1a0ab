// Tables by move type: the names and kinds of the types, and the make and
// unmake functions of fai.h and ritira.h by colour and type, so that a caller
// writes fai_mossa[colore][TipoMossa(m)](m).
#pragma once

#include <cstdint>

#include "board/mossa.h"
#include "board/posizione.h"

extern const char* const StringaTipoMossa[64];
extern const uint32_t TipoPezzoMossa[64];
extern const uint32_t TipoPromozioneMossa[64];

// A make returns 1 when the move was made and recorded, 0 when it would leave
// the mover's own king attacked (every global is then as it was). An unmake
// takes back the last move made, ElencoMosse[ContatoreMosse], of its colour;
// the caller saved the position's words before the make (SalvaParolePosizione).
using FunzioneFai = int (*)(uint64_t mossa);
using FunzioneRitira = void (*)(uint64_t mossa);

// [colour][type]; type 0 (null move) and 61-63 are empty.
extern const FunzioneFai fai_mossa[2][64];
extern const FunzioneRitira ritira_mossa[2][64];
inline const FunzioneFai (&fai_mossa_del_bianco)[64] = fai_mossa[BIANCO];
inline const FunzioneFai (&fai_mossa_del_nero)[64] = fai_mossa[NERO];
inline const FunzioneRitira (&ritira_mossa_del_bianco)[64] = ritira_mossa[BIANCO];
inline const FunzioneRitira (&ritira_mossa_del_nero)[64] = ritira_mossa[NERO];
