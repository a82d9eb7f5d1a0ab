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

TEST_F(FileInMemoria, BloccoPresoCreaIlFileVuotoSenzaScrivere) {
  EXPECT_FALSE(memoria::BloccoPreso("giornale.blocco"));
  EXPECT_TRUE(BloccaFile("giornale.blocco"));
  EXPECT_TRUE(memoria::BloccoPreso("giornale.blocco"));
  EXPECT_TRUE(memoria::EsisteFile("giornale.blocco"));
  EXPECT_EQ(memoria::ContenutoFile("giornale.blocco"), "");
  EXPECT_EQ(memoria::ScrittureFile(), 0u);
  // Twice in one program is harmless; a file already there keeps its bytes.
  EXPECT_TRUE(BloccaFile("giornale.blocco"));
  memoria::ImpostaFile("altro.blocco", "resta");
  EXPECT_TRUE(BloccaFile("altro.blocco"));
  EXPECT_EQ(memoria::ContenutoFile("altro.blocco"), "resta");
  EXPECT_TRUE(memoria::BloccoPreso("altro.blocco"));
}

TEST_F(FileInMemoria, BloccoTenutoDaUnAltroProcesso) {
  memoria::ImpostaFileBloccato("giornale.blocco", true);
  EXPECT_TRUE(memoria::EsisteFile("giornale.blocco"));
  EXPECT_FALSE(BloccaFile("giornale.blocco"));
  EXPECT_FALSE(memoria::BloccoPreso("giornale.blocco"));
  EXPECT_TRUE(BloccaFile("altro.blocco"));
  memoria::ImpostaFileBloccato("giornale.blocco", false);
  EXPECT_TRUE(memoria::EsisteFile("giornale.blocco"));
  EXPECT_TRUE(BloccaFile("giornale.blocco"));
  EXPECT_TRUE(memoria::BloccoPreso("giornale.blocco"));
  // Azzera lets every lock go, ours and the other process's.
  memoria::ImpostaFileBloccato("terzo.blocco", true);
  memoria::Azzera();
  EXPECT_FALSE(memoria::BloccoPreso("giornale.blocco"));
  EXPECT_TRUE(BloccaFile("terzo.blocco"));
}

TEST_F(FileInMemoria, BloccoImpossibileNonDiceChePendrinoEInUso) {
  memoria::ImpostaSolaLettura(true);
  EXPECT_TRUE(BloccaFile("giornale.blocco"));
  EXPECT_FALSE(memoria::EsisteFile("giornale.blocco"));
  EXPECT_FALSE(memoria::BloccoPreso("giornale.blocco"));
  // An existing file can be locked on a read-only disk.
  memoria::ImpostaFile("giornale.blocco", "");
  EXPECT_TRUE(BloccaFile("giornale.blocco"));
  EXPECT_TRUE(memoria::BloccoPreso("giornale.blocco"));
  EXPECT_TRUE(BloccaFile(nullptr));
  EXPECT_TRUE(BloccaFile(""));
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

// Why a call failed: a read-only disk, a full one, a missing file, and the
// faults a test plants on one file.
TEST_F(FileInMemoria, ErroreOgniChiamataRiuscitaDiceNessuno) {
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

TEST_F(FileInMemoria, ErroreSolaLetturaEPermesso) {
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
  EXPECT_EQ(Leggi("partita.pgn", 0, 16), "vecchia");
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
}

TEST_F(FileInMemoria, ErroreDiscoPieno) {
  memoria::ImpostaFile("partita.pgn", "1234567890");
  memoria::ImpostaCapienzaFile(15);
  EXPECT_FALSE(Sostituisci("partita.pgn", "abcdefghijk"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::DiscoPieno);
  EXPECT_FALSE(Accoda("partita.pgn", "abcdefghijk"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::DiscoPieno);
  EXPECT_TRUE(Accoda("partita.pgn", ""));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Nessuno);
}

TEST_F(FileInMemoria, ErroreFileMancanteENomiNonValidiSonoAltro) {
  int64_t letti = 0;
  Leggi("manca", 0, 16, &letti);
  EXPECT_EQ(letti, -1);
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_FALSE(RinominaFile("manca", "altro"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_FALSE(EliminaFile("manca"));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_FALSE(AccodaAlFile("g", nullptr, 1));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
}

TEST_F(FileInMemoria, ErroreGuastoPiantatoSuUnFile) {
  memoria::ImpostaFile("partita.pgn", "vecchia");
  for (ErroreFile motivo :
       {ErroreFile::NonUnFile, ErroreFile::Permesso, ErroreFile::DiscoPieno, ErroreFile::Altro}) {
    memoria::ImpostaGuastoFile("partita.pgn", motivo);
    EXPECT_FALSE(Sostituisci("partita.pgn", "nuova"));
    EXPECT_EQ(UltimoErroreFile(), motivo);
    EXPECT_FALSE(Accoda("partita.pgn", "coda"));
    EXPECT_EQ(UltimoErroreFile(), motivo);
    int64_t letti = 0;
    Leggi("partita.pgn", 0, 16, &letti);
    EXPECT_EQ(letti, -1);
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
