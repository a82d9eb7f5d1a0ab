#include "piattaforma/posix/segnali.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

namespace piattaforma::terminale {

namespace {

// Read by the fatal-signal handler: everything that puts the terminal back.
char ripristino[512];
size_t lunghezza_ripristino = 0;
termios modi_originali;
bool modi_salvati = false;

volatile sig_atomic_t segnale_ridimensiona = 0;
volatile sig_atomic_t segnale_sospendi = 0;
volatile sig_atomic_t segnale_ripresa = 0;
// Self-pipe: a signal wakes the wait on the terminal without a race.
int sveglia[2] = {-1, -1};

void Sveglia() {
  if (sveglia[1] < 0) return;
  const int errno_salvato = errno;
  const char c = 0;
  [[maybe_unused]] const ssize_t scritti = write(sveglia[1], &c, 1);
  errno = errno_salvato;
}

void AlRidimensionamento(int) {
  segnale_ridimensiona = 1;
  Sveglia();
}
void AllaSospensione(int) {
  segnale_sospendi = 1;
  Sveglia();
}
void AllaRipresa(int) {
  segnale_ripresa = 1;
  Sveglia();
}

// The dispositions found at start, put back when the terminal is given back
// and before a fatal signal is raised again (so that a sanitizer or a core
// dump still sees it).
constexpr int segnali_gestiti[] = {SIGWINCH, SIGTSTP, SIGCONT, SIGHUP, SIGINT, SIGQUIT,
                                   SIGTERM,  SIGILL,  SIGABRT, SIGBUS, SIGFPE, SIGSEGV};
constexpr int NUMERO_SEGNALI_GESTITI = sizeof segnali_gestiti / sizeof segnali_gestiti[0];
struct sigaction azioni_precedenti[NUMERO_SEGNALI_GESTITI];

int IndiceSegnale(int segnale) {
  for (int i = 0; i < NUMERO_SEGNALI_GESTITI; ++i)
    if (segnali_gestiti[i] == segnale) return i;
  return -1;
}

void AlSegnaleFatale(int segnale) {
  if (lunghezza_ripristino > 0) {
    [[maybe_unused]] const ssize_t scritti = write(STDOUT_FILENO, ripristino, lunghezza_ripristino);
  }
  if (modi_salvati) tcsetattr(STDIN_FILENO, TCSANOW, &modi_originali);
  const int i = IndiceSegnale(segnale);
  if (i >= 0) sigaction(segnale, &azioni_precedenti[i], nullptr);
  raise(segnale);
}

void Installa(int segnale, void (*gestore)(int)) {
  struct sigaction azione {};
  azione.sa_handler = gestore;
  sigemptyset(&azione.sa_mask);
  azione.sa_flags = 0;
  sigaction(segnale, &azione, nullptr);
}

bool Prendi(volatile sig_atomic_t& segnale) {
  if (!segnale) return false;
  segnale = 0;
  return true;
}

}  // namespace

void ApriSveglia() {
  if (sveglia[0] >= 0 || pipe(sveglia) != 0) return;
  for (int fd : sveglia) {
    fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) | O_NONBLOCK);
    fcntl(fd, F_SETFD, FD_CLOEXEC);
  }
}

int SvegliaDaAttendere() { return sveglia[0]; }

void SvuotaSveglia() {
  char scarto[64];
  while (read(sveglia[0], scarto, sizeof scarto) > 0) {
  }
}

void InstallaGestori() {
  for (int i = 0; i < NUMERO_SEGNALI_GESTITI; ++i)
    sigaction(segnali_gestiti[i], nullptr, &azioni_precedenti[i]);
  Installa(SIGWINCH, AlRidimensionamento);
  Installa(SIGTSTP, AllaSospensione);
  Installa(SIGCONT, AllaRipresa);
  for (int i = 3; i < NUMERO_SEGNALI_GESTITI; ++i) {
    // A signal ignored from outside (nohup) stays ignored.
    if (azioni_precedenti[i].sa_handler != SIG_IGN) Installa(segnali_gestiti[i], AlSegnaleFatale);
  }
}

void TogliGestori() {
  for (int i = 0; i < NUMERO_SEGNALI_GESTITI; ++i)
    sigaction(segnali_gestiti[i], &azioni_precedenti[i], nullptr);
}

void RicordaModiOriginali(const termios& modi) {
  modi_originali = modi;
  modi_salvati = true;
}

void ImpostaRipristino(const char* byte, size_t lunghezza) {
  // The handler never sees a length beyond the bytes already copied.
  lunghezza_ripristino = 0;
  if (byte == nullptr) return;
  if (lunghezza > sizeof ripristino - 1) lunghezza = sizeof ripristino - 1;
  std::memcpy(ripristino, byte, lunghezza);
  lunghezza_ripristino = lunghezza;
}

bool SegnaliInAttesa() { return segnale_ridimensiona || segnale_sospendi || segnale_ripresa; }
bool PrendiRidimensionamento() { return Prendi(segnale_ridimensiona); }
bool PrendiSospensione() { return Prendi(segnale_sospendi); }
bool PrendiRipresa() { return Prendi(segnale_ripresa); }

void FermaProcesso() {
  LasciaSospensioneAlSistema();
  sigset_t tstp;
  sigemptyset(&tstp);
  sigaddset(&tstp, SIGTSTP);
  sigprocmask(SIG_UNBLOCK, &tstp, nullptr);
  raise(SIGTSTP);
  // Here again after fg.
  RiprendiSospensione();
}

void LasciaSospensioneAlSistema() { signal(SIGTSTP, SIG_DFL); }

void RiprendiSospensione() {
  Installa(SIGTSTP, AllaSospensione);
  segnale_ripresa = 0;
}

}  // namespace piattaforma::terminale
