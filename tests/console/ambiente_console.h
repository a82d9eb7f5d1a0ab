// A clean in-memory console and clean console state for every test.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "board/posizione.h"
#include "clock/orologio.h"
#include "console/annuncio.h"
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
    DefaultTabella(TabellaPreferenze);
    ScriviTabella(TabellaPreferenze);
    RevocaAggiudicazione();
  }

  // The whole screen, line after line, to compare before and after: all but
  // the announcement lines, which every action rewrites (Annuncio() reads
  // them).
  static std::string Schermo() {
    std::string s;
    for (int y = 0; y < piattaforma::RIGHE_SCHERMO; ++y) {
      const bool annuncio = y >= y_bordo_superiore && y < y_bordo_superiore + RIGHE_ANNUNCIO;
      s += (annuncio ? std::string(80, ' ') : memoria::Riga(y)) + '\n';
    }
    return s;
  }
  // The announcement as the screen shows it: both lines, without the spaces
  // that pad them, joined by one space.
  static std::string Annuncio() {
    auto senza_spazi = [](std::string r) {
      const size_t fine = r.find_last_not_of(' ');
      return fine == std::string::npos ? std::string() : r.substr(0, fine + 1);
    };
    const std::string prima = senza_spazi(memoria::Riga(y_bordo_superiore));
    const std::string seconda = senza_spazi(memoria::Riga(y_bordo_superiore + 1));
    return seconda.empty() ? prima : prima + " " + seconda;
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
