// The reading of a settings text without the file: what is taken from the
// setting lines, what is skipped, and that a text fed in pieces reads as the
// whole text does.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "ambiente_parametri.h"
#include "settings/lettore_ini.h"

namespace {

using LetturaTesto = AmbienteParametri;
using ini::FileCon;
using ini::LeggiCopia;
using ini::Valori;
using ini::ValoriCon;

TEST_F(LetturaTesto, IlFileDefaultECompletoSenzaAvvisi) {
  ini::ValoriNonDefault();
  EXPECT_EQ(LeggiCopia(ini::FILE_DEFAULT), EsitoIni::Completo);
  EXPECT_EQ(Valori(), ValoriCon({}));
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(LetturaTesto, OgniValoreDelFileVaNellaTabella) {
  const std::string testo = FileCon({{"periodi", 2},
                                     {"mosse_primo_periodo", 10},
                                     {"tempo_primo_periodo", 720},
                                     {"incremento_primo_periodo", 600},
                                     {"tempo_secondo_periodo", 1},
                                     {"incremento_secondo_periodo", 5},
                                     {"aggiornamento_automatico_a_schermo", 0},
                                     {"allarme1", 0},
                                     {"allarme2", 1},
                                     {"allarme3", 2},
                                     {"allarme4", 3},
                                     {"allarme5", 720}});
  EXPECT_EQ(LeggiCopia(testo), EsitoIni::Completo);
  EXPECT_EQ(Valori(), (std::vector<int32_t>{2, 10, 720, 600, 1, 5, 0, 0, 1, 2, 3, 720}));
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(LetturaTesto, LaLetturaPartedaiDefaultNonDaiValoriPrecedenti) {
  ini::ValoriNonDefault();
  EXPECT_EQ(LeggiCopia("$ periodi 2\n"), EsitoIni::Incompleto);
  EXPECT_EQ(Valori(), ValoriCon({{0, 2}}));
}

TEST_F(LetturaTesto, UnaChiaveSconosciutaRiportaTuttoAiDefaultSenzaAvvisi) {
  const std::string testo = FileCon({{"periodi", 2}, {"allarme5", 7}}) + "$\tallarme6\t5\n";
  EXPECT_EQ(LeggiCopia(testo), EsitoIni::ChiaveSconosciuta);
  EXPECT_EQ(Valori(), ValoriCon({}));
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(LetturaTesto, DopoUnaChiaveSconosciutaNonSiLeggePiuNulla) {
  // The out-of-range value after the unknown key is never reached.
  EXPECT_EQ(LeggiCopia("$ allarme1 5\n$ ignota 1\n$ periodi 9\n"), EsitoIni::ChiaveSconosciuta);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_EQ(Valori(), ValoriCon({}));
}

TEST_F(LetturaTesto, LeChiaviDistinguonoMaiuscoleEMinuscole) {
  EXPECT_EQ(LeggiCopia("$\tPeriodi\t2\n"), EsitoIni::ChiaveSconosciuta);
  EXPECT_EQ(LeggiCopia("$\tALLARME1\t2\n"), EsitoIni::ChiaveSconosciuta);
  EXPECT_EQ(Valori(), ValoriCon({}));
}

TEST_F(LetturaTesto, UnaChiaveMancanteLasciaIlSuoDefaultEGliAltriValori) {
  const std::string testo = FileCon({{"periodi", 2}, {"allarme3", 45}}, {"allarme2"});
  EXPECT_EQ(LeggiCopia(testo), EsitoIni::Incompleto);
  EXPECT_EQ(Valori(), ValoriCon({{0, 2}, {9, 45}}));
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(LetturaTesto, UnValoreFuoriIntervalloHaIlSuoAvvisoETieneIlDefault) {
  ini::ValoriNonDefault();
  const std::string testo = FileCon({{"periodi", 3}, {"allarme1", 20}});
  EXPECT_EQ(LeggiCopia(testo), EsitoIni::Completo);
  EXPECT_EQ(ini::Avvisi(), std::vector<std::string>{ini::ValoreErrato(0)});
  EXPECT_EQ(Valori(), ValoriCon({{7, 20}}));
}

TEST_F(LetturaTesto, ILimitiSonoCompresiNellIntervallo) {
  EXPECT_EQ(LeggiCopia("$ mosse_primo_periodo 10 $ tempo_primo_periodo 720 "
                       "$ aggiornamento_automatico_a_schermo 0"),
            EsitoIni::Incompleto);
  EXPECT_EQ(Valori(), ValoriCon({{1, 10}, {2, 720}, {6, 0}}));
  EXPECT_EQ(LeggiCopia("$ mosse_primo_periodo 9 $ tempo_primo_periodo 721 "
                       "$ aggiornamento_automatico_a_schermo -1"),
            EsitoIni::Incompleto);
  EXPECT_EQ(Valori(), ValoriCon({}));
  EXPECT_EQ(ini::Avvisi(), (std::vector<std::string>{ini::ValoreErrato(1), ini::ValoreErrato(2),
                                                     ini::ValoreErrato(6)}));
}

TEST_F(LetturaTesto, UnaChiaveRipetutaPrendeLUltimoValoreValido) {
  EXPECT_EQ(LeggiCopia("$ allarme2 5\n$ allarme2 6\n"), EsitoIni::Incompleto);
  EXPECT_EQ(Valori(), ValoriCon({{8, 6}}));
  EXPECT_EQ(LeggiCopia("$ allarme2 5\n$ allarme2 721\n"), EsitoIni::Incompleto);
  EXPECT_EQ(Valori(), ValoriCon({{8, 5}}));
  EXPECT_EQ(ini::Avvisi(), std::vector<std::string>{ini::ValoreErrato(8)});
}

TEST_F(LetturaTesto, NumeriComeLiLeggeScanf) {
  struct Caso {
    const char* testo;
    int32_t valore;  // of allarme1
  };
  const Caso casi[] = {
      {"$ allarme1 +25", 25},
      {"$ allarme1 -0", 0},
      {"$ allarme1 0007", 7},
      {"$allarme1\n\n\t 8\n", 8},
      {"$\n\nallarme1\n9", 9},
      {"$ allarme1 10abc", 10},
      {"$ allarme1 11.5", 11},
      {"$\vallarme1\f12\r", 12},
      {"$ allarme1 00000000000013", 13},
      {"$ allarme1 1$allarme1 14", 14},
  };
  for (const Caso& caso : casi) {
    EXPECT_EQ(LeggiCopia(caso.testo), EsitoIni::Incompleto) << caso.testo;
    EXPECT_EQ(Parametro(PARAMETRO_ALLARME1), caso.valore) << caso.testo;
  }
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(LetturaTesto, UnNumeroIlleggibileETrattatoComeFuoriIntervallo) {
  const char* const testi[] = {
      "$ periodi x",
      "$ periodi -",
      "$ periodi +",
      "$ periodi +-2",
      "$ periodi 2147483648",
      "$ periodi -2147483649",
      "$ periodi 1234567890123456789012345678901234567890",
      "$ periodi",
      "$ periodi \n\n",
      "$ periodi $",
  };
  for (const char* testo : testi) {
    memoria::Azzera();
    LettoreIni lettore;
    lettore.Avvia();
    lettore.Leggi(testo, std::strlen(testo));
    EXPECT_EQ(lettore.Fine(), EsitoIni::Incompleto) << testo;
    // The row counts as found even without a value.
    EXPECT_EQ(lettore.Trovate(), 1u) << testo;
    EXPECT_EQ(ini::Avvisi(), std::vector<std::string>{ini::ValoreErrato(0)}) << testo;
    EXPECT_EQ(Parametro(PARAMETRO_PERIODI), 1) << testo;
  }
}

TEST_F(LetturaTesto, INumeriA32BitAgliEstremiSiLeggonoEPoiSiConfrontano) {
  EXPECT_EQ(LeggiCopia("$ allarme5 2147483647 $ allarme2 -2147483648"), EsitoIni::Incompleto);
  EXPECT_EQ(ini::Avvisi(), (std::vector<std::string>{ini::ValoreErrato(11), ini::ValoreErrato(8)}));
  EXPECT_EQ(Valori(), ValoriCon({}));
}

TEST_F(LetturaTesto, UnaParolaIlleggibileDopoLaChiaveSiRileggeSeEUnDollaro) {
  // "x" ends the setting and is skipped; the '$' that ends one starts the next.
  EXPECT_EQ(LeggiCopia("$ allarme1 x $ allarme2 5 $ allarme3 $ allarme4 6"), EsitoIni::Incompleto);
  EXPECT_EQ(Valori(), ValoriCon({{8, 5}, {10, 6}}));
  EXPECT_EQ(memoria::Finestre().size(), 2u);
  // Right after a key, a '$' is part of its word.
  EXPECT_EQ(LeggiCopia("$ allarme3$ allarme4 6"), EsitoIni::ChiaveSconosciuta);
  EXPECT_EQ(LeggiCopia("$$ allarme4 6"), EsitoIni::ChiaveSconosciuta);
}

TEST_F(LetturaTesto, SoloIlDollaroIntroduceUnaRiga) {
  const std::string commenti =
      "periodi 2\nallarme1 5\n# $ \n\nperiodi (periodi) min: 1 max: 2 default: 1\n";
  // The "$ \n\nperiodi" of the third line is a setting: its key is on a later line.
  EXPECT_EQ(LeggiCopia(commenti), EsitoIni::Incompleto);
  EXPECT_EQ(ini::Avvisi(), std::vector<std::string>{ini::ValoreErrato(0)});
  memoria::Azzera();
  EXPECT_EQ(LeggiCopia("periodi 2\nallarme1 5\n"), EsitoIni::Incompleto);
  EXPECT_EQ(Valori(), ValoriCon({}));
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(LetturaTesto, UnDollaroInFondoSenzaChiaveEIlFineDelTesto) {
  EXPECT_EQ(LeggiCopia(std::string(ini::FILE_DEFAULT) + "$"), EsitoIni::Completo);
  EXPECT_EQ(LeggiCopia(std::string(ini::FILE_DEFAULT) + "$ \n\t "), EsitoIni::Completo);
  EXPECT_EQ(LeggiCopia("$"), EsitoIni::Incompleto);
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(LetturaTesto, UnaChiaveInFondoSenzaNumeroHaIlSuoAvviso) {
  EXPECT_EQ(LeggiCopia(std::string(ini::FILE_DEFAULT) + "$\tallarme5"), EsitoIni::Completo);
  EXPECT_EQ(ini::Avvisi(), std::vector<std::string>{ini::ValoreErrato(11)});
  EXPECT_EQ(Valori(), ValoriCon({}));
}

TEST_F(LetturaTesto, UnaChiaveSconosciutaInFondoSenzaNumero) {
  EXPECT_EQ(LeggiCopia(std::string(ini::FILE_DEFAULT) + "$\tallarme"), EsitoIni::ChiaveSconosciuta);
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(LetturaTesto, UnaChiaveTroppoLungaESconosciuta) {
  EXPECT_EQ(LeggiCopia("$ " + std::string(63, 'a') + " 1"), EsitoIni::ChiaveSconosciuta);
  EXPECT_EQ(LeggiCopia("$ " + std::string(64, 'a') + " 1"), EsitoIni::ChiaveSconosciuta);
  EXPECT_EQ(LeggiCopia("$ " + std::string(200, 'p') + " 1"), EsitoIni::ChiaveSconosciuta);
  // A known key with more after it is another word.
  EXPECT_EQ(LeggiCopia("$ periodi" + std::string(100, 'i') + " 1"), EsitoIni::ChiaveSconosciuta);
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(LetturaTesto, IByteNulliSonoCaratteriComeGliAltri) {
  std::string fuori = ini::FILE_DEFAULT;
  fuori.insert(1, std::string("\0\0x\0", 4));
  EXPECT_EQ(LeggiCopia(fuori), EsitoIni::Completo);
  // Inside a key it makes another word, which no key matches.
  EXPECT_EQ(LeggiCopia(std::string("$ periodi\0 2", 12)), EsitoIni::ChiaveSconosciuta);
  // After the number it ends it, as any other character does.
  EXPECT_EQ(LeggiCopia(std::string("$ periodi 2\0", 12)), EsitoIni::Incompleto);
  EXPECT_EQ(Parametro(PARAMETRO_PERIODI), 2);
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(LetturaTesto, ByteOltreAsciiNonSonoSpazi) {
  EXPECT_EQ(LeggiCopia("$ periodi\xa0 2"), EsitoIni::ChiaveSconosciuta);
  EXPECT_EQ(LeggiCopia("\xff\xfe$ periodi\t2\x80"), EsitoIni::Incompleto);
  EXPECT_EQ(Parametro(PARAMETRO_PERIODI), 2);
}

TEST_F(LetturaTesto, FineRigaCrLfESpaziAlPostoDelleTabulazioni) {
  EXPECT_EQ(LeggiCopia(SulDisco(ini::FILE_DEFAULT)), EsitoIni::Completo);
  std::string crlf;
  std::string spazi;
  for (char c : FileCon({{"periodi", 2}, {"allarme4", 0}})) {
    if (c == '\n') crlf += '\r';
    crlf += c;
    spazi += c == '\t' ? std::string("   ") : std::string(1, c);
  }
  EXPECT_EQ(LeggiCopia(crlf), EsitoIni::Completo);
  EXPECT_EQ(Valori(), ValoriCon({{0, 2}, {10, 0}}));
  DefaultIni();
  EXPECT_EQ(LeggiCopia(spazi), EsitoIni::Completo);
  EXPECT_EQ(Valori(), ValoriCon({{0, 2}, {10, 0}}));
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(LetturaTesto, UnTestoVuotoEIncompleto) {
  ini::ValoriNonDefault();
  EXPECT_EQ(LeggiTestoIni(nullptr, 0), EsitoIni::Incompleto);
  EXPECT_EQ(Valori(), ValoriCon({}));
  EXPECT_EQ(LeggiCopia(""), EsitoIni::Incompleto);
  EXPECT_TRUE(memoria::Finestre().empty());
}

// What one reading leaves behind, to compare readings of the same text.
struct Risultato {
  EsitoIni esito;
  uint32_t trovate;
  std::vector<int32_t> valori;
  std::vector<std::string> avvisi;
  bool operator==(const Risultato&) const = default;
};

Risultato LeggiAPezzi(const std::string& testo, size_t pezzo, size_t primo) {
  memoria::Azzera();
  LettoreIni lettore;
  lettore.Avvia();
  size_t da = 0;
  size_t quanti = std::min(primo, testo.size());
  while (da < testo.size()) {
    lettore.Leggi(testo.data() + da, quanti);
    da += quanti;
    quanti = std::min(pezzo, testo.size() - da);
  }
  Risultato r{lettore.Fine(), lettore.Trovate(), Valori(), {}};
  for (const auto& f : memoria::Finestre()) r.avvisi.push_back(f.testo);
  return r;
}

TEST_F(LetturaTesto, UnTestoAPezziSiLeggeComeIntero) {
  const std::string testi[] = {
      FileCon({{"periodi", 2}, {"allarme1", 9}}),
      FileCon({{"periodi", 3}, {"allarme5", -4}}, {"allarme2"}),
      "$ allarme1 +25 $ allarme2 -x $allarme3\n0007$ allarme4 2147483648 $",
      "$ periodi 1$Periodi 2",
      "$ " + std::string(70, 'k') + " 1",
      std::string(ini::FILE_DEFAULT) + "$ periodi",
      "$ periodi 12345678901234567890$ allarme1 5",
  };
  for (const std::string& testo : testi) {
    const Risultato intero = LeggiAPezzi(testo, testo.size() + 1, testo.size() + 1);
    for (size_t pezzo = 1; pezzo <= 7; ++pezzo)
      for (size_t primo = 0; primo <= std::min<size_t>(testo.size(), 80); ++primo)
        ASSERT_EQ(LeggiAPezzi(testo, pezzo, primo), intero)
            << testo << " pieces of " << pezzo << ", first " << primo;
    memoria::Azzera();
    EXPECT_EQ(LeggiCopia(testo), intero.esito) << testo;
    EXPECT_EQ(Valori(), intero.valori) << testo;
  }
}

TEST_F(LetturaTesto, IlLettoreFermatoIgnoraIPezziSeguenti) {
  LettoreIni lettore;
  lettore.Avvia();
  EXPECT_TRUE(lettore.Leggi("$ allarme1 5 ", 13));
  EXPECT_FALSE(lettore.Leggi("$ nessuna 1 ", 12));
  EXPECT_FALSE(lettore.Leggi("$ periodi 2 ", 12));
  EXPECT_EQ(lettore.Fine(), EsitoIni::ChiaveSconosciuta);
  EXPECT_EQ(Valori(), ValoriCon({}));
}

}  // namespace
