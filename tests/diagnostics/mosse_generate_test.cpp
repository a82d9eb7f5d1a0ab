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
#include "moves/legali.h"
#include "moves/tavole.h"

namespace {

std::string LeggiFile(const char* nome) {
  std::ifstream file(nome);
  std::stringstream testo;
  testo << file.rdbuf();
  return testo.str();
}

TEST(MosseGenerate, UnaRigaPerMossaGenerata) {
  ASSERT_TRUE(CaricaFen(FenIniziale));
  ChiudiListaMosse(genera_TutteLeMosse_del_bianco(BufferMosseGenerate));
  ASSERT_EQ(FineMosseGenerate - BufferMosseGenerate, 22);
  std::remove("dibag.txt");
  StampaMosseGenerate();
  // The listing written out by hand, in the generator's order.
  std::string atteso;
  for (const char* colonna : {"a", "b", "c", "d", "e", "f", "g", "h"})
    atteso += std::string("sposta pedone ") + colonna + "2 " + colonna + "3\n";
  for (const char* colonna : {"a", "b", "c", "d", "e", "f", "g", "h"})
    atteso += std::string("pedone avanza2 ") + colonna + "2 " + colonna + "4\n";
  atteso +=
      "sposta cavallo b1 a3\n"
      "sposta cavallo b1 c3\n"
      "sposta cavallo g1 f3\n"
      "sposta cavallo g1 h3\n"
      "arrocco corto e1 g1\n"
      "arrocco lungo e1 c1\n";
  const std::string scritto = LeggiFile("dibag.txt");
  EXPECT_EQ(scritto, atteso);
}

TEST(MosseGenerate, TipiSconosciutiENomiDelleCase) {
  // A word with an unknown type, and the corners.
  const uint64_t parole[] = {Mossa(0, 63, 61), Mossa(63, 0, PROMOZIONE_DONNA + uint64_t(TORRE))};
  ImpostaListaMosse(parole, 2);
  std::remove("dibag.txt");
  StampaMosseGenerate();
  EXPECT_EQ(LeggiFile("dibag.txt"), "?? a8 h1\npromozione a donna cattura torre h1 a8\n");
  std::remove("dibag.txt");
}

TEST(MosseGenerate, IlFileVieneRiscritto) {
  ASSERT_TRUE(CaricaFen("4k3/8/8/8/8/8/8/4K2R w K - 0 1"));
  ChiudiListaMosse(genera_TutteLeMosse_del_bianco(BufferMosseGenerate));
  StampaMosseGenerate();
  ASSERT_NE(LeggiFile("dibag.txt"), "");
  ChiudiListaMosse(BufferMosseGenerate);
  StampaMosseGenerate();
  EXPECT_EQ(LeggiFile("dibag.txt"), "");
  std::remove("dibag.txt");
}

}  // namespace
