// The terminal's message box: which key gives which answer, and the layout
// of the text with its line breaks and word wrapping, and the lines the
// cursor walks.
#include "piattaforma/terminale/riquadro.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "piattaforma/memoria/memoria.h"
#include "piattaforma/testo.h"
#include "politica_prova.h"

namespace {

using namespace piattaforma;
using namespace piattaforma::terminale;

INPUT_RECORD Tasto(WORD codice_virtuale, DWORD stato = 0, bool giu = true) {
  INPUT_RECORD r{};
  r.EventType = KEY_EVENT;
  r.Event.KeyEvent.bKeyDown = giu;
  r.Event.KeyEvent.wRepeatCount = 1;
  r.Event.KeyEvent.wVirtualKeyCode = codice_virtuale;
  r.Event.KeyEvent.dwControlKeyState = stato;
  return r;
}

std::string Riga(const char* testo, const Impaginazione& imp, int r) {
  return std::string(testo + imp.riga[r].inizio, imp.riga[r].lunghezza);
}

// The boxes answer with the letters of the installed policy, as a program
// installs its own at start-up.
class RispostaRiquadro : public ::testing::Test {
 protected:
  void SetUp() override {
    memoria::Azzera();
    ImpostaPoliticaInterfaccia(PoliticaDiProva());
  }
  void TearDown() override { memoria::Azzera(); }
};

TEST_F(RispostaRiquadro, SiNoAnnulla) {
  const unsigned stile = MB_YESNOCANCEL;
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('S')), IDYES);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('S', SHIFT_PRESSED)), IDYES);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('Y')), IDYES);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('N')), IDNO);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('A')), IDCANCEL);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto(VK_ESCAPE)), IDCANCEL);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto(VK_RETURN)), IDYES);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('O')), 0);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto(VK_F4)), 0);
}

TEST_F(RispostaRiquadro, SiNoSenzaAnnulla) {
  const unsigned stile = MB_YESNO | MB_ICONQUESTION;
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('S')), IDYES);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('Y')), IDYES);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('N')), IDNO);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto(VK_RETURN)), IDYES);
  // No Cancel button: A and Esc answer nothing.
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('A')), 0);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto(VK_ESCAPE)), 0);
}

TEST_F(RispostaRiquadro, SoloOK) {
  const unsigned stile = MB_OK | MB_ICONINFORMATION;
  EXPECT_EQ(RispostaDaTasto(stile, Tasto(VK_RETURN)), IDOK);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto(VK_ESCAPE)), IDOK);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('S')), 0);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('N')), 0);
  EXPECT_EQ(RispostaDaTasto(stile, Tasto('A')), 0);
}

TEST_F(RispostaRiquadro, OKAnnulla) {
  EXPECT_EQ(RispostaDaTasto(MB_OKCANCEL, Tasto(VK_RETURN)), IDOK);
  EXPECT_EQ(RispostaDaTasto(MB_OKCANCEL, Tasto(VK_ESCAPE)), IDCANCEL);
  EXPECT_EQ(RispostaDaTasto(MB_OKCANCEL, Tasto('A')), IDCANCEL);
  EXPECT_EQ(RispostaDaTasto(MB_OKCANCEL, Tasto('S')), 0);
}

TEST_F(RispostaRiquadro, CtrlAltRilasciEAltriEventiNonRispondono) {
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto('S', LEFT_CTRL_PRESSED)), 0);
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto('N', LEFT_ALT_PRESSED)), 0);
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto(VK_RETURN, RIGHT_CTRL_PRESSED)), 0);
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto('S', 0, false)), 0);
  INPUT_RECORD fuoco{};
  fuoco.EventType = FOCUS_EVENT;
  EXPECT_EQ(RispostaDaTasto(MB_OK, fuoco), 0);
}

TEST(RispostaRiquadroNeutra, SenzaPoliticaSoloInvioEdEsc) {
  const PoliticaInterfaccia neutra;
  EXPECT_EQ(RispostaDaTasto(MB_YESNOCANCEL, Tasto(VK_RETURN), neutra), IDYES);
  EXPECT_EQ(RispostaDaTasto(MB_YESNOCANCEL, Tasto(VK_ESCAPE), neutra), IDCANCEL);
  EXPECT_EQ(RispostaDaTasto(MB_OK, Tasto(VK_ESCAPE), neutra), IDOK);
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto(VK_ESCAPE), neutra), 0);
  for (char lettera = 'A'; lettera <= 'Z'; ++lettera) {
    EXPECT_EQ(RispostaDaTasto(MB_YESNOCANCEL, Tasto(static_cast<WORD>(lettera)), neutra), 0)
        << lettera;
    EXPECT_EQ(RispostaDaTasto(MB_OKCANCEL, Tasto(static_cast<WORD>(lettera)), neutra), 0)
        << lettera;
  }
}

TEST(RispostaRiquadroNeutra, LaPiattaformaPartNeutraEAzzeraTornaNeutra) {
  memoria::Azzera();
  EXPECT_EQ(PoliticaInterfacciaAttuale().lettere, 0);
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto('S')), 0);
  ImpostaPoliticaInterfaccia(PoliticaDiProva());
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto('S')), IDYES);
  memoria::Azzera();
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto('S')), 0);
}

TEST(RispostaRiquadroNeutra, LettereDiUnAltraPolitica) {
  PoliticaInterfaccia politica;
  politica.lettere = 3;
  politica.lettera[0] = {'J', IDYES};
  politica.lettera[1] = {'O', IDOK};
  // The same letter for two answers: the one the box has wins.
  politica.lettera[2] = {'J', IDNO};
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto('J'), politica), IDYES);
  EXPECT_EQ(RispostaDaTasto(MB_OK, Tasto('O'), politica), IDOK);
  EXPECT_EQ(RispostaDaTasto(MB_OK, Tasto('J'), politica), 0);
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto('S'), politica), 0);
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto('J', LEFT_ALT_PRESSED), politica), 0);
  // A count beyond the array is not read past its end.
  politica.lettere = 1000;
  EXPECT_EQ(RispostaDaTasto(MB_YESNO, Tasto('J'), politica), IDYES);
}

TEST(ImpaginaRiquadro, TestoCortoCentratoConPulsanti) {
  Impaginazione imp;
  const char* testo = "Salvare la partita prima di uscire?";
  ImpaginaRiquadro(testo, "Attenzione!", MB_YESNOCANCEL, imp, PoliticaDiProva());
  ASSERT_EQ(imp.righe, 1);
  EXPECT_EQ(Riga(testo, imp, 0), testo);
  EXPECT_FALSE(imp.troncato);
  EXPECT_EQ(imp.larghezza_testo, 35);
  EXPECT_EQ(imp.larghezza, 35 + 6);
  EXPECT_EQ(imp.altezza, 6);
  EXPECT_EQ(imp.x, (80 - imp.larghezza) / 2);
  EXPECT_EQ(imp.y, (44 - 6) / 2);
  ASSERT_EQ(imp.pulsanti, 3);
  EXPECT_EQ(imp.risposta[0], IDYES);
  EXPECT_EQ(imp.risposta[1], IDNO);
  EXPECT_EQ(imp.risposta[2], IDCANCEL);
  // "[ Sì ]   [ No ]   [ Annulla ]" is 29 columns, centred.
  EXPECT_EQ(imp.colonna_pulsante[0], (imp.larghezza - 29) / 2);
  EXPECT_EQ(imp.colonna_pulsante[1], imp.colonna_pulsante[0] + 6 + 3);
  EXPECT_EQ(imp.colonna_pulsante[2], imp.colonna_pulsante[1] + 6 + 3);
  EXPECT_EQ(imp.riga_pulsanti, 4);
  EXPECT_EQ(imp.riga_testo, 2);
  EXPECT_EQ(imp.colonna_testo, 3);
}

TEST(ImpaginaRiquadro, IlTitoloEIPulsantiDannoLaLarghezzaMinima) {
  Impaginazione imp;
  ImpaginaRiquadro("Ok", "Attenzione!", MB_OK, imp);
  EXPECT_EQ(imp.larghezza_testo, 13);  // " Attenzione! "
  ImpaginaRiquadro("", "", MB_YESNOCANCEL, imp, PoliticaDiProva());
  EXPECT_EQ(imp.larghezza_testo, 29);
  EXPECT_EQ(imp.righe, 1);
  EXPECT_EQ(imp.riga[0].lunghezza, 0u);
}

TEST(ImpaginaRiquadro, GliACapoDelTestoRestano) {
  Impaginazione imp;
  const char* testo = "Prima riga\nseconda\n\nquarta dopo una vuota\r\nquinta";
  ImpaginaRiquadro(testo, "Attenzione!", MB_OK, imp);
  ASSERT_EQ(imp.righe, 5);
  EXPECT_EQ(Riga(testo, imp, 0), "Prima riga");
  EXPECT_EQ(Riga(testo, imp, 1), "seconda");
  EXPECT_EQ(Riga(testo, imp, 2), "");
  EXPECT_EQ(Riga(testo, imp, 3), "quarta dopo una vuota");
  EXPECT_EQ(Riga(testo, imp, 4), "quinta");
  EXPECT_EQ(imp.altezza, 10);
  EXPECT_EQ(imp.riga_pulsanti, 8);
}

TEST(ImpaginaRiquadro, RigheLungheSpezzateAgliSpazi) {
  std::string testo = "parola0";
  for (int i = 1; i < 30; ++i) testo += " parola" + std::to_string(i);
  Impaginazione imp;
  ImpaginaRiquadro(testo.c_str(), "Attenzione!", MB_YESNO, imp);
  EXPECT_EQ(imp.larghezza_testo, LARGHEZZA_MASSIMA_TESTO);
  EXPECT_EQ(imp.larghezza, 78);
  EXPECT_EQ(imp.x, 1);
  ASSERT_GT(imp.righe, 1);
  std::string ricomposto;
  for (int r = 0; r < imp.righe; ++r) {
    const std::string riga = Riga(testo.c_str(), imp, r);
    EXPECT_LE(riga.size(), static_cast<size_t>(LARGHEZZA_MASSIMA_TESTO)) << riga;
    EXPECT_NE(riga.front(), ' ');
    EXPECT_NE(riga.back(), ' ');
    ricomposto += riga + " ";
  }
  // Only the spaces at the breaks were dropped.
  EXPECT_EQ(ricomposto, testo + " ");
}

TEST(ImpaginaRiquadro, ParolaPiuLungaDiUnaRigaTagliata) {
  const std::string testo = "ab " + std::string(100, 'x');
  Impaginazione imp;
  ImpaginaRiquadro(testo.c_str(), "Attenzione!", MB_OK, imp);
  ASSERT_EQ(imp.righe, 3);
  EXPECT_EQ(Riga(testo.c_str(), imp, 0), "ab");
  EXPECT_EQ(Riga(testo.c_str(), imp, 1), std::string(72, 'x'));
  EXPECT_EQ(Riga(testo.c_str(), imp, 2), std::string(28, 'x'));
}

TEST(ImpaginaRiquadro, SpazioEsattamenteAlBordo) {
  const std::string testo = std::string(72, 'a') + " b";
  Impaginazione imp;
  ImpaginaRiquadro(testo.c_str(), "Attenzione!", MB_OK, imp);
  ASSERT_EQ(imp.righe, 2);
  EXPECT_EQ(Riga(testo.c_str(), imp, 0), std::string(72, 'a'));
  EXPECT_EQ(Riga(testo.c_str(), imp, 1), "b");
}

TEST(ImpaginaRiquadro, CaratteriUtf8ContanoUnaColonna) {
  // 72 characters of "è" (two bytes each) fit one line.
  std::string testo;
  for (int i = 0; i < 72; ++i) testo += "\xC3\xA8";
  testo += " fine";
  Impaginazione imp;
  ImpaginaRiquadro(testo.c_str(), "Attenzione!", MB_OK, imp);
  ASSERT_EQ(imp.righe, 2);
  EXPECT_EQ(imp.riga[0].lunghezza, 144u);
  EXPECT_EQ(Riga(testo.c_str(), imp, 1), "fine");
}

TEST(ImpaginaRiquadro, TroppeRigheTroncateSenzaUscireDalloSchermo) {
  std::string testo;
  for (int i = 0; i < 100; ++i) testo += "riga\n";
  Impaginazione imp;
  ImpaginaRiquadro(testo.c_str(), "Attenzione!", MB_YESNO, imp);
  EXPECT_EQ(imp.righe, RIGHE_MASSIME_TESTO);
  EXPECT_TRUE(imp.troncato);
  EXPECT_EQ(imp.altezza, RIGHE_SCHERMO);
  EXPECT_EQ(imp.y, 0);
  EXPECT_LT(imp.riga_pulsanti, imp.altezza);
}

TEST(ImpaginaRiquadro, SempreDentroLoSchermo) {
  const char* testi[] = {"", "x", "\n\n\n", "a b c", "\xFF\xFE\xC3", "tab\there"};
  for (const char* testo : testi) {
    const unsigned stili[] = {MB_OK, MB_OKCANCEL, MB_YESNO, MB_YESNOCANCEL, 0xFFu};
    for (unsigned stile : stili) {
      Impaginazione imp;
      ImpaginaRiquadro(testo, "Attenzione!", stile, imp);
      EXPECT_GE(imp.x, 0);
      EXPECT_GE(imp.y, 0);
      EXPECT_LE(imp.x + imp.larghezza, COLONNE_SCHERMO);
      EXPECT_LE(imp.y + imp.altezza, RIGHE_SCHERMO);
      EXPECT_GE(imp.pulsanti, 1);
      EXPECT_LE(imp.colonna_pulsante[imp.pulsanti - 1] +
                    LarghezzaPulsante(imp.risposta[imp.pulsanti - 1]),
                imp.larghezza - 1);
    }
  }
  Impaginazione imp;
  ImpaginaRiquadro(nullptr, nullptr, MB_OK, imp);
  EXPECT_EQ(imp.righe, 1);
}

TEST(Testo, Utf8ELatin1) {
  size_t passo = 0;
  EXPECT_EQ(ProssimoCarattere("S\xC3\xAC", 3, passo), 'S');
  EXPECT_EQ(passo, 1u);
  EXPECT_EQ(ProssimoCarattere("\xC3\xAC", 2, passo), 0xECu);
  EXPECT_EQ(passo, 2u);
  EXPECT_EQ(ProssimoCarattere("\xE2\x82\xAC", 3, passo), 0x20ACu);
  EXPECT_EQ(passo, 3u);
  // Not UTF-8: the byte as Latin-1.
  EXPECT_EQ(ProssimoCarattere("\xF2 ", 2, passo), 0xF2u);
  EXPECT_EQ(passo, 1u);
  // A sequence cut by the end of the text is not read past it.
  EXPECT_EQ(ProssimoCarattere("\xC3", 1, passo), 0xC3u);
  EXPECT_EQ(passo, 1u);
  // Overlong forms and surrogates are not UTF-8.
  EXPECT_EQ(ProssimoCarattere("\xC0\xAF", 2, passo), 0xC0u);
  EXPECT_EQ(ProssimoCarattere("\xED\xA0\x80", 3, passo), 0xEDu);
  EXPECT_EQ(ProssimoCarattere("", 0, passo), 0u);
  EXPECT_EQ(passo, 0u);
  EXPECT_EQ(ContaCaratteri("S\xC3\xAC!\xF2", 5), 4u);
  char utf8[4];
  for (uint32_t c : {0x41u, 0xECu, 0x20ACu, 0x1F600u}) {
    const size_t n = CodificaUtf8(c, utf8);
    EXPECT_EQ(ProssimoCarattere(utf8, n, passo), c);
    EXPECT_EQ(passo, n);
  }
}

// The lines of an open box that the cursor walks with the arrows, Home and
// End, so that a screen reader following the cursor reads each of them.
// The box the program shows, its buttons labelled as the program's policy says.
Impaginazione Riquadro(const char* testo, unsigned stile) {
  Impaginazione imp;
  ImpaginaRiquadro(testo, "Attenzione!", stile, imp, PoliticaDiProva());
  return imp;
}

TEST(RigheRiquadro, LeRigheDelTestoPoiQuellaDeiPulsanti) {
  const Impaginazione imp = Riquadro("Prima riga\nSeconda riga\nTerza", MB_YESNOCANCEL);
  ASSERT_EQ(imp.righe, 3);
  EXPECT_EQ(RigheRiquadro(imp), 4);
  int x = -1, y = -1;
  for (int r = 0; r < 3; ++r) {
    PosizioneRiga(imp, r, x, y);
    EXPECT_EQ(x, imp.colonna_testo) << r;
    EXPECT_EQ(y, imp.riga_testo + r) << r;
  }
  PosizioneRiga(imp, 3, x, y);
  EXPECT_EQ(x, imp.colonna_pulsante[0]);
  EXPECT_EQ(y, imp.riga_pulsanti);
  // Out of range: the nearest line.
  PosizioneRiga(imp, -5, x, y);
  EXPECT_EQ(y, imp.riga_testo);
  PosizioneRiga(imp, 99, x, y);
  EXPECT_EQ(y, imp.riga_pulsanti);
}

TEST(RigheRiquadro, FrecceInizioEFine) {
  const Impaginazione imp = Riquadro("Prima riga\nSeconda riga", MB_YESNO);
  ASSERT_EQ(RigheRiquadro(imp), 3);
  EXPECT_EQ(RigaDopoTasto(imp, 0, Tasto(VK_DOWN)), 1);
  EXPECT_EQ(RigaDopoTasto(imp, 1, Tasto(VK_DOWN)), 2);
  EXPECT_EQ(RigaDopoTasto(imp, 2, Tasto(VK_DOWN)), 2);  // the buttons are the last line
  EXPECT_EQ(RigaDopoTasto(imp, 2, Tasto(VK_UP)), 1);
  EXPECT_EQ(RigaDopoTasto(imp, 0, Tasto(VK_UP)), 0);
  EXPECT_EQ(RigaDopoTasto(imp, 1, Tasto(VK_HOME)), 0);
  EXPECT_EQ(RigaDopoTasto(imp, 0, Tasto(VK_END)), 2);
}

TEST(RigheRiquadro, AltriTastiNonSpostano) {
  const Impaginazione imp = Riquadro("Uno\nDue\nTre", MB_OK);
  for (WORD tasto : {WORD('S'), WORD('N'), WORD(VK_LEFT), WORD(VK_RIGHT), WORD(VK_F4), WORD(VK_TAB),
                     WORD(VK_RETURN)})
    EXPECT_EQ(RigaDopoTasto(imp, 1, Tasto(tasto)), 1) << tasto;
  // Released keys and chords with Ctrl or Alt leave the line too.
  EXPECT_EQ(RigaDopoTasto(imp, 1, Tasto(VK_DOWN, 0, false)), 1);
  EXPECT_EQ(RigaDopoTasto(imp, 1, Tasto(VK_DOWN, LEFT_CTRL_PRESSED)), 1);
  EXPECT_EQ(RigaDopoTasto(imp, 1, Tasto(VK_HOME, LEFT_ALT_PRESSED)), 1);
  // Shift does not matter.
  EXPECT_EQ(RigaDopoTasto(imp, 1, Tasto(VK_DOWN, SHIFT_PRESSED)), 2);
  INPUT_RECORD fuoco{};
  fuoco.EventType = FOCUS_EVENT;
  EXPECT_EQ(RigaDopoTasto(imp, 1, fuoco), 1);
}

TEST(RigheRiquadro, LeFrecceNonRispondonoAlRiquadro) {
  for (WORD tasto : {WORD(VK_UP), WORD(VK_DOWN), WORD(VK_HOME), WORD(VK_END)})
    EXPECT_EQ(RispostaDaTasto(MB_YESNOCANCEL, Tasto(tasto), PoliticaDiProva()), 0);
}

TEST(RigheRiquadro, UnaSolaRigaDiTesto) {
  const Impaginazione imp = Riquadro("Partita salvata.", MB_OK);
  EXPECT_EQ(RigheRiquadro(imp), 2);
  EXPECT_EQ(RigaDopoTasto(imp, 0, Tasto(VK_END)), 1);
  EXPECT_EQ(RigaDopoTasto(imp, 1, Tasto(VK_HOME)), 0);
}

}  // namespace
