// Leaves per second of the exact perft walk on the initial position to depth
// 6 and on Kiwipete to depth 5, beside the same counts by Stockfish's
// `go perft` (one thread) when a Stockfish program is given.
//
//   perft_bench [STOCKFISH]
#include <chrono>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <string>

#include "board/fen.h"
#include "board/geometria.h"
#include "board/posizione.h"
#include "diagnostics/perft.h"

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
};
constexpr Prova Prove[] = {
    {"initial", "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", 6},
    {"kiwipete", "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1", 5},
};

struct Misura {
  bool fatta = false;
  uint64_t foglie = 0;
  double secondi = 0;
};

double Secondi(std::chrono::steady_clock::time_point inizio) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
}

Misura MisuraNostra(const Prova& p) {
  Misura m;
  SvuotaScacchiera();
  if (!CaricaPosizioneDaStringaFen(p.fen)) return m;
  auto inizio = std::chrono::steady_clock::now();
  m.foglie = Perft(p.profondita);
  m.secondi = Secondi(inizio);
  m.fatta = true;
  return m;
}

#ifndef _WIN32
// A Stockfish process talking UCI through two pipes.
class Stockfish {
 public:
  explicit Stockfish(const char* programma) {
    int verso[2], ritorno[2];
    if (pipe(verso) != 0) return;
    if (pipe(ritorno) != 0) {
      close(verso[0]);
      close(verso[1]);
      return;
    }
    pid_ = fork();
    if (pid_ == 0) {
      dup2(verso[0], 0);
      dup2(ritorno[1], 1);
      close(verso[1]);
      close(ritorno[0]);
      execlp(programma, programma, static_cast<char*>(nullptr));
      _exit(127);
    }
    close(verso[0]);
    close(ritorno[1]);
    if (pid_ < 0) {
      close(verso[1]);
      close(ritorno[0]);
      return;
    }
    scrivi_ = fdopen(verso[1], "w");
    leggi_ = fdopen(ritorno[0], "r");
  }
  ~Stockfish() {
    if (scrivi_) {
      Invia("quit");
      fclose(scrivi_);
    }
    if (leggi_) fclose(leggi_);
    if (pid_ > 0) waitpid(pid_, nullptr, 0);
  }
  bool Pronto() { return scrivi_ && leggi_ && Invia("uci") && Attendi("uciok", nullptr); }
  bool Invia(const std::string& comando) {
    return fprintf(scrivi_, "%s\n", comando.c_str()) > 0 && fflush(scrivi_) == 0;
  }
  // Reads lines until one starts with `inizio`; its remainder goes to `resto`.
  bool Attendi(const char* inizio, std::string* resto) {
    char riga[512];
    const size_t n = strlen(inizio);
    while (fgets(riga, sizeof riga, leggi_)) {
      if (strncmp(riga, inizio, n) == 0) {
        if (resto) *resto = riga + n;
        return true;
      }
    }
    return false;
  }

 private:
  pid_t pid_ = -1;
  FILE* scrivi_ = nullptr;
  FILE* leggi_ = nullptr;
};

Misura MisuraStockfish(const char* programma, const Prova& p) {
  Misura m;
  Stockfish sf(programma);
  if (!sf.Pronto()) return m;
  sf.Invia("setoption name Threads value 1");
  sf.Invia(std::string("position fen ") + p.fen);
  // The network and the tables are loaded before the clock starts.
  sf.Invia("isready");
  if (!sf.Attendi("readyok", nullptr)) return m;
  auto inizio = std::chrono::steady_clock::now();
  sf.Invia("go perft " + std::to_string(p.profondita));
  std::string nodi;
  if (!sf.Attendi("Nodes searched: ", &nodi)) return m;
  m.secondi = Secondi(inizio);
  m.foglie = strtoull(nodi.c_str(), nullptr, 10);
  m.fatta = true;
  return m;
}
#else
Misura MisuraStockfish(const char*, const Prova&) { return Misura(); }
#endif

}  // namespace

int main(int argc, char** argv) {
#ifndef _WIN32
  signal(SIGPIPE, SIG_IGN);  // a Stockfish that dies must not take us with it
#endif
  const char* stockfish = argc > 1 && argv[1][0] ? argv[1] : nullptr;
  InizializzaTabelle();

  printf("%-10s %5s %12s %9s %14s %9s %14s %7s\n", "position", "depth", "leaves", "ours s",
         "ours leaves/s", "sf s", "sf leaves/s", "sf/ours");
  int esito = 0;
  bool stockfish_mancato = false;
  for (const Prova& p : Prove) {
    const Misura nostra = MisuraNostra(p);
    if (!nostra.fatta) {
      printf("%-10s: the FEN is rejected\n", p.nome);
      esito = 1;
      continue;
    }
    const double velocita = double(nostra.foglie) / nostra.secondi;
    printf("%-10s %5d %12" PRIu64 " %9.2f %14.0f", p.nome, p.profondita, nostra.foglie,
           nostra.secondi, velocita);
    const Misura sf = stockfish ? MisuraStockfish(stockfish, p) : Misura();
    if (sf.fatta) {
      const double velocita_sf = double(sf.foglie) / sf.secondi;
      printf(" %9.2f %14.0f %7.1f\n", sf.secondi, velocita_sf, velocita_sf / velocita);
      if (sf.foglie != nostra.foglie) {
        printf("%-10s: Stockfish counts %" PRIu64 " leaves\n", p.nome, sf.foglie);
        esito = 1;
      }
    } else {
      printf(" %9s %14s %7s\n", "-", "-", "-");
      stockfish_mancato = stockfish != nullptr;
    }
  }
  if (!stockfish) printf("(no stockfish given: its columns are empty)\n");
  if (stockfish_mancato) printf("(%s did not answer go perft: its columns are empty)\n", stockfish);
  return esito;
}
