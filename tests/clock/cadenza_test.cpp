#include "ambiente_orologio.h"

namespace {

class CadenzaDellaPartita : public AmbienteOrologio {
 protected:
  // The text of the control the settings would give a new game.
  static void ScriviCadenza() { ImpostaCadenzaPartita(CadenzaDaiParametri()); }
};

TEST_F(CadenzaDellaPartita, DuePeriodiSenzaIncrementi) {
  ScriviCadenza();
  EXPECT_STREQ(Cadenza, "40/7200:1800");
}

TEST_F(CadenzaDellaPartita, DuePeriodiConIncrementi) {
  ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 30);
  ImpostaParametro(PARAMETRO_INCREMENTO_SECONDO_PERIODO, 10);
  ScriviCadenza();
  EXPECT_STREQ(Cadenza, "40/7200+30:1800+10");
  ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 0);
  ScriviCadenza();
  EXPECT_STREQ(Cadenza, "40/7200:1800+10");
}

TEST_F(CadenzaDellaPartita, QualsiasiValoreDiversoDaUnoSonoDuePeriodi) {
  ImpostaParametro(PARAMETRO_PERIODI, 0);
  ImpostaParametro(PARAMETRO_MOSSE_PRIMO_PERIODO, 7);
  ImpostaParametro(PARAMETRO_TEMPO_PRIMO_PERIODO, 1);
  ImpostaParametro(PARAMETRO_TEMPO_SECONDO_PERIODO, 0);
  ImpostaParametro(PARAMETRO_INCREMENTO_SECONDO_PERIODO, 5);
  ScriviCadenza();
  EXPECT_STREQ(Cadenza, "7/60:0+5");
}

TEST_F(CadenzaDellaPartita, UnPeriodo) {
  ImpostaParametro(PARAMETRO_PERIODI, 1);
  ImpostaParametro(PARAMETRO_INCREMENTO_SECONDO_PERIODO, 10);
  ScriviCadenza();
  EXPECT_STREQ(Cadenza, "7200");
  ImpostaParametro(PARAMETRO_TEMPO_PRIMO_PERIODO, 5);
  ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 3);
  ScriviCadenza();
  EXPECT_STREQ(Cadenza, "300+3");
}

TEST_F(CadenzaDellaPartita, DataEOraUTC) {
  EXPECT_STREQ(DataUTC, "?");
  EXPECT_STREQ(OraUTC, "?");
  memoria::ImpostaOraUTC({2026, 11, 23, 9, 5, 0});
  StampaTempoUTC();
  EXPECT_STREQ(DataUTC, "2026.11.23");
  EXPECT_STREQ(OraUTC, "09:05:00");
  memoria::ImpostaOraUTC({2026, 1, 2, 24, 0, 7});
  StampaTempoUTC();
  EXPECT_STREQ(DataUTC, "2026.01.02");
  EXPECT_STREQ(OraUTC, "00:00:07");
  AzzeraTempoUTC();
  EXPECT_STREQ(DataUTC, "?");
  EXPECT_STREQ(OraUTC, "?");
}

}  // namespace
