// Shared by the settings tests: a clean in-memory platform and table, the
// file Pendrino writes with every value at its default (written out here,
// not taken from the writer), and the boxes the reading may show.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "messaggi/messaggi.h"
#include "piattaforma/memoria/memoria.h"
#include "settings/lettore_ini.h"
#include "settings/parametri.h"
#include "supporto/testo.h"

using namespace piattaforma::win32;

namespace ini {

// In POSIX form; SulDisco() gives it the platform's line ends.
inline const char* const FILE_DEFAULT =
    "\n"
    "periodi (periodi) min: 1 max: 2 default: 1\n"
    "$\tperiodi\t1\n"
    "\n"
    "mosse primo periodo (mosse) min: 10 max: 100 default: 40\n"
    "$\tmosse_primo_periodo\t40\n"
    "\n"
    "tempo primo periodo (minuti) min: 1 max: 720 default: 120\n"
    "$\ttempo_primo_periodo\t120\n"
    "\n"
    "incremento primo periodo (secondi) min: 0 max: 600 default: 0\n"
    "$\tincremento_primo_periodo\t0\n"
    "\n"
    "tempo secondo periodo (minuti) min: 1 max: 720 default: 30\n"
    "$\ttempo_secondo_periodo\t30\n"
    "\n"
    "incremento secondo periodo (secondi) min: 0 max: 600 default: 0\n"
    "$\tincremento_secondo_periodo\t0\n"
    "\n"
    "Aggiornamento automatico a schermo del tempo in moto (valore booleano) min: 0 max: 1 "
    "default: 1\n"
    "$\taggiornamento_automatico_a_schermo\t1\n"
    "\n"
    "primo allarme (minuti) min: 0 max: 720 default: 15\n"
    "$\tallarme1\t15\n"
    "\n"
    "secondo allarme (minuti) min: 0 max: 720 default: 30\n"
    "$\tallarme2\t30\n"
    "\n"
    "terzo allarme (minuti) min: 0 max: 720 default: 60\n"
    "$\tallarme3\t60\n"
    "\n"
    "quarto allarme (minuti) min: 0 max: 720 default: 90\n"
    "$\tallarme4\t90\n"
    "\n"
    "quinto allarme (minuti) min: 0 max: 720 default: 120\n"
    "$\tallarme5\t120\n";

inline const int32_t VALORI_DEFAULT[NUMERO_PARAMETRI] = {1, 40, 120, 0,  30, 0,
                                                         1, 15, 30,  60, 90, 120};

inline const char* const NON_TROVATO =
    "Non ho trovato pendrino.ini.\nVerranno ripristinati i valori default.";
inline const char* const NON_LEGGIBILE =
    "'pendrino.ini' non leggibile.\nVerranno ripristinati i valori default.";
inline const char* const INCOMPLETO =
    "non ho trovato tutti i parametri in pendrino.ini.\n"
    "Verranno ripristinati i loro valori default.";

// The notice for an out-of-range value of each row, written out.
inline std::string ValoreErrato(int riga) {
  static const char* const DESCRIZIONE_E_LIMITI[NUMERO_PARAMETRI][2] = {
      {"\"periodi\".\ni valori ammessi sono compresi nell'intervallo ( 1 - 2).\n",
       "( 1 periodi )."},
      {"\"mosse primo periodo\".\ni valori ammessi sono compresi nell'intervallo ( 10 - 100).\n",
       "( 40 mosse )."},
      {"\"tempo primo periodo\".\ni valori ammessi sono compresi nell'intervallo ( 1 - 720).\n",
       "( 120 minuti )."},
      {"\"incremento primo periodo\".\ni valori ammessi sono compresi nell'intervallo ( 0 - "
       "600).\n",
       "( 0 secondi )."},
      {"\"tempo secondo periodo\".\ni valori ammessi sono compresi nell'intervallo ( 1 - 720).\n",
       "( 30 minuti )."},
      {"\"incremento secondo periodo\".\ni valori ammessi sono compresi nell'intervallo ( 0 - "
       "600).\n",
       "( 0 secondi )."},
      {"\"Aggiornamento automatico a schermo del tempo in moto\".\ni valori ammessi sono compresi "
       "nell'intervallo ( 0 - 1).\n",
       "( 1 valore booleano )."},
      {"\"primo allarme\".\ni valori ammessi sono compresi nell'intervallo ( 0 - 720).\n",
       "( 15 minuti )."},
      {"\"secondo allarme\".\ni valori ammessi sono compresi nell'intervallo ( 0 - 720).\n",
       "( 30 minuti )."},
      {"\"terzo allarme\".\ni valori ammessi sono compresi nell'intervallo ( 0 - 720).\n",
       "( 60 minuti )."},
      {"\"quarto allarme\".\ni valori ammessi sono compresi nell'intervallo ( 0 - 720).\n",
       "( 90 minuti )."},
      {"\"quinto allarme\".\ni valori ammessi sono compresi nell'intervallo ( 0 - 720).\n",
       "( 120 minuti )."},
  };
  return std::string("Errore in pendrino.ini: - valore non valido per ") +
         DESCRIZIONE_E_LIMITI[riga][0] + "Verra' ripristinato il suo valore default " +
         DESCRIZIONE_E_LIMITI[riga][1];
}

// The default file in POSIX form with the setting lines of the given keys
// carrying other values, or dropped when `togliere` names them.
inline std::string FileCon(std::initializer_list<std::pair<const char*, int32_t>> valori,
                           std::initializer_list<const char*> togliere = {}) {
  std::string file = FILE_DEFAULT;
  for (const auto& [chiave, valore] : valori) {
    const std::string inizio = std::string("$\t") + chiave + "\t";
    const size_t dove = file.find(inizio);
    if (dove == std::string::npos) {
      ADD_FAILURE() << "no line for " << chiave;
      continue;
    }
    const size_t fine = file.find('\n', dove);
    file.replace(dove, fine - dove, inizio + std::to_string(valore));
  }
  for (const char* chiave : togliere) {
    const size_t dove = file.find(std::string("$\t") + chiave + "\t");
    if (dove == std::string::npos) {
      ADD_FAILURE() << "no line for " << chiave;
      continue;
    }
    file.erase(dove, file.find('\n', dove) + 1 - dove);
  }
  return file;
}

inline std::vector<int32_t> Valori() {
  std::vector<int32_t> valori;
  for (const RigaIni& riga : ParametroIni) valori.push_back(riga.valore);
  return valori;
}

inline std::vector<int32_t> ValoriCon(std::initializer_list<std::pair<int, int32_t>> cambiati) {
  std::vector<int32_t> valori(VALORI_DEFAULT, VALORI_DEFAULT + NUMERO_PARAMETRI);
  for (const auto& [riga, valore] : cambiati) valori[size_t(riga)] = valore;
  return valori;
}

// The texts of the boxes shown so far; each must be a notice titled
// "Attenzione!" with the information icon and an OK button.
inline std::vector<std::string> Avvisi() {
  using namespace piattaforma::win32;
  std::vector<std::string> testi;
  for (const memoria::Finestra& f : memoria::Finestre()) {
    EXPECT_EQ(f.titolo, "Attenzione!") << f.testo;
    EXPECT_EQ(f.stile, unsigned(MB_OK | MB_ICONINFORMATION)) << f.testo;
    testi.push_back(f.testo);
  }
  return testi;
}

// Every value away from its default, so that a reset shows.
inline void ValoriNonDefault() {
  for (RigaIni& riga : ParametroIni) riga.valore = riga.massimo;
}

// Reads from an exactly sized heap copy, so that a read past the end is an
// AddressSanitizer error.
inline EsitoIni LeggiCopia(const std::string& testo) {
  std::unique_ptr<char[]> copia(new char[testo.size() ? testo.size() : 1]);
  if (!testo.empty()) std::memcpy(copia.get(), testo.data(), testo.size());
  return LeggiTestoIni(copia.get(), testo.size());
}

}  // namespace ini

class AmbienteParametri : public ::testing::Test {
 protected:
  void SetUp() override {
    memoria::Azzera();
    SvuotaMessaggio();
    InstallaDopoFinestra(nullptr);
    DefaultIni();
  }
};
