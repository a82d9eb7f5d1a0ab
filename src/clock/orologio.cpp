#include "clock/orologio.h"

#include "board/posizione.h"
#include "piattaforma/piattaforma.h"

int32_t TempoRimasto[2];
uint32_t InizioTempo;
uint32_t InMoto;

uint32_t Adesso() { return uint32_t(piattaforma::Millisecondi()); }

int32_t SecondiInMillisecondi(int32_t millisecondi) {
  // Division truncates towards zero, which is already the ceiling for
  // negative values.
  const int64_t ms = millisecondi;
  return int32_t(ms > 0 ? (ms + 999) / 1000 : ms / 1000);
}

int32_t TempoRimastoInMoto(int colore) {
  return int32_t(uint32_t(TempoRimasto[colore]) + InizioTempo - Adesso());
}

int64_t AttesaProssimoSecondo() {
  if (!InMoto) return -1;
  const int64_t rimasto = TempoRimastoInMoto(int(ContatoreMosse & 1));
  // The shown value s covers ((s - 1) * 1000, s * 1000]; it becomes s - 1
  // once the remaining time has dropped to (s - 1) * 1000.
  return rimasto - (int64_t(SecondiInMillisecondi(int32_t(rimasto))) - 1) * 1000;
}
