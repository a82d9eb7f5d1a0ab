// Files on the real disk, the same on every platform: whole replacement,
// reads from any offset, appends, renames and removals, and the failures
// that leave things as they were.
#include "cartella_prova.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <sstream>
#include <string>

#include "piattaforma/piattaforma.h"

namespace prova {

namespace fs = std::filesystem;

CartellaProva::CartellaProva() {
  const auto adesso = std::chrono::steady_clock::now().time_since_epoch().count();
  for (int tentativo = 0; tentativo < 100; ++tentativo) {
    percorso_ = fs::temp_directory_path() /
                ("pendrino_file_" + std::to_string(adesso) + "_" + std::to_string(tentativo));
    std::error_code errore;
    if (fs::create_directory(percorso_, errore)) return;
  }
  ADD_FAILURE() << "no test folder could be made";
}

CartellaProva::~CartellaProva() {
  std::error_code errore;
  fs::remove_all(percorso_, errore);
}

std::string CartellaProva::Nome(const std::string& file) const {
  return (percorso_ / file).string();
}

bool Esiste(const std::string& nome) {
  std::error_code errore;
  return fs::exists(nome, errore);
}

std::string Contenuto(const std::string& nome) {
  std::ifstream file(nome, std::ios::binary);
  std::stringstream testo;
  testo << file.rdbuf();
  return testo.str();
}

void Scrivi(const std::string& nome, const std::string& contenuto) {
  std::ofstream file(nome, std::ios::binary | std::ios::trunc);
  file << contenuto;
}

size_t FileNellaCartella(const CartellaProva& cartella) {
  size_t n = 0;
  for ([[maybe_unused]] const auto& voce : fs::directory_iterator(cartella.Percorso())) ++n;
  return n;
}

}  // namespace prova

namespace {

using namespace piattaforma;
using namespace prova;

bool Sostituisci(const std::string& nome, const std::string& dati) {
  return SostituisciFile(nome.c_str(), dati.data(), dati.size());
}
bool Accoda(const std::string& nome, const std::string& dati) {
  return AccodaAlFile(nome.c_str(), dati.data(), dati.size());
}
std::string Leggi(const std::string& nome, uint64_t inizio, size_t capienza,
                  int64_t* esito = nullptr) {
  std::string buffer(capienza, '\0');
  const int64_t letti = LeggiFile(nome.c_str(), inizio, buffer.data(), capienza);
  if (esito) *esito = letti;
  return letti < 0 ? std::string() : buffer.substr(0, static_cast<size_t>(letti));
}

TEST(FileSistema, SostituisciCreaERimpiazzaSenzaResti) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn");
  ASSERT_TRUE(Sostituisci(nome, "1. e4 e5\n"));
  EXPECT_EQ(Contenuto(nome), "1. e4 e5\n");
  ASSERT_TRUE(Sostituisci(nome, "1. d4\n"));
  EXPECT_EQ(Contenuto(nome), "1. d4\n");
  // Bytes go as they are: no line-end translation, zeros kept.
  const std::string binario("a\0b\r\nc\n", 7);
  ASSERT_TRUE(Sostituisci(nome, binario));
  EXPECT_EQ(Contenuto(nome), binario);
  ASSERT_TRUE(Sostituisci(nome, ""));
  EXPECT_TRUE(Esiste(nome));
  EXPECT_EQ(Contenuto(nome), "");
  // Nothing but the file itself: the temporary file is gone.
  EXPECT_EQ(FileNellaCartella(cartella), 1u);
  EXPECT_FALSE(Esiste(nome + ".tmp"));
}

TEST(FileSistema, FileGrandeAndataERitorno) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("grande.bin");
  std::string dati(3 * 1024 * 1024 + 17, '\0');
  for (size_t i = 0; i < dati.size(); ++i) dati[i] = static_cast<char>((i * 131) >> 3);
  ASSERT_TRUE(Sostituisci(nome, dati));
  int64_t esito = 0;
  EXPECT_EQ(Leggi(nome, 0, dati.size() + 100, &esito), dati);
  EXPECT_EQ(esito, static_cast<int64_t>(dati.size()));
}

TEST(FileSistema, LeggiDaOgniPosizione) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("mosse.txt");
  Scrivi(nome, "0123456789");
  EXPECT_EQ(Leggi(nome, 0, 4), "0123");
  EXPECT_EQ(Leggi(nome, 4, 4), "4567");
  EXPECT_EQ(Leggi(nome, 8, 4), "89");
  EXPECT_EQ(Leggi(nome, 0, 100), "0123456789");
  int64_t esito = -2;
  EXPECT_EQ(Leggi(nome, 10, 4, &esito), "");
  EXPECT_EQ(esito, 0);
  esito = -2;
  Leggi(nome, 1u << 30, 4, &esito);
  EXPECT_EQ(esito, 0);
  esito = -2;
  Leggi(nome, UINT64_MAX, 4, &esito);
  EXPECT_EQ(esito, 0);
  esito = -2;
  Leggi(nome, 2, 0, &esito);
  EXPECT_EQ(esito, 0);
  Leggi(cartella.Nome("manca.txt"), 0, 4, &esito);
  EXPECT_EQ(esito, -1);
  // A folder is no file to read.
  Leggi(cartella.Percorso().string(), 0, 4, &esito);
  EXPECT_EQ(esito, -1);
  char c = 0;
  EXPECT_EQ(LeggiFile(nullptr, 0, &c, 1), -1);
  EXPECT_EQ(LeggiFile("", 0, &c, 1), -1);
}

TEST(FileSistema, AccodaCreaEAggiunge) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("registro.txt");
  ASSERT_TRUE(Accoda(nome, "uno\n"));
  ASSERT_TRUE(Accoda(nome, "due\n"));
  ASSERT_TRUE(Accoda(nome, ""));
  EXPECT_EQ(Contenuto(nome), "uno\ndue\n");
  EXPECT_EQ(Leggi(nome, 4, 100), "due\n");
  // Into a folder, or with no name, nothing is appended.
  EXPECT_FALSE(Accoda(cartella.Percorso().string(), "x"));
  EXPECT_FALSE(AccodaAlFile(nullptr, "x", 1));
  EXPECT_FALSE(AccodaAlFile(nome.c_str(), nullptr, 1));
  EXPECT_EQ(Contenuto(nome), "uno\ndue\n");
}

TEST(FileSistema, RinominaSostituendoEdElimina) {
  CartellaProva cartella;
  const std::string a = cartella.Nome("a.txt"), b = cartella.Nome("b.txt");
  Scrivi(a, "AAA");
  Scrivi(b, "BBB");
  ASSERT_TRUE(RinominaFile(a.c_str(), b.c_str()));
  EXPECT_FALSE(Esiste(a));
  EXPECT_EQ(Contenuto(b), "AAA");
  EXPECT_FALSE(RinominaFile(a.c_str(), cartella.Nome("c.txt").c_str()));
  EXPECT_FALSE(Esiste(cartella.Nome("c.txt")));
  ASSERT_TRUE(EliminaFile(b.c_str()));
  EXPECT_FALSE(Esiste(b));
  EXPECT_FALSE(EliminaFile(b.c_str()));
  EXPECT_FALSE(RinominaFile(nullptr, b.c_str()));
  EXPECT_FALSE(RinominaFile(a.c_str(), ""));
  EXPECT_FALSE(EliminaFile(nullptr));
  EXPECT_FALSE(EliminaFile(""));
  // A folder is not removed by a file call.
  const std::string sotto = cartella.Nome("sotto");
  std::filesystem::create_directory(sotto);
  EXPECT_FALSE(EliminaFile(sotto.c_str()));
  EXPECT_TRUE(std::filesystem::is_directory(sotto));
}

// A folder in the file's place: the bytes are written to the temporary file,
// the rename fails, and the temporary goes.
TEST(FileSistema, CartellaAlPostoDelFile) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn");
  std::filesystem::create_directory(nome);
  Scrivi(nome + "/dentro.txt", "resta");
  EXPECT_FALSE(Sostituisci(nome, "1. e4"));
  EXPECT_TRUE(std::filesystem::is_directory(nome));
  EXPECT_EQ(Contenuto(nome + "/dentro.txt"), "resta");
  EXPECT_FALSE(Esiste(nome + ".tmp"));
  EXPECT_FALSE(SostituisciFile(nullptr, "x", 1));
  EXPECT_FALSE(SostituisciFile("", "x", 1));
  EXPECT_FALSE(SostituisciFile(cartella.Nome("f").c_str(), nullptr, 1));
}

// A folder that does not exist: nothing can be written, nothing is made.
TEST(FileSistema, CartellaInesistente) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("manca/partita.pgn");
  EXPECT_FALSE(Sostituisci(nome, "1. e4"));
  EXPECT_FALSE(Accoda(nome, "1. e4"));
  EXPECT_FALSE(Esiste(cartella.Nome("manca")));
}

// Plain names are in the working directory.
TEST(FileSistema, NomiRelativiNellaCartellaDiLavoro) {
  CartellaProva cartella;
  const auto prima = std::filesystem::current_path();
  std::filesystem::current_path(cartella.Percorso());
  EXPECT_TRUE(Sostituisci("relativo.txt", "qui"));
  EXPECT_TRUE(Accoda("relativo.txt", "!"));
  EXPECT_EQ(Leggi("relativo.txt", 0, 10), "qui!");
  EXPECT_TRUE(RinominaFile("relativo.txt", "spostato.txt"));
  std::filesystem::current_path(prima);
  EXPECT_EQ(Contenuto(cartella.Nome("spostato.txt")), "qui!");
  EXPECT_EQ(FileNellaCartella(cartella), 1u);
}

// Why a call failed: a folder where the file goes, a folder that does not
// exist, a missing file.
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
  EXPECT_EQ(Leggi(nome, 0, 16), "1. e4 e5");
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
  int64_t letti = 0;
  Leggi(nome, 0, 16, &letti);
  EXPECT_EQ(letti, -1);
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
  int64_t letti = 0;
  Leggi(mancante, 0, 16, &letti);
  EXPECT_EQ(letti, -1);
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_FALSE(RinominaFile(mancante.c_str(), cartella.Nome("altra.pgn").c_str()));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
  EXPECT_FALSE(EliminaFile(mancante.c_str()));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::Altro);
}

}  // namespace
