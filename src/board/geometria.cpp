// Square geometry, the bit-scan table and the magic lookup of sliding attacks.
#include "board/geometria.h"

#include "board/tabella64.h"

namespace {

constexpr int Colonna(int s) { return s & 7; }
constexpr int Riga(int s) { return s >> 3; }  // 0 = rank 8

// The square df files and dr rows away (dr > 0 is south), 64 off the board.
constexpr uint64_t Vicino(int s, int df, int dr) {
  const int f = Colonna(s) + df, r = Riga(s) + dr;
  return f >= 0 && f < 8 && r >= 0 && r < 8 ? uint64_t(8 * r + f) : NESSUNA_CASA;
}
constexpr uint64_t Bit(uint64_t casa) { return casa < 64 ? 1ull << casa : 0; }

constexpr uint64_t Ovest(int s) { return Vicino(s, -1, 0); }
constexpr uint64_t Est(int s) { return Vicino(s, 1, 0); }
constexpr uint64_t Nord(int s) { return Vicino(s, 0, -1); }
constexpr uint64_t Sud(int s) { return Vicino(s, 0, 1); }
constexpr uint64_t Nordovest(int s) { return Vicino(s, -1, -1); }
constexpr uint64_t Nordest(int s) { return Vicino(s, 1, -1); }
constexpr uint64_t Sudovest(int s) { return Vicino(s, -1, 1); }
constexpr uint64_t Sudest(int s) { return Vicino(s, 1, 1); }

constexpr uint64_t BersagliPedoneBianco(int s) { return Bit(Nordovest(s)) | Bit(Nordest(s)); }
constexpr uint64_t BersagliPedoneNero(int s) { return Bit(Sudovest(s)) | Bit(Sudest(s)); }

constexpr uint64_t Salti(int s, const int (&passi)[8][2]) {
  uint64_t b = 0;
  for (const auto& p : passi) b |= Bit(Vicino(s, p[0], p[1]));
  return b;
}
constexpr int PassiCavallo[8][2] = {{1, 2},   {2, 1},   {2, -1}, {1, -2},
                                    {-1, -2}, {-2, -1}, {-2, 1}, {-1, 2}};
constexpr int PassiRe[8][2] = {{1, 0},  {1, 1},   {0, 1},  {-1, 1},
                               {-1, 0}, {-1, -1}, {0, -1}, {1, -1}};
constexpr uint64_t Cavallo(int s) { return Salti(s, PassiCavallo); }
constexpr uint64_t Re(int s) { return Salti(s, PassiRe); }

// A ray without its last square: a piece there blocks nothing further.
constexpr uint64_t RaggioInterno(int s, int df, int dr) {
  uint64_t b = 0;
  for (uint64_t c = Vicino(s, df, dr); c < 64 && Vicino(int(c), df, dr) < 64;
       c = Vicino(int(c), df, dr))
    b |= 1ull << c;
  return b;
}
constexpr uint64_t MascheraTorre(int s) {
  return RaggioInterno(s, 0, -1) | RaggioInterno(s, 0, 1) | RaggioInterno(s, -1, 0) |
         RaggioInterno(s, 1, 0);
}
constexpr uint64_t MascheraAlfiere(int s) {
  return RaggioInterno(s, -1, -1) | RaggioInterno(s, 1, -1) | RaggioInterno(s, -1, 1) |
         RaggioInterno(s, 1, 1);
}
constexpr uint64_t MascheraDonna(int s) { return MascheraTorre(s) | MascheraAlfiere(s); }

constexpr uint32_t InversoDeBruijn(int i) {
  for (int n = 0; n < 64; ++n)
    if (((1ull << n) * DE_BRUIJN_64) >> 58 == uint64_t(i)) return uint32_t(n);
  return 64;
}

}  // namespace

constexpr uint64_t AOvestDi[64] = {TABELLA64(Ovest)};
constexpr uint64_t AEstDi[64] = {TABELLA64(Est)};
constexpr uint64_t ANordDi[64] = {TABELLA64(Nord)};
constexpr uint64_t ASudDi[64] = {TABELLA64(Sud)};
constexpr uint64_t ANordovestDi[64] = {TABELLA64(Nordovest)};
constexpr uint64_t ANordestDi[64] = {TABELLA64(Nordest)};
constexpr uint64_t ASudovestDi[64] = {TABELLA64(Sudovest)};
constexpr uint64_t ASudestDi[64] = {TABELLA64(Sudest)};

constexpr uint64_t MscBersagliPedone_bianco_da[64] = {TABELLA64(BersagliPedoneBianco)};
constexpr uint64_t MscBersagliPedone_nero_da[64] = {TABELLA64(BersagliPedoneNero)};
constexpr uint64_t MscBersagliPedone_da[2][64] = {{TABELLA64(BersagliPedoneBianco)},
                                                  {TABELLA64(BersagliPedoneNero)}};

constexpr uint64_t MascheraMobilita_cavallo_in[64] = {TABELLA64(Cavallo)};
constexpr uint64_t MascheraMobilita_re_in[64] = {TABELLA64(Re)};
constexpr uint64_t MascheraMobilita_alfiere_in[64] = {TABELLA64(MascheraAlfiere)};
constexpr uint64_t MascheraMobilita_torre_in[64] = {TABELLA64(MascheraTorre)};
constexpr uint64_t MascheraMobilita_donna_in[64] = {TABELLA64(MascheraDonna)};

constexpr uint32_t BitScanDatabase[64] = {TABELLA64(InversoDeBruijn)};
static_assert(BitScanDatabase[0] == 63 && BitScanDatabase[1] == 0 && BitScanDatabase[2] == 58 &&
              BitScanDatabase[7] == 2);

// ---------------------------------------------------------------------------
uint8_t Distanza[64][64];
uint8_t TipoTraiettoria[64][64];
uint64_t btm_InMezzo[64][64];
uint64_t btm_oltre[64][64];
uint64_t BitmapTraiettorieDa[64];
uint64_t BitmapTraiettorieDritteDa[64];
uint64_t BitmapTraiettorieDiagonaliDa[64];

void InizializzaInfoTraiettorie() {
  for (int a = 0; a < 64; ++a) {
    BitmapTraiettorieDa[a] = BitmapTraiettorieDritteDa[a] = BitmapTraiettorieDiagonaliDa[a] = 0;
    for (int b = 0; b < 64; ++b) {
      TipoTraiettoria[a][b] = 0;
      btm_InMezzo[a][b] = btm_oltre[a][b] = 0;
    }
  }
  int diagonale1[64], diagonale2[64];
  for (int s = 0; s < 64; ++s) {
    diagonale1[s] = Colonna(s) + Riga(s);      // same along north-east / south-west lines
    diagonale2[s] = Colonna(s) - Riga(s) + 7;  // same along north-west / south-east lines
  }
  for (int a = 0; a < 64; ++a) {
    for (int b = 0; b < 64; ++b) {
      const int df = Colonna(a) > Colonna(b) ? Colonna(a) - Colonna(b) : Colonna(b) - Colonna(a);
      const int dr = Riga(a) > Riga(b) ? Riga(a) - Riga(b) : Riga(b) - Riga(a);
      Distanza[a][b] = uint8_t(df > dr ? df : dr);
      if (a == b) continue;
      const uint64_t* raggio;
      if (Riga(a) == Riga(b)) {
        TipoTraiettoria[a][b] = 3;
        raggio = a > b ? AOvestDi : AEstDi;
        BitmapTraiettorieDritteDa[a] |= 1ull << b;
      } else if (Colonna(a) == Colonna(b)) {
        TipoTraiettoria[a][b] = 3;
        raggio = a > b ? ANordDi : ASudDi;
        BitmapTraiettorieDritteDa[a] |= 1ull << b;
      } else if (diagonale1[a] == diagonale1[b]) {
        TipoTraiettoria[a][b] = 2;
        raggio = a > b ? ANordestDi : ASudovestDi;
        BitmapTraiettorieDiagonaliDa[a] |= 1ull << b;
      } else if (diagonale2[a] == diagonale2[b]) {
        TipoTraiettoria[a][b] = 2;
        raggio = a > b ? ANordovestDi : ASudestDi;
        BitmapTraiettorieDiagonaliDa[a] |= 1ull << b;
      } else {
        if (Distanza[a][b] == 2) TipoTraiettoria[a][b] = 1;
        continue;
      }
      BitmapTraiettorieDa[a] |= 1ull << b;
      uint64_t c = raggio[a];
      for (; c != uint64_t(b); c = raggio[c]) btm_InMezzo[a][b] |= 1ull << c;
      for (c = raggio[c]; c < 64; c = raggio[c]) btm_oltre[a][b] |= 1ull << c;
    }
  }
}

// ---------------------------------------------------------------------------
// Magic multipliers: Pradu Kannan's published optimal table (magicmoves,
// 2007). It numbers a1 as square 0; sliding attacks are symmetric under the
// vertical flip, so its multiplier for square n serves our square n as is.
// The rook entries of our rank 1 hash into fewer bits than their masks hold
// and work only through constructive collisions.
constexpr uint64_t FattoreMagicoMobilita_torre_in[64] = {
    0x0080001020400080ull, 0x0040001000200040ull, 0x0080081000200080ull, 0x0080040800100080ull,
    0x0080020400080080ull, 0x0080010200040080ull, 0x0080008001000200ull, 0x0080002040800100ull,
    0x0000800020400080ull, 0x0000400020005000ull, 0x0000801000200080ull, 0x0000800800100080ull,
    0x0000800400080080ull, 0x0000800200040080ull, 0x0000800100020080ull, 0x0000800040800100ull,
    0x0000208000400080ull, 0x0000404000201000ull, 0x0000808010002000ull, 0x0000808008001000ull,
    0x0000808004000800ull, 0x0000808002000400ull, 0x0000010100020004ull, 0x0000020000408104ull,
    0x0000208080004000ull, 0x0000200040005000ull, 0x0000100080200080ull, 0x0000080080100080ull,
    0x0000040080080080ull, 0x0000020080040080ull, 0x0000010080800200ull, 0x0000800080004100ull,
    0x0000204000800080ull, 0x0000200040401000ull, 0x0000100080802000ull, 0x0000080080801000ull,
    0x0000040080800800ull, 0x0000020080800400ull, 0x0000020001010004ull, 0x0000800040800100ull,
    0x0000204000808000ull, 0x0000200040008080ull, 0x0000100020008080ull, 0x0000080010008080ull,
    0x0000040008008080ull, 0x0000020004008080ull, 0x0000010002008080ull, 0x0000004081020004ull,
    0x0000204000800080ull, 0x0000200040008080ull, 0x0000100020008080ull, 0x0000080010008080ull,
    0x0000040008008080ull, 0x0000020004008080ull, 0x0000800100020080ull, 0x0000800041000080ull,
    0x00FFFCDDFCED714Aull, 0x007FFCDDFCED714Aull, 0x003FFFCDFFD88096ull, 0x0000040810002101ull,
    0x0001000204080011ull, 0x0001000204000801ull, 0x0001000082000401ull, 0x0001FFFAABFAD1A2ull};
constexpr uint64_t FattoreMagicoMobilita_alfiere_in[64] = {
    0x0002020202020200ull, 0x0002020202020000ull, 0x0004010202000000ull, 0x0004040080000000ull,
    0x0001104000000000ull, 0x0000821040000000ull, 0x0000410410400000ull, 0x0000104104104000ull,
    0x0000040404040400ull, 0x0000020202020200ull, 0x0000040102020000ull, 0x0000040400800000ull,
    0x0000011040000000ull, 0x0000008210400000ull, 0x0000004104104000ull, 0x0000002082082000ull,
    0x0004000808080800ull, 0x0002000404040400ull, 0x0001000202020200ull, 0x0000800802004000ull,
    0x0000800400A00000ull, 0x0000200100884000ull, 0x0000400082082000ull, 0x0000200041041000ull,
    0x0002080010101000ull, 0x0001040008080800ull, 0x0000208004010400ull, 0x0000404004010200ull,
    0x0000840000802000ull, 0x0000404002011000ull, 0x0000808001041000ull, 0x0000404000820800ull,
    0x0001041000202000ull, 0x0000820800101000ull, 0x0000104400080800ull, 0x0000020080080080ull,
    0x0000404040040100ull, 0x0000808100020100ull, 0x0001010100020800ull, 0x0000808080010400ull,
    0x0000820820004000ull, 0x0000410410002000ull, 0x0000082088001000ull, 0x0000002011000800ull,
    0x0000080100400400ull, 0x0001010101000200ull, 0x0002020202000400ull, 0x0001010101000200ull,
    0x0000410410400000ull, 0x0000208208200000ull, 0x0000002084100000ull, 0x0000000020880000ull,
    0x0000001002020000ull, 0x0000040408020000ull, 0x0004040404040000ull, 0x0002020202020000ull,
    0x0000104104104000ull, 0x0000002082082000ull, 0x0000000020841000ull, 0x0000000000208800ull,
    0x0000000010020200ull, 0x0000000404080200ull, 0x0000040404040400ull, 0x0002020202020200ull};

namespace {

// Index widths (64 - shift). Rooks: 12 in the rank-8 corners, 11 on the other
// edge squares, 10 inside; rank 1 is narrower than its masks at a1, b1, c1, h1.
constexpr int LarghezzaTorre(int s) {
  if (s >= 56) return s == 57 || s == 58 ? 10 : 11;
  const bool bordo_riga = s < 8, bordo_colonna = Colonna(s) == 0 || Colonna(s) == 7;
  return 10 + bordo_riga + bordo_colonna;
}
constexpr int LarghezzaAlfiere(int s) { return std::popcount(MascheraAlfiere(s)); }
constexpr uint32_t ShiftTorre(int s) { return uint32_t(64 - LarghezzaTorre(s)); }
constexpr uint32_t ShiftAlfiere(int s) { return uint32_t(64 - LarghezzaAlfiere(s)); }

// Sub-tables one after another, rooks first.
constexpr int InizioTorre(int s) {
  int n = 0;
  for (int i = 0; i < s; ++i) n += 1 << LarghezzaTorre(i);
  return n;
}
constexpr int InizioAlfiere(int s) {
  int n = InizioTorre(64);
  for (int i = 0; i < s; ++i) n += 1 << LarghezzaAlfiere(i);
  return n;
}
static_assert(InizioTorre(1) == 4096 && InizioTorre(2) == 6144 && InizioTorre(64) == 96256);
static_assert(InizioAlfiere(1) == 96320 && InizioAlfiere(64) == DIMENSIONE_DB_MOBILITA);

}  // namespace

constexpr uint32_t ShiftIndiceMobilita_torre_in[64] = {TABELLA64(ShiftTorre)};
constexpr uint32_t ShiftIndiceMobilita_alfiere_in[64] = {TABELLA64(ShiftAlfiere)};

uint64_t DbMobilita[DIMENSIONE_DB_MOBILITA];
#define PENDRINO_SUBTABELLA_TORRE(s) (DbMobilita + InizioTorre(s))
#define PENDRINO_SUBTABELLA_ALFIERE(s) (DbMobilita + InizioAlfiere(s))
uint64_t* const mobilita_torre_da[64] = {TABELLA64(PENDRINO_SUBTABELLA_TORRE)};
uint64_t* const mobilita_alfiere_da[64] = {TABELLA64(PENDRINO_SUBTABELLA_ALFIERE)};

namespace {

// Every blocker pattern of the four rays of a slider on s: each ray's inner
// squares (the edge square never blocks anything beyond it) take every
// on/off combination; the attack set stops at the first blocker while the
// occupancy takes every blocker of the ray.
void RiempiSubtabella(uint64_t s, const uint64_t* const (&raggi)[4], uint64_t* subtabella,
                      uint64_t maschera, uint64_t fattore, uint32_t shift) {
  int interne[4], totale = 0;
  for (int r = 0; r < 4; ++r) {
    interne[r] = 0;
    for (uint64_t c = raggi[r][s]; c < 64 && raggi[r][c] < 64; c = raggi[r][c]) ++interne[r];
    totale += interne[r];
  }
  for (uint64_t schema = 0; schema < (1ull << totale); ++schema) {
    uint64_t attacchi = 0, occupazione = 0, resto = schema;
    for (int r = 0; r < 4; ++r) {
      const uint64_t bloccanti = resto & ((1ull << interne[r]) - 1);
      resto >>= interne[r];
      bool fermo = false;
      int k = 0;
      for (uint64_t c = raggi[r][s]; c < 64; c = raggi[r][c], ++k) {
        if (!fermo) attacchi |= 1ull << c;
        if ((bloccanti >> k) & 1) {
          occupazione |= 1ull << c;
          fermo = true;
        }
      }
    }
    subtabella[((occupazione & maschera) * fattore) >> shift] = attacchi;
  }
}

}  // namespace

void InizializzaDbMobilita() {
  static const uint64_t* const dritti[4] = {ANordDi, ASudDi, AOvestDi, AEstDi};
  static const uint64_t* const diagonali[4] = {ANordovestDi, ANordestDi, ASudovestDi, ASudestDi};
  for (uint64_t s = 0; s < 64; ++s) {
    RiempiSubtabella(s, dritti, mobilita_torre_da[s], MascheraMobilita_torre_in[s],
                     FattoreMagicoMobilita_torre_in[s], ShiftIndiceMobilita_torre_in[s]);
    RiempiSubtabella(s, diagonali, mobilita_alfiere_da[s], MascheraMobilita_alfiere_in[s],
                     FattoreMagicoMobilita_alfiere_in[s], ShiftIndiceMobilita_alfiere_in[s]);
  }
}

void InizializzaTabelle() {
  InizializzaInfoTraiettorie();
  InizializzaDbMobilita();
}
