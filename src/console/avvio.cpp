#include "console/avvio.h"

#include <array>
#include <utility>

#include "board/geometria.h"
#include "clock/orologio.h"
#include "console/comandi.h"
#include "console/schermo.h"
#include "piattaforma/piattaforma.h"

char ComandoVisualizzaListaComandi[DIMENSIONE_COMANDO_VISUALIZZATORE];
char ComandoVisualizzaListaMosse[DIMENSIONE_COMANDO_VISUALIZZATORE];
char ComandoVisualizzaPartitaPgn[DIMENSIONE_COMANDO_VISUALIZZATORE];

void inizializza() {
  piattaforma::ComponiComandoVisualizzatore(ComandoVisualizzaListaMosse,
                                            sizeof ComandoVisualizzaListaMosse, "ListaMosse.txt");
  piattaforma::ComponiComandoVisualizzatore(ComandoVisualizzaListaComandi,
                                            sizeof ComandoVisualizzaListaComandi, "leggimi.html");
  piattaforma::ComponiComandoVisualizzatore(ComandoVisualizzaPartitaPgn,
                                            sizeof ComandoVisualizzaPartitaPgn, "partita.pgn");
  piattaforma::ImpostaTitolo("Pendrino1.0");
  InizializzaTabelle();
  piattaforma::ApriConsole();
  DisegnaIntestazione();
  StampaPannelloPrincipale();
  ImpostaFocus();
}

void ChiudiIlProgramma() {
  piattaforma::ChiudiConsole();
  piattaforma::TerminaProcesso(0);
}

int pendrino_main(int, char**) {
  inizializza();
  CicloPrincipale();
}

// ---------------------------------------------------------------------------
// Dispatch. Actions whose subsystem is not part of the program yet have no
// entry and are ignored like unlisted keys.

using Gestore = void (*)(int argomento, const KEY_EVENT_RECORD& tasto);

static constexpr Gestore GestoreDi(Azione azione) {
  switch (azione) {
    case Azione::Esci:
      return [](int, const KEY_EVENT_RECORD&) { comando_esci(); };
    case Azione::Home:
      return [](int, const KEY_EVENT_RECORD&) { comando_home(); };
    case Azione::End:
      return [](int, const KEY_EVENT_RECORD&) { comando_end(); };
    case Azione::FrecciaSu:
      return [](int, const KEY_EVENT_RECORD&) { comando_FrecciaSu(); };
    case Azione::FrecciaGiu:
      return [](int, const KEY_EVENT_RECORD&) { comando_FrecciaGiu(); };
    case Azione::Backspace:
      return [](int, const KEY_EVENT_RECORD&) { comando_backspace(); };
    case Azione::Digitazione:
      return [](int, const KEY_EVENT_RECORD& tasto) {
        comando_digitazione(static_cast<signed char>(tasto.uChar.AsciiChar));
      };
    default:
      return nullptr;
  }
}

template <size_t... I>
static constexpr auto CostruisciGestori(std::index_sequence<I...>) {
  return std::array<Gestore, sizeof...(I)>{GestoreDi(Azione(I))...};
}
static constexpr auto Gestori =
    CostruisciGestori(std::make_index_sequence<size_t(Azione::Conteggio)>());

bool AzioneGestita(Azione azione) {
  return size_t(azione) < Gestori.size() && Gestori[size_t(azione)] != nullptr;
}

void EseguiAzione(AzioneTasto azione, const KEY_EVENT_RECORD& tasto) {
  if (AzioneGestita(azione.azione)) Gestori[size_t(azione.azione)](azione.argomento, tasto);
}

void GestisciEvento(const INPUT_RECORD& evento) {
  if (evento.EventType != KEY_EVENT || !evento.Event.KeyEvent.bKeyDown) return;
  // The repeat count is ignored: an auto-repeat record acts once.
  EseguiAzione(CercaAzione(evento.Event.KeyEvent), evento.Event.KeyEvent);
}

// ---------------------------------------------------------------------------

void TurnoCiclo() {
  // The running side's time display joins here with the clock's display code.
  piattaforma::AttendiEventi(AttesaProssimoSecondo());
  if (piattaforma::EventiInAttesa() == 0) return;
  INPUT_RECORD eventi[EVENTI_PER_LETTURA];
  const uint32_t letti = piattaforma::LeggiEventi(eventi, EVENTI_PER_LETTURA);
  for (uint32_t i = 0; i < letti && i < EVENTI_PER_LETTURA; ++i) GestisciEvento(eventi[i]);
}

void CicloPrincipale() {
  for (;;) TurnoCiclo();
}
