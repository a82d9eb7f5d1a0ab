// The POSIX backend without a terminal: viewer command lines that the shell
// runs as meant, quiet tones with no sound card, the fallbacks of a program
// that has not taken the terminal, key names across terminal types, and
// files whose writing fails on the way.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "cartella_prova.h"
#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/file.h"
#include "piattaforma/terminale/decodifica.h"

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

// Tones play on their own: Suona returns at once, for long tones and pauses
// too, with a sound card or without, and nothing reaches stderr (ALSA's
// lines about a missing card included).
TEST(SistemaPosix, TonoSenzaAttesaENullaSuStderr) {
  const std::string errori = Cattura(STDERR_FILENO, [] {
    Suona(440, 1);  // the device opened, when there is one
    const uint64_t prima = Millisecondi();
    Suona(440, 1500);
    Suona(50000, 1500);
    Suona(3000, 5);
    EXPECT_LT(Millisecondi() - prima, 100u);
  });
  EXPECT_EQ(errori, "");
}

// A device that takes the samples as fast as they come, ALSA's null device
// (set up for one process through its HOME): the tones go through the
// device's callback, the stream stopping when the queue empties and
// starting again for the next tone, with no crash, hang or wait.
TEST(SistemaPosixDeathTest, ToniAttraversoUnDispositivo) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  prova::CartellaProva casa;
  prova::Scrivi(casa.Nome(".asoundrc"), "pcm.!default {\n  type null\n}\n");
  const std::string percorso = casa.Percorso().string();
  EXPECT_EXIT(
      {
        setenv("HOME", percorso.c_str(), 1);
        Suona(1000, 1);
        const uint64_t prima = Millisecondi();
        for (int i = 0; i < 20; ++i) {
          Suona(1000, 100);
          Suona(50000, 3);
          if (i % 5 == 0) usleep(30000);
        }
        std::exit(Millisecondi() - prima < 400 ? 0 : 2);
      },
      ::testing::ExitedWithCode(0), "");
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
  ErroreFile perche_salvato = ErroreFile::Nessuno, perche_accodato = ErroreFile::Nessuno;
  {
    LimiteDimensioneFile limite(16 * 1024);
    ASSERT_TRUE(limite.Attivo());
    salvato = Sostituisci(nome, nuova);
    perche_salvato = UltimoErroreFile();
    // The same limit lets an append write its first 16 KiB and then stop:
    // the failure above really came halfway through the bytes.
    accodato = AccodaAlFile(cartella.Nome("registro").c_str(), nuova.data(), nuova.size());
    perche_accodato = UltimoErroreFile();
  }
  EXPECT_FALSE(salvato);
  EXPECT_EQ(perche_salvato, ErroreFile::DiscoPieno);
  EXPECT_EQ(perche_accodato, ErroreFile::DiscoPieno);
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
  EXPECT_EQ(UltimoErroreFile(), permessi_ignorati ? ErroreFile::NonUnFile : ErroreFile::Permesso);
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

// --- Symbolic links: the file they name is written, the link stays --------

bool Collegamento(const std::string& nome, std::string* bersaglio = nullptr) {
  struct stat stato {};
  if (lstat(nome.c_str(), &stato) != 0 || !S_ISLNK(stato.st_mode)) return false;
  if (bersaglio) {
    char letto[4096];
    const ssize_t n = readlink(nome.c_str(), letto, sizeof letto);
    bersaglio->assign(letto, n > 0 ? static_cast<size_t>(n) : 0);
  }
  return true;
}

TEST(FileSistemaPosix, SostituisceIlFileDelCollegamentoENonIlCollegamento) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("pendrino.ini"), vero = cartella.Nome("vero.ini");
  prova::Scrivi(vero, "vecchio");
  ASSERT_EQ(symlink("vero.ini", nome.c_str()), 0);
  EXPECT_TRUE(Sostituisci(nome, "nuovo"));
  std::string bersaglio;
  EXPECT_TRUE(Collegamento(nome, &bersaglio));
  EXPECT_EQ(bersaglio, "vero.ini");
  EXPECT_EQ(Contenuto(vero), "nuovo");
  EXPECT_EQ(Contenuto(nome), "nuovo");
  EXPECT_EQ(prova::FileNellaCartella(cartella), 2u);
  // Text files take the same road.
  EXPECT_TRUE(SostituisciFileDiTesto(nome.c_str(), "riga\n", 5));
  EXPECT_TRUE(Collegamento(nome));
  EXPECT_EQ(Contenuto(vero), "riga\n");
}

// A chain of links, relative and absolute, across folders: the temporary
// file is made beside the last one's target, and nothing is left anywhere.
TEST(FileSistemaPosix, CatenaDiCollegamentiFinoAlFileVero) {
  CartellaProva cartella, altrove;
  ASSERT_EQ(mkdir(altrove.Nome("sotto").c_str(), 0755), 0);
  const std::string vero = altrove.Nome("sotto/giornale.txt");
  prova::Scrivi(vero, "vecchio");
  const std::string primo = cartella.Nome("giornale.txt"), secondo = altrove.Nome("tramite");
  ASSERT_EQ(symlink("sotto/giornale.txt", secondo.c_str()), 0);
  ASSERT_EQ(symlink(secondo.c_str(), primo.c_str()), 0);
  ASSERT_EQ(chmod(vero.c_str(), 0640), 0);
  EXPECT_TRUE(Sostituisci(primo, "nuovo"));
  EXPECT_TRUE(Collegamento(primo));
  EXPECT_TRUE(Collegamento(secondo));
  EXPECT_EQ(Contenuto(vero), "nuovo");
  struct stat stato {};
  ASSERT_EQ(stat(vero.c_str(), &stato), 0);
  EXPECT_EQ(stato.st_mode & 07777, 0640u);
  EXPECT_EQ(prova::FileNellaCartella(cartella), 1u);
  EXPECT_FALSE(Esiste(altrove.Nome("sotto/giornale.txt.tmp")));
  EXPECT_TRUE(AccodaAlFile(primo.c_str(), "+", 1));
  EXPECT_EQ(Contenuto(vero), "nuovo+");
  EXPECT_TRUE(Collegamento(primo));
}

// A link to a file that does not exist yet: the file is made where it points.
TEST(FileSistemaPosix, CollegamentoSenzaFileCreaIlFile) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("partita.pgn"), vero = cartella.Nome("vera.pgn");
  ASSERT_EQ(symlink("vera.pgn", nome.c_str()), 0);
  EXPECT_TRUE(Sostituisci(nome, "1. e4"));
  EXPECT_TRUE(Collegamento(nome));
  EXPECT_EQ(Contenuto(vero), "1. e4");
  const std::string giornale = cartella.Nome("giornale.txt"), vero_giornale = cartella.Nome("g");
  ASSERT_EQ(symlink("g", giornale.c_str()), 0);
  EXPECT_TRUE(AccodaAlFile(giornale.c_str(), "riga\n", 5));
  EXPECT_TRUE(Collegamento(giornale));
  EXPECT_EQ(Contenuto(vero_giornale), "riga\n");
}

// Renaming onto a link moves the file onto the link's target; renaming a
// link moves the file it names, and the link stays, to name the next one.
TEST(FileSistemaPosix, RinominaAttraversoICollegamenti) {
  CartellaProva cartella;
  const std::string vecchio = cartella.Nome("giornale.txt"), nuovo = cartella.Nome("prec.txt");
  const std::string vero_nuovo = cartella.Nome("vero_prec.txt");
  prova::Scrivi(vecchio, "partita");
  prova::Scrivi(vero_nuovo, "piu' vecchia");
  ASSERT_EQ(symlink("vero_prec.txt", nuovo.c_str()), 0);
  EXPECT_TRUE(RinominaFile(vecchio.c_str(), nuovo.c_str()));
  EXPECT_FALSE(Esiste(vecchio));
  EXPECT_TRUE(Collegamento(nuovo));
  EXPECT_EQ(Contenuto(vero_nuovo), "partita");

  const std::string vero_vecchio = cartella.Nome("vero_giornale.txt");
  prova::Scrivi(vero_vecchio, "altra partita");
  ASSERT_EQ(symlink("vero_giornale.txt", vecchio.c_str()), 0);
  EXPECT_TRUE(RinominaFile(vecchio.c_str(), nuovo.c_str()));
  EXPECT_TRUE(Collegamento(vecchio));
  EXPECT_FALSE(Esiste(vero_vecchio));
  EXPECT_TRUE(Collegamento(nuovo));
  EXPECT_EQ(Contenuto(vero_nuovo), "altra partita");
  // The next journal goes where the link points.
  EXPECT_TRUE(Sostituisci(vecchio, "nuova partita"));
  EXPECT_EQ(Contenuto(vero_vecchio), "nuova partita");
  EXPECT_TRUE(Collegamento(vecchio));
}

TEST(FileSistemaPosix, EliminaIlFileDelCollegamento) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("giornale.txt"), vero = cartella.Nome("vero.txt");
  prova::Scrivi(vero, "x");
  ASSERT_EQ(symlink("vero.txt", nome.c_str()), 0);
  EXPECT_TRUE(EliminaFile(nome.c_str()));
  EXPECT_FALSE(Esiste(vero));
  EXPECT_TRUE(Collegamento(nome));
}

// Links in a ring name no file: the writes fail and the links stay.
TEST(FileSistemaPosix, CollegamentiInCerchioNonSonoUnFile) {
  CartellaProva cartella;
  const std::string a = cartella.Nome("a"), b = cartella.Nome("b");
  ASSERT_EQ(symlink("b", a.c_str()), 0);
  ASSERT_EQ(symlink("a", b.c_str()), 0);
  EXPECT_FALSE(Sostituisci(a, "x"));
  EXPECT_FALSE(AccodaAlFile(a.c_str(), "x", 1));
  EXPECT_TRUE(Collegamento(a));
  EXPECT_TRUE(Collegamento(b));
  EXPECT_EQ(prova::FileNellaCartella(cartella), 2u);
}

// --- The lock that keeps a second program out of the folder ----------------

// Whether someone holds a lock on the file: a lock of our own from a
// descriptor of its own, which conflicts with any other, this process's too.
bool BloccatoDaQualcuno(const std::string& nome) {
  const int fd = open(nome.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  const bool preso = flock(fd, LOCK_EX | LOCK_NB) == 0;
  close(fd);
  return !preso;
}

// Another process holds the lock: it is refused here until that process is
// killed with -9, and a program it started, still running, does not keep it.
TEST(FileSistemaPosix, BloccoTenutoFinoAllaFineDelProcesso) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("giornale.blocco");
  int tubo[2];
  ASSERT_EQ(pipe(tubo), 0);
  const pid_t figlio = fork();
  ASSERT_GE(figlio, 0);
  if (figlio == 0) {
    close(tubo[0]);
    const char esito = BloccaFile(nome.c_str()) ? '1' : '0';
    // A viewer started from here, once it runs its own program.
    int avviato[2];
    if (pipe(avviato) != 0 || fcntl(avviato[1], F_SETFD, FD_CLOEXEC) != 0) _exit(1);
    const pid_t nipote = fork();
    if (nipote == 0) {
      execl("/bin/sleep", "sleep", "30", static_cast<char*>(nullptr));
      _exit(127);
    }
    close(avviato[1]);
    char nulla;
    [[maybe_unused]] const ssize_t fine = read(avviato[0], &nulla, 1);  // 0 at its exec
    if (write(tubo[1], &esito, 1) != 1 || write(tubo[1], &nipote, sizeof nipote) < 0) _exit(1);
    for (;;) pause();
  }
  close(tubo[1]);
  char esito = 0;
  pid_t nipote = -1;
  ASSERT_EQ(read(tubo[0], &esito, 1), 1);
  ASSERT_EQ(read(tubo[0], &nipote, sizeof nipote), static_cast<ssize_t>(sizeof nipote));
  close(tubo[0]);
  EXPECT_EQ(esito, '1');
  EXPECT_TRUE(Esiste(nome));
  EXPECT_FALSE(BloccaFile(nome.c_str()));
  EXPECT_FALSE(BloccaFile(nome.c_str()));
  kill(figlio, SIGKILL);
  waitpid(figlio, nullptr, 0);
  EXPECT_TRUE(BloccaFile(nome.c_str()));
  EXPECT_TRUE(BloccatoDaQualcuno(nome));
  if (nipote > 0) kill(nipote, SIGKILL);
  EXPECT_EQ(Contenuto(nome), "");
}

// The lock file is opened, never written: bytes already there stay, and a
// second call of the same process is harmless, even by another name.
TEST(FileSistemaPosix, BloccoNonScriveIlFile) {
  CartellaProva cartella;
  const std::string nome = cartella.Nome("pendrino.blocco");
  prova::Scrivi(nome, "contenuto");
  EXPECT_FALSE(BloccatoDaQualcuno(nome));
  EXPECT_TRUE(BloccaFile(nome.c_str()));
  EXPECT_TRUE(BloccatoDaQualcuno(nome));
  EXPECT_TRUE(BloccaFile(nome.c_str()));
  const std::string collegamento = cartella.Nome("altro_nome");
  ASSERT_EQ(symlink(nome.c_str(), collegamento.c_str()), 0);
  EXPECT_TRUE(BloccaFile(collegamento.c_str()));
  EXPECT_EQ(Contenuto(nome), "contenuto");
  EXPECT_EQ(prova::FileNellaCartella(cartella), 2u);
}

// A folder that cannot be written: an existing file is still locked (for
// reading), a missing one cannot be made and nobody else can hold it.
TEST(FileSistemaPosix, BloccoInUnaCartellaInSolaLettura) {
  CartellaProva cartella;
  const std::string esistente = cartella.Nome("c_era.blocco");
  const std::string mancante = cartella.Nome("manca.blocco");
  prova::Scrivi(esistente, "");
  ASSERT_EQ(chmod(esistente.c_str(), 0444), 0);
  ASSERT_EQ(chmod(cartella.Percorso().c_str(), 0555), 0);
  EXPECT_TRUE(BloccaFile(esistente.c_str()));
  EXPECT_TRUE(BloccatoDaQualcuno(esistente));
  EXPECT_TRUE(BloccaFile(mancante.c_str()));
  const bool permessi_ignorati = Esiste(mancante);  // root
  chmod(cartella.Percorso().c_str(), 0755);
  if (!permessi_ignorati) {
    EXPECT_FALSE(Esiste(mancante));
  }
  EXPECT_TRUE(BloccaFile(nullptr));
  EXPECT_TRUE(BloccaFile(""));
}

#ifdef __linux__
// /dev/full answers every write with "no space left on device".
TEST(FileSistemaPosix, DiscoPienoAccodaFallisce) {
  ASSERT_EQ(access("/dev/full", W_OK), 0);
  EXPECT_FALSE(AccodaAlFile("/dev/full", "1. e4\n", 6));
  EXPECT_EQ(UltimoErroreFile(), ErroreFile::DiscoPieno);
}
#endif

// Why a file call failed: the system's error numbers in the program's terms.
TEST(ErroreFilePosix, NumeriDErroreDelSistema) {
  EXPECT_EQ(ErroreDaErrno(EACCES), ErroreFile::Permesso);
  EXPECT_EQ(ErroreDaErrno(EPERM), ErroreFile::Permesso);
  EXPECT_EQ(ErroreDaErrno(EROFS), ErroreFile::Permesso);
  EXPECT_EQ(ErroreDaErrno(ENOSPC), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaErrno(EDQUOT), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaErrno(EFBIG), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaErrno(EISDIR), ErroreFile::NonUnFile);
  EXPECT_EQ(ErroreDaErrno(ENOENT), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaErrno(ENOTDIR), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaErrno(ELOOP), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaErrno(EIO), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaErrno(0), ErroreFile::Altro);
}

// One bit per call refused for want of permission in `cartella`, a folder
// this process may not write into.
int PermessiNegati(const CartellaProva& cartella) {
  const std::string nome = cartella.Nome("partita.pgn");
  const bool rifiutati[] = {
      !Sostituisci(nome, "nuova") && UltimoErroreFile() == ErroreFile::Permesso,
      !AccodaAlFile(cartella.Nome("giornale.txt").c_str(), "x", 1) &&
          UltimoErroreFile() == ErroreFile::Permesso,
      !RinominaFile(nome.c_str(), cartella.Nome("altra.pgn").c_str()) &&
          UltimoErroreFile() == ErroreFile::Permesso,
      !EliminaFile(nome.c_str()) && UltimoErroreFile() == ErroreFile::Permesso,
  };
  int bit = 0;
  for (int i = 0; i < 4; ++i) bit |= rifiutati[i] << i;
  return bit;
}

// Root may write anywhere: there a child that has become nobody meets the
// folder's permissions (root's own, 0755).
TEST(ErroreFilePosix, CartellaSenzaPermessoDiScrittura) {
  CartellaProva cartella;
  prova::Scrivi(cartella.Nome("partita.pgn"), "vecchia");
  if (geteuid() != 0) {
    ASSERT_EQ(chmod(cartella.Percorso().c_str(), 0555), 0);
    EXPECT_EQ(PermessiNegati(cartella), 0xF);
    chmod(cartella.Percorso().c_str(), 0755);
    return;
  }
  ASSERT_EQ(chmod(cartella.Percorso().c_str(), 0755), 0);
  constexpr int SENZA_UTENTE = 100;
  const pid_t figlio = fork();
  ASSERT_GE(figlio, 0);
  if (figlio == 0)
    _exit(setgid(65534) == 0 && setuid(65534) == 0 ? PermessiNegati(cartella) : SENZA_UTENTE);
  int stato = 0;
  ASSERT_EQ(waitpid(figlio, &stato, 0), figlio);
  ASSERT_TRUE(WIFEXITED(stato));
  if (WEXITSTATUS(stato) == SENZA_UTENTE) GTEST_SKIP() << "this process cannot become nobody";
  EXPECT_EQ(WEXITSTATUS(stato), 0xF);
  EXPECT_EQ(Contenuto(cartella.Nome("partita.pgn")), "vecchia");
}

}  // namespace
