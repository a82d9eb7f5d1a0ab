// Make-move. Each family is written once as a template over the colour and
// the move type; every named function below is one instance of it, straight
// code with the piece kinds fixed at compile time.
#include "moves/fai.h"

#include "board/arrocco.h"
#include "board/attacchi.h"
#include "board/geometria.h"
#include "board/liste.h"
#include "board/mossa.h"
#include "board/posizione.h"
#include "moves/lato.h"

namespace {

constexpr uint64_t AZZERA_PER_MOSSA = CAMPI_SCACCO | PERMESSO_ENPASSANT;
constexpr uint64_t AZZERA_CON_SEMIMOSSE = AZZERA_PER_MOSSA | MASCHERA_SEMIMOSSE;

// The half-move clock stops at 127 rather than carry into the castling bits.
SEMPRE_IN_LINEA uint64_t Semimossa(uint64_t info) {
  return ((Semimosse(info) + 1) >> BIT_SEMIMOSSE) ^ 1;
}

// Pin test: does an enemy slider reach the king of C along the line through
// the vacated origin? `occ` is the new occupancy; a captured piece on `presa`
// no longer counts. Lines through other squares are not looked at: the
// generator only offers moves that answer a check.
template <Colore C>
SEMPRE_IN_LINEA bool ReEsposto(uint64_t O, uint64_t occ, uint64_t presa) {
  constexpr Colore N = ~C;
  const uint64_t K = casa_re[C];
  if (!(MascheraMobilita_donna_in[K] & O)) return false;
  if (MascheraMobilita_alfiere_in[K] & O)
    return AttacchiAlfiere(K, occ) & (btm_pezzi[N][ALFIERE] | btm_pezzi[N][DONNA]) & ~presa;
  return AttacchiTorre(K, occ) & (btm_pezzi[N][TORRE] | btm_pezzi[N][DONNA]) & ~presa;
}

// The square of a piece of kind K just arrived on d that attacks the enemy
// king E, or 64.
template <Colore C, int K>
SEMPRE_IN_LINEA uint64_t ScaccoDiretto(uint64_t E, uint64_t d, uint64_t D, uint64_t occ) {
  bool scacco;
  if constexpr (K == PEDONE)
    scacco = MscBersagliPedone_da[~C][E] & D;
  else if constexpr (K == CAVALLO)
    scacco = MascheraMobilita_cavallo_in[E] & D;
  else if constexpr (K == RE)
    return NESSUNA_CASA;
  else {
    const uint64_t* const linee = K == ALFIERE ? BitmapTraiettorieDiagonaliDa
                                  : K == TORRE ? BitmapTraiettorieDritteDa
                                               : BitmapTraiettorieDa;
    scacco = (linee[E] & D) && !(btm_InMezzo[d][E] & occ);
  }
  return scacco ? d : NESSUNA_CASA;
}

// A check uncovered by vacating the origin: the lowest slider of C that now
// reaches E along a line through O, or 64. A slider that moved cannot uncover
// a check along its own kind of line (it would have been giving it), so a
// bishop looks only along straight lines, a rook only along diagonals, and a
// queen nowhere. A promoted piece is left out: it gives its own direct check
// and is never counted twice.
template <Colore C, int Arrivo, bool Promozione>
SEMPRE_IN_LINEA uint64_t ScaccoScoperto(uint64_t E, uint64_t O, uint64_t D, uint64_t occ) {
  if constexpr (Arrivo == DONNA && !Promozione) {
    return NESSUNA_CASA;
  } else {
    constexpr bool Dritte = Promozione || Arrivo != TORRE;
    constexpr bool Diagonali = Promozione || Arrivo != ALFIERE;
    const uint64_t* const maschera = !Dritte      ? MascheraMobilita_alfiere_in
                                     : !Diagonali ? MascheraMobilita_torre_in
                                                  : MascheraMobilita_donna_in;
    if (!(maschera[E] & O)) return NESSUNA_CASA;
    uint64_t da;
    if (Dritte && (!Diagonali || (MascheraMobilita_torre_in[E] & O)))
      da = AttacchiTorre(E, occ) & (btm_pezzi[C][TORRE] | btm_pezzi[C][DONNA]);
    else
      da = AttacchiAlfiere(E, occ) & (btm_pezzi[C][ALFIERE] | btm_pezzi[C][DONNA]);
    if constexpr (Promozione) da &= ~D;
    return da ? PrimaCasa(da) : NESSUNA_CASA;
  }
}

// Castling rights of side S taken away by a move from or onto square s.
template <Colore S>
SEMPRE_IN_LINEA uint64_t DirittiDellaCasa(uint64_t s) {
  return (s == Lato<S>::AngoloCorto ? Lato<S>::DirittoCorto : 0) |
         (s == Lato<S>::AngoloLungo ? Lato<S>::DirittoLungo : 0);
}

SEMPRE_IN_LINEA int Registra(uint64_t mossa, uint64_t info, uint64_t chiave) {
  InfoPosizione = info;
  ChiaveHash ^= chiave;
  ElencoMosse[++ContatoreMosse] = mossa;
  return 1;
}

// Every move but castling and en passant: steps, double steps, piece moves,
// king moves, captures and promotions.
template <Colore C, uint64_t T>
SEMPRE_IN_LINEA int FaiMossa(uint64_t mossa) {
  constexpr DescrizioneTipo Tipo = Descrivi(T);
  constexpr int M = Tipo.pezzo, X = Tipo.preso, P = Tipo.promosso;
  constexpr bool Cattura = X != NESSUNO, Promozione = P != NESSUNO;
  constexpr int Arrivo = Promozione ? P : M;  // the kind that stands on d afterwards
  constexpr Colore N = ~C;
  using L = Lato<C>;

  const uint64_t o = OrigineMossa(mossa), d = DestinazioneMossa(mossa);
  const uint64_t O = 1ull << o, D = 1ull << d;
  const uint64_t occ = btm_occupazione ^ (Cattura ? O : O | D);

  if constexpr (M == RE) {
    // The attack test reads the globals: the king leaves its square first,
    // so that a slider sees through it, and a captured piece is gone.
    btm_occupazione = occ;
    if constexpr (Cattura) btm_pezzi[N][X] ^= D;
    if (attaccano_pezzi<N>(d)) {
      btm_occupazione ^= Cattura ? O : O | D;
      if constexpr (Cattura) btm_pezzi[N][X] ^= D;
      return 0;
    }
  } else {
    if (ReEsposto<C>(O, occ, Cattura ? D : 0)) return 0;
    btm_occupazione = occ;
    if constexpr (Cattura) btm_pezzi[N][X] ^= D;
  }

  btm_colore[C] ^= O | D;
  if constexpr (Cattura) btm_colore[N] ^= D;
  if constexpr (Promozione) {
    btm_pezzi[C][PEDONE] ^= O;
    btm_pezzi[C][P] ^= D;
  } else if constexpr (M != RE) {
    btm_pezzi[C][M] ^= O | D;
  }

  uint64_t chiave = 0, chiave_pedoni = 0;
  if constexpr (Cattura) {
    TogliDallaLista<N, X>(d);
    chiave = hash_in[N][X][d];
    if constexpr (X == PEDONE) chiave_pedoni = chiave;
  }
  if constexpr (M == RE) {
    SpostaPezzo<C, RE>(o, d);
    chiave ^= hash_in[C][RE][o] ^ hash_in[C][RE][d];
  } else if constexpr (Promozione) {
    TogliDallaLista<C, PEDONE>(o);
    PezzoIn[o] = CASA_VUOTA;
    AggiungiAllaLista<C, P>(d);
    chiave ^= hash_in[C][PEDONE][o] ^ hash_in[C][P][d];
    chiave_pedoni ^= hash_in[C][PEDONE][o];
  } else {
    SpostaPezzo<C, M>(o, d);
    uint64_t passo;
    if constexpr (M == PEDONE && !Cattura)
      passo = Tipo.doppio ? HashSpostaPedone2In[d] : HashSpostaPedone_in[C][d];
    else
      passo = hash_in[C][M][o] ^ hash_in[C][M][d];
    chiave ^= passo;
    if constexpr (M == PEDONE) chiave_pedoni ^= passo;
  }

  uint64_t info = InfoPosizione;
  // The permission the last move gave expires with any move.
  chiave ^= ChiavePermessoEnpassant(info);
  if constexpr (Cattura || M == PEDONE)
    info &= ~AZZERA_CON_SEMIMOSSE;
  else
    info = (info & ~AZZERA_PER_MOSSA) + Semimossa(info);

  if constexpr (M == RE || M == TORRE || X == TORRE) {
    uint64_t persi = 0;
    if constexpr (M == RE) persi |= L::Diritti;
    if constexpr (M == TORRE) persi |= DirittiDellaCasa<C>(o);
    if constexpr (X == TORRE) persi |= DirittiDellaCasa<N>(d);
    persi &= info;
    chiave ^= ChiaveDiritti(persi);
    info ^= persi;
  }
  if constexpr (Tipo.doppio) {
    // Permission only when an enemy pawn really stands beside the arrival.
    if (btm_pezzi[N][PEDONE] & MscBersagliPedone_da[C][o + L::Su]) {
      chiave ^= HashPermessoEnpassantIn[d];
      info |= PERMESSO_ENPASSANT;
    }
  }

  const uint64_t E = casa_re[N];
  info |= ScaccoDiretto<C, Arrivo>(E, d, D, occ) << SHIFT_PRIMO_SCACCO;
  info |= ScaccoScoperto<C, Arrivo, Promozione>(E, O, D, occ) << SHIFT_SECONDO_SCACCO;
  if constexpr (M == PEDONE || X == PEDONE) HashPedoni ^= chiave_pedoni;
  return Registra(mossa, info, chiave);
}

template <Colore C>
SEMPRE_IN_LINEA int FaiEnpassant(uint64_t mossa) {
  constexpr Colore N = ~C;
  const uint64_t o = OrigineMossa(mossa), d = DestinazioneMossa(mossa);
  const uint64_t p = d - Lato<C>::Su;  // the captured pawn, one step behind d
  const uint64_t O = 1ull << o, D = 1ull << d, Pp = 1ull << p;
  const uint64_t occ = btm_occupazione ^ (O | D | Pp);
  if (ReEsposto<C>(O, occ, 0)) return 0;

  btm_occupazione = occ;
  btm_colore[C] ^= O | D;
  btm_pezzi[C][PEDONE] ^= O | D;
  btm_colore[N] ^= Pp;
  btm_pezzi[N][PEDONE] ^= Pp;
  TogliDallaLista<N, PEDONE>(p);
  PezzoIn[p] = CASA_VUOTA;
  SpostaPezzo<C, PEDONE>(o, d);

  const uint64_t chiave_pedoni = HashCatturaEnpassantIn[p] ^ hash_in[C][PEDONE][o];
  HashPedoni ^= chiave_pedoni;
  uint64_t info = InfoPosizione;
  const uint64_t chiave = chiave_pedoni ^ ChiaveUltimoDoppioPasso();
  info &= ~AZZERA_CON_SEMIMOSSE;

  // The capturing pawn checks directly; otherwise the captured pawn may have
  // blocked a diagonal of the enemy king (its rank and file are covered by
  // the origin and by the arrival). The origin's lines give the second field.
  const uint64_t E = casa_re[N];
  uint64_t primo = NESSUNA_CASA;
  if (MscBersagliPedone_da[N][E] & D) {
    primo = d;
  } else if (MascheraMobilita_alfiere_in[E] & Pp) {
    const uint64_t da = AttacchiAlfiere(E, occ) & (btm_pezzi[C][ALFIERE] | btm_pezzi[C][DONNA]);
    if (da) primo = PrimaCasa(da);
  }
  info |= primo << SHIFT_PRIMO_SCACCO;
  info |= ScaccoScoperto<C, PEDONE, false>(E, O, D, occ) << SHIFT_SECONDO_SCACCO;
  return Registra(mossa, info, chiave);
}

// Castling trusts the generator for the rights and for not being in check;
// it tests only the empty path and the two squares the king crosses and
// reaches. A king or rook missing from its home square (rights given by a
// text without them) refuses the move rather than damage the lists.
template <Colore C, bool Lungo>
SEMPRE_IN_LINEA int FaiArrocco(uint64_t mossa) {
  using L = Lato<C>;
  constexpr Colore N = ~C;
  constexpr Arrocco A = Arrocchi[C][Lungo];
  constexpr uint64_t MascheraTorre = (1ull << A.torre) | (1ull << A.torre_arrivo);
  constexpr uint64_t MascheraTutti = MascheraTorre | (1ull << A.re) | (1ull << A.re_arrivo);

  if (btm_occupazione & ViaArrocco(A)) return 0;
  if (attaccano_pezzi<N>(A.torre_arrivo)) return 0;
  if (attaccano_pezzi<N>(A.re_arrivo)) return 0;
  if (PezzoIn[A.re] != L::CodiceRe || CodiceSenzaSlot(PezzoIn[A.torre]) != L::CodiceTorre) return 0;

  btm_occupazione ^= MascheraTutti;
  btm_colore[C] ^= MascheraTutti;
  btm_pezzi[C][TORRE] ^= MascheraTorre;
  SpostaPezzo<C, RE>(A.re, A.re_arrivo);
  SpostaPezzo<C, TORRE>(A.torre, A.torre_arrivo);

  uint64_t info = InfoPosizione;
  uint64_t chiave;
  // Queen-side castling leaves the keys of the rights it clears in the hash.
  if constexpr (Lungo)
    chiave = (info & L::DirittoLungo) ? L::HashPezziLungo : L::HashPezziLungo ^ L::HashDirittoLungo;
  else
    chiave = (info & L::DirittoLungo)
                 ? L::HashPezziCorto ^ L::HashDirittoCorto ^ L::HashDirittoLungo
                 : L::HashPezziCorto ^ L::HashDirittoCorto;
  chiave ^= ChiavePermessoEnpassant(info);
  info = (info & ~(AZZERA_PER_MOSSA | L::Diritti)) + Semimossa(info);

  // Only the rook can give check; it goes into the second field.
  const uint64_t E = casa_re[N];
  const bool scacco = (BitmapTraiettorieDritteDa[E] & (1ull << A.torre_arrivo)) &&
                      !(btm_InMezzo[A.torre_arrivo][E] & btm_occupazione);
  info |= PRIMO_SENZA_SCACCO | ((scacco ? A.torre_arrivo : NESSUNA_CASA) << SHIFT_SECONDO_SCACCO);
  return Registra(mossa, info, chiave);
}

static_assert((Lato<BIANCO>::HashPezziCorto ^ HASH_ARROCCHI_BIANCO) == 0xbec916e6ad77e2ccull);
static_assert((Lato<BIANCO>::HashPezziCorto ^ HASH_ARROCCO_CORTO_BIANCO) == 0xb05e9d9ae04f38abull);
static_assert((Lato<BIANCO>::HashPezziLungo ^ HASH_ARROCCO_LUNGO_BIANCO) == 0x7303431b72fdf107ull);
static_assert((Lato<NERO>::HashPezziCorto ^ HASH_ARROCCHI_NERO) == 0x311d1424d4d4b7feull);
static_assert((Lato<NERO>::HashPezziCorto ^ HASH_ARROCCO_CORTO_NERO) == 0x5e9a0aaa25d08406ull);
static_assert((Lato<NERO>::HashPezziLungo ^ HASH_ARROCCO_LUNGO_NERO) == 0xbe989c5db01fe0b8ull);

template <Colore C, uint64_t T>
SEMPRE_IN_LINEA int FaiTipo(uint64_t mossa) {
  if constexpr (T == ARROCCO_CORTO || T == ARROCCO_LUNGO)
    return FaiArrocco<C, T == ARROCCO_LUNGO>(mossa);
  else if constexpr (T == CATTURA_ENPASSANT)
    return FaiEnpassant<C>(mossa);
  else
    return FaiMossa<C, T>(mossa);
}

}  // namespace

#define PENDRINO_DEFINISCI_FAI(tipo, prima, dopo)                                        \
  int fai_##prima##bianco##dopo(uint64_t mossa) { return FaiTipo<BIANCO, tipo>(mossa); } \
  int fai_##prima##nero##dopo(uint64_t mossa) { return FaiTipo<NERO, tipo>(mossa); }
PENDRINO_TIPI_MOSSA(PENDRINO_DEFINISCI_FAI)
#undef PENDRINO_DEFINISCI_FAI
