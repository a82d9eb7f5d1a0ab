// The board panel: eight lines of three characters per square, rank 8 first.
#include "board/posizione.h"
#include "console/schermo.h"

void StampaScacchiera() {
  if (ProfiloLettoreDiSchermo()) return;
  for (int r = 0; r < 8; ++r) {
    char riga[8 * 3 + 1];
    for (int c = 0; c < 8; ++c) {
      const uint64_t codice = PezzoIn[r * 8 + c];
      char* casa = riga + 3 * c;
      casa[0] = casa[2] = ' ';
      if (!CodiceDiPezzo(codice)) {
        casa[1] = '-';
      } else {
        const char lettera = CaratterePezzo[TipoDelCodice(codice)];
        casa[1] = ColoreDelCodice(codice) == NERO ? lettera : char(lettera - 'a' + 'A');
      }
    }
    riga[8 * 3] = '\0';
    gotoxy(30, int16_t(y_scacchiera + r));
    StampaTesto(riga);
  }
}
