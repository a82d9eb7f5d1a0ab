#include <gmock/gmock.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ambiente_orologio.h"

using namespace piattaforma::win32;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Orologio : public AmbienteOrologio {};

constexpr uint64_t PRIMA_DELLO_SCAVALCO = 0x100000000ull - 2500;  // 2.5 s before the wrap

// ---------------------------------------------------------------------------
// A new game's clock.

TEST_F(Orologio, CaricaTempoDaiParametriMostraEntrambiITempiELaCadenza) {
  // Both lines are drawn even when they already showed the same seconds.
  TempoVisualizzato[0] = TempoVisualizzato[1] = 7200;
  TempoRimasto[0] = 5;
  TempoRimasto[1] = -7;
  CaricaTempoDaiParametri();
  EXPECT_EQ(TempoRimasto[0], 7200000);
  EXPECT_EQ(TempoRimasto[1], 7200000);
  EXPECT_EQ(TempoVisualizzato[0], 7200);
  EXPECT_EQ(TempoVisualizzato[1], 7200);
  EXPECT_STREQ(Cadenza, "40/7200:1800");
  EXPECT_THAT(Disegni, ElementsAre("tempo 0 7200", "tempo 1 7200", "cadenza"));
  EXPECT_THAT(Toni(), IsEmpty());
}

TEST_F(Orologio, LaCadenzaCambiaSoloConLaNuovaPartita) {
  // Every time-control setting changed during the game waits for the next:
  // one period of 90 minutes with a 3-second increment.
  ImpostaParametro(PARAMETRO_TEMPO_PRIMO_PERIODO, 90);
  ImpostaParametro(PARAMETRO_PERIODI, 1);
  ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 3);
  ImpostaParametro(PARAMETRO_MOSSE_PRIMO_PERIODO, 1);
  OrologioInMoto();
  memoria::AvanzaMillisecondi(1000);
  PortaAllaSemimossa(ContatoreMosse + 1);
  PremiOrologio(0);
  // Still 40 moves in 120 minutes with no increment: no period change at
  // White's first move either.
  EXPECT_EQ(TempoRimasto[0], 7199000);
  EXPECT_EQ(TempoRimasto[1], 7200000);
  EXPECT_STREQ(Cadenza, "40/7200:1800");
  EXPECT_EQ(CadenzaPartita, (CadenzaDiGioco{2, 40, 120, 0, 30, 0}));
  FermaOrologio();
  NuovaPartita();
  EXPECT_EQ(TempoRimasto[0], 5400000);
  EXPECT_EQ(TempoRimasto[1], 5400000);
  EXPECT_STREQ(Cadenza, "5400+3");
  EXPECT_EQ(CadenzaPartita, (CadenzaDiGioco{1, 1, 90, 3, 30, 0}));
  OrologioInMoto();
  memoria::AvanzaMillisecondi(1000);
  PortaAllaSemimossa(ContatoreMosse + 1);
  PremiOrologio(0);
  EXPECT_EQ(TempoRimasto[0], 5400000 - 1000 + 3000);
}

TEST_F(Orologio, LaCadenzaDellaPartitaSiImpostaConIlSuoTesto) {
  ImpostaCadenzaPartita({2, 30, 90, 30, 15, 30});
  EXPECT_STREQ(Cadenza, "30/5400+30:900+30");
  // The settings table is left as it is.
  EXPECT_EQ(CadenzaDaiParametri(), (CadenzaDiGioco{2, 40, 120, 0, 30, 0}));
}

// ---------------------------------------------------------------------------
// Starting and stopping.

TEST_F(Orologio, LaPartenzaRegistraLOraSegnaLoStatoESuona) {
  memoria::ImpostaMillisecondi(123456);
  memoria::ImpostaOraUTC({2026, 11, 23, 9, 5, 0});
  OrologioInMoto();
  EXPECT_EQ(InizioTempo, 123456u);
  EXPECT_EQ(InMoto, 1u);
  EXPECT_EQ(PrimaVoltaInMoto, 1u);
  EXPECT_STREQ(DataUTC, "2026.11.23");
  EXPECT_STREQ(OraUTC, "09:05:00");
  EXPECT_THAT(Disegni, ElementsAre("stato"));
  EXPECT_THAT(Toni(), ElementsAre(PAUSA, BIP));
}

TEST_F(Orologio, UnaSecondaPartenzaNonCambiaLOraRegistrata) {
  memoria::ImpostaOraUTC({2026, 11, 23, 9, 5, 0});
  OrologioInMoto();
  FermaOrologio();
  memoria::ImpostaOraUTC({2026, 11, 24, 18, 30, 59});
  OrologioInMoto();
  EXPECT_STREQ(DataUTC, "2026.11.23");
  EXPECT_STREQ(OraUTC, "09:05:00");
  EXPECT_EQ(PrimaVoltaInMoto, 1u);
}

TEST_F(Orologio, LaNuovaPartitaRegistraDiNuovoLaPrimaPartenza) {
  memoria::ImpostaOraUTC({2026, 11, 23, 9, 5, 0});
  OrologioInMoto();
  FermaOrologio();
  NuovaPartita();
  EXPECT_STREQ(DataUTC, "?");
  EXPECT_STREQ(OraUTC, "?");
  memoria::ImpostaOraUTC({2027, 1, 2, 23, 59, 59});
  OrologioInMoto();
  EXPECT_STREQ(DataUTC, "2027.01.02");
  EXPECT_STREQ(OraUTC, "23:59:59");
}

TEST_F(Orologio, LArrestoAddebitaIlLatoAlTrattoEMostraIlSuoTempo) {
  PortaAllaSemimossa(3);  // Black to move
  memoria::ImpostaMillisecondi(1000);
  OrologioInMoto();
  Disegni.clear();
  const size_t toni = memoria::Toni().size();
  memoria::AvanzaMillisecondi(61500);
  FermaOrologio();
  EXPECT_EQ(TempoRimasto[1], 7200000 - 61500);
  EXPECT_EQ(TempoRimasto[0], 7200000);
  EXPECT_EQ(InMoto, 0u);
  EXPECT_THAT(Disegni, ElementsAre("tempo 1 7139", "stato"));
  EXPECT_THAT(Toni(toni), ElementsAre(BIP, PAUSA));
}

TEST_F(Orologio, FermareERipartireNellaStessaMossaLasciaAddebitatoIlTempoGiaUsato) {
  memoria::ImpostaMillisecondi(0);
  OrologioInMoto();
  memoria::AvanzaMillisecondi(10000);
  FermaOrologio();
  EXPECT_EQ(TempoRimasto[0], 7190000);
  memoria::AvanzaMillisecondi(600000);  // a stopped clock charges nobody
  OrologioInMoto();
  EXPECT_EQ(InizioTempo, 610000u);
  EXPECT_EQ(TempoRimastoInMoto(0), 7190000);
  memoria::AvanzaMillisecondi(5000);
  PortaAllaSemimossa(ContatoreMosse + 1);
  PremiOrologio(0);
  EXPECT_EQ(TempoRimasto[0], 7185000);
  EXPECT_EQ(TempoRimasto[1], 7200000);
  EXPECT_EQ(InizioTempo, 615000u);
}

// ---------------------------------------------------------------------------
// The 32-bit millisecond count wraps: every difference must survive it.

TEST_F(Orologio, PremereAttraversoLoScavalcoDeiTrentaduebit) {
  memoria::ImpostaMillisecondi(PRIMA_DELLO_SCAVALCO);
  OrologioInMoto();
  memoria::AvanzaMillisecondi(4000);  // 1.5 s after the wrap
  EXPECT_EQ(Adesso(), 1500u);
  PortaAllaSemimossa(ContatoreMosse + 1);
  PremiOrologio(0);
  EXPECT_EQ(TempoRimasto[0], 7196000);
  EXPECT_EQ(InizioTempo, 1500u);
  memoria::AvanzaMillisecondi(2000);
  EXPECT_EQ(TempoRimastoInMoto(1), 7198000);
}

TEST_F(Orologio, PremereQuandoLaPartenzaPrecedeLoScavalcoDiUnSoloMillisecondo) {
  memoria::ImpostaMillisecondi(0xFFFFFFFFull);
  OrologioInMoto();
  memoria::AvanzaMillisecondi(1);
  PortaAllaSemimossa(ContatoreMosse + 1);
  PremiOrologio(0);
  EXPECT_EQ(TempoRimasto[0], 7199999);
  EXPECT_EQ(InizioTempo, 0u);
}

TEST_F(Orologio, FermareAttraversoLoScavalcoDeiTrentaduebit) {
  memoria::ImpostaMillisecondi(PRIMA_DELLO_SCAVALCO);
  PortaAllaSemimossa(1);
  OrologioInMoto();
  memoria::AvanzaMillisecondi(2500 + 61000);
  FermaOrologio();
  EXPECT_EQ(TempoRimasto[1], 7200000 - 63500);
  EXPECT_THAT(Disegni, ElementsAre("stato", "tempo 1 7137", "stato"));
}

TEST_F(Orologio, CambioManualeAttraversoLoScavalcoDeiTrentaduebit) {
  // Started before the wrap, stopped, changed and started again after it.
  memoria::ImpostaMillisecondi(PRIMA_DELLO_SCAVALCO);
  OrologioInMoto();
  memoria::AvanzaMillisecondi(3000);
  FermaOrologio();
  EXPECT_EQ(TempoRimasto[0], 7197000);
  ModificaTempo(0, -5);
  EXPECT_EQ(TempoRimasto[0], 6897000);
  OrologioInMoto();
  memoria::AvanzaMillisecondi(1000);
  EXPECT_EQ(TempoRimastoInMoto(0), 6896000);
  EXPECT_FALSE(AggiornaTempoVisualizzato(0));
  EXPECT_EQ(TempoVisualizzato[0], 6896);
  PortaAllaSemimossa(ContatoreMosse + 1);
  PremiOrologio(0);
  EXPECT_EQ(TempoRimasto[0], 6896000);
}

// ---------------------------------------------------------------------------
// Pressing.

TEST_F(Orologio, UnPeriodoSenzaIncrementoPassaIlTempoAllAvversarioEMostraEntrambi) {
  ImpostaParametro(PARAMETRO_PERIODI, 1);
  NuovaPartita();
  memoria::ImpostaMillisecondi(0);
  OrologioInMoto();
  memoria::AvanzaMillisecondi(12345);
  EXPECT_FALSE(AggiornaTempoVisualizzato(0));
  Disegni.clear();
  const size_t toni = memoria::Toni().size();
  PortaAllaSemimossa(ContatoreMosse + 1);
  PremiOrologio(0);
  EXPECT_EQ(TempoRimasto[0], 7200000 - 12345);
  EXPECT_EQ(InizioTempo, 12345u);
  // The mover's line already shows its second; the other side's is drawn
  // as it starts to run.
  EXPECT_THAT(Disegni, ElementsAre("tempo 1 7200"));
  EXPECT_EQ(TempoVisualizzato[0], 7188);
  EXPECT_THAT(Toni(toni), IsEmpty());
  memoria::AvanzaMillisecondi(700);
  EXPECT_EQ(TempoRimastoInMoto(1), 7199300);
}

TEST_F(Orologio, UnPeriodoConIncrementoMostraSubitoIlTempoGuadagnato) {
  ImpostaParametro(PARAMETRO_PERIODI, 1);
  ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 3);
  NuovaPartita();
  // Even past the move count of a first period there is no second one.
  PortaAllaSemimossa(79);
  memoria::ImpostaMillisecondi(0);
  OrologioInMoto();
  Disegni.clear();
  const size_t toni = memoria::Toni().size();
  memoria::AvanzaMillisecondi(2000);
  PortaAllaSemimossa(ContatoreMosse + 1);
  PremiOrologio(1);
  EXPECT_EQ(TempoRimasto[1], 7201000);
  EXPECT_THAT(Disegni, ElementsAre("tempo 1 7201", "tempo 0 7200"));
  EXPECT_THAT(Toni(toni), IsEmpty());
}

TEST_F(Orologio, DopoLaPressioneILoopControllaAncoraIlSecondoDellAltroLato) {
  // Black's time lands on an alarm minute; drawing it at the press must not
  // keep the loop from sounding that alarm.
  ImpostaParametro(PARAMETRO_PERIODI, 1);
  ImpostaParametro(PARAMETRO_ALLARME1, 120);
  NuovaPartita();
  // Black's line shows an older second than the time it will start with.
  TempoVisualizzato[1] = 7260;
  OrologioInMoto();
  memoria::AvanzaMillisecondi(1000);
  PortaAllaSemimossa(ContatoreMosse + 1);
  PremiOrologio(0);
  const size_t toni = memoria::Toni().size();
  EXPECT_FALSE(AggiornaTempoVisualizzato(1));
  EXPECT_THAT(Toni(toni), ElementsAre(BIP, BIP));
}

class DuePeriodi : public Orologio {
 protected:
  void SetUp() override {
    Orologio::SetUp();
    ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 30);
    ImpostaParametro(PARAMETRO_INCREMENTO_SECONDO_PERIODO, 10);
    NuovaPartita();
    memoria::ImpostaMillisecondi(50000);
  }

  // The press after the move that leaves ContatoreMosse at `dopo`, 1 s
  // after the start; the tones of the press.
  static std::vector<std::string> Premi(uint64_t dopo) {
    PortaAllaSemimossa(dopo - 1);
    OrologioInMoto();
    Disegni.clear();
    const size_t toni = memoria::Toni().size();
    memoria::AvanzaMillisecondi(1000);
    PortaAllaSemimossa(dopo);
    PremiOrologio(int((dopo - 1) & 1));
    return Toni(toni);
  }
};

TEST_F(DuePeriodi, LaTrentanovesimaMossaDelBiancoHaIlPrimoIncremento) {
  EXPECT_THAT(Premi(77), IsEmpty());
  EXPECT_EQ(TempoRimasto[0], 7200000 - 1000 + 30000);
  EXPECT_THAT(Disegni, ElementsAre("tempo 0 7229", "tempo 1 7200"));
}

TEST_F(DuePeriodi, LaQuarantesimaMossaDelBiancoPassaAlSecondoPeriodo) {
  EXPECT_THAT(Premi(79), ElementsAre(PERIODO, BIP, PERIODO));
  EXPECT_EQ(TempoRimasto[0], 7200000 - 1000 + 30000 + 1800000);
  EXPECT_EQ(TempoRimasto[1], 7200000);
  EXPECT_THAT(Disegni, ElementsAre("tempo 0 9029", "tempo 1 7200"));
}

TEST_F(DuePeriodi, LaQuarantunesimaMossaDelBiancoHaIlSecondoIncremento) {
  EXPECT_THAT(Premi(81), IsEmpty());
  EXPECT_EQ(TempoRimasto[0], 7200000 - 1000 + 10000);
  EXPECT_THAT(Disegni, ElementsAre("tempo 0 7209", "tempo 1 7200"));
}

TEST_F(DuePeriodi, LaTrentanovesimaMossaDelNeroHaIlPrimoIncremento) {
  EXPECT_THAT(Premi(78), IsEmpty());
  EXPECT_EQ(TempoRimasto[1], 7200000 - 1000 + 30000);
  EXPECT_THAT(Disegni, ElementsAre("tempo 1 7229", "tempo 0 7200"));
}

TEST_F(DuePeriodi, LaQuarantesimaMossaDelNeroPassaAlSecondoPeriodo) {
  EXPECT_THAT(Premi(80), ElementsAre(PERIODO, BIP, PERIODO));
  EXPECT_EQ(TempoRimasto[1], 7200000 - 1000 + 30000 + 1800000);
  EXPECT_EQ(TempoRimasto[0], 7200000);
  EXPECT_THAT(Disegni, ElementsAre("tempo 1 9029", "tempo 0 7200"));
}

TEST_F(DuePeriodi, LaQuarantunesimaMossaDelNeroHaIlSecondoIncremento) {
  EXPECT_THAT(Premi(82), IsEmpty());
  EXPECT_EQ(TempoRimasto[1], 7200000 - 1000 + 10000);
  EXPECT_THAT(Disegni, ElementsAre("tempo 1 7209", "tempo 0 7200"));
}

TEST_F(DuePeriodi, NonCEUnTerzoPeriodo) {
  EXPECT_THAT(Premi(159), IsEmpty());  // White's 80th move
  EXPECT_EQ(TempoRimasto[0], 7200000 - 1000 + 10000);
  EXPECT_THAT(Premi(160), IsEmpty());  // Black's 80th
  EXPECT_EQ(TempoRimasto[1], 7200000 - 1000 + 10000);
}

TEST_F(DuePeriodi, SenzaIncrementiIlTempoInvariatoNonSiRidisegna) {
  ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 0);
  NuovaPartita();
  EXPECT_THAT(Premi(1), IsEmpty());
  EXPECT_EQ(TempoRimasto[0], 7199000);
  // The press asks for 7199 s, which the line does not show yet.
  EXPECT_THAT(Disegni, ElementsAre("tempo 0 7199", "tempo 1 7200"));
  Disegni.clear();
  StampaTempo(0, 7199);
  EXPECT_THAT(Disegni, IsEmpty());
}

TEST_F(DuePeriodi, IParametriCambiatiDuranteLaPartitaAspettanoLaNuovaPartita) {
  // Changed while stopped, the values govern no press of this game.
  ImpostaParametro(PARAMETRO_MOSSE_PRIMO_PERIODO, 2);
  ImpostaParametro(PARAMETRO_TEMPO_SECONDO_PERIODO, 15);
  ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 5);
  EXPECT_THAT(Premi(3), IsEmpty());  // White's 2nd
  EXPECT_EQ(TempoRimasto[0], 7200000 - 1000 + 30000);
  FermaOrologio();
  ImpostaParametro(PARAMETRO_PERIODI, 1);
  EXPECT_THAT(Premi(79), ElementsAre(PERIODO, BIP, PERIODO));  // White's 40th
  EXPECT_EQ(TempoRimasto[0], 7200000 - 2000 + 60000 + 1800000);
  FermaOrologio();
  // The next game has them all: one period with a 5-second increment.
  NuovaPartita();
  EXPECT_THAT(Premi(3), IsEmpty());
  EXPECT_EQ(TempoRimasto[0], 7200000 - 1000 + 5000);
  EXPECT_STREQ(Cadenza, "7200+5");
}

// ---------------------------------------------------------------------------
// Manual changes and the question before them.

TEST_F(Orologio, ModificaTempoAggiungeETogliMinutiEMostraIlRisultato) {
  ModificaTempo(1, 5);
  EXPECT_EQ(TempoRimasto[1], 7500000);
  ModificaTempo(1, -130);
  EXPECT_EQ(TempoRimasto[1], -300000);
  ModificaTempo(0, 0);  // the same second: nothing to draw
  EXPECT_THAT(Disegni, ElementsAre("tempo 1 7500", "tempo 1 -300"));
}

TEST_F(Orologio, LaDomandaPerSottrarre) {
  memoria::AccodaRisposta(IDYES);
  EXPECT_EQ(dom_ModificareTempo(1, 1, 5), IDYES);
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, "Sottrarre al nero 5 minuti?");
  EXPECT_EQ(memoria::Finestre()[0].titolo, "Attenzione!");
  EXPECT_EQ(memoria::Finestre()[0].stile, MB_YESNO);
}

TEST_F(Orologio, LaDomandaPerAggiungere) {
  EXPECT_EQ(dom_ModificareTempo(0, 0, 10), IDNO);  // nobody answered
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, "Aggiungere al bianco 10 minuti?");
  EXPECT_EQ(memoria::Finestre()[0].stile, MB_YESNO);
}

// ---------------------------------------------------------------------------
// Shown seconds.

TEST_F(Orologio, ISecondiMostratiArrotondatiPerEccessoSenzaMenoZero) {
  struct Caso {
    int32_t millisecondi;
    const char* disegno;
  } casi[] = {{1, "tempo 0 1"}, {0, "tempo 0 0"}, {-999, "tempo 0 0"}, {-1000, "tempo 0 -1"}};
  for (const Caso& c : casi) {
    TempoVisualizzato[0] = 12345;
    Disegni.clear();
    memoria::ImpostaMillisecondi(40000);
    OrologioInMoto();
    TempoRimasto[0] = c.millisecondi + 300;
    memoria::AvanzaMillisecondi(300);
    FermaOrologio();
    EXPECT_EQ(TempoRimasto[0], c.millisecondi);
    EXPECT_THAT(Disegni, ElementsAre("stato", c.disegno, "stato")) << c.millisecondi;
  }
}

TEST_F(Orologio, StampaTempoNonRidisegnaLoStessoSecondo) {
  StampaTempo(0, 95);
  StampaTempo(0, 95);
  StampaTempo(1, 95);
  StampaTempo(0, -1);
  EXPECT_THAT(Disegni, ElementsAre("tempo 0 95", "tempo 1 95", "tempo 0 -1"));
  EXPECT_EQ(TempoVisualizzato[0], -1);
  EXPECT_EQ(TempoVisualizzato[1], 95);
}

TEST_F(Orologio, UnNuovoSecondoSiMostraUnaVoltaSola) {
  OrologioInMoto();
  Disegni.clear();
  memoria::AvanzaMillisecondi(1);
  // Still the 7200 s that the new game showed.
  EXPECT_FALSE(AggiornaTempoVisualizzato(0));
  EXPECT_THAT(Disegni, IsEmpty());
  memoria::AvanzaMillisecondi(999);
  EXPECT_FALSE(AggiornaTempoVisualizzato(0));
  EXPECT_FALSE(AggiornaTempoVisualizzato(0));
  EXPECT_THAT(Disegni, ElementsAre("tempo 0 7199"));
}

TEST_F(Orologio, TreBipDiContoAllaRovesciaENessunoAZero) {
  TempoRimasto[0] = 5000;
  TempoVisualizzato[0] = 5;
  OrologioInMoto();
  const size_t toni = memoria::Toni().size();
  std::vector<std::string> secondi_con_bip;
  for (int i = 0; i < 8; ++i) {
    const size_t prima = memoria::Toni().size();
    memoria::AvanzaMillisecondi(1000);
    const bool caduta = AggiornaTempoVisualizzato(0);
    const std::string s = std::to_string(TempoVisualizzato[0]);
    EXPECT_EQ(caduta, TempoVisualizzato[0] == 0) << s;
    for (const std::string& tono : Toni(prima)) secondi_con_bip.push_back(s + " " + tono);
  }
  EXPECT_THAT(secondi_con_bip, ElementsAre("3 " + BIP, "2 " + BIP, "1 " + BIP));
  EXPECT_THAT(Toni(toni), ElementsAre(BIP, BIP, BIP));
  EXPECT_EQ(TempoVisualizzato[0], -3);
}

TEST_F(Orologio, LaBandierinaCadeQuandoIlSecondoMostratoArrivaAZero) {
  TempoRimasto[1] = 2500;
  PortaAllaSemimossa(1);
  memoria::ImpostaMillisecondi(PRIMA_DELLO_SCAVALCO);
  OrologioInMoto();
  EXPECT_THAT(Pensa(1, 2499), IsEmpty());
  EXPECT_EQ(TempoVisualizzato[1], 1);
  EXPECT_THAT(Pensa(1, 1), ElementsAre(0));
  // 0 ms left, exactly at the wrap.
  EXPECT_EQ(Adesso(), 0u);
  EXPECT_EQ(TempoRimastoInMoto(1), 0);
  // While 0 stays shown, the next turns do not tell the fall again.
  memoria::AvanzaMillisecondi(500);
  EXPECT_FALSE(AggiornaTempoVisualizzato(1));
  // The arbiter declined: the clock runs on into negative time, and the
  // flag is not offered again.
  EXPECT_THAT(Pensa(1, 2500), IsEmpty());
  EXPECT_EQ(TempoVisualizzato[1], -3);
  EXPECT_EQ(TempoRimastoInMoto(1), -3000);
}

TEST_F(Orologio, SenzaAggiornamentoAutomaticoLaRigaNonCambiaMaISegnaliSuonano) {
  ImpostaParametro(PARAMETRO_AGGIORNAMENTO_AUTOMATICO, 0);
  ImpostaParametro(PARAMETRO_ALLARME1, 1);
  TempoRimasto[0] = 62000;
  TempoVisualizzato[0] = 62;
  OrologioInMoto();
  Disegni.clear();
  const size_t toni = memoria::Toni().size();
  EXPECT_THAT(Pensa(0, 61999), IsEmpty());
  EXPECT_THAT(Toni(toni), ElementsAre(BIP, BIP, BIP, BIP, BIP));  // 60 s twice, 3, 2, 1
  EXPECT_THAT(Disegni, IsEmpty());
  EXPECT_EQ(TempoVisualizzato[0], 62);
  // At 0 the fall is told on every turn while that second lasts, with no
  // further tone.
  memoria::AvanzaMillisecondi(1);
  EXPECT_TRUE(AggiornaTempoVisualizzato(0));
  memoria::AvanzaMillisecondi(500);
  EXPECT_TRUE(AggiornaTempoVisualizzato(0));
  memoria::AvanzaMillisecondi(499);
  EXPECT_TRUE(AggiornaTempoVisualizzato(0));
  memoria::AvanzaMillisecondi(1);
  EXPECT_FALSE(AggiornaTempoVisualizzato(0));
  EXPECT_EQ(memoria::Toni().size(), toni + 5);
  EXPECT_THAT(Disegni, IsEmpty());
}

// ---------------------------------------------------------------------------
// Alarms.

TEST_F(Orologio, UnAllarmeSuonaDueBipAlSuoMinutoEsatto) {
  ImpostaParametro(PARAMETRO_ALLARME1 + 2, 2);
  TempoRimasto[0] = 121500;
  OrologioInMoto();
  const size_t toni = memoria::Toni().size();
  EXPECT_THAT(Pensa(0, 1499), IsEmpty());
  EXPECT_THAT(Toni(toni), IsEmpty());
  EXPECT_EQ(TempoVisualizzato[0], 121);
  EXPECT_THAT(Pensa(0, 1), IsEmpty());
  EXPECT_EQ(TempoVisualizzato[0], 120);
  EXPECT_THAT(Toni(toni), ElementsAre(BIP, BIP));
  EXPECT_EQ(AlarmeSuonato[0], 120);
  Pensa(0, 5000);
  EXPECT_EQ(memoria::Toni().size(), toni + 2);
}

TEST_F(Orologio, OgniAllarmeDaSoloSuonaAlSuoMinuto) {
  for (int k = 0; k < 5; ++k) {
    SCOPED_TRACE(k + 1);
    for (int j = 0; j < 5; ++j) ImpostaParametro(PARAMETRO_ALLARME1 + j, j == k ? 3 + k : 999);
    NuovaPartita();
    const int32_t minuto = (3 + k) * 60;
    TempoRimasto[0] = (minuto + 2) * 1000;
    OrologioInMoto();
    const size_t toni = memoria::Toni().size();
    EXPECT_THAT(Pensa(0, 1999), IsEmpty());
    EXPECT_THAT(Toni(toni), IsEmpty());
    EXPECT_THAT(Pensa(0, 1), IsEmpty());
    EXPECT_EQ(TempoVisualizzato[0], minuto);
    EXPECT_THAT(Toni(toni), ElementsAre(BIP, BIP));
    Pensa(0, 3000);
    EXPECT_EQ(memoria::Toni().size(), toni + 2);
    FermaOrologio();
  }
}

TEST_F(Orologio, AllarmiEContoAllaRovesciaSiDiconoComeSuonano) {
  ImpostaParametro(PARAMETRO_ALLARME1, 1);
  TempoRimasto[1] = 62000;
  PortaAllaSemimossa(1);
  OrologioInMoto();
  Pensa(1, 62000);
  EXPECT_THAT(Segnali, ElementsAre("allarme 1 60", "conto 1 3", "conto 1 2", "conto 1 1"));
}

TEST_F(Orologio, DueAllarmiSulloStessoMinutoDannoUnSoloDoppioBip) {
  ImpostaParametro(PARAMETRO_ALLARME1, 1);
  ImpostaParametro(PARAMETRO_ALLARME1 + 1, 1);
  ImpostaParametro(PARAMETRO_ALLARME1 + 4, 1);
  TempoRimasto[0] = 61000;
  OrologioInMoto();
  const size_t toni = memoria::Toni().size();
  Pensa(0, 2000);
  EXPECT_THAT(Toni(toni), ElementsAre(BIP, BIP));
}

TEST_F(Orologio, UnAllarmeDiZeroMinutiSuonaAllaCadutaDellaBandierina) {
  ImpostaParametro(PARAMETRO_ALLARME1 + 3, 0);
  TempoRimasto[0] = 1000;
  OrologioInMoto();
  const size_t toni = memoria::Toni().size();
  memoria::AvanzaMillisecondi(1);
  EXPECT_FALSE(AggiornaTempoVisualizzato(0));
  EXPECT_THAT(Toni(toni), ElementsAre(BIP));  // the countdown's 1
  memoria::AvanzaMillisecondi(999);
  EXPECT_TRUE(AggiornaTempoVisualizzato(0));
  EXPECT_THAT(Toni(toni), ElementsAre(BIP, BIP, BIP));
}

TEST_F(Orologio, UnAllarmeOltreIlTempoRimastoNonSuonaMai) {
  ImpostaParametro(PARAMETRO_ALLARME1, 3);
  TempoRimasto[0] = 179000;
  OrologioInMoto();
  const size_t toni = memoria::Toni().size();
  EXPECT_THAT(Pensa(0, 175000), IsEmpty());
  EXPECT_THAT(Toni(toni), IsEmpty());
}

TEST_F(Orologio, UnAllarmeGiaPassatoSuonaDiNuovoSeIlTempoAggiuntoLoRimetteDavanti) {
  ImpostaParametro(PARAMETRO_ALLARME1, 1);
  TempoRimasto[0] = 61000;
  memoria::ImpostaMillisecondi(0);
  OrologioInMoto();
  const size_t toni = memoria::Toni().size();
  Pensa(0, 11000);  // 50 s left
  EXPECT_THAT(Toni(toni), ElementsAre(BIP, BIP));
  FermaOrologio();
  ModificaTempo(0, 1);  // 110 s
  OrologioInMoto();
  const size_t ripresa = memoria::Toni().size();
  Pensa(0, 49999);
  EXPECT_THAT(Toni(ripresa), IsEmpty());
  EXPECT_EQ(TempoVisualizzato[0], 61);
  Pensa(0, 1);
  EXPECT_THAT(Toni(ripresa), ElementsAre(BIP, BIP));
}

TEST_F(Orologio, UnAllarmeNonSuonaDueVolteNelloStessoSecondo) {
  ImpostaParametro(PARAMETRO_ALLARME1, 1);
  SuonaAlarme(0, 60);
  SuonaAlarme(0, 60);
  SuonaAlarme(1, 60);  // each side has its own mark
  SuonaAlarme(0, 2);
  SuonaAlarme(0, 2);
  SuonaAlarme(0, 0);
  EXPECT_THAT(Toni(), ElementsAre(BIP, BIP, BIP, BIP, BIP));
  EXPECT_EQ(AlarmeSuonato[0], 0);
  EXPECT_EQ(AlarmeSuonato[1], 60);
}

}  // namespace
