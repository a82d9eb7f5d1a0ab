// The texts of the game file that come from the clock: the time control of
// the current settings, and the UTC date and time the clock first ran.
#pragma once

extern char Cadenza[64];  // "40/7200:1800", "300+3", "7200"
extern char DataUTC[16];  // "2026.11.23" or "?"
extern char OraUTC[12];   // "09:05:00" or "?"

void ScriviCadenza();
void StampaTempoUTC();
// Both back to "?" for a new game.
void AzzeraTempoUTC();
