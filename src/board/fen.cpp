// Forsyth-Edwards Notation loader.
#include "board/fen.h"

#include <cstddef>

#include "board/arrocco.h"
#include "board/attacchi.h"
#include "board/geometria.h"
#include "board/liste.h"
#include "board/mossa.h"
#include "board/posizione.h"

const char* const FenIniziale = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

namespace {

constexpr bool Spazio(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}
constexpr bool FineTesto(char c) { return c == '\0' || c == ']'; }

struct Campo {
  const char* inizio;
  size_t lunghezza;
};

using Inserisci = void (*)(uint64_t);
constexpr Inserisci InserisciPezzo[2][6] = {
    {inserisci_pedone_bianco, inserisci_cavallo_bianco, inserisci_alfiere_bianco,
     inserisci_torre_bianco, inserisci_donna_bianco, inserisci_re_bianco},
    {inserisci_pedone_nero, inserisci_cavallo_nero, inserisci_alfiere_nero, inserisci_torre_nero,
     inserisci_donna_nero, inserisci_re_nero}};

// Kind of a piece letter in either case, -1 for anything else.
int TipoDaLettera(char c) {
  const char minuscola = c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
  for (int k = 0; k < 6; ++k)
    if (CaratterePezzo[k] == minuscola) return k;
  return -1;
}

int CaricaScacchiera(const Campo& campo) {
  uint64_t casa = 0, riga = 0;
  for (size_t i = 0; i < campo.lunghezza; ++i) {
    const char c = campo.inizio[i];
    if (casa > 63) return 0;
    if (c == '/') {
      if (casa % 8 != 0) return 0;
      ++riga;
    } else if (c >= '1' && c <= '8') {
      casa += uint64_t(c - '0');
      if (casa / 8 > riga && casa % 8 != 0) return 0;
    } else {
      const int tipo = TipoDaLettera(c);
      if (tipo < 0) return 0;
      const Colore colore = c >= 'a' ? NERO : BIANCO;
      // The square lists have room for every legal game, not for any text.
      if (tipo != RE && NumeroPezzi(materiale[colore], tipo) >= uint64_t(CapienzaLista[tipo]))
        return 0;
      InserisciPezzo[colore][tipo](casa);
      ++casa;
    }
  }
  return casa == 64;
}

// Pieces of the side not to move that give check to the king of `turno`.
template <Colore Turno>
uint64_t PezziCheDannoScacco() {
  constexpr Colore Nemico = ~Turno;
  const uint64_t re = casa_re[Turno];
  const uint64_t* pezzi = btm_pezzi[Nemico];
  return (pezzi[PEDONE] & MscBersagliPedone_da[Turno][re]) |
         (pezzi[CAVALLO] & MascheraMobilita_cavallo_in[re]) |
         ((pezzi[ALFIERE] | pezzi[DONNA]) & AttacchiAlfiere(re, btm_occupazione)) |
         ((pezzi[TORRE] | pezzi[DONNA]) & AttacchiTorre(re, btm_occupazione));
}

template <Colore Turno>
int CaricaTurno() {
  TurnoIniziale = Turno;
  // The side not to move may not be in check.
  if (attaccano_pezzi<Turno>(casa_re[~Turno])) return 0;
  uint64_t scacchi = PezziCheDannoScacco<Turno>();
  uint64_t primo = NESSUNA_CASA, secondo = NESSUNA_CASA;
  if (scacchi) {
    primo = PrimaCasa(scacchi);
    scacchi &= scacchi - 1;
  }
  if (scacchi) {
    secondo = PrimaCasa(scacchi);
    scacchi &= scacchi - 1;
  }
  if (scacchi) return 0;
  InfoPosizione |= (primo << SHIFT_PRIMO_SCACCO) | (secondo << SHIFT_SECONDO_SCACCO);
  ContatoreMosse = TurnoIniziale;
  // No last move, unless the en passant field supplies one; with Black to
  // move this slot is not the one the board's emptying cleared.
  ElencoMosse[ContatoreMosse] = 0;
  return 1;
}

// i: 0 White king side, 1 White queen side, 2 and 3 Black's.
void ConcediArrocco(int i) {
  const uint64_t diritto = ARROCCO_CORTO_BIANCO << i;
  InfoPosizione |= diritto;
  ChiaveHash ^= ChiaveDiritti(diritto);
}

// Without a castling field the rights follow from kings and rooks at home.
void DeduciArrocchi() {
  for (int i = 0; i < 4; ++i) {
    const Colore c = Colore(i >> 1);
    const Arrocco& a = Arrocchi[c][i & 1];
    if (casa_re[c] == a.re && CodiceSenzaSlot(PezzoIn[a.torre]) == CodicePezzo(TORRE, c, 0))
      ConcediArrocco(i);
  }
}

// The letters are trusted as given; a repeated letter toggles its key again.
int CaricaArrocchi(const Campo& campo) {
  if (campo.lunghezza == 1 && campo.inizio[0] == '-') return 1;
  for (size_t i = 0; i < campo.lunghezza; ++i) {
    int diritto = 0;
    while (diritto < 4 && "KQkq"[diritto] != campo.inizio[i]) ++diritto;
    if (diritto == 4) return 0;
    ConcediArrocco(diritto);
  }
  return 1;
}

// Only a capture that a pawn of the side to move could really make is
// recorded, together with the double step that allows it.
template <Colore Turno>
int CaricaEnpassant(const Campo& campo) {
  if (campo.lunghezza == 1 && campo.inizio[0] == '-') return 1;
  const char colonna = campo.inizio[0];
  if (colonna < 'a' || colonna > 'h') return 0;
  // campo.inizio[1] is at worst the text's terminator.
  if (campo.inizio[1] != (Turno == BIANCO ? '6' : '3')) return 0;
  constexpr int Avanti = Turno == BIANCO ? -8 : 8;  // direction the side to move advances
  const uint64_t bersaglio = uint64_t(colonna - 'a') + (Turno == BIANCO ? 16 : 40);
  const uint64_t pedone = bersaglio - Avanti;  // the pawn that double-stepped
  if (btm_pezzi[Turno][PEDONE] & MscBersagliPedone_da[~Turno][bersaglio]) {
    InfoPosizione |= PERMESSO_ENPASSANT;
    ChiaveHash ^= HashPermessoEnpassantIn[pedone];
    ElencoMosse[ContatoreMosse] = Mossa(bersaglio + Avanti, pedone, PEDONE_AVANZA2);
  }
  return 1;
}

int CaricaSemimosse(const Campo& campo) {
  if (campo.lunghezza > 2) return 0;
  uint64_t valore = 0;
  for (size_t i = 0; i < campo.lunghezza; ++i) {
    const char c = campo.inizio[i];
    if (c < '0' || c > '9') return 0;
    valore = valore * 10 + uint64_t(c - '0');
  }
  InfoPosizione |= valore;
  return 1;
}

}  // namespace

int CaricaPosizioneDaStringaFen(const char* testo) {
  const char* p = testo;
  while (Spazio(*p) || *p == '[') ++p;
  if (FineTesto(*p)) return 0;
  // Fields beyond the sixth are ignored, and the sixth is never read.
  Campo campi[6];
  int numero = 0;
  while (!FineTesto(*p) && numero < 6) {
    campi[numero].inizio = p;
    while (!FineTesto(*p) && !Spazio(*p)) ++p;
    campi[numero].lunghezza = size_t(p - campi[numero].inizio);
    ++numero;
    while (Spazio(*p)) ++p;
  }
  if (numero < 2) return 0;

  if (!CaricaScacchiera(campi[0])) return 0;
  if (Distanza[casa_re_bianco][casa_re_nero] < 2) return 0;

  if (campi[1].lunghezza != 1) return 0;
  const char turno = campi[1].inizio[0];
  if (turno == 'w') {
    if (!CaricaTurno<BIANCO>()) return 0;
  } else if (turno == 'b') {
    if (!CaricaTurno<NERO>()) return 0;
  } else {
    return 0;
  }

  if (numero < 3) {
    DeduciArrocchi();
    return 1;
  }
  if (campi[2].lunghezza > 4 || !CaricaArrocchi(campi[2])) return 0;

  if (numero < 4) return 1;
  if (!(turno == 'w' ? CaricaEnpassant<BIANCO>(campi[3]) : CaricaEnpassant<NERO>(campi[3])))
    return 0;

  if (numero < 5) return 1;
  return CaricaSemimosse(campi[4]);
}
