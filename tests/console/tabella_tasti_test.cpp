#include <gtest/gtest.h>

#include <initializer_list>

#include <set>
#include <string>
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

// Actions by their handler's name; "" for none.
struct Atteso {
  WORD codice;
  DWORD stato;
  const char* azione;
  int argomento;
};

void Verifica(const Atteso& a) {
  const AzioneTasto trovata = CercaAzione(Tasto(a.codice, a.stato));
  EXPECT_STREQ(trovata.azione.nome, a.azione)
      << "key 0x" << std::hex << a.codice << " state 0x" << a.stato;
  if (*a.azione) {
    EXPECT_EQ(trovata.argomento, a.argomento)
        << "key 0x" << std::hex << a.codice << " state 0x" << a.stato;
  }
}

TEST(TabellaTasti, RigheDelGruppoCtrl) {
  const Atteso attesi[] = {
      {VK_RETURN, CTRL | SHIFT, "comando_FermaOrologio", 0},
      {VK_RETURN, CTRL, "comando_OrologioInMoto", 0},
      {VK_RETURN, CTRL_DESTRO, "comando_OrologioInMoto", 0},
      {'1', CTRL | SHIFT, "comando_ImpostaParametro", PARAMETRO_INCREMENTO_PRIMO_PERIODO},
      {VK_NUMPAD1, CTRL | SHIFT, "comando_ImpostaParametro", PARAMETRO_INCREMENTO_PRIMO_PERIODO},
      {'1', CTRL, "comando_ImpostaParametro", PARAMETRO_TEMPO_PRIMO_PERIODO},
      {VK_NUMPAD1, CTRL, "comando_ImpostaParametro", PARAMETRO_TEMPO_PRIMO_PERIODO},
      {'2', CTRL | SHIFT, "comando_ImpostaParametro", PARAMETRO_INCREMENTO_SECONDO_PERIODO},
      {VK_NUMPAD2, CTRL | SHIFT, "comando_ImpostaParametro", PARAMETRO_INCREMENTO_SECONDO_PERIODO},
      {'2', CTRL, "comando_ImpostaParametro", PARAMETRO_TEMPO_SECONDO_PERIODO},
      {VK_NUMPAD2, CTRL, "comando_ImpostaParametro", PARAMETRO_TEMPO_SECONDO_PERIODO},
      {'A', CTRL, "comando_ImpostaParametro", PARAMETRO_AGGIORNAMENTO_AUTOMATICO},
      {'A', CTRL | SHIFT, "comando_ImpostaParametro", PARAMETRO_AGGIORNAMENTO_AUTOMATICO},
      {'P', CTRL, "comando_ImpostaParametro", PARAMETRO_PERIODI},
      {'P', CTRL | SHIFT, "comando_ImpostaParametro", PARAMETRO_PERIODI},
      {'M', CTRL, "comando_ImpostaParametro", PARAMETRO_MOSSE_PRIMO_PERIODO},
      {VK_CANCEL, CTRL, "comando_RitiraUltimaMossa", 0},
      {VK_DELETE, CTRL, "comando_RitiraUltimaMossa", 0},
      {VK_DELETE, CTRL | SHIFT, "comando_RitiraUltimaMossa", 0},
      {VK_ADD, CTRL, "comando_ModificaTempo", 0},
      {VK_OEM_PLUS, CTRL, "comando_ModificaTempo", 0},
      {VK_OEM_PLUS, CTRL | SHIFT, "comando_ModificaTempo", 0},
      {VK_SUBTRACT, CTRL, "comando_ModificaTempo", 1},
      {VK_OEM_MINUS, CTRL, "comando_ModificaTempo", 1},
  };
  for (const Atteso& a : attesi) Verifica(a);
}

TEST(TabellaTasti, RigheDelGruppoAlt) {
  const Atteso attesi[] = {
      {VK_F4, ALT, "comando_esci", 0},
      {VK_F4, RIGHT_ALT_PRESSED, "comando_esci", 0},
      {VK_F4, ALT | SHIFT, "comando_esci", 0},
      {'N', ALT, "comando_NuovaPartita", 0},
      {'S', ALT, "comandoSalvaPartita", 0},
      {'1', ALT, "comando_ImpostaParametro", PARAMETRO_ALLARME1},
      {'2', ALT, "comando_ImpostaParametro", PARAMETRO_ALLARME1 + 1},
      {'3', ALT, "comando_ImpostaParametro", PARAMETRO_ALLARME1 + 2},
      {'4', ALT, "comando_ImpostaParametro", PARAMETRO_ALLARME1 + 3},
      {'5', ALT, "comando_ImpostaParametro", PARAMETRO_ALLARME1 + 4},
      {VK_NUMPAD1, ALT, "comando_ImpostaParametro", PARAMETRO_ALLARME1},
      {VK_NUMPAD3, ALT, "comando_ImpostaParametro", PARAMETRO_ALLARME1 + 2},
      {VK_NUMPAD5, ALT, "comando_ImpostaParametro", PARAMETRO_ALLARME1 + 4},
      {'6', ALT, "", 0},
      {'0', ALT, "", 0},
      {VK_NUMPAD0 + 6, ALT, "", 0},
      {'T', ALT, "", 0},
      {VK_RETURN, ALT, "", 0},
  };
  for (const Atteso& a : attesi) Verifica(a);
}

TEST(TabellaTasti, RigheDelGruppoSemplice) {
  const Atteso attesi[] = {
      {'T', 0, "AggiornaTempoASchermo", 0},
      {'T', SHIFT, "AggiornaTempoASchermo", 0},
      {VK_F4, 0, "Abbandona", 1},
      {VK_F8, 0, "Abbandona", 0},
      {VK_F12, 0, "PattaDaccordo", 0},
      {VK_F1, 0, "comando_VisualizzaListaComandi", 0},
      {VK_F5, 0, "comando_VisualizzaListaMosse", 0},
      {VK_F9, 0, "comando_VisualizzaPartitaPgn", 0},
      {VK_HOME, 0, "comando_home", 0},
      {VK_END, 0, "comando_end", 0},
      {VK_UP, 0, "comando_FrecciaSu", 0},
      {VK_DOWN, 0, "comando_FrecciaGiu", 0},
      {VK_BACK, 0, "comando_backspace", 0},
      {VK_RETURN, 0, "comando_invio", 0},
      {'0', 0, "comando_digitazione", 0},
      {'9', SHIFT, "comando_digitazione", 0},
      {'A', 0, "comando_digitazione", 0},
      {'S', SHIFT, "comando_digitazione", 0},
      {'U', 0, "comando_digitazione", 0},
      {'Z', 0, "comando_digitazione", 0},
      {0x3A, 0, "comando_digitazione", 0},  // unassigned codes inside the range
      {0x40, 0, "comando_digitazione", 0},
      {VK_NUMPAD0, 0, "comando_digitazione", 0},
      {VK_NUMPAD9, 0, "comando_digitazione", 0},
  };
  for (const Atteso& a : attesi) Verifica(a);
}

TEST(TabellaTasti, LeLetture) {
  const Atteso attesi[] = {
      {'O', CTRL, "comando_LeggiTempi", 0},
      {'U', CTRL, "comando_LeggiUltimaMossa", 0},
      {'B', CTRL, "comando_LeggiPezzi", 0},
      {'N', CTRL, "comando_LeggiPezzi", 1},
      {'E', CTRL | SHIFT, "comando_LeggiCasa", 0},
      {'N', ALT_GR, "comando_LeggiPezzi", 1},
      {VK_PRIOR, 0, "comando_FormularioIndietro", 0},
      {VK_NEXT, SHIFT, "comando_FormularioAvanti", 0},
      {'V', CTRL, "comando_Voce", 0},
  };
  for (const Atteso& a : attesi) Verifica(a);
}

TEST(TabellaTasti, AltriTastiSempliciSonoIgnorati) {
  for (WORD codice : std::initializer_list<WORD>{
           VK_ESCAPE,  VK_TAB,        VK_SPACE,    VK_OEM_PLUS, VK_OEM_MINUS, VK_OEM_1,
           VK_OEM_2,   VK_OEM_PERIOD, VK_F2,       VK_F3,       VK_F6,        VK_F7,
           VK_F10,     VK_F11,        VK_LEFT,     VK_RIGHT,    VK_INSERT,    VK_DELETE,
           VK_ADD,     VK_SUBTRACT,   VK_MULTIPLY, VK_DECIMAL,  VK_DIVIDE,    WORD(0x2F),
           WORD(0x5B), WORD(0),       WORD(0xFF)})
    Verifica({codice, 0, "", 0});
}

TEST(TabellaTasti, CtrlEAltInsiemeScelgonoIlGruppoCtrl) {
  EXPECT_EQ(GruppoDi(CTRL | ALT), GruppoTasti::Ctrl);
  EXPECT_EQ(GruppoDi(ALT_GR), GruppoTasti::Ctrl);
  EXPECT_EQ(GruppoDi(RIGHT_ALT_PRESSED | RIGHT_CTRL_PRESSED), GruppoTasti::Ctrl);
  EXPECT_EQ(GruppoDi(ALT | SHIFT), GruppoTasti::Alt);
  EXPECT_EQ(GruppoDi(SHIFT | NUMLOCK_ON | ENHANCED_KEY), GruppoTasti::Semplice);
  // The Alt rows are never consulted with Ctrl held, AltGr included.
  Verifica({VK_F4, CTRL | ALT, "", 0});
  Verifica({VK_F4, ALT_GR, "", 0});
  Verifica({'K', ALT_GR, "", 0});
  Verifica({'3', ALT_GR, "", 0});
  Verifica({'1', ALT_GR, "comando_ImpostaParametro", PARAMETRO_TEMPO_PRIMO_PERIODO});
  Verifica({VK_RETURN, CTRL | ALT, "comando_OrologioInMoto", 0});
  Verifica({VK_RETURN, ALT_GR | SHIFT, "comando_FermaOrologio", 0});
}

TEST(TabellaTasti, CtrlCIgnoratoCtrlInterruzioneRitiraLaMossa) {
  Verifica({'C', CTRL, "", 0});
  Verifica({VK_CANCEL, CTRL, "comando_RitiraUltimaMossa", 0});
  Verifica({VK_CANCEL, CTRL_DESTRO, "comando_RitiraUltimaMossa", 0});
}

TEST(TabellaTasti, CtrlConUnTastoFuoriTabellaNonFaNulla) {
  for (WORD codice :
       std::initializer_list<WORD>{WORD('T'), WORD('3'), WORD('0'), WORD('K'), WORD('Z'), VK_F4,
                                   VK_BACK, VK_HOME, VK_UP, VK_NUMPAD3, VK_ESCAPE})
    Verifica({codice, CTRL, "", 0});
  // Not a single Ctrl chord falls through to typing.
  for (int codice = 0; codice <= 0xFF; ++codice)
    EXPECT_STRNE(CercaAzione(Tasto(WORD(codice), CTRL)).azione.nome, "comando_digitazione")
        << codice;
}

TEST(TabellaTasti, AltConUnTastoFuoriTabellaNonFaNulla) {
  for (int codice = 0; codice <= 0xFF; ++codice) {
    const std::string a = CercaAzione(Tasto(WORD(codice), ALT)).azione.nome;
    EXPECT_TRUE(a == "" || a == "comando_esci" || a == "comando_NuovaPartita" ||
                a == "comandoSalvaPartita" || a == "comando_ImpostaParametro")
        << codice;
  }
}

TEST(TabellaTasti, ShiftInvioSenzaCtrlEInvio) {
  Verifica({VK_RETURN, SHIFT, "comando_invio", 0});
  Verifica({VK_RETURN, SHIFT | NUMLOCK_ON | ENHANCED_KEY, "comando_invio", 0});
}

TEST(TabellaTasti, F4DaSoloEAltF4SonoComandiDiversi) {
  Verifica({VK_F4, 0, "Abbandona", 1});
  Verifica({VK_F4, ALT, "comando_esci", 0});
}

TEST(TabellaTasti, LaTNonArrivaMaiAlCampoComando) {
  Verifica({'T', 0, "AggiornaTempoASchermo", 0});
  Verifica({'T', SHIFT, "AggiornaTempoASchermo", 0});
  Verifica({'T', BLOC_MAIUSCOLE, "AggiornaTempoASchermo", 0});
}

TEST(TabellaTasti, TastierinoNumericoConESenzaBlocNum) {
  // Num Lock on: the pad's digits.
  for (WORD codice = VK_NUMPAD0; codice <= VK_NUMPAD9; ++codice)
    Verifica({codice, NUMLOCK_ON, "comando_digitazione", 0});
  // Num Lock off: the same keys arrive as navigation keys and act as such.
  Verifica({VK_HOME, 0, "comando_home", 0});
  Verifica({VK_END, 0, "comando_end", 0});
  Verifica({VK_UP, 0, "comando_FrecciaSu", 0});
  Verifica({VK_DOWN, 0, "comando_FrecciaGiu", 0});
}

TEST(TabellaTasti, OgniRigaHaUnGruppoEUnAzione) {
  ASSERT_EQ(RigheTabellaTasti, 38);
  std::set<std::string> viste;
  for (int i = 0; i < RigheTabellaTasti; ++i) {
    const RigaTabellaTasti& r = TabellaTasti[i];
    EXPECT_STRNE(r.azione.nome, "") << i;
    EXPECT_LE(r.tasti[0].primo, r.tasti[0].ultimo) << i;
    viste.insert(r.azione.nome);
  }
  // Every command that a key reaches, each under its handler's name.
  const std::set<std::string> attese = {"comando_FermaOrologio",
                                        "comando_OrologioInMoto",
                                        "comando_ImpostaParametro",
                                        "comando_RitiraUltimaMossa",
                                        "comando_ModificaTempo",
                                        "comando_esci",
                                        "comando_NuovaPartita",
                                        "comandoSalvaPartita",
                                        "AggiornaTempoASchermo",
                                        "Abbandona",
                                        "PattaDaccordo",
                                        "comando_VisualizzaListaComandi",
                                        "comando_VisualizzaListaMosse",
                                        "comando_VisualizzaPartitaPgn",
                                        "comando_home",
                                        "comando_end",
                                        "comando_FrecciaSu",
                                        "comando_FrecciaGiu",
                                        "comando_backspace",
                                        "comando_invio",
                                        "comando_digitazione",
                                        "comando_LeggiTempi",
                                        "comando_LeggiUltimaMossa",
                                        "comando_LeggiPezzi",
                                        "comando_LeggiCasa",
                                        "comando_FormularioIndietro",
                                        "comando_FormularioAvanti",
                                        "comando_Voce"};
  EXPECT_EQ(viste, attese);
}

}  // namespace
