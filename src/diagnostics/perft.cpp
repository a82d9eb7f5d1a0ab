// The perft walk, written once for both colours: the side alternates with
// the template argument, the dispatch goes through the move-type tables.
#include "diagnostics/perft.h"

#include "board/posizione.h"
#include "moves/mosse.h"

namespace {

uint64_t BufferPerft[PROFONDITA_MASSIMA_PERFT][DIMENSIONE_BUFFER_MOSSE];

template <Colore C>
struct Tavole;
template <>
struct Tavole<BIANCO> {
  static constexpr const FunzioneFai* fai = fai_mossa_del_bianco;
  static constexpr const FunzioneRitira* ritira = ritira_mossa_del_bianco;
  static constexpr FunzioneGenera genera = genera_TutteLeMosse_del_bianco;
};
template <>
struct Tavole<NERO> {
  static constexpr const FunzioneFai* fai = fai_mossa_del_nero;
  static constexpr const FunzioneRitira* ritira = ritira_mossa_del_nero;
  static constexpr FunzioneGenera genera = genera_TutteLeMosse_del_nero;
};

// profondita >= 1; `buffer` is this ply's, the next ply uses the next one.
template <Colore C>
uint64_t PerftDa(int profondita, uint64_t (*buffer)[DIMENSIONE_BUFFER_MOSSE]) {
  using T = Tavole<C>;
  uint64_t* const inizio = *buffer;
  uint64_t* const fine = T::genera(inizio);
  SalvaParolePosizione();
  uint64_t nodi = 0;
  if (profondita == 1) {
    for (const uint64_t* p = inizio; p < fine; ++p) {
      const uint64_t mossa = *p;
      if (T::fai[TipoMossa(mossa)](mossa)) {
        ++nodi;
        T::ritira[TipoMossa(mossa)](mossa);
      }
    }
  } else {
    for (const uint64_t* p = inizio; p < fine; ++p) {
      const uint64_t mossa = *p;
      if (T::fai[TipoMossa(mossa)](mossa)) {
        nodi += PerftDa<~C>(profondita - 1, buffer + 1);
        T::ritira[TipoMossa(mossa)](mossa);
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
  return (ContatoreMosse & 1) ? PerftDa<NERO>(profondita, buffer)
                              : PerftDa<BIANCO>(profondita, buffer);
}

}  // namespace

uint64_t Perft(int profondita) {
  if (!ProfonditaAmmessa(profondita)) return 0;
  return PerftColore(profondita, BufferPerft);
}

int PerftDivide(int profondita, VocePerft* voci) {
  if (profondita < 1 || !ProfonditaAmmessa(profondita)) return 0;
  const bool nero = ContatoreMosse & 1;
  uint64_t* const inizio = BufferPerft[0];
  uint64_t* const fine = genera_mosse_del[nero](inizio);
  const FunzioneFai* const fai = nero ? fai_mossa_del_nero : fai_mossa_del_bianco;
  const FunzioneRitira* const ritira = nero ? ritira_mossa_del_nero : ritira_mossa_del_bianco;
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
  testo[0] = CarattereColonna[o & 7];
  testo[1] = char('8' - o / 8);
  testo[2] = CarattereColonna[d & 7];
  testo[3] = char('8' - d / 8);
  const uint64_t tipo = TipoMossa(mossa);
  int fine = 4;
  if (tipo >= PROMOZIONE_CAVALLO && tipo < NUMERO_TIPI_MOSSA)
    testo[fine++] = CaratterePezzo[TipoPromozioneMossa[tipo]];
  testo[fine] = '\0';
}
