// Unmake-move and the per-ply backups: every make taken back gives the
// position back, lists compared as sets.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "aiuti.h"
#include "board/mossa.h"
#include "moves/registro.h"
#include "moves/ritira.h"
#include "moves/tavole.h"

namespace {

const char* const Posizioni[] = {
    "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
    "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
    "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1",
    "r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1",
    "r2q1rk1/pP1p2pp/Q4n2/bbp1p3/Np6/1B3NBn/pPPP1PPP/R3K2R b KQ - 0 1",
    "rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w KQ - 1 8",
    "r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w - - 0 10",
    "n1n5/PPPk4/8/8/8/8/4Kppp/5N1N b - - 0 1",
    "rnbqkbnr/ppp1pppp/8/3pP3/8/8/PPPP1PPP/RNBQKBNR w KQkq d6 0 2",
    "8/1P6/8/r7/8/8/1k6/4K3 w - - 0 1",
    "r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1",
};

TEST(RitiraMossa, OgniMossaFattaERitirataRendeLaPosizione) {
  for (const char* fen : Posizioni) {
    ASSERT_TRUE(Carica(fen)) << fen;
    const Istantanea prima = Fotografa();
    int fatte = 0;
    for (uint64_t m : Candidate()) {
      if (!Fai(m)) {
        EXPECT_EQ(Fotografa(), prima) << fen << " refused " << Coordinate(m);
        continue;
      }
      ++fatte;
      Ritira();
      EXPECT_EQ(Fotografa(), prima) << fen << " " << Coordinate(m);
      EXPECT_EQ(ControllaCoerenza(), "") << fen << " " << Coordinate(m);
    }
    EXPECT_GT(fatte, 0) << fen;
  }
}

// Two plies deep from every position: after each make the bookkeeping agrees
// with the position and the checker fields are exact; after each unmake the
// position is back.
void Cammina(int profondita, bool arrocco_lungo, int& fatte) {
  const Istantanea prima = Fotografa();
  for (uint64_t m : Candidate()) {
    if (!Fai(m)) continue;
    ++fatte;
    const bool lungo = arrocco_lungo || TipoMossa(m) == ARROCCO_LUNGO;
    ASSERT_EQ(ControllaCoerenza(), "") << Coordinate(m);
    ASSERT_EQ(ControllaScacchi(), "") << Coordinate(m);
    ASSERT_EQ(HashPedoni, CalcolaHashPedoni()) << Coordinate(m);
    // Queen-side castling keeps the keys of the rights it clears.
    if (!lungo) {
      ASSERT_EQ(ChiaveHash, CalcolaChiaveHash()) << Coordinate(m);
    }
    if (profondita > 1) Cammina(profondita - 1, lungo, fatte);
    Ritira();
    ASSERT_EQ(Fotografa(), prima) << Coordinate(m);
  }
}

TEST(RitiraMossa, CamminoDiDuePliConControlli) {
  for (const char* fen : Posizioni) {
    ASSERT_TRUE(Carica(fen)) << fen;
    ASSERT_EQ(ControllaScacchi(), "") << fen;
    int fatte = 0;
    Cammina(2, false, fatte);
    if (HasFatalFailure()) FAIL() << fen;
    EXPECT_GT(fatte, 20) << fen;
  }
}

TEST(RitiraMossa, LaCatturaRitirataCambiaLOrdineDellaLista) {
  // Black knights a6 (slot 0) and c6 (slot 1); White takes a6.
  ASSERT_TRUE(Carica("4k3/8/n1n5/8/8/8/8/R3K3 w - - 0 1"));
  ASSERT_EQ(casa_cavallo_nero[0], Casa("a6"));
  ASSERT_EQ(casa_cavallo_nero[1], Casa("c6"));
  const Istantanea prima = Fotografa();
  ASSERT_TRUE(Gioca("a1a6"));
  EXPECT_EQ(NumeroPezzi(materiale_del_nero, CAVALLO), 1u);
  EXPECT_EQ(casa_cavallo_nero[0], Casa("c6"));
  EXPECT_EQ(PezzoIn[Casa("c6")], 0x30u);
  Ritira();
  EXPECT_EQ(Fotografa(), prima);
  EXPECT_EQ(casa_cavallo_nero[0], Casa("c6"));
  EXPECT_EQ(casa_cavallo_nero[1], Casa("a6"));
  EXPECT_EQ(PezzoIn[Casa("c6")], 0x30u);
  EXPECT_EQ(PezzoIn[Casa("a6")], 0x31u);
  EXPECT_EQ(ControllaCoerenza(), "");
}

TEST(RitiraMossa, PromozioneConCatturaRitirata) {
  ASSERT_TRUE(Carica("1r2k3/P1P5/8/8/8/8/8/4K3 w - - 0 1"));
  const uint64_t bianco = materiale_del_bianco, nero = materiale_del_nero;
  ASSERT_TRUE(Gioca("a7b8q"));
  EXPECT_EQ(NumeroPezzi(materiale_del_bianco, PEDONE), 1u);
  EXPECT_EQ(NumeroPezzi(materiale_del_bianco, DONNA), 1u);
  EXPECT_EQ(materiale_del_bianco >> 56, 9u);
  EXPECT_EQ(NumeroPezzi(materiale_del_nero, TORRE), 0u);
  EXPECT_EQ(materiale_del_nero >> 56, 0u);
  EXPECT_EQ(ControllaCoerenza(), "");
  Ritira();
  EXPECT_EQ(materiale_del_bianco, bianco);
  EXPECT_EQ(materiale_del_nero, nero);
  EXPECT_EQ(NumeroPezzi(materiale_del_bianco, PEDONE), 2u);
  EXPECT_EQ(NumeroPezzi(materiale_del_bianco, DONNA), 0u);
  EXPECT_EQ(NumeroPezzi(materiale_del_nero, TORRE), 1u);
  EXPECT_EQ(PezzoIn[Casa("b8")], CodicePezzo(TORRE, NERO, 0));
  EXPECT_EQ(CodiceSenzaSlot(PezzoIn[Casa("a7")]), CodicePezzo(PEDONE, BIANCO, 0));
  EXPECT_EQ(ControllaCoerenza(), "");
  // The pawn came back at the end of its list: a7 is now slot 1.
  EXPECT_EQ(casa_pedone_bianco[1], Casa("a7"));
  EXPECT_EQ(casa_pedone_bianco[0], Casa("c7"));
}

TEST(RitiraMossa, HashPedoniNonRilettaPerUnaMossaDiCavallo) {
  ASSERT_TRUE(Carica("4k3/8/8/8/8/8/4P3/4K1N1 w - - 0 1"));
  const uint64_t pedoni = HashPedoni;
  ASSERT_TRUE(Gioca("g1f3"));
  // The backup of the ply is not read back for a knight move.
  backup_HashPedoni[ContatoreMosse - 1] = ~pedoni;
  Ritira();
  EXPECT_EQ(HashPedoni, pedoni);
  // A pawn move does take it from the backup.
  ASSERT_TRUE(Gioca("e2e4"));
  backup_HashPedoni[ContatoreMosse - 1] = 12345;
  Ritira();
  EXPECT_EQ(HashPedoni, 12345u);
}

TEST(RitiraMossa, LaTavolaSegueLaParitaDelContatore) {
  ASSERT_TRUE(Carica("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"));
  const Istantanea inizio = Fotografa();
  ASSERT_TRUE(Gioca("e2e4"));
  ASSERT_EQ(AlTratto(), NERO);  // the last move was White's
  const Istantanea dopo_bianco = Fotografa();
  ASSERT_TRUE(Gioca("e7e5"));
  ritira_mossa_del_nero[TipoMossa(ElencoMosse[ContatoreMosse])](ElencoMosse[ContatoreMosse]);
  EXPECT_EQ(Fotografa(), dopo_bianco);
  ritira_mossa_del_bianco[TipoMossa(ElencoMosse[ContatoreMosse])](ElencoMosse[ContatoreMosse]);
  EXPECT_EQ(Fotografa(), inizio);
}

}  // namespace
