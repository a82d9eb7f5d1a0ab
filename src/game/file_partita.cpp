#include "game/file_partita.h"

#include <cstdint>

#include "board/posizione.h"
#include "clock/cadenza.h"
#include "game/aggiudicazione.h"
#include "game/partita.h"
#include "piattaforma/piattaforma.h"
#include "settings/parametri.h"
#include "testo/composizione.h"

const char* const NomeFilePartita = "partita.pgn";
const char* const NomeFileListaMosse = "ListaMosse.txt";
const char* const NomeAnnotatore = "Pendrino1.0";

namespace {

// A tag line: [nome "valore"].
void Etichetta(Composizione& c, const char* nome, const char* valore, size_t massimo = SIZE_MAX) {
  c.Testo("[");
  c.Testo(nome);
  c.Testo(" \"");
  c.Testo(valore, massimo);
  c.Testo("\"]\n");
}

// A tag holding a name: backslash and quote escaped, "?" when unset.
void EtichettaNome(Composizione& c, const char* nome, const char* valore) {
  c.Testo("[");
  c.Testo(nome);
  c.Testo(" \"");
  if (!valore[0]) c.Carattere('?');
  for (const char* p = valore; *p; ++p) {
    if (*p == '"' || *p == '\\') c.Carattere('\\');
    c.Carattere(*p);
  }
  c.Testo("\"]\n");
}

// The plies of the record; a counter past the table would read beyond it.
uint64_t SemimosseRegistrate() {
  return ContatoreMosse < uint64_t(MAX_SEMIMOSSE) ? ContatoreMosse : uint64_t(MAX_SEMIMOSSE - 1);
}

void TestoMossa(Composizione& c, uint64_t semimossa) {
  c.Testo(" ");
  c.Testo(ElencoStringaMossa[semimossa], LUNGHEZZA_STRINGA_MOSSA - 1);
}

void NumeroMossa(Composizione& c, uint64_t numero) {
  c.Testo(" ");
  c.Numero(numero);
  c.Testo(".");
}

// The longest texts: the fixed words of the tags (well within 512), every
// tag value at its buffer's size, a full record of seven-character moves with
// their numbers, a new line every eight moves, the comment.
constexpr size_t MOSSE_MASSIME = MAX_SEMIMOSSE / 2;
constexpr size_t LUNGHEZZA_MOSSE =
    MAX_SEMIMOSSE * LUNGHEZZA_STRINGA_MOSSA + MOSSE_MASSIME * sizeof " 256." + MOSSE_MASSIME;
constexpr size_t MASSIMO_TESTO_PARTITA = 512 + NUMERO_NOMI * 2 * LUNGHEZZA_TESTO_INI +
                                         sizeof Termination + sizeof Result + sizeof OraUTC +
                                         sizeof DataUTC + sizeof Cadenza + LUNGHEZZA_MOSSE +
                                         sizeof CommentoRisultato + sizeof Result;
constexpr size_t MASSIMO_TESTO_ELENCO = LUNGHEZZA_MOSSE + 8;

// Composed here rather than on the stack: the program allocates nothing.
char TestoDelFile[MASSIMO_TESTO_PARTITA > MASSIMO_TESTO_ELENCO ? MASSIMO_TESTO_PARTITA
                                                               : MASSIMO_TESTO_ELENCO];

bool Scrivi(const char* nome, size_t (*componi)(char*, size_t)) {
  const size_t lunghezza = componi(TestoDelFile, sizeof TestoDelFile);
  // A text cut short is not a game: the old file stays.
  if (lunghezza >= sizeof TestoDelFile) return false;
  return piattaforma::SostituisciFileDiTesto(nome, TestoDelFile, lunghezza);
}

}  // namespace

size_t TestoPartita(char* testo, size_t capienza) {
  Composizione c(testo, capienza);
  c.Testo("\n");
  EtichettaNome(c, "Event", Nome(NOME_EVENTO));
  // Tags the file did not always have: only when set.
  if (Nome(NOME_LUOGO)[0]) EtichettaNome(c, "Site", Nome(NOME_LUOGO));
  if (Nome(NOME_TURNO)[0]) EtichettaNome(c, "Round", Nome(NOME_TURNO));
  EtichettaNome(c, "White", Nome(NOME_BIANCO));
  EtichettaNome(c, "Black", Nome(NOME_NERO));
  Etichetta(c, "WhiteHelo", "?");
  Etichetta(c, "BlackHelo", "?");
  Etichetta(c, "Termination", Termination, sizeof Termination - 1);
  Etichetta(c, "Result", Result, sizeof Result - 1);
  Etichetta(c, "UTCTime", OraUTC, sizeof OraUTC - 1);
  Etichetta(c, "UTCDate", DataUTC, sizeof DataUTC - 1);
  Etichetta(c, "TimeControl", Cadenza, sizeof Cadenza - 1);
  Etichetta(c, "Mode", "TC");
  c.Testo("[PlyCount \"");
  c.Numero(ContatoreMosse);
  c.Testo("\"]\n");
  Etichetta(c, "Annotator", NomeAnnotatore);

  const uint64_t semimosse = SemimosseRegistrate();
  for (uint64_t p = 1; p <= semimosse; ++p) {
    if (p & 1) {
      const uint64_t mossa = (p + 1) / 2;
      // Eight full moves a line; the first line break leaves an empty line
      // after the tags.
      if (mossa % 8 == 1) c.Testo("\n");
      NumeroMossa(c, mossa);
    }
    TestoMossa(c, p);
  }
  c.Testo("\n");
  if (CommentoRisultato[0]) {
    c.Testo("{");
    c.Testo(CommentoRisultato, sizeof CommentoRisultato - 1);
    c.Testo("} ");
  }
  c.Testo(Result, sizeof Result - 1);
  c.Testo("\n");
  return c.Lunghezza();
}

size_t TestoElencoMosse(char* testo, size_t capienza) {
  Composizione c(testo, capienza);
  const uint64_t semimosse = SemimosseRegistrate();
  for (uint64_t p = 1; p <= semimosse; ++p) {
    if (p & 1) {
      c.Testo("\n");
      NumeroMossa(c, (p + 1) / 2);
    }
    TestoMossa(c, p);
  }
  c.Testo("\n");
  return c.Lunghezza();
}

bool SalvaPartita() { return Scrivi(NomeFilePartita, TestoPartita); }

bool ScriviElencoMosse() { return Scrivi(NomeFileListaMosse, TestoElencoMosse); }
