// The counter's entry points: the depth limits, the order of the division,
// the position taken from the globals, and the table and the threads, which
// must change the speed and never a count.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "board/geometria.h"
#include "confronto.h"
#include "diagnostics/perft.h"
#include "verifiche/tabelle_perft.h"

namespace {

const char* const Iniziale = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";
const char* const Kiwipete = "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1";
const char* const Posizione3 = "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1";

TEST(Conteggio, ProfonditaZeroEFuoriLimite) {
  ASSERT_TRUE(CaricaFen(Iniziale));
  const PosizioneConteggio p = PosizioneConteggioCorrente();
  EXPECT_EQ(ContaFoglie(p, 0), 1u);
  EXPECT_EQ(ContaFoglie(p, -1), 0u);
  EXPECT_EQ(ContaFoglie(p, PROFONDITA_MASSIMA_CONTEGGIO + 1), 0u);
  EXPECT_EQ(ContaFoglie(p, 0, {.thread = 4}), 1u);
  VoceConteggio voci[MASSIMO_MOSSE_CONTEGGIO];
  EXPECT_EQ(ContaFoglieDivise(p, 0, voci), 0);
  EXPECT_EQ(ContaFoglieDivise(p, PROFONDITA_MASSIMA_CONTEGGIO + 1, voci), 0);
  ASSERT_EQ(ContaFoglieDivise(p, 1, voci), 20);
  for (const VoceConteggio& v : voci) {
    if (&v == voci + 20) break;
    EXPECT_EQ(v.nodi, 1u);
  }
}

TEST(Conteggio, OrdineDellaDivisione) {
  // Promotions by a step first, queen to knight; the king last, castling on
  // the king side before the queen side.
  ASSERT_TRUE(CaricaFen("8/1P6/8/r7/8/8/1k6/4K3 w - - 0 1"));
  std::vector<std::string> mosse = MosseRadice();
  ASSERT_GE(mosse.size(), 4u);
  EXPECT_EQ(std::vector<std::string>(mosse.begin(), mosse.begin() + 4),
            (std::vector<std::string>{"b7b8q", "b7b8r", "b7b8b", "b7b8n"}));
  ASSERT_TRUE(CaricaFen("r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1"));
  mosse = MosseRadice();
  ASSERT_EQ(mosse.size(), 26u);
  // 19 rook moves, the two castlings, 5 king steps.
  EXPECT_EQ(mosse[19], "e1g1");
  EXPECT_EQ(mosse[20], "e1c1");
  for (size_t i = 0; i < 19; ++i)
    EXPECT_EQ(mosse[i][0] == 'a' || mosse[i][0] == 'h', true) << mosse[i];
  for (size_t i = 21; i < mosse.size(); ++i) EXPECT_EQ(mosse[i].substr(0, 2), "e1") << mosse[i];
}

TEST(Conteggio, PosizioneDalleGlobali) {
  ASSERT_TRUE(CaricaFen("r3k2r/8/8/8/3pP3/8/8/R3K2R b Kq e3 0 1"));
  PosizioneConteggio p = PosizioneConteggioCorrente();
  EXPECT_EQ(p.turno, NERO);
  EXPECT_EQ(p.tavola.diritti, ARROCCO_CORTO_BIANCO | ARROCCO_LUNGO_NERO);
  EXPECT_EQ(p.tavola.enpassant, 44u);  // e3
  EXPECT_EQ(p.tavola.colore[BIANCO], btm_colore[BIANCO]);
  EXPECT_EQ(p.tavola.pezzi[RE], (1ull << 4) | (1ull << 60));
  EXPECT_EQ(p.tavola.pezzi[TORRE], (1ull << 0) | (1ull << 7) | (1ull << 56) | (1ull << 63));
  EXPECT_EQ(p.tavola.pezzi[PEDONE], (1ull << 35) | (1ull << 36));
  // No pawn beside the one that double-stepped: no en passant.
  ASSERT_TRUE(CaricaFen("r3k2r/8/8/8/p3P3/8/8/R3K2R b KQkq e3 0 1"));
  p = PosizioneConteggioCorrente();
  EXPECT_EQ(p.tavola.enpassant, 0u);
  EXPECT_EQ(ContaFoglie(p, 3), Perft(3));
}

TEST(Conteggio, TabellaEThreadNonCambianoIConti) {
  // A table of sixteen entries is overwritten all the time; one of a
  // megabyte keeps most subtrees.
  std::vector<VoceTabellaConteggio> piccola(16), grande(VociTabellaConteggio(1));
  EXPECT_EQ(grande.size(), 65536u);
  for (const char* fen : {Iniziale, Kiwipete, Posizione3}) {
    SCOPED_TRACE(fen);
    ASSERT_TRUE(CaricaFen(fen));
    const PosizioneConteggio p = PosizioneConteggioCorrente();
    for (int d = 1; d <= 4; ++d) {
      SCOPED_TRACE("depth " + std::to_string(d));
      const uint64_t atteso = Perft(d);
      EXPECT_EQ(ContaFoglie(p, d, {.thread = 2}), atteso);
      EXPECT_EQ(ContaFoglie(p, d, {.thread = MASSIMO_THREAD_CONTEGGIO + 5}), atteso);
      EXPECT_EQ(ContaFoglie(p, d, {.tabella = piccola.data(), .voci = piccola.size()}), atteso);
      EXPECT_EQ(ContaFoglie(p, d, {.tabella = grande.data(), .voci = grande.size()}), atteso);
      EXPECT_EQ(ContaFoglie(p, d, {.thread = 3, .tabella = grande.data(), .voci = grande.size()}),
                atteso);
    }
    // The table now holds the subtrees of every depth: counted again from it.
    EXPECT_EQ(ContaFoglie(p, 4, {.tabella = grande.data(), .voci = grande.size()}), Perft(4));
  }
  EXPECT_EQ(VociTabellaConteggio(0), 1u);
}

TEST(Conteggio, TabellaDistingueDirittiEEnPassant) {
  // The same pieces on the same squares with the same side to move and depth
  // left, with other castling rights (a rook out and back on either side) or
  // with and without en passant (a double step before or after the kings'
  // steps): the table must keep them apart.
  std::vector<VoceTabellaConteggio> tabella(VociTabellaConteggio(1));
  const OpzioniConteggio opzioni = {.tabella = tabella.data(), .voci = tabella.size()};
  ASSERT_TRUE(CaricaFen("4k3/8/8/8/8/8/8/R3K2R w KQ - 0 1"));
  EXPECT_EQ(ContaFoglie(PosizioneConteggioCorrente(), 5, opzioni), 532933u);
  ASSERT_TRUE(CaricaFen("7k/8/8/8/3p4/8/4P3/7K w - - 0 1"));
  EXPECT_EQ(ContaFoglie(PosizioneConteggioCorrente(), 6, opzioni), 44887u);
  EXPECT_EQ(VociTabellaConteggio(3), 131072u);
}

}  // namespace
