// The counter against the make and unmake walk of the diagnostics, which the
// tests take as the reference: every copy of the counter's walk that this
// processor runs, at every depth, from the position on the board.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "conteggio/cammino.h"
#include "conteggio/conteggio.h"

// The copies of the walk this processor can run (the one with the population
// count instruction only where it has it).
std::vector<const Cammino*> CamminiEseguibili();

// The leaves of one copy of the walk, from the position on the board.
uint64_t ContaCon(const Cammino& cammino, int profondita);

// Each copy of the walk and ContaFoglie equal the make and unmake walk at
// every depth from 1 to `profondita`; returns the reference count of the
// deepest.
uint64_t ConfrontaFinoA(int profondita);

// The root moves of the counter's division, sorted, as "move word: leaves".
std::vector<std::string> DivisioneConteggio(int profondita, const OpzioniConteggio& opzioni = {});
// The same from the make and unmake walk.
std::vector<std::string> DivisioneFaiRitira(int profondita);
// The root moves of the counter's division, in its order, in coordinates.
std::vector<std::string> MosseRadice();
