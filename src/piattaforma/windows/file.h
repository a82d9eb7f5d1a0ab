// Files on Windows: what the system's error codes mean to the user.
#pragma once

#include "piattaforma/piattaforma.h"
#include "piattaforma/tasti.h"

namespace piattaforma {

// The reason a file call failed with GetLastError() `codice`; `cartella`
// tells whether a folder stands at the name the call was refused (Windows
// says "access denied" for a folder where a file should be).
ErroreFile ErroreDaCodice(DWORD codice, bool cartella);

}  // namespace piattaforma
