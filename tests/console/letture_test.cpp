// The readouts on request, in words, and the function keys reached without
// a function key: Ctrl+F, then a digit.
#include <string>

#include "partita_da_tastiera.h"
#include "settings/parametri.h"
#include "verifiche/toni.h"

namespace {

constexpr DWORD CTRL = LEFT_CTRL_PRESSED;

class Letture : public PartitaDaTastiera {
 protected:
  // With the clock running and no key waiting, one turn of the loop waits
  // for the next shown second.
  static void Secondi(int n) {
    for (int i = 0; i < n; ++i) TurnoCiclo();
  }
};

TEST_F(Letture, ITempiDiEntrambiEChiMuove) {
  Tasto('O', CTRL);
  EXPECT_EQ(Annuncio(), "Bianco: 2 ore; nero: 2 ore; tratto al bianco.");
  Tasto(VK_RETURN, CTRL);
  Secondi(75);
  Tasto('O', CTRL);
  EXPECT_EQ(Annuncio(), "Bianco: un'ora, 58 minuti e 45 secondi; nero: 2 ore; tratto al bianco.");
  Mossa("e4");
  Secondi(1);
  Tasto('O', CTRL);
  EXPECT_EQ(Annuncio(),
            "Bianco: un'ora, 58 minuti e 45 secondi; nero: un'ora, 59 minuti e 59 secondi; "
            "tratto al nero.");
}

TEST_F(Letture, LeMosseAlSecondoPeriodoETempiNegativi) {
  ImpostaParametro(PARAMETRO_PERIODI, 2);
  ImpostaParametro(PARAMETRO_TEMPO_PRIMO_PERIODO, 1);
  memoria::AccodaRisposta(IDNO);
  Tasto('N', LEFT_ALT_PRESSED);
  Mossa("e4");
  Tasto('O', CTRL);
  EXPECT_EQ(Annuncio(),
            "Bianco: un minuto; nero: un minuto; tratto al nero, 40 mosse al secondo "
            "periodo.");
  Digita("2");
  Tasto(VK_UP);  // Black's time
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_SUBTRACT, CTRL);
  Tasto('O', CTRL);
  EXPECT_EQ(Annuncio(),
            "Bianco: un minuto; nero: meno un minuto; tratto al nero, 40 mosse al "
            "secondo periodo.");
}

TEST_F(Letture, LUltimaMossa) {
  Tasto('U', CTRL);
  EXPECT_EQ(Annuncio(), "Nessuna mossa giocata.");
  Mosse(
      {"e4", "e5", "Nf3", "Nc6", "Bc4", "Nf6", "Ng5", "d5", "exd5", "Nxd5", "Nxf7", "Kxf7", "Qf3"});
  Tasto('U', CTRL);
  EXPECT_EQ(Annuncio(), "Bianco: Qf3+, donna da d1 in f3, scacco.");
  Mossa("Ke6");
  Tasto('U', CTRL);
  EXPECT_EQ(Annuncio(), "Nero: Ke6, re da f7 in e6.");
}

TEST_F(Letture, IPezziDiOgniLato) {
  Tasto('B', CTRL);
  EXPECT_EQ(Annuncio(),
            "Bianco: re in e1; donna in d1; torri in a1 e h1; alfieri in c1 e f1; cavalli in b1 e "
            "g1; pedoni in a2, b2, c2, d2, e2, f2, g2 e h2.");
  Tasto('N', CTRL);
  EXPECT_EQ(Annuncio(),
            "Nero: re in e8; donna in d8; torri in a8 e h8; alfieri in c8 e f8; cavalli in b8 e "
            "g8; pedoni in a7, b7, c7, d7, e7, f7, g7 e h7.");
  Mosse({"e4", "d5", "exd5", "Qxd5", "Nc3", "Qd8"});
  Tasto('B', CTRL);
  EXPECT_EQ(Annuncio(),
            "Bianco: re in e1; donna in d1; torri in a1 e h1; alfieri in c1 e f1; cavalli in c3 e "
            "g1; pedoni in a2, b2, c2, d2, f2, g2 e h2.");
}

TEST_F(Letture, CheCosaCEInUnaCasa) {
  Digita("e2");
  Tasto('E', CTRL);
  EXPECT_EQ(Annuncio(), "e2: pedone bianco.");
  EXPECT_EQ(Campo(), "");
  Digita("e4");
  Tasto('E', CTRL);
  EXPECT_EQ(Annuncio(), "e4: vuota.");
  Digita("d8");
  Tasto('E', CTRL);
  EXPECT_EQ(Annuncio(), "d8: donna nera.");
  for (const char* testo : {"", "e9", "x4", "e44"}) {
    Digita(testo);
    Tasto('E', CTRL);
    EXPECT_EQ(Annuncio(),
              "Per sapere che cosa c'e' in una casa scriverla, per esempio e4, poi ctrl + e.")
        << testo;
    Tasto(VK_END);
    while (CharatteriInComando) Tasto(VK_BACK);
  }
}

TEST_F(Letture, IlFormularioMossaPerMossa) {
  Tasto(VK_PRIOR);
  EXPECT_EQ(Annuncio(), "Nessuna mossa nel formulario.");
  Mosse({"e4", "e5", "Nf3"});
  Tasto(VK_PRIOR);
  EXPECT_EQ(Annuncio(), "2. bianco: Nf3, cavallo da g1 in f3.");
  Tasto(VK_PRIOR);
  EXPECT_EQ(Annuncio(), "1. nero: e5, pedone da e7 in e5.");
  Tasto(VK_PRIOR);
  EXPECT_EQ(Annuncio(), "1. bianco: e4, pedone da e2 in e4.");
  // The first move: it stays, and the top's mark sounds.
  const size_t toni = memoria::Toni().size();
  Tasto(VK_PRIOR);
  EXPECT_EQ(Annuncio(), "1. bianco: e4, pedone da e2 in e4.");
  EXPECT_EQ(memoria::Toni().size(), toni + 1);
  Tasto(VK_NEXT);
  EXPECT_EQ(Annuncio(), "1. nero: e5, pedone da e7 in e5.");
  Tasto(VK_NEXT);
  Tasto(VK_NEXT);
  EXPECT_EQ(Annuncio(), "2. bianco: Nf3, cavallo da g1 in f3.");
  // A new move starts the walk again from the last one.
  Mossa("Nc6");
  Tasto(VK_PRIOR);
  EXPECT_EQ(Annuncio(), "2. nero: Nc6, cavallo da b8 in c6.");
}

// ---------------------------------------------------------------------------
// Ctrl+F, then a digit: a function key.

TEST_F(Letture, CtrlFPoiUnaCifraEUnTastoFunzione) {
  Mossa("e4");
  Tasto('F', CTRL);
  Tasto('5');
  EXPECT_EQ(memoria::ComandiVisualizzatore(), std::vector<std::string>{"start ListaMosse.txt"});
  EXPECT_EQ(Campo(), "");
  Tasto('F', CTRL);
  Tasto('9');
  Tasto('F', CTRL);
  Tasto('1');
  EXPECT_EQ(memoria::ComandiVisualizzatore(),
            (std::vector<std::string>{"start ListaMosse.txt", "start partita.pgn",
                                      "start leggimi.html"}));
  // 4 and 8 resign, = is F12: the draw.
  memoria::AccodaRisposta(IDNO);
  Tasto('F', CTRL);
  Tasto('4');
  memoria::AccodaRisposta(IDNO);
  Tasto('F', CTRL);
  Tasto('8');
  memoria::AccodaRisposta(IDNO);
  Tasto('F', CTRL);
  Tasto(VK_OEM_PLUS);
  ASSERT_EQ(memoria::Finestre().size(), 3u);
  EXPECT_EQ(memoria::Finestre()[0].testo, "Il nero abbandona, aggiudicare la partita (1-0)?");
  EXPECT_EQ(memoria::Finestre()[1].testo, "Il bianco abbandona, aggiudicare la partita (0-1)?");
  EXPECT_EQ(memoria::Finestre()[2].testo, "Patta d'accordo, aggiudicare la partita (1/2-1/2)?");
}

TEST_F(Letture, CtrlFDueVoltePoiQuattroEAltF4) {
  memoria::AccodaRisposta(IDCANCEL);
  const size_t toni = memoria::Toni().size();
  Tasto('F', CTRL);
  Tasto('F', CTRL);
  Tasto('4');
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, "Salvare la partita prima di uscire?");
  EXPECT_EQ(memoria::Toni()[toni].frequenza, 1750u);
  EXPECT_EQ(memoria::Toni()[toni + 1].frequenza, 2000u);
}

TEST_F(Letture, CtrlFSiAnnullaEUnAltroTastoEQuelloCheE) {
  // A third Ctrl+F cancels: the 5 that follows is typed.
  Tasto('F', CTRL);
  Tasto('F', CTRL);
  Tasto('F', CTRL);
  EXPECT_EQ(memoria::Toni().back().frequenza, 500u);
  Digita("5");
  EXPECT_EQ(Campo(), "5");
  EXPECT_TRUE(memoria::ComandiVisualizzatore().empty());
  // Another key drops the prefix and acts as itself.
  Tasto('F', CTRL);
  Digita("e");
  EXPECT_EQ(Campo(), "5e");
  EXPECT_TRUE(memoria::ComandiVisualizzatore().empty());
}

}  // namespace
