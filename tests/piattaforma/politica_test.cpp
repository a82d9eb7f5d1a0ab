// The words a terminal shows come from the program's interface policy: the
// box buttons' labels, the line that asks for a larger terminal and the
// refusal of an unfit terminal; without the policy they are neutral ASCII.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "piattaforma/memoria/memoria.h"
#include "piattaforma/terminale/rifiuto.h"
#include "piattaforma/terminale/riquadro.h"
#include "politica_prova.h"

namespace {

using namespace piattaforma;
using namespace piattaforma::terminale;

bool SoloAscii(const char* testo) {
  for (const char* p = testo; *p; ++p)
    if (static_cast<unsigned char>(*p) >= 0x80) return false;
  return true;
}

std::string Dimensioni(int colonne, int righe, const PoliticaInterfaccia& politica) {
  char riga[128];
  MessaggioDimensioni(colonne, righe, riga, sizeof riga, politica);
  return riga;
}

std::string Rifiuto(RifiutoTerminale motivo, const char* tipo,
                    const PoliticaInterfaccia& politica) {
  char riga[256];
  ComponiRifiuto(motivo, tipo, riga, sizeof riga, politica);
  return riga;
}

TEST(PoliticaTesti, EtichetteNeutreInAscii) {
  const PoliticaInterfaccia neutra;
  for (int risposta : {IDOK, IDYES, IDNO, IDCANCEL}) {
    const char* etichetta = EtichettaPulsante(risposta, neutra);
    ASSERT_NE(etichetta, nullptr);
    EXPECT_GT(std::strlen(etichetta), 0u);
    EXPECT_TRUE(SoloAscii(etichetta)) << etichetta;
  }
  EXPECT_STRNE(EtichettaPulsante(IDYES, neutra), EtichettaPulsante(IDNO, neutra));
  EXPECT_STRNE(EtichettaPulsante(IDCANCEL, neutra), "Annulla");
  // A policy that names only some buttons leaves the others neutral.
  PoliticaInterfaccia parziale;
  parziale.etichetta_si = "Ja";
  EXPECT_STREQ(EtichettaPulsante(IDYES, parziale), "Ja");
  EXPECT_STREQ(EtichettaPulsante(IDNO, parziale), EtichettaPulsante(IDNO, neutra));
}

TEST(PoliticaTesti, IlRiquadroSiMisuraSulleEtichette) {
  PoliticaInterfaccia politica = PoliticaDiProva();
  Impaginazione imp;
  ImpaginaRiquadro("", "", MB_YESNOCANCEL, imp, politica);
  EXPECT_EQ(imp.larghezza_testo, 29);  // "[ Sì ]   [ No ]   [ Annulla ]"
  EXPECT_STREQ(imp.etichetta[0], "S\xC3\xAC");
  EXPECT_STREQ(imp.etichetta[2], "Annulla");
  politica.etichetta_annulla = "Lascia perdere del tutto";
  ImpaginaRiquadro("", "", MB_YESNOCANCEL, imp, politica);
  EXPECT_EQ(imp.larghezza_testo, 29 - 7 + 24);
  EXPECT_EQ(imp.colonna_pulsante[2], imp.colonna_pulsante[1] + 6 + 3);
  EXPECT_STREQ(imp.etichetta[2], "Lascia perdere del tutto");
  // The box follows the policy installed when none is given.
  memoria::Azzera();
  ImpostaPoliticaInterfaccia(politica);
  ImpaginaRiquadro("", "", MB_YESNOCANCEL, imp);
  EXPECT_STREQ(imp.etichetta[2], "Lascia perdere del tutto");
  memoria::Azzera();
}

TEST(PoliticaTesti, RigaDelleDimensioniNeutraSoloCifre) {
  const PoliticaInterfaccia neutra;
  EXPECT_EQ(Dimensioni(79, 44, neutra), "80x44");
  EXPECT_EQ(Dimensioni(3, 1, neutra), "80x");
  // Forms that never fit, or a policy with none, leave the digits.
  PoliticaInterfaccia larga;
  larga.forma_dimensioni = [](int forma, int, int, char* uscita, size_t dimensione) {
    if (forma > 0) return false;
    std::snprintf(uscita, dimensione, "%s", std::string(200, 'x').c_str());
    return true;
  };
  EXPECT_EQ(Dimensioni(79, 44, larga), "80x44");
}

TEST(PoliticaTesti, RifiutiNeutriInAsciiConIlTipo) {
  const PoliticaInterfaccia neutra;
  for (auto motivo : {RifiutoTerminale::NessunTerminale, RifiutoTerminale::SenzaTipo,
                      RifiutoTerminale::TipoSconosciuto, RifiutoTerminale::SenzaCursore,
                      RifiutoTerminale::NonAperto}) {
    const std::string riga = Rifiuto(motivo, "tipo-xyz", neutra);
    EXPECT_FALSE(riga.empty());
    EXPECT_TRUE(SoloAscii(riga.c_str())) << riga;
    EXPECT_EQ(riga.find('\n'), std::string::npos);
    if (motivo == RifiutoTerminale::TipoSconosciuto || motivo == RifiutoTerminale::SenzaCursore) {
      EXPECT_NE(riga.find("tipo-xyz"), std::string::npos) << riga;
    }
  }
  // Cut to its room, always ended.
  char corto[8];
  ComponiRifiuto(RifiutoTerminale::SenzaCursore, "dumb", corto, sizeof corto, neutra);
  EXPECT_EQ(std::strlen(corto), 7u);
  ComponiRifiuto(RifiutoTerminale::SenzaCursore, nullptr, corto, sizeof corto, neutra);
  EXPECT_LT(std::strlen(corto), 8u);
}

}  // namespace
