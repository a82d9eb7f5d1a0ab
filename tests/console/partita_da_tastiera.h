// A game played from the keyboard on the in-memory console: the program
// started as it starts, keys as a US keyboard delivers them, each batch run
// through the loop until no key is left.
#pragma once

#include <string>
#include <vector>

#include "ambiente_console.h"
#include "board/fen.h"
#include "console/avvio.h"
#include "game/file_partita.h"
#include "game/partita.h"
#include "supporto/testo.h"

using namespace piattaforma::win32;

class PartitaDaTastiera : public AmbienteConsole {
 protected:
  void SetUp() override {
    AmbienteConsole::SetUp();
    inizializza();
    NuovaPartita(FenIniziale);
  }

  // Runs the loop until every queued key has been handled.
  static void Esegui() {
    while (memoria::TastiInCoda() > 0) TurnoCiclo();
  }

  // The record a US keyboard sends for `c`: letters with their key (Shift
  // for capitals), digits, and punctuation on its own keys ('-', '=' and
  // Shift+'=' for '+', Shift+3 for '#'), which the key table never lets
  // into the field.
  static void AccodaCarattere(char c) {
    if (c >= 'a' && c <= 'z')
      memoria::AccodaTasto(WORD(c - 'a' + 'A'), 0, c);
    else if (c >= 'A' && c <= 'Z')
      memoria::AccodaTasto(WORD(c), SHIFT_PRESSED, c);
    else if (c >= '0' && c <= '9')
      memoria::AccodaTasto(WORD(c), 0, c);
    else if (c == '-')
      memoria::AccodaTasto(VK_OEM_MINUS, 0, c);
    else if (c == '=')
      memoria::AccodaTasto(VK_OEM_PLUS, 0, c);
    else if (c == '+')
      memoria::AccodaTasto(VK_OEM_PLUS, SHIFT_PRESSED, c);
    else if (c == '#')
      memoria::AccodaTasto('3', SHIFT_PRESSED, c);
    else
      memoria::AccodaTasto(VK_OEM_1, SHIFT_PRESSED, c);
  }
  static void Digita(const std::string& testo) {
    for (char c : testo) AccodaCarattere(c);
    Esegui();
  }
  static void Tasto(WORD codice, DWORD stato = 0) {
    memoria::AccodaTasto(codice, stato);
    Esegui();
  }
  static void Invio() { Tasto(VK_RETURN); }
  // Typed and confirmed.
  static void Mossa(const std::string& testo) {
    Digita(testo);
    Invio();
  }
  static void Mosse(const std::vector<std::string>& testi) {
    for (const std::string& t : testi) Mossa(t);
  }
  static void Ritira() { Tasto(VK_DELETE, LEFT_CTRL_PRESSED); }

  static std::string Campo() { return std::string(comando, CharatteriInComando); }
  static std::string Registro(uint64_t semimossa) { return ElencoStringaMossa[semimossa]; }

  // A centred panel line as it must read: the sentence with a capital first
  // letter, padded to 80 columns.
  static std::string Centrata(std::string frase) {
    if (!frase.empty() && frase[0] >= 'a' && frase[0] <= 'z') frase[0] = char(frase[0] - 32);
    const size_t margine = (80 - frase.size()) / 2;
    return std::string(margine, ' ') + frase + std::string(80 - margine - frase.size(), ' ');
  }

  // The boxes from the `da`-th on, as "text [style]".
  static std::vector<std::string> FinestreDa(size_t da) {
    std::vector<std::string> f;
    for (size_t i = da; i < memoria::Finestre().size(); ++i) {
      const memoria::Finestra& finestra = memoria::Finestre()[i];
      EXPECT_EQ(finestra.titolo, "Attenzione!");
      f.push_back(finestra.testo + " [" + std::to_string(finestra.stile) + "]");
    }
    return f;
  }
  static std::string Box(const std::string& testo, unsigned stile) {
    return testo + " [" + std::to_string(stile) + "]";
  }

  // What the game file and the move list must hold for the game as it
  // stands.
  static std::string PgnAtteso() {
    static char testo[1 << 15];
    const size_t n = TestoPartita(testo, sizeof testo);
    EXPECT_LT(n, sizeof testo);
    return SulDisco(std::string(testo, n));
  }
  static std::string ElencoAtteso() {
    static char testo[1 << 15];
    const size_t n = TestoElencoMosse(testo, sizeof testo);
    EXPECT_LT(n, sizeof testo);
    return SulDisco(std::string(testo, n));
  }
};
