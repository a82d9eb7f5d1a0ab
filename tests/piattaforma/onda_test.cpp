// The samples of a tone: the right length, the right pitch, no clicks at the
// ends, and silence for frequencies outside hearing.
#include "piattaforma/terminale/onda.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using namespace piattaforma::terminale;

std::vector<float> Tono(uint32_t frequenza, uint32_t durata, uint32_t campionamento) {
  std::vector<float> campioni(CampioniTono(durata, campionamento));
  RiempiTono(campioni.data(), 0, campioni.size(), campioni.size(), frequenza, campionamento);
  return campioni;
}

TEST(Onda, LunghezzaDalTempoEDalCampionamento) {
  EXPECT_EQ(CampioniTono(100, 48000), 4800u);
  EXPECT_EQ(CampioniTono(5, 44100), 220u);
  EXPECT_EQ(CampioniTono(0, 48000), 0u);
  EXPECT_EQ(CampioniTono(4000000000u, 48000), 192000000000ull);
  EXPECT_EQ(Tono(440, 250, 48000).size(), 12000u);
}

TEST(Onda, FrequenzaGiustaDalleOndeComplete) {
  const auto campioni = Tono(1000, 500, 48000);
  int passaggi = 0;
  for (size_t i = 1; i < campioni.size(); ++i)
    if (campioni[i - 1] < 0 && campioni[i] >= 0) ++passaggi;
  // 1000 Hz for half a second: 500 rising zero crossings, give or take the ends.
  EXPECT_NEAR(passaggi, 500, 2);
}

TEST(Onda, AmpiezzaLimitataEDissolvenzeAgliEstremi) {
  const auto campioni = Tono(440, 200, 48000);
  float massimo = 0;
  for (float c : campioni) massimo = std::max(massimo, std::fabs(c));
  EXPECT_LE(massimo, AMPIEZZA_TONO + 1e-6);
  EXPECT_GT(massimo, AMPIEZZA_TONO * 0.95);
  EXPECT_EQ(campioni.front(), 0.0f);
  EXPECT_EQ(campioni.back(), 0.0f);
  // The first millisecond is still quiet (fade-in of 3 ms).
  for (size_t i = 0; i < 48; ++i) EXPECT_LT(std::fabs(campioni[i]), 0.15f) << i;
}

TEST(Onda, SopraISentireESottoSonoSilenzio) {
  for (uint32_t f : {20001u, 30000u, 37000u, 0u, 19u}) {
    EXPECT_FALSE(Udibile(f)) << f;
    const auto campioni = Tono(f, 50, 48000);
    EXPECT_EQ(campioni.size(), 2400u);
    for (float c : campioni) ASSERT_EQ(c, 0.0f) << f;
  }
  EXPECT_TRUE(Udibile(20000));
  EXPECT_TRUE(Udibile(3000));
  EXPECT_TRUE(Udibile(20));
}

TEST(Onda, ABlocchiComeInUnaVolta) {
  const auto intero = Tono(523, 77, 44100);
  ASSERT_EQ(intero.size(), 3395u);  // 77 ms of 44.1 kHz, the half sample dropped
  std::vector<float> a_blocchi(intero.size() + 100, 1.0f);
  for (size_t inizio = 0; inizio < a_blocchi.size(); inizio += 1024) {
    const size_t quanti = std::min<size_t>(1024, a_blocchi.size() - inizio);
    RiempiTono(a_blocchi.data() + inizio, inizio, quanti, intero.size(), 523, 44100);
  }
  for (size_t i = 0; i < intero.size(); ++i) ASSERT_EQ(a_blocchi[i], intero[i]) << i;
  // Past the end of the tone: silence.
  for (size_t i = intero.size(); i < a_blocchi.size(); ++i) ASSERT_EQ(a_blocchi[i], 0.0f);
}

TEST(Onda, TonoBrevissimoSenzaErrori) {
  for (uint32_t durata : {1u, 2u, 3u}) {
    const auto campioni = Tono(3000, durata, 48000);
    EXPECT_EQ(campioni.size(), 48u * durata);
    for (float c : campioni) EXPECT_LE(std::fabs(c), AMPIEZZA_TONO + 1e-6);
  }
  RiempiTono(nullptr, 0, 0, 0, 440, 48000);
  float uno = 1.0f;
  RiempiTono(&uno, 0, 1, 1, 440, 0);
  EXPECT_EQ(uno, 0.0f);
}

}  // namespace
