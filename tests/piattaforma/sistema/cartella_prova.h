// Helpers of the file tests on the real disk.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace prova {

// A fresh folder under the system's temporary folder, removed with all it
// holds when the test ends.
class CartellaProva {
 public:
  CartellaProva();
  ~CartellaProva();
  CartellaProva(const CartellaProva&) = delete;
  CartellaProva& operator=(const CartellaProva&) = delete;
  const std::filesystem::path& Percorso() const { return percorso_; }
  // The full name of `file` inside the folder.
  std::string Nome(const std::string& file) const;

 private:
  std::filesystem::path percorso_;
};

bool Esiste(const std::string& nome);
// The file's bytes through the standard library, empty when it cannot be read.
std::string Contenuto(const std::string& nome);
void Scrivi(const std::string& nome, const std::string& contenuto);
// How many entries the folder holds.
size_t FileNellaCartella(const CartellaProva& cartella);

}  // namespace prova
