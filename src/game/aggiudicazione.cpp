#include "game/aggiudicazione.h"

#include "messaggi/composizione.h"

#include <cstddef>
#include <cstdint>

#include "board/posizione.h"
#include "clock/orologio.h"
#include "messaggi/composizione.h"
#include "messaggi/messaggi.h"
#include "piattaforma/piattaforma.h"

using namespace piattaforma::win32;

char Result[8] = "*";
char Termination[64] = "?";
char CommentoRisultato[64] = "";

const char* const StringaSconfitta[2] = {"0-1", "1-0"};

const char* const TestoAbbandona[2] = {"Il bianco abbandona, aggiudicare la partita (0-1)",
                                       "Il nero abbandona, aggiudicare la partita (1-0)"};
const char* const TestoPattaDaccordo = "Patta d'accordo, aggiudicare la partita (1/2-1/2)";

SchermoPartita SchermoDellaPartita;

namespace {

constexpr const char* PARTITA_AGGIUDICATA = "partita aggiudicata";
constexpr const char* AGGIUDICARE_LA_PARTITA = "Aggiudicare la partita";
constexpr const char* PATTA = "1/2-1/2";
constexpr const char* TEMPO_SCADUTO = "time forfeit";

constexpr uint64_t CASE_SCURE = 0x55AA55AA55AA55AAull;

void RidisegnaMossaCorrente() {
  if (SchermoDellaPartita.mossa_corrente) SchermoDellaPartita.mossa_corrente();
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

// The comment of a flag fall is composed in `messaggio`, which Aggiudica
// copies before anything else can touch it.
void AggiudicaPerTempo(int colore, const char* result) {
  SvuotaMessaggio();
  AggiungiTempoFinito(colore);
  Aggiudica(TEMPO_SCADUTO, messaggio, result);
  RidisegnaMossaCorrente();
}

bool PuoVincere(Colore lato) {
  const uint64_t mio = materiale[lato];
  const uint64_t suo = materiale[~lato];
  if (mio == 0) return false;

  const uint64_t pedoni = NumeroPezzi(mio, PEDONE), cavalli = NumeroPezzi(mio, CAVALLO),
                 torri = NumeroPezzi(mio, TORRE), donne = NumeroPezzi(mio, DONNA);
  const bool suoi_pedoni_o_cavalli = NumeroPezzi(suo, PEDONE) || NumeroPezzi(suo, CAVALLO);

  // A lone knight needs an enemy pawn, minor or rook to block the king;
  // queens alone are deliberately not counted as such help.
  if (cavalli == 1 && !pedoni && !NumeroPezzi(mio, ALFIERE) && !torri && !donne)
    return suoi_pedoni_o_cavalli || NumeroPezzi(suo, ALFIERE) || NumeroPezzi(suo, TORRE);

  if (pedoni || cavalli || torri || donne || suoi_pedoni_o_cavalli) return true;

  // Bishops only, against no pawn and no knight: mate needs bishops on both
  // square colours, whichever side they belong to.
  const uint64_t alfieri = btm_alfiere_bianco | btm_alfiere_nero;
  return (alfieri & CASE_SCURE) && (alfieri & ~CASE_SCURE);
}

}  // namespace

void Aggiudica(const char* termination, const char* commento, const char* result) {
  CopiaLimitata(Termination, sizeof Termination, termination);
  CopiaLimitata(CommentoRisultato, sizeof CommentoRisultato, commento);
  CopiaLimitata(Result, sizeof Result, result);
  if (InMoto) FermaOrologio();
}

void RevocaAggiudicazione() {
  CopiaLimitata(Termination, sizeof Termination, "?");
  CopiaLimitata(Result, sizeof Result, "*");
  CommentoRisultato[0] = 0;
}

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

bool PuoVincereIl_bianco() { return PuoVincere(BIANCO); }
bool PuoVincereIl_nero() { return PuoVincere(NERO); }

void PattaDaccordo() {
  SvuotaMessaggio();
  AggiungiTesto(TestoPattaDaccordo);
  AggiungiTesto("?");
  if (Domanda(messaggio, MB_YESNO) == IDNO) return;
  Aggiudica("By agreement", "Patta d'accordo", PATTA);
  RidisegnaMossaCorrente();
}

void Abbandona(int colore) {
  SvuotaMessaggio();
  AggiungiTesto(TestoAbbandona[colore]);
  AggiungiTesto("?");
  if (Domanda(messaggio, MB_YESNO) == IDNO) return;
  SvuotaMessaggio();
  AggiungiTesto("Il ");
  AggiungiTesto(StringaColore[colore]);
  AggiungiTesto(" abbandona");
  Aggiudica("Abandoned", messaggio, StringaSconfitta[colore]);
  RidisegnaMossaCorrente();
}

void CadutaBandierina(int colore) {
  piattaforma::Suona(1000, 100);
  piattaforma::Suona(1000, 100);
  const int altro = 1 - colore;

  if (TempoRimasto[altro] > 0) {
    const bool altro_puo_vincere = altro == BIANCO ? PuoVincereIl_bianco() : PuoVincereIl_nero();
    if (altro_puo_vincere) {
      // The loss is awarded only on an explicit Yes.
      if (dom_AggiudicaPerTempo(colore) == IDYES)
        AggiudicaPerTempo(colore, StringaSconfitta[colore]);
    } else if (dom_AggiudicaPattaPerTempo(colore) != IDNO) {
      AggiudicaPerTempo(colore, PATTA);
    }
    return;
  }

  SvuotaMessaggio();
  AggiungiTesto("Ad entrambi i giocatori e' finito il tempo.\nAggiudicare la partita patta?");
  if (Domanda(messaggio, MB_YESNO) == IDNO) return;
  Aggiudica("both flags fallen", "Ad entrambi finisce il tempo", PATTA);
  RidisegnaMossaCorrente();
}
