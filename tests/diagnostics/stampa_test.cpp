#include "diagnostics/stampa.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace {

std::string Cattura(void (*stampa)()) {
  testing::internal::CaptureStdout();
  stampa();
  return testing::internal::GetCapturedStdout();
}

TEST(Stampa, NomiDiPezziECase) {
  EXPECT_STREQ(StringaPezzo[0], "Pedone");
  EXPECT_STREQ(StringaPezzo[1], "Cavallo");
  EXPECT_STREQ(StringaPezzo[2], "Alfiere");
  EXPECT_STREQ(StringaPezzo[3], "Torre");
  EXPECT_STREQ(StringaPezzo[4], "Donna");
  EXPECT_STREQ(StringaPezzo[5], "Re");
  EXPECT_STREQ(StringaCasa[0], "a8");
  EXPECT_STREQ(StringaCasa[7], "h8");
  EXPECT_STREQ(StringaCasa[8], "a7");
  EXPECT_STREQ(StringaCasa[36], "e4");
  EXPECT_STREQ(StringaCasa[56], "a1");
  EXPECT_STREQ(StringaCasa[63], "h1");
  for (int s = 0; s < 64; ++s) {
    ASSERT_EQ(std::string(StringaCasa[s]).size(), 2u);
    EXPECT_EQ(StringaCasa[s][0], "abcdefgh"[s % 8]);
    EXPECT_EQ(StringaCasa[s][1], '8' - s / 8);
  }
}

TEST(Stampa, BitmapDelReBianco) {
  EXPECT_EQ(Cattura([] { StampaBitmapPezzo(160); }), "Re bianco\t____\t_\tO_O\n");
}

TEST(Stampa, BitmapDiAltriCodici) {
  EXPECT_EQ(Cattura([] { StampaBitmapPezzo(0x71); }), "Torre nero\tO___\tO\tOO_\n");
  EXPECT_EQ(Cattura([] { StampaBitmapPezzo(0x00); }), "Pedone bianco\t____\t_\t___\n");
  EXPECT_EQ(Cattura([] { StampaBitmapPezzo(0xB0); }), "Re nero\t____\tO\tO_O\n");
  EXPECT_EQ(Cattura([] { StampaBitmapPezzo(255); }), "nessun pezzo\tOOOO\tO\tOOO\n");
  // No kind 6 or 7 exists; such a code must not index past the names.
  EXPECT_EQ(Cattura([] { StampaBitmapPezzo(0xC3); }), "nessun pezzo\tOO__\t_\t_OO\n");
}

TEST(Stampa, Esadecimale) {
  EXPECT_STREQ(str_esadecimale(0), "0000000000000000");
  EXPECT_STREQ(str_esadecimale(~0ull), "ffffffffffffffff");
  EXPECT_STREQ(str_esadecimale(0x0123456789abcdefull), "0123456789abcdef");
  EXPECT_STREQ(str_esadecimale(0xa), "000000000000000a");
  EXPECT_EQ(Cattura([] { StampaEsadecimale(0x8afd7d2bbd35a91dull); }), "0x8afd7d2bbd35a91dull");
  EXPECT_EQ(Cattura([] { StampaEsadecimale(1); }), "0x0000000000000001ull");
}

TEST(Stampa, IlBufferEsadecimaleVieneRiscritto) {
  const char* primo = str_esadecimale(1);
  const char* secondo = str_esadecimale(2);
  EXPECT_EQ(primo, secondo);
  EXPECT_STREQ(secondo, "0000000000000002");
}

// The picture as described: one line per rank, a tab-separated cell per file.
std::string Immagine(uint64_t b) {
  std::string s;
  for (int r = 0; r < 8; ++r) {
    s += "\n" + std::to_string(8 - r) + "\t";
    for (int k = 0; k < 8; ++k) s += ((b >> (r * 8 + k)) & 1) ? "\to" : "\t-";
  }
  return s + "\n\n\t\tA\tB\tC\tD\tE\tF\tG\tH\n\n";
}

TEST(Stampa, StringaBitmap) {
  EXPECT_EQ(StringaBitmap(0), Immagine(0));
  EXPECT_EQ(StringaBitmap((1ull << 0) | (1ull << 63)), Immagine((1ull << 0) | (1ull << 63)));
  EXPECT_EQ(StringaBitmap(~0ull), Immagine(~0ull));
  const std::string a8 = StringaBitmap(1);
  EXPECT_EQ(a8.substr(0, 19), "\n8\t\to\t-\t-\t-\t-\t-\t-\t-");
  EXPECT_NE(a8.find("\n1\t\t-\t-\t-\t-\t-\t-\t-\t-\n\n\t\tA\tB"), std::string::npos);
}

// Runs in a fresh temporary directory and comes back.
class InCartellaTemporanea : public testing::Test {
 protected:
  void SetUp() override {
    prima_ = std::filesystem::current_path();
    cartella_ = std::filesystem::temp_directory_path() /
                ("pendrino_stampa_" + std::to_string(std::random_device{}()) + "_" +
                 testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(cartella_);
    std::filesystem::create_directories(cartella_);
    std::filesystem::current_path(cartella_);
  }
  void TearDown() override {
    std::filesystem::current_path(prima_);
    std::filesystem::remove_all(cartella_);
  }
  std::filesystem::path prima_, cartella_;
};

// Read as text: on Windows the file has the system's line ends.
std::string Leggi(const char* nome) {
  std::ifstream file(nome);
  std::stringstream testo;
  testo << file.rdbuf();
  return testo.str();
}

TEST_F(InCartellaTemporanea, ChiaroScuro) {
  StampaChiaroScuro();
  const std::string testo = Leggi("ChiaroScuro.txt");
  const std::string atteso =
      "\n    #define BtmCaseChiare aa55aa55aa55aa55\n" + Immagine(0xaa55aa55aa55aa55ull) + "\n" +
      "\n    #define BtmCaseScure 55aa55aa55aa55aa\n" + Immagine(0x55aa55aa55aa55aaull) + "\n";
  EXPECT_EQ(testo, atteso);
  EXPECT_NE(testo.find("\n    #define BtmCaseChiare aa55aa55aa55aa55\n\n8\t\to\t-"),
            std::string::npos);
  EXPECT_NE(testo.find("\n    #define BtmCaseScure 55aa55aa55aa55aa\n\n8\t\t-\to"),
            std::string::npos);
}

TEST_F(InCartellaTemporanea, ChiaroScuroRiscriveIlFile) {
  {
    std::ofstream vecchio("ChiaroScuro.txt");
    vecchio << std::string(5000, 'x');
  }
  StampaChiaroScuro();
  const std::string testo = Leggi("ChiaroScuro.txt");
  EXPECT_EQ(testo.find('x'), std::string::npos);
  EXPECT_EQ(testo.rfind("\n    #define BtmCaseChiare ", 0), 0u);
}

TEST_F(InCartellaTemporanea, ChiaroScuroSenzaFileNonFaNulla) {
  // A directory in the file's place: the file cannot be created.
  std::filesystem::create_directory("ChiaroScuro.txt");
  StampaChiaroScuro();
  EXPECT_TRUE(std::filesystem::is_directory("ChiaroScuro.txt"));
}

}  // namespace
