// The terminal through ncurses: taking and giving back the terminal, the
// screen pad, the size check, signals and suspension.
#ifndef NCURSES_WIDECHAR
#define NCURSES_WIDECHAR 1
#endif
#include <curses.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <initializer_list>

#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/riquadro.h"
#include "piattaforma/posix/terminale.h"
#include "piattaforma/testo.h"

namespace piattaforma::terminale {

Video video;

namespace {

SCREEN* sessione = nullptr;
termios modi_originali;
bool modi_salvati = false;

// Requests only xterm-like terminals understand; the Linux console would
// print some of them as text.
bool richieste_estese = false;
constexpr char TASTI_ESTESI_ACCESI[] = "\033[>4;2m";
constexpr char TASTI_ESTESI_SPENTI[] = "\033[>4;0m";
constexpr char SALVA_TITOLO[] = "\033[22;2t";
constexpr char RIPRISTINA_TITOLO[] = "\033[23;2t";
char titolo_chiesto[256];
bool titolo_impostato = false;
bool dimensioni_chieste = false;

// Written by the fatal-signal handler: everything that puts the terminal
// back, composed while it was still safe to do so.
char ripristino[512];
size_t lunghezza_ripristino = 0;

volatile sig_atomic_t segnale_ridimensiona = 0;
volatile sig_atomic_t segnale_sospendi = 0;
volatile sig_atomic_t segnale_ripresa = 0;
// Self-pipe: a signal wakes the wait on the terminal without a race.
int sveglia[2] = {-1, -1};

void Invia(const char* testo) {
  if (testo == nullptr) return;
  std::fflush(stdout);
  size_t resto = std::strlen(testo);
  while (resto > 0) {
    const ssize_t scritti = write(STDOUT_FILENO, testo, resto);
    if (scritti <= 0) {
      if (scritti < 0 && errno == EINTR) continue;
      return;
    }
    testo += scritti;
    resto -= static_cast<size_t>(scritti);
  }
}

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

// Appends a terminfo string without its padding marks ("$<5>").
void AggiungiAlRipristino(const char* capacita) {
  if (capacita == nullptr || capacita == reinterpret_cast<const char*>(-1)) return;
  for (const char* p = capacita; *p; ++p) {
    if (p[0] == '$' && p[1] == '<') {
      const char* chiusa = std::strchr(p, '>');
      if (chiusa) {
        p = chiusa;
        continue;
      }
    }
    if (lunghezza_ripristino + 1 < sizeof ripristino) ripristino[lunghezza_ripristino++] = *p;
  }
}

void ComponiRipristino() {
  lunghezza_ripristino = 0;
  if (richieste_estese) {
    AggiungiAlRipristino(TASTI_ESTESI_SPENTI);
    AggiungiAlRipristino(RIPRISTINA_TITOLO);
  }
  for (const char* nome : {"rmkx", "sgr0", "cnorm", "rmcup"})
    AggiungiAlRipristino(tigetstr(const_cast<char*>(nome)));
  AggiungiAlRipristino("\r\n");
}

bool TerminaleSemplice() {
  const char* tipo = std::getenv("TERM");
  if (tipo == nullptr || tipo[0] == 0) return true;
  for (const char* semplice : {"linux", "vt", "dumb", "cons"})
    if (std::strncmp(tipo, semplice, std::strlen(semplice)) == 0) return true;
  return false;
}

void InviaTitolo() {
  if (!richieste_estese || !titolo_impostato) return;
  char sequenza[sizeof titolo_chiesto + 8];
  std::snprintf(sequenza, sizeof sequenza, "\033]2;%s\007", titolo_chiesto);
  Invia(sequenza);
}

void InviaRichieste() {
  if (!richieste_estese) return;
  Invia(TASTI_ESTESI_ACCESI);
  if (dimensioni_chieste) {
    char sequenza[32];
    std::snprintf(sequenza, sizeof sequenza, "\033[8;%d;%dt", RIGHE_SCHERMO, COLONNE_SCHERMO);
    Invia(sequenza);
  }
}

// Reads the terminal's size and follows it.
void ControllaDimensioni() {
  winsize ws{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &ws) == 0 && ws.ws_row > 0 && ws.ws_col > 0 &&
      (ws.ws_row != LINES || ws.ws_col != COLS))
    resize_term(ws.ws_row, ws.ws_col);
  clearok(curscr, TRUE);
  video.da_aggiornare = true;
}

void MostraMessaggioDimensioni() {
  char messaggio[128];
  MessaggioDimensioni(COLS, LINES, messaggio, sizeof messaggio);
  werase(stdscr);
  int x = (COLS - static_cast<int>(std::strlen(messaggio))) / 2;
  if (x < 0) x = 0;
  mvwaddstr(stdscr, LINES / 2, x, messaggio);
  wmove(stdscr, LINES / 2, x);
  wnoutrefresh(stdscr);
  doupdate();
}

struct Superficie {
  void Metti(int x, int y, uint32_t c) { MettiCarattere(video.schermo, x, y, c); }
  void Scorri() { wscrl(video.schermo, 1); }
};

}  // namespace

void MettiCarattere(WINDOW* finestra, int x, int y, uint32_t carattere, unsigned aspetto) {
  wchar_t testo[2] = {static_cast<wchar_t>(carattere), 0};
  if (carattere < 0x20 || carattere == 0x7F) testo[0] = L' ';
  if (wcwidth(testo[0]) != 1) testo[0] = L'?';
  cchar_t cella;
  setcchar(&cella, testo, static_cast<attr_t>(aspetto), 0, nullptr);
  mvwadd_wch(finestra, y, x, &cella);
}

void Aggiorna() {
  if (!video.aperto) return;
  if (COLS < COLONNE_SCHERMO || LINES < RIGHE_SCHERMO) {
    if (!video.troppo_piccolo || video.da_aggiornare) MostraMessaggioDimensioni();
    video.troppo_piccolo = true;
    video.da_aggiornare = false;
    return;
  }
  if (video.troppo_piccolo) {
    video.troppo_piccolo = false;
    video.da_aggiornare = true;
    werase(stdscr);
    wnoutrefresh(stdscr);
    touchwin(video.schermo);
  }
  if (!video.da_aggiornare) return;
  wmove(video.schermo, video.y, video.x);
  pnoutrefresh(video.schermo, 0, 0, 0, 0, RIGHE_SCHERMO - 1, COLONNE_SCHERMO - 1);
  if (video.riquadro) {
    touchwin(video.riquadro);
    pnoutrefresh(video.riquadro, 0, 0, video.riquadro_y, video.riquadro_x,
                 video.riquadro_y + video.riquadro_altezza - 1,
                 video.riquadro_x + video.riquadro_larghezza - 1);
  }
  doupdate();
  video.da_aggiornare = false;
}

void RilasciaTerminale() {
  if (!video.aperto) return;
  if (richieste_estese) Invia(TASTI_ESTESI_SPENTI);
  def_prog_mode();
  endwin();
}

void RiprendiTerminale() {
  if (!video.aperto) return;
  reset_prog_mode();
  InviaRichieste();
  ControllaDimensioni();
  touchwin(video.schermo);
  Aggiorna();
}

void Sospendi() {
  if (!video.aperto) return;
  RilasciaTerminale();
  signal(SIGTSTP, SIG_DFL);
  sigset_t tstp;
  sigemptyset(&tstp);
  sigaddset(&tstp, SIGTSTP);
  sigprocmask(SIG_UNBLOCK, &tstp, nullptr);
  raise(SIGTSTP);
  // Here again after fg.
  Installa(SIGTSTP, AllaSospensione);
  segnale_ripresa = 0;
  RiprendiTerminale();
}

void EseguiNelTerminale(const char* comando) {
  RilasciaTerminale();
  // Ctrl+Z in the pager stops the whole job, this program with it, as the
  // shell expects; fg continues both.
  signal(SIGTSTP, SIG_DFL);
  [[maybe_unused]] const int esito = std::system(comando);
  Installa(SIGTSTP, AllaSospensione);
  segnale_ripresa = 0;
  RiprendiTerminale();
}

void GestisciSegnali() {
  if (!video.aperto) return;
  if (segnale_sospendi) {
    segnale_sospendi = 0;
    Sospendi();
  }
  if (segnale_ripresa) {
    // Stopped from outside and continued: the shell may have changed the
    // terminal's modes meanwhile.
    segnale_ripresa = 0;
    RilasciaTerminale();
    RiprendiTerminale();
  }
  if (segnale_ridimensiona) {
    segnale_ridimensiona = 0;
    ControllaDimensioni();
    Aggiorna();
  }
}

Attesa AttendiTerminale(int64_t millisecondi) {
  if (!video.aperto) return Attesa::Scaduto;
  if (segnale_ridimensiona || segnale_sospendi || segnale_ripresa) return Attesa::Pronto;
  pollfd attese[2] = {{STDIN_FILENO, POLLIN, 0}, {sveglia[0], POLLIN, 0}};
  int limite = -1;
  if (millisecondi >= 0)
    limite = millisecondi > 1000000000 ? 1000000000 : static_cast<int>(millisecondi);
  const int pronti = poll(attese, 2, limite);
  if (attese[1].revents & POLLIN) {
    char scarto[64];
    while (read(sveglia[0], scarto, sizeof scarto) > 0) {
    }
  }
  if (pronti <= 0) return Attesa::Scaduto;
  if ((attese[0].revents & (POLLHUP | POLLERR | POLLNVAL)) && !(attese[0].revents & POLLIN))
    return Attesa::Chiuso;
  return Attesa::Pronto;
}

}  // namespace piattaforma::terminale

namespace piattaforma {

using terminale::video;

void ApriConsole() {
  if (video.aperto) return;
  // Without a terminal there is nobody to play with, and waiting on a file
  // that is always readable would spin.
  if (!isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO)) {
    std::fprintf(stderr, "Pendrino va avviato in un terminale.\n");
    std::exit(1);
  }
  // Wide characters for "Sì"; numbers keep the C locale's format.
  std::setlocale(LC_CTYPE, "");
  terminale::modi_salvati = tcgetattr(STDIN_FILENO, &terminale::modi_originali) == 0;
  static bool chiusura_registrata = false;
  if (!chiusura_registrata) {
    // Whatever way the program ends, the shell gets its terminal back.
    std::atexit([] { ChiudiConsole(); });
    chiusura_registrata = true;
  }
  // Our handlers first, so that ncurses leaves these signals to us.
  if (terminale::sveglia[0] < 0 && pipe(terminale::sveglia) == 0) {
    for (int fd : terminale::sveglia) {
      fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) | O_NONBLOCK);
      fcntl(fd, F_SETFD, FD_CLOEXEC);
    }
  }
  terminale::InstallaGestori();

  terminale::sessione = newterm(nullptr, stdout, stdin);
  if (terminale::sessione == nullptr) {
    terminale::TogliGestori();
    std::fprintf(stderr, "Pendrino non conosce questo terminale (TERM=%s).\n",
                 std::getenv("TERM") ? std::getenv("TERM") : "");
    std::exit(1);
  }
  set_term(terminale::sessione);
  raw();
  noecho();
  nonl();
  set_escdelay(25);
  curs_set(1);
  video.schermo = newpad(RIGHE_SCHERMO, COLONNE_SCHERMO);
  keypad(video.schermo, TRUE);
  nodelay(video.schermo, TRUE);
  scrollok(video.schermo, TRUE);
  meta(video.schermo, TRUE);
  terminale::DefinisciSequenze();

  terminale::richieste_estese = !terminale::TerminaleSemplice();
  terminale::ComponiRipristino();
  video.aperto = true;
  video.x = video.y = 0;
  if (terminale::richieste_estese) terminale::Invia(terminale::SALVA_TITOLO);
  terminale::InviaTitolo();
  terminale::InviaRichieste();
  terminale::ControllaDimensioni();
  terminale::Aggiorna();
}

void ChiudiConsole() {
  if (!video.aperto) return;
  if (terminale::richieste_estese) {
    terminale::Invia(terminale::TASTI_ESTESI_SPENTI);
    terminale::Invia(terminale::RIPRISTINA_TITOLO);
  }
  if (video.riquadro) delwin(video.riquadro);
  delwin(video.schermo);
  video.riquadro = video.schermo = nullptr;
  endwin();
  delscreen(terminale::sessione);
  terminale::sessione = nullptr;
  video.aperto = false;
  terminale::TogliGestori();
  terminale::lunghezza_ripristino = 0;
}

void ImpostaTitolo(const char* titolo) {
  std::snprintf(terminale::titolo_chiesto, sizeof terminale::titolo_chiesto, "%s",
                titolo ? titolo : "");
  // Control characters would end the sequence early.
  for (char& c : terminale::titolo_chiesto)
    if (c > 0 && c < 0x20) c = ' ';
  terminale::titolo_impostato = true;
  if (video.aperto) terminale::InviaTitolo();
}

void DimensionaFinestra() {
  terminale::dimensioni_chieste = true;
  if (video.aperto) terminale::InviaRichieste();
}

void PosizionaCursore(int x, int y) {
  if (x < 0 || x >= COLONNE_SCHERMO || y < 0 || y >= RIGHE_SCHERMO) return;
  video.x = x;
  video.y = y;
  video.da_aggiornare = true;
}

void Scrivi(const char* testo, size_t lunghezza) {
  if (testo == nullptr || lunghezza == 0) return;
  if (!video.aperto) {
    std::fwrite(testo, 1, lunghezza, stdout);
    return;
  }
  terminale::Superficie superficie;
  ScriviSuSchermo(superficie, video.x, video.y, testo, lunghezza);
  video.da_aggiornare = true;
}

}  // namespace piattaforma
