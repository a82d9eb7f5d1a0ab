#include "aiuti_diagnostica.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "board/fen.h"
#include "board/geometria.h"
#include "piattaforma/memoria/memoria.h"

namespace {

class AmbienteDiagnostica : public testing::Environment {
 public:
  void SetUp() override {
    InizializzaInfoTraiettorie();
    InizializzaDbMobilita();
    memoria::Azzera();
  }
};

const testing::Environment* const ambiente =
    testing::AddGlobalTestEnvironment(new AmbienteDiagnostica);

}  // namespace

bool CaricaFen(const std::string& fen) {
  SvuotaScacchiera();
  if (CaricaPosizioneDaStringaFen(fen.c_str())) return true;
  SvuotaScacchiera();
  return false;
}

std::vector<RigaPerft> LeggiTabellaPerft(const std::string& percorso) {
  std::vector<RigaPerft> righe;
  std::ifstream file(percorso);
  EXPECT_TRUE(file.good()) << percorso;
  std::string riga;
  std::getline(file, riga);  // header
  while (std::getline(file, riga)) {
    if (riga.empty()) continue;
    std::stringstream campi(riga);
    RigaPerft r;
    std::string profondita, nodi;
    if (!std::getline(campi, r.nome, '\t') || !std::getline(campi, r.fen, '\t') ||
        !std::getline(campi, profondita, '\t') || !std::getline(campi, nodi, '\t')) {
      ADD_FAILURE() << "riga malformata in " << percorso << ": " << riga;
      continue;
    }
    r.profondita = std::stoi(profondita);
    r.nodi = std::stoull(nodi);
    righe.push_back(r);
  }
  return righe;
}

std::vector<std::string> FenDistinte(const std::vector<RigaPerft>& righe) {
  std::vector<std::string> fen;
  for (const RigaPerft& r : righe)
    if (std::find(fen.begin(), fen.end(), r.fen) == fen.end()) fen.push_back(r.fen);
  return fen;
}

Istantanea Fotografa() {
  Istantanea f;
  for (int c = 0; c < 2; ++c) {
    for (int k = 0; k < 5; ++k) {
      f.pezzi[c][k] = btm_pezzi[c][k];
      const uint64_t* lista = k == PEDONE    ? casa_pedone[c]
                              : k == CAVALLO ? casa_cavallo[c]
                              : k == ALFIERE ? casa_alfiere[c]
                              : k == TORRE   ? casa_torre[c]
                                             : casa_donna[c];
      uint64_t n = std::min<uint64_t>(NumeroPezzi(materiale[c], k), CapienzaLista[k]);
      f.liste[c][k].assign(lista, lista + n);
      std::sort(f.liste[c][k].begin(), f.liste[c][k].end());
    }
    f.colore[c] = btm_colore[c];
    f.re[c] = casa_re[c];
    f.materiale[c] = materiale[c];
  }
  f.occupazione = btm_occupazione;
  for (int s = 0; s < 65; ++s) f.tipo_in[s] = PezzoIn[s] & 0xF0;
  f.info = InfoPosizione;
  f.chiave = ChiaveHash;
  f.pedoni = HashPedoni;
  f.contatore = ContatoreMosse;
  return f;
}

std::string Differenze(const Istantanea& a, const Istantanea& b) {
  std::string d;
  auto segna = [&d](bool diversi, const std::string& nome) {
    if (diversi) d += nome + " ";
  };
  for (int c = 0; c < 2; ++c) {
    const std::string colore = c == 0 ? "_bianco" : "_nero";
    for (int k = 0; k < 5; ++k) {
      segna(a.pezzi[c][k] != b.pezzi[c][k], "btm" + std::to_string(k) + colore);
      segna(a.liste[c][k] != b.liste[c][k], "casa" + std::to_string(k) + colore);
    }
    segna(a.colore[c] != b.colore[c], "btm" + colore);
    segna(a.re[c] != b.re[c], "casa_re" + colore);
    segna(a.materiale[c] != b.materiale[c], "materiale" + colore);
  }
  segna(a.occupazione != b.occupazione, "btm_occupazione");
  for (int s = 0; s < 65; ++s)
    segna(a.tipo_in[s] != b.tipo_in[s], "PezzoIn[" + std::to_string(s) + "]");
  segna(a.info != b.info, "InfoPosizione");
  segna(a.chiave != b.chiave, "ChiaveHash");
  segna(a.pedoni != b.pedoni, "HashPedoni");
  segna(a.contatore != b.contatore, "ContatoreMosse");
  return d;
}

StatoScacco StatoDiScacco(uint64_t info) {
  bool primo = PrimoScacco(info) != NESSUNA_CASA;
  bool secondo = SecondoScacco(info) != NESSUNA_CASA;
  if (primo && secondo) return SCACCO_DOPPIO;
  if (primo) return SCACCO_PRIMO;
  if (secondo) return SCACCO_SECONDO;
  return NESSUNO_SCACCO_STATO;
}
