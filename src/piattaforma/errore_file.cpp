#include "piattaforma/errore_file.h"

namespace piattaforma {

namespace {

// Per thread, as errno: a file call elsewhere cannot change the answer
// between a failed call and the question.
thread_local ErroreFile ultimo = ErroreFile::Nessuno;

}  // namespace

void ImpostaErroreFile(ErroreFile errore) { ultimo = errore; }
ErroreFile UltimoErroreFile() { return ultimo; }

}  // namespace piattaforma
