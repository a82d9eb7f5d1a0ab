#include "console/comandi.h"

#include <cstring>

#include "board/posizione.h"
#include "clock/orologio.h"
#include "console/schermo.h"
#include "messaggi/messaggi.h"
#include "piattaforma/piattaforma.h"

using namespace piattaforma::win32;

char comando[MASSIMO_CARATTERI_COMANDO + 1];
uint32_t CharatteriInComando;
const char CaratteriExtra[] = "+-:=";
uint32_t fuoco;
void (*SalvataggioInUscita)();

// ---------------------------------------------------------------------------
// Focus.

struct Punto {
  int16_t x, y;
};
static constexpr Punto PosizioneFuoco[FUOCO_BORDO_SUPERIORE + 1] = {
    {x_comando, y_comando}, {0, y_tempo[1]},  {0, y_tempo[0]},
    {0, y_mossa_corrente},  {0, y_semimosse}, {0, y_diritti_arrocco},
    {0, y_ripetizioni},     {0, y_cadenza},   {0, y_bordo_superiore},
};

void ImpostaFocus() {
  if (fuoco > FUOCO_BORDO_SUPERIORE) {
    piattaforma::FinestraMessaggio("Errore in InpostaFocus!", TitoloFinestre,
                                   MB_OK | MB_ICONINFORMATION);
    return;
  }
  const Punto p = PosizioneFuoco[fuoco];
  gotoxy(int16_t(p.x + (fuoco == FUOCO_COMANDO ? CharatteriInComando : 0)), p.y);
}

// Tone marks of the focus: the two ends, and the running side's time line.
static void SuonaEstremoSuperiore() { piattaforma::Suona(50000, 3); }
static void SuonaEstremoInferiore() { piattaforma::Suona(700, 9); }

static void SegnalaTempoInMoto() {
  const bool tempo_in_moto =
      InMoto && ((fuoco == FUOCO_TEMPO_BIANCO && (ContatoreMosse & 1) == 0) ||
                 (fuoco == FUOCO_TEMPO_NERO && (ContatoreMosse & 1) == 1));
  if (!tempo_in_moto) return;
  piattaforma::Suona(1500, 4);
  piattaforma::Suona(1500, 4);
}

// One step of the focus towards the end `estremo`; that end's tone marks
// arriving there, or pressing on when already there.
static void SpostaFuoco(int passo, uint32_t estremo, void (*SuonaEstremo)()) {
  const bool gia_in_fondo = passo > 0 ? fuoco >= estremo : fuoco <= estremo;
  if (gia_in_fondo) {
    SuonaEstremo();
    return;
  }
  fuoco = uint32_t(int(fuoco) + passo);
  ImpostaFocus();
  if (fuoco == estremo)
    SuonaEstremo();
  else
    SegnalaTempoInMoto();
}

// Straight to an end: its tone always, the move only when needed.
static void SaltaAllEstremo(uint32_t estremo, void (*SuonaEstremo)()) {
  SuonaEstremo();
  if (fuoco == estremo) return;
  fuoco = estremo;
  ImpostaFocus();
}

void comando_FrecciaSu() { SpostaFuoco(+1, FUOCO_BORDO_SUPERIORE, SuonaEstremoSuperiore); }
void comando_FrecciaGiu() { SpostaFuoco(-1, FUOCO_COMANDO, SuonaEstremoInferiore); }
void comando_home() { SaltaAllEstremo(FUOCO_BORDO_SUPERIORE, SuonaEstremoSuperiore); }
void comando_end() { SaltaAllEstremo(FUOCO_COMANDO, SuonaEstremoInferiore); }

// ---------------------------------------------------------------------------
// The command field.

static bool CarattereAmmesso(signed char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         (c != 0 && std::strchr(CaratteriExtra, c) != nullptr);
}

void comando_digitazione(signed char carattere) {
  if (!CarattereAmmesso(carattere)) return;
  if (CharatteriInComando >= MASSIMO_CARATTERI_COMANDO) {
    Avvisa("Il comando non puo' contenere piu' di 8 caratteri");
    return;
  }
  fuoco = FUOCO_COMANDO;
  gotoxy(int16_t(x_comando + CharatteriInComando), y_comando);
  const char c = char(carattere);
  piattaforma::Scrivi(&c, 1);
  comando[CharatteriInComando++] = c;
  piattaforma::Suona(1500, 4);
}

void comando_backspace() {
  if (CharatteriInComando == 0) return;
  fuoco = FUOCO_COMANDO;
  gotoxy(int16_t(x_comando + CharatteriInComando), y_comando);
  --CharatteriInComando;
  StampaTesto("\b \b");
}

// ---------------------------------------------------------------------------

void ChiudiIlProgramma() {
  piattaforma::ChiudiConsole();
  piattaforma::TerminaProcesso(0);
}

void comando_esci() {
  switch (Domanda("Salvare la partita prima di uscire?", MB_YESNOCANCEL)) {
    case IDYES:
      if (SalvataggioInUscita) SalvataggioInUscita();
      piattaforma::Suona(3000, 5);
      ChiudiIlProgramma();
    case IDNO:
      ChiudiIlProgramma();
    default:
      break;  // Cancel, or a box that could not be shown: stay
  }
}
