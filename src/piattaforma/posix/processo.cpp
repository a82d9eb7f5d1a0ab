#include <cstdio>
#include <cstdlib>

#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/terminale.h"

namespace piattaforma {

void TerminaProcesso(unsigned codice) {
  // A terminal left in raw mode would be unusable for the shell.
  if (terminale::video.aperto) ChiudiConsole();
  std::fflush(nullptr);
  std::exit(static_cast<int>(codice));
}

}  // namespace piattaforma
