#include "diagnostics/uscita.h"

#include <cstdarg>
#include <cstdio>

UscitaDiagnostica UscitaDiagnostiche;

void InstallaUscitaDiagnostiche(const UscitaDiagnostica& uscita) { UscitaDiagnostiche = uscita; }

void ScriviDiagnostica(const char* formato, ...) {
  if (!UscitaDiagnostiche.testo) return;
  char testo[4096];
  Composizione c(testo, sizeof testo);
  va_list argomenti;
  va_start(argomenti, formato);
  c.FormatoDa(formato, argomenti);
  va_end(argomenti);
  if (c.Scritti() > 0) UscitaDiagnostiche.testo(testo, c.Scritti());
}

void DisegnaScacchieraDiagnostica() {
  if (UscitaDiagnostiche.scacchiera) UscitaDiagnostiche.scacchiera();
}

bool ScriviFileDiagnostico(const char* nome, const char* testo, size_t lunghezza) {
  return UscitaDiagnostiche.file && UscitaDiagnostiche.file(nome, testo, lunghezza);
}
