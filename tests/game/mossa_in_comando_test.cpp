// The legal moves of the position on the board, the lookup of a typed move
// among them, and playing it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ambiente_partita.h"
#include "clock/cadenza.h"
#include "moves/registro.h"
#include "settings/parametri.h"
#include "supporto/stati.h"

namespace {

class MossaInComando : public AmbientePartita {};

// ---------------------------------------------------------------------------
// GeneraMosseLegali.

TEST_F(MossaInComando, LeVentiMosseIniziali) {
  const std::vector<std::string> attese = {"a2a3", "a2a4", "b1a3", "b1c3", "b2b3", "b2b4", "c2c3",
                                           "c2c4", "d2d3", "d2d4", "e2e3", "e2e4", "f2f3", "f2f4",
                                           "g1f3", "g1h3", "g2g3", "g2g4", "h2h3", "h2h4"};
  EXPECT_EQ(Legali(), attese);
}

TEST_F(MossaInComando, LeChiaviDelPlySonoRegistrate) {
  Nuova("4k3/8/8/8/8/8/4P3/4K3 w - - 7 1");
  CambiaRegistro([](StatoRegistro& r) { r.chiave[0] = r.pedoni[0] = r.info[0] = 0; });
  GeneraMosseLegali();
  EXPECT_EQ(backup_ChiaveHash[0], ChiaveHash);
  EXPECT_EQ(backup_HashPedoni[0], HashPedoni);
  EXPECT_EQ(backup_InfoPosizione[0], InfoPosizione);

  ASSERT_EQ(Gioca("e4"), "e4");
  EXPECT_EQ(backup_ChiaveHash[1], ChiaveHash);
  EXPECT_EQ(backup_HashPedoni[1], HashPedoni);
  EXPECT_EQ(backup_InfoPosizione[1], InfoPosizione);
}

TEST_F(MossaInComando, IlFiltroLasciaLaPosizioneComEra) {
  Nuova("r3k2r/pppq1ppp/2n2n2/3pp3/1b2P3/2NP1N2/PPPB1PPP/R2QK2R w KQkq - 4 8");
  const Istantanea prima = Fotografa();
  GeneraMosseLegali();
  const Istantanea dopo = Fotografa();
  EXPECT_EQ(prima, dopo) << Differenze(prima, dopo);
}

TEST_F(MossaInComando, UnPezzoInchiodatoNonSiMuove) {
  Nuova("4r1k1/8/8/8/8/8/4N3/4K3 w - - 0 1");
  EXPECT_EQ(Legali(), (std::vector<std::string>{"e1d1", "e1d2", "e1f1", "e1f2"}));
}

TEST_F(MossaInComando, DopoOgniRifiutoLUltimaCandidataVieneEsaminata) {
  // Every candidate but the last three is refused: each refused slot gets the
  // last candidate, which must be examined in its turn, not skipped.
  Nuova("k7/8/8/8/8/2b5/1N6/K7 w - - 0 1");
  EXPECT_EQ(Legali(), (std::vector<std::string>{"a1a2", "a1b1"}));
  Nuova("1k6/8/8/8/8/8/3PPP2/r2NKN1r w - - 0 1");
  EXPECT_EQ(Legali(), (std::vector<std::string>{"d2d3", "d2d4", "e2e3", "e2e4", "f2f3", "f2f4"}));
}

TEST_F(MossaInComando, ArroccoConIlPassaggioOccupatoNonELegale) {
  for (const std::string& m : Legali()) EXPECT_NE(m, "e1g1");
  Nuova("r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1");
  const std::vector<std::string> legali = Legali();
  EXPECT_EQ(std::count(legali.begin(), legali.end(), "e1g1"), 1);
  EXPECT_EQ(std::count(legali.begin(), legali.end(), "e1c1"), 1);
}

// ---------------------------------------------------------------------------
// TrovaMossaCompatibile and the texts of a move.

TEST_F(MossaInComando, LaSpintaE4) {
  for (const char* testo : {"e4", "E4", "e2e4", "e4+", "e-4"})
    EXPECT_EQ(Cerca(testo), Mossa(Casa("e2"), Casa("e4"), PEDONE_AVANZA2)) << testo;
  EXPECT_EQ(Cerca("Pe4"), 0u);
  EXPECT_EQ(Cerca("e3"), Mossa(Casa("e2"), Casa("e3"), SPOSTA_PEDONE));
  EXPECT_EQ(Cerca("e5"), 0u);
}

TEST_F(MossaInComando, LaCatturaDaEaD) {
  Nuova("4k3/8/8/3p4/4P3/8/8/4K3 w - - 0 1");
  const uint64_t attesa = Mossa(Casa("e4"), Casa("d5"), PEDONE_CATTURA + uint64_t(PEDONE));
  for (const char* testo : {"ed", "exd5", "ed5", "EXD5", "e4d5"})
    EXPECT_EQ(Cerca(testo), attesa) << testo;
  EXPECT_EQ(Cerca("ae"), 0u);
  EXPECT_EQ(Cerca("ef"), 0u);
}

TEST_F(MossaInComando, DueCattureDaEaDSonoAmbigue) {
  Nuova("4k3/8/3p4/4P3/3p4/4P3/8/4K3 w - - 0 1");
  EXPECT_EQ(Cerca("ed"), 0u);
  EXPECT_EQ(Cerca("exd"), 0u);
  EXPECT_EQ(Cerca("ed4"), Mossa(Casa("e3"), Casa("d4"), PEDONE_CATTURA + uint64_t(PEDONE)));
  EXPECT_EQ(Cerca("ed6"), Mossa(Casa("e5"), Casa("d6"), PEDONE_CATTURA + uint64_t(PEDONE)));
  EXPECT_EQ(Cerca("dc"), 0u);
}

TEST_F(MossaInComando, IlCavalloDaG1) {
  const uint64_t attesa = Mossa(Casa("g1"), Casa("f3"), SPOSTA_CAVALLO);
  for (const char* testo : {"Nf3", "nf3", "Ng1f3", "g1f3", "N1f3", "Ngf3", "Ng1xf3+"})
    EXPECT_EQ(Cerca(testo), attesa) << testo;
  EXPECT_EQ(Cerca("Nbf3"), 0u);
  EXPECT_EQ(Cerca("Bf3"), 0u);
}

TEST_F(MossaInComando, DueCavalliSuD2) {
  Nuova("4k3/8/8/8/8/5N2/8/1N2K3 w - - 0 1");
  const uint64_t da_b1 = Mossa(Casa("b1"), Casa("d2"), SPOSTA_CAVALLO);
  const uint64_t da_f3 = Mossa(Casa("f3"), Casa("d2"), SPOSTA_CAVALLO);
  EXPECT_EQ(Cerca("Nd2"), 0u);
  EXPECT_EQ(Cerca("Nbd2"), da_b1);
  EXPECT_EQ(Cerca("N1d2"), da_b1);
  EXPECT_EQ(Cerca("Nfd2"), da_f3);
  EXPECT_EQ(Cerca("N3d2"), da_f3);
  EXPECT_EQ(Cerca("b1d2"), da_b1);
}

TEST_F(MossaInComando, UnTestoAmbiguoNonCambiaNulla) {
  Nuova("4k3/8/8/8/8/5N2/8/1N2K3 w - - 0 1");
  const Istantanea prima = Fotografa();
  const std::vector<std::string> legali = Legali();
  ASSERT_EQ(LeggiDettagliMossaDaComando("Nd2"), 1);
  EXPECT_EQ(FaiMossaInComando(), 0u);
  const Istantanea dopo = Fotografa();
  EXPECT_EQ(prima, dopo) << Differenze(prima, dopo);
  EXPECT_EQ(Legali(), legali);
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(MossaInComando, LaBMinuscolaComeAlfiere) {
  Nuova("4k3/8/8/8/8/8/8/4KB2 w - - 0 1");
  auto alfiere = [](const char* a) { return Mossa(Casa("f1"), Casa(a), SPOSTA_ALFIERE); };
  for (const char* testo : {"bd3", "Bd3", "ad3", "dd3", "hd3"}) {
    ASSERT_EQ(LeggiDettagliMossaDaComando(testo), 1) << testo;
    EXPECT_EQ(FaiMossaInComando(), alfiere("d3")) << testo;
    ASSERT_EQ(RitiraUltimaMossa(), 1);
  }
  // b and c are neighbours: a b-pawn capture first, the bishop when none exists.
  for (const char* testo : {"bc4", "ac4", "Bc4"}) {
    ASSERT_EQ(LeggiDettagliMossaDaComando(testo), 1) << testo;
    EXPECT_EQ(FaiMossaInComando(), alfiere("c4")) << testo;
    ASSERT_EQ(RitiraUltimaMossa(), 1);
  }
}

TEST_F(MossaInComando, LaCatturaDelPedoneBPrevaleSullAlfiere) {
  Nuova("4k3/8/8/8/2p5/1P6/8/4KB2 w - - 0 1");
  ASSERT_EQ(LeggiDettagliMossaDaComando("bc4"), 1);
  EXPECT_EQ(FaiMossaInComando(), Mossa(Casa("b3"), Casa("c4"), PEDONE_CATTURA + uint64_t(PEDONE)));
  ASSERT_EQ(RitiraUltimaMossa(), 1);
  for (const char* testo : {"ac4", "Bc4", "Bxc4"}) {
    ASSERT_EQ(LeggiDettagliMossaDaComando(testo), 1) << testo;
    EXPECT_EQ(FaiMossaInComando(),
              Mossa(Casa("f1"), Casa("c4"), ALFIERE_CATTURA + uint64_t(PEDONE)))
        << testo;
    ASSERT_EQ(RitiraUltimaMossa(), 1);
  }
}

TEST_F(MossaInComando, AC4SenzaAlfiereCheCiArriviFallisce) {
  // The bishop is shut in by its own pawn; the b-pawn could take on c4.
  Nuova("4k3/8/8/8/2p5/1P6/4P3/4KB2 w - - 0 1");
  ASSERT_EQ(LeggiDettagliMossaDaComando("ac4"), 1);
  EXPECT_EQ(FaiMossaInComando(), 0u);
  EXPECT_EQ(ContatoreMosse, 0u);
  ASSERT_EQ(LeggiDettagliMossaDaComando("bc4"), 1);
  EXPECT_EQ(FaiMossaInComando(), Mossa(Casa("b3"), Casa("c4"), PEDONE_CATTURA + uint64_t(PEDONE)));
}

TEST_F(MossaInComando, BC4SenzaPedoneNeAlfiereFallisce) {
  Nuova("4k3/8/8/8/8/8/4P3/4KB2 w - - 0 1");
  ASSERT_EQ(LeggiDettagliMossaDaComando("bc4"), 1);
  EXPECT_EQ(FaiMossaInComando(), 0u);
  EXPECT_EQ(ContatoreMosse, 0u);
}

TEST_F(MossaInComando, UnaCatturaTraColonneViciniDiversaDaBNonDiventaAlfiere) {
  // Only the b-file's letter can be a bishop's: "dc4" and "exd5" name pawn
  // captures that do not exist, even where a bishop reaches the square.
  Nuova("4k3/8/8/8/8/8/3P4/4KB2 w - - 0 1");
  for (const char* testo : {"dc4", "dxc4", "Dc4"}) {
    ASSERT_EQ(LeggiDettagliMossaDaComando(testo), 1) << testo;
    const Istantanea prima = Fotografa();
    EXPECT_EQ(FaiMossaInComando(), 0u) << testo;
    EXPECT_EQ(Fotografa(), prima) << testo;
  }
  Nuova("4k3/8/8/8/2B5/8/8/3K4 w - - 0 1");
  ASSERT_NE(Cerca("Bd5"), 0u);
  for (const char* testo : {"exd5", "ed5", "cd5"}) {
    ASSERT_EQ(LeggiDettagliMossaDaComando(testo), 1) << testo;
    const Istantanea prima = Fotografa();
    EXPECT_EQ(FaiMossaInComando(), 0u) << testo;
    EXPECT_EQ(Fotografa(), prima) << testo;
  }
  EXPECT_EQ(ContatoreMosse, 0u);
}

TEST_F(MossaInComando, Promozioni) {
  Nuova("k7/4P3/8/8/8/8/8/4K3 w - - 0 1");
  const uint64_t e7 = Casa("e7"), e8 = Casa("e8");
  EXPECT_EQ(Cerca("e8"), Mossa(e7, e8, PROMOZIONE_DONNA));
  EXPECT_EQ(Cerca("e8Q"), Mossa(e7, e8, PROMOZIONE_DONNA));
  EXPECT_EQ(Cerca("e7e8"), Mossa(e7, e8, PROMOZIONE_DONNA));
  for (const char* testo : {"e8N", "e8=N", "e8n", "e7e8N"})
    EXPECT_EQ(Cerca(testo), Mossa(e7, e8, PROMOZIONE_CAVALLO)) << testo;
  EXPECT_EQ(Cerca("e8B"), Mossa(e7, e8, PROMOZIONE_ALFIERE));
  EXPECT_EQ(Cerca("e8R"), Mossa(e7, e8, PROMOZIONE_TORRE));
  EXPECT_EQ(Cerca("e8b"), 0u);
  EXPECT_EQ(Cerca("e8K"), 0u);
}

TEST_F(MossaInComando, PromozioneConCattura) {
  Nuova("3rk3/4P3/8/8/8/8/8/4K3 w - - 0 1");
  EXPECT_EQ(Cerca("ed8"), Mossa(Casa("e7"), Casa("d8"), PROMOZIONE_DONNA + uint64_t(TORRE)));
  EXPECT_EQ(Cerca("exd8=N"), Mossa(Casa("e7"), Casa("d8"), PROMOZIONE_CAVALLO + uint64_t(TORRE)));
}

TEST_F(MossaInComando, Arrocchi) {
  Nuova("r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1");
  for (const char* testo : {"0-0", "O-O", "oo", "00", "Kg1", "e1g1"})
    EXPECT_EQ(Cerca(testo), MOSSA_O_O_BIANCO) << testo;
  for (const char* testo : {"0-0-0", "O-O-O", "Kc1", "e1c1"})
    EXPECT_EQ(Cerca(testo), MOSSA_O_O_O_BIANCO) << testo;
  EXPECT_EQ(Cerca("0-0-0-0"), 0u);

  Nuova("r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1");
  EXPECT_EQ(Cerca("0-0"), MOSSA_O_O_NERO);
  EXPECT_EQ(Cerca("O-O-O"), MOSSA_O_O_O_NERO);
}

TEST_F(MossaInComando, PiuDiCinqueCaratteriNonSonoUnaMossa) {
  EXPECT_EQ(Cerca("Ng1xf3+"), Mossa(Casa("g1"), Casa("f3"), SPOSTA_CAVALLO));
  EXPECT_EQ(LeggiDettagliMossaDaComando("e2e4e5"), 0);
}

// ---------------------------------------------------------------------------
// FaiMossaInComando.

TEST_F(MossaInComando, LaMossaVieneGiocataERegistrata) {
  ASSERT_EQ(LeggiDettagliMossaDaComando("Nf3"), 1);
  const uint64_t attesa = Mossa(Casa("g1"), Casa("f3"), SPOSTA_CAVALLO);
  EXPECT_EQ(FaiMossaInComando(), attesa);
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_EQ(ElencoMosse[1], attesa);
  EXPECT_EQ(PezzoIn[Casa("f3")] >> 5, uint64_t(CAVALLO));
  EXPECT_EQ(PezzoIn[Casa("g1")], CASA_VUOTA);
  EXPECT_EQ(CalcolaChiaveHash(), ChiaveHash);
}

TEST_F(MossaInComando, ConLOrologioFermoNonSiPremeNulla) {
  const int32_t bianco = TempoRimasto[0], nero = TempoRimasto[1];
  memoria::AvanzaMillisecondi(5000);
  EXPECT_EQ(Gioca("e4"), "e4");
  EXPECT_EQ(TempoRimasto[0], bianco);
  EXPECT_EQ(TempoRimasto[1], nero);
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(MossaInComando, ConLOrologioInMotoSiPremePerChiHaMosso) {
  DefaultIni();
  ImpostaParametro(PARAMETRO_PERIODI, 1);
  ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 2);
  ImpostaCadenzaPartita(CadenzaDaiParametri());
  memoria::ImpostaMillisecondi(100000);
  CambiaOrologio([](StatoOrologio& s) {
    s.tempo[0] = s.tempo[1] = 60000;
    s.inizio = Adesso();
    s.in_moto = 1;
  });

  memoria::AvanzaMillisecondi(7000);
  EXPECT_EQ(Gioca("e4"), "e4");
  EXPECT_EQ(TempoRimasto[0], 60000 - 7000 + 2000);
  EXPECT_EQ(TempoRimasto[1], 60000);
  EXPECT_EQ(InizioTempo, Adesso());

  memoria::AvanzaMillisecondi(3000);
  EXPECT_EQ(Gioca("e5"), "e5");
  EXPECT_EQ(TempoRimasto[0], 55000);
  EXPECT_EQ(TempoRimasto[1], 60000 - 3000 + 2000);

  // A refused text presses nothing.
  memoria::AvanzaMillisecondi(1000);
  EXPECT_EQ(Gioca("e5"), "");
  EXPECT_EQ(TempoRimasto[0], 55000);
  EXPECT_EQ(TempoRimasto[1], 59000);
  SegnaOrologioInMoto(false);
  DefaultIni();
  ImpostaCadenzaPartita(CadenzaDaiParametri());
}

}  // namespace
