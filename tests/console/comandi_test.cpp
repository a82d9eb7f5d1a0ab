#include <string>

#include "ambiente_console.h"
#include "board/fen.h"
#include "console/avvio.h"
#include "supporto/stati.h"
#include "verifiche/toni.h"

using namespace piattaforma::win32;

namespace {

class Comandi : public AmbienteConsole {
 protected:
  static std::string Campo() { return memoria::Riga(y_comando).substr(x_comando, 10); }
  static std::string Testo() { return std::string(comando, CharatteriInComando); }
  static void CursoreIn(int x, int y) {
    EXPECT_EQ(memoria::CursoreX(), x);
    EXPECT_EQ(memoria::CursoreY(), y);
  }
  // Answers the exit question with `risposta`, expecting the program to end
  // with status 0; returns 1 when the game file was written on the way.
  static int EsciRispondendo(int risposta) {
    piattaforma::ApriConsole();
    memoria::RimuoviFile("partita.pgn");
    memoria::AccodaRisposta(risposta);
    Esce([] { comando_esci(); });
    EXPECT_FALSE(memoria::ConsoleAperta());
    return memoria::EsisteFile("partita.pgn") ? 1 : 0;
  }
};

// ---------------------------------------------------------------------------
// The command field.

TEST_F(Comandi, DigitazioneScriveMemorizzaESuona) {
  fuoco = 5;
  comando_digitazione('N');
  comando_digitazione('f');
  comando_digitazione('3');
  EXPECT_EQ(Testo(), "Nf3");
  EXPECT_EQ(Campo(), "Nf3       ");
  EXPECT_EQ(fuoco, FUOCO_COMANDO);
  CursoreIn(x_comando + 3, y_comando);
  ToniSono({{1500, 4}, {1500, 4}, {1500, 4}});
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Comandi, LOttavoCarattereEntraIlNonoNo) {
  for (char c : std::string("e2e4e5f6")) comando_digitazione(c);
  EXPECT_EQ(Testo(), "e2e4e5f6");
  EXPECT_TRUE(memoria::Finestre().empty());
  const std::string prima = Schermo();
  fuoco = 4;
  comando_digitazione('x');
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  const memoria::Finestra& f = memoria::Finestre()[0];
  EXPECT_EQ(f.testo, "Il comando non puo' contenere piu' di 8 caratteri");
  EXPECT_EQ(f.titolo, "Attenzione!");
  EXPECT_EQ(f.stile, unsigned(MB_OK | MB_ICONINFORMATION));
  EXPECT_EQ(Testo(), "e2e4e5f6");
  EXPECT_EQ(Schermo(), prima);
  // The ninth character neither sounds nor moves the focus.
  EXPECT_EQ(memoria::Toni().size(), 8u);
  EXPECT_EQ(fuoco, 4u);
}

TEST_F(Comandi, CaratteriNonAmmessiSonoScartatiInSilenzio) {
  const std::string prima = Schermo();
  fuoco = 3;
  for (char c : std::string("!\"#$%&'()*,./;<>?@[\\]^_`{|}~ \t\n\b"))
    comando_digitazione(static_cast<signed char>(c));
  comando_digitazione(0);
  comando_digitazione(static_cast<signed char>(0xE8));  // a Latin-1 letter
  comando_digitazione(-1);
  EXPECT_EQ(CharatteriInComando, 0u);
  EXPECT_EQ(Schermo(), prima);
  EXPECT_TRUE(memoria::Toni().empty());
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_EQ(fuoco, 3u);
}

TEST_F(Comandi, CaratteriExtraAmmessi) {
  EXPECT_EQ(std::string(CaratteriExtra), "+-:=");
  for (char c : std::string("+-:=aZ09")) comando_digitazione(c);
  EXPECT_EQ(Testo(), "+-:=aZ09");
  EXPECT_EQ(Campo().substr(0, 8), "+-:=aZ09");
}

TEST_F(Comandi, BackspaceCancellaLUltimoCarattereSenzaSuonare) {
  comando_digitazione('e');
  comando_digitazione('4');
  fuoco = 6;
  comando_backspace();
  EXPECT_EQ(Testo(), "e");
  EXPECT_EQ(Campo(), "e         ");
  EXPECT_EQ(fuoco, FUOCO_COMANDO);
  CursoreIn(x_comando + 1, y_comando);
  EXPECT_EQ(memoria::Toni().size(), 2u);  // the two typed characters only
  comando_backspace();
  EXPECT_EQ(Campo(), std::string(10, ' '));
  CursoreIn(x_comando, y_comando);
  // The label just left of the field is never touched.
  EXPECT_EQ(memoria::Cella(x_comando - 1, y_comando), ' ');
}

TEST_F(Comandi, BackspaceACampoVuotoNonFaNullaENonSpostaIlFuoco) {
  fuoco = 6;
  gotoxy(0, y_ripetizioni);
  const std::string prima = Schermo();
  comando_backspace();
  EXPECT_EQ(fuoco, 6u);
  EXPECT_EQ(Schermo(), prima);
  CursoreIn(0, y_ripetizioni);
  EXPECT_TRUE(memoria::Toni().empty());
}

// ---------------------------------------------------------------------------
// Focus.

TEST_F(Comandi, InvioDaUnAltraRigaRiportaFuocoECursoreAlCampo) {
  piattaforma::ApriConsole();
  inizializza();
  NuovaPartita(FenIniziale);
  for (const char c : std::string("e4")) memoria::AccodaTasto(WORD(c == 'e' ? 'E' : c), 0, c);
  // Up to the repetition line, then Enter.
  for (int i = 0; i < 6; ++i) memoria::AccodaTasto(VK_UP);
  TurnoCiclo();
  ASSERT_EQ(fuoco, 6u);
  memoria::AccodaTasto(VK_RETURN);
  TurnoCiclo();
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_EQ(fuoco, FUOCO_COMANDO);
  CursoreIn(x_comando, y_comando);
}

TEST_F(Comandi, ImpostaFocusPortaIlCursoreSullaRigaScelta) {
  const int attesi[9][2] = {{44, 40}, {0, 38}, {0, 37}, {0, 21}, {0, 20},
                            {0, 19},  {0, 18}, {0, 17}, {0, 15}};
  for (uint32_t f = 0; f <= 8; ++f) {
    fuoco = f;
    ImpostaFocus();
    CursoreIn(attesi[f][0], attesi[f][1]);
  }
  comando_digitazione('a');
  comando_digitazione('b');
  fuoco = FUOCO_COMANDO;
  gotoxy(0, 0);
  ImpostaFocus();
  CursoreIn(46, 40);
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Comandi, FocusFuoriIntervalloMostraLErrore) {
  fuoco = 9;
  ImpostaFocus();
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, "Errore in InpostaFocus!");
  EXPECT_EQ(memoria::Finestre()[0].titolo, "Attenzione!");
  fuoco = 0xFFFFFFFFu;
  ImpostaFocus();
  EXPECT_EQ(memoria::Finestre().size(), 2u);
}

TEST_F(Comandi, FrecciaSuDaOttoSoloSuona) {
  fuoco = 8;
  gotoxy(0, 15);
  comando_FrecciaSu();
  EXPECT_EQ(fuoco, 8u);
  ToniSono({{50000, 3}});
  CursoreIn(0, 15);
}

TEST_F(Comandi, FrecciaGiuDaZeroSoloSuona) {
  gotoxy(44, 40);
  comando_FrecciaGiu();
  EXPECT_EQ(fuoco, 0u);
  ToniSono({{700, 9}});
  CursoreIn(44, 40);
}

TEST_F(Comandi, FrecciaSuSaleFinoAllaCimaESuonaInCima) {
  const int righe[9] = {40, 38, 37, 21, 20, 19, 18, 17, 15};
  for (uint32_t f = 1; f <= 8; ++f) {
    comando_FrecciaSu();
    EXPECT_EQ(fuoco, f);
    CursoreIn(0, righe[f]);
  }
  // Silent on the way (the clock is stopped), the top mark at the end.
  ToniSono({{50000, 3}});
}

TEST_F(Comandi, FrecciaGiuScendeFinoAlCampoESuonaInFondo) {
  fuoco = 8;
  for (int f = 7; f >= 0; --f) {
    comando_FrecciaGiu();
    EXPECT_EQ(fuoco, uint32_t(f));
  }
  CursoreIn(44, 40);
  ToniSono({{700, 9}});
}

TEST_F(Comandi, LaRigaDelTempoInMotoSuonaDueVolte) {
  SegnaOrologioInMoto(true);
  PortaAllaSemimossa(0);  // White to move
  comando_FrecciaSu();    // 1: Black's time, not running
  EXPECT_TRUE(memoria::Toni().empty());
  comando_FrecciaSu();  // 2: White's time, running
  ToniSono({{1500, 4}, {1500, 4}});
  comando_FrecciaSu();   // 3
  comando_FrecciaGiu();  // back to 2
  EXPECT_EQ(memoria::Toni().size(), 4u);

  memoria::Azzera();
  PortaAllaSemimossa(1);  // Black to move
  fuoco = 2;
  comando_FrecciaGiu();  // 1: Black's time, running
  ToniSono({{1500, 4}, {1500, 4}});
  comando_FrecciaSu();  // 2: White's, not running
  EXPECT_EQ(memoria::Toni().size(), 2u);

  memoria::Azzera();
  SegnaOrologioInMoto(false);
  fuoco = 0;
  comando_FrecciaSu();
  comando_FrecciaSu();
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(Comandi, HomeSuonaSempreEPortaInCima) {
  fuoco = 3;
  comando_home();
  EXPECT_EQ(fuoco, 8u);
  CursoreIn(0, 15);
  gotoxy(5, 5);
  comando_home();
  CursoreIn(5, 5);  // already at the top: the cursor is left alone
  ToniSono({{50000, 3}, {50000, 3}});
}

TEST_F(Comandi, EndSuonaSempreEPortaAlCampo) {
  comando_digitazione('d');
  memoria::Azzera();
  fuoco = 7;
  comando_end();
  EXPECT_EQ(fuoco, 0u);
  CursoreIn(45, 40);
  gotoxy(5, 5);
  comando_end();
  CursoreIn(5, 5);
  ToniSono({{700, 9}, {700, 9}});
}

// ---------------------------------------------------------------------------
// Leaving the program.

TEST_F(Comandi, EsciAnnullaNonCambiaNulla) {
  piattaforma::ApriConsole();
  StampaPannelloPrincipale();
  comando_digitazione('e');
  ImpostaFocus();
  const std::string prima = Schermo();
  memoria::AccodaRisposta(IDCANCEL);
  comando_esci();
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  const memoria::Finestra& f = memoria::Finestre()[0];
  EXPECT_EQ(f.testo, "Salvare la partita prima di uscire?");
  EXPECT_EQ(f.titolo, "Attenzione!");
  EXPECT_EQ(f.stile, unsigned(MB_YESNOCANCEL));
  EXPECT_EQ(Schermo(), prima);
  CursoreIn(45, 40);
  EXPECT_TRUE(memoria::ConsoleAperta());
  EXPECT_EQ(memoria::Toni().size(), 1u);  // the typed character's
}

TEST_F(Comandi, EsciNoChiudeSenzaSalvare) {
  EXPECT_EQ(EsciRispondendo(IDNO), 0);
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(Comandi, EsciSiSalvaSuonaEChiude) {
  EXPECT_EQ(EsciRispondendo(IDYES), 1);
  ToniSono({{3000, 5}});
}

TEST_F(Comandi, EsciSiConFileNonScrivibileLoDiceENonChiude) {
  piattaforma::ApriConsole();
  memoria::ImpostaSolaLettura(true);
  memoria::AccodaRisposta(IDYES);
  comando_esci();
  EXPECT_TRUE(memoria::ConsoleAperta());
  EXPECT_FALSE(memoria::EsisteFile("partita.pgn"));
  ASSERT_EQ(memoria::Finestre().size(), 2u);
  EXPECT_EQ(memoria::Finestre()[1].testo,
            "Impossibile scrivere il file partita.pgn: la partita non e' stata salvata.");
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(Comandi, EsciConUnaFinestraCheNonSiApreResta) {
  memoria::AccodaRisposta(-1);
  comando_esci();
  memoria::AccodaRisposta(IDOK);
  comando_esci();
  EXPECT_EQ(memoria::Finestre().size(), 2u);
  EXPECT_TRUE(memoria::Toni().empty());
}

}  // namespace
