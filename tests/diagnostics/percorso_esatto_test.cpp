// An exact walk (one move buffer per ply) over the reference positions that
// checks at every position met: the tactical and the quiet generator together
// emit exactly the full generator's moves; every make is either refused with
// every global unchanged or followed by a clean self-check; every unmake gives
// back every global and a clean self-check. The one expected report is the
// hash of positions reached through a queen-side castling made with its right
// set, which keeps the cleared rights' keys: there the recomputed key must
// differ from ChiaveHash by exactly those keys.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "aiuti_diagnostica.h"
#include "board/mossa.h"
#include "diagnostics/controlli.h"
#include "moves/genera.h"
#include "moves/registro.h"
#include "moves/tavole.h"
#include "piattaforma/memoria/memoria.h"

namespace {

using Buffer = std::array<uint64_t, DIMENSIONE_BUFFER_MOSSE>;

bool Tattica(uint64_t tipo) { return tipo >= PEDONE_CATTURA; }

// Keys that a queen-side castling leaves in ChiaveHash although it clears the
// rights.
uint64_t ChiaviLasciate(uint64_t mossa, uint64_t info_prima, Colore mosso) {
  if (TipoMossa(mossa) != ARROCCO_LUNGO) return 0;
  if (!(info_prima & DirittoArrocco(mosso, true))) return 0;
  return ChiaveDiritti(info_prima & DirittiDel(mosso));
}

struct Esito {
  uint64_t foglie = 0, posizioni = 0, mosse_rifiutate = 0, report_attesi = 0;
  uint64_t stati[2][4] = {};  // positions met, by side to move and check state
  uint64_t errori = 0;
  std::vector<std::string> messaggi;  // the first few errors, for the failure message
};

class PercorsoEsatto {
 public:
  explicit PercorsoEsatto(int profondita) : buffer_(size_t(profondita) + 1) {}

  Esito Esegui(int profondita) {
    esito_ = Esito();
    Visita(profondita, 0, 0);
    return esito_;
  }

 private:
  void Errore(const std::string& testo) {
    ++esito_.errori;
    if (esito_.messaggi.size() < 10) {
      std::ostringstream s;
      s << testo << " (ply " << ContatoreMosse << ", last move " << ElencoMosse[ContatoreMosse]
        << ")";
      esito_.messaggi.push_back(s.str());
    }
  }

  // After every make and unmake: nothing reported, except the kept castling
  // keys.
  void Controlla(int dopo_ritira, uint64_t chiavi_lasciate) {
    ControllaPosizione(dopo_ritira);
    const RecordControlloPosizione& r = ReportControlloPosizione;
    if (chiavi_lasciate == 0) {
      if (r.LunghezzaTesto != 0) Errore(std::string("report: ") + r.testo);
      return;
    }
    ++esito_.report_attesi;
    if (std::string(r.testo) != "chiave hash scorretta\n")
      Errore(std::string("expected only the hash line, got: ") + r.testo);
    if ((r.ChiaveRicalcolata ^ ChiaveHash) != chiavi_lasciate)
      Errore("recomputed key differs by other than the kept castling keys");
  }

  // The tactical and quiet generators split the full generator's output.
  void ControllaGeneratori(Buffer& tutte, uint64_t* fine_tutte) {
    Buffer tattiche, quiete;
    uint64_t* fine_t = genera_tattiche_del[AlTratto()](tattiche.data());
    uint64_t* fine_q = genera_noncatture_del[AlTratto()](quiete.data());
    std::vector<uint64_t> attese(tutte.data(), fine_tutte);
    std::vector<uint64_t> unite(tattiche.data(), fine_t);
    for (uint64_t m : unite)
      if (!Tattica(TipoMossa(m))) Errore("quiet move from the tactical generator");
    for (const uint64_t* m = quiete.data(); m < fine_q; ++m) {
      if (Tattica(TipoMossa(*m))) Errore("tactical move from the quiet generator");
      unite.push_back(*m);
    }
    std::sort(attese.begin(), attese.end());
    std::sort(unite.begin(), unite.end());
    if (attese != unite) Errore("tactical + quiet differ from the full generator");
  }

  void Visita(int profondita, int ply, uint64_t chiavi_lasciate) {
    ++esito_.posizioni;
    const Colore c = AlTratto();
    ++esito_.stati[c][StatoDiScacco(InfoPosizione)];
    Buffer& mosse = buffer_[size_t(ply)];
    uint64_t* fine = genera_mosse_del[c](mosse.data());
    ControllaGeneratori(mosse, fine);
    if (profondita == 0) {
      ++esito_.foglie;
      return;
    }
    const FunzioneFai* fai = fai_mossa[c];
    const FunzioneRitira* ritira = ritira_mossa[c];
    SalvaParolePosizione();
    const Istantanea prima = Fotografa();
    for (const uint64_t* m = mosse.data(); m < fine; ++m) {
      const uint64_t info_prima = InfoPosizione;
      if (!fai[TipoMossa(*m)](*m)) {
        ++esito_.mosse_rifiutate;
        if (!(Fotografa() == prima))
          Errore("refused make changed " + Differenze(prima, Fotografa()));
        continue;
      }
      if (ContatoreMosse != prima.contatore + 1 || ElencoMosse[ContatoreMosse] != *m)
        Errore("make did not record the move");
      const uint64_t lasciate = chiavi_lasciate ^ ChiaviLasciate(*m, info_prima, c);
      Controlla(0, lasciate);
      Visita(profondita - 1, ply + 1, lasciate);
      ritira[TipoMossa(ElencoMosse[ContatoreMosse])](ElencoMosse[ContatoreMosse]);
      Controlla(1, chiavi_lasciate);
      if (!(Fotografa() == prima)) Errore("unmake left " + Differenze(prima, Fotografa()));
    }
  }

  std::vector<Buffer> buffer_;
  Esito esito_;
};

struct Caso {
  std::string nome, fen;
  int profondita;
  uint64_t foglie;  // the published count at that depth
};

// Readable test names in CTest's listing.
void PrintTo(const Caso& caso, std::ostream* uscita) {
  *uscita << caso.nome << " depth " << caso.profondita;
}

std::vector<Caso> Casi(const std::string& tabella, int profondita) {
  std::vector<Caso> casi;
  for (const RigaPerft& r : LeggiTabellaPerft(tabella))
    if (r.profondita == profondita) casi.push_back({r.nome, r.fen, r.profondita, r.nodi});
  return casi;
}

std::vector<Caso> TuttiICasi() {
  std::vector<Caso> casi = Casi(TabellaRiferimento, 3);
  for (const Caso& c : Casi(TabellaExtra, 3)) casi.push_back(c);
  return casi;
}

Esito Percorri(const Caso& caso) {
  EXPECT_TRUE(CaricaFen(caso.fen)) << caso.fen;
  memoria::Azzera();
  PercorsoEsatto percorso(caso.profondita);
  // Expected reports print themselves; keep them out of the test log.
  testing::internal::CaptureStdout();
  Esito esito = percorso.Esegui(caso.profondita);
  const std::string stampato = testing::internal::GetCapturedStdout();
  size_t stampe = 0;
  for (size_t p = stampato.find("Errore!\n"); p != std::string::npos;
       p = stampato.find("Errore!\n", p + 1))
    ++stampe;
  if (esito.errori == 0) {
    EXPECT_EQ(stampe, esito.report_attesi) << "every report is printed";
  }
  return esito;
}

std::string Riassunto(const Esito& e) {
  std::string s;
  for (const std::string& m : e.messaggi) s += m + "\n";
  return s;
}

class PercorsoControllato : public testing::TestWithParam<Caso> {};

TEST_P(PercorsoControllato, NessunReportSalvoLeChiaviDellArroccoLungo) {
  const Caso& caso = GetParam();
  const Istantanea iniziale = (CaricaFen(caso.fen), Fotografa());
  const Esito esito = Percorri(caso);
  EXPECT_EQ(esito.errori, 0u) << Riassunto(esito);
  EXPECT_EQ(esito.foglie, caso.foglie);
  EXPECT_EQ(Fotografa(), iniziale) << Differenze(iniziale, Fotografa());
}

TEST(PercorsoControllatoCopertura, OgniRigaDiProfonditaTre) {
  // The walks above are as many as the depth-3 rows: 7 reference, 32 extra.
  EXPECT_EQ(TuttiICasi().size(), 39u);
}

INSTANTIATE_TEST_SUITE_P(Posizioni, PercorsoControllato, testing::ValuesIn(TuttiICasi()),
                         [](const testing::TestParamInfo<Caso>& info) { return info.param.nome; });

TEST(PercorsoControllatoCopertura, OgniStatoDiScaccoEArroccoLungo) {
  // The walks must really meet every check state of the generators, for
  // either side to move, and the expected castling report, or the tests above
  // prove less than they say.
  const std::vector<std::string> nomi = {"position2_kiwipete",   "position3",
                                         "scacco_di_scoperta",   "scacco_di_scoperta_specchio",
                                         "scacco_doppio",        "scacco_doppio_specchio",
                                         "arrocco_lungo_scacco", "arrocco_lungo_scacco_specchio"};
  Esito totale;
  int percorsi = 0;
  for (const Caso& caso : TuttiICasi()) {
    if (std::find(nomi.begin(), nomi.end(), caso.nome) == nomi.end()) continue;
    ++percorsi;
    Caso breve = caso;
    breve.profondita = 2;
    const Esito e = Percorri(breve);
    EXPECT_EQ(e.errori, 0u) << caso.nome << "\n" << Riassunto(e);
    for (int lato = 0; lato < 2; ++lato)
      for (int s = 0; s < 4; ++s) totale.stati[lato][s] += e.stati[lato][s];
    totale.report_attesi += e.report_attesi;
    totale.mosse_rifiutate += e.mosse_rifiutate;
  }
  EXPECT_EQ(percorsi, int(nomi.size()));
  for (int lato = 0; lato < 2; ++lato) {
    SCOPED_TRACE(lato == 0 ? "White to move" : "Black to move");
    EXPECT_GT(totale.stati[lato][NESSUNO_SCACCO_STATO], 0u);
    EXPECT_GT(totale.stati[lato][SCACCO_PRIMO], 0u);
    EXPECT_GT(totale.stati[lato][SCACCO_SECONDO], 0u);
    EXPECT_GT(totale.stati[lato][SCACCO_DOPPIO], 0u);
  }
  EXPECT_GT(totale.report_attesi, 0u);
  EXPECT_GT(totale.mosse_rifiutate, 0u);
}

}  // namespace
