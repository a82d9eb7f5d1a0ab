#include "console/comandi.h"

#include <cstdio>
#include <cstring>

#include "board/fen.h"
#include "board/posizione.h"
#include "clock/cadenza.h"
#include "clock/orologio.h"
#include "console/annuncio.h"
#include "console/arbitro.h"
#include "console/parole.h"
#include "console/schermo.h"
#include "console/voce.h"
#include "diagnostics/stampa.h"
#include "game/aggiudicazione.h"
#include "game/file_partita.h"
#include "game/giornale.h"
#include "game/partita.h"
#include "messaggi/messaggi.h"
#include "messaggi/toni.h"
#include "piattaforma/piattaforma.h"
#include "settings/parametri.h"

using namespace piattaforma::win32;

const char* const TestoPartitaNonSalvata =
    "Impossibile scrivere il file partita.pgn: la partita non e' stata salvata.";
const char* const TestoListaNonScritta =
    "Impossibile scrivere il file ListaMosse.txt: l'elenco delle mosse non e' stato aggiornato.";

char ComandoVisualizzaListaComandi[DIMENSIONE_COMANDO_VISUALIZZATORE];
char ComandoVisualizzaListaMosse[DIMENSIONE_COMANDO_VISUALIZZATORE];
char ComandoVisualizzaPartitaPgn[DIMENSIONE_COMANDO_VISUALIZZATORE];

const RigaComando Comandi[NUMERO_COMANDI] = {
    {"invio", "Esegue la mossa specificata e preme l'orologio se in moto."},
    {"ctrl + invio", "Orologio in moto."},
    {"ctrl + shift + invio", "Ferma l'orologio."},
    {"ctrl + tasto piu' o meno", "Aggiunge / sottrae al colore selezionato i minuti specificati."},
    {"ctrl + canc", "Ritira l'ultima semimossa."},
    {"ctrl + A",
     "Imposta l'aggiornamento automatico a schermo del tempo in moto al valore booleano "
     "specificato (0 disattivo, 1 attivo)."},
    {"ctrl + p", "Imposta il numero dei periodi al valore specificato (1 o 2)."},
    {"ctrl + m", "Imposta il numero delle mosse per il primo periodo al valore specificato."},
    {"ctrl + 1 o 2", "Imposta il tempo del relativo periodo al valore specificato in minuti."},
    {"ctrl + shift + 1 o 2",
     "Imposta l'incremento del relativo periodo al valore specificato in secondi."},
    {"alt + numero da 1 a 5", "Imposta il relativo allarme al valore specificato in minuti"},
    {"alt + n", "Nuova partita."},
    {"alt + s", "Salva la partita."},
    {"alt + f4", "Esce da Pendrino"},
    {"tasto T",
     "Aggiorna manualmente a schermo il tempo del colore in moto se l'aggiornamento automatico "
     "e' disattivo"},
    {"f1", "Visualizza questa guida."},
    {"f5", "Visualizza l'elenco delle mosse."},
    {"f9", "Visualizza il file  partita.pgn."},
    {"f4", TestoAbbandona[1]},
    {"f8", TestoAbbandona[0]},
    {"f12", TestoPattaDaccordo},
};

const RigaComando TastiPerIlLettore[NUMERO_TASTI_LETTORE] = {
    {"ctrl + o",
     "Legge il tempo di entrambi i colori, chi ha il tratto e le mosse che mancano al secondo "
     "periodo."},
    {"ctrl + u", "Legge l'ultima mossa."},
    {"ctrl + b", "Legge i pezzi del bianco e le loro case."},
    {"ctrl + n", "Legge i pezzi del nero e le loro case."},
    {"ctrl + e", "Legge che cosa c'e' nella casa scritta nel campo comando, per esempio e4."},
    {"pagina su, pagina giu'",
     "Leggono il formulario una mossa alla volta, indietro e avanti, dall'ultima mossa."},
    {"ctrl + f, poi un numero da 1 a 9 o lo 0",
     "Vale come il tasto funzione da f1 a f10; ctrl + f, poi - o =, vale come f11 o f12."},
    {"ctrl + f due volte, poi un numero",
     "Vale come alt con il tasto funzione: ctrl + f due volte, poi 4, vale come alt + f4."},
};

// ---------------------------------------------------------------------------
// Focus.

// Tone marks of the focus: the two ends, and the running side's time line.
static void SuonaEstremoSuperiore() { Suona(Tono::Pausa); }
static void SuonaEstremoInferiore() { Suona(Tono::Fondo); }

static void SegnalaTempoInMoto() {
  const bool tempo_in_moto =
      InMoto && ((fuoco == FUOCO_TEMPO_BIANCO && (ContatoreMosse & 1) == 0) ||
                 (fuoco == FUOCO_TEMPO_NERO && (ContatoreMosse & 1) == 1));
  if (!tempo_in_moto) return;
  Suona(Tono::Digitazione, Tono::Digitazione);
}

// One step of the focus towards the end `estremo`; that end's tone marks
// arriving there, or pressing on when already there.
static void SpostaFuoco(int passo, uint32_t estremo, void (*SuonaEstremo)()) {
  const bool gia_in_fondo = passo > 0 ? fuoco >= estremo : fuoco <= estremo;
  if (gia_in_fondo) {
    SuonaEstremo();
    return;
  }
  fuoco = uint32_t(int(fuoco) + passo);
  ImpostaFocus();
  if (fuoco == estremo)
    SuonaEstremo();
  else
    SegnalaTempoInMoto();
}

// Straight to an end: its tone always, the move only when needed.
static void SaltaAllEstremo(uint32_t estremo, void (*SuonaEstremo)()) {
  SuonaEstremo();
  if (fuoco == estremo) return;
  fuoco = estremo;
  ImpostaFocus();
}

void comando_FrecciaSu() { SpostaFuoco(+1, FUOCO_BORDO_SUPERIORE, SuonaEstremoSuperiore); }
void comando_FrecciaGiu() { SpostaFuoco(-1, FUOCO_COMANDO, SuonaEstremoInferiore); }
void comando_home() { SaltaAllEstremo(FUOCO_BORDO_SUPERIORE, SuonaEstremoSuperiore); }
void comando_end() { SaltaAllEstremo(FUOCO_COMANDO, SuonaEstremoInferiore); }

// ---------------------------------------------------------------------------
// The command field.

static bool CarattereAmmesso(signed char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         (c != 0 && std::strchr(CaratteriExtra, c) != nullptr);
}

void comando_digitazione(signed char carattere) {
  if (!CarattereAmmesso(carattere)) return;
  if (CharatteriInComando >= MASSIMO_CARATTERI_COMANDO) {
    Avvisa("Il comando non puo' contenere piu' di 8 caratteri");
    return;
  }
  fuoco = FUOCO_COMANDO;
  gotoxy(int16_t(x_comando + CharatteriInComando), y_comando);
  const char c = char(carattere);
  piattaforma::Scrivi(&c, 1);
  comando[CharatteriInComando++] = c;
  Suona(Tono::Digitazione);
}

void comando_backspace() {
  if (CharatteriInComando == 0) return;
  fuoco = FUOCO_COMANDO;
  gotoxy(int16_t(x_comando + CharatteriInComando), y_comando);
  --CharatteriInComando;
  StampaTesto("\b \b");
}

// The number at the start of the field, as "%d" reads it; false when there
// is none, which callers treat as a value out of every range.
static bool NumeroNelCampo(int32_t& valore) {
  comando[CharatteriInComando] = 0;
  int letto = 0;
  return std::sscanf(comando, "%d", &letto) == 1 && ((valore = letto), true);
}

// ---------------------------------------------------------------------------
// The clock and its settings.

// The arbiter's question before an adjudicated game is changed: false on
// No. On any other answer the result is revoked, and the line that stated it
// says so at once, whatever the command then does.
static bool RevocaConsentita(int (*domanda)()) {
  if (!PartitaAggiudicata()) return true;
  if (domanda() == IDNO) return false;
  RevocaAggiudicazione();
  StampaMossaCorrente();
  Annuncia("Aggiudicazione revocata.");
  return true;
}

static const char* const RifiutoConOrologioInMoto =
    "Per modificare i parametri relativi al tempo si deve prima fermare l'orologio.";

void comando_OrologioInMoto() {
  if (InMoto) {
    Avvisa("L'orologio e' gia in moto.");
    return;
  }
  if (!RevocaConsentita(dom_AggiudicataInMotoCMQ)) return;
  Annuncia("Orologio in moto.");
  OrologioInMoto();
}

void comando_FermaOrologio() {
  if (!InMoto) {
    Avvisa("L'orologio e' gia fermo.");
    return;
  }
  FermaOrologio();
  Annuncia("Orologio fermo.");
}

// "<inizio> '<description>'\n i valori ammessi ... ( min - max)."
static void AvvisaIntervallo(const char* inizio, const RigaIni& riga) {
  SvuotaMessaggio();
  AggiungiTesto(inizio);
  AggiungiTesto(" '");
  AggiungiTesto(riga.descrizione);
  AggiungiTesto("'\n");
  AggiungiIntervallo(riga);
  Avvisa(messaggio);
}

void comando_ImpostaParametro(int indice) {
  if (indice < 0 || indice >= NUMERO_PARAMETRI) return;
  const RigaIni& riga = ParametroIni[indice];
  if (InMoto) {
    Avvisa(RifiutoConOrologioInMoto);
    return;
  }
  if (CharatteriInComando == 0) {
    AvvisaIntervallo("Nessun valore specificato per", riga);
    return;
  }
  int32_t valore = 0;
  const bool letto = NumeroNelCampo(valore);
  SvuotaCampoComando();
  if (!letto || valore < riga.minimo || valore > riga.massimo) {
    AvvisaIntervallo("Valore non valido per", riga);
    return;
  }
  SvuotaMessaggio();
  AggiungiTesto("Impostare");
  AggiungiTesto(" '");
  AggiungiTesto(riga.descrizione);
  AggiungiTesto("' ");
  AggiungiNumero(valore);
  AggiungiCarattere(' ');
  AggiungiTesto(riga.unita);
  AggiungiCarattere('?');
  if (Domanda(messaggio, MB_YESNO) != IDYES) return;
  ImpostaParametro(indice, valore);
  ScriviIni();
  Composizione& c = NuovoAnnuncio();
  c.Testo("Impostato: ");
  c.Testo(riga.descrizione);
  c.Carattere(' ');
  c.Numero(valore);
  c.Carattere(' ');
  c.Testo(riga.unita);
  // The time control is the game's own: the next game gets the change.
  if (indice <= PARAMETRO_INCREMENTO_SECONDO_PERIODO) c.Testo(", dalla prossima partita");
  c.Carattere('.');
  Annuncia();
  Suona(Tono::Conferma);
}

void comando_ModificaTempo(int segno) {
  if (InMoto) {
    Avvisa(RifiutoConOrologioInMoto);
    return;
  }
  if (CharatteriInComando == 0) {
    Avvisa("Nessun valore specificato per i minuti.\nI valori ammessi sono compresi da 1 a 30.");
    return;
  }
  int32_t minuti = 0;
  const bool letto = NumeroNelCampo(minuti);
  SvuotaCampoComando();
  if (!letto || minuti < 1 || minuti > 30) {
    Avvisa(
        "Il valore specificato per i minuti non e' valido.\nI valori ammessi sono compresi da 1 "
        "a 30.");
    return;
  }
  int colore;
  if (fuoco == FUOCO_TEMPO_BIANCO)
    colore = 0;
  else if (fuoco == FUOCO_TEMPO_NERO)
    colore = 1;
  else {
    Avvisa(
        "Per modificare il tempo e' necessario selezionare prima il colore a cui intendi aplicare "
        "la modifica.");
    return;
  }
  if (dom_ModificareTempo(segno, colore, minuti) == IDNO) return;
  ModificaTempo(colore, segno ? -minuti : minuti);
  Composizione& c = NuovoAnnuncio();
  c.Testo(segno ? "Tolti " : "Aggiunti ");
  c.Numero(minuti);
  c.Testo(minuti == 1 ? (segno ? " minuto al " : " minuto al ") : " minuti al ");
  c.Testo(StringaColore[colore]);
  c.Testo(": ");
  TempoInParole(c, SecondiInMillisecondi(TempoRimasto[colore]));
  c.Carattere('.');
  Annuncia();
}

void AggiornaTempoASchermo() {
  if (!InMoto || AggiornamentoAutomatico()) return;
  const int colore = int(ContatoreMosse & 1);
  const bool caduta = AggiornaTempoVisualizzato(colore, true);
  // White to move lands on White's time line, Black to move on the line
  // above Black's: the two are not symmetrical, and stay so.
  fuoco = uint32_t(colore) + 2;
  ImpostaFocus();
  if (caduta) CadutaBandierina(colore);
}

// ---------------------------------------------------------------------------
// A new game.

void NuovaPartita(const char* testo) {
  SvuotaScacchiera();
  if (!CaricaPosizioneDaStringaFen(testo)) {
    char errore[256];
    std::snprintf(errore, sizeof errore, "errore in CaricaPosizioneDaStringaFen\nstringa fen: %s\n",
                  testo);
    StampaTesto(errore);
    NuovaPartita(FenIniziale);
  }
  CaricaTempoDaiParametri();
  SvuotaCampoComando();
  RevocaAggiudicazione();
  AzzeraPartita();
  StampaPosizione();
  fuoco = FUOCO_COMANDO;
  Annuncia("Nuova partita.");
}

// ---------------------------------------------------------------------------

// ---------------------------------------------------------------------------
// Moves, take-backs, new games, files.

// "<what was refused>: <field>." on the announcement line.
static void AnnunciaRifiuto(const char* rifiuto) {
  Composizione& c = NuovoAnnuncio();
  c.Testo(rifiuto);
  c.Testo(comando);
  c.Carattere('.');
  Annuncia();
}

// "'<field>' - " followed by the reason, in a notice.
static void AvvisaComando(const char* motivo) {
  SvuotaMessaggio();
  AggiungiCarattere('\'');
  AggiungiTesto(comando);
  AggiungiTesto("' - ");
  AggiungiTesto(motivo);
  Avvisa(messaggio);
}

void InterpretaComando() {
  if (std::strcmp(comando, "cs") == 0) {
    StampaChiaroScuro();
    return;
  }
  if (!LeggiDettagliMossaDaComando(comando)) {
    AnnunciaRifiuto("Comando non valido: ");
    AvvisaComando("non e' un comando valido");
    return;
  }
  if (!RevocaConsentita(dom_AggiudicataModificaCMQ)) return;
  if (PartitaCompleta()) {
    Annuncia("Rifiutata: il formulario e' pieno.");
    Avvisa(TestoPartitaCompleta);
    return;
  }
  const uint64_t mossa = FaiMossaInComando();
  if (!mossa) {
    AnnunciaRifiuto("Mossa non legale: ");
    AvvisaComando("non e' una mossa legale");
    return;
  }
  PresentaMossa(AnnotaMossa(mossa));
}

void comando_invio() {
  if (CharatteriInComando == 0) return;
  comando[CharatteriInComando] = 0;
  fuoco = FUOCO_COMANDO;
  SvuotaCampoComando();
  InterpretaComando();
}

void comando_RitiraUltimaMossa() {
  // A game from a position with Black to move starts at ply 1.
  if (ContatoreMosse <= TurnoIniziale) {
    Avvisa("La posizione e' quella iniziale: Non c'e' alcuna mossa da ritirare.");
    return;
  }
  if (InMoto) {
    Avvisa("Per modificare la posizione e' prima necessario fermare l'orologio.");
    return;
  }
  if (!RevocaConsentita(dom_AggiudicataModificaCMQ)) return;
  const uint64_t ritirata = ElencoMosse[ContatoreMosse];
  Composizione& c = NuovoAnnuncio();
  c.Testo("Ritirata: ");
  c.Testo(ElencoStringaMossa[ContatoreMosse]);
  c.Testo(", ");
  MossaInParole(c, ritirata);
  c.Carattere('.');
  RitiraUltimaMossa();
  StampaPosizione();
  Annuncia();
  Suona(Tono::Conferma, Tono::Pausa, Tono::Conferma);
}

// The saves the user asks for: a file that could not be written is said,
// naming it, and what was to follow the save does not happen.
static void AnnunciaNonScritto(const char* esito, const char* file) {
  Composizione& c = NuovoAnnuncio();
  c.Testo(esito);
  c.Testo(file);
  c.Testo(", ");
  c.Testo(MotivoErroreFile(piattaforma::UltimoErroreFile()));
  c.Carattere('.');
  Annuncia();
}

static bool Salva() {
  if (SalvaPartita()) {
    Annuncia("Salvata: partita.pgn.");
    return true;
  }
  AnnunciaNonScritto("Non salvata: ", "partita.pgn");
  Avvisa(TestoPartitaNonSalvata);
  return false;
}

static bool ScriviLista() {
  if (ScriviElencoMosse()) {
    Annuncia("Scritto: ListaMosse.txt.");
    return true;
  }
  AnnunciaNonScritto("Non scritto: ", "ListaMosse.txt");
  Avvisa(TestoListaNonScritta);
  return false;
}

void comando_NuovaPartita() {
  switch (Domanda("Salvare la partita corrente?", MB_YESNOCANCEL)) {
    case IDYES:
      // The game on the board is not given up unless it is on disk.
      if (!Salva()) break;
      Suona(Tono::Conferma);
      NuovaPartita(FenIniziale);
      break;
    case IDNO:
      NuovaPartita(FenIniziale);
      break;
    default:
      break;  // Cancel, or a box that could not be shown
  }
}

void comandoSalvaPartita() {
  if (!Salva()) return;
  Suona(Tono::Conferma);
}

void comando_VisualizzaListaComandi() {
  piattaforma::EseguiComandoVisualizzatore(ComandoVisualizzaListaComandi);
}

// An older file in the viewer would show another game: nothing is opened
// when the file could not be written.
void comando_VisualizzaListaMosse() {
  if (!ScriviLista()) return;
  piattaforma::EseguiComandoVisualizzatore(ComandoVisualizzaListaMosse);
}

void comando_VisualizzaPartitaPgn() {
  if (!Salva()) return;
  piattaforma::EseguiComandoVisualizzatore(ComandoVisualizzaPartitaPgn);
}

void ChiudiIlProgramma() {
  piattaforma::ChiudiVoce();
  piattaforma::ChiudiConsole();
  piattaforma::TerminaProcesso(0);
}

// The voice's choice is kept for the next start, like any other preference.
void comando_Voce() {
  const bool accendi = !VoceAccesa();
  if (accendi) {
    if (!AccendiVoce()) return;
  } else {
    SpegniVoce();
  }
  ImpostaPreferenza(PREFERENZA_VOCE, accendi ? 1 : 0);
  ScriviTabella(TabellaPreferenze);
  Annuncia(accendi ? "Voce accesa." : "Voce spenta.");
  Suona(Tono::Conferma);
}

void comando_esci() {
  switch (Domanda("Salvare la partita prima di uscire?", MB_YESNOCANCEL)) {
    case IDYES:
      // A game that could not be saved keeps the program open.
      if (!Salva()) break;
      Suona(Tono::Conferma);
      ChiudiGiornale();
      ChiudiIlProgramma();
    case IDNO:
      // Left on purpose: nothing to take up at the next start.
      ChiudiGiornale();
      ChiudiIlProgramma();
    default:
      break;  // Cancel, or a box that could not be shown: stay
  }
}
