#include "game/aggiudicazione.h"

#include <cstddef>
#include <cstdint>

#include "board/posizione.h"
#include "clock/orologio.h"
#include "messaggi/messaggi.h"
#include "testo/composizione.h"

char Result[8] = "*";
char Termination[64] = "?";
char CommentoRisultato[64] = "";

const char* const StringaSconfitta[2] = {"0-1", "1-0"};

namespace {

constexpr const char* PATTA = "1/2-1/2";
constexpr const char* TEMPO_SCADUTO = "time forfeit";

constexpr uint64_t CASE_SCURE = 0x55AA55AA55AA55AAull;

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

StatoAggiudicazione FotografiaAggiudicazione() {
  // Zeroed first, so that two equal statuses compare equal byte for byte.
  StatoAggiudicazione s{};
  CopiaLimitata(s.result, sizeof s.result, Result);
  CopiaLimitata(s.termination, sizeof s.termination, Termination);
  CopiaLimitata(s.commento, sizeof s.commento, CommentoRisultato);
  return s;
}

void RipristinaAggiudicazione(const StatoAggiudicazione& s) {
  CopiaLimitata(Termination, sizeof Termination, s.termination);
  CopiaLimitata(CommentoRisultato, sizeof CommentoRisultato, s.commento);
  CopiaLimitata(Result, sizeof Result, s.result);
}

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

bool PuoVincereIl_bianco() { return PuoVincere(BIANCO); }
bool PuoVincereIl_nero() { return PuoVincere(NERO); }

DecisioneCaduta ValutaCaduta(int colore) {
  const int altro = 1 - colore;
  if (TempoRimasto[altro] <= 0) return DecisioneCaduta::EntrambeLeBandierine;
  const bool altro_puo_vincere = altro == BIANCO ? PuoVincereIl_bianco() : PuoVincereIl_nero();
  return altro_puo_vincere ? DecisioneCaduta::Sconfitta : DecisioneCaduta::Patta;
}

void AggiudicaCaduta(int colore, DecisioneCaduta decisione) {
  if (decisione == DecisioneCaduta::EntrambeLeBandierine) {
    Aggiudica("both flags fallen", "Ad entrambi finisce il tempo", PATTA);
    return;
  }
  // The comment is composed in `messaggio`, which Aggiudica copies before
  // anything else can touch it.
  SvuotaMessaggio();
  AggiungiTesto("al ");
  AggiungiTesto(StringaColore[colore]);
  AggiungiTesto(" e' finito il tempo");
  Aggiudica(TEMPO_SCADUTO, messaggio,
            decisione == DecisioneCaduta::Sconfitta ? StringaSconfitta[colore] : PATTA);
}

void AggiudicaAbbandono(int colore) {
  SvuotaMessaggio();
  AggiungiTesto("Il ");
  AggiungiTesto(StringaColore[colore]);
  AggiungiTesto(" abbandona");
  Aggiudica("Abandoned", messaggio, StringaSconfitta[colore]);
}

void AggiudicaPattaDaccordo() { Aggiudica("By agreement", "Patta d'accordo", PATTA); }
