// The whole position and its record as one value, taken and put back by the
// board itself. The tests set up through it what no game reaches in a few
// moves (a half-move clock of 127, the eightieth ply) and plant the faults
// that the self-checks must find: RipristinaPosizione puts back exactly what
// the value holds, checks nothing and recomputes nothing.
#pragma once

#include <cstdint>

#include "board/posizione.h"

struct StatoPosizione {
  uint64_t pezzi[2][5];   // btm_pezzi
  uint64_t colore[2];     // btm_colore
  uint64_t occupazione;   // btm_occupazione
  uint64_t pezzo_in[65];  // PezzoIn
  // The square lists: casa_pedone ... casa_donna, casa_re.
  uint64_t pedone[2][8];
  uint64_t cavallo[2][10];
  uint64_t alfiere[2][10];
  uint64_t torre[2][10];
  uint64_t donna[2][9];
  uint64_t re[2];
  uint64_t materiale[2];
  uint64_t info;                   // InfoPosizione
  uint64_t chiave, pedoni;         // ChiaveHash, HashPedoni
  uint64_t contatore;              // ContatoreMosse
  uint64_t turno_iniziale;         // TurnoIniziale
  uint64_t elenco[MAX_SEMIMOSSE];  // ElencoMosse
  bool operator==(const StatoPosizione&) const = default;
};
StatoPosizione FotografiaPosizione();
void RipristinaPosizione(const StatoPosizione& s);
