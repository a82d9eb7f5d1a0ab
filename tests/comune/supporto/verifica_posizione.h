// Whether the position globals agree with the piece table: lists, counts,
// unions, keys and the information word. Shared by the board tests and the
// FEN loader fuzzer.
#pragma once

#include <bit>
#include <cstdint>

#include "board/posizione.h"

inline bool PosizioneCoerente() {
  uint64_t colori[2] = {0, 0};
  uint64_t conteggi[2][5] = {};
  for (uint64_t s = 0; s < 64; ++s) {
    const uint64_t codice = PezzoIn[s];
    if (((btm_occupazione >> s) & 1) != (codice != CASA_VUOTA)) return false;
    if (codice == CASA_VUOTA) continue;
    if (!CodiceDiPezzo(codice)) return false;
    const Colore colore = ColoreDelCodice(codice);
    const TipoPezzo tipo = TipoDelCodice(codice);
    colori[colore] |= 1ull << s;
    if (tipo == RE) continue;
    ++conteggi[colore][tipo];
    const uint64_t slot = SlotDelCodice(codice);
    if (!((btm_pezzi[colore][tipo] >> s) & 1)) return false;
    if (slot >= uint64_t(CapienzaLista[tipo])) return false;
    const uint64_t* lista = tipo == PEDONE    ? casa_pedone[colore]
                            : tipo == CAVALLO ? casa_cavallo[colore]
                            : tipo == ALFIERE ? casa_alfiere[colore]
                            : tipo == TORRE   ? casa_torre[colore]
                                              : casa_donna[colore];
    if (lista[slot] != s) return false;
  }
  for (int c = 0; c < 2; ++c) {
    if (btm_colore[c] != colori[c]) return false;
    for (int k = 0; k < 5; ++k) {
      if (NumeroPezzi(materiale[c], k) != conteggi[c][k]) return false;
      if (uint64_t(std::popcount(btm_pezzi[c][k])) != conteggi[c][k]) return false;
    }
  }
  // Every code is a piece's: the keys can be computed.
  if (HashPedoni != CalcolaHashPedoni()) return false;
  if (InfoPosizione >> BIT_INFO != 0) return false;
  if (Semimosse(InfoPosizione) > 99) return false;
  if (PrimoScacco(InfoPosizione) > 64 || SecondoScacco(InfoPosizione) > 64) return false;
  if (PrimoScacco(InfoPosizione) == 64 && SecondoScacco(InfoPosizione) != 64) return false;
  if (ContatoreMosse != TurnoIniziale || TurnoIniziale > 1) return false;
  // ChiaveHash may hold the keys of any subset of the rights granted rather
  // than of all of them (a repeated letter cancels its own): it differs from
  // the computed key by the keys of some subset of those rights.
  const uint64_t resto = ChiaveHash ^ CalcolaChiaveHash();
  const uint64_t concessi = DirittiConcessi(InfoPosizione);
  for (uint64_t sottoinsieme = 0; sottoinsieme < 16; ++sottoinsieme)
    if (!(sottoinsieme & ~concessi) && HashDiritti[sottoinsieme] == resto) return true;
  return false;
}
