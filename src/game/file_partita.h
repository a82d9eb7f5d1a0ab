// The game's files in the working folder: the PGN file and the plain move
// list, each rewritten whole.
#pragma once

#include <cstddef>

extern const char* const NomeFilePartita;     // "partita.pgn"
extern const char* const NomeFileListaMosse;  // "ListaMosse.txt"
extern const char* const NomeAnnotatore;      // "Pendrino1.0"

void SalvaPartita();
void ScriviElencoMosse();

// The texts as they are written, composed into a fixed buffer ('\n' line
// ends); their length.
size_t TestoPartita(char* testo, size_t capienza);
size_t TestoElencoMosse(char* testo, size_t capienza);
