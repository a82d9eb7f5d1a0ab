#include "console/avvio.h"

#include "board/fen.h"
#include "board/geometria.h"
#include "board/posizione.h"
#include "clock/cadenza.h"
#include "clock/orologio.h"
#include "console/annuncio.h"
#include "console/arbitro.h"
#include "console/comandi.h"
#include "console/guida.h"
#include "console/parole.h"
#include "console/politica_interfaccia.h"
#include "console/schermo.h"
#include "console/voce.h"
#include "diagnostics/uscita.h"
#include "game/aggiudicazione.h"
#include "game/giornale.h"
#include "messaggi/messaggi.h"
#include "piattaforma/piattaforma.h"
#include "settings/lettore_ini.h"
#include "settings/parametri.h"

using namespace piattaforma::win32;

// The lower layers draw through the console: the diagnostics at the cursor
// and on the board panel, the clock and the game on their lines, each time
// with the cursor back on the focus.
static void InstallaSchermi() {
  InstallaUscitaDiagnostiche(
      {piattaforma::Scrivi, StampaScacchiera, piattaforma::SostituisciFileDiTesto});
  InstallaSchermoOrologio({
      [](int colore, int32_t secondi) {
        StampaLineaTempo(colore, secondi);
        ImpostaFocus();
      },
      [] {
        StampaMossaCorrente();
        ImpostaFocus();
      },
      [] {
        StampaCadenza();
        ImpostaFocus();
      },
      [](SegnaleOrologio segnale, int colore, int32_t secondi) {
        if (segnale == SegnaleOrologio::ContoAllaRovescia) {
          static const char* const Numeri[4] = {"", "uno", "due", "tre"};
          if (secondi >= 1 && secondi <= 3)
            Di(Numeri[secondi], piattaforma::PrioritaVoce::Messaggio);
          return;
        }
        Composizione& c = NuovoAnnuncio();
        c.Testo("Allarme: ");
        c.Testo(StringaColore[colore]);
        c.Testo(", ");
        TempoInParole(c, secondi);
        c.Carattere('.');
        Annuncia(piattaforma::PrioritaVoce::Messaggio);
      },
  });
  InstallaDopoFinestra(ImpostaFocus);
  InstallaFinestraAperta(
      [](const char* testo) { Di(testo, piattaforma::PrioritaVoce::Messaggio); });
  // A box opens on a journal up to date (a move just played, when its
  // question is the box), and while it waits the journal keeps the running
  // time.
  InstallaPrimaDellaFinestra([] { AggiornaGiornale(false); });
  piattaforma::ImpostaBattito([] { AggiornaGiornale(false); });
}

const char* const NomeFileBlocco = "pendrino.blocco";
const char* const TestoGiaInUso =
    "Pendrino e' gia' aperto in questa cartella: chiudere l'altro Pendrino prima di avviarne "
    "un altro qui.";

// Two programs in one folder would write one journal: the second says so and
// leaves before it writes anything. The lock dies with its process, so a
// program that was killed never keeps the next one out.
static void UnoSoloPerCartella() {
  if (piattaforma::BloccaFile(NomeFileBlocco)) return;
  Avvisa(TestoGiaInUso);
  piattaforma::ChiudiConsole();
  piattaforma::TerminaProcesso(1);
}

void inizializza() {
  InstallaPoliticaInterfaccia();
  piattaforma::ComponiComandoVisualizzatore(ComandoVisualizzaListaMosse,
                                            sizeof ComandoVisualizzaListaMosse, "ListaMosse.txt");
  piattaforma::ComponiComandoVisualizzatore(ComandoVisualizzaListaComandi,
                                            sizeof ComandoVisualizzaListaComandi, "leggimi.html");
  piattaforma::ComponiComandoVisualizzatore(ComandoVisualizzaPartitaPgn,
                                            sizeof ComandoVisualizzaPartitaPgn, "partita.pgn");
  piattaforma::ImpostaTitolo("Pendrino1.0");
  InizializzaTabelle();
  piattaforma::ApriConsole();
  InstallaSchermi();
  UnoSoloPerCartella();
  ScriviElencoComandi();
  LeggiIni();
  LeggiTabella(TabellaPreferenze);
  AvviaVoce();
  DisegnaIntestazione();
  StampaPannelloPrincipale();
  ImpostaFocus();
}

const char* const DomandaRiprendere =
    "La partita precedente non e' stata chiusa con il comando di uscita: riprenderla?";

// The order of start-up: the settings (and their notices), the help page and
// the start screen with a new game come first; only then the question about
// a game the journal holds, and with the answer the journal of this run
// begins, before the first key is read.
int pendrino_main(int, char**) {
  inizializza();
  NuovaPartita(FenIniziale);
  RiprendiDalGiornale();
  CicloPrincipale();
}

void RiprendiDalGiornale() {
  const EsitoGiornale esame = LeggiFileGiornale(false);
  if (esame.inizio && !esame.chiuso) {
    if (Domanda(DomandaRiprendere, MB_YESNO) == IDYES) {
      const EsitoGiornale ripresa = LeggiFileGiornale(true);
      DisegnaPartitaRipresa();
      if (ripresa.danneggiato) {
        SvuotaMessaggio();
        AggiungiTesto("Il giornale e' danneggiato dopo la semimossa ");
        AggiungiNumero(int64_t(ripresa.semimossa));
        AggiungiTesto(": la partita e' stata ripresa fino a quel punto.");
        Avvisa(messaggio);
      }
    } else {
      // Kept aside, and the new game on the screen is the one journaled.
      piattaforma::RinominaFile(NomeFileGiornale, NomeFileGiornalePrecedente);
    }
  }
  AvviaGiornale();
}

void DisegnaPartitaRipresa() {
  // The game's own time control, which may differ from the settings.
  StampaCadenza();
  for (int colore = 0; colore < 2; ++colore)
    StampaTempo(colore, SecondiInMillisecondi(TempoRimasto[colore]));
  StampaPosizione();
  fuoco = FUOCO_COMANDO;
  Composizione& c = NuovoAnnuncio();
  c.Testo("Partita ripresa: mossa ");
  c.Numero(int64_t(ContatoreMosse / 2 + 1));
  c.Testo(", tratto al ");
  c.Testo(StringaColore[ContatoreMosse & 1]);
  c.Testo(PartitaAggiudicata() ? ", partita aggiudicata." : ", orologio fermo.");
  Annuncia();
}

void EseguiAzione(AzioneTasto azione, const KEY_EVENT_RECORD& tasto) {
  if (azione.azione.esegui)
    azione.azione.esegui(azione.argomento, static_cast<signed char>(tasto.uChar.AsciiChar));
}

void GestisciEvento(const INPUT_RECORD& evento) {
  if (evento.EventType != KEY_EVENT || !evento.Event.KeyEvent.bKeyDown) return;
  KEY_EVENT_RECORD tasto = evento.Event.KeyEvent;
  if (!TraduciPrefissoFunzione(tasto)) return;
  // The repeat count is ignored: an auto-repeat record acts once.
  EseguiAzione(CercaAzione(tasto), tasto);
}

// ---------------------------------------------------------------------------

void TurnoCiclo() {
  if (InMoto) {
    const int colore = int(ContatoreMosse & 1);
    if (AggiornaTempoVisualizzato(colore)) CadutaBandierina(colore);
  }
  // What the screen shows is on disk before anyone can answer it: the
  // records of every key's change, and the running time once a second.
  AggiornaGiornale();
  piattaforma::AttendiEventi(AttesaProssimoSecondo());
  if (piattaforma::EventiInAttesa() == 0) return;
  INPUT_RECORD eventi[EVENTI_PER_LETTURA];
  const uint32_t letti = piattaforma::LeggiEventi(eventi, EVENTI_PER_LETTURA);
  for (uint32_t i = 0; i < letti && i < EVENTI_PER_LETTURA; ++i) {
    GestisciEvento(eventi[i]);
    AggiornaGiornale();
  }
}

void CicloPrincipale() {
  for (;;) TurnoCiclo();
}
