// The saved words of the game record: per ply, the three packed words of the
// position that an unmake takes back instead of recomputing them. The record
// itself (ElencoMosse, ContatoreMosse) belongs to the position.
#pragma once

#include <cstdint>

#include "board/posizione.h"

extern uint64_t backup_ChiaveHash[MAX_SEMIMOSSE];
extern uint64_t backup_HashPedoni[MAX_SEMIMOSSE];
extern uint64_t backup_InfoPosizione[MAX_SEMIMOSSE];

// Before the moves of a ply are tried.
inline void SalvaParolePosizione() {
  backup_ChiaveHash[ContatoreMosse] = ChiaveHash;
  backup_HashPedoni[ContatoreMosse] = HashPedoni;
  backup_InfoPosizione[ContatoreMosse] = InfoPosizione;
}
