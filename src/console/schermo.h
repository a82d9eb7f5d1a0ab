// The 80 x 44 text screen: cursor placement, the header, the fixed labels,
// centred information lines and the board.
#pragma once

#include <cstdint>

// Screen lines and columns.
constexpr int16_t y_bordo_superiore = 15;
constexpr int16_t y_cadenza = 17;
constexpr int16_t y_ripetizioni = 18;
constexpr int16_t y_diritti_arrocco = 19;
constexpr int16_t y_semimosse = 20;
constexpr int16_t y_mossa_corrente = 21;
constexpr int16_t y_scacchiera = 24;
constexpr int16_t y_tempo[2] = {37, 38};
constexpr int16_t y_comando = 40;
constexpr int16_t x_comando = 44;
constexpr int16_t x_tempo = 44;

void gotoxy(int16_t x, int16_t y);
void DisegnaIntestazione();
void StampaPannelloPrincipale();
void StampaMessaggioCentrato(int16_t riga);
void StampaScacchiera();

// Shared text buffer in which every dialog text and centred line is composed.
constexpr int DIMENSIONE_MESSAGGIO = 2048;
extern char messaggio[DIMENSIONE_MESSAGGIO];
extern uint32_t InMessaggio;

// Colour names by colour index: "bianco", "nero".
extern const char* const StringaColore[2];

// Characters at the cursor, which advances.
void StampaTesto(const char* testo);

// Composing `messaggio`: every helper keeps the text zero-terminated and
// drops what does not fit rather than overflow the buffer.
void SvuotaMessaggio();
void AggiungiTesto(const char* testo);
void AggiungiCarattere(char carattere);
void AggiungiNumero(int64_t numero);
