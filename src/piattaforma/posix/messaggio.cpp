// The modal message box of the terminal, drawn over the screen.
#ifndef NCURSES_WIDECHAR
#define NCURSES_WIDECHAR 1
#endif
#include <curses.h>

#include <cstdio>
#include <cstring>

#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/terminale.h"
#include "piattaforma/terminale/riquadro.h"
#include "piattaforma/testo.h"

namespace piattaforma::terminale {

namespace {

// Writes up to `massimo` characters of testo[0, lunghezza) from (x, y) on;
// returns the column after the last one.
int ScriviTesto(WINDOW* finestra, int x, int y, const char* testo, size_t lunghezza, int massimo,
                unsigned aspetto) {
  size_t i = 0, passo = 0;
  for (int n = 0; i < lunghezza && n < massimo; ++n, ++x) {
    MettiCarattere(finestra, x, y, ProssimoCarattere(testo + i, lunghezza - i, passo), aspetto);
    i += passo;
  }
  return x;
}

// The box is a block in reverse video without line-drawing characters, which
// screen readers would read out; the first button, the one Enter chooses,
// stands out in normal video. `banda` holds the box's whole lines, blank
// around the box at column imp.x.
void DisegnaRiquadro(WINDOW* banda, const Impaginazione& imp, const char* testo,
                     const char* titolo) {
  for (int y = 0; y < imp.altezza; ++y)
    for (int x = 0; x < COLONNE_SCHERMO; ++x) {
      const bool nel_riquadro = x >= imp.x && x < imp.x + imp.larghezza;
      MettiCarattere(banda, x, y, ' ', nel_riquadro ? A_REVERSE : A_NORMAL);
    }

  const int spazio_titolo = imp.larghezza - 4;
  const int caratteri_titolo = static_cast<int>(ContaCaratteri(titolo, std::strlen(titolo)));
  const int mostrati = caratteri_titolo < spazio_titolo ? caratteri_titolo : spazio_titolo;
  ScriviTesto(banda, imp.x + (imp.larghezza - mostrati) / 2, 0, titolo, std::strlen(titolo),
              mostrati, A_REVERSE | A_BOLD);

  for (int r = 0; r < imp.righe; ++r)
    ScriviTesto(banda, imp.x + imp.colonna_testo, imp.riga_testo + r, testo + imp.riga[r].inizio,
                imp.riga[r].lunghezza, imp.larghezza_testo, A_REVERSE);

  for (int p = 0; p < imp.pulsanti; ++p) {
    char pulsante[128];
    std::snprintf(pulsante, sizeof pulsante, "[ %s ]", imp.etichetta[p]);
    const size_t lunghezza = std::strlen(pulsante);
    ScriviTesto(banda, imp.x + imp.colonna_pulsante[p], imp.riga_pulsanti, pulsante, lunghezza,
                static_cast<int>(lunghezza), p == 0 ? A_NORMAL : A_REVERSE);
  }
}

// The cursor on line `riga` of the box (RigheRiquadro): a screen reader that
// follows the cursor reads that line.
void CursoreSullaRiga(WINDOW* banda, const Impaginazione& imp, int riga) {
  int x = 0, y = 0;
  PosizioneRiga(imp, riga, x, y);
  wmove(banda, y, imp.x + x);
}

}  // namespace

}  // namespace piattaforma::terminale

namespace piattaforma {

using terminale::video;

namespace {
void (*battito_installato)() = nullptr;
constexpr uint64_t INTERVALLO_BATTITO = 1000;
}  // namespace

void ImpostaBattito(void (*battito)()) { battito_installato = battito; }

int FinestraMessaggio(const char* testo, const char* titolo, unsigned stile) {
  if (testo == nullptr) testo = "";
  if (titolo == nullptr) titolo = "";
  if (!video.aperto || video.riquadro != nullptr) {
    std::fprintf(stderr, "%s\n%s\n", titolo, testo);
    return RispostaPredefinita(stile);
  }
  static terminale::Impaginazione imp;
  terminale::ImpaginaRiquadro(testo, titolo, stile, imp);
  WINDOW* finestra = newpad(imp.altezza, COLONNE_SCHERMO);
  if (finestra == nullptr) return RispostaPredefinita(stile);
  terminale::DisegnaRiquadro(finestra, imp, testo, titolo);
  // The cursor at the start of the text, where a screen reader starts reading.
  int riga = 0;
  terminale::CursoreSullaRiga(finestra, imp, riga);
  video.riquadro = finestra;
  video.riquadro_x = imp.x;
  video.riquadro_y = imp.y;
  video.riquadro_larghezza = imp.larghezza;
  video.riquadro_altezza = imp.altezza;
  video.da_aggiornare = true;
  terminale::Aggiorna();
  // The box is on the terminal now. Keys typed before it were meant for the
  // screen under it (a move typed as a flag falls): they wait for the loop,
  // in order, and only keys pressed from here on answer the box.
  terminale::TrattieniIngressoInAttesa();

  // Esc answers at once here: no sticky prefixes inside the box.
  terminale::StatoDecodifica stato;
  stato.prefissi_attivi = false;
  int risposta = 0;
  // The wait wakes for the heartbeat too, while one is installed.
  uint64_t prossimo_battito = Millisecondi() + INTERVALLO_BATTITO;
  while (risposta == 0) {
    int64_t attesa = -1;
    if (battito_installato) {
      const uint64_t adesso = Millisecondi();
      attesa = adesso >= prossimo_battito ? 0 : int64_t(prossimo_battito - adesso);
    }
    if (terminale::AttendiTerminale(attesa) == terminale::Attesa::Chiuso) {
      risposta = RispostaPredefinita(stile);
      break;
    }
    if (battito_installato && Millisecondi() >= prossimo_battito) {
      battito_installato();
      prossimo_battito = Millisecondi() + INTERVALLO_BATTITO;
    }
    terminale::GestisciSegnali();
    terminale::Aggiorna();
    terminale::Esito esito;
    INPUT_RECORD evento;
    while (risposta == 0 && terminale::LeggiIngresso(stato, esito, evento)) {
      // A box that cannot be seen is not answered. The arrows walk its lines
      // without answering it.
      if (esito == terminale::Esito::Evento && terminale::RiquadroVisibile()) {
        risposta = terminale::RispostaDaTasto(stile, evento);
        const int nuova = terminale::RigaDopoTasto(imp, riga, evento);
        if (risposta == 0 && nuova != riga) {
          riga = nuova;
          terminale::CursoreSullaRiga(finestra, imp, riga);
          video.da_aggiornare = true;
        }
      }
      terminale::GestisciSegnali();
      terminale::Aggiorna();
    }
  }

  video.riquadro = nullptr;
  delwin(finestra);
  touchwin(video.schermo);
  video.da_aggiornare = true;
  terminale::Aggiorna();
  return risposta;
}

}  // namespace piattaforma
