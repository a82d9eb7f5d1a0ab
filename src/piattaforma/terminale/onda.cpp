#include "piattaforma/terminale/onda.h"

#include <cmath>
#include <numbers>

namespace piattaforma::terminale {

void RiempiTono(float* uscita, size_t inizio, size_t quanti, size_t totale, uint32_t frequenza,
                uint32_t campionamento) {
  const bool suona = Udibile(frequenza) && campionamento > 0;
  size_t dissolvenza = CampioniTono(DISSOLVENZA_MS, campionamento);
  if (dissolvenza > totale / 4) dissolvenza = totale / 4;
  for (size_t i = 0; i < quanti; ++i) {
    const size_t n = inizio + i;
    if (!suona || n >= totale) {
      uscita[i] = 0.0f;
      continue;
    }
    double inviluppo = 1.0;
    const size_t dal_bordo = n < totale - 1 - n ? n : totale - 1 - n;
    if (dal_bordo < dissolvenza)
      inviluppo = 0.5 - 0.5 * std::cos(std::numbers::pi * static_cast<double>(dal_bordo) /
                                       static_cast<double>(dissolvenza));
    // The phase is taken modulo a period so that long tones keep precision.
    const double fase = std::fmod(static_cast<double>(n) * frequenza, campionamento);
    uscita[i] = static_cast<float>(AMPIEZZA_TONO * inviluppo *
                                   std::sin(2.0 * std::numbers::pi * fase / campionamento));
  }
}

}  // namespace piattaforma::terminale
