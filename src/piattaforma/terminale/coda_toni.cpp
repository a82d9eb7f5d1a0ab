#include "piattaforma/terminale/coda_toni.h"

#include "piattaforma/terminale/onda.h"

namespace piattaforma::terminale {

static_assert((CodaToni::CAPIENZA & (CodaToni::CAPIENZA - 1)) == 0,
              "the counters wrap at 2^32: the capacity must divide it");

bool CodaToni::Accoda(uint32_t frequenza, uint32_t durata) {
  const uint32_t libero = coda_.load(std::memory_order_relaxed);
  if (libero - testa_.load(std::memory_order_acquire) >= CAPIENZA) return false;
  voci_[libero % CAPIENZA] = {frequenza, durata};
  coda_.store(libero + 1, std::memory_order_release);
  return true;
}

bool CodaToni::Vuota() const {
  return testa_.load(std::memory_order_acquire) == coda_.load(std::memory_order_acquire);
}

uint64_t CodaToni::MillisecondiInCoda() const {
  uint64_t totale = 0;
  const uint32_t fine = coda_.load(std::memory_order_acquire);
  for (uint32_t i = testa_.load(std::memory_order_acquire); i != fine; ++i)
    totale += voci_[i % CAPIENZA].durata;
  return totale;
}

size_t CodaToni::Riempi(float* uscita, size_t quanti) {
  size_t fatti = 0;
  while (fatti < quanti) {
    const uint32_t prossimo = testa_.load(std::memory_order_relaxed);
    if (prossimo == coda_.load(std::memory_order_acquire)) break;
    const Voce voce = voci_[prossimo % CAPIENZA];
    const size_t totale = CampioniTono(voce.durata, campionamento_);
    const size_t resto = totale - campione_;
    const size_t passo = quanti - fatti < resto ? quanti - fatti : resto;
    RiempiTono(uscita + fatti, campione_, passo, totale, voce.frequenza, campionamento_);
    fatti += passo;
    campione_ += passo;
    if (campione_ >= totale) {
      campione_ = 0;
      testa_.store(prossimo + 1, std::memory_order_release);
    }
  }
  for (size_t i = fatti; i < quanti; ++i) uscita[i] = 0.0f;
  return fatti;
}

void CodaToni::Svuota() {
  campione_ = 0;
  testa_.store(coda_.load(std::memory_order_acquire), std::memory_order_release);
}

}  // namespace piattaforma::terminale
