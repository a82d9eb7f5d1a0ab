// The outcome of the last file call, recorded by the backends for
// UltimoErroreFile.
#pragma once

#include "piattaforma/piattaforma.h"

namespace piattaforma {

void ImpostaErroreFile(ErroreFile errore);

// The call's answer `riuscito`, its outcome recorded: Nessuno or `errore`.
inline bool EsitoFile(bool riuscito, ErroreFile errore) {
  ImpostaErroreFile(riuscito ? ErroreFile::Nessuno : errore);
  return riuscito;
}

}  // namespace piattaforma
