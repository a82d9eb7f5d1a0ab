// Tones through PortAudio without holding the program: Suona puts the tone in
// a queue and returns, and the default output device's callback plays the
// queue, tone after tone, each for its whole length (a frequency outside
// hearing is a silence as long). The stream runs only while there is
// something to play: the callback ends it once the queue is empty, and a
// small thread of ours starts it again when a tone comes, so that neither
// the loop nor an idle program pays for the device. With no device, tones
// are not kept: nothing would sound, and nothing waits for them.
#include <fcntl.h>
#include <portaudio.h>
#include <unistd.h>

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/terminale.h"
#include "piattaforma/terminale/coda_toni.h"

namespace piattaforma::terminale {

namespace {

enum class StatoAudio : uint8_t { DaProvare, Pronto, Assente };
StatoAudio audio = StatoAudio::DaProvare;
PaStream* flusso = nullptr;
CodaToni coda;

// The starter thread and what it waits for: a tone queued while the stream
// is not playing, or the end.
std::thread avviatore;
std::mutex guardia;
std::condition_variable sveglia;
bool fermo = true;  // the stream plays nothing (never started, or ended)
bool fine = false;

// At exit, tones still waiting may finish for this long at most: the last
// confirmation is heard whole, and leaving never hangs on a device.
constexpr uint64_t ATTESA_MASSIMA_USCITA = 1000;

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

// The device's own thread: samples only, no allocation, no lock.
int Richiamo(const void*, void* uscita, unsigned long fotogrammi, const PaStreamCallbackTimeInfo*,
             PaStreamCallbackFlags, void*) {
  const size_t dai_toni = coda.Riempi(static_cast<float*>(uscita), fotogrammi);
  // Ended once the queue is empty; what is already in the buffers still plays.
  return dai_toni < fotogrammi && coda.Vuota() ? paComplete : paContinue;
}

// Called by PortAudio once the stream has played its last buffer.
void FlussoFinito(void*) {
  std::lock_guard<std::mutex> chiave(guardia);
  fermo = true;
  sveglia.notify_one();
}

void Avviatore() {
  for (;;) {
    {
      std::unique_lock<std::mutex> chiave(guardia);
      sveglia.wait(chiave, [] { return fine || (fermo && !coda.Vuota()); });
      if (fine) return;
    }
    // A stream that ended by itself must be stopped before it starts again.
    if (Pa_IsStreamStopped(flusso) != 1) Pa_StopStream(flusso);
    {
      std::lock_guard<std::mutex> chiave(guardia);
      fermo = false;
    }
    if (Pa_StartStream(flusso) != paNoError) {
      // The device refuses: these tones cannot sound, and must not pile up.
      coda.Svuota();
      std::lock_guard<std::mutex> chiave(guardia);
      fermo = true;
    }
  }
}

void ChiudiAudio() {
  if (audio != StatoAudio::Pronto) return;
  const uint64_t limite = Millisecondi() + (coda.MillisecondiInCoda() < ATTESA_MASSIMA_USCITA
                                                ? coda.MillisecondiInCoda()
                                                : ATTESA_MASSIMA_USCITA);
  while (!coda.Vuota() && Millisecondi() < limite) DormiFinoA(Millisecondi() + 5);
  {
    std::lock_guard<std::mutex> chiave(guardia);
    fine = true;
    sveglia.notify_one();
  }
  if (avviatore.joinable()) avviatore.join();
  Silenzio silenzio;
  // Stopping plays what the buffers hold (at most the device's latency);
  // a tone cut by the limit above ends there.
  if (Pa_IsStreamStopped(flusso) != 1) Pa_StopStream(flusso);
  Pa_CloseStream(flusso);
  flusso = nullptr;
  Pa_Terminate();
  audio = StatoAudio::Assente;
}

}  // namespace

void PreparaSuono() {
  if (audio != StatoAudio::DaProvare) return;
  audio = StatoAudio::Assente;
  Silenzio silenzio;
  if (Pa_Initialize() != paNoError) return;
  const PaDeviceIndex dispositivo = Pa_GetDefaultOutputDevice();
  const PaDeviceInfo* informazioni =
      dispositivo == paNoDevice ? nullptr : Pa_GetDeviceInfo(dispositivo);
  uint32_t campionamento = 48000;
  if (informazioni && informazioni->defaultSampleRate >= 8000 &&
      informazioni->defaultSampleRate <= 192000)
    campionamento = static_cast<uint32_t>(informazioni->defaultSampleRate);
  PaStreamParameters uscita{};
  uscita.device = dispositivo;
  uscita.channelCount = 1;
  uscita.sampleFormat = paFloat32;
  if (informazioni) uscita.suggestedLatency = informazioni->defaultLowOutputLatency;
  coda.ImpostaCampionamento(campionamento);
  if (informazioni == nullptr ||
      Pa_OpenStream(&flusso, nullptr, &uscita, campionamento, paFramesPerBufferUnspecified,
                    paClipOff, Richiamo, nullptr) != paNoError ||
      Pa_SetStreamFinishedCallback(flusso, FlussoFinito) != paNoError) {
    if (flusso) Pa_CloseStream(flusso);
    flusso = nullptr;
    Pa_Terminate();
    return;
  }
  avviatore = std::thread(Avviatore);
  audio = StatoAudio::Pronto;
  std::atexit(ChiudiAudio);
}

}  // namespace piattaforma::terminale

namespace piattaforma {

// Never waits and never brings the screen up to date: a tone sounds in the
// middle of a command, before the game journal has its records, and the
// terminal must never show what a crash would lose. The loop writes the
// journal and then shows the screen, while the tone plays.
void Suona(uint32_t frequenza, uint32_t durata) {
  if (durata == 0) return;
  terminale::PreparaSuono();
  if (terminale::audio != terminale::StatoAudio::Pronto) return;
  if (!terminale::coda.Accoda(frequenza, durata)) return;
  std::lock_guard<std::mutex> chiave(terminale::guardia);
  if (terminale::fermo) terminale::sveglia.notify_one();
}

}  // namespace piattaforma
