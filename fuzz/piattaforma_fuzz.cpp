#include "piattaforma_fuzz.h"

#include <cstring>

#include "piattaforma/piattaforma.h"

int AvvisiMostrati;
bool AvvisoInatteso;

namespace piattaforma {

int FinestraMessaggio(const char* testo, const char* titolo, unsigned stile) {
  ++AvvisiMostrati;
  constexpr char INIZIO[] = "Errore in pendrino.ini: - valore non valido per \"";
  if (std::strncmp(testo, INIZIO, sizeof INIZIO - 1) != 0 ||
      std::strcmp(titolo, "Attenzione!") != 0 || stile != (MB_OK | MB_ICONINFORMATION))
    AvvisoInatteso = true;
  return IDOK;
}

// The tones of the notices: nothing to hear here.
void Suona(uint32_t, uint32_t) {}

bool SostituisciFile(const char*, const char*, size_t) { return false; }
bool SostituisciFileDiTesto(const char*, const char*, size_t) { return false; }

int64_t LeggiFile(const char*, uint64_t, char*, size_t) { return -1; }

}  // namespace piattaforma
