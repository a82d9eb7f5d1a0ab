#include "moves/legali.h"

#include "board/mossa.h"
#include "board/posizione.h"
#include "moves/genera.h"
#include "moves/registro.h"
#include "moves/tavole.h"

void FiltraMosseLegali() {
  const Colore lato = AlTratto();
  FineMosseGenerate = genera_mosse_del[lato](BufferMosseGenerate);
  // The unmakes below, a later take-back and the repetition scan read these.
  SalvaParolePosizione();
  uint64_t* p = BufferMosseGenerate;
  while (p < FineMosseGenerate) {
    const uint64_t mossa = *p;
    if (fai_mossa[lato][TipoMossa(mossa)](mossa)) {
      const uint64_t fatta = ElencoMosse[ContatoreMosse];
      ritira_mossa[lato][TipoMossa(fatta)](fatta);
      ++p;
    } else {
      // The last candidate takes the refused one's place and is looked at next.
      *p = *--FineMosseGenerate;
    }
  }
}
