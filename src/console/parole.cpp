#include "console/parole.h"

#include "board/mossa.h"
#include "board/posizione.h"
#include "moves/lato.h"

const char* const NomePezzo[6] = {"pedone", "cavallo", "alfiere", "torre", "donna", "re"};
const char* const NomePezzoPlurale[6] = {"pedoni", "cavalli", "alfieri", "torri", "donne", "re"};
const char* const NomeColore[2] = {"bianco", "nero"};
const char* const NomeColoreMaiuscolo[2] = {"Bianco", "Nero"};

namespace {

// The feminine of the colour, for the queen and the rook.
const char* const NomeColoreFemminile[2] = {"bianca", "nera"};

// "un'ora" / "3 ore": the singular spelled out, the rest in digits (the
// voice reads them as words).
void Quantita(Composizione& c, uint32_t n, const char* uno, const char* molti) {
  if (n == 1) {
    c.Testo(uno);
    return;
  }
  c.Numero(n);
  c.Carattere(' ');
  c.Testo(molti);
}

}  // namespace

void TempoInParole(Composizione& c, int32_t secondi) {
  if (secondi == 0) {
    c.Testo("zero secondi");
    return;
  }
  // The magnitude as unsigned, so that the most negative count has one.
  const uint32_t totale = secondi < 0 ? 0u - uint32_t(secondi) : uint32_t(secondi);
  if (secondi < 0) c.Testo("meno ");
  const uint32_t parte[3] = {totale / 3600, totale / 60 % 60, totale % 60};
  static const char* const uno[3] = {"un'ora", "un minuto", "un secondo"};
  static const char* const molti[3] = {"ore", "minuti", "secondi"};
  int presenti = 0;
  for (uint32_t p : parte) presenti += p != 0;
  // "a, b e c": commas between, "e" before the last.
  int dette = 0;
  for (int i = 0; i < 3; ++i) {
    if (parte[i] == 0) continue;
    if (dette > 0) c.Testo(dette == presenti - 1 ? " e " : ", ");
    Quantita(c, parte[i], uno[i], molti[i]);
    ++dette;
  }
}

void MossaInParole(Composizione& c, uint64_t mossa) {
  const uint64_t tipo = TipoMossa(mossa);
  if (tipo == ARROCCO_CORTO || tipo == ARROCCO_LUNGO) {
    c.Testo(tipo == ARROCCO_CORTO ? "arrocco corto" : "arrocco lungo");
    return;
  }
  if (tipo == MOSSA_NULLA || tipo >= NUMERO_TIPI_MOSSA) {
    c.Testo("nessuna mossa");
    return;
  }
  const DescrizioneTipo d = Descrivi(tipo);
  const bool enpassant = tipo == CATTURA_ENPASSANT;
  c.Testo(NomePezzo[enpassant ? PEDONE : d.pezzo]);
  c.Testo(" da ");
  c.Testo(NomeCasa(OrigineMossa(mossa)).testo);
  c.Testo(" in ");
  c.Testo(NomeCasa(DestinazioneMossa(mossa)).testo);
  if (enpassant) {
    c.Testo(", cattura pedone en passant");
  } else if (d.preso != NESSUNO) {
    c.Testo(", cattura ");
    c.Testo(NomePezzo[d.preso]);
  }
  if (d.promosso != NESSUNO) {
    c.Testo(", promosso a ");
    c.Testo(NomePezzo[d.promosso]);
  }
}

void ScaccoInParole(Composizione& c, const char* testo_mossa) {
  size_t n = 0;
  while (testo_mossa[n]) ++n;
  if (n == 0) return;
  if (testo_mossa[n - 1] == '#')
    c.Testo(", scaccomatto");
  else if (testo_mossa[n - 1] == '+')
    c.Testo(", scacco");
}

void PezzoInParole(Composizione& c, uint8_t codice) {
  if (!CodiceDiPezzo(codice)) {
    c.Testo("vuota");
    return;
  }
  const uint32_t tipo = TipoDelCodice(codice);
  const Colore colore = ColoreDelCodice(codice);
  c.Testo(NomePezzo[tipo]);
  c.Carattere(' ');
  c.Testo(tipo == DONNA || tipo == TORRE ? NomeColoreFemminile[colore] : NomeColore[colore]);
}

const char* MotivoErroreFile(piattaforma::ErroreFile errore) {
  switch (errore) {
    case piattaforma::ErroreFile::Permesso:
      return "scrittura non permessa";
    case piattaforma::ErroreFile::DiscoPieno:
      return "disco pieno";
    case piattaforma::ErroreFile::NonUnFile:
      return "al suo posto c'e' una cartella";
    default:
      return "impossibile scriverlo";
  }
}
