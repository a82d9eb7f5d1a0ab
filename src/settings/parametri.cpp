// The settings table and the writing of pendrino.ini.
#include "settings/parametri.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "messaggi/messaggi.h"
#include "piattaforma/piattaforma.h"

RigaIni ParametroIni[NUMERO_PARAMETRI] = {
    {"periodi", "periodi", "periodi", 1, 1, 1, 2},
    {"mosse_primo_periodo", "mosse primo periodo", "mosse", 40, 40, 10, 100},
    {"tempo_primo_periodo", "tempo primo periodo", "minuti", 120, 120, 1, 720},
    {"incremento_primo_periodo", "incremento primo periodo", "secondi", 0, 0, 0, 600},
    {"tempo_secondo_periodo", "tempo secondo periodo", "minuti", 30, 30, 1, 720},
    {"incremento_secondo_periodo", "incremento secondo periodo", "secondi", 0, 0, 0, 600},
    {"aggiornamento_automatico_a_schermo", "Aggiornamento automatico a schermo del tempo in moto",
     "valore booleano", 1, 1, 0, 1},
    {"allarme1", "primo allarme", "minuti", 15, 15, 0, 720},
    {"allarme2", "secondo allarme", "minuti", 30, 30, 0, 720},
    {"allarme3", "terzo allarme", "minuti", 60, 60, 0, 720},
    {"allarme4", "quarto allarme", "minuti", 90, 90, 0, 720},
    {"allarme5", "quinto allarme", "minuti", 120, 120, 0, 720},
};

const char* const NomeFileIni = "pendrino.ini";

namespace {

// The file is written as the platform's text mode writes it.
#ifdef _WIN32
constexpr char FINE_RIGA[] = "\r\n";
#else
constexpr char FINE_RIGA[] = "\n";
#endif

// Twelve blocks of at most about 220 bytes each, with CR LF line ends.
struct TestoIni {
  char byte[4096];
  size_t lunghezza = 0;
  bool traboccato = false;
};

#if defined(__GNUC__) || defined(__clang__)
__attribute__((format(printf, 2, 3)))
#endif
void Accoda(TestoIni& testo, const char* formato, ...) {
  char pezzo[160];
  va_list argomenti;
  va_start(argomenti, formato);
  const int n = std::vsnprintf(pezzo, sizeof pezzo, formato, argomenti);
  va_end(argomenti);
  if (n < 0 || size_t(n) >= sizeof pezzo) {
    testo.traboccato = true;
    return;
  }
  for (int i = 0; i < n; ++i) {
    const char* aggiunta = pezzo[i] == '\n' ? FINE_RIGA : &pezzo[i];
    const size_t quanti = pezzo[i] == '\n' ? sizeof FINE_RIGA - 1 : 1;
    if (testo.lunghezza + quanti > sizeof testo.byte) {
      testo.traboccato = true;
      return;
    }
    std::memcpy(testo.byte + testo.lunghezza, aggiunta, quanti);
    testo.lunghezza += quanti;
  }
}

}  // namespace

void ImpostaParametro(int riga, int32_t valore) {
  if (riga < 0 || riga >= NUMERO_PARAMETRI) return;
  ParametroIni[riga].valore = valore;
}

void DefaultIni() {
  for (RigaIni& riga : ParametroIni) riga.valore = riga.valore_default;
}

void ScriviIni() {
  static TestoIni testo;
  testo = TestoIni{};
  for (const RigaIni& riga : ParametroIni) {
    Accoda(testo, "\n%s ", riga.descrizione);
    Accoda(testo, "(%s) ", riga.unita);
    Accoda(testo, "min: %d ", int(riga.minimo));
    Accoda(testo, "max: %d ", int(riga.massimo));
    Accoda(testo, "default: %d\n", int(riga.valore_default));
    Accoda(testo, "$\t%s\t", riga.chiave);
    Accoda(testo, "%d\n", int(riga.valore));
  }
  // Better the old file than a cut one; a failed write is not reported.
  if (!testo.traboccato) piattaforma::SostituisciFile(NomeFileIni, testo.byte, testo.lunghezza);
}

void AggiungiIntervallo(const RigaIni& riga) {
  AggiungiTesto("i valori ammessi sono compresi nell'intervallo ");
  AggiungiTesto("( ");
  AggiungiNumero(riga.minimo);
  AggiungiTesto(" - ");
  AggiungiNumero(riga.massimo);
  AggiungiTesto(").\n");
}

void AvisaValoreIniErrato(int indice) {
  if (indice < 0 || indice >= NUMERO_PARAMETRI) return;
  const RigaIni& riga = ParametroIni[indice];
  SvuotaMessaggio();
  AggiungiTesto("Errore in pendrino.ini: - valore non valido per ");
  AggiungiTesto("\"");
  AggiungiTesto(riga.descrizione);
  AggiungiTesto("\".\n");
  AggiungiIntervallo(riga);
  AggiungiTesto("Verra' ripristinato il suo valore default ");
  AggiungiTesto("( ");
  AggiungiNumero(riga.valore_default);
  AggiungiTesto(" ");
  AggiungiTesto(riga.unita);
  AggiungiTesto(" ).");
  Avvisa(messaggio);
}
