#include "confronto.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "board/posizione.h"
#include "diagnostics/perft.h"
#include "moves/genera.h"
#include "supporto/tabelle.h"

namespace {

class AmbienteConteggio : public testing::Environment {
 public:
  void SetUp() override { InizializzaTabelleUnaVolta(); }
};
const testing::Environment* const ambiente =
    testing::AddGlobalTestEnvironment(new AmbienteConteggio);

}  // namespace

std::vector<const Cammino*> CamminiEseguibili() {
  std::vector<const Cammino*> cammini = {&CamminoComune};
  if (&CamminoScelto() == &CamminoPopcnt) cammini.push_back(&CamminoPopcnt);
  return cammini;
}

uint64_t ContaCon(const Cammino& cammino, int profondita) {
  const PosizioneConteggio p = PosizioneConteggioCorrente();
  return cammino.conta[p.turno](p.tavola, profondita, {});
}

uint64_t ConfrontaFinoA(int profondita) {
  uint64_t atteso = 0;
  for (int d = 1; d <= profondita; ++d) {
    SCOPED_TRACE("depth " + std::to_string(d));
    atteso = Perft(d);
    for (const Cammino* cammino : CamminiEseguibili())
      EXPECT_EQ(ContaCon(*cammino, d), atteso)
          << (cammino == &CamminoComune ? "any processor" : "popcnt");
    EXPECT_EQ(ContaFoglie(PosizioneConteggioCorrente(), d), atteso);
  }
  return atteso;
}

namespace {

std::string Voce(uint64_t mossa, uint64_t nodi) {
  char testo[8];
  ScriviMossaCoordinate(mossa, testo);
  return std::string(testo) + " (" + std::to_string(mossa) + "): " + std::to_string(nodi);
}

}  // namespace

std::vector<std::string> DivisioneConteggio(int profondita, const OpzioniConteggio& opzioni) {
  VoceConteggio voci[MASSIMO_MOSSE_CONTEGGIO];
  const int n = ContaFoglieDivise(PosizioneConteggioCorrente(), profondita, voci, opzioni);
  std::vector<std::string> righe;
  for (int i = 0; i < n; ++i) righe.push_back(Voce(voci[i].mossa, voci[i].nodi));
  std::sort(righe.begin(), righe.end());
  return righe;
}

std::vector<std::string> DivisioneFaiRitira(int profondita) {
  VocePerft voci[DIMENSIONE_BUFFER_MOSSE];
  const int n = PerftDivide(profondita, voci);
  std::vector<std::string> righe;
  for (int i = 0; i < n; ++i) righe.push_back(Voce(voci[i].mossa, voci[i].nodi));
  std::sort(righe.begin(), righe.end());
  return righe;
}

std::vector<std::string> MosseRadice() {
  VoceConteggio voci[MASSIMO_MOSSE_CONTEGGIO];
  const int n = ContaFoglieDivise(PosizioneConteggioCorrente(), 1, voci);
  std::vector<std::string> mosse;
  for (int i = 0; i < n; ++i) {
    char testo[8];
    ScriviMossaCoordinate(voci[i].mossa, testo);
    mosse.push_back(testo);
  }
  return mosse;
}
