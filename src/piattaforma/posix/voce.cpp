// The voice through speech-dispatcher, loaded when the voice is first opened
// (dlopen of libspeechd.so.2), so that the program builds and runs where it
// is missing. Its own priorities match ours one to one.
#include <dlfcn.h>

#include <cstddef>
#include <cstdlib>

#include "piattaforma/piattaforma.h"

namespace piattaforma {

namespace {

// The few declarations of libspeechd the program uses, by their C ABI.
struct ConnessioneSpd;
enum PrioritaSpd : int { SPD_IMPORTANT = 1, SPD_MESSAGE = 2, SPD_TEXT = 3 };
enum ModoSpd : int { SPD_MODE_SINGLE = 0, SPD_MODE_THREADED = 1 };
using FunzioneApri = ConnessioneSpd* (*)(const char*, const char*, const char*, ModoSpd, void*, int,
                                         char**);
using FunzioneLingua = int (*)(ConnessioneSpd*, const char*);
using FunzioneDi = int (*)(ConnessioneSpd*, PrioritaSpd, const char*);
using FunzioneZitto = int (*)(ConnessioneSpd*);
using FunzioneChiudi = void (*)(ConnessioneSpd*);

struct Libreria {
  void* modulo = nullptr;
  FunzioneApri apri = nullptr;
  FunzioneLingua lingua = nullptr;
  FunzioneDi di = nullptr;
  FunzioneZitto zitto = nullptr;
  FunzioneChiudi chiudi = nullptr;
  ConnessioneSpd* connessione = nullptr;
};
Libreria spd;

template <typename Funzione>
bool Prendi(Funzione& funzione, const char* nome) {
  funzione = reinterpret_cast<Funzione>(dlsym(spd.modulo, nome));
  return funzione != nullptr;
}

bool CaricaLibreria() {
  if (spd.modulo) return true;
  spd.modulo = dlopen("libspeechd.so.2", RTLD_NOW | RTLD_LOCAL);
  if (!spd.modulo) return false;
  if (Prendi(spd.apri, "spd_open2") && Prendi(spd.lingua, "spd_set_language") &&
      Prendi(spd.di, "spd_say") && Prendi(spd.zitto, "spd_cancel") &&
      Prendi(spd.chiudi, "spd_close"))
    return true;
  dlclose(spd.modulo);
  spd = Libreria{};
  return false;
}

}  // namespace

bool ApriVoce() {
  if (spd.connessione) return true;
  if (!CaricaLibreria()) return false;
  char* errore = nullptr;
  // Threaded, so that saying never waits for the server; 1: start the server
  // when none runs.
  spd.connessione = spd.apri("pendrino", "main", nullptr, SPD_MODE_THREADED, nullptr, 1, &errore);
  // The library allocated the message with malloc; the text is not needed.
  std::free(errore);
  if (!spd.connessione) return false;
  spd.lingua(spd.connessione, "it");
  return true;
}

void Parla(const char* testo, PrioritaVoce priorita) {
  if (!spd.connessione || !testo) return;
  const PrioritaSpd p = priorita == PrioritaVoce::Importante  ? SPD_IMPORTANT
                        : priorita == PrioritaVoce::Messaggio ? SPD_MESSAGE
                                                              : SPD_TEXT;
  spd.di(spd.connessione, p, testo);
}

void ZittisciVoce() {
  if (spd.connessione) spd.zitto(spd.connessione);
}

void ChiudiVoce() {
  if (!spd.connessione) return;
  spd.chiudi(spd.connessione);
  spd.connessione = nullptr;
}

}  // namespace piattaforma
