#include "diagnostics/percorsi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "aiuti_diagnostica.h"
#include "board/fen.h"
#include "board/mossa.h"
#include "diagnostics/controlli.h"
#include "moves/genera.h"
#include "moves/legali.h"
#include "piattaforma/memoria/memoria.h"
#include "supporto/stati.h"

namespace {

void Percorri(uint32_t profondita) { TestVelocita_del[AlTratto()](profondita); }

class Percorsi : public testing::Test {
 protected:
  void SetUp() override {
    memoria::Azzera();
    PosizioniValutate = 0;
  }
};

TEST_F(Percorsi, ProfonditaZeroContaSoloSeStesso) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  const std::vector<uint64_t> segni(DIMENSIONE_BUFFER_MOSSE, 0x5A5Aull);
  ImpostaListaMosse(segni.data(), segni.size());
  ChiudiListaMosse(BufferMosseGenerate + 3);
  TestVelocita_del_bianco(0);
  EXPECT_EQ(PosizioniValutate, 1u);
  TestVelocita_del_nero(0);
  EXPECT_EQ(PosizioniValutate, 2u);
  // Nothing was generated: buffer and end pointer are as they were.
  EXPECT_EQ(FineMosseGenerate, BufferMosseGenerate + 3);
  EXPECT_TRUE(std::all_of(std::begin(BufferMosseGenerate), std::end(BufferMosseGenerate),
                          [](uint64_t m) { return m == 0x5A5Aull; }));

  // The self-checking walk neither generates nor checks at depth 0.
  ReportControlloPosizione.LunghezzaTesto = 7;
  test_del_bianco(0);
  test_del_nero(0);
  EXPECT_EQ(ReportControlloPosizione.LunghezzaTesto, 7u);
  EXPECT_EQ(FineMosseGenerate, BufferMosseGenerate + 3);
  EXPECT_EQ(PosizioniValutate, 2u);
}

TEST_F(Percorsi, ProfonditaUnoDallaPosizioneIniziale) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  const Istantanea prima = Fotografa();
  uint64_t pezzi[65];
  std::memcpy(pezzi, PezzoIn, sizeof pezzi);
  TestVelocita_del_bianco(1);
  EXPECT_EQ(PosizioniValutate, 1u + 20u);
  EXPECT_EQ(Fotografa(), prima) << Differenze(prima, Fotografa());
  EXPECT_EQ(std::memcmp(pezzi, PezzoIn, sizeof pezzi), 0);
  EXPECT_EQ(FineMosseGenerate - BufferMosseGenerate, 22);
}

TEST_F(Percorsi, IlContatoreNonSiAzzera) {
  ASSERT_TRUE(CaricaFen("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR b KQkq - 0 1"));
  PosizioniValutate = 100;
  TestVelocita_del_nero(1);
  EXPECT_EQ(PosizioniValutate, 100u + 1u + 20u);
}

TEST_F(Percorsi, ProfonditaUnoContaLeMosseLegali) {
  int provate = 0;
  for (const RigaPerft& r : LeggiTabellaPerft(TabellaRiferimento)) {
    if (r.profondita != 1) continue;
    ++provate;
    SCOPED_TRACE(r.nome);
    ASSERT_TRUE(CaricaFen(r.fen));
    const Istantanea prima = Fotografa();
    PosizioniValutate = 0;
    Percorri(1);
    EXPECT_EQ(PosizioniValutate, 1 + r.nodi);
    EXPECT_EQ(Fotografa(), prima) << Differenze(prima, Fotografa());
  }
  EXPECT_EQ(provate, 7) << "one depth-1 row per reference position";
}

TEST_F(Percorsi, MossaRifiutataSaltata) {
  // The e2 knight is pinned: its six moves are refused, the four king steps
  // (d1, f1, d2, f2) are made.
  ASSERT_TRUE(CaricaFen("k3r3/8/8/8/8/8/4N3/4K3 w - - 0 1"));
  const Istantanea prima = Fotografa();
  TestVelocita_del_bianco(1);
  EXPECT_EQ(PosizioniValutate, 1u + 4u);
  EXPECT_EQ(FineMosseGenerate - BufferMosseGenerate, 10);
  EXPECT_EQ(Fotografa(), prima) << Differenze(prima, Fotografa());

  testing::internal::CaptureStdout();
  test_del_bianco(1);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(ReportControlloPosizione.LunghezzaTesto, 0u);
  EXPECT_EQ(Fotografa(), prima) << Differenze(prima, Fotografa());
}

TEST_F(Percorsi, MossaRifiutataSenzaControlloNeRicorsione) {
  // Stalemate: the king's two steps go onto attacked squares and the b2
  // knight is pinned, so every candidate is refused. The pawn key is spoiled
  // on purpose: a self-check after any of those moves would report it.
  for (const char* fen :
       {"8/8/8/8/3b4/1k6/1N1n4/K7 w - - 0 1", "k7/1n1N4/1K6/3B4/8/8/8/8 b - - 0 1"}) {
    SCOPED_TRACE(fen);
    ASSERT_TRUE(CaricaFen(fen));
    const auto candidati = genera_mosse_del[AlTratto()](BufferMosseGenerate) - BufferMosseGenerate;
    ASSERT_EQ(candidati, 6);
    CambiaPosizione([](StatoPosizione& s) { s.pedoni ^= 1; });
    const Istantanea prima = Fotografa();
    PosizioniValutate = 0;
    Percorri(2);
    EXPECT_EQ(PosizioniValutate, 1u) << "a refused move must not be walked into";
    for (uint32_t profondita : {1u, 2u}) {
      ReportControlloPosizione.LunghezzaTesto = 0;
      testing::internal::CaptureStdout();
      test_del[AlTratto()](profondita);
      EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
      EXPECT_EQ(ReportControlloPosizione.LunghezzaTesto, 0u);
      EXPECT_EQ(Fotografa(), prima) << Differenze(prima, Fotografa());
    }
    // The spoiled key is there to be found by any self-check.
    testing::internal::CaptureStdout();
    ControllaPosizione(0);
    testing::internal::GetCapturedStdout();
    EXPECT_STREQ(ReportControlloPosizione.testo, "hash pedoni scorretta\n");
  }
}

TEST_F(Percorsi, AutocontrolloProfonditaUnoSenzaReport) {
  for (const char* fen : {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
                          "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1",
                          "r2q1rk1/pP1p2pp/Q4n2/bbp1p3/Np6/1B3NBn/pPPP1PPP/R3K2R b KQ - 0 1",
                          "rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w KQ - 1 8"}) {
    SCOPED_TRACE(fen);
    ASSERT_TRUE(CaricaFen(fen));
    const Istantanea prima = Fotografa();
    testing::internal::CaptureStdout();
    test_del[AlTratto()](1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(ReportControlloPosizione.LunghezzaTesto, 0u);
    EXPECT_EQ(Fotografa(), prima) << Differenze(prima, Fotografa());
  }
}

TEST_F(Percorsi, AutocontrolloSiFermaAlPrimoReport) {
  // Kiwipete: White's queen-side castling keeps its right keys, the first
  // report of the walk; the position stays as it was after that make.
  ASSERT_TRUE(CaricaFen("r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1"));
  testing::internal::CaptureStdout();
  test_del_bianco(1);
  const std::string stampato = testing::internal::GetCapturedStdout();
  EXPECT_EQ(std::string(ReportControlloPosizione.testo), "chiave hash scorretta\n");
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_EQ(ElencoMosse[1], MOSSA_O_O_O_BIANCO);
  EXPECT_EQ(casa_re_bianco, 58u);
  EXPECT_EQ(stampato,
            "Errore!\n chiave hash scorretta\n\nDopoFaiLaMossa 1 "
            "arrocco lungo, e1c1\n");
}

TEST_F(Percorsi, ProfonditaDueETreEsatteDallaPosizioneIniziale) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  const Istantanea prima = Fotografa();
  TestVelocita_del_bianco(2);
  EXPECT_EQ(PosizioniValutate, 1u + 20u + 400u);
  EXPECT_EQ(Fotografa(), prima) << Differenze(prima, Fotografa());
  // The first level's candidates are what the buffer holds afterwards.
  EXPECT_EQ(FineMosseGenerate - BufferMosseGenerate, 22);
  PosizioniValutate = 0;
  TestVelocita_del_bianco(3);
  EXPECT_EQ(PosizioniValutate, 1u + 20u + 400u + 8902u);
  EXPECT_EQ(Fotografa(), prima) << Differenze(prima, Fotografa());

  testing::internal::CaptureStdout();
  test_del_bianco(2);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(ReportControlloPosizione.LunghezzaTesto, 0u);
  EXPECT_EQ(Fotografa(), prima) << Differenze(prima, Fotografa());
}

TEST_F(Percorsi, ProfonditaDueEsattaSuiRiferimenti) {
  int provate = 0;
  for (const RigaPerft& r : LeggiTabellaPerft(TabellaRiferimento)) {
    if (r.profondita != 2) continue;
    ++provate;
    SCOPED_TRACE(r.nome);
    ASSERT_TRUE(CaricaFen(r.fen));
    PosizioniValutate = 0;
    Percorri(1);
    const uint64_t primo_livello = PosizioniValutate - 1;
    PosizioniValutate = 0;
    Percorri(2);
    EXPECT_EQ(PosizioniValutate, 1 + primo_livello + r.nodi);
  }
  EXPECT_EQ(provate, 7) << "one depth-2 row per reference position";
}

TEST_F(Percorsi, UnPercorsoProfondoNonEsceDalBuffer) {
  // Kiwipete's levels cannot all fit in the buffer at depth 5: the deep levels
  // are counted without being expanded, and nothing is written past the end
  // (the sanitizers watch the buffer's bounds).
  ASSERT_TRUE(CaricaFen("r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1"));
  const Istantanea prima = Fotografa();
  const auto candidati = genera_TutteLeMosse_del_bianco(BufferMosseGenerate) - BufferMosseGenerate;
  TestVelocita_del_bianco(5);
  // The third level would not surely fit after Kiwipete's 48 moves and a reply list.
  EXPECT_EQ(PosizioniValutate, 1u + 48u + 2039u);
  EXPECT_EQ(Fotografa(), prima) << Differenze(prima, Fotografa());
  EXPECT_EQ(FineMosseGenerate - BufferMosseGenerate, candidati);
}

}  // namespace
