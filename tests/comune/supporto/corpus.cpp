#include "supporto/corpus.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace corpus {

std::unique_ptr<char[]> Voce::Copia() const {
  std::unique_ptr<char[]> testo(new char[dati.size() + 1]);
  std::memcpy(testo.get(), dati.data(), dati.size());
  testo[dati.size()] = '\0';
  return testo;
}

std::filesystem::path Cartella(const char* nome) {
  return (std::filesystem::path(PENDRINO_CORPUS_FUZZ) / nome).lexically_normal();
}

std::vector<Voce> Leggi(const std::filesystem::path& cartella) {
  std::vector<Voce> voci;
  for (const auto& voce : std::filesystem::directory_iterator(cartella)) {
    if (!voce.is_regular_file()) continue;
    std::ifstream ingresso(voce.path(), std::ios::binary);
    voci.push_back({voce.path(), std::string((std::istreambuf_iterator<char>(ingresso)),
                                             std::istreambuf_iterator<char>())});
  }
  return voci;
}

}  // namespace corpus
