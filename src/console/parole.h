// Words for the ear: times, moves, pieces and squares as a voice should say
// them, where the screen's digits and letters would be read one by one. The
// announcement line, the readouts and the program's own voice all speak
// through these.
#pragma once

#include "piattaforma/piattaforma.h"

#include <cstdint>

#include "testo/composizione.h"

extern const char* const NomePezzo[6];            // "pedone" ... "re", by kind
extern const char* const NomePezzoPlurale[6];     // "pedoni" ... "re"
extern const char* const NomeColore[2];           // "bianco", "nero"
extern const char* const NomeColoreMaiuscolo[2];  // "Bianco", "Nero": first in a sentence

// A signed count of seconds: "un'ora, 29 minuti e 45 secondi", "un minuto",
// "zero secondi", "meno 12 secondi".
void TempoInParole(Composizione& c, int32_t secondi);

// What a move does, from its word alone: "cavallo da g1 in f3", "alfiere da
// c4 in f7, cattura pedone", "pedone da e5 in d6, cattura pedone en
// passant", "pedone da e7 in e8, promosso a donna", "arrocco corto".
void MossaInParole(Composizione& c, uint64_t mossa);

// ", scacco" or ", scaccomatto" after a move whose record's text ends with
// '+' or '#'; nothing otherwise.
void ScaccoInParole(Composizione& c, const char* testo_mossa);

// "pedone bianco", "donna nera", "vuota": what a piece code of the board
// (or the empty square's) is.
void PezzoInParole(Composizione& c, uint8_t codice);

// Why a file could not be written, as the end of a sentence: "disco pieno".
const char* MotivoErroreFile(piattaforma::ErroreFile errore);
