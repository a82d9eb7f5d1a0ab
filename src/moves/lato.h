// Colour-relative constants and the decoding of a move type at compile time,
// shared by the generators and the make and unmake families so that each of
// them is written once for both colours.
#pragma once

#include <cstdint>

#include "board/arrocco.h"
#include "board/liste.h"
#include "board/mossa.h"
#include "board/posizione.h"

// A shift towards higher squares for positive S, lower for negative.
template <int S>
constexpr uint64_t Sposta(uint64_t b) {
  if constexpr (S > 0)
    return b << S;
  else
    return b >> -S;
}

constexpr uint64_t NON_COLONNA_A = 0xfefefefefefefefeull;
constexpr uint64_t NON_COLONNA_H = 0x7f7f7f7f7f7f7f7full;

template <Colore C>
struct Lato {
  static constexpr Colore Loro = ~C;
  // One step forward, in square numbers: White goes towards a8 (square 0).
  static constexpr int Su = C == BIANCO ? -8 : 8;
  // Pawn captures towards the a-file and towards the h-file.
  static constexpr int LatoA = C == BIANCO ? -9 : 7;
  static constexpr int LatoH = C == BIANCO ? -7 : 9;
  static constexpr uint64_t TraversaPromozione = C == BIANCO ? 0xFFull : 0xFF00000000000000ull;
  static constexpr uint64_t TraversaDoppioPasso = C == BIANCO ? 0xFF00000000ull : 0xFF000000ull;

  static constexpr uint64_t CodiceRe = CodicePezzo(RE, C, 0);
  static constexpr uint64_t CodiceTorre = CodicePezzo(TORRE, C, 0);

  // Castling: the squares, the rights bits, the rooks' corners and the keys.
  static constexpr Arrocco Corto = Arrocchi[C][0];
  static constexpr Arrocco Lungo = Arrocchi[C][1];
  static constexpr uint64_t DirittoCorto = DirittoArrocco(C, false);
  static constexpr uint64_t DirittoLungo = DirittoArrocco(C, true);
  static constexpr uint64_t Diritti = DirittiDel(C);
  static constexpr uint64_t AngoloCorto = Corto.torre;
  static constexpr uint64_t AngoloLungo = Lungo.torre;
  static constexpr uint64_t HashDirittoCorto = ChiaveDiritti(DirittoCorto);
  static constexpr uint64_t HashDirittoLungo = ChiaveDiritti(DirittoLungo);
  // The four piece keys of each castling (king and rook out and in).
  static constexpr uint64_t HashPezziCorto = Corto.chiave_pezzi;
  static constexpr uint64_t HashPezziLungo = Lungo.chiave_pezzi;
  static constexpr uint64_t MossaCorto = C == BIANCO ? MOSSA_O_O_BIANCO : MOSSA_O_O_NERO;
  static constexpr uint64_t MossaLungo = C == BIANCO ? MOSSA_O_O_O_BIANCO : MOSSA_O_O_O_NERO;
  static_assert(MossaCorto == Mossa(Corto.re, Corto.re_arrivo, ARROCCO_CORTO));
  static_assert(MossaLungo == Mossa(Lungo.re, Lungo.re_arrivo, ARROCCO_LUNGO));
};

// What a move type does, by the rule that numbers the types.
constexpr int NESSUNO = -1;
struct DescrizioneTipo {
  int pezzo;     // the kind that leaves the origin (pawn for a promotion)
  int preso;     // the captured kind, NESSUNO for none
  int promosso;  // the new piece's kind, NESSUNO for none
  bool doppio;   // a pawn's double step
};
constexpr DescrizioneTipo Descrivi(uint64_t t) {
  if (t == PEDONE_AVANZA2) return {PEDONE, NESSUNO, NESSUNO, true};
  if (t >= SPOSTA_PEDONE && t <= SPOSTA_RE)
    return {int(t - SPOSTA_PEDONE), NESSUNO, NESSUNO, false};
  if (t >= PEDONE_CATTURA && t < CATTURA_ENPASSANT)
    return {int(t - PEDONE_CATTURA) / 5, int(t - PEDONE_CATTURA) % 5, NESSUNO, false};
  if (t > CATTURA_ENPASSANT && t < NUMERO_TIPI_MOSSA) {
    const int preso = int(t - PROMOZIONE_CAVALLO) % 5;
    return {PEDONE, preso == 0 ? NESSUNO : preso, int(t - PROMOZIONE_CAVALLO) / 5 + 1, false};
  }
  return {NESSUNO, NESSUNO, NESSUNO, false};  // null move, castling, en passant
}
