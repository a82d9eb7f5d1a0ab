// Exact move counts against the published table, limited to the rows that
// run quickly under the sanitizers; the division by root move; coordinates.
#include "diagnostics/perft.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "aiuti.h"
#include "board/mossa.h"
#include "moves/genera.h"

namespace {

struct Riga {
  std::string nome, fen;
  int profondita;
  uint64_t nodi;
};

std::vector<Riga> LeggiRiferimento() {
  std::vector<Riga> righe;
  std::ifstream file(PENDRINO_DATI_CONDIVISI "/perft-reference.tsv");
  std::string linea;
  std::getline(file, linea);  // header
  while (std::getline(file, linea)) {
    std::istringstream campi(linea);
    Riga r;
    std::string profondita, nodi;
    if (std::getline(campi, r.nome, '\t') && std::getline(campi, r.fen, '\t') &&
        std::getline(campi, profondita, '\t') && std::getline(campi, nodi, '\t')) {
      r.profondita = std::stoi(profondita);
      r.nodi = std::stoull(nodi);
      righe.push_back(r);
    }
  }
  return righe;
}

// The longer rows belong to the benchmarks.
constexpr uint64_t NODI_MASSIMI = 5000000;

TEST(Perft, RigheDiRiferimento) {
  const std::vector<Riga> righe = LeggiRiferimento();
  ASSERT_GE(righe.size(), 40u);
  int provate = 0;
  for (const Riga& r : righe) {
    if (r.nodi > NODI_MASSIMI) continue;
    ASSERT_TRUE(Carica(r.fen.c_str())) << r.nome;
    const Istantanea prima = Fotografa();
    EXPECT_EQ(Perft(r.profondita), r.nodi) << r.nome << " depth " << r.profondita;
    EXPECT_EQ(Fotografa(), prima) << r.nome;
    ++provate;
  }
  EXPECT_GE(provate, 25);
}

TEST(Perft, ProfonditaZeroEFuoriLimite) {
  ASSERT_TRUE(Carica("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"));
  EXPECT_EQ(Perft(0), 1u);
  EXPECT_EQ(Perft(-1), 0u);
  EXPECT_EQ(Perft(PROFONDITA_MASSIMA_PERFT + 1), 0u);
  VocePerft voci[DIMENSIONE_BUFFER_MOSSE];
  EXPECT_EQ(PerftDivide(0, voci), 0);
  EXPECT_EQ(PerftDivide(PROFONDITA_MASSIMA_PERFT + 1, voci), 0);
}

TEST(Perft, DivisionePerMossa) {
  ASSERT_TRUE(Carica("r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1"));
  VocePerft voci[DIMENSIONE_BUFFER_MOSSE];
  const int n = PerftDivide(2, voci);
  ASSERT_EQ(n, 48);
  uint64_t totale = 0;
  for (int i = 0; i < n; ++i) totale += voci[i].nodi;
  EXPECT_EQ(totale, 2039u);
  // Root moves in generation order, each with the count below it.
  const std::vector<uint64_t> legali = Legali();
  ASSERT_EQ(legali.size(), 48u);
  for (int i = 0; i < n; ++i) EXPECT_EQ(voci[i].mossa, legali[i]);
  int viste = 0;
  for (int i = 0; i < n; ++i) {
    const std::string scritta = Coordinate(voci[i].mossa);
    const uint64_t attesi = scritta == "e1g1"   ? 43
                            : scritta == "d5e6" ? 46
                            : scritta == "e2a6" ? 36
                                                : 0;
    if (attesi == 0) continue;
    EXPECT_EQ(voci[i].nodi, attesi) << scritta;
    ++viste;
  }
  EXPECT_EQ(viste, 3);
}

TEST(Perft, LatoDelTurnoDallaParita) {
  // After 1. e4 the counter is odd and the count is Black's.
  ASSERT_TRUE(Carica("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"));
  ASSERT_TRUE(Gioca("e2e4"));
  EXPECT_EQ(Perft(1), 20u);
  EXPECT_EQ(Perft(3), 13160u);
  ASSERT_TRUE(Carica("rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR w KQkq - 0 2"));
  EXPECT_EQ(Perft(1), 29u);
}

TEST(Perft, PosizioniConTrappole) {
  // Counts given by an independent engine: en passant that exposes a king,
  // promotions with check, castling next to attacked squares.
  const struct {
    const char* fen;
    int profondita;
    uint64_t nodi;
  } casi[] = {{"3k4/3p4/8/K1P4r/8/8/8/8 b - - 0 1", 4, 10138},
              {"8/8/4k3/8/2p5/8/B2P2K1/8 w - - 0 1", 4, 10276},
              {"8/8/1k6/2b5/2pP4/8/5K2/8 b - d3 0 1", 4, 13931},
              {"5k2/8/8/8/8/8/8/4K2R w K - 0 1", 4, 6399},
              {"3k4/8/8/8/8/8/8/R3K3 w Q - 0 1", 4, 7418},
              {"r3k2r/1b4bq/8/8/8/8/7B/R3K2R w KQkq - 0 1", 3, 27826},
              {"2K2r2/4P3/8/8/8/8/8/3k4 w - - 0 1", 4, 19174},
              {"8/8/1P2K3/8/2n5/1q6/8/5k2 b - - 0 1", 3, 5160},
              {"8/P1k5/K7/8/8/8/8/8 w - - 0 1", 5, 18135},
              {"8/1P6/8/r7/8/8/1k6/4K3 w - - 0 1", 4, 28118}};
  for (const auto& c : casi) {
    ASSERT_TRUE(Carica(c.fen)) << c.fen;
    EXPECT_EQ(Perft(c.profondita), c.nodi) << c.fen;
  }
}

TEST(Perft, CoordinateDelleMosse) {
  char testo[8];
  ScriviMossaCoordinate(Mossa(Casa("e2"), Casa("e4"), PEDONE_AVANZA2), testo);
  EXPECT_STREQ(testo, "e2e4");
  ScriviMossaCoordinate(Mossa(Casa("e7"), Casa("f8"), PROMOZIONE_CAVALLO + uint64_t(TORRE)), testo);
  EXPECT_STREQ(testo, "e7f8n");
  ScriviMossaCoordinate(Mossa(Casa("b2"), Casa("b1"), PROMOZIONE_DONNA), testo);
  EXPECT_STREQ(testo, "b2b1q");
  ScriviMossaCoordinate(MOSSA_O_O_O_NERO, testo);
  EXPECT_STREQ(testo, "e8c8");
}

}  // namespace
