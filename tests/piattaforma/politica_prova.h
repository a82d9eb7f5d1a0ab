// The interface policy the platform tests install: the platform carries out
// whatever policy a program hands it, so its tests bring their own. It has
// the letters of Italian boxes (S and Y for Sì, N for No, A for Annulla) and
// a pitch for each sticky prefix; the program's own policy is the console's,
// checked by the console tests.
#pragma once

#include "piattaforma/piattaforma.h"

inline piattaforma::PoliticaInterfaccia PoliticaDiProva() {
  using namespace piattaforma::win32;
  piattaforma::PoliticaInterfaccia politica;
  politica.tono_annullato = {500, 60};
  politica.tono_alt = {1500, 40};
  politica.tono_ctrl = {1000, 40};
  politica.tono_ctrl_shift = {1250, 40};
  const piattaforma::LetteraRisposta lettere[] = {
      {'S', IDYES}, {'Y', IDYES}, {'N', IDNO}, {'A', IDCANCEL}};
  for (const auto& lettera : lettere) politica.lettera[politica.lettere++] = lettera;
  return politica;
}
