#include "diagnostics/controlli.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "aiuti_diagnostica.h"
#include "board/fen.h"
#include "board/mossa.h"
#include "moves/registro.h"
#include "moves/tavole.h"
#include "piattaforma/memoria/memoria.h"
#include "supporto/stati.h"

namespace {

// Runs ControllaPosizione and returns what it printed.
std::string Controlla(int dopo_ritira) {
  testing::internal::CaptureStdout();
  ControllaPosizione(dopo_ritira);
  return testing::internal::GetCapturedStdout();
}

std::string Testo() { return ReportControlloPosizione.testo; }

// Makes `mossa` for the side to move, saving the words first as every caller
// does.
int Fai(uint64_t mossa) {
  SalvaParolePosizione();
  return fai_mossa[AlTratto()][TipoMossa(mossa)](mossa);
}

// The last move was made by the side not to move.
void Ritira() {
  ritira_mossa[~AlTratto()][TipoMossa(ElencoMosse[ContatoreMosse])](ElencoMosse[ContatoreMosse]);
}

class Controlli : public testing::Test {
 protected:
  void SetUp() override { memoria::Azzera(); }
};

TEST_F(Controlli, TabelleDerivateDelleChiaviConcordano) {
  testing::internal::CaptureStdout();
  ControllaChiaviHash();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(Controlli, PosizioneCorrettaReportVuotoENienteStampato) {
  const int disegni = ScacchiereDisegnate;
  const std::vector<std::string> posizioni = FenDistinte(LeggiTabellaPerft(TabellaRiferimento));
  ASSERT_EQ(posizioni.size(), 7u);
  for (const std::string& fen : posizioni) {
    SCOPED_TRACE(fen);
    ASSERT_TRUE(CaricaFen(fen));
    EXPECT_EQ(Controlla(0), "");
    EXPECT_EQ(ReportControlloPosizione.LunghezzaTesto, 0u);
    EXPECT_EQ(Testo(), "");
    EXPECT_EQ(ReportControlloPosizione.ChiaveRicalcolata, ChiaveHash);
    EXPECT_EQ(ReportControlloPosizione.HashPedoniRicalcolata, HashPedoni);
    EXPECT_EQ(ReportControlloPosizione.CaseViste, btm_occupazione);
  }
  EXPECT_EQ(ScacchiereDisegnate, disegni) << "no board without a report";
}

TEST_F(Controlli, PermessoEnpassantEntraNellaChiaveRicalcolata) {
  ASSERT_TRUE(CaricaFen("rnbqkbnr/ppp1pppp/8/3pP3/8/8/PPPP1PPP/RNBQKBNR w KQkq d6 0 2"));
  ASSERT_TRUE(InfoPosizione & PERMESSO_ENPASSANT);
  EXPECT_EQ(Controlla(0), "");
  // Without the permission bit the recomputed key lacks exactly the permission
  // key.
  CambiaPosizione([](StatoPosizione& s) { s.info &= ~PERMESSO_ENPASSANT; });
  Controlla(0);
  EXPECT_EQ(Testo(), "chiave hash scorretta\n");
  EXPECT_EQ(ReportControlloPosizione.ChiaveRicalcolata ^ ChiaveHash, HashPermessoEnpassantIn[27])
      << "the key of the pawn on d5";
}

TEST_F(Controlli, ArroccoLungoBiancoLasciaLeChiaviDeiDiritti) {
  ASSERT_TRUE(CaricaFen("r3k2r/pppppppp/8/8/8/8/PPPPPPPP/R3K2R w KQkq - 0 1"));
  const uint64_t prima = ChiaveHash;
  ASSERT_EQ(Fai(MOSSA_O_O_O_BIANCO), 1);
  EXPECT_EQ(InfoPosizione & (ARROCCO_CORTO_BIANCO | ARROCCO_LUNGO_BIANCO), 0u);
  const int disegni = ScacchiereDisegnate;
  const std::string stampato = Controlla(0);
  EXPECT_EQ(Testo(), "chiave hash scorretta\n");
  EXPECT_EQ(ReportControlloPosizione.LunghezzaTesto, Testo().size());
  EXPECT_EQ(ReportControlloPosizione.ChiaveRicalcolata ^ ChiaveHash,
            HASH_ARROCCO_CORTO_BIANCO ^ HASH_ARROCCO_LUNGO_BIANCO);
  EXPECT_EQ(stampato,
            "Errore!\n chiave hash scorretta\n\n"
            "DopoFaiLaMossa 1 arrocco lungo, e1c1\n");
  EXPECT_EQ(ScacchiereDisegnate, disegni + 1) << "the board is drawn with the report";

  Ritira();
  EXPECT_EQ(ChiaveHash, prima);
  EXPECT_EQ(Controlla(1), "");
}

TEST_F(Controlli, ArroccoLungoNeroLasciaLaChiaveDelDiritto) {
  ASSERT_TRUE(CaricaFen("r3k2r/pppppppp/8/8/8/8/PPPPPPPP/R3K2R b q - 0 1"));
  ASSERT_EQ(Fai(MOSSA_O_O_O_NERO), 1);
  const std::string stampato = Controlla(0);
  EXPECT_EQ(Testo(), "chiave hash scorretta\n");
  EXPECT_EQ(ReportControlloPosizione.ChiaveRicalcolata ^ ChiaveHash, HASH_ARROCCO_LUNGO_NERO);
  EXPECT_EQ(stampato,
            "Errore!\n chiave hash scorretta\n\n"
            "DopoFaiLaMossa 2 arrocco lungo, e8c8\n");
}

TEST_F(Controlli, ArroccoCortoTogliLeChiaviDeiDiritti) {
  ASSERT_TRUE(CaricaFen("r3k2r/pppppppp/8/8/8/8/PPPPPPPP/R3K2R w KQkq - 0 1"));
  ASSERT_EQ(Fai(MOSSA_O_O_BIANCO), 1);
  EXPECT_EQ(Controlla(0), "");
  ASSERT_EQ(Fai(MOSSA_O_O_NERO), 1);
  EXPECT_EQ(Controlla(0), "");
}

TEST_F(Controlli, SlotSbagliatoNominaControlloECasa) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  ASSERT_EQ(PezzoIn[7], 0x71u) << "the h8 rook is the second black rook";
  CambiaPosizione([](StatoPosizione& s) { s.pezzo_in[7] = 0x70; });  // slot bits of the other rook
  const std::string stampato = Controlla(0);
  EXPECT_EQ(Testo(), "ControllaPosizione_torre_nero in h8\n");
  EXPECT_EQ(stampato,
            "Errore!\n ControllaPosizione_torre_nero in h8\n\n"
            "DopoFaiLaMossa 0 mossa nulla, a8a8\n");
}

TEST_F(Controlli, PezzoDimenticatoFuoriDalleListe) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  // A white knight on e4 that no list names.
  CambiaPosizione([](StatoPosizione& s) { s.pezzo_in[36] = 0x22; });
  Controlla(0);
  EXPECT_EQ(Testo(), "nella casa e4 non dovrebbe esserci 1\n");
}

TEST_F(Controlli, BitboardDelPezzoEDelColore) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  // g8 missing from the knight bitboard.
  CambiaPosizione([](StatoPosizione& s) { s.pezzi[NERO][CAVALLO] ^= 1ull << 6; });
  Controlla(0);
  EXPECT_EQ(Testo(), "(BitmapMioPezzo != btm) ControllaPosizione_cavallo_nero in g8\n");

  ASSERT_TRUE(CaricaFen(FenIniziale));
  // c1 missing from the white bitboard.
  CambiaPosizione([](StatoPosizione& s) { s.colore[BIANCO] ^= 1ull << 58; });
  Controlla(0);
  EXPECT_EQ(Testo(),
            "((BitmapMieiPezzi&btm) != btm) "
            "ControllaPosizione_alfiere_bianco in f1\n");

  // An empty list names a8 as its last square.
  ASSERT_TRUE(CaricaFen("4k3/8/8/8/8/8/8/4K3 w - - 0 1"));
  CambiaPosizione([](StatoPosizione& s) { s.pezzi[BIANCO][DONNA] = 1ull << 35; });
  Controlla(0);
  EXPECT_EQ(Testo(), "(BitmapMioPezzo != btm) ControllaPosizione_donna_bianco in a8\n");
}

TEST_F(Controlli, ReSenzaCodiceOFuoriDalColore) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  CambiaPosizione([](StatoPosizione& s) {
    s.pezzo_in[4] = CASA_VUOTA;
    s.colore[NERO] ^= 1ull << 4;
  });
  Controlla(0);
  EXPECT_EQ(Testo(),
            "(PezzoIn[CasaMioRe] != MioRe) - ControllaPosizione_re_nero in e8\n"
            "(!(BitmapMieiPezzi & (1ull<<CasaMioRe))) "
            "ControllaPosizione_re_nero in e8\n");
}

TEST_F(Controlli, ChiaviScorretteEPedoniSpostati) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  CambiaPosizione([](StatoPosizione& s) {
    s.pedoni ^= 1;
    s.chiave ^= 2;
  });
  Controlla(0);
  EXPECT_EQ(Testo(), "chiave hash scorretta\nhash pedoni scorretta\n");

  // A pawn moved in its list but not on the board: every part says so.
  ASSERT_TRUE(CaricaFen(FenIniziale));
  CambiaPosizione([](StatoPosizione& s) {
    s.pedone[BIANCO][SlotDelCodice(s.pezzo_in[52])] = 44;  // e2 listed on e3
  });
  Controlla(0);
  EXPECT_EQ(Testo(),
            "ControllaPosizione_pedone_bianco in e3\n"
            "(BitmapMioPezzo != btm) ControllaPosizione_pedone_bianco in h2\n"
            "((BitmapMieiPezzi&btm) != btm) ControllaPosizione_pedone_bianco in h2\n"
            "chiave hash scorretta\nhash pedoni scorretta\n"
            "nella casa e2 non dovrebbe esserci 0\n");
}

TEST_F(Controlli, DopoRitiraNominaLaMossaRitirata) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  ASSERT_EQ(Fai(Mossa(52, 36, PEDONE_AVANZA2)), 1);
  Ritira();
  // A black pawn left behind on e4.
  CambiaPosizione([](StatoPosizione& s) { s.pezzo_in[36] = CodicePezzo(PEDONE, NERO, 0); });
  EXPECT_EQ(Controlla(1),
            "Errore!\n nella casa e4 non dovrebbe esserci 0\n\n"
            "DopoRitiraMossa 1 pedone avanza2, e2e4\n");
}

TEST_F(Controlli, IlReportSiAzzeraAOgniControllo) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  CambiaPosizione([](StatoPosizione& s) { s.chiave ^= 1; });
  Controlla(0);
  ASSERT_NE(ReportControlloPosizione.LunghezzaTesto, 0u);
  CambiaPosizione([](StatoPosizione& s) { s.chiave ^= 1; });
  EXPECT_EQ(Controlla(0), "");
  EXPECT_EQ(ReportControlloPosizione.LunghezzaTesto, 0u);
  EXPECT_EQ(Testo(), "");
}

TEST_F(Controlli, ListeCorrotteNonEsconoDallaScacchiera) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  CambiaPosizione([](StatoPosizione& s) {
    s.torre[NERO][0] = 200;
    s.re[BIANCO] = 64;
    s.materiale[NERO] += 0x0000000050000000ull;  // rook count far beyond the list
  });
  Controlla(0);
  EXPECT_NE(ReportControlloPosizione.LunghezzaTesto, 0u);
  EXPECT_LT(ReportControlloPosizione.LunghezzaTesto, uint32_t(DIMENSIONE_TESTO_CONTROLLO));
  EXPECT_EQ(Testo().size(), ReportControlloPosizione.LunghezzaTesto);
  EXPECT_NE(Testo().find("ControllaPosizione_torre_nero in ??\n"), std::string::npos);
  EXPECT_NE(Testo().find("(PezzoIn[CasaMioRe] != MioRe) - "
                         "ControllaPosizione_re_bianco in ??\n"),
            std::string::npos);
}

}  // namespace
