// Brace-initialiser of a 64-entry table from a constexpr function of the
// square, so that the fixed tables are computed by the compiler rather than
// typed out or filled at start-up.
#pragma once

#define PENDRINO_RIGA8(f, b) \
  f(b + 0), f(b + 1), f(b + 2), f(b + 3), f(b + 4), f(b + 5), f(b + 6), f(b + 7)
#define TABELLA64(f)                                                                        \
  PENDRINO_RIGA8(f, 0), PENDRINO_RIGA8(f, 8), PENDRINO_RIGA8(f, 16), PENDRINO_RIGA8(f, 24), \
      PENDRINO_RIGA8(f, 32), PENDRINO_RIGA8(f, 40), PENDRINO_RIGA8(f, 48), PENDRINO_RIGA8(f, 56)
