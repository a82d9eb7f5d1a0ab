#include "supporto/istantanea.h"

#include <algorithm>

const uint64_t* ListaDi(int colore, int tipo) {
  switch (tipo) {
    case PEDONE:
      return casa_pedone[colore];
    case CAVALLO:
      return casa_cavallo[colore];
    case ALFIERE:
      return casa_alfiere[colore];
    case TORRE:
      return casa_torre[colore];
    default:
      return casa_donna[colore];
  }
}

Istantanea Fotografa() {
  Istantanea f{};
  for (int c = 0; c < 2; ++c) {
    for (int k = 0; k < 5; ++k) {
      f.pezzi[c][k] = btm_pezzi[c][k];
      const uint64_t* lista = ListaDi(c, k);
      const uint64_t n = std::min<uint64_t>(NumeroPezzi(materiale[c], k), CapienzaLista[k]);
      f.liste[c][k].assign(lista, lista + n);
      std::sort(f.liste[c][k].begin(), f.liste[c][k].end());
    }
    f.colore[c] = btm_colore[c];
    f.re[c] = casa_re[c];
    f.materiale[c] = materiale[c];
  }
  f.occupazione = btm_occupazione;
  for (int s = 0; s < 65; ++s)
    f.codici[s] = PezzoIn[s] == CASA_VUOTA ? CASA_VUOTA : CodiceSenzaSlot(PezzoIn[s]);
  f.info = InfoPosizione;
  f.chiave = ChiaveHash;
  f.pedoni = HashPedoni;
  f.contatore = ContatoreMosse;
  return f;
}

std::string Differenze(const Istantanea& a, const Istantanea& b) {
  std::string d;
  auto segna = [&d](bool diversi, const std::string& nome) {
    if (diversi) d += nome + " ";
  };
  for (int c = 0; c < 2; ++c) {
    const std::string colore = c == 0 ? "_bianco" : "_nero";
    for (int k = 0; k < 5; ++k) {
      segna(a.pezzi[c][k] != b.pezzi[c][k], "btm" + std::to_string(k) + colore);
      segna(a.liste[c][k] != b.liste[c][k], "casa" + std::to_string(k) + colore);
    }
    segna(a.colore[c] != b.colore[c], "btm" + colore);
    segna(a.re[c] != b.re[c], "casa_re" + colore);
    segna(a.materiale[c] != b.materiale[c], "materiale" + colore);
  }
  segna(a.occupazione != b.occupazione, "btm_occupazione");
  for (int s = 0; s < 65; ++s)
    segna(a.codici[s] != b.codici[s], "PezzoIn[" + std::to_string(s) + "]");
  segna(a.info != b.info, "InfoPosizione");
  segna(a.chiave != b.chiave, "ChiaveHash");
  segna(a.pedoni != b.pedoni, "HashPedoni");
  segna(a.contatore != b.contatore, "ContatoreMosse");
  return d;
}
