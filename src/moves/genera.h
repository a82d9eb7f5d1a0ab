// The move generators: all moves, tactical moves (captures, en passant,
// promotions) and the rest, for either colour, and the shared move buffer.
// They answer a check from the checker fields of InfoPosizione but test
// neither pins nor the king's destination: make-move refuses what exposes the
// own king.
#pragma once

#include <cstdint>

// Write from `inizio`, return one past the last word written.
using FunzioneGenera = uint64_t* (*)(uint64_t* inizio);
uint64_t* genera_TutteLeMosse_del_bianco(uint64_t* inizio);
uint64_t* genera_TutteLeMosse_del_nero(uint64_t* inizio);
uint64_t* genera_MosseTattiche_del_bianco(uint64_t* inizio);
uint64_t* genera_MosseTattiche_del_nero(uint64_t* inizio);
uint64_t* genera_noncatture_del_bianco(uint64_t* inizio);
uint64_t* genera_noncatture_del_nero(uint64_t* inizio);

// By colour. Visible here so that a call with a constant colour is direct.
inline constexpr FunzioneGenera genera_mosse_del[8] = {genera_TutteLeMosse_del_bianco,
                                                       genera_TutteLeMosse_del_nero};
inline constexpr FunzioneGenera genera_tattiche_del[2] = {genera_MosseTattiche_del_bianco,
                                                          genera_MosseTattiche_del_nero};
inline constexpr FunzioneGenera genera_noncatture_del[2] = {genera_noncatture_del_bianco,
                                                            genera_noncatture_del_nero};

constexpr int DIMENSIONE_BUFFER_MOSSE = 256;
extern uint64_t BufferMosseGenerate[DIMENSIONE_BUFFER_MOSSE];
extern uint64_t* FineMosseGenerate;
