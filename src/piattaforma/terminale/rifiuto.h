// The line that a refused terminal prints on standard error, in the words of
// the interface policy or, without one, in neutral ASCII naming TERM.
#pragma once

#include <cstddef>

#include "piattaforma/piattaforma.h"

namespace piattaforma::terminale {

// Written into `uscita` (`dimensione` bytes, zero-terminated, cut to fit),
// without a line end; `tipo` is TERM, nullptr or "" when unset.
void ComponiRifiuto(RifiutoTerminale motivo, const char* tipo, char* uscita, size_t dimensione,
                    const PoliticaInterfaccia& politica = PoliticaInterfacciaAttuale());

}  // namespace piattaforma::terminale
