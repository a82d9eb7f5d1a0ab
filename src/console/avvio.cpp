#include "console/avvio.h"

#include "board/geometria.h"
#include "clock/orologio.h"
#include "console/comandi.h"
#include "console/schermo.h"
#include "diagnostics/uscita.h"
#include "messaggi/messaggi.h"
#include "piattaforma/piattaforma.h"

using namespace piattaforma::win32;

char ComandoVisualizzaListaComandi[DIMENSIONE_COMANDO_VISUALIZZATORE];
char ComandoVisualizzaListaMosse[DIMENSIONE_COMANDO_VISUALIZZATORE];
char ComandoVisualizzaPartitaPgn[DIMENSIONE_COMANDO_VISUALIZZATORE];

// The diagnostics write at the console's cursor and draw the board panel.
static void InstallaUscitaDiagnostica() {
  UscitaDiagnostiche.testo = piattaforma::Scrivi;
  UscitaDiagnostiche.scacchiera = StampaScacchiera;
}

void inizializza() {
  piattaforma::ComponiComandoVisualizzatore(ComandoVisualizzaListaMosse,
                                            sizeof ComandoVisualizzaListaMosse, "ListaMosse.txt");
  piattaforma::ComponiComandoVisualizzatore(ComandoVisualizzaListaComandi,
                                            sizeof ComandoVisualizzaListaComandi, "leggimi.html");
  piattaforma::ComponiComandoVisualizzatore(ComandoVisualizzaPartitaPgn,
                                            sizeof ComandoVisualizzaPartitaPgn, "partita.pgn");
  piattaforma::ImpostaTitolo("Pendrino1.0");
  InizializzaInfoTraiettorie();
  InizializzaDbMobilita();
  piattaforma::ApriConsole();
  InstallaUscitaDiagnostica();
  DisegnaIntestazione();
  StampaPannelloPrincipale();
  DopoFinestra = ImpostaFocus;
  ImpostaFocus();
}

int pendrino_main(int, char**) {
  inizializza();
  CicloPrincipale();
}

void EseguiAzione(AzioneTasto azione, const KEY_EVENT_RECORD& tasto) {
  if (azione.azione.esegui)
    azione.azione.esegui(azione.argomento, static_cast<signed char>(tasto.uChar.AsciiChar));
}

void GestisciEvento(const INPUT_RECORD& evento) {
  if (evento.EventType != KEY_EVENT || !evento.Event.KeyEvent.bKeyDown) return;
  // The repeat count is ignored: an auto-repeat record acts once.
  EseguiAzione(CercaAzione(evento.Event.KeyEvent), evento.Event.KeyEvent);
}

// ---------------------------------------------------------------------------

void TurnoCiclo() {
  piattaforma::AttendiEventi(AttesaProssimoSecondo());
  if (piattaforma::EventiInAttesa() == 0) return;
  INPUT_RECORD eventi[EVENTI_PER_LETTURA];
  const uint32_t letti = piattaforma::LeggiEventi(eventi, EVENTI_PER_LETTURA);
  for (uint32_t i = 0; i < letti && i < EVENTI_PER_LETTURA; ++i) GestisciEvento(eventi[i]);
}

void CicloPrincipale() {
  for (;;) TurnoCiclo();
}
