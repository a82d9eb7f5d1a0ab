// The POSIX backend without a terminal: viewer command lines that the shell
// runs as meant, quiet tones with no sound card, the fallbacks of a program
// that has not taken the terminal, key names across terminal types, and
// files whose writing fails on the way.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "cartella_prova.h"
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

// --- Files -----------------------------------------------------------------

using prova::CartellaProva;
using prova::Contenuto;
using prova::Esiste;

bool Sostituisci(const std::string& nome, const std::string& dati) {
  return SostituisciFile(nome.c_str(), dati.data(), dati.size());
}

// Files of this process may not grow past `byte` while it lives, and going
// past the limit makes write() fail (EFBIG) instead of killing the process.
class LimiteDimensioneFile {
 public:
  explicit LimiteDimensioneFile(rlim_t byte) {
    getrlimit(RLIMIT_FSIZE, &prima_);
    rlimit nuovo = prima_;
    nuovo.rlim_cur =
        prima_.rlim_max == RLIM_INFINITY || byte < prima_.rlim_max ? byte : prima_.rlim_max;
    struct sigaction ignora {};
    ignora.sa_handler = SIG_IGN;
    sigemptyset(&ignora.sa_mask);
    sigaction(SIGXFSZ, &ignora, &segnale_prima_);
    attivo_ = setrlimit(RLIMIT_FSIZE, &nuovo) == 0;
  }
  ~LimiteDimensioneFile() {
    setrlimit(RLIMIT_FSIZE, &prima_);
    sigaction(SIGXFSZ, &segnale_prima_, nullptr);
  }
  bool Attivo() const { return attivo_; }

 private:
  rlimit prima_{};
  struct sigaction segnale_prima_ {};
  bool attivo_ = false;
};

std::string Sequenza(size_t lunghezza) {
  std::string dati(lunghezza, '\0');
  for (size_t i = 0; i < lunghezza; ++i) dati[i] = static_cast<char>('a' + i % 26);
  return dati;
}

// The disk refuses more bytes in the middle of writing the new file: the
// save fails and the old file is whole, with no temporary file left over.
TEST(FileSistemaPosix, ScritturaInterrottaAMetaLasciaIlVecchioFile) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn");
  const std::string vecchia = "[Event \"vecchia\"]\n1. e4 e5\n";
  prova::Scrivi(nome, vecchia);
  const std::string nuova = Sequenza(64 * 1024);
  bool salvato = true, accodato = true;
  {
    LimiteDimensioneFile limite(16 * 1024);
    ASSERT_TRUE(limite.Attivo());
    salvato = Sostituisci(nome, nuova);
    // The same limit lets an append write its first 16 KiB and then stop:
    // the failure above really came halfway through the bytes.
    accodato = AccodaAlFile(cartella.Nome("registro").c_str(), nuova.data(), nuova.size());
  }
  EXPECT_FALSE(salvato);
  EXPECT_EQ(Contenuto(nome), vecchia);
  EXPECT_FALSE(Esiste(nome + ".tmp"));
  EXPECT_FALSE(accodato);
  EXPECT_EQ(Contenuto(cartella.Nome("registro")), nuova.substr(0, 16 * 1024));
  // With the limit gone the same save goes through.
  EXPECT_TRUE(Sostituisci(nome, nuova));
  EXPECT_EQ(Contenuto(nome), nuova);
}

// A folder that cannot be written: no temporary file can be made there. A
// process that ignores permissions (root) meets a folder in the temporary
// file's place instead, a failure that no privilege overrides.
TEST(FileSistemaPosix, CartellaInSolaLetturaNonToccaIlVecchioFile) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn");
  prova::Scrivi(nome, "vecchia");
  ASSERT_EQ(chmod(cartella.Percorso().c_str(), 0555), 0);
  const std::string sonda = cartella.Nome("sonda");
  const int fd = open(sonda.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
  const bool permessi_ignorati = fd >= 0;
  if (permessi_ignorati) {
    close(fd);
    unlink(sonda.c_str());
    ASSERT_EQ(mkdir((nome + ".tmp").c_str(), 0755), 0);
    RecordProperty("guasto", "folder in the temporary file's place (permissions ignored)");
  } else {
    RecordProperty("guasto", "read-only folder");
  }
  EXPECT_FALSE(Sostituisci(nome, "nuova"));
  EXPECT_EQ(Contenuto(nome), "vecchia");
  if (!permessi_ignorati) {
    EXPECT_FALSE(Esiste(nome + ".tmp"));
    EXPECT_FALSE(RinominaFile(nome.c_str(), cartella.Nome("altra.pgn").c_str()));
    EXPECT_FALSE(EliminaFile(nome.c_str()));
    EXPECT_FALSE(AccodaAlFile(cartella.Nome("nuovo").c_str(), "x", 1));
    EXPECT_FALSE(Esiste(cartella.Nome("nuovo")));
  }
  chmod(cartella.Percorso().c_str(), 0755);
  EXPECT_EQ(Contenuto(nome), "vecchia");
}

TEST(FileSistemaPosix, CartellaAlPostoDelTemporaneo) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn");
  prova::Scrivi(nome, "vecchia");
  ASSERT_EQ(mkdir((nome + ".tmp").c_str(), 0755), 0);
  prova::Scrivi(nome + ".tmp/dentro", "resta");
  EXPECT_FALSE(Sostituisci(nome, "nuova"));
  EXPECT_EQ(Contenuto(nome), "vecchia");
  EXPECT_EQ(Contenuto(nome + ".tmp/dentro"), "resta");
}

// A link in the temporary file's place is not followed: its target keeps
// its bytes and the save goes through.
TEST(FileSistemaPosix, CollegamentoAlPostoDelTemporaneoNonSeguito) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn"), vittima = cartella.Nome("vittima");
  prova::Scrivi(nome, "vecchia");
  prova::Scrivi(vittima, "intatta");
  ASSERT_EQ(symlink(vittima.c_str(), (nome + ".tmp").c_str()), 0);
  EXPECT_TRUE(Sostituisci(nome, "nuova"));
  EXPECT_EQ(Contenuto(nome), "nuova");
  EXPECT_EQ(Contenuto(vittima), "intatta");
  EXPECT_FALSE(Esiste(nome + ".tmp"));
}

TEST(FileSistemaPosix, IlNuovoFileTieneIPermessiDelVecchio) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn");
  prova::Scrivi(nome, "vecchia");
  ASSERT_EQ(chmod(nome.c_str(), 0640), 0);
  ASSERT_TRUE(Sostituisci(nome, "nuova"));
  struct stat stato {};
  ASSERT_EQ(stat(nome.c_str(), &stato), 0);
  EXPECT_EQ(stato.st_mode & 07777, 0640u);
}

#ifdef __linux__
// /dev/full answers every write with "no space left on device".
TEST(FileSistemaPosix, DiscoPienoAccodaFallisce) {
  ASSERT_EQ(access("/dev/full", W_OK), 0);
  EXPECT_FALSE(AccodaAlFile("/dev/full", "1. e4\n", 6));
}
#endif

}  // namespace
