// Whole games of random legal moves, shared by the tests that play them
// through the record's road and through the keyboard: the coordinates of a
// move and its notation worked out here, independently of the record's code;
// the dice with their lean towards the endings; the keys of the game for the
// repetitions. The outside reader of their files is verifiche/pgn_extract.h.
#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "supporto/mosse_a_caso.h"

namespace partite_a_caso {

// Whether the king of the side to move is attacked, from the board alone.
bool SottoScacco();

// The notation of `mossa` in the position on the board (legal list
// current), without the check sign: standard algebraic notation, castling
// with zeros, and a piece that needs its whole origin written without its
// letter.
std::string NotazioneAttesa(uint64_t mossa);

// The state of one random game besides the board.
class Dado {
 protected:
  std::mt19937_64 caso;
  // The arbiter goes on after every ending, up to the record's last ply.
  bool fino_al_limite = false;
  // Keys of the positions after each ply of the game on the board.
  std::vector<uint64_t> chiavi;

  uint64_t Caso(uint64_t n) { return caso() % n; }

  // Earlier occurrences of the current position with the same side to move.
  int Occorrenze() const;

  // A random legal move, with a lean towards undoing the side's own last
  // move (repetitions, long reversible runs) and towards captures (the
  // endings), so that every ending turns up in a short run.
  uint64_t Scegli();

  // Now and then, one to three plies taken back with `ritira`, stopping
  // once `fallito` says a fatal failure happened (the test's
  // HasFatalFailure). True when it was the turn for take-backs.
  bool RitiriACaso(const std::function<void()>& ritira, bool (*fallito)());
};

}  // namespace partite_a_caso
