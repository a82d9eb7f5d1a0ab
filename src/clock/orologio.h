// The chess clock: each side's remaining time, the instant from which the
// side to move is timed, starting, stopping and pressing, manual changes,
// the shown seconds, alarms and the countdown. The clock draws nothing
// itself: it tells its display sink what to show, and it tells the loop
// when a flag has fallen.
#pragma once

#include <cstdint>

#include "clock/cadenza.h"

// Remaining time of each side in milliseconds as last charged; it may go
// negative. While the clock runs, the side to move really has
// TempoRimasto[side] + InizioTempo - Adesso() (32-bit wrapping arithmetic).
extern int32_t TempoRimasto[2];
extern uint32_t InizioTempo;
extern uint32_t InMoto;
extern uint32_t PrimaVoltaInMoto;  // 0 until the clock first runs in this game

// The seconds last shown for each side, and the second of each side's last
// alarm check (721 after a new game: no check gives that value first).
extern int32_t TempoVisualizzato[2];
extern int32_t AlarmeSuonato[2];
constexpr int32_t ALLARME_MAI_SUONATO = 721;

// What the clock tells as it sounds it: an alarm's minute reached, a second
// of the last three.
enum class SegnaleOrologio : uint8_t { Allarme, ContoAllaRovescia };

// What the clock asks the screen to show; the console installs it.
struct SchermoOrologio {
  void (*tempo)(int colore, int32_t secondi);  // a side's time line
  void (*stato)();                             // the line with the clock's state
  void (*cadenza)();                           // the time-control line
  // An alarm or a countdown second of `colore`, at `secondi` left.
  void (*segnale)(SegnaleOrologio segnale, int colore, int32_t secondi);
};
extern SchermoOrologio SchermoDellOrologio;
void InstallaSchermoOrologio(const SchermoOrologio& schermo);

// The whole clock as one value: what a new game starts from, what the
// journal keeps and gives back, what a test sets up.
struct StatoOrologio {
  int32_t tempo[2];         // TempoRimasto
  uint32_t inizio;          // InizioTempo
  uint32_t in_moto;         // InMoto
  uint32_t prima_volta;     // PrimaVoltaInMoto
  int32_t visualizzato[2];  // TempoVisualizzato
  int32_t allarme[2];       // AlarmeSuonato
  CadenzaDiGioco cadenza;   // CadenzaPartita
  char data[16], ora[12];   // DataUTC, OraUTC
  bool operator==(const StatoOrologio&) const = default;
};
StatoOrologio FotografiaOrologio();
// Puts the clock back as `stato` says, the time-control text rebuilt; nothing
// is shown and nothing sounds.
void RipristinaOrologio(const StatoOrologio& stato);

// Milliseconds on a 32-bit wrapping count; only differences are meaningful.
uint32_t Adesso();

// Whole seconds of a millisecond count, rounded up: 1 ms is 1 s, -999 ms is 0.
int32_t SecondiInMillisecondi(int32_t millisecondi);

// The running side's true remaining time now.
int32_t TempoRimastoInMoto(int colore);

// A fresh clock for a new game from the current settings: their time
// control becomes the game's, both sides get the first period, the clock is
// stopped and has never run, no alarm has sounded, no start is recorded;
// both times and the time control are shown.
void CaricaTempoDaiParametri();
void OrologioInMoto();
void FermaOrologio();
// After a move of `colore` while the clock runs: charge it, add the
// increment, pass to the second period, time the other side from now.
void PremiOrologio(int colore);
// Adds (negative: removes) whole minutes to a side; the clock is stopped.
void ModificaTempo(int colore, int32_t minuti);

// One turn of the loop while the clock runs, for the side to move: shows a
// new second (when the automatic display is on, or `mostra` asks for it
// once), sounds alarms and the countdown. True when that side's flag has
// fallen (its shown time reached 0): the game decides what follows.
bool AggiornaTempoVisualizzato(int colore, bool mostra = false);
// Shows `secondi` on a side's line unless it is already shown there.
void StampaTempo(int colore, int32_t secondi);
void SuonaAlarme(int colore, int32_t secondi);

// The question before a manual change: segno 0 adds, 1 removes.
int dom_ModificareTempo(int segno, int colore, int32_t minuti);

// How long the main loop may wait for keys: until the running side's shown
// second next changes (1..1000 ms), or -1 (keys only) while the clock is
// stopped.
int64_t AttesaProssimoSecondo();
