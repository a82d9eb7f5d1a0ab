// The 60 move types that have a make and an unmake function, each with the
// two halves of its functions' names around the colour word:
//   X(type, before, after)  names  fai_<before><colour><after>  and
//                                  ritira_<before><colour><after>,
// e.g. X(11, pedone_, _cattura_cavallo) is fai_pedone_bianco_cattura_cavallo.
// Every list of those functions (declarations, definitions, dispatch tables)
// is expanded from this one list, in type order.
#pragma once

// The five captures of one mover, pawn to queen, from type `base`.
#define PENDRINO_CATTURE_DI(X, base, pezzo) \
  X(base + 0, pezzo##_, _cattura_pedone)    \
  X(base + 1, pezzo##_, _cattura_cavallo)   \
  X(base + 2, pezzo##_, _cattura_alfiere)   \
  X(base + 3, pezzo##_, _cattura_torre)     \
  X(base + 4, pezzo##_, _cattura_donna)

// A promotion to one piece and its four captures, knight to queen.
#define PENDRINO_PROMOZIONI_A(X, base, pezzo)        \
  X(base + 0, , _promuove_##pezzo)                   \
  X(base + 1, , _promuove_##pezzo##_cattura_cavallo) \
  X(base + 2, , _promuove_##pezzo##_cattura_alfiere) \
  X(base + 3, , _promuove_##pezzo##_cattura_torre)   \
  X(base + 4, , _promuove_##pezzo##_cattura_donna)

#define PENDRINO_TIPI_MOSSA(X)          \
  X(1, o_o_del_, )                      \
  X(2, o_o_o_del_, )                    \
  X(3, sposta2pedone_, )                \
  X(4, sposta_pedone_, )                \
  X(5, sposta_cavallo_, )               \
  X(6, sposta_alfiere_, )               \
  X(7, sposta_torre_, )                 \
  X(8, sposta_donna_, )                 \
  X(9, sposta_re_, )                    \
  PENDRINO_CATTURE_DI(X, 10, pedone)    \
  PENDRINO_CATTURE_DI(X, 15, cavallo)   \
  PENDRINO_CATTURE_DI(X, 20, alfiere)   \
  PENDRINO_CATTURE_DI(X, 25, torre)     \
  PENDRINO_CATTURE_DI(X, 30, donna)     \
  PENDRINO_CATTURE_DI(X, 35, re)        \
  X(40, enpassant_del_, )               \
  PENDRINO_PROMOZIONI_A(X, 41, cavallo) \
  PENDRINO_PROMOZIONI_A(X, 46, alfiere) \
  PENDRINO_PROMOZIONI_A(X, 51, torre)   \
  PENDRINO_PROMOZIONI_A(X, 56, donna)

// Declares one type's function of both colours: prefisso is fai_ or ritira_.
#define PENDRINO_DICHIARA_COPPIA(ritorno, prefisso, prima, dopo) \
  ritorno prefisso##prima##bianco##dopo(uint64_t mossa);         \
  ritorno prefisso##prima##nero##dopo(uint64_t mossa);
