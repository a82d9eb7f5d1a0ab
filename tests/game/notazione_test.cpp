// The move written into the record, and the end of the game that AnnotaMossa
// finds after it.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "ambiente_partita.h"
#include "moves/legali.h"
#include "supporto/stati.h"

namespace {

class Notazione : public AmbientePartita {
 protected:
  // Texts typed in turn from the position on the board, each move taken back
  // before the next; the last one stays. Each pair: typed, written.
  static void DallaStessaPosizione(
      std::initializer_list<std::pair<const char*, const char*>> casi) {
    ASSERT_GT(casi.size(), 0u);
    for (auto caso = casi.begin(); caso != casi.end(); ++caso) {
      if (caso != casi.begin()) {
        ASSERT_EQ(RitiraUltimaMossa(), 1);
      }
      EXPECT_EQ(Gioca(caso->first), caso->second) << caso->first;
    }
  }
};
class FinePartita : public AmbientePartita {};

// ---------------------------------------------------------------------------
// The text of a move.

TEST_F(Notazione, MosseSemplici) {
  EXPECT_EQ(GiocaRevocando({"e2e4", "e7e5", "g1f3", "b8c6", "f1b5", "a7a6", "b5c6", "d7c6"}),
            "e4 e5 Nf3 Nc6 Bb5 a6 Bxc6 dxc6");
  EXPECT_EQ(std::string(ElencoStringaMossa[3]), "Nf3");
  EXPECT_EQ(ContatoreMosse, 8u);
}

TEST_F(Notazione, IlCavalloIndicaLaColonnaQuandoBasta) {
  Nuova("4k3/8/8/8/8/5N2/8/1N2K3 w - - 0 1");
  // Only one knight reaches e5: no origin at all.
  DallaStessaPosizione({{"b1d2", "Nbd2"}, {"f3d2", "Nfd2"}, {"f3e5", "Ne5"}});
}

TEST_F(Notazione, LeTorriSullaStessaColonnaIndicanoLaTraversa) {
  Nuova("4k3/8/8/R7/8/8/8/R3K3 w - - 0 1");
  // The record's text finds the same move again.
  DallaStessaPosizione({{"a1a3", "R1a3"}, {"a5a3", "R5a3"}, {"R5a3", "R5a3"}});
  EXPECT_EQ(ElencoMosse[1], Mossa(Casa("a5"), Casa("a3"), SPOSTA_TORRE));
}

TEST_F(Notazione, LaDonnaCheVuoleTuttaLaPartenzaPerdeLaLettera) {
  // Queens on e4, h4 and h1 all reach e1: neither the file nor the rank of
  // h4 is enough.
  Nuova("1k6/8/8/8/4Q2Q/8/K7/7Q w - - 0 1");
  DallaStessaPosizione({{"h4e1", "h4e1"}, {"h1e1", "Q1e1"}, {"e4e1", "Qee1"}, {"h4e1", "h4e1"}});
  ASSERT_EQ(RitiraUltimaMossa(), 1);

  Nuova("1k6/8/8/8/4Q2Q/8/K7/4r2Q w - - 0 1");
  DallaStessaPosizione({{"h4e1", "h4xe1"}, {"h4xe1", "h4xe1"}});
}

TEST_F(Notazione, LErroreDiDisambiguaMostraIlMessaggioEScriveComunque) {
  // A list that holds the move twice: not even the whole origin is unique.
  Nuova("4k3/p7/8/8/8/5N2/8/4K3 w - - 0 1");
  ASSERT_EQ(LeggiDettagliMossaDaComando("Nd4"), 1);
  const uint64_t mossa = FaiMossaInComando();
  ASSERT_EQ(mossa, Mossa(Casa("f3"), Casa("d4"), SPOSTA_CAVALLO));
  std::vector<uint64_t> doppia(BufferMosseGenerate, FineMosseGenerate);
  doppia.push_back(mossa);
  ImpostaListaMosse(doppia.data(), doppia.size());
  Annota(mossa);
  EXPECT_EQ(std::string(ElencoStringaMossa[1]), "f3d4");
  EXPECT_EQ(Esiti, std::vector<std::string>{"disambigua"});
}

TEST_F(Notazione, PedoniCatturaEnPassantEPromozioni) {
  Nuova("4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 1");
  EXPECT_EQ(Gioca("ed"), "exd6");
  EXPECT_EQ(TipoMossa(ElencoMosse[1]), uint64_t(CATTURA_ENPASSANT));

  Nuova("3rk3/4P3/8/8/8/8/8/4K3 w - - 0 1");
  DallaStessaPosizione(
      {{"e7d8", "exd8=Q+"}, {"exd8=Q+", "exd8=Q+"}, {"ed8R", "exd8=R+"}, {"ed8N", "exd8=N"}});

  Nuova("8/4P3/8/8/8/8/k7/4K3 w - - 0 1");
  DallaStessaPosizione({{"e8N", "e8=N"}, {"e8", "e8=Q"}});
}

TEST_F(Notazione, IlReCatturaSenzaLettereDiPartenza) {
  Nuova("4k3/8/8/8/8/8/4p3/R3K3 w - - 0 1");
  EXPECT_EQ(Gioca("Ke2"), "Kxe2");
  EXPECT_EQ(Gioca("Kd7"), "Kd7");
  EXPECT_EQ(Gioca("Kd3"), "Kd3");
}

TEST_F(Notazione, ArrocchiConLoZero) {
  Nuova("r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1");
  EXPECT_EQ(Gioca("O-O"), "0-0");
  EXPECT_EQ(Gioca("e8c8"), "0-0-0");
  ASSERT_EQ(RitiraUltimaMossa(), 1);
  EXPECT_EQ(Gioca("0-0-0"), "0-0-0");
}

TEST_F(Notazione, LoScaccoDellaTorreDellArrocco) {
  // The rook's check is held in the second checker field only.
  Nuova("5k2/8/8/8/8/8/8/4K2R w K - 0 1");
  EXPECT_EQ(Gioca("0-0"), "0-0+");
  EXPECT_EQ(PrimoScacco(InfoPosizione), NESSUNA_CASA);
  EXPECT_EQ(SecondoScacco(InfoPosizione), Casa("f1"));
}

TEST_F(Notazione, LoScaccoDiScoperta) {
  Nuova("4k3/8/8/8/4N3/8/8/4R1K1 w - - 0 1");
  EXPECT_EQ(Gioca("Nc3"), "Nc3+");
  EXPECT_EQ(PrimoScacco(InfoPosizione), NESSUNA_CASA);
  ASSERT_EQ(RitiraUltimaMossa(), 1);
  // Both checks at once.
  DallaStessaPosizione({{"Nd6", "Nd6+"}, {"Ng5", "Ng5+"}});
}

TEST_F(Notazione, SenzaScaccoNessunSegno) {
  EXPECT_EQ(GiocaRevocando({"e4", "f5", "Qh5"}), "e4 f5 Qh5+");
  EXPECT_EQ(GiocaRevocando({"g6", "Qg6"}), "g6 Qxg6+");
  EXPECT_EQ(GiocaRevocando({"hg", "Nf3"}), "hxg6 Nf3");
}

TEST_F(Notazione, IlTestoResta0Terminato) {
  Nuova("3rk3/4P3/8/8/8/8/8/4K3 w - - 0 1");
  std::fill(std::begin(ElencoStringaMossa[1]), std::end(ElencoStringaMossa[1]), 'z');
  EXPECT_EQ(Gioca("exd8=Q"), "exd8=Q+");
  EXPECT_EQ(ElencoStringaMossa[1][7], 0);
}

// ---------------------------------------------------------------------------
// Mate and stalemate.

TEST_F(FinePartita, MattoDelNero) {
  EXPECT_EQ(GiocaRevocando({"f3", "e5", "g4", "Qh4"}), "f3 e5 g4 Qh4#");
  EXPECT_EQ(Stato(), "0-1 | Checkmate | scaccomatto");
  EXPECT_EQ(Esiti, std::vector<std::string>{"scaccomatto"});
  EXPECT_EQ(FineMosseGenerate, BufferMosseGenerate);
}

TEST_F(FinePartita, MattoDelBianco) {
  EXPECT_EQ(GiocaRevocando({"e4", "e5", "Bc4", "Nc6", "Qh5", "Nf6", "Qf7"}),
            "e4 e5 Bc4 Nc6 Qh5 Nf6 Qxf7#");
  EXPECT_EQ(Stato(), "1-0 | Checkmate | scaccomatto");
  EXPECT_EQ(Esiti, std::vector<std::string>{"scaccomatto"});
}

TEST_F(FinePartita, MattoDiScopertaNelSecondoCampo) {
  // The knight uncovers the rook: the check is in the second field only,
  // and it is mate, not stalemate.
  Nuova("R1N4k/6pp/8/8/8/8/8/4K3 w - - 0 1");
  EXPECT_EQ(Gioca("Nb6"), "Nb6#");
  EXPECT_EQ(PrimoScacco(InfoPosizione), NESSUNA_CASA);
  EXPECT_EQ(Stato(), "1-0 | Checkmate | scaccomatto");
}

TEST_F(FinePartita, MattoConLArrocco) {
  // The castled rook gives the check; nothing can step into the f-file.
  Nuova("4rkr1/4p1p1/8/8/8/8/8/4K2R w K - 0 1");
  EXPECT_EQ(Gioca("0-0"), "0-0#");
  EXPECT_EQ(Stato(), "1-0 | Checkmate | scaccomatto");
}

TEST_F(FinePartita, Stallo) {
  Nuova("7k/4Q3/6K1/8/8/8/8/8 w - - 0 1");
  EXPECT_EQ(Gioca("Qf7"), "Qf7");
  EXPECT_EQ(Stato(), "1/2-1/2 | stalemate | stallo");
  EXPECT_EQ(Esiti, std::vector<std::string>{"stallo"});
}

TEST_F(FinePartita, MattoConLOrologioInMotoLoFerma) {
  SegnaOrologioInMoto(true);
  EXPECT_EQ(GiocaRevocando({"f3", "e5", "g4", "Qh4"}), "f3 e5 g4 Qh4#");
  EXPECT_EQ(InMoto, 0u);
}

// ---------------------------------------------------------------------------
// Insufficient material.

TEST_F(FinePartita, MaterialeInsufficienteAncheConScacco) {
  Nuova("4k3/8/3p4/8/4N3/8/8/4K3 w - - 0 1");
  EXPECT_EQ(Gioca("Nd6"), "Nxd6+");
  EXPECT_EQ(Stato(), "1/2-1/2 | insufficient material | materiale insufficente");
  EXPECT_EQ(Esiti, std::vector<std::string>{"materiale insufficente"});
}

TEST_F(FinePartita, ReControReDopoUnaCatturaDelRe) {
  Nuova("4k3/8/8/8/8/8/4p3/4K3 w - - 0 1");
  EXPECT_EQ(Gioca("Kxe2"), "Kxe2");
  EXPECT_EQ(Stato(), "1/2-1/2 | insufficient material | materiale insufficente");
}

TEST_F(FinePartita, AlfiereControReEPedoneNonEInsufficiente) {
  Nuova("4k3/8/3p4/8/8/8/8/4KB2 w - - 0 1");
  EXPECT_EQ(Gioca("Bb5"), "Bb5+");
  EXPECT_EQ(Stato(), "* | ? | ");
  EXPECT_TRUE(Esiti.empty());
}

// ---------------------------------------------------------------------------
// The fifty-move rule.

TEST_F(FinePartita, CinquantaMosseAlCentesimoAccettata) {
  Nuova("4k3/8/8/8/8/8/8/R3K3 w - - 99 1");
  AccettaLeCinquantaMosse = true;
  EXPECT_EQ(Gioca("Ra2"), "Ra2");
  EXPECT_EQ(Semimosse(InfoPosizione), 100u);
  EXPECT_EQ(Esiti, std::vector<std::string>{"cinquanta mosse"});
  EXPECT_EQ(Stato(), "1/2-1/2 | Fifty-move rule | regola delle 50 mosse");
}

TEST_F(FinePartita, CinquantaMosseRifiutataNonVieneRichiestaA101) {
  Nuova("4k3/8/8/8/8/8/8/R3K3 w - - 98 1");
  EXPECT_EQ(Gioca("Ra2"), "Ra2");
  EXPECT_TRUE(Esiti.empty()) << "99";
  EXPECT_EQ(Gioca("Ke7"), "Ke7");
  EXPECT_EQ(Esiti.size(), 1u);
  EXPECT_EQ(Stato(), "* | ? | ");
  EXPECT_EQ(Gioca("Rb2"), "Rb2");
  EXPECT_EQ(Semimosse(InfoPosizione), 101u);
  EXPECT_EQ(Esiti.size(), 1u) << "101";
  EXPECT_EQ(Stato(), "* | ? | ");
}

TEST_F(FinePartita, IlMattoPrecedeLeCinquantaMosse) {
  Nuova("6k1/5ppp/8/8/8/8/8/R3K3 w - - 99 1");
  EXPECT_EQ(Gioca("Ra8"), "Ra8#");
  EXPECT_EQ(Stato(), "1-0 | Checkmate | scaccomatto");
  EXPECT_EQ(Esiti, std::vector<std::string>{"scaccomatto"});
}

TEST_F(FinePartita, LeCinquantaMossePrecedonoLaRipetizione) {
  // The eighth ply brings the clock to 100 and the third occurrence at once.
  const std::vector<const char*> mosse = {"Ra2", "Ke7", "Ra1", "Ke8", "Ra2", "Ke7", "Ra1", "Ke8"};
  Nuova("4k3/8/8/8/8/8/8/R3K3 w - - 92 1");
  AccettaLeCinquantaMosse = true;
  EXPECT_EQ(GiocaRevocando(mosse), "Ra2 Ke7 Ra1 Ke8 Ra2 Ke7 Ra1 Ke8");
  EXPECT_EQ(Esiti, std::vector<std::string>{"cinquanta mosse"});
  EXPECT_EQ(Stato(), "1/2-1/2 | Fifty-move rule | regola delle 50 mosse");

  Esiti.clear();
  Nuova("4k3/8/8/8/8/8/8/R3K3 w - - 92 1");
  AccettaLeCinquantaMosse = false;
  EXPECT_EQ(GiocaRevocando(mosse), "Ra2 Ke7 Ra1 Ke8 Ra2 Ke7 Ra1 Ke8");
  EXPECT_EQ(Esiti, (std::vector<std::string>{"cinquanta mosse", "triplice ripetizione"}));
  EXPECT_EQ(Stato(), "1/2-1/2 | threefold repetition | triplice ripetizione");
}

}  // namespace
