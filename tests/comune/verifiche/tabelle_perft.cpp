#include "verifiche/tabelle_perft.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "board/fen.h"
#include "board/posizione.h"

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
