// The counter's entry points: the position of the globals, the choice of the
// walk's copy, and the root moves shared among threads.
#include "conteggio/conteggio.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <thread>

#include "board/mossa.h"
#include "conteggio/cammino.h"

namespace {

constexpr uint64_t Bit(uint64_t casa) { return 1ull << casa; }

// Each root move counted by whichever thread is free first.
void ContaRadici(const Cammino& cammino, const RadiceConteggio* radici, int n, Colore turno,
                 int profondita, const OpzioniConteggio& opzioni, uint64_t* nodi) {
  std::atomic<int> prossima{0};
  auto lavora = [&] {
    for (int i; (i = prossima.fetch_add(1)) < n;)
      nodi[i] = cammino.conta[~turno](radici[i].dopo, profondita - 1, opzioni);
  };
  const int altri = std::min({opzioni.thread, MASSIMO_THREAD_CONTEGGIO, n}) - 1;
  std::thread aiutanti[MASSIMO_THREAD_CONTEGGIO];
  for (int i = 0; i < altri; ++i) aiutanti[i] = std::thread(lavora);
  lavora();
  for (int i = 0; i < altri; ++i) aiutanti[i].join();
}

bool ProfonditaAmmessa(int profondita) {
  return profondita >= 0 && profondita <= PROFONDITA_MASSIMA_CONTEGGIO;
}

}  // namespace

const Cammino& CamminoScelto() {
#if defined(__x86_64__) || defined(__i386__)
  static const bool popcnt = (__builtin_cpu_init(), __builtin_cpu_supports("popcnt"));
  return popcnt ? CamminoPopcnt : CamminoComune;
#else
  return CamminoPopcnt;
#endif
}

PosizioneConteggio PosizioneConteggioCorrente() {
  PosizioneConteggio p{};
  TavolaConteggio& t = p.tavola;
  for (int k = PEDONE; k <= DONNA; ++k) t.pezzi[k] = btm_pezzi[BIANCO][k] | btm_pezzi[NERO][k];
  t.pezzi[RE] = Bit(casa_re[BIANCO]) | Bit(casa_re[NERO]);
  t.colore[BIANCO] = btm_colore[BIANCO];
  t.colore[NERO] = btm_colore[NERO];
  t.diritti = InfoPosizione & MASCHERA_DIRITTI;
  p.turno = AlTratto();
  // The square the double step crossed, which the game allows to take only
  // when a pawn stands ready for it.
  if (InfoPosizione & PERMESSO_ENPASSANT) {
    const uint64_t doppio = ElencoMosse[ContatoreMosse];
    t.enpassant = (OrigineMossa(doppio) + DestinazioneMossa(doppio)) / 2;
  }
  return p;
}

uint64_t VociTabellaConteggio(uint64_t megabyte) {
  const uint64_t voci = (megabyte << 20) / sizeof(VoceTabellaConteggio);
  return voci ? std::bit_floor(voci) : 1;
}

uint64_t ContaFoglie(const PosizioneConteggio& posizione, int profondita,
                     const OpzioniConteggio& opzioni) {
  if (!ProfonditaAmmessa(profondita)) return 0;
  if (opzioni.thread <= 1 || profondita < 2)
    return CamminoScelto().conta[posizione.turno](posizione.tavola, profondita, opzioni);
  VoceConteggio voci[MASSIMO_MOSSE_CONTEGGIO];
  const int n = ContaFoglieDivise(posizione, profondita, voci, opzioni);
  uint64_t totale = 0;
  for (int i = 0; i < n; ++i) totale += voci[i].nodi;
  return totale;
}

int ContaFoglieDivise(const PosizioneConteggio& posizione, int profondita, VoceConteggio* voci,
                      const OpzioniConteggio& opzioni) {
  if (profondita < 1 || !ProfonditaAmmessa(profondita)) return 0;
  const Cammino& cammino = CamminoScelto();
  RadiceConteggio radici[MASSIMO_MOSSE_CONTEGGIO];
  const int n = cammino.elenca[posizione.turno](posizione.tavola, radici);
  uint64_t nodi[MASSIMO_MOSSE_CONTEGGIO];
  ContaRadici(cammino, radici, n, posizione.turno, profondita, opzioni, nodi);
  for (int i = 0; i < n; ++i) voci[i] = {radici[i].mossa, nodi[i]};
  return n;
}
