// libFuzzer target for the FEN loader. The input is copied into a buffer of
// exactly its length plus the terminator, so that AddressSanitizer catches a
// read past the text; a loaded position must satisfy the board's invariants.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "board/fen.h"
#include "board/geometria.h"
#include "board/posizione.h"
#include "supporto/stati.h"
#include "supporto/verifica_posizione.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  InizializzaTabelle();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
  char* testo = static_cast<char*>(std::malloc(lunghezza + 1));
  std::memcpy(testo, dati, lunghezza);
  testo[lunghezza] = '\0';
  SvuotaScacchiera();
  // Texts without a king keep these squares: the same answer on every run.
  CambiaPosizione([](StatoPosizione& p) {
    p.re[BIANCO] = CASA_RE_BIANCO_INIZIALE;
    p.re[NERO] = CASA_RE_NERO_INIZIALE;
  });
  if (CaricaPosizioneDaStringaFen(testo) && !PosizioneCoerente()) std::abort();
  std::free(testo);
  return 0;
}
