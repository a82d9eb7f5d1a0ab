// The game record and its rules: reading a typed move, the legal moves of
// the position on the board, playing the move and writing it in algebraic
// notation, the end of the game, repetitions, taking a move back.
#pragma once

#include <cstdint>

#include "board/posizione.h"

// The text of every ply: slot n holds the move that made ContatoreMosse n
// ("Nf3", "exd8=Q+", "0-0-0"), at most 7 characters and a zero.
constexpr int LUNGHEZZA_STRINGA_MOSSA = 8;
extern char ElencoStringaMossa[MAX_SEMIMOSSE][LUNGHEZZA_STRINGA_MOSSA];

// What a typed text says about a move; 8 where it says nothing. Rows count
// from rank 8 (row 0) as the squares do.
constexpr int8_t VALORE_SCONOSCIUTO = 8;
struct RecordDettagliMossa {
  int8_t TipoPezzo;
  int8_t TipoPromozione;
  int8_t ColonnaPartenza;
  int8_t RigaPartenza;
  int8_t ColonnaDestinazione;
  int8_t RigaDestinazione;
};
extern RecordDettagliMossa DettagliMossa;

extern const char* const CaratteriUtili;      // "12345678abcdefghNBRQK0"
extern const char* const ColonnaInMaiuscolo;  // "ACDEFGH"
extern const char* const PezzoInMinuscolo;    // "nrqk"
extern const char* const Oo;                  // "Oo"

// 1 when `testo` has the shape of a move (DettagliMossa filled), else 0.
int LeggiDettagliMossaDaComando(const char* testo);
// The one legal move that agrees with DettagliMossa, or 0.
uint64_t TrovaMossaCompatibile();
// The legal moves of the side to move into BufferMosseGenerate, and the
// position's keys into the record of this ply.
void GeneraMosseLegali();
// Plays the move DettagliMossa describes (pressing the clock when it runs);
// its word, or 0 when no single legal move matches.
uint64_t FaiMossaInComando();
// Writes the move just played into ElencoStringaMossa, regenerates the legal
// moves, and looks for the end of the game (adjudicating, noticing, asking).
void AnnotaMossa(uint64_t mossa);

// Repetitions of the current position: how many earlier occurrences the last
// scan found (0..2), and their plies, the most recent first.
extern uint32_t Ripetizioni;
extern uint32_t PosizioneRipetuta[2];
extern const char* const StringaRipetizioni[3];
void ScansionaRipetizioni();

// The last ply a game can reach: every table of the record keeps a slot
// beyond the current ply for the legal-move filter.
extern const uint64_t ULTIMA_SEMIMOSSA;
// True when no further move fits in the record.
bool PartitaCompleta();

// Takes back the last move: unmake, revoke any result, regenerate. The
// caller has checked that there is a move and that the clock is stopped.
void RitiraUltimaMossa();
// The record of a new game, after the position has been loaded.
void AzzeraPartita();

// The facts of DettagliMossa, written at the console's cursor.
void ScriviDettagliMossa();
