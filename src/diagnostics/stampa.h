// Debug printing: names of pieces and squares, piece codes bit by bit,
// bitboards as pictures, 64-bit values in hexadecimal, and the light and dark
// square sets written out as constants.
#pragma once

#include <cstdint>

extern const char* const StringaPezzo[6];  // "Pedone" ... "Re", by kind
extern const char* const StringaCasa[64];  // "a8" ... "h1", by square

// One piece code: its name and colour, then its eight bits.
void StampaBitmapPezzo(uint8_t codice);

// The bitboard as an 8 x 8 picture, rank 8 first. The text lives in a static
// buffer that the next call overwrites.
const char* StringaBitmap(uint64_t bitboard);

// Exactly 16 lower-case hexadecimal digits, in a static buffer that the next
// call overwrites.
const char* str_esadecimale(uint64_t valore);

// "0x" + the 16 digits + "ull", ready to be pasted into source.
void StampaEsadecimale(uint64_t valore);

// Writes "ChiaroScuro.txt": the light and dark square sets as definitions,
// each followed by its picture.
void StampaChiaroScuro();
