#include "board/fen.h"

#include <gtest/gtest.h>

#include "board/posizione.h"

namespace {

int Carica(const char* testo) {
  SvuotaScacchiera();
  return CaricaPosizioneDaStringaFen(testo);
}

TEST(Fen, PosizioneInizialeCaricaTuttiIDiritti) {
  ASSERT_EQ(Carica(FenIniziale), 1);
  EXPECT_EQ(InfoPosizione, NESSUNO_SCACCO | ARROCCO_CORTO_BIANCO | ARROCCO_LUNGO_BIANCO |
                               ARROCCO_CORTO_NERO | ARROCCO_LUNGO_NERO);
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_EQ(TurnoIniziale, 0u);
  EXPECT_EQ(ElencoMosse[0], 0u);
  EXPECT_EQ(btm_occupazione, 0xFFFF00000000FFFFull);
  EXPECT_EQ(casa_re_bianco, 60u);
  EXPECT_EQ(casa_re_nero, 4u);
}

}  // namespace
