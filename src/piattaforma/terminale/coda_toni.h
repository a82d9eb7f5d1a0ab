// The tones waiting to sound: a ring of fixed size that one thread fills
// (Suona, in the program's loop) and another empties (the audio device's
// callback), without locks or allocation, so that neither ever waits for the
// other. Pure: posix/suono.cpp connects it to PortAudio.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace piattaforma::terminale {

class CodaToni {
 public:
  // Far more than the program ever sounds at once (the most is a handful).
  static constexpr uint32_t CAPIENZA = 64;

  explicit CodaToni(uint32_t campionamento = 48000) : campionamento_(campionamento) {}
  CodaToni(const CodaToni&) = delete;
  CodaToni& operator=(const CodaToni&) = delete;

  // Only while nothing is being played.
  void ImpostaCampionamento(uint32_t campionamento) { campionamento_ = campionamento; }

  // The filling side. A tone of `frequenza` Hz for `durata` ms after those
  // already waiting; a frequency outside hearing is a silence as long. False
  // when the queue is full: the tone is left out, the others keep theirs.
  bool Accoda(uint32_t frequenza, uint32_t durata);
  // Whether every tone has been handed to the device (either side).
  bool Vuota() const;
  // The length of the tones still waiting, the one sounding included.
  uint64_t MillisecondiInCoda() const;

  // The playing side: the next `quanti` samples, the tones in order and each
  // whole, then silence; how many came from tones.
  size_t Riempi(float* uscita, size_t quanti);
  // Lets every waiting tone go; only while nothing is being played.
  void Svuota();

 private:
  struct Voce {
    uint32_t frequenza, durata;
  };
  Voce voci_[CAPIENZA] = {};
  // Counters that only grow (modulo 2^32): the next tone to play, owned by
  // the playing side, and the next free place, owned by the filling side.
  std::atomic<uint32_t> testa_{0}, coda_{0};
  size_t campione_ = 0;  // samples of the tone at testa_ already played
  uint32_t campionamento_;
};

}  // namespace piattaforma::terminale
