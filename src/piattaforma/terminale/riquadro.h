// The message box of the terminal: its layout on the 80 x 44 screen and the
// keys that answer it. Pure functions; posix/messaggio.cpp draws with them.
//
// The box is a block in reverse video, one cell of frame around the text:
//
//   row 0                  Attenzione!
//   row 1
//   row 2 ...        first line of the text
//                    second line
//   blank row
//   buttons row         [ Sì ]   [ No ]
//   last row (frame)
#pragma once

#include <cstddef>
#include <cstdint>

#include "piattaforma/piattaforma.h"

namespace piattaforma::terminale {

constexpr int MARGINE_RIQUADRO = 2;  // blank columns between the frame and the text
constexpr int LARGHEZZA_MASSIMA_TESTO = COLONNE_SCHERMO - 2 - 2 * (MARGINE_RIQUADRO + 1);  // 72
constexpr int RIGHE_MASSIME_TESTO = RIGHE_SCHERMO - 5;                                     // 39
constexpr int MASSIMO_PULSANTI = 3;

struct RigaRiquadro {
  uint32_t inizio, lunghezza;  // bytes of the text
};

struct Impaginazione {
  int righe;  // lines of text shown
  RigaRiquadro riga[RIGHE_MASSIME_TESTO];
  bool troncato;  // the text had more lines than fit
  int larghezza_testo;
  int x, y, larghezza, altezza;  // the whole box on the screen
  int pulsanti;
  int risposta[MASSIMO_PULSANTI];           // IDOK, IDYES, IDNO, IDCANCEL; the first is the default
  const char* etichetta[MASSIMO_PULSANTI];  // each button's label, as measured
  int colonna_pulsante[MASSIMO_PULSANTI];   // inside the box
  int riga_pulsanti;                        // inside the box
  int colonna_testo, riga_testo;            // first text character, inside the box
};

// Splits `testo` at its line breaks and wraps long lines at spaces (or
// anywhere, for a word longer than a line); sizes and centres the box, its
// buttons labelled as `politica` says.
void ImpaginaRiquadro(const char* testo, const char* titolo, unsigned stile, Impaginazione& imp,
                      const PoliticaInterfaccia& politica = PoliticaInterfacciaAttuale());

// The label of the button that gives `risposta` (UTF-8): the policy's, or
// the neutral one where it names none.
const char* EtichettaPulsante(int risposta,
                              const PoliticaInterfaccia& politica = PoliticaInterfacciaAttuale());
// "[ Sì ]": the width on screen of a button with its brackets.
int LarghezzaPulsante(int risposta,
                      const PoliticaInterfaccia& politica = PoliticaInterfacciaAttuale());

// The answer that a key gives in a box of `stile`, or 0 when it gives none:
// Enter for the first button, Esc for Annulla where the box has it and for
// OK in a box with only OK, and the letters of `politica` for their buttons
// where the box has them. Keys with Ctrl or Alt answer nothing.
int RispostaDaTasto(unsigned stile, const INPUT_RECORD& evento,
                    const PoliticaInterfaccia& politica = PoliticaInterfacciaAttuale());

// The lines of the box that the cursor stands on, so that a screen reader
// that reads the cursor's line hears them one by one: each line of the
// text, 0 to imp.righe - 1, and then the buttons' line, imp.righe. It
// starts on the first line of the text.
int RigheRiquadro(const Impaginazione& imp);
// Where the cursor stands on line `riga` (the nearest line when out of
// range), inside the box: the first character of a text line, the first
// button of the buttons' line.
void PosizioneRiga(const Impaginazione& imp, int riga, int& x, int& y);
// The line after `evento` from line `riga`: Up and Down one line (no
// further than the first or the last), Home the first, End the buttons'
// line; any other key, a release or a chord with Ctrl or Alt keeps `riga`.
// None of them answers the box.
int RigaDopoTasto(const Impaginazione& imp, int riga, const INPUT_RECORD& evento);

// The line shown while the terminal is smaller than 80 x 44, written into
// `uscita` (at least `dimensione` bytes): the longest of the policy's forms
// that fits in `colonne`, else "80x44" cut to `colonne`.
void MessaggioDimensioni(int colonne, int righe, char* uscita, size_t dimensione,
                         const PoliticaInterfaccia& politica = PoliticaInterfacciaAttuale());

}  // namespace piattaforma::terminale
