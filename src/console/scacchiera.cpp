// The board panel: eight lines of three characters per square, rank 8 first.
#include "board/posizione.h"
#include "console/schermo.h"

void StampaScacchiera() {
  for (int r = 0; r < 8; ++r) {
    char riga[8 * 3 + 1];
    for (int c = 0; c < 8; ++c) {
      const uint64_t codice = PezzoIn[r * 8 + c];
      char* casa = riga + 3 * c;
      casa[0] = casa[2] = ' ';
      if (codice == CASA_VUOTA || (codice >> 5) > RE) {
        casa[1] = '-';
      } else {
        const char lettera = CaratterePezzo[codice >> 5];
        casa[1] = (codice & 0x10) ? lettera : char(lettera - 'a' + 'A');
      }
    }
    riga[8 * 3] = '\0';
    gotoxy(30, int16_t(y_scacchiera + r));
    StampaTesto(riga);
  }
}
