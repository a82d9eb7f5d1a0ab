// The lines of an open box that the cursor walks with the arrows, Home and
// End, so that a screen reader following the cursor reads each of them.
#include <gtest/gtest.h>

#include "console/politica_interfaccia.h"
#include "piattaforma/terminale/riquadro.h"

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

Impaginazione Riquadro(const char* testo, unsigned stile) {
  Impaginazione imp;
  ImpaginaRiquadro(testo, "Attenzione!", stile, imp, PoliticaInterfacciaPendrino());
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
    EXPECT_EQ(RispostaDaTasto(MB_YESNOCANCEL, Tasto(tasto), PoliticaInterfacciaPendrino()), 0);
}

TEST(RigheRiquadro, UnaSolaRigaDiTesto) {
  const Impaginazione imp = Riquadro("Partita salvata.", MB_OK);
  EXPECT_EQ(RigheRiquadro(imp), 2);
  EXPECT_EQ(RigaDopoTasto(imp, 0, Tasto(VK_END)), 1);
  EXPECT_EQ(RigaDopoTasto(imp, 1, Tasto(VK_HOME)), 0);
}

}  // namespace
