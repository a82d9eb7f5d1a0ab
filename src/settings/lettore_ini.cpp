// The reading of a settings file: the reader fed in pieces, the whole file, a
// text in memory.
#include "settings/lettore_ini.h"

#include <cstdint>
#include <cstring>

#include "messaggi/messaggi.h"
#include "piattaforma/piattaforma.h"

namespace {

// scanf's white space in the C locale.
constexpr bool Spazio(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}
constexpr bool Cifra(char c) { return c >= '0' && c <= '9'; }

// The magnitude of the most negative 32-bit value: beyond it no sign helps.
constexpr uint64_t MODULO_MASSIMO = uint64_t(INT32_MAX) + 1;

int CercaChiave(const TabellaIni& tabella, const char* chiave, size_t lunghezza) {
  for (int riga = 0; riga < tabella.numero; ++riga) {
    const char* nota = tabella.righe[riga].chiave;
    if (std::strlen(nota) == lunghezza && std::memcmp(nota, chiave, lunghezza) == 0) return riga;
  }
  return -1;
}

int CercaTesto(const TabellaIni& tabella, const char* chiave, size_t lunghezza) {
  for (int riga = 0; riga < tabella.numero_testi; ++riga) {
    const char* nota = tabella.testi[riga].chiave;
    if (std::strlen(nota) == lunghezza && std::memcmp(nota, chiave, lunghezza) == 0) return riga;
  }
  return -1;
}

constexpr bool FineRiga(char c) { return c == '\n' || c == '\r'; }

}  // namespace

void LettoreIni::Avvia(const TabellaIni& tabella) {
  DefaultTabella(tabella);
  *this = LettoreIni{};
  tabella_ = &tabella;
}

bool LettoreIni::Leggi(const char* testo, size_t lunghezza) {
  for (size_t i = 0; i < lunghezza && stato_ != Stato::Fermo; ++i) Carattere(testo[i]);
  return stato_ != Stato::Fermo;
}

void LettoreIni::Carattere(char c) {
  switch (stato_) {
    case Stato::Fuori:
      if (c == '$') stato_ = Stato::PrimaDellaChiave;
      return;
    case Stato::PrimaDellaChiave:
      if (Spazio(c)) return;
      lunghezza_chiave_ = 0;
      stato_ = Stato::Chiave;
      [[fallthrough]];
    case Stato::Chiave:
      if (Spazio(c)) {
        ChiaveLetta();
        if (stato_ == Stato::PrimaDelTesto && FineRiga(c)) TestoLetto();
      } else if (lunghezza_chiave_ == sizeof chiave_ - 1) {
        // Longer than any field can hold: no key can match it.
        Ferma();
      } else {
        chiave_[lunghezza_chiave_++] = c;
      }
      return;
    case Stato::PrimaDelNumero:
      if (Spazio(c)) return;
      negativo_ = c == '-';
      troppo_grande_ = false;
      modulo_ = 0;
      if (c == '+' || c == '-') {
        stato_ = Stato::Segno;
        return;
      }
      [[fallthrough]];
    case Stato::Segno:
      if (!Cifra(c)) {
        NumeroLetto(false);
        // As scanf, the character that ended the setting is read again.
        if (c == '$') stato_ = Stato::PrimaDellaChiave;
        return;
      }
      stato_ = Stato::Cifre;
      [[fallthrough]];
    case Stato::Cifre:
      if (!Cifra(c)) {
        NumeroLetto(true);
        if (c == '$') stato_ = Stato::PrimaDellaChiave;
        return;
      }
      if (!troppo_grande_) {
        modulo_ = modulo_ * 10 + uint64_t(c - '0');
        troppo_grande_ = modulo_ > MODULO_MASSIMO;
      }
      return;
    case Stato::PrimaDelTesto:
      if (c == ' ' || c == '\t') return;
      lunghezza_testo_ = 0;
      stato_ = Stato::Testo;
      [[fallthrough]];
    case Stato::Testo:
      if (FineRiga(c)) {
        TestoLetto();
      } else if (lunghezza_testo_ + 1 < sizeof testo_) {
        testo_[lunghezza_testo_++] = c;
      }
      return;
    case Stato::Fermo:
      return;
  }
}

void LettoreIni::ChiaveLetta() {
  riga_ = CercaChiave(*tabella_, chiave_, lunghezza_chiave_);
  if (riga_ >= 0) {
    stato_ = Stato::PrimaDelNumero;
    return;
  }
  riga_testo_ = CercaTesto(*tabella_, chiave_, lunghezza_chiave_);
  if (riga_testo_ < 0) {
    Ferma();
    return;
  }
  lunghezza_testo_ = 0;
  // The blank that ended the key may already be the line's end: no text.
  stato_ = Stato::PrimaDelTesto;
}

void LettoreIni::TestoLetto() {
  stato_ = Stato::Fuori;
  ImpostaTesto(tabella_->testi[riga_testo_], testo_, lunghezza_testo_);
}

void LettoreIni::NumeroLetto(bool leggibile) {
  stato_ = Stato::Fuori;
  trovate_ |= 1u << riga_;
  const int64_t valore = negativo_ ? -int64_t(modulo_) : int64_t(modulo_);
  RigaIni& riga = tabella_->righe[riga_];
  // A number that cannot be read, or does not fit 32 bits, is no value at all.
  if (leggibile && !troppo_grande_ && valore >= riga.minimo && valore <= riga.massimo) {
    riga.valore = int32_t(valore);
  } else {
    AvvisaValoreErrato(*tabella_, riga_);
  }
}

void LettoreIni::Ferma() {
  stato_ = Stato::Fermo;
  DefaultTabella(*tabella_);
}

EsitoIni LettoreIni::Fine() {
  switch (stato_) {
    case Stato::Chiave:
      ChiaveLetta();
      if (stato_ == Stato::Fermo) break;
      if (stato_ == Stato::PrimaDelTesto)
        TestoLetto();
      else
        NumeroLetto(false);
      break;
    case Stato::PrimaDelNumero:
    case Stato::Segno:
      NumeroLetto(false);
      break;
    case Stato::Cifre:
      NumeroLetto(true);
      break;
    case Stato::PrimaDelTesto:
    case Stato::Testo:
      TestoLetto();
      break;
    case Stato::Fuori:
    case Stato::PrimaDellaChiave:
    case Stato::Fermo:
      break;
  }
  if (stato_ == Stato::Fermo) return EsitoIni::ChiaveSconosciuta;
  stato_ = Stato::Fuori;
  const uint32_t tutte = (1u << tabella_->numero) - 1;
  return trovate_ == tutte ? EsitoIni::Completo : EsitoIni::Incompleto;
}

namespace {

// "<prima><file><dopo>" in a notice.
void AvvisaDelFile(const char* prima, const char* file, const char* dopo) {
  SvuotaMessaggio();
  AggiungiTesto(prima);
  AggiungiTesto(file);
  AggiungiTesto(dopo);
  Avvisa(messaggio);
}

}  // namespace

void LeggiTabella(const TabellaIni& tabella) {
  LettoreIni lettore;
  lettore.Avvia(tabella);
  char blocco[4096];
  int64_t letti = piattaforma::LeggiFile(tabella.nome_file, 0, blocco, sizeof blocco);
  if (letti < 0) {
    AvvisaDelFile("Non ho trovato ", tabella.nome_file,
                  ".\nVerranno ripristinati i valori default.");
    ScriviTabella(tabella);
    return;
  }
  // A read error later on ends the text, as it ends a C stream.
  uint64_t posizione = 0;
  while (letti > 0 && size_t(letti) <= sizeof blocco && lettore.Leggi(blocco, size_t(letti))) {
    posizione += uint64_t(letti);
    letti = piattaforma::LeggiFile(tabella.nome_file, posizione, blocco, sizeof blocco);
  }
  switch (lettore.Fine()) {
    case EsitoIni::Completo:
      return;
    case EsitoIni::ChiaveSconosciuta:
      AvvisaDelFile("'", tabella.nome_file,
                    "' non leggibile.\nVerranno ripristinati i valori default.");
      break;
    case EsitoIni::Incompleto:
      AvvisaDelFile("non ho trovato tutti i parametri in ", tabella.nome_file,
                    ".\nVerranno ripristinati i loro valori default.");
      break;
  }
  ScriviTabella(tabella);
}

void LeggiIni() { LeggiTabella(TabellaParametri); }

EsitoIni LeggiTestoTabella(const TabellaIni& tabella, const char* testo, size_t lunghezza) {
  LettoreIni lettore;
  lettore.Avvia(tabella);
  if (testo) lettore.Leggi(testo, lunghezza);
  return lettore.Fine();
}

EsitoIni LeggiTestoIni(const char* testo, size_t lunghezza) {
  return LeggiTestoTabella(TabellaParametri, testo, lunghezza);
}
