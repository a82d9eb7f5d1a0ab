#include "diagnostics/stampa.h"

#include <cstdio>

#include "board/posizione.h"
#include "board/tabella64.h"
#include "diagnostics/uscita.h"

const char* const StringaPezzo[6] = {"Pedone", "Cavallo", "Alfiere", "Torre", "Donna", "Re"};

namespace {

constexpr NomeDiCasa NomiCase[64] = {TABELLA64(NomeCasa)};

}  // namespace

#define PENDRINO_NOME_CASA(s) NomiCase[s].testo
const char* const StringaCasa[64] = {TABELLA64(PENDRINO_NOME_CASA)};
#undef PENDRINO_NOME_CASA

void StampaBitmapPezzo(uint8_t codice) {
  // Codes of no kind at all read like the empty square rather than index
  // past the names.
  if (CodiceDiPezzo(codice))
    ScriviDiagnostica("%s %s\t", StringaPezzo[TipoDelCodice(codice)],
                      ColoreDelCodice(codice) == NERO ? "nero" : "bianco");
  else
    ScriviDiagnostica("nessun pezzo\t");
  char bit[12];
  int n = 0;
  for (int i = 0; i < 8; ++i) {
    if (i == 4) bit[n++] = '\t';
    bit[n++] = ((codice >> i) & 1) ? 'O' : '_';
    if (i == 4) bit[n++] = '\t';
  }
  bit[n] = '\0';
  ScriviDiagnostica("%s\n", bit);
}

const char* StringaBitmap(uint64_t bitboard) {
  static char testo[1024];
  int n = 0;
  for (int r = 0; r < 8; ++r) {
    n += std::snprintf(testo + n, sizeof testo - size_t(n), "\n%d\t", 8 - r);
    for (int k = 0; k < 8; ++k) {
      testo[n++] = '\t';
      testo[n++] = ((bitboard >> (r * 8 + k)) & 1) ? 'o' : '-';
    }
  }
  // One tab more before A than before the squares, as it always was.
  std::snprintf(testo + n, sizeof testo - size_t(n), "\n\n\t\tA\tB\tC\tD\tE\tF\tG\tH\n\n");
  return testo;
}

const char* str_esadecimale(uint64_t valore) {
  static char testo[17];
  for (int i = 15; i >= 0; --i) {
    testo[i] = "0123456789abcdef"[valore & 15];
    valore >>= 4;
  }
  testo[16] = '\0';
  return testo;
}

void StampaEsadecimale(uint64_t valore) { ScriviDiagnostica("0x%sull", str_esadecimale(valore)); }

void StampaChiaroScuro() {
  uint64_t chiare = 0, scure = 0;
  for (int s = 0; s < 64; ++s) {
    // a8 is light: a square is light when its row and column parities agree.
    if (((s >> 3) & 1) == (s & 1))
      chiare |= 1ull << s;
    else
      scure |= 1ull << s;
  }
  char testo[2048];
  Composizione t(testo, sizeof testo);
  t.Formato("\n    #define BtmCaseChiare %s\n", str_esadecimale(chiare));
  t.Formato("%s\n", StringaBitmap(chiare));
  t.Formato("\n    #define BtmCaseScure %s\n", str_esadecimale(scure));
  t.Formato("%s\n", StringaBitmap(scure));
  ScriviFileDiagnostico("ChiaroScuro.txt", testo, t.Scritti());
}
