// The settings table and the writing of pendrino.ini.
#include "settings/parametri.h"

#include <cstring>

#include "messaggi/messaggi.h"
#include "piattaforma/piattaforma.h"
#include "testo/composizione.h"

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
const TabellaIni TabellaParametri = {NomeFileIni, ParametroIni, NUMERO_PARAMETRI, nullptr, 0};

RigaIni PreferenzaIni[NUMERO_PREFERENZE] = {
    {"lettore_di_schermo", "lettore di schermo", "valore booleano", 0, 0, 0, 1},
    {"voce", "voce del programma", "valore booleano", 0, 0, 0, 1},
};
const char* const NomeFilePreferenze = "preferenze.ini";
RigaTestoIni NomeIni[NUMERO_NOMI] = {
    {"bianco", "nome del bianco", ""},
    {"nero", "nome del nero", ""},
    {"evento", "evento", ""},
    {"luogo", "luogo", ""},
    {"turno", "turno", ""},
};
const TabellaIni TabellaPreferenze = {NomeFilePreferenze, PreferenzaIni, NUMERO_PREFERENZE, NomeIni,
                                      NUMERO_NOMI};

namespace {

// Blocks of at most about 220 bytes each (twelve in pendrino.ini); the line
// ends are the platform's, put in as the file is written.
char TestoIni[8192];

}  // namespace

void ImpostaParametro(int riga, int32_t valore) {
  if (riga < 0 || riga >= NUMERO_PARAMETRI) return;
  ParametroIni[riga].valore = valore;
}

void ImpostaPreferenza(int riga, int32_t valore) {
  if (riga < 0 || riga >= NUMERO_PREFERENZE) return;
  PreferenzaIni[riga].valore = valore;
}

void ImpostaTesto(RigaTestoIni& riga, const char* testo, size_t lunghezza) {
  char* nome = riga.testo;
  size_t n = 0;
  for (; n < lunghezza && n + 1 < LUNGHEZZA_TESTO_INI; ++n) {
    const unsigned char c = static_cast<unsigned char>(testo[n]);
    if (c < 0x20 || c == 0x7F) break;
    nome[n] = char(c);
  }
  // A name cut short loses the character it cut in two.
  if (n < lunghezza && n + 1 == LUNGHEZZA_TESTO_INI) {
    while (n > 0 && (static_cast<unsigned char>(nome[n - 1]) & 0xC0) == 0x80) --n;
    if (n > 0 && static_cast<unsigned char>(nome[n - 1]) >= 0xC0) --n;
  }
  // Blanks at the end are nobody's name.
  while (n > 0 && nome[n - 1] == ' ') --n;
  nome[n] = 0;
}

void ImpostaNome(int riga, const char* testo) {
  if (riga < 0 || riga >= NUMERO_NOMI || !testo) return;
  ImpostaTesto(NomeIni[riga], testo, std::strlen(testo));
}

void DefaultTabella(const TabellaIni& tabella) {
  for (int r = 0; r < tabella.numero; ++r)
    tabella.righe[r].valore = tabella.righe[r].valore_default;
  for (int r = 0; r < tabella.numero_testi; ++r) tabella.testi[r].testo[0] = 0;
}

void DefaultIni() { DefaultTabella(TabellaParametri); }

void ScriviIni() { ScriviTabella(TabellaParametri); }

void ScriviTabella(const TabellaIni& tabella) {
  Composizione testo(TestoIni, sizeof TestoIni);
  for (int r = 0; r < tabella.numero; ++r) {
    const RigaIni& riga = tabella.righe[r];
    testo.Formato("\n%s ", riga.descrizione);
    testo.Formato("(%s) ", riga.unita);
    testo.Formato("min: %d ", int(riga.minimo));
    testo.Formato("max: %d ", int(riga.massimo));
    testo.Formato("default: %d\n", int(riga.valore_default));
    testo.Formato("$\t%s\t", riga.chiave);
    testo.Formato("%d\n", int(riga.valore));
  }
  for (int r = 0; r < tabella.numero_testi; ++r) {
    const RigaTestoIni& riga = tabella.testi[r];
    testo.Formato("\n%s (testo, anche vuoto)\n", riga.descrizione);
    testo.Formato("$\t%s\t", riga.chiave);
    testo.Formato("%s\n", riga.testo);
  }
  // Better the old file than a cut one; a failed write is not reported.
  if (!testo.Troncato())
    piattaforma::SostituisciFileDiTesto(tabella.nome_file, TestoIni, testo.Scritti());
}

void AggiungiIntervallo(const RigaIni& riga) {
  AggiungiTesto("i valori ammessi sono compresi nell'intervallo ");
  AggiungiTesto("( ");
  AggiungiNumero(riga.minimo);
  AggiungiTesto(" - ");
  AggiungiNumero(riga.massimo);
  AggiungiTesto(").\n");
}

void AvisaValoreIniErrato(int indice) { AvvisaValoreErrato(TabellaParametri, indice); }

void AvvisaValoreErrato(const TabellaIni& tabella, int indice) {
  if (indice < 0 || indice >= tabella.numero) return;
  const RigaIni& riga = tabella.righe[indice];
  SvuotaMessaggio();
  AggiungiTesto("Errore in ");
  AggiungiTesto(tabella.nome_file);
  AggiungiTesto(": - valore non valido per ");
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
