// State of the ncurses terminal shared by the POSIX backend's files.
//
// The 80 x 44 screen lives in an ncurses pad that never resizes, so a
// terminal that is too small loses nothing: the pad is copied to the
// terminal while it is large enough, and one centred line asks for the size
// otherwise. A message box is a second pad drawn over the first: a band of
// whole lines, blank around the box, so that no line the box occupies still
// shows pieces of the screen under it.
#pragma once

#include <cstdint>

#include "piattaforma/terminale/decodifica.h"

struct _win_st;

namespace piattaforma::terminale {

struct Video {
  bool aperto = false;
  _win_st* schermo = nullptr;   // the 80 x 44 pad
  _win_st* riquadro = nullptr;  // the band of the open message box, or none
  // The box itself on the screen; its band spans lines riquadro_y onwards,
  // all 80 columns, with the box at column riquadro_x inside it.
  int riquadro_x = 0, riquadro_y = 0, riquadro_larghezza = 0, riquadro_altezza = 0;
  int x = 0, y = 0;  // cursor on the pad
  bool da_aggiornare = false;
  bool troppo_piccolo = false;
};
extern Video video;

// Shows the pad (and the box) when something changed; on a terminal that is
// too small, the box alone when one is open and fits, the size line otherwise.
void Aggiorna();
// An open box that the user can see, and so may answer.
bool RiquadroVisibile();
// Acts on the signals received since the last call: resize, suspend, resume.
void GestisciSegnali();
// Hands the terminal back to the shell or to a pager, and takes it again.
void RilasciaTerminale();
void RiprendiTerminale();
// Ctrl+Z: the terminal restored, the process stopped; redrawn on resume.
void Sospendi();
// Runs `comando` with the terminal handed over to it, then redraws.
void EseguiNelTerminale(const char* comando);

enum class Attesa : uint8_t { Pronto, Scaduto, Chiuso };
// Blocks in the kernel until the terminal has input, a signal came or
// `millisecondi` passed (negative: no limit).
Attesa AttendiTerminale(int64_t millisecondi);

// One unit of input read without waiting and decoded with `stato`; false when
// nothing was waiting. A prefix sounds its tone and Ctrl+Z suspends here.
bool LeggiIngresso(StatoDecodifica& stato, Esito& esito, INPUT_RECORD& evento);
// The oldest key record decoded but not yet handed to the program.
bool PrendiDallaCoda(INPUT_RECORD& evento);
// Everything typed so far, read from the terminal and queued for the program
// behind what was already waiting; called once a box is on the screen, so
// that only keys pressed after it answer it. What finds the queue full is
// dropped.
void TrattieniIngressoInAttesa();
// Teaches ncurses the extended key sequences.
void DefinisciSequenze();

enum class Idoneita : uint8_t { Adatto, SenzaTipo, Sconosciuto, SenzaCursore };
// Whether the terminal named by TERM can place the cursor, the least this
// program needs; looked up in terminfo without writing to the terminal.
Idoneita IdoneitaTerminale();

// Puts one character on a pad at (x, y) with the attributes `aspetto`
// (ncurses A_* bits), as a space when it is a control character and as '?'
// when it does not take exactly one column.
void MettiCarattere(_win_st* finestra, int x, int y, uint32_t carattere, unsigned aspetto = 0);

// Opens the audio device for the tones, once; at the start, so that the
// first tone does not wait for it.
void PreparaSuono();

// Sleeps until Millisecondi() reaches `fine`.
void DormiFinoA(uint64_t fine);

}  // namespace piattaforma::terminale
