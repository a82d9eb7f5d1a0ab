// preferenze.ini: the second settings file, read and written with the same
// rules and notices as pendrino.ini, its own rows and its own name.
#include <gtest/gtest.h>

#include <string>

#include "ambiente_parametri.h"

namespace {

// In POSIX form, as the program writes it with every value at its default.
const char* const PREFERENZE_DEFAULT =
    "\n"
    "lettore di schermo (valore booleano) min: 0 max: 1 default: 0\n"
    "$\tlettore_di_schermo\t0\n"
    "\n"
    "voce del programma (valore booleano) min: 0 max: 1 default: 0\n"
    "$\tvoce\t0\n";

class Preferenze : public AmbienteParametri {
 protected:
  void SetUp() override {
    AmbienteParametri::SetUp();
    DefaultTabella(TabellaPreferenze);
  }
};

TEST_F(Preferenze, LaTabellaEIlSuoFile) {
  EXPECT_STREQ(TabellaPreferenze.nome_file, "preferenze.ini");
  EXPECT_EQ(TabellaPreferenze.numero, NUMERO_PREFERENZE);
  EXPECT_STREQ(PreferenzaIni[PREFERENZA_LETTORE_DI_SCHERMO].chiave, "lettore_di_schermo");
  EXPECT_EQ(Preferenza(PREFERENZA_LETTORE_DI_SCHERMO), 0);
  ScriviTabella(TabellaPreferenze);
  EXPECT_EQ(memoria::ContenutoFile("preferenze.ini"), SulDisco(PREFERENZE_DEFAULT));
}

TEST_F(Preferenze, FileMancanteAvvisaEScriveIDefault) {
  ImpostaPreferenza(PREFERENZA_LETTORE_DI_SCHERMO, 1);
  LeggiTabella(TabellaPreferenze);
  EXPECT_EQ(ini::Avvisi(), std::vector<std::string>{"Non ho trovato preferenze.ini.\nVerranno "
                                                    "ripristinati i valori default."});
  EXPECT_EQ(Preferenza(PREFERENZA_LETTORE_DI_SCHERMO), 0);
  EXPECT_EQ(memoria::ContenutoFile("preferenze.ini"), SulDisco(PREFERENZE_DEFAULT));
  // pendrino.ini is another file: untouched.
  EXPECT_FALSE(memoria::EsisteFile("pendrino.ini"));
}

TEST_F(Preferenze, UnValoreLettoInSilenzio) {
  memoria::ImpostaFile("preferenze.ini", "$ lettore_di_schermo 1\n$ voce 0\n");
  LeggiTabella(TabellaPreferenze);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_EQ(Preferenza(PREFERENZA_LETTORE_DI_SCHERMO), 1);
  // A whole file is left as it is.
  EXPECT_EQ(memoria::ContenutoFile("preferenze.ini"), "$ lettore_di_schermo 1\n$ voce 0\n");
}

TEST_F(Preferenze, UnaChiaveSconosciutaRipristinaTutto) {
  memoria::ImpostaFile("preferenze.ini", "$ lettore_di_schermo 1\n$ periodi 2\n");
  LeggiTabella(TabellaPreferenze);
  EXPECT_EQ(ini::Avvisi(), std::vector<std::string>{"'preferenze.ini' non leggibile.\nVerranno "
                                                    "ripristinati i valori default."});
  EXPECT_EQ(Preferenza(PREFERENZA_LETTORE_DI_SCHERMO), 0);
  EXPECT_EQ(memoria::ContenutoFile("preferenze.ini"), SulDisco(PREFERENZE_DEFAULT));
}

TEST_F(Preferenze, UnValoreFuoriIntervalloSiDiceESiTieneIlDefault) {
  memoria::ImpostaFile("preferenze.ini", "$ lettore_di_schermo 2\n$ voce 0\n");
  LeggiTabella(TabellaPreferenze);
  EXPECT_EQ(ini::Avvisi(),
            std::vector<std::string>{
                "Errore in preferenze.ini: - valore non valido per \"lettore di schermo\".\n"
                "i valori ammessi sono compresi nell'intervallo ( 0 - 1).\n"
                "Verra' ripristinato il suo valore default ( 0 valore booleano )."});
  EXPECT_EQ(Preferenza(PREFERENZA_LETTORE_DI_SCHERMO), 0);
}

TEST_F(Preferenze, UnFileVuotoEIncompleto) {
  memoria::ImpostaFile("preferenze.ini", "\n");
  LeggiTabella(TabellaPreferenze);
  EXPECT_EQ(ini::Avvisi(),
            std::vector<std::string>{"non ho trovato tutti i parametri in preferenze.ini.\n"
                                     "Verranno ripristinati i loro valori default."});
  EXPECT_EQ(memoria::ContenutoFile("preferenze.ini"), SulDisco(PREFERENZE_DEFAULT));
}

TEST_F(Preferenze, LaChiaveDellePreferenzeInPendrinoIniLoRipristina) {
  // pendrino.ini stays as it was made: a key it does not know resets it.
  memoria::ImpostaFile("pendrino.ini", std::string(ini::FILE_DEFAULT) + "$ lettore_di_schermo 1\n");
  LeggiIni();
  EXPECT_EQ(ini::Avvisi(), std::vector<std::string>{ini::NON_LEGGIBILE});
  EXPECT_EQ(Preferenza(PREFERENZA_LETTORE_DI_SCHERMO), 0);
}

}  // namespace
