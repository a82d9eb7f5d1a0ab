// A tiny program on the terminal backend for the pseudo-terminal test: it
// shows each key record it receives and opens boxes and viewers on request.
//   B: a Yes/No/Cancel box    O: an OK box    V: the viewer on argv[1]
//   L: half a second of work, then the Yes/No/Cancel box
//   Q: leave                  anything else: shown on line 2
#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "piattaforma/piattaforma.h"
#include "politica_prova.h"

using namespace piattaforma;

namespace {

void ScriviRiga(int y, const char* testo) {
  char riga[COLONNE_SCHERMO + 1];
  std::snprintf(riga, sizeof riga, "%-*s", COLONNE_SCHERMO - 1, testo);
  PosizionaCursore(0, y);
  Scrivi(riga, std::strlen(riga));
}

}  // namespace

int main(int argc, char** argv) {
  // The answer letters the script types: those of Italian boxes.
  ImpostaPoliticaInterfaccia(PoliticaDiProva());
  ImpostaTitolo("Prova1.0");
  ApriConsole();
  DimensionaFinestra();
  ScriviRiga(0, "Pendrino prova");
  ScriviRiga(43, "ultima riga");
  for (int y = 10; y < 30; ++y) {
    char riga[64];
    std::snprintf(riga, sizeof riga, "sfondo %02d ..........................................", y);
    ScriviRiga(y, riga);
  }
  char comando[1024] = "";
  if (argc > 1) ComponiComandoVisualizzatore(comando, sizeof comando, argv[1]);
  int contati = 0;
  PosizionaCursore(5, 5);
  for (;;) {
    AttendiEventi(1000);
    INPUT_RECORD eventi[128];
    const uint32_t letti = LeggiEventi(eventi, 128);
    for (uint32_t i = 0; i < letti; ++i) {
      if (eventi[i].EventType != KEY_EVENT || !eventi[i].Event.KeyEvent.bKeyDown) continue;
      const KEY_EVENT_RECORD& k = eventi[i].Event.KeyEvent;
      char riga[96];
      std::snprintf(riga, sizeof riga, "tasto %d: vk=%02X stato=%04X car=%d", ++contati,
                    k.wVirtualKeyCode, static_cast<unsigned>(k.dwControlKeyState),
                    static_cast<unsigned char>(k.uChar.AsciiChar));
      ScriviRiga(2, riga);
      const bool semplice = (k.dwControlKeyState & (MASCHERA_CTRL | MASCHERA_ALT)) == 0;
      if (semplice && k.wVirtualKeyCode == 'L') {
        // Busy, as the program is when a flag falls: keys typed meanwhile
        // wait in the terminal.
        const uint64_t fine = Millisecondi() + 500;
        while (Millisecondi() < fine) usleep(10000);
      }
      if (semplice && (k.wVirtualKeyCode == 'B' || k.wVirtualKeyCode == 'L')) {
        const int risposta =
            FinestraMessaggio("Prima riga del testo\nSeconda riga", "Attenzione!", MB_YESNOCANCEL);
        std::snprintf(riga, sizeof riga, "risposta %d: %d", contati, risposta);
        ScriviRiga(3, riga);
      } else if (semplice && k.wVirtualKeyCode == 'O') {
        const int risposta =
            FinestraMessaggio("Partita salvata.", "Attenzione!", MB_OK | MB_ICONINFORMATION);
        std::snprintf(riga, sizeof riga, "risposta %d: %d", contati, risposta);
        ScriviRiga(3, riga);
      } else if (semplice && k.wVirtualKeyCode == 'V') {
        EseguiComandoVisualizzatore(comando);
        std::snprintf(riga, sizeof riga, "visto %d", contati);
        ScriviRiga(3, riga);
      } else if (semplice && k.wVirtualKeyCode == 'Q') {
        ChiudiConsole();
        TerminaProcesso(0);
      }
      PosizionaCursore(5, 5);
    }
  }
}
