#include "board/posizione.h"

#include <gtest/gtest.h>

#include <bit>
#include <set>

#include "board/liste.h"

namespace {

using Inserisci = void (*)(uint64_t);
constexpr Inserisci InserisciPer[2][6] = {
    {inserisci_pedone_bianco, inserisci_cavallo_bianco, inserisci_alfiere_bianco,
     inserisci_torre_bianco, inserisci_donna_bianco, inserisci_re_bianco},
    {inserisci_pedone_nero, inserisci_cavallo_nero, inserisci_alfiere_nero, inserisci_torre_nero,
     inserisci_donna_nero, inserisci_re_nero}};

uint64_t Byte(uint64_t parola, int n) { return (parola >> (8 * n)) & 0xFF; }

// Every list, count and union agrees with the piece table.
void VerificaCoerenza() {
  for (int c = 0; c < 2; ++c) {
    uint64_t colore = 0;
    for (int k = 0; k < 5; ++k) {
      const uint64_t n = NumeroPezzi(materiale[c], k);
      EXPECT_EQ(uint64_t(std::popcount(btm_pezzi[c][k])), n);
      uint64_t* lista = k == 0   ? casa_pedone[c]
                        : k == 1 ? casa_cavallo[c]
                        : k == 2 ? casa_alfiere[c]
                        : k == 3 ? casa_torre[c]
                                 : casa_donna[c];
      for (uint64_t slot = 0; slot < n; ++slot) {
        const uint64_t s = lista[slot];
        ASSERT_LT(s, 64u);
        EXPECT_EQ(PezzoIn[s], CodicePezzo(TipoPezzo(k), Colore(c), slot));
        EXPECT_TRUE((btm_pezzi[c][k] >> s) & 1);
      }
      colore |= btm_pezzi[c][k];
    }
    if (PezzoIn[casa_re[c]] == (c ? CODICE_RE_NERO : CODICE_RE_BIANCO))
      colore |= 1ull << casa_re[c];
    EXPECT_EQ(btm_colore[c], colore);
  }
  EXPECT_EQ(btm_occupazione, btm_bianco | btm_nero);
  EXPECT_EQ(btm_bianco & btm_nero, 0u);
}

TEST(Posizione, SvuotaScacchieraAzzeraTutto) {
  SvuotaScacchiera();
  inserisci_re_bianco(60);
  inserisci_re_nero(4);
  inserisci_pedone_bianco(52);
  inserisci_donna_nero(3);
  InfoPosizione = 0x1234;
  ContatoreMosse = 7;
  ElencoMosse[0] = 0x3abc;
  PezzoIn[64] = 0;  // even a spoilt sentinel is restored

  SvuotaScacchiera();
  for (int s = 0; s <= 64; ++s) EXPECT_EQ(PezzoIn[s], CASA_VUOTA) << s;
  for (auto& colore : btm_pezzi)
    for (uint64_t b : colore) EXPECT_EQ(b, 0u);
  EXPECT_EQ(btm_bianco, 0u);
  EXPECT_EQ(btm_nero, 0u);
  EXPECT_EQ(btm_occupazione, 0u);
  EXPECT_EQ(materiale_del_bianco, 0u);
  EXPECT_EQ(materiale_del_nero, 0u);
  EXPECT_EQ(ChiaveHash, 0u);
  EXPECT_EQ(HashPedoni, 0u);
  EXPECT_EQ(InfoPosizione, 0u);
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_EQ(ElencoMosse[0], 0u);
}

TEST(Posizione, SvuotaScacchieraNonToccaTurnoIniziale) {
  TurnoIniziale = 1;
  SvuotaScacchiera();
  EXPECT_EQ(TurnoIniziale, 1u);
  TurnoIniziale = 0;
}

TEST(Posizione, DueCavalliBianchiPrendonoGliSlotZeroEUno) {
  SvuotaScacchiera();
  inserisci_cavallo_bianco(57);
  inserisci_cavallo_bianco(62);
  EXPECT_EQ(PezzoIn[57], 0x20u);
  EXPECT_EQ(PezzoIn[62], 0x21u);
  EXPECT_EQ(casa_cavallo_bianco[0], 57u);
  EXPECT_EQ(casa_cavallo_bianco[1], 62u);
  EXPECT_EQ(Byte(materiale_del_bianco, 1), 2u);
  EXPECT_EQ(Byte(materiale_del_bianco, 5), 2u);
  EXPECT_EQ(Byte(materiale_del_bianco, 7), 6u);
  EXPECT_EQ(btm_cavallo_bianco, (1ull << 57) | (1ull << 62));
  EXPECT_EQ(materiale_del_nero, 0u);
  VerificaCoerenza();
}

TEST(Posizione, TorreEDonnaPesanoTreEQuattordici) {
  for (int c = 0; c < 2; ++c) {
    SvuotaScacchiera();
    InserisciPer[c][TORRE](20);
    InserisciPer[c][DONNA](40);
    EXPECT_EQ(Byte(materiale[c], 6), 3u) << c;
    EXPECT_EQ(Byte(materiale[c], 7), 14u) << c;
    EXPECT_EQ(Byte(materiale[c], 3), 1u) << c;
    EXPECT_EQ(Byte(materiale[c], 4), 1u) << c;
    EXPECT_EQ(Byte(materiale[c], 5), 0u) << c;
    EXPECT_EQ(materiale[1 - c], 0u) << c;
    EXPECT_EQ(PezzoIn[20], CodicePezzo(TORRE, Colore(c), 0));
    EXPECT_EQ(PezzoIn[40], CodicePezzo(DONNA, Colore(c), 0));
  }
}

TEST(Posizione, IncrementiDiMaterialeDiOgniPezzo) {
  // byte: pawns, knights, bishops, rooks, queens, minors, heavy, points
  const uint64_t atteso[5][8] = {{1, 0, 0, 0, 0, 0, 0, 0},
                                 {0, 1, 0, 0, 0, 1, 0, 3},
                                 {0, 0, 1, 0, 0, 1, 0, 3},
                                 {0, 0, 0, 1, 0, 0, 1, 5},
                                 {0, 0, 0, 0, 1, 0, 2, 9}};
  for (int c = 0; c < 2; ++c)
    for (int k = 0; k < 5; ++k) {
      SvuotaScacchiera();
      InserisciPer[c][k](27);
      for (int b = 0; b < 8; ++b) EXPECT_EQ(Byte(materiale[c], b), atteso[k][b]) << c << k << b;
    }
}

TEST(Posizione, IlPedoneCambiaLeDueChiaviDellaStessaChiave) {
  for (int c = 0; c < 2; ++c) {
    SvuotaScacchiera();
    InserisciPer[c][RE](c ? 4 : 60);
    const uint64_t chiave = ChiaveHash, pedoni = HashPedoni;
    InserisciPer[c][PEDONE](35);
    EXPECT_NE(HashPedoni, pedoni);
    EXPECT_EQ(HashPedoni ^ pedoni, ChiaveHash ^ chiave);
    EXPECT_EQ(HashPedoni ^ pedoni, hash_in[c][PEDONE][35]);
  }
}

TEST(Posizione, GliAltriPezziNonToccanoHashPedoni) {
  for (int c = 0; c < 2; ++c)
    for (int k = CAVALLO; k <= RE; ++k) {
      SvuotaScacchiera();
      inserisci_pedone_bianco(50);
      const uint64_t chiave = ChiaveHash, pedoni = HashPedoni;
      InserisciPer[c][k](27);
      EXPECT_EQ(HashPedoni, pedoni) << c << k;
      EXPECT_EQ(ChiaveHash ^ chiave, hash_in[c][k][27]) << c << k;
    }
}

TEST(Posizione, IlReNonCambiaMaterialeNeBitboardDiPezzo) {
  for (int c = 0; c < 2; ++c) {
    SvuotaScacchiera();
    inserisci_torre_bianco(63);
    inserisci_pedone_nero(12);
    uint64_t pezzi[2][5];
    for (int i = 0; i < 2; ++i)
      for (int k = 0; k < 5; ++k) pezzi[i][k] = btm_pezzi[i][k];
    const uint64_t bianco = materiale_del_bianco, nero = materiale_del_nero;
    InserisciPer[c][RE](36);
    EXPECT_EQ(materiale_del_bianco, bianco);
    EXPECT_EQ(materiale_del_nero, nero);
    for (int i = 0; i < 2; ++i)
      for (int k = 0; k < 5; ++k) EXPECT_EQ(btm_pezzi[i][k], pezzi[i][k]);
    EXPECT_EQ(casa_re[c], 36u);
    EXPECT_EQ(PezzoIn[36], c ? CODICE_RE_NERO : CODICE_RE_BIANCO);
    EXPECT_TRUE((btm_colore[c] >> 36) & 1);
    EXPECT_TRUE((btm_occupazione >> 36) & 1);
  }
}

TEST(Posizione, OgniInserimentoTieneInPassoTutteLeStrutture) {
  SvuotaScacchiera();
  int casa = 0;
  uint64_t chiave = 0, pedoni = 0;
  for (int c = 0; c < 2; ++c) {
    InserisciPer[c][RE](uint64_t(casa));
    chiave ^= hash_in[c][RE][casa++];
    for (int k = 0; k < 5; ++k)
      for (int n = 0; n < 3; ++n) {
        if (k == PEDONE && (casa < 8 || casa >= 56)) ++casa;
        InserisciPer[c][k](uint64_t(casa));
        chiave ^= hash_in[c][k][casa];
        if (k == PEDONE) pedoni ^= hash_in[c][k][casa];
        ++casa;
      }
  }
  VerificaCoerenza();
  EXPECT_EQ(ChiaveHash, chiave);
  EXPECT_EQ(HashPedoni, pedoni);
}

TEST(Posizione, LeListeSiRiempionoFinoAllaCapienza) {
  for (int c = 0; c < 2; ++c)
    for (int k = 0; k < 5; ++k) {
      SvuotaScacchiera();
      for (int n = 0; n < CapienzaLista[k]; ++n) InserisciPer[c][k](uint64_t(16 + n));
      EXPECT_EQ(NumeroPezzi(materiale[c], k), uint64_t(CapienzaLista[k]));
      VerificaCoerenza();
    }
}

// ---------------------------------------------------------------------------
// Zobrist keys.

TEST(ChiaviZobrist, LeChiaviBaseSonoDistinteEBenMescolate) {
  std::set<uint64_t> viste;
  int bit_totali = 0;
  for (auto& colore : hash_in)
    for (auto& pezzo : colore)
      for (uint64_t chiave : pezzo) {
        viste.insert(chiave);
        EXPECT_GE(std::popcount(chiave), 12);
        EXPECT_LE(std::popcount(chiave), 52);
        bit_totali += std::popcount(chiave);
      }
  EXPECT_EQ(viste.size(), 768u);
  // About half of the 49,152 bits are set.
  EXPECT_NEAR(bit_totali, 768 * 32, 768 * 2);
  for (int diritto = 0; diritto < 4; ++diritto)
    EXPECT_EQ(viste.count(HashDiritti[1 << diritto]), 0u);
}

TEST(ChiaviZobrist, CostantiDegliArrocchi) {
  const char* const nomi[2][2] = {{"e1g1", "e1c1"}, {"e8g8", "e8c8"}};
  for (int c = 0; c < 2; ++c)
    for (int lungo = 0; lungo < 2; ++lungo) {
      const Arrocco& a = Arrocchi[c][lungo];
      EXPECT_EQ(hash_in[c][RE][a.re] ^ hash_in[c][RE][a.re_arrivo] ^ hash_in[c][TORRE][a.torre] ^
                    hash_in[c][TORRE][a.torre_arrivo],
                a.chiave_pezzi)
          << nomi[c][lungo];
      EXPECT_EQ(ChiavePezziArrocco(Colore(c), a), a.chiave_pezzi) << nomi[c][lungo];
    }
  EXPECT_EQ(HASH_ARROCCO_CORTO_BIANCO ^ HASH_ARROCCO_LUNGO_BIANCO, HASH_ARROCCHI_BIANCO);
  EXPECT_EQ(HASH_ARROCCO_CORTO_NERO ^ HASH_ARROCCO_LUNGO_NERO, HASH_ARROCCHI_NERO);
  // In the order of the right bits of InfoPosizione.
  const uint64_t una[4] = {HASH_ARROCCO_CORTO_BIANCO, HASH_ARROCCO_LUNGO_BIANCO,
                           HASH_ARROCCO_CORTO_NERO, HASH_ARROCCO_LUNGO_NERO};
  for (uint64_t diritti = 0; diritti < 16; ++diritti) {
    uint64_t attesa = 0;
    for (int i = 0; i < 4; ++i)
      if (diritti & (1u << i)) attesa ^= una[i];
    EXPECT_EQ(HashDiritti[diritti], attesa) << diritti;
    EXPECT_EQ(ChiaveDiritti(diritti << SHIFT_DIRITTI), attesa) << diritti;
  }
}

TEST(ChiaviZobrist, CostantiDegliArrocchiComePubblicate) {
  EXPECT_EQ(hash_re_bianco_in[60] ^ hash_re_bianco_in[62] ^ hash_torre_bianco_in[63] ^
                hash_torre_bianco_in[61],
            0x3aa3e0b15d7a91b6ull);
  EXPECT_EQ(hash_re_bianco_in[60] ^ hash_re_bianco_in[58] ^ hash_torre_bianco_in[56] ^
                hash_torre_bianco_in[59],
            0x7d94c8673fc52b60ull);
  EXPECT_EQ(hash_re_nero_in[4] ^ hash_re_nero_in[6] ^ hash_torre_nero_in[7] ^ hash_torre_nero_in[5],
            0xecfe612e1daf5aaeull);
  EXPECT_EQ(hash_re_nero_in[4] ^ hash_re_nero_in[2] ^ hash_torre_nero_in[0] ^ hash_torre_nero_in[3],
            0xd11f82d3411bd340ull);
}

TEST(ChiaviZobrist, ChiaviDeiDirittiComePubblicate) {
  EXPECT_EQ(HASH_ARROCCO_CORTO_BIANCO, 0x8afd7d2bbd35a91dull);
  EXPECT_EQ(HASH_ARROCCO_LUNGO_BIANCO, 0x0e978b7c4d38da67ull);
  EXPECT_EQ(HASH_ARROCCO_CORTO_NERO, 0xb2646b84387fdea8ull);
  EXPECT_EQ(HASH_ARROCCO_LUNGO_NERO, 0x6f871e8ef10433f8ull);
  EXPECT_EQ(HASH_ARROCCHI_BIANCO, 0x846af657f00d737aull);
  EXPECT_EQ(HASH_ARROCCHI_NERO, 0xdde3750ac97bed50ull);
}

TEST(ChiaviZobrist, TabelleDerivateSeguonoLeRegole) {
  const auto& pb = hash_pedone_bianco_in;
  const auto& pn = hash_pedone_nero_in;
  for (int t = 0; t < 64; ++t) {
    EXPECT_EQ(HashSpostaPedone_bianco_in[t], t >= 8 && t <= 47 ? pb[t] ^ pb[t + 8] : 0) << t;
    EXPECT_EQ(HashSpostaPedone_nero_in[t], t >= 16 && t <= 55 ? pn[t] ^ pn[t - 8] : 0) << t;
    uint64_t doppio = 0, enpassant = 0;
    if (t >= 24 && t <= 31) {
      doppio = pn[t] ^ pn[t - 16];
      enpassant = pn[t] ^ pb[t - 8];
    } else if (t >= 32 && t <= 39) {
      doppio = pb[t] ^ pb[t + 16];
      enpassant = pb[t] ^ pn[t + 8];
    }
    EXPECT_EQ(HashSpostaPedone2In[t], doppio) << t;
    EXPECT_EQ(HashCatturaEnpassantIn[t], enpassant) << t;
    EXPECT_EQ(HashPermessoEnpassantIn[t] != 0, t >= 24 && t <= 39) << t;
  }
}

TEST(ChiaviZobrist, PermessiEnpassantDistintiDaOgniChiaveUsata) {
  // A permission key must not cancel against a key that can stand on the board.
  std::set<uint64_t> usate;
  for (int c = 0; c < 2; ++c)
    for (int k = 0; k < 6; ++k)
      for (int s = 0; s < 64; ++s)
        if (k != PEDONE || (s >= 8 && s < 56)) usate.insert(hash_in[c][k][s]);
  std::set<uint64_t> permessi;
  for (int t = 24; t <= 39; ++t) {
    EXPECT_EQ(usate.count(HashPermessoEnpassantIn[t]), 0u) << t;
    permessi.insert(HashPermessoEnpassantIn[t]);
  }
  EXPECT_EQ(permessi.size(), 16u);
}

TEST(ChiaviZobrist, TabelleIndicizzatePerColoreCoincidonoConINomi) {
  EXPECT_EQ(&hash_pedone_bianco_in[0], &hash_in[BIANCO][PEDONE][0]);
  EXPECT_EQ(&hash_re_nero_in[0], &hash_in[NERO][RE][0]);
  EXPECT_EQ(&HashSpostaPedone_nero_in[0], &HashSpostaPedone_in[NERO][0]);
  EXPECT_EQ(&btm_torre_nero, &btm_pezzi[NERO][TORRE]);
  EXPECT_EQ(&casa_donna_bianco[0], &casa_donna[BIANCO][0]);
}

}  // namespace
