// What a castling does to ChiaveHash, against the published constants: the
// queen-side castling leaves the keys of the rights it clears in the hash, so
// with its own right set it changes only the four piece keys, and without it
// it adds that right's key as well; the king-side castling takes out its own
// right's key and the queen side's when that right is set.
#include <gtest/gtest.h>

#include <string>

#include "aiuti.h"
#include "board/mossa.h"
#include "moves/genera.h"
#include "moves/registro.h"
#include "moves/tavole.h"

namespace {

struct Caso {
  const char* fen;
  uint64_t mossa;
  uint64_t differenza;  // ChiaveHash before ^ after
};

const Caso Casi[] = {
    // Queen side, White: with bit 8 set the plain piece keys, without it the
    // piece keys and the right's key.
    {"4k3/8/8/8/8/8/8/R3K3 w Q - 0 1", 11964, 0x7d94c8673fc52b60ull},
    {"4k3/8/8/8/8/8/8/R3K2R w KQ - 0 1", 11964, 0x7d94c8673fc52b60ull},
    {"4k3/8/8/8/8/8/8/R3K3 w - - 0 1", 11964, 0x7303431b72fdf107ull},
    {"4k3/8/8/8/8/8/8/R3K2R w K - 0 1", 11964, 0x7303431b72fdf107ull},
    {"4k3/8/8/8/8/8/8/R3K3 w q - 0 1", 11964, 0x7303431b72fdf107ull},
    // Queen side, Black: bit 10.
    {"r3k3/8/8/8/8/8/8/4K3 b q - 0 1", 8324, 0xd11f82d3411bd340ull},
    {"r3k2r/8/8/8/8/8/8/4K3 b kq - 0 1", 8324, 0xd11f82d3411bd340ull},
    {"r3k3/8/8/8/8/8/8/4K3 b - - 0 1", 8324, 0xbe989c5db01fe0b8ull},
    {"r3k2r/8/8/8/8/8/8/4K3 b k - 0 1", 8324, 0xbe989c5db01fe0b8ull},
    {"r3k3/8/8/8/8/8/8/4K3 b Q - 0 1", 8324, 0xbe989c5db01fe0b8ull},
    // King side with its right: both rights' keys out, or only its own.
    {"4k3/8/8/8/8/8/8/R3K2R w KQ - 0 1", 8124, 0xbec916e6ad77e2ccull},
    {"4k3/8/8/8/8/8/8/4K2R w K - 0 1", 8124, 0xb05e9d9ae04f38abull},
    {"r3k2r/8/8/8/8/8/8/4K3 b kq - 0 1", 4484, 0x311d1424d4d4b7feull},
    {"4k2r/8/8/8/8/8/8/4K3 b k - 0 1", 4484, 0x5e9a0aaa25d08406ull},
};

TEST(ChiaviArrocco, DifferenzaDellaChiaveComePubblicata) {
  for (const Caso& caso : Casi) {
    SCOPED_TRACE(caso.fen);
    ASSERT_TRUE(Carica(caso.fen));
    ASSERT_FALSE(InfoPosizione & PERMESSO_ENPASSANT);
    const uint64_t prima = ChiaveHash;
    ASSERT_EQ(Fai(caso.mossa), 1);
    EXPECT_EQ(prima ^ ChiaveHash, caso.differenza);
  }
}

TEST(ChiaviArrocco, LaParolaDellArroccoELaSuaMossa) {
  // The words above are the king's move with the castling type.
  ASSERT_TRUE(Carica("r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1"));
  EXPECT_EQ(Trova("e1c1"), 11964u);
  EXPECT_EQ(Trova("e1g1"), 8124u);
  ASSERT_TRUE(Carica("r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1"));
  EXPECT_EQ(Trova("e8c8"), 8324u);
  EXPECT_EQ(Trova("e8g8"), 4484u);
}

TEST(ChiaviArrocco, IlRitiroRendeLaChiave) {
  for (const Caso& caso : Casi) {
    SCOPED_TRACE(caso.fen);
    ASSERT_TRUE(Carica(caso.fen));
    const uint64_t prima = ChiaveHash;
    ASSERT_EQ(Fai(caso.mossa), 1);
    Ritira();
    EXPECT_EQ(ChiaveHash, prima);
  }
}

}  // namespace
