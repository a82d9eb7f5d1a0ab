// Moves of random games: the pick and the coordinates a player types.
// Header-only, so that the soak run of the benchmarks plays and types its
// moves as the tests do.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "board/mossa.h"
#include "board/posizione.h"
#include "moves/genera.h"
#include "moves/tavole.h"

namespace partite_a_caso {

// "e2e4", "e7e8N": a move word by coordinates, with the letter of an
// under-promotion or of a queen's.
inline std::string Coordinate(uint64_t mossa) {
  std::string t;
  for (uint64_t casa : {OrigineMossa(mossa), DestinazioneMossa(mossa)}) {
    t += char('a' + (casa & 7));
    t += char('8' - (casa >> 3));
  }
  const uint32_t promozione = TipoPromozioneMossa[TipoMossa(mossa)];
  if (promozione != 255) t += "?NBRQ"[promozione];
  return t;
}

// A random move of the generated list, leaning towards undoing the side's own
// last move (repetitions, long reversible runs) and towards captures (the
// endings). `caso(n)` draws in [0, n); the undo looks no further back than
// ply `primo_turno`.
template <class Caso>
uint64_t ScegliMossa(Caso&& caso, uint64_t primo_turno) {
  const uint64_t modo = caso(4);
  if (modo == 0 && ContatoreMosse >= primo_turno + 2) {
    const uint64_t propria = ElencoMosse[ContatoreMosse - 1];
    for (const uint64_t* p = BufferMosseGenerate; p < FineMosseGenerate; ++p)
      if (OrigineMossa(*p) == DestinazioneMossa(propria) &&
          DestinazioneMossa(*p) == OrigineMossa(propria))
        return *p;
  }
  if (modo == 1) {
    uint64_t catture[DIMENSIONE_BUFFER_MOSSE];
    size_t n = 0;
    for (const uint64_t* p = BufferMosseGenerate; p < FineMosseGenerate; ++p)
      if (PezzoIn[DestinazioneMossa(*p)] != CASA_VUOTA) catture[n++] = *p;
    if (n) return catture[caso(n)];
  }
  return BufferMosseGenerate[caso(size_t(FineMosseGenerate - BufferMosseGenerate))];
}

}  // namespace partite_a_caso
