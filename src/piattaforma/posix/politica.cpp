// The interface policy installed by the program; neutral until then.
#include "piattaforma/piattaforma.h"

namespace piattaforma {

namespace {

PoliticaInterfaccia politica;

}  // namespace

void ImpostaPoliticaInterfaccia(const PoliticaInterfaccia& nuova) { politica = nuova; }
const PoliticaInterfaccia& PoliticaInterfacciaAttuale() { return politica; }

}  // namespace piattaforma
