// The self-checking walk with a fault planted where only one of its checks
// can see it: after a make, after an unmake, or one level deeper. The walk
// must print that check's report and stop right there, leaving the position
// as it was at that moment.
#include <gtest/gtest.h>

#include <string>

#include "aiuti_diagnostica.h"
#include "board/mossa.h"
#include "diagnostics/controlli.h"
#include "diagnostics/percorsi.h"
#include "moves/genera.h"
#include "moves/registro.h"
#include "moves/tavole.h"
#include "piattaforma/memoria/memoria.h"
#include "supporto/stati.h"

namespace {

class PercorsiGuasti : public testing::Test {
 protected:
  void SetUp() override { memoria::Azzera(); }

  static std::string Percorri(uint32_t profondita) {
    testing::internal::CaptureStdout();
    (ContatoreMosse & 1 ? test_del_nero : test_del_bianco)(profondita);
    return testing::internal::GetCapturedStdout();
  }
};

// A lone pawn and a far king: the pawn's single step is the first candidate.
constexpr const char* PedoneBianco = "4k3/8/8/8/8/8/P7/7K w - - 0 1";
constexpr const char* PedoneNero = "7k/p7/8/8/8/8/8/4K3 b - - 0 1";

TEST_F(PercorsiGuasti, GuastoVistoDopoLaMossaFermaIlPercorso) {
  // A spoiled pawn key survives every make: the first one reports it.
  ASSERT_TRUE(CaricaFen(PedoneBianco));
  CambiaPosizione([](StatoPosizione& s) { s.pedoni ^= 1; });
  EXPECT_EQ(Percorri(2),
            "Errore!\n hash pedoni scorretta\n\nDopoFaiLaMossa 1 sposta pedone, a2a3\n");
  EXPECT_EQ(ContatoreMosse, 1u) << "stopped before the unmake";
  EXPECT_EQ(ElencoMosse[1], Mossa(48, 40, SPOSTA_PEDONE));
  EXPECT_EQ(PezzoIn[40] >> 5, uint64_t(PEDONE));

  ASSERT_TRUE(CaricaFen(PedoneNero));
  CambiaPosizione([](StatoPosizione& s) { s.pedoni ^= 1; });
  EXPECT_EQ(Percorri(1),
            "Errore!\n hash pedoni scorretta\n\nDopoFaiLaMossa 2 sposta pedone, a7a6\n");
  EXPECT_EQ(ContatoreMosse, 2u);
  EXPECT_EQ(ElencoMosse[2], Mossa(8, 16, SPOSTA_PEDONE));
}

TEST_F(PercorsiGuasti, GuastoVistoSoloDopoIlRitiroFermaIlPercorso) {
  // The pawn's own bit missing from its colour's bitboard: the make toggles
  // it back on (and the arrival's), so the moved position checks clean; the
  // unmake toggles it off again, and only the check after it can tell.
  ASSERT_TRUE(CaricaFen(PedoneBianco));
  CambiaPosizione([](StatoPosizione& s) { s.colore[BIANCO] ^= 1ull << 48; });  // a2
  EXPECT_EQ(Percorri(1),
            "Errore!\n ((BitmapMieiPezzi&btm) != btm) ControllaPosizione_pedone_bianco in a2\n\n"
            "DopoRitiraMossa 1 sposta pedone, a2a3\n");
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_EQ(ElencoMosse[1], Mossa(48, 40, SPOSTA_PEDONE)) << "no move after the report";
  EXPECT_EQ(casa_re_bianco, 63u);

  ASSERT_TRUE(CaricaFen(PedoneNero));
  CambiaPosizione([](StatoPosizione& s) { s.colore[NERO] ^= 1ull << 8; });  // a7
  EXPECT_EQ(Percorri(1),
            "Errore!\n ((BitmapMieiPezzi&btm) != btm) ControllaPosizione_pedone_nero in a7\n\n"
            "DopoRitiraMossa 2 sposta pedone, a7a6\n");
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_EQ(ElencoMosse[2], Mossa(8, 16, SPOSTA_PEDONE));
  EXPECT_EQ(casa_re_nero, 7u);
}

TEST_F(PercorsiGuasti, GuastoNelLivelloSottostanteFermaAncheQuelloSopra) {
  // White's king steps first (h1-g2); below it, Black's rook moves are clean
  // and the queen-side castling with its right keeps the right's key: the
  // second level reports it and neither level takes anything back.
  ASSERT_TRUE(CaricaFen("r3k3/8/8/8/8/8/8/7K w q - 0 1"));
  EXPECT_EQ(Percorri(2),
            "Errore!\n chiave hash scorretta\n\nDopoFaiLaMossa 2 arrocco lungo, e8c8\n");
  EXPECT_EQ(ContatoreMosse, 2u);
  EXPECT_EQ(ElencoMosse[1], Mossa(63, 54, SPOSTA_RE));
  EXPECT_EQ(ElencoMosse[2], MOSSA_O_O_O_NERO);
  EXPECT_EQ(casa_re_bianco, 54u);
  EXPECT_EQ(casa_re_nero, 2u);
}

TEST_F(PercorsiGuasti, SenzaGuastiNessunaStampa) {
  // The same positions unspoiled walk through without a word.
  for (const char* fen : {PedoneBianco, PedoneNero}) {
    SCOPED_TRACE(fen);
    ASSERT_TRUE(CaricaFen(fen));
    const uint64_t contatore = ContatoreMosse;
    EXPECT_EQ(Percorri(2), "");
    EXPECT_EQ(ReportControlloPosizione.LunghezzaTesto, 0u);
    EXPECT_EQ(ContatoreMosse, contatore);
  }
}

}  // namespace
