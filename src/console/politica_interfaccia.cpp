#include "console/politica_interfaccia.h"

using namespace piattaforma::win32;

piattaforma::PoliticaInterfaccia PoliticaInterfacciaPendrino() {
  piattaforma::PoliticaInterfaccia politica;
  // A blind user hears which prefix is set: each has its own pitch, and a
  // cancelled one sounds low and longer.
  politica.tono_annullato = {500, 60};
  politica.tono_alt = {1500, 40};
  politica.tono_ctrl = {1000, 40};
  politica.tono_ctrl_shift = {1250, 40};
  // The initials of the buttons Sì, No and Annulla, and Y for those used to
  // English boxes.
  const piattaforma::LetteraRisposta lettere[] = {
      {'S', IDYES}, {'Y', IDYES}, {'N', IDNO}, {'A', IDCANCEL}};
  for (const auto& lettera : lettere) politica.lettera[politica.lettere++] = lettera;
  return politica;
}

void InstallaPoliticaInterfaccia() {
  piattaforma::ImpostaPoliticaInterfaccia(PoliticaInterfacciaPendrino());
}
