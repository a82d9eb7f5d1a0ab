// Opening a file in a viewer: the desktop's own in a graphical session, a
// pager inside the terminal otherwise.
#include <strings.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/terminale.h"
#include "piattaforma/testo.h"

namespace piattaforma {

namespace {

bool SessioneGrafica() {
#ifdef __APPLE__
  return true;
#else
  for (const char* variabile : {"DISPLAY", "WAYLAND_DISPLAY"}) {
    const char* valore = std::getenv(variabile);
    if (valore != nullptr && valore[0] != 0) return true;
  }
  return false;
#endif
}

// The file name in single quotes for the shell ('\'' for a quote inside).
bool Cita(const char* file, char* uscita, size_t dimensione) {
  size_t n = 0;
  auto metti = [&](char c) {
    if (n + 1 >= dimensione) return false;
    uscita[n++] = c;
    return true;
  };
  if (!metti('\'')) return false;
  for (const char* p = file; *p; ++p) {
    if (*p == '\'') {
      for (char c : {'\'', '\\', '\'', '\''})
        if (!metti(c)) return false;
    } else if (!metti(*p)) {
      return false;
    }
  }
  if (!metti('\'')) return false;
  uscita[n] = 0;
  return true;
}

bool EPaginaHtml(const char* file) {
  const size_t lunghezza = std::strlen(file);
  for (const char* estensione : {".html", ".htm"}) {
    const size_t l = std::strlen(estensione);
    if (lunghezza > l && strcasecmp(file + lunghezza - l, estensione) == 0) return true;
  }
  return false;
}

}  // namespace

void ComponiComandoVisualizzatore(char* destinazione, size_t dimensione, const char* file) {
  if (destinazione == nullptr || dimensione == 0) return;
  destinazione[0] = 0;
  char f[1024];
  if (file == nullptr || file[0] == 0 || !Cita(file, f, sizeof f)) return;
  if (SessioneGrafica()) {
#ifdef __APPLE__
    const char* apri = "open";
#else
    const char* apri = "xdg-open";
#endif
    ComponiPerIntero(destinazione, dimensione, "%s %s </dev/null >/dev/null 2>&1 &", apri, f);
  } else if (EPaginaHtml(file)) {
    // A text browser reads a web page better than a pager shows its tags.
    ComponiPerIntero(destinazione, dimensione,
                     "w3m %s 2>/dev/null || lynx %s 2>/dev/null || "
                     "${PAGER:-less} %s 2>/dev/null || more %s",
                     f, f, f, f);
  } else {
    ComponiPerIntero(destinazione, dimensione, "${PAGER:-less} %s 2>/dev/null || more %s", f, f);
  }
}

void EseguiComandoVisualizzatore(const char* comando) {
  if (comando == nullptr || comando[0] == 0) return;
  const size_t lunghezza = std::strlen(comando);
  const bool sullo_sfondo = comando[lunghezza - 1] == '&';
  if (sullo_sfondo || !terminale::video.aperto) {
    [[maybe_unused]] const int esito = std::system(comando);
    return;
  }
  terminale::EseguiNelTerminale(comando);
}

}  // namespace piattaforma
