#include "moves/registro.h"

#include <cstring>

uint64_t backup_ChiaveHash[MAX_SEMIMOSSE];
uint64_t backup_HashPedoni[MAX_SEMIMOSSE];
uint64_t backup_InfoPosizione[MAX_SEMIMOSSE];

StatoRegistro FotografiaRegistro() {
  StatoRegistro s;
  std::memcpy(s.chiave, backup_ChiaveHash, sizeof s.chiave);
  std::memcpy(s.pedoni, backup_HashPedoni, sizeof s.pedoni);
  std::memcpy(s.info, backup_InfoPosizione, sizeof s.info);
  return s;
}

void RipristinaRegistro(const StatoRegistro& s) {
  std::memcpy(backup_ChiaveHash, s.chiave, sizeof s.chiave);
  std::memcpy(backup_HashPedoni, s.pedoni, sizeof s.pedoni);
  std::memcpy(backup_InfoPosizione, s.info, sizeof s.info);
}
