// The journal of the game in progress, "giornale.txt": after every change of
// the game a few text lines are appended and flushed to disk, so that a game
// cut short by a crash or a power cut can be rebuilt at the next start.
//
// One record a line, every line "<payload> *<checksum>\n", the checksum the
// 32-bit FNV-1a of the payload in eight upper-case hex digits; a line without
// its line end is a record cut short. The payload starts with a letter and
// the UTC time of writing, "AAAAMMGGThhmmssZ":
//
//   I <utc> 2                      a new game from the start position (format 2)
//   C <utc> p m t1 i1 t2 i2        the game's own time control: periods, moves
//                                  of the first period, each period's minutes
//                                  and increment in seconds
//   M <utc> <ply> <da> <a> <p> <san>  a move: the ply it makes, origin and
//                                  destination squares ("e2 e4"), the
//                                  promotion's letter (N B R Q) or "-", the
//                                  record's text
//   R <utc> <ply>                  the last move taken back, leaving <ply>
//   E <utc> <result>|<termination>|<comment>  the game's status ("*|?|" when
//                                  an adjudication is revoked)
//   T <utc> <in moto> <prima volta> <ms bianco> <ms nero> <data> <ora>
//                                  the clock: running (0/1), ever run (0/1),
//                                  each side's milliseconds left, the game's
//                                  UTC date and time ("2026.11.23", "09:05:00"
//                                  or "?"). The first T after a move holds the
//                                  mover's time after it; with none before the
//                                  next move, that time is the one already
//                                  held. The times before the first T are the
//                                  control's first period.
//   F <utc>                        the program was left through its exit
//                                  command: nothing to take up again
//
// Format 1 had, instead of C, "P <utc> v0 ... v11": the twelve settings in
// force. Such a journal is still taken up: its first P record gives the
// game's time control, the others are left aside.
#pragma once

#include <cstddef>
#include <cstdint>

#include "board/posizione.h"
#include "clock/cadenza.h"
#include "settings/parametri.h"

extern const char* const NomeFileGiornale;            // "giornale.txt"
extern const char* const NomeFileGiornalePrecedente;  // "giornale_precedente.txt"
// The notice of a journal that cannot be written, shown once per game.
extern const char* const TestoGiornaleNonScrivibile;

// ---------------------------------------------------------------------------
// Writing.

// From now on the game on the board is journaled: the next AggiornaGiornale
// starts a fresh file with its whole state.
void AvviaGiornale();
// No more journaling (the tests' fresh start).
void SospendiGiornale();
bool GiornaleAttivo();
// Appends the records of whatever changed in the game since the last call
// (a new game starts a fresh file); while the clock runs, a time record
// each time the running side's shown second changes. A failed write leaves
// the game alone; the whole journal is written afresh at the next call, and
// when `avviso` the notice is shown (once per game). The heartbeat of a
// waiting box calls it without `avviso`: the notice waits for the loop.
void AggiornaGiornale(bool avviso = true);
// The exit command: the end record (or, failing that, no file), and no
// more journaling.
void ChiudiGiornale();

// ---------------------------------------------------------------------------
// Reading.

constexpr size_t LUNGHEZZA_MASSIMA_RIGA_GIORNALE = 256;

struct RecordGiornale {
  char tipo;                                      // 'I', 'C', 'P', 'M', 'R', 'E', 'T', 'F'
  uint32_t versione;                              // I
  CadenzaDiGioco cadenza;                         // C
  uint32_t semimossa;                             // M, R
  int8_t colonna[2], riga[2];                     // M: origin, destination (rows from rank 8)
  int8_t promozione;                              // M: kind 1..4, or -1
  char testo[8];                                  // M: the record's text
  int32_t parametro[NUMERO_PARAMETRI];            // P
  char result[8], termination[64], commento[64];  // E
  uint32_t in_moto, prima_volta;                  // T
  int32_t tempo[2];                               // T
  char data[16], ora[12];                         // T
};

// One line without its line end ("\r" before it is allowed): true when it is
// a well-formed record with the right checksum. Pure.
bool LeggiRigaGiornale(const char* riga, size_t lunghezza, RecordGiornale& record);

struct EsitoGiornale {
  bool inizio = false;       // the first line is a game's start
  bool chiuso = false;       // the last good record is the exit's
  bool danneggiato = false;  // stopped at a line not understood or a move not legal
  bool troncato = false;     // a last line without its end, left out
  uint64_t semimossa = 0;    // the ply count after the last good record
  uint64_t record = 0;       // good records
};

// Reads a journal in pieces of any size, one line at a time in a fixed
// buffer. Checking only, it follows the plies the records say; playing, it
// also carries each record out on the game on the board, which must be the
// fresh game the console starts: the moves through the record's own road
// (legal list, make, quiet notation, same text required), take-backs,
// results, settings and times, with the clock left stopped. The first record
// not understood or not legal stops it there.
class LettoreGiornale {
 public:
  void Avvia(bool gioca);
  void Leggi(const char* pezzo, size_t lunghezza);
  EsitoGiornale Fine();
  // Stopped at a record it could not take: the rest is not read.
  bool Fermo() const { return fermo_; }

 private:
  void Riga();
  bool Applica(const RecordGiornale& r);
  bool gioca_ = false, fermo_ = false, lunga_ = false;
  uint32_t versione_ = 0;
  bool cadenza_letta_ = false;
  // The last move replayed with no time record after it yet: the first one
  // that follows gives its time (0: none).
  uint64_t sospesa_ = 0;
  char riga_[LUNGHEZZA_MASSIMA_RIGA_GIORNALE];
  size_t usati_ = 0;
  EsitoGiornale esito_;
};

// The whole text at once.
EsitoGiornale LeggiGiornale(const char* testo, size_t lunghezza, bool gioca);
// giornale.txt in pieces of a few kilobytes; no file: nothing begun.
EsitoGiornale LeggiFileGiornale(bool gioca);
