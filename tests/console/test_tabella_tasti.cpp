#include <gtest/gtest.h>

#include <initializer_list>

#include <set>
#include <utility>

#include "console/tabella_tasti.h"

using namespace piattaforma::win32;

namespace {

KEY_EVENT_RECORD Tasto(WORD codice, DWORD stato = 0, char carattere = 0) {
  KEY_EVENT_RECORD k{};
  k.bKeyDown = 1;
  k.wRepeatCount = 1;
  k.wVirtualKeyCode = codice;
  k.uChar.AsciiChar = carattere;
  k.dwControlKeyState = stato;
  return k;
}

constexpr DWORD CTRL = LEFT_CTRL_PRESSED;
constexpr DWORD CTRL_DESTRO = RIGHT_CTRL_PRESSED;
constexpr DWORD ALT = LEFT_ALT_PRESSED;
constexpr DWORD ALT_GR = RIGHT_ALT_PRESSED | LEFT_CTRL_PRESSED;
constexpr DWORD SHIFT = SHIFT_PRESSED;
constexpr DWORD BLOC_MAIUSCOLE = 0x0080;  // Caps Lock on

struct Atteso {
  WORD codice;
  DWORD stato;
  Azione azione;
  int argomento;
};

void Verifica(const Atteso& a) {
  const AzioneTasto trovata = CercaAzione(Tasto(a.codice, a.stato));
  EXPECT_EQ(int(trovata.azione), int(a.azione))
      << "key 0x" << std::hex << a.codice << " state 0x" << a.stato;
  if (a.azione != Azione::Nessuna) {
    EXPECT_EQ(trovata.argomento, a.argomento)
        << "key 0x" << std::hex << a.codice << " state 0x" << a.stato;
  }
}

TEST(TabellaTasti, RigheDelGruppoCtrl) {
  const Atteso attesi[] = {
      {VK_RETURN, CTRL | SHIFT, Azione::FermaOrologio, 0},
      {VK_RETURN, CTRL, Azione::OrologioInMoto, 0},
      {VK_RETURN, CTRL_DESTRO, Azione::OrologioInMoto, 0},
      {'1', CTRL | SHIFT, Azione::ImpostaParametro, PARAMETRO_INCREMENTO_PRIMO_PERIODO},
      {VK_NUMPAD1, CTRL | SHIFT, Azione::ImpostaParametro, PARAMETRO_INCREMENTO_PRIMO_PERIODO},
      {'1', CTRL, Azione::ImpostaParametro, PARAMETRO_TEMPO_PRIMO_PERIODO},
      {VK_NUMPAD1, CTRL, Azione::ImpostaParametro, PARAMETRO_TEMPO_PRIMO_PERIODO},
      {'2', CTRL | SHIFT, Azione::ImpostaParametro, PARAMETRO_INCREMENTO_SECONDO_PERIODO},
      {VK_NUMPAD2, CTRL | SHIFT, Azione::ImpostaParametro, PARAMETRO_INCREMENTO_SECONDO_PERIODO},
      {'2', CTRL, Azione::ImpostaParametro, PARAMETRO_TEMPO_SECONDO_PERIODO},
      {VK_NUMPAD2, CTRL, Azione::ImpostaParametro, PARAMETRO_TEMPO_SECONDO_PERIODO},
      {'A', CTRL, Azione::ImpostaParametro, PARAMETRO_AGGIORNAMENTO_AUTOMATICO},
      {'A', CTRL | SHIFT, Azione::ImpostaParametro, PARAMETRO_AGGIORNAMENTO_AUTOMATICO},
      {'P', CTRL, Azione::ImpostaParametro, PARAMETRO_PERIODI},
      {'P', CTRL | SHIFT, Azione::ImpostaParametro, PARAMETRO_PERIODI},
      {'M', CTRL, Azione::ImpostaParametro, PARAMETRO_MOSSE_PRIMO_PERIODO},
      {VK_CANCEL, CTRL, Azione::RitiraUltimaMossa, 0},
      {VK_DELETE, CTRL, Azione::RitiraUltimaMossa, 0},
      {VK_DELETE, CTRL | SHIFT, Azione::RitiraUltimaMossa, 0},
      {VK_ADD, CTRL, Azione::ModificaTempo, 0},
      {VK_OEM_PLUS, CTRL, Azione::ModificaTempo, 0},
      {VK_OEM_PLUS, CTRL | SHIFT, Azione::ModificaTempo, 0},
      {VK_SUBTRACT, CTRL, Azione::ModificaTempo, 1},
      {VK_OEM_MINUS, CTRL, Azione::ModificaTempo, 1},
  };
  for (const Atteso& a : attesi) Verifica(a);
}

TEST(TabellaTasti, RigheDelGruppoAlt) {
  const Atteso attesi[] = {
      {VK_F4, ALT, Azione::Esci, 0},
      {VK_F4, RIGHT_ALT_PRESSED, Azione::Esci, 0},
      {VK_F4, ALT | SHIFT, Azione::Esci, 0},
      {'N', ALT, Azione::NuovaPartita, 0},
      {'S', ALT, Azione::SalvaPartita, 0},
      {'1', ALT, Azione::ImpostaParametro, PARAMETRO_ALLARME1},
      {'2', ALT, Azione::ImpostaParametro, PARAMETRO_ALLARME1 + 1},
      {'3', ALT, Azione::ImpostaParametro, PARAMETRO_ALLARME1 + 2},
      {'4', ALT, Azione::ImpostaParametro, PARAMETRO_ALLARME1 + 3},
      {'5', ALT, Azione::ImpostaParametro, PARAMETRO_ALLARME1 + 4},
      {VK_NUMPAD1, ALT, Azione::ImpostaParametro, PARAMETRO_ALLARME1},
      {VK_NUMPAD3, ALT, Azione::ImpostaParametro, PARAMETRO_ALLARME1 + 2},
      {VK_NUMPAD5, ALT, Azione::ImpostaParametro, PARAMETRO_ALLARME1 + 4},
      {'6', ALT, Azione::Nessuna, 0},
      {'0', ALT, Azione::Nessuna, 0},
      {VK_NUMPAD0 + 6, ALT, Azione::Nessuna, 0},
      {'T', ALT, Azione::Nessuna, 0},
      {VK_RETURN, ALT, Azione::Nessuna, 0},
  };
  for (const Atteso& a : attesi) Verifica(a);
}

TEST(TabellaTasti, RigheDelGruppoSemplice) {
  const Atteso attesi[] = {
      {'T', 0, Azione::AggiornaTempoASchermo, 0},
      {'T', SHIFT, Azione::AggiornaTempoASchermo, 0},
      {VK_F4, 0, Azione::Abbandona, 1},
      {VK_F8, 0, Azione::Abbandona, 0},
      {VK_F12, 0, Azione::PattaDaccordo, 0},
      {VK_F1, 0, Azione::VisualizzaListaComandi, 0},
      {VK_F5, 0, Azione::VisualizzaListaMosse, 0},
      {VK_F9, 0, Azione::VisualizzaPartitaPgn, 0},
      {VK_HOME, 0, Azione::Home, 0},
      {VK_END, 0, Azione::End, 0},
      {VK_UP, 0, Azione::FrecciaSu, 0},
      {VK_DOWN, 0, Azione::FrecciaGiu, 0},
      {VK_BACK, 0, Azione::Backspace, 0},
      {VK_RETURN, 0, Azione::Invio, 0},
      {'0', 0, Azione::Digitazione, 0},
      {'9', SHIFT, Azione::Digitazione, 0},
      {'A', 0, Azione::Digitazione, 0},
      {'S', SHIFT, Azione::Digitazione, 0},
      {'U', 0, Azione::Digitazione, 0},
      {'Z', 0, Azione::Digitazione, 0},
      {0x3A, 0, Azione::Digitazione, 0},  // unassigned codes inside the range
      {0x40, 0, Azione::Digitazione, 0},
      {VK_NUMPAD0, 0, Azione::Digitazione, 0},
      {VK_NUMPAD9, 0, Azione::Digitazione, 0},
  };
  for (const Atteso& a : attesi) Verifica(a);
}

TEST(TabellaTasti, AltriTastiSempliciSonoIgnorati) {
  for (WORD codice : std::initializer_list<WORD>{
           VK_ESCAPE, VK_TAB,        VK_SPACE,   VK_OEM_PLUS, VK_OEM_MINUS, VK_OEM_1,
           VK_OEM_2,  VK_OEM_PERIOD, VK_F2,      VK_F3,       VK_F6,        VK_F7,
           VK_F10,    VK_F11,        VK_LEFT,    VK_RIGHT,    VK_PRIOR,     VK_NEXT,
           VK_INSERT, VK_DELETE,     VK_ADD,     VK_SUBTRACT, VK_MULTIPLY,  VK_DECIMAL,
           VK_DIVIDE, WORD(0x2F),    WORD(0x5B), WORD(0),     WORD(0xFF)})
    Verifica({codice, 0, Azione::Nessuna, 0});
}

TEST(TabellaTasti, CtrlEAltInsiemeScelgonoIlGruppoCtrl) {
  EXPECT_EQ(GruppoDi(CTRL | ALT), GruppoTasti::Ctrl);
  EXPECT_EQ(GruppoDi(ALT_GR), GruppoTasti::Ctrl);
  EXPECT_EQ(GruppoDi(RIGHT_ALT_PRESSED | RIGHT_CTRL_PRESSED), GruppoTasti::Ctrl);
  EXPECT_EQ(GruppoDi(ALT | SHIFT), GruppoTasti::Alt);
  EXPECT_EQ(GruppoDi(SHIFT | NUMLOCK_ON | ENHANCED_KEY), GruppoTasti::Semplice);
  // The Alt rows are never consulted with Ctrl held, AltGr included.
  Verifica({VK_F4, CTRL | ALT, Azione::Nessuna, 0});
  Verifica({VK_F4, ALT_GR, Azione::Nessuna, 0});
  Verifica({'N', ALT_GR, Azione::Nessuna, 0});
  Verifica({'3', ALT_GR, Azione::Nessuna, 0});
  Verifica({'1', ALT_GR, Azione::ImpostaParametro, PARAMETRO_TEMPO_PRIMO_PERIODO});
  Verifica({VK_RETURN, CTRL | ALT, Azione::OrologioInMoto, 0});
  Verifica({VK_RETURN, ALT_GR | SHIFT, Azione::FermaOrologio, 0});
}

TEST(TabellaTasti, CtrlCIgnoratoCtrlInterruzioneRitiraLaMossa) {
  Verifica({'C', CTRL, Azione::Nessuna, 0});
  Verifica({VK_CANCEL, CTRL, Azione::RitiraUltimaMossa, 0});
  Verifica({VK_CANCEL, CTRL_DESTRO, Azione::RitiraUltimaMossa, 0});
}

TEST(TabellaTasti, CtrlConUnTastoFuoriTabellaNonFaNulla) {
  for (WORD codice :
       std::initializer_list<WORD>{WORD('T'), WORD('3'), WORD('0'), WORD('B'), WORD('Z'), VK_F4,
                                   VK_BACK, VK_HOME, VK_UP, VK_NUMPAD3, VK_ESCAPE})
    Verifica({codice, CTRL, Azione::Nessuna, 0});
  // Not a single Ctrl chord falls through to typing.
  for (int codice = 0; codice <= 0xFF; ++codice)
    EXPECT_NE(CercaAzione(Tasto(WORD(codice), CTRL)).azione, Azione::Digitazione) << codice;
}

TEST(TabellaTasti, AltConUnTastoFuoriTabellaNonFaNulla) {
  for (int codice = 0; codice <= 0xFF; ++codice) {
    const Azione a = CercaAzione(Tasto(WORD(codice), ALT)).azione;
    EXPECT_TRUE(a == Azione::Nessuna || a == Azione::Esci || a == Azione::NuovaPartita ||
                a == Azione::SalvaPartita || a == Azione::ImpostaParametro)
        << codice;
  }
}

TEST(TabellaTasti, ShiftInvioSenzaCtrlEInvio) {
  Verifica({VK_RETURN, SHIFT, Azione::Invio, 0});
  Verifica({VK_RETURN, SHIFT | NUMLOCK_ON | ENHANCED_KEY, Azione::Invio, 0});
}

TEST(TabellaTasti, F4DaSoloEAltF4SonoComandiDiversi) {
  Verifica({VK_F4, 0, Azione::Abbandona, 1});
  Verifica({VK_F4, ALT, Azione::Esci, 0});
}

TEST(TabellaTasti, LaTNonArrivaMaiAlCampoComando) {
  Verifica({'T', 0, Azione::AggiornaTempoASchermo, 0});
  Verifica({'T', SHIFT, Azione::AggiornaTempoASchermo, 0});
  Verifica({'T', BLOC_MAIUSCOLE, Azione::AggiornaTempoASchermo, 0});
}

TEST(TabellaTasti, TastierinoNumericoConESenzaBlocNum) {
  // Num Lock on: the pad's digits.
  for (WORD codice = VK_NUMPAD0; codice <= VK_NUMPAD9; ++codice)
    Verifica({codice, NUMLOCK_ON, Azione::Digitazione, 0});
  // Num Lock off: the same keys arrive as navigation keys and act as such.
  Verifica({VK_HOME, 0, Azione::Home, 0});
  Verifica({VK_END, 0, Azione::End, 0});
  Verifica({VK_UP, 0, Azione::FrecciaSu, 0});
  Verifica({VK_DOWN, 0, Azione::FrecciaGiu, 0});
}

TEST(TabellaTasti, OgniRigaHaUnGruppoEUnAzione) {
  ASSERT_EQ(RigheTabellaTasti, 30);
  std::set<std::pair<int, int>> visti;
  for (int i = 0; i < RigheTabellaTasti; ++i) {
    const RigaTabellaTasti& r = TabellaTasti[i];
    EXPECT_NE(r.azione, Azione::Nessuna) << i;
    EXPECT_LT(int(r.azione), int(Azione::Conteggio)) << i;
    EXPECT_LE(r.tasti[0].primo, r.tasti[0].ultimo) << i;
    visti.insert({int(r.azione), r.argomento});
  }
  // Every action of the table appears.
  for (int a = int(Azione::Nessuna) + 1; a < int(Azione::Conteggio); ++a) {
    bool presente = false;
    for (const auto& v : visti) presente |= v.first == a;
    EXPECT_TRUE(presente) << "action " << a;
  }
}

}  // namespace
