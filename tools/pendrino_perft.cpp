// pendrino-perft: exact move counts, for comparing with published counts and
// other programs. The counts come from the fast counter (conteggio), or with
// --fai-ritira from the walk through the game's generator, make and unmake.
//
//   pendrino-perft "FEN" DEPTH            the number of leaves
//   pendrino-perft --divide "FEN" DEPTH   the leaves under each root move, then the total
//   pendrino-perft --suite FILE [--max-nodes N]
//       checks every row of a tab-separated table (name, fen, depth, nodes;
//       header line first), rows expecting more than N leaves skipped; one
//       line per failure and a closing line "P passed, F failed".
//
// Options of the counter, with any of the above: --hash MB (a table of
// subtree counts of MB megabytes, 1-65536) and --thread N (the root moves
// shared among N threads, 1-64). --fai-ritira takes neither.
//
// Exit status: 0 success, 1 some suite row failed, 2 bad usage, an unreadable
// table, or a FEN that the loader rejects or the engine cannot play safely.
#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <initializer_list>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "board/arrocco.h"
#include "board/fen.h"
#include "board/geometria.h"
#include "board/posizione.h"
#include "conteggio/conteggio.h"
#include "diagnostics/perft.h"
#include "moves/genera.h"

namespace {

constexpr int ESITO_FALLITO = 1;
constexpr int ESITO_RIFIUTO = 2;

// The perft walk's own bound; it also keeps the half-move clock of a loaded
// position (at most 99) from overflowing into the castling bits.
constexpr int PROFONDITA_MASSIMA = PROFONDITA_MASSIMA_PERFT;
static_assert(99 + PROFONDITA_MASSIMA <= int(MASCHERA_SEMIMOSSE));
static_assert(PROFONDITA_MASSIMA <= PROFONDITA_MASSIMA_CONTEGGIO);

constexpr uint64_t MEGABYTE_MASSIMI = 65536;

// Which walk counts, and the counter's options.
struct Metodo {
  bool fai_ritira = false;
  OpzioniConteggio opzioni;
};

uint64_t ContaFoglieCon(const Metodo& metodo, int profondita) {
  if (metodo.fai_ritira) return Perft(profondita);
  return ContaFoglie(PosizioneConteggioCorrente(), profondita, metodo.opzioni);
}

const char* const NomeTipo[5] = {"pawns", "knights", "bishops", "rooks", "queens"};

// Why the engine cannot play the position on the board, or nullptr.
const char* MotivoPosizioneNonSicura() {
  int re[2] = {0, 0};
  for (int casa = 0; casa < 64; ++casa) {
    if (PezzoIn[casa] == CODICE_RE_BIANCO) ++re[BIANCO];
    if (PezzoIn[casa] == CODICE_RE_NERO) ++re[NERO];
  }
  if (re[BIANCO] != 1) return "White must have exactly one king";
  if (re[NERO] != 1) return "Black must have exactly one king";

  // A right is only playable with king and rook on their home squares.
  static const char* const motivi[2][2] = {
      {"castling right K without the white king on e1 and a white rook on h1",
       "castling right Q without the white king on e1 and a white rook on a1"},
      {"castling right k without the black king on e8 and a black rook on h8",
       "castling right q without the black king on e8 and a black rook on a8"}};
  for (const Colore c : {BIANCO, NERO})
    for (const bool lungo : {false, true}) {
      const Arrocco& a = Arrocchi[c][lungo];
      if ((InfoPosizione & DirittoArrocco(c, lungo)) &&
          (PezzoIn[a.re] != CodicePezzo(RE, c, 0) ||
           CodiceSenzaSlot(PezzoIn[a.torre]) != CodicePezzo(TORRE, c, 0)))
        return motivi[c][lungo];
    }

  // Pawn steps from the edge ranks have no keys and lead off the board.
  constexpr uint64_t TRAVERSE_ESTERNE = 0xFF000000000000FFull;
  if ((btm_pedone_bianco | btm_pedone_nero) & TRAVERSE_ESTERNE)
    return "a pawn stands on the first or the last rank";

  // Every pawn may promote: each square list must have room for it.
  static char motivo[96];
  for (int colore = 0; colore < 2; ++colore) {
    uint64_t pedoni = NumeroPezzi(materiale[colore], PEDONE);
    for (int tipo = CAVALLO; tipo <= DONNA; ++tipo)
      if (NumeroPezzi(materiale[colore], tipo) + pedoni > uint64_t(CapienzaLista[tipo])) {
        snprintf(motivo, sizeof motivo, "%s has too many %s and pawns (at most %d together)",
                 colore == BIANCO ? "White" : "Black", NomeTipo[tipo], CapienzaLista[tipo]);
        return motivo;
      }
  }
  return nullptr;
}

// Loads `fen`; on refusal returns the reason.
const char* Carica(const char* fen) {
  SvuotaScacchiera();
  if (!CaricaPosizioneDaStringaFen(fen)) {
    SvuotaScacchiera();
    return "the FEN is rejected by the loader";
  }
  return MotivoPosizioneNonSicura();
}

// A depth argument: a decimal number 0..PROFONDITA_MASSIMA, else -1.
int LeggiProfondita(const std::string& testo) {
  if (testo.empty() || testo.size() > 3) return -1;
  int valore = 0;
  for (char c : testo) {
    if (c < '0' || c > '9') return -1;
    valore = valore * 10 + (c - '0');
  }
  return valore <= PROFONDITA_MASSIMA ? valore : -1;
}

bool LeggiNumero(const std::string& testo, uint64_t& valore) {
  if (testo.empty() || testo.size() > 19) return false;
  valore = 0;
  for (char c : testo) {
    if (c < '0' || c > '9') return false;
    valore = valore * 10 + uint64_t(c - '0');
  }
  return true;
}

int Uso() {
  fputs(
      "usage: pendrino-perft [--divide] \"FEN\" DEPTH\n"
      "       pendrino-perft --suite FILE [--max-nodes N]\n"
      "options: --fai-ritira  count through the game's make and unmake\n"
      "         --hash MB     a table of subtree counts (1-65536 megabytes)\n"
      "         --thread N    root moves shared among N threads (1-64)\n",
      stderr);
  return ESITO_RIFIUTO;
}

// The count under each root move, by either walk.
int Dividi(const Metodo& metodo, int profondita, VocePerft* voci) {
  if (metodo.fai_ritira) return PerftDivide(profondita, voci);
  static VoceConteggio conteggi[DIMENSIONE_BUFFER_MOSSE];
  const int n =
      ContaFoglieDivise(PosizioneConteggioCorrente(), profondita, conteggi, metodo.opzioni);
  for (int i = 0; i < n; ++i) voci[i] = {conteggi[i].mossa, conteggi[i].nodi};
  return n;
}

int Conta(const char* fen, int profondita, bool dividi, const Metodo& metodo) {
  if (const char* motivo = Carica(fen)) {
    fprintf(stderr, "pendrino-perft: refused \"%s\": %s\n", fen, motivo);
    return ESITO_RIFIUTO;
  }
  if (!dividi) {
    printf("%" PRIu64 "\n", ContaFoglieCon(metodo, profondita));
    return 0;
  }
  // The layout of Stockfish's `go perft`, so that the two can be compared line by line.
  static VocePerft voci[DIMENSIONE_BUFFER_MOSSE];
  const int n = Dividi(metodo, profondita, voci);
  uint64_t totale = profondita == 0 ? 1 : 0;
  for (int i = 0; i < n; ++i) {
    char testo[8];
    ScriviMossaCoordinate(voci[i].mossa, testo);
    printf("%s: %" PRIu64 "\n", testo, voci[i].nodi);
    totale += voci[i].nodi;
  }
  printf("\nNodes searched: %" PRIu64 "\n", totale);
  return 0;
}

std::vector<std::string> Campi(const std::string& riga) {
  std::vector<std::string> campi(1);
  for (char c : riga) {
    if (c == '\t')
      campi.emplace_back();
    else if (c != '\r')
      campi.back() += c;
  }
  return campi;
}

int Suite(const char* percorso, uint64_t nodi_massimi, const Metodo& metodo) {
  std::ifstream file(percorso);
  if (!file) {
    fprintf(stderr, "pendrino-perft: cannot read %s: %s\n", percorso, strerror(errno));
    return ESITO_RIFIUTO;
  }
  std::string riga;
  std::getline(file, riga);  // header
  int numero_riga = 1, passate = 0, fallite = 0, saltate = 0;
  while (std::getline(file, riga)) {
    ++numero_riga;
    if (riga.empty() || riga == "\r") continue;
    const std::vector<std::string> campi = Campi(riga);
    const int profondita = campi.size() == 4 ? LeggiProfondita(campi[2]) : -1;
    uint64_t attesi = 0;
    if (profondita < 0 || !LeggiNumero(campi[3], attesi)) {
      printf("FAIL line %d: not a row of name, fen, depth (0-%d), nodes\n", numero_riga,
             PROFONDITA_MASSIMA);
      ++fallite;
      continue;
    }
    const std::string& nome = campi[0];
    if (attesi > nodi_massimi) {
      ++saltate;
      continue;
    }
    if (const char* motivo = Carica(campi[1].c_str())) {
      printf("FAIL %s depth %d: %s\n", nome.c_str(), profondita, motivo);
      ++fallite;
      continue;
    }
    const uint64_t contati = ContaFoglieCon(metodo, profondita);
    if (contati == attesi) {
      ++passate;
    } else {
      printf("FAIL %s depth %d: expected %" PRIu64 ", counted %" PRIu64 "\n", nome.c_str(),
             profondita, attesi, contati);
      ++fallite;
    }
  }
  if (saltate) printf("%d skipped (more than %" PRIu64 " nodes)\n", saltate, nodi_massimi);
  printf("%d passed, %d failed\n", passate, fallite);
  return fallite ? ESITO_FALLITO : 0;
}

}  // namespace

int main(int argc, char** argv) {
  bool dividi = false;
  const char* suite = nullptr;
  uint64_t nodi_massimi = UINT64_MAX;
  Metodo metodo;
  uint64_t megabyte = 0, thread = 1;
  std::vector<const char*> posizionali;
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    if (a == "--divide") {
      dividi = true;
    } else if (a == "--suite" && i + 1 < argc) {
      suite = argv[++i];
    } else if (a == "--max-nodes" && i + 1 < argc) {
      if (!LeggiNumero(argv[++i], nodi_massimi)) return Uso();
    } else if (a == "--fai-ritira") {
      metodo.fai_ritira = true;
    } else if (a == "--hash" && i + 1 < argc) {
      if (!LeggiNumero(argv[++i], megabyte) || megabyte < 1 || megabyte > MEGABYTE_MASSIMI)
        return Uso();
    } else if (a == "--thread" && i + 1 < argc) {
      if (!LeggiNumero(argv[++i], thread) || thread < 1 ||
          thread > uint64_t(MASSIMO_THREAD_CONTEGGIO))
        return Uso();
    } else if (a.size() > 1 && a[0] == '-' && a[1] == '-') {
      return Uso();
    } else {
      posizionali.push_back(argv[i]);
    }
  }

  if (metodo.fai_ritira && (megabyte || thread != 1)) return Uso();
  metodo.opzioni.thread = int(thread);

  InizializzaTabelle();
  // Allocated once, before any count.
  std::unique_ptr<VoceTabellaConteggio[]> tabella;
  if (megabyte) {
    metodo.opzioni.voci = VociTabellaConteggio(megabyte);
    tabella.reset(new (std::nothrow) VoceTabellaConteggio[metodo.opzioni.voci]);
    if (!tabella) {
      fprintf(stderr, "pendrino-perft: no memory for a table of %" PRIu64 " megabytes\n", megabyte);
      return ESITO_RIFIUTO;
    }
    metodo.opzioni.tabella = tabella.get();
  }

  if (suite) {
    if (dividi || !posizionali.empty()) return Uso();
    return Suite(suite, nodi_massimi, metodo);
  }
  if (posizionali.size() != 2 || nodi_massimi != UINT64_MAX) return Uso();
  const int profondita = LeggiProfondita(posizionali[1]);
  if (profondita < 0) {
    fprintf(stderr, "pendrino-perft: the depth must be a number from 0 to %d\n",
            PROFONDITA_MASSIMA);
    return ESITO_RIFIUTO;
  }
  return Conta(posizionali[0], profondita, dividi, metodo);
}
