#include "orologio_di_prova.h"

#include "clock/orologio.h"

int ChiamateFermaOrologio;

void FermaOrologio() {
  ++ChiamateFermaOrologio;
  InMoto = 0;
}
