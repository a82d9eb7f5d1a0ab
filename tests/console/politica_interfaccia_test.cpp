// The program's own interface policy, which the platform carries out: the
// pitch of each sticky prefix and the letters that answer a message box.
#include "console/politica_interfaccia.h"

#include <gtest/gtest.h>

#include <string>

#include "piattaforma/memoria/memoria.h"

namespace {

using namespace piattaforma::win32;
using piattaforma::PoliticaInterfaccia;

std::string Tono(const piattaforma::TonoPrefisso& t) {
  return std::to_string(t.frequenza) + "/" + std::to_string(t.durata);
}

std::string Lettere(const PoliticaInterfaccia& politica) {
  std::string lettere;
  for (int i = 0; i < politica.lettere; ++i)
    lettere += std::string(1, politica.lettera[i].lettera) + "=" +
               std::to_string(politica.lettera[i].risposta) + " ";
  return lettere;
}

TEST(PoliticaInterfaccia, UnTonoPerOgniPrefisso) {
  const PoliticaInterfaccia politica = PoliticaInterfacciaPendrino();
  EXPECT_EQ(Tono(politica.tono_alt), "1500/40");
  EXPECT_EQ(Tono(politica.tono_ctrl), "1000/40");
  EXPECT_EQ(Tono(politica.tono_ctrl_shift), "1250/40");
  EXPECT_EQ(Tono(politica.tono_annullato), "500/60");
}

TEST(PoliticaInterfaccia, LeInizialiDeiPulsantiEYPerSi) {
  EXPECT_EQ(Lettere(PoliticaInterfacciaPendrino()),
            "S=" + std::to_string(IDYES) + " Y=" + std::to_string(IDYES) +
                " N=" + std::to_string(IDNO) + " A=" + std::to_string(IDCANCEL) + " ");
}

TEST(PoliticaInterfaccia, LInstallazioneLaConsegnaAllaPiattaforma) {
  memoria::Azzera();
  ASSERT_EQ(piattaforma::PoliticaInterfacciaAttuale().lettere, 0);
  InstallaPoliticaInterfaccia();
  EXPECT_EQ(Lettere(piattaforma::PoliticaInterfacciaAttuale()),
            Lettere(PoliticaInterfacciaPendrino()));
  EXPECT_EQ(Tono(piattaforma::PoliticaInterfacciaAttuale().tono_alt), "1500/40");
  memoria::Azzera();
}

}  // namespace
