// The Windows console delivers every chord: no prefixes stand in for them.
#include "piattaforma/piattaforma.h"

namespace piattaforma {

bool TastiConPrefissi() { return false; }

}  // namespace piattaforma
