// The one interface to the outside world: terminal or console, keyboard,
// message boxes, tones, time, files, file viewer and process exit. Each platform
// implements it in its own folder (posix, windows) and the in-memory backend
// (memoria) implements it for the tests; exactly one is linked into a program.
//
// Output written with Scrivi becomes visible at the latest when the program
// next waits for or reads input or opens a message box. In a terminal each
// such update reaches it in one write that ends with the cursor in place,
// as a screen reader needs; in an open box the arrows, Home and End move the
// cursor over the box's lines.
#pragma once

#include <cstddef>
#include <cstdint>

#include "piattaforma/tasti.h"

namespace piattaforma {

constexpr int COLONNE_SCHERMO = 80;
constexpr int RIGHE_SCHERMO = 44;

// Takes the console: standard handles, input mode 24 (the previous one saved),
// the terminal in raw mode with extended keys requested.
void ApriConsole();
// Gives the console back as it was found (input mode, terminal modes).
void ChiudiConsole();

void ImpostaTitolo(const char* titolo);
// Window of 80 x 44 characters.
void DimensionaFinestra();
// Cursor to column x, line y (0-based).
void PosizionaCursore(int x, int y);
// Characters at the cursor, which advances; '\b' moves it one column left.
void Scrivi(const char* testo, size_t lunghezza);

// Number of input records waiting.
uint32_t EventiInAttesa();
// Reads up to `massimo` records (never blocks when EventiInAttesa() > 0);
// returns how many were read.
uint32_t LeggiEventi(INPUT_RECORD* eventi, uint32_t massimo);
// Returns when input is waiting or after `millisecondi`; a negative value
// waits for input only.
void AttendiEventi(int64_t millisecondi);

// Modal box titled `titolo` owned by the console; returns IDOK, IDYES, IDNO
// or IDCANCEL.
int FinestraMessaggio(const char* testo, const char* titolo, unsigned stile);
// A function the platform calls about once a second while a message box
// waits for its answer, so that the program can keep a record up to date
// meanwhile; nullptr (the start) for none. It must not open a box itself.
void ImpostaBattito(void (*battito)());
// The answer of a box that nobody can answer (no terminal, a test with no
// answer scripted): IDOK, IDNO for Yes/No, IDCANCEL where the box has Cancel.
constexpr int RispostaPredefinita(unsigned stile) {
  switch (stile & 0xF) {
    case MB_YESNO:
      return IDNO;
    case MB_YESNOCANCEL:
    case MB_OKCANCEL:
      return IDCANCEL;
    default:
      return IDOK;
  }
}

// Choices of the user interface that the platform carries out but does not
// make, the words it shows among them: the platform holds no sentence of the
// program's language. The program installs its own at start-up, before
// ApriConsole. Until then the platform is neutral, for tools and tests:
// prefixes make no sound, only Enter (the first button) and Esc (Cancel, or
// OK in a box without it) answer a message box, and its words are plain
// ASCII. The Windows console's own message box ignores the letters and the
// labels.
struct TonoPrefisso {
  uint32_t frequenza, durata;  // durata 0: silent
};
struct LetteraRisposta {
  char lettera;  // upper case, as the key's virtual-key code
  int risposta;  // IDYES, IDNO, IDCANCEL or IDOK; only where the box has that button
};
constexpr int MASSIMO_LETTERE_RISPOSTA = 8;
// Why ApriConsole refused the terminal (and ended the program with status 1,
// before writing to the terminal or changing its modes).
enum class RifiutoTerminale : uint8_t {
  NessunTerminale,  // standard input or output is not a terminal
  SenzaTipo,        // TERM is unset or empty
  TipoSconosciuto,  // no terminal description is called TERM
  SenzaCursore,     // TERM's terminal cannot place the cursor
  NonAperto,        // the terminal library refused TERM all the same
};
struct PoliticaInterfaccia {
  // The sticky key prefixes of terminals without the real chords.
  TonoPrefisso tono_annullato{}, tono_alt{}, tono_ctrl{}, tono_ctrl_shift{};
  int lettere = 0;
  LetteraRisposta lettera[MASSIMO_LETTERE_RISPOSTA]{};
  // The labels of a terminal's box buttons (UTF-8, shown as "[ label ]");
  // nullptr for the neutral "OK", "Yes", "No", "Cancel".
  const char* etichetta_ok = nullptr;
  const char* etichetta_si = nullptr;
  const char* etichetta_no = nullptr;
  const char* etichetta_annulla = nullptr;
  // Writes into `uscita` (`dimensione` bytes, zero-terminated, cut to fit)
  // the one line, without its line end, that a refused terminal prints on
  // standard error; `tipo` is TERM ("" when unset). nullptr: a neutral line.
  void (*componi_rifiuto)(RifiutoTerminale motivo, const char* tipo, char* uscita,
                          size_t dimensione) = nullptr;
  // Form `forma` (0 the longest, then ever shorter) of the line that asks
  // for a larger terminal while it has `colonne` x `righe` cells, written
  // into `uscita` as above; false when there is no such form. A terminal
  // shows the longest form that fits its width, or else the size it needs
  // in digits ("80x44"). nullptr: the digits only.
  bool (*forma_dimensioni)(int forma, int colonne, int righe, char* uscita,
                           size_t dimensione) = nullptr;
};
void ImpostaPoliticaInterfaccia(const PoliticaInterfaccia& politica);
const PoliticaInterfaccia& PoliticaInterfacciaAttuale();

// A tone of `frequenza` Hz for `durata` ms; frequencies above hearing are
// pauses of the same length. Tones sound one after the other, in the order
// of the calls. In a terminal the call returns at once and the tone plays
// while the program goes on; the Windows console returns once it has
// sounded. Either way it never brings the screen up to date.
void Suona(uint32_t frequenza, uint32_t durata);

// The program's own voice, for a player who wants the clock to speak: the
// system's speech service, or the running screen reader's own voice where
// the platform can reach it. Priorities: Testo replaces a sentence of its
// kind not yet said (a move, a readout); Messaggio waits for what is being
// said but cuts a Testo short (a box, an alarm, a countdown second);
// Importante interrupts everything and nothing interrupts it (a flag fall).
enum class PrioritaVoce : uint8_t { Testo, Messaggio, Importante };
// Opens the voice, in Italian; false when no speech can be reached (the
// program goes on with its tones). Opening an open voice is harmless.
bool ApriVoce();
// Says `testo` (UTF-8); nothing when the voice is not open.
void Parla(const char* testo, PrioritaVoce priorita);
// Stops what is being said and everything waiting.
void ZittisciVoce();
void ChiudiVoce();

// Monotonic milliseconds, unaffected by changes of the system time.
uint64_t Millisecondi();
struct DataOraUTC {
  int anno, mese, giorno, ora, minuto, secondo;
};
DataOraUTC OraUTC();

// Files in the working directory. Every file the program writes is replaced
// whole through SostituisciFile: the bytes go to a temporary file in the same
// folder, are flushed to disk and renamed over the old one, so a reader or a
// crash sees the old file or the new one, never a mix. False when the file
// could not be written; the old file is then untouched.
// (The temporary file is `nome` followed by ".tmp"; one left by a crash is
// replaced at the next save.) A name that is a symbolic link stands for the
// file the link names, in every call below: that file is replaced, appended
// to, renamed or removed (the temporary file beside it), and the link stays;
// a link to a missing file makes that file (on Windows, where only an
// existing file can be found behind a link, such a link is replaced).
bool SostituisciFile(const char* nome, const char* dati, size_t lunghezza);
// The same for a text with '\n' line ends, written with the system's own
// (CR LF on Windows).
bool SostituisciFileDiTesto(const char* nome, const char* testo, size_t lunghezza);
// Up to `capienza` bytes from offset `inizio`: how many were read (0 at the
// end), or -1 when the file cannot be opened or read.
int64_t LeggiFile(const char* nome, uint64_t inizio, char* destinazione, size_t capienza);
// Appends the bytes and flushes them to disk before returning (creating the
// file when missing). False when not all of them were written.
bool AccodaAlFile(const char* nome, const char* dati, size_t lunghezza);
// Renames a file (replacing `nuovo` if it exists); removes a file. False on failure.
bool RinominaFile(const char* vecchio, const char* nuovo);
bool EliminaFile(const char* nome);

// Why the last file call failed, for the program to say so in its words.
enum class ErroreFile : uint8_t {
  Nessuno,     // the last file call succeeded
  Permesso,    // no permission: a read-only folder, file or disk
  DiscoPieno,  // no room: a full disk, a used-up quota, a file size limit
  NonUnFile,   // a folder (or anything else that is not a file) where the file goes
  Altro,       // anything else: a missing folder, a missing file to read or
               // rename, a name that is not valid, a device error
};
// The outcome of this thread's last call of SostituisciFile,
// SostituisciFileDiTesto, LeggiFile, AccodaAlFile, RinominaFile or
// EliminaFile: Nessuno when it succeeded, else the reason it failed. Every
// one of those calls sets it; no other call changes it.
ErroreFile UltimoErroreFile();

// Takes an exclusive lock on the file `nome` for the rest of this process's
// life, so that two programs cannot work in one folder at once. The file is
// made, empty, when missing, and otherwise never written, replaced or
// removed: lock a file of its own, never one that is saved by a rename
// (the lock stays with the old file). The lock goes with the process however
// it ends (kill -9 included), and the programs it starts (viewers, pagers)
// do not inherit it.
// False only when another process holds the lock. True once this process
// holds it (a second call is harmless), and also when no lock can be taken
// here at all (a read-only folder without the file, a file system without
// locks), where nothing says that anyone else is at work.
bool BloccaFile(const char* nome);

// The command line that opens `file` in the viewer the system associates
// with it, and running such a line (the screen is redrawn afterwards when the
// viewer used the terminal).
void ComponiComandoVisualizzatore(char* destinazione, size_t dimensione, const char* file);
void EseguiComandoVisualizzatore(const char* comando);

// Whether this platform's keyboard may fail to deliver some chords, so that
// the sticky prefixes of the terminal stand in for them: Esc, then a key, as
// Alt with that key; Ctrl+X, then a key, as Ctrl with it; Ctrl+X twice as
// Ctrl+Shift; Esc or a third Ctrl+X cancels a waiting prefix; and Ctrl+Z
// suspends the program. True in a terminal, false in the Windows console,
// where every chord arrives.
bool TastiConPrefissi();

// Ends the process with `codice` (the console is not restored here).
[[noreturn]] void TerminaProcesso(unsigned codice);

}  // namespace piattaforma
