// The interface policy the platform tests install: the platform carries out
// whatever policy a program hands it, so its tests bring their own. It has
// the labels and letters of Italian boxes (S and Y for Sì, N for No, A for
// Annulla), a pitch for each sticky prefix and lines of its own for a
// refused or too small terminal; the program's own policy is the console's,
// checked by the console tests.
#pragma once

#include <cstdio>

#include "piattaforma/piattaforma.h"

inline piattaforma::PoliticaInterfaccia PoliticaDiProva() {
  using namespace piattaforma::win32;
  piattaforma::PoliticaInterfaccia politica;
  politica.etichetta_ok = "OK";
  politica.etichetta_si = "S\xC3\xAC";
  politica.etichetta_no = "No";
  politica.etichetta_annulla = "Annulla";
  politica.tono_annullato = {500, 60};
  politica.tono_alt = {1500, 40};
  politica.tono_ctrl = {1000, 40};
  politica.tono_ctrl_shift = {1250, 40};
  const piattaforma::LetteraRisposta lettere[] = {
      {'S', IDYES}, {'Y', IDYES}, {'N', IDNO}, {'A', IDCANCEL}};
  for (const auto& lettera : lettere) politica.lettera[politica.lettere++] = lettera;
  // Words of its own, so that a test sees the platform show the policy's.
  politica.componi_rifiuto = [](piattaforma::RifiutoTerminale, const char* tipo, char* uscita,
                                size_t dimensione) {
    std::snprintf(uscita, dimensione, "Prova: nessun terminale adatto (TERM=%s).", tipo);
  };
  politica.forma_dimensioni = [](int forma, int colonne, int righe, char* uscita,
                                 size_t dimensione) {
    if (forma == 0)
      std::snprintf(uscita, dimensione, "Prova: 80 colonne e 44 righe, ora %d x %d.", colonne,
                    righe);
    else if (forma == 1)
      std::snprintf(uscita, dimensione, "Prova: 80 colonne e 44 righe.");
    else
      return false;
    return true;
  };
  return politica;
}
