// The real program in an 80 x 44 pseudo-terminal, for the benchmarks that
// drive it as a user would: a temporary folder with its settings file, the
// terminal, the keys, its CPU time, and the way out.
#pragma once

#include <fcntl.h>
#include <poll.h>
#if defined(__APPLE__)
#include <util.h>
#else
#include <pty.h>
#endif
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace bench {

using Orologio = std::chrono::steady_clock;

inline double Secondi(Orologio::duration durata) {
  return std::chrono::duration<double>(durata).count();
}

// User + system time of a process in seconds, or a negative value.
inline double TempoCpu(pid_t pid) {
  std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
  std::string stat((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  // The command name may hold spaces: count fields from its closing bracket.
  const size_t chiusa = stat.rfind(')');
  if (chiusa == std::string::npos) return -1;
  std::istringstream campi(stat.substr(chiusa + 1));
  std::string campo;
  unsigned long long utime = 0, stime = 0;
  for (int n = 3; campi >> campo; ++n) {
    if (n == 14) utime = std::strtoull(campo.c_str(), nullptr, 10);
    if (n == 15) {
      stime = std::strtoull(campo.c_str(), nullptr, 10);
      return double(utime + stime) / double(sysconf(_SC_CLK_TCK));
    }
  }
  return -1;
}

// Reads and discards the program's output for `secondi`, or until it has
// been silent for `quiete` seconds when that is positive, or until `atteso`
// has appeared. Returns the bytes read, keeping only their tail.
inline std::string Scarica(int fd, double secondi, double quiete = 0,
                           const char* atteso = nullptr) {
  std::string coda;
  const auto fine = Orologio::now() + std::chrono::duration<double>(secondi);
  auto ultimo = Orologio::now();
  for (;;) {
    const auto ora = Orologio::now();
    if (ora >= fine) break;
    if (quiete > 0 && ora - ultimo >= std::chrono::duration<double>(quiete)) break;
    const auto resto = std::chrono::duration_cast<std::chrono::milliseconds>(fine - ora).count();
    pollfd p = {fd, POLLIN, 0};
    const int pronti = poll(&p, 1, int(quiete > 0 ? 50 : resto));
    if (pronti < 0 && errno != EINTR) break;
    if (pronti <= 0) continue;
    char buffer[4096];
    const ssize_t letti = read(fd, buffer, sizeof buffer);
    if (letti <= 0) break;  // the program has gone
    coda.append(buffer, size_t(letti));
    if (coda.size() > 65536) coda.erase(0, coda.size() - 65536);
    ultimo = Orologio::now();
    if (atteso && coda.find(atteso) != std::string::npos) break;
  }
  return coda;
}

inline void Invia(int fd, const char* testo) {
  for (size_t fatto = 0, n = std::strlen(testo); fatto < n;) {
    const ssize_t scritti = write(fd, testo + fatto, n - fatto);
    if (scritti <= 0) return;
    fatto += size_t(scritti);
  }
}

// pendrino.ini as the program writes it, with the defaults but for the time
// of the first period and the first alarm, and preferenze.ini: without the
// files it would stop on a notice box.
inline bool ScriviImpostazioni(const std::string& cartella, int tempo_primo_periodo,
                               int allarme1 = 15) {
  struct Riga {
    const char *chiave, *descrizione, *unita;
    int predefinito, minimo, massimo;
  };
  static constexpr Riga righe[] = {
      {"periodi", "periodi", "periodi", 1, 1, 2},
      {"mosse_primo_periodo", "mosse primo periodo", "mosse", 40, 10, 100},
      {"tempo_primo_periodo", "tempo primo periodo", "minuti", 120, 1, 720},
      {"incremento_primo_periodo", "incremento primo periodo", "secondi", 0, 0, 600},
      {"tempo_secondo_periodo", "tempo secondo periodo", "minuti", 30, 1, 720},
      {"incremento_secondo_periodo", "incremento secondo periodo", "secondi", 0, 0, 600},
      {"aggiornamento_automatico_a_schermo", "Aggiornamento automatico a schermo del tempo in moto",
       "valore booleano", 1, 0, 1},
      {"allarme1", "primo allarme", "minuti", 15, 0, 720},
      {"allarme2", "secondo allarme", "minuti", 30, 0, 720},
      {"allarme3", "terzo allarme", "minuti", 60, 0, 720},
      {"allarme4", "quarto allarme", "minuti", 90, 0, 720},
      {"allarme5", "quinto allarme", "minuti", 120, 0, 720},
  };
  std::ofstream file(cartella + "/pendrino.ini", std::ios::binary);
  for (const Riga& r : righe) {
    int valore = r.predefinito;
    if (std::strcmp(r.chiave, "tempo_primo_periodo") == 0) valore = tempo_primo_periodo;
    if (std::strcmp(r.chiave, "allarme1") == 0) valore = allarme1;
    file << "\n"
         << r.descrizione << " (" << r.unita << ") min: " << r.minimo << " max: " << r.massimo
         << " default: " << r.predefinito << "\n$\t" << r.chiave << "\t" << valore << "\n";
  }
  // The second settings file, at its defaults.
  std::ofstream preferenze(cartella + "/preferenze.ini", std::ios::binary);
  preferenze << "\nlettore di schermo (valore booleano) min: 0 max: 1 default: 0\n"
             << "$\tlettore_di_schermo\t0\n"
             << "\nvoce del programma (valore booleano) min: 0 max: 1 default: 0\n"
             << "$\tvoce\t0\n";
  return bool(file.flush()) && bool(preferenze.flush());
}

// The program started in a fresh temporary folder, in a pseudo-terminal.
struct Programma {
  std::string cartella;
  pid_t pid = -1;
  int master = -1;
  int stato = 0;
  rusage uso = {};

  // False, with the reason on stderr, when it could not be started.
  bool Avvia(const char* binario, const char* terminale, int tempo_primo_periodo,
             int allarme1 = 15) {
    // The program runs in another directory: keep its path valid there.
    char programma[PATH_MAX];
    if (!realpath(binario, programma)) {
      std::perror(binario);
      return false;
    }
    char modello[] = "/tmp/pendrino-bench-XXXXXX";
    if (!mkdtemp(modello)) {
      std::perror("mkdtemp");
      return false;
    }
    cartella = modello;
    if (!ScriviImpostazioni(cartella, tempo_primo_periodo, allarme1)) {
      std::fprintf(stderr, "could not write %s/pendrino.ini\n", modello);
      return false;
    }
    winsize dimensioni = {};
    dimensioni.ws_row = 44;
    dimensioni.ws_col = 80;
    pid = forkpty(&master, nullptr, nullptr, &dimensioni);
    if (pid < 0) {
      std::perror("forkpty");
      return false;
    }
    if (pid == 0) {
      if (chdir(modello) != 0) _exit(126);
      setenv("TERM", terminale, 1);
      unsetenv("DISPLAY");
      unsetenv("WAYLAND_DISPLAY");
      execl(programma, programma, static_cast<char*>(nullptr));
      _exit(127);
    }
    return true;
  }

  bool Finito() {
    if (pid < 0) return true;
    if (wait4(pid, &stato, WNOHANG, &uso) != pid) return false;
    pid = -1;
    return true;
  }

  // Reaps the program within `secondi`, draining its output meanwhile.
  bool AttendiFine(double secondi) {
    const auto fine = Orologio::now() + std::chrono::duration<double>(secondi);
    while (Orologio::now() < fine) {
      if (Finito()) return true;
      Scarica(master, 0.02);
      usleep(20000);  // the terminal may already be closed: no busy wait
    }
    return Finito();
  }

  // Leaves as a user does: Alt+F4 (Esc, then F4), then No. True when the
  // program ended so, with status 0; otherwise it is terminated.
  bool Esci() {
    Invia(master, "\x1b\x1bOS");
    Scarica(master, 5, 0, "Salvare la partita");
    Scarica(master, 2, 0.3);  // the box fully drawn and waiting for its answer
    Invia(master, "n");
    const bool uscito = AttendiFine(5);
    if (!uscito) {
      kill(pid, SIGTERM);
      if (!AttendiFine(2)) {
        kill(pid, SIGKILL);
        wait4(pid, &stato, 0, &uso);
        pid = -1;
      }
    }
    return uscito && WIFEXITED(stato) && WEXITSTATUS(stato) == 0;
  }

  // User + system time of the whole run, once reaped.
  double CpuTotale() const {
    return double(uso.ru_utime.tv_sec + uso.ru_stime.tv_sec) +
           double(uso.ru_utime.tv_usec + uso.ru_stime.tv_usec) / 1e6;
  }

  ~Programma() {
    if (pid > 0) {
      kill(pid, SIGKILL);
      waitpid(pid, nullptr, 0);
    }
    if (master >= 0) close(master);
    std::error_code ignorato;
    if (!cartella.empty()) std::filesystem::remove_all(cartella, ignorato);
  }
};

}  // namespace bench
