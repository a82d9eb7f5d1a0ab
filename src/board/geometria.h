// Fixed geometric facts about squares and pairs of squares, the bit scan, and
// the magic-multiplier lookup of sliding attacks.
#pragma once

#include <bit>
#include <cstdint>

#include "board/posizione.h"

// One-step neighbours, 64 beyond the edge.
extern const uint64_t AOvestDi[64];
extern const uint64_t AEstDi[64];
extern const uint64_t ANordDi[64];
extern const uint64_t ASudDi[64];
extern const uint64_t ANordovestDi[64];
extern const uint64_t ANordestDi[64];
extern const uint64_t ASudovestDi[64];
extern const uint64_t ASudestDi[64];

// Squares attacked by a pawn of that colour standing on the square (and,
// read the other way, the squares from which an enemy pawn attacks it).
extern const uint64_t MscBersagliPedone_bianco_da[64];
extern const uint64_t MscBersagliPedone_nero_da[64];
extern const uint64_t MscBersagliPedone_da[2][64];  // same tables indexed by colour

extern const uint64_t MascheraMobilita_cavallo_in[64];
extern const uint64_t MascheraMobilita_re_in[64];
// Relevant-occupancy masks of the sliders (rays without their edge square).
extern const uint64_t MascheraMobilita_alfiere_in[64];
extern const uint64_t MascheraMobilita_torre_in[64];
extern const uint64_t MascheraMobilita_donna_in[64];

// De Bruijn bit scan: lowest set bit of a non-zero bitboard.
constexpr uint64_t DE_BRUIJN_64 = 0x07EDD5E59A4E28C2ull;
extern const uint32_t BitScanDatabase[64];
// The hardware instruction gives the same square as the table, faster.
inline uint64_t PrimaCasa(uint64_t b) { return uint64_t(std::countr_zero(b)); }

// Tables built at start-up by InizializzaInfoTraiettorie.
extern uint8_t Distanza[64][64];
extern uint8_t TipoTraiettoria[64][64];  // 0 none, 1 knight jump, 2 diagonal, 3 rank/file
extern uint64_t btm_InMezzo[64][64];
extern uint64_t btm_oltre[64][64];
extern uint64_t BitmapTraiettorieDa[64];
extern uint64_t BitmapTraiettorieDritteDa[64];
extern uint64_t BitmapTraiettorieDiagonaliDa[64];
void InizializzaInfoTraiettorie();

// Sliding attacks: rook sub-tables first, then bishop sub-tables.
constexpr int DIMENSIONE_DB_MOBILITA = 101504;
extern uint64_t DbMobilita[DIMENSIONE_DB_MOBILITA];
extern uint64_t* const mobilita_torre_da[64];
extern uint64_t* const mobilita_alfiere_da[64];
extern const uint64_t FattoreMagicoMobilita_torre_in[64];
extern const uint64_t FattoreMagicoMobilita_alfiere_in[64];
extern const uint32_t ShiftIndiceMobilita_torre_in[64];
extern const uint32_t ShiftIndiceMobilita_alfiere_in[64];
void InizializzaDbMobilita();

// Builds every table above that is filled at start-up: the engine needs them
// before its first move or position.
void InizializzaTabelle();

// Attack sets including the first blocker on each ray (either colour).
SEMPRE_IN_LINEA uint64_t AttacchiTorre(uint64_t casa, uint64_t occupazione) {
  return mobilita_torre_da[casa][((occupazione & MascheraMobilita_torre_in[casa]) *
                                  FattoreMagicoMobilita_torre_in[casa]) >>
                                 ShiftIndiceMobilita_torre_in[casa]];
}
SEMPRE_IN_LINEA uint64_t AttacchiAlfiere(uint64_t casa, uint64_t occupazione) {
  return mobilita_alfiere_da[casa][((occupazione & MascheraMobilita_alfiere_in[casa]) *
                                    FattoreMagicoMobilita_alfiere_in[casa]) >>
                                   ShiftIndiceMobilita_alfiere_in[casa]];
}
