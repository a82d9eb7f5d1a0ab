// Whether the position globals agree with the piece table: lists, counts,
// unions, keys and the information word. Shared by the board tests and the
// FEN loader fuzzer.
#pragma once

#include <bit>
#include <cstdint>

#include "board/posizione.h"

inline bool PosizioneCoerente() {
  uint64_t chiave = 0, pedoni = 0, colori[2] = {0, 0};
  uint64_t conteggi[2][5] = {};
  for (uint64_t s = 0; s < 64; ++s) {
    const uint64_t codice = PezzoIn[s];
    if (((btm_occupazione >> s) & 1) != (codice != CASA_VUOTA)) return false;
    if (codice == CASA_VUOTA) continue;
    if (!CodiceDiPezzo(codice)) return false;
    const Colore colore = ColoreDelCodice(codice);
    const TipoPezzo tipo = TipoDelCodice(codice);
    chiave ^= hash_in[colore][tipo][s];
    colori[colore] |= 1ull << s;
    if (tipo == PEDONE) pedoni ^= hash_in[colore][tipo][s];
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
  if (HashPedoni != pedoni) return false;
  if (InfoPosizione >> BIT_INFO != 0) return false;
  if (Semimosse(InfoPosizione) > 99) return false;
  if (PrimoScacco(InfoPosizione) > 64 || SecondoScacco(InfoPosizione) > 64) return false;
  if (PrimoScacco(InfoPosizione) == 64 && SecondoScacco(InfoPosizione) != 64) return false;
  if (ContatoreMosse != TurnoIniziale || TurnoIniziale > 1) return false;
  // Beyond the pieces' keys, only castling keys (a repeated letter cancels
  // its own) and the en passant key may be in ChiaveHash.
  uint64_t resto = ChiaveHash ^ chiave;
  if (InfoPosizione & PERMESSO_ENPASSANT)
    resto ^= HashPermessoEnpassantIn[(ElencoMosse[ContatoreMosse] >> 6) & 63];
  const uint64_t arrocchi[4] = {HASH_ARROCCO_CORTO_BIANCO, HASH_ARROCCO_LUNGO_BIANCO,
                                HASH_ARROCCO_CORTO_NERO, HASH_ARROCCO_LUNGO_NERO};
  const uint64_t concessi = DirittiConcessi(InfoPosizione);
  for (uint64_t sottoinsieme = 0; sottoinsieme < 16; ++sottoinsieme) {
    if (sottoinsieme & ~concessi) continue;
    uint64_t k = 0;
    for (int i = 0; i < 4; ++i)
      if (sottoinsieme & (1u << i)) k ^= arrocchi[i];
    if (k == resto) return true;
  }
  return false;
}
