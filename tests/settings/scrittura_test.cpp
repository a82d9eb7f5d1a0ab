// pendrino.ini as ScriviIni writes it, byte for byte, and the reading of a
// file in blocks against the reading of the same text in memory.
#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "ambiente_parametri.h"

namespace {

using Scrittura = AmbienteParametri;
using ini::FileCon;

TEST_F(Scrittura, IDefaultScrivonoIlFileIntero) {
  ScriviIni();
  ASSERT_TRUE(memoria::EsisteFile(NomeFileIni));
  EXPECT_EQ(memoria::ContenutoFile(NomeFileIni), SulDisco(ini::FILE_DEFAULT));
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Scrittura, IPrimiDueBlocchi) {
  ScriviIni();
  const std::string attesi = SulDisco(
      "\n"
      "periodi (periodi) min: 1 max: 2 default: 1\n"
      "$\tperiodi\t1\n"
      "\n"
      "mosse primo periodo (mosse) min: 10 max: 100 default: 40\n"
      "$\tmosse_primo_periodo\t40\n");
  EXPECT_EQ(memoria::ContenutoFile(NomeFileIni).substr(0, attesi.size()), attesi);
}

TEST_F(Scrittura, IValoriCorrentiNelleRigheDiImpostazioneIDefaultNeiCommenti) {
  ParametroIni[PARAMETRO_PERIODI].valore = 2;
  ParametroIni[PARAMETRO_AGGIORNAMENTO_AUTOMATICO].valore = 0;
  ParametroIni[PARAMETRO_ALLARME1 + 4].valore = 7;
  ScriviIni();
  EXPECT_EQ(memoria::ContenutoFile(NomeFileIni),
            SulDisco(FileCon(
                {{"periodi", 2}, {"aggiornamento_automatico_a_schermo", 0}, {"allarme5", 7}})));
}

TEST_F(Scrittura, NumeriNegativiEGrandiComePrintf) {
  // Not reachable through the reader, but the writer must still print them whole.
  ParametroIni[PARAMETRO_ALLARME1].valore = INT32_MIN;
  ParametroIni[PARAMETRO_ALLARME1 + 1].valore = INT32_MAX;
  ScriviIni();
  EXPECT_EQ(memoria::ContenutoFile(NomeFileIni),
            SulDisco(FileCon({{"allarme1", INT32_MIN}, {"allarme2", INT32_MAX}})));
}

TEST_F(Scrittura, SostituisceIlFileVecchioPerIntero) {
  memoria::ImpostaFile(NomeFileIni, std::string(10000, 'x') + "$ periodi 2\n");
  ScriviIni();
  EXPECT_EQ(memoria::ContenutoFile(NomeFileIni), SulDisco(ini::FILE_DEFAULT));
}

TEST_F(Scrittura, UnFileCheNonSiPuoScrivereNonELoSchiantoNeUnAvviso) {
  memoria::ImpostaFile(NomeFileIni, "vecchio");
  memoria::ImpostaSolaLettura(true);
  ScriviIni();
  EXPECT_EQ(memoria::ContenutoFile(NomeFileIni), "vecchio");
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Scrittura, LetturaEScritturaTornanoAgliStessiValori) {
  ParametroIni[PARAMETRO_MOSSE_PRIMO_PERIODO].valore = 55;
  ParametroIni[PARAMETRO_INCREMENTO_SECONDO_PERIODO].valore = 600;
  ScriviIni();
  const std::vector<int32_t> scritti = ini::Valori();
  DefaultIni();
  LeggiIni();
  EXPECT_EQ(ini::Valori(), scritti);
  EXPECT_TRUE(memoria::Finestre().empty());
}

// A comment of `n` bytes, without '$'.
std::string Imbottitura(size_t n) { return std::string(n, '#'); }

TEST_F(Scrittura, UnaRigaACavalloDiDueBlocchiSiLeggeIntera) {
  const std::string riga = "$\tperiodi\t2\n";
  // The setting line starts on either side of every block edge the reader
  // could use, from 1 to 64 KiB.
  for (size_t bordo = 1; bordo <= 65536; bordo *= 2) {
    for (size_t prima = bordo > riga.size() ? bordo - riga.size() : 0; prima <= bordo; ++prima) {
      memoria::Azzera();
      memoria::ImpostaFile(NomeFileIni, Imbottitura(prima) + riga + FileCon({}, {"periodi"}));
      DefaultIni();
      LeggiIni();
      ASSERT_EQ(Parametro(PARAMETRO_PERIODI), 2) << prima;
      ASSERT_TRUE(memoria::Finestre().empty()) << prima;
    }
  }
}

TEST_F(Scrittura, IlFileSiLeggeComeIlTestoInMemoria) {
  // Random bytes with many '$': whatever they say, reading them from the
  // file and from memory must agree on the values and on the notices.
  std::mt19937 generatore(424242);
  const char* const pezzi[] = {"$", " ", "\t", "\n", "periodi", "allarme1",           "allarme5",
                               "7", "-", "+",  "3",  "x",       "mosse_primo_periodo"};
  for (int prova = 0; prova < 40; ++prova) {
    std::string testo;
    const size_t lunghezza = size_t(generatore() % 20000);
    while (testo.size() < lunghezza) {
      if (generatore() % 4 == 0)
        testo += char(generatore() & 0xFF);
      else
        testo += pezzi[generatore() % std::size(pezzi)];
    }
    memoria::Azzera();
    const EsitoIni esito = ini::LeggiCopia(testo);
    const std::vector<int32_t> valori = ini::Valori();
    std::vector<std::string> avvisi = ini::Avvisi();
    if (esito == EsitoIni::ChiaveSconosciuta) avvisi.push_back(ini::NON_LEGGIBILE);
    if (esito == EsitoIni::Incompleto) avvisi.push_back(ini::INCOMPLETO);

    memoria::Azzera();
    memoria::ImpostaFile(NomeFileIni, testo);
    ini::ValoriNonDefault();
    LeggiIni();
    ASSERT_EQ(ini::Valori(), valori) << prova;
    ASSERT_EQ(ini::Avvisi(), avvisi) << prova;
    EXPECT_EQ(memoria::ContenutoFile(NomeFileIni) == testo, esito == EsitoIni::Completo) << prova;
  }
}

}  // namespace
