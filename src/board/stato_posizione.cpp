#include "board/stato_posizione.h"

#include <cstring>

namespace {

// Every table of the position beside its field in the value; `copia` takes
// the field first.
template <class Stato, class Copia>
void PerOgniTabella(Stato& s, Copia&& copia) {
  copia(s.pezzi, btm_pezzi);
  copia(s.colore, btm_colore);
  copia(s.pezzo_in, PezzoIn);
  copia(s.pedone, casa_pedone);
  copia(s.cavallo, casa_cavallo);
  copia(s.alfiere, casa_alfiere);
  copia(s.torre, casa_torre);
  copia(s.donna, casa_donna);
  copia(s.re, casa_re);
  copia(s.materiale, materiale);
  copia(s.elenco, ElencoMosse);
}

}  // namespace

StatoPosizione FotografiaPosizione() {
  StatoPosizione s{};
  PerOgniTabella(s, [](auto& campo, const auto& tabella) {
    static_assert(sizeof campo == sizeof tabella);
    std::memcpy(&campo, &tabella, sizeof campo);
  });
  s.occupazione = btm_occupazione;
  s.info = InfoPosizione;
  s.chiave = ChiaveHash;
  s.pedoni = HashPedoni;
  s.contatore = ContatoreMosse;
  s.turno_iniziale = TurnoIniziale;
  return s;
}

void RipristinaPosizione(const StatoPosizione& s) {
  PerOgniTabella(s, [](const auto& campo, auto& tabella) {
    static_assert(sizeof campo == sizeof tabella);
    std::memcpy(&tabella, &campo, sizeof campo);
  });
  btm_occupazione = s.occupazione;
  InfoPosizione = s.info;
  ChiaveHash = s.chiave;
  HashPedoni = s.pedoni;
  ContatoreMosse = s.contatore;
  TurnoIniziale = s.turno_iniziale;
}
