// Characters of the texts handed to the screen and to message boxes. The
// program's own texts are ASCII; anything else is read as UTF-8 where it is
// valid and as Latin-1, byte by byte, where it is not, so that every byte
// string shows as something and nothing is read past its end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "piattaforma/piattaforma.h"
#include "testo/composizione.h"

namespace piattaforma {

// The character that starts at testo[0] (at most `disponibili` bytes are
// looked at); `consumati` receives its length in bytes (at least 1 when
// `disponibili` > 0).
inline uint32_t ProssimoCarattere(const char* testo, size_t disponibili, size_t& consumati) {
  consumati = 0;
  if (disponibili == 0) return 0;
  const auto* b = reinterpret_cast<const unsigned char*>(testo);
  consumati = 1;
  if (b[0] < 0x80) return b[0];
  size_t seguito = 0;
  uint32_t c = 0, minimo = 0;
  if ((b[0] & 0xE0) == 0xC0) {
    seguito = 1, c = b[0] & 0x1F, minimo = 0x80;
  } else if ((b[0] & 0xF0) == 0xE0) {
    seguito = 2, c = b[0] & 0x0F, minimo = 0x800;
  } else if ((b[0] & 0xF8) == 0xF0) {
    seguito = 3, c = b[0] & 0x07, minimo = 0x10000;
  } else {
    return b[0];
  }
  if (seguito >= disponibili) return b[0];
  for (size_t i = 1; i <= seguito; ++i) {
    if ((b[i] & 0xC0) != 0x80) return b[0];
    c = (c << 6) | (b[i] & 0x3F);
  }
  // Overlong forms, surrogates and values past Unicode are not UTF-8.
  if (c < minimo || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return b[0];
  consumati = seguito + 1;
  return c;
}

// How many characters (screen columns) the first `lunghezza` bytes make.
inline size_t ContaCaratteri(const char* testo, size_t lunghezza) {
  size_t n = 0, i = 0, passo = 0;
  while (i < lunghezza) {
    ProssimoCarattere(testo + i, lunghezza - i, passo);
    i += passo;
    ++n;
  }
  return n;
}

// Writes `c` as UTF-8 into `uscita` (room for 4 bytes); returns the length.
inline size_t CodificaUtf8(uint32_t c, char* uscita) {
  if (c < 0x80) {
    uscita[0] = static_cast<char>(c);
    return 1;
  }
  if (c < 0x800) {
    uscita[0] = static_cast<char>(0xC0 | (c >> 6));
    uscita[1] = static_cast<char>(0x80 | (c & 0x3F));
    return 2;
  }
  if (c < 0x10000) {
    uscita[0] = static_cast<char>(0xE0 | (c >> 12));
    uscita[1] = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    uscita[2] = static_cast<char>(0x80 | (c & 0x3F));
    return 3;
  }
  uscita[0] = static_cast<char>(0xF0 | (c >> 18));
  uscita[1] = static_cast<char>(0x80 | ((c >> 12) & 0x3F));
  uscita[2] = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
  uscita[3] = static_cast<char>(0x80 | (c & 0x3F));
  return 4;
}

// A formatted text whole or not at all: a command line cut short would run
// something else. False, `destinazione` empty, when it did not fit.
template <typename... Argomenti>
bool ComponiPerIntero(char* destinazione, size_t dimensione, const char* formato,
                      Argomenti... argomenti) {
  if (destinazione == nullptr || dimensione == 0) return false;
  Composizione c(destinazione, dimensione);
  c.Formato(formato, argomenti...);
  if (!c.Troncato()) return true;
  destinazione[0] = 0;
  return false;
}

// Writes bytes onto a screen of COLONNE_SCHERMO x RIGHE_SCHERMO cells with
// the console's rules, moving the cursor (x, y): '\b' one column left (not
// past the margin), '\r' to the margin, '\n' to the margin of the next
// line, '\t' to the next multiple of 8; other control characters are
// ignored. Past the last column the text goes on at the next line; past the
// last line the screen scrolls up. `schermo` has Metti(x, y, carattere) and
// Scorri().
template <typename Schermo>
void ScriviSuSchermo(Schermo& schermo, int& x, int& y, const char* testo, size_t lunghezza) {
  constexpr int colonne = COLONNE_SCHERMO, righe = RIGHE_SCHERMO;
  auto a_capo = [&] {
    x = 0;
    if (y + 1 < righe)
      ++y;
    else
      schermo.Scorri();
  };
  size_t i = 0, passo = 0;
  while (i < lunghezza) {
    const uint32_t c = ProssimoCarattere(testo + i, lunghezza - i, passo);
    i += passo;
    if (c == '\b') {
      if (x > 0) --x;
    } else if (c == '\r') {
      x = 0;
    } else if (c == '\n') {
      a_capo();
    } else if (c == '\t') {
      x = (x / 8 + 1) * 8;
      if (x >= colonne) a_capo();
    } else if (c >= 0x20 && c != 0x7F && (c < 0x80 || c >= 0xA0)) {
      schermo.Metti(x, y, c);
      if (++x == colonne) a_capo();
    }
  }
}

}  // namespace piattaforma
