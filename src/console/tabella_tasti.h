// The key table: which key, in which modifier group, leads to which action.
// Held as data so that every row can be read, tested and listed in one place.
#pragma once

#include <cstdint>

#include "piattaforma/tasti.h"

// Rows of the settings table that key commands set.
constexpr int PARAMETRO_PERIODI = 0;
constexpr int PARAMETRO_MOSSE_PRIMO_PERIODO = 1;
constexpr int PARAMETRO_TEMPO_PRIMO_PERIODO = 2;
constexpr int PARAMETRO_INCREMENTO_PRIMO_PERIODO = 3;
constexpr int PARAMETRO_TEMPO_SECONDO_PERIODO = 4;
constexpr int PARAMETRO_INCREMENTO_SECONDO_PERIODO = 5;
constexpr int PARAMETRO_AGGIORNAMENTO_AUTOMATICO = 6;
constexpr int PARAMETRO_ALLARME1 = 7;  // allarme2..5 follow

enum class GruppoTasti : uint8_t { Ctrl, Alt, Semplice };
enum class CondizioneShift : uint8_t { Qualsiasi, Premuto, NonPremuto };

enum class Azione : uint8_t {
  Nessuna,
  FermaOrologio,
  OrologioInMoto,
  ImpostaParametro,  // argument: settings row
  RitiraUltimaMossa,
  ModificaTempo,  // argument: 0 adds, 1 subtracts
  Esci,
  NuovaPartita,
  SalvaPartita,
  AggiornaTempoASchermo,
  Abbandona,  // argument: 1 Black resigns, 0 White resigns
  PattaDaccordo,
  VisualizzaListaComandi,
  VisualizzaListaMosse,
  VisualizzaPartitaPgn,
  Home,
  End,
  FrecciaSu,
  FrecciaGiu,
  Backspace,
  Invio,
  Digitazione,  // the record's character goes to the command field
  Conteggio
};

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

// The first row of the record's group that matches it; Azione::Nessuna when
// none does (a key never falls through to another group).
AzioneTasto CercaAzione(const piattaforma::win32::KEY_EVENT_RECORD& tasto);
