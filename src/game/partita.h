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

// The mover's time left after each ply, in milliseconds, as the clock stood
// once the move was played (increment included): slot n for the ply that
// made ContatoreMosse n. What the arbiter retraces a game with.
extern int32_t TempoDopoMossa[MAX_SEMIMOSSE];
// The journal gives a ply's time back as it was written.
void ImpostaTempoDopoMossa(uint64_t semimossa, int32_t millisecondi);

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
// What a move played brought about, for the console to show and say: the
// record's text is ElencoStringaMossa[ContatoreMosse].
enum class FineDellaPartita : uint8_t {
  Nessuna,
  Scaccomatto,
  Stallo,
  MaterialeInsufficiente,
  // Drawn without a claim: 150 half-moves with no capture and no pawn move,
  // the same position for the fifth time.
  SettantacinqueMosse,
  QuintuplaRipetizione,
};
enum class DomandaAllArbitro : uint8_t { Nessuna, CinquantaMosse, TripliceRipetizione };
struct EsitoMossa {
  uint64_t mossa;             // the move word
  bool scacco;                // the side to move is in check (mated too)
  FineDellaPartita fine;      // already adjudicated, the clock stopped
  DomandaAllArbitro domanda;  // what the arbiter must answer now
  bool disambigua_fallita;    // no origin made the text unique: written anyway
};
// Writes the move just played into ElencoStringaMossa, regenerates the legal
// moves, and looks for the end of the game: mate, stalemate, insufficient
// material, the 75-move rule and the fivefold repetition are adjudicated
// here (a mate first); the fifty-move rule and the threefold repetition are
// questions for the arbiter. At the fifty-move
// question the repetition scan waits for the answer.
EsitoMossa AnnotaMossa(uint64_t mossa);
// The arbiter's answers. Accepting the fifty-move draw adjudicates it and
// no repetition is looked for; refusing it lets the scan run, which may
// bring the threefold question.
void AccettaCinquantaMosse();
EsitoMossa RifiutaCinquantaMosse(EsitoMossa esito);
// The threefold question informs: any answer from a box that opened
// adjudicates the draw.
void AggiudicaTriplice();

// A move given by its squares (rows from rank 8) and promotion kind (-1 for
// none), as the journal keeps it: found in the legal list and played
// through the road of a typed one. 0 when no such legal move exists.
uint64_t FaiMossaDaCase(int8_t colonna_da, int8_t riga_da, int8_t colonna_a, int8_t riga_a,
                        int8_t promozione);

// Repetitions of the current position: how many earlier occurrences the last
// scan found (0..2), and their plies, the most recent first; the ply
// TurnoIniziale (0 in a game from the start) is the initial position.
extern uint32_t Ripetizioni;
extern uint32_t PosizioneRipetuta[2];
extern const char* const StringaRipetizioni[3];
// Looks back over the plies of the same side to move since the last
// irreversible move (AnnotaMossa runs it).
void ScansionaRipetizioni();

// Half-moves since the last capture or pawn move, counted on past the 127
// where the position's own count stops.
uint64_t SemimosseReversibili();
// How many times the current position has stood on the board in this game,
// this time included (same side to move, same castling and en passant
// rights).
uint32_t OccorrenzePosizione();

// The panel sentences, composed whole into `messaggio` (first letter in
// lower case; the console raises it when it centres the line):
// "la posizione corrente ..." and "semimosse: [ultima Nf3, ]reversibili N,
// totali M".
void ComponiFraseRipetizioni();
void ComponiFraseSemimosse();

// The last ply a game can reach. The legal-move filter of the position at
// ply n records each legal move it tries in ElencoMosse[n + 1], the last
// entry when n is this value; no table is written beyond ply n + 1.
constexpr uint64_t ULTIMA_SEMIMOSSA = MAX_SEMIMOSSE - 2;
// True when no further move fits in the record: FaiMossaInComando refuses.
bool PartitaCompleta();
// What the console tells the player who types a move then.
extern const char* const TestoPartitaCompleta;

// Takes back the last move: unmake, revoke any result, regenerate; 0 (and
// nothing done) when no move of this game is left to take back. The caller
// has checked that the clock is stopped.
int RitiraUltimaMossa();
// The record of a new game, after the position has been loaded: no
// repetitions, the legal moves and the keys of the first ply.
void AzzeraPartita();

// The last repetition scan as one value: a take-back leaves it, and a move
// that has to be taken back again (the journal's) gives it back.
struct StatoRipetizioni {
  uint32_t ripetizioni;
  uint32_t posizione[2];
  bool operator==(const StatoRipetizioni&) const = default;
};
StatoRipetizioni FotografiaRipetizioni();
void RipristinaRipetizioni(const StatoRipetizioni& stato);
// Games begun since the program started (AzzeraPartita counts them): the
// journal starts a fresh file when it changes.
extern uint32_t PartiteIniziate;

// The facts of DettagliMossa, written at the console's cursor.
void ScriviDettagliMossa();
