// The fixture of the tests of adjudication, in the game and at the console:
// the tables built, an open game between two lone kings, a stopped clock with
// a minute a side whose display sink counts the redraws of its state line,
// and the checks of the status and of the one box shown.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "board/fen.h"
#include "board/posizione.h"
#include "clock/orologio.h"
#include "game/aggiudicazione.h"
#include "messaggi/messaggi.h"
#include "piattaforma/memoria/memoria.h"
#include "supporto/stati.h"
#include "supporto/tabelle.h"

namespace verifiche {

constexpr int MINUTO = 60000;

// The clock redraws its state line once when it stops; nothing else in these
// tests starts or stops it.
inline int ChiamateFermaOrologio = 0;

class AmbienteAggiudicazione : public ::testing::Test {
 protected:
  void SetUp() override {
    InizializzaTabelleUnaVolta();
    memoria::Azzera();
    InstallaDopoFinestra(nullptr);
    RevocaAggiudicazione();
    CambiaOrologio([](StatoOrologio& s) {
      s.in_moto = 0;
      s.tempo[0] = s.tempo[1] = MINUTO;
    });
    ChiamateFermaOrologio = 0;
    InstallaSchermoOrologio({nullptr, [] { ++ChiamateFermaOrologio; }, nullptr, nullptr});
    Carica("4k3/8/8/8/8/8/8/4K3 w - - 0 1");
  }
  void TearDown() override { InstallaSchermoOrologio({}); }

  static void Carica(const char* fen) {
    SvuotaScacchiera();
    ASSERT_EQ(CaricaPosizioneDaStringaFen(fen), 1) << fen;
  }

  static void StatoE(const std::string& result, const std::string& termination,
                     const std::string& commento) {
    EXPECT_EQ(std::string(Result), result);
    EXPECT_EQ(std::string(Termination), termination);
    EXPECT_EQ(std::string(CommentoRisultato), commento);
  }
  static void Aperta() {
    StatoE("*", "?", "");
    EXPECT_FALSE(PartitaAggiudicata());
  }

  // Exactly one box, with this text and style, titled "Attenzione!".
  static void UnaFinestra(const std::string& testo, unsigned stile) {
    const auto& finestre = memoria::Finestre();
    ASSERT_EQ(finestre.size(), 1u);
    EXPECT_EQ(finestre[0].testo, testo);
    EXPECT_EQ(finestre[0].titolo, "Attenzione!");
    EXPECT_EQ(finestre[0].stile, stile);
  }
};

}  // namespace verifiche
