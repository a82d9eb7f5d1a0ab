// The command field, the focus marker and the key-command handlers.
#pragma once

#include <cstddef>
#include <cstdint>

#include "console/fuoco.h"

// Gives the console back and ends the process with status 0.
[[noreturn]] void ChiudiIlProgramma();

void comando_digitazione(signed char carattere);
void comando_backspace();
void comando_FrecciaSu();
void comando_FrecciaGiu();
void comando_home();
void comando_end();
void comando_esci();
// Ctrl+V: the voice on or off, kept in preferenze.ini.
void comando_Voce();

void comando_OrologioInMoto();
void comando_FermaOrologio();
// `indice`: a row of the settings table; the value is read from the field.
void comando_ImpostaParametro(int indice);
// segno 0 adds the field's minutes to the side whose time line has the
// focus, 1 removes them.
void comando_ModificaTempo(int segno);
// The manual time display key: shows the running side's time once when the
// automatic display is off.
void AggiornaTempoASchermo();

// Starts a game from a FEN text, the standard position when it is refused.
void NuovaPartita(const char* testo);

// The keys as the help page lists them, with what each does.
struct RigaComando {
  const char* tasti;
  const char* descrizione;
};
constexpr int NUMERO_COMANDI = 21;
extern const RigaComando Comandi[NUMERO_COMANDI];
// The keys for screen-reader users: the readouts and the keys that stand in
// for function keys, listed after the notes of the help page.
constexpr int NUMERO_TASTI_LETTORE = 8;
extern const RigaComando TastiPerIlLettore[NUMERO_TASTI_LETTORE];

// Enter: the field's text is a move, or the hidden command "cs".
void comando_invio();
void InterpretaComando();
void comando_RitiraUltimaMossa();
void comando_NuovaPartita();
void comandoSalvaPartita();
// F1, F5, F9: the help page, the move list and the game file in the viewer.
void comando_VisualizzaListaComandi();
void comando_VisualizzaListaMosse();
void comando_VisualizzaPartitaPgn();

// What the user is told when a file asked for could not be written.
extern const char* const TestoPartitaNonSalvata;
extern const char* const TestoListaNonScritta;

// Shell command lines that open the help page, the move list and the game
// file in the system's viewer.
constexpr size_t DIMENSIONE_COMANDO_VISUALIZZATORE = 512;
extern char ComandoVisualizzaListaComandi[DIMENSIONE_COMANDO_VISUALIZZATORE];
extern char ComandoVisualizzaListaMosse[DIMENSIONE_COMANDO_VISUALIZZATORE];
extern char ComandoVisualizzaPartitaPgn[DIMENSIONE_COMANDO_VISUALIZZATORE];
