// libFuzzer target for the reading of a typed move and the road it takes
// through the game record (tests/comune/supporto/mossa_prova.h). Game-end questions are
// answered by the in-memory platform, never waited for.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "supporto/mossa_prova.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
  if (const char* guasto = ProvaTestiMossa(dati, lunghezza)) {
    std::fprintf(stderr, "mossa_fuzz: %s\n", guasto);
    std::abort();
  }
  return 0;
}
