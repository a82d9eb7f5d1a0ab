// Keeping the square lists, the piece table and the counts of the material
// word in step when a piece enters its list, leaves it, or moves; and placing
// a piece on the board.
#pragma once

#include <cstdint>

#include "board/posizione.h"

// Square lists are unordered sets: a piece leaving its list hands its slot to
// the last piece of its kind, whose code takes the new slot. The caller then
// rewrites PezzoIn[s] itself.
template <Colore C, int K>
SEMPRE_IN_LINEA void TogliDallaLista(uint64_t s) {
  const uint64_t codice = PezzoIn[s];
  materiale[C] -= IncrementoMateriale[K];
  uint64_t* const lista = casa_di<TipoPezzo(K)>(C);
  const uint64_t ultima = lista[NumeroPezzi(materiale[C], K)];
  lista[SlotDelCodice(codice)] = ultima;
  PezzoIn[ultima] = codice;
}

// A piece entering its list takes the next free slot.
template <Colore C, int K>
SEMPRE_IN_LINEA void AggiungiAllaLista(uint64_t s) {
  const uint64_t slot = NumeroPezzi(materiale[C], K);
  PezzoIn[s] = CodicePezzo(TipoPezzo(K), C, slot);
  casa_di<TipoPezzo(K)>(C)[slot] = s;
  materiale[C] += IncrementoMateriale[K];
}

// A piece of kind K going from o to d keeps its slot (a king has none); o is
// left empty, whatever stood on d is overwritten.
template <Colore C, int K>
SEMPRE_IN_LINEA void SpostaPezzo(uint64_t o, uint64_t d) {
  if constexpr (K == RE) {
    PezzoIn[o] = CASA_VUOTA;
    PezzoIn[d] = CodicePezzo(RE, C, 0);
    casa_re[C] = d;
  } else {
    const uint64_t codice = PezzoIn[o];
    PezzoIn[o] = CASA_VUOTA;
    PezzoIn[d] = codice;
    casa_di<TipoPezzo(K)>(C)[SlotDelCodice(codice)] = d;
  }
}

// Placement: put one piece on an empty square, keeping every structure in step.
void inserisci_pedone_bianco(uint64_t casa);
void inserisci_cavallo_bianco(uint64_t casa);
void inserisci_alfiere_bianco(uint64_t casa);
void inserisci_torre_bianco(uint64_t casa);
void inserisci_donna_bianco(uint64_t casa);
void inserisci_re_bianco(uint64_t casa);
void inserisci_pedone_nero(uint64_t casa);
void inserisci_cavallo_nero(uint64_t casa);
void inserisci_alfiere_nero(uint64_t casa);
void inserisci_torre_nero(uint64_t casa);
void inserisci_donna_nero(uint64_t casa);
void inserisci_re_nero(uint64_t casa);
