// The board's tables, built once for a whole test program: every fixture
// that needs them may ask, only the first asking builds them.
#pragma once

#include "board/geometria.h"

inline void InizializzaTabelleUnaVolta() {
  static const bool fatto = [] {
    InizializzaTabelle();
    return true;
  }();
  (void)fatto;
}
