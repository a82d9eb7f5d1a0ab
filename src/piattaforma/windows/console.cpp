// The Windows console: the calls the program was designed around.
#include "piattaforma/windows/console.h"

#include <cstdio>
#include <cstdlib>

#include "piattaforma/piattaforma.h"
#include "piattaforma/testo.h"

HANDLE hStdin = nullptr;
HANDLE hStdout = nullptr;
HWND hWindow = nullptr;
DWORD fdwSaveOldMode = 0;

namespace piattaforma {

namespace {

// ENABLE_WINDOW_INPUT | ENABLE_MOUSE_INPUT: no processed input, no line
// input, no echo, so Ctrl+C, Enter and Backspace arrive as key records.
constexpr DWORD MODO_INGRESSO = 24;

// Kept for the program to read back: MessageBoxA answers with its own keys
// and there are no sticky prefixes to sound.
PoliticaInterfaccia politica;

void (*battito_installato)() = nullptr;

// MessageBoxA's own modal loop dispatches the thread timer's WM_TIMER here.
VOID CALLBACK Battito(HWND, UINT, UINT_PTR, DWORD) {
  if (battito_installato) battito_installato();
}

}  // namespace

void ImpostaBattito(void (*battito)()) { battito_installato = battito; }

void ApriConsole() {
  hWindow = GetConsoleWindow();
  hStdin = GetStdHandle(STD_INPUT_HANDLE);
  hStdout = GetStdHandle(STD_OUTPUT_HANDLE);
  GetConsoleMode(hStdin, &fdwSaveOldMode);
  SetConsoleMode(hStdin, MODO_INGRESSO);
}

void ChiudiConsole() {
  std::fflush(stdout);
  SetConsoleMode(hStdin, fdwSaveOldMode);
}

void ImpostaTitolo(const char* titolo) { SetConsoleTitleA(titolo ? titolo : ""); }

void DimensionaFinestra() {
  SMALL_RECT finestra{0, 0, COLONNE_SCHERMO - 1, RIGHE_SCHERMO - 1};
  SetConsoleWindowInfo(hStdout, TRUE, &finestra);
}

void PosizionaCursore(int x, int y) {
  if (x < 0 || x >= COLONNE_SCHERMO || y < 0 || y >= RIGHE_SCHERMO) return;
  std::fflush(stdout);
  SetConsoleCursorPosition(hStdout, COORD{static_cast<SHORT>(x), static_cast<SHORT>(y)});
}

void Scrivi(const char* testo, size_t lunghezza) {
  if (testo == nullptr || lunghezza == 0) return;
  std::fwrite(testo, 1, lunghezza, stdout);
}

uint32_t EventiInAttesa() {
  std::fflush(stdout);
  DWORD eventi = 0;
  if (!GetNumberOfConsoleInputEvents(hStdin, &eventi)) return 0;
  return eventi;
}

uint32_t LeggiEventi(INPUT_RECORD* eventi, uint32_t massimo) {
  if (eventi == nullptr || massimo == 0) return 0;
  DWORD letti = 0;
  if (!ReadConsoleInputA(hStdin, eventi, massimo, &letti)) return 0;
  return letti;
}

void AttendiEventi(int64_t millisecondi) {
  std::fflush(stdout);
  DWORD limite = INFINITE;
  if (millisecondi >= 0)
    limite = millisecondi >= INFINITE ? INFINITE - 1 : static_cast<DWORD>(millisecondi);
  WaitForSingleObject(hStdin, limite);
}

int FinestraMessaggio(const char* testo, const char* titolo, unsigned stile) {
  std::fflush(stdout);
  const UINT_PTR timer = battito_installato ? SetTimer(nullptr, 0, 1000, Battito) : 0;
  const int risposta = MessageBoxA(hWindow, testo ? testo : "", titolo ? titolo : "", stile);
  if (timer) KillTimer(nullptr, timer);
  return risposta;
}

void Suona(uint32_t frequenza, uint32_t durata) {
  std::fflush(stdout);
  // Frequencies above hearing are pauses: a sleep lasts the same everywhere,
  // while Beep refuses anything outside 37..32767 Hz at once and some
  // systems return from it early.
  if (frequenza < 37 || frequenza > 20000) {
    Sleep(durata);
    return;
  }
  Beep(frequenza, durata);
}

void ImpostaPoliticaInterfaccia(const PoliticaInterfaccia& nuova) { politica = nuova; }
const PoliticaInterfaccia& PoliticaInterfacciaAttuale() { return politica; }

uint64_t Millisecondi() { return GetTickCount64(); }

DataOraUTC OraUTC() {
  SYSTEMTIME ora;
  GetSystemTime(&ora);
  return {ora.wYear, ora.wMonth, ora.wDay, ora.wHour, ora.wMinute, ora.wSecond};
}

void ComponiComandoVisualizzatore(char* destinazione, size_t dimensione, const char* file) {
  ComponiPerIntero(destinazione, dimensione, "start %s", file ? file : "");
}

void EseguiComandoVisualizzatore(const char* comando) {
  if (comando == nullptr || comando[0] == 0) return;
  std::fflush(stdout);
  [[maybe_unused]] const int esito = std::system(comando);
}

void TerminaProcesso(unsigned codice) {
  std::fflush(nullptr);
  ExitProcess(codice);
}

}  // namespace piattaforma
