// Tones through PortAudio: a sine written to the default output device with
// the blocking interface, returning once it has sounded, like Beep. With no
// device, or for a frequency outside hearing, a silence of the same length.
#include <fcntl.h>
#include <portaudio.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/onda.h"
#include "piattaforma/posix/terminale.h"

namespace piattaforma::terminale {

namespace {

enum class StatoAudio : uint8_t { DaProvare, Pronto, Assente };
StatoAudio audio = StatoAudio::DaProvare;
PaStream* flusso = nullptr;
uint32_t campionamento = 48000;

// ALSA and JACK report a missing device with many lines on stderr, which
// would land on the screen: stderr goes to /dev/null around PortAudio.
class Silenzio {
 public:
  Silenzio() {
    std::fflush(stderr);
    salvato_ = dup(STDERR_FILENO);
    const int nullo = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nullo >= 0) {
      dup2(nullo, STDERR_FILENO);
      close(nullo);
    }
  }
  ~Silenzio() {
    if (salvato_ < 0) return;
    dup2(salvato_, STDERR_FILENO);
    close(salvato_);
  }
  Silenzio(const Silenzio&) = delete;
  Silenzio& operator=(const Silenzio&) = delete;

 private:
  int salvato_ = -1;
};

void ChiudiAudio() {
  Silenzio silenzio;
  if (flusso) Pa_CloseStream(flusso);
  flusso = nullptr;
  Pa_Terminate();
}

bool PreparaAudio() {
  if (audio != StatoAudio::DaProvare) return audio == StatoAudio::Pronto;
  audio = StatoAudio::Assente;
  Silenzio silenzio;
  if (Pa_Initialize() != paNoError) return false;
  std::atexit(ChiudiAudio);
  const PaDeviceIndex dispositivo = Pa_GetDefaultOutputDevice();
  if (dispositivo == paNoDevice) return false;
  const PaDeviceInfo* informazioni = Pa_GetDeviceInfo(dispositivo);
  if (informazioni == nullptr) return false;
  if (informazioni->defaultSampleRate >= 8000 && informazioni->defaultSampleRate <= 192000)
    campionamento = static_cast<uint32_t>(informazioni->defaultSampleRate);
  PaStreamParameters uscita{};
  uscita.device = dispositivo;
  uscita.channelCount = 1;
  uscita.sampleFormat = paFloat32;
  uscita.suggestedLatency = informazioni->defaultLowOutputLatency;
  if (Pa_OpenStream(&flusso, nullptr, &uscita, campionamento, paFramesPerBufferUnspecified,
                    paClipOff, nullptr, nullptr) != paNoError) {
    flusso = nullptr;
    return false;
  }
  audio = StatoAudio::Pronto;
  return true;
}

bool SuonaTono(uint32_t frequenza, uint32_t durata) {
  Silenzio silenzio;
  if (Pa_StartStream(flusso) != paNoError) return false;
  const size_t totale = CampioniTono(durata, campionamento);
  static float blocco[1024];
  bool riuscito = true;
  for (size_t inizio = 0; inizio < totale && riuscito; inizio += 1024) {
    const size_t quanti = totale - inizio < 1024 ? totale - inizio : 1024;
    RiempiTono(blocco, inizio, quanti, totale, frequenza, campionamento);
    const PaError esito = Pa_WriteStream(flusso, blocco, static_cast<unsigned long>(quanti));
    riuscito = esito == paNoError || esito == paOutputUnderflowed;
  }
  // Stopping waits until the last samples have been played.
  Pa_StopStream(flusso);
  return riuscito;
}

}  // namespace

}  // namespace piattaforma::terminale

namespace piattaforma {

// The screen is not brought up to date here: a tone sounds in the middle of
// a command, before the game journal has its records, and the terminal must
// never show what a crash would lose. The loop shows it right after.
void Suona(uint32_t frequenza, uint32_t durata) {
  if (durata == 0) return;
  const uint64_t fine = Millisecondi() + durata;
  if (terminale::Udibile(frequenza) && terminale::PreparaAudio() &&
      terminale::SuonaTono(frequenza, durata))
    return;
  terminale::DormiFinoA(fine);
}

}  // namespace piattaforma
