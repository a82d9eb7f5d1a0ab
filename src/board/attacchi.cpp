#include "board/attacchi.h"

int attaccano_pezzi_del_bianco(uint64_t casa) { return attaccano_pezzi<BIANCO>(casa); }
int attaccano_pezzi_del_nero(uint64_t casa) { return attaccano_pezzi<NERO>(casa); }
