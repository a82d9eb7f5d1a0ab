#include "console/tabella_tasti.h"

using namespace piattaforma::win32;

namespace {

using G = GruppoTasti;
using S = CondizioneShift;
using A = Azione;

constexpr IntervalloTasti Nessuno = {1, 0};
constexpr IntervalloTasti Tasto(WORD codice) { return {codice, codice}; }

}  // namespace

// Rows are tried in order inside each group; the first match wins, so the
// plain 'T' row must stay above the row of letters and digits.
constexpr RigaTabellaTasti TabellaTasti[] = {
    {G::Ctrl, {Tasto(VK_RETURN), Nessuno}, S::Premuto, A::FermaOrologio, 0, false},
    {G::Ctrl, {Tasto(VK_RETURN), Nessuno}, S::NonPremuto, A::OrologioInMoto, 0, false},
    {G::Ctrl,
     {Tasto('1'), Tasto(VK_NUMPAD1)},
     S::Premuto,
     A::ImpostaParametro,
     PARAMETRO_INCREMENTO_PRIMO_PERIODO,
     false},
    {G::Ctrl,
     {Tasto('1'), Tasto(VK_NUMPAD1)},
     S::NonPremuto,
     A::ImpostaParametro,
     PARAMETRO_TEMPO_PRIMO_PERIODO,
     false},
    {G::Ctrl,
     {Tasto('2'), Tasto(VK_NUMPAD2)},
     S::Premuto,
     A::ImpostaParametro,
     PARAMETRO_INCREMENTO_SECONDO_PERIODO,
     false},
    {G::Ctrl,
     {Tasto('2'), Tasto(VK_NUMPAD2)},
     S::NonPremuto,
     A::ImpostaParametro,
     PARAMETRO_TEMPO_SECONDO_PERIODO,
     false},
    {G::Ctrl,
     {Tasto('A'), Nessuno},
     S::Qualsiasi,
     A::ImpostaParametro,
     PARAMETRO_AGGIORNAMENTO_AUTOMATICO,
     false},
    {G::Ctrl, {Tasto('P'), Nessuno}, S::Qualsiasi, A::ImpostaParametro, PARAMETRO_PERIODI, false},
    {G::Ctrl,
     {Tasto('M'), Nessuno},
     S::Qualsiasi,
     A::ImpostaParametro,
     PARAMETRO_MOSSE_PRIMO_PERIODO,
     false},
    {G::Ctrl, {Tasto(VK_CANCEL), Tasto(VK_DELETE)}, S::Qualsiasi, A::RitiraUltimaMossa, 0, false},
    {G::Ctrl, {Tasto(VK_ADD), Tasto(VK_OEM_PLUS)}, S::Qualsiasi, A::ModificaTempo, 0, false},
    {G::Ctrl, {Tasto(VK_SUBTRACT), Tasto(VK_OEM_MINUS)}, S::Qualsiasi, A::ModificaTempo, 1, false},

    {G::Alt, {Tasto(VK_F4), Nessuno}, S::Qualsiasi, A::Esci, 0, false},
    {G::Alt, {Tasto('N'), Nessuno}, S::Qualsiasi, A::NuovaPartita, 0, false},
    {G::Alt, {Tasto('S'), Nessuno}, S::Qualsiasi, A::SalvaPartita, 0, false},
    {G::Alt,
     {{'1', '5'}, {VK_NUMPAD1, VK_NUMPAD5}},
     S::Qualsiasi,
     A::ImpostaParametro,
     PARAMETRO_ALLARME1,
     true},

    {G::Semplice, {Tasto('T'), Nessuno}, S::Qualsiasi, A::AggiornaTempoASchermo, 0, false},
    {G::Semplice, {Tasto(VK_F4), Nessuno}, S::Qualsiasi, A::Abbandona, 1, false},
    {G::Semplice, {Tasto(VK_F8), Nessuno}, S::Qualsiasi, A::Abbandona, 0, false},
    {G::Semplice, {Tasto(VK_F12), Nessuno}, S::Qualsiasi, A::PattaDaccordo, 0, false},
    {G::Semplice, {Tasto(VK_F1), Nessuno}, S::Qualsiasi, A::VisualizzaListaComandi, 0, false},
    {G::Semplice, {Tasto(VK_F5), Nessuno}, S::Qualsiasi, A::VisualizzaListaMosse, 0, false},
    {G::Semplice, {Tasto(VK_F9), Nessuno}, S::Qualsiasi, A::VisualizzaPartitaPgn, 0, false},
    {G::Semplice, {Tasto(VK_HOME), Nessuno}, S::Qualsiasi, A::Home, 0, false},
    {G::Semplice, {Tasto(VK_END), Nessuno}, S::Qualsiasi, A::End, 0, false},
    {G::Semplice, {Tasto(VK_UP), Nessuno}, S::Qualsiasi, A::FrecciaSu, 0, false},
    {G::Semplice, {Tasto(VK_DOWN), Nessuno}, S::Qualsiasi, A::FrecciaGiu, 0, false},
    {G::Semplice, {Tasto(VK_BACK), Nessuno}, S::Qualsiasi, A::Backspace, 0, false},
    {G::Semplice, {Tasto(VK_RETURN), Nessuno}, S::Qualsiasi, A::Invio, 0, false},
    {G::Semplice, {{0x30, 0x5A}, {VK_NUMPAD0, VK_NUMPAD9}}, S::Qualsiasi, A::Digitazione, 0, false},
};
const int RigheTabellaTasti = int(sizeof TabellaTasti / sizeof TabellaTasti[0]);

GruppoTasti GruppoDi(DWORD stato_controllo) {
  if (stato_controllo & MASCHERA_CTRL) return GruppoTasti::Ctrl;
  if (stato_controllo & MASCHERA_ALT) return GruppoTasti::Alt;
  return GruppoTasti::Semplice;
}

static bool ShiftAccettato(CondizioneShift condizione, DWORD stato_controllo) {
  const bool premuto = stato_controllo & SHIFT_PRESSED;
  switch (condizione) {
    case CondizioneShift::Premuto:
      return premuto;
    case CondizioneShift::NonPremuto:
      return !premuto;
    default:
      return true;
  }
}

AzioneTasto CercaAzione(const KEY_EVENT_RECORD& tasto) {
  const GruppoTasti gruppo = GruppoDi(tasto.dwControlKeyState);
  const WORD codice = tasto.wVirtualKeyCode;
  for (const RigaTabellaTasti& riga : TabellaTasti) {
    if (riga.gruppo != gruppo || !ShiftAccettato(riga.shift, tasto.dwControlKeyState)) continue;
    for (const IntervalloTasti& intervallo : riga.tasti) {
      if (codice < intervallo.primo || codice > intervallo.ultimo) continue;
      const int scarto = riga.argomento_per_tasto ? codice - intervallo.primo : 0;
      return {riga.azione, riga.argomento + scarto};
    }
  }
  return {Azione::Nessuna, 0};
}
