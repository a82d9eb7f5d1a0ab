#include "console/schermo.h"

#include <cstdio>
#include <cstring>

#include "board/posizione.h"
#include "clock/cadenza.h"
#include "clock/orologio.h"
#include "game/aggiudicazione.h"
#include "game/partita.h"
#include "messaggi/messaggi.h"
#include "piattaforma/piattaforma.h"
#include "settings/parametri.h"

using namespace piattaforma::win32;

void gotoxy(int16_t x, int16_t y) { piattaforma::PosizionaCursore(x, y); }

void StampaTesto(const char* testo) { piattaforma::Scrivi(testo, std::strlen(testo)); }

// `quanti` copies of one character, at most a screen line.
static void StampaRipetuto(char carattere, int quanti) {
  char riga[piattaforma::COLONNE_SCHERMO];
  if (quanti <= 0) return;
  if (quanti > piattaforma::COLONNE_SCHERMO) quanti = piattaforma::COLONNE_SCHERMO;
  std::memset(riga, carattere, size_t(quanti));
  piattaforma::Scrivi(riga, size_t(quanti));
}

// ---------------------------------------------------------------------------
// Header.

const char* const RigaDeiCrediti = "Pendrino 1.0 - il team di Pendrino";

static const char* const Cavallo[13] = {
    "    /\\^__",     "   //    \\",     "   |   0  \\_", "   |    \\__| ", "   |     \\",
    "   |      |",    "   |     /",      "   |     \\",   "   |      \\",   "   |       \\",
    "  ============", "  /          \\", nullptr,  // line 14 is the rule, drawn apart
};

// The banner's letters, five rows each, one character per two-column stroke:
// 'I' is "||", '/' is "//", '\\' is "\\\\", '.' is two spaces.
struct Lettera {
  const char* righe[5];
};
static constexpr Lettera LetteraP = {{"I\\.", "I.\\", "I./", "I/.", "I.."}};
static constexpr Lettera LetteraE = {{"./\\", "I..", "I/.", "I..", ".\\/"}};
static constexpr Lettera LetteraN = {{"I\\.I", "I\\.I", "I\\\\I", "I.\\I", "I.\\I"}};
static constexpr Lettera LetteraD = {{"I\\.", "I.\\", "I.I", "I./", "I/."}};
static constexpr Lettera LetteraR = {{"I\\.", "I.\\", "I./", "I\\.", "I.\\"}};
static constexpr Lettera LetteraI = {{"I", "I", "I", "I", "I"}};
static constexpr Lettera LetteraO = {{"./\\.", "/..\\", "I..I", "\\../", ".\\/."}};
static constexpr const Lettera* Insegna[] = {&LetteraP, &LetteraE, &LetteraN, &LetteraD,
                                             &LetteraR, &LetteraI, &LetteraN, &LetteraO};

constexpr int y_insegna = 4;
constexpr int x_insegna = 15;
constexpr int larghezza_insegna = 64;

static const char* Tratto(char codice) {
  switch (codice) {
    case 'I':
      return "||";
    case '/':
      return "//";
    case '\\':
      return "\\\\";
    default:
      return "  ";
  }
}

static void StampaCentratoNellInsegna(const char* testo, int16_t riga) {
  gotoxy(int16_t((larghezza_insegna - int(std::strlen(testo))) / 2 + x_insegna), riga);
  StampaTesto(testo);
}

bool ProfiloLettoreDiSchermo() { return Preferenza(PREFERENZA_LETTORE_DI_SCHERMO) == 1; }

void DisegnaIntestazione() {
  piattaforma::DimensionaFinestra();
  // A screen reader would read the drawing as strokes: only the words.
  if (ProfiloLettoreDiSchermo()) {
    StampaCentratoNellInsegna("Orologio per gli scacchi", 11);
    StampaCentratoNellInsegna(RigaDeiCrediti, 12);
    return;
  }
  for (int16_t i = 0; Cavallo[i]; ++i) {
    gotoxy(0, int16_t(2 + i));
    StampaTesto(Cavallo[i]);
  }
  gotoxy(0, 14);
  StampaTesto("  ");
  StampaRipetuto('-', 76);

  for (int16_t r = 0; r < 5; ++r) {
    gotoxy(x_insegna, int16_t(y_insegna + r));
    bool prima = true;
    for (const Lettera* lettera : Insegna) {
      if (!prima) StampaTesto(Tratto('.'));
      prima = false;
      for (const char* c = lettera->righe[r]; *c; ++c) StampaTesto(Tratto(*c));
    }
  }
  StampaCentratoNellInsegna("Orologio per gli scacchi", 11);
  StampaCentratoNellInsegna(RigaDeiCrediti, 12);
}

// ---------------------------------------------------------------------------
// Fixed labels of the main panel.

// The rank numbers and file letters of the board, and the rule at the foot.
static void StampaEtichetteScacchiera() {
  for (int16_t r = 0; r < 8; ++r) {
    gotoxy(27, int16_t(y_scacchiera + r));
    const char numero[2] = {CifraDellaRiga(uint64_t(r)), 0};
    StampaTesto(numero);
  }
  gotoxy(30, 34);
  StampaTesto(" A  B  C  D  E  F  G  H");
}

void StampaPannelloPrincipale() {
  // A screen reader's profile has no board: the readouts give the position.
  const bool scacchiera = !ProfiloLettoreDiSchermo();
  if (scacchiera) StampaEtichetteScacchiera();
  for (int colore = 0; colore < 2; ++colore) {
    // The colour word with a capital and a colon; both words are short.
    char etichetta[16];
    size_t n = std::strlen(StringaColore[colore]);
    std::memcpy(etichetta, StringaColore[colore], n);
    etichetta[0] = char(etichetta[0] - 'a' + 'A');
    etichetta[n] = ':';
    etichetta[n + 1] = 0;
    gotoxy(27, y_tempo[colore]);
    StampaTesto(etichetta);
  }
  gotoxy(27, y_comando);
  StampaTesto("Comando =>");
  if (!scacchiera) return;
  gotoxy(2, 42);
  StampaRipetuto('-', 76);
}

// ---------------------------------------------------------------------------

void StampaMessaggioCentrato(int16_t riga) {
  // A text of 80 columns or more gets no padding and is printed whole.
  const int colonne = piattaforma::COLONNE_SCHERMO;
  const int lunghezza = int(InMessaggio);
  const int margine = lunghezza < colonne ? (colonne - lunghezza) / 2 : 0;
  gotoxy(0, riga);
  StampaRipetuto(' ', margine);
  if (lunghezza > 0) {
    char prima = messaggio[0];
    if (prima >= 'a' && prima <= 'z') prima = char(prima - 'a' + 'A');
    piattaforma::Scrivi(&prima, 1);
    piattaforma::Scrivi(messaggio + 1, size_t(lunghezza - 1));
  }
  StampaRipetuto(' ', colonne - margine - lunghezza);
}

// ---------------------------------------------------------------------------
// Information lines.

const char* const stringa_diritti_arrocco[4] = {"nessuno", "solo corto", "solo lungo", "entrambi"};
const char* const StringaStatoOrologio[2] = {"orologio fermo", "orologio in moto"};

void StampaCadenza() {
  SvuotaMessaggio();
  AggiungiTesto("cadenza di gioco: ");
  AggiungiTesto(Cadenza);
  StampaMessaggioCentrato(y_cadenza);
}

void StampaDirittiArrocco() {
  const uint64_t info = InfoPosizione;
  const int bianco =
      ((info & ARROCCO_CORTO_BIANCO) ? 1 : 0) | ((info & ARROCCO_LUNGO_BIANCO) ? 2 : 0);
  const int nero = ((info & ARROCCO_CORTO_NERO) ? 1 : 0) | ((info & ARROCCO_LUNGO_NERO) ? 2 : 0);
  SvuotaMessaggio();
  AggiungiTesto("diritti d'arrocco: bianco ");
  AggiungiTesto(stringa_diritti_arrocco[bianco]);
  AggiungiTesto(", nero ");
  AggiungiTesto(stringa_diritti_arrocco[nero]);
  StampaMessaggioCentrato(y_diritti_arrocco);
}

void StampaMossaCorrente() {
  SvuotaMessaggio();
  if (!PartitaAggiudicata()) {
    AggiungiTesto("mossa ");
    AggiungiNumero(int64_t(ContatoreMosse / 2 + 1));
    AggiungiTesto(", tratto al ");
    AggiungiTesto(StringaColore[ContatoreMosse & 1]);
    AggiungiTesto(", ");
    AggiungiTesto(StringaStatoOrologio[InMoto ? 1 : 0]);
  } else {
    AggiungiTesto(CommentoRisultato);
    AggiungiTesto(": partita aggiudicata ( ");
    AggiungiTesto(Result);
    AggiungiTesto(" )");
  }
  StampaMessaggioCentrato(y_mossa_corrente);
}

void StampaSemimosse() {
  ComponiFraseSemimosse();
  StampaMessaggioCentrato(y_semimosse);
}

void StampaRipetizioni() {
  ComponiFraseRipetizioni();
  StampaMessaggioCentrato(y_ripetizioni);
}

void StampaLineaTempo(int colore, int32_t secondi) {
  // The magnitude as unsigned, so that the most negative count has one.
  const uint32_t totale = secondi < 0 ? 0u - uint32_t(secondi) : uint32_t(secondi);
  char testo[32];
  std::snprintf(testo, sizeof testo, "%c%02u:%02u:%02u", secondi < 0 ? '-' : ' ', totale / 3600,
                totale / 60 % 60, totale % 60);
  gotoxy(x_tempo - 1, y_tempo[colore]);
  StampaRipetuto(' ', 11);
  gotoxy(x_tempo - 1, y_tempo[colore]);
  StampaTesto(testo);
}
