#include "piattaforma/posix/uscita.h"

#ifndef NCURSES_WIDECHAR
#define NCURSES_WIDECHAR 1
#endif
#include <curses.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <initializer_list>

namespace piattaforma::terminale {

namespace {

int descrittore_curses = -1;  // what ncurses writes to: the terminal, or the scratch file
int descrittore_terminale = -1;
int descrittore_raccolta = -1;  // the scratch file, removed from its folder
FILE* uscita = nullptr;
WINDOW* tastiera_da_riattivare = nullptr;

// A full redraw of 80 x 44 cells, an attribute change at every cell, is a
// few tens of kilobytes; a larger update goes out in pieces of this size.
char blocco[1 << 18];
// The control sequences waiting for the next update, at the start of blocco.
size_t accodati = 0;
constexpr size_t MASSIMO_ACCODATI = 4096;

int Duplica(int descrittore) {
  return descrittore < 0 ? -1 : fcntl(descrittore, F_DUPFD_CLOEXEC, 3);
}

// ncurses' descriptor becomes a copy of `altro`; a viewer started later
// must not inherit it either.
bool Sostituisci(int altro) {
  if (dup2(altro, descrittore_curses) < 0) return false;
  fcntl(descrittore_curses, F_SETFD, FD_CLOEXEC);
  return true;
}

void ScriviSu(int descrittore, const char* dati, size_t lunghezza) {
  while (lunghezza > 0) {
    const ssize_t scritti = write(descrittore, dati, lunghezza);
    if (scritti <= 0) {
      if (scritti < 0 && errno == EINTR) continue;
      return;
    }
    dati += scritti;
    lunghezza -= static_cast<size_t>(scritti);
  }
}

}  // namespace

FILE* ApriUscita() {
  if (uscita) return uscita;
  descrittore_curses = Duplica(STDOUT_FILENO);
  descrittore_terminale = Duplica(STDOUT_FILENO);
  if (FILE* temporaneo = std::tmpfile()) {
    descrittore_raccolta = Duplica(fileno(temporaneo));
    std::fclose(temporaneo);
  }
  if (descrittore_curses >= 0) uscita = fdopen(descrittore_curses, "w");
  if (uscita == nullptr) {
    ChiudiUscita();
    return stdout;
  }
  // Nothing may wait in a buffer of ours while the descriptor changes.
  std::setvbuf(uscita, nullptr, _IONBF, 0);
  return uscita;
}

void ChiudiUscita() {
  if (uscita)
    std::fclose(uscita);
  else if (descrittore_curses >= 0)
    close(descrittore_curses);
  for (int descrittore : {descrittore_terminale, descrittore_raccolta})
    if (descrittore >= 0) close(descrittore);
  uscita = nullptr;
  descrittore_curses = descrittore_terminale = descrittore_raccolta = -1;
}

void AggiornaInUnaScrittura() {
  const bool raccolta = uscita && descrittore_terminale >= 0 && descrittore_raccolta >= 0 &&
                        ftruncate(descrittore_raccolta, 0) == 0 &&
                        lseek(descrittore_raccolta, 0, SEEK_SET) == 0 &&
                        Sostituisci(descrittore_raccolta);
  if (!raccolta) ScriviSulTerminale(nullptr, 0);
  if (tastiera_da_riattivare) keypad(tastiera_da_riattivare, TRUE);
  tastiera_da_riattivare = nullptr;
  doupdate();
  if (!raccolta) return;
  std::fflush(uscita);
  const off_t lunghezza = lseek(descrittore_raccolta, 0, SEEK_CUR);
  // Should the terminal come back only later, the next update redraws all.
  if (!Sostituisci(descrittore_terminale)) return;
  off_t letti = 0;
  do {
    const ssize_t n =
        pread(descrittore_raccolta, blocco + accodati, sizeof blocco - accodati, letti);
    if (n < 0 && errno == EINTR) continue;
    const size_t presi = n > 0 ? static_cast<size_t>(n) : 0;
    ScriviSu(STDOUT_FILENO, blocco, accodati + presi);
    accodati = 0;
    if (presi == 0) break;
    letti += n;
  } while (letti < lunghezza);
}

void RiattivaTastieraConLAggiornamento(WINDOW* finestra) { tastiera_da_riattivare = finestra; }

void AccodaAlTerminale(const char* dati, size_t lunghezza) {
  if (accodati + lunghezza > MASSIMO_ACCODATI) ScriviSulTerminale(nullptr, 0);
  if (lunghezza > MASSIMO_ACCODATI) {
    ScriviSu(STDOUT_FILENO, dati, lunghezza);
    return;
  }
  for (size_t i = 0; i < lunghezza; ++i) blocco[accodati++] = dati[i];
}

void ScriviSulTerminale(const char* dati, size_t lunghezza) {
  if (accodati > 0) {
    ScriviSu(STDOUT_FILENO, blocco, accodati);
    accodati = 0;
  }
  if (dati) ScriviSu(STDOUT_FILENO, dati, lunghezza);
}

}  // namespace piattaforma::terminale
