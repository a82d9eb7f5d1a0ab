// The Windows backend where it needs no console window, and files whose
// replacement fails on the way.
#include <gtest/gtest.h>

#include <string>

#include "cartella_prova.h"
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

// --- Files -----------------------------------------------------------------

using prova::CartellaProva;
using prova::Contenuto;
using prova::Esiste;

bool Sostituisci(const std::string& nome, const std::string& dati) {
  return SostituisciFile(nome.c_str(), dati.data(), dati.size());
}

// The temporary file's place cannot be written: the save fails before
// touching the old file. A read-only file there does it on Windows; wine run
// as root ignores that attribute (it becomes Unix permissions, which root
// bypasses), so there the file is held open by another program that shares
// it with nobody.
TEST(FileSistemaWindows, TemporaneoBloccatoNonToccaIlVecchioFile) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn"), temporaneo = nome + ".tmp";
  prova::Scrivi(nome, "vecchia");
  prova::Scrivi(temporaneo, "resto");
  ASSERT_TRUE(SetFileAttributesA(temporaneo.c_str(), FILE_ATTRIBUTE_READONLY));
  HANDLE bloccato = CreateFileA(temporaneo.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (bloccato == INVALID_HANDLE_VALUE) {
    RecordProperty("guasto", "read-only temporary file");
  } else {
    CloseHandle(bloccato);
    SetFileAttributesA(temporaneo.c_str(), FILE_ATTRIBUTE_NORMAL);
    bloccato = CreateFileA(temporaneo.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(bloccato, INVALID_HANDLE_VALUE);
    RecordProperty("guasto", "temporary file held open, not shared (read-only ignored)");
  }
  const bool salvato = Sostituisci(nome, "nuova");
  if (bloccato != INVALID_HANDLE_VALUE) CloseHandle(bloccato);
  SetFileAttributesA(temporaneo.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_FALSE(salvato);
  EXPECT_EQ(Contenuto(nome), "vecchia");
  EXPECT_EQ(Contenuto(temporaneo), "resto");
}

// The old file held open by another program that does not share it: the new
// bytes are written and flushed, the replacement is refused, and the
// temporary file goes.
TEST(FileSistemaWindows, FileApertoAltroveNonVieneSostituito) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn");
  prova::Scrivi(nome, "vecchia");
  HANDLE aperto = CreateFileA(nome.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(aperto, INVALID_HANDLE_VALUE);
  const bool salvato = Sostituisci(nome, "nuova");
  const bool eliminato = EliminaFile(nome.c_str());
  CloseHandle(aperto);
  EXPECT_FALSE(salvato);
  EXPECT_FALSE(eliminato);
  EXPECT_EQ(Contenuto(nome), "vecchia");
  EXPECT_FALSE(Esiste(nome + ".tmp"));
  EXPECT_TRUE(Sostituisci(nome, "nuova"));
  EXPECT_EQ(Contenuto(nome), "nuova");
}

}  // namespace
