#include "supporto/mossa_prova.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "board/arrocco.h"
#include "board/fen.h"
#include "board/geometria.h"
#include "board/mossa.h"
#include "board/posizione.h"
#include "clock/orologio.h"
#include "game/aggiudicazione.h"
#include "game/partita.h"
#include "messaggi/messaggi.h"
#include "moves/genera.h"
#include "piattaforma/memoria/memoria.h"
#include "supporto/arbitro.h"
#include "supporto/istantanea.h"
#include "supporto/stati.h"
#include "supporto/verifica_posizione.h"

int MosseTenute;

namespace {

// Castling both ways, promotions with and without capture, en passant for
// either side, pieces that need their origin written.
constexpr const char* Posizioni[] = {
    "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
    "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
    "r3k2r/pppppppp/8/8/8/8/PPPPPPPP/R3K2R b KQkq - 0 1",
    "n1n5/PPPk4/8/8/8/8/4Kppp/5N1N w - - 0 1",
    "n1n5/PPPk4/8/8/8/8/4Kppp/5N1N b - - 0 1",
    "rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPP1PPP/RNBQKBNR w KQkq f6 0 3",
    "rnbqkbnr/pppp1ppp/8/8/3Pp3/8/PPP1PPPP/RNBQKBNR b KQkq d3 0 2",
    "r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1",
    "k7/8/8/1N3N2/8/1N3N2/8/K2R3R w - - 0 1",
    "2k5/8/8/8/Q6Q/8/K7/Q6Q w - - 0 1",
    "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1",
    "7k/8/8/8/8/8/8/K5R1 w - - 99 80",
};
constexpr size_t NUMERO_POSIZIONI = sizeof Posizioni / sizeof Posizioni[0];

// Enough moves to reach deep, few enough to keep every run short.
constexpr int MASSIMO_TESTI = 64;

std::vector<uint64_t> ParoleLegali() {
  std::vector<uint64_t> mosse(BufferMosseGenerate, FineMosseGenerate);
  std::sort(mosse.begin(), mosse.end());
  return mosse;
}

bool Contiene(const std::vector<uint64_t>& mosse, uint64_t mossa) {
  return std::binary_search(mosse.begin(), mosse.end(), mossa);
}

// The loader checks only what would break the generator: it accepts a
// board without a king, a second king, a pawn on its last rank, or a castling
// right whose king or rook is not at home. Games are played from real
// positions only.
bool PosizioneGiocabile() {
  int re[2] = {0, 0};
  for (uint64_t s = 0; s < 64; ++s) {
    const uint64_t codice = PezzoIn[s];
    if (codice == CASA_VUOTA) continue;
    if (TipoDelCodice(codice) == RE) ++re[ColoreDelCodice(codice)];
    if (TipoDelCodice(codice) == PEDONE && (s < 8 || s >= 56)) return false;
  }
  if (re[BIANCO] != 1 || re[NERO] != 1) return false;
  for (int c = 0; c < 2; ++c)
    for (int lungo = 0; lungo < 2; ++lungo) {
      if (!(InfoPosizione & DirittoArrocco(Colore(c), lungo))) continue;
      const Arrocco& a = Arrocchi[c][lungo];
      if (casa_re[c] != a.re ||
          CodiceSenzaSlot(PezzoIn[a.torre]) != CodicePezzo(TORRE, Colore(c), 0))
        return false;
    }
  return true;
}

// A new game as the game layer starts one; false when the text is refused.
bool NuovaPartitaDa(const char* fen) {
  SvuotaScacchiera();
  if (!CaricaPosizioneDaStringaFen(fen)) return false;
  if (!PosizioneCoerente() || !PosizioneGiocabile()) return false;
  RevocaAggiudicazione();
  AzzeraPartita();
  return true;
}

// A text in a buffer of exactly its length and a terminator, so that
// AddressSanitizer sees a read past it.
std::unique_ptr<char[]> Copia(const uint8_t* inizio, size_t n) {
  std::unique_ptr<char[]> testo(new char[n + 1]);
  if (n) std::memcpy(testo.get(), inizio, n);
  testo[n] = '\0';
  return testo;
}

struct Stato {
  Istantanea posizione;
  std::vector<uint64_t> legali;
  bool operator==(const Stato&) const = default;
};
Stato Ora() { return {Fotografa(), ParoleLegali()}; }

}  // namespace

const char* ProvaTestiMossa(const uint8_t* dati, size_t lunghezza) {
  static const bool tabelle = [] {
    InizializzaTabelle();
    return true;
  }();
  (void)tabelle;
  MosseTenute = 0;
  if (lunghezza == 0) return nullptr;
  memoria::Azzera();
  InstallaDopoFinestra(nullptr);
  InstallaSchermoOrologio({});
  SegnaOrologioInMoto(false);

  const uint8_t scelta = dati[0];
  const uint8_t* p = dati + 1;
  const uint8_t* const fine = dati + lunghezza;
  auto RigaSeguente = [&](const uint8_t*& inizio, size_t& n) {
    inizio = p;
    while (p < fine && *p != '\n') ++p;
    n = size_t(p - inizio);
    if (p < fine) ++p;
  };

  bool caricata = false;
  if (scelta >= 128 && p < fine) {
    const uint8_t* inizio;
    size_t n;
    RigaSeguente(inizio, n);
    caricata = NuovaPartitaDa(Copia(inizio, n).get());
  }
  if (!caricata && !NuovaPartitaDa(Posizioni[scelta % NUMERO_POSIZIONI]))
    return "a position of the table was refused";

  // The state after each kept move, index = moves kept.
  std::vector<Stato> storia{Ora()};
  std::vector<std::string> scritti;
  for (int t = 0; t < MASSIMO_TESTI && p < fine; ++t) {
    const uint8_t* inizio;
    size_t n;
    RigaSeguente(inizio, n);
    const std::unique_ptr<char[]> testo = Copia(inizio, n);
    const Stato& prima = storia.back();
    const uint64_t contatore = ContatoreMosse;

    if (!LeggiDettagliMossaDaComando(testo.get())) continue;
    const uint64_t compatibile = TrovaMossaCompatibile();
    if (compatibile && !Contiene(prima.legali, compatibile))
      return "TrovaMossaCompatibile gave a move that is not legal";
    // As the console does after the arbiter's Yes.
    if (PartitaAggiudicata()) RevocaAggiudicazione();
    const uint64_t mossa = FaiMossaInComando();
    if (!mossa) {
      if (ContatoreMosse != contatore || !(Ora() == prima))
        return "a refused move changed the position";
      continue;
    }
    if (!Contiene(prima.legali, mossa)) return "FaiMossaInComando played a move that is not legal";
    if (ContatoreMosse != contatore + 1 || ElencoMosse[ContatoreMosse] != mossa)
      return "the move played is not in the record";
    AnnotaConArbitro(mossa);
    const std::string scritto = ElencoStringaMossa[ContatoreMosse];
    if (scritto.size() < 2 || scritto.size() >= size_t(LUNGHEZZA_STRINGA_MOSSA))
      return "the record's text has a wrong length";
    const Stato dopo = Ora();

    if (RitiraUltimaMossa() != 1) return "the move just played could not be taken back";
    if (ContatoreMosse != contatore || !(Ora() == prima))
      return "the take-back did not restore the position and its legal moves";
    if (PartitaAggiudicata()) return "the take-back left a result";

    // The record's own text must name the same move.
    const std::unique_ptr<char[]> ancora =
        Copia(reinterpret_cast<const uint8_t*>(scritto.data()), scritto.size());
    if (!LeggiDettagliMossaDaComando(ancora.get())) return "the record's text is not read";
    if (FaiMossaInComando() != mossa) return "the record's text names another move";
    AnnotaConArbitro(mossa);
    if (scritto != ElencoStringaMossa[ContatoreMosse]) return "the record wrote another text";
    if (!(Ora() == dopo)) return "the move typed again led elsewhere";
    storia.push_back(dopo);
    scritti.push_back(scritto);
    ++MosseTenute;
    if (PartitaCompleta()) break;
  }

  // Back to the loaded position, one move at a time.
  while (storia.size() > 1) {
    storia.pop_back();
    if (RitiraUltimaMossa() != 1) return "a kept move could not be taken back";
    if (!(Ora() == storia.back())) return "a take-back did not restore the earlier position";
  }
  if (RitiraUltimaMossa() != 0) return "a move before the loaded position was taken back";
  return nullptr;
}
