// The samples of a tone: a sine with short fades at both ends so that it
// starts and stops without a click. Pure functions; posix/suono.cpp plays
// them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace piattaforma::terminale {

constexpr uint32_t FREQUENZA_MINIMA_UDIBILE = 20;
constexpr uint32_t FREQUENZA_MASSIMA_UDIBILE = 20000;
constexpr double AMPIEZZA_TONO = 0.5;
constexpr uint32_t DISSOLVENZA_MS = 3;

// Frequencies outside hearing are pauses.
constexpr bool Udibile(uint32_t frequenza) {
  return frequenza >= FREQUENZA_MINIMA_UDIBILE && frequenza <= FREQUENZA_MASSIMA_UDIBILE;
}

// Samples in `durata` ms at `campionamento` samples a second.
constexpr size_t CampioniTono(uint32_t durata, uint32_t campionamento) {
  return static_cast<size_t>(static_cast<uint64_t>(durata) * campionamento / 1000);
}

// Samples [inizio, inizio + quanti) of a tone of `totale` samples, into
// `uscita`; silence when the frequency is not audible or past the end.
void RiempiTono(float* uscita, size_t inizio, size_t quanti, size_t totale, uint32_t frequenza,
                uint32_t campionamento);

}  // namespace piattaforma::terminale
