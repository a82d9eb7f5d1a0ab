// Unmake-move: the three packed words come back from the per-ply backups,
// everything else by reversing the make's toggles and stores. Each family is
// written once as a template and instantiated into the named functions.
#include "moves/ritira.h"

#include "board/arrocco.h"
#include "board/liste.h"
#include "board/mossa.h"
#include "board/posizione.h"
#include "moves/lato.h"
#include "moves/registro.h"

namespace {

// HashPedoni only changes when a pawn moves or is taken.
template <bool Pedoni>
SEMPRE_IN_LINEA void RipristinaParole() {
  const uint64_t ply = --ContatoreMosse;
  ChiaveHash = backup_ChiaveHash[ply];
  InfoPosizione = backup_InfoPosizione[ply];
  if constexpr (Pedoni) HashPedoni = backup_HashPedoni[ply];
}

template <Colore C, uint64_t T>
SEMPRE_IN_LINEA void RitiraMossa(uint64_t mossa) {
  constexpr DescrizioneTipo Tipo = Descrivi(T);
  constexpr int M = Tipo.pezzo, X = Tipo.preso, P = Tipo.promosso;
  constexpr bool Cattura = X != NESSUNO, Promozione = P != NESSUNO;
  constexpr Colore N = ~C;

  RipristinaParole<M == PEDONE || X == PEDONE>();
  const uint64_t o = OrigineMossa(mossa), d = DestinazioneMossa(mossa);
  const uint64_t O = 1ull << o, D = 1ull << d;
  btm_occupazione ^= Cattura ? O : O | D;
  btm_colore[C] ^= O | D;
  if constexpr (Cattura) {
    btm_colore[N] ^= D;
    btm_pezzi[N][X] ^= D;
  }

  if constexpr (M == RE) {
    SpostaPezzo<C, RE>(d, o);
  } else if constexpr (Promozione) {
    btm_pezzi[C][PEDONE] ^= O;
    btm_pezzi[C][P] ^= D;
    AggiungiAllaLista<C, PEDONE>(o);
    TogliDallaLista<C, P>(d);
    if constexpr (!Cattura) PezzoIn[d] = CASA_VUOTA;
  } else {
    btm_pezzi[C][M] ^= O | D;
    SpostaPezzo<C, M>(d, o);
  }

  // The captured piece comes back at the end of its list.
  if constexpr (Cattura) AggiungiAllaLista<N, X>(d);
}

template <Colore C>
SEMPRE_IN_LINEA void RitiraEnpassant(uint64_t mossa) {
  constexpr Colore N = ~C;
  RipristinaParole<true>();
  const uint64_t o = OrigineMossa(mossa), d = DestinazioneMossa(mossa);
  const uint64_t p = d - Lato<C>::Su;
  const uint64_t O = 1ull << o, D = 1ull << d, Pp = 1ull << p;
  btm_occupazione ^= O | D | Pp;
  btm_colore[C] ^= O | D;
  btm_pezzi[C][PEDONE] ^= O | D;
  btm_colore[N] ^= Pp;
  btm_pezzi[N][PEDONE] ^= Pp;
  SpostaPezzo<C, PEDONE>(d, o);
  AggiungiAllaLista<N, PEDONE>(p);
}

template <Colore C, bool Lungo>
SEMPRE_IN_LINEA void RitiraArrocco(uint64_t) {
  constexpr Arrocco A = Arrocchi[C][Lungo];
  constexpr uint64_t MascheraTorre = (1ull << A.torre) | (1ull << A.torre_arrivo);
  constexpr uint64_t MascheraTutti = MascheraTorre | (1ull << A.re) | (1ull << A.re_arrivo);

  RipristinaParole<false>();
  btm_occupazione ^= MascheraTutti;
  btm_colore[C] ^= MascheraTutti;
  btm_pezzi[C][TORRE] ^= MascheraTorre;
  SpostaPezzo<C, RE>(A.re_arrivo, A.re);
  SpostaPezzo<C, TORRE>(A.torre_arrivo, A.torre);
}

template <Colore C, uint64_t T>
SEMPRE_IN_LINEA void RitiraTipo(uint64_t mossa) {
  if constexpr (T == ARROCCO_CORTO || T == ARROCCO_LUNGO)
    RitiraArrocco<C, T == ARROCCO_LUNGO>(mossa);
  else if constexpr (T == CATTURA_ENPASSANT)
    RitiraEnpassant<C>(mossa);
  else
    RitiraMossa<C, T>(mossa);
}

}  // namespace

#define PENDRINO_DEFINISCI_RITIRA(tipo, prima, dopo)                                     \
  void ritira_##prima##bianco##dopo(uint64_t mossa) { RitiraTipo<BIANCO, tipo>(mossa); } \
  void ritira_##prima##nero##dopo(uint64_t mossa) { RitiraTipo<NERO, tipo>(mossa); }
PENDRINO_TIPI_MOSSA(PENDRINO_DEFINISCI_RITIRA)
#undef PENDRINO_DEFINISCI_RITIRA
