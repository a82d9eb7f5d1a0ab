#include "console/tabella_tasti.h"

#include "console/arbitro.h"
#include "console/comandi.h"
#include "console/letture.h"
#include "game/aggiudicazione.h"
#include "messaggi/toni.h"

using namespace piattaforma::win32;

namespace {

using G = GruppoTasti;
using S = CondizioneShift;

constexpr IntervalloTasti Nessuno = {1, 0};
constexpr IntervalloTasti Tasto(WORD codice) { return {codice, codice}; }

}  // namespace

// Rows are tried in order inside each group; the first match wins, so the
// plain 'T' row must stay above the row of letters and digits.
constexpr RigaTabellaTasti TabellaTasti[] = {
    {G::Ctrl,
     {Tasto(VK_RETURN), Nessuno},
     S::Premuto,
     PENDRINO_AZIONE(comando_FermaOrologio),
     0,
     false},
    {G::Ctrl,
     {Tasto(VK_RETURN), Nessuno},
     S::NonPremuto,
     PENDRINO_AZIONE(comando_OrologioInMoto),
     0,
     false},
    {G::Ctrl,
     {Tasto('1'), Tasto(VK_NUMPAD1)},
     S::Premuto,
     PENDRINO_AZIONE(comando_ImpostaParametro),
     PARAMETRO_INCREMENTO_PRIMO_PERIODO,
     false},
    {G::Ctrl,
     {Tasto('1'), Tasto(VK_NUMPAD1)},
     S::NonPremuto,
     PENDRINO_AZIONE(comando_ImpostaParametro),
     PARAMETRO_TEMPO_PRIMO_PERIODO,
     false},
    {G::Ctrl,
     {Tasto('2'), Tasto(VK_NUMPAD2)},
     S::Premuto,
     PENDRINO_AZIONE(comando_ImpostaParametro),
     PARAMETRO_INCREMENTO_SECONDO_PERIODO,
     false},
    {G::Ctrl,
     {Tasto('2'), Tasto(VK_NUMPAD2)},
     S::NonPremuto,
     PENDRINO_AZIONE(comando_ImpostaParametro),
     PARAMETRO_TEMPO_SECONDO_PERIODO,
     false},
    {G::Ctrl,
     {Tasto('A'), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_ImpostaParametro),
     PARAMETRO_AGGIORNAMENTO_AUTOMATICO,
     false},
    {G::Ctrl,
     {Tasto('P'), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_ImpostaParametro),
     PARAMETRO_PERIODI,
     false},
    {G::Ctrl,
     {Tasto('M'), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_ImpostaParametro),
     PARAMETRO_MOSSE_PRIMO_PERIODO,
     false},
    {G::Ctrl,
     {Tasto(VK_CANCEL), Tasto(VK_DELETE)},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_RitiraUltimaMossa),
     0,
     false},
    {G::Ctrl,
     {Tasto(VK_ADD), Tasto(VK_OEM_PLUS)},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_ModificaTempo),
     0,
     false},
    {G::Ctrl,
     {Tasto(VK_SUBTRACT), Tasto(VK_OEM_MINUS)},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_ModificaTempo),
     1,
     false},
    // The readouts, in words on the announcement line.
    {G::Ctrl, {Tasto('O'), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(comando_LeggiTempi), 0, false},
    {G::Ctrl,
     {Tasto('U'), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_LeggiUltimaMossa),
     0,
     false},
    {G::Ctrl, {Tasto('B'), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(comando_LeggiPezzi), 0, false},
    {G::Ctrl, {Tasto('N'), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(comando_LeggiPezzi), 1, false},
    {G::Ctrl, {Tasto('E'), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(comando_LeggiCasa), 0, false},
    {G::Ctrl, {Tasto('V'), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(comando_Voce), 0, false},

    {G::Alt, {Tasto(VK_F4), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(comando_esci), 0, false},
    {G::Alt, {Tasto('N'), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(comando_NuovaPartita), 0, false},
    {G::Alt, {Tasto('S'), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(comandoSalvaPartita), 0, false},
    {G::Alt,
     {{'1', '5'}, {VK_NUMPAD1, VK_NUMPAD5}},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_ImpostaParametro),
     PARAMETRO_ALLARME1,
     true},

    {G::Semplice,
     {Tasto('T'), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(AggiornaTempoASchermo),
     0,
     false},
    {G::Semplice, {Tasto(VK_F4), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(Abbandona), 1, false},
    {G::Semplice, {Tasto(VK_F8), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(Abbandona), 0, false},
    {G::Semplice, {Tasto(VK_F12), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(PattaDaccordo), 0, false},
    {G::Semplice,
     {Tasto(VK_F1), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_VisualizzaListaComandi),
     0,
     false},
    {G::Semplice,
     {Tasto(VK_F5), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_VisualizzaListaMosse),
     0,
     false},
    {G::Semplice,
     {Tasto(VK_F9), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_VisualizzaPartitaPgn),
     0,
     false},
    {G::Semplice,
     {Tasto(VK_PRIOR), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_FormularioIndietro),
     0,
     false},
    {G::Semplice,
     {Tasto(VK_NEXT), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_FormularioAvanti),
     0,
     false},
    {G::Semplice, {Tasto(VK_HOME), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(comando_home), 0, false},
    {G::Semplice, {Tasto(VK_END), Nessuno}, S::Qualsiasi, PENDRINO_AZIONE(comando_end), 0, false},
    {G::Semplice,
     {Tasto(VK_UP), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_FrecciaSu),
     0,
     false},
    {G::Semplice,
     {Tasto(VK_DOWN), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_FrecciaGiu),
     0,
     false},
    {G::Semplice,
     {Tasto(VK_BACK), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_backspace),
     0,
     false},
    {G::Semplice,
     {Tasto(VK_RETURN), Nessuno},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_invio),
     0,
     false},
    {G::Semplice,
     {{0x30, 0x5A}, {VK_NUMPAD0, VK_NUMPAD9}},
     S::Qualsiasi,
     PENDRINO_AZIONE(comando_digitazione),
     0,
     false},
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
  return {NESSUNA_AZIONE, 0};
}

namespace {

// 0 no prefix, 1 after Ctrl+F (a function key), 2 after Ctrl+F twice (Alt
// with a function key).
int PrefissoFunzione = 0;

bool CtrlF(const KEY_EVENT_RECORD& tasto) {
  return tasto.wVirtualKeyCode == 'F' && (tasto.dwControlKeyState & MASCHERA_CTRL) &&
         !(tasto.dwControlKeyState & MASCHERA_ALT);
}

// The function key a key names after the prefix: 1..9 and 0 for F1..F10,
// '-' and '=' (the keys after 0) for F11 and F12; 0 for none.
WORD TastoFunzione(const KEY_EVENT_RECORD& tasto) {
  if (tasto.dwControlKeyState & (MASCHERA_CTRL | MASCHERA_ALT)) return 0;
  WORD codice = tasto.wVirtualKeyCode;
  if (codice >= VK_NUMPAD0 && codice <= VK_NUMPAD0 + 9) codice = WORD('0' + codice - VK_NUMPAD0);
  if (codice >= '1' && codice <= '9') return WORD(VK_F1 + (codice - '1'));
  if (codice == '0') return VK_F10;
  if (codice == VK_OEM_MINUS || codice == VK_SUBTRACT) return WORD(VK_F10 + 1);
  if (codice == VK_OEM_PLUS && !(tasto.dwControlKeyState & SHIFT_PRESSED)) return WORD(VK_F10 + 2);
  return 0;
}

}  // namespace

bool TraduciPrefissoFunzione(KEY_EVENT_RECORD& tasto) {
  if (CtrlF(tasto)) {
    // A third Ctrl+F cancels, as a third Ctrl+X does.
    PrefissoFunzione = PrefissoFunzione == 2 ? 0 : PrefissoFunzione + 1;
    Suona(PrefissoFunzione == 0   ? Tono::PrefissoAnnullato
          : PrefissoFunzione == 1 ? Tono::PrefissoFunzione
                                  : Tono::PrefissoAltFunzione);
    return false;
  }
  if (PrefissoFunzione == 0) return true;
  const int prefisso = PrefissoFunzione;
  PrefissoFunzione = 0;
  const WORD funzione = TastoFunzione(tasto);
  if (funzione == 0) {
    // Any other key: the prefix is dropped and the key is itself.
    Suona(Tono::PrefissoAnnullato);
    return true;
  }
  tasto.wVirtualKeyCode = funzione;
  tasto.uChar.AsciiChar = 0;
  tasto.dwControlKeyState = prefisso == 2 ? LEFT_ALT_PRESSED : 0;
  return true;
}

void AzzeraPrefissoFunzione() { PrefissoFunzione = 0; }
