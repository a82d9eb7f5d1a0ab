// The arbiter of the games that the tests, the soak and the fuzzers play
// without a console: the fifty-move draw refused unless asked otherwise (the
// answer a box gives when nobody answers it), the threefold repetition
// adjudicated, as any answer to its question does.
#pragma once

#include <cstdint>

#include "game/partita.h"

inline EsitoMossa AnnotaConArbitro(uint64_t mossa, bool accetta_cinquanta = false) {
  EsitoMossa esito = AnnotaMossa(mossa);
  if (esito.domanda == DomandaAllArbitro::CinquantaMosse) {
    if (accetta_cinquanta) {
      AccettaCinquantaMosse();
      return esito;
    }
    esito = RifiutaCinquantaMosse(esito);
  }
  if (esito.domanda == DomandaAllArbitro::TripliceRipetizione) AggiudicaTriplice();
  return esito;
}
