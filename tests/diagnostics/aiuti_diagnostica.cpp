#include "aiuti_diagnostica.h"

#include <gtest/gtest.h>

#include <cstdio>

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
