// The platform in memory, for tests: nothing here touches a terminal.
#include "piattaforma/memoria/memoria.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <deque>
#include <limits>
#include <map>
#include <set>
#include <utility>

#include "piattaforma/errore_file.h"
#include "piattaforma/testo.h"

namespace memoria {

namespace {

using piattaforma::COLONNE_SCHERMO;
using piattaforma::RIGHE_SCHERMO;

struct Griglia {
  uint32_t cella[RIGHE_SCHERMO][COLONNE_SCHERMO];
  void Metti(int x, int y, uint32_t c) { cella[y][x] = c; }
  void Scorri() {
    std::memmove(cella[0], cella[1], sizeof cella - sizeof cella[0]);
    for (auto& c : cella[RIGHE_SCHERMO - 1]) c = ' ';
  }
  void Svuota() {
    for (auto& riga : cella)
      for (auto& c : riga) c = ' ';
  }
};

struct Stato {
  Griglia griglia;
  int x = 0, y = 0;
  std::string titolo, scritto;
  bool aperta = false, dimensionata = false;
  std::deque<INPUT_RECORD> eventi;
  struct Risposta {
    int risposta, battiti;
  };
  std::deque<Risposta> risposte;
  void (*battito)() = nullptr;
  size_t battiti = 0;
  std::vector<Finestra> finestre;
  std::vector<Tono> toni;
  bool voce_disponibile = false, voce_aperta = false;
  std::vector<Detto> detti;
  size_t silenzi = 0;
  std::vector<int64_t> attese;
  std::vector<std::string> comandi;
  uint64_t millisecondi = 0;
  piattaforma::DataOraUTC ora{2000, 1, 1, 0, 0, 0};
  std::map<std::string, std::string> file;
  size_t capienza_file = std::numeric_limits<size_t>::max();
  bool sola_lettura = false;
  size_t scritture = 0;
  std::set<std::string> bloccati_altrove, bloccati_qui;
  std::map<std::string, piattaforma::ErroreFile> guasti;
  piattaforma::PoliticaInterfaccia politica;
  bool tasti_con_prefissi = false;
};

Stato& S() {
  static Stato stato = [] {
    Stato s;
    s.griglia.Svuota();
    return s;
  }();
  return stato;
}

bool SulloSchermo(int x, int y) {
  return x >= 0 && x < COLONNE_SCHERMO && y >= 0 && y < RIGHE_SCHERMO;
}

size_t ByteUsati() {
  size_t usati = 0;
  for (const auto& [nome, contenuto] : S().file) usati += contenuto.size();
  return usati;
}

size_t ByteLiberi() {
  const size_t usati = ByteUsati();
  return usati < S().capienza_file ? S().capienza_file - usati : 0;
}

bool NomeValido(const char* nome) { return nome != nullptr && nome[0] != 0; }

using piattaforma::ErroreFile;

// The fault planted on `nome`, Nessuno when it is sound.
ErroreFile Guasto(const char* nome) {
  const auto trovato = S().guasti.find(nome);
  return trovato == S().guasti.end() ? ErroreFile::Nessuno : trovato->second;
}

// Why a call that changes `nome` cannot even start: an unusable name, a
// planted fault, a read-only disk; Nessuno when it may go on.
ErroreFile Ostacolo(const char* nome) {
  if (!NomeValido(nome)) return ErroreFile::Altro;
  if (Guasto(nome) != ErroreFile::Nessuno) return Guasto(nome);
  if (S().sola_lettura) return ErroreFile::Permesso;
  return ErroreFile::Nessuno;
}

bool Fallisce(ErroreFile motivo) { return piattaforma::EsitoFile(false, motivo); }

}  // namespace

void Azzera() {
  S() = Stato{};
  S().griglia.Svuota();
  piattaforma::ImpostaErroreFile(ErroreFile::Nessuno);
}

char Cella(int x, int y) {
  if (!SulloSchermo(x, y)) return 0;
  const uint32_t c = S().griglia.cella[y][x];
  return c < 0x100 ? static_cast<char>(c) : '?';
}

std::string Riga(int y) {
  std::string riga;
  if (y < 0 || y >= RIGHE_SCHERMO) return riga;
  char utf8[4];
  for (uint32_t c : S().griglia.cella[y]) riga.append(utf8, piattaforma::CodificaUtf8(c, utf8));
  return riga;
}

int CursoreX() { return S().x; }
int CursoreY() { return S().y; }
std::string Titolo() { return S().titolo; }
bool ConsoleAperta() { return S().aperta; }
bool FinestraDimensionata() { return S().dimensionata; }
const std::string& Scritto() { return S().scritto; }

void AccodaTasto(WORD codice_virtuale, DWORD stato_controllo, char carattere, bool giu,
                 WORD ripetizioni) {
  INPUT_RECORD evento{};
  evento.EventType = KEY_EVENT;
  evento.Event.KeyEvent.bKeyDown = giu ? 1 : 0;
  evento.Event.KeyEvent.wRepeatCount = ripetizioni;
  evento.Event.KeyEvent.wVirtualKeyCode = codice_virtuale;
  evento.Event.KeyEvent.uChar.UnicodeChar = 0;
  evento.Event.KeyEvent.uChar.AsciiChar = carattere;
  evento.Event.KeyEvent.dwControlKeyState = stato_controllo;
  S().eventi.push_back(evento);
}

void AccodaEvento(const INPUT_RECORD& evento) { S().eventi.push_back(evento); }
size_t TastiInCoda() { return S().eventi.size(); }

void AccodaRisposta(int risposta, int battiti) { S().risposte.push_back({risposta, battiti}); }
void (*BattitoInstallato())() { return S().battito; }
size_t BattitiEseguiti() { return S().battiti; }
const std::vector<Finestra>& Finestre() { return S().finestre; }
const std::vector<Tono>& Toni() { return S().toni; }

void ImpostaVoceDisponibile(bool disponibile) { S().voce_disponibile = disponibile; }
bool VoceAperta() { return S().voce_aperta; }
const std::vector<Detto>& Detti() { return S().detti; }
size_t Silenzi() { return S().silenzi; }

void ImpostaMillisecondi(uint64_t ms) { S().millisecondi = ms; }
void AvanzaMillisecondi(uint64_t ms) { S().millisecondi += ms; }
void ImpostaOraUTC(piattaforma::DataOraUTC ora) { S().ora = ora; }
const std::vector<int64_t>& Attese() { return S().attese; }
const std::vector<std::string>& ComandiVisualizzatore() { return S().comandi; }

void ImpostaFile(const std::string& nome, const std::string& contenuto) {
  S().file[nome] = contenuto;
}
bool EsisteFile(const std::string& nome) { return S().file.count(nome) > 0; }
std::string ContenutoFile(const std::string& nome) {
  const auto trovato = S().file.find(nome);
  return trovato == S().file.end() ? std::string() : trovato->second;
}
void RimuoviFile(const std::string& nome) { S().file.erase(nome); }
void ImpostaCapienzaFile(size_t byte) { S().capienza_file = byte; }
void ImpostaSolaLettura(bool sola_lettura) { S().sola_lettura = sola_lettura; }
size_t ScrittureFile() { return S().scritture; }
void ImpostaFileBloccato(const std::string& nome, bool bloccato) {
  if (bloccato) {
    S().bloccati_altrove.insert(nome);
    S().file.emplace(nome, std::string());
  } else {
    S().bloccati_altrove.erase(nome);
  }
}
bool BloccoPreso(const std::string& nome) { return S().bloccati_qui.count(nome) > 0; }
void ImpostaGuastoFile(const std::string& nome, piattaforma::ErroreFile motivo) {
  if (motivo == ErroreFile::Nessuno)
    S().guasti.erase(nome);
  else
    S().guasti[nome] = motivo;
}
void ImpostaTastiConPrefissi(bool prefissi) { S().tasti_con_prefissi = prefissi; }

}  // namespace memoria

namespace piattaforma {

using memoria::S;

void ApriConsole() { S().aperta = true; }
void ChiudiConsole() { S().aperta = false; }
void ImpostaTitolo(const char* titolo) { S().titolo = titolo ? titolo : ""; }
void DimensionaFinestra() { S().dimensionata = true; }

void PosizionaCursore(int x, int y) {
  if (!memoria::SulloSchermo(x, y)) return;
  S().x = x;
  S().y = y;
}

void Scrivi(const char* testo, size_t lunghezza) {
  if (testo == nullptr) return;
  S().scritto.append(testo, lunghezza);
  ScriviSuSchermo(S().griglia, S().x, S().y, testo, lunghezza);
}

uint32_t EventiInAttesa() { return static_cast<uint32_t>(S().eventi.size()); }

uint32_t LeggiEventi(INPUT_RECORD* eventi, uint32_t massimo) {
  uint32_t letti = 0;
  if (eventi == nullptr) return 0;
  while (letti < massimo && !S().eventi.empty()) {
    eventi[letti++] = S().eventi.front();
    S().eventi.pop_front();
  }
  return letti;
}

void AttendiEventi(int64_t millisecondi) {
  S().attese.push_back(millisecondi);
  if (S().eventi.empty() && millisecondi > 0)
    S().millisecondi += static_cast<uint64_t>(millisecondi);
}

int FinestraMessaggio(const char* testo, const char* titolo, unsigned stile) {
  int risposta = RispostaPredefinita(stile);
  int battiti = 0;
  if (!S().risposte.empty()) {
    risposta = S().risposte.front().risposta;
    battiti = S().risposte.front().battiti;
    S().risposte.pop_front();
  }
  // Recorded first: a test can see the box while its heartbeats run.
  S().finestre.push_back({testo ? testo : "", titolo ? titolo : "", stile, risposta});
  for (int i = 0; i < battiti; ++i) {
    S().millisecondi += 1000;
    if (S().battito) {
      ++S().battiti;
      S().battito();
    }
  }
  return risposta;
}

void ImpostaBattito(void (*battito)()) { S().battito = battito; }

void Suona(uint32_t frequenza, uint32_t durata) { S().toni.push_back({frequenza, durata}); }

bool ApriVoce() {
  S().voce_aperta = S().voce_disponibile;
  return S().voce_aperta;
}

void Parla(const char* testo, PrioritaVoce priorita) {
  if (S().voce_aperta && testo) S().detti.push_back({testo, priorita});
}

void ZittisciVoce() { ++S().silenzi; }

void ChiudiVoce() { S().voce_aperta = false; }

uint64_t Millisecondi() { return S().millisecondi; }
DataOraUTC OraUTC() { return S().ora; }

void ComponiComandoVisualizzatore(char* destinazione, size_t dimensione, const char* file) {
  ComponiPerIntero(destinazione, dimensione, "start %s", file ? file : "");
}

void EseguiComandoVisualizzatore(const char* comando) {
  if (comando == nullptr || comando[0] == 0) return;
  S().comandi.emplace_back(comando);
}

bool SostituisciFile(const char* nome, const char* dati, size_t lunghezza) {
  ++S().scritture;
  if (dati == nullptr && lunghezza > 0) return memoria::Fallisce(ErroreFile::Altro);
  if (const ErroreFile ostacolo = memoria::Ostacolo(nome); ostacolo != ErroreFile::Nessuno)
    return memoria::Fallisce(ostacolo);
  if (lunghezza > memoria::ByteLiberi()) return memoria::Fallisce(ErroreFile::DiscoPieno);
  S().file[nome].assign(dati ? dati : "", lunghezza);
  return EsitoFile(true, ErroreFile::Nessuno);
}

int64_t LeggiFile(const char* nome, uint64_t inizio, char* destinazione, size_t capienza) {
  if (!memoria::NomeValido(nome) || (destinazione == nullptr && capienza > 0)) {
    ImpostaErroreFile(ErroreFile::Altro);
    return -1;
  }
  const auto trovato = S().file.find(nome);
  const ErroreFile guasto = memoria::Guasto(nome);
  if (trovato == S().file.end() || guasto != ErroreFile::Nessuno) {
    ImpostaErroreFile(guasto != ErroreFile::Nessuno ? guasto : ErroreFile::Altro);
    return -1;
  }
  ImpostaErroreFile(ErroreFile::Nessuno);
  const std::string& contenuto = trovato->second;
  if (inizio >= contenuto.size()) return 0;
  const size_t da = static_cast<size_t>(inizio);
  const size_t letti = std::min(capienza, contenuto.size() - da);
  std::memcpy(destinazione, contenuto.data() + da, letti);
  return static_cast<int64_t>(letti);
}

bool AccodaAlFile(const char* nome, const char* dati, size_t lunghezza) {
  ++S().scritture;
  if (dati == nullptr && lunghezza > 0) return memoria::Fallisce(ErroreFile::Altro);
  if (const ErroreFile ostacolo = memoria::Ostacolo(nome); ostacolo != ErroreFile::Nessuno)
    return memoria::Fallisce(ostacolo);
  const size_t scritti = std::min(lunghezza, memoria::ByteLiberi());
  S().file[nome].append(dati ? dati : "", scritti);
  return EsitoFile(scritti == lunghezza, ErroreFile::DiscoPieno);
}

bool RinominaFile(const char* vecchio, const char* nuovo) {
  if (const ErroreFile ostacolo = memoria::Ostacolo(vecchio); ostacolo != ErroreFile::Nessuno)
    return memoria::Fallisce(ostacolo);
  if (const ErroreFile ostacolo = memoria::Ostacolo(nuovo); ostacolo != ErroreFile::Nessuno)
    return memoria::Fallisce(ostacolo);
  const auto trovato = S().file.find(vecchio);
  if (trovato == S().file.end()) return memoria::Fallisce(ErroreFile::Altro);
  if (trovato->first != nuovo) {
    std::string contenuto = std::move(trovato->second);
    S().file.erase(trovato);
    S().file[nuovo] = std::move(contenuto);
  }
  return EsitoFile(true, ErroreFile::Nessuno);
}

bool EliminaFile(const char* nome) {
  if (const ErroreFile ostacolo = memoria::Ostacolo(nome); ostacolo != ErroreFile::Nessuno)
    return memoria::Fallisce(ostacolo);
  return EsitoFile(S().file.erase(nome) > 0, ErroreFile::Altro);
}

bool BloccaFile(const char* nome) {
  if (!memoria::NomeValido(nome)) return true;
  if (S().bloccati_altrove.count(nome)) return false;
  if (!S().file.count(nome)) {
    if (S().sola_lettura) return true;
    S().file.emplace(nome, std::string());
  }
  S().bloccati_qui.insert(nome);
  return true;
}

void ImpostaPoliticaInterfaccia(const PoliticaInterfaccia& politica) { S().politica = politica; }
const PoliticaInterfaccia& PoliticaInterfacciaAttuale() { return S().politica; }

bool TastiConPrefissi() { return S().tasti_con_prefissi; }

void TerminaProcesso(unsigned codice) { throw memoria::UscitaProcesso{codice}; }

}  // namespace piattaforma
