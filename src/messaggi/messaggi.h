// The shared message text and the boxes built from it. Every notice and
// question the program shows, and every centred screen line, is composed in
// `messaggio`; the boxes are titled "Attenzione!" and owned by the console.
#pragma once

#include <cstdint>

constexpr int DIMENSIONE_MESSAGGIO = 2048;
extern char messaggio[DIMENSIONE_MESSAGGIO];
extern uint32_t InMessaggio;

// Colour names by colour index: "bianco", "nero".
extern const char* const StringaColore[2];

extern const char* const TitoloFinestre;  // "Attenzione!"

// Composing `messaggio`: every helper keeps the text zero-terminated and
// drops what does not fit rather than overflow the buffer.
void SvuotaMessaggio();
void AggiungiTesto(const char* testo);
void AggiungiCarattere(char carattere);
void AggiungiNumero(int64_t numero);

// The decimal digits of a number, '-' first when negative, zero-terminated
// into `testo` (room for 21 bytes); returns the length.
int TestoDelNumero(int64_t numero, char* testo);

// A notice with the information icon and an OK button.
void Avvisa(const char* testo);
// A question in the given box style; returns the button pressed.
int Domanda(const char* testo, unsigned stile);

// The hooks around every box; the console installs them, a test what it
// watches (nullptr: nothing runs).
// After a box has closed: the console returns the cursor to the focused
// line, so that a screen reader reads on from there.
void InstallaDopoFinestra(void (*dopo)());
// Before a box opens: the console brings the journal up to date, so that
// what a box answers to is on disk before anyone can answer it.
void InstallaPrimaDellaFinestra(void (*prima)());
// With the box's text as it opens: the console's voice says it.
void InstallaFinestraAperta(void (*aperta)(const char* testo));
