// The tones waiting for the audio device: played in order, each for its
// whole length, pauses as silences of theirs, across the device's buffers of
// any size; a full queue refuses the newest tone; two threads at once.
#include "piattaforma/terminale/coda_toni.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <iterator>
#include <thread>
#include <utility>
#include <vector>

#include "piattaforma/terminale/onda.h"

namespace {

using namespace piattaforma::terminale;

constexpr uint32_t CAMPIONAMENTO = 8000;

std::vector<float> Tono(uint32_t frequenza, uint32_t durata) {
  std::vector<float> campioni(CampioniTono(durata, CAMPIONAMENTO));
  RiempiTono(campioni.data(), 0, campioni.size(), campioni.size(), frequenza, CAMPIONAMENTO);
  return campioni;
}

// Everything the queue gives in buffers of `blocco` samples until it is empty.
std::vector<float> Suonati(CodaToni& coda, size_t blocco, size_t* dai_toni = nullptr) {
  std::vector<float> tutti, buffer(blocco);
  size_t contati = 0;
  while (!coda.Vuota()) {
    std::fill(buffer.begin(), buffer.end(), 7.0f);
    const size_t n = coda.Riempi(buffer.data(), blocco);
    EXPECT_LE(n, blocco);
    for (size_t i = n; i < blocco; ++i) EXPECT_EQ(buffer[i], 0.0f) << "after the tones";
    tutti.insert(tutti.end(), buffer.begin(), buffer.begin() + static_cast<ptrdiff_t>(n));
    contati += n;
    if (n == 0) break;
  }
  if (dai_toni) *dai_toni = contati;
  return tutti;
}

TEST(CodaToni, VuotaDaSilenzio) {
  CodaToni coda(CAMPIONAMENTO);
  EXPECT_TRUE(coda.Vuota());
  float buffer[16];
  std::fill(std::begin(buffer), std::end(buffer), 1.0f);
  EXPECT_EQ(coda.Riempi(buffer, 16), 0u);
  for (float c : buffer) EXPECT_EQ(c, 0.0f);
}

TEST(CodaToni, ToniInOrdineOgnunoPerIntero) {
  for (size_t blocco : {1u, 7u, 64u, 256u, 5000u}) {
    CodaToni coda(CAMPIONAMENTO);
    ASSERT_TRUE(coda.Accoda(1000, 100));
    ASSERT_TRUE(coda.Accoda(50000, 3));  // a pause: silence of its own length
    ASSERT_TRUE(coda.Accoda(1500, 4));
    ASSERT_TRUE(coda.Accoda(700, 9));
    EXPECT_FALSE(coda.Vuota());
    std::vector<float> atteso;
    for (auto [f, d] : {std::pair{1000u, 100u}, {50000u, 3u}, {1500u, 4u}, {700u, 9u}}) {
      const auto tono = Tono(f, d);
      atteso.insert(atteso.end(), tono.begin(), tono.end());
    }
    size_t dai_toni = 0;
    EXPECT_EQ(Suonati(coda, blocco, &dai_toni), atteso) << "buffers of " << blocco;
    EXPECT_EQ(dai_toni, atteso.size());
    EXPECT_EQ(atteso.size(), 800u + 24u + 32u + 72u);
    EXPECT_TRUE(coda.Vuota());
  }
}

TEST(CodaToni, UnaPausaTieneDistanziatiIToni) {
  CodaToni coda(CAMPIONAMENTO);
  coda.Accoda(1000, 10);
  coda.Accoda(50000, 20);
  coda.Accoda(1000, 10);
  const auto suonati = Suonati(coda, 33);
  ASSERT_EQ(suonati.size(), 80u + 160u + 80u);
  for (size_t i = 80; i < 240; ++i) EXPECT_EQ(suonati[i], 0.0f);
  float massimo = 0;
  for (size_t i = 240; i < 320; ++i) massimo = std::max(massimo, std::fabs(suonati[i]));
  EXPECT_GT(massimo, 0.3f);
}

TEST(CodaToni, CodaPienaRifiutaIlTonoNuovo) {
  CodaToni coda(CAMPIONAMENTO);
  for (uint32_t i = 0; i < CodaToni::CAPIENZA; ++i) ASSERT_TRUE(coda.Accoda(1000 + i, 1)) << i;
  EXPECT_FALSE(coda.Accoda(3000, 1));
  EXPECT_EQ(coda.MillisecondiInCoda(), uint64_t{CodaToni::CAPIENZA});
  // The first one played frees its place.
  float buffer[8];
  EXPECT_EQ(coda.Riempi(buffer, 8), 8u);
  EXPECT_TRUE(coda.Accoda(3000, 1));
  EXPECT_FALSE(coda.Accoda(3000, 1));
  size_t dai_toni = 0;
  Suonati(coda, 100, &dai_toni);
  EXPECT_EQ(dai_toni, 8u * CodaToni::CAPIENZA);
}

TEST(CodaToni, SvuotaLasciaAndareIToni) {
  CodaToni coda(CAMPIONAMENTO);
  coda.Accoda(1000, 100);
  coda.Accoda(1000, 50);
  EXPECT_EQ(coda.MillisecondiInCoda(), 150u);
  float buffer[10];
  coda.Riempi(buffer, 10);
  coda.Svuota();
  EXPECT_TRUE(coda.Vuota());
  EXPECT_EQ(coda.MillisecondiInCoda(), 0u);
  // A new tone starts from its beginning.
  coda.Accoda(1000, 10);
  EXPECT_EQ(Suonati(coda, 1000), Tono(1000, 10));
}

TEST(CodaToni, DurataZeroNonSuona) {
  CodaToni coda(CAMPIONAMENTO);
  coda.Accoda(1000, 0);
  coda.Accoda(1000, 10);
  EXPECT_EQ(Suonati(coda, 1000), Tono(1000, 10));
}

// One thread queues, another plays, as Suona and the device's callback do:
// every tone arrives whole and in order.
TEST(CodaToni, DueThreadNessunTonoPersoOMescolato) {
  CodaToni coda(CAMPIONAMENTO);
  constexpr uint32_t TONI = 2000;
  std::atomic<bool> finito{false};
  std::thread produttore([&] {
    for (uint32_t i = 0; i < TONI;) {
      // Each tone lasts 1 ms (8 samples), its frequency says which it is.
      if (coda.Accoda(100 + i % 2, 1))
        ++i;
      else
        std::this_thread::yield();
    }
    finito = true;
  });
  std::vector<float> suonati, buffer(13);
  while (!finito || !coda.Vuota()) {
    const size_t n = coda.Riempi(buffer.data(), buffer.size());
    suonati.insert(suonati.end(), buffer.begin(), buffer.begin() + static_cast<ptrdiff_t>(n));
  }
  produttore.join();
  ASSERT_EQ(suonati.size(), 8u * TONI);
  const auto pari = Tono(100, 1), dispari = Tono(101, 1);
  for (uint32_t i = 0; i < TONI; ++i) {
    const auto& atteso = i % 2 ? dispari : pari;
    ASSERT_TRUE(std::equal(atteso.begin(), atteso.end(), suonati.begin() + 8 * i)) << i;
  }
}

}  // namespace
