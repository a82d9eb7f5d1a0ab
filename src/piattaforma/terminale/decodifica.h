// Terminal keyboard input turned into Windows console key records, so that one
// key table serves every platform. Pure functions: no terminal is needed, the
// ncurses glue (posix/tastiera.cpp) hands over what ncurses delivered.
//
// Chords that a terminal cannot deliver are reachable through two sticky
// prefixes that work on every terminal, the Linux text console included:
//   Esc, then a key            = Alt+key       (Esc then F4 = Alt+F4)
//   Ctrl+X, then a key         = Ctrl+key      (Ctrl+X then Enter = Ctrl+Enter)
//   Ctrl+X twice, then a key   = Ctrl+Shift+key
// After Ctrl+X, Backspace stands for Delete (Ctrl+X, Backspace = Ctrl+Delete).
// Esc while a prefix is pending cancels it; a third Ctrl+X cancels too.
#pragma once

#include <cstddef>
#include <cstdint>

#include "piattaforma/piattaforma.h"
#include "piattaforma/tasti.h"

namespace piattaforma::terminale {

// One unit of terminal input.
struct Ingresso {
  enum Genere : uint8_t {
    Carattere,  // a character typed (code point in `carattere`)
    Nome,       // a key ncurses recognised, by its keyname() in `testo`
    Sequenza,   // an escape sequence (ESC included) in `testo`
  };
  Genere genere;
  uint32_t carattere;
  const char* testo;
  // Came right behind an ESC in the same burst: the terminal's Alt.
  bool dopo_esc;
};

enum class Esito : uint8_t {
  Nessuno,      // nothing to deliver (unknown key, or a key that means nothing)
  Evento,       // a key record was produced
  Prefisso,     // a sticky prefix was set, doubled or cancelled
  Sospensione,  // Ctrl+Z: suspend the program
};

struct StatoDecodifica {
  // Sticky prefixes are off inside message boxes, where Esc answers at once.
  bool prefissi_attivi = true;
  uint8_t prefisso_ctrl = 0;  // 0 none, 1 Ctrl, 2 Ctrl+Shift
  bool prefisso_alt = false;
};

Esito Decodifica(StatoDecodifica& stato, const Ingresso& ingresso, INPUT_RECORD& evento);

// The tone of `politica` for the prefix state that Decodifica just left
// (Esito::Prefisso): Ctrl+Shift, Ctrl, Alt, or the one for a cancelled prefix.
TonoPrefisso TonoDelPrefisso(const StatoDecodifica& stato, const PoliticaInterfaccia& politica);

// A key as the Windows console reports it, before the prefixes apply.
struct Tasto {
  WORD codice_virtuale;
  DWORD stato_controllo;
  char carattere;
};

// The three kinds of input, one by one; false when the input is no key.
bool TastoDaCarattere(uint32_t carattere, Tasto& tasto);
bool TastoDaNome(const char* nome, Tasto& tasto);
bool TastoDaSequenza(const char* sequenza, Tasto& tasto);

// Control-key state for an xterm modifier parameter (2 Shift, 3 Alt, 5 Ctrl...).
DWORD StatoDaModificatore(unsigned modificatore);

// The sequences taught to ncurses with define_key(): the modified keys of the
// CSI-u and modifyOtherKeys forms and the application keypad. Entry `indice`
// (0 <= indice < NUMERO_SEQUENZE) is written into `uscita` (at least
// DIMENSIONE_SEQUENZA bytes).
constexpr int NUMERO_SEQUENZE = 2 * 7 * 100 + 17 * 8;
constexpr size_t DIMENSIONE_SEQUENZA = 24;
void ComponiSequenza(int indice, char* uscita);

// Sequences ncurses does not know arrive byte by byte behind an ESC; the glue
// collects them while this says that `lunghezza` bytes (ESC included) cannot
// yet be a whole CSI or SS3 sequence.
bool SequenzaIncompleta(const char* sequenza, size_t lunghezza);

}  // namespace piattaforma::terminale
