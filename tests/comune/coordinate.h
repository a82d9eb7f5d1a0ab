// "e2e4", "e7e8N": what a player types by coordinates for a move word, with
// the letter of an under-promotion or of a queen's. Header-only, so that the
// soak run of the benchmarks types its moves as the tests do.
#pragma once

#include <cstdint>
#include <string>

#include "board/mossa.h"
#include "moves/tavole.h"

namespace partite_a_caso {

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

}  // namespace partite_a_caso
