// The in-memory file store: the same contract as a disk, including a disk
// that fills up halfway through a write or turns read-only.
#include <gtest/gtest.h>

#include <string>

#include "piattaforma/memoria/memoria.h"

namespace {

using namespace piattaforma;

class FileInMemoria : public ::testing::Test {
 protected:
  void SetUp() override { memoria::Azzera(); }
  void TearDown() override { memoria::Azzera(); }
  static bool Sostituisci(const char* nome, const std::string& dati) {
    return SostituisciFile(nome, dati.data(), dati.size());
  }
  static bool Accoda(const char* nome, const std::string& dati) {
    return AccodaAlFile(nome, dati.data(), dati.size());
  }
  static std::string Leggi(const char* nome, uint64_t inizio, size_t capienza,
                           int64_t* esito = nullptr) {
    std::string buffer(capienza, '\0');
    const int64_t letti = LeggiFile(nome, inizio, buffer.data(), capienza);
    if (esito) *esito = letti;
    return letti < 0 ? std::string() : buffer.substr(0, static_cast<size_t>(letti));
  }
};

TEST_F(FileInMemoria, SostituisciCreaERimpiazzaPerIntero) {
  EXPECT_TRUE(Sostituisci("partita.pgn", "1. e4 e5"));
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), "1. e4 e5");
  EXPECT_TRUE(Sostituisci("partita.pgn", "1. d4"));
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), "1. d4");
  EXPECT_TRUE(Sostituisci("partita.pgn", ""));
  EXPECT_TRUE(memoria::EsisteFile("partita.pgn"));
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), "");
  // Bytes are bytes: zeros and line ends pass untouched.
  const std::string binario("a\0b\r\n", 5);
  EXPECT_TRUE(Sostituisci("dati", binario));
  EXPECT_EQ(memoria::ContenutoFile("dati"), binario);
  EXPECT_EQ(memoria::ScrittureFile(), 4u);
}

TEST_F(FileInMemoria, LeggiDaOgniPosizione) {
  memoria::ImpostaFile("mosse.txt", "0123456789");
  EXPECT_EQ(Leggi("mosse.txt", 0, 4), "0123");
  EXPECT_EQ(Leggi("mosse.txt", 4, 4), "4567");
  EXPECT_EQ(Leggi("mosse.txt", 8, 4), "89");
  int64_t esito = 0;
  EXPECT_EQ(Leggi("mosse.txt", 10, 4, &esito), "");
  EXPECT_EQ(esito, 0);
  EXPECT_EQ(Leggi("mosse.txt", 1000000, 4, &esito), "");
  EXPECT_EQ(esito, 0);
  EXPECT_EQ(Leggi("mosse.txt", UINT64_MAX, 4, &esito), "");
  EXPECT_EQ(esito, 0);
  EXPECT_EQ(Leggi("mosse.txt", 3, 0, &esito), "");
  EXPECT_EQ(esito, 0);
  Leggi("manca.txt", 0, 4, &esito);
  EXPECT_EQ(esito, -1);
  char c;
  EXPECT_EQ(LeggiFile(nullptr, 0, &c, 1), -1);
  EXPECT_EQ(LeggiFile("", 0, &c, 1), -1);
  EXPECT_EQ(LeggiFile("mosse.txt", 0, nullptr, 1), -1);
}

TEST_F(FileInMemoria, AccodaCreaEAggiunge) {
  EXPECT_TRUE(Accoda("registro", "uno\n"));
  EXPECT_TRUE(Accoda("registro", "due\n"));
  EXPECT_TRUE(Accoda("registro", ""));
  EXPECT_EQ(memoria::ContenutoFile("registro"), "uno\ndue\n");
  EXPECT_EQ(memoria::ScrittureFile(), 3u);
}

TEST_F(FileInMemoria, RinominaEdElimina) {
  memoria::ImpostaFile("a", "AAA");
  memoria::ImpostaFile("b", "BBB");
  EXPECT_TRUE(RinominaFile("a", "b"));
  EXPECT_FALSE(memoria::EsisteFile("a"));
  EXPECT_EQ(memoria::ContenutoFile("b"), "AAA");
  EXPECT_TRUE(RinominaFile("b", "b"));
  EXPECT_EQ(memoria::ContenutoFile("b"), "AAA");
  EXPECT_FALSE(RinominaFile("a", "c"));
  EXPECT_FALSE(memoria::EsisteFile("c"));
  EXPECT_TRUE(EliminaFile("b"));
  EXPECT_FALSE(memoria::EsisteFile("b"));
  EXPECT_FALSE(EliminaFile("b"));
  EXPECT_FALSE(RinominaFile(nullptr, "x"));
  EXPECT_FALSE(RinominaFile("x", ""));
  EXPECT_FALSE(EliminaFile(nullptr));
  memoria::ImpostaFile("c", "C");
  memoria::RimuoviFile("c");
  EXPECT_FALSE(memoria::EsisteFile("c"));
  // Renames and removals are not writes of bytes.
  EXPECT_EQ(memoria::ScrittureFile(), 0u);
}

// A full disk in the middle of a save: the old file stays whole.
TEST_F(FileInMemoria, DiscoPienoLasciaIlVecchioFileIntero) {
  memoria::ImpostaFile("partita.pgn", "1. e4 e5 2. Nf3");  // 15 bytes
  memoria::ImpostaFile("altro", "12345");                  // 5 bytes
  memoria::ImpostaCapienzaFile(30);
  // The new 11 bytes would need 31 beside the old file.
  EXPECT_FALSE(Sostituisci("partita.pgn", "1. d4 d5 2."));
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), "1. e4 e5 2. Nf3");
  EXPECT_EQ(memoria::ContenutoFile("altro"), "12345");
  // Exactly filling the disk is still allowed.
  EXPECT_TRUE(Sostituisci("partita.pgn", "1. d4 d5 2"));
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), "1. d4 d5 2");
  // A new file that does not fit is not created.
  memoria::ImpostaCapienzaFile(15);
  EXPECT_FALSE(Sostituisci("nuovo", "x"));
  EXPECT_FALSE(memoria::EsisteFile("nuovo"));
  EXPECT_EQ(memoria::ScrittureFile(), 3u);
}

TEST_F(FileInMemoria, DiscoPienoAccodaQuelloCheCiStaEFallisce) {
  memoria::ImpostaFile("registro", "abc");
  memoria::ImpostaCapienzaFile(8);
  EXPECT_FALSE(Accoda("registro", "defghij"));
  EXPECT_EQ(memoria::ContenutoFile("registro"), "abcdefgh");
  EXPECT_FALSE(Accoda("registro", "k"));
  EXPECT_EQ(memoria::ContenutoFile("registro"), "abcdefgh");
  EXPECT_TRUE(Accoda("registro", ""));
  // Room made elsewhere is room again.
  memoria::RimuoviFile("registro");
  EXPECT_TRUE(Accoda("registro", "12345678"));
  EXPECT_EQ(memoria::ContenutoFile("registro"), "12345678");
}

TEST_F(FileInMemoria, SolaLetturaNessunaModifica) {
  memoria::ImpostaFile("partita.pgn", "vecchia");
  memoria::ImpostaSolaLettura(true);
  EXPECT_FALSE(Sostituisci("partita.pgn", "nuova"));
  EXPECT_FALSE(Accoda("partita.pgn", "coda"));
  EXPECT_FALSE(Accoda("nuovo", "x"));
  EXPECT_FALSE(RinominaFile("partita.pgn", "altra.pgn"));
  EXPECT_FALSE(EliminaFile("partita.pgn"));
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), "vecchia");
  EXPECT_FALSE(memoria::EsisteFile("nuovo"));
  EXPECT_FALSE(memoria::EsisteFile("altra.pgn"));
  EXPECT_EQ(Leggi("partita.pgn", 0, 100), "vecchia");
  EXPECT_EQ(memoria::ScrittureFile(), 3u);
  memoria::ImpostaSolaLettura(false);
  EXPECT_TRUE(Sostituisci("partita.pgn", "nuova"));
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), "nuova");
}

TEST_F(FileInMemoria, NomiEDatiNonValidi) {
  EXPECT_FALSE(SostituisciFile(nullptr, "x", 1));
  EXPECT_FALSE(SostituisciFile("", "x", 1));
  EXPECT_FALSE(SostituisciFile("f", nullptr, 1));
  EXPECT_TRUE(SostituisciFile("f", nullptr, 0));
  EXPECT_EQ(memoria::ContenutoFile("f"), "");
  EXPECT_FALSE(AccodaAlFile(nullptr, "x", 1));
  EXPECT_FALSE(AccodaAlFile("g", nullptr, 1));
  EXPECT_FALSE(memoria::EsisteFile("g"));
}

TEST_F(FileInMemoria, AzzeraSvuotaEToglieILimiti) {
  memoria::ImpostaFile("a", "A");
  memoria::ImpostaCapienzaFile(0);
  memoria::ImpostaSolaLettura(true);
  EXPECT_FALSE(Sostituisci("b", "B"));
  memoria::Azzera();
  EXPECT_FALSE(memoria::EsisteFile("a"));
  EXPECT_EQ(memoria::ScrittureFile(), 0u);
  EXPECT_TRUE(Sostituisci("b", std::string(100000, 'x')));
  EXPECT_TRUE(Accoda("b", "y"));
  EXPECT_EQ(memoria::ContenutoFile("b").size(), 100001u);
}

}  // namespace
