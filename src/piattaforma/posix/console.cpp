// The terminal through ncurses: taking and giving back the terminal, the
// screen pad, the size check, suspension and the wait for input. The signals
// behind them are in segnali.cpp.
#ifndef NCURSES_WIDECHAR
#define NCURSES_WIDECHAR 1
#endif
#include <curses.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <initializer_list>

#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/segnali.h"
#include "piattaforma/posix/terminale.h"
#include "piattaforma/posix/uscita.h"
#include "piattaforma/terminale/rifiuto.h"
#include "piattaforma/terminale/riquadro.h"
#include "piattaforma/testo.h"

namespace piattaforma::terminale {

Video video;

namespace {

SCREEN* sessione = nullptr;

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

void Invia(const char* testo) {
  if (testo == nullptr) return;
  std::fflush(stdout);
  ScriviSulTerminale(testo, std::strlen(testo));
}

// Sent with the next update, in its write: a screen reader sees one write
// however much goes out.
void InviaConAggiornamento(const char* testo) {
  AccodaAlTerminale(testo, std::strlen(testo));
  video.da_aggiornare = true;
}

// What the fatal-signal handler writes to put the terminal back.
char ripristino[512];
size_t lunghezza_ripristino = 0;

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
  ImpostaRipristino(ripristino, lunghezza_ripristino);
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
  InviaConAggiornamento(sequenza);
}

void InviaRichieste() {
  if (!richieste_estese) return;
  InviaConAggiornamento(TASTI_ESTESI_ACCESI);
  if (dimensioni_chieste) {
    char sequenza[32];
    std::snprintf(sequenza, sizeof sequenza, "\033[8;%d;%dt", RIGHE_SCHERMO, COLONNE_SCHERMO);
    InviaConAggiornamento(sequenza);
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
  AggiornaInUnaScrittura();
}

// An open box stays answerable on a small terminal (the exit question above
// all): its band, as wide as the terminal allows, centred on a blank screen.
void MostraRiquadroDaSolo() {
  werase(stdscr);
  wnoutrefresh(stdscr);
  const int larghezza = COLS < COLONNE_SCHERMO ? COLS : COLONNE_SCHERMO;
  int da = video.riquadro_x - (larghezza - video.riquadro_larghezza) / 2;
  if (da > COLONNE_SCHERMO - larghezza) da = COLONNE_SCHERMO - larghezza;
  if (da < 0) da = 0;
  const int y = (LINES - video.riquadro_altezza) / 2;
  const int x = (COLS - larghezza) / 2;
  touchwin(video.riquadro);
  pnoutrefresh(video.riquadro, 0, da, y, x, y + video.riquadro_altezza - 1, x + larghezza - 1);
  AggiornaInUnaScrittura();
}

struct Superficie {
  void Metti(int x, int y, uint32_t c) { MettiCarattere(video.schermo, x, y, c); }
  void Scorri() { wscrl(video.schermo, 1); }
};

// Says on standard error, in the program's words, why this terminal cannot
// serve, and ends the program.
[[noreturn]] void Rifiuta(RifiutoTerminale motivo) {
  char riga[512];
  ComponiRifiuto(motivo, std::getenv("TERM"), riga, sizeof riga);
  std::fprintf(stderr, "%s\n", riga);
  std::exit(1);
}

}  // namespace

void MettiCarattere(WINDOW* finestra, int x, int y, uint32_t carattere, unsigned aspetto) {
  wchar_t testo[2] = {static_cast<wchar_t>(carattere), 0};
  if (carattere < 0x20 || carattere == 0x7F) testo[0] = L' ';
  if (wcwidth(testo[0]) != 1) testo[0] = L'?';
  cchar_t cella;
  setcchar(&cella, testo, static_cast<attr_t>(aspetto), 0, nullptr);
  mvwadd_wch(finestra, y, x, &cella);
}

bool RiquadroVisibile() {
  if (video.riquadro == nullptr) return false;
  if (!video.troppo_piccolo) return true;
  return COLS >= video.riquadro_larghezza && LINES >= video.riquadro_altezza;
}

void Aggiorna() {
  if (!video.aperto) return;
  if (COLS < COLONNE_SCHERMO || LINES < RIGHE_SCHERMO) {
    const bool cambiato = !video.troppo_piccolo || video.da_aggiornare;
    video.troppo_piccolo = true;
    video.da_aggiornare = false;
    if (!cambiato) return;
    if (RiquadroVisibile())
      MostraRiquadroDaSolo();
    else
      MostraMessaggioDimensioni();
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
    // Whole lines: a screen reader reading a box line hears only the box.
    touchwin(video.riquadro);
    pnoutrefresh(video.riquadro, 0, 0, video.riquadro_y, 0,
                 video.riquadro_y + video.riquadro_altezza - 1, COLONNE_SCHERMO - 1);
  }
  AggiornaInUnaScrittura();
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
  RiattivaTastieraConLAggiornamento(video.schermo);
  // The pager, or the shell while we were stopped, may have set its own.
  InviaTitolo();
  InviaRichieste();
  ControllaDimensioni();
  touchwin(video.schermo);
  Aggiorna();
}

void Sospendi() {
  if (!video.aperto) return;
  RilasciaTerminale();
  FermaProcesso();
  RiprendiTerminale();
}

void EseguiNelTerminale(const char* comando) {
  RilasciaTerminale();
  // Ctrl+Z in the pager stops the whole job, this program with it, as the
  // shell expects; fg continues both.
  LasciaSospensioneAlSistema();
  [[maybe_unused]] const int esito = std::system(comando);
  RiprendiSospensione();
  RiprendiTerminale();
}

void GestisciSegnali() {
  if (!video.aperto) return;
  if (PrendiSospensione()) Sospendi();
  if (PrendiRipresa()) {
    // Stopped from outside and continued: the shell may have changed the
    // terminal's modes meanwhile.
    RilasciaTerminale();
    RiprendiTerminale();
  }
  if (PrendiRidimensionamento()) {
    ControllaDimensioni();
    Aggiorna();
  }
}

Attesa AttendiTerminale(int64_t millisecondi) {
  if (!video.aperto) return Attesa::Scaduto;
  if (SegnaliInAttesa()) return Attesa::Pronto;
  pollfd attese[2] = {{STDIN_FILENO, POLLIN, 0}, {SvegliaDaAttendere(), POLLIN, 0}};
  int limite = -1;
  if (millisecondi >= 0)
    limite = millisecondi > 1000000000 ? 1000000000 : static_cast<int>(millisecondi);
  const int pronti = poll(attese, 2, limite);
  if (attese[1].revents & POLLIN) SvuotaSveglia();
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
  if (!isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO))
    terminale::Rifiuta(RifiutoTerminale::NessunTerminale);
  // A terminal that cannot move the cursor would show the screen as a stream
  // of text: refused before anything is written to it or its modes change.
  const terminale::Idoneita idoneita = terminale::IdoneitaTerminale();
  if (idoneita == terminale::Idoneita::SenzaTipo)
    terminale::Rifiuta(RifiutoTerminale::SenzaTipo);
  else if (idoneita == terminale::Idoneita::Sconosciuto)
    terminale::Rifiuta(RifiutoTerminale::TipoSconosciuto);
  else if (idoneita != terminale::Idoneita::Adatto)
    terminale::Rifiuta(RifiutoTerminale::SenzaCursore);
  // Wide characters for "Sì"; numbers keep the C locale's format.
  std::setlocale(LC_CTYPE, "");
  termios modi;
  if (tcgetattr(STDIN_FILENO, &modi) == 0) terminale::RicordaModiOriginali(modi);
  static bool chiusura_registrata = false;
  if (!chiusura_registrata) {
    // Whatever way the program ends, the shell gets its terminal back.
    std::atexit([] { ChiudiConsole(); });
    chiusura_registrata = true;
  }
  terminale::PreparaSuono();
  // Our handlers first, so that ncurses leaves these signals to us.
  terminale::ApriSveglia();
  terminale::InstallaGestori();

  terminale::sessione = newterm(nullptr, terminale::ApriUscita(), stdin);
  if (terminale::sessione == nullptr) {
    terminale::ChiudiUscita();
    terminale::TogliGestori();
    terminale::Rifiuta(RifiutoTerminale::NonAperto);
  }
  set_term(terminale::sessione);
  raw();
  noecho();
  nonl();
  set_escdelay(25);
  // An update is never broken off for a key that came meanwhile: half of it
  // now and the rest later would be two writes.
  typeahead(-1);
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
  if (terminale::richieste_estese) terminale::InviaConAggiornamento(terminale::SALVA_TITOLO);
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
  terminale::ChiudiUscita();
  video.aperto = false;
  terminale::TogliGestori();
  terminale::ImpostaRipristino(nullptr, 0);
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
