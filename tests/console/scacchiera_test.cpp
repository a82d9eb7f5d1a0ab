#include <gtest/gtest.h>

#include <string>

#include "board/fen.h"
#include "board/geometria.h"
#include "board/posizione.h"
#include "console/schermo.h"
#include "piattaforma/memoria/memoria.h"
#include "supporto/riferimento.h"

namespace {

// The eight lines as described: " - " for an empty square, else the piece
// letter between blanks, upper case for White.
std::string RigaAttesa(const riferimento::Griglia& g, int r) {
  std::string riga;
  for (int c = 0; c < 8; ++c) {
    const char pezzo = g.casa[8 * r + c];
    riga += ' ';
    riga += pezzo == '.' ? '-' : pezzo;
    riga += ' ';
  }
  return riga;
}

void VerificaScacchiera(const char* fen) {
  InizializzaTabelle();
  memoria::Azzera();
  SvuotaScacchiera();
  ASSERT_EQ(CaricaPosizioneDaStringaFen(fen), 1) << fen;
  StampaScacchiera();
  const riferimento::Griglia g = riferimento::DaFen(fen);
  for (int r = 0; r < 8; ++r) {
    const std::string riga = memoria::Riga(y_scacchiera + r);
    EXPECT_EQ(riga.substr(30, 24), RigaAttesa(g, r)) << fen << " rank " << 8 - r;
    // Nothing but the board on its lines.
    EXPECT_EQ(riga.substr(0, 30), std::string(30, ' '));
    EXPECT_EQ(riga.substr(54), std::string(80 - 54, ' '));
  }
  EXPECT_EQ(memoria::Riga(y_scacchiera - 1), std::string(80, ' '));
  EXPECT_EQ(memoria::Riga(y_scacchiera + 8), std::string(80, ' '));
}

TEST(StampaScacchiera, PosizioneIniziale) {
  VerificaScacchiera(FenIniziale);
  EXPECT_EQ(memoria::Riga(24).substr(30, 24), " r  n  b  q  k  b  n  r ");
  EXPECT_EQ(memoria::Riga(27).substr(30, 24), " -  -  -  -  -  -  -  - ");
  EXPECT_EQ(memoria::Riga(31).substr(30, 24), " R  N  B  Q  K  B  N  R ");
}

TEST(StampaScacchiera, PosizioniDiverse) {
  VerificaScacchiera("r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1");
  VerificaScacchiera("8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1");
}

TEST(StampaScacchiera, UnaSecondaStampaCancellaIPezziSpariti) {
  VerificaScacchiera(FenIniziale);
  SvuotaScacchiera();
  ASSERT_EQ(CaricaPosizioneDaStringaFen("4k3/8/8/8/8/8/8/4K3 w - - 0 1"), 1);
  StampaScacchiera();
  EXPECT_EQ(memoria::Riga(24).substr(30, 24), " -  -  -  -  k  -  -  - ");
  EXPECT_EQ(memoria::Riga(30).substr(30, 24), " -  -  -  -  -  -  -  - ");
  EXPECT_EQ(memoria::Riga(31).substr(30, 24), " -  -  -  -  K  -  -  - ");
}

}  // namespace
