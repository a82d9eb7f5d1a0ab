#include "board/stato_posizione.h"

#include <gtest/gtest.h>

#include <cstring>
#include <numeric>
#include <vector>

#include "board/fen.h"
#include "supporto/istantanea.h"
#include "supporto/verifica_posizione.h"

namespace {

// Every word of the value different from every other and from anything a
// position holds, so that a part lost on the way out or back shows.
StatoPosizione Segnato() {
  std::vector<uint64_t> parole(sizeof(StatoPosizione) / sizeof(uint64_t));
  std::iota(parole.begin(), parole.end(), 0x5A5A0000ull);
  StatoPosizione s;
  static_assert(sizeof s == sizeof(uint64_t) * (2 * 5 + 2 + 1 + 65 + 16 + 20 + 20 + 20 + 18 + 2 +
                                                2 + 3 + 2 + MAX_SEMIMOSSE));
  std::memcpy(&s, parole.data(), sizeof s);
  return s;
}

TEST(StatoPosizione, LaFotografiaDiceLaPosizione) {
  SvuotaScacchiera();
  ASSERT_EQ(CaricaPosizioneDaStringaFen("4k3/8/8/8/8/8/4P3/4K2R b K - 7 1"), 1);
  const StatoPosizione s = FotografiaPosizione();
  EXPECT_EQ(s.pezzo_in[52], PezzoIn[52]);
  EXPECT_EQ(s.pedone[BIANCO][0], 52u);
  EXPECT_EQ(s.torre[BIANCO][0], 63u);
  EXPECT_EQ(s.re[NERO], 4u);
  EXPECT_EQ(s.pezzi[BIANCO][TORRE], 1ull << 63);
  EXPECT_EQ(s.colore[NERO], 1ull << 4);
  EXPECT_EQ(s.occupazione, btm_occupazione);
  EXPECT_EQ(s.materiale[BIANCO], materiale[BIANCO]);
  EXPECT_EQ(Semimosse(s.info), 7u);
  EXPECT_EQ(s.chiave, ChiaveHash);
  EXPECT_EQ(s.pedoni, HashPedoni);
  EXPECT_EQ(s.contatore, 1u);
  EXPECT_EQ(s.turno_iniziale, 1u);
  EXPECT_EQ(s.elenco[1], ElencoMosse[1]);
}

TEST(StatoPosizione, IlRipristinoRendeOgniParteComEra) {
  SvuotaScacchiera();
  ASSERT_EQ(CaricaPosizioneDaStringaFen(FenIniziale), 1);
  const StatoPosizione iniziale = FotografiaPosizione();
  const Istantanea prima = Fotografa();
  SvuotaScacchiera();
  ASSERT_EQ(CaricaPosizioneDaStringaFen("4k3/8/8/8/8/8/8/4K3 b - - 0 1"), 1);
  RipristinaPosizione(iniziale);
  EXPECT_EQ(Fotografa(), prima) << Differenze(prima, Fotografa());
  EXPECT_TRUE(PosizioneCoerente());
  EXPECT_EQ(FotografiaPosizione(), iniziale);
}

TEST(StatoPosizione, OgniParolaVaETornaSenzaControlli) {
  // Nothing is checked or recomputed: a value that is no position comes
  // back word for word.
  const StatoPosizione segnato = Segnato();
  RipristinaPosizione(segnato);
  EXPECT_EQ(FotografiaPosizione(), segnato);
  EXPECT_EQ(PezzoIn[64], segnato.pezzo_in[64]);
  EXPECT_EQ(casa_re[NERO], segnato.re[NERO]);
  EXPECT_EQ(casa_donna[NERO][8], segnato.donna[NERO][8]);
  EXPECT_EQ(InfoPosizione, segnato.info);
  EXPECT_EQ(ContatoreMosse, segnato.contatore);
  EXPECT_EQ(TurnoIniziale, segnato.turno_iniziale);
  EXPECT_EQ(ElencoMosse[MAX_SEMIMOSSE - 1], segnato.elenco[MAX_SEMIMOSSE - 1]);
  SvuotaScacchiera();
  ASSERT_EQ(CaricaPosizioneDaStringaFen(FenIniziale), 1);
}

}  // namespace
