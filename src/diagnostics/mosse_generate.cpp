#include "diagnostics/mosse_generate.h"

#include "board/mossa.h"
#include "diagnostics/stampa.h"
#include "diagnostics/uscita.h"
#include "moves/genera.h"
#include "moves/tavole.h"

void StampaMosseGenerate() {
  // The longest line is 46 bytes; a full buffer of moves fits.
  static char testo[DIMENSIONE_BUFFER_MOSSE * 48];
  Composizione t(testo, sizeof testo);
  const uint64_t* fine = FineMosseGenerate;
  // A stale end pointer must not lead the listing outside the buffer.
  if (!fine || fine < BufferMosseGenerate || fine > BufferMosseGenerate + DIMENSIONE_BUFFER_MOSSE)
    fine = BufferMosseGenerate;
  for (const uint64_t* letta = BufferMosseGenerate; letta < fine; ++letta) {
    uint64_t tipo = TipoMossa(*letta);
    t.Formato("%s ", tipo < NUMERO_TIPI_MOSSA ? StringaTipoMossa[tipo] : "??");
    t.Formato("%s ", StringaCasa[OrigineMossa(*letta)]);
    t.Formato("%s\n", StringaCasa[DestinazioneMossa(*letta)]);
  }
  ScriviFileDiagnostico("dibag.txt", testo, t.Scritti());
}
