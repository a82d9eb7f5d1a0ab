// The record's last ply, taking a move back, the record of a new game and
// the debug print of the facts of a typed move.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ambiente_partita.h"
#include "moves/legali.h"
#include "moves/registro.h"
#include "supporto/stati.h"

namespace {

class LimiteSemimosse : public AmbientePartita {};
class RitiroMossa : public AmbientePartita {};
class NuovoRecord : public AmbientePartita {};
class DettagliStampati : public AmbientePartita {};

// ---------------------------------------------------------------------------

TEST_F(LimiteSemimosse, UltimaSemimossaEIlTesto) {
  // The filter of the position after the last ply writes the last entry of
  // ElencoMosse; every other table stops at the ply itself.
  EXPECT_EQ(ULTIMA_SEMIMOSSA, 510u);
  EXPECT_EQ(ULTIMA_SEMIMOSSA + 1, uint64_t(MAX_SEMIMOSSE - 1));
  EXPECT_STREQ(TestoPartitaCompleta,
               "La partita ha raggiunto il numero massimo di semimosse registrabili: non si "
               "possono giocare altre mosse.");
}

TEST_F(LimiteSemimosse, LaPartitaSiFermaAllUltimaSemimossa) {
  const char* const giro[4] = {"Nf3", "Nf6", "Ng1", "Ng8"};
  CambiaPosizione([](StatoPosizione& p) { p.elenco[MAX_SEMIMOSSE - 1] = 0; });
  while (ContatoreMosse < ULTIMA_SEMIMOSSA) {
    ASSERT_FALSE(PartitaCompleta()) << ContatoreMosse;
    // Every fourth ply repeats; the arbiter revokes and play goes on.
    if (PartitaAggiudicata()) RevocaAggiudicazione();
    const char* testo = giro[ContatoreMosse % 4];
    ASSERT_EQ(Gioca(testo), testo) << ContatoreMosse;
  }
  EXPECT_TRUE(PartitaCompleta());
  EXPECT_EQ(std::string(ElencoStringaMossa[ULTIMA_SEMIMOSSA]), "Nf6");
  // The legal moves of this last position were tried in the very last entry.
  EXPECT_NE(ElencoMosse[MAX_SEMIMOSSE - 1], 0u);
  ASSERT_EQ(Legali().size(), 22u);

  RevocaAggiudicazione();
  const Istantanea prima = Fotografa();
  const std::vector<std::string> legali = Legali();
  const size_t finestre = memoria::Finestre().size();
  for (const char* testo : {"Ng1", "e4", "Nc3"}) {
    ASSERT_EQ(LeggiDettagliMossaDaComando(testo), 1);
    EXPECT_EQ(FaiMossaInComando(), 0u) << testo;
  }
  const Istantanea dopo = Fotografa();
  EXPECT_EQ(prima, dopo) << Differenze(prima, dopo);
  EXPECT_EQ(Legali(), legali);
  EXPECT_EQ(memoria::Finestre().size(), finestre);

  // A take-back makes room for one ply again.
  ASSERT_EQ(RitiraUltimaMossa(), 1);
  EXPECT_EQ(ContatoreMosse, ULTIMA_SEMIMOSSA - 1);
  EXPECT_FALSE(PartitaCompleta());
  EXPECT_EQ(Gioca("Nc6"), "Nc6");
  EXPECT_TRUE(PartitaCompleta());
  ASSERT_EQ(LeggiDettagliMossaDaComando("Nc3"), 1);
  EXPECT_EQ(FaiMossaInComando(), 0u);
}

TEST_F(LimiteSemimosse, AncheDaUnaPosizioneColNeroAlTratto) {
  Nuova("4k3/8/8/8/8/8/8/R3K3 b - - 0 1");
  const char* const giro[4] = {"Ra1", "Kd7", "Ra2", "Ke8"};
  while (!PartitaCompleta()) {
    if (PartitaAggiudicata()) RevocaAggiudicazione();
    const char* testo = giro[ContatoreMosse % 4];
    ASSERT_EQ(Gioca(testo), testo) << ContatoreMosse;
  }
  EXPECT_EQ(ContatoreMosse, ULTIMA_SEMIMOSSA);
  ASSERT_EQ(LeggiDettagliMossaDaComando("Ra2"), 1);
  EXPECT_EQ(FaiMossaInComando(), 0u);
  EXPECT_EQ(ContatoreMosse, ULTIMA_SEMIMOSSA);
}

// ---------------------------------------------------------------------------

TEST_F(RitiroMossa, NessunaMossaDaRitirare) {
  const Istantanea prima = Fotografa();
  EXPECT_EQ(RitiraUltimaMossa(), 0);
  const Istantanea dopo = Fotografa();
  EXPECT_EQ(prima, dopo) << Differenze(prima, dopo);
}

TEST_F(RitiroMossa, IlDoppioPassoDelTestoFenNonSiRitira) {
  // The en passant field records the double step that allows it, before
  // the game's first ply.
  Nuova("4k3/8/8/8/3pP3/8/8/4K3 b - e3 0 1");
  ASSERT_NE(ElencoMosse[1], 0u);
  const Istantanea prima = Fotografa();
  EXPECT_EQ(RitiraUltimaMossa(), 0);
  const Istantanea dopo = Fotografa();
  EXPECT_EQ(prima, dopo) << Differenze(prima, dopo);
  EXPECT_EQ(Gioca("de"), "dxe3");
  EXPECT_EQ(RitiraUltimaMossa(), 1);
  EXPECT_EQ(RitiraUltimaMossa(), 0);
}

TEST_F(RitiroMossa, RitiraConLaTavolaDiChiHaMosso) {
  std::vector<Istantanea> posizioni = {Fotografa()};
  std::vector<std::vector<std::string>> legali = {Legali()};
  for (const char* testo :
       {"e4", "d5", "exd5", "Qxd5", "Nc3", "Qa5", "Bc4", "Bg4", "Nf3", "Nc6", "0-0", "0-0-0"}) {
    ASSERT_NE(Gioca(testo), "") << testo;
    posizioni.push_back(Fotografa());
    legali.push_back(Legali());
  }
  EXPECT_EQ(std::string(ElencoStringaMossa[12]), "0-0-0");
  while (ContatoreMosse > 0) {
    ASSERT_EQ(RitiraUltimaMossa(), 1);
    const Istantanea& attesa = posizioni[ContatoreMosse];
    const Istantanea ora = Fotografa();
    EXPECT_EQ(ora, attesa) << ContatoreMosse << ": " << Differenze(attesa, ora);
    EXPECT_EQ(Legali(), legali[ContatoreMosse]) << ContatoreMosse;
    EXPECT_EQ(backup_ChiaveHash[ContatoreMosse], ChiaveHash);
  }
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(RitiroMossa, IlRitiroDelMattoRevocaEIlTestoResta) {
  EXPECT_EQ(GiocaRevocando({"f3", "e5", "g4", "Qh4"}), "f3 e5 g4 Qh4#");
  ASSERT_TRUE(PartitaAggiudicata());
  ASSERT_EQ(RitiraUltimaMossa(), 1);
  EXPECT_EQ(Stato(), "* | ? | ");
  EXPECT_EQ(ContatoreMosse, 3u);
  EXPECT_EQ(std::string(ElencoStringaMossa[4]), "Qh4#");
  EXPECT_EQ(Legali().size(), 30u);
  EXPECT_EQ(Gioca("Qg5"), "Qg5");
  EXPECT_EQ(std::string(ElencoStringaMossa[4]), "Qg5");
}

// ---------------------------------------------------------------------------

TEST_F(NuovoRecord, AzzeraLeRipetizioniEGeneraLeMosse) {
  EXPECT_EQ(GiocaRevocando({"Nf3", "Nf6", "Ng1", "Ng8", "Nf3", "Nf6", "Ng1", "Ng8"}),
            "Nf3 Nf6 Ng1 Ng8 Nf3 Nf6 Ng1 Ng8");
  ASSERT_EQ(Ripetizioni, 2u);
  SvuotaScacchiera();
  ASSERT_EQ(CaricaPosizioneDaStringaFen(FenIniziale), 1);
  CambiaRegistro([](StatoRegistro& r) { r.chiave[0] = 0; });
  ChiudiListaMosse(BufferMosseGenerate);
  AzzeraPartita();
  EXPECT_EQ(Ripetizioni, 0u);
  EXPECT_EQ(FraseRipetizioni(), "la posizione corrente e' quella iniziale");
  EXPECT_EQ(Legali().size(), 20u);
  EXPECT_EQ(backup_ChiaveHash[0], ChiaveHash);
  EXPECT_EQ(backup_InfoPosizione[0], InfoPosizione);
}

// ---------------------------------------------------------------------------

TEST_F(DettagliStampati, CavalloDaB) {
  ASSERT_EQ(LeggiDettagliMossaDaComando("Nbd2"), 1);
  ScriviDettagliMossa();
  EXPECT_EQ(memoria::Scritto(),
            "\ntipo pezzo: Cavallo"
            "\ntipo promozione: valore sconosciuto"
            "\ncolonna partenza: b"
            "\nriga partenza: valore sconosciuto"
            "\ncolonna destinazione: d"
            "\nriga destinazione: 2"
            "\n");
}

TEST_F(DettagliStampati, PromozioneACavalloPerCoordinate) {
  ASSERT_EQ(LeggiDettagliMossaDaComando("e7e8N"), 1);
  ScriviDettagliMossa();
  EXPECT_EQ(memoria::Scritto(),
            "\ntipo pezzo: valore sconosciuto"
            "\ntipo promozione: Cavallo"
            "\ncolonna partenza: e"
            "\nriga partenza: 7"
            "\ncolonna destinazione: e"
            "\nriga destinazione: 8"
            "\n");
}

TEST_F(DettagliStampati, OgniPezzo) {
  const char* const testi[6] = {"a1", "Na1", "Ba1", "Ra1", "Qa1", "Ka1"};
  const char* const nomi[6] = {"Pedone", "Cavallo", "Alfiere", "Torre", "Donna", "Re"};
  for (int k = 0; k < 6; ++k) {
    memoria::Azzera();
    ASSERT_EQ(LeggiDettagliMossaDaComando(testi[k]), 1);
    ScriviDettagliMossa();
    EXPECT_EQ(memoria::Scritto().substr(0, 14 + std::string(nomi[k]).size()),
              std::string("\ntipo pezzo: ") + nomi[k] + "\n");
  }
  memoria::Azzera();
  ASSERT_EQ(LeggiDettagliMossaDaComando("0-0"), 1);
  ScriviDettagliMossa();
  EXPECT_EQ(memoria::Scritto(),
            "\ntipo pezzo: Re"
            "\ntipo promozione: valore sconosciuto"
            "\ncolonna partenza: e"
            "\nriga partenza: valore sconosciuto"
            "\ncolonna destinazione: g"
            "\nriga destinazione: valore sconosciuto"
            "\n");
}

}  // namespace
