// The draws the arbiter declares without a claim: the 75-move rule (150
// half-moves with no capture and no pawn move, counted past the 127 where
// the position's own count stops) and the fifth occurrence of a position; a
// mate on the same move wins over both.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ambiente_partita.h"

namespace {

class PatteAutomatiche : public AmbientePartita {
 protected:
  // Black's king between h8 and g8, White's king on g6, the rook touring
  // squares it never stands on twice: no position comes back, and a rook on
  // the eighth rank is mate. 99 half-moves on the counter already.
  static constexpr const char* FEN_TORRE = "7k/8/6K1/8/8/8/8/R7 w - - 99 60";
  // Twenty-five rook moves, the last to a6, each answered by the king.
  static constexpr const char* GIRO[25] = {
      "Rb1", "Rc1", "Rd1", "Re1", "Re2", "Rd2", "Rc2", "Rb2", "Rb3", "Rc3", "Rd3", "Re3", "Re4",
      "Rd4", "Rc4", "Rb4", "Rb5", "Rc5", "Rd5", "Re5", "Re6", "Rd6", "Rc6", "Rb6", "Ra6"};

  // The tour up to the 149th reversible half-move: after Black's 25th reply.
  void FinoA149() {
    Nuova(FEN_TORRE);
    for (int i = 0; i < 25; ++i) {
      ASSERT_EQ(Gioca(GIRO[i]), GIRO[i]);
      const char* re = i % 2 == 0 ? "Kg8" : "Kh8";
      ASSERT_EQ(Gioca(re), re) << i;
      ASSERT_EQ(Stato(), "* | ? | ") << i;
    }
  }
};

TEST_F(PatteAutomatiche, CentoQuarantanoveSemimosseNonBastano) {
  FinoA149();
  EXPECT_EQ(SemimosseReversibili(), 149u);
  // The position's own count stopped long ago.
  EXPECT_EQ(Semimosse(InfoPosizione), MASCHERA_SEMIMOSSE);
  EXPECT_EQ(Stato(), "* | ? | ");
  // The fifty-move question came once, at 100, and never again.
  EXPECT_EQ(Esiti, std::vector<std::string>{"cinquanta mosse"});
}

TEST_F(PatteAutomatiche, CentocinquantaSemimossePatta) {
  FinoA149();
  EXPECT_EQ(Gioca("Ra7"), "Ra7");
  EXPECT_EQ(SemimosseReversibili(), 150u);
  EXPECT_EQ(Stato(), "1/2-1/2 | 75-move rule | regola delle 75 mosse");
  EXPECT_EQ(Esiti.back(), "settantacinque mosse");
}

TEST_F(PatteAutomatiche, IlMattoAllaCentocinquantesimaVince) {
  FinoA149();
  EXPECT_EQ(Gioca("Ra8"), "Ra8#");
  EXPECT_EQ(Stato(), "1-0 | Checkmate | scaccomatto");
  EXPECT_EQ(Esiti.back(), "scaccomatto");
}

TEST_F(PatteAutomatiche, UnaCatturaOUnPedoneAzzeranoIlConto) {
  Nuova("7k/8/6K1/8/8/8/P7/R3n3 w - - 99 60");
  EXPECT_EQ(SemimosseReversibili(), 99u);
  EXPECT_EQ(Gioca("Rxe1"), "Rxe1");
  EXPECT_EQ(SemimosseReversibili(), 0u);
  EXPECT_EQ(Gioca("Kg8"), "Kg8");
  EXPECT_EQ(Gioca("a4"), "a4");
  EXPECT_EQ(Gioca("Kh8"), "Kh8");
  EXPECT_EQ(SemimosseReversibili(), 1u);
}

TEST_F(PatteAutomatiche, LaQuintaVoltaPatta) {
  const std::vector<const char*> giro = {"Nf3", "Nf6", "Ng1", "Ng8"};
  // Second and third time: the third asks the arbiter, who goes on.
  for (int volta = 2; volta <= 4; ++volta) {
    EXPECT_EQ(GiocaRevocando(giro), "Nf3 Nf6 Ng1 Ng8");
    EXPECT_EQ(OccorrenzePosizione(), uint32_t(volta));
  }
  EXPECT_EQ(GiocaRevocando({"Nf3", "Nf6", "Ng1"}), "Nf3 Nf6 Ng1");
  RevocaAggiudicazione();
  EXPECT_EQ(Stato(), "* | ? | ");
  Esiti.clear();
  EXPECT_EQ(Gioca("Ng8"), "Ng8");
  EXPECT_EQ(OccorrenzePosizione(), 5u);
  EXPECT_EQ(Stato(), "1/2-1/2 | fivefold repetition | quintupla ripetizione");
  // Adjudicated at once: no threefold question first.
  EXPECT_EQ(Esiti, std::vector<std::string>{"quintupla ripetizione"});
  // The panel still names the last two occurrences.
  EXPECT_EQ(Ripetizioni, 2u);
  EXPECT_EQ(PosizioneRipetuta[0], 12u);
}

TEST_F(PatteAutomatiche, UnaMossaRitirataNonConta) {
  for (int volta = 2; volta <= 4; ++volta) GiocaRevocando({"Nf3", "Nf6", "Ng1", "Ng8"});
  EXPECT_EQ(OccorrenzePosizione(), 4u);
  RevocaAggiudicazione();
  EXPECT_EQ(RitiraUltimaMossa(), 1);
  EXPECT_EQ(GiocaRevocando({"Ng8"}), "Ng8");
  EXPECT_EQ(OccorrenzePosizione(), 4u);
  RevocaAggiudicazione();
  EXPECT_EQ(Stato(), "* | ? | ");
}

}  // namespace
