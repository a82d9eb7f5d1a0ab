#include "console/annuncio.h"

#include <cstring>

#include "console/fuoco.h"
#include "console/schermo.h"
#include "console/voce.h"
#include "piattaforma/piattaforma.h"

namespace {

char Frase[LUNGHEZZA_ANNUNCIO + 1];
Composizione Composto(Frase, sizeof Frase);
size_t InizioVoce = 0;

// Where a sentence longer than a line breaks: the last space that keeps the
// first line within the screen, or the screen's edge when there is none.
size_t Taglio(const char* testo, size_t lunghezza) {
  const size_t colonne = piattaforma::COLONNE_SCHERMO;
  if (lunghezza <= colonne) return lunghezza;
  for (size_t i = colonne; i > 0; --i)
    if (testo[i] == ' ') return i;
  return colonne;
}

void ScriviRiga(int16_t y, const char* testo, size_t lunghezza) {
  char riga[piattaforma::COLONNE_SCHERMO];
  const size_t n = lunghezza < sizeof riga ? lunghezza : sizeof riga;
  std::memcpy(riga, testo, n);
  std::memset(riga + n, ' ', sizeof riga - n);
  gotoxy(0, y);
  piattaforma::Scrivi(riga, sizeof riga);
}

void Mostra() {
  const size_t lunghezza = std::strlen(Frase);
  const size_t taglio = Taglio(Frase, lunghezza);
  ScriviRiga(y_bordo_superiore, Frase, taglio);
  const size_t resto = taglio < lunghezza && Frase[taglio] == ' ' ? taglio + 1 : taglio;
  ScriviRiga(int16_t(y_bordo_superiore + 1), Frase + resto, lunghezza - resto);
  ImpostaFocus();
}

}  // namespace

Composizione& NuovoAnnuncio() {
  Composto.Svuota();
  InizioVoce = 0;
  return Composto;
}

void InizioParlato() { InizioVoce = Composto.Scritti(); }

void Annuncia(piattaforma::PrioritaVoce priorita) {
  Mostra();
  Di(Frase + InizioVoce, priorita);
}

void Annuncia(const char* frase, piattaforma::PrioritaVoce priorita) {
  NuovoAnnuncio().Testo(frase);
  Annuncia(priorita);
}

const char* UltimoAnnuncio() { return Frase; }

void CancellaAnnuncio() {
  NuovoAnnuncio();
  Mostra();
}
