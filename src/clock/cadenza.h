// The time control a game is played with and the texts of the game file
// that come from the clock: that control as text, and the UTC date and time
// the clock first ran.
#pragma once

#include <cstdint>

// The game's own time control: taken from the settings when the game starts
// and kept for the whole game (a resumed game brings back its own), so that
// a setting changed meanwhile waits for the next game.
struct CadenzaDiGioco {
  int32_t periodi;
  int32_t mosse_primo_periodo;
  int32_t tempo_primo_periodo;         // minutes
  int32_t incremento_primo_periodo;    // seconds
  int32_t tempo_secondo_periodo;       // minutes
  int32_t incremento_secondo_periodo;  // seconds
  bool operator==(const CadenzaDiGioco&) const = default;
};
extern CadenzaDiGioco CadenzaPartita;
// The control the settings table holds now.
CadenzaDiGioco CadenzaDaiParametri();
// Makes `cadenza` the game's control and rebuilds its text.
void ImpostaCadenzaPartita(const CadenzaDiGioco& cadenza);

extern char Cadenza[64];  // the game's control as text: "40/7200:1800", "300+3", "7200"
extern char DataUTC[16];  // "2026.11.23" or "?"
extern char OraUTC[12];   // "09:05:00" or "?"

// Rebuilds Cadenza from CadenzaPartita.
void ScriviCadenza();
void StampaTempoUTC();
// Both back to "?" for a new game.
void AzzeraTempoUTC();
