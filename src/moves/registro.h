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

// Every ply's saved words as one value: what a test plants to see which
// plies a look back reads (the repetition scan) and which ones a function
// records.
struct StatoRegistro {
  uint64_t chiave[MAX_SEMIMOSSE];  // backup_ChiaveHash
  uint64_t pedoni[MAX_SEMIMOSSE];  // backup_HashPedoni
  uint64_t info[MAX_SEMIMOSSE];    // backup_InfoPosizione
  bool operator==(const StatoRegistro&) const = default;
};
StatoRegistro FotografiaRegistro();
void RipristinaRegistro(const StatoRegistro& s);
