// The real backend of this platform, where it needs no console: time, pauses,
// viewer command lines and the process exit.
#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <string>
#include <thread>

#include "piattaforma/piattaforma.h"

namespace {

using namespace piattaforma;

TEST(Sistema, MillisecondiMonotoniEInMillisecondi) {
  const uint64_t inizio = Millisecondi();
  uint64_t precedente = inizio;
  for (int i = 0; i < 100000; ++i) {
    const uint64_t adesso = Millisecondi();
    ASSERT_GE(adesso, precedente);
    precedente = adesso;
  }
  const uint64_t prima = Millisecondi();
  std::this_thread::sleep_for(std::chrono::milliseconds(120));
  const uint64_t trascorsi = Millisecondi() - prima;
  // Within the system tick (about 16 ms on Windows).
  EXPECT_GE(trascorsi, 100u);
  EXPECT_LT(trascorsi, 2000u);
}

TEST(Sistema, OraUTCComeLaLibreriaStandard) {
  for (int tentativo = 0; tentativo < 3; ++tentativo) {
    const std::time_t prima = std::time(nullptr);
    const DataOraUTC ora = OraUTC();
    const std::time_t dopo = std::time(nullptr);
    if (prima != dopo) continue;  // a second boundary in between: try again
    const std::tm* utc = std::gmtime(&prima);
    EXPECT_EQ(ora.anno, utc->tm_year + 1900);
    EXPECT_EQ(ora.mese, utc->tm_mon + 1);
    EXPECT_EQ(ora.giorno, utc->tm_mday);
    EXPECT_EQ(ora.ora, utc->tm_hour);
    EXPECT_EQ(ora.minuto, utc->tm_min);
    EXPECT_EQ(ora.secondo, utc->tm_sec);
    return;
  }
  FAIL() << "the second never stood still";
}

// Measured with the standard clock: the system tick counter may advance in
// steps of 15 ms or so.
int64_t DurataMs(void (*azione)()) {
  const auto prima = std::chrono::steady_clock::now();
  azione();
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                               prima)
      .count();
}

TEST(Sistema, TonoDiDurataZeroNonAttende) {
  Suona(440, 1);  // the device opened, when there is one
  EXPECT_LT(DurataMs([] { Suona(440, 0); }), 200);
  EXPECT_LT(DurataMs([] { Suona(30000, 0); }), 200);
}

TEST(Sistema, ComandoTroppoLungoNonVieneComposto) {
  char corto[10];
  ComponiComandoVisualizzatore(corto, sizeof corto, "un_nome_di_file_lunghissimo.txt");
  EXPECT_STREQ(corto, "");
  ComponiComandoVisualizzatore(nullptr, 0, "partita.pgn");
  char comando[256] = "x";
  ComponiComandoVisualizzatore(comando, sizeof comando, "partita.pgn");
  EXPECT_NE(std::string(comando).find("partita.pgn"), std::string::npos);
  EseguiComandoVisualizzatore("");
  EseguiComandoVisualizzatore(nullptr);
}

TEST(SistemaDeathTest, TerminaProcessoColCodice) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(TerminaProcesso(7), ::testing::ExitedWithCode(7), "");
  EXPECT_EXIT(TerminaProcesso(0), ::testing::ExitedWithCode(0), "");
}

}  // namespace
