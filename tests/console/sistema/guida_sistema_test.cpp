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

#ifndef _WIN32
// clang-format off
const std::string SEZIONE_TERMINALE =
    "<h3>Tasti alternativi nel terminale</h3><p>"
    "Nei terminali che non trasmettono le combinazioni di tasti:<br />"
    "esc, poi un tasto, vale come alt + quel tasto;<br />"
    "ctrl + x, poi un tasto, vale come ctrl + quel tasto;<br />"
    "ctrl + x due volte, poi un tasto, vale come ctrl + shift + quel tasto.<br />"
    "Un breve tono conferma ogni prefisso; esc, o ctrl + x una terza volta, annulla il prefisso in attesa.</p>"
    "<table><tr><th scope='column'>comando</th><th scope='column'>alternativa</th></tr>"
    "<tr><td scope='row'>ctrl + invio</td><td>ctrl + x, poi invio</td></tr>"
    "<tr><td scope='row'>ctrl + shift + invio</td><td>ctrl + x due volte, poi invio</td></tr>"
    "<tr><td scope='row'>ctrl + tasto piu'</td><td>ctrl + x, poi + o =</td></tr>"
    "<tr><td scope='row'>ctrl + tasto meno</td><td>ctrl + x, poi -</td></tr>"
    "<tr><td scope='row'>ctrl + canc</td><td>ctrl + x, poi canc o backspace</td></tr>"
    "<tr><td scope='row'>ctrl + 1 o 2</td><td>ctrl + x, poi 1 o 2</td></tr>"
    "<tr><td scope='row'>ctrl + shift + 1 o 2</td><td>ctrl + x due volte, poi 1 o 2; oppure ctrl + x, poi ! o @</td></tr>"
    "<tr><td scope='row'>ctrl + m</td><td>ctrl + x, poi m</td></tr>"
    "<tr><td scope='row'>alt + numero da 1 a 5</td><td>esc, poi il numero da 1 a 5</td></tr>"
    "<tr><td scope='row'>alt + n</td><td>esc, poi n</td></tr>"
    "<tr><td scope='row'>alt + s</td><td>esc, poi s</td></tr>"
    "<tr><td scope='row'>alt + f4</td><td>esc, poi f4</td></tr>"
    "</table><p>"
    "Nei terminali che trasmettono le combinazioni (xterm, tmux e la maggior parte dei terminali grafici) valgono anche i tasti della tabella dei comandi.<br />"
    "ctrl + z sospende Pendrino; il comando fg lo riprende.</p><hr>";
// clang-format on
#endif

// The page expected of this build.
std::string PaginaAttesa() {
#ifdef _WIN32
  return INIZIO_GUIDA + FINE_GUIDA;
#else
  return INIZIO_GUIDA + SEZIONE_TERMINALE + FINE_GUIDA;
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

TEST(SezioneTastiAlternativi, SoloNelTerminale) {
#ifdef _WIN32
  EXPECT_EQ(piattaforma::SezioneTastiAlternativi(), nullptr);
#else
  ASSERT_NE(piattaforma::SezioneTastiAlternativi(), nullptr);
  EXPECT_EQ(std::string(piattaforma::SezioneTastiAlternativi()), SEZIONE_TERMINALE);
#endif
}

}  // namespace
