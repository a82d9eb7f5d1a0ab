// The settings table for the clock tests until its own definition is part of
// this branch; each test sets the values it reads.
#include "settings/parametri.h"

RigaIni ParametroIni[NUMERO_PARAMETRI];
