// The game's files in the working folder: the PGN file and the plain move
// list, each rewritten whole.
#pragma once

#include <cstddef>

extern const char* const NomeFilePartita;     // "partita.pgn"
extern const char* const NomeFileListaMosse;  // "ListaMosse.txt"
extern const char* const NomeAnnotatore;      // "Pendrino1.0"

// Each replaces its file whole; false when the file could not be written,
// which then keeps its old content. Telling the user is the caller's part.
bool SalvaPartita();
bool ScriviElencoMosse();

// The texts as they are written, composed into a fixed buffer ('\n' line
// ends), cut to fit and zero-terminated when capienza > 0; the length of the
// whole text, so that a value >= capienza means it was cut.
size_t TestoPartita(char* testo, size_t capienza);
size_t TestoElencoMosse(char* testo, size_t capienza);
