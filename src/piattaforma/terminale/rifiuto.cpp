#include "piattaforma/terminale/rifiuto.h"

#include <cstdio>

namespace piattaforma::terminale {

void ComponiRifiuto(RifiutoTerminale motivo, const char* tipo, char* uscita, size_t dimensione,
                    const PoliticaInterfaccia& politica) {
  if (uscita == nullptr || dimensione == 0) return;
  if (tipo == nullptr) tipo = "";
  uscita[0] = 0;
  if (politica.componi_rifiuto) {
    politica.componi_rifiuto(motivo, tipo, uscita, dimensione);
    uscita[dimensione - 1] = 0;
    return;
  }
  switch (motivo) {
    case RifiutoTerminale::NessunTerminale:
      std::snprintf(uscita, dimensione, "stdin/stdout: not a terminal");
      break;
    case RifiutoTerminale::SenzaTipo:
      std::snprintf(uscita, dimensione, "TERM: not set");
      break;
    case RifiutoTerminale::TipoSconosciuto:
      std::snprintf(uscita, dimensione, "TERM=%s: unknown terminal", tipo);
      break;
    case RifiutoTerminale::SenzaCursore:
      std::snprintf(uscita, dimensione, "TERM=%s: no cursor addressing", tipo);
      break;
    case RifiutoTerminale::NonAperto:
      std::snprintf(uscita, dimensione, "TERM=%s: cannot be opened", tipo);
      break;
  }
}

}  // namespace piattaforma::terminale
