#include "messaggi/messaggi.h"

#include "messaggi/toni.h"
#include "piattaforma/piattaforma.h"

using namespace piattaforma::win32;

char messaggio[DIMENSIONE_MESSAGGIO];
uint32_t InMessaggio;

const char* const StringaColore[2] = {"bianco", "nero"};
const char* const TitoloFinestre = "Attenzione!";

void (*DopoFinestra)();
void (*PrimaDellaFinestra)();

// One byte is always kept for the terminating zero.

void SvuotaMessaggio() {
  InMessaggio = 0;
  messaggio[0] = 0;
}

void AggiungiCarattere(char carattere) {
  if (InMessaggio >= DIMENSIONE_MESSAGGIO - 1) return;
  messaggio[InMessaggio++] = carattere;
  messaggio[InMessaggio] = 0;
}

void AggiungiTesto(const char* testo) {
  while (*testo && InMessaggio < DIMENSIONE_MESSAGGIO - 1) messaggio[InMessaggio++] = *testo++;
  messaggio[InMessaggio] = 0;
}

int TestoDelNumero(int64_t numero, char* testo) {
  // Work on the magnitude as unsigned so that the most negative value has one.
  uint64_t resto = numero < 0 ? 0 - uint64_t(numero) : uint64_t(numero);
  char cifre[20];
  int n = 0, lunghezza = 0;
  do {
    cifre[n++] = char('0' + resto % 10);
    resto /= 10;
  } while (resto);
  if (numero < 0) testo[lunghezza++] = '-';
  while (n) testo[lunghezza++] = cifre[--n];
  testo[lunghezza] = 0;
  return lunghezza;
}

void AggiungiNumero(int64_t numero) {
  char testo[21];
  TestoDelNumero(numero, testo);
  AggiungiTesto(testo);
}

void Avvisa(const char* testo) { Domanda(testo, MB_OK | MB_ICONINFORMATION); }

int Domanda(const char* testo, unsigned stile) {
  if (PrimaDellaFinestra) PrimaDellaFinestra();
  const int risposta = piattaforma::FinestraMessaggio(testo, TitoloFinestre, stile);
  if (DopoFinestra) DopoFinestra();
  return risposta;
}

void Suona(Tono tono) {
  const SuonoDelTono suono = SuonoDi(tono);
  piattaforma::Suona(suono.frequenza, suono.durata);
}

void InstallaDopoFinestra(void (*dopo)()) { DopoFinestra = dopo; }
void InstallaPrimaDellaFinestra(void (*prima)()) { PrimaDellaFinestra = prima; }
