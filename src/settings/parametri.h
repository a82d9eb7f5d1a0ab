// The settings: fixed tables of rows (key, description, unit, value,
// default, range), each loaded from its file at start-up and written back
// after every accepted change. pendrino.ini holds the twelve rows of the
// time control, the display and the alarms; preferenze.ini what the first
// has no room for (pendrino.ini resets itself at any key it does not know).
#pragma once

#include <cstddef>
#include <cstdint>

enum RigaParametro : int {
  PARAMETRO_PERIODI = 0,
  PARAMETRO_MOSSE_PRIMO_PERIODO = 1,
  PARAMETRO_TEMPO_PRIMO_PERIODO = 2,
  PARAMETRO_INCREMENTO_PRIMO_PERIODO = 3,
  PARAMETRO_TEMPO_SECONDO_PERIODO = 4,
  PARAMETRO_INCREMENTO_SECONDO_PERIODO = 5,
  PARAMETRO_AGGIORNAMENTO_AUTOMATICO = 6,
  PARAMETRO_ALLARME1 = 7,  // allarme2..5 follow
  NUMERO_PARAMETRI = 12,
};

struct RigaIni {
  char chiave[64];
  char descrizione[64];
  char unita[16];
  int32_t valore;
  int32_t valore_default;
  int32_t minimo;
  int32_t massimo;
};
extern RigaIni ParametroIni[NUMERO_PARAMETRI];

// A row whose value is a line of text: a name, written in the game file.
// Optional: a file without it keeps it empty, and says nothing.
constexpr size_t LUNGHEZZA_TESTO_INI = 64;
struct RigaTestoIni {
  char chiave[32];
  char descrizione[64];
  char testo[LUNGHEZZA_TESTO_INI];  // "" when unset
};

// A settings file and the tables it holds.
struct TabellaIni {
  const char* nome_file;
  RigaIni* righe;
  int numero;
  RigaTestoIni* testi;
  int numero_testi;
};
extern const TabellaIni TabellaParametri;   // pendrino.ini, ParametroIni
extern const TabellaIni TabellaPreferenze;  // preferenze.ini, PreferenzaIni

enum RigaPreferenza : int {
  // 1: what a screen reader would read as noise stays off the screen.
  PREFERENZA_LETTORE_DI_SCHERMO = 0,
  // 1: the program speaks with its own voice.
  PREFERENZA_VOCE = 1,
  NUMERO_PREFERENZE = 2,
};
extern RigaIni PreferenzaIni[NUMERO_PREFERENZE];
inline int32_t Preferenza(int riga) { return PreferenzaIni[riga].valore; }

void ImpostaPreferenza(int riga, int32_t valore);

// The names the game file carries in its tags.
enum RigaNome : int {
  NOME_BIANCO = 0,
  NOME_NERO = 1,
  NOME_EVENTO = 2,
  NOME_LUOGO = 3,
  NOME_TURNO = 4,
  NUMERO_NOMI = 5,
};
extern RigaTestoIni NomeIni[NUMERO_NOMI];
inline const char* Nome(int riga) { return NomeIni[riga].testo; }
// A new name, cut to its room; a control character ends it, and blanks at
// its end are dropped.
void ImpostaNome(int riga, const char* testo);
void ImpostaTesto(RigaTestoIni& riga, const char* testo, size_t lunghezza);
extern const char* const NomeFilePreferenze;  // "preferenze.ini"

// The current value of a row.
inline int32_t Parametro(int riga) { return ParametroIni[riga].valore; }
// A new current value for a row, in its range (the caller checked it);
// the file is written apart, by ScriviIni.
void ImpostaParametro(int riga, int32_t valore);

// The running time redrawn each second: the setting on, and no screen
// reader's profile that keeps it off the screen (it is read on request).
inline bool AggiornamentoAutomatico() {
  return Parametro(PARAMETRO_AGGIORNAMENTO_AUTOMATICO) == 1 &&
         Preferenza(PREFERENZA_LETTORE_DI_SCHERMO) == 0;
}

extern const char* const NomeFileIni;  // "pendrino.ini"

// Every row back to its default value.
void DefaultTabella(const TabellaIni& tabella);
// Writes the whole file, replacing the old one at once.
void ScriviTabella(const TabellaIni& tabella);
// The same for pendrino.ini.
void DefaultIni();
void ScriviIni();
// Appends to the message "i valori ammessi sono compresi nell'intervallo
// ( min - max).\n" for a row.
void AggiungiIntervallo(const RigaIni& riga);
// The notice for an out-of-range value of row `indice`, of pendrino.ini or
// of another table's file.
void AvisaValoreIniErrato(int indice);
void AvvisaValoreErrato(const TabellaIni& tabella, int indice);
