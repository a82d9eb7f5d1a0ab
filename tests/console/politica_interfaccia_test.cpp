// The program's own interface policy, which the platform carries out: the
// pitch of each sticky prefix and the letters that answer a message box.
#include "console/politica_interfaccia.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "piattaforma/memoria/memoria.h"
#include "piattaforma/terminale/rifiuto.h"
#include "piattaforma/terminale/riquadro.h"

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

std::string Dimensioni(int colonne, int righe, const PoliticaInterfaccia& politica) {
  char riga[128];
  piattaforma::terminale::MessaggioDimensioni(colonne, righe, riga, sizeof riga, politica);
  return riga;
}

std::string Rifiuto(piattaforma::RifiutoTerminale motivo, const char* tipo,
                    const PoliticaInterfaccia& politica) {
  char riga[256];
  piattaforma::terminale::ComponiRifiuto(motivo, tipo, riga, sizeof riga, politica);
  return riga;
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

TEST(PoliticaInterfaccia, EtichetteDelProgramma) {
  const PoliticaInterfaccia politica = PoliticaInterfacciaPendrino();
  EXPECT_STREQ(piattaforma::terminale::EtichettaPulsante(IDOK, politica), "OK");
  EXPECT_STREQ(piattaforma::terminale::EtichettaPulsante(IDYES, politica), "S\xC3\xAC");
  EXPECT_STREQ(piattaforma::terminale::EtichettaPulsante(IDNO, politica), "No");
  EXPECT_STREQ(piattaforma::terminale::EtichettaPulsante(IDCANCEL, politica), "Annulla");
  EXPECT_EQ(piattaforma::terminale::LarghezzaPulsante(IDYES, politica), 6);
  EXPECT_EQ(piattaforma::terminale::LarghezzaPulsante(IDCANCEL, politica), 11);
}

TEST(PoliticaInterfaccia, RigaDelleDimensioniDelProgramma) {
  const PoliticaInterfaccia politica = PoliticaInterfacciaPendrino();
  EXPECT_EQ(Dimensioni(79, 44, politica),
            "Finestra troppo piccola (79 x 44): servono almeno 80 colonne e 44 righe.");
  EXPECT_EQ(Dimensioni(40, 10, politica), "Servono almeno 80 colonne e 44 righe.");
  EXPECT_EQ(Dimensioni(30, 10, politica), "Servono 80x44 caratteri.");
  EXPECT_EQ(Dimensioni(10, 3, politica), "80x44");
  EXPECT_EQ(Dimensioni(3, 1, politica), "80x");
  EXPECT_EQ(Dimensioni(0, 0, politica), "");
}

TEST(PoliticaInterfaccia, RifiutiDelProgramma) {
  const PoliticaInterfaccia politica = PoliticaInterfacciaPendrino();
  const std::string serve = "Pendrino ha bisogno di un terminale che sappia spostare il cursore";
  EXPECT_EQ(Rifiuto(piattaforma::RifiutoTerminale::NessunTerminale, "", politica),
            "Pendrino va avviato in un terminale.");
  EXPECT_EQ(Rifiuto(piattaforma::RifiutoTerminale::SenzaTipo, "", politica),
            serve + ", ma la variabile TERM non \xC3\xA8 impostata.");
  EXPECT_EQ(Rifiuto(piattaforma::RifiutoTerminale::TipoSconosciuto, "nonesiste-xyz", politica),
            serve + ", ma il terminale TERM=nonesiste-xyz non \xC3\xA8 conosciuto.");
  EXPECT_EQ(Rifiuto(piattaforma::RifiutoTerminale::SenzaCursore, "dumb", politica),
            serve + ", ma TERM=dumb non sa farlo.");
  EXPECT_EQ(Rifiuto(piattaforma::RifiutoTerminale::NonAperto, "vt52", politica),
            "Pendrino non conosce questo terminale (TERM=vt52).");
}

TEST(PoliticaInterfaccia, LaPoliticaDelProgrammaHaTuttiITesti) {
  const PoliticaInterfaccia politica = PoliticaInterfacciaPendrino();
  EXPECT_NE(politica.etichetta_ok, nullptr);
  EXPECT_NE(politica.etichetta_si, nullptr);
  EXPECT_NE(politica.etichetta_no, nullptr);
  EXPECT_NE(politica.etichetta_annulla, nullptr);
  EXPECT_NE(politica.componi_rifiuto, nullptr);
  EXPECT_NE(politica.forma_dimensioni, nullptr);
}

}  // namespace
