// The help page "leggimi.html": the keys of the command table and the notes,
// rewritten at every start, with the platform's own section on alternative
// keys where it has one.
#pragma once

#include <cstddef>

extern const char* const NomeFileGuida;  // "leggimi.html"

constexpr int NUMERO_NOTE = 16;
constexpr int NOTE_USATE = 10;
extern const char* const Nota[NUMERO_NOTE];  // the unused ones empty

// The page composed into a fixed buffer, cut to fit and zero-terminated when
// capienza > 0; the length of the whole page.
size_t TestoElencoComandi(char* testo, size_t capienza);
// Replaces the page; a page that cannot be written is left as it was,
// without a word.
void ScriviElencoComandi();
