#include "clock/orologio.h"

#include "board/posizione.h"
#include "clock/cadenza.h"
#include "messaggi/messaggi.h"
#include "messaggi/toni.h"
#include "piattaforma/piattaforma.h"
#include "settings/parametri.h"
#include "testo/composizione.h"

using namespace piattaforma::win32;

int32_t TempoRimasto[2];
uint32_t InizioTempo;
uint32_t InMoto;
uint32_t PrimaVoltaInMoto;

int32_t TempoVisualizzato[2];
int32_t AlarmeSuonato[2] = {ALLARME_MAI_SUONATO, ALLARME_MAI_SUONATO};

SchermoOrologio SchermoDellOrologio;

namespace {

constexpr int32_t MILLISECONDI_AL_MINUTO = 60000;

// In unsigned arithmetic, so that a count past the 32-bit wrap still gives the
// right difference and nothing overflows.
void Addebita(int colore, uint32_t dal, uint32_t al) {
  TempoRimasto[colore] = int32_t(uint32_t(TempoRimasto[colore]) + dal - al);
}

void Aggiungi(int colore, int64_t millisecondi) {
  TempoRimasto[colore] = int32_t(uint32_t(TempoRimasto[colore]) + uint32_t(millisecondi));
}

void MostraTempoRimasto(int colore) {
  StampaTempo(colore, SecondiInMillisecondi(TempoRimasto[colore]));
}

void MostraStato() {
  if (SchermoDellOrologio.stato) SchermoDellOrologio.stato();
}

}  // namespace

void InstallaSchermoOrologio(const SchermoOrologio& schermo) { SchermoDellOrologio = schermo; }

StatoOrologio FotografiaOrologio() {
  StatoOrologio s{};
  for (int colore = 0; colore < 2; ++colore) {
    s.tempo[colore] = TempoRimasto[colore];
    s.visualizzato[colore] = TempoVisualizzato[colore];
    s.allarme[colore] = AlarmeSuonato[colore];
  }
  s.inizio = InizioTempo;
  s.in_moto = InMoto;
  s.prima_volta = PrimaVoltaInMoto;
  s.cadenza = CadenzaPartita;
  CopiaLimitata(s.data, sizeof s.data, DataUTC);
  CopiaLimitata(s.ora, sizeof s.ora, OraUTC);
  return s;
}

void RipristinaOrologio(const StatoOrologio& s) {
  for (int colore = 0; colore < 2; ++colore) {
    TempoRimasto[colore] = s.tempo[colore];
    TempoVisualizzato[colore] = s.visualizzato[colore];
    AlarmeSuonato[colore] = s.allarme[colore];
  }
  InizioTempo = s.inizio;
  InMoto = s.in_moto;
  PrimaVoltaInMoto = s.prima_volta;
  CopiaLimitata(DataUTC, sizeof DataUTC, s.data);
  CopiaLimitata(OraUTC, sizeof OraUTC, s.ora);
  ImpostaCadenzaPartita(s.cadenza);
}

uint32_t Adesso() { return uint32_t(piattaforma::Millisecondi()); }

int32_t SecondiInMillisecondi(int32_t millisecondi) {
  // Division truncates towards zero, which is already the ceiling for
  // negative values.
  const int64_t ms = millisecondi;
  return int32_t(ms > 0 ? (ms + 999) / 1000 : ms / 1000);
}

int32_t TempoRimastoInMoto(int colore) {
  return int32_t(uint32_t(TempoRimasto[colore]) + InizioTempo - Adesso());
}

void CaricaTempoDaiParametri() {
  ImpostaCadenzaPartita(CadenzaDaiParametri());
  const int32_t minuti = CadenzaPartita.tempo_primo_periodo;
  for (int colore = 0; colore < 2; ++colore) {
    TempoRimasto[colore] = int32_t(int64_t(minuti) * MILLISECONDI_AL_MINUTO);
    TempoVisualizzato[colore] = 0;
    AlarmeSuonato[colore] = ALLARME_MAI_SUONATO;
  }
  InMoto = 0;
  PrimaVoltaInMoto = 0;
  AzzeraTempoUTC();
  for (int colore = 0; colore < 2; ++colore) StampaTempo(colore, int32_t(int64_t(minuti) * 60));
  if (SchermoDellOrologio.cadenza) SchermoDellOrologio.cadenza();
}

void OrologioInMoto() {
  InizioTempo = Adesso();
  // The game file records when play began, not the latest restart.
  if (PrimaVoltaInMoto == 0) {
    StampaTempoUTC();
    PrimaVoltaInMoto = 1;
  }
  InMoto = 1;
  MostraStato();
  Suona(Tono::Pausa, Tono::Bip);
}

void FermaOrologio() {
  const uint32_t adesso = Adesso();
  const int lato = int(ContatoreMosse & 1);
  Addebita(lato, InizioTempo, adesso);
  MostraTempoRimasto(lato);
  InMoto = 0;
  MostraStato();
  Suona(Tono::Bip, Tono::Pausa);
}

void PremiOrologio(int colore) {
  const uint32_t adesso = Adesso();
  Addebita(colore, InizioTempo, adesso);
  InizioTempo = adesso;

  // The game's own control: a setting changed during the game waits for the
  // next one.
  const CadenzaDiGioco& cadenza = CadenzaPartita;
  if (cadenza.periodi == 1) {
    Aggiungi(colore, int64_t(cadenza.incremento_primo_periodo) * 1000);
  } else {
    const int64_t mossa = int64_t(ContatoreMosse >> 1) + 1;
    // Black's n-th move leaves the count one higher than White's n-th.
    const int64_t limite = colore + int64_t(cadenza.mosse_primo_periodo);
    if (mossa <= limite) {
      Aggiungi(colore, int64_t(cadenza.incremento_primo_periodo) * 1000);
    } else {
      Aggiungi(colore, int64_t(cadenza.incremento_secondo_periodo) * 1000);
    }
    if (mossa == limite) {
      Aggiungi(colore, int64_t(cadenza.tempo_secondo_periodo) * MILLISECONDI_AL_MINUTO);
      Suona(Tono::Conferma, Tono::Bip, Tono::Conferma);
    }
  }
  // Both lines tell the truth at once: the mover's with what it used and
  // earned, the other's as it starts to run. The running side's last shown
  // second stays as the loop left it, so that the loop's checks of that
  // second (alarms, countdown, flag) still run.
  MostraTempoRimasto(colore);
  const int altro = 1 - colore;
  if (SchermoDellOrologio.tempo)
    SchermoDellOrologio.tempo(altro, SecondiInMillisecondi(TempoRimasto[altro]));
}

void ModificaTempo(int colore, int32_t minuti) {
  Aggiungi(colore, int64_t(minuti) * MILLISECONDI_AL_MINUTO);
  MostraTempoRimasto(colore);
}

bool AggiornaTempoVisualizzato(int colore, bool mostra) {
  const int32_t secondi = SecondiInMillisecondi(TempoRimastoInMoto(colore));
  if (secondi == TempoVisualizzato[colore]) return false;
  // With the automatic display off the shown value stays behind, so the
  // alarm checks below run on every turn; their marks keep them from
  // sounding twice.
  if (mostra || AggiornamentoAutomatico()) StampaTempo(colore, secondi);
  SuonaAlarme(colore, secondi);
  return secondi == 0;
}

void StampaTempo(int colore, int32_t secondi) {
  if (secondi == TempoVisualizzato[colore]) return;
  TempoVisualizzato[colore] = secondi;
  if (SchermoDellOrologio.tempo) SchermoDellOrologio.tempo(colore, secondi);
}

void SuonaAlarme(int colore, int32_t secondi) {
  const bool nuovo = AlarmeSuonato[colore] != secondi;
  for (int k = 0; k < 5; ++k) {
    if (int64_t(Parametro(PARAMETRO_ALLARME1 + k)) * 60 == secondi && nuovo) {
      Suona(Tono::Bip, Tono::Bip);
      if (SchermoDellOrologio.segnale)
        SchermoDellOrologio.segnale(SegnaleOrologio::Allarme, colore, secondi);
      AlarmeSuonato[colore] = secondi;
      return;
    }
  }
  if (secondi >= 1 && secondi <= 3 && nuovo) {
    Suona(Tono::Bip);
    if (SchermoDellOrologio.segnale)
      SchermoDellOrologio.segnale(SegnaleOrologio::ContoAllaRovescia, colore, secondi);
  }
  AlarmeSuonato[colore] = secondi;
}

int dom_ModificareTempo(int segno, int colore, int32_t minuti) {
  SvuotaMessaggio();
  AggiungiTesto(segno == 0 ? "Aggiungere al" : "Sottrarre al");
  AggiungiCarattere(' ');
  AggiungiTesto(StringaColore[colore]);
  AggiungiCarattere(' ');
  AggiungiNumero(minuti);
  AggiungiCarattere(' ');
  AggiungiTesto("minuti");
  AggiungiCarattere('?');
  return Domanda(messaggio, MB_YESNO);
}

int64_t AttesaProssimoSecondo() {
  if (!InMoto) return -1;
  const int64_t rimasto = TempoRimastoInMoto(int(ContatoreMosse & 1));
  // The shown value s covers ((s - 1) * 1000, s * 1000]; it becomes s - 1
  // once the remaining time has dropped to (s - 1) * 1000.
  return rimasto - (int64_t(SecondiInMillisecondi(int32_t(rimasto))) - 1) * 1000;
}
