#include "messaggi/messaggi.h"

#include "messaggi/toni.h"
#include "piattaforma/piattaforma.h"
#include "testo/composizione.h"

using namespace piattaforma::win32;

char messaggio[DIMENSIONE_MESSAGGIO];
uint32_t InMessaggio;

const char* const StringaColore[2] = {"bianco", "nero"};
const char* const TitoloFinestre = "Attenzione!";

namespace {

void (*DopoFinestra)();
void (*PrimaDellaFinestra)();
void (*FinestraAperta)(const char* testo);
// messaggio as the composer sees it; InMessaggio follows what it wrote.
Composizione Composto(messaggio, DIMENSIONE_MESSAGGIO);
}  // namespace

void SvuotaMessaggio() {
  Composto.Svuota();
  InMessaggio = 0;
}

void AggiungiCarattere(char carattere) {
  Composto.Carattere(carattere);
  InMessaggio = uint32_t(Composto.Scritti());
}

void AggiungiTesto(const char* testo) {
  Composto.Testo(testo);
  InMessaggio = uint32_t(Composto.Scritti());
}

void AggiungiNumero(int64_t numero) {
  Composto.Numero(numero);
  InMessaggio = uint32_t(Composto.Scritti());
}

int TestoDelNumero(int64_t numero, char* testo) {
  Composizione c(testo, 21);
  c.Numero(numero);
  return int(c.Scritti());
}

void Avvisa(const char* testo) { Domanda(testo, MB_OK | MB_ICONINFORMATION); }

int Domanda(const char* testo, unsigned stile) {
  if (PrimaDellaFinestra) PrimaDellaFinestra();
  if (FinestraAperta) FinestraAperta(testo);
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
void InstallaFinestraAperta(void (*aperta)(const char* testo)) { FinestraAperta = aperta; }
