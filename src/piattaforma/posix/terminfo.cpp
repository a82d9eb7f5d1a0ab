// What terminfo says of the terminal named by TERM, asked before the terminal
// is touched. Apart from the rest because <term.h> defines a macro for every
// capability name.
#include <curses.h>
#include <term.h>
#include <unistd.h>

#include <cstdlib>

#include "piattaforma/posix/terminale.h"

namespace piattaforma::terminale {

Idoneita IdoneitaTerminale() {
  const char* tipo = std::getenv("TERM");
  if (tipo == nullptr || tipo[0] == 0) return Idoneita::SenzaTipo;
  int errore = 0;
  // With `errore` given, setupterm neither prints nor exits.
  if (setupterm(tipo, STDOUT_FILENO, &errore) != OK || errore != 1) return Idoneita::Sconosciuto;
  const char* sposta = tigetstr(const_cast<char*>("cup"));
  const bool adatto = sposta != nullptr && sposta != reinterpret_cast<const char*>(-1);
  del_curterm(cur_term);
  return adatto ? Idoneita::Adatto : Idoneita::SenzaCursore;
}

}  // namespace piattaforma::terminale
