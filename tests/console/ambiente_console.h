// A clean in-memory console and clean console state for every test.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "board/posizione.h"
#include "clock/orologio.h"
#include "console/comandi.h"
#include "console/schermo.h"
#include "game/aggiudicazione.h"
#include "game/giornale.h"
#include "messaggi/messaggi.h"
#include "piattaforma/memoria/memoria.h"
#include "settings/parametri.h"
#include "supporto/stati.h"

class AmbienteConsole : public ::testing::Test {
 protected:
  void SetUp() override {
    memoria::Azzera();
    // No journal until a test's start-up begins one.
    SospendiGiornale();
    fuoco = FUOCO_COMANDO;
    CharatteriInComando = 0;
    CambiaOrologio([](StatoOrologio& s) {
      s.in_moto = 0;
      s.tempo[0] = s.tempo[1] = 0;
      s.inizio = 0;
      s.prima_volta = 0;
      s.visualizzato[0] = s.visualizzato[1] = 0;
      s.allarme[0] = s.allarme[1] = ALLARME_MAI_SUONATO;
    });
    PortaAllaSemimossa(0);
    SvuotaMessaggio();
    InstallaDopoFinestra(ImpostaFocus);
    // A settings file with the defaults, so that start-up reads it quietly;
    // the open game of a fresh start.
    DefaultIni();
    ScriviIni();
    RevocaAggiudicazione();
  }

  // The whole screen, line after line, to compare before and after.
  static std::string Schermo() {
    std::string s;
    for (int y = 0; y < piattaforma::RIGHE_SCHERMO; ++y) s += memoria::Riga(y) + '\n';
    return s;
  }

  // `testo` placed at column `x` of an otherwise blank 80-column line.
  static std::string RigaCon(int x, const std::string& testo) {
    std::string riga(80, ' ');
    riga.replace(size_t(x), testo.size(), testo);
    return riga;
  }

  // Runs `fai`, which must end the program with status 0.
  static void Esce(void (*fai)()) {
    try {
      fai();
      ADD_FAILURE() << "the program did not end";
    } catch (const memoria::UscitaProcesso& u) {
      EXPECT_EQ(u.codice, 0u);
    }
  }

  static void ComponiMessaggio(const char* testo) {
    SvuotaMessaggio();
    AggiungiTesto(testo);
  }
};
