// The reader of a settings file's text (pendrino.ini, preferenze.ini), fed in
// pieces of any length, so that the file (read in blocks) and a text in
// memory go through the same steps and cannot disagree. Only the lines introduced by '$' carry
// data: a key word and a decimal number, each read as scanf reads "%s" and "%d";
// a text row's key is followed by its text, up to the end of the line.
#pragma once

#include <cstddef>
#include <cstdint>

#include "settings/parametri.h"

// What became of a text read: every row found, some missing, or stopped by a
// key that is no row's.
enum class EsitoIni { Completo, Incompleto, ChiaveSconosciuta };

// Loads a file into its table, with the notices for a missing, unreadable or
// incomplete file and for values out of range; a file missing, unreadable
// or incomplete is written anew.
void LeggiTabella(const TabellaIni& tabella);
void LeggiIni();  // pendrino.ini
// The reading of a file's text, without the file: sets the values found,
// notices each value out of range, and tells what became of the rest.
EsitoIni LeggiTestoTabella(const TabellaIni& tabella, const char* testo, size_t lunghezza);
EsitoIni LeggiTestoIni(const char* testo, size_t lunghezza);  // pendrino.ini's

class LettoreIni {
 public:
  // Before the first piece: every row of the table at its default, none
  // found yet.
  void Avvia(const TabellaIni& tabella = TabellaParametri);
  // The next piece of the text. False once an unknown key has stopped the
  // reading (the table is then back at its defaults); later pieces are ignored.
  bool Leggi(const char* testo, size_t lunghezza);
  // The end of the text: a setting cut short by it is completed first.
  EsitoIni Fine();

  // Rows found so far, bit r for row r.
  uint32_t Trovate() const { return trovate_; }

 private:
  enum class Stato {
    Fuori,
    PrimaDellaChiave,
    Chiave,
    PrimaDelNumero,
    Segno,
    Cifre,
    PrimaDelTesto,
    Testo,
    Fermo
  };

  void Carattere(char c);
  void ChiaveLetta();
  void NumeroLetto(bool leggibile);
  void TestoLetto();
  void Ferma();

  const TabellaIni* tabella_ = &TabellaParametri;
  Stato stato_ = Stato::Fuori;
  char chiave_[64] = {};
  size_t lunghezza_chiave_ = 0;
  int riga_ = 0;
  int riga_testo_ = -1;
  char testo_[LUNGHEZZA_TESTO_INI] = {};
  size_t lunghezza_testo_ = 0;
  bool negativo_ = false;
  bool troppo_grande_ = false;
  uint64_t modulo_ = 0;
  uint32_t trovate_ = 0;
};
