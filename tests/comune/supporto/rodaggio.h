// The soak run of the game record: random games played through the road of
// a typed move (each move typed by its coordinates, taken back, typed again
// as the record wrote it), take-backs mixed in, new games started as the
// game layer starts them, and the full position self-check after every make
// and every unmake. Its reports are collected through the diagnostics' sink
// and sorted: the one expected kind is the hash line of a position reached
// through a queen-side castling made with its right, which keeps the cleared
// rights' keys in ChiaveHash; anything else is a fault. Needs the in-memory
// platform.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct EsitoRodaggio {
  uint64_t partite = 0, semimosse = 0, ritiri = 0, controlli = 0;
  // Endings met, by kind (a game may meet several when play goes on).
  uint64_t matti = 0, stalli = 0, materiale = 0, cinquanta = 0, triplici = 0, limite = 0, tetto = 0;
  // Expected reports, by the colour whose queen-side castling kept the keys
  // (both: positions after both castlings).
  uint64_t attesi_bianco = 0, attesi_nero = 0, attesi_entrambi = 0;
  uint64_t scacchiere = 0;  // boards drawn with the reports
  // Unexpected reports and every other broken rule, the first few in words.
  uint64_t guasti = 0;
  std::vector<std::string> primi_guasti;
  double secondi = 0;

  uint64_t Attesi() const { return attesi_bianco + attesi_nero + attesi_entrambi; }
};

// `partite` games, the first from seed `seme`, the next from the seeds after
// it; each game's moves follow from its seed alone.
EsitoRodaggio Rodaggio(uint64_t partite, uint64_t seme);

// The figures, one line each.
std::string DescriviRodaggio(const EsitoRodaggio& esito);
