#include "clock/cadenza.h"

#include <cstdio>

#include "piattaforma/piattaforma.h"
#include "settings/parametri.h"
#include "testo/composizione.h"

CadenzaDiGioco CadenzaPartita = {1, 40, 120, 0, 30, 0};
char Cadenza[64];
char DataUTC[16] = "?";
char OraUTC[12] = "?";

namespace {

// A zero increment is left out: "300", not "300+0".
void Incremento(Composizione& c, int32_t secondi) {
  if (secondi == 0) return;
  c.Carattere('+');
  c.Numero(secondi);
}

}  // namespace

CadenzaDiGioco CadenzaDaiParametri() {
  return {Parametro(PARAMETRO_PERIODI),
          Parametro(PARAMETRO_MOSSE_PRIMO_PERIODO),
          Parametro(PARAMETRO_TEMPO_PRIMO_PERIODO),
          Parametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO),
          Parametro(PARAMETRO_TEMPO_SECONDO_PERIODO),
          Parametro(PARAMETRO_INCREMENTO_SECONDO_PERIODO)};
}

void ImpostaCadenzaPartita(const CadenzaDiGioco& cadenza) {
  CadenzaPartita = cadenza;
  ScriviCadenza();
}

void ScriviCadenza() {
  // What does not fit is dropped.
  Composizione s(Cadenza, sizeof Cadenza);
  const CadenzaDiGioco& c = CadenzaPartita;
  const int64_t primo = int64_t(c.tempo_primo_periodo) * 60;
  if (c.periodi != 1) {
    s.Numero(c.mosse_primo_periodo);
    s.Carattere('/');
    s.Numero(primo);
    Incremento(s, c.incremento_primo_periodo);
    s.Carattere(':');
    s.Numero(int64_t(c.tempo_secondo_periodo) * 60);
    Incremento(s, c.incremento_secondo_periodo);
  } else {
    s.Numero(primo);
    Incremento(s, c.incremento_primo_periodo);
  }
}

void StampaTempoUTC() {
  const piattaforma::DataOraUTC ora = piattaforma::OraUTC();
  std::snprintf(DataUTC, sizeof DataUTC, "%d.%02d.%02d", ora.anno, ora.mese, ora.giorno);
  std::snprintf(OraUTC, sizeof OraUTC, "%02d:%02d:%02d", ora.ora % 24, ora.minuto, ora.secondo);
}

void AzzeraTempoUTC() {
  DataUTC[0] = '?';
  DataUTC[1] = 0;
  OraUTC[0] = '?';
  OraUTC[1] = 0;
}
