// Reading the command field: what each text says about the move, with no
// position involved.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

#include "ambiente_partita.h"

namespace {

// The six facts as "piece promotion origin destination", one character each,
// '?' for unknown: "P???e4", "N?g1f3", "PQe?d8".
std::string Fatti() {
  const RecordDettagliMossa& d = DettagliMossa;
  auto pezzo = [](int8_t v) { return v == VALORE_SCONOSCIUTO ? '?' : "PNBRQK"[v]; };
  auto colonna = [](int8_t v) { return v == VALORE_SCONOSCIUTO ? '?' : char('a' + v); };
  auto riga = [](int8_t v) { return v == VALORE_SCONOSCIUTO ? '?' : char('8' - v); };
  return {pezzo(d.TipoPezzo),   pezzo(d.TipoPromozione),        colonna(d.ColonnaPartenza),
          riga(d.RigaPartenza), colonna(d.ColonnaDestinazione), riga(d.RigaDestinazione)};
}

// The facts of an accepted text, or "rifiutato".
std::string Leggi(const char* testo) {
  return LeggiDettagliMossaDaComando(testo) ? Fatti() : "rifiutato";
}

// Each pair: a text, and what it must be read as.
void LettiCome(std::initializer_list<std::pair<const char*, const char*>> casi) {
  ASSERT_GT(casi.size(), 0u);
  for (const auto& [testo, fatti] : casi) EXPECT_EQ(Leggi(testo), fatti) << testo;
}

TEST(LetturaMossa, TabelleDeiCaratteri) {
  EXPECT_STREQ(CaratteriUtili, "12345678abcdefghNBRQK0");
  EXPECT_STREQ(ColonnaInMaiuscolo, "ACDEFGH");
  EXPECT_STREQ(PezzoInMinuscolo, "nrqk");
  EXPECT_STREQ(Oo, "Oo");
}

TEST(LetturaMossa, UnaSpintaDiPedoneInOgniForma) {
  for (const char* testo : {"e4", "E4", "e4+", "e-4", "e:4", "xe4", "e=4"})
    EXPECT_EQ(Leggi(testo), "P???e4") << testo;
  EXPECT_EQ(Leggi("e2e4"), "??e2e4");
}

TEST(LetturaMossa, LaLetteraPNonEUnPezzo) {
  for (const char* testo : {"Pe4", "pe4", "e4P", "Se4", "e9", "i4", "e4!9"})
    EXPECT_EQ(Leggi(testo), "rifiutato") << testo;
}

TEST(LetturaMossa, CatturaDiPedoneTraColonneVicine) {
  EXPECT_EQ(Leggi("ed"), "P?e?d?");
  for (const char* testo : {"exd5", "ed5", "EXD5", "exd5+", "e:d5"})
    EXPECT_EQ(Leggi(testo), "P?e?d5") << testo;
  EXPECT_EQ(Leggi("ab"), "P?a?b?");
  EXPECT_EQ(Leggi("hg"), "P?h?g?");
  // Files that are not neighbours, and a piece named by files only.
  for (const char* testo : {"ae", "eh", "ee", "Ne", "Bc"})
    EXPECT_EQ(Leggi(testo), "rifiutato") << testo;
}

TEST(LetturaMossa, CavalloConEsenzaPartenza) {
  LettiCome({{"Nf3", "N???f3"},
             {"nf3", "N???f3"},
             {"Ng1f3", "N?g1f3"},
             {"N1f3", "N??1f3"},
             {"Nbd2", "N?b?d2"},
             {"Nbxd2", "N?b?d2"}});
  // Four characters without a letter: whatever piece makes the move.
  LettiCome({{"g1f3", "??g1f3"}, {"h4e1", "??h4e1"}, {"h4xe1", "??h4e1"}});
}

TEST(LetturaMossa, LaBMinuscolaEUnaColonna) {
  // The bishop reading is the lookup's: here b is a file like any other.
  LettiCome({{"bd3", "P?b?d3"},
             {"ad3", "P?a?d3"},
             {"dd3", "P?d?d3"},
             {"bc4", "P?b?c4"},
             {"Bd3", "B???d3"},
             {"Bbd3", "B?b?d3"}});
}

TEST(LetturaMossa, Promozioni) {
  EXPECT_EQ(Leggi("e8"), "P???e8");
  for (const char* testo : {"e8N", "e8=N", "e8n", "e8=n"})
    EXPECT_EQ(Leggi(testo), "PN??e8") << testo;
  LettiCome({{"e8B", "PB??e8"},
             {"e8R", "PR??e8"},
             {"e8r", "PR??e8"},
             {"e8=Q+", "PQ??e8"},
             {"exd8=Q+", "PQe?d8"},
             {"e7e8N", "?Ne7e8"}});
  // Lower-case b stays a file: e8b is no move shape at all.
  EXPECT_EQ(Leggi("e8b"), "rifiutato");
  // A leading piece letter is read first; a trailing one is then a stray letter.
  EXPECT_EQ(Leggi("Ne4Q"), "rifiutato");
}

TEST(LetturaMossa, ArroccoConZeriOLetteraO) {
  for (const char* testo : {"0-0", "O-O", "oo", "00", "o-o", "Oo", "0-O"})
    EXPECT_EQ(Leggi(testo), "K?e?g?") << testo;
  for (const char* testo : {"0-0-0", "O-O-O", "000", "ooo"})
    EXPECT_EQ(Leggi(testo), "K?e?c?") << testo;
  for (const char* testo : {"0-0-0-0", "0", "O", "0-0+1", "00e", "Ke0"})
    EXPECT_EQ(Leggi(testo), "rifiutato") << testo;
}

TEST(LetturaMossa, AlPiuCinqueCaratteriTenuti) {
  EXPECT_EQ(Leggi("Ng1xf3+"), "N?g1f3");
  EXPECT_EQ(Leggi("Qh4xe1+"), "Q?h4e1");
  for (const char* testo : {"e2e4e5", "Ng1f3h", "Ng1f3+h"})
    EXPECT_EQ(Leggi(testo), "rifiutato") << testo;
}

TEST(LetturaMossa, FormeNonAmmesse) {
  for (const char* testo :
       {"", "e", "x", "+-:=", "N", "NB", "Nf", "e2e", "e24", "4e", "22", "1e", "e4e", "NNe4"})
    EXPECT_EQ(Leggi(testo), "rifiutato") << testo;
  // The origin row alone, before the destination.
  EXPECT_EQ(Leggi("1e4"), "P??1e4");
}

TEST(LetturaMossa, UnaLetturaFallitaNonLasciaFattiVecchi) {
  ASSERT_EQ(Leggi("Ng1f3"), "N?g1f3");
  EXPECT_EQ(LeggiDettagliMossaDaComando("e9"), 0);
  EXPECT_EQ(Fatti(), "??????");
}

}  // namespace
