// The readouts: on request, in words, on the announcement line (and in the
// program's voice): both times, the last move, the pieces of a side, what
// stands on a square, and the score sheet walked move by move.
#pragma once

// Ctrl+O: both times, who is to move and the moves left to the second period.
void comando_LeggiTempi();
// Ctrl+U: the last move, by whom, in words.
void comando_LeggiUltimaMossa();
// Ctrl+B (0) and Ctrl+N (1): the pieces of a side and their squares.
void comando_LeggiPezzi(int colore);
// Ctrl+E: what stands on the square typed in the command field.
void comando_LeggiCasa();
// PgUp, PgDn: the move before or after the one last read from the score
// sheet (the last move first), with its number.
void comando_FormularioIndietro();
void comando_FormularioAvanti();
