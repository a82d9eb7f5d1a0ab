// The move word and its 61 types.
//
// Move word: origin bits 0-5, destination bits 6-11, type bits 12-17.
// The type is the word shifted right by 12 with no mask, so nothing else may
// ever be stored in a move word. 0 is the null move.
#pragma once

#include <cstdint>

constexpr uint64_t Mossa(uint64_t origine, uint64_t destinazione, uint64_t tipo) {
  return origine | (destinazione << 6) | (tipo << 12);
}
constexpr uint64_t OrigineMossa(uint64_t m) { return m & 63; }
constexpr uint64_t DestinazioneMossa(uint64_t m) { return (m >> 6) & 63; }
constexpr uint64_t TipoMossa(uint64_t m) { return m >> 12; }

// Move types by rule: quiet 4 + mover; capture base(mover) + captured kind;
// promotion base(new piece) + captured kind (0 = none).
enum : uint64_t {
  MOSSA_NULLA = 0,
  ARROCCO_CORTO = 1,
  ARROCCO_LUNGO = 2,
  PEDONE_AVANZA2 = 3,
  SPOSTA_PEDONE = 4,
  SPOSTA_CAVALLO = 5,
  SPOSTA_ALFIERE = 6,
  SPOSTA_TORRE = 7,
  SPOSTA_DONNA = 8,
  SPOSTA_RE = 9,
  PEDONE_CATTURA = 10,
  CAVALLO_CATTURA = 15,
  ALFIERE_CATTURA = 20,
  TORRE_CATTURA = 25,
  DONNA_CATTURA = 30,
  RE_CATTURA = 35,
  CATTURA_ENPASSANT = 40,
  PROMOZIONE_CAVALLO = 41,
  PROMOZIONE_ALFIERE = 46,
  PROMOZIONE_TORRE = 51,
  PROMOZIONE_DONNA = 56,
  NUMERO_TIPI_MOSSA = 61,
};

// Castling words: king's origin and destination with type 1 or 2.
constexpr uint64_t MOSSA_O_O_BIANCO = 8124;     // e1-g1
constexpr uint64_t MOSSA_O_O_O_BIANCO = 11964;  // e1-c1
constexpr uint64_t MOSSA_O_O_NERO = 4484;       // e8-g8
constexpr uint64_t MOSSA_O_O_O_NERO = 8324;     // e8-c8
