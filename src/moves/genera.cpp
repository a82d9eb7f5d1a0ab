// The move generators of either colour and kind in one body. Every target
// set is emitted in ascending square order.
#include "moves/genera.h"

#include "board/geometria.h"
#include "board/mossa.h"
#include "board/posizione.h"
#include "moves/lato.h"

namespace {

enum Genere { TUTTE, TATTICHE, NONCATTURE };
template <Genere G>
constexpr bool ConCatture = G != NONCATTURE;  // captures, en passant, promotions
template <Genere G>
constexpr bool ConQuiete = G != TATTICHE;

constexpr uint64_t Tipo(uint64_t t) { return t << 12; }
// Type of a capture: the mover's base plus the captured kind.
SEMPRE_IN_LINEA uint64_t TipoCattura(uint64_t base, uint64_t d) {
  return Tipo(base + TipoDelCodice(PezzoIn[d]));
}

// From one origin to every target.
SEMPRE_IN_LINEA uint64_t* Quiete(uint64_t* l, uint64_t o, uint64_t bersagli, uint64_t tipo) {
  for (; bersagli; bersagli &= bersagli - 1) *l++ = o | (PrimaCasa(bersagli) << 6) | Tipo(tipo);
  return l;
}
SEMPRE_IN_LINEA uint64_t* Catture(uint64_t* l, uint64_t o, uint64_t bersagli, uint64_t base) {
  for (; bersagli; bersagli &= bersagli - 1) {
    const uint64_t d = PrimaCasa(bersagli);
    *l++ = o | (d << 6) | TipoCattura(base, d);
  }
  return l;
}
// From every origin to one square.
SEMPRE_IN_LINEA uint64_t* Verso(uint64_t* l, uint64_t origini, uint64_t d, uint64_t parola) {
  for (; origini; origini &= origini - 1) *l++ = PrimaCasa(origini) | (d << 6) | parola;
  return l;
}

// The four promotions of one pawn move, queen first; `preso` is the captured kind or 0.
SEMPRE_IN_LINEA uint64_t* Promozioni(uint64_t* l, uint64_t o, uint64_t d, uint64_t preso) {
  const uint64_t base = o | (d << 6);
  l[0] = base | Tipo(PROMOZIONE_DONNA + preso);
  l[1] = base | Tipo(PROMOZIONE_TORRE + preso);
  l[2] = base | Tipo(PROMOZIONE_ALFIERE + preso);
  l[3] = base | Tipo(PROMOZIONE_CAVALLO + preso);
  return l + 4;
}

// Pawn moves given by their arrivals, each from d - S.
template <int S>
SEMPRE_IN_LINEA uint64_t* PassiPedone(uint64_t* l, uint64_t arrivi, uint64_t tipo) {
  for (; arrivi; arrivi &= arrivi - 1) {
    const uint64_t d = PrimaCasa(arrivi);
    *l++ = (d - S) | (d << 6) | Tipo(tipo);
  }
  return l;
}
template <int S>
SEMPRE_IN_LINEA uint64_t* PromozioniPedone(uint64_t* l, uint64_t arrivi) {
  for (; arrivi; arrivi &= arrivi - 1) {
    const uint64_t d = PrimaCasa(arrivi);
    l = Promozioni(l, d - S, d, 0);
  }
  return l;
}
// Captures in one direction: those onto the last rank as promotions first.
template <int S>
SEMPRE_IN_LINEA uint64_t* CatturePedone(uint64_t* l, uint64_t arrivi, uint64_t promozione) {
  for (uint64_t b = arrivi & promozione; b; b &= b - 1) {
    const uint64_t d = PrimaCasa(b);
    l = Promozioni(l, d - S, d, TipoDelCodice(PezzoIn[d]));
  }
  for (uint64_t b = arrivi & ~promozione; b; b &= b - 1) {
    const uint64_t d = PrimaCasa(b);
    *l++ = (d - S) | (d << 6) | TipoCattura(PEDONE_CATTURA, d);
  }
  return l;
}

// The target of en passant lies behind the pawn that has just double-stepped.
template <Colore C>
SEMPRE_IN_LINEA uint64_t* EnPassant(uint64_t* l) {
  const uint64_t bersaglio = (OrigineMossa(ElencoMosse[ContatoreMosse]) - Lato<C>::Su) & 63;
  const uint64_t da = btm_pezzi[C][PEDONE] & MscBersagliPedone_da[~C][bersaglio];
  return Verso(l, da, bersaglio, Tipo(CATTURA_ENPASSANT));
}

template <int K>
SEMPRE_IN_LINEA uint64_t AttacchiDi(uint64_t s, uint64_t occ) {
  if constexpr (K == CAVALLO)
    return MascheraMobilita_cavallo_in[s];
  else if constexpr (K == ALFIERE)
    return AttacchiAlfiere(s, occ);
  else if constexpr (K == TORRE)
    return AttacchiTorre(s, occ);
  else
    return AttacchiAlfiere(s, occ) | AttacchiTorre(s, occ);
}

// Each piece of kind K in slot order: its captures onto `prede`, then its
// quiet moves onto `libere`.
template <Colore C, Genere G, int K>
SEMPRE_IN_LINEA uint64_t* MossePezzi(uint64_t* l, uint64_t occ, uint64_t prede, uint64_t libere) {
  const uint64_t* const lista = casa_di<TipoPezzo(K)>(C);
  const uint64_t n = NumeroPezzi(materiale[C], K);
  for (uint64_t j = 0; j < n; ++j) {
    const uint64_t s = lista[j];
    const uint64_t a = AttacchiDi<K>(s, occ);
    if constexpr (ConCatture<G>) l = Catture(l, s, a & prede, PEDONE_CATTURA + 5 * K);
    if constexpr (ConQuiete<G>) l = Quiete(l, s, a & libere, SPOSTA_PEDONE + K);
  }
  return l;
}
template <Colore C, Genere G>
SEMPRE_IN_LINEA uint64_t* MosseDeiPezzi(uint64_t* l, uint64_t occ, uint64_t prede,
                                        uint64_t libere) {
  l = MossePezzi<C, G, CAVALLO>(l, occ, prede, libere);
  l = MossePezzi<C, G, ALFIERE>(l, occ, prede, libere);
  l = MossePezzi<C, G, TORRE>(l, occ, prede, libere);
  return MossePezzi<C, G, DONNA>(l, occ, prede, libere);
}

template <Colore C, Genere G>
uint64_t* Genera(uint64_t* l) {
  using L = Lato<C>;
  constexpr Colore N = ~C;
  const uint64_t info = InfoPosizione;
  const uint64_t K = casa_re[C];
  const uint64_t occ = btm_occupazione;
  const uint64_t libere = ~occ;
  // The enemy king is never a target: nothing attacks it in a sound position.
  const uint64_t nemici = btm_colore[N] & ~(1ull << casa_re[N]);
  const uint64_t P = btm_pezzi[C][PEDONE];
  const uint64_t passi = Sposta<L::Su>(P) & libere;
  const uint64_t doppi = Sposta<L::Su>(passi) & libere & L::TraversaDoppioPasso;

  if (info >= NESSUNO_SCACCO) {
    if constexpr (ConCatture<G>) l = PromozioniPedone<L::Su>(l, passi & L::TraversaPromozione);
    if constexpr (ConQuiete<G>) {
      l = PassiPedone<L::Su>(l, passi & ~L::TraversaPromozione, SPOSTA_PEDONE);
      l = PassiPedone<2 * L::Su>(l, doppi, PEDONE_AVANZA2);
    }
    if constexpr (ConCatture<G>) {
      if (info & PERMESSO_ENPASSANT) l = EnPassant<C>(l);
      l = CatturePedone<L::LatoA>(l, Sposta<L::LatoA>(P & NON_COLONNA_A) & nemici,
                                  L::TraversaPromozione);
      l = CatturePedone<L::LatoH>(l, Sposta<L::LatoH>(P & NON_COLONNA_H) & nemici,
                                  L::TraversaPromozione);
    }
    l = MosseDeiPezzi<C, G>(l, occ, nemici, libere);
    if constexpr (ConQuiete<G>) {
      if (info & L::DirittoCorto) *l++ = L::MossaCorto;
      if (info & L::DirittoLungo) *l++ = L::MossaLungo;
    }
  } else if (info & (PRIMO_SENZA_SCACCO | SECONDO_SENZA_SCACCO)) {
    // Single check, in whichever field: capture the checker X or, against a
    // distant slider, step between it and the king.
    const uint64_t X = (info & PRIMO_SENZA_SCACCO) ? SecondoScacco(info) : PrimoScacco(info);
    const uint64_t in_mezzo = btm_InMezzo[K][X];
    if (in_mezzo) {
      if constexpr (ConQuiete<G>) l = PassiPedone<2 * L::Su>(l, doppi & in_mezzo, PEDONE_AVANZA2);
      if constexpr (ConCatture<G>)
        l = PromozioniPedone<L::Su>(l, passi & in_mezzo & L::TraversaPromozione);
      if constexpr (ConQuiete<G>)
        l = PassiPedone<L::Su>(l, passi & in_mezzo & ~L::TraversaPromozione, SPOSTA_PEDONE);
    }
    if constexpr (ConCatture<G>) {
      // Only the checker recorded in the first field can be the pawn that
      // has just double-stepped.
      if ((info & PERMESSO_ENPASSANT) &&
          DestinazioneMossa(ElencoMosse[ContatoreMosse]) == PrimoScacco(info))
        l = EnPassant<C>(l);
      const uint64_t pedoni = MscBersagliPedone_da[N][X] & P;
      if ((1ull << X) & L::TraversaPromozione) {
        for (uint64_t b = pedoni; b; b &= b - 1)
          l = Promozioni(l, PrimaCasa(b), X, TipoDelCodice(PezzoIn[X]));
      } else {
        l = Verso(l, pedoni, X, TipoCattura(PEDONE_CATTURA, X));
      }
    }
    if (in_mezzo) {
      l = MosseDeiPezzi<C, G>(l, occ, 1ull << X, in_mezzo);
    } else if constexpr (ConCatture<G>) {
      const uint64_t diagonali = AttacchiAlfiere(X, occ), dritte = AttacchiTorre(X, occ);
      l = Verso(l, MascheraMobilita_cavallo_in[X] & btm_pezzi[C][CAVALLO], X,
                TipoCattura(CAVALLO_CATTURA, X));
      l = Verso(l, diagonali & btm_pezzi[C][ALFIERE], X, TipoCattura(ALFIERE_CATTURA, X));
      l = Verso(l, dritte & btm_pezzi[C][TORRE], X, TipoCattura(TORRE_CATTURA, X));
      l = Verso(l, (diagonali | dritte) & btm_pezzi[C][DONNA], X, TipoCattura(DONNA_CATTURA, X));
    }
  }
  // King steps in every state, double check included.
  const uint64_t re = MascheraMobilita_re_in[K];
  if constexpr (ConCatture<G>) l = Catture(l, K, re & nemici, RE_CATTURA);
  if constexpr (ConQuiete<G>) l = Quiete(l, K, re & libere, SPOSTA_RE);
  return l;
}

}  // namespace

uint64_t* genera_TutteLeMosse_del_bianco(uint64_t* inizio) { return Genera<BIANCO, TUTTE>(inizio); }
uint64_t* genera_TutteLeMosse_del_nero(uint64_t* inizio) { return Genera<NERO, TUTTE>(inizio); }
uint64_t* genera_MosseTattiche_del_bianco(uint64_t* inizio) {
  return Genera<BIANCO, TATTICHE>(inizio);
}
uint64_t* genera_MosseTattiche_del_nero(uint64_t* inizio) { return Genera<NERO, TATTICHE>(inizio); }
uint64_t* genera_noncatture_del_bianco(uint64_t* inizio) {
  return Genera<BIANCO, NONCATTURE>(inizio);
}
uint64_t* genera_noncatture_del_nero(uint64_t* inizio) { return Genera<NERO, NONCATTURE>(inizio); }

uint64_t BufferMosseGenerate[DIMENSIONE_BUFFER_MOSSE];
uint64_t* FineMosseGenerate = BufferMosseGenerate;
