#include "moves/registro.h"

uint64_t backup_ChiaveHash[MAX_SEMIMOSSE];
uint64_t backup_HashPedoni[MAX_SEMIMOSSE];
uint64_t backup_InfoPosizione[MAX_SEMIMOSSE];
