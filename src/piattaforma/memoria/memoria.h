// Controls of the in-memory backend, for tests: an 80 x 44 grid of cells with
// a cursor, scripted key records and message-box answers, recorded boxes,
// tones and viewer requests, a settable monotonic clock and calendar time,
// and a store of files that can fill up or turn read-only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "piattaforma/piattaforma.h"

namespace memoria {

using namespace piattaforma::win32;

// Everything back to a blank screen, empty queues, clock at 0, no files and
// no limits on them, the neutral interface policy.
void Azzera();

// The screen follows the console: '\b' one column left (not past the
// margin), '\r' to the margin, '\n' to the margin of the next line, '\t' to
// the next multiple of 8, other control characters ignored; writing past the
// last column continues on the next line and past the last line scrolls the
// screen up. Bytes that are not UTF-8 count as Latin-1 characters; every
// character takes one cell. A cursor position off the screen is refused.
char Cella(int x, int y);  // Latin-1, '?' beyond it, 0 off the screen
std::string Riga(int y);   // the 80 characters of line y (UTF-8)
int CursoreX();
int CursoreY();
std::string Titolo();
bool ConsoleAperta();
bool FinestraDimensionata();
// Every byte handed to Scrivi since the last Azzera, in order.
const std::string& Scritto();

// Key records, delivered in order. `giu` false makes a key-up record.
void AccodaTasto(WORD codice_virtuale, DWORD stato_controllo = 0, char carattere = 0,
                 bool giu = true, WORD ripetizioni = 1);
void AccodaEvento(const INPUT_RECORD& evento);
size_t TastiInCoda();

// Answers for the next message boxes, in order; with none scripted a box
// answers IDOK, IDNO for Yes/No boxes and IDCANCEL for Yes/No/Cancel ones
// (piattaforma::RispostaPredefinita).
// `battiti`: the box waits that many seconds before this answer; each
// second the clock advances by 1000 ms and the installed heartbeat runs.
void AccodaRisposta(int risposta, int battiti = 0);
// The heartbeat installed with ImpostaBattito (nullptr after Azzera), and
// how many times it ran.
void (*BattitoInstallato())();
size_t BattitiEseguiti();
struct Finestra {
  std::string testo, titolo;
  unsigned stile;
  int risposta;
};
const std::vector<Finestra>& Finestre();

// Tones are recorded; they do not move the clock.
struct Tono {
  uint32_t frequenza, durata;
};
const std::vector<Tono>& Toni();

// The voice: whether ApriVoce finds one (not after Azzera), and every
// sentence Parla was given while it was open, in order.
void ImpostaVoceDisponibile(bool disponibile);
bool VoceAperta();
struct Detto {
  std::string testo;
  piattaforma::PrioritaVoce priorita;
};
const std::vector<Detto>& Detti();
// How many times ZittisciVoce ran.
size_t Silenzi();

void ImpostaMillisecondi(uint64_t ms);
void AvanzaMillisecondi(uint64_t ms);
void ImpostaOraUTC(piattaforma::DataOraUTC ora);
// Time-outs asked of AttendiEventi, in order; a wait with no key queued
// advances the clock by its time-out (a negative one, with no key queued,
// simply returns).
const std::vector<int64_t>& Attese();

// Command lines run by EseguiComandoVisualizzatore; ComponiComandoVisualizzatore
// composes "start <file>".
const std::vector<std::string>& ComandiVisualizzatore();

// Files: a map from name to bytes. Names are taken as they are (no folders,
// no case folding). These controls bypass the limits below and do not count
// as writes.
void ImpostaFile(const std::string& nome, const std::string& contenuto);
bool EsisteFile(const std::string& nome);
std::string ContenutoFile(const std::string& nome);  // empty when missing
void RimuoviFile(const std::string& nome);
// A full disk: the bytes of all files together may not pass `byte`. As on a
// disk, SostituisciFile needs room for the new bytes beside the old file
// (its temporary file), and fails as a whole leaving the old file as it
// was; AccodaAlFile writes what fits and then fails.
void ImpostaCapienzaFile(size_t byte);
// A read-only disk: every call that changes a file (replace, append, rename,
// remove) fails and changes nothing.
void ImpostaSolaLettura(bool sola_lettura);
// A file that every file call fails on, for `motivo` (ErroreFile::Nessuno
// mends it): a folder in its place (NonUnFile), a file the user may not
// write (Permesso), a device error (Altro)... Reads of it fail too. Azzera
// mends every file, and UltimoErroreFile answers Nessuno after it.
// Otherwise UltimoErroreFile follows the store: Permesso on a read-only
// disk, DiscoPieno when the bytes do not fit, Altro for a missing file or a
// name that is not valid.
void ImpostaGuastoFile(const std::string& nome, piattaforma::ErroreFile motivo);
// Calls of SostituisciFile and AccodaAlFile since Azzera, failed ones too.
size_t ScrittureFile();

// Locks of BloccaFile. Another process holding (or letting go of) the lock
// on `nome`: while it holds it, BloccaFile(nome) is false; holding it, that
// process made the file, so an empty one is put in the store when missing.
// BloccoPreso tells whether this program took the lock on `nome`; a taken
// lock, like the real one, makes the file (empty) when missing, unless the
// disk is read-only, and counts as no write. Azzera lets every lock go.
void ImpostaFileBloccato(const std::string& nome, bool bloccato);
bool BloccoPreso(const std::string& nome);

// What TastiConPrefissi answers: true as in a terminal, false (as on
// Windows) after Azzera.
void ImpostaTastiConPrefissi(bool prefissi);

// Thrown by TerminaProcesso so that a test can see the program end.
struct UscitaProcesso {
  unsigned codice;
};

}  // namespace memoria
