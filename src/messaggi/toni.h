// Every tone the program sounds, named once with its frequency in Hz and its
// length in ms. A frequency above hearing is a short, silent pause: it keeps
// two tones apart, or marks an end where a sound would be too much.
#pragma once

#include <cstdint>

enum class Tono : uint8_t {
  Digitazione,          // a character typed; twice, the running side's time line
  Conferma,             // a move played, a setting stored, a game saved, a period passed
  Pausa,                // between tones, and the top end of the focus
  Fondo,                // the bottom end of the focus, the command field
  Bip,                  // the clock started or stopped, an alarm, the countdown, a flag
  PrefissoAnnullato,    // a terminal's key prefix cancelled
  PrefissoAlt,          // Esc as Alt
  PrefissoCtrl,         // Ctrl+X as Ctrl
  PrefissoCtrlShift,    // Ctrl+X twice as Ctrl+Shift
  PrefissoFunzione,     // Ctrl+F: a function key follows
  PrefissoAltFunzione,  // Ctrl+F twice: Alt with a function key follows
};

struct SuonoDelTono {
  uint32_t frequenza, durata;
};

constexpr SuonoDelTono Toni[] = {
    {1500, 4},    // Digitazione
    {3000, 5},    // Conferma
    {50000, 3},   // Pausa
    {700, 9},     // Fondo
    {1000, 100},  // Bip
    {500, 60},    // PrefissoAnnullato
    {1500, 40},   // PrefissoAlt
    {1000, 40},   // PrefissoCtrl
    {1250, 40},   // PrefissoCtrlShift
    {1750, 40},   // PrefissoFunzione
    {2000, 40},   // PrefissoAltFunzione
};
// One row per tone, in the order of the names.
static_assert(sizeof Toni / sizeof Toni[0] == static_cast<int>(Tono::PrefissoAltFunzione) + 1);

constexpr SuonoDelTono SuonoDi(Tono tono) { return Toni[static_cast<int>(tono)]; }

// Sounds the tones one after the other.
void Suona(Tono tono);
template <typename... Altri>
void Suona(Tono tono, Altri... altri) {
  Suona(tono);
  (Suona(altri), ...);
}
