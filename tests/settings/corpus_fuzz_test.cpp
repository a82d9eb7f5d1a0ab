// Replays the committed corpus of the settings reader fuzzer through the
// reader of the normal build: no input may crash it or read past its end,
// every value stays in its range, an unknown key leaves every default, and
// every box is the notice of a value out of range.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "ambiente_parametri.h"

namespace {

using CorpusFuzz = AmbienteParametri;

TEST_F(CorpusFuzz, OgniTestoDelCorpusSiLeggeSenzaDanni) {
  // The test data folder is tests/settings/dati, which need not exist.
  const std::filesystem::path cartella =
      (std::filesystem::path(PENDRINO_DATI_TEST) / ".." / ".." / ".." / "fuzz" / "corpus" / "ini")
          .lexically_normal();
  ASSERT_TRUE(std::filesystem::is_directory(cartella)) << cartella;
  int file = 0, completi = 0, incompleti = 0, sconosciuti = 0;
  for (const auto& voce : std::filesystem::directory_iterator(cartella)) {
    if (!voce.is_regular_file()) continue;
    std::ifstream ingresso(voce.path(), std::ios::binary);
    const std::string dati((std::istreambuf_iterator<char>(ingresso)),
                           std::istreambuf_iterator<char>());
    // Exactly the input, as the fuzzer hands it over.
    std::unique_ptr<char[]> testo(new char[dati.size() + 1]);
    std::memcpy(testo.get(), dati.data(), dati.size());
    memoria::Azzera();
    ini::ValoriNonDefault();
    const EsitoIni esito = LeggiTestoIni(testo.get(), dati.size());
    for (const RigaIni& riga : ParametroIni) {
      EXPECT_GE(riga.valore, riga.minimo) << voce.path();
      EXPECT_LE(riga.valore, riga.massimo) << voce.path();
    }
    size_t dollari = 0;
    for (char c : dati) dollari += c == '$';
    EXPECT_LE(memoria::Finestre().size(), dollari) << voce.path();
    for (const std::string& avviso : ini::Avvisi())
      EXPECT_EQ(avviso.rfind("Errore in pendrino.ini: - valore non valido per \"", 0), 0u)
          << voce.path();
    switch (esito) {
      case EsitoIni::Completo:
        ++completi;
        break;
      case EsitoIni::Incompleto:
        ++incompleti;
        break;
      case EsitoIni::ChiaveSconosciuta:
        ++sconosciuti;
        EXPECT_EQ(ini::Valori(), ini::ValoriCon({})) << voce.path();
        break;
    }
    ++file;
  }
  EXPECT_GT(file, 20);
  // The corpus reaches every ending of a reading.
  EXPECT_GT(completi, 0);
  EXPECT_GT(incompleti, 0);
  EXPECT_GT(sconosciuti, 0);
}

}  // namespace
