// CPU time Pendrino uses while it waits for keys.
//
// Usage: pendrino_attesa <pendrino binary> [seconds, default 30]
//
// Starts the program in an 80 x 44 pseudo-terminal inside a temporary
// directory holding a default pendrino.ini (without one it would wait on a
// notice box), lets it draw its screen, then sends nothing for the given time
// and reads the program's user + system time from /proc/<pid>/stat before and
// after. The program is then ended with Alt+F4 and No, as a user would.
#include "terminale_bench.h"

using namespace bench;

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) {
    std::fprintf(stderr, "usage: %s <pendrino binary> [seconds]\n", argv[0]);
    return 2;
  }
  const double secondi = argc == 3 ? std::atof(argv[2]) : 30.0;
  Programma programma;
  if (!programma.Avvia(argv[1], "xterm-256color", 120)) return 2;
  const int master = programma.master;
  const pid_t pid = programma.pid;

  // Start-up: wait until the screen is drawn and the program is quiet.
  Scarica(master, 10, 1.0);
  if (programma.Finito()) {
    std::fprintf(stderr, "%s ended at start-up (status %d)\n", argv[1],
                 WIFEXITED(programma.stato) ? WEXITSTATUS(programma.stato) : -1);
    return 1;
  }
  const double prima = TempoCpu(pid);
  const std::string durante = Scarica(master, secondi);
  const double dopo = TempoCpu(pid);

  // How soon a key shows: a letter typed into the command field.
  const auto battuta = Orologio::now();
  Invia(master, "e");
  const bool eco = Scarica(master, 2, 0, "e").find('e') != std::string::npos;
  const double latenza = Secondi(Orologio::now() - battuta);

  const bool uscito = programma.Esci();

  if (prima < 0 || dopo < 0) {
    std::fprintf(stderr, "could not read /proc/%d/stat\n", int(pid));
    return 1;
  }
  const double attesa = dopo - prima;
  std::printf("CPU time while waiting %g s for keys: %.3f s (target < 0.1 s)%s\n", secondi, attesa,
              attesa < 0.1 ? "" : "  ** OVER TARGET **");
  if (eco)
    std::printf("a typed letter showed after %.1f ms\n", latenza * 1000);
  else
    std::printf("a typed letter did NOT show within 2 s\n");
  std::printf(
      "whole run, start-up and exit included: %.3f s of CPU; output while waiting: %zu bytes;"
      " %s\n",
      programma.CpuTotale(), durante.size(),
      uscito ? "ended by Alt+F4 and No with status 0"
             : "did NOT end by Alt+F4 and No (terminated)");
  return 0;
}
