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
    "$\tvoce\t0\n"
    "\n"
    "nome del bianco (testo, anche vuoto)\n"
    "$\tbianco\t\n"
    "\n"
    "nome del nero (testo, anche vuoto)\n"
    "$\tnero\t\n"
    "\n"
    "evento (testo, anche vuoto)\n"
    "$\tevento\t\n"
    "\n"
    "luogo (testo, anche vuoto)\n"
    "$\tluogo\t\n"
    "\n"
    "turno (testo, anche vuoto)\n"
    "$\tturno\t\n";

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

TEST_F(Preferenze, INomiFinoAFineRiga) {
  memoria::ImpostaFile("preferenze.ini",
                       "$ lettore_di_schermo 0\n$ voce 0\n$\tbianco\tMario  Rossi  \r\n"
                       "$ nero \t Anna \"la rossa\" Bianchi\n$ evento\n$ luogo Roma\n$ turno\t3");
  LeggiTabella(TabellaPreferenze);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_STREQ(Nome(NOME_BIANCO), "Mario  Rossi");
  EXPECT_STREQ(Nome(NOME_NERO), "Anna \"la rossa\" Bianchi");
  // A key at the line's end has no text: the next line is not its name.
  EXPECT_STREQ(Nome(NOME_EVENTO), "");
  EXPECT_STREQ(Nome(NOME_LUOGO), "Roma");
  EXPECT_STREQ(Nome(NOME_TURNO), "3");
}

TEST_F(Preferenze, INomiSonoFacoltativi) {
  ImpostaNome(NOME_BIANCO, "Rossi");
  memoria::ImpostaFile("preferenze.ini", "$ lettore_di_schermo 1\n$ voce 0\n");
  LeggiTabella(TabellaPreferenze);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_EQ(Preferenza(PREFERENZA_LETTORE_DI_SCHERMO), 1);
  EXPECT_STREQ(Nome(NOME_BIANCO), "");
}

TEST_F(Preferenze, UnNomeTroppoLungoPerdeLaFineEIlCarattereSpezzato) {
  // 62 bytes, then a two-byte letter that does not fit whole.
  const std::string lungo = std::string(62, 'a') + "\xC3\xA8" + "zzz";
  ImpostaNome(NOME_EVENTO, lungo.c_str());
  EXPECT_EQ(std::string(Nome(NOME_EVENTO)), std::string(62, 'a'));
  ImpostaNome(NOME_EVENTO, "Torneo\tdi prova");
  EXPECT_STREQ(Nome(NOME_EVENTO), "Torneo");
}

TEST_F(Preferenze, INomiTornanoNelFile) {
  ImpostaNome(NOME_BIANCO, "Mario Rossi");
  ImpostaNome(NOME_TURNO, "2.1");
  ScriviTabella(TabellaPreferenze);
  ImpostaNome(NOME_BIANCO, "");
  ImpostaNome(NOME_TURNO, "");
  LeggiTabella(TabellaPreferenze);
  EXPECT_STREQ(Nome(NOME_BIANCO), "Mario Rossi");
  EXPECT_STREQ(Nome(NOME_TURNO), "2.1");
  EXPECT_STREQ(Nome(NOME_NERO), "");
}

}  // namespace
