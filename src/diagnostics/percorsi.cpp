#include "diagnostics/percorsi.h"

#include "board/mossa.h"
#include "diagnostics/controlli.h"
#include "moves/genera.h"
#include "moves/legali.h"
#include "moves/registro.h"
#include "moves/tavole.h"

uint64_t PosizioniValutate;

namespace {

bool ReportNonVuoto() { return ReportControlloPosizione.LunghezzaTesto != 0; }

// The most candidates the generator can write for side C: every piece at its
// widest (queen 27, rook 14, bishop 13, knight 8, pawn 12 with promotions),
// the king's 8 steps and both castlings.
template <Colore C>
uint64_t MassimoCandidati() {
  const uint64_t m = materiale[C];
  return 12 * NumeroPezzi(m, PEDONE) + 8 * NumeroPezzi(m, CAVALLO) + 13 * NumeroPezzi(m, ALFIERE) +
         14 * NumeroPezzi(m, TORRE) + 27 * NumeroPezzi(m, DONNA) + 10;
}

// One level of either walk for side C; Controlla selects the self-checking one.
// The levels share BufferMosseGenerate as a stack: each writes its moves after
// those of the level above and gives the space back when it returns. A level
// that would not surely fit in what is left counts as a leaf, so deep walks
// grow inexact instead of writing past the buffer.
template <Colore C, bool Controlla>
void Percorri(uint32_t profondita, uint64_t* const inizio) {
  if constexpr (!Controlla) ++PosizioniValutate;
  if (profondita == 0) return;
  // The game record cannot grow past its last entry.
  if (ContatoreMosse + 1 >= uint64_t(MAX_SEMIMOSSE)) return;
  // The first level has the whole buffer, which every position fits.
  if (inizio != BufferMosseGenerate &&
      inizio + MassimoCandidati<C>() > BufferMosseGenerate + DIMENSIONE_BUFFER_MOSSE)
    return;
  const FunzioneFai* fai = fai_mossa[C];
  const FunzioneRitira* ritira = ritira_mossa[C];

  uint64_t* const fine = genera_mosse_del[C](inizio);
  ChiudiListaMosse(fine);
  SalvaParolePosizione();
  for (const uint64_t* letta = inizio; letta < FineMosseGenerate; ++letta) {
    uint64_t mossa = *letta;
    if (!fai[TipoMossa(mossa)](mossa)) continue;
    if constexpr (Controlla) {
      ControllaPosizione(0);
      if (ReportNonVuoto()) break;
    }
    Percorri<Colore(~C), Controlla>(profondita - 1, fine);
    ChiudiListaMosse(fine);
    if constexpr (Controlla) {
      if (ReportNonVuoto()) break;
    }
    uint64_t ultima = ElencoMosse[ContatoreMosse];
    ritira[TipoMossa(ultima)](ultima);
    if constexpr (Controlla) {
      ControllaPosizione(1);
      if (ReportNonVuoto()) break;
    }
  }
}

}  // namespace

void test_del_bianco(uint32_t profondita) {
  Percorri<BIANCO, true>(profondita, BufferMosseGenerate);
}
void test_del_nero(uint32_t profondita) { Percorri<NERO, true>(profondita, BufferMosseGenerate); }
void TestVelocita_del_bianco(uint32_t profondita) {
  Percorri<BIANCO, false>(profondita, BufferMosseGenerate);
}
void TestVelocita_del_nero(uint32_t profondita) {
  Percorri<NERO, false>(profondita, BufferMosseGenerate);
}
