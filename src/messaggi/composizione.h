// Text composed into a fixed buffer, for the files and pages the program
// writes: no allocation, and a text that does not fit is cut, never overrun.
#pragma once

#include <cstddef>
#include <cstdint>

// Appends to a fixed buffer, always zero-terminated; what does not fit is
// counted but not written, so the caller learns the whole length.
class Composizione {
 public:
  Composizione(char* testo, size_t capienza) : testo_(testo), capienza_(capienza) {
    if (capienza_ > 0) testo_[0] = 0;
  }

  void Testo(const char* testo, size_t massimo = SIZE_MAX) {
    for (size_t i = 0; i < massimo && testo[i]; ++i) Carattere(testo[i]);
  }
  void Numero(uint64_t numero) {
    char cifre[21];
    int n = 0;
    do {
      cifre[n++] = char('0' + numero % 10);
      numero /= 10;
    } while (numero);
    while (n) Carattere(cifre[--n]);
  }
  size_t Lunghezza() const { return usati_; }

 private:
  void Carattere(char c) {
    if (usati_ + 1 < capienza_) {
      testo_[usati_] = c;
      testo_[usati_ + 1] = 0;
    }
    ++usati_;
  }

  char* testo_;
  size_t capienza_;
  size_t usati_ = 0;
};

// Copies a zero-terminated text into a field of `dimensione` bytes, cut to
// fit and always terminated. A forward byte copy: also safe when the text is
// the field itself.
inline void CopiaLimitata(char* destinazione, size_t dimensione, const char* testo) {
  size_t i = 0;
  while (i + 1 < dimensione && testo[i]) {
    destinazione[i] = testo[i];
    ++i;
  }
  destinazione[i] = 0;
}
