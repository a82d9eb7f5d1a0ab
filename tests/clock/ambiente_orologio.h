// A stopped clock at a new game, the in-memory platform and a display sink
// that records what it is asked to show, for every clock test.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "board/posizione.h"
#include "clock/cadenza.h"
#include "clock/orologio.h"
#include "messaggi/messaggi.h"
#include "piattaforma/memoria/memoria.h"
#include "settings/parametri.h"
#include "supporto/stati.h"

// The display sink's requests, oldest first: "tempo 0 7200", "stato", "cadenza".
inline std::vector<std::string> Disegni;
// What the clock told as it sounded: "allarme 0 900", "conto 1 3".
inline std::vector<std::string> Segnali;

// Tones as "frequency/duration", oldest first.
inline std::vector<std::string> Toni(size_t dal = 0) {
  std::vector<std::string> toni;
  const auto& registrati = memoria::Toni();
  for (size_t i = dal; i < registrati.size(); ++i)
    toni.push_back(std::to_string(registrati[i].frequenza) + "/" +
                   std::to_string(registrati[i].durata));
  return toni;
}

inline const std::string BIP = "1000/100";
inline const std::string PAUSA = "50000/3";
inline const std::string PERIODO = "3000/5";

// The loop's turns while `colore` thinks: one call as each shown second
// ends, until `millisecondi` have passed. Returns the calls that said the
// flag fell, as the shown seconds at that moment.
inline std::vector<int32_t> Pensa(int colore, int64_t millisecondi) {
  std::vector<int32_t> bandierine;
  while (millisecondi > 0) {
    const int64_t passo = std::min<int64_t>(AttesaProssimoSecondo(), millisecondi);
    memoria::AvanzaMillisecondi(uint64_t(passo));
    millisecondi -= passo;
    if (AggiornaTempoVisualizzato(colore))
      bandierine.push_back(SecondiInMillisecondi(TempoRimastoInMoto(colore)));
  }
  return bandierine;
}

class AmbienteOrologio : public ::testing::Test {
 protected:
  void SetUp() override {
    memoria::Azzera();
    Disegni.clear();
    SchermoDellOrologio = {
        [](int colore, int32_t secondi) {
          Disegni.push_back("tempo " + std::to_string(colore) + " " + std::to_string(secondi));
        },
        [] { Disegni.push_back("stato"); },
        [] { Disegni.push_back("cadenza"); },
        [](SegnaleOrologio segnale, int colore, int32_t secondi) {
          Segnali.push_back(
              std::string(segnale == SegnaleOrologio::Allarme ? "allarme " : "conto ") +
              std::to_string(colore) + " " + std::to_string(secondi));
        },
    };
    Segnali.clear();
    SvuotaMessaggio();
    InstallaDopoFinestra(nullptr);
    PortaAllaSemimossa(0);
    // 40 moves in 120 minutes, then 30 minutes; no increments; alarms out
    // of reach.
    ImpostaParametro(PARAMETRO_PERIODI, 2);
    ImpostaParametro(PARAMETRO_MOSSE_PRIMO_PERIODO, 40);
    ImpostaParametro(PARAMETRO_TEMPO_PRIMO_PERIODO, 120);
    ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 0);
    ImpostaParametro(PARAMETRO_TEMPO_SECONDO_PERIODO, 30);
    ImpostaParametro(PARAMETRO_INCREMENTO_SECONDO_PERIODO, 0);
    ImpostaParametro(PARAMETRO_AGGIORNAMENTO_AUTOMATICO, 1);
    for (int k = 0; k < 5; ++k) ImpostaParametro(PARAMETRO_ALLARME1 + k, 999);
    NuovaPartita();
  }

  void TearDown() override { SchermoDellOrologio = {}; }

  // What the console's new game does with the clock.
  static void NuovaPartita() {
    CaricaTempoDaiParametri();
    InMoto = 0;
    PrimaVoltaInMoto = 0;
    AlarmeSuonato[0] = AlarmeSuonato[1] = ALLARME_MAI_SUONATO;
    AzzeraTempoUTC();
    PortaAllaSemimossa(0);
    Disegni.clear();
  }

  // A move of the side to move while the clock runs, as the game makes it.
  static void Muovi() {
    const int colore = int(ContatoreMosse & 1);
    PortaAllaSemimossa(ContatoreMosse + 1);
    PremiOrologio(colore);
  }
};
