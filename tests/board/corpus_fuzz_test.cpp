// Replays the committed corpus of the FEN loader fuzzer through the loader
// of the normal build: no input may crash it or read past its end, and every
// accepted text must give a consistent position.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "board/fen.h"
#include "board/posizione.h"
#include "verifica_posizione.h"

namespace {

TEST(CorpusFuzz, OgniTestoDelCorpusSiCaricaSenzaDanni) {
  // The test data folder is tests/board/dati, which need not exist.
  const std::filesystem::path cartella =
      (std::filesystem::path(PENDRINO_DATI_TEST) / ".." / ".." / ".." / "fuzz" / "corpus" / "fen")
          .lexically_normal();
  ASSERT_TRUE(std::filesystem::is_directory(cartella)) << cartella;
  int file = 0, accettati = 0;
  for (const auto& voce : std::filesystem::directory_iterator(cartella)) {
    if (!voce.is_regular_file()) continue;
    std::ifstream ingresso(voce.path(), std::ios::binary);
    const std::string dati((std::istreambuf_iterator<char>(ingresso)),
                           std::istreambuf_iterator<char>());
    // Exactly the input and a terminator, as the fuzzer hands it over.
    std::unique_ptr<char[]> testo(new char[dati.size() + 1]);
    std::memcpy(testo.get(), dati.data(), dati.size());
    testo[dati.size()] = '\0';
    SvuotaScacchiera();
    // Texts without a king keep these squares, whatever ran before.
    casa_re_bianco = CASA_RE_BIANCO_INIZIALE;
    casa_re_nero = CASA_RE_NERO_INIZIALE;
    if (CaricaPosizioneDaStringaFen(testo.get())) {
      ++accettati;
      EXPECT_TRUE(PosizioneCoerente()) << voce.path();
    }
    ++file;
  }
  EXPECT_GT(file, 20);
  EXPECT_GT(accettati, 0);
  EXPECT_LT(accettati, file);
}

}  // namespace
