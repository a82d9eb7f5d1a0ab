// Files on a POSIX system: what the system's error numbers mean to the user.
#pragma once

#include "piattaforma/piattaforma.h"

namespace piattaforma {

// The reason a file call failed with errno `numero`.
ErroreFile ErroreDaErrno(int numero);

}  // namespace piattaforma
