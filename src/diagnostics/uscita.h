// Where the diagnostics report. They own no terminal and no files: the
// program installs the console's output at the cursor, its board panel and
// the atomic file call; a developer tool installs its standard output. With
// nothing installed a report is dropped.
#pragma once

#include <cstddef>

#include "testo/composizione.h"

struct UscitaDiagnostica {
  void (*testo)(const char* testo, size_t lunghezza);
  void (*scacchiera)();  // draws the position
  // Replaces a whole text file ('\n' line ends); false when it failed.
  bool (*file)(const char* nome, const char* testo, size_t lunghezza);
};
extern UscitaDiagnostica UscitaDiagnostiche;
void InstallaUscitaDiagnostiche(const UscitaDiagnostica& uscita);

// printf-style text to the installed output, at most 4095 bytes a call.
[[gnu::format(printf, 1, 2)]] void ScriviDiagnostica(const char* formato, ...);
void DisegnaScacchieraDiagnostica();
bool ScriviFileDiagnostico(const char* nome, const char* testo, size_t lunghezza);
