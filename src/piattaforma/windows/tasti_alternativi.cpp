// The Windows console delivers every chord: the help page stays as it is.
#include "piattaforma/piattaforma.h"

namespace piattaforma {

const char* SezioneTastiAlternativi() { return nullptr; }

}  // namespace piattaforma
