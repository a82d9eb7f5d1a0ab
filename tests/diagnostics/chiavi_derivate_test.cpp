// The hash-key self-check on copies of the key tables with one entry spoiled:
// each label must come out for the table and the range it watches, once per
// wrong entry, and nothing else.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "board/posizione.h"
#include "diagnostics/controlli.h"

namespace {

// A private copy of every table the check reads, free to be spoiled.
struct CopiaChiavi {
  uint64_t base[2][6][64];
  uint64_t sposta_pedone[2][64];
  uint64_t sposta_pedone2[64];
  uint64_t cattura_enpassant[64];

  CopiaChiavi() {
    std::memcpy(base, hash_in, sizeof base);
    std::memcpy(sposta_pedone, HashSpostaPedone_in, sizeof sposta_pedone);
    std::memcpy(sposta_pedone2, HashSpostaPedone2In, sizeof sposta_pedone2);
    std::memcpy(cattura_enpassant, HashCatturaEnpassantIn, sizeof cattura_enpassant);
  }
  std::string Controlla() const {
    const TabelleChiavi tabelle = {base, sposta_pedone, sposta_pedone2, cattura_enpassant};
    testing::internal::CaptureStdout();
    ControllaChiaviHash(tabelle);
    return testing::internal::GetCapturedStdout();
  }
};

TEST(ChiaviDerivate, LaCopiaIntattaNonStampaNulla) { EXPECT_EQ(CopiaChiavi().Controlla(), ""); }

TEST(ChiaviDerivate, SenzaArgomentoControllaLeTabelleDelProgramma) {
  EXPECT_EQ(TabelleChiaviDelProgramma.base, hash_in);
  EXPECT_EQ(TabelleChiaviDelProgramma.sposta_pedone, HashSpostaPedone_in);
  EXPECT_EQ(TabelleChiaviDelProgramma.sposta_pedone2, HashSpostaPedone2In);
  EXPECT_EQ(TabelleChiaviDelProgramma.cattura_enpassant, HashCatturaEnpassantIn);
}

// Squares: a8 = 0 ... h1 = 63; rank 5 is 24..31, rank 4 is 32..39.
TEST(ChiaviDerivate, DoppioPassoBiancoErrore1) {
  for (int t : {32, 35, 39}) {
    CopiaChiavi c;
    c.sposta_pedone2[t] ^= 1;
    EXPECT_EQ(c.Controlla(), "errore1\n") << t;
  }
}

TEST(ChiaviDerivate, EnPassantSullaQuartaErrore2) {
  for (int t : {32, 36, 39}) {
    CopiaChiavi c;
    c.cattura_enpassant[t] ^= 1ull << 63;
    EXPECT_EQ(c.Controlla(), "errore2\n") << t;
  }
}

TEST(ChiaviDerivate, DoppioPassoNeroErrore3) {
  for (int t : {24, 28, 31}) {
    CopiaChiavi c;
    c.sposta_pedone2[t] ^= 1;
    EXPECT_EQ(c.Controlla(), "errore3\n") << t;
  }
}

TEST(ChiaviDerivate, EnPassantSullaQuintaErrore4) {
  for (int t : {24, 27, 31}) {
    CopiaChiavi c;
    c.cattura_enpassant[t] ^= 1ull << 20;
    EXPECT_EQ(c.Controlla(), "errore4\n") << t;
  }
}

TEST(ChiaviDerivate, PassoBiancoErrore5) {
  for (int t : {8, 30, 47}) {
    CopiaChiavi c;
    c.sposta_pedone[BIANCO][t] ^= 2;
    EXPECT_EQ(c.Controlla(), "errore5\n") << t;
  }
}

TEST(ChiaviDerivate, PassoNeroErrore6) {
  for (int t : {16, 33, 55}) {
    CopiaChiavi c;
    c.sposta_pedone[NERO][t] ^= 2;
    EXPECT_EQ(c.Controlla(), "errore6\n") << t;
  }
}

TEST(ChiaviDerivate, FuoriDaiLimitiNienteDaControllare) {
  // Entries outside the watched ranks are not read.
  CopiaChiavi c;
  c.sposta_pedone2[23] ^= 1;
  c.sposta_pedone2[40] ^= 1;
  c.cattura_enpassant[23] ^= 1;
  c.cattura_enpassant[40] ^= 1;
  c.sposta_pedone[BIANCO][7] ^= 1;
  c.sposta_pedone[BIANCO][48] ^= 1;
  c.sposta_pedone[NERO][15] ^= 1;
  c.sposta_pedone[NERO][56] ^= 1;
  EXPECT_EQ(c.Controlla(), "");
}

TEST(ChiaviDerivate, UnaRigaPerOgniVoceSbagliata) {
  CopiaChiavi c;
  c.sposta_pedone2[33] ^= 1;
  c.sposta_pedone2[34] ^= 1;
  c.sposta_pedone[NERO][20] ^= 1;
  EXPECT_EQ(c.Controlla(), "errore1\nerrore1\nerrore6\n");
}

TEST(ChiaviDerivate, UnaChiaveBaseDelPedoneGuastaOgniTabellaCheLaUsa) {
  // The white pawn key of e4 (36) enters the double step e2-e4, the en passant
  // capture of a pawn on e4, and the steps e3-e4 and e4-e5.
  CopiaChiavi c;
  c.base[BIANCO][PEDONE][36] ^= 4;
  EXPECT_EQ(c.Controlla(), "errore1\nerrore2\nerrore5\nerrore5\n");
}

TEST(ChiaviDerivate, ChiaviDegliArrocchiErrori11A14) {
  // Each castling's four piece keys: king from and to, rook from and to.
  struct Caso {
    Colore colore;
    int pezzo, casa;
    const char* atteso;
  };
  const Caso casi[] = {
      {BIANCO, TORRE, 63, "errore11\n"},  // h1
      {BIANCO, TORRE, 61, "errore11\n"},  // f1
      {BIANCO, RE, 62, "errore11\n"},     // g1
      {BIANCO, TORRE, 56, "errore12\n"},  // a1
      {BIANCO, TORRE, 59, "errore12\n"},  // d1
      {BIANCO, RE, 58, "errore12\n"},     // c1
      {BIANCO, RE, 60, "errore11\nerrore12\n"},
      {NERO, TORRE, 7, "errore13\n"},  // h8
      {NERO, TORRE, 5, "errore13\n"},  // f8
      {NERO, RE, 6, "errore13\n"},     // g8
      {NERO, TORRE, 0, "errore14\n"},  // a8
      {NERO, TORRE, 3, "errore14\n"},  // d8
      {NERO, RE, 2, "errore14\n"},     // c8
      {NERO, RE, 4, "errore13\nerrore14\n"},
      // Keys no castling uses.
      {BIANCO, TORRE, 57, ""},
      {NERO, RE, 60, ""},
      {BIANCO, DONNA, 59, ""},
  };
  for (const Caso& caso : casi) {
    CopiaChiavi c;
    c.base[caso.colore][caso.pezzo][caso.casa] ^= 1ull << 40;
    EXPECT_EQ(c.Controlla(), caso.atteso) << caso.colore << " " << caso.pezzo << " " << caso.casa;
  }
}

}  // namespace
