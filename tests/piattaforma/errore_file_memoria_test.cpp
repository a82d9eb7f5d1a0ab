// Why a file call of the in-memory store failed: a read-only disk, a full
// one, a missing file, and the faults a test plants on one file.
#include <gtest/gtest.h>

#include <string>

#include "piattaforma/memoria/memoria.h"

namespace {

using namespace piattaforma;

class ErroreFileInMemoria : public ::testing::Test {
 protected:
  void SetUp() override { memoria::Azzera(); }
  void TearDown() override { memoria::Azzera(); }
  static bool Sostituisci(const char* nome, const std::string& dati) {
    return SostituisciFile(nome, dati.data(), dati.size());
  }
  static bool Accoda(const char* nome, const std::string& dati) {
    return AccodaAlFile(nome, dati.data(), dati.size());
  }
  static int64_t Leggi(const char* nome) {
    char buffer[16];
    return LeggiFile(nome, 0, buffer, sizeof buffer);
  }
};

TEST_F(ErroreFileInMemoria, OgniChiamataRiuscitaDiceNessuno) {
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
  EXPECT_FALSE(Sostituisci("", "x"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_TRUE(Sostituisci("a", "x"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
  const struct {
    const char* nome;
    bool (*chiama)();
  } chiamate[] = {
      {"SostituisciFileDiTesto", [] { return SostituisciFileDiTesto("a", "x\n", 2); }},
      {"AccodaAlFile", [] { return AccodaAlFile("a", "y", 1); }},
      {"LeggiFile",
       [] {
         char b[4];
         return LeggiFile("a", 0, b, sizeof b) >= 0;
       }},
      {"RinominaFile", [] { return RinominaFile("a", "b"); }},
      {"EliminaFile", [] { return EliminaFile("b"); }},
  };
  for (const auto& chiamata : chiamate) {
    EXPECT_FALSE(Sostituisci(nullptr, "x"));
    ASSERT_EQ(UltimoErroreFile(), ErroreFile::Altro);
    EXPECT_TRUE(chiamata.chiama()) << chiamata.nome;
    EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno) << chiamata.nome;
  }
}

TEST_F(ErroreFileInMemoria, SolaLetturaEPermesso) {
  memoria::ImpostaFile("partita.pgn", "vecchia");
  memoria::ImpostaSolaLettura(true);
  EXPECT_FALSE(Sostituisci("partita.pgn", "nuova"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Permesso);
  EXPECT_FALSE(Accoda("giornale.txt", "x"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Permesso);
  EXPECT_FALSE(RinominaFile("partita.pgn", "altra.pgn"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Permesso);
  EXPECT_FALSE(EliminaFile("partita.pgn"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Permesso);
  // Reading a read-only disk works.
  EXPECT_EQ(Leggi("partita.pgn"), 7);
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
}

TEST_F(ErroreFileInMemoria, DiscoPieno) {
  memoria::ImpostaFile("partita.pgn", "1234567890");
  memoria::ImpostaCapienzaFile(15);
  EXPECT_FALSE(Sostituisci("partita.pgn", "abcdefghijk"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::DiscoPieno);
  EXPECT_FALSE(Accoda("partita.pgn", "abcdefghijk"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::DiscoPieno);
  EXPECT_TRUE(Accoda("partita.pgn", ""));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
}

TEST_F(ErroreFileInMemoria, FileMancanteENomiNonValidiSonoAltro) {
  EXPECT_EQ(Leggi("manca"), -1);
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_FALSE(RinominaFile("manca", "altro"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_FALSE(EliminaFile("manca"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_FALSE(AccodaAlFile("g", nullptr, 1));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
}

TEST_F(ErroreFileInMemoria, GuastoPiantatoSuUnFile) {
  memoria::ImpostaFile("partita.pgn", "vecchia");
  for (ErroreFile motivo :
       {ErroreFile::NonUnFile, ErroreFile::Permesso, ErroreFile::DiscoPieno, ErroreFile::Altro}) {
    memoria::ImpostaGuastoFile("partita.pgn", motivo);
    EXPECT_FALSE(Sostituisci("partita.pgn", "nuova"));
    EXPECT_EQ(UltimoErroreFile(), motivo);
    EXPECT_FALSE(Accoda("partita.pgn", "coda"));
    EXPECT_EQ(UltimoErroreFile(), motivo);
    EXPECT_EQ(Leggi("partita.pgn"), -1);
    EXPECT_EQ(UltimoErroreFile(), motivo);
    EXPECT_FALSE(RinominaFile("partita.pgn", "altra.pgn"));
    EXPECT_EQ(UltimoErroreFile(), motivo);
    EXPECT_FALSE(RinominaFile("altra.pgn", "partita.pgn"));
    EXPECT_FALSE(EliminaFile("partita.pgn"));
    EXPECT_EQ(UltimoErroreFile(), motivo);
    EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), "vecchia");
    // The other files are sound.
    EXPECT_TRUE(Sostituisci("ListaMosse.txt", "1. e4"));
    EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
  }
  memoria::ImpostaGuastoFile("partita.pgn", ErroreFile::Nessuno);
  EXPECT_TRUE(Sostituisci("partita.pgn", "nuova"));
  memoria::ImpostaGuastoFile("partita.pgn", ErroreFile::NonUnFile);
  EXPECT_FALSE(Sostituisci("partita.pgn", "x"));
  memoria::Azzera();
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
  EXPECT_TRUE(Sostituisci("partita.pgn", "x"));
}

}  // namespace
