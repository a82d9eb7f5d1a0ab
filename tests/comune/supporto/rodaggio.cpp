#include "supporto/rodaggio.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <random>

#include "board/fen.h"
#include "board/geometria.h"
#include "board/mossa.h"
#include "board/posizione.h"
#include "clock/orologio.h"
#include "diagnostics/controlli.h"
#include "diagnostics/uscita.h"
#include "game/aggiudicazione.h"
#include "game/partita.h"
#include "messaggi/messaggi.h"
#include "moves/genera.h"
#include "moves/tavole.h"
#include "piattaforma/memoria/memoria.h"
#include "supporto/arbitro.h"
#include "supporto/mosse_a_caso.h"
#include "supporto/stati.h"

namespace {

// Mostly the start; the others castle on both wings early, promote, or
// begin with Black to move after a double step.
constexpr const char* Partenze[] = {
    "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
    "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
    "r3k2r/pppppppp/8/8/8/8/PPPPPPPP/R3K2R b KQkq - 0 1",
    "r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1",
    "rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w KQ - 1 8",
    "rnbqkbnr/pppp1ppp/8/8/3Pp3/8/PPP1PPPP/RNBQKBNR b KQkq d3 0 2",
};
constexpr uint64_t NUMERO_PARTENZE = sizeof Partenze / sizeof Partenze[0];

// What the sink receives between two checks.
std::string Stampato;
uint64_t Scacchiere;

void TestoNelRodaggio(const char* testo, size_t lunghezza) { Stampato.append(testo, lunghezza); }
void ScacchieraNelRodaggio() { ++Scacchiere; }

using partite_a_caso::Coordinate;
using partite_a_caso::ScegliMossa;

bool Legale(uint64_t mossa) {
  for (const uint64_t* p = BufferMosseGenerate; p < FineMosseGenerate; ++p)
    if (*p == mossa) return true;
  return false;
}

class Rodaggio_ {
 public:
  explicit Rodaggio_(EsitoRodaggio& esito) : e_(esito) {}

  void GiocaPartita(uint64_t seme) {
    seme_ = seme;
    caso_.seed(seme);
    memoria::Azzera();
    SegnaOrologioInMoto(false);
    // One game in four from elsewhere than the start, each in turn.
    fen_ = seme % 4 == 3 ? Partenze[1 + (seme / 4) % (NUMERO_PARTENZE - 1)] : Partenze[0];
    SvuotaScacchiera();
    if (!CaricaPosizioneDaStringaFen(fen_)) {
      Guasto("the start position was refused");
      return;
    }
    RevocaAggiudicazione();
    AzzeraPartita();
    lasciate_[ContatoreMosse] = 0;
    Controlla(0);
    ++e_.partite;
    // Some games go on after every ending up to the record's last ply.
    fino_al_limite_ = seme % 10 == 0;
    const uint64_t tetto = fino_al_limite_ ? ULTIMA_SEMIMOSSA : 200 + Caso(150);
    // A game stops at its first fault.
    const uint64_t guasti_prima = e_.guasti;
    while (e_.guasti == guasti_prima) {
      if (ContatoreMosse >= tetto) {
        if (PartitaCompleta()) {
          ++e_.limite;
        } else {
          ++e_.tetto;
        }
        return;
      }
      if (ContatoreMosse > TurnoIniziale && Caso(20) == 0) {
        for (uint64_t r = 1 + Caso(3); r > 0 && ContatoreMosse > TurnoIniziale; --r) Ritira(true);
        continue;
      }
      if (!GiocaUnaMossa()) return;
    }
  }

 private:
  uint64_t Caso(uint64_t n) { return caso_() % n; }

  void Guasto(const std::string& testo) {
    ++e_.guasti;
    if (e_.primi_guasti.size() < 10)
      e_.primi_guasti.push_back("seed " + std::to_string(seme_) + ", ply " +
                                std::to_string(ContatoreMosse) + ", from \"" + fen_ +
                                "\": " + testo);
  }

  // Keys that a queen-side castling made with its right leaves in ChiaveHash.
  static uint64_t ChiaviLasciate(uint64_t mossa, uint64_t info_prima, Colore mosso) {
    if (TipoMossa(mossa) != ARROCCO_LUNGO) return 0;
    if (!(info_prima & DirittoArrocco(mosso, true))) return 0;
    return ChiaveDiritti(info_prima & DirittiDel(mosso));
  }

  // The self-check of the position on the board, its report sorted.
  void Controlla(int dopo_ritira) {
    Stampato.clear();
    const uint64_t scacchiere = Scacchiere;
    ControllaPosizione(dopo_ritira);
    ++e_.controlli;
    const RecordControlloPosizione& r = ReportControlloPosizione;
    const uint64_t lasciate = lasciate_[ContatoreMosse];
    e_.scacchiere += Scacchiere - scacchiere;
    if (lasciate == 0) {
      if (r.LunghezzaTesto != 0 || !Stampato.empty()) Guasto("report: " + Stampato);
      return;
    }
    const char* const atteso = "Errore!\n chiave hash scorretta\n\n";
    if (std::strcmp(r.testo, "chiave hash scorretta\n") != 0 ||
        Stampato.compare(0, std::strlen(atteso), atteso) != 0 || Scacchiere != scacchiere + 1) {
      Guasto("expected only the hash line, got: " + Stampato);
      return;
    }
    if ((r.ChiaveRicalcolata ^ ChiaveHash) != lasciate) {
      Guasto("the key differs by other than the kept castling keys");
      return;
    }
    const bool b = (lasciate == HASH_ARROCCO_LUNGO_BIANCO ||
                    lasciate == (HASH_ARROCCO_LUNGO_BIANCO ^ HASH_ARROCCO_CORTO_BIANCO));
    const bool n = (lasciate == HASH_ARROCCO_LUNGO_NERO ||
                    lasciate == (HASH_ARROCCO_LUNGO_NERO ^ HASH_ARROCCO_CORTO_NERO));
    if (b)
      ++e_.attesi_bianco;
    else if (n)
      ++e_.attesi_nero;
    else
      ++e_.attesi_entrambi;
  }

  // `contato`: a take-back of the game, not the one that checks each ply.
  void Ritira(bool contato) {
    if (RitiraUltimaMossa() != 1) {
      Guasto("a take-back was refused");
      return;
    }
    if (contato) ++e_.ritiri;
    Controlla(1);
    if (PartitaAggiudicata()) Guasto("a take-back left a result");
  }

  // The record's text as a player might type it: often as written, else
  // without the signs the reader skips, castling with the letter O.
  std::string Variante(const std::string& scritto) {
    if (Caso(2) == 0) return scritto;
    std::string t;
    for (char c : scritto) {
      if (c == '+' || c == '#' || c == 'x' || c == '=') continue;
      t += c == '0' ? 'O' : c;
    }
    return t;
  }

  // Makes the move typed as `testo`; false (and a fault) unless it is `mossa`.
  bool Fai(const std::string& testo, uint64_t mossa, uint64_t lasciate) {
    if (!LeggiDettagliMossaDaComando(testo.c_str())) {
      Guasto("'" + testo + "' is not read as a move");
      return false;
    }
    const uint64_t fatta = FaiMossaInComando();
    if (fatta != mossa) {
      Guasto("'" + testo + "' played another move than " + Coordinate(mossa));
      return false;
    }
    lasciate_[ContatoreMosse] = lasciate;
    Controlla(0);
    return true;
  }

  // One ply: by coordinates, written, taken back, typed again as written.
  // False when the game is over.
  bool GiocaUnaMossa() {
    const size_t quante = size_t(FineMosseGenerate - BufferMosseGenerate);
    if (quante == 0) {
      Guasto("a game goes on without legal moves");
      return false;
    }
    const uint64_t mossa = ScegliMossa([this](uint64_t n) { return Caso(n); }, TurnoIniziale);
    if (!Legale(mossa)) {
      Guasto("chose a move that is not legal");
      return false;
    }
    const uint64_t n = ContatoreMosse;
    const uint64_t lasciate = lasciate_[n] ^ ChiaviLasciate(mossa, InfoPosizione, AlTratto());
    if (PartitaAggiudicata()) RevocaAggiudicazione();
    if (!Fai(Coordinate(mossa), mossa, lasciate)) return false;
    AnnotaConArbitro(mossa);
    const std::string scritto = ElencoStringaMossa[n + 1];
    const std::string stato = Result;
    Ritira(false);
    if (ContatoreMosse != n) return false;
    if (!Fai(Variante(scritto), mossa, lasciate)) return false;
    AnnotaConArbitro(mossa);
    if (scritto != ElencoStringaMossa[n + 1])
      Guasto("the record wrote " + scritto + " and then " + ElencoStringaMossa[n + 1]);
    if (stato != Result) Guasto("the same move ended the game otherwise");
    ++e_.semimosse;

    const std::string termine = Termination;
    if (termine == "Checkmate" || termine == "stalemate" || termine == "insufficient material") {
      if (termine == "Checkmate")
        ++e_.matti;
      else if (termine == "stalemate")
        ++e_.stalli;
      else
        ++e_.materiale;
      // Sometimes the arbiter takes the last move back and play goes on.
      if (fino_al_limite_ || Caso(3) == 0) {
        Ritira(true);
        return true;
      }
      return false;
    }
    if (Semimosse(InfoPosizione) == 100) ++e_.cinquanta;  // declined: the box says No
    if (termine == "threefold repetition") {
      ++e_.triplici;
      if (fino_al_limite_ || Caso(2) == 0) {
        RevocaAggiudicazione();
        return true;
      }
      return false;
    }
    return true;
  }

  EsitoRodaggio& e_;
  std::mt19937_64 caso_;
  uint64_t seme_ = 0;
  const char* fen_ = "";
  bool fino_al_limite_ = false;
  // The keys kept by queen-side castlings on the way to each ply.
  uint64_t lasciate_[MAX_SEMIMOSSE] = {};
};

}  // namespace

EsitoRodaggio Rodaggio(uint64_t partite, uint64_t seme) {
  static const bool tabelle = [] {
    InizializzaTabelle();
    return true;
  }();
  (void)tabelle;
  const UscitaDiagnostica prima = UscitaDiagnostiche;
  InstallaUscitaDiagnostiche({TestoNelRodaggio, ScacchieraNelRodaggio, nullptr});
  InstallaDopoFinestra(nullptr);
  InstallaSchermoOrologio({});
  EsitoRodaggio esito;
  Rodaggio_ rodaggio(esito);
  const auto inizio = std::chrono::steady_clock::now();
  for (uint64_t i = 0; i < partite; ++i) {
    rodaggio.GiocaPartita(seme + i);
  }
  esito.secondi = std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
  InstallaUscitaDiagnostiche(prima);
  RevocaAggiudicazione();
  return esito;
}

std::string DescriviRodaggio(const EsitoRodaggio& e) {
  // std::to_string rather than printf's 64-bit formats, which the Windows
  // C runtime does not all know.
  auto N = [](uint64_t n) { return std::to_string(n); };
  std::string s = "games " + N(e.partite) + ", plies " + N(e.semimosse) + ", take-backs " +
                  N(e.ritiri) + ", self-checks " + N(e.controlli) + "\n";
  s += "endings: checkmate " + N(e.matti) + ", stalemate " + N(e.stalli) +
       ", insufficient material " + N(e.materiale) + ", threefold repetition " + N(e.triplici) +
       ", fifty-move question " + N(e.cinquanta) + ", record full " + N(e.limite) +
       ", stopped at the cap " + N(e.tetto) + "\n";
  s += "reports: expected " + N(e.Attesi()) + " (White's queen-side castling " +
       N(e.attesi_bianco) + ", Black's " + N(e.attesi_nero) + ", both " + N(e.attesi_entrambi) +
       "; boards drawn " + N(e.scacchiere) + "), unexpected " + N(e.guasti) + "\n";
  char riga[128];
  std::snprintf(riga, sizeof riga, "wall time %.2f s, %.0f plies/s\n", e.secondi,
                e.secondi > 0 ? double(e.semimosse) / e.secondi : 0.0);
  s += riga;
  for (const std::string& g : e.primi_guasti) s += "  " + g + "\n";
  return s;
}
