#include "diagnostics/percorsi.h"

#include "diagnostics/controlli.h"
#include "moves/mosse.h"

uint64_t PosizioniValutate;

namespace {

bool ReportNonVuoto() { return ReportControlloPosizione.LunghezzaTesto != 0; }

// One level of either walk for side C; Controlla selects the self-checking one.
template <Colore C, bool Controlla>
void Percorri(uint32_t profondita) {
  if constexpr (!Controlla) ++PosizioniValutate;
  if (profondita == 0) return;
  // The game record cannot grow past its last entry.
  if (ContatoreMosse + 1 >= uint64_t(MAX_SEMIMOSSE)) return;
  const FunzioneFai* fai = C == BIANCO ? fai_mossa_del_bianco : fai_mossa_del_nero;
  const FunzioneRitira* ritira = C == BIANCO ? ritira_mossa_del_bianco : ritira_mossa_del_nero;

  FineMosseGenerate = genera_mosse_del[C](BufferMosseGenerate);
  SalvaParolePosizione();
  for (const uint64_t* letta = BufferMosseGenerate; letta < FineMosseGenerate; ++letta) {
    uint64_t mossa = *letta;
    if (!fai[TipoMossa(mossa)](mossa)) continue;
    if constexpr (Controlla) {
      ControllaPosizione(0);
      if (ReportNonVuoto()) break;
    }
    Percorri<Colore(~C), Controlla>(profondita - 1);
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

void test_del_bianco(uint32_t profondita) { Percorri<BIANCO, true>(profondita); }
void test_del_nero(uint32_t profondita) { Percorri<NERO, true>(profondita); }
void TestVelocita_del_bianco(uint32_t profondita) { Percorri<BIANCO, false>(profondita); }
void TestVelocita_del_nero(uint32_t profondita) { Percorri<NERO, false>(profondita); }
