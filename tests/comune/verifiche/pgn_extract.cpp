#include "verifiche/pgn_extract.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

#ifndef PENDRINO_PGN_EXTRACT
#define PENDRINO_PGN_EXTRACT ""
#endif

namespace pgn_extract {

#ifdef _WIN32

std::string MotivoAssenza() {
  return "pgn-extract is checked in the native build only (a Linux program, not run under wine)";
}

::testing::AssertionResult LeggeSenzaErrori(const std::string&, int) {
  return ::testing::AssertionFailure() << MotivoAssenza();
}

::testing::AssertionResult TestoLettoSenzaErrori(const std::string&, int) {
  return ::testing::AssertionFailure() << MotivoAssenza();
}

#else

namespace {

bool Eseguibile(const std::string& percorso) {
  return !percorso.empty() && access(percorso.c_str(), X_OK) == 0;
}

// The one found when the build was configured, else on PATH, else where
// Debian puts it (/usr/games, often not on PATH).
std::string Programma() {
  static const std::string trovato = [] {
    if (Eseguibile(PENDRINO_PGN_EXTRACT)) return std::string(PENDRINO_PGN_EXTRACT);
    std::string cartelle = std::getenv("PATH") ? std::getenv("PATH") : "";
    cartelle += ":/usr/games:/usr/bin:/usr/local/bin";
    std::stringstream elenco(cartelle);
    std::string cartella;
    while (std::getline(elenco, cartella, ':')) {
      if (cartella.empty()) continue;
      const std::string percorso = cartella + "/pgn-extract";
      if (Eseguibile(percorso)) return percorso;
    }
    return std::string();
  }();
  return trovato;
}

std::string TraApici(const std::string& testo) {
  std::string citato = "'";
  for (char c : testo) {
    if (c == '\'')
      citato += "'\\''";
    else
      citato += c;
  }
  return citato + "'";
}

struct Esito {
  int stato = -1;
  std::string uscita;  // standard output and error together
};

Esito Esegui(const std::string& argomenti, const std::string& file) {
  Esito esito;
  const std::string comando =
      TraApici(Programma()) + " " + argomenti + " " + TraApici(file) + " 2>&1 </dev/null";
  FILE* flusso = popen(comando.c_str(), "r");
  if (flusso == nullptr) return esito;
  char blocco[4096];
  size_t letti;
  while ((letti = std::fread(blocco, 1, sizeof blocco, flusso)) > 0)
    esito.uscita.append(blocco, letti);
  const int stato = pclose(flusso);
  esito.stato = WIFEXITED(stato) ? WEXITSTATUS(stato) : -1;
  return esito;
}

}  // namespace

std::string MotivoAssenza() {
  if (Programma().empty())
    return "pgn-extract is not installed (Debian package pgn-extract; `make test` installs it)";
  return std::string();
}

::testing::AssertionResult LeggeSenzaErrori(const std::string& file, int partite) {
  if (!MotivoAssenza().empty()) return ::testing::AssertionFailure() << MotivoAssenza();
  if (!std::filesystem::exists(file)) return ::testing::AssertionFailure() << file << " is missing";

  // Checking only (-r) and silent (-s): every line it prints is an error or
  // a warning.
  const Esito silenzioso = Esegui("-r -s", file);
  if (silenzioso.stato != 0 || !silenzioso.uscita.empty())
    return ::testing::AssertionFailure()
           << "pgn-extract -r -s " << file << " (exit " << silenzioso.stato << ") said:\n"
           << silenzioso.uscita;

  // The same with its summary, which counts the games read.
  const Esito conteggio = Esegui("-r", file);
  static const std::regex riassunto(R"((\d+) games? matched out of (\d+)\.)");
  std::smatch trovato;
  std::string ultimo;
  std::stringstream righe(conteggio.uscita);
  for (std::string riga; std::getline(righe, riga);) {
    if (std::regex_match(riga, trovato, riassunto)) ultimo = riga;
  }
  if (conteggio.stato != 0 || ultimo.empty())
    return ::testing::AssertionFailure() << "pgn-extract -r " << file << " (exit "
                                         << conteggio.stato << ") gave no count of games:\n"
                                         << conteggio.uscita;
  std::regex_match(ultimo, trovato, riassunto);
  const int lette = std::stoi(trovato[2].str());
  const int accettate = std::stoi(trovato[1].str());
  if (lette != partite || accettate != partite)
    return ::testing::AssertionFailure() << "pgn-extract read " << lette << " games, " << accettate
                                         << " without error; " << partite << " expected:\n"
                                         << conteggio.uscita;
  return ::testing::AssertionSuccess();
}

::testing::AssertionResult TestoLettoSenzaErrori(const std::string& testo, int partite) {
  if (!MotivoAssenza().empty()) return ::testing::AssertionFailure() << MotivoAssenza();
  std::string modello = (std::filesystem::temp_directory_path() / "pendrino-pgn-XXXXXX").string();
  if (mkdtemp(modello.data()) == nullptr)
    return ::testing::AssertionFailure() << "no temporary folder " << modello;
  const std::filesystem::path cartella = modello;
  const std::string file = (cartella / "partita.pgn").string();
  {
    std::ofstream uscita(file, std::ios::binary);
    uscita.write(testo.data(), std::streamsize(testo.size()));
  }
  ::testing::AssertionResult esito = LeggeSenzaErrori(file, partite);
  std::error_code errore;
  std::filesystem::remove_all(cartella, errore);
  return esito;
}

#endif

void LettePartite(const std::string& file_partite, int partite) {
  if (MotivoAssenza().empty())
    EXPECT_TRUE(TestoLettoSenzaErrori(file_partite, partite));
  else
    std::printf("pgn-extract not run: %s\n", MotivoAssenza().c_str());
}

}  // namespace pgn_extract
