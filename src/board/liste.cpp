// Placement of single pieces, for loading a position.
#include "board/liste.h"

// Every update is a toggle: the square must be empty.
namespace {

template <Colore C, TipoPezzo K>
void inserisci(uint64_t casa) {
  const uint64_t bit = 1ull << casa;
  if constexpr (K == RE) {
    PezzoIn[casa] = CodicePezzo(RE, C, 0);
    casa_re[C] = casa;
  } else {
    btm_pezzi[C][K] ^= bit;
    AggiungiAllaLista<C, K>(casa);
    if constexpr (K == PEDONE) HashPedoni ^= hash_in[C][K][casa];
  }
  btm_colore[C] ^= bit;
  btm_occupazione ^= bit;
  ChiaveHash ^= hash_in[C][K][casa];
}

}  // namespace

void inserisci_pedone_bianco(uint64_t casa) { inserisci<BIANCO, PEDONE>(casa); }
void inserisci_cavallo_bianco(uint64_t casa) { inserisci<BIANCO, CAVALLO>(casa); }
void inserisci_alfiere_bianco(uint64_t casa) { inserisci<BIANCO, ALFIERE>(casa); }
void inserisci_torre_bianco(uint64_t casa) { inserisci<BIANCO, TORRE>(casa); }
void inserisci_donna_bianco(uint64_t casa) { inserisci<BIANCO, DONNA>(casa); }
void inserisci_re_bianco(uint64_t casa) { inserisci<BIANCO, RE>(casa); }
void inserisci_pedone_nero(uint64_t casa) { inserisci<NERO, PEDONE>(casa); }
void inserisci_cavallo_nero(uint64_t casa) { inserisci<NERO, CAVALLO>(casa); }
void inserisci_alfiere_nero(uint64_t casa) { inserisci<NERO, ALFIERE>(casa); }
void inserisci_torre_nero(uint64_t casa) { inserisci<NERO, TORRE>(casa); }
void inserisci_donna_nero(uint64_t casa) { inserisci<NERO, DONNA>(casa); }
void inserisci_re_nero(uint64_t casa) { inserisci<NERO, RE>(casa); }
