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

// Who made the program: the start screen's line under the title, and the
// help page's credit heading.
extern const char* const RigaDeiCrediti;

// preferenze.ini's lettore_di_schermo: no drawing, no board, no running
// time, which a screen reader would read as noise.
bool ProfiloLettoreDiSchermo();

void gotoxy(int16_t x, int16_t y);
void DisegnaIntestazione();
void StampaPannelloPrincipale();
void StampaMessaggioCentrato(int16_t riga);
void StampaScacchiera();

extern const char* const stringa_diritti_arrocco[4];  // by 2 x queen side + king side
extern const char* const StringaStatoOrologio[2];     // by InMoto

// The information lines, each a centred sentence.
void StampaCadenza();
void StampaDirittiArrocco();
void StampaMossaCorrente();
void StampaSemimosse();
void StampaRipetizioni();
// A side's time line: sign column 43, then hours, minutes and seconds.
void StampaLineaTempo(int colore, int32_t secondi);

// Characters at the cursor, which advances.
void StampaTesto(const char* testo);
