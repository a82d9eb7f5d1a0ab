// The POSIX backend without a terminal: viewer command lines that the shell
// runs as meant, quiet tones with no sound card, the fallbacks of a program
// that has not taken the terminal, and key names across terminal types.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/decodifica.h"

#ifndef NCURSES_WIDECHAR
#define NCURSES_WIDECHAR 1
#endif
#include <curses.h>

namespace {

using namespace piattaforma;

// Restores an environment variable when the test ends.
class Variabile {
 public:
  Variabile(const char* nome, const char* valore) : nome_(nome) {
    const char* prima = std::getenv(nome);
    if (prima) {
      prima_ = prima;
      c_era_ = true;
    }
    if (valore)
      setenv(nome, valore, 1);
    else
      unsetenv(nome);
  }
  ~Variabile() {
    if (c_era_)
      setenv(nome_.c_str(), prima_.c_str(), 1);
    else
      unsetenv(nome_.c_str());
  }

 private:
  std::string nome_, prima_;
  bool c_era_ = false;
};

// What a file descriptor receives while `azione` runs.
template <typename Azione>
std::string Cattura(int fd, Azione azione) {
  char modello[] = "/tmp/pendrino_cattura_XXXXXX";
  const int file = mkstemp(modello);
  std::fflush(nullptr);
  const int salvato = dup(fd);
  dup2(file, fd);
  azione();
  std::fflush(nullptr);
  dup2(salvato, fd);
  close(salvato);
  close(file);
  std::ifstream letto(modello);
  std::stringstream testo;
  testo << letto.rdbuf();
  unlink(modello);
  return testo.str();
}

TEST(SistemaPosix, SessioneGraficaApreColVisualizzatoreDelDesktop) {
  Variabile display("DISPLAY", ":0");
  char comando[256];
  ComponiComandoVisualizzatore(comando, sizeof comando, "partita.pgn");
#ifdef __APPLE__
  EXPECT_STREQ(comando, "open 'partita.pgn' </dev/null >/dev/null 2>&1 &");
#else
  EXPECT_STREQ(comando, "xdg-open 'partita.pgn' </dev/null >/dev/null 2>&1 &");
  Variabile senza_display("DISPLAY", nullptr);
  Variabile wayland("WAYLAND_DISPLAY", "wayland-0");
  ComponiComandoVisualizzatore(comando, sizeof comando, "partita.pgn");
  EXPECT_STREQ(comando, "xdg-open 'partita.pgn' </dev/null >/dev/null 2>&1 &");
#endif
}

#ifndef __APPLE__
TEST(SistemaPosix, ConsoleDiTestoUsaUnPager) {
  Variabile display("DISPLAY", nullptr);
  Variabile wayland("WAYLAND_DISPLAY", "");
  char comando[512];
  ComponiComandoVisualizzatore(comando, sizeof comando, "ListaMosse.txt");
  EXPECT_STREQ(comando, "${PAGER:-less} 'ListaMosse.txt' 2>/dev/null || more 'ListaMosse.txt'");
  ComponiComandoVisualizzatore(comando, sizeof comando, "leggimi.html");
  EXPECT_EQ(std::string(comando).rfind("w3m 'leggimi.html'", 0), 0u) << comando;
  EXPECT_NE(std::string(comando).find("${PAGER:-less} 'leggimi.html'"), std::string::npos);
}

TEST(SistemaPosix, IlComandoMostraIlFileAncheConApiciESpazi) {
  Variabile display("DISPLAY", nullptr);
  Variabile wayland("WAYLAND_DISPLAY", nullptr);
  Variabile pager("PAGER", "cat");
  char cartella[] = "/tmp/pendrino_vis_XXXXXX";
  ASSERT_NE(mkdtemp(cartella), nullptr);
  const std::string file = std::string(cartella) + "/l'elenco $(mosse).txt";
  {
    std::ofstream scritto(file);
    scritto << "1. e4 e5\n";
  }
  char comando[512];
  ComponiComandoVisualizzatore(comando, sizeof comando, file.c_str());
  ASSERT_STRNE(comando, "");
  // Without the terminal taken, the command runs as it is.
  const std::string uscita = Cattura(STDOUT_FILENO, [&] { EseguiComandoVisualizzatore(comando); });
  EXPECT_EQ(uscita, "1. e4 e5\n");
  unlink(file.c_str());
  rmdir(cartella);
}
#endif

TEST(SistemaPosix, TonoSenzaNullaSuStderr) {
  const std::string errori = Cattura(STDERR_FILENO, [] {
    const uint64_t prima = Millisecondi();
    Suona(440, 120);
    Suona(3000, 5);
    const uint64_t trascorsi = Millisecondi() - prima;
    EXPECT_GE(trascorsi, 120u);
    EXPECT_LT(trascorsi, 3000u);
  });
  EXPECT_EQ(errori, "");
}

TEST(SistemaPosix, SenzaTerminalePresoNienteRestaAppeso) {
  EXPECT_EQ(EventiInAttesa(), 0u);
  INPUT_RECORD r;
  EXPECT_EQ(LeggiEventi(&r, 1), 0u);
  const uint64_t prima = Millisecondi();
  AttendiEventi(60);
  EXPECT_GE(Millisecondi() - prima, 59u);
  const std::string uscita = Cattura(STDOUT_FILENO, [] { Scrivi("riga\n", 5); });
  EXPECT_EQ(uscita, "riga\n");
  int risposta = 0;
  const std::string errori = Cattura(STDERR_FILENO, [&] {
    risposta = FinestraMessaggio("Salvare?", "Attenzione!", MB_YESNOCANCEL);
  });
  EXPECT_EQ(risposta, IDCANCEL);
  EXPECT_NE(errori.find("Salvare?"), std::string::npos);
  PosizionaCursore(3, 3);
  ChiudiConsole();
}

// The same key has different numbers under different TERM values; its name
// is what the decoder reads.
TEST(SistemaPosix, NomiDeiTastiUgualiFraTipiDiTerminale) {
  struct Caso {
    const char* capacita;
    WORD codice_virtuale;
    DWORD stato;
  };
  const Caso casi[] = {
      {"kDC5", VK_DELETE, LEFT_CTRL_PRESSED},
      {"kdch1", VK_DELETE, 0},
      {"kf4", VK_F4, 0},
      {"kf1", VK_F1, 0},
      {"kf12", VK_F12, 0},
      {"khome", VK_HOME, 0},
      {"kcuu1", VK_UP, 0},
      {"kcud1", VK_DOWN, 0},
      {"kHOM5", VK_HOME, LEFT_CTRL_PRESSED},
      {"kf52", VK_F4, LEFT_ALT_PRESSED},
      {"kf16", VK_F4, SHIFT_PRESSED},
  };
  int provati = 0;
  std::FILE* nulla_in = std::fopen("/dev/null", "r");
  std::FILE* nulla_out = std::fopen("/dev/null", "w");
  std::string numeri_kdc5;
  for (const char* tipo :
       {"xterm", "xterm-256color", "tmux-256color", "screen-256color", "linux"}) {
    SCREEN* sessione = newterm(tipo, nulla_out, nulla_in);
    if (sessione == nullptr) continue;
    set_term(sessione);
    keypad(stdscr, TRUE);
    for (const Caso& caso : casi) {
      const char* sequenza = tigetstr(const_cast<char*>(caso.capacita));
      if (sequenza == nullptr || sequenza == reinterpret_cast<char*>(-1)) continue;
      const int codice = key_defined(sequenza);
      if (codice <= 0) continue;
      if (std::string(caso.capacita) == "kDC5")
        numeri_kdc5 += std::string(tipo) + "=" + std::to_string(codice) + " ";
      terminale::Tasto tasto{};
      ASSERT_TRUE(terminale::TastoDaNome(keyname(codice), tasto)) << tipo << " " << caso.capacita;
      EXPECT_EQ(tasto.codice_virtuale, caso.codice_virtuale) << tipo << " " << caso.capacita;
      EXPECT_EQ(tasto.stato_controllo, caso.stato) << tipo << " " << caso.capacita;
      ++provati;
    }
    endwin();
    delscreen(sessione);
  }
  std::fclose(nulla_in);
  std::fclose(nulla_out);
  if (provati == 0) GTEST_SKIP() << "no terminal descriptions installed";
  RecordProperty("casi", provati);
  RecordProperty("codici_kDC5", numeri_kdc5);
}

}  // namespace
