#include "board/attacchi.h"

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/liste.h"
#include "supporto/riferimento.h"

namespace {

constexpr uint64_t Casa(const char* nome) {
  return uint64_t((nome[0] - 'a') + 8 * ('8' - nome[1]));
}

// Kings far from the squares the tests ask about, unless a test moves them.
void PiazzaRe(const char* bianco = "a1", const char* nero = "h8") {
  SvuotaScacchiera();
  inserisci_re_bianco(Casa(bianco));
  inserisci_re_nero(Casa(nero));
}

TEST(Attacchi, IlProprioReAttaccaLeCaseAccanto) {
  PiazzaRe("e1", "e8");
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("e2")), 1);
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("d1")), 1);
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("f2")), 1);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("d7")), 1);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("f8")), 1);
  // Its own square is at distance 0: not attacked by it.
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("e1")), 0);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("e8")), 0);
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("e3")), 0);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("e2")), 0);
}

TEST(Attacchi, IlReAttaccaAncheCaseDifese) {
  // A square next to the king counts even when the enemy guards it.
  PiazzaRe("e1", "e8");
  inserisci_torre_nero(Casa("d8"));
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("d2")), 1);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("d2")), 1);
}

TEST(Attacchi, Pedoni) {
  PiazzaRe();
  inserisci_pedone_bianco(Casa("e4"));
  inserisci_pedone_nero(Casa("e5"));
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("d5")), 1);
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("f5")), 1);
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("e5")), 0);
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("d3")), 0);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("d4")), 1);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("f4")), 1);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("e4")), 0);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("d6")), 0);
}

TEST(Attacchi, PedoniSulBordoNonPassanoDallAltraParte) {
  PiazzaRe("e1", "e8");
  inserisci_pedone_bianco(Casa("a4"));
  inserisci_pedone_nero(Casa("h5"));
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("b5")), 1);
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("h6")), 0);  // a4 - 9 wraps to h6
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("g4")), 1);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("a3")), 0);  // h5 + 9 wraps to a3
}

TEST(Attacchi, UnaTorreDietroUnAltroPezzoNonAttaccaOltre) {
  for (int colore_bloccante = 0; colore_bloccante < 2; ++colore_bloccante) {
    PiazzaRe();
    inserisci_torre_bianco(Casa("e1"));
    if (colore_bloccante == 0)
      inserisci_cavallo_bianco(Casa("e4"));
    else
      inserisci_cavallo_nero(Casa("e4"));
    EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("e3")), 1);
    EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("e5")), 0) << colore_bloccante;
    EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("e8")), 0) << colore_bloccante;
  }
  PiazzaRe();
  inserisci_torre_nero(Casa("d8"));
  inserisci_pedone_bianco(Casa("d4"));
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("d5")), 1);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("d3")), 0);
}

TEST(Attacchi, DonneEAlfieriSulleDiagonaliCavalliASalto) {
  PiazzaRe();
  inserisci_donna_nero(Casa("b7"));
  inserisci_alfiere_bianco(Casa("c1"));
  inserisci_cavallo_bianco(Casa("g1"));
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("e4")), 1);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("b2")), 1);
  EXPECT_EQ(attaccano_pezzi_del_nero(Casa("c5")), 0);
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("h6")), 1);
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("f3")), 1);
  EXPECT_EQ(attaccano_pezzi_del_bianco(Casa("g3")), 0);
}

// Every square of a few crowded positions, against the grid walk.
TEST(Attacchi, ConcordanoConIlRiferimentoSuOgniCasa) {
  const char* posizioni[] = {
      "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
      "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1",
      "r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1",
      "rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w KQ - 1 8",
      "r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w - - 0 10",
      "4k3/8/8/3q4/8/1N3B2/8/R3K2R b - - 0 1",
  };
  for (const char* fen : posizioni) {
    SvuotaScacchiera();
    ASSERT_EQ(CaricaPosizioneDaStringaFen(fen), 1) << fen;
    const riferimento::Griglia g = riferimento::DaFen(fen);
    for (uint64_t s = 0; s < 64; ++s) {
      EXPECT_EQ(attaccano_pezzi_del_bianco(s), riferimento::Attaccanti(g, int(s), true) != 0)
          << fen << " " << s;
      EXPECT_EQ(attaccano_pezzi_del_nero(s), riferimento::Attaccanti(g, int(s), false) != 0)
          << fen << " " << s;
      EXPECT_EQ(attaccano_pezzi<BIANCO>(s), attaccano_pezzi_del_bianco(s));
    }
  }
}

}  // namespace
