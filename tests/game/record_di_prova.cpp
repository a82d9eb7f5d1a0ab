// The record's text table belongs to the move reader, not linked here yet;
// these tests fill it by hand.
#include "game/partita.h"

char ElencoStringaMossa[MAX_SEMIMOSSE][LUNGHEZZA_STRINGA_MOSSA];
