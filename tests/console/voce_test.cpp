// The program's own voice: off until asked for, then the sentences of the
// announcement line, the boxes, the alarms, the countdown and the flag fall,
// each with its priority.
#include <string>
#include <utility>
#include <vector>

#include "console/comandi.h"
#include "console/voce.h"
#include "partita_da_tastiera.h"
#include "settings/lettore_ini.h"
#include "settings/parametri.h"

namespace {

constexpr DWORD CTRL = LEFT_CTRL_PRESSED;
using piattaforma::PrioritaVoce;
using Detto = std::pair<std::string, PrioritaVoce>;

std::vector<Detto> DettiDa(size_t da) {
  std::vector<Detto> detti;
  for (size_t i = da; i < memoria::Detti().size(); ++i)
    detti.push_back({memoria::Detti()[i].testo, memoria::Detti()[i].priorita});
  return detti;
}

class Voce : public PartitaDaTastiera {
 protected:
  void SetUp() override {
    PartitaDaTastiera::SetUp();
    memoria::ImpostaVoceDisponibile(true);
  }
  void TearDown() override {
    if (VoceAccesa()) comando_Voce();
  }
  static void Accendi() {
    Tasto('V', CTRL);
    ASSERT_TRUE(VoceAccesa());
  }
  static void Secondi(int n) {
    for (int i = 0; i < n; ++i) TurnoCiclo();
  }
};

TEST_F(Voce, SpentaNonDiceNulla) {
  Mossa("e4");
  Tasto('O', CTRL);
  EXPECT_TRUE(memoria::Detti().empty());
  EXPECT_FALSE(memoria::VoceAperta());
}

TEST_F(Voce, CtrlVLAccendeELaTieneNellePreferenze) {
  Accendi();
  EXPECT_EQ(Annuncio(), "Voce accesa.");
  EXPECT_EQ(Preferenza(PREFERENZA_VOCE), 1);
  EXPECT_NE(memoria::ContenutoFile("preferenze.ini").find("$\tvoce\t1"), std::string::npos);
  EXPECT_EQ(DettiDa(0), (std::vector<Detto>{{"Voce accesa.", PrioritaVoce::Testo}}));
  Tasto('V', CTRL);
  EXPECT_FALSE(VoceAccesa());
  EXPECT_EQ(Annuncio(), "Voce spenta.");
  EXPECT_EQ(Preferenza(PREFERENZA_VOCE), 0);
  EXPECT_EQ(memoria::Silenzi(), 1u);
  EXPECT_FALSE(memoria::VoceAperta());
}

TEST_F(Voce, LaMossaSiDiceInParoleSenzaIlSuoTesto) {
  Accendi();
  const size_t da = memoria::Detti().size();
  Mossa("e4");
  Mossa("f5");
  Mossa("Qh5");
  EXPECT_EQ(DettiDa(da), (std::vector<Detto>{{"pedone da e2 in e4.", PrioritaVoce::Testo},
                                             {"pedone da f7 in f5.", PrioritaVoce::Testo},
                                             {"donna da d1 in h5, scacco.", PrioritaVoce::Testo}}));
}

TEST_F(Voce, UnaFinestraSiDiceQuandoSiApre) {
  Accendi();
  const size_t da = memoria::Detti().size();
  Mossa("Ke3");
  EXPECT_EQ(DettiDa(da),
            (std::vector<Detto>{{"Mossa non legale: Ke3.", PrioritaVoce::Testo},
                                {"'Ke3' - non e' una mossa legale", PrioritaVoce::Messaggio}}));
}

TEST_F(Voce, IlMattoAspettaLaSuaFinestraELaFinestraLui) {
  Accendi();
  Mosse({"f3", "e5", "g4"});
  const size_t da = memoria::Detti().size();
  Mossa("Qh4");
  EXPECT_EQ(
      DettiDa(da),
      (std::vector<Detto>{{"donna da d8 in h4, scaccomatto.", PrioritaVoce::Messaggio},
                          {"scaccomatto, partita aggiudicata ( 0-1 ).", PrioritaVoce::Messaggio}}));
}

TEST_F(Voce, LeLettureSiDicono) {
  Accendi();
  const size_t da = memoria::Detti().size();
  Tasto('O', CTRL);
  EXPECT_EQ(
      DettiDa(da),
      (std::vector<Detto>{{"Bianco: 2 ore; nero: 2 ore; tratto al bianco.", PrioritaVoce::Testo}}));
}

TEST_F(Voce, AllarmeContoAllaRovesciaEBandierina) {
  ImpostaParametro(PARAMETRO_TEMPO_PRIMO_PERIODO, 2);
  ImpostaParametro(PARAMETRO_ALLARME1, 1);
  memoria::AccodaRisposta(IDNO);
  Tasto('N', LEFT_ALT_PRESSED);
  Accendi();
  Tasto(VK_RETURN, CTRL);
  const size_t da = memoria::Detti().size();
  memoria::AccodaRisposta(IDNO);
  Secondi(122);
  EXPECT_EQ(
      DettiDa(da),
      (std::vector<Detto>{{"Allarme: bianco, un minuto.", PrioritaVoce::Messaggio},
                          {"tre", PrioritaVoce::Messaggio},
                          {"due", PrioritaVoce::Messaggio},
                          {"uno", PrioritaVoce::Messaggio},
                          {"Bandierina: al bianco e' finito il tempo.", PrioritaVoce::Importante},
                          {"al bianco e' finito il tempo: Aggiudicare la partita ( 0-1 )?",
                           PrioritaVoce::Messaggio}}));
}

TEST_F(Voce, SenzaVoceDisponibileUnaFraseEIToni) {
  memoria::ImpostaVoceDisponibile(false);
  Tasto('V', CTRL);
  EXPECT_FALSE(VoceAccesa());
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo,
            "La voce non e' disponibile: nessun servizio di sintesi vocale risponde. Restano i "
            "toni.");
  EXPECT_EQ(Preferenza(PREFERENZA_VOCE), 0);
  const size_t toni = memoria::Toni().size();
  Mossa("e4");
  EXPECT_GT(memoria::Toni().size(), toni);
  EXPECT_TRUE(memoria::Detti().empty());
}

TEST_F(Voce, AccesaDallePreferenzeAllAvvio) {
  memoria::Azzera();
  memoria::ImpostaVoceDisponibile(true);
  DefaultIni();
  ScriviIni();
  memoria::ImpostaFile("preferenze.ini", "$ lettore_di_schermo 0\n$ voce 1\n");
  inizializza();
  NuovaPartita(FenIniziale);
  EXPECT_TRUE(VoceAccesa());
  EXPECT_EQ(DettiDa(0), (std::vector<Detto>{{"Nuova partita.", PrioritaVoce::Testo}}));
  // Where none answers, the start says so and goes on.
  comando_Voce();
  memoria::Azzera();
  DefaultIni();
  ScriviIni();
  memoria::ImpostaFile("preferenze.ini", "$ lettore_di_schermo 0\n$ voce 1\n");
  inizializza();
  EXPECT_FALSE(VoceAccesa());
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, TestoVoceNonDisponibile);
}

}  // namespace
