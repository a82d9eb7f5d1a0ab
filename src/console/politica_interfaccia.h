// The user-interface choices that the platform carries out for the program:
// the tone of each sticky key prefix, the letters that answer a message box,
// and the words a terminal shows (the box buttons' labels, the line asking
// for a larger terminal, the refusal of a terminal that cannot serve).
#pragma once

#include "piattaforma/piattaforma.h"

piattaforma::PoliticaInterfaccia PoliticaInterfacciaPendrino();
// Hands PoliticaInterfacciaPendrino() to the platform; called at start-up,
// before the first key is read. Calling it again changes nothing.
void InstallaPoliticaInterfaccia();
