// The counter's legal move generator and walk, written once for both
// colours: checks and pins are found from the king's square, then every
// piece's legal targets are handed as one set to a visitor, which either
// counts them (the last ply) or makes each move on a copy of the board and
// walks on.
//
// Everything here has internal linkage: each source that includes this header
// compiles its own copy of the walk, with its own processor options, and
// publishes it as one Cammino (cammino.h).
#pragma once

#include <atomic>
#include <cstdint>

#include "board/arrocco.h"
#include "board/geometria.h"
#include "board/mossa.h"
#include "board/posizione.h"
#include "board/tabella64.h"
#include "conteggio/cammino.h"
#include "conteggio/conteggio.h"
#include "moves/lato.h"

namespace conteggio {
namespace {

// The builtin rather than std::popcount: no function of vague linkage may
// differ between the copies (one built with the instruction, one without).
SEMPRE_IN_LINEA uint64_t ContaBit(uint64_t b) { return uint64_t(__builtin_popcountll(b)); }

constexpr uint64_t Bit(uint64_t casa) { return 1ull << casa; }

// The rights that survive a move from or to a square: a king or a rook
// leaving home, or a rook taken there.
constexpr uint64_t DirittiRestano(int casa) {
  uint64_t diritti = MASCHERA_DIRITTI;
  for (const Colore c : {BIANCO, NERO})
    for (const bool lungo : {false, true}) {
      const Arrocco& a = Arrocchi[c][lungo];
      if (uint64_t(casa) == a.re || uint64_t(casa) == a.torre) diritti &= ~DirittoArrocco(c, lungo);
    }
  return diritti;
}
constexpr uint64_t RestanoDiritti[64] = {TABELLA64(DirittiRestano)};

// How a set of pawn arrivals was reached.
enum PassoPedone { PASSO, DOPPIO, CATTURA, PROMOZIONE };

// ---------------------------------------------------------------------------
// Making a move on a copy. A capture takes whatever stood on the destination
// off the board (the generator never targets a king) with the castling right
// of a rook taken at home; a king or a rook leaving home loses its own.
template <Colore C, int K, bool PRESA, int Arrivo = K>
SEMPRE_IN_LINEA TavolaConteggio Muovi(const TavolaConteggio& t, uint64_t o, uint64_t d) {
  TavolaConteggio f = t;
  const uint64_t da = Bit(o), a = Bit(d);
  if constexpr (PRESA) {
    for (int k = PEDONE; k <= DONNA; ++k) f.pezzi[k] &= ~a;
    f.colore[~C] &= ~a;
    f.diritti &= RestanoDiritti[d];
  }
  if constexpr (K == TORRE || K == RE) f.diritti &= RestanoDiritti[o];
  f.pezzi[K] ^= da;
  f.pezzi[Arrivo] ^= a;
  f.colore[C] ^= da | a;
  f.enpassant = 0;
  return f;
}

// A double step allows en passant only when an enemy pawn stands beside.
template <Colore C>
SEMPRE_IN_LINEA TavolaConteggio Doppio(const TavolaConteggio& t, uint64_t o, uint64_t d) {
  TavolaConteggio f = t;
  const uint64_t da_a = Bit(o) | Bit(d), salto = d - Lato<C>::Su;
  f.pezzi[PEDONE] ^= da_a;
  f.colore[C] ^= da_a;
  f.enpassant = (MscBersagliPedone_da[C][salto] & t.pezzi[PEDONE] & t.colore[~C]) ? salto : 0;
  return f;
}

template <Colore C>
SEMPRE_IN_LINEA TavolaConteggio EnPassant(const TavolaConteggio& t, uint64_t o, uint64_t d) {
  TavolaConteggio f = t;
  const uint64_t da_a = Bit(o) | Bit(d), preso = Bit(d - Lato<C>::Su);
  f.pezzi[PEDONE] ^= da_a | preso;
  f.colore[C] ^= da_a;
  f.colore[~C] ^= preso;
  f.enpassant = 0;
  return f;
}

template <Colore C, bool LUNGO>
SEMPRE_IN_LINEA TavolaConteggio Arrocca(const TavolaConteggio& t) {
  constexpr Arrocco a = Arrocchi[C][LUNGO];
  TavolaConteggio f = t;
  f.pezzi[RE] ^= Bit(a.re) | Bit(a.re_arrivo);
  f.pezzi[TORRE] ^= Bit(a.torre) | Bit(a.torre_arrivo);
  f.colore[C] ^= Bit(a.re) | Bit(a.re_arrivo) | Bit(a.torre) | Bit(a.torre_arrivo);
  f.diritti &= ~Lato<C>::Diritti;
  f.enpassant = 0;
  return f;
}

// ---------------------------------------------------------------------------
// The enemy pieces that can attack, by how they attack.
struct Nemici {
  uint64_t pedoni, cavalli, diagonali, dritti, re;
};

template <Colore C>
SEMPRE_IN_LINEA Nemici NemiciDi(const TavolaConteggio& t) {
  const uint64_t loro = t.colore[~C];
  return {t.pezzi[PEDONE] & loro, t.pezzi[CAVALLO] & loro,
          (t.pezzi[ALFIERE] | t.pezzi[DONNA]) & loro, (t.pezzi[TORRE] | t.pezzi[DONNA]) & loro,
          t.pezzi[RE] & loro};
}

// Whether a piece of colour ~C attacks `casa` on the occupancy `occ`. A
// slider's lookup only when one stands on a line through the square.
template <Colore C>
SEMPRE_IN_LINEA bool Attaccata(const Nemici& n, uint64_t casa, uint64_t occ) {
  return (MscBersagliPedone_da[C][casa] & n.pedoni) ||
         (MascheraMobilita_cavallo_in[casa] & n.cavalli) || (MascheraMobilita_re_in[casa] & n.re) ||
         ((BitmapTraiettorieDiagonaliDa[casa] & n.diagonali) &&
          (AttacchiAlfiere(casa, occ) & n.diagonali)) ||
         ((BitmapTraiettorieDritteDa[casa] & n.dritti) && (AttacchiTorre(casa, occ) & n.dritti));
}

// The enemy sliders seen from the king through nothing but enemy pieces: with
// no piece between they give check, with one (ours) they pin it, and the pin's
// ray (pinner included) joins `raggi`.
SEMPRE_IN_LINEA void Linee(uint64_t cecchini, uint64_t re, uint64_t occ, uint64_t& scacchi,
                           uint64_t& raggi) {
  for (; cecchini; cecchini &= cecchini - 1) {
    const uint64_t s = PrimaCasa(cecchini);
    const uint64_t tra = btm_InMezzo[re][s] & occ;
    if (!tra)
      scacchi |= Bit(s);
    else if (!(tra & (tra - 1)))
      raggi |= btm_InMezzo[re][s] | Bit(s);
  }
}

// The sliders of kind K: a pinned one moves along its own pin's ray only, and
// a bishop pinned along a line (or a rook along a diagonal) not at all. The
// rays of one kind of pin never cross the other moves of a piece pinned on
// another ray of that kind, so their union serves as the mask.
template <int K, class V>
SEMPRE_IN_LINEA void Scorrevoli(V& v, uint64_t pezzi, uint64_t occ, uint64_t mira,
                                uint64_t diagonali, uint64_t dritti) {
  for (uint64_t b = pezzi & ~(diagonali | dritti); b; b &= b - 1) {
    const uint64_t s = PrimaCasa(b);
    uint64_t a;
    if constexpr (K == ALFIERE)
      a = AttacchiAlfiere(s, occ);
    else if constexpr (K == TORRE)
      a = AttacchiTorre(s, occ);
    else
      a = AttacchiAlfiere(s, occ) | AttacchiTorre(s, occ);
    v.template Pezzo<K>(s, a & mira);
  }
  if constexpr (K != TORRE)
    for (uint64_t b = pezzi & diagonali; b; b &= b - 1) {
      const uint64_t s = PrimaCasa(b);
      v.template Pezzo<K>(s, AttacchiAlfiere(s, occ) & mira & diagonali);
    }
  if constexpr (K != ALFIERE)
    for (uint64_t b = pezzi & dritti; b; b &= b - 1) {
      const uint64_t s = PrimaCasa(b);
      v.template Pezzo<K>(s, AttacchiTorre(s, occ) & mira & dritti);
    }
}

// Every legal move of colour C, in this order: pawn moves (promotions by a
// step first), knights, bishops, rooks, queens, castling, king steps.
template <Colore C, class V>
SEMPRE_IN_LINEA void Genera(const TavolaConteggio& t, V& v) {
  using L = Lato<C>;
  const uint64_t noi = t.colore[C], occ = noi | t.colore[~C];
  const uint64_t re = PrimaCasa(t.pezzi[RE] & noi);
  const Nemici n = NemiciDi<C>(t);

  uint64_t scacchi =
      (MscBersagliPedone_da[C][re] & n.pedoni) | (MascheraMobilita_cavallo_in[re] & n.cavalli);
  uint64_t diagonali = 0, dritti = 0;  // the rays of the pins
  // The lookups only when some slider stands on one of the king's lines.
  if (BitmapTraiettorieDiagonaliDa[re] & n.diagonali)
    Linee(AttacchiAlfiere(re, t.colore[~C]) & n.diagonali, re, occ, scacchi, diagonali);
  if (BitmapTraiettorieDritteDa[re] & n.dritti)
    Linee(AttacchiTorre(re, t.colore[~C]) & n.dritti, re, occ, scacchi, dritti);

  if (!(scacchi & (scacchi - 1))) {
    // Out of check anywhere but the enemy king; in check, onto the checker or between.
    const uint64_t mira =
        scacchi ? btm_InMezzo[re][PrimaCasa(scacchi)] | scacchi : ~(noi | t.pezzi[RE]);
    const uint64_t prede = t.colore[~C] & mira;
    const uint64_t vuote = ~occ;

    // Pawns. A pawn pinned on a diagonal never steps; one pinned on a line
    // never captures.
    const uint64_t P = t.pezzi[PEDONE] & noi;
    const uint64_t liberi = P & ~(diagonali | dritti);
    uint64_t passi = Sposta<L::Su>(liberi) & vuote;
    uint64_t doppi = Sposta<L::Su>(passi) & vuote & L::TraversaDoppioPasso;
    if (P & dritti) {
      const uint64_t passi_inchiodati = Sposta<L::Su>(P & dritti) & vuote & dritti;
      passi |= passi_inchiodati;
      doppi |= Sposta<L::Su>(passi_inchiodati) & vuote & dritti & L::TraversaDoppioPasso;
    }
    passi &= mira;
    v.template Pedoni<L::Su, PROMOZIONE>(passi & L::TraversaPromozione);
    v.template Pedoni<L::Su, PASSO>(passi & ~L::TraversaPromozione);
    v.template Pedoni<2 * L::Su, DOPPIO>(doppi & mira);

    uint64_t verso_a = Sposta<L::LatoA>(liberi & NON_COLONNA_A) & prede;
    uint64_t verso_h = Sposta<L::LatoH>(liberi & NON_COLONNA_H) & prede;
    if (P & diagonali) {
      verso_a |= Sposta<L::LatoA>(P & diagonali & NON_COLONNA_A) & prede & diagonali;
      verso_h |= Sposta<L::LatoH>(P & diagonali & NON_COLONNA_H) & prede & diagonali;
    }
    v.template Pedoni<L::LatoA, PROMOZIONE>(verso_a & L::TraversaPromozione);
    v.template Pedoni<L::LatoA, CATTURA>(verso_a & ~L::TraversaPromozione);
    v.template Pedoni<L::LatoH, PROMOZIONE>(verso_h & L::TraversaPromozione);
    v.template Pedoni<L::LatoH, CATTURA>(verso_h & ~L::TraversaPromozione);

    // En passant: the one move that takes two pieces off a line at once, so
    // the king is looked at on the board as it would be after it.
    if (t.enpassant) {
      const uint64_t e = t.enpassant, preso = Bit(e - L::Su);
      for (uint64_t b = P & MscBersagliPedone_da[~C][e]; b; b &= b - 1) {
        const uint64_t o = PrimaCasa(b);
        const uint64_t dopo = occ ^ Bit(o) ^ Bit(e) ^ preso;
        if (!(scacchi & ~preso & (n.pedoni | n.cavalli)) &&
            !(AttacchiAlfiere(re, dopo) & n.diagonali) && !(AttacchiTorre(re, dopo) & n.dritti))
          v.EnPassant(o, e);
      }
    }

    for (uint64_t b = t.pezzi[CAVALLO] & noi & ~(diagonali | dritti); b; b &= b - 1) {
      const uint64_t s = PrimaCasa(b);
      v.template Pezzo<CAVALLO>(s, MascheraMobilita_cavallo_in[s] & mira);
    }
    Scorrevoli<ALFIERE>(v, t.pezzi[ALFIERE] & noi, occ, mira, diagonali, dritti);
    Scorrevoli<TORRE>(v, t.pezzi[TORRE] & noi, occ, mira, diagonali, dritti);
    Scorrevoli<DONNA>(v, t.pezzi[DONNA] & noi, occ, mira, diagonali, dritti);

    if (!scacchi && (t.diritti & L::Diritti)) {
      if ((t.diritti & L::DirittoCorto) && !(occ & ViaArrocco(L::Corto)) &&
          !Attaccata<C>(n, L::Corto.re + 1, occ) && !Attaccata<C>(n, L::Corto.re_arrivo, occ))
        v.template Arrocco<false>();
      if ((t.diritti & L::DirittoLungo) && !(occ & ViaArrocco(L::Lungo)) &&
          !Attaccata<C>(n, L::Lungo.re - 1, occ) && !Attaccata<C>(n, L::Lungo.re_arrivo, occ))
        v.template Arrocco<true>();
    }
  }

  // The king, in every state: the squares it reaches, looked at without it
  // on the board so that a slider's ray goes on through its square.
  uint64_t rifugi = 0;
  const uint64_t senza_re = occ ^ Bit(re);
  for (uint64_t b = MascheraMobilita_re_in[re] & ~(noi | t.pezzi[RE]); b; b &= b - 1) {
    const uint64_t s = PrimaCasa(b);
    if (!Attaccata<C>(n, s, senza_re)) rifugi |= Bit(s);
  }
  v.template Pezzo<RE>(re, rifugi);
}

// ---------------------------------------------------------------------------
// The visitors.

// Counts the moves without making them.
struct Conta {
  uint64_t n = 0;
  template <int K>
  SEMPRE_IN_LINEA void Pezzo(uint64_t, uint64_t bersagli) {
    n += ContaBit(bersagli);
  }
  template <int S, PassoPedone P>
  SEMPRE_IN_LINEA void Pedoni(uint64_t arrivi) {
    n += ContaBit(arrivi) * (P == PROMOZIONE ? 4 : 1);
  }
  SEMPRE_IN_LINEA void EnPassant(uint64_t, uint64_t) { ++n; }
  template <bool LUNGO>
  SEMPRE_IN_LINEA void Arrocco() {
    ++n;
  }
};

// The last ply: its moves counted, none made. Out of line, so that each of
// the many places of its parent that reach it is a call.
template <Colore C>
[[gnu::noinline]] uint64_t ContaUltimo(const TavolaConteggio& t) {
  Conta c;
  Genera<C>(t, c);
  return c.n;
}

// Makes every move on a copy and hands it to `figlio(copy, move word)`,
// summing what it returns. The move word carries the mover's quiet type; a
// caller that wants it exact adds the captured piece (ParolaEsatta).
template <Colore C, class Figlio>
struct Scendi {
  const TavolaConteggio& t;
  Figlio figlio;
  uint64_t n = 0;

  // Captures first, then quiet moves.
  template <int K>
  SEMPRE_IN_LINEA void Pezzo(uint64_t o, uint64_t bersagli) {
    for (uint64_t b = bersagli & t.colore[~C]; b; b &= b - 1) {
      const uint64_t d = PrimaCasa(b);
      n += figlio(Muovi<C, K, true>(t, o, d), Mossa(o, d, SPOSTA_PEDONE + K));
    }
    for (uint64_t b = bersagli & ~t.colore[~C]; b; b &= b - 1) {
      const uint64_t d = PrimaCasa(b);
      n += figlio(Muovi<C, K, false>(t, o, d), Mossa(o, d, SPOSTA_PEDONE + K));
    }
  }
  template <int S, PassoPedone P>
  SEMPRE_IN_LINEA void Pedoni(uint64_t arrivi) {
    for (; arrivi; arrivi &= arrivi - 1) {
      const uint64_t d = PrimaCasa(arrivi), o = d - S;
      if constexpr (P == PROMOZIONE) {
        n += figlio(Muovi<C, PEDONE, true, DONNA>(t, o, d), Mossa(o, d, PROMOZIONE_DONNA));
        n += figlio(Muovi<C, PEDONE, true, TORRE>(t, o, d), Mossa(o, d, PROMOZIONE_TORRE));
        n += figlio(Muovi<C, PEDONE, true, ALFIERE>(t, o, d), Mossa(o, d, PROMOZIONE_ALFIERE));
        n += figlio(Muovi<C, PEDONE, true, CAVALLO>(t, o, d), Mossa(o, d, PROMOZIONE_CAVALLO));
      } else if constexpr (P == DOPPIO) {
        n += figlio(Doppio<C>(t, o, d), Mossa(o, d, PEDONE_AVANZA2));
      } else {
        n += figlio(Muovi<C, PEDONE, P == CATTURA>(t, o, d), Mossa(o, d, SPOSTA_PEDONE));
      }
    }
  }
  SEMPRE_IN_LINEA void EnPassant(uint64_t o, uint64_t d) {
    n += figlio(conteggio::EnPassant<C>(t, o, d), Mossa(o, d, CATTURA_ENPASSANT));
  }
  template <bool LUNGO>
  SEMPRE_IN_LINEA void Arrocco() {
    constexpr ::Arrocco a = Arrocchi[C][LUNGO];
    n += figlio(Arrocca<C, LUNGO>(t),
                Mossa(a.re, a.re_arrivo, LUNGO ? ARROCCO_LUNGO : ARROCCO_CORTO));
  }
};

// The move word of Scendi with the captured kind added, as the game's
// generator writes it: a capture's type is its mover's base plus the captured
// kind, a promotion's its new piece's plus the captured kind.
inline uint64_t ParolaEsatta(const TavolaConteggio& t, uint64_t mossa) {
  const uint64_t tipo = TipoMossa(mossa), d = Bit(DestinazioneMossa(mossa));
  if (!((t.colore[BIANCO] | t.colore[NERO]) & d)) return mossa;
  uint64_t preso = PEDONE;
  while (!(t.pezzi[preso] & d)) ++preso;
  if (tipo >= SPOSTA_PEDONE && tipo <= SPOSTA_RE)
    return Mossa(OrigineMossa(mossa), DestinazioneMossa(mossa),
                 PEDONE_CATTURA + 5 * (tipo - SPOSTA_PEDONE) + preso);
  return mossa + (preso << 12);  // a promotion
}

// ---------------------------------------------------------------------------
// Keys of the table: the board's Zobrist keys for pieces and rights, and keys
// of its own for the en passant square and for the side and depth.
constexpr uint64_t Mescola(uint64_t x) {
  x += 0x9e3779b97f4a7c15ull;
  x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9ull;
  x = (x ^ (x >> 27)) * 0x94d049bb133111ebull;
  return x ^ (x >> 31);
}
constexpr uint64_t ChiaveCasaEnPassant(int casa) { return Mescola(0x656e70617373616eull + casa); }
constexpr uint64_t ChiaveEnPassant[64] = {TABELLA64(ChiaveCasaEnPassant)};

template <Colore C>
uint64_t Chiave(const TavolaConteggio& t, int profondita) {
  uint64_t chiave = Mescola(uint64_t(2 * profondita + C)) ^ ChiaveDiritti(t.diritti) ^
                    (t.enpassant ? ChiaveEnPassant[t.enpassant] : 0);
  for (const Colore c : {BIANCO, NERO})
    for (int k = PEDONE; k <= RE; ++k)
      for (uint64_t b = t.pezzi[k] & t.colore[c]; b; b &= b - 1)
        chiave ^= hash_in[c][k][PrimaCasa(b)];
  return chiave;
}

struct Tabella {
  VoceTabellaConteggio* voci;
  uint64_t maschera;
};

// ---------------------------------------------------------------------------
// The walk, profondita >= 2. Without a table the ply above the last calls
// the count of the last straight away.

template <Colore C>
uint64_t ContaSotto(const TavolaConteggio& t, int profondita) {
  if (profondita == 2) {
    auto figlio = [](const TavolaConteggio& f, uint64_t) { return ContaUltimo<~C>(f); };
    Scendi<C, decltype(figlio)> s{t, figlio};
    Genera<C>(t, s);
    return s.n;
  }
  auto figlio = [profondita](const TavolaConteggio& f, uint64_t) {
    return ContaSotto<~C>(f, profondita - 1);
  };
  Scendi<C, decltype(figlio)> s{t, figlio};
  Genera<C>(t, s);
  return s.n;
}

template <Colore C>
uint64_t ContaConTabella(const TavolaConteggio& t, int profondita, const Tabella& tabella) {
  if (profondita == 1) return ContaUltimo<C>(t);
  const uint64_t chiave = Chiave<C>(t, profondita);
  VoceTabellaConteggio& voce = tabella.voci[chiave & tabella.maschera];
  const uint64_t salvati = voce.nodi.load(std::memory_order_relaxed);
  if ((voce.controllo.load(std::memory_order_relaxed) ^ salvati) == chiave) return salvati;
  auto figlio = [profondita, &tabella](const TavolaConteggio& f, uint64_t) {
    return ContaConTabella<~C>(f, profondita - 1, tabella);
  };
  Scendi<C, decltype(figlio)> s{t, figlio};
  Genera<C>(t, s);
  voce.controllo.store(chiave ^ s.n, std::memory_order_relaxed);
  voce.nodi.store(s.n, std::memory_order_relaxed);
  return s.n;
}

template <Colore C>
uint64_t ContaDa(const TavolaConteggio& t, int profondita, const OpzioniConteggio& opzioni) {
  if (profondita == 0) return 1;
  if (profondita == 1) return ContaUltimo<C>(t);
  if (opzioni.tabella)
    return ContaConTabella<C>(t, profondita, {opzioni.tabella, opzioni.voci - 1});
  return ContaSotto<C>(t, profondita);
}

// The root's legal moves with the boards after them.
template <Colore C>
int Elenca(const TavolaConteggio& t, RadiceConteggio* radici) {
  int n = 0;
  auto figlio = [&n, &t, radici](const TavolaConteggio& f, uint64_t mossa) {
    radici[n++] = {ParolaEsatta(t, mossa), f};
    return uint64_t(0);
  };
  Scendi<C, decltype(figlio)> s{t, figlio};
  Genera<C>(t, s);
  return n;
}

// This source's copy of the walk.
constexpr Cammino QuestoCammino = {{ContaDa<BIANCO>, ContaDa<NERO>},
                                   {Elenca<BIANCO>, Elenca<NERO>}};

}  // namespace
}  // namespace conteggio
