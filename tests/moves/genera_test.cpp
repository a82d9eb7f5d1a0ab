// The generators: which candidates come out, in which order, in every check
// state, for both colours and the three kinds of generator.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "aiuti.h"
#include "board/mossa.h"
#include "moves/genera.h"
#include "moves/tavole.h"
#include "supporto/stati.h"

namespace {

// "e2e4/3": coordinates and type, for readable comparisons.
std::vector<std::string> Scritte(const std::vector<uint64_t>& mosse) {
  std::vector<std::string> scritte;
  for (uint64_t m : mosse) scritte.push_back(Coordinate(m) + "/" + std::to_string(TipoMossa(m)));
  return scritte;
}

bool Tattica(uint64_t m) { return TipoMossa(m) >= PEDONE_CATTURA; }

uint64_t Specchio(uint64_t m) {
  return Mossa(OrigineMossa(m) ^ 56, DestinazioneMossa(m) ^ 56, TipoMossa(m));
}

TEST(Generazione, PosizioneInizialeVentiduecandidate) {
  ASSERT_TRUE(Carica("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"));
  const std::vector<std::string> attese = {
      "a2a3/4", "b2b3/4", "c2c3/4", "d2d3/4", "e2e3/4", "f2f3/4", "g2g3/4", "h2h3/4",
      "a2a4/3", "b2b4/3", "c2c4/3", "d2d4/3", "e2e4/3", "f2f4/3", "g2g4/3", "h2h4/3",
      "b1a3/5", "b1c3/5", "g1f3/5", "g1h3/5", "e1g1/1", "e1c1/2"};
  const std::vector<uint64_t> candidate = Candidate();
  EXPECT_EQ(Scritte(candidate), attese);
  EXPECT_EQ(candidate[20], 8124u);
  EXPECT_EQ(candidate[21], 11964u);
  EXPECT_EQ(Legali().size(), 20u);
}

TEST(Generazione, ArroccoConViaOccupataEmessoERifiutato) {
  ASSERT_TRUE(Carica("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"));
  const Istantanea prima = Fotografa();
  for (uint64_t arrocco : {MOSSA_O_O_BIANCO, MOSSA_O_O_O_BIANCO}) {
    const std::vector<uint64_t> c = Candidate();
    EXPECT_NE(std::find(c.begin(), c.end(), arrocco), c.end());
    EXPECT_EQ(Fai(arrocco), 0);
    EXPECT_EQ(Fotografa(), prima);
  }
  ASSERT_TRUE(Gioca("g1f3"));
  ASSERT_TRUE(Gioca("g8f6"));
  // Only f1 is in the way now: still offered, still refused.
  const std::vector<uint64_t> c = Candidate();
  EXPECT_NE(std::find(c.begin(), c.end(), MOSSA_O_O_BIANCO), c.end());
  EXPECT_EQ(Fai(MOSSA_O_O_BIANCO), 0);
}

TEST(Generazione, PromozioniPrimaDelPassoPoiCatturaInPromozione) {
  ASSERT_TRUE(Carica("k4r2/4P3/8/8/8/8/8/4K3 w - - 0 1"));
  const std::vector<std::string> c = Scritte(Candidate());
  ASSERT_GE(c.size(), 8u);
  const std::vector<std::string> inizio(c.begin(), c.begin() + 8);
  EXPECT_EQ(inizio, (std::vector<std::string>{"e7e8q/56", "e7e8r/51", "e7e8b/46", "e7e8n/41",
                                              "e7f8q/59", "e7f8r/54", "e7f8b/49", "e7f8n/44"}));
}

TEST(Generazione, OrdineCompletoSenzaScacco) {
  ASSERT_TRUE(Carica("r3k3/1P6/8/3pP3/8/8/8/R3K2R w KQq d6 0 1"));
  ASSERT_TRUE(InfoPosizione & PERMESSO_ENPASSANT);
  const std::vector<std::string> attese = {
      "b7b8q/56", "b7b8r/51", "b7b8b/46", "b7b8n/41",  // step promotions
      "e5e6/4",                                        // steps
      "e5d6/40",                                       // en passant
      "b7a8q/59", "b7a8r/54", "b7a8b/49", "b7a8n/44",  // a-side captures
      "a1a8/28",  "a1a7/7",   "a1a6/7",   "a1a5/7",   "a1a4/7", "a1a3/7", "a1a2/7",  // rook slot 0
      "a1b1/7",   "a1c1/7",   "a1d1/7",                                              //
      "h1h8/7",   "h1h7/7",   "h1h6/7",   "h1h5/7",   "h1h4/7", "h1h3/7", "h1h2/7",  // rook slot 1
      "h1f1/7",   "h1g1/7",                                                          //
      "e1g1/1",   "e1c1/2",                                                          // castling
      "e1d2/9",   "e1e2/9",   "e1f2/9",   "e1d1/9",   "e1f1/9"};                     // king
  EXPECT_EQ(Scritte(Candidate()), attese);
}

TEST(Generazione, IlNeroSpecchiaIlBianco) {
  ASSERT_TRUE(Carica("r3k3/1P6/8/3pP3/8/8/8/R3K2R w KQq d6 0 1"));
  std::vector<uint64_t> bianche = Candidate();
  ASSERT_TRUE(Carica("r3k2r/8/8/8/3Pp3/8/1p6/R3K3 b Qkq d3 0 1"));
  std::vector<uint64_t> nere = Candidate();
  ASSERT_EQ(bianche.size(), 36u);
  ASSERT_EQ(nere.size(), 36u);
  // Same sequence of types; the same moves mirrored (targets ascend from a8
  // for both colours, so the order inside a group differs).
  for (size_t i = 0; i < bianche.size(); ++i) EXPECT_EQ(TipoMossa(bianche[i]), TipoMossa(nere[i]));
  for (uint64_t& m : nere) m = Specchio(m);
  std::sort(bianche.begin(), bianche.end());
  std::sort(nere.begin(), nere.end());
  EXPECT_EQ(bianche, nere);
}

TEST(Generazione, ScaccoDoppioSoloIlRe) {
  // Rook e8 and knight d3 both check e1; the rook a4 could interpose on e4
  // and the bishop f1 could take d3, but only king moves come out.
  ASSERT_TRUE(Carica("4r2k/8/8/8/R7/3n4/8/4KB2 w - - 0 1"));
  ASSERT_NE(PrimoScacco(InfoPosizione), NESSUNA_CASA);
  ASSERT_NE(SecondoScacco(InfoPosizione), NESSUNA_CASA);
  const std::vector<uint64_t> c = Candidate();
  ASSERT_FALSE(c.empty());
  for (uint64_t m : c) {
    EXPECT_EQ(OrigineMossa(m), Casa("e1")) << Coordinate(m);
    EXPECT_EQ(TipoPezzoMossa[TipoMossa(m)], uint32_t(RE)) << Coordinate(m);
  }
  EXPECT_EQ(GeneraCon(genera_MosseTattiche_del_bianco).size(), 0u);  // nothing to take next to e1
  const std::vector<uint64_t> quiete = GeneraCon(genera_noncatture_del_bianco);
  ASSERT_EQ(quiete.size(), 4u);  // d1, d2, e2, f2
  for (uint64_t m : quiete) EXPECT_EQ(TipoMossa(m), SPOSTA_RE);
}

TEST(Generazione, ScaccoDiCavalloNessunaInterposizione) {
  ASSERT_TRUE(Carica("4k3/8/8/8/8/3n4/2P5/R3KB1R w KQ - 0 1"));
  ASSERT_EQ(PrimoScacco(InfoPosizione), Casa("d3"));
  const std::vector<std::string> c = Scritte(Candidate());
  // The captures of d3 from its side: pawn, then bishop; then the king.
  const std::vector<std::string> attese = {"c2d3/11", "f1d3/21", "e1d2/9",
                                           "e1e2/9",  "e1f2/9",  "e1d1/9"};
  EXPECT_EQ(c, attese);
}

TEST(Generazione, IlNeroInScaccoDoppioOScaccoDiCavallo) {
  // The two positions above mirrored for Black.
  ASSERT_TRUE(Carica("4kb2/8/3N4/r7/8/8/8/4R2K b - - 0 1"));
  ASSERT_NE(PrimoScacco(InfoPosizione), NESSUNA_CASA);
  ASSERT_NE(SecondoScacco(InfoPosizione), NESSUNA_CASA);
  const std::vector<uint64_t> c = Candidate();
  ASSERT_FALSE(c.empty());
  for (uint64_t m : c) EXPECT_EQ(OrigineMossa(m), Casa("e8")) << Coordinate(m);
  EXPECT_EQ(GeneraCon(genera_MosseTattiche_del_nero).size(), 0u);
  const std::vector<uint64_t> quiete = GeneraCon(genera_noncatture_del_nero);
  ASSERT_EQ(quiete.size(), 4u);  // d8, d7, e7, f7
  for (uint64_t m : quiete) EXPECT_EQ(TipoMossa(m), SPOSTA_RE);

  ASSERT_TRUE(Carica("r3kb1r/2p5/3N4/8/8/8/8/4K3 b kq - 0 1"));
  ASSERT_EQ(PrimoScacco(InfoPosizione), Casa("d6"));
  const std::vector<std::string> attese = {"c7d6/11", "f8d6/21", "e8d8/9",
                                           "e8d7/9",  "e8e7/9",  "e8f7/9"};
  EXPECT_EQ(Scritte(Candidate()), attese);
  EXPECT_EQ(Scritte(GeneraCon(genera_MosseTattiche_del_nero)),
            (std::vector<std::string>{"c7d6/11", "f8d6/21"}));
  EXPECT_EQ(Scritte(GeneraCon(genera_noncatture_del_nero)),
            (std::vector<std::string>{"e8d8/9", "e8d7/9", "e8e7/9", "e8f7/9"}));
}

TEST(Generazione, InterposizioniDoppioPassoDaTuttiIPassi) {
  // Rook h4 checks a4 along the rank: double steps land between from every
  // single step, then single steps, then each piece's capture and blocks.
  ASSERT_TRUE(Carica("4k3/8/8/8/K6r/3P4/2P1PB1N/8 w - - 0 1"));
  const std::vector<std::string> attese = {"c2c4/3",  "e2e4/3", "d3d4/4", "h2g4/5",
                                           "f2h4/23", "f2d4/6", "a4a5/9", "a4b5/9",
                                           "a4b4/9",  "a4a3/9", "a4b3/9"};
  EXPECT_EQ(Scritte(Candidate()), attese);
  EXPECT_EQ(Scritte(GeneraCon(genera_MosseTattiche_del_bianco)),
            (std::vector<std::string>{"f2h4/23"}));
  EXPECT_EQ(Scritte(GeneraCon(genera_noncatture_del_bianco)),
            (std::vector<std::string>{"c2c4/3", "e2e4/3", "d3d4/4", "h2g4/5", "f2d4/6", "a4a5/9",
                                      "a4b5/9", "a4b4/9", "a4a3/9", "a4b3/9"}));
}

TEST(Generazione, ScaccoDiPedoneCatturaEnPassant) {
  // e2-e4 checks the king on f5 directly: the first field holds e4, so the
  // black pawn d4 may take it en passant.
  ASSERT_TRUE(Carica("8/8/8/5k2/3p4/8/4P3/4K3 w - - 0 1"));
  ASSERT_TRUE(Gioca("e2e4"));
  ASSERT_EQ(PrimoScacco(InfoPosizione), Casa("e4"));
  ASSERT_TRUE(InfoPosizione & PERMESSO_ENPASSANT);
  const uint64_t ep = Trova("d4e3");
  ASSERT_NE(ep, 0u);
  EXPECT_EQ(TipoMossa(ep), CATTURA_ENPASSANT);
  EXPECT_EQ(Fai(ep), 1);
}

TEST(Generazione, ScaccoNelSecondoCampoNessunEnPassant) {
  // c2-c4 uncovers the bishop b1 on h7: the check stands in the second
  // field, so the pawn d4 beside c4 gets no en passant evasion.
  ASSERT_TRUE(Carica("8/7k/8/8/3p4/8/2P5/1B2K3 w - - 0 1"));
  ASSERT_TRUE(Gioca("c2c4"));
  ASSERT_EQ(PrimoScacco(InfoPosizione), NESSUNA_CASA);
  ASSERT_EQ(SecondoScacco(InfoPosizione), Casa("b1"));
  ASSERT_TRUE(InfoPosizione & PERMESSO_ENPASSANT);
  // The king's five steps and the block d4-d3.
  const std::vector<uint64_t> c = Candidate();
  ASSERT_EQ(c.size(), 6u);
  EXPECT_NE(std::find(c.begin(), c.end(), Trova("d4d3")), c.end());
  for (uint64_t m : c) EXPECT_NE(TipoMossa(m), CATTURA_ENPASSANT) << Coordinate(m);
}

TEST(Generazione, EnPassantSoloColPermesso) {
  ASSERT_TRUE(Carica("4k3/8/8/8/4p3/8/3P4/4K3 w - - 0 1"));
  ASSERT_TRUE(Gioca("d2d4"));
  ASSERT_TRUE(InfoPosizione & PERMESSO_ENPASSANT);
  ASSERT_NE(Trova("e4d3"), 0u);
  EXPECT_EQ(TipoMossa(Trova("e4d3")), CATTURA_ENPASSANT);
  // The last move is still the double step, but without the bit nothing.
  CambiaPosizione([](StatoPosizione& p) { p.info &= ~PERMESSO_ENPASSANT; });
  ASSERT_EQ(Candidate().size(), 6u);  // e4-e3 and the king's five steps
  for (uint64_t m : Candidate()) EXPECT_NE(TipoMossa(m), CATTURA_ENPASSANT) << Coordinate(m);
  // A double step with no pawn beside it gives no permission.
  ASSERT_TRUE(Carica("4k3/8/8/8/8/4p3/6P1/4K3 w - - 0 1"));
  ASSERT_TRUE(Gioca("g2g4"));
  EXPECT_FALSE(InfoPosizione & PERMESSO_ENPASSANT);
  ASSERT_EQ(Candidate().size(), 6u);  // e3-e2 and the king's five steps
  for (uint64_t m : Candidate()) EXPECT_NE(TipoMossa(m), CATTURA_ENPASSANT) << Coordinate(m);
}

// Walks a few plies from several positions: at every position the tactical
// and the quiet generators give exactly the two parts of the all-moves list,
// each in the same order.
// Returns the number of positions compared.
int ConfrontaParti(int profondita) {
  const std::vector<uint64_t> tutte = Candidate();
  std::vector<uint64_t> tattiche, quiete;
  for (uint64_t m : tutte) (Tattica(m) ? tattiche : quiete).push_back(m);
  EXPECT_EQ(GeneraCon(genera_tattiche_del[AlTratto()]), tattiche);
  EXPECT_EQ(GeneraCon(genera_noncatture_del[AlTratto()]), quiete);
  int confrontate = 1;
  if (profondita == 0 || ::testing::Test::HasFailure()) return confrontate;
  for (uint64_t m : tutte) {
    if (!Fai(m)) continue;
    confrontate += ConfrontaParti(profondita - 1);
    Ritira();
  }
  return confrontate;
}

TEST(Generazione, TatticheENonCatturePartiDelleTutte) {
  for (const char* fen :
       {"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
        "r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1",
        "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1", "n1n5/PPPk4/8/8/8/8/4Kppp/5N1N b - - 0 1"}) {
    ASSERT_TRUE(Carica(fen)) << fen;
    // Two plies from each of these positions meet well over a hundred positions.
    EXPECT_GT(ConfrontaParti(2), 100) << fen;
  }
}

}  // namespace
