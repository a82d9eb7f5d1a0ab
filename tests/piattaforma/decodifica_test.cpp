// Terminal input becomes the key records of the Windows console: every key of
// the key table in its plain and modified forms, the CSI-u and
// modifyOtherKeys sequences, Alt through ESC and the sticky prefixes.
#include "piattaforma/terminale/decodifica.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <set>
#include <string>

#include "politica_prova.h"

namespace {

using namespace piattaforma::terminale;
using namespace piattaforma::win32;
using piattaforma::PoliticaInterfaccia;
using piattaforma::TonoPrefisso;

constexpr DWORD CTRL = LEFT_CTRL_PRESSED;
constexpr DWORD ALT = LEFT_ALT_PRESSED;
constexpr DWORD SHIFT = SHIFT_PRESSED;

Ingresso Carattere(uint32_t c, bool dopo_esc = false) {
  return {Ingresso::Carattere, c, nullptr, dopo_esc};
}
Ingresso Nome(const char* nome, bool dopo_esc = false) {
  return {Ingresso::Nome, 0, nome, dopo_esc};
}
Ingresso Sequenza(const char* sequenza) { return {Ingresso::Sequenza, 0, sequenza, false}; }

struct Atteso {
  WORD codice_virtuale;
  DWORD stato;
};

testing::AssertionResult Uguale(const INPUT_RECORD& r, Atteso atteso) {
  const KEY_EVENT_RECORD& k = r.Event.KeyEvent;
  if (r.EventType != KEY_EVENT || !k.bKeyDown || k.wRepeatCount != 1)
    return testing::AssertionFailure() << "not a single key-down record";
  if (k.wVirtualKeyCode != atteso.codice_virtuale || k.dwControlKeyState != atteso.stato)
    return testing::AssertionFailure()
           << "vk 0x" << std::hex << k.wVirtualKeyCode << " state 0x" << k.dwControlKeyState
           << ", expected vk 0x" << atteso.codice_virtuale << " state 0x" << atteso.stato;
  return testing::AssertionSuccess();
}

// One input through a fresh decoder: the record it gives.
testing::AssertionResult Da(const Ingresso& ingresso, Atteso atteso) {
  StatoDecodifica stato;
  INPUT_RECORD r{};
  if (Decodifica(stato, ingresso, r) != Esito::Evento)
    return testing::AssertionFailure() << "no key record";
  return Uguale(r, atteso);
}

char CarattereDi(const Ingresso& ingresso) {
  StatoDecodifica stato;
  INPUT_RECORD r{};
  Decodifica(stato, ingresso, r);
  return r.Event.KeyEvent.uChar.AsciiChar;
}

// ---- Characters -----------------------------------------------------------

TEST(Decodifica, LettereConIlLoroCodiceEShiftPerLeMaiuscole) {
  for (char c = 'a'; c <= 'z'; ++c) {
    EXPECT_TRUE(Da(Carattere(c), {static_cast<WORD>(c - 'a' + 'A'), 0})) << c;
    EXPECT_EQ(CarattereDi(Carattere(c)), c);
    const char maiuscola = static_cast<char>(c - 'a' + 'A');
    EXPECT_TRUE(Da(Carattere(maiuscola), {static_cast<WORD>(maiuscola), SHIFT})) << maiuscola;
    EXPECT_EQ(CarattereDi(Carattere(maiuscola)), maiuscola);
  }
  // 'T' stays the time-display key in both cases.
  EXPECT_TRUE(Da(Carattere('t'), {'T', 0}));
  EXPECT_TRUE(Da(Carattere('T'), {'T', SHIFT}));
}

TEST(Decodifica, CifreECifreMaiuscoleUS) {
  for (char c = '0'; c <= '9'; ++c) {
    EXPECT_TRUE(Da(Carattere(c), {static_cast<WORD>(c), 0}));
    EXPECT_EQ(CarattereDi(Carattere(c)), c);
  }
  const char maiuscole[] = ")!@#$%^&*(";
  for (int i = 0; i < 10; ++i) {
    EXPECT_TRUE(Da(Carattere(maiuscole[i]), {static_cast<WORD>('0' + i), SHIFT})) << maiuscole[i];
    EXPECT_EQ(CarattereDi(Carattere(maiuscole[i])), maiuscole[i]);
  }
}

TEST(Decodifica, PunteggiaturaColCodiceDelTastoUS) {
  EXPECT_TRUE(Da(Carattere('+'), {VK_OEM_PLUS, SHIFT}));
  EXPECT_TRUE(Da(Carattere('='), {VK_OEM_PLUS, 0}));
  EXPECT_TRUE(Da(Carattere('-'), {VK_OEM_MINUS, 0}));
  EXPECT_TRUE(Da(Carattere('_'), {VK_OEM_MINUS, SHIFT}));
  EXPECT_TRUE(Da(Carattere(':'), {VK_OEM_1, SHIFT}));
  EXPECT_TRUE(Da(Carattere('/'), {VK_OEM_2, 0}));
  EXPECT_TRUE(Da(Carattere('"'), {VK_OEM_7, SHIFT}));
  EXPECT_TRUE(Da(Carattere(' '), {VK_SPACE, 0}));
  EXPECT_EQ(CarattereDi(Carattere('+')), '+');
  // No punctuation lands among the digit and letter codes the key table
  // types into the command field.
  for (uint32_t c = 0x20; c < 0x7F; ++c) {
    const bool alfanumerico = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                              (c >= 'a' && c <= 'z') ||
                              std::strchr(")!@#$%^&*(", static_cast<int>(c));
    Tasto t{};
    ASSERT_TRUE(TastoDaCarattere(c, t));
    EXPECT_NE(t.codice_virtuale, 0) << c;
    if (!alfanumerico) {
      EXPECT_FALSE(t.codice_virtuale >= 0x30 && t.codice_virtuale <= 0x5A) << static_cast<char>(c);
    }
  }
}

TEST(Decodifica, TastiDiControllo) {
  EXPECT_TRUE(Da(Carattere(13), {VK_RETURN, 0}));
  EXPECT_TRUE(Da(Carattere(0x7F), {VK_BACK, 0}));
  EXPECT_TRUE(Da(Carattere(8), {VK_BACK, 0}));
  EXPECT_TRUE(Da(Carattere(9), {VK_TAB, 0}));
  EXPECT_EQ(CarattereDi(Carattere(13)), 13);
}

TEST(Decodifica, ByteDiControlloSonoCtrlLettera) {
  for (uint32_t c = 1; c <= 26; ++c) {
    if (c == 8 || c == 9 || c == 13 || c == 24 || c == 26) continue;
    EXPECT_TRUE(Da(Carattere(c), {static_cast<WORD>('A' + c - 1), CTRL})) << c;
    EXPECT_EQ(CarattereDi(Carattere(c)), static_cast<char>(c));
  }
  // Ctrl+C is the key 'C' with Ctrl, not an interrupt.
  EXPECT_TRUE(Da(Carattere(3), {'C', CTRL}));
  EXPECT_TRUE(Da(Carattere(1), {'A', CTRL}));
  EXPECT_TRUE(Da(Carattere(0x10), {'P', CTRL}));
  EXPECT_TRUE(Da(Carattere(0x0A), {'J', CTRL}));
  // Ctrl+- and Ctrl+2 have bytes of their own on xterm and the Linux console.
  EXPECT_TRUE(Da(Carattere(0x1F), {VK_OEM_MINUS, CTRL}));
  EXPECT_TRUE(Da(Carattere(0), {'2', CTRL}));
}

TEST(Decodifica, FuoriDaAsciiNessunTastoDellaTabella) {
  EXPECT_TRUE(Da(Carattere(0xF2), {0, 0}));  // 'ò'
  EXPECT_EQ(CarattereDi(Carattere(0xF2)), '\xF2');
  EXPECT_TRUE(Da(Carattere(0x20AC), {0, 0}));  // '€'
  EXPECT_EQ(CarattereDi(Carattere(0x20AC)), '?');
  StatoDecodifica stato;
  INPUT_RECORD r{};
  EXPECT_EQ(Decodifica(stato, Carattere(0x85), r), Esito::Nessuno);
}

// ---- ncurses key names ------------------------------------------------------

TEST(Decodifica, TastiFunzioneENavigazione) {
  for (unsigned f = 1; f <= 12; ++f) {
    const std::string nome = "KEY_F(" + std::to_string(f) + ")";
    EXPECT_TRUE(Da(Nome(nome.c_str()), {static_cast<WORD>(VK_F1 + f - 1), 0})) << nome;
  }
  EXPECT_TRUE(Da(Nome("KEY_HOME"), {VK_HOME, 0}));
  EXPECT_TRUE(Da(Nome("KEY_END"), {VK_END, 0}));
  EXPECT_TRUE(Da(Nome("KEY_UP"), {VK_UP, 0}));
  EXPECT_TRUE(Da(Nome("KEY_DOWN"), {VK_DOWN, 0}));
  EXPECT_TRUE(Da(Nome("KEY_LEFT"), {VK_LEFT, 0}));
  EXPECT_TRUE(Da(Nome("KEY_RIGHT"), {VK_RIGHT, 0}));
  EXPECT_TRUE(Da(Nome("KEY_DC"), {VK_DELETE, 0}));
  EXPECT_TRUE(Da(Nome("KEY_BACKSPACE"), {VK_BACK, 0}));
  EXPECT_TRUE(Da(Nome("KEY_ENTER"), {VK_RETURN, 0}));
  EXPECT_TRUE(Da(Nome("KEY_BTAB"), {VK_TAB, SHIFT}));
  // Keypad with Num Lock off acts as navigation.
  EXPECT_TRUE(Da(Nome("KEY_A1"), {VK_HOME, 0}));
  EXPECT_TRUE(Da(Nome("KEY_C1"), {VK_END, 0}));
  EXPECT_TRUE(Da(Nome("ka2"), {VK_UP, 0}));
  EXPECT_TRUE(Da(Nome("kc2"), {VK_DOWN, 0}));
  EXPECT_TRUE(Da(Nome("kpADD"), {VK_ADD, 0}));
  EXPECT_TRUE(Da(Nome("kpSUB"), {VK_SUBTRACT, 0}));
}

TEST(Decodifica, TastiFunzioneModificatiAGruppiDiDodici) {
  EXPECT_TRUE(Da(Nome("KEY_F(16)"), {VK_F4, SHIFT}));
  EXPECT_TRUE(Da(Nome("KEY_F(28)"), {VK_F4, CTRL}));
  EXPECT_TRUE(Da(Nome("KEY_F(40)"), {VK_F4, CTRL | SHIFT}));
  EXPECT_TRUE(Da(Nome("KEY_F(52)"), {VK_F4, ALT}));  // Alt+F4
  EXPECT_TRUE(Da(Nome("KEY_F(64)"), {VK_F4, ALT | SHIFT}));
  EXPECT_TRUE(Da(Nome("KEY_F(20)"), {VK_F8, SHIFT}));
  EXPECT_TRUE(Da(Nome("KEY_F(24)"), {VK_F12, SHIFT}));
  Tasto t{};
  EXPECT_FALSE(TastoDaNome("KEY_F(0)", t));
  EXPECT_FALSE(TastoDaNome("KEY_F(73)", t));
  EXPECT_FALSE(TastoDaNome("KEY_F(4", t));
}

TEST(Decodifica, NomiEstesiColModificatore) {
  EXPECT_TRUE(Da(Nome("kDC5"), {VK_DELETE, CTRL}));  // Ctrl+Delete
  EXPECT_TRUE(Da(Nome("kDC6"), {VK_DELETE, CTRL | SHIFT}));
  EXPECT_TRUE(Da(Nome("kDC3"), {VK_DELETE, ALT}));
  EXPECT_TRUE(Da(Nome("kDC7"), {VK_DELETE, CTRL | ALT}));
  EXPECT_TRUE(Da(Nome("KEY_SDC"), {VK_DELETE, SHIFT}));
  EXPECT_TRUE(Da(Nome("kHOM5"), {VK_HOME, CTRL}));
  EXPECT_TRUE(Da(Nome("kEND3"), {VK_END, ALT}));
  EXPECT_TRUE(Da(Nome("kUP5"), {VK_UP, CTRL}));
  EXPECT_TRUE(Da(Nome("kDN2"), {VK_DOWN, SHIFT}));
  EXPECT_TRUE(Da(Nome("kRIT8"), {VK_RIGHT, CTRL | ALT | SHIFT}));
  EXPECT_TRUE(Da(Nome("KEY_SHOME"), {VK_HOME, SHIFT}));
  Tasto t{};
  EXPECT_FALSE(TastoDaNome("kDC9", t));
  EXPECT_FALSE(TastoDaNome("kDC55", t));
  EXPECT_FALSE(TastoDaNome("KEY_MOUSE", t));
  EXPECT_FALSE(TastoDaNome("KEY_RESIZE", t));
  EXPECT_FALSE(TastoDaNome("", t));
  EXPECT_FALSE(TastoDaNome(nullptr, t));
  StatoDecodifica stato;
  INPUT_RECORD r{};
  EXPECT_EQ(Decodifica(stato, Nome("KEY_MOUSE"), r), Esito::Nessuno);
}

// ---- Escape sequences -------------------------------------------------------

TEST(Decodifica, SequenzeCsiU) {
  EXPECT_TRUE(Da(Sequenza("\033[13;5u"), {VK_RETURN, CTRL}));          // Ctrl+Enter
  EXPECT_TRUE(Da(Sequenza("\033[13;6u"), {VK_RETURN, CTRL | SHIFT}));  // Ctrl+Shift+Enter
  EXPECT_TRUE(Da(Sequenza("\033[13;2u"), {VK_RETURN, SHIFT}));         // Shift+Enter
  EXPECT_TRUE(Da(Sequenza("\033[49;5u"), {'1', CTRL}));                // Ctrl+1
  EXPECT_TRUE(Da(Sequenza("\033[33;6u"), {'1', CTRL | SHIFT}));        // Ctrl+Shift+1 as '!'
  EXPECT_TRUE(Da(Sequenza("\033[49;6u"), {'1', CTRL | SHIFT}));
  EXPECT_TRUE(Da(Sequenza("\033[50;5u"), {'2', CTRL}));                  // Ctrl+2
  EXPECT_TRUE(Da(Sequenza("\033[64;6u"), {'2', CTRL | SHIFT}));          // Ctrl+Shift+2 as '@'
  EXPECT_TRUE(Da(Sequenza("\033[43;5u"), {VK_OEM_PLUS, CTRL | SHIFT}));  // Ctrl++
  EXPECT_TRUE(Da(Sequenza("\033[61;5u"), {VK_OEM_PLUS, CTRL}));          // Ctrl+=
  EXPECT_TRUE(Da(Sequenza("\033[45;5u"), {VK_OEM_MINUS, CTRL}));         // Ctrl+-
  EXPECT_TRUE(Da(Sequenza("\033[109;5u"), {'M', CTRL}));                 // Ctrl+M
  EXPECT_TRUE(Da(Sequenza("\033[97;5u"), {'A', CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[112;5u"), {'P', CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[110;3u"), {'N', ALT}));  // Alt+N
  EXPECT_TRUE(Da(Sequenza("\033[115;3u"), {'S', ALT}));  // Alt+S
  EXPECT_TRUE(Da(Sequenza("\033[51;3u"), {'3', ALT}));   // Alt+3
  EXPECT_TRUE(Da(Sequenza("\033[116;5u"), {'T', CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[127;5u"), {VK_BACK, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[9;5u"), {VK_TAB, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[97u"), {'A', 0}));
  EXPECT_TRUE(Da(Sequenza("\033[97:65;5u"), {'A', CTRL}));  // kitty's alternate key
  EXPECT_EQ(CarattereDi(Sequenza("\033[97;5u")), 1);
  EXPECT_EQ(CarattereDi(Sequenza("\033[13;5u")), '\n');
  EXPECT_EQ(CarattereDi(Sequenza("\033[110;3u")), 'n');
}

TEST(Decodifica, SequenzeModifyOtherKeys) {
  EXPECT_TRUE(Da(Sequenza("\033[27;5;13~"), {VK_RETURN, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[27;6;13~"), {VK_RETURN, CTRL | SHIFT}));
  EXPECT_TRUE(Da(Sequenza("\033[27;5;49~"), {'1', CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[27;6;33~"), {'1', CTRL | SHIFT}));
  EXPECT_TRUE(Da(Sequenza("\033[27;5;50~"), {'2', CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[27;5;43~"), {VK_OEM_PLUS, CTRL | SHIFT}));
  EXPECT_TRUE(Da(Sequenza("\033[27;5;61~"), {VK_OEM_PLUS, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[27;5;45~"), {VK_OEM_MINUS, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[27;5;109~"), {'M', CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[27;5;99~"), {'C', CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[27;3;110~"), {'N', ALT}));
  EXPECT_TRUE(Da(Sequenza("\033[27;7;110~"), {'N', CTRL | ALT}));
  EXPECT_TRUE(Da(Sequenza("\033[27;2;13~"), {VK_RETURN, SHIFT}));
}

TEST(Decodifica, SequenzeVtEXterm) {
  EXPECT_TRUE(Da(Sequenza("\033[3;5~"), {VK_DELETE, CTRL}));  // Ctrl+Delete
  EXPECT_TRUE(Da(Sequenza("\033[3~"), {VK_DELETE, 0}));
  EXPECT_TRUE(Da(Sequenza("\033[1~"), {VK_HOME, 0}));
  EXPECT_TRUE(Da(Sequenza("\033[4~"), {VK_END, 0}));
  EXPECT_TRUE(Da(Sequenza("\033[14~"), {VK_F4, 0}));
  EXPECT_TRUE(Da(Sequenza("\033[14;3~"), {VK_F4, ALT}));
  EXPECT_TRUE(Da(Sequenza("\033[24~"), {VK_F12, 0}));
  EXPECT_TRUE(Da(Sequenza("\033[28~"), {VK_F3, SHIFT}));  // F15 = Shift+F3
  EXPECT_TRUE(Da(Sequenza("\033[1;3S"), {VK_F4, ALT}));   // Alt+F4
  EXPECT_TRUE(Da(Sequenza("\033[1;5P"), {VK_F1, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[A"), {VK_UP, 0}));
  EXPECT_TRUE(Da(Sequenza("\033[1;5B"), {VK_DOWN, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[H"), {VK_HOME, 0}));
  EXPECT_TRUE(Da(Sequenza("\033[F"), {VK_END, 0}));
  EXPECT_TRUE(Da(Sequenza("\033[Z"), {VK_TAB, SHIFT}));
  EXPECT_TRUE(Da(Sequenza("\033OS"), {VK_F4, 0}));
  EXPECT_TRUE(Da(Sequenza("\033OP"), {VK_F1, 0}));
  EXPECT_TRUE(Da(Sequenza("\033OH"), {VK_HOME, 0}));
  // Linux console F1..F5.
  EXPECT_TRUE(Da(Sequenza("\033[[A"), {VK_F1, 0}));
  EXPECT_TRUE(Da(Sequenza("\033[[D"), {VK_F4, 0}));
  EXPECT_TRUE(Da(Sequenza("\033[[E"), {VK_F5, 0}));
}

TEST(Decodifica, TastierinoApplicazione) {
  for (int i = 0; i <= 9; ++i) {
    const char sequenza[] = {'\033', 'O', static_cast<char>('p' + i), 0};
    EXPECT_TRUE(Da(Sequenza(sequenza), {static_cast<WORD>(VK_NUMPAD0 + i), 0}));
    EXPECT_EQ(CarattereDi(Sequenza(sequenza)), '0' + i);
  }
  EXPECT_TRUE(Da(Sequenza("\033Ok"), {VK_ADD, 0}));
  EXPECT_TRUE(Da(Sequenza("\033Om"), {VK_SUBTRACT, 0}));
  EXPECT_TRUE(Da(Sequenza("\033O5k"), {VK_ADD, CTRL}));  // Ctrl+keypad plus
  EXPECT_TRUE(Da(Sequenza("\033O5m"), {VK_SUBTRACT, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033O5q"), {VK_NUMPAD1, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033OM"), {VK_RETURN, 0}));
  EXPECT_TRUE(Da(Sequenza("\033O5M"), {VK_RETURN, CTRL}));
}

// tmux 3.3 forwards a modified keypad key in the CSI-u form with its own
// private code point for the key (U+10E1AC for keypad slash onwards).
TEST(Decodifica, TastierinoModificatoDaTmux) {
  EXPECT_TRUE(Da(Sequenza("\033[1106358;5u"), {VK_NUMPAD1, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[1106359;5u"), {VK_NUMPAD2, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[1106358;6u"), {VK_NUMPAD1, CTRL | SHIFT}));
  EXPECT_TRUE(Da(Sequenza("\033[1106358;3u"), {VK_NUMPAD1, ALT}));
  EXPECT_TRUE(Da(Sequenza("\033[1106356;3u"), {VK_NUMPAD5, ALT}));
  EXPECT_TRUE(Da(Sequenza("\033[1106351;5u"), {static_cast<WORD>(VK_NUMPAD0 + 7), CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[1106353;5u"), {VK_NUMPAD9, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[1106362;5u"), {VK_NUMPAD0, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[1106348;5u"), {VK_DIVIDE, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[1106349;5u"), {VK_MULTIPLY, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[1106350;5u"), {VK_SUBTRACT, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[1106354;5u"), {VK_ADD, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[1106361;5u"), {VK_RETURN, CTRL}));
  EXPECT_TRUE(Da(Sequenza("\033[1106363;5u"), {VK_DECIMAL, CTRL}));
  // Alt alone keeps the digit, as the plain key does.
  EXPECT_EQ(CarattereDi(Sequenza("\033[1106358;3u")), '1');
  Tasto t{};
  EXPECT_FALSE(TastoDaSequenza("\033[1106347;5u", t));
  EXPECT_FALSE(TastoDaSequenza("\033[1106364;5u", t));
  EXPECT_FALSE(TastoDaSequenza("\033[11063580;5u", t));
  EXPECT_FALSE(TastoDaSequenza("\033[27;5;1106358~", t));
}

TEST(Decodifica, EscDaSoloDavantiAParentesi) {
  // ESC [ or ESC O with nothing behind is Alt+[ or Alt+O.
  EXPECT_TRUE(Da(Sequenza("\033["), {VK_OEM_4, ALT}));
  EXPECT_TRUE(Da(Sequenza("\033O"), {'O', ALT | SHIFT}));
}

TEST(Decodifica, SequenzeSconosciuteOMalformateNonSonoTasti) {
  const char* cattive[] = {
      "",
      "x",
      "\033",
      "\033[200~",
      "\033[?1u",
      "\033[>4;2m",
      "\033[1;2;3;4u",
      "\033[M",
      "\033[99999999999999999999u",
      "\033[5000;5u",
      "\033[13;5;u;",
      "\033[2J",
      "\033[[F",
      "\033[[",
      "\033Oz",
      "\033O5",
      "\033O123456789k",
      "\033[27;5~",
      "\033[27;5;1~",
      "\033[0;5u",
      "\033[5;5u",
      "\033[12;;u",
  };
  for (const char* s : cattive) {
    Tasto t{};
    if (std::strcmp(s, "\033[[") == 0) continue;  // Alt+[ (two bytes behind ESC)
    EXPECT_FALSE(TastoDaSequenza(s, t)) << testing::PrintToString(std::string(s));
  }
  Tasto t{};
  EXPECT_FALSE(TastoDaSequenza(nullptr, t));
}

TEST(Decodifica, ByteACasoNonFannoDanni) {
  std::mt19937 caso(12345);
  char sequenza[DIMENSIONE_SEQUENZA];
  for (int prova = 0; prova < 20000; ++prova) {
    const size_t lunghezza = 1 + caso() % (DIMENSIONE_SEQUENZA - 1);
    sequenza[0] = 27;
    for (size_t i = 1; i < lunghezza; ++i) sequenza[i] = static_cast<char>(1 + caso() % 255);
    if (lunghezza > 1 && caso() % 2) sequenza[1] = caso() % 2 ? '[' : 'O';
    sequenza[lunghezza] = 0;
    Tasto t{};
    TastoDaSequenza(sequenza, t);
    SequenzaIncompleta(sequenza, lunghezza);
    StatoDecodifica stato;
    INPUT_RECORD r{};
    const Esito esito = Decodifica(stato, Sequenza(sequenza), r);
    EXPECT_TRUE(esito == Esito::Nessuno || esito == Esito::Evento || esito == Esito::Prefisso ||
                esito == Esito::Sospensione);
  }
}

TEST(Decodifica, SequenzeInsegnateANcurses) {
  std::set<std::string> viste;
  char sequenza[DIMENSIONE_SEQUENZA];
  for (int i = 0; i < NUMERO_SEQUENZE; ++i) {
    std::memset(sequenza, 'x', sizeof sequenza);
    ComponiSequenza(i, sequenza);
    const size_t lunghezza = std::strlen(sequenza);
    ASSERT_LT(lunghezza, DIMENSIONE_SEQUENZA);
    ASSERT_GE(lunghezza, 3u);
    EXPECT_EQ(sequenza[0], '\033');
    EXPECT_TRUE(viste.insert(sequenza).second) << "twice: " << sequenza + 1;
    Tasto t{};
    EXPECT_TRUE(TastoDaSequenza(sequenza, t)) << sequenza + 1;
    EXPECT_FALSE(SequenzaIncompleta(sequenza, lunghezza)) << sequenza + 1;
  }
  EXPECT_TRUE(viste.count("\033[13;5u"));
  EXPECT_TRUE(viste.count("\033[27;5;13~"));
  EXPECT_TRUE(viste.count("\033[49;5u"));
  EXPECT_TRUE(viste.count("\033[33;6u"));
  EXPECT_TRUE(viste.count("\033[43;5u"));
  EXPECT_TRUE(viste.count("\033[45;5u"));
  EXPECT_TRUE(viste.count("\033O5k"));
  ComponiSequenza(-1, sequenza);
  EXPECT_STREQ(sequenza, "");
  ComponiSequenza(NUMERO_SEQUENZE, sequenza);
  EXPECT_STREQ(sequenza, "");
}

TEST(Decodifica, SequenzaIncompletaDiceQuandoAspettareAltriByte) {
  auto incompleta = [](const char* s) { return SequenzaIncompleta(s, std::strlen(s)); };
  EXPECT_TRUE(incompleta("\033"));
  EXPECT_TRUE(incompleta("\033["));
  EXPECT_TRUE(incompleta("\033[13;5"));
  EXPECT_TRUE(incompleta("\033[27;5;13"));
  EXPECT_FALSE(incompleta("\033[13;5u"));
  EXPECT_FALSE(incompleta("\033[27;5;13~"));
  EXPECT_TRUE(incompleta("\033[["));
  EXPECT_FALSE(incompleta("\033[[A"));
  EXPECT_TRUE(incompleta("\033O"));
  EXPECT_TRUE(incompleta("\033O5"));
  EXPECT_FALSE(incompleta("\033O5k"));
  EXPECT_FALSE(incompleta("\033x"));
  // Never more than a sequence buffer holds.
  const std::string lunga = "\033[" + std::string(DIMENSIONE_SEQUENZA, '1');
  EXPECT_FALSE(SequenzaIncompleta(lunga.c_str(), DIMENSIONE_SEQUENZA - 1));
}

TEST(Decodifica, ModificatoriXterm) {
  EXPECT_EQ(StatoDaModificatore(0), 0u);
  EXPECT_EQ(StatoDaModificatore(1), 0u);
  EXPECT_EQ(StatoDaModificatore(2), SHIFT);
  EXPECT_EQ(StatoDaModificatore(3), ALT);
  EXPECT_EQ(StatoDaModificatore(4), ALT | SHIFT);
  EXPECT_EQ(StatoDaModificatore(5), CTRL);
  EXPECT_EQ(StatoDaModificatore(6), CTRL | SHIFT);
  EXPECT_EQ(StatoDaModificatore(7), CTRL | ALT);
  EXPECT_EQ(StatoDaModificatore(8), CTRL | ALT | SHIFT);
}

// ---- Alt through ESC and the sticky prefixes --------------------------------

class Prefissi : public ::testing::Test {
 protected:
  StatoDecodifica stato;
  INPUT_RECORD r{};
  Esito Dai(const Ingresso& ingresso) { return Decodifica(stato, ingresso, r); }
};

TEST_F(Prefissi, AltArrivaComeEscSeguitoDalTasto) {
  ASSERT_EQ(Dai(Carattere('n', true)), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {'N', ALT}));
  EXPECT_EQ(r.Event.KeyEvent.uChar.AsciiChar, 'n');
  ASSERT_EQ(Dai(Nome("KEY_F(4)", true)), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {VK_F4, ALT}));
  ASSERT_EQ(Dai(Carattere('3', true)), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {'3', ALT}));
  // Nothing left pending.
  ASSERT_EQ(Dai(Carattere('n')), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {'N', 0}));
}

TEST_F(Prefissi, EscPoiTastoEAlt) {
  EXPECT_EQ(Dai(Carattere(27)), Esito::Prefisso);
  EXPECT_TRUE(stato.prefisso_alt);
  ASSERT_EQ(Dai(Nome("KEY_F(4)")), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {VK_F4, ALT}));  // Esc, F4 = Alt+F4
  // F4 alone stays F4.
  ASSERT_EQ(Dai(Nome("KEY_F(4)")), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {VK_F4, 0}));
  for (char c : {'n', 's', '1', '5'}) {
    EXPECT_EQ(Dai(Carattere(27)), Esito::Prefisso);
    ASSERT_EQ(Dai(Carattere(static_cast<uint32_t>(c))), Esito::Evento);
    const WORD atteso = static_cast<WORD>(c >= 'a' ? c - 'a' + 'A' : c);
    EXPECT_TRUE(Uguale(r, {atteso, ALT})) << c;
  }
}

TEST_F(Prefissi, EscDueVolteAnnulla) {
  EXPECT_EQ(Dai(Carattere(27)), Esito::Prefisso);
  EXPECT_EQ(Dai(Carattere(27)), Esito::Prefisso);
  EXPECT_FALSE(stato.prefisso_alt);
  ASSERT_EQ(Dai(Carattere('n')), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {'N', 0}));
  // Two ESC in one burst is a plain Esc key.
  ASSERT_EQ(Dai(Carattere(27, true)), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {VK_ESCAPE, 0}));
}

TEST_F(Prefissi, CtrlXPoiTastoECtrl) {
  struct Caso {
    Ingresso dopo;
    Atteso atteso;
  };
  const Caso casi[] = {
      {Carattere(13), {VK_RETURN, CTRL}},             // Ctrl+Enter
      {Carattere('1'), {'1', CTRL}},                  // Ctrl+1
      {Carattere('!'), {'1', CTRL | SHIFT}},          // Ctrl+Shift+1
      {Carattere('2'), {'2', CTRL}},                  // Ctrl+2
      {Carattere('m'), {'M', CTRL}},                  // Ctrl+M
      {Carattere('a'), {'A', CTRL}},                  // Ctrl+A
      {Carattere('p'), {'P', CTRL}},                  // Ctrl+P
      {Carattere('+'), {VK_OEM_PLUS, CTRL | SHIFT}},  // Ctrl+plus
      {Carattere('='), {VK_OEM_PLUS, CTRL}},
      {Carattere('-'), {VK_OEM_MINUS, CTRL}},  // Ctrl+minus
      {Carattere(0x7F), {VK_DELETE, CTRL}},    // Backspace = Ctrl+Delete
      {Carattere(8), {VK_DELETE, CTRL}},
      {Nome("KEY_BACKSPACE"), {VK_DELETE, CTRL}},
      {Nome("KEY_DC"), {VK_DELETE, CTRL}},  // Ctrl+Delete
      {Sequenza("\033Ok"), {VK_ADD, CTRL}},
      {Nome("KEY_F(4)"), {VK_F4, CTRL}},
  };
  for (const Caso& caso : casi) {
    ASSERT_EQ(Dai(Carattere(0x18)), Esito::Prefisso);
    EXPECT_EQ(stato.prefisso_ctrl, 1);
    ASSERT_EQ(Dai(caso.dopo), Esito::Evento);
    EXPECT_TRUE(Uguale(r, caso.atteso));
    EXPECT_EQ(stato.prefisso_ctrl, 0);
  }
  ASSERT_EQ(Dai(Carattere(0x18)), Esito::Prefisso);
  ASSERT_EQ(Dai(Carattere('a')), Esito::Evento);
  EXPECT_EQ(r.Event.KeyEvent.uChar.AsciiChar, 1);
}

TEST_F(Prefissi, CtrlXDueVolteECtrlShift) {
  ASSERT_EQ(Dai(Carattere(0x18)), Esito::Prefisso);
  ASSERT_EQ(Dai(Carattere(0x18)), Esito::Prefisso);
  EXPECT_EQ(stato.prefisso_ctrl, 2);
  ASSERT_EQ(Dai(Carattere(13)), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {VK_RETURN, CTRL | SHIFT}));  // Ctrl+Shift+Enter
  for (char c : {'1', '2'}) {
    Dai(Carattere(0x18));
    Dai(Carattere(0x18));
    ASSERT_EQ(Dai(Carattere(static_cast<uint32_t>(c))), Esito::Evento);
    EXPECT_TRUE(Uguale(r, {static_cast<WORD>(c), CTRL | SHIFT}));
  }
}

TEST_F(Prefissi, CtrlXTreVolteOEscAnnulla) {
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Dai(Carattere(0x18)), Esito::Prefisso);
  EXPECT_EQ(stato.prefisso_ctrl, 0);
  ASSERT_EQ(Dai(Carattere('1')), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {'1', 0}));

  EXPECT_EQ(Dai(Carattere(0x18)), Esito::Prefisso);
  EXPECT_EQ(Dai(Carattere(27)), Esito::Prefisso);
  EXPECT_EQ(stato.prefisso_ctrl, 0);
  EXPECT_FALSE(stato.prefisso_alt);
  ASSERT_EQ(Dai(Carattere('1')), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {'1', 0}));
}

TEST_F(Prefissi, CtrlXAncheDaSequenza) {
  ASSERT_EQ(Dai(Sequenza("\033[120;5u")), Esito::Prefisso);
  ASSERT_EQ(Dai(Carattere(13)), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {VK_RETURN, CTRL}));
}

TEST_F(Prefissi, EscECtrlXInsiemeDannoCtrlAlt) {
  Dai(Carattere(27));
  Dai(Carattere(0x18));
  ASSERT_EQ(Dai(Carattere('a')), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {'A', CTRL | ALT}));
}

TEST_F(Prefissi, TastoSconosciutoLasciaIlPrefisso) {
  Dai(Carattere(0x18));
  EXPECT_EQ(Dai(Nome("KEY_MOUSE")), Esito::Nessuno);
  ASSERT_EQ(Dai(Carattere('1')), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {'1', CTRL}));
}

TEST_F(Prefissi, CtrlZSospendeEAzzeraIPrefissi) {
  Dai(Carattere(0x18));
  EXPECT_EQ(Dai(Carattere(0x1A)), Esito::Sospensione);
  EXPECT_EQ(stato.prefisso_ctrl, 0);
  EXPECT_EQ(Dai(Sequenza("\033[122;5u")), Esito::Sospensione);
  EXPECT_EQ(Dai(Sequenza("\033[27;5;122~")), Esito::Sospensione);
  // Ctrl+Alt+Z is only a key.
  EXPECT_EQ(Dai(Sequenza("\033[122;7u")), Esito::Evento);
}

TEST_F(Prefissi, NelRiquadroEscECtrlXSonoTasti) {
  stato.prefissi_attivi = false;
  ASSERT_EQ(Dai(Carattere(27)), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {VK_ESCAPE, 0}));
  ASSERT_EQ(Dai(Carattere(0x18)), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {'X', CTRL}));
  ASSERT_EQ(Dai(Carattere('s')), Esito::Evento);
  EXPECT_TRUE(Uguale(r, {'S', 0}));
  EXPECT_EQ(Dai(Carattere(0x1A)), Esito::Sospensione);
}

// The tone after each prefix step is the policy's, a program's choice; the
// platform alone stays silent.
TEST_F(Prefissi, ToniDeiPrefissiDallaPolitica) {
  const PoliticaInterfaccia politica = PoliticaDiProva();
  auto tono = [&] {
    const TonoPrefisso t = TonoDelPrefisso(stato, politica);
    return std::to_string(t.frequenza) + "/" + std::to_string(t.durata);
  };
  ASSERT_EQ(Dai(Carattere(27)), Esito::Prefisso);
  EXPECT_EQ(tono(), "1500/40");  // Alt
  ASSERT_EQ(Dai(Carattere(27)), Esito::Prefisso);
  EXPECT_EQ(tono(), "500/60");  // cancelled
  ASSERT_EQ(Dai(Carattere(0x18)), Esito::Prefisso);
  EXPECT_EQ(tono(), "1000/40");  // Ctrl
  ASSERT_EQ(Dai(Carattere(0x18)), Esito::Prefisso);
  EXPECT_EQ(tono(), "1250/40");  // Ctrl+Shift
  ASSERT_EQ(Dai(Carattere(0x18)), Esito::Prefisso);
  EXPECT_EQ(tono(), "500/60");  // a third Ctrl+X cancels
  ASSERT_EQ(Dai(Carattere(27)), Esito::Prefisso);
  ASSERT_EQ(Dai(Carattere(0x18)), Esito::Prefisso);
  EXPECT_EQ(tono(), "1000/40");  // Ctrl over a pending Alt

  const PoliticaInterfaccia neutra;
  for (const TonoPrefisso& t :
       {neutra.tono_annullato, neutra.tono_alt, neutra.tono_ctrl, neutra.tono_ctrl_shift})
    EXPECT_EQ(t.durata, 0u);
}

}  // namespace
