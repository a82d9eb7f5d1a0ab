// The walk with the population count instruction: on x86 the build compiles
// this source alone with -mpopcnt, and CamminoScelto runs it only where the
// processor has the instruction.
#include "conteggio/cammino.h"
#include "conteggio/legali.h"

const Cammino CamminoPopcnt = conteggio::QuestoCammino;
