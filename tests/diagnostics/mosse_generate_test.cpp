#include "diagnostics/mosse_generate.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "aiuti_diagnostica.h"
#include "board/fen.h"
#include "board/mossa.h"
#include "moves/genera.h"
#include "moves/tavole.h"

namespace {

std::string LeggiFile(const char* nome) {
  std::ifstream file(nome);
  std::stringstream testo;
  testo << file.rdbuf();
  return testo.str();
}

// Square name from its number, independently of the program's table.
std::string Casa(uint64_t casa) { return {char('a' + casa % 8), char('8' - casa / 8)}; }

TEST(MosseGenerate, UnaRigaPerMossaGenerata) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  FineMosseGenerate = genera_TutteLeMosse_del_bianco(BufferMosseGenerate);
  ASSERT_EQ(FineMosseGenerate - BufferMosseGenerate, 22);
  std::remove("dibag.txt");
  StampaMosseGenerate();
  std::string atteso;
  for (const uint64_t* m = BufferMosseGenerate; m < FineMosseGenerate; ++m)
    atteso += std::string(StringaTipoMossa[TipoMossa(*m)]) + " " + Casa(OrigineMossa(*m)) + " " +
              Casa(DestinazioneMossa(*m)) + "\n";
  const std::string scritto = LeggiFile("dibag.txt");
  EXPECT_EQ(scritto, atteso);
  EXPECT_EQ(scritto.substr(0, 20), "sposta pedone a2 a3\n");
  EXPECT_NE(scritto.find("arrocco lungo e1 c1\n"), std::string::npos);
}

TEST(MosseGenerate, IlFileVieneRiscritto) {
  ASSERT_TRUE(CaricaFen("4k3/8/8/8/8/8/8/4K2R w K - 0 1"));
  FineMosseGenerate = genera_TutteLeMosse_del_bianco(BufferMosseGenerate);
  StampaMosseGenerate();
  ASSERT_NE(LeggiFile("dibag.txt"), "");
  FineMosseGenerate = BufferMosseGenerate;
  StampaMosseGenerate();
  EXPECT_EQ(LeggiFile("dibag.txt"), "");
  std::remove("dibag.txt");
}

}  // namespace
