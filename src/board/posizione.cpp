// The position globals, the Zobrist key tables and the placement of pieces.
#include "board/posizione.h"

#include "board/tabella64.h"

const char CarattereColonna[9] = "abcdefgh";
const char CaratterePezzo[7] = "pnbrqk";

uint64_t btm_pezzi[2][5];
uint64_t btm_colore[2];
uint64_t btm_occupazione;

namespace {
constexpr uint64_t Vuota(int) { return CASA_VUOTA; }
}  // namespace
uint64_t PezzoIn[65] = {TABELLA64(Vuota), CASA_VUOTA};

uint64_t casa_pedone[2][8];
uint64_t casa_cavallo[2][10];
uint64_t casa_alfiere[2][10];
uint64_t casa_torre[2][10];
uint64_t casa_donna[2][9];
uint64_t casa_re[2];

uint64_t materiale[2];
uint64_t InfoPosizione;
uint64_t ContatoreMosse;
uint64_t TurnoIniziale;
uint64_t ElencoMosse[MAX_SEMIMOSSE];

uint64_t ChiaveHash;
uint64_t HashPedoni;

// ---------------------------------------------------------------------------
// Derived key tables: the combined keys make-move XORs in one step.
namespace {

constexpr uint64_t Pedone(Colore c, int casa) { return hash_in[c][PEDONE][casa]; }

// A single step onto t: White comes from t + 8, Black from t - 8.
constexpr uint64_t SpostaBianco(int t) {
  return t >= 8 && t <= 47 ? Pedone(BIANCO, t) ^ Pedone(BIANCO, t + 8) : 0;
}
constexpr uint64_t SpostaNero(int t) {
  return t >= 16 && t <= 55 ? Pedone(NERO, t) ^ Pedone(NERO, t - 8) : 0;
}
// A double step onto t: Black lands on rank 5, White on rank 4.
constexpr uint64_t Sposta2(int t) {
  if (t >= 24 && t <= 31) return Pedone(NERO, t) ^ Pedone(NERO, t - 16);
  if (t >= 32 && t <= 39) return Pedone(BIANCO, t) ^ Pedone(BIANCO, t + 16);
  return 0;
}
// t is the captured pawn's square; the capturer lands behind it.
constexpr uint64_t CatturaEnpassant(int t) {
  if (t >= 24 && t <= 31) return Pedone(NERO, t) ^ Pedone(BIANCO, t - 8);
  if (t >= 32 && t <= 39) return Pedone(BIANCO, t) ^ Pedone(NERO, t + 8);
  return 0;
}
// No pawn ever stands on its own back rank, so those pawn keys are free to
// mark the en passant permission of the pawn that double-stepped to t.
constexpr uint64_t PermessoEnpassant(int t) {
  if (t >= 24 && t <= 31) return Pedone(NERO, t - 24);
  if (t >= 32 && t <= 39) return Pedone(BIANCO, t + 24);
  return 0;
}

}  // namespace

constexpr uint64_t HashSpostaPedone_in[2][64] = {{TABELLA64(SpostaBianco)},
                                                 {TABELLA64(SpostaNero)}};
constexpr uint64_t HashSpostaPedone2In[64] = {TABELLA64(Sposta2)};
constexpr uint64_t HashCatturaEnpassantIn[64] = {TABELLA64(CatturaEnpassant)};
constexpr uint64_t HashPermessoEnpassantIn[64] = {TABELLA64(PermessoEnpassant)};

// The piece keys of each castling, as make-move adds them in one constant.
static_assert(ChiavePezziArrocco(BIANCO, Arrocchi[BIANCO][0]) == Arrocchi[BIANCO][0].chiave_pezzi);
static_assert(ChiavePezziArrocco(BIANCO, Arrocchi[BIANCO][1]) == Arrocchi[BIANCO][1].chiave_pezzi);
static_assert(ChiavePezziArrocco(NERO, Arrocchi[NERO][0]) == Arrocchi[NERO][0].chiave_pezzi);
static_assert(ChiavePezziArrocco(NERO, Arrocchi[NERO][1]) == Arrocchi[NERO][1].chiave_pezzi);

// The square lists and king squares keep stale values: the counts say which
// slots are meaningful, and placing a king rewrites its square.
void SvuotaScacchiera() {
  for (uint64_t& pezzo : PezzoIn) pezzo = CASA_VUOTA;
  HashPedoni = 0;
  ChiaveHash = 0;
  materiale_del_bianco = 0;
  materiale_del_nero = 0;
  btm_occupazione = 0;
  btm_nero = 0;
  btm_bianco = 0;
  for (auto& colore : btm_pezzi)
    for (uint64_t& btm : colore) btm = 0;
  InfoPosizione = 0;
  ContatoreMosse = 0;
  ElencoMosse[0] = 0;
}

uint64_t CalcolaChiaveHash() {
  uint64_t chiave = ChiaveDiritti(InfoPosizione) ^ ChiavePermessoEnpassant(InfoPosizione);
  for (uint64_t s = 0; s < 64; ++s) {
    const uint64_t codice = PezzoIn[s];
    if (codice != CASA_VUOTA) chiave ^= hash_in[ColoreDelCodice(codice)][TipoDelCodice(codice)][s];
  }
  return chiave;
}

uint64_t CalcolaHashPedoni() {
  uint64_t chiave = 0;
  for (uint64_t s = 0; s < 64; ++s) {
    const uint64_t codice = PezzoIn[s];
    if (codice != CASA_VUOTA && TipoDelCodice(codice) == PEDONE)
      chiave ^= hash_in[ColoreDelCodice(codice)][PEDONE][s];
  }
  return chiave;
}
