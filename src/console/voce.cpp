#include "console/voce.h"

#include "messaggi/messaggi.h"
#include "settings/parametri.h"

const char* const TestoVoceNonDisponibile =
    "La voce non e' disponibile: nessun servizio di sintesi vocale risponde. Restano i toni.";

namespace {

bool accesa = false;

// Opens the voice; when none answers, says so.
bool Accendi() {
  if (piattaforma::ApriVoce()) {
    accesa = true;
    return true;
  }
  accesa = false;
  Avvisa(TestoVoceNonDisponibile);
  return false;
}

}  // namespace

void AvviaVoce() {
  if (Preferenza(PREFERENZA_VOCE) == 1) Accendi();
}

bool VoceAccesa() { return accesa; }

bool AccendiVoce() { return Accendi(); }

void SpegniVoce() {
  if (!accesa) return;
  piattaforma::ZittisciVoce();
  piattaforma::ChiudiVoce();
  accesa = false;
}

void Di(const char* testo, piattaforma::PrioritaVoce priorita) {
  if (accesa && testo && testo[0]) piattaforma::Parla(testo, priorita);
}
