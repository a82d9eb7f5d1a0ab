// The tables by move type: names, moving and promoted kinds, and the
// dispatch tables of the make and unmake functions.
#include "moves/tavole.h"

#include "board/tabella64.h"
#include "moves/fai.h"
#include "moves/lato.h"
#include "moves/ritira.h"
#include "moves/tipi_mossa.h"

const char* const StringaTipoMossa[64] = {"mossa nulla",
                                          "arrocco corto",
                                          "arrocco lungo",
                                          "pedone avanza2",
                                          "sposta pedone",
                                          "sposta cavallo",
                                          "sposta alfiere",
                                          "sposta torre",
                                          "sposta donna",
                                          "sposta re",
                                          "pedone cattura pedone",
                                          "pedone cattura cavallo",
                                          "pedone cattura alfiere",
                                          "pedone cattura torre",
                                          "pedone cattura donna",
                                          "cavallo cattura pedone",
                                          "cavallo cattura cavallo",
                                          "cavallo cattura alfiere",
                                          "cavallo cattura torre",
                                          "cavallo cattura donna",
                                          "alfiere cattura pedone",
                                          "alfiere cattura cavallo",
                                          "alfiere cattura alfiere",
                                          "alfiere cattura torre",
                                          "alfiere cattura donna",
                                          "torre cattura pedone",
                                          "torre cattura cavallo",
                                          "torre cattura alfiere",
                                          "torre cattura torre",
                                          "torre cattura donna",
                                          "donna cattura pedone",
                                          "donna cattura cavallo",
                                          "donna cattura alfiere",
                                          "donna cattura torre",
                                          "donna cattura donna",
                                          "re cattura pedone",
                                          "re cattura cavallo",
                                          "re cattura alfiere",
                                          "re cattura torre",
                                          "re cattura donna",
                                          "cattura enpassant",
                                          "promozione a cavallo",
                                          "promozione a cavallo cattura cavallo",
                                          "promozione a cavallo cattura alfiere",
                                          "promozione a cavallo cattura torre",
                                          "promozione a cavallo cattura donna",
                                          "promozione ad alfiere",
                                          "promozione ad alfiere cattura cavallo",
                                          "promozione ad alfiere cattura alfiere",
                                          "promozione ad alfiere cattura torre",
                                          "promozione ad alfiere cattura donna",
                                          "promozione a torre",
                                          "promozione a torre cattura cavallo",
                                          "promozione a torre cattura alfiere",
                                          "promozione a torre cattura torre",
                                          "promozione a torre cattura donna",
                                          "promozione a donna",
                                          "promozione a donna cattura cavallo",
                                          "promozione a donna cattura alfiere",
                                          "promozione a donna cattura torre",
                                          "promozione a donna cattura donna",
                                          "",
                                          "",
                                          ""};

namespace {

constexpr uint32_t NESSUN_PEZZO = 255;

constexpr uint32_t PezzoDelTipo(int t) {
  if (t == ARROCCO_CORTO || t == ARROCCO_LUNGO) return RE;
  if (t == CATTURA_ENPASSANT) return PEDONE;
  const int pezzo = Descrivi(uint64_t(t)).pezzo;
  return pezzo == NESSUNO ? NESSUN_PEZZO : uint32_t(pezzo);
}
constexpr uint32_t PromozioneDelTipo(int t) {
  const int nuovo = Descrivi(uint64_t(t)).promosso;
  return nuovo == NESSUNO ? NESSUN_PEZZO : uint32_t(nuovo);
}

// The type list must run 1, 2, ... 60 for the tables below to be in order.
#define PENDRINO_TIPO(tipo, prima, dopo) tipo,
constexpr uint64_t TipiInOrdine[] = {PENDRINO_TIPI_MOSSA(PENDRINO_TIPO)};
#undef PENDRINO_TIPO
constexpr bool InOrdine() {
  for (uint64_t i = 0; i < sizeof TipiInOrdine / sizeof TipiInOrdine[0]; ++i)
    if (TipiInOrdine[i] != i + 1) return false;
  return sizeof TipiInOrdine / sizeof TipiInOrdine[0] == NUMERO_TIPI_MOSSA - 1;
}
static_assert(InOrdine());

}  // namespace

const uint32_t TipoPezzoMossa[64] = {TABELLA64(PezzoDelTipo)};
const uint32_t TipoPromozioneMossa[64] = {TABELLA64(PromozioneDelTipo)};

// Slot 0 (null move) and 61-63 stay empty.
#define PENDRINO_FAI_BIANCO(tipo, prima, dopo) &fai_##prima##bianco##dopo,
#define PENDRINO_FAI_NERO(tipo, prima, dopo) &fai_##prima##nero##dopo,
#define PENDRINO_RITIRA_BIANCO(tipo, prima, dopo) &ritira_##prima##bianco##dopo,
#define PENDRINO_RITIRA_NERO(tipo, prima, dopo) &ritira_##prima##nero##dopo,
const FunzioneFai fai_mossa[2][64] = {{nullptr, PENDRINO_TIPI_MOSSA(PENDRINO_FAI_BIANCO)},
                                      {nullptr, PENDRINO_TIPI_MOSSA(PENDRINO_FAI_NERO)}};
const FunzioneRitira ritira_mossa[2][64] = {{nullptr, PENDRINO_TIPI_MOSSA(PENDRINO_RITIRA_BIANCO)},
                                            {nullptr, PENDRINO_TIPI_MOSSA(PENDRINO_RITIRA_NERO)}};
#undef PENDRINO_FAI_BIANCO
#undef PENDRINO_FAI_NERO
#undef PENDRINO_RITIRA_BIANCO
#undef PENDRINO_RITIRA_NERO
