// The whole chess position: piece bitboards, the square-indexed piece table,
// one square list per kind and colour, material words, the packed information
// word and the Zobrist keys. Every other module reads and writes these globals
// directly; nothing here is allocated at run time.
#pragma once

#include <bit>
#include <cstdint>

#include "board/arrocco.h"
#include "board/mossa.h"

// The helpers on the make and unmake paths are always inlined, so that each
// of those functions stays one straight piece of code.
#define SEMPRE_IN_LINEA [[gnu::always_inline]] inline

// Colours index every per-side table: 0 White, 1 Black.
enum Colore : int { BIANCO = 0, NERO = 1 };
constexpr Colore operator~(Colore c) { return Colore(c ^ 1); }

// Piece kinds, the same numbering as the move word's and the piece code's.
enum TipoPezzo : int { PEDONE = 0, CAVALLO = 1, ALFIERE = 2, TORRE = 3, DONNA = 4, RE = 5 };

// Piece code, as PezzoIn holds it: (kind << 5) | (colour << 4) | the piece's
// slot in the square list of its kind (0 for a king).
constexpr uint64_t CodicePezzo(TipoPezzo tipo, Colore colore, uint64_t slot) {
  return (uint64_t(tipo) << 5) | (uint64_t(colore) << 4) | slot;
}
constexpr TipoPezzo TipoDelCodice(uint64_t codice) { return TipoPezzo(codice >> 5); }
constexpr Colore ColoreDelCodice(uint64_t codice) { return Colore((codice >> 4) & 1); }
constexpr uint64_t SlotDelCodice(uint64_t codice) { return codice & 15; }
// Kind and colour only: equal for any two pieces of one kind and colour.
constexpr uint64_t CodiceSenzaSlot(uint64_t codice) { return codice & 0xF0; }
// False for the empty square and for anything that is not a piece's code.
constexpr bool CodiceDiPezzo(uint64_t codice) { return (codice >> 5) <= RE; }

// Square 0 is a8, 7 is h8, 56 is a1, 63 is h1; 64 means no square.
constexpr uint64_t NESSUNA_CASA = 64;
constexpr uint64_t CASA_VUOTA = 255;  // PezzoIn entry of an empty square

// Home squares and piece codes of the kings.
constexpr uint64_t CASA_RE_BIANCO_INIZIALE = 60;  // e1
constexpr uint64_t CASA_RE_NERO_INIZIALE = 4;     // e8
constexpr uint64_t CODICE_RE_BIANCO = CodicePezzo(RE, BIANCO, 0);
constexpr uint64_t CODICE_RE_NERO = CodicePezzo(RE, NERO, 0);

extern const char CarattereColonna[9];  // "abcdefgh"
extern const char CaratterePezzo[7];    // "pnbrqk"

// Every square named as text in one place: "a8" (square 0) ... "h1" (63),
// from its file (column 0..7, a..h) and its row (0 is rank 8).
constexpr char LetteraDellaColonna(uint64_t colonna) { return char('a' + colonna); }
constexpr char CifraDellaRiga(uint64_t riga) { return char('8' - riga); }
struct NomeDiCasa {
  char testo[3];
};
constexpr NomeDiCasa NomeCasa(uint64_t casa) {
  return {{LetteraDellaColonna(casa & 7), CifraDellaRiga(casa >> 3), 0}};
}
// Both characters at `testo` (no terminator); the place after them.
inline char* ScriviCasa(uint64_t casa, char* testo) {
  *testo++ = LetteraDellaColonna(casa & 7);
  *testo++ = CifraDellaRiga(casa >> 3);
  return testo;
}

// ---------------------------------------------------------------------------
// Bitboards. No king bitboard: a king is known only by its square.
extern uint64_t btm_pezzi[2][5];  // [colour][kind], kinds pawn..queen
inline uint64_t& btm_pedone_bianco = btm_pezzi[BIANCO][PEDONE];
inline uint64_t& btm_cavallo_bianco = btm_pezzi[BIANCO][CAVALLO];
inline uint64_t& btm_alfiere_bianco = btm_pezzi[BIANCO][ALFIERE];
inline uint64_t& btm_torre_bianco = btm_pezzi[BIANCO][TORRE];
inline uint64_t& btm_donna_bianco = btm_pezzi[BIANCO][DONNA];
inline uint64_t& btm_pedone_nero = btm_pezzi[NERO][PEDONE];
inline uint64_t& btm_cavallo_nero = btm_pezzi[NERO][CAVALLO];
inline uint64_t& btm_alfiere_nero = btm_pezzi[NERO][ALFIERE];
inline uint64_t& btm_torre_nero = btm_pezzi[NERO][TORRE];
inline uint64_t& btm_donna_nero = btm_pezzi[NERO][DONNA];

extern uint64_t btm_colore[2];  // all pieces of a colour, king included
inline uint64_t& btm_bianco = btm_colore[BIANCO];
inline uint64_t& btm_nero = btm_colore[NERO];
extern uint64_t btm_occupazione;

// Piece table: a piece code per square (CodicePezzo), 255 when empty.
// Entry 64 is a sentinel that always reads empty.
extern uint64_t PezzoIn[65];

// ---------------------------------------------------------------------------
// Square lists, one slot per piece, slots 0..count-1 used without holes.
// Their sizes leave room for every promotion a legal game can produce.
constexpr int CapienzaLista[5] = {8, 10, 10, 10, 9};
extern uint64_t casa_pedone[2][8];
extern uint64_t casa_cavallo[2][10];
extern uint64_t casa_alfiere[2][10];
extern uint64_t casa_torre[2][10];
extern uint64_t casa_donna[2][9];
extern uint64_t casa_re[2];
inline uint64_t (&casa_pedone_bianco)[8] = casa_pedone[BIANCO];
inline uint64_t (&casa_cavallo_bianco)[10] = casa_cavallo[BIANCO];
inline uint64_t (&casa_alfiere_bianco)[10] = casa_alfiere[BIANCO];
inline uint64_t (&casa_torre_bianco)[10] = casa_torre[BIANCO];
inline uint64_t (&casa_donna_bianco)[9] = casa_donna[BIANCO];
inline uint64_t& casa_re_bianco = casa_re[BIANCO];
inline uint64_t (&casa_pedone_nero)[8] = casa_pedone[NERO];
inline uint64_t (&casa_cavallo_nero)[10] = casa_cavallo[NERO];
inline uint64_t (&casa_alfiere_nero)[10] = casa_alfiere[NERO];
inline uint64_t (&casa_torre_nero)[10] = casa_torre[NERO];
inline uint64_t (&casa_donna_nero)[9] = casa_donna[NERO];
inline uint64_t& casa_re_nero = casa_re[NERO];

// The square list of kind K (pawn..queen) of colour C.
template <TipoPezzo K>
constexpr uint64_t* casa_di(Colore c) {
  if constexpr (K == PEDONE)
    return casa_pedone[c];
  else if constexpr (K == CAVALLO)
    return casa_cavallo[c];
  else if constexpr (K == ALFIERE)
    return casa_alfiere[c];
  else if constexpr (K == TORRE)
    return casa_torre[c];
  else
    return casa_donna[c];
}

// ---------------------------------------------------------------------------
// Material words: eight byte counters. Byte 0 pawns, 1 knights, 2 bishops,
// 3 rooks, 4 queens, 5 minor pieces, 6 heavy weight (rook 1, queen 2),
// 7 points (3, 3, 5, 9). One addition moves every counter of a piece at once.
extern uint64_t materiale[2];
inline uint64_t& materiale_del_bianco = materiale[BIANCO];
inline uint64_t& materiale_del_nero = materiale[NERO];
constexpr uint64_t IncrementoMateriale[5] = {0x1ull, 0x0300010000000100ull, 0x0300010000010000ull,
                                             0x0501000001000000ull, 0x0902000100000000ull};

// Count byte of kind k (pawn..queen) in a material word.
constexpr uint64_t NumeroPezzi(uint64_t materiale_colore, int k) {
  return (materiale_colore >> (8 * k)) & 0xFF;
}

// ---------------------------------------------------------------------------
// Information word: bits 0-6 half-move clock, 7..10 castling rights
// (White king side, White queen side, Black king side, Black queen side),
// 11 en passant permitted, 12-18 first checker, 19-25 second checker
// (64 in a checker field means none).
extern uint64_t InfoPosizione;
constexpr int BIT_SEMIMOSSE = 7;
constexpr uint64_t MASCHERA_SEMIMOSSE = (1ull << BIT_SEMIMOSSE) - 1;
constexpr uint64_t ARROCCO_CORTO_BIANCO = 0x80;
constexpr uint64_t ARROCCO_LUNGO_BIANCO = 0x100;
constexpr uint64_t ARROCCO_CORTO_NERO = 0x200;
constexpr uint64_t ARROCCO_LUNGO_NERO = 0x400;
constexpr int SHIFT_DIRITTI = BIT_SEMIMOSSE;
constexpr uint64_t MASCHERA_DIRITTI =
    ARROCCO_CORTO_BIANCO | ARROCCO_LUNGO_BIANCO | ARROCCO_CORTO_NERO | ARROCCO_LUNGO_NERO;
constexpr uint64_t PERMESSO_ENPASSANT = 0x800;
constexpr int SHIFT_PRIMO_SCACCO = 12;
constexpr int SHIFT_SECONDO_SCACCO = 19;
constexpr uint64_t MASCHERA_CASA_SCACCO = 0x7F;  // one checker field, shifted down
constexpr uint64_t CAMPI_SCACCO =
    (MASCHERA_CASA_SCACCO << SHIFT_PRIMO_SCACCO) | (MASCHERA_CASA_SCACCO << SHIFT_SECONDO_SCACCO);
constexpr uint64_t PRIMO_SENZA_SCACCO = NESSUNA_CASA << SHIFT_PRIMO_SCACCO;
constexpr uint64_t SECONDO_SENZA_SCACCO = NESSUNA_CASA << SHIFT_SECONDO_SCACCO;
constexpr uint64_t NESSUNO_SCACCO = PRIMO_SENZA_SCACCO | SECONDO_SENZA_SCACCO;
constexpr int BIT_INFO = 26;  // every higher bit is always clear
static_assert(CAMPI_SCACCO == 0x3fff000ull && NESSUNO_SCACCO == 0x2040000ull);

constexpr uint64_t Semimosse(uint64_t info) { return info & MASCHERA_SEMIMOSSE; }
// The four right bits shifted down, 0..15, in the order of the rights above.
constexpr uint64_t DirittiConcessi(uint64_t info) {
  return (info & MASCHERA_DIRITTI) >> SHIFT_DIRITTI;
}
constexpr uint64_t PrimoScacco(uint64_t info) {
  return (info >> SHIFT_PRIMO_SCACCO) & MASCHERA_CASA_SCACCO;
}
constexpr uint64_t SecondoScacco(uint64_t info) {
  return (info >> SHIFT_SECONDO_SCACCO) & MASCHERA_CASA_SCACCO;
}

// The right bit of one castling, and both of a colour.
constexpr uint64_t DirittoArrocco(Colore c, bool lungo) {
  return ARROCCO_CORTO_BIANCO << (2 * int(c) + lungo);
}
constexpr uint64_t DirittiDel(Colore c) {
  return DirittoArrocco(c, false) | DirittoArrocco(c, true);
}

// Game record: the side to move is the parity of ContatoreMosse.
constexpr int MAX_SEMIMOSSE = 512;
extern uint64_t ContatoreMosse;
extern uint64_t TurnoIniziale;
extern uint64_t ElencoMosse[MAX_SEMIMOSSE];

inline Colore AlTratto() { return Colore(ContatoreMosse & 1); }

// ---------------------------------------------------------------------------
// Zobrist keys.
extern uint64_t ChiaveHash;
extern uint64_t HashPedoni;

// Base tables [colour][kind][square], kinds pawn..king.
// Visible here so that the castlings' keys can be checked at compile time.
inline constexpr uint64_t hash_in[2][6][64] = {
#include "board/chiavi_zobrist.inc"
};
inline const uint64_t (&hash_pedone_bianco_in)[64] = hash_in[BIANCO][PEDONE];
inline const uint64_t (&hash_cavallo_bianco_in)[64] = hash_in[BIANCO][CAVALLO];
inline const uint64_t (&hash_alfiere_bianco_in)[64] = hash_in[BIANCO][ALFIERE];
inline const uint64_t (&hash_torre_bianco_in)[64] = hash_in[BIANCO][TORRE];
inline const uint64_t (&hash_donna_bianco_in)[64] = hash_in[BIANCO][DONNA];
inline const uint64_t (&hash_re_bianco_in)[64] = hash_in[BIANCO][RE];
inline const uint64_t (&hash_pedone_nero_in)[64] = hash_in[NERO][PEDONE];
inline const uint64_t (&hash_cavallo_nero_in)[64] = hash_in[NERO][CAVALLO];
inline const uint64_t (&hash_alfiere_nero_in)[64] = hash_in[NERO][ALFIERE];
inline const uint64_t (&hash_torre_nero_in)[64] = hash_in[NERO][TORRE];
inline const uint64_t (&hash_donna_nero_in)[64] = hash_in[NERO][DONNA];
inline const uint64_t (&hash_re_nero_in)[64] = hash_in[NERO][RE];

// The four piece keys of a castling (king and rook out and in): equal to its
// Arrocco::chiave_pezzi, which make-move adds in their place.
constexpr uint64_t ChiavePezziArrocco(Colore c, const Arrocco& a) {
  return hash_in[c][RE][a.re] ^ hash_in[c][RE][a.re_arrivo] ^ hash_in[c][TORRE][a.torre] ^
         hash_in[c][TORRE][a.torre_arrivo];
}

// Castling-right keys.
constexpr uint64_t HASH_ARROCCO_CORTO_BIANCO = 0x8afd7d2bbd35a91dull;
constexpr uint64_t HASH_ARROCCO_LUNGO_BIANCO = 0x0e978b7c4d38da67ull;
constexpr uint64_t HASH_ARROCCO_CORTO_NERO = 0xb2646b84387fdea8ull;
constexpr uint64_t HASH_ARROCCO_LUNGO_NERO = 0x6f871e8ef10433f8ull;

// The keys of every set of rights, by DirittiConcessi: one XOR takes out
// whatever subset is being cleared.
constexpr uint64_t HashDirittiPer(uint64_t diritti) {
  return ((diritti & 1) ? HASH_ARROCCO_CORTO_BIANCO : 0) ^
         ((diritti & 2) ? HASH_ARROCCO_LUNGO_BIANCO : 0) ^
         ((diritti & 4) ? HASH_ARROCCO_CORTO_NERO : 0) ^
         ((diritti & 8) ? HASH_ARROCCO_LUNGO_NERO : 0);
}
inline constexpr uint64_t HashDiritti[16] = {
    HashDirittiPer(0),  HashDirittiPer(1),  HashDirittiPer(2),  HashDirittiPer(3),
    HashDirittiPer(4),  HashDirittiPer(5),  HashDirittiPer(6),  HashDirittiPer(7),
    HashDirittiPer(8),  HashDirittiPer(9),  HashDirittiPer(10), HashDirittiPer(11),
    HashDirittiPer(12), HashDirittiPer(13), HashDirittiPer(14), HashDirittiPer(15)};
// The keys of the rights set in an information word (or any of its bits).
constexpr uint64_t ChiaveDiritti(uint64_t info) { return HashDiritti[DirittiConcessi(info)]; }
constexpr uint64_t HASH_ARROCCHI_BIANCO = ChiaveDiritti(DirittiDel(BIANCO));
constexpr uint64_t HASH_ARROCCHI_NERO = ChiaveDiritti(DirittiDel(NERO));

// Derived key tables (see posizione.cpp for the rules).
extern const uint64_t HashSpostaPedone_in[2][64];
inline const uint64_t (&HashSpostaPedone_bianco_in)[64] = HashSpostaPedone_in[BIANCO];
inline const uint64_t (&HashSpostaPedone_nero_in)[64] = HashSpostaPedone_in[NERO];
extern const uint64_t HashSpostaPedone2In[64];
extern const uint64_t HashCatturaEnpassantIn[64];
extern const uint64_t HashPermessoEnpassantIn[64];

// The key of the pawn that has just double-stepped: the last move recorded.
SEMPRE_IN_LINEA uint64_t ChiaveUltimoDoppioPasso() {
  return HashPermessoEnpassantIn[DestinazioneMossa(ElencoMosse[ContatoreMosse])];
}
// The en passant key that an information word holds, if any.
SEMPRE_IN_LINEA uint64_t ChiavePermessoEnpassant(uint64_t info) {
  return (info & PERMESSO_ENPASSANT) ? ChiaveUltimoDoppioPasso() : 0;
}

// ChiaveHash and HashPedoni as the piece table, the rights and the en passant
// permission give them, without the incremental updates. Every entry of
// PezzoIn must be empty or a piece's code.
uint64_t CalcolaChiaveHash();
uint64_t CalcolaHashPedoni();

// ---------------------------------------------------------------------------
// An empty board; pieces are placed by the functions of board/liste.h.
void SvuotaScacchiera();
