// The key table: which key, in which modifier group, leads to which action.
// Held as data so that every row can be read, tested and listed in one place.
#pragma once

#include <cstdint>

#include "piattaforma/tasti.h"
#include "settings/parametri.h"

enum class GruppoTasti : uint8_t { Ctrl, Alt, Semplice };
enum class CondizioneShift : uint8_t { Qualsiasi, Premuto, NonPremuto };

// What a key does: the handler's name (for tests and listings) and the call
// of the handler. A row is all it takes to give a handler a key.
struct Azione {
  const char* nome;
  void (*esegui)(int argomento, signed char carattere);
};
// Handlers take nothing, the row's argument, or the record's character.
inline void ChiamaGestore(void (*gestore)(), int, signed char) { gestore(); }
inline void ChiamaGestore(void (*gestore)(int), int argomento, signed char) { gestore(argomento); }
inline void ChiamaGestore(void (*gestore)(signed char), int, signed char carattere) {
  gestore(carattere);
}
template <auto Gestore>
void EseguiGestore(int argomento, signed char carattere) {
  ChiamaGestore(Gestore, argomento, carattere);
}
#define PENDRINO_AZIONE(gestore) \
  Azione { #gestore, &EseguiGestore < gestore> }

constexpr Azione NESSUNA_AZIONE = {"", nullptr};

// An inclusive range of virtual-key codes; a single key has primo == ultimo.
struct IntervalloTasti {
  piattaforma::win32::WORD primo, ultimo;
};

struct RigaTabellaTasti {
  GruppoTasti gruppo;
  IntervalloTasti tasti[2];  // the second range is empty (primo > ultimo) when unused
  CondizioneShift shift;
  Azione azione;
  int argomento;
  // When set, the key's offset inside its range is added to the argument
  // (Alt+1..5 pick alarms 1..5).
  bool argomento_per_tasto;
};

extern const RigaTabellaTasti TabellaTasti[];
extern const int RigheTabellaTasti;

struct AzioneTasto {
  Azione azione;
  int argomento;
};

// The group a key-down record belongs to: Ctrl wins over Alt (AltGr is
// reported as right Alt plus left Ctrl), then plain keys.
GruppoTasti GruppoDi(piattaforma::win32::DWORD stato_controllo);

// The first row of the record's group that matches it; NESSUNA_AZIONE when
// none does (a key never falls through to another group).
AzioneTasto CercaAzione(const piattaforma::win32::KEY_EVENT_RECORD& tasto);

// The function keys and Alt+F4 without a function key or a lone Esc, which
// screen readers take for themselves: Ctrl+F, then 1..9 or 0 acts as F1..F10
// and '-' or '=' as F11 or F12; Ctrl+F twice, then the same key, as Alt with
// it (Ctrl+F twice, then 4 = Alt+F4). A third Ctrl+F, or another key,
// cancels the prefix. False when the key was taken by the prefix; otherwise
// the key to dispatch, changed when the prefix named a function key.
bool TraduciPrefissoFunzione(piattaforma::win32::KEY_EVENT_RECORD& tasto);
void AzzeraPrefissoFunzione();
