// Whole games of random legal moves through the road of a typed move. Each
// move is first typed by its coordinates; the record's text for it must
// match the notation worked out here independently, and, after the move is
// taken back, typing that text must find the very same move and lead to the
// same position, record and status. Take-backs are mixed in; games end at
// mate, stalemate, insufficient material, an adjudication the arbiter keeps,
// or the record's last ply. Every game's file is read by pgn-extract.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "ambiente_partita.h"
#include "board/attacchi.h"
#include "comune/pgn_extract.h"
#include "game/file_partita.h"
#include "moves/registro.h"

namespace {

constexpr int PARTITE = 200;

// Whether the king of the side to move is attacked, from the board alone.
bool SottoScacco() {
  const Colore lato = AlTratto();
  return lato == BIANCO ? attaccano_pezzi<NERO>(casa_re[BIANCO])
                        : attaccano_pezzi<BIANCO>(casa_re[NERO]);
}

// The notation of `mossa` in the position on the board (legal list
// current), without the check sign: standard algebraic notation, castling
// with zeros, and a piece that needs its whole origin written without its
// letter.
std::string NotazioneAttesa(uint64_t mossa) {
  const uint64_t tipo = TipoMossa(mossa);
  if (tipo == ARROCCO_CORTO) return "0-0";
  if (tipo == ARROCCO_LUNGO) return "0-0-0";
  const uint64_t o = OrigineMossa(mossa), d = DestinazioneMossa(mossa);
  const uint32_t pezzo = TipoPezzoMossa[tipo];
  const bool cattura = PezzoIn[d] != CASA_VUOTA || tipo == CATTURA_ENPASSANT;
  const std::string partenza = Coordinate(mossa).substr(0, 2);
  const std::string arrivo = Coordinate(mossa).substr(2, 2);
  std::string t;
  if (pezzo == PEDONE) {
    if (cattura) t = partenza.substr(0, 1) + "x";
  } else if (pezzo == RE) {
    t = cattura ? "Kx" : "K";
  } else {
    bool altre = false, stessa_colonna = false, stessa_traversa = false;
    for (const uint64_t* p = BufferMosseGenerate; p < FineMosseGenerate; ++p) {
      const uint64_t a = OrigineMossa(*p);
      if (a == o || DestinazioneMossa(*p) != d || TipoPezzoMossa[TipoMossa(*p)] != pezzo) continue;
      altre = true;
      stessa_colonna |= (a & 7) == (o & 7);
      stessa_traversa |= (a >> 3) == (o >> 3);
    }
    if (!altre)
      t = std::string(1, "PNBRQK"[pezzo]);
    else if (!stessa_colonna)
      t = std::string(1, "PNBRQK"[pezzo]) + partenza[0];
    else if (!stessa_traversa)
      t = std::string(1, "PNBRQK"[pezzo]) + partenza[1];
    else
      t = partenza;
    if (cattura) t += 'x';
  }
  t += arrivo;
  const uint32_t promozione = TipoPromozioneMossa[tipo];
  if (promozione != 255) t += std::string("=") + "PNBRQK"[promozione];
  return t;
}

struct Ply {
  Istantanea posizione;
  std::vector<uint64_t> legali;
};

class PartiteCasuali : public AmbientePartita {
 protected:
  std::mt19937_64 caso;
  bool fino_al_limite = false;
  uint64_t Caso(uint64_t n) { return caso() % n; }

  // The state of the game after each ply so far, index = ply.
  std::vector<Ply> storia;
  // Keys of the positions after each ply, for the repetitions.
  std::vector<uint64_t> chiavi;

  // Counters over all games, to see that every ending was met.
  int finali[9] = {};
  enum { MATTO, STALLO, MATERIALE, CINQUANTA, TRIPLICE, LIMITE, TETTO, RITIRI, SATURO };

  void Registra() {
    storia.push_back({Fotografa(), ParoleLegali()});
    chiavi.push_back(ChiaveHash);
  }

  void Ritira() {
    ASSERT_EQ(RitiraUltimaMossa(), 1);
    storia.pop_back();
    chiavi.pop_back();
    const Istantanea ora = Fotografa();
    ASSERT_EQ(ora, storia.back().posizione) << Differenze(storia.back().posizione, ora);
    ASSERT_EQ(ParoleLegali(), storia.back().legali);
    ASSERT_FALSE(PartitaAggiudicata());
    ++finali[RITIRI];
  }

  // Earlier occurrences of the current position with the same side to move.
  int Occorrenze() const {
    int n = 0;
    for (size_t k = chiavi.size() - 1; k >= 2;) {
      k -= 2;
      if (chiavi[k] == ChiaveHash) ++n;
    }
    return n;
  }

  // A random legal move, with a lean towards undoing the side's own last
  // move (repetitions, long reversible runs) and towards captures (the
  // endings), so that every ending turns up in a short run.
  uint64_t Scegli(size_t quante) {
    const uint64_t modo = Caso(4);
    if (modo == 0 && ContatoreMosse >= 2) {
      const uint64_t propria = ElencoMosse[ContatoreMosse - 1];
      for (const uint64_t* p = BufferMosseGenerate; p < FineMosseGenerate; ++p)
        if (OrigineMossa(*p) == DestinazioneMossa(propria) &&
            DestinazioneMossa(*p) == OrigineMossa(propria))
          return *p;
    }
    if (modo == 1) {
      std::vector<uint64_t> catture;
      for (const uint64_t* p = BufferMosseGenerate; p < FineMosseGenerate; ++p)
        if (PezzoIn[DestinazioneMossa(*p)] != CASA_VUOTA) catture.push_back(*p);
      if (!catture.empty()) return catture[Caso(catture.size())];
    }
    return BufferMosseGenerate[Caso(quante)];
  }

  // One ply: typed by coordinates, checked, taken back, typed again by the
  // record's text. False when the game is over.
  bool GiocaUnaMossa() {
    const uint64_t n = ContatoreMosse;
    const size_t quante = size_t(FineMosseGenerate - BufferMosseGenerate);
    EXPECT_GT(quante, 0u);
    if (quante == 0) return false;
    const uint64_t mossa = Scegli(quante);
    const std::string coordinate = Coordinate(mossa);
    std::string attesa = NotazioneAttesa(mossa);
    const Ply prima = storia.back();

    // By the coordinates.
    EXPECT_EQ(LeggiDettagliMossaDaComando(coordinate.c_str()), 1) << coordinate;
    EXPECT_EQ(FaiMossaInComando(), mossa) << coordinate;
    if (ContatoreMosse != n + 1) return false;
    const size_t finestre_prima = memoria::Finestre().size();
    AnnotaMossa(mossa);
    const std::string scritta = ElencoStringaMossa[n + 1];

    // What must have followed.
    const bool scacco = SottoScacco();
    const bool nessuna = FineMosseGenerate == BufferMosseGenerate;
    chiavi.push_back(ChiaveHash);
    std::vector<std::string> finestre;
    std::string stato = "* | ? | ";
    int finale = -1;
    if (nessuna) {
      attesa += scacco ? "#" : "";
      stato = scacco ? std::string(StringaSconfitta[AlTratto()]) + " | Checkmate | scaccomatto"
                     : "1/2-1/2 | stalemate | stallo";
      finestre.push_back(Box((scacco ? std::string("scaccomatto, partita aggiudicata ( ") +
                                           StringaSconfitta[AlTratto()]
                                     : std::string("stallo, partita aggiudicata ( 1/2-1/2")) +
                                 " ).",
                             AVVISO));
      finale = scacco ? MATTO : STALLO;
    } else {
      attesa += scacco ? "+" : "";
      if (!PuoVincereIl_bianco() && !PuoVincereIl_nero()) {
        stato = "1/2-1/2 | insufficient material | materiale insufficente";
        finestre.push_back(Box("materiale insufficente, partita aggiudicata ( 1/2-1/2 ).", AVVISO));
        finale = MATERIALE;
      } else {
        // The claims are declined (the boxes' own answer), the repetition
        // is adjudicated all the same.
        if (Semimosse(InfoPosizione) == 100) {
          finestre.push_back(Box("Aggiudicare la patta per la regola delle 50 mosse?", MB_YESNO));
          ++finali[CINQUANTA];
        }
        // A stopped half-move clock: the scan must still find everything.
        if (Semimosse(InfoPosizione) == MASCHERA_SEMIMOSSE) ++finali[SATURO];
        const int occorrenze = Occorrenze();
        EXPECT_EQ(Ripetizioni, uint32_t(std::min(occorrenze, 2)));
        if (occorrenze >= 2) {
          finestre.push_back(Box("Triplice ripetizione: aggiudicare la patta?", MB_YESNO));
          stato = "1/2-1/2 | threefold repetition | triplice ripetizione";
          finale = TRIPLICE;
        }
      }
    }
    EXPECT_EQ(scritta, attesa) << "ply " << n + 1;
    EXPECT_EQ(Stato(), stato) << "ply " << n + 1 << " " << scritta;
    const std::vector<std::string> tutte = Finestre();
    EXPECT_EQ(std::vector<std::string>(tutte.begin() + long(finestre_prima), tutte.end()), finestre)
        << "ply " << n + 1 << " " << scritta;
    // Not the whole key: queen-side castling keeps the rights' keys in it.
    EXPECT_EQ(CalcolaHashPedoni(), HashPedoni);
    chiavi.pop_back();
    const Ply dopo{Fotografa(), ParoleLegali()};

    // Taken back: the position, its moves and an open game.
    EXPECT_EQ(RitiraUltimaMossa(), 1);
    const Istantanea ritirata = Fotografa();
    EXPECT_EQ(ritirata, prima.posizione) << Differenze(prima.posizione, ritirata);
    EXPECT_EQ(ParoleLegali(), prima.legali);
    EXPECT_EQ(Stato(), "* | ? | ");

    // Typed again as the record wrote it.
    EXPECT_EQ(LeggiDettagliMossaDaComando(scritta.c_str()), 1) << scritta;
    EXPECT_EQ(FaiMossaInComando(), mossa) << scritta << " " << coordinate;
    if (ContatoreMosse != n + 1) return false;
    AnnotaMossa(mossa);
    EXPECT_EQ(std::string(ElencoStringaMossa[n + 1]), scritta);
    const Istantanea rifatta = Fotografa();
    EXPECT_EQ(rifatta, dopo.posizione) << Differenze(dopo.posizione, rifatta);
    EXPECT_EQ(ParoleLegali(), dopo.legali);
    EXPECT_EQ(Stato(), stato);
    Registra();
    if (::testing::Test::HasFailure()) return false;

    switch (finale) {
      case MATTO:
      case STALLO:
      case MATERIALE:
        ++finali[finale];
        // Sometimes the arbiter takes the last move back and play goes on.
        if (fino_al_limite || Caso(3) == 0) {
          Ritira();
          return true;
        }
        return false;
      case TRIPLICE:
        ++finali[finale];
        // Revoked as after a Yes to the revocation question.
        if (fino_al_limite || Caso(2) == 0) {
          RevocaAggiudicazione();
          return true;
        }
        return false;
      default:
        return true;
    }
  }

  void GiocaPartita(uint64_t seme) {
    caso.seed(seme);
    memoria::Azzera();
    RevocaAggiudicazione();
    Nuova(FenIniziale);
    storia.clear();
    chiavi.clear();
    Registra();
    // Most games stop early to keep the run short; in some the arbiter
    // goes on after every ending, up to the record's last ply.
    fino_al_limite = seme % 10 == 0;
    const uint64_t tetto = fino_al_limite ? ULTIMA_SEMIMOSSA : 200 + Caso(150);
    while (true) {
      if (ContatoreMosse >= tetto) {
        if (PartitaCompleta()) {
          // One more legal move is refused and changes nothing.
          const Istantanea prima = Fotografa();
          const uint64_t mossa = BufferMosseGenerate[0];
          ASSERT_EQ(LeggiDettagliMossaDaComando(Coordinate(mossa).c_str()), 1);
          EXPECT_EQ(FaiMossaInComando(), 0u);
          EXPECT_EQ(Fotografa(), prima);
          ++finali[LIMITE];
        } else {
          ++finali[TETTO];
        }
        return;
      }
      if (ContatoreMosse > 0 && Caso(20) == 0) {
        for (uint64_t r = 1 + Caso(3); r > 0 && ContatoreMosse > 0; --r) {
          Ritira();
          if (HasFatalFailure()) return;
        }
        continue;
      }
      if (!GiocaUnaMossa()) return;
    }
  }
};

TEST_F(PartiteCasuali, DuecentoPartiteDallaPosizioneIniziale) {
  // The game files one after another, for one run of the outside reader.
  std::string file_partite;
  for (uint64_t seme = 1; seme <= PARTITE; ++seme) {
    GiocaPartita(seme);
    ASSERT_FALSE(HasFailure()) << "seme " << seme << ", ply " << ContatoreMosse;
    static char pgn[32768];
    const size_t lunghezza = TestoPartita(pgn, sizeof pgn);
    ASSERT_LT(lunghezza, sizeof pgn) << "seme " << seme;
    file_partite.append(pgn, lunghezza);
  }
  if (pgn_extract::MotivoAssenza().empty())
    EXPECT_TRUE(pgn_extract::TestoLettoSenzaErrori(file_partite, PARTITE));
  else
    std::printf("pgn-extract not run: %s\n", pgn_extract::MotivoAssenza().c_str());
  // Every way a game ends was met.
  EXPECT_GT(finali[MATTO], 0);
  EXPECT_GT(finali[STALLO], 0);
  EXPECT_GT(finali[MATERIALE], 0);
  EXPECT_GT(finali[CINQUANTA], 0);
  EXPECT_GT(finali[TRIPLICE], 0);
  EXPECT_GT(finali[LIMITE], 0);
  EXPECT_GT(finali[RITIRI], 0);
  EXPECT_GT(finali[SATURO], 0);
  std::printf(
      "matti %d, stalli %d, materiale %d, cinquanta %d, triplici %d, limite %d, tetto %d, "
      "ritiri %d, orologio fermo a 127 %d\n",
      finali[MATTO], finali[STALLO], finali[MATERIALE], finali[CINQUANTA], finali[TRIPLICE],
      finali[LIMITE], finali[TETTO], finali[RITIRI], finali[SATURO]);
}

}  // namespace
