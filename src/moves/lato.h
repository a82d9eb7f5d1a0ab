// Colour-relative constants and the decoding of a move type at compile time,
// shared by the generators and the make and unmake families so that each of
// them is written once for both colours.
#pragma once

#include <cstdint>

#include "board/geometria.h"
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

// Keys of the castling rights, by the four right bits (InfoPosizione bits
// 7-10 shifted down): one XOR takes out whatever subset is being cleared.
constexpr uint64_t HashDirittiPer(int diritti) {
  return ((diritti & 1) ? HASH_ARROCCO_CORTO_BIANCO : 0) ^
         ((diritti & 2) ? HASH_ARROCCO_LUNGO_BIANCO : 0) ^
         ((diritti & 4) ? HASH_ARROCCO_CORTO_NERO : 0) ^
         ((diritti & 8) ? HASH_ARROCCO_LUNGO_NERO : 0);
}
inline constexpr uint64_t HashDiritti[16] = {
    HashDirittiPer(0),  HashDirittiPer(1),  HashDirittiPer(2),  HashDirittiPer(3),
    HashDirittiPer(4),  HashDirittiPer(5),  HashDirittiPer(6),  HashDirittiPer(7),
    HashDirittiPer(8),  HashDirittiPer(9),  HashDirittiPer(10), HashDirittiPer(11),
    HashDirittiPer(12), HashDirittiPer(13), HashDirittiPer(14), HashDirittiPer(15)};

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

  // Castling: home rank, rights bits, the rooks' corners and the keys.
  static constexpr uint64_t Base = C == BIANCO ? 56 : 0;
  static constexpr uint64_t DirittoCorto = C == BIANCO ? ARROCCO_CORTO_BIANCO : ARROCCO_CORTO_NERO;
  static constexpr uint64_t DirittoLungo = C == BIANCO ? ARROCCO_LUNGO_BIANCO : ARROCCO_LUNGO_NERO;
  static constexpr uint64_t Diritti = DirittoCorto | DirittoLungo;
  static constexpr uint64_t AngoloCorto = Base + 7;
  static constexpr uint64_t AngoloLungo = Base;
  static constexpr uint64_t HashDirittoCorto =
      C == BIANCO ? HASH_ARROCCO_CORTO_BIANCO : HASH_ARROCCO_CORTO_NERO;
  static constexpr uint64_t HashDirittoLungo =
      C == BIANCO ? HASH_ARROCCO_LUNGO_BIANCO : HASH_ARROCCO_LUNGO_NERO;
  // The four piece keys of each castling (king and rook out and in).
  static constexpr uint64_t HashPezziCorto =
      C == BIANCO ? 0x3aa3e0b15d7a91b6ull : 0xecfe612e1daf5aaeull;
  static constexpr uint64_t HashPezziLungo =
      C == BIANCO ? 0x7d94c8673fc52b60ull : 0xd11f82d3411bd340ull;
  static constexpr uint64_t MossaCorto = C == BIANCO ? MOSSA_O_O_BIANCO : MOSSA_O_O_NERO;
  static constexpr uint64_t MossaLungo = C == BIANCO ? MOSSA_O_O_O_BIANCO : MOSSA_O_O_O_NERO;
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
