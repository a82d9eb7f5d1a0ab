// A short run of the soak (tests/comune/supporto/rodaggio.h; `make bench` plays 10,000
// games): random games through the typed-move road with the position
// self-check after every make and unmake, and no report but the kept
// castling keys.
#include <gtest/gtest.h>

#include "piattaforma/memoria/memoria.h"
#include "supporto/rodaggio.h"

namespace {

TEST(Rodaggio, VentiPartiteSenzaReportInattesi) {
  memoria::Azzera();
  const EsitoRodaggio esito = Rodaggio(20, 1);
  EXPECT_EQ(esito.guasti, 0u) << DescriviRodaggio(esito);
  EXPECT_EQ(esito.partite, 20u);
  EXPECT_GT(esito.semimosse, 2000u);
  EXPECT_GT(esito.ritiri, 0u);
  // Both kinds of expected report were met and told apart.
  EXPECT_GT(esito.attesi_bianco, 0u) << DescriviRodaggio(esito);
  EXPECT_GT(esito.attesi_nero, 0u) << DescriviRodaggio(esito);
  EXPECT_EQ(esito.scacchiere, esito.Attesi());
  // Every make and unmake was checked: two makes and an unmake a ply.
  EXPECT_GE(esito.controlli, 3 * esito.semimosse + esito.ritiri);
}

}  // namespace
