#include "moves/registro.h"

#include <gtest/gtest.h>

#include <cstring>
#include <numeric>
#include <vector>

#include "aiuti.h"
#include "board/fen.h"

namespace {

TEST(StatoRegistro, LaFotografiaDiceLeParoleSalvate) {
  ASSERT_TRUE(Carica("4k3/8/8/8/8/8/4P3/4K3 w - - 7 1"));
  SalvaParolePosizione();
  const StatoRegistro s = FotografiaRegistro();
  EXPECT_EQ(s.chiave[0], ChiaveHash);
  EXPECT_EQ(s.pedoni[0], HashPedoni);
  EXPECT_EQ(s.info[0], InfoPosizione);
}

TEST(StatoRegistro, OgniParolaVaETorna) {
  // Every word different, so that a table lost on the way shows.
  std::vector<uint64_t> parole(sizeof(StatoRegistro) / sizeof(uint64_t));
  std::iota(parole.begin(), parole.end(), 0x5A5A0000ull);
  StatoRegistro segnato;
  static_assert(sizeof segnato == 3 * MAX_SEMIMOSSE * sizeof(uint64_t));
  std::memcpy(&segnato, parole.data(), sizeof segnato);
  RipristinaRegistro(segnato);
  EXPECT_EQ(FotografiaRegistro(), segnato);
  EXPECT_EQ(backup_ChiaveHash[MAX_SEMIMOSSE - 1], segnato.chiave[MAX_SEMIMOSSE - 1]);
  EXPECT_EQ(backup_HashPedoni[0], segnato.pedoni[0]);
  EXPECT_EQ(backup_InfoPosizione[7], segnato.info[7]);
}

}  // namespace
