// The terminal's output. A screen reader reads the terminal after each
// write it sees, and a cursor left elsewhere for an instant makes it read
// that line and drop what it was saying; ncurses sends one update in many
// writes (it flushes after each cursor move until the program first calls
// endwin). So ncurses writes to a descriptor of its own, which during an
// update stands for a scratch file: the update is gathered there and reaches
// the terminal in one write, which ends with the cursor at its place.
#pragma once

#include <cstddef>
#include <cstdio>

struct _win_st;

namespace piattaforma::terminale {

// The stream ncurses is to write to (newterm's output); stdout, written to
// as it comes, when no descriptor or scratch file can be had.
FILE* ApriUscita();
// Closes it, after the ncurses screen is deleted.
void ChiudiUscita();
// doupdate(), its bytes sent to the terminal in one write, after the
// control sequences waiting for it.
void AggiornaInUnaScrittura();
// The keypad's application mode, which the terminal loses when it is handed
// to a pager or to the shell, asked for again in the write of the next
// update rather than by ncurses on its own when it next reads a key.
void RiattivaTastieraConLAggiornamento(_win_st* finestra);
// Control sequences (the title, the key and size requests) that go out in
// the same write as the next update, before it.
void AccodaAlTerminale(const char* dati, size_t lunghezza);
// Bytes straight to the terminal, after those waiting, through
// interruptions and short writes.
void ScriviSulTerminale(const char* dati, size_t lunghezza);

}  // namespace piattaforma::terminale
