// Repetitions of the position, the threefold question and the two panel
// sentences.
#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "ambiente_partita.h"
#include "moves/registro.h"
#include "supporto/stati.h"

namespace {

class Ripetizione : public AmbientePartita {};

TEST_F(Ripetizione, Testi) {
  EXPECT_STREQ(StringaRipetizioni[0], "non si e' mai verificata prima");
  EXPECT_STREQ(StringaRipetizioni[1], "e' identica a quella dopo");
  EXPECT_STREQ(StringaRipetizioni[2], "e' identica a quelle dopo");
}

TEST_F(Ripetizione, CavalliAvantiEIndietro) {
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' quella iniziale");
  EXPECT_EQ(Gioca("Nf3"), "Nf3");
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente non si e' mai verificata prima");
  EXPECT_EQ(GiocaRevocando({"Nf6", "Ng1"}), "Nf6 Ng1");
  EXPECT_EQ(Ripetizioni, 0u);
  EXPECT_EQ(Gioca("Ng8"), "Ng8");
  EXPECT_EQ(Ripetizioni, 1u);
  EXPECT_EQ(PosizioneRipetuta[0], 0u);
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' identica a quella iniziale");

  EXPECT_EQ(Gioca("Nf3"), "Nf3");
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' identica a quella dopo 1.Nf3");
  EXPECT_EQ(Gioca("Nf6"), "Nf6");
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' identica a quella dopo 1.Nf6");
  EXPECT_EQ(Gioca("Ng1"), "Ng1");
  EXPECT_TRUE(Esiti.empty());
  EXPECT_EQ(Stato(), "* | ? | ");

  EXPECT_EQ(Gioca("Ng8"), "Ng8");
  EXPECT_EQ(Ripetizioni, 2u);
  EXPECT_EQ(PosizioneRipetuta[0], 4u);
  EXPECT_EQ(PosizioneRipetuta[1], 0u);
  EXPECT_EQ(FraseRipetizioni(),
            "la posizione corrente e' identica a quella iniziale e quella dopo 2.Ng8");
  EXPECT_EQ(Esiti, std::vector<std::string>{"triplice ripetizione"});
  EXPECT_EQ(Stato(), "1/2-1/2 | threefold repetition | triplice ripetizione");
}

TEST_F(Ripetizione, QuelleDopoDueMosseNominaPrimaLaPiuVecchia) {
  EXPECT_EQ(GiocaRevocando({"e4", "e5", "Nf3", "Nf6", "Ng1", "Ng8"}), "e4 e5 Nf3 Nf6 Ng1 Ng8");
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' identica a quella dopo 1.e5");
  EXPECT_EQ(GiocaRevocando({"Nf3", "Nf6", "Ng1", "Ng8"}), "Nf3 Nf6 Ng1 Ng8");
  EXPECT_EQ(Ripetizioni, 2u);
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' identica a quelle dopo 1.e5 e 3.Ng8");
  EXPECT_EQ(Stato(), "1/2-1/2 | threefold repetition | triplice ripetizione");

  // Seen three times before: only the two most recent are named.
  EXPECT_EQ(GiocaRevocando({"Nf3", "Nf6", "Ng1", "Ng8"}), "Nf3 Nf6 Ng1 Ng8");
  EXPECT_EQ(Ripetizioni, 2u);
  EXPECT_EQ(PosizioneRipetuta[0], 10u);
  EXPECT_EQ(PosizioneRipetuta[1], 6u);
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' identica a quelle dopo 3.Ng8 e 5.Ng8");
}

TEST_F(Ripetizione, DueMossePrimaNonSiGuarda) {
  // Only plies n - 4, n - 6, ... are compared.
  EXPECT_EQ(GiocaRevocando({"Nf3", "Nf6", "Ng1", "Ng8"}), "Nf3 Nf6 Ng1 Ng8");
  CambiaRegistro([](StatoRegistro& r) { r.chiave[2] = ChiaveHash; });
  ScansionaRipetizioni();
  EXPECT_EQ(Ripetizioni, 1u);
  EXPECT_EQ(PosizioneRipetuta[0], 0u);
}

TEST_F(Ripetizione, UnaMossaDiPedoneNascondeLeOccorrenzePrecedenti) {
  EXPECT_EQ(GiocaRevocando({"e4", "e5", "Nf3", "Nf6", "Ng1", "Ng8"}), "e4 e5 Nf3 Nf6 Ng1 Ng8");
  ASSERT_EQ(Semimosse(InfoPosizione), 4u);
  // A key planted before the last pawn move is never looked at.
  CambiaRegistro([](StatoRegistro& r) { r.chiave[0] = ChiaveHash; });
  ScansionaRipetizioni();
  EXPECT_EQ(Ripetizioni, 1u);
  EXPECT_EQ(PosizioneRipetuta[0], 2u);
}

TEST_F(Ripetizione, UnaCatturaAzzeraLaRicerca) {
  Nuova("4k3/8/8/8/8/8/p7/R3K3 w - - 0 1");
  EXPECT_EQ(GiocaRevocando({"Rb1", "Kd7", "Ra1", "Ke8"}), "Rb1 Kd7 Ra1 Ke8");
  EXPECT_EQ(Ripetizioni, 1u);
  EXPECT_EQ(GiocaRevocando({"Rxa2", "Kd7", "Ra1", "Ke8"}), "Rxa2 Kd7 Ra1 Ke8");
  EXPECT_EQ(Ripetizioni, 0u);
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente non si e' mai verificata prima");
  CambiaRegistro([](StatoRegistro& r) { r.chiave[4] = r.chiave[0] = ChiaveHash; });
  ScansionaRipetizioni();
  EXPECT_EQ(Ripetizioni, 0u);
}

TEST_F(Ripetizione, IDirittiDArroccoFannoUnaPosizioneDiversa) {
  EXPECT_EQ(GiocaRevocando({"Nf3", "Nf6", "Rg1", "Rg8", "Rh1", "Rh8", "Ng1", "Ng8"}),
            "Nf3 Nf6 Rg1 Rg8 Rh1 Rh8 Ng1 Ng8");
  EXPECT_EQ(Ripetizioni, 0u);
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente non si e' mai verificata prima");
  EXPECT_EQ(GiocaRevocando({"Nf3", "Nf6", "Ng1", "Ng8"}), "Nf3 Nf6 Ng1 Ng8");
  EXPECT_EQ(Ripetizioni, 1u);
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' identica a quella dopo 4.Ng8");
}

TEST_F(Ripetizione, LEnPassantPossibileFaUnaPosizioneDiversa) {
  // After d5 White may take en passant; the same placement later may not.
  Nuova("4k3/3p4/8/4P3/8/8/8/4K3 b - - 0 1");
  EXPECT_EQ(GiocaRevocando({"d5", "Ke2", "Ke7", "Ke1", "Ke8"}), "d5 Ke2 Ke7 Ke1 Ke8");
  EXPECT_EQ(Ripetizioni, 0u);
  EXPECT_EQ(GiocaRevocando({"Ke2", "Ke7", "Ke1", "Ke8"}), "Ke2 Ke7 Ke1 Ke8");
  EXPECT_EQ(Ripetizioni, 1u);
  EXPECT_EQ(PosizioneRipetuta[0], 6u);
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' identica a quella dopo 3.Ke8");
}

TEST_F(Ripetizione, PartitaIniziataColNero) {
  Nuova("4k3/8/8/8/8/8/8/R3K3 b - - 0 1");
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' quella iniziale");
  EXPECT_EQ(GiocaRevocando({"Kd7", "Ra2", "Ke8", "Ra1"}), "Kd7 Ra2 Ke8 Ra1");
  EXPECT_EQ(Ripetizioni, 1u);
  EXPECT_EQ(PosizioneRipetuta[0], 1u);
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' identica a quella iniziale");
  EXPECT_EQ(GiocaRevocando({"Kd7", "Ra2", "Ke8", "Ra1"}), "Kd7 Ra2 Ke8 Ra1");
  EXPECT_EQ(FraseRipetizioni(),
            "la posizione corrente e' identica a quella iniziale e quella dopo 3.Ra1");
}

TEST_F(Ripetizione, UnaPosizioneCaricataConMosseReversibiliNonGuardaFuoriPartita) {
  // The clock of the text counts plies that this game never recorded.
  Nuova("4k3/8/8/8/8/8/8/R3K3 b - - 40 1");
  CambiaRegistro([](StatoRegistro& r) { r.chiave[0] = ChiaveHash ^ 1; });
  EXPECT_EQ(GiocaRevocando({"Kd7", "Ra2", "Ke8", "Ra1"}), "Kd7 Ra2 Ke8 Ra1");
  EXPECT_EQ(GiocaRevocando({"Kd7", "Ra2", "Ke8"}), "Kd7 Ra2 Ke8");
  // Ply 8 equals ply 4; ply 0 is not this game's, whatever it holds.
  CambiaRegistro([](StatoRegistro& r) { r.chiave[0] = ChiaveHash; });
  ScansionaRipetizioni();
  EXPECT_EQ(Ripetizioni, 1u);
  EXPECT_EQ(PosizioneRipetuta[0], 4u);
}

TEST_F(Ripetizione, LaTripliceOltreCentoventisetteSemimosseSiTrova) {
  // The position at plies 0 and 4 comes back at ply 144: by then the
  // half-move clock has stopped at 127, and both earlier occurrences lie
  // further back than that.
  Nuova("7k/8/8/8/8/8/8/R3K3 w - - 0 1");
  EXPECT_EQ(GiocaRevocando({"Ra2", "Kg8", "Ra1", "Kh8"}), "Ra2 Kg8 Ra1 Kh8");
  ASSERT_EQ(Ripetizioni, 1u);
  // A rook tour over squares that never give check, each rook square met
  // once with the king on e1 and once with it on d1; the black king
  // steps between h8 and g8.
  std::vector<std::string> bianche;
  const char* andata[] = {"a2", "a3", "a4", "a5", "a6", "a7", "b7", "b6", "b5", "b4", "b3", "b2",
                          "c2", "c3", "c4", "c5", "c6", "c7", "d7", "d6", "d5", "d4", "d3", "d2",
                          "e2", "e3", "e4", "e5", "e6", "f6", "f5", "f4", "f3", "f2"};
  for (const char* casa : andata) bianche.push_back(std::string("R") + casa);
  bianche.push_back("Kd1");
  for (int i = int(std::size(andata)) - 2; i >= 0; --i)
    bianche.push_back(std::string("R") + andata[i]);
  bianche.push_back("Ra1");
  bianche.push_back("Ke1");
  for (size_t i = 0; i < bianche.size(); ++i) {
    ASSERT_EQ(Gioca(bianche[i].c_str()), bianche[i]) << i;
    const char* nera = i % 2 == 0 ? "Kg8" : "Kh8";
    ASSERT_EQ(Gioca(nera), nera) << i;
    if (ContatoreMosse < 144) {
      ASSERT_NE(Ripetizioni, 2u) << ContatoreMosse;
    }
  }
  ASSERT_EQ(ContatoreMosse, 144u);
  ASSERT_EQ(Semimosse(InfoPosizione), 127u);
  EXPECT_EQ(Ripetizioni, 2u);
  EXPECT_EQ(PosizioneRipetuta[0], 4u);
  EXPECT_EQ(PosizioneRipetuta[1], 0u);
  EXPECT_EQ(Stato(), "1/2-1/2 | threefold repetition | triplice ripetizione");
}

TEST_F(Ripetizione, IlRitiroNonToccaLeRipetizioni) {
  EXPECT_EQ(GiocaRevocando({"Nf3", "Nf6", "Ng1", "Ng8"}), "Nf3 Nf6 Ng1 Ng8");
  ASSERT_EQ(RitiraUltimaMossa(), 1);
  EXPECT_EQ(Ripetizioni, 1u);
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' identica a quella iniziale");
}

TEST_F(Ripetizione, FraseDelleSemimosse) {
  ComponiFraseSemimosse();
  EXPECT_EQ(std::string(messaggio), "semimosse: reversibili 0, totali 0");
  EXPECT_EQ(Gioca("Nf3"), "Nf3");
  ComponiFraseSemimosse();
  EXPECT_EQ(std::string(messaggio), "semimosse: ultima Nf3, reversibili 1, totali 1");
  EXPECT_EQ(Gioca("e5"), "e5");
  ComponiFraseSemimosse();
  EXPECT_EQ(std::string(messaggio), "semimosse: ultima e5, reversibili 0, totali 2");
  ASSERT_EQ(RitiraUltimaMossa(), 1);
  ComponiFraseSemimosse();
  EXPECT_EQ(std::string(messaggio), "semimosse: ultima Nf3, reversibili 1, totali 1");

  Nuova("4k3/8/8/8/8/8/8/R3K3 b - - 37 1");
  ComponiFraseSemimosse();
  EXPECT_EQ(std::string(messaggio), "semimosse: reversibili 37, totali 1");
  EXPECT_EQ(Gioca("Kd7"), "Kd7");
  ComponiFraseSemimosse();
  EXPECT_EQ(std::string(messaggio), "semimosse: ultima Kd7, reversibili 38, totali 2");
}

}  // namespace
