// The committed corpora of the fuzzers (fuzz/corpus/<name>), replayed by the
// tests of the normal build: each file of a corpus folder, read whole.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace corpus {

struct Voce {
  std::filesystem::path percorso;
  std::string dati;
  // The bytes in an allocation of their own with a terminator after them,
  // as the fuzzer hands them over: a read past the end is the sanitizer's.
  std::unique_ptr<char[]> Copia() const;
};

// The folder of the corpus `nome` ("fen", "ini", "giornale", "mossa").
std::filesystem::path Cartella(const char* nome);

// Every regular file of `cartella`, in the folder's order.
std::vector<Voce> Leggi(const std::filesystem::path& cartella);

}  // namespace corpus
