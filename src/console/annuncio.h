// The announcement line: each action says what it did in one short Italian
// sentence, whose first word is the news. It stands at the top focus stop
// (line 15, and line 16 for a sentence longer than a line), above the
// panels, so that a screen reader reading new text from the top meets it
// first, and moving the focus to the top reads it again. The readouts write
// there too, and the program's own voice says the same sentences.
#pragma once

#include <cstddef>

#include "piattaforma/piattaforma.h"
#include "testo/composizione.h"

constexpr int RIGHE_ANNUNCIO = 2;
constexpr size_t LUNGHEZZA_ANNUNCIO = 160;  // two screen lines

// A new sentence: the composer is emptied and handed back; Annuncia()
// shows what was composed and gives it to the voice with `priorita`.
Composizione& NuovoAnnuncio();
void Annuncia(piattaforma::PrioritaVoce priorita = piattaforma::PrioritaVoce::Testo);
// What the voice says starts here, not at the sentence's start: a move's
// text ("Nf3: ") is for the eye, its words for the ear.
void InizioParlato();
// A whole sentence at once.
void Annuncia(const char* frase,
              piattaforma::PrioritaVoce priorita = piattaforma::PrioritaVoce::Testo);
// What the line says now ("" before the first announcement).
const char* UltimoAnnuncio();
// Blanks the line (a new screen).
void CancellaAnnuncio();
