// Replays the committed corpus of the move-text fuzzer (tests/comune/supporto/mossa_prova.h)
// through the game record of the normal build: every text read, played,
// written, taken back and typed again as written without harm.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "piattaforma/memoria/memoria.h"
#include "supporto/corpus.h"
#include "supporto/mossa_prova.h"

namespace {

TEST(CorpusFuzzMossa, OgniTestoDelCorpusSiGiocaSenzaDanni) {
  const std::filesystem::path cartella = corpus::Cartella("mossa");
  ASSERT_TRUE(std::filesystem::is_directory(cartella)) << cartella;
  int file = 0, con_mosse = 0, mosse = 0;
  for (const corpus::Voce& voce : corpus::Leggi(cartella)) {
    const std::string& dati = voce.dati;
    const char* guasto =
        ProvaTestiMossa(reinterpret_cast<const uint8_t*>(dati.data()), dati.size());
    EXPECT_EQ(guasto, nullptr) << voce.percorso << ": " << (guasto ? guasto : "");
    ++file;
    con_mosse += MosseTenute > 0;
    mosse += MosseTenute;
  }
  memoria::Azzera();
  EXPECT_GT(file, 50);
  // The corpus plays moves, and not in every input.
  EXPECT_GT(con_mosse, 20);
  EXPECT_LT(con_mosse, file);
  EXPECT_GT(mosse, 100);
}

}  // namespace
