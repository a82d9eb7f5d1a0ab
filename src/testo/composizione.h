// The one way the program composes a text into a fixed buffer: no
// allocation, never past the buffer, always zero-terminated. What does not
// fit is not written but still counted, so the caller learns the whole
// length and decides what a text cut short means to it: dropped tail (a
// notice), nothing written (a file), or nothing at all (a command line).
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>

class Composizione {
 public:
  Composizione(char* testo, size_t capienza) : testo_(testo), capienza_(capienza) {
    if (capienza_ > 0) testo_[0] = 0;
  }

  void Carattere(char c) {
    if (scritti_ + 1 < capienza_) {
      testo_[scritti_++] = c;
      testo_[scritti_] = 0;
    }
    ++lunghezza_;
  }
  // At most `massimo` bytes of `testo`, stopping at its end.
  void Testo(const char* testo, size_t massimo = SIZE_MAX) {
    for (size_t i = 0; i < massimo && testo[i]; ++i) Carattere(testo[i]);
  }
  void Numero(int64_t numero) {
    // The magnitude as unsigned, so that the most negative value has one.
    uint64_t resto = numero < 0 ? 0 - uint64_t(numero) : uint64_t(numero);
    char cifre[20];
    int n = 0;
    do {
      cifre[n++] = char('0' + resto % 10);
      resto /= 10;
    } while (resto);
    if (numero < 0) Carattere('-');
    while (n) Carattere(cifre[--n]);
  }
  // printf-style, counted like the rest.
#if defined(__GNUC__) || defined(__clang__)
  __attribute__((format(printf, 2, 3)))
#endif
  void
  Formato(const char* formato, ...) {
    va_list argomenti;
    va_start(argomenti, formato);
    FormatoDa(formato, argomenti);
    va_end(argomenti);
  }
  void FormatoDa(const char* formato, va_list argomenti) {
    const size_t resto = scritti_ < capienza_ ? capienza_ - scritti_ : 0;
    const int voluti =
        std::vsnprintf(resto ? testo_ + scritti_ : nullptr, resto, formato, argomenti);
    if (voluti < 0) return;
    const size_t n = size_t(voluti);
    lunghezza_ += n;
    scritti_ += n < resto ? n : (resto ? resto - 1 : 0);
  }

  // Empty again, the same buffer.
  void Svuota() {
    scritti_ = lunghezza_ = 0;
    if (capienza_ > 0) testo_[0] = 0;
  }
  // The bytes in the buffer, and the length the whole text would have.
  size_t Scritti() const { return scritti_; }
  size_t Lunghezza() const { return lunghezza_; }
  bool Troncato() const { return lunghezza_ != scritti_; }

 private:
  char* testo_;
  size_t capienza_;
  size_t scritti_ = 0;
  size_t lunghezza_ = 0;
};

// A zero-terminated text into a field of `dimensione` bytes, cut to fit. A
// forward byte copy: also safe when the text is the field itself.
inline void CopiaLimitata(char* destinazione, size_t dimensione, const char* testo) {
  size_t i = 0;
  while (i + 1 < dimensione && testo[i]) {
    destinazione[i] = testo[i];
    ++i;
  }
  if (dimensione > 0) destinazione[i] = 0;
}
