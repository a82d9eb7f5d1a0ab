// The Windows backend where it needs no console window.
#include <gtest/gtest.h>

#include "piattaforma/piattaforma.h"
#include "piattaforma/windows/console.h"

namespace {

using namespace piattaforma;

TEST(SistemaWindows, ComandoStart) {
  char comando[64];
  ComponiComandoVisualizzatore(comando, sizeof comando, "leggimi.html");
  EXPECT_STREQ(comando, "start leggimi.html");
  ComponiComandoVisualizzatore(comando, sizeof comando, "ListaMosse.txt");
  EXPECT_STREQ(comando, "start ListaMosse.txt");
}

TEST(SistemaWindows, ManigliePresaEModoRipristinato) {
  ApriConsole();
  EXPECT_EQ(hStdin, GetStdHandle(STD_INPUT_HANDLE));
  EXPECT_EQ(hStdout, GetStdHandle(STD_OUTPUT_HANDLE));
  EXPECT_EQ(hWindow, GetConsoleWindow());
  DWORD modo = 0;
  const bool console = GetConsoleMode(hStdin, &modo);
  if (console) {
    EXPECT_EQ(modo, 24u);
  }
  ChiudiConsole();
  if (console) {
    GetConsoleMode(hStdin, &modo);
    EXPECT_EQ(modo, fdwSaveOldMode);
  }
}

}  // namespace
