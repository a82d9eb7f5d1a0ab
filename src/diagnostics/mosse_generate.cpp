#include "diagnostics/mosse_generate.h"

#include <cstdio>

#include "board/mossa.h"
#include "diagnostics/stampa.h"
#include "moves/genera.h"
#include "moves/tavole.h"

void StampaMosseGenerate() {
  FILE* file = fopen("dibag.txt", "w");
  if (!file) return;
  const uint64_t* fine = FineMosseGenerate;
  // A stale end pointer must not lead the listing outside the buffer.
  if (!fine || fine < BufferMosseGenerate || fine > BufferMosseGenerate + DIMENSIONE_BUFFER_MOSSE)
    fine = BufferMosseGenerate;
  for (const uint64_t* letta = BufferMosseGenerate; letta < fine; ++letta) {
    uint64_t tipo = TipoMossa(*letta);
    fprintf(file, "%s ", tipo < NUMERO_TIPI_MOSSA ? StringaTipoMossa[tipo] : "??");
    fprintf(file, "%s ", StringaCasa[OrigineMossa(*letta)]);
    fprintf(file, "%s\n", StringaCasa[DestinazioneMossa(*letta)]);
  }
  fclose(file);
}
