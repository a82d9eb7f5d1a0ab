#include "aiuti_diagnostica.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "board/fen.h"
#include "board/geometria.h"
#include "diagnostics/uscita.h"
#include "piattaforma/memoria/memoria.h"

namespace {

class AmbienteDiagnostica : public testing::Environment {
 public:
  void SetUp() override {
    InizializzaTabelle();
    memoria::Azzera();
  }
};

const testing::Environment* const ambiente =
    testing::AddGlobalTestEnvironment(new AmbienteDiagnostica);

}  // namespace

bool CaricaFen(const std::string& fen) {
  SvuotaScacchiera();
  if (CaricaPosizioneDaStringaFen(fen.c_str())) return true;
  SvuotaScacchiera();
  return false;
}

std::vector<RigaPerft> LeggiTabellaPerft(const std::string& percorso) {
  std::vector<RigaPerft> righe;
  std::ifstream file(percorso);
  EXPECT_TRUE(file.good()) << percorso;
  std::string riga;
  std::getline(file, riga);  // header
  while (std::getline(file, riga)) {
    if (riga.empty()) continue;
    std::stringstream campi(riga);
    RigaPerft r;
    std::string profondita, nodi;
    if (!std::getline(campi, r.nome, '\t') || !std::getline(campi, r.fen, '\t') ||
        !std::getline(campi, profondita, '\t') || !std::getline(campi, nodi, '\t')) {
      ADD_FAILURE() << "riga malformata in " << percorso << ": " << riga;
      continue;
    }
    r.profondita = std::stoi(profondita);
    r.nodi = std::stoull(nodi);
    righe.push_back(r);
  }
  return righe;
}

std::vector<std::string> FenDistinte(const std::vector<RigaPerft>& righe) {
  std::vector<std::string> fen;
  for (const RigaPerft& r : righe)
    if (std::find(fen.begin(), fen.end(), r.fen) == fen.end()) fen.push_back(r.fen);
  return fen;
}

StatoScacco StatoDiScacco(uint64_t info) {
  bool primo = PrimoScacco(info) != NESSUNA_CASA;
  bool secondo = SecondoScacco(info) != NESSUNA_CASA;
  if (primo && secondo) return SCACCO_DOPPIO;
  if (primo) return SCACCO_PRIMO;
  if (secondo) return SCACCO_SECONDO;
  return NESSUNO_SCACCO_STATO;
}

int ScacchiereDisegnate;

namespace {

// The diagnostics' reports go to this program's standard output, where the
// tests capture them, and their files to the working directory.
class UscitaDeiTest : public ::testing::Environment {
 public:
  void SetUp() override {
    UscitaDiagnostiche.testo = [](const char* testo, size_t lunghezza) {
      std::fwrite(testo, 1, lunghezza, stdout);
      std::fflush(stdout);
    };
    UscitaDiagnostiche.scacchiera = [] { ++ScacchiereDisegnate; };
    UscitaDiagnostiche.file = [](const char* nome, const char* testo, size_t lunghezza) {
      std::FILE* file = std::fopen(nome, "wb");
      if (!file) return false;
      const bool scritto = std::fwrite(testo, 1, lunghezza, file) == lunghezza;
      return std::fclose(file) == 0 && scritto;
    };
  }
};
[[maybe_unused]] ::testing::Environment* const uscita_dei_test =
    ::testing::AddGlobalTestEnvironment(new UscitaDeiTest);

}  // namespace
