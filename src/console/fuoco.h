// Where the keyboard's text goes and where the cursor rests: the command
// field, the focused line of the screen, and the panels redrawn with the
// cursor back on that line, so that a screen reader reads on from there.
#pragma once

#include <cstdint>

constexpr uint32_t MASSIMO_CARATTERI_COMANDO = 8;
extern char comando[MASSIMO_CARATTERI_COMANDO + 1];
extern uint32_t CharatteriInComando;
// Non-alphanumeric characters the command field accepts.
extern const char CaratteriExtra[];

// Focus: 0 the command field, 1 Black's time, 2 White's time, 3..7 the
// information lines upwards, 8 the top of the panel area.
constexpr uint32_t FUOCO_COMANDO = 0;
constexpr uint32_t FUOCO_TEMPO_NERO = 1;
constexpr uint32_t FUOCO_TEMPO_BIANCO = 2;
constexpr uint32_t FUOCO_BORDO_SUPERIORE = 8;
extern uint32_t fuoco;

// Erases the field on screen from its end; the text stays in `comando`.
void SvuotaCampoComando();

// Cursor to the focused line, so a screen reader reads it next.
void ImpostaFocus();

// Redraws the panels of the position, then the cursor goes back to the focus.
void StampaPosizione();
