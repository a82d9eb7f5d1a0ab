// Replays the committed corpus of the move-text fuzzer (fuzz/mossa_prova.h)
// through the game record of the normal build: every text read, played,
// written, taken back and typed again as written without harm.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "mossa_prova.h"
#include "piattaforma/memoria/memoria.h"

namespace {

TEST(CorpusFuzzMossa, OgniTestoDelCorpusSiGiocaSenzaDanni) {
  // The test data folder is tests/game/dati, which need not exist.
  const std::filesystem::path cartella =
      (std::filesystem::path(PENDRINO_DATI_TEST) / ".." / ".." / ".." / "fuzz" / "corpus" / "mossa")
          .lexically_normal();
  ASSERT_TRUE(std::filesystem::is_directory(cartella)) << cartella;
  int file = 0, con_mosse = 0, mosse = 0;
  for (const auto& voce : std::filesystem::directory_iterator(cartella)) {
    if (!voce.is_regular_file()) continue;
    std::ifstream ingresso(voce.path(), std::ios::binary);
    const std::string dati((std::istreambuf_iterator<char>(ingresso)),
                           std::istreambuf_iterator<char>());
    const char* guasto =
        ProvaTestiMossa(reinterpret_cast<const uint8_t*>(dati.data()), dati.size());
    EXPECT_EQ(guasto, nullptr) << voce.path() << ": " << (guasto ? guasto : "");
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
