// Replays the committed corpus of the settings reader fuzzer through the
// reader of the normal build: no input may crash it or read past its end,
// every value stays in its range, an unknown key leaves every default, and
// every box is the notice of a value out of range.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "ambiente_parametri.h"
#include "supporto/corpus.h"

namespace {

using CorpusFuzz = AmbienteParametri;

TEST_F(CorpusFuzz, OgniTestoDelCorpusSiLeggeSenzaDanni) {
  const std::filesystem::path cartella = corpus::Cartella("ini");
  ASSERT_TRUE(std::filesystem::is_directory(cartella)) << cartella;
  int file = 0, completi = 0, incompleti = 0, sconosciuti = 0;
  for (const corpus::Voce& voce : corpus::Leggi(cartella)) {
    const std::string& dati = voce.dati;
    const std::unique_ptr<char[]> testo = voce.Copia();
    memoria::Azzera();
    ini::ValoriNonDefault();
    const EsitoIni esito = LeggiTestoIni(testo.get(), dati.size());
    for (const RigaIni& riga : ParametroIni) {
      EXPECT_GE(riga.valore, riga.minimo) << voce.percorso;
      EXPECT_LE(riga.valore, riga.massimo) << voce.percorso;
    }
    size_t dollari = 0;
    for (char c : dati) dollari += c == '$';
    EXPECT_LE(memoria::Finestre().size(), dollari) << voce.percorso;
    for (const std::string& avviso : ini::Avvisi())
      EXPECT_EQ(avviso.rfind("Errore in pendrino.ini: - valore non valido per \"", 0), 0u)
          << voce.percorso;
    switch (esito) {
      case EsitoIni::Completo:
        ++completi;
        break;
      case EsitoIni::Incompleto:
        ++incompleti;
        break;
      case EsitoIni::ChiaveSconosciuta:
        ++sconosciuti;
        EXPECT_EQ(ini::Valori(), ini::ValoriCon({})) << voce.percorso;
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
