#include "console/politica_interfaccia.h"

#include "messaggi/toni.h"
#include "testo/composizione.h"

using namespace piattaforma::win32;

namespace {

using piattaforma::COLONNE_SCHERMO;
using piattaforma::RifiutoTerminale;
using piattaforma::RIGHE_SCHERMO;

void ComponiRifiuto(RifiutoTerminale motivo, const char* tipo, char* uscita, size_t dimensione) {
  Composizione c(uscita, dimensione);
  constexpr char SERVE[] = "Pendrino ha bisogno di un terminale che sappia spostare il cursore";
  switch (motivo) {
    case RifiutoTerminale::NessunTerminale:
      c.Testo("Pendrino va avviato in un terminale.");
      break;
    case RifiutoTerminale::SenzaTipo:
      c.Formato("%s, ma la variabile TERM non \xC3\xA8 impostata.", SERVE);
      break;
    case RifiutoTerminale::TipoSconosciuto:
      c.Formato("%s, ma il terminale TERM=%s non \xC3\xA8 conosciuto.", SERVE, tipo);
      break;
    case RifiutoTerminale::SenzaCursore:
      c.Formato("%s, ma TERM=%s non sa farlo.", SERVE, tipo);
      break;
    case RifiutoTerminale::NonAperto:
      c.Formato("Pendrino non conosce questo terminale (TERM=%s).", tipo);
      break;
  }
}

// From the whole sentence down to the bare need, so that a narrow terminal
// still shows what to do.
bool FormaDimensioni(int forma, int colonne, int righe, char* uscita, size_t dimensione) {
  Composizione c(uscita, dimensione);
  switch (forma) {
    case 0:
      c.Formato("Finestra troppo piccola (%d x %d): servono almeno %d colonne e %d righe.", colonne,
                righe, COLONNE_SCHERMO, RIGHE_SCHERMO);
      return true;
    case 1:
      c.Formato("Servono almeno %d colonne e %d righe.", COLONNE_SCHERMO, RIGHE_SCHERMO);
      return true;
    case 2:
      c.Formato("Servono %dx%d caratteri.", COLONNE_SCHERMO, RIGHE_SCHERMO);
      return true;
    default:
      return false;
  }
}

}  // namespace

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
  politica.etichetta_ok = "OK";
  politica.etichetta_si = "S\xC3\xAC";
  politica.etichetta_no = "No";
  politica.etichetta_annulla = "Annulla";
  politica.componi_rifiuto = ComponiRifiuto;
  politica.forma_dimensioni = FormaDimensioni;
  return politica;
}

void InstallaPoliticaInterfaccia() {
  piattaforma::ImpostaPoliticaInterfaccia(PoliticaInterfacciaPendrino());
}
