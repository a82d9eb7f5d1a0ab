// Words for the ear: times, moves and pieces as the announcement line, the
// readouts and the voice say them.
#include "console/parole.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "board/mossa.h"
#include "board/posizione.h"

namespace {

template <typename Funzione, typename... Argomenti>
std::string Parole(Funzione f, Argomenti... argomenti) {
  char testo[256];
  Composizione c(testo, sizeof testo);
  f(c, argomenti...);
  return testo;
}

constexpr uint64_t Casa(const char* nome) {
  return uint64_t((nome[0] - 'a') + 8 * ('8' - nome[1]));
}
constexpr uint64_t M(const char* da, const char* a, uint64_t tipo) {
  return Mossa(Casa(da), Casa(a), tipo);
}

TEST(Parole, TempoDalleOreAiSecondi) {
  EXPECT_EQ(Parole(TempoInParole, 5385), "un'ora, 29 minuti e 45 secondi");
  EXPECT_EQ(Parole(TempoInParole, 5400), "un'ora e 30 minuti");
  EXPECT_EQ(Parole(TempoInParole, 3600), "un'ora");
  EXPECT_EQ(Parole(TempoInParole, 3601), "un'ora e un secondo");
  EXPECT_EQ(Parole(TempoInParole, 7200), "2 ore");
  EXPECT_EQ(Parole(TempoInParole, 7261), "2 ore, un minuto e un secondo");
  EXPECT_EQ(Parole(TempoInParole, 60), "un minuto");
  EXPECT_EQ(Parole(TempoInParole, 125), "2 minuti e 5 secondi");
  EXPECT_EQ(Parole(TempoInParole, 45), "45 secondi");
  EXPECT_EQ(Parole(TempoInParole, 1), "un secondo");
  EXPECT_EQ(Parole(TempoInParole, 0), "zero secondi");
  EXPECT_EQ(Parole(TempoInParole, 43200), "12 ore");
}

TEST(Parole, TempoNegativo) {
  EXPECT_EQ(Parole(TempoInParole, -1), "meno un secondo");
  EXPECT_EQ(Parole(TempoInParole, -75), "meno un minuto e 15 secondi");
  EXPECT_EQ(Parole(TempoInParole, -3600), "meno un'ora");
  // The most negative count still has a magnitude.
  EXPECT_EQ(Parole(TempoInParole, INT32_MIN), "meno 596523 ore, 14 minuti e 8 secondi");
}

TEST(Parole, MosseDiOgniPezzo) {
  EXPECT_EQ(Parole(MossaInParole, M("e2", "e4", PEDONE_AVANZA2)), "pedone da e2 in e4");
  EXPECT_EQ(Parole(MossaInParole, M("e4", "e5", SPOSTA_PEDONE)), "pedone da e4 in e5");
  EXPECT_EQ(Parole(MossaInParole, M("g1", "f3", SPOSTA_CAVALLO)), "cavallo da g1 in f3");
  EXPECT_EQ(Parole(MossaInParole, M("f1", "c4", SPOSTA_ALFIERE)), "alfiere da f1 in c4");
  EXPECT_EQ(Parole(MossaInParole, M("a1", "d1", SPOSTA_TORRE)), "torre da a1 in d1");
  EXPECT_EQ(Parole(MossaInParole, M("d8", "h4", SPOSTA_DONNA)), "donna da d8 in h4");
  EXPECT_EQ(Parole(MossaInParole, M("e8", "e7", SPOSTA_RE)), "re da e8 in e7");
}

TEST(Parole, CattureEnPassantEPromozioni) {
  EXPECT_EQ(Parole(MossaInParole, M("c4", "f7", ALFIERE_CATTURA + uint64_t(PEDONE))),
            "alfiere da c4 in f7, cattura pedone");
  EXPECT_EQ(Parole(MossaInParole, M("e1", "e2", RE_CATTURA + uint64_t(DONNA))),
            "re da e1 in e2, cattura donna");
  EXPECT_EQ(Parole(MossaInParole, M("d4", "e5", PEDONE_CATTURA + uint64_t(CAVALLO))),
            "pedone da d4 in e5, cattura cavallo");
  EXPECT_EQ(Parole(MossaInParole, M("e5", "d6", CATTURA_ENPASSANT)),
            "pedone da e5 in d6, cattura pedone en passant");
  EXPECT_EQ(Parole(MossaInParole, M("e7", "e8", PROMOZIONE_DONNA)),
            "pedone da e7 in e8, promosso a donna");
  EXPECT_EQ(Parole(MossaInParole, M("e7", "d8", PROMOZIONE_CAVALLO + uint64_t(TORRE))),
            "pedone da e7 in d8, cattura torre, promosso a cavallo");
  EXPECT_EQ(Parole(MossaInParole, M("b2", "a1", PROMOZIONE_ALFIERE + uint64_t(TORRE))),
            "pedone da b2 in a1, cattura torre, promosso a alfiere");
}

TEST(Parole, Arrocchi) {
  EXPECT_EQ(Parole(MossaInParole, MOSSA_O_O_BIANCO), "arrocco corto");
  EXPECT_EQ(Parole(MossaInParole, MOSSA_O_O_O_NERO), "arrocco lungo");
  EXPECT_EQ(Parole(MossaInParole, uint64_t(0)), "nessuna mossa");
}

TEST(Parole, ScaccoEMatto) {
  EXPECT_EQ(Parole(ScaccoInParole, "Nf3"), "");
  EXPECT_EQ(Parole(ScaccoInParole, "exd8=Q+"), ", scacco");
  EXPECT_EQ(Parole(ScaccoInParole, "Qh4#"), ", scaccomatto");
  EXPECT_EQ(Parole(ScaccoInParole, ""), "");
}

TEST(Parole, OgniPezzoDiOgniColore) {
  const char* attesi[2][6] = {
      {"pedone bianco", "cavallo bianco", "alfiere bianco", "torre bianca", "donna bianca",
       "re bianco"},
      {"pedone nero", "cavallo nero", "alfiere nero", "torre nera", "donna nera", "re nero"}};
  for (int colore = 0; colore < 2; ++colore)
    for (int tipo = 0; tipo < 6; ++tipo)
      EXPECT_EQ(Parole(PezzoInParole, uint8_t(CodicePezzo(TipoPezzo(tipo), Colore(colore), 1))),
                attesi[colore][tipo]);
  EXPECT_EQ(Parole(PezzoInParole, uint8_t(CASA_VUOTA)), "vuota");
}

}  // namespace
