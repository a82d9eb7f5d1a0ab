// Many terminals never send Ctrl or Alt with some keys: the decoder lets Esc
// and Ctrl+X stand in for them, and the help page says how.
#include "piattaforma/piattaforma.h"

namespace piattaforma {

bool TastiConPrefissi() { return true; }

}  // namespace piattaforma
