#include "piattaforma/terminale/decodifica.h"

#include <cstdio>
#include <cstring>
#include <iterator>

namespace piattaforma::terminale {

namespace {

constexpr WORD VK_CLEAR_TASTIERINO = 0x0C;  // keypad 5 with Num Lock off
constexpr WORD VK_SEPARATORE = 0x6C;

// Where a printable ASCII character lives on a US keyboard: its key and
// whether Shift makes it.
struct PostoUS {
  WORD codice_virtuale;
  bool maiuscolo;
};

constexpr PostoUS PostoSuTastieraUS(uint32_t c) {
  if (c >= 'a' && c <= 'z') return {static_cast<WORD>(c - 'a' + 'A'), false};
  if (c >= 'A' && c <= 'Z') return {static_cast<WORD>(c), true};
  if (c >= '0' && c <= '9') return {static_cast<WORD>(c), false};
  constexpr char cifre_maiuscole[] = ")!@#$%^&*(";
  for (int i = 0; i < 10; ++i)
    if (static_cast<uint32_t>(cifre_maiuscole[i]) == c) return {static_cast<WORD>('0' + i), true};
  struct Coppia {
    char semplice, maiuscolo;
    WORD codice_virtuale;
  };
  constexpr Coppia punteggiatura[] = {
      {';', ':', VK_OEM_1},     {'=', '+', VK_OEM_PLUS},   {',', '<', VK_OEM_COMMA},
      {'-', '_', VK_OEM_MINUS}, {'.', '>', VK_OEM_PERIOD}, {'/', '?', VK_OEM_2},
      {'`', '~', VK_OEM_3},     {'[', '{', VK_OEM_4},      {'\\', '|', VK_OEM_5},
      {']', '}', VK_OEM_6},     {'\'', '"', VK_OEM_7},
  };
  for (const auto& p : punteggiatura) {
    if (static_cast<uint32_t>(p.semplice) == c) return {p.codice_virtuale, false};
    if (static_cast<uint32_t>(p.maiuscolo) == c) return {p.codice_virtuale, true};
  }
  if (c == ' ') return {VK_SPACE, false};
  return {0, false};
}

// What the console puts in AsciiChar when Ctrl is held.
char CarattereConCtrl(WORD codice_virtuale) {
  if (codice_virtuale >= 'A' && codice_virtuale <= 'Z')
    return static_cast<char>(codice_virtuale & 0x1F);
  if (codice_virtuale == VK_RETURN) return '\n';
  if (codice_virtuale == VK_BACK) return 0x7F;
  return 0;
}

void ConCtrl(Tasto& tasto) {
  tasto.stato_controllo |= LEFT_CTRL_PRESSED;
  tasto.carattere = CarattereConCtrl(tasto.codice_virtuale);
}

Tasto TastoSemplice(WORD codice_virtuale, char carattere = 0, DWORD stato = 0) {
  return Tasto{codice_virtuale, stato, carattere};
}

// A key reported by its code point together with a modifier parameter, as in
// the CSI-u and modifyOtherKeys forms.
bool TastoModificato(uint32_t carattere, unsigned modificatore, Tasto& tasto) {
  if (carattere >= 0x80 || !TastoDaCarattere(carattere, tasto)) return false;
  // A control byte here would mean Ctrl twice; only the keys that have a
  // byte of their own (Enter, Tab, Esc, Backspace) are real keys.
  if (carattere < 0x20 && carattere != 8 && carattere != 9 && carattere != 13 && carattere != 27)
    return false;
  tasto.stato_controllo |= StatoDaModificatore(modificatore);
  if (tasto.stato_controllo & MASCHERA_CTRL)
    tasto.carattere = CarattereConCtrl(tasto.codice_virtuale);
  return true;
}

WORD TastoFunzione(unsigned numero) { return static_cast<WORD>(VK_F1 + numero - 1); }

// Function keys beyond F12 are the modified F1..F12 in groups of twelve
// (the xterm and Linux console convention that terminfo follows).
bool TastoFunzioneEsteso(unsigned numero, Tasto& tasto) {
  if (numero < 1 || numero > 72) return false;
  constexpr DWORD gruppi[6] = {0,
                               SHIFT_PRESSED,
                               LEFT_CTRL_PRESSED,
                               LEFT_CTRL_PRESSED | SHIFT_PRESSED,
                               LEFT_ALT_PRESSED,
                               LEFT_ALT_PRESSED | SHIFT_PRESSED};
  tasto = TastoSemplice(TastoFunzione((numero - 1) % 12 + 1), 0, gruppi[(numero - 1) / 12]);
  return true;
}

struct NomeTasto {
  const char* nome;
  WORD codice_virtuale;
  DWORD stato;
  char carattere;
};

// ncurses names of the keys, standard capabilities first, then the keypad.
constexpr NomeTasto nomi_tasti[] = {
    {"KEY_DC", VK_DELETE, 0, 0},
    {"KEY_SDC", VK_DELETE, SHIFT_PRESSED, 0},
    {"KEY_IC", VK_INSERT, 0, 0},
    {"KEY_SIC", VK_INSERT, SHIFT_PRESSED, 0},
    {"KEY_HOME", VK_HOME, 0, 0},
    {"KEY_SHOME", VK_HOME, SHIFT_PRESSED, 0},
    {"KEY_END", VK_END, 0, 0},
    {"KEY_SEND", VK_END, SHIFT_PRESSED, 0},
    {"KEY_UP", VK_UP, 0, 0},
    {"KEY_SR", VK_UP, SHIFT_PRESSED, 0},
    {"KEY_DOWN", VK_DOWN, 0, 0},
    {"KEY_SF", VK_DOWN, SHIFT_PRESSED, 0},
    {"KEY_LEFT", VK_LEFT, 0, 0},
    {"KEY_SLEFT", VK_LEFT, SHIFT_PRESSED, 0},
    {"KEY_RIGHT", VK_RIGHT, 0, 0},
    {"KEY_SRIGHT", VK_RIGHT, SHIFT_PRESSED, 0},
    {"KEY_PPAGE", VK_PRIOR, 0, 0},
    {"KEY_SPREVIOUS", VK_PRIOR, SHIFT_PRESSED, 0},
    {"KEY_NPAGE", VK_NEXT, 0, 0},
    {"KEY_SNEXT", VK_NEXT, SHIFT_PRESSED, 0},
    {"KEY_BACKSPACE", VK_BACK, 0, 8},
    {"KEY_ENTER", VK_RETURN, 0, 13},
    {"KEY_BTAB", VK_TAB, SHIFT_PRESSED, 9},
    {"KEY_BREAK", VK_CANCEL, LEFT_CTRL_PRESSED, 3},
    {"KEY_A1", VK_HOME, 0, 0},
    {"KEY_A3", VK_PRIOR, 0, 0},
    {"KEY_B2", VK_CLEAR_TASTIERINO, 0, 0},
    {"KEY_C1", VK_END, 0, 0},
    {"KEY_C3", VK_NEXT, 0, 0},
    {"ka2", VK_UP, 0, 0},
    {"kb1", VK_LEFT, 0, 0},
    {"kb3", VK_RIGHT, 0, 0},
    {"kc2", VK_DOWN, 0, 0},
    {"kp5", VK_NUMPAD0 + 5, 0, '5'},
    {"kpZRO", VK_NUMPAD0, 0, '0'},
    {"kpADD", VK_ADD, 0, '+'},
    {"kpSUB", VK_SUBTRACT, 0, '-'},
    {"kpMUL", VK_MULTIPLY, 0, '*'},
    {"kpDIV", VK_DIVIDE, 0, '/'},
    {"kpDOT", VK_DECIMAL, 0, '.'},
    {"kpCMA", VK_SEPARATORE, 0, ','},
};

// Extended capabilities name a key and its xterm modifier: kDC5 is Ctrl+Delete.
struct RadiceEstesa {
  const char* radice;
  WORD codice_virtuale;
};
constexpr RadiceEstesa radici_estese[] = {
    {"kDC", VK_DELETE}, {"kIC", VK_INSERT}, {"kHOM", VK_HOME}, {"kEND", VK_END},
    {"kUP", VK_UP},     {"kDN", VK_DOWN},   {"kLFT", VK_LEFT}, {"kRIT", VK_RIGHT},
    {"kNXT", VK_NEXT},  {"kPRV", VK_PRIOR},
};

// Keys of the VT220 "CSI n ~" form: the editing keys, then F1..F20
// (11-15, 17-21, 23-26, 28-29, 31-34).
WORD TastoVT(unsigned numero, unsigned& funzione) {
  funzione = 0;
  constexpr WORD modifica[9] = {0,        VK_HOME, VK_INSERT, VK_DELETE, VK_END,
                                VK_PRIOR, VK_NEXT, VK_HOME,   VK_END};
  if (numero >= 1 && numero <= 8) return modifica[numero];
  constexpr unsigned codici_funzione[] = {11, 12, 13, 14, 15, 17, 18, 19, 20, 21,
                                          23, 24, 25, 26, 28, 29, 31, 32, 33, 34};
  for (unsigned i = 0; i < sizeof codici_funzione / sizeof codici_funzione[0]; ++i)
    if (codici_funzione[i] == numero) funzione = i + 1;
  return 0;
}

struct Finale {
  char finale;
  WORD codice_virtuale;
  char carattere;
  bool solo_ss3;  // the application keypad
};
constexpr Finale finali[] = {
    {'A', VK_UP, 0, false},
    {'B', VK_DOWN, 0, false},
    {'C', VK_RIGHT, 0, false},
    {'D', VK_LEFT, 0, false},
    {'H', VK_HOME, 0, false},
    {'F', VK_END, 0, false},
    {'E', VK_CLEAR_TASTIERINO, 0, false},
    {'P', VK_F1, 0, false},
    {'Q', VK_F2, 0, false},
    {'R', VK_F3, 0, false},
    {'S', VK_F4, 0, false},
    {'M', VK_RETURN, 13, true},
    {'k', VK_ADD, '+', true},
    {'m', VK_SUBTRACT, '-', true},
    {'j', VK_MULTIPLY, '*', true},
    {'o', VK_DIVIDE, '/', true},
    {'n', VK_DECIMAL, '.', true},
    {'l', VK_SEPARATORE, ',', true},
    {'X', VK_OEM_PLUS, '=', true},
};

// Keys named by the final byte of a CSI or SS3 sequence.
bool TastoDaFinale(char finale, bool ss3, Tasto& tasto) {
  if (finale == 'Z' && !ss3) {
    tasto = TastoSemplice(VK_TAB, 9, SHIFT_PRESSED);
    return true;
  }
  if (ss3 && finale >= 'p' && finale <= 'y') {
    tasto = TastoSemplice(static_cast<WORD>(VK_NUMPAD0 + (finale - 'p')),
                          static_cast<char>('0' + (finale - 'p')));
    return true;
  }
  for (const Finale& f : finali) {
    if (f.finale == finale && (ss3 || !f.solo_ss3)) {
      tasto = TastoSemplice(f.codice_virtuale, f.carattere);
      return true;
    }
  }
  return false;
}

bool ECifra(char c) { return c >= '0' && c <= '9'; }

// Up to three numeric parameters of "p1;p2;p3" (sub-parameters after ':'
// are skipped); returns how many were read, or -1 when the text is not of
// that form.
int LeggiParametri(const char* testo, const char* fine, unsigned parametri[3]) {
  int n = 0;
  parametri[0] = parametri[1] = parametri[2] = 0;
  if (testo == fine) return 0;
  while (true) {
    if (n == 3) return -1;
    unsigned valore = 0;
    bool cifre = false;
    while (testo < fine && ECifra(*testo)) {
      // Seven digits reach the private code points of tmux's keypad keys.
      if (valore < 10000000) valore = valore * 10 + static_cast<unsigned>(*testo - '0');
      cifre = true;
      ++testo;
    }
    while (testo < fine && *testo == ':') {
      ++testo;
      while (testo < fine && ECifra(*testo)) ++testo;
    }
    parametri[n++] = cifre ? valore : 0;
    if (testo == fine) return n;
    if (*testo != ';') return -1;
    ++testo;
  }
}

void AggiungiModificatore(Tasto& tasto, unsigned modificatore) {
  tasto.stato_controllo |= StatoDaModificatore(modificatore);
  if (tasto.stato_controllo & MASCHERA_CTRL)
    tasto.carattere = CarattereConCtrl(tasto.codice_virtuale);
}

// tmux 3.3 forwards a modified keypad key in the CSI-u form with its own
// code for the key, a private code point: keypad slash first, then the keys
// row by row as they lie on the keypad.
constexpr unsigned PRIMO_TASTIERINO_TMUX = 0x10E1AC;
bool TastoDelTastierinoTmux(unsigned codice, Tasto& tasto) {
  constexpr Tasto tasti[] = {
      {VK_DIVIDE, 0, '/'},      {VK_MULTIPLY, 0, '*'},    {VK_SUBTRACT, 0, '-'},
      {VK_NUMPAD0 + 7, 0, '7'}, {VK_NUMPAD0 + 8, 0, '8'}, {VK_NUMPAD9, 0, '9'},
      {VK_ADD, 0, '+'},         {VK_NUMPAD4, 0, '4'},     {VK_NUMPAD5, 0, '5'},
      {VK_NUMPAD0 + 6, 0, '6'}, {VK_NUMPAD1, 0, '1'},     {VK_NUMPAD2, 0, '2'},
      {VK_NUMPAD3, 0, '3'},     {VK_RETURN, 0, 13},       {VK_NUMPAD0, 0, '0'},
      {VK_DECIMAL, 0, '.'},
  };
  if (codice < PRIMO_TASTIERINO_TMUX || codice - PRIMO_TASTIERINO_TMUX >= std::size(tasti))
    return false;
  tasto = tasti[codice - PRIMO_TASTIERINO_TMUX];
  return true;
}

bool TastoDaCsi(const char* corpo, size_t lunghezza, Tasto& tasto) {
  if (lunghezza == 0) return false;
  const char finale = corpo[lunghezza - 1];
  // Linux console F1..F5: ESC [ [ A..E.
  if (corpo[0] == '[') {
    if (lunghezza != 2 || finale < 'A' || finale > 'E') return false;
    tasto = TastoSemplice(TastoFunzione(static_cast<unsigned>(finale - 'A') + 1));
    return true;
  }
  unsigned p[3];
  const int n = LeggiParametri(corpo, corpo + lunghezza - 1, p);
  if (n < 0) return false;
  if (finale == 'u') {
    if (n < 1) return false;
    if (TastoDelTastierinoTmux(p[0], tasto)) {
      if (n >= 2) AggiungiModificatore(tasto, p[1]);
      return true;
    }
    return TastoModificato(p[0], n >= 2 ? p[1] : 1, tasto);
  }
  if (finale == '~') {
    if (n < 1) return false;
    if (p[0] == 27) return n == 3 && TastoModificato(p[2], p[1], tasto);
    unsigned funzione = 0;
    const WORD codice = TastoVT(p[0], funzione);
    if (codice != 0) {
      tasto = TastoSemplice(codice);
    } else if (funzione != 0) {
      // F13..F20 from the Linux console are Shift+F1..F8.
      TastoFunzioneEsteso(funzione, tasto);
    } else {
      return false;
    }
    if (n >= 2) AggiungiModificatore(tasto, p[1]);
    return true;
  }
  if (n > 2 || (n >= 1 && p[0] > 1)) return false;
  if (!TastoDaFinale(finale, false, tasto)) return false;
  if (n == 2) AggiungiModificatore(tasto, p[1]);
  return true;
}

bool TastoDaSs3(const char* corpo, size_t lunghezza, Tasto& tasto) {
  if (lunghezza == 0) return false;
  unsigned modificatore = 0;
  for (size_t i = 0; i + 1 < lunghezza; ++i) {
    if (!ECifra(corpo[i]) || modificatore > 100) return false;
    modificatore = modificatore * 10 + static_cast<unsigned>(corpo[i] - '0');
  }
  if (!TastoDaFinale(corpo[lunghezza - 1], true, tasto)) return false;
  if (lunghezza > 1) AggiungiModificatore(tasto, modificatore);
  return true;
}

void CompilaEvento(const Tasto& tasto, INPUT_RECORD& evento) {
  evento = INPUT_RECORD{};
  evento.EventType = KEY_EVENT;
  KEY_EVENT_RECORD& k = evento.Event.KeyEvent;
  k.bKeyDown = 1;
  k.wRepeatCount = 1;
  k.wVirtualKeyCode = tasto.codice_virtuale;
  k.wVirtualScanCode = 0;
  k.uChar.UnicodeChar = 0;
  k.uChar.AsciiChar = tasto.carattere;
  k.dwControlKeyState = tasto.stato_controllo;
}

bool PrefissoInSospeso(const StatoDecodifica& stato) {
  return stato.prefisso_ctrl != 0 || stato.prefisso_alt;
}

void AzzeraPrefissi(StatoDecodifica& stato) {
  stato.prefisso_ctrl = 0;
  stato.prefisso_alt = false;
}

void ApplicaPrefissi(StatoDecodifica& stato, Tasto& tasto) {
  if (stato.prefisso_alt) tasto.stato_controllo |= LEFT_ALT_PRESSED;
  if (stato.prefisso_ctrl != 0) {
    // Ctrl+Delete is the one Ctrl chord on that key; Backspace is nearer.
    if (tasto.codice_virtuale == VK_BACK) tasto.codice_virtuale = VK_DELETE;
    if (stato.prefisso_ctrl == 2) tasto.stato_controllo |= SHIFT_PRESSED;
    ConCtrl(tasto);
  }
  AzzeraPrefissi(stato);
}

}  // namespace

DWORD StatoDaModificatore(unsigned modificatore) {
  if (modificatore < 2) return 0;
  const unsigned bit = modificatore - 1;
  DWORD stato = 0;
  if (bit & 1) stato |= SHIFT_PRESSED;
  if (bit & 2) stato |= LEFT_ALT_PRESSED;
  if (bit & 4) stato |= LEFT_CTRL_PRESSED;
  return stato;
}

bool TastoDaCarattere(uint32_t carattere, Tasto& tasto) {
  switch (carattere) {
    case 0:  // Ctrl+2 (and Ctrl+Space) on xterm and on the Linux console
      tasto = TastoSemplice('2', 0, LEFT_CTRL_PRESSED);
      return true;
    case 8:
    case 0x7F:
      tasto = TastoSemplice(VK_BACK, 8);
      return true;
    case 9:
      tasto = TastoSemplice(VK_TAB, 9);
      return true;
    case 13:
      tasto = TastoSemplice(VK_RETURN, 13);
      return true;
    case 27:
      tasto = TastoSemplice(VK_ESCAPE, 27);
      return true;
    case 0x1C:
      tasto = TastoSemplice(VK_OEM_5, 0x1C, LEFT_CTRL_PRESSED);
      return true;
    case 0x1D:
      tasto = TastoSemplice(VK_OEM_6, 0x1D, LEFT_CTRL_PRESSED);
      return true;
    case 0x1E:
      tasto = TastoSemplice('6', 0x1E, LEFT_CTRL_PRESSED | SHIFT_PRESSED);
      return true;
    case 0x1F:  // Ctrl+- (Ctrl+_ on the same key)
      tasto = TastoSemplice(VK_OEM_MINUS, 0x1F, LEFT_CTRL_PRESSED);
      return true;
    default:
      break;
  }
  if (carattere < 0x20) {
    tasto = TastoSemplice(static_cast<WORD>('A' + carattere - 1), static_cast<char>(carattere),
                          LEFT_CTRL_PRESSED);
    return true;
  }
  if (carattere < 0x7F) {
    const PostoUS posto = PostoSuTastieraUS(carattere);
    tasto = TastoSemplice(posto.codice_virtuale, static_cast<char>(carattere),
                          posto.maiuscolo ? SHIFT_PRESSED : 0);
    return true;
  }
  // Outside ASCII: no key of the table; the character as the console's
  // ANSI code page would give it where Latin-1 has it.
  if (carattere >= 0x80 && carattere < 0xA0) return false;
  tasto = TastoSemplice(0, carattere < 0x100 ? static_cast<char>(carattere) : '?');
  return true;
}

bool TastoDaNome(const char* nome, Tasto& tasto) {
  if (nome == nullptr) return false;
  unsigned numero = 0;
  char chiusa = 0;
  if (std::sscanf(nome, "KEY_F(%u%c", &numero, &chiusa) == 2 && chiusa == ')')
    return TastoFunzioneEsteso(numero, tasto);
  for (const auto& n : nomi_tasti) {
    if (std::strcmp(n.nome, nome) == 0) {
      tasto = TastoSemplice(n.codice_virtuale, n.carattere, n.stato);
      return true;
    }
  }
  for (const auto& r : radici_estese) {
    const size_t lunghezza = std::strlen(r.radice);
    if (std::strncmp(nome, r.radice, lunghezza) != 0) continue;
    const char* resto = nome + lunghezza;
    if (resto[0] == 0 || (resto[0] >= '2' && resto[0] <= '8' && resto[1] == 0)) {
      tasto = TastoSemplice(r.codice_virtuale);
      if (resto[0] != 0) AggiungiModificatore(tasto, static_cast<unsigned>(resto[0] - '0'));
      return true;
    }
  }
  return false;
}

bool TastoDaSequenza(const char* sequenza, Tasto& tasto) {
  if (sequenza == nullptr || sequenza[0] != 27) return false;
  const size_t lunghezza = std::strlen(sequenza);
  if (lunghezza < 2) return false;
  // ESC [ or ESC O with nothing behind: Alt+[ or Alt+O.
  if (lunghezza == 2) {
    if (!TastoDaCarattere(static_cast<unsigned char>(sequenza[1]), tasto)) return false;
    tasto.stato_controllo |= LEFT_ALT_PRESSED;
    return true;
  }
  if (sequenza[1] == '[') return TastoDaCsi(sequenza + 2, lunghezza - 2, tasto);
  if (sequenza[1] == 'O') return TastoDaSs3(sequenza + 2, lunghezza - 2, tasto);
  return false;
}

bool SequenzaIncompleta(const char* sequenza, size_t lunghezza) {
  if (lunghezza < 2) return true;
  if (lunghezza >= DIMENSIONE_SEQUENZA - 1) return false;
  if (sequenza[1] == '[') {
    if (lunghezza == 2) return true;
    if (sequenza[2] == '[') return lunghezza < 4;
    for (size_t i = 2; i < lunghezza; ++i) {
      const auto c = static_cast<unsigned char>(sequenza[i]);
      if (c < 0x20 || c > 0x3F) return false;
    }
    return true;
  }
  if (sequenza[1] == 'O') {
    for (size_t i = 2; i < lunghezza; ++i)
      if (!ECifra(sequenza[i])) return false;
    return true;
  }
  return false;
}

void ComponiSequenza(int indice, char* uscita) {
  uscita[0] = 0;
  if (indice < 0 || indice >= NUMERO_SEQUENZE) return;
  if (indice < 1400) {
    const int resto = indice % 700;
    const unsigned modificatore = 2 + static_cast<unsigned>(resto / 100);
    const int posto = resto % 100;
    constexpr unsigned speciali[5] = {8, 9, 13, 27, 127};
    const unsigned carattere = posto < 5 ? speciali[posto] : 32 + static_cast<unsigned>(posto - 5);
    if (indice < 700)
      std::snprintf(uscita, DIMENSIONE_SEQUENZA, "\033[%u;%uu", carattere, modificatore);
    else
      std::snprintf(uscita, DIMENSIONE_SEQUENZA, "\033[27;%u;%u~", modificatore, carattere);
    return;
  }
  constexpr char finali[] = "pqrstuvwxyMkmjonX";
  const int resto = indice - 1400;
  const char finale = finali[resto / 8];
  const int modificatore = resto % 8;
  if (modificatore == 0)
    std::snprintf(uscita, DIMENSIONE_SEQUENZA, "\033O%c", finale);
  else
    std::snprintf(uscita, DIMENSIONE_SEQUENZA, "\033O%d%c", modificatore + 1, finale);
}

Esito Decodifica(StatoDecodifica& stato, const Ingresso& ingresso, INPUT_RECORD& evento) {
  Tasto tasto{};
  bool riconosciuto = false;
  switch (ingresso.genere) {
    case Ingresso::Carattere:
      riconosciuto = TastoDaCarattere(ingresso.carattere, tasto);
      break;
    case Ingresso::Nome:
      riconosciuto = TastoDaNome(ingresso.testo, tasto);
      break;
    case Ingresso::Sequenza:
      riconosciuto = TastoDaSequenza(ingresso.testo, tasto);
      break;
  }
  if (!riconosciuto) return Esito::Nessuno;
  if (ingresso.dopo_esc) tasto.stato_controllo |= LEFT_ALT_PRESSED;

  const bool ctrl = (tasto.stato_controllo & MASCHERA_CTRL) != 0;
  const bool alt = (tasto.stato_controllo & MASCHERA_ALT) != 0;
  if (ctrl && !alt && tasto.codice_virtuale == 'Z') {
    AzzeraPrefissi(stato);
    return Esito::Sospensione;
  }
  if (stato.prefissi_attivi) {
    if (tasto.codice_virtuale == VK_ESCAPE) {
      if (PrefissoInSospeso(stato)) {
        AzzeraPrefissi(stato);
        return Esito::Prefisso;
      }
      if (!alt && !ctrl) {
        stato.prefisso_alt = true;
        return Esito::Prefisso;
      }
      // Esc twice in one burst: a plain Esc.
      tasto.stato_controllo &= ~MASCHERA_ALT;
    } else if (ctrl && !alt && tasto.codice_virtuale == 'X') {
      stato.prefisso_ctrl = static_cast<uint8_t>((stato.prefisso_ctrl + 1) % 3);
      if (stato.prefisso_ctrl == 0) stato.prefisso_alt = false;
      return Esito::Prefisso;
    } else {
      ApplicaPrefissi(stato, tasto);
    }
  }
  CompilaEvento(tasto, evento);
  return Esito::Evento;
}

TonoPrefisso TonoDelPrefisso(const StatoDecodifica& stato, const PoliticaInterfaccia& politica) {
  if (stato.prefisso_ctrl == 2) return politica.tono_ctrl_shift;
  if (stato.prefisso_ctrl == 1) return politica.tono_ctrl;
  if (stato.prefisso_alt) return politica.tono_alt;
  return politica.tono_annullato;
}

}  // namespace piattaforma::terminale
