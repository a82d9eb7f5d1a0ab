#include "piattaforma/errore_file.h"
#include "piattaforma/piattaforma.h"

namespace piattaforma {

bool SostituisciFileDiTesto(const char* nome, const char* testo, size_t lunghezza) {
#ifdef _WIN32
  // Text files get the system's line ends; the largest file the program
  // writes (a full game's record, the help page) is far below this size.
  static char convertito[1 << 17];
  size_t n = 0;
  for (size_t i = 0; i < lunghezza; ++i) {
    if (n + 2 > sizeof convertito) return EsitoFile(false, ErroreFile::Altro);
    if (testo[i] == '\n') convertito[n++] = '\r';
    convertito[n++] = testo[i];
  }
  return SostituisciFile(nome, convertito, n);
#else
  return SostituisciFile(nome, testo, lunghezza);
#endif
}

}  // namespace piattaforma
