// Perft speed, whole processes side by side in one run: Debian's Stockfish
// (`go perft`, one thread) and pendrino-perft on the initial position to
// depth 6 and on Kiwipete to depth 5, best of 3 runs each, taken in turn so
// that a change in the machine's speed touches both. The figure compared is
// the counter's on one thread without a table; the make and unmake walk
// (--fai-ritira), the table and the threads are reported on their own lines.
//
//   perft_bench PENDRINO_PERFT [STOCKFISH]
//
// Exit status 1 when a count differs from Stockfish's or from the published
// one, or when the counter is slower than Stockfish.
#include <algorithm>
#include <chrono>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#ifndef _WIN32
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

struct Prova {
  const char* nome;
  const char* fen;
  int profondita;
  uint64_t foglie;  // the published count
};
constexpr Prova Prove[] = {
    {"initial", "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", 6, 119060324},
    {"kiwipete", "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1", 5,
     193690690},
};
constexpr int RIPETIZIONI = 3;
constexpr const char* MEGABYTE_TABELLA = "64";

struct Misura {
  bool fatta = false;
  uint64_t foglie = 0;
  double secondi = 1e30;  // the best run
};

#ifndef _WIN32
// Runs a program with `ingresso` on its standard input; its standard output,
// and the wall time from the start of the process to its end. False when it
// could not run or did not end with status 0.
bool Esegui(const std::vector<std::string>& argomenti, const std::string& ingresso,
            std::string& uscita, double& secondi) {
  int verso[2], ritorno[2];
  if (pipe(verso) != 0) return false;
  if (pipe(ritorno) != 0) {
    close(verso[0]);
    close(verso[1]);
    return false;
  }
  std::vector<char*> argv;
  for (const std::string& a : argomenti) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  const auto inizio = std::chrono::steady_clock::now();
  const pid_t pid = fork();
  if (pid == 0) {
    dup2(verso[0], 0);
    dup2(ritorno[1], 1);
    close(verso[0]);
    close(verso[1]);
    close(ritorno[0]);
    close(ritorno[1]);
    execvp(argv[0], argv.data());
    _exit(127);
  }
  close(verso[0]);
  close(ritorno[1]);
  if (pid < 0) {
    close(verso[1]);
    close(ritorno[0]);
    return false;
  }
  // A few short lines: the pipe holds them all.
  const bool scritto =
      write(verso[1], ingresso.data(), ingresso.size()) == ssize_t(ingresso.size());
  close(verso[1]);
  uscita.clear();
  char blocco[4096];
  for (ssize_t n; (n = read(ritorno[0], blocco, sizeof blocco)) > 0;)
    uscita.append(blocco, size_t(n));
  close(ritorno[0]);
  int stato = 0;
  waitpid(pid, &stato, 0);
  secondi = std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
  return scritto && WIFEXITED(stato) && WEXITSTATUS(stato) == 0;
}
#else
bool Esegui(const std::vector<std::string>&, const std::string&, std::string&, double&) {
  return false;
}
#endif

// One way of counting a position: the program and how its count is read.
struct Contatore {
  std::string nome;
  std::vector<std::string> opzioni;  // pendrino-perft's
  bool stockfish = false;
  bool confrontato = false;  // the figure held against Stockfish's
};

bool Una(const Contatore& c, const Prova& p, const char* perft, const char* stockfish,
         uint64_t& foglie, double& secondi) {
  std::string uscita;
  if (c.stockfish) {
    const std::string comandi = std::string("setoption name Threads value 1\nposition fen ") +
                                p.fen + "\ngo perft " + std::to_string(p.profondita) + "\nquit\n";
    if (!Esegui({stockfish}, comandi, uscita, secondi)) return false;
    const size_t dove = uscita.find("Nodes searched: ");
    if (dove == std::string::npos) return false;
    foglie = strtoull(uscita.c_str() + dove + 16, nullptr, 10);
    return true;
  }
  std::vector<std::string> argomenti = {perft};
  argomenti.insert(argomenti.end(), c.opzioni.begin(), c.opzioni.end());
  argomenti.push_back(p.fen);
  argomenti.push_back(std::to_string(p.profondita));
  if (!Esegui(argomenti, "", uscita, secondi)) return false;
  foglie = strtoull(uscita.c_str(), nullptr, 10);
  return true;
}

std::string Milioni(double foglie_al_secondo) {
  char testo[32];
  snprintf(testo, sizeof testo, "%.1f M", foglie_al_secondo / 1e6);
  return testo;
}

}  // namespace

int main(int argc, char** argv) {
#ifndef _WIN32
  signal(SIGPIPE, SIG_IGN);  // a program that dies must not take us with it
#endif
  if (argc < 2) {
    fprintf(stderr, "usage: perft_bench PENDRINO_PERFT [STOCKFISH]\n");
    return 2;
  }
  const char* perft = argv[1];
  const char* stockfish = argc > 2 && argv[2][0] ? argv[2] : nullptr;
  const std::string thread = std::to_string(std::max(1u, std::thread::hardware_concurrency()));

  std::vector<Contatore> contatori;
  if (stockfish) contatori.push_back({"stockfish go perft, 1 thread", {}, true, false});
  contatori.push_back({"pendrino-perft, 1 thread", {}, false, true});
  contatori.push_back({"pendrino-perft --fai-ritira", {"--fai-ritira"}, false, false});
  contatori.push_back({std::string("pendrino-perft --hash ") + MEGABYTE_TABELLA,
                       {"--hash", MEGABYTE_TABELLA},
                       false,
                       false});
  contatori.push_back({"pendrino-perft --thread " + thread, {"--thread", thread}, false, false});
  contatori.push_back(
      {std::string("pendrino-perft --hash ") + MEGABYTE_TABELLA + " --thread " + thread,
       {"--hash", MEGABYTE_TABELLA, "--thread", thread},
       false,
       false});

  printf("Whole processes, best of %d runs taken in turn.\n", RIPETIZIONI);
  printf("%-10s %5s %12s  %-40s %8s %12s\n", "position", "depth", "leaves", "program", "best s",
         "leaves/s");
  int esito = 0;
  for (const Prova& p : Prove) {
    std::vector<Misura> misure(contatori.size());
    for (int r = 0; r < RIPETIZIONI; ++r)
      for (size_t i = 0; i < contatori.size(); ++i) {
        uint64_t foglie = 0;
        double secondi = 0;
        if (!Una(contatori[i], p, perft, stockfish, foglie, secondi)) continue;
        misure[i].fatta = true;
        misure[i].foglie = foglie;
        misure[i].secondi = std::min(misure[i].secondi, secondi);
      }
    double sf = 0, nostro = 0;
    for (size_t i = 0; i < contatori.size(); ++i) {
      const Misura& m = misure[i];
      if (!m.fatta) {
        printf("%-10s %5d %12s  %-40s %8s %12s\n", p.nome, p.profondita, "-",
               contatori[i].nome.c_str(), "-", "-");
        if (!contatori[i].stockfish) esito = 1;
        continue;
      }
      printf("%-10s %5d %12" PRIu64 "  %-40s %8.3f %12s\n", p.nome, p.profondita, m.foglie,
             contatori[i].nome.c_str(), m.secondi, Milioni(double(m.foglie) / m.secondi).c_str());
      if (m.foglie != p.foglie) {
        printf("%-10s: %s counts %" PRIu64 " leaves, the published count is %" PRIu64 "\n", p.nome,
               contatori[i].nome.c_str(), m.foglie, p.foglie);
        esito = 1;
      }
      if (contatori[i].stockfish) sf = m.secondi;
      if (contatori[i].confrontato) nostro = m.secondi;
    }
    if (sf > 0 && nostro > 0) {
      const double rapporto = sf / nostro;
      printf("%-10s ratio %.2f (Stockfish's time over pendrino-perft's, 1 thread, no table): %s\n",
             p.nome, rapporto, rapporto >= 1.0 ? "at least as fast" : "SLOWER");
      if (rapporto < 1.0) esito = 1;
    }
  }
  if (!stockfish) printf("(no stockfish given: no ratio)\n");
  return esito;
}
