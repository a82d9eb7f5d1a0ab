// The help page as this platform's real backend writes it to the disk, byte
// for byte: on Windows exactly the known page, in a terminal the same with
// the section on the alternative keys after the notes.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include "console/guida.h"
#include "pagina_guida.h"
#include "piattaforma/piattaforma.h"

namespace {

namespace fs = std::filesystem;

// The page expected of this build.
std::string PaginaAttesa() {
#ifdef _WIN32
  return INIZIO_GUIDA + FINE_GUIDA;
#else
  return INIZIO_GUIDA + SEZIONE_TASTI_ALTERNATIVI + FINE_GUIDA;
#endif
}

// The working folder moved to a fresh temporary one for the test, and back.
class GuidaSulDisco : public ::testing::Test {
 protected:
  void SetUp() override {
    precedente_ = fs::current_path();
    cartella_ = fs::temp_directory_path() /
                ("pendrino-guida-" +
                 std::to_string(std::hash<std::string>{}(
                     ::testing::UnitTest::GetInstance()->current_test_info()->name())) +
                 "-" + std::to_string(piattaforma::Millisecondi()));
    fs::create_directories(cartella_);
    fs::current_path(cartella_);
  }
  void TearDown() override {
    fs::current_path(precedente_);
    std::error_code errore;
    fs::remove_all(cartella_, errore);
  }

  static std::string Leggi(const std::string& nome) {
    std::ifstream file(nome, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  static void Scrivi(const std::string& nome, const std::string& testo) {
    std::ofstream file(nome, std::ios::binary | std::ios::trunc);
    file << testo;
  }

  fs::path precedente_, cartella_;
};

TEST_F(GuidaSulDisco, LaPaginaDiQuestaPiattaforma) {
  ScriviElencoComandi();
  EXPECT_EQ(Leggi("leggimi.html"), PaginaAttesa());
  // Nothing left beside it: the temporary file was renamed over it.
  size_t file = 0;
  for (const auto& voce : fs::directory_iterator(cartella_)) {
    (void)voce;
    ++file;
  }
  EXPECT_EQ(file, 1u);
}

TEST_F(GuidaSulDisco, UnaPaginaVecchiaVieneSostituita) {
  Scrivi("leggimi.html", std::string(40000, 'x'));
  ScriviElencoComandi();
  EXPECT_EQ(Leggi("leggimi.html"), PaginaAttesa());
}

TEST(TastiConPrefissi, SoloNelTerminale) {
#ifdef _WIN32
  EXPECT_FALSE(piattaforma::TastiConPrefissi());
#else
  EXPECT_TRUE(piattaforma::TastiConPrefissi());
#endif
}

}  // namespace
