#include "console/politica_interfaccia.h"

#include "messaggi/toni.h"

using namespace piattaforma::win32;

piattaforma::PoliticaInterfaccia PoliticaInterfacciaPendrino() {
  piattaforma::PoliticaInterfaccia politica;
  // A blind user hears which prefix is set: each has its own pitch, and a
  // cancelled one sounds low and longer.
  auto tono = [](Tono t) {
    return piattaforma::TonoPrefisso{SuonoDi(t).frequenza, SuonoDi(t).durata};
  };
  politica.tono_annullato = tono(Tono::PrefissoAnnullato);
  politica.tono_alt = tono(Tono::PrefissoAlt);
  politica.tono_ctrl = tono(Tono::PrefissoCtrl);
  politica.tono_ctrl_shift = tono(Tono::PrefissoCtrlShift);
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
