// Keyboard input from ncurses, decoded into console key records and queued.
#ifndef NCURSES_WIDECHAR
#define NCURSES_WIDECHAR 1
#endif
#include <curses.h>

#include <cstdlib>
#include <cstring>

#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/terminale.h"

namespace piattaforma::terminale {

namespace {

// Key codes of our own for the sequences taught with define_key(), well above
// the codes ncurses gives to the terminal's extended capabilities.
constexpr int PRIMO_CODICE_SEQUENZA = 0x4000;

constexpr int CAPIENZA_CODA = 256;
INPUT_RECORD coda[CAPIENZA_CODA];
int testa_coda = 0, eventi_in_coda = 0;
StatoDecodifica stato_principale;

void SuonaPrefisso(const StatoDecodifica& stato) {
  const TonoPrefisso tono = TonoDelPrefisso(stato, PoliticaInterfacciaAttuale());
  if (tono.durata > 0) Suona(tono.frequenza, tono.durata);
}

// A key code of ncurses as decoder input; the sequence, when it is one of
// ours, is written into `sequenza`.
bool IngressoDaCodice(wint_t codice, bool dopo_esc, Ingresso& ingresso, char* sequenza) {
  const int numero = static_cast<int>(codice);
  if (numero >= PRIMO_CODICE_SEQUENZA && numero < PRIMO_CODICE_SEQUENZA + NUMERO_SEQUENZE) {
    ComponiSequenza(numero - PRIMO_CODICE_SEQUENZA, sequenza);
    ingresso = {Ingresso::Sequenza, 0, sequenza, dopo_esc};
    return true;
  }
  const char* nome = keyname(numero);
  if (nome == nullptr) return false;
  ingresso = {Ingresso::Nome, 0, nome, dopo_esc};
  return true;
}

// What follows an ESC in the same burst: Alt+key, Alt+function key, or the
// rest of an escape sequence ncurses did not know (collected here so that
// its bytes do not arrive as typed characters).
void DopoEsc(Ingresso& ingresso, char* sequenza) {
  ingresso = {Ingresso::Carattere, 27, nullptr, false};
  wint_t c = 0;
  const int letto = wget_wch(video.schermo, &c);
  if (letto == ERR) return;
  if (letto == KEY_CODE_YES) {
    if (!IngressoDaCodice(c, true, ingresso, sequenza))
      ingresso = {Ingresso::Carattere, 27, nullptr, true};
    return;
  }
  if (c != '[' && c != 'O') {
    ingresso = {Ingresso::Carattere, static_cast<uint32_t>(c), nullptr, true};
    return;
  }
  size_t lunghezza = 0;
  sequenza[lunghezza++] = 27;
  sequenza[lunghezza++] = static_cast<char>(c);
  while (SequenzaIncompleta(sequenza, lunghezza)) {
    if (wget_wch(video.schermo, &c) != OK || c >= 0x80) break;
    sequenza[lunghezza++] = static_cast<char>(c);
  }
  sequenza[lunghezza] = 0;
  ingresso = {Ingresso::Sequenza, 0, sequenza, false};
}

}  // namespace

namespace {

// ESC O p .. ESC O y are the keypad's digits in application mode, which
// ncurses turns on with the keypad: the terminal sends them with Num Lock
// on (with it off, the keys send the cursor block's own sequences). Some
// terminal descriptions name them as the corners and middle of a cursor pad
// (xterm's kc1 is ESC O q), which would turn a typed 1 into End.
bool CifraDelTastierino(const char* sequenza) {
  const size_t lunghezza = std::strlen(sequenza);
  if (lunghezza < 3 || sequenza[1] != 'O') return false;
  const char finale = sequenza[lunghezza - 1];
  return finale >= 'p' && finale <= 'y';
}

}  // namespace

void DefinisciSequenze() {
  char sequenza[DIMENSIONE_SEQUENZA];
  for (int i = 0; i < NUMERO_SEQUENZE; ++i) {
    ComponiSequenza(i, sequenza);
    // Sequences the terminal description already names keep their names,
    // but for the keypad's digits.
    const int definita = key_defined(sequenza);
    if (definita > 0 && CifraDelTastierino(sequenza)) define_key(sequenza, 0);
    if (key_defined(sequenza) == 0) define_key(sequenza, PRIMO_CODICE_SEQUENZA + i);
  }
}

bool LeggiIngresso(StatoDecodifica& stato, Esito& esito, INPUT_RECORD& evento) {
  esito = Esito::Nessuno;
  if (!video.aperto) return false;
  wint_t c = 0;
  const int letto = wget_wch(video.schermo, &c);
  if (letto == ERR) return false;
  char sequenza[DIMENSIONE_SEQUENZA];
  Ingresso ingresso{Ingresso::Carattere, static_cast<uint32_t>(c), nullptr, false};
  if (letto == KEY_CODE_YES) {
    if (!IngressoDaCodice(c, false, ingresso, sequenza)) return true;
  } else if (c == 27) {
    DopoEsc(ingresso, sequenza);
  }
  esito = Decodifica(stato, ingresso, evento);
  if (esito == Esito::Sospensione) Sospendi();
  if (esito == Esito::Prefisso) SuonaPrefisso(stato);
  return true;
}

namespace {

// Alt+F4 (also typed as Esc then F4): the way out, which opens the exit
// question.
bool TastoDiUscita(const INPUT_RECORD& evento) {
  if (evento.EventType != KEY_EVENT) return false;
  const KEY_EVENT_RECORD& tasto = evento.Event.KeyEvent;
  return tasto.wVirtualKeyCode == VK_F4 && (tasto.dwControlKeyState & MASCHERA_ALT) &&
         !(tasto.dwControlKeyState & MASCHERA_CTRL);
}

// While the terminal is too small the user cannot see what a key would do,
// so only the way out reaches the program; the rest is dropped, not kept for
// later, when it would act on a screen that has changed meanwhile.
void ScartaTastiNascosti() {
  if (!video.troppo_piccolo) return;
  int tenuti = 0;
  for (int i = 0; i < eventi_in_coda; ++i) {
    const INPUT_RECORD& evento = coda[(testa_coda + i) % CAPIENZA_CODA];
    if (TastoDiUscita(evento)) coda[(testa_coda + tenuti++) % CAPIENZA_CODA] = evento;
  }
  eventi_in_coda = tenuti;
}

void Raccogli() {
  GestisciSegnali();
  Esito esito;
  INPUT_RECORD evento;
  while (eventi_in_coda < CAPIENZA_CODA && LeggiIngresso(stato_principale, esito, evento)) {
    if (esito == Esito::Evento) coda[(testa_coda + eventi_in_coda++) % CAPIENZA_CODA] = evento;
    // A resize that came with these keys decides whether they count.
    GestisciSegnali();
    ScartaTastiNascosti();
  }
  ScartaTastiNascosti();
}

}  // namespace

void TrattieniIngressoInAttesa() {
  Raccogli();
  // Past the queue's room the rest goes: it must not answer the box either.
  Esito esito;
  INPUT_RECORD evento;
  while (LeggiIngresso(stato_principale, esito, evento)) {
  }
}

bool PrendiDallaCoda(INPUT_RECORD& evento) {
  if (eventi_in_coda == 0) return false;
  evento = coda[testa_coda];
  testa_coda = (testa_coda + 1) % CAPIENZA_CODA;
  --eventi_in_coda;
  return true;
}

}  // namespace piattaforma::terminale

namespace piattaforma {

using terminale::eventi_in_coda;

uint32_t EventiInAttesa() {
  terminale::Aggiorna();
  terminale::Raccogli();
  return static_cast<uint32_t>(eventi_in_coda);
}

// Every key waiting, up to `massimo`, as the console hands them: a box that
// one of them opens is not answered by the others (it answers only keys
// pressed while it is shown), so they need not wait here.
uint32_t LeggiEventi(INPUT_RECORD* eventi, uint32_t massimo) {
  if (eventi == nullptr || massimo == 0) return 0;
  terminale::Aggiorna();
  terminale::Raccogli();
  uint32_t letti = 0;
  while (letti < massimo && terminale::PrendiDallaCoda(eventi[letti])) ++letti;
  return letti;
}

void AttendiEventi(int64_t millisecondi) {
  terminale::Aggiorna();
  terminale::Raccogli();
  if (eventi_in_coda > 0) return;
  if (!terminale::video.aperto) {
    if (millisecondi > 0)
      terminale::DormiFinoA(Millisecondi() + static_cast<uint64_t>(millisecondi));
    return;
  }
  if (terminale::AttendiTerminale(millisecondi) == terminale::Attesa::Chiuso) {
    // The terminal is gone (hang-up): nobody is left to play with.
    ChiudiConsole();
    std::exit(1);
  }
}

}  // namespace piattaforma
