// libFuzzer target for the settings reader. The input is copied into a buffer
// of exactly its length, so that AddressSanitizer catches a read past the
// text. Whatever the text, every value stays inside its range, an unknown key
// leaves every value at its default, a complete reading has met every key,
// every box is the out-of-range notice, and the same text fed in pieces reads
// the same.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "piattaforma_fuzz.h"
#include "settings/lettore_ini.h"
#include "settings/parametri.h"

namespace {

struct Lettura {
  EsitoIni esito;
  int32_t valori[NUMERO_PARAMETRI];
  int avvisi;
};

Lettura Fotografia(EsitoIni esito) {
  Lettura l{esito, {}, AvvisiMostrati};
  for (int r = 0; r < NUMERO_PARAMETRI; ++r) l.valori[r] = ParametroIni[r].valore;
  return l;
}

bool Uguali(const Lettura& a, const Lettura& b) {
  return a.esito == b.esito && a.avvisi == b.avvisi &&
         std::memcmp(a.valori, b.valori, sizeof a.valori) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
  char* testo = static_cast<char*>(std::malloc(lunghezza ? lunghezza : 1));
  if (lunghezza) std::memcpy(testo, dati, lunghezza);

  AvvisiMostrati = 0;
  AvvisoInatteso = false;
  const Lettura intera = Fotografia(LeggiTestoIni(testo, lunghezza));
  if (AvvisoInatteso) std::abort();
  for (const RigaIni& riga : ParametroIni) {
    if (riga.valore < riga.minimo || riga.valore > riga.massimo) std::abort();
    if (intera.esito == EsitoIni::ChiaveSconosciuta && riga.valore != riga.valore_default)
      std::abort();
  }
  // A complete reading has met every key somewhere in the text.
  if (intera.esito == EsitoIni::Completo) {
    for (const RigaIni& riga : ParametroIni) {
      const size_t n = std::strlen(riga.chiave);
      bool trovata = false;
      for (size_t i = 0; !trovata && i + n <= lunghezza; ++i)
        trovata = std::memcmp(testo + i, riga.chiave, n) == 0;
      if (!trovata) std::abort();
    }
  }
  size_t dollari = 0;
  for (size_t i = 0; i < lunghezza; ++i) dollari += testo[i] == '$';
  if (size_t(intera.avvisi) > dollari) std::abort();

  // Two pieces split where the first byte says, then one byte at a time.
  const size_t taglio = lunghezza ? size_t(dati[0]) % (lunghezza + 1) : 0;
  AvvisiMostrati = 0;
  LettoreIni lettore;
  lettore.Avvia();
  lettore.Leggi(testo, taglio);
  lettore.Leggi(testo + taglio, lunghezza - taglio);
  if (!Uguali(Fotografia(lettore.Fine()), intera)) std::abort();
  AvvisiMostrati = 0;
  lettore.Avvia();
  for (size_t i = 0; i < lunghezza; ++i) lettore.Leggi(testo + i, 1);
  if (!Uguali(Fotografia(lettore.Fine()), intera)) std::abort();

  std::free(testo);
  return 0;
}
