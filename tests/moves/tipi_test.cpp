// The move word, the 61 move types and the tables indexed by type.
#include <gtest/gtest.h>

#include <string>

#include "aiuti.h"
#include "board/mossa.h"
#include "moves/fai.h"
#include "moves/genera.h"
#include "moves/ritira.h"
#include "moves/tavole.h"

namespace {

TEST(ParolaMossa, ParoleDegliArrocchi) {
  EXPECT_EQ(Mossa(60, 62, ARROCCO_CORTO), 0x1FBCu);
  EXPECT_EQ(Mossa(60, 62, ARROCCO_CORTO), 8124u);
  EXPECT_EQ(Mossa(60, 58, ARROCCO_LUNGO), 0x2EBCu);
  EXPECT_EQ(Mossa(4, 6, ARROCCO_CORTO), 0x1184u);
  EXPECT_EQ(Mossa(4, 2, ARROCCO_LUNGO), 0x2084u);
  EXPECT_EQ(MOSSA_O_O_BIANCO, 8124u);
  EXPECT_EQ(MOSSA_O_O_O_BIANCO, 11964u);
  EXPECT_EQ(MOSSA_O_O_NERO, 4484u);
  EXPECT_EQ(MOSSA_O_O_O_NERO, 8324u);
}

TEST(ParolaMossa, CampiDellaParola) {
  const uint64_t m = Mossa(Casa("e7"), Casa("f8"), PROMOZIONE_DONNA + uint64_t(TORRE));
  EXPECT_EQ(OrigineMossa(m), Casa("e7"));
  EXPECT_EQ(DestinazioneMossa(m), Casa("f8"));
  EXPECT_EQ(TipoMossa(m), 59u);
  EXPECT_EQ(m >> 18, 0u);
}

TEST(ParolaMossa, IlTipoZeroNonHaFunzioni) {
  EXPECT_EQ(fai_mossa_del_bianco[0], nullptr);
  EXPECT_EQ(fai_mossa_del_nero[0], nullptr);
  EXPECT_EQ(ritira_mossa_del_bianco[0], nullptr);
  EXPECT_EQ(ritira_mossa_del_nero[0], nullptr);
  for (int t = 61; t < 64; ++t) {
    EXPECT_EQ(fai_mossa_del_bianco[t], nullptr) << t;
    EXPECT_EQ(fai_mossa_del_nero[t], nullptr) << t;
    EXPECT_EQ(ritira_mossa_del_bianco[t], nullptr) << t;
    EXPECT_EQ(ritira_mossa_del_nero[t], nullptr) << t;
  }
  for (int t = 1; t < 61; ++t) {
    EXPECT_NE(fai_mossa_del_bianco[t], nullptr) << t;
    EXPECT_NE(fai_mossa_del_nero[t], nullptr) << t;
    EXPECT_NE(ritira_mossa_del_bianco[t], nullptr) << t;
    EXPECT_NE(ritira_mossa_del_nero[t], nullptr) << t;
  }
}

TEST(ParolaMossa, PezzoEPromozioneDelTipo) {
  EXPECT_EQ(TipoPezzoMossa[57], 0u);
  EXPECT_EQ(TipoPromozioneMossa[40], 255u);
  EXPECT_EQ(TipoPezzoMossa[0], 255u);
  EXPECT_EQ(TipoPezzoMossa[1], 5u);
  EXPECT_EQ(TipoPezzoMossa[2], 5u);
  for (int t : {3, 4, 10, 11, 12, 13, 14, 40, 41, 45, 46, 50, 51, 55, 56, 60})
    EXPECT_EQ(TipoPezzoMossa[t], 0u) << t;
  for (int t : {5, 15, 16, 17, 18, 19}) EXPECT_EQ(TipoPezzoMossa[t], 1u) << t;
  for (int t : {6, 20, 21, 22, 23, 24}) EXPECT_EQ(TipoPezzoMossa[t], 2u) << t;
  for (int t : {7, 25, 26, 27, 28, 29}) EXPECT_EQ(TipoPezzoMossa[t], 3u) << t;
  for (int t : {8, 30, 31, 32, 33, 34}) EXPECT_EQ(TipoPezzoMossa[t], 4u) << t;
  for (int t : {9, 35, 36, 37, 38, 39}) EXPECT_EQ(TipoPezzoMossa[t], 5u) << t;
  for (int t = 0; t <= 40; ++t) EXPECT_EQ(TipoPromozioneMossa[t], 255u) << t;
  for (int t = 41; t <= 45; ++t) EXPECT_EQ(TipoPromozioneMossa[t], 1u) << t;
  for (int t = 46; t <= 50; ++t) EXPECT_EQ(TipoPromozioneMossa[t], 2u) << t;
  for (int t = 51; t <= 55; ++t) EXPECT_EQ(TipoPromozioneMossa[t], 3u) << t;
  for (int t = 56; t <= 60; ++t) EXPECT_EQ(TipoPromozioneMossa[t], 4u) << t;
}

TEST(ParolaMossa, NomiDeiTipi) {
  // The names follow the rule: mover, "cattura", captured; "promozione a(d)".
  const char* const pezzi[5] = {"pedone", "cavallo", "alfiere", "torre", "donna"};
  const char* const movitori[6] = {"pedone", "cavallo", "alfiere", "torre", "donna", "re"};
  EXPECT_STREQ(StringaTipoMossa[0], "mossa nulla");
  EXPECT_STREQ(StringaTipoMossa[1], "arrocco corto");
  EXPECT_STREQ(StringaTipoMossa[2], "arrocco lungo");
  EXPECT_STREQ(StringaTipoMossa[3], "pedone avanza2");
  for (int k = 0; k < 6; ++k)
    EXPECT_EQ(StringaTipoMossa[4 + k], std::string("sposta ") + movitori[k]);
  for (int m = 0; m < 6; ++m)
    for (int x = 0; x < 5; ++x)
      EXPECT_EQ(StringaTipoMossa[10 + 5 * m + x],
                std::string(movitori[m]) + " cattura " + pezzi[x]);
  EXPECT_STREQ(StringaTipoMossa[40], "cattura enpassant");
  for (int p = 1; p < 5; ++p) {
    const std::string base =
        std::string(p == ALFIERE ? "promozione ad " : "promozione a ") + pezzi[p];
    EXPECT_EQ(StringaTipoMossa[36 + 5 * p], base);
    for (int x = 1; x < 5; ++x)
      EXPECT_EQ(StringaTipoMossa[36 + 5 * p + x], base + " cattura " + pezzi[x]);
  }
  EXPECT_STREQ(StringaTipoMossa[47], "promozione ad alfiere cattura cavallo");
  EXPECT_STREQ(StringaTipoMossa[60], "promozione a donna cattura donna");
}

TEST(ParolaMossa, FunzioniNominateNeiLoroPosti) {
  EXPECT_EQ(fai_mossa_del_bianco[1], &fai_o_o_del_bianco);
  EXPECT_EQ(fai_mossa_del_bianco[2], &fai_o_o_o_del_bianco);
  EXPECT_EQ(fai_mossa_del_bianco[3], &fai_sposta2pedone_bianco);
  EXPECT_EQ(fai_mossa_del_bianco[4], &fai_sposta_pedone_bianco);
  EXPECT_EQ(fai_mossa_del_bianco[9], &fai_sposta_re_bianco);
  EXPECT_EQ(fai_mossa_del_bianco[11], &fai_pedone_bianco_cattura_cavallo);
  EXPECT_EQ(fai_mossa_del_bianco[39], &fai_re_bianco_cattura_donna);
  EXPECT_EQ(fai_mossa_del_bianco[40], &fai_enpassant_del_bianco);
  EXPECT_EQ(fai_mossa_del_bianco[41], &fai_bianco_promuove_cavallo);
  EXPECT_EQ(fai_mossa_del_bianco[42], &fai_bianco_promuove_cavallo_cattura_cavallo);
  EXPECT_EQ(fai_mossa_del_bianco[60], &fai_bianco_promuove_donna_cattura_donna);
  EXPECT_EQ(fai_mossa_del_nero[1], &fai_o_o_del_nero);
  EXPECT_EQ(fai_mossa_del_nero[3], &fai_sposta2pedone_nero);
  EXPECT_EQ(fai_mossa_del_nero[40], &fai_enpassant_del_nero);
  EXPECT_EQ(fai_mossa_del_nero[59], &fai_nero_promuove_donna_cattura_torre);
  EXPECT_EQ(ritira_mossa_del_bianco[2], &ritira_o_o_o_del_bianco);
  EXPECT_EQ(ritira_mossa_del_nero[12], &ritira_pedone_nero_cattura_alfiere);
  EXPECT_EQ(ritira_mossa_del_nero[25], &ritira_torre_nero_cattura_pedone);
  EXPECT_EQ(ritira_mossa_del_bianco[53], &ritira_bianco_promuove_torre_cattura_alfiere);
  EXPECT_EQ(genera_mosse_del[0], &genera_TutteLeMosse_del_bianco);
  EXPECT_EQ(genera_mosse_del[1], &genera_TutteLeMosse_del_nero);
  for (int i = 2; i < 8; ++i) EXPECT_EQ(genera_mosse_del[i], nullptr) << i;
}

TEST(ParolaMossa, TavolePerColore) {
  EXPECT_EQ(&fai_mossa[BIANCO][0], &fai_mossa_del_bianco[0]);
  EXPECT_EQ(&fai_mossa[NERO][0], &fai_mossa_del_nero[0]);
  EXPECT_EQ(&ritira_mossa[BIANCO][0], &ritira_mossa_del_bianco[0]);
  EXPECT_EQ(&ritira_mossa[NERO][0], &ritira_mossa_del_nero[0]);
  EXPECT_EQ(genera_tattiche_del[BIANCO], &genera_MosseTattiche_del_bianco);
  EXPECT_EQ(genera_tattiche_del[NERO], &genera_MosseTattiche_del_nero);
  EXPECT_EQ(genera_noncatture_del[BIANCO], &genera_noncatture_del_bianco);
  EXPECT_EQ(genera_noncatture_del[NERO], &genera_noncatture_del_nero);
}

}  // namespace
