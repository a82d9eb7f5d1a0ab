#include <cstdlib>
#include <initializer_list>
#include <string>

#include "ambiente_console.h"
#include "board/geometria.h"
#include "console/avvio.h"
#include "supporto/stati.h"

#ifndef _WIN32
#include <unistd.h>
#endif

using namespace piattaforma::win32;

namespace {

class Avvio : public AmbienteConsole {
 protected:
  static std::string CampoComando() { return memoria::Riga(y_comando).substr(x_comando, 8); }
  static void Turni(int n) {
    for (int i = 0; i < n; ++i) TurnoCiclo();
  }
};

// ---------------------------------------------------------------------------
// Start-up.

TEST_F(Avvio, InizializzaPreparaConsoleTitoloEComandiDeiVisualizzatori) {
  inizializza();
  EXPECT_EQ(memoria::Titolo(), "Pendrino1.0");
  EXPECT_TRUE(memoria::ConsoleAperta());
  // The command lines as the in-memory backend writes them, "start <file>".
  EXPECT_STREQ(ComandoVisualizzaListaComandi, "start leggimi.html");
  EXPECT_STREQ(ComandoVisualizzaListaMosse, "start ListaMosse.txt");
  EXPECT_STREQ(ComandoVisualizzaPartitaPgn, "start partita.pgn");
  // Opening a viewer is a key's business, never start-up's.
  EXPECT_TRUE(memoria::ComandiVisualizzatore().empty());
}

TEST_F(Avvio, InizializzaCostruisceLeTabelleDelleMosse) {
  inizializza();
  EXPECT_EQ(Distanza[0][63], 7);  // a8 to h1
  EXPECT_EQ(TipoTraiettoria[0][63], 2);
  // A rook on a1 on an empty board: its file and its rank.
  EXPECT_EQ(std::popcount(AttacchiTorre(56, 0)), 14);
  EXPECT_EQ(std::popcount(AttacchiAlfiere(27, 0)), 13);  // d5
}

TEST_F(Avvio, InizializzaDisegnaIntestazioneEtichetteELasciaIlCursoreAlCampo) {
  inizializza();
  EXPECT_EQ(memoria::Riga(2).substr(0, 9), "    /\\^__");
  EXPECT_EQ(memoria::Riga(11).substr(35, 24), "Orologio per gli scacchi");
  EXPECT_EQ(memoria::Riga(14).substr(0, 78), "  " + std::string(76, '-'));
  EXPECT_EQ(memoria::Riga(40).substr(27, 10), "Comando =>");
  EXPECT_EQ(memoria::Riga(42).substr(2, 76), std::string(76, '-'));
  EXPECT_EQ(memoria::CursoreX(), 44);
  EXPECT_EQ(memoria::CursoreY(), 40);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(Avvio, ChiudiIlProgrammaRendeLaConsoleEdEsceConZero) {
  inizializza();
  Esce([] { ChiudiIlProgramma(); });
  EXPECT_FALSE(memoria::ConsoleAperta());
}

// ---------------------------------------------------------------------------
// The loop.

TEST_F(Avvio, TurnoScriveUnaLetteraColSuoCarattere) {
  memoria::AccodaTasto('E', 0, 'e');
  memoria::AccodaTasto('4', 0, '4');
  TurnoCiclo();
  EXPECT_EQ(CampoComando(), "e4      ");
  EXPECT_EQ(memoria::TastiInCoda(), 0u);
}

TEST_F(Avvio, RilasciEAltriEventiSonoIgnorati) {
  memoria::AccodaTasto('A', 0, 'a', false);
  INPUT_RECORD mouse{};
  mouse.EventType = MOUSE_EVENT;
  memoria::AccodaEvento(mouse);
  INPUT_RECORD finestra{};
  finestra.EventType = WINDOW_BUFFER_SIZE_EVENT;
  memoria::AccodaEvento(finestra);
  INPUT_RECORD fuoco_finestra{};
  fuoco_finestra.EventType = FOCUS_EVENT;
  fuoco_finestra.Event.KeyEvent.bKeyDown = 1;  // whatever the union holds
  fuoco_finestra.Event.KeyEvent.wVirtualKeyCode = 'B';
  fuoco_finestra.Event.KeyEvent.uChar.AsciiChar = 'b';
  memoria::AccodaEvento(fuoco_finestra);
  const std::string prima = Schermo();
  TurnoCiclo();
  EXPECT_EQ(Schermo(), prima);
  EXPECT_EQ(CharatteriInComando, 0u);
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(Avvio, IlConteggioDiRipetizioneNonMoltiplicaLAzione) {
  memoria::AccodaTasto('A', 0, 'a', true, 5);
  TurnoCiclo();
  EXPECT_EQ(CampoComando(), "a       ");
  // One action per auto-repeat record delivered.
  memoria::AccodaTasto('A', 0, 'a');
  memoria::AccodaTasto('A', 0, 'a');
  memoria::AccodaTasto('A', 0, 'a', false);
  TurnoCiclo();
  EXPECT_EQ(CampoComando(), "aaa     ");
  EXPECT_EQ(memoria::Toni().size(), 3u);
}

TEST_F(Avvio, SiLeggonoAlPiu128EventiPerTurno) {
  for (int i = 0; i < 130; ++i) memoria::AccodaTasto(VK_END);
  TurnoCiclo();
  EXPECT_EQ(memoria::Toni().size(), 128u);
  EXPECT_EQ(memoria::TastiInCoda(), 2u);
  TurnoCiclo();
  EXPECT_EQ(memoria::Toni().size(), 130u);
  EXPECT_EQ(memoria::TastiInCoda(), 0u);
}

TEST_F(Avvio, UnTurnoSenzaTastiNonFaNulla) {
  const std::string prima = Schermo();
  TurnoCiclo();
  EXPECT_EQ(Schermo(), prima);
  EXPECT_TRUE(memoria::Toni().empty());
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Avvio, CtrlConUnTastoNonInTabellaNonScriveNulla) {
  for (WORD codice :
       std::initializer_list<WORD>{WORD('T'), WORD('3'), WORD('C'), WORD('E'), VK_NUMPAD5})
    memoria::AccodaTasto(codice, LEFT_CTRL_PRESSED, char(codice));
  memoria::AccodaTasto('C', RIGHT_CTRL_PRESSED, 0x03);
  const std::string prima = Schermo();
  Turni(2);
  EXPECT_EQ(CharatteriInComando, 0u);
  EXPECT_EQ(Schermo(), prima);
  EXPECT_TRUE(memoria::Toni().empty());
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Avvio, ISimboliDeiTastiDelCampoPassanoPerIlFiltro) {
  // Shifted digits of a national layout: '+' and ':' are kept, '/' and a
  // Latin-1 pound sign are dropped without a sound.
  memoria::AccodaTasto('1', SHIFT_PRESSED, '+');
  memoria::AccodaTasto('3', SHIFT_PRESSED, static_cast<char>(0xA3));
  memoria::AccodaTasto('7', SHIFT_PRESSED, '/');
  memoria::AccodaTasto(VK_NUMPAD0 + 1, NUMLOCK_ON, '1');
  memoria::AccodaTasto('0', SHIFT_PRESSED, ':');
  TurnoCiclo();
  EXPECT_EQ(CampoComando(), "+1:     ");
  EXPECT_EQ(std::string(comando, CharatteriInComando), "+1:");
  EXPECT_EQ(memoria::Toni().size(), 3u);
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Avvio, AltGrConUnTastoDelCampoNonScrive) {
  // AltGr is Ctrl and Alt: its characters never reach the field.
  constexpr DWORD ALT_GR = RIGHT_ALT_PRESSED | LEFT_CTRL_PRESSED;
  memoria::AccodaTasto('Q', ALT_GR, '@');
  memoria::AccodaTasto('E', ALT_GR, static_cast<char>(0x80));
  memoria::AccodaTasto('8', ALT_GR, '[');
  memoria::AccodaTasto('0', ALT_GR | SHIFT_PRESSED, '}');
  const std::string prima = Schermo();
  TurnoCiclo();
  EXPECT_EQ(CharatteriInComando, 0u);
  EXPECT_EQ(Schermo(), prima);
  EXPECT_TRUE(memoria::Toni().empty());
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Avvio, AltConUnaLetteraNonScrive) {
  memoria::AccodaTasto('E', LEFT_ALT_PRESSED, 'e');
  memoria::AccodaTasto('4', LEFT_ALT_PRESSED, '4');
  TurnoCiclo();
  EXPECT_EQ(CharatteriInComando, 0u);
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(Avvio, LaTNonEntraNelCampo) {
  memoria::AccodaTasto('T', 0, 't');
  memoria::AccodaTasto('T', SHIFT_PRESSED, 'T');
  TurnoCiclo();
  EXPECT_EQ(CharatteriInComando, 0u);
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(Avvio, TastierinoConBlocNumScriveLaCifraSenzaFaDaNavigazione) {
  memoria::AccodaTasto(VK_NUMPAD5, NUMLOCK_ON, '5');
  memoria::AccodaTasto(VK_NUMPAD0, NUMLOCK_ON, '0');
  TurnoCiclo();
  EXPECT_EQ(CampoComando(), "50      ");
  memoria::AccodaTasto(VK_UP);  // keypad 8 with Num Lock off
  TurnoCiclo();
  EXPECT_EQ(fuoco, 1u);
  memoria::AccodaTasto(VK_HOME);  // keypad 7
  TurnoCiclo();
  EXPECT_EQ(fuoco, 8u);
  memoria::AccodaTasto(VK_END);  // keypad 1
  TurnoCiclo();
  EXPECT_EQ(fuoco, 0u);
  EXPECT_EQ(memoria::CursoreX(), 46);
  EXPECT_EQ(CampoComando(), "50      ");
}

TEST_F(Avvio, AltF4ChiedeEAnnullaLasciaTuttoComEra) {
  inizializza();
  memoria::AccodaTasto('D', 0, 'd');
  TurnoCiclo();
  const std::string prima = Schermo();
  memoria::AccodaTasto(VK_F4, LEFT_ALT_PRESSED);
  memoria::AccodaRisposta(IDCANCEL);
  TurnoCiclo();
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, "Salvare la partita prima di uscire?");
  EXPECT_EQ(Schermo(), prima);
  EXPECT_EQ(memoria::CursoreX(), 45);
  EXPECT_EQ(memoria::CursoreY(), 40);
  EXPECT_TRUE(memoria::ConsoleAperta());
}

TEST_F(Avvio, AltF4ENoChiudonoIlProgramma) {
  inizializza();
  memoria::AccodaTasto(VK_F4, LEFT_ALT_PRESSED);
  memoria::AccodaRisposta(IDNO);
  Esce([] { TurnoCiclo(); });
  EXPECT_FALSE(memoria::ConsoleAperta());
}

TEST_F(Avvio, F4DaSoloNonEsce) {
  inizializza();
  memoria::AccodaTasto(VK_F4);
  TurnoCiclo();
  // F4 alone is Black's resignation, never the exit question.
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, "Il nero abbandona, aggiudicare la partita (1-0)?");
  EXPECT_TRUE(memoria::ConsoleAperta());
}

TEST_F(Avvio, AltGrEF4NonEsce) {
  inizializza();
  memoria::AccodaTasto(VK_F4, RIGHT_ALT_PRESSED | LEFT_CTRL_PRESSED);
  memoria::AccodaTasto(VK_F4, LEFT_ALT_PRESSED | RIGHT_CTRL_PRESSED);
  TurnoCiclo();
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_TRUE(memoria::ConsoleAperta());
}

TEST_F(Avvio, IFileSiApronoNelVisualizzatore) {
  inizializza();
  memoria::AccodaTasto(VK_F1);
  memoria::AccodaTasto(VK_F5);
  memoria::AccodaTasto(VK_F9);
  TurnoCiclo();
  ASSERT_EQ(memoria::ComandiVisualizzatore().size(), 3u);
  EXPECT_EQ(memoria::ComandiVisualizzatore()[0], "start leggimi.html");
  EXPECT_EQ(memoria::ComandiVisualizzatore()[1], "start ListaMosse.txt");
  EXPECT_EQ(memoria::ComandiVisualizzatore()[2], "start partita.pgn");
  // Each file is written before it is shown.
  EXPECT_TRUE(memoria::EsisteFile("leggimi.html"));
  EXPECT_TRUE(memoria::EsisteFile("ListaMosse.txt"));
  EXPECT_TRUE(memoria::EsisteFile("partita.pgn"));
}

// ---------------------------------------------------------------------------
// Waiting without spinning.

TEST_F(Avvio, ConLOrologioFermoSiAttendonoSoloTasti) {
  SegnaOrologioInMoto(false);
  TurnoCiclo();
  ASSERT_FALSE(memoria::Attese().empty());
  EXPECT_EQ(memoria::Attese().back(), -1);
}

TEST_F(Avvio, ConLOrologioInMotoSiAttendeFinoAlProssimoSecondoMostrato) {
  memoria::ImpostaMillisecondi(1000000);
  PortaAllaSemimossa(0);
  CambiaOrologio([](StatoOrologio& s) {
    s.in_moto = 1;
    s.inizio = Adesso();
    s.tempo[0] = 90500;  // shown as 91 s until 90 000 ms remain
    s.tempo[1] = 1;
  });
  TurnoCiclo();
  ASSERT_FALSE(memoria::Attese().empty());
  EXPECT_EQ(memoria::Attese().back(), 500);
  // The back-end's clock moved by the wait: the next second is a whole one.
  TurnoCiclo();
  EXPECT_EQ(memoria::Attese().back(), 1000);

  PortaAllaSemimossa(1);  // Black's time runs now
  CambiaOrologio([](StatoOrologio& s) { s.inizio = Adesso(); });
  TurnoCiclo();
  EXPECT_EQ(memoria::Attese().back(), 1);
}

TEST_F(Avvio, UnTastoInterrompeLAttesa) {
  memoria::ImpostaMillisecondi(5000);
  CambiaOrologio([](StatoOrologio& s) {
    s.in_moto = 1;
    s.inizio = Adesso();
    s.tempo[0] = 60000;
  });
  memoria::AccodaTasto('A', 0, 'a');
  TurnoCiclo();
  EXPECT_EQ(CharatteriInComando, 1u);
  // The key ended the wait: no time passed.
  EXPECT_EQ(Adesso(), 5000u);
}

#ifndef _WIN32
// Runs the real entry point with Alt+F4, Annulla, Alt+F4, No queued, and
// reports through the exit status whether it ended as it should.
[[noreturn]] void EseguiPendrinoMain() {
  alarm(20);  // a loop that never ends fails here instead of hanging
  memoria::AccodaTasto('E', 0, 'e');
  memoria::AccodaTasto(VK_F4, LEFT_ALT_PRESSED);
  memoria::AccodaRisposta(IDCANCEL);
  memoria::AccodaTasto(VK_F4, LEFT_ALT_PRESSED);
  memoria::AccodaRisposta(IDNO);
  try {
    char nome[] = "pendrino";
    char* argv[] = {nome, nullptr};
    pendrino_main(1, argv);
  } catch (const memoria::UscitaProcesso& u) {
    const bool bene = u.codice == 0 && !memoria::ConsoleAperta() &&
                      memoria::Finestre().size() == 2 && CharatteriInComando == 1 &&
                      memoria::Titolo() == "Pendrino1.0";
    std::_Exit(bene ? 42 : 1);
  }
  std::_Exit(2);
}

TEST_F(Avvio, PendrinoMainFinisceSoloConAltF4ENo) {
  EXPECT_EXIT(EseguiPendrinoMain(), ::testing::ExitedWithCode(42), "");
}
#endif

}  // namespace
