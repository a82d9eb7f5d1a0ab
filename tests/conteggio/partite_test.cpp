// Random games, with the move picker of the random game tests (leaning
// towards captures and towards undoing the last move, so that every kind of
// ending turns up): at every ply the counter equals the make and unmake walk,
// to depth 2 everywhere and to depth 3 at every eighth ply. The games start
// from the published positions in turn.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "board/mossa.h"
#include "board/posizione.h"
#include "confronto.h"
#include "moves/genera.h"
#include "moves/legali.h"
#include "moves/registro.h"
#include "moves/tavole.h"
#include "supporto/mosse_a_caso.h"
#include "verifiche/tabelle_perft.h"

namespace {

constexpr int PARTITE = 28;
constexpr int SEMIMOSSE = 120;

// The legal moves of the side to move into BufferMosseGenerate, as the game
// keeps them for the move picker; how many.
// The generator's order is kept, so that the seeded games stay the same.
size_t PreparaLegali() {
  const Colore c = AlTratto();
  uint64_t* const fine = genera_mosse_del[c](BufferMosseGenerate);
  SalvaParolePosizione();
  static uint64_t legali[DIMENSIONE_BUFFER_MOSSE];
  size_t n = 0;
  for (const uint64_t* p = BufferMosseGenerate; p < fine; ++p) {
    if (!fai_mossa[c][TipoMossa(*p)](*p)) continue;
    ritira_mossa[c][TipoMossa(*p)](*p);
    legali[n++] = *p;
  }
  ImpostaListaMosse(legali, n);
  return n;
}

TEST(PartiteACaso, UgualeAlFaiRitiraAOgniSemimossa) {
  const std::vector<std::string> partenze =
      FenDistinte(LeggiTabellaPerft(PENDRINO_DATI_CONDIVISI "/perft-reference.tsv"));
  ASSERT_FALSE(partenze.empty());
  std::mt19937_64 caso(20240521);
  // Positions met at the root: en passant possible, check, double check, a
  // promotion in reach.
  int enpassant = 0, scacco = 0, doppio = 0, promozione = 0, posizioni = 0;
  for (int partita = 0; partita < PARTITE; ++partita) {
    ASSERT_TRUE(CaricaFen(partenze[size_t(partita) % partenze.size()]));
    for (int ply = 0; ply < SEMIMOSSE && PreparaLegali() > 0; ++ply) {
      SCOPED_TRACE("game " + std::to_string(partita) + " ply " + std::to_string(ply));
      ConfrontaFinoA(ply % 8 == 0 ? 3 : 2);
      if (HasFailure()) return;
      ++posizioni;
      const uint64_t info = InfoPosizione;
      enpassant += (info & PERMESSO_ENPASSANT) != 0;
      scacco += PrimoScacco(info) != NESSUNA_CASA || SecondoScacco(info) != NESSUNA_CASA;
      doppio += PrimoScacco(info) != NESSUNA_CASA && SecondoScacco(info) != NESSUNA_CASA;
      const uint64_t settima = AlTratto() == BIANCO ? 0xFF00ull : 0xFF000000000000ull;
      promozione += (btm_pezzi[AlTratto()][PEDONE] & settima) != 0;
      const uint64_t mossa =
          partite_a_caso::ScegliMossa([&caso](uint64_t n) { return caso() % n; }, TurnoIniziale);
      SalvaParolePosizione();
      ASSERT_EQ(fai_mossa[AlTratto()][TipoMossa(mossa)](mossa), 1);
    }
  }
  EXPECT_GT(posizioni, 2000);
  EXPECT_GT(enpassant, 0);
  EXPECT_GT(scacco, 50);
  EXPECT_GT(doppio, 0);
  EXPECT_GT(promozione, 20);
}

}  // namespace
