// Replays the committed corpus of the journal reader fuzzer through the
// reader of the normal build: no input may crash it or read past its end,
// playing never goes further than checking, the position rebuilt is whole,
// the clock stays stopped and no box opens.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "ambiente_partita.h"
#include "clock/orologio.h"
#include "game/giornale.h"
#include "settings/parametri.h"
#include "supporto/corpus.h"

namespace {

using CorpusGiornale = AmbientePartita;

TEST_F(CorpusGiornale, OgniGiornaleDelCorpusSiLeggeSenzaDanni) {
  const std::filesystem::path cartella = corpus::Cartella("giornale");
  ASSERT_TRUE(std::filesystem::is_directory(cartella)) << cartella;
  int file = 0, ripresi = 0, danneggiati = 0, chiusi = 0;
  for (const corpus::Voce& voce : corpus::Leggi(cartella)) {
    const std::string& dati = voce.dati;
    const std::unique_ptr<char[]> testo = voce.Copia();
    auto Nuova = [] {
      memoria::Azzera();
      SospendiGiornale();
      DefaultIni();
      CaricaTempoDaiParametri();
      AmbientePartita::Nuova(FenIniziale);
    };
    Nuova();
    const EsitoGiornale esame = LeggiGiornale(testo.get(), dati.size(), false);
    Nuova();
    const EsitoGiornale esito = LeggiGiornale(testo.get(), dati.size(), true);
    EXPECT_LE(esito.record, esame.record) << voce.percorso;
    EXPECT_EQ(esito.inizio, esame.inizio) << voce.percorso;
    EXPECT_EQ(esito.semimossa, ContatoreMosse) << voce.percorso;
    EXPECT_EQ(InMoto, 0u) << voce.percorso;
    EXPECT_TRUE(memoria::Finestre().empty()) << voce.percorso;
    EXPECT_TRUE(memoria::Toni().empty()) << voce.percorso;
    const uint64_t chiave = ChiaveHash;
    const std::vector<uint64_t> legali = ParoleLegali();
    GeneraMosseLegali();
    EXPECT_EQ(ChiaveHash, chiave) << voce.percorso;
    EXPECT_EQ(ParoleLegali(), legali) << voce.percorso;
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
