// The perft walk, written once for both colours: the side alternates with
// the template argument, the dispatch goes through the move-type tables.
#include "diagnostics/perft.h"

#include "board/mossa.h"
#include "board/posizione.h"
#include "moves/genera.h"
#include "moves/registro.h"
#include "moves/tavole.h"

namespace {

uint64_t BufferPerft[PROFONDITA_MASSIMA_PERFT][DIMENSIONE_BUFFER_MOSSE];

// profondita >= 1; `buffer` is this ply's, the next ply uses the next one.
template <Colore C>
uint64_t PerftDa(int profondita, uint64_t (*buffer)[DIMENSIONE_BUFFER_MOSSE]) {
  const FunzioneFai* const fai = fai_mossa[C];
  const FunzioneRitira* const ritira = ritira_mossa[C];
  uint64_t* const inizio = *buffer;
  uint64_t* const fine = genera_mosse_del[C](inizio);
  SalvaParolePosizione();
  uint64_t nodi = 0;
  if (profondita == 1) {
    for (const uint64_t* p = inizio; p < fine; ++p) {
      const uint64_t mossa = *p;
      if (fai[TipoMossa(mossa)](mossa)) {
        ++nodi;
        ritira[TipoMossa(mossa)](mossa);
      }
    }
  } else {
    for (const uint64_t* p = inizio; p < fine; ++p) {
      const uint64_t mossa = *p;
      if (fai[TipoMossa(mossa)](mossa)) {
        nodi += PerftDa<~C>(profondita - 1, buffer + 1);
        ritira[TipoMossa(mossa)](mossa);
      }
    }
  }
  return nodi;
}

bool ProfonditaAmmessa(int profondita) {
  return profondita >= 0 && profondita <= PROFONDITA_MASSIMA_PERFT &&
         ContatoreMosse + uint64_t(profondita) < uint64_t(MAX_SEMIMOSSE);
}

uint64_t PerftColore(int profondita, uint64_t (*buffer)[DIMENSIONE_BUFFER_MOSSE]) {
  if (profondita == 0) return 1;
  return AlTratto() == NERO ? PerftDa<NERO>(profondita, buffer)
                            : PerftDa<BIANCO>(profondita, buffer);
}

}  // namespace

uint64_t Perft(int profondita) {
  if (!ProfonditaAmmessa(profondita)) return 0;
  return PerftColore(profondita, BufferPerft);
}

int PerftDivide(int profondita, VocePerft* voci) {
  if (profondita < 1 || !ProfonditaAmmessa(profondita)) return 0;
  const Colore c = AlTratto();
  uint64_t* const inizio = BufferPerft[0];
  uint64_t* const fine = genera_mosse_del[c](inizio);
  const FunzioneFai* const fai = fai_mossa[c];
  const FunzioneRitira* const ritira = ritira_mossa[c];
  SalvaParolePosizione();
  int n = 0;
  for (const uint64_t* p = inizio; p < fine; ++p) {
    const uint64_t mossa = *p;
    if (!fai[TipoMossa(mossa)](mossa)) continue;
    voci[n].mossa = mossa;
    voci[n].nodi = PerftColore(profondita - 1, BufferPerft + 1);
    ++n;
    ritira[TipoMossa(mossa)](mossa);
  }
  return n;
}

void ScriviMossaCoordinate(uint64_t mossa, char* testo) {
  const uint64_t o = OrigineMossa(mossa), d = DestinazioneMossa(mossa);
  ScriviCasa(d, ScriviCasa(o, testo));
  const uint64_t tipo = TipoMossa(mossa);
  int fine = 4;
  if (tipo >= PROMOZIONE_CAVALLO && tipo < NUMERO_TIPI_MOSSA)
    testo[fine++] = CaratterePezzo[TipoPromozioneMossa[tipo]];
  testo[fine] = '\0';
}
