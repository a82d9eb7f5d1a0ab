// Helpers of the move tests: loading a position, finding and making moves by
// their coordinates, a snapshot of every position global, and the parts of
// the position recomputed from scratch (checkers, list invariants; the keys
// come from CalcolaChiaveHash and CalcolaHashPedoni of the board).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "board/posizione.h"
#include "supporto/istantanea.h"

// Square number from its name, "a8" = 0 ... "h1" = 63.
constexpr uint64_t Casa(const char* nome) {
  return uint64_t((nome[0] - 'a') + 8 * ('8' - nome[1]));
}

// Empties the board and loads the text; false when the loader rejects it.
bool Carica(const char* fen);

// The candidate moves of the side to move, from the all-moves generator.
std::vector<uint64_t> Candidate();
// The same through another generator.
using Generatore = uint64_t* (*)(uint64_t*);
std::vector<uint64_t> GeneraCon(Generatore genera);

// Makes one move of the side to move (backups saved first); the make's result.
int Fai(uint64_t mossa);
// Takes back the last move made.
void Ritira();
// The candidate written as in "e2e4" / "e7e8q", 0 when there is none.
uint64_t Trova(const std::string& coordinate);
// Finds and makes it; false when it is not a candidate or is refused.
bool Gioca(const std::string& coordinate);
std::string Coordinate(uint64_t mossa);

// The legal moves: the candidates whose make succeeds.
std::vector<uint64_t> Legali();

uint64_t ScacchiDaZero();  // the pieces attacking the king of the side to move
// Empty when the checker fields name exactly the pieces giving check, once
// each; otherwise a description of the difference.
std::string ControllaScacchi();
// Empty when bitboards, PezzoIn, lists and counts agree; otherwise what is wrong.
std::string ControllaCoerenza();
