// The table's rows, the reset to defaults and the notice for a value out of
// range.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "ambiente_parametri.h"

namespace {

using Tabella = AmbienteParametri;

struct RigaAttesa {
  const char* chiave;
  const char* descrizione;
  const char* unita;
  int32_t valore_default, minimo, massimo;
};

constexpr RigaAttesa RIGHE[NUMERO_PARAMETRI] = {
    {"periodi", "periodi", "periodi", 1, 1, 2},
    {"mosse_primo_periodo", "mosse primo periodo", "mosse", 40, 10, 100},
    {"tempo_primo_periodo", "tempo primo periodo", "minuti", 120, 1, 720},
    {"incremento_primo_periodo", "incremento primo periodo", "secondi", 0, 0, 600},
    {"tempo_secondo_periodo", "tempo secondo periodo", "minuti", 30, 1, 720},
    {"incremento_secondo_periodo", "incremento secondo periodo", "secondi", 0, 0, 600},
    {"aggiornamento_automatico_a_schermo", "Aggiornamento automatico a schermo del tempo in moto",
     "valore booleano", 1, 0, 1},
    {"allarme1", "primo allarme", "minuti", 15, 0, 720},
    {"allarme2", "secondo allarme", "minuti", 30, 0, 720},
    {"allarme3", "terzo allarme", "minuti", 60, 0, 720},
    {"allarme4", "quarto allarme", "minuti", 90, 0, 720},
    {"allarme5", "quinto allarme", "minuti", 120, 0, 720},
};

TEST_F(Tabella, DodiciRigheInOrdineConChiaviDescrizioniUnitaELimiti) {
  static_assert(NUMERO_PARAMETRI == 12);
  static_assert(sizeof(RigaIni::chiave) == 64 && sizeof(RigaIni::descrizione) == 64 &&
                sizeof(RigaIni::unita) == 16);
  for (int r = 0; r < NUMERO_PARAMETRI; ++r) {
    const RigaIni& riga = ParametroIni[r];
    EXPECT_STREQ(riga.chiave, RIGHE[r].chiave) << r;
    EXPECT_STREQ(riga.descrizione, RIGHE[r].descrizione) << r;
    EXPECT_STREQ(riga.unita, RIGHE[r].unita) << r;
    EXPECT_EQ(riga.valore_default, RIGHE[r].valore_default) << r;
    EXPECT_EQ(riga.minimo, RIGHE[r].minimo) << r;
    EXPECT_EQ(riga.massimo, RIGHE[r].massimo) << r;
    EXPECT_EQ(Parametro(r), RIGHE[r].valore_default) << r;
  }
  EXPECT_STREQ(NomeFileIni, "pendrino.ini");
  EXPECT_EQ(PARAMETRO_AGGIORNAMENTO_AUTOMATICO, 6);
  EXPECT_EQ(PARAMETRO_ALLARME1, 7);
}

TEST_F(Tabella, SoloLaSettimaDescrizioneHaLaMaiuscola) {
  for (int r = 0; r < NUMERO_PARAMETRI; ++r) {
    const char prima = ParametroIni[r].descrizione[0];
    EXPECT_EQ(prima >= 'A' && prima <= 'Z', r == PARAMETRO_AGGIORNAMENTO_AUTOMATICO) << r;
  }
}

TEST_F(Tabella, DefaultIniRiportaOgniValoreAlSuoDefaultESoloQuello) {
  ini::ValoriNonDefault();
  DefaultIni();
  EXPECT_EQ(ini::Valori(), ini::ValoriCon({}));
  for (int r = 0; r < NUMERO_PARAMETRI; ++r) {
    EXPECT_EQ(ParametroIni[r].minimo, RIGHE[r].minimo);
    EXPECT_EQ(ParametroIni[r].massimo, RIGHE[r].massimo);
    EXPECT_EQ(ParametroIni[r].valore_default, RIGHE[r].valore_default);
  }
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Tabella, AvvisoDelValoreErratoPerLaPrimaRiga) {
  AvisaValoreIniErrato(PARAMETRO_PERIODI);
  ASSERT_EQ(ini::Avvisi(), std::vector<std::string>{
                               "Errore in pendrino.ini: - valore non valido per \"periodi\".\n"
                               "i valori ammessi sono compresi nell'intervallo ( 1 - 2).\n"
                               "Verra' ripristinato il suo valore default ( 1 periodi )."});
  // Composed in the shared message text.
  EXPECT_EQ(std::string(messaggio), memoria::Finestre()[0].testo);
}

TEST_F(Tabella, AvvisoDelValoreErratoPerLaRigaBooleanaEPerUnAllarme) {
  AvisaValoreIniErrato(PARAMETRO_AGGIORNAMENTO_AUTOMATICO);
  AvisaValoreIniErrato(PARAMETRO_ALLARME1 + 4);
  AvisaValoreIniErrato(PARAMETRO_MOSSE_PRIMO_PERIODO);
  EXPECT_EQ(ini::Avvisi(),
            (std::vector<std::string>{
                "Errore in pendrino.ini: - valore non valido per \"Aggiornamento automatico a "
                "schermo del tempo in moto\".\ni valori ammessi sono compresi nell'intervallo "
                "( 0 - 1).\nVerra' ripristinato il suo valore default ( 1 valore booleano ).",
                "Errore in pendrino.ini: - valore non valido per \"quinto allarme\".\ni valori "
                "ammessi sono compresi nell'intervallo ( 0 - 720).\nVerra' ripristinato il suo "
                "valore default ( 120 minuti ).",
                "Errore in pendrino.ini: - valore non valido per \"mosse primo periodo\".\ni "
                "valori ammessi sono compresi nell'intervallo ( 10 - 100).\nVerra' ripristinato "
                "il suo valore default ( 40 mosse )."}));
}

TEST_F(Tabella, AvvisoDelValoreErratoIndicaIlDefaultNonIlValoreCorrente) {
  ParametroIni[PARAMETRO_INCREMENTO_PRIMO_PERIODO].valore = 77;
  AvisaValoreIniErrato(PARAMETRO_INCREMENTO_PRIMO_PERIODO);
  EXPECT_EQ(ini::Avvisi(), std::vector<std::string>{ini::ValoreErrato(3)});
  EXPECT_EQ(Parametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO), 77);
}

TEST_F(Tabella, AvvisoDelValoreErratoIgnoraUnaRigaInesistente) {
  AvisaValoreIniErrato(-1);
  AvisaValoreIniErrato(NUMERO_PARAMETRI);
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Tabella, AvvisoDelValoreErratoEseguePoiIlRitornoDelFuoco) {
  static int chiamate;
  chiamate = 0;
  InstallaDopoFinestra([] { ++chiamate; });
  AvisaValoreIniErrato(PARAMETRO_ALLARME1 + 1);
  EXPECT_EQ(chiamate, 1);
  EXPECT_EQ(ini::Avvisi(), std::vector<std::string>{ini::ValoreErrato(8)});
}

}  // namespace
