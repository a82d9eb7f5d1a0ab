// Signals of the terminal backend: the handlers of resize, suspend, resume
// and the fatal signals, and the self-pipe through which a signal wakes the
// wait on the terminal.
#pragma once

#include <termios.h>

#include <cstddef>

namespace piattaforma::terminale {

// Opens the self-pipe once; its read end, or -1 when it could not be made.
void ApriSveglia();
int SvegliaDaAttendere();
// Empties the self-pipe after a wake-up.
void SvuotaSveglia();

// Installs our handlers, remembering the dispositions found; TogliGestori
// puts those back. Signals ignored from outside (nohup) stay ignored.
void InstallaGestori();
void TogliGestori();

// What a fatal signal puts back before it is raised again: the terminal's
// modes as found, and bytes written to the terminal (composed while it is
// still safe to do so; at most 511 of them are kept).
void RicordaModiOriginali(const termios& modi);
void ImpostaRipristino(const char* byte, size_t lunghezza);

// Signals received since they were last taken; each Prendi clears its own.
bool SegnaliInAttesa();
bool PrendiRidimensionamento();
bool PrendiSospensione();
bool PrendiRipresa();

// Ctrl+Z with SIGTSTP's own effect: the process stops here and goes on after
// fg, with our handler back.
void FermaProcesso();
// While another program has the terminal, Ctrl+Z stops it and us with it
// (the shell's usual job control); then our handler is back.
void LasciaSospensioneAlSistema();
void RiprendiSospensione();

}  // namespace piattaforma::terminale
