#include "console/fuoco.h"

#include "console/schermo.h"
#include "messaggi/messaggi.h"
#include "piattaforma/piattaforma.h"

using namespace piattaforma::win32;

char comando[MASSIMO_CARATTERI_COMANDO + 1];
uint32_t CharatteriInComando;
const char CaratteriExtra[] = "+-:=";
uint32_t fuoco;

namespace {

struct Punto {
  int16_t x, y;
};
constexpr Punto PosizioneFuoco[FUOCO_BORDO_SUPERIORE + 1] = {
    {x_comando, y_comando}, {0, y_tempo[1]},  {0, y_tempo[0]},
    {0, y_mossa_corrente},  {0, y_semimosse}, {0, y_diritti_arrocco},
    {0, y_ripetizioni},     {0, y_cadenza},   {0, y_bordo_superiore},
};

}  // namespace

void ImpostaFocus() {
  if (fuoco > FUOCO_BORDO_SUPERIORE) {
    piattaforma::FinestraMessaggio("Errore in InpostaFocus!", TitoloFinestre,
                                   MB_OK | MB_ICONINFORMATION);
    return;
  }
  const Punto p = PosizioneFuoco[fuoco];
  gotoxy(int16_t(p.x + (fuoco == FUOCO_COMANDO ? CharatteriInComando : 0)), p.y);
}

void SvuotaCampoComando() {
  gotoxy(int16_t(x_comando + CharatteriInComando), y_comando);
  while (CharatteriInComando > 0) {
    --CharatteriInComando;
    piattaforma::Scrivi("\b \b", 3);
  }
}

void StampaPosizione() {
  StampaDirittiArrocco();
  StampaSemimosse();
  StampaRipetizioni();
  StampaMossaCorrente();
  StampaScacchiera();
  ImpostaFocus();
}
