#include "console/arbitro.h"

#include "board/posizione.h"
#include "console/annuncio.h"
#include "console/fuoco.h"
#include "console/parole.h"
#include "console/schermo.h"
#include "game/aggiudicazione.h"
#include "messaggi/messaggi.h"
#include "messaggi/toni.h"
#include "piattaforma/piattaforma.h"

using namespace piattaforma::win32;

const char* const TestoAbbandona[2] = {"Il bianco abbandona, aggiudicare la partita (0-1)",
                                       "Il nero abbandona, aggiudicare la partita (1-0)"};
const char* const TestoPattaDaccordo = "Patta d'accordo, aggiudicare la partita (1/2-1/2)";

namespace {

constexpr const char* PARTITA_AGGIUDICATA = "partita aggiudicata";
constexpr const char* AGGIUDICARE_LA_PARTITA = "Aggiudicare la partita";
constexpr const char* PATTA = "1/2-1/2";

// The line that states the result, as soon as it changed, and the news.
void RidisegnaMossaCorrente() {
  StampaMossaCorrente();
  Composizione& c = NuovoAnnuncio();
  c.Testo("Aggiudicata: ");
  c.Testo(CommentoRisultato);
  c.Testo(", ");
  c.Testo(Result);
  c.Carattere('.');
  Annuncia();
}

// "<comment>, partita aggiudicata ( <result> )."
void ComponiAggiudicazione() {
  SvuotaMessaggio();
  AggiungiTesto(CommentoRisultato);
  AggiungiTesto(", ");
  AggiungiTesto(PARTITA_AGGIUDICATA);
  AggiungiTesto(" ");
  AggiungiTesto("( ");
  AggiungiTesto(Result);
  AggiungiTesto(" ).");
}

int DomandaRevoca(const char* domanda) {
  ComponiAggiudicazione();
  AggiungiTesto("\n");
  AggiungiTesto(domanda);
  return Domanda(messaggio, MB_YESNO);
}

// "al <side> e' finito il tempo", after whatever `messaggio` holds.
void AggiungiTempoFinito(int colore) {
  AggiungiTesto("al ");
  AggiungiTesto(StringaColore[colore]);
  AggiungiTesto(" e' finito il tempo");
}

// The key's own description and "?"; true unless the answer is No.
bool ConfermaDelTasto(const char* descrizione) {
  SvuotaMessaggio();
  AggiungiTesto(descrizione);
  AggiungiTesto("?");
  return Domanda(messaggio, MB_YESNO) != IDNO;
}

}  // namespace

void avisa_aggiudicazione() {
  ComponiAggiudicazione();
  Avvisa(messaggio);
}

int dom_AggiudicataModificaCMQ() {
  return DomandaRevoca("Revocare l'aggiudicazione e modificare la partita comunque?");
}

int dom_AggiudicataInMotoCMQ() {
  return DomandaRevoca("Revocare l'aggiudicazione ed impostare comunque l'orologio in moto?");
}

int dom_AggiudicaPerTempo(int colore) {
  SvuotaMessaggio();
  AggiungiTempoFinito(colore);
  AggiungiTesto(": ");
  AggiungiTesto(AGGIUDICARE_LA_PARTITA);
  AggiungiTesto(" ");
  AggiungiTesto("( ");
  AggiungiTesto(StringaSconfitta[colore]);
  AggiungiTesto(" )?");
  return Domanda(messaggio, MB_YESNO);
}

int dom_AggiudicaPattaPerTempo(int colore) {
  SvuotaMessaggio();
  AggiungiTempoFinito(colore);
  AggiungiTesto(", ");
  AggiungiTesto("il ");
  AggiungiTesto(StringaColore[1 - colore]);
  AggiungiTesto(" non puo' vincere");
  AggiungiTesto(".\n");
  AggiungiTesto(AGGIUDICARE_LA_PARTITA);
  AggiungiTesto(" ( ");
  AggiungiTesto(PATTA);
  AggiungiTesto(" )?");
  return Domanda(messaggio, MB_YESNO);
}

void PattaDaccordo() {
  if (!ConfermaDelTasto(TestoPattaDaccordo)) return;
  AggiudicaPattaDaccordo();
  RidisegnaMossaCorrente();
}

void Abbandona(int colore) {
  if (!ConfermaDelTasto(TestoAbbandona[colore])) return;
  AggiudicaAbbandono(colore);
  RidisegnaMossaCorrente();
}

void CadutaBandierina(int colore) {
  Suona(Tono::Bip, Tono::Bip);
  Composizione& c = NuovoAnnuncio();
  c.Testo("Bandierina: al ");
  c.Testo(StringaColore[colore]);
  c.Testo(" e' finito il tempo.");
  // Nothing may cover a flag fall.
  Annuncia(piattaforma::PrioritaVoce::Importante);
  const DecisioneCaduta decisione = ValutaCaduta(colore);
  bool aggiudicare = false;
  switch (decisione) {
    case DecisioneCaduta::Sconfitta:
      // The loss is awarded only on an explicit Yes.
      aggiudicare = dom_AggiudicaPerTempo(colore) == IDYES;
      break;
    case DecisioneCaduta::Patta:
      aggiudicare = dom_AggiudicaPattaPerTempo(colore) != IDNO;
      break;
    case DecisioneCaduta::EntrambeLeBandierine:
      aggiudicare =
          Domanda("Ad entrambi i giocatori e' finito il tempo.\nAggiudicare la partita patta?",
                  MB_YESNO) != IDNO;
      break;
  }
  if (!aggiudicare) return;
  AggiudicaCaduta(colore, decisione);
  RidisegnaMossaCorrente();
}

void PresentaMossa(EsitoMossa esito) {
  // The move first, in one sentence: its text, then in words.
  const char* testo = ElencoStringaMossa[ContatoreMosse];
  Composizione& c = NuovoAnnuncio();
  c.Testo(testo);
  c.Testo(": ");
  InizioParlato();
  MossaInParole(c, esito.mossa);
  ScaccoInParole(c, testo);
  if (esito.fine == FineDellaPartita::Stallo) c.Testo("; stallo");
  if (esito.fine == FineDellaPartita::MaterialeInsufficiente) c.Testo("; materiale insufficiente");
  if (esito.fine == FineDellaPartita::SettantacinqueMosse) c.Testo("; regola delle 75 mosse");
  if (esito.fine == FineDellaPartita::QuintuplaRipetizione) c.Testo("; quintupla ripetizione");
  if (esito.domanda == DomandaAllArbitro::CinquantaMosse) c.Testo("; regola delle 50 mosse");
  if (esito.domanda == DomandaAllArbitro::TripliceRipetizione) c.Testo("; triplice ripetizione");
  c.Carattere('.');
  // A box follows a move that ends the game or asks: the sentence waits for
  // no box, and the box waits for it.
  const bool segue_finestra =
      esito.fine != FineDellaPartita::Nessuna || esito.domanda != DomandaAllArbitro::Nessuna;
  Annuncia(segue_finestra ? piattaforma::PrioritaVoce::Messaggio
                          : piattaforma::PrioritaVoce::Testo);
  if (esito.disambigua_fallita) Avvisa("Errore in disambigua mossa pezzo!");
  if (esito.fine != FineDellaPartita::Nessuna) {
    avisa_aggiudicazione();
  } else if (esito.domanda == DomandaAllArbitro::CinquantaMosse) {
    if (Domanda("Aggiudicare la patta per la regola delle 50 mosse?", MB_YESNO) == IDYES)
      AccettaCinquantaMosse();
    else
      esito = RifiutaCinquantaMosse(esito);
  }
  // The question informs: either answer adjudicates, only a box that could
  // not be shown leaves the game open.
  if (esito.domanda == DomandaAllArbitro::TripliceRipetizione &&
      Domanda("Triplice ripetizione: aggiudicare la patta?", MB_YESNO) != 0)
    AggiudicaTriplice();
  StampaPosizione();
  Suona(Tono::Conferma);
}
