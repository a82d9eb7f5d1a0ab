// The walk for any processor.
#include "conteggio/cammino.h"
#include "conteggio/legali.h"

const Cammino CamminoComune = conteggio::QuestoCammino;
