// Start-up, the polling loop and the way out.
#pragma once

#include <cstddef>
#include <cstdint>

#include "console/tabella_tasti.h"
#include "piattaforma/tasti.h"

// Records read from the console in one go.
constexpr uint32_t EVENTI_PER_LETTURA = 128;

// The program's entry: arguments are ignored; it ends only through
// ChiudiIlProgramma.
int pendrino_main(int argc, char** argv);
// Takes the console and, with the folder's lock held (a second program
// started in the same folder says so and ends with status 1 before it
// writes a file), writes the help page, reads the settings and draws the
// fixed screen.
void inizializza();
extern const char* const NomeFileBlocco;  // "pendrino.blocco"
extern const char* const TestoGiaInUso;
// After the new game of start-up: when the journal holds a game not closed
// with the exit command, the question whether to take it up again; Yes
// rebuilds and draws it (clock stopped), No keeps the old journal as
// giornale_precedente.txt. Then the journal of this run begins.
extern const char* const DomandaRiprendere;
void RiprendiDalGiornale();
// Every panel of a game rebuilt from its journal, the focus on the field.
void DisegnaPartitaRipresa();

// One turn of the loop: wait for keys (at most until the running side's shown
// second changes), then handle up to EVENTI_PER_LETTURA records.
void TurnoCiclo();
[[noreturn]] void CicloPrincipale();

// Handles one input record: key-down records go through the key table,
// everything else is ignored.
void GestisciEvento(const piattaforma::win32::INPUT_RECORD& evento);
// Runs the handler of an action; a row without one is ignored.
void EseguiAzione(AzioneTasto azione, const piattaforma::win32::KEY_EVENT_RECORD& tasto);
