// The program's own voice, for a player who wants the clock to speak: off
// until asked for (the key ctrl + v, or voce 1 in preferenze.ini), it says
// the announcement line's sentences and the readouts, every box as it opens,
// the alarms, the countdown and the flag fall. When no speech can be reached
// one sentence says so and the tones go on.
#pragma once

#include "piattaforma/piattaforma.h"

// At start-up, after preferenze.ini was read: the voice as it says.
void AvviaVoce();
bool VoceAccesa();
// Says `testo` when the voice is on.
void Di(const char* testo, piattaforma::PrioritaVoce priorita);
// Opens the voice now; false (and a box saying so) when none answers.
bool AccendiVoce();
void SpegniVoce();
extern const char* const TestoVoceNonDisponibile;
