// Why a file call on the real disk failed, the same on every platform: a
// folder where the file goes, a folder that does not exist, a missing file.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cartella_prova.h"
#include "piattaforma/piattaforma.h"

namespace {

using namespace piattaforma;
using namespace prova;

bool Sostituisci(const std::string& nome, const std::string& dati) {
  return SostituisciFile(nome.c_str(), dati.data(), dati.size());
}
bool Accoda(const std::string& nome, const std::string& dati) {
  return AccodaAlFile(nome.c_str(), dati.data(), dati.size());
}
int64_t Leggi(const std::string& nome) {
  char buffer[16];
  return LeggiFile(nome.c_str(), 0, buffer, sizeof buffer);
}

TEST(ErroreFileSistema, RiuscitaDiceNessunoENomeNonValidoAltro) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn");
  EXPECT_FALSE(SostituisciFile(nullptr, "x", 1));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_TRUE(Sostituisci(nome, "1. e4"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
  EXPECT_FALSE(AccodaAlFile("", "x", 1));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_TRUE(Accoda(nome, " e5"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
  EXPECT_FALSE(RinominaFile(nullptr, nome.c_str()));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_EQ(Leggi(nome), 8);
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
  EXPECT_FALSE(EliminaFile(""));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_TRUE(SostituisciFileDiTesto(nome.c_str(), "a\n", 2));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
  EXPECT_FALSE(SostituisciFileDiTesto("", "a\n", 2));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_TRUE(RinominaFile(nome.c_str(), cartella.Nome("altra.pgn").c_str()));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
  EXPECT_FALSE(Sostituisci("", "x"));
  EXPECT_TRUE(EliminaFile(cartella.Nome("altra.pgn").c_str()));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
}

TEST(ErroreFileSistema, CartellaAlPostoDelFile) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn");
  std::filesystem::create_directory(nome);
  prova::Scrivi(nome + "/dentro.txt", "resta");
  EXPECT_FALSE(Sostituisci(nome, "1. e4"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::NonUnFile);
  EXPECT_FALSE(SostituisciFileDiTesto(nome.c_str(), "1. e4\n", 6));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::NonUnFile);
  EXPECT_FALSE(Accoda(nome, "1. e4"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::NonUnFile);
  EXPECT_EQ(Leggi(nome), -1);
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::NonUnFile);
  EXPECT_FALSE(EliminaFile(nome.c_str()));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::NonUnFile);
  const std::string altro = cartella.Nome("altra.pgn");
  prova::Scrivi(altro, "1. d4");
  EXPECT_FALSE(RinominaFile(altro.c_str(), nome.c_str()));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::NonUnFile);
  EXPECT_TRUE(std::filesystem::is_directory(nome));
  EXPECT_EQ(Contenuto(nome + "/dentro.txt"), "resta");
  EXPECT_EQ(Contenuto(altro), "1. d4");
}

TEST(ErroreFileSistema, CartellaAlPostoDelTemporaneo) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn");
  prova::Scrivi(nome, "vecchia");
  std::filesystem::create_directory(nome + ".tmp");
  prova::Scrivi(nome + ".tmp/dentro.txt", "resta");
  EXPECT_FALSE(Sostituisci(nome, "nuova"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::NonUnFile);
  EXPECT_EQ(Contenuto(nome), "vecchia");
}

TEST(ErroreFileSistema, CartellaOFileMancantiSonoAltro) {
  CartellaProva cartella;
  const std::string nella_cartella_mancante = cartella.Nome("manca/partita.pgn");
  EXPECT_FALSE(Sostituisci(nella_cartella_mancante, "1. e4"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_FALSE(Accoda(nella_cartella_mancante, "1. e4"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  const std::string mancante = cartella.Nome("partita.pgn");
  EXPECT_EQ(Leggi(mancante), -1);
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_FALSE(RinominaFile(mancante.c_str(), cartella.Nome("altra.pgn").c_str()));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_FALSE(EliminaFile(mancante.c_str()));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
}

}  // namespace
