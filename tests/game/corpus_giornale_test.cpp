// Replays the committed corpus of the journal reader fuzzer through the
// reader of the normal build: no input may crash it or read past its end,
// playing never goes further than checking, the position rebuilt is whole,
// the clock stays stopped and no box opens.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "ambiente_partita.h"
#include "clock/cadenza.h"
#include "game/giornale.h"
#include "settings/parametri.h"

namespace {

using CorpusGiornale = AmbientePartita;

TEST_F(CorpusGiornale, OgniGiornaleDelCorpusSiLeggeSenzaDanni) {
  const std::filesystem::path cartella = (std::filesystem::path(PENDRINO_DATI_TEST) / ".." / ".." /
                                          ".." / "fuzz" / "corpus" / "giornale")
                                             .lexically_normal();
  ASSERT_TRUE(std::filesystem::is_directory(cartella)) << cartella;
  int file = 0, ripresi = 0, danneggiati = 0, chiusi = 0;
  for (const auto& voce : std::filesystem::directory_iterator(cartella)) {
    if (!voce.is_regular_file()) continue;
    std::ifstream ingresso(voce.path(), std::ios::binary);
    const std::string dati((std::istreambuf_iterator<char>(ingresso)),
                           std::istreambuf_iterator<char>());
    std::unique_ptr<char[]> testo(new char[dati.size() + 1]);
    std::memcpy(testo.get(), dati.data(), dati.size());
    auto Nuova = [] {
      memoria::Azzera();
      SospendiGiornale();
      DefaultIni();
      InMoto = 0;
      PrimaVoltaInMoto = 0;
      TempoRimasto[0] = TempoRimasto[1] = 7200000;
      AzzeraTempoUTC();
      AmbientePartita::Nuova(FenIniziale);
    };
    Nuova();
    const EsitoGiornale esame = LeggiGiornale(testo.get(), dati.size(), false);
    Nuova();
    const EsitoGiornale esito = LeggiGiornale(testo.get(), dati.size(), true);
    EXPECT_LE(esito.record, esame.record) << voce.path();
    EXPECT_EQ(esito.inizio, esame.inizio) << voce.path();
    EXPECT_EQ(esito.semimossa, ContatoreMosse) << voce.path();
    EXPECT_EQ(InMoto, 0u) << voce.path();
    EXPECT_TRUE(memoria::Finestre().empty()) << voce.path();
    EXPECT_TRUE(memoria::Toni().empty()) << voce.path();
    const uint64_t chiave = ChiaveHash;
    const std::vector<uint64_t> legali = ParoleLegali();
    GeneraMosseLegali();
    EXPECT_EQ(ChiaveHash, chiave) << voce.path();
    EXPECT_EQ(ParoleLegali(), legali) << voce.path();
    ripresi += esito.inizio && !esito.chiuso && !esito.danneggiato;
    danneggiati += esito.danneggiato;
    chiusi += esito.chiuso;
    ++file;
  }
  EXPECT_GE(file, 9);
  // The corpus reaches a game to take up, a damaged one and a closed one.
  EXPECT_GT(ripresi, 0);
  EXPECT_GT(danneggiati, 0);
  EXPECT_GT(chiusi, 0);
}

}  // namespace
