// A state set up through its owner, as the tests, the soak and the fuzzers
// set it: the owner's picture of it, changed by `cambia`, put back by the
// owner. Nothing outside a layer writes that layer's globals.
#pragma once

#include <cstdint>

#include "board/stato_posizione.h"
#include "clock/orologio.h"
#include "moves/registro.h"

template <class Cambio>
void CambiaPosizione(Cambio&& cambia) {
  StatoPosizione stato = FotografiaPosizione();
  cambia(stato);
  RipristinaPosizione(stato);
}

template <class Cambio>
void CambiaRegistro(Cambio&& cambia) {
  StatoRegistro stato = FotografiaRegistro();
  cambia(stato);
  RipristinaRegistro(stato);
}

template <class Cambio>
void CambiaOrologio(Cambio&& cambia) {
  StatoOrologio stato = FotografiaOrologio();
  cambia(stato);
  RipristinaOrologio(stato);
}

// The ply count alone, which tells the side to move and the move number:
// what the clock reads of the game.
inline void PortaAllaSemimossa(uint64_t semimossa) {
  CambiaPosizione([semimossa](StatoPosizione& p) { p.contatore = semimossa; });
}

// The clock's running flag alone: no tone, no start recorded, no time charged.
inline void SegnaOrologioInMoto(bool in_moto) {
  CambiaOrologio([in_moto](StatoOrologio& s) { s.in_moto = in_moto; });
}
