// Make-move: the legality test, the keys, the castling rights, the
// en passant permission, the half-move clock and the checker fields.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "aiuti.h"
#include "board/mossa.h"
#include "moves/fai.h"
#include "moves/registro.h"
#include "supporto/stati.h"

namespace {

// Every global byte for byte, list order and slot bits included: a refused
// move must leave the position exactly as it was.
struct Grezzo {
  uint64_t pezzo_in[65], pedoni[2][8], cavalli[2][10], alfieri[2][10], torri[2][10], donne[2][9];
  uint64_t pezzi[2][5], colore[2], re[2], materiale[2];
  uint64_t occupazione, info, chiave, hash_pedoni, contatore, ultima, successiva;
  uint64_t salvate[3];
};
Grezzo FotografaGrezzo() {
  Grezzo g;
  std::memcpy(g.pezzo_in, PezzoIn, sizeof g.pezzo_in);
  std::memcpy(g.pedoni, casa_pedone, sizeof g.pedoni);
  std::memcpy(g.cavalli, casa_cavallo, sizeof g.cavalli);
  std::memcpy(g.alfieri, casa_alfiere, sizeof g.alfieri);
  std::memcpy(g.torri, casa_torre, sizeof g.torri);
  std::memcpy(g.donne, casa_donna, sizeof g.donne);
  std::memcpy(g.pezzi, btm_pezzi, sizeof g.pezzi);
  std::memcpy(g.colore, btm_colore, sizeof g.colore);
  std::memcpy(g.re, casa_re, sizeof g.re);
  std::memcpy(g.materiale, materiale, sizeof g.materiale);
  g.occupazione = btm_occupazione;
  g.info = InfoPosizione;
  g.chiave = ChiaveHash;
  g.hash_pedoni = HashPedoni;
  g.contatore = ContatoreMosse;
  g.ultima = ElencoMosse[ContatoreMosse];
  g.successiva = ElencoMosse[ContatoreMosse + 1];
  g.salvate[0] = backup_ChiaveHash[ContatoreMosse];
  g.salvate[1] = backup_HashPedoni[ContatoreMosse];
  g.salvate[2] = backup_InfoPosizione[ContatoreMosse];
  return g;
}
bool operator==(const Grezzo& a, const Grezzo& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// Makes the move and checks what every successful make must leave behind.
void FaiEControlla(const std::string& coordinate) {
  const uint64_t m = Trova(coordinate);
  ASSERT_NE(m, 0u) << coordinate;
  const uint64_t contatore = ContatoreMosse;
  ASSERT_EQ(Fai(m), 1) << coordinate;
  EXPECT_EQ(ContatoreMosse, contatore + 1);
  EXPECT_EQ(ElencoMosse[ContatoreMosse], m);
  EXPECT_EQ(ControllaCoerenza(), "");
  EXPECT_EQ(ControllaScacchi(), "") << coordinate;
  EXPECT_EQ(HashPedoni, CalcolaHashPedoni());
}

// Loads the position, makes the move and compares both checker fields.
void CampiDopo(const char* fen, const std::string& coordinate, uint64_t primo, uint64_t secondo) {
  ASSERT_TRUE(Carica(fen)) << fen;
  FaiEControlla(coordinate);
  EXPECT_EQ(PrimoScacco(InfoPosizione), primo) << fen << " " << coordinate;
  EXPECT_EQ(SecondoScacco(InfoPosizione), secondo) << fen << " " << coordinate;
}

void Rifiutata(const char* fen, const std::string& coordinate) {
  ASSERT_TRUE(Carica(fen)) << fen;
  const uint64_t m = Trova(coordinate);
  ASSERT_NE(m, 0u) << coordinate;
  SalvaParolePosizione();
  const Grezzo prima = FotografaGrezzo();
  EXPECT_EQ(Fai(m), 0) << coordinate;
  EXPECT_TRUE(FotografaGrezzo() == prima) << coordinate;
}

TEST(FaiMossa, CavalloInchiodatoRifiutato) {
  for (const char* mossa : {"e2c3", "e2g3", "e2c1", "e2g1", "e2d4", "e2f4"})
    Rifiutata("4r2k/8/8/8/8/8/4N3/4K3 w - - 0 1", mossa);
}

TEST(FaiMossa, InchiodaturaSullaDiagonaleECatturaDelPezzoCheInchioda) {
  Rifiutata("7k/8/8/8/1b6/8/3R4/4K3 w - - 0 1", "d2d5");
  Rifiutata("7k/8/8/8/1b6/2N5/8/4K3 w - - 0 1", "c3e4");
  ASSERT_TRUE(Carica("7k/8/8/8/1b6/8/3Q4/4K3 w - - 0 1"));
  FaiEControlla("d2b4");  // taking the pinning bishop along the line
  ASSERT_TRUE(Carica("7k/8/8/8/1b6/8/3Q4/4K3 w - - 0 1"));
  FaiEControlla("d2c3");  // staying on the line
}

TEST(FaiMossa, PedoneLungoLaColonnaDellaTorreAccettato) {
  ASSERT_TRUE(Carica("4r2k/8/8/8/8/8/4P3/4K3 w - - 0 1"));
  FaiEControlla("e2e3");
  ASSERT_TRUE(Carica("4r2k/8/8/8/8/8/4P3/4K3 w - - 0 1"));
  FaiEControlla("e2e4");
}

TEST(FaiMossa, EnPassantCheSvuotaLaTraversaRifiutato) {
  Rifiutata("7k/8/8/K2pP2r/8/8/8/8 w - d6 0 1", "e5d6");
  // Mirrored for Black: king a4, pawn d4, white pawn e4 just arrived, rook h4.
  Rifiutata("8/8/8/8/k2Pp2R/8/8/7K b - d3 0 1", "e4d3");
}

TEST(FaiMossa, DoppioPassoEPermessoEnPassant) {
  ASSERT_TRUE(Carica("4k3/8/8/8/4p3/8/3P4/4K3 w - - 0 1"));
  uint64_t prima = ChiaveHash;
  FaiEControlla("d2d4");
  EXPECT_TRUE(InfoPosizione & PERMESSO_ENPASSANT);
  EXPECT_EQ(ChiaveHash,
            prima ^ HashSpostaPedone2In[Casa("d4")] ^ HashPermessoEnpassantIn[Casa("d4")]);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());

  ASSERT_TRUE(Carica("4k3/8/8/8/8/8/3P4/4K3 w - - 0 1"));
  prima = ChiaveHash;
  FaiEControlla("d2d4");
  EXPECT_FALSE(InfoPosizione & PERMESSO_ENPASSANT);
  EXPECT_EQ(ChiaveHash, prima ^ HashSpostaPedone2In[Casa("d4")]);

  // Black's double step beside a white pawn; the permission expires with the
  // next move, whatever it is.
  ASSERT_TRUE(Carica("4k3/3p4/8/4P3/8/8/8/4K3 b - - 0 1"));
  FaiEControlla("d7d5");
  EXPECT_TRUE(InfoPosizione & PERMESSO_ENPASSANT);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
  FaiEControlla("e1d1");
  EXPECT_FALSE(InfoPosizione & PERMESSO_ENPASSANT);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
}

TEST(FaiMossa, CatturaDellaTorreInH8TogliIlDiritto) {
  // Every White mover taking the rook on h8 clears bit 9 when it is set.
  const char* const posizioni[][2] = {
      {"4k2r/8/6N1/8/8/8/8/4K3 w k - 0 1", "g6h8"},  {"4k2r/6P1/8/8/8/8/8/4K3 w k - 0 1", "g7h8q"},
      {"4k2r/6P1/8/8/8/8/8/4K3 w k - 0 1", "g7h8n"}, {"4k2r/8/8/4B3/8/8/8/4K3 w k - 0 1", "e5h8"},
      {"4k2r/8/8/8/8/8/8/4K2R w k - 0 1", "h1h8"},   {"4k2r/8/8/8/8/8/8/4K2Q w k - 0 1", "h1h8"},
      {"4k2r/6K1/8/8/8/8/8/8 w k - 0 1", "g7h8"}};
  for (const auto& [fen, mossa] : posizioni) {
    ASSERT_TRUE(Carica(fen)) << fen;
    ASSERT_TRUE(InfoPosizione & ARROCCO_CORTO_NERO);
    FaiEControlla(mossa);
    EXPECT_FALSE(InfoPosizione & ARROCCO_CORTO_NERO) << fen;
    EXPECT_EQ(ChiaveHash, CalcolaChiaveHash()) << fen;
  }
  // Without the right nothing changes; a queen taken there changes no right.
  ASSERT_TRUE(Carica("4k2r/8/6N1/8/8/8/8/4K3 w q - 0 1"));
  FaiEControlla("g6h8");
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, ARROCCO_LUNGO_NERO);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
  ASSERT_TRUE(Carica("4k2q/8/6N1/8/8/8/8/4K3 w k - 0 1"));
  FaiEControlla("g6h8");
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, ARROCCO_CORTO_NERO);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
  // Rook takes rook: its own right goes, then the captured one.
  ASSERT_TRUE(Carica("4k2r/8/8/8/8/8/8/4K2R w Kk - 0 1"));
  FaiEControlla("h1h8");
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, 0u);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
  // Black taking the rook on a1 clears White's queen side.
  ASSERT_TRUE(Carica("r3k3/8/8/8/8/8/8/R3K3 b Q - 0 1"));
  FaiEControlla("a8a1");
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, 0u);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
}

TEST(FaiMossa, MosseDiReETorreTolgonoIDiritti) {
  const char* const fen = "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1";
  const struct {
    const char* mossa;
    uint64_t restano;
  } casi[] = {{"e1d1", 0x600}, {"a1b1", 0x680}, {"h1g1", 0x700}, {"e1f2", 0x600}};
  for (const auto& caso : casi) {
    ASSERT_TRUE(Carica(fen));
    FaiEControlla(caso.mossa);
    EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, caso.restano) << caso.mossa;
    EXPECT_EQ(ChiaveHash, CalcolaChiaveHash()) << caso.mossa;
  }
  ASSERT_TRUE(Carica("r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1"));
  FaiEControlla("h8h2");
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI,
            ARROCCO_CORTO_BIANCO | ARROCCO_LUNGO_BIANCO | ARROCCO_LUNGO_NERO);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
}

TEST(FaiMossa, ArroccoLungoLasciaLeChiaviDeiDiritti) {
  ASSERT_TRUE(Carica("r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1"));
  FaiEControlla("e1c1");
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, ARROCCO_CORTO_NERO | ARROCCO_LUNGO_NERO);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash() ^ HASH_ARROCCHI_BIANCO);
  EXPECT_EQ(PezzoIn[Casa("c1")], CODICE_RE_BIANCO);
  EXPECT_EQ(CodiceSenzaSlot(PezzoIn[Casa("d1")]), CodicePezzo(TORRE, BIANCO, 0));
  EXPECT_EQ(casa_re_bianco, Casa("c1"));
  // Black's queen side keeps its keys as well; king side removes them.
  ASSERT_TRUE(Carica("r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1"));
  FaiEControlla("e8c8");
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, ARROCCO_CORTO_BIANCO | ARROCCO_LUNGO_BIANCO);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash() ^ HASH_ARROCCHI_NERO);
  for (const char* fen :
       {"r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", "r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1"}) {
    ASSERT_TRUE(Carica(fen));
    FaiEControlla(AlTratto() == NERO ? "e8g8" : "e1g1");
    EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
  }
  // With only the king-side right, king-side castling removes just that key.
  ASSERT_TRUE(Carica("4k3/8/8/8/8/8/8/4K2R w K - 0 1"));
  FaiEControlla("e1g1");
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
}

TEST(FaiMossa, ScaccoDellaTorreDopoArroccoNelSecondoCampo) {
  CampiDopo("5k2/8/8/8/8/8/8/4K2R w K - 0 1", "e1g1", NESSUNA_CASA, Casa("f1"));
  // Black answers it as a single check: only king moves here (e8, g8, e7, f7, g7).
  ASSERT_EQ(Candidate().size(), 5u);
  for (uint64_t m : Candidate()) EXPECT_EQ(OrigineMossa(m), Casa("f8")) << Coordinate(m);
  EXPECT_FALSE(Legali().empty());

  CampiDopo("3k4/8/8/8/8/8/8/R3K3 w Q - 0 1", "e1c1", NESSUNA_CASA, Casa("d1"));

  CampiDopo("4k2r/8/8/8/8/8/8/5K2 b k - 0 1", "e8g8", NESSUNA_CASA, Casa("f8"));
  // With a piece between, no check.
  ASSERT_TRUE(Carica("5k2/5p2/8/8/8/8/8/4K2R w K - 0 1"));
  FaiEControlla("e1g1");
  EXPECT_GE(InfoPosizione, NESSUNO_SCACCO);
}

TEST(FaiMossa, ArroccoNonGuardaLaCasaDelReNeIDiritti) {
  // In check from e8, with the right: the move is made all the same.
  ASSERT_TRUE(Carica("4r1k1/8/8/8/8/8/8/4K2R w K - 0 1"));
  SalvaParolePosizione();
  EXPECT_EQ(fai_o_o_del_bianco(MOSSA_O_O_BIANCO), 1);
  EXPECT_EQ(casa_re_bianco, Casa("g1"));
  // No right at all: made as well.
  ASSERT_TRUE(Carica("6k1/8/8/8/8/8/8/4K2R w - - 0 1"));
  SalvaParolePosizione();
  EXPECT_EQ(fai_o_o_del_bianco(MOSSA_O_O_BIANCO), 1);
  EXPECT_EQ(CodiceSenzaSlot(PezzoIn[Casa("f1")]), CodicePezzo(TORRE, BIANCO, 0));
  EXPECT_EQ(ControllaCoerenza(), "");
  ASSERT_TRUE(Carica("r3k3/8/8/8/8/8/8/7K b - - 0 1"));
  SalvaParolePosizione();
  EXPECT_EQ(fai_o_o_o_del_nero(MOSSA_O_O_O_NERO), 1);
  EXPECT_EQ(casa_re_nero, Casa("c8"));
  EXPECT_EQ(ControllaCoerenza(), "");
  // But a path square attacked, or occupied, refuses it.
  Rifiutata("k4r2/8/8/8/8/8/8/4K2R w K - 0 1", "e1g1");
  Rifiutata("k5r1/8/8/8/8/8/8/4K2R w K - 0 1", "e1g1");
  Rifiutata("3r3k/8/8/8/8/8/8/R3K3 w Q - 0 1", "e1c1");
  Rifiutata("2r4k/8/8/8/8/8/8/R3K3 w Q - 0 1", "e1c1");
  Rifiutata("7k/8/8/8/8/8/8/RN2K3 w Q - 0 1", "e1c1");
  // b1 may be attacked: it is not on the king's path.
  ASSERT_TRUE(Carica("1r5k/8/8/8/8/8/8/R3K3 w Q - 0 1"));
  FaiEControlla("e1c1");
}

TEST(FaiMossa, ArroccoSenzaTorreORiFuoriCasaRifiutato) {
  // Rights taken on trust from the text, but no rook on h1 or no king on e1:
  // refused, nothing written.
  ASSERT_TRUE(Carica("4k3/8/8/8/8/8/8/4K3 w KQ - 0 1"));
  SalvaParolePosizione();
  Grezzo prima = FotografaGrezzo();
  EXPECT_EQ(fai_o_o_del_bianco(MOSSA_O_O_BIANCO), 0);
  EXPECT_EQ(fai_o_o_o_del_bianco(MOSSA_O_O_O_BIANCO), 0);
  EXPECT_TRUE(FotografaGrezzo() == prima);
  ASSERT_TRUE(Carica("4k3/8/8/8/8/8/8/3K3R w K - 0 1"));
  SalvaParolePosizione();
  prima = FotografaGrezzo();
  EXPECT_EQ(fai_o_o_del_bianco(MOSSA_O_O_BIANCO), 0);
  EXPECT_TRUE(FotografaGrezzo() == prima);
  ASSERT_TRUE(Carica("4k3/8/8/8/8/8/8/4K3 b kq - 0 1"));
  SalvaParolePosizione();
  EXPECT_EQ(fai_o_o_del_nero(MOSSA_O_O_NERO), 0);
  EXPECT_EQ(fai_o_o_o_del_nero(MOSSA_O_O_O_NERO), 0);
}

TEST(FaiMossa, PromozioneSullaLineaDellOrigineUnSoloScacco) {
  CampiDopo("8/1P6/8/r7/8/8/1k6/4K3 w - - 0 1", "b7b8q", Casa("b8"), NESSUNA_CASA);
  const std::vector<uint64_t> legali = Legali();
  std::vector<std::string> scritte;
  for (uint64_t m : legali) scritte.push_back(Coordinate(m));
  EXPECT_NE(std::find(scritte.begin(), scritte.end(), "a5b5"), scritte.end());
  // The rook promotion on the file checks the same way; the knight does not.
  CampiDopo("8/1P6/8/r7/8/8/1k6/4K3 w - - 0 1", "b7b8r", Casa("b8"), NESSUNA_CASA);
  ASSERT_TRUE(Carica("8/1P6/8/r7/8/8/1k6/4K3 w - - 0 1"));
  FaiEControlla("b7b8n");
  EXPECT_GE(InfoPosizione, NESSUNO_SCACCO);
}

TEST(FaiMossa, PromozioneConScaccoScopertoVeroDoppio) {
  // The pawn g7 shields h7 from the rook a7: g7-g8=Q checks from g8 and
  // uncovers the rook, a real double check; g7-g8=N only uncovers it.
  CampiDopo("8/R5Pk/8/8/8/8/8/K7 w - - 0 1", "g7g8q", Casa("g8"), Casa("a7"));
  ASSERT_EQ(Candidate().size(), 5u);  // g8, h8, g7, g6, h6
  for (uint64_t m : Candidate()) EXPECT_EQ(OrigineMossa(m), Casa("h7")) << Coordinate(m);
  CampiDopo("8/R5Pk/8/8/8/8/8/K7 w - - 0 1", "g7g8n", NESSUNA_CASA, Casa("a7"));
}

TEST(FaiMossa, ContatoreSemimosseSiFermaA127) {
  ASSERT_TRUE(Carica("rn2k3/8/8/8/8/8/8/4K1NR w K - 99 1"));
  const char* const giro[4] = {"g1f3", "b8c6", "f3g1", "c6b8"};
  for (int i = 0; i < 40; ++i) {
    FaiEControlla(giro[i % 4]);
    EXPECT_EQ(Semimosse(InfoPosizione), uint64_t(std::min(99 + i + 1, 127))) << i;
    EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, ARROCCO_CORTO_BIANCO) << i;
    EXPECT_EQ(ChiaveHash, CalcolaChiaveHash()) << i;
  }
  // A pawn move or a capture restarts it.
  ASSERT_TRUE(Carica("4k3/8/8/8/8/8/4P3/4K3 w - - 50 1"));
  FaiEControlla("e2e3");
  EXPECT_EQ(Semimosse(InfoPosizione), 0u);
}

TEST(FaiMossa, PromozioneConCatturaSullaDiagonaleUnSoloScacco) {
  // c7xd8 lands on the diagonal d8-c7-b6-a5 that runs through its origin: the
  // new piece checks directly and is not also taken for a discovered checker,
  // so the knight may interpose on b6.
  for (const char* mossa : {"c7d8q", "c7d8b"}) {
    CampiDopo("n2r4/2P5/8/k7/8/8/8/4K3 w - - 0 1", mossa, Casa("d8"), NESSUNA_CASA);
    ASSERT_NE(Trova("a8b6"), 0u) << mossa;
    EXPECT_EQ(Fai(Trova("a8b6")), 1) << mossa;
  }
  // Black's mirror: c2xd1 on the diagonal d1-c2-b3-a4, the knight a1 to b3.
  for (const char* mossa : {"c2d1q", "c2d1b"}) {
    CampiDopo("4k3/8/8/8/K7/8/2p5/N2R4 b - - 0 1", mossa, Casa("d1"), NESSUNA_CASA);
    ASSERT_NE(Trova("a1b3"), 0u) << mossa;
    EXPECT_EQ(Fai(Trova("a1b3")), 1) << mossa;
  }
}

TEST(FaiMossa, ContatoreSemimosseFermoA127PerOgniMossaCheLoAumenta) {
  // Quiet moves of every piece but the pawn, and both castlings, for both
  // colours: at 126 the clock reaches 127, at 127 it stays there, and the
  // castling rights come out as from a clock of 0.
  const char* const casi[][2] = {{"r3k2r/8/8/8/8/8/8/R1B1K1QR w KQkq - 0 1", "c1d2"},
                                 {"r3k2r/8/8/8/8/8/8/R1B1K1QR w KQkq - 0 1", "g1g4"},
                                 {"r3k2r/8/8/8/8/8/8/R1B1K1QR w KQkq - 0 1", "a1b1"},
                                 {"r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", "e1e2"},
                                 {"r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", "e1g1"},
                                 {"r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", "e1c1"},
                                 {"r1b1k1qr/8/8/8/8/8/8/R3K2R b KQkq - 0 1", "c8d7"},
                                 {"r1b1k1qr/8/8/8/8/8/8/R3K2R b KQkq - 0 1", "g8g5"},
                                 {"r1b1k1qr/8/8/8/8/8/8/R3K2R b KQkq - 0 1", "h8h7"},
                                 {"r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1", "e8d8"},
                                 {"r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1", "e8g8"},
                                 {"r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1", "e8c8"}};
  for (const auto& [fen, mossa] : casi) {
    SCOPED_TRACE(std::string(fen) + " " + mossa);
    ASSERT_TRUE(Carica(fen));
    FaiEControlla(mossa);
    const uint64_t diritti = InfoPosizione & MASCHERA_DIRITTI;
    const uint64_t chiave = ChiaveHash;
    for (uint64_t prima : {126u, 127u}) {
      ASSERT_TRUE(Carica(fen));
      CambiaPosizione(
          [prima](StatoPosizione& p) { p.info = (p.info & ~MASCHERA_SEMIMOSSE) | prima; });
      FaiEControlla(mossa);
      EXPECT_EQ(Semimosse(InfoPosizione), 127u);
      EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, diritti);
      EXPECT_EQ(ChiaveHash, chiave);
    }
  }
}

TEST(FaiMossa, EnPassantCheScopreScacchi) {
  // Black's d7-d5 blocked the bishop g2; taking it en passant reopens the
  // diagonal onto a8.
  ASSERT_TRUE(Carica("k7/3p4/8/4P3/8/8/6B1/4K3 b - - 0 1"));
  FaiEControlla("d7d5");
  FaiEControlla("e5d6");
  EXPECT_EQ(PrimoScacco(InfoPosizione), Casa("g2"));
  EXPECT_EQ(SecondoScacco(InfoPosizione), NESSUNA_CASA);
  // Both pawns leave rank 5: the rook h5 checks a5.
  CampiDopo("8/8/8/k2pP2R/8/8/8/4K3 w - d6 0 1", "e5d6", NESSUNA_CASA, Casa("h5"));
  // The capturing pawn checks directly.
  ASSERT_TRUE(Carica("8/2k5/8/3pP3/8/8/8/4K3 w - d6 0 1"));
  FaiEControlla("e5d6");
  EXPECT_EQ(PrimoScacco(InfoPosizione), Casa("d6"));
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
}

TEST(FaiMossa, ScacchiScopertiDaPezziCheSiSpostano) {
  // A knight, a king and a pawn leaving a line; a bishop leaving a file; a
  // rook leaving a diagonal; a double check from the knight.
  const char* const casi[][2] = {
      {"4k3/8/8/8/4N3/8/8/K3R3 w - - 0 1", "e4c5"}, {"4k3/8/8/8/4N3/8/8/K3R3 w - - 0 1", "e4d6"},
      {"4k3/8/8/8/4K3/8/8/4R3 w - - 0 1", "e4d4"},  {"4k3/8/8/8/8/5p2/4P3/K3Q3 w - - 0 1", "e2f3"},
      {"4k3/8/8/8/4B3/8/8/K3R3 w - - 0 1", "e4b7"}, {"k7/8/8/3R4/8/8/6B1/K7 w - - 0 1", "d5d7"},
      {"k7/8/8/3P4/8/8/6Q1/K7 w - - 0 1", "d5d6"}};
  for (const auto& [fen, mossa] : casi) {
    ASSERT_TRUE(Carica(fen)) << fen;
    FaiEControlla(mossa);
    EXPECT_LT(InfoPosizione, NESSUNO_SCACCO) << fen << " " << mossa;
  }
}

}  // namespace
