// The Windows backend where it needs no console window, and files whose
// replacement fails on the way.
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "cartella_prova.h"
#include "piattaforma/piattaforma.h"
#include "piattaforma/windows/console.h"
#include "piattaforma/windows/file.h"

namespace {

using namespace piattaforma;

// Beep returns once the tone has sounded; a pause is a sleep as long.
TEST(SistemaWindows, FrequenzaNonUdibileEUnaPausa) {
  const auto prima = std::chrono::steady_clock::now();
  Suona(30000, 80);
  const auto pausa = std::chrono::duration_cast<std::chrono::milliseconds>(
                         std::chrono::steady_clock::now() - prima)
                         .count();
  EXPECT_GE(pausa, 79);
  EXPECT_LT(pausa, 1500);
}

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

// Another program's lock on the file, as any lock on any of its bytes.
class BloccoAltrui {
 public:
  explicit BloccoAltrui(const std::string& nome) {
    file_ = CreateFileA(nome.c_str(), GENERIC_READ,
                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    OVERLAPPED da{};
    preso_ = file_ != INVALID_HANDLE_VALUE &&
             LockFileEx(file_, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, MAXDWORD,
                        MAXDWORD, &da);
  }
  ~BloccoAltrui() {
    if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
  }
  bool Preso() const { return preso_; }

 private:
  HANDLE file_ = INVALID_HANDLE_VALUE;
  bool preso_ = false;
};

TEST(FileSistemaWindows, BloccoTenutoDaUnAltroNonVienePreso) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("giornale.blocco");
  prova::Scrivi(nome, "contenuto");
  {
    BloccoAltrui altro(nome);
    ASSERT_TRUE(altro.Preso());
    EXPECT_FALSE(BloccaFile(nome.c_str()));
  }
  EXPECT_TRUE(BloccaFile(nome.c_str()));
  EXPECT_TRUE(BloccaFile(nome.c_str()));
  EXPECT_FALSE(BloccoAltrui(nome).Preso());
  // Locked, the file is read as before and keeps its bytes.
  EXPECT_EQ(Contenuto(nome), "contenuto");
  const std::string nuovo = cartella.Nome("nuovo.blocco");
  EXPECT_TRUE(BloccaFile(nuovo.c_str()));
  EXPECT_TRUE(Esiste(nuovo));
  EXPECT_EQ(Contenuto(nuovo), "");
  EXPECT_FALSE(BloccoAltrui(nuovo).Preso());
  EXPECT_TRUE(BloccaFile(""));
  EXPECT_TRUE(BloccaFile(nullptr));
}

// Why a file call failed, from the system's error codes (a full disk
// cannot be made here, so its codes are checked one by one).
TEST(ErroreFileWindows, CodiciDErroreDelSistema) {
  EXPECT_EQ(ErroreDaCodice(ERROR_ACCESS_DENIED, false), ErroreFile::Permesso);
  EXPECT_EQ(ErroreDaCodice(ERROR_ACCESS_DENIED, true), ErroreFile::NonUnFile);
  EXPECT_EQ(ErroreDaCodice(ERROR_WRITE_PROTECT, false), ErroreFile::Permesso);
  EXPECT_EQ(ErroreDaCodice(ERROR_DISK_FULL, false), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaCodice(ERROR_HANDLE_DISK_FULL, false), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaCodice(ERROR_FILE_TOO_LARGE, false), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaCodice(1295, false), ErroreFile::DiscoPieno);  // quota exceeded
  EXPECT_EQ(ErroreDaCodice(ERROR_ALREADY_EXISTS, true), ErroreFile::NonUnFile);
  EXPECT_EQ(ErroreDaCodice(ERROR_ALREADY_EXISTS, false), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaCodice(ERROR_FILE_NOT_FOUND, false), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaCodice(ERROR_PATH_NOT_FOUND, false), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaCodice(ERROR_SHARING_VIOLATION, false), ErroreFile::Altro);
}

}  // namespace
