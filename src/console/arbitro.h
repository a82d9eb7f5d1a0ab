// The arbiter's boxes: the questions the game leaves to the arbiter and the
// notices of what it decided, with their tones; the outcome of a move played
// turned into boxes, the lines redrawn and the tone.
#pragma once

#include "game/partita.h"

// The questions of the resignation and agreement keys, shared with the
// command table that lists the keys.
extern const char* const TestoAbbandona[2];  // White resigns (f8), Black resigns (f4)
extern const char* const TestoPattaDaccordo;

// The adjudication just made: "<comment>, partita aggiudicata ( <result> )."
void avisa_aggiudicazione();

// The questions before an adjudicated game is changed or its clock started,
// and the flag-fall questions; each returns the box's answer.
int dom_AggiudicataModificaCMQ();
int dom_AggiudicataInMotoCMQ();
int dom_AggiudicaPerTempo(int colore);
int dom_AggiudicaPattaPerTempo(int colore);

// F12, F8 and F4: the question, and the adjudication on anything but No.
void PattaDaccordo();
void Abbandona(int colore);

// The fall of `colore`'s flag: the tones, the question the material calls
// for, and the adjudication if the arbiter agrees.
void CadutaBandierina(int colore);

// A move just played: the notice or questions its outcome calls for, the
// panels of the position redrawn, and the move's tone.
void PresentaMossa(EsitoMossa esito);
