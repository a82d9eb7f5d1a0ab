// pendrino.ini read at start-up from the in-memory file store: for each file,
// the boxes shown in order, the values loaded, and whether the file is left
// alone or rewritten (and then its exact bytes).
#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "ambiente_parametri.h"

namespace {

using ini::FileCon;
using ini::Valori;
using ini::ValoriCon;

enum class Esito {
  Intatto,    // the file is left as it was
  Riscritto,  // the file now holds `scritto` (POSIX form)
  Assente,    // there is still no file
};

enum class Disco {
  Normale,
  SolaLettura,
  Pieno,  // room for a few bytes beside the file, not for a new one
};

struct Caso {
  const char* nome;
  std::optional<std::string> file;  // nullopt: no file
  std::vector<std::string> avvisi;
  std::vector<int32_t> valori;
  Esito esito;
  std::string scritto = {};
  Disco disco = Disco::Normale;
  // Whether ScriviIni is called: always for a rewritten file, and for a
  // file that should be rewritten on a disk that refuses it.
  bool scrittura_tentata = false;
};

std::string Sostituisci(std::string testo, const std::string& da, const std::string& a) {
  const size_t dove = testo.find(da);
  if (dove == std::string::npos) {
    ADD_FAILURE() << "no " << da;
    return testo;
  }
  return testo.replace(dove, da.size(), a);
}

std::string ConSpazi(const std::string& testo) {
  std::string spazi;
  for (char c : testo) spazi += c == '\t' ? std::string(" ") : std::string(1, c);
  return spazi;
}

// `n` bytes from a fixed seed, with no '$' among them: no setting line.
std::string ByteCasuali(size_t n, uint32_t seme) {
  std::mt19937 generatore(seme);
  std::string byte(n, '\0');
  for (char& c : byte) {
    c = char(generatore() & 0xFF);
    if (c == '$') c = '#';
  }
  return byte;
}

const std::string DEFAULT = ini::FILE_DEFAULT;
const std::string CAMBIATI = FileCon({{"periodi", 2},
                                      {"mosse_primo_periodo", 30},
                                      {"tempo_primo_periodo", 90},
                                      {"incremento_primo_periodo", 30},
                                      {"tempo_secondo_periodo", 15},
                                      {"incremento_secondo_periodo", 10},
                                      {"aggiornamento_automatico_a_schermo", 0},
                                      {"allarme1", 1},
                                      {"allarme2", 2},
                                      {"allarme3", 3},
                                      {"allarme4", 4},
                                      {"allarme5", 5}});
const std::vector<int32_t> VALORI_CAMBIATI = {2, 30, 90, 30, 15, 10, 0, 1, 2, 3, 4, 5};

std::vector<Caso> Casi() {
  using namespace ini;
  const std::vector<int32_t> D = ValoriCon({});
  return {
      {"file_mancante", std::nullopt, {NON_TROVATO}, D, Esito::Riscritto, DEFAULT},
      {"file_default", DEFAULT, {}, D, Esito::Intatto},
      {"tutti_i_valori_cambiati", CAMBIATI, {}, VALORI_CAMBIATI, Esito::Intatto},
      {"chiave_sconosciuta_in_fondo",
       FileCon({{"periodi", 2}}) + "$\tallarme6\t5\n",
       {NON_LEGGIBILE},
       D,
       Esito::Riscritto,
       DEFAULT},
      {"chiave_sconosciuta_in_testa",
       "$\tsconosciuta\t1\n" + CAMBIATI,
       {NON_LEGGIBILE},
       D,
       Esito::Riscritto,
       DEFAULT},
      {"chiave_sconosciuta_nel_mezzo",
       Sostituisci(CAMBIATI, "$\tallarme3\t3\n", "$\tallarme3\t3\n$\tallarmi\t3\n"),
       {NON_LEGGIBILE},
       D,
       Esito::Riscritto,
       DEFAULT},
      {"chiave_con_la_maiuscola",
       Sostituisci(CAMBIATI, "$\tperiodi\t", "$\tPeriodi\t"),
       {NON_LEGGIBILE},
       D,
       Esito::Riscritto,
       DEFAULT},
      {"valore_fuori_e_poi_chiave_sconosciuta",
       FileCon({{"periodi", 3}}) + "$\tALLARME1\t5\n",
       {ValoreErrato(0), NON_LEGGIBILE},
       D,
       Esito::Riscritto,
       DEFAULT},
      {"sotto_il_minimo",
       FileCon({{"mosse_primo_periodo", 9}, {"allarme1", 20}}),
       {ValoreErrato(1)},
       ValoriCon({{7, 20}}),
       Esito::Intatto},
      {"sopra_il_massimo",
       FileCon({{"periodi", 3}, {"allarme1", 20}}),
       {ValoreErrato(0)},
       ValoriCon({{7, 20}}),
       Esito::Intatto},
      {"piu_valori_fuori_intervallo",
       FileCon({{"periodi", 0},
                {"incremento_primo_periodo", 601},
                {"tempo_secondo_periodo", 0},
                {"aggiornamento_automatico_a_schermo", 2},
                {"allarme1", 20},
                {"allarme5", 721}}),
       {ValoreErrato(0), ValoreErrato(3), ValoreErrato(4), ValoreErrato(6), ValoreErrato(11)},
       ValoriCon({{7, 20}}),
       Esito::Intatto},
      {"chiave_mancante",
       FileCon({{"periodi", 2}, {"allarme1", 20}}, {"allarme3"}),
       {INCOMPLETO},
       ValoriCon({{0, 2}, {7, 20}}),
       Esito::Riscritto,
       FileCon({{"periodi", 2}, {"allarme1", 20}})},
      {"chiave_mancante_e_valore_fuori",
       FileCon({{"periodi", 3}, {"allarme1", 20}}, {"tempo_primo_periodo"}),
       {ValoreErrato(0), INCOMPLETO},
       ValoriCon({{7, 20}}),
       Esito::Riscritto,
       FileCon({{"allarme1", 20}})},
      {"solo_la_prima_chiave",
       "$\tperiodi\t2\n",
       {INCOMPLETO},
       ValoriCon({{0, 2}}),
       Esito::Riscritto,
       FileCon({{"periodi", 2}})},
      {"chiave_doppia_vince_l_ultima",
       FileCon({{"allarme2", 40}}) + "$\tallarme2\t45\n",
       {},
       ValoriCon({{8, 45}}),
       Esito::Intatto},
      {"chiave_doppia_l_ultima_non_valida",
       FileCon({{"allarme2", 45}}) + "$\tallarme2\t721\n",
       {ValoreErrato(8)},
       ValoriCon({{8, 45}}),
       Esito::Intatto},
      {"numero_illeggibile",
       Sostituisci(DEFAULT, "$\tperiodi\t1", "$\tperiodi\tx"),
       {ValoreErrato(0)},
       D,
       Esito::Intatto},
      {"numero_illeggibile_con_spazio",
       Sostituisci(CAMBIATI, "$\tperiodi\t2", "$ periodi x"),
       {ValoreErrato(0)},
       ValoriCon({{1, 30},
                  {2, 90},
                  {3, 30},
                  {4, 15},
                  {5, 10},
                  {6, 0},
                  {7, 1},
                  {8, 2},
                  {9, 3},
                  {10, 4},
                  {11, 5}}),
       Esito::Intatto},
      {"file_vuoto", "", {INCOMPLETO}, D, Esito::Riscritto, DEFAULT},
      {"solo_commenti",
       "; impostazioni\nperiodi (periodi) min: 1 max: 2 default: 1\nperiodi 2\n\n",
       {INCOMPLETO},
       D,
       Esito::Riscritto,
       DEFAULT},
      {"fine_riga_crlf", ConCrLf(CAMBIATI), {}, VALORI_CAMBIATI, Esito::Intatto},
      {"senza_fine_riga_finale",
       CAMBIATI.substr(0, CAMBIATI.size() - 1),
       {},
       VALORI_CAMBIATI,
       Esito::Intatto},
      {"un_mega_di_byte_casuali",
       ByteCasuali(1 << 20, 20240607),
       {INCOMPLETO},
       D,
       Esito::Riscritto,
       DEFAULT},
      {"un_mega_di_byte_casuali_e_poi_il_file",
       ByteCasuali(1 << 20, 7) + "\n" + CAMBIATI,
       {},
       VALORI_CAMBIATI,
       Esito::Intatto},
      {"dollaro_in_un_commento",
       Sostituisci(CAMBIATI, "primo allarme (minuti)", "primo allarme in $ (minuti)"),
       {NON_LEGGIBILE},
       D,
       Esito::Riscritto,
       DEFAULT},
      {"dollaro_in_un_commento_seguito_da_una_chiave",
       Sostituisci(CAMBIATI, "primo allarme (minuti)", "primo allarme $allarme1 7 (minuti)"),
       {},
       VALORI_CAMBIATI,
       Esito::Intatto},
      {"spazi_al_posto_delle_tabulazioni", ConSpazi(CAMBIATI), {}, VALORI_CAMBIATI, Esito::Intatto},
      {"chiave_e_numero_su_righe_diverse",
       Sostituisci(CAMBIATI, "$\tallarme4\t4\n", "$\n\tallarme4\n\n  4\n"),
       {},
       VALORI_CAMBIATI,
       Esito::Intatto},
      {"numero_negativo", FileCon({{"allarme1", -5}}), {ValoreErrato(7)}, D, Esito::Intatto},
      {"meno_zero",
       Sostituisci(DEFAULT, "$\tallarme1\t15", "$\tallarme1\t-0"),
       {},
       ValoriCon({{7, 0}}),
       Esito::Intatto},
      {"numero_con_il_piu",
       Sostituisci(DEFAULT, "$\tallarme2\t30", "$\tallarme2\t+31"),
       {},
       ValoriCon({{8, 31}}),
       Esito::Intatto},
      {"zeri_iniziali",
       Sostituisci(DEFAULT, "$\ttempo_primo_periodo\t120",
                   "$\ttempo_primo_periodo\t0000000000000000000720"),
       {},
       ValoriCon({{2, 720}}),
       Esito::Intatto},
      {"numero_di_40_cifre",
       Sostituisci(DEFAULT, "$\tperiodi\t1",
                   "$\tperiodi\t1234567890123456789012345678901234567890"),
       {ValoreErrato(0)},
       D,
       Esito::Intatto},
      {"numero_oltre_32_bit_che_ne_ricorda_uno_valido",
       Sostituisci(DEFAULT, "$\tperiodi\t1", "$\tperiodi\t4294967298"),
       {ValoreErrato(0)},
       D,
       Esito::Intatto},
      {"numero_seguito_da_lettere",
       Sostituisci(DEFAULT, "$\tallarme3\t60", "$\tallarme3\t45min"),
       {},
       ValoriCon({{9, 45}}),
       Esito::Intatto},
      {"chiave_in_fondo_senza_numero",
       CAMBIATI + "$\tallarme4",
       {ValoreErrato(10)},
       VALORI_CAMBIATI,
       Esito::Intatto},
      {"l_ultima_chiave_senza_numero_conta_come_trovata",
       FileCon({}, {"allarme5"}) + "$\tallarme5\n",
       {ValoreErrato(11)},
       D,
       Esito::Intatto},
      {"dollaro_ultimo_byte", CAMBIATI + "$", {}, VALORI_CAMBIATI, Esito::Intatto},
      {"dollaro_ultimo_byte_di_un_file_incompleto",
       FileCon({{"periodi", 2}}, {"allarme5"}) + "$",
       {INCOMPLETO},
       ValoriCon({{0, 2}}),
       Esito::Riscritto,
       FileCon({{"periodi", 2}})},
      {"chiave_di_200_caratteri",
       CAMBIATI + "$\t" + std::string(200, 'a') + "\t1\n",
       {NON_LEGGIBILE},
       D,
       Esito::Riscritto,
       DEFAULT},
      {"chiave_di_200_caratteri_in_fondo",
       CAMBIATI + "$\t" + std::string(200, 'p'),
       {NON_LEGGIBILE},
       D,
       Esito::Riscritto,
       DEFAULT},
      {"byte_nulli_nei_commenti",
       Sostituisci(CAMBIATI, "primo allarme", std::string("primo\0\0allarme\0", 15)),
       {},
       VALORI_CAMBIATI,
       Esito::Intatto},
      {"byte_nullo_nella_chiave",
       Sostituisci(CAMBIATI, "$\tallarme1\t", std::string("$\tallarme1\0\t", 12)),
       {NON_LEGGIBILE},
       D,
       Esito::Riscritto,
       DEFAULT},
      {"sola_lettura_file_mancante",
       std::nullopt,
       {NON_TROVATO},
       D,
       Esito::Assente,
       {},
       Disco::SolaLettura,
       true},
      {"sola_lettura_chiave_mancante",
       FileCon({{"periodi", 2}}, {"allarme3"}),
       {INCOMPLETO},
       ValoriCon({{0, 2}}),
       Esito::Intatto,
       {},
       Disco::SolaLettura,
       true},
      {"sola_lettura_chiave_sconosciuta",
       CAMBIATI + "$ x 1",
       {NON_LEGGIBILE},
       D,
       Esito::Intatto,
       {},
       Disco::SolaLettura,
       true},
      {"sola_lettura_valore_fuori",
       FileCon({{"periodi", 3}}),
       {ValoreErrato(0)},
       D,
       Esito::Intatto,
       {},
       Disco::SolaLettura,
       false},
      {"disco_pieno_file_mancante",
       std::nullopt,
       {NON_TROVATO},
       D,
       Esito::Assente,
       {},
       Disco::Pieno,
       true},
      {"disco_pieno_chiave_mancante",
       FileCon({{"allarme4", 80}}, {"periodi"}),
       {INCOMPLETO},
       ValoriCon({{10, 80}}),
       Esito::Intatto,
       {},
       Disco::Pieno,
       true},
  };
}

class LetturaFile : public AmbienteParametri, public ::testing::WithParamInterface<Caso> {};

TEST_P(LetturaFile, AvvisiValoriEFile) {
  const Caso& caso = GetParam();
  if (caso.file) memoria::ImpostaFile(NomeFileIni, *caso.file);
  if (caso.disco == Disco::SolaLettura) memoria::ImpostaSolaLettura(true);
  if (caso.disco == Disco::Pieno) memoria::ImpostaCapienzaFile(caso.file.value_or("").size() + 100);
  ini::ValoriNonDefault();

  LeggiIni();

  EXPECT_EQ(ini::Avvisi(), caso.avvisi);
  EXPECT_EQ(Valori(), caso.valori);
  EXPECT_EQ(memoria::ScrittureFile(),
            caso.esito == Esito::Riscritto || caso.scrittura_tentata ? 1u : 0u);
  switch (caso.esito) {
    case Esito::Intatto:
      ASSERT_TRUE(caso.file.has_value());
      ASSERT_TRUE(memoria::EsisteFile(NomeFileIni));
      EXPECT_EQ(memoria::ContenutoFile(NomeFileIni), *caso.file);
      break;
    case Esito::Riscritto:
      ASSERT_TRUE(memoria::EsisteFile(NomeFileIni));
      EXPECT_EQ(memoria::ContenutoFile(NomeFileIni), SulDisco(caso.scritto));
      break;
    case Esito::Assente:
      EXPECT_FALSE(memoria::EsisteFile(NomeFileIni));
      break;
  }
  if (caso.esito != Esito::Riscritto) return;

  // What was written reads back complete, silently, to the same values.
  memoria::Azzera();
  memoria::ImpostaFile(NomeFileIni, SulDisco(caso.scritto));
  ini::ValoriNonDefault();
  LeggiIni();
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_EQ(Valori(), caso.valori);
  EXPECT_EQ(memoria::ContenutoFile(NomeFileIni), SulDisco(caso.scritto));
}

INSTANTIATE_TEST_SUITE_P(File, LetturaFile, ::testing::ValuesIn(Casi()),
                         [](const ::testing::TestParamInfo<Caso>& info) {
                           return std::string(info.param.nome);
                         });

}  // namespace
