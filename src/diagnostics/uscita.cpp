#include "diagnostics/uscita.h"

#include <cstdarg>
#include <cstdio>

UscitaDiagnostica UscitaDiagnostiche;

void InstallaUscitaDiagnostiche(const UscitaDiagnostica& uscita) { UscitaDiagnostiche = uscita; }

void ScriviDiagnostica(const char* formato, ...) {
  if (!UscitaDiagnostiche.testo) return;
  char testo[4096];
  va_list argomenti;
  va_start(argomenti, formato);
  const int scritti = std::vsnprintf(testo, sizeof testo, formato, argomenti);
  va_end(argomenti);
  if (scritti <= 0) return;
  const size_t lunghezza = size_t(scritti) < sizeof testo ? size_t(scritti) : sizeof testo - 1;
  UscitaDiagnostiche.testo(testo, lunghezza);
}

void DisegnaScacchieraDiagnostica() {
  if (UscitaDiagnostiche.scacchiera) UscitaDiagnostiche.scacchiera();
}

bool ScriviFileDiagnostico(const char* nome, const char* testo, size_t lunghezza) {
  return UscitaDiagnostiche.file && UscitaDiagnostiche.file(nome, testo, lunghezza);
}

void AggiungiDiagnostica(TestoDiagnostico& t, const char* formato, ...) {
  if (t.lunghezza + 1 >= t.capienza) {
    t.troncato = true;
    return;
  }
  const size_t resto = t.capienza - t.lunghezza;
  va_list argomenti;
  va_start(argomenti, formato);
  const int scritti = std::vsnprintf(t.testo + t.lunghezza, resto, formato, argomenti);
  va_end(argomenti);
  if (scritti < 0) return;
  if (size_t(scritti) >= resto) {
    t.lunghezza = t.capienza - 1;
    t.troncato = true;
  } else {
    t.lunghezza += size_t(scritti);
  }
}
