#include "game/aggiudicazione.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "board/fen.h"
#include "board/geometria.h"
#include "board/posizione.h"
#include "clock/orologio.h"
#include "comune/tabelle.h"
#include "comune/toni.h"
#include "messaggi/messaggi.h"
#include "piattaforma/memoria/memoria.h"

using namespace piattaforma::win32;

namespace {

// Read during dynamic initialisation, before any test can adjudicate: the
// buffers are constant-initialised.
const std::string ResultIniziale = Result;
const std::string TerminationIniziale = Termination;
const std::string CommentoIniziale = CommentoRisultato;

constexpr unsigned DOMANDA = MB_YESNO;
constexpr unsigned AVVISO = MB_OK | MB_ICONINFORMATION;
constexpr int MINUTO = 60000;

int Ridisegni = 0;
void ContaRidisegno() { ++Ridisegni; }

// The clock redraws its state line once when it stops; nothing else in these
// tests starts or stops it.
int ChiamateFermaOrologio = 0;

class Aggiudicazione : public ::testing::Test {
 protected:
  void SetUp() override {
    InizializzaTabelleUnaVolta();
    memoria::Azzera();
    DopoFinestra = nullptr;
    RevocaAggiudicazione();
    InMoto = 0;
    TempoRimasto[0] = TempoRimasto[1] = MINUTO;
    ChiamateFermaOrologio = 0;
    SchermoDellOrologio = {};
    SchermoDellOrologio.stato = [] { ++ChiamateFermaOrologio; };
    Ridisegni = 0;
    SchermoDellaPartita.mossa_corrente = ContaRidisegno;
    Carica("4k3/8/8/8/8/8/8/4K3 w - - 0 1");
  }
  void TearDown() override {
    SchermoDellaPartita.mossa_corrente = nullptr;
    SchermoDellOrologio = {};
  }

  static void Carica(const char* fen) {
    SvuotaScacchiera();
    ASSERT_EQ(CaricaPosizioneDaStringaFen(fen), 1) << fen;
  }

  static void StatoE(const std::string& result, const std::string& termination,
                     const std::string& commento) {
    EXPECT_EQ(std::string(Result), result);
    EXPECT_EQ(std::string(Termination), termination);
    EXPECT_EQ(std::string(CommentoRisultato), commento);
  }
  static void Aperta() {
    StatoE("*", "?", "");
    EXPECT_FALSE(PartitaAggiudicata());
  }

  // Exactly one box, with this text and style, titled "Attenzione!".
  static void UnaFinestra(const std::string& testo, unsigned stile) {
    const auto& finestre = memoria::Finestre();
    ASSERT_EQ(finestre.size(), 1u);
    EXPECT_EQ(finestre[0].testo, testo);
    EXPECT_EQ(finestre[0].titolo, "Attenzione!");
    EXPECT_EQ(finestre[0].stile, stile);
  }
};

// ---------------------------------------------------------------------------
// The status buffers.

TEST_F(Aggiudicazione, AllAvvioLaPartitaEAperta) {
  EXPECT_EQ(ResultIniziale, "*");
  EXPECT_EQ(TerminationIniziale, "?");
  EXPECT_EQ(CommentoIniziale, "");
}

TEST_F(Aggiudicazione, StringheFisse) {
  EXPECT_STREQ(StringaSconfitta[BIANCO], "0-1");
  EXPECT_STREQ(StringaSconfitta[NERO], "1-0");
  EXPECT_STREQ(TestoAbbandona[BIANCO], "Il bianco abbandona, aggiudicare la partita (0-1)");
  EXPECT_STREQ(TestoAbbandona[NERO], "Il nero abbandona, aggiudicare la partita (1-0)");
  EXPECT_STREQ(TestoPattaDaccordo, "Patta d'accordo, aggiudicare la partita (1/2-1/2)");
}

TEST_F(Aggiudicazione, AggiudicaCopiaITreTesti) {
  Aggiudica("checkmate", "scaccomatto", "1-0");
  StatoE("1-0", "checkmate", "scaccomatto");
  EXPECT_TRUE(PartitaAggiudicata());
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(Aggiudicazione, AggiudicaTroncaAllaCapienza) {
  const std::string lungo(100, 'x');
  Aggiudica(lungo.c_str(), lungo.c_str(), "1-0 e anche di piu'");
  StatoE("1-0 e a", std::string(63, 'x'), std::string(63, 'x'));
}

TEST_F(Aggiudicazione, AggiudicaConLOrologioInMotoLoFerma) {
  InMoto = 1;
  Aggiudica("checkmate", "scaccomatto", "0-1");
  EXPECT_EQ(ChiamateFermaOrologio, 1);
  EXPECT_EQ(InMoto, 0u);
  StatoE("0-1", "checkmate", "scaccomatto");
}

TEST_F(Aggiudicazione, AggiudicaConLOrologioFermoNonLoTocca) {
  Aggiudica("checkmate", "scaccomatto", "0-1");
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  EXPECT_EQ(InMoto, 0u);
}

TEST_F(Aggiudicazione, LaRevocaRiapreEsattamente) {
  Aggiudica("time forfeit", "al bianco e' finito il tempo", "1/2-1/2");
  RevocaAggiudicazione();
  Aperta();
  EXPECT_EQ(CommentoRisultato[0], 0);
  EXPECT_EQ(Result[1], 0);
  EXPECT_EQ(Termination[1], 0);
  EXPECT_EQ(ChiamateFermaOrologio, 0);
}

TEST_F(Aggiudicazione, AvvisoDellAggiudicazione) {
  Aggiudica("checkmate", "scaccomatto", "1-0");
  avisa_aggiudicazione();
  UnaFinestra("scaccomatto, partita aggiudicata ( 1-0 ).", AVVISO);
}

// ---------------------------------------------------------------------------
// The revocation questions: the callers revoke, the questions only ask.

TEST_F(Aggiudicazione, DomandaRevocaPerModificare) {
  Aggiudica("By agreement", "Patta d'accordo", "1/2-1/2");
  memoria::AccodaRisposta(IDYES);
  EXPECT_EQ(dom_AggiudicataModificaCMQ(), IDYES);
  UnaFinestra(
      "Patta d'accordo, partita aggiudicata ( 1/2-1/2 ).\n"
      "Revocare l'aggiudicazione e modificare la partita comunque?",
      DOMANDA);
  StatoE("1/2-1/2", "By agreement", "Patta d'accordo");
}

TEST_F(Aggiudicazione, DomandaRevocaPerMettereInMoto) {
  Aggiudica("Abandoned", "Il nero abbandona", "1-0");
  memoria::AccodaRisposta(IDNO);
  EXPECT_EQ(dom_AggiudicataInMotoCMQ(), IDNO);
  UnaFinestra(
      "Il nero abbandona, partita aggiudicata ( 1-0 ).\n"
      "Revocare l'aggiudicazione ed impostare comunque l'orologio in moto?",
      DOMANDA);
  StatoE("1-0", "Abandoned", "Il nero abbandona");
}

TEST_F(Aggiudicazione, LeDomandeDiRevocaRestituisconoAncheUnaFinestraFallita) {
  Aggiudica("checkmate", "scaccomatto", "0-1");
  memoria::AccodaRisposta(0);
  memoria::AccodaRisposta(-1);
  EXPECT_EQ(dom_AggiudicataModificaCMQ(), 0);
  EXPECT_EQ(dom_AggiudicataInMotoCMQ(), -1);
  StatoE("0-1", "checkmate", "scaccomatto");
}

// ---------------------------------------------------------------------------
// Who can still win.

struct Materiale {
  const char* fen;
  bool bianco, nero;
};

void VerificaMateriale(const Materiale& m) {
  SvuotaScacchiera();
  ASSERT_EQ(CaricaPosizioneDaStringaFen(m.fen), 1) << m.fen;
  EXPECT_EQ(PuoVincereIl_bianco(), m.bianco) << m.fen;
  EXPECT_EQ(PuoVincereIl_nero(), m.nero) << m.fen;
}

TEST_F(Aggiudicazione, IReNudiNonVincono) {
  VerificaMateriale({"4k3/8/8/8/8/8/8/4K3 w - - 0 1", false, false});
}

TEST_F(Aggiudicazione, UnCavalloSoloControIlReNudoNonVince) {
  VerificaMateriale({"4k3/8/8/8/8/8/8/4KN2 w - - 0 1", false, false});
  VerificaMateriale({"4kn2/8/8/8/8/8/8/4K3 b - - 0 1", false, false});
}

TEST_F(Aggiudicazione, UnCavalloSoloControSoleDonneNonVince) {
  VerificaMateriale({"3qk3/8/8/8/8/8/8/4KN2 w - - 0 1", false, true});
  VerificaMateriale({"2qqk3/8/8/8/8/8/8/4KN2 w - - 0 1", false, true});
  VerificaMateriale({"4kn2/8/8/8/8/8/8/3QK3 b - - 0 1", true, false});
}

TEST_F(Aggiudicazione, UnCavalloSoloVinceSeLAvversarioHaAltroCheDonne) {
  VerificaMateriale({"4k3/4p3/8/8/8/8/8/4KN2 w - - 0 1", true, true});
  VerificaMateriale({"4k3/8/8/8/8/8/8/1n2KN2 w - - 0 1", true, true});
  VerificaMateriale({"2b1k3/8/8/8/8/8/8/4KN2 w - - 0 1", true, true});
  VerificaMateriale({"r3k3/8/8/8/8/8/8/4KN2 w - - 0 1", true, true});
  VerificaMateriale({"3qk3/3p4/8/8/8/8/8/4KN2 w - - 0 1", true, true});
  VerificaMateriale({"4kn2/8/8/8/8/8/4P3/4K3 b - - 0 1", true, true});
}

TEST_F(Aggiudicazione, DueCavalliVinconoControIlReNudo) {
  VerificaMateriale({"4k3/8/8/8/8/8/8/3NKN2 w - - 0 1", true, false});
  VerificaMateriale({"2n1kn2/8/8/8/8/8/8/4K3 b - - 0 1", false, true});
}

TEST_F(Aggiudicazione, PedoneTorreODonnaVincono) {
  VerificaMateriale({"4k3/8/8/8/8/8/4P3/4K3 w - - 0 1", true, false});
  VerificaMateriale({"4k3/8/8/8/8/8/8/R3K3 w - - 0 1", true, false});
  VerificaMateriale({"4k3/8/8/8/8/8/8/3QK3 w - - 0 1", true, false});
  VerificaMateriale({"4k3/8/8/8/8/8/8/2B1KN2 w - - 0 1", true, false});
}

TEST_F(Aggiudicazione, AlfieriDiUnSoloColoreNonVincono) {
  // c1 and e3 dark.
  VerificaMateriale({"4k3/8/8/8/8/8/8/2B1K3 w - - 0 1", false, false});
  VerificaMateriale({"4k3/8/8/8/8/4B3/8/2B1K3 w - - 0 1", false, false});
  // f1 and d3 light.
  VerificaMateriale({"4k3/8/8/8/8/3B4/8/4KB2 w - - 0 1", false, false});
}

TEST_F(Aggiudicazione, AlfiereControTorreNonVinceLaTorreSi) {
  VerificaMateriale({"r3k3/8/8/8/8/8/8/2B1K3 w - - 0 1", false, true});
  VerificaMateriale({"3qk3/8/8/8/8/8/8/2B1K3 w - - 0 1", false, true});
}

TEST_F(Aggiudicazione, AlfieriSuEntrambiIColoriVincono) {
  VerificaMateriale({"4k3/8/8/8/8/8/8/2B1KB2 w - - 0 1", true, false});
  // c1 dark against c8 light: both sides may mate.
  VerificaMateriale({"2b1k3/8/8/8/8/8/8/2B1K3 w - - 0 1", true, true});
  // c1 dark against f8 dark: neither.
  VerificaMateriale({"4kb2/8/8/8/8/8/8/2B1K3 w - - 0 1", false, false});
}

TEST_F(Aggiudicazione, AlfiereControPedoneOCavalloVince) {
  VerificaMateriale({"4k3/4p3/8/8/8/8/8/2B1K3 w - - 0 1", true, true});
  VerificaMateriale({"4kn2/8/8/8/8/8/8/2B1K3 w - - 0 1", true, true});
}

// ---------------------------------------------------------------------------
// The flag-fall questions.

TEST_F(Aggiudicazione, DomandaSconfittaPerTempo) {
  memoria::AccodaRisposta(IDYES);
  EXPECT_EQ(dom_AggiudicaPerTempo(BIANCO), IDYES);
  UnaFinestra("al bianco e' finito il tempo: Aggiudicare la partita ( 0-1 )?", DOMANDA);
  memoria::Azzera();
  EXPECT_EQ(dom_AggiudicaPerTempo(NERO), IDNO);
  UnaFinestra("al nero e' finito il tempo: Aggiudicare la partita ( 1-0 )?", DOMANDA);
  Aperta();
}

TEST_F(Aggiudicazione, DomandaPattaPerTempo) {
  memoria::AccodaRisposta(IDYES);
  EXPECT_EQ(dom_AggiudicaPattaPerTempo(BIANCO), IDYES);
  UnaFinestra(
      "al bianco e' finito il tempo, il nero non puo' vincere.\n"
      "Aggiudicare la partita ( 1/2-1/2 )?",
      DOMANDA);
  memoria::Azzera();
  memoria::AccodaRisposta(-1);
  EXPECT_EQ(dom_AggiudicaPattaPerTempo(NERO), -1);
  UnaFinestra(
      "al nero e' finito il tempo, il bianco non puo' vincere.\n"
      "Aggiudicare la partita ( 1/2-1/2 )?",
      DOMANDA);
  Aperta();
}

// ---------------------------------------------------------------------------
// The flag fall.

constexpr const char* PATTA_BIANCO =
    "al bianco e' finito il tempo, il nero non puo' vincere.\n"
    "Aggiudicare la partita ( 1/2-1/2 )?";
constexpr const char* PERSA_BIANCO =
    "al bianco e' finito il tempo: Aggiudicare la partita ( 0-1 )?";
constexpr const char* PERSA_NERO = "al nero e' finito il tempo: Aggiudicare la partita ( 1-0 )?";
constexpr const char* ENTRAMBI =
    "Ad entrambi i giocatori e' finito il tempo.\nAggiudicare la partita patta?";

TEST_F(Aggiudicazione, BandierinaSuonaDueVolte) {
  CadutaBandierina(BIANCO);
  ToniSono({{1000, 100}, {1000, 100}});
}

TEST_F(Aggiudicazione, BandierinaDelBiancoControReNudoChiedeLaPatta) {
  Carica("4k3/8/8/8/8/8/8/3QK3 w - - 0 1");
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(BIANCO);
  ToniSono({{1000, 100}, {1000, 100}});
  UnaFinestra(PATTA_BIANCO, DOMANDA);
  StatoE("1/2-1/2", "time forfeit", "al bianco e' finito il tempo");
  EXPECT_EQ(Ridisegni, 1);
}

TEST_F(Aggiudicazione, BandierinaPattaRifiutataLasciaTutto) {
  InMoto = 1;
  memoria::AccodaRisposta(IDNO);
  CadutaBandierina(BIANCO);
  UnaFinestra(PATTA_BIANCO, DOMANDA);
  Aperta();
  EXPECT_EQ(Ridisegni, 0);
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  EXPECT_EQ(InMoto, 1u);
}

TEST_F(Aggiudicazione, BandierinaPattaConFinestraFallitaAggiudica) {
  for (int risposta : {0, -1}) {
    memoria::Azzera();
    RevocaAggiudicazione();
    memoria::AccodaRisposta(risposta);
    CadutaBandierina(BIANCO);
    UnaFinestra(PATTA_BIANCO, DOMANDA);
    StatoE("1/2-1/2", "time forfeit", "al bianco e' finito il tempo");
  }
  EXPECT_EQ(Ridisegni, 2);
}

TEST_F(Aggiudicazione, BandierinaDelNeroControReNudoChiedeLaPatta) {
  Carica("3qk3/8/8/8/8/8/8/4K3 b - - 0 1");
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(NERO);
  UnaFinestra(
      "al nero e' finito il tempo, il bianco non puo' vincere.\n"
      "Aggiudicare la partita ( 1/2-1/2 )?",
      DOMANDA);
  StatoE("1/2-1/2", "time forfeit", "al nero e' finito il tempo");
}

TEST_F(Aggiudicazione, BandierinaDelBiancoConIlNeroCheVinceAssegnaLaSconfitta) {
  Carica("4k3/4p3/8/8/8/8/8/4K3 w - - 0 1");
  InMoto = 1;
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(BIANCO);
  // The flag's two tones, then the clock's as it stops.
  ToniSono({{1000, 100}, {1000, 100}, {1000, 100}, {50000, 3}});
  UnaFinestra(PERSA_BIANCO, DOMANDA);
  StatoE("0-1", "time forfeit", "al bianco e' finito il tempo");
  EXPECT_EQ(ChiamateFermaOrologio, 1);
  EXPECT_EQ(InMoto, 0u);
  EXPECT_EQ(Ridisegni, 1);
}

TEST_F(Aggiudicazione, BandierinaDelNeroConIlBiancoCheVinceAssegnaLaSconfitta) {
  Carica("4k3/8/8/8/8/8/8/R3K3 b - - 0 1");
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(NERO);
  UnaFinestra(PERSA_NERO, DOMANDA);
  StatoE("1-0", "time forfeit", "al nero e' finito il tempo");
  EXPECT_EQ(Ridisegni, 1);
}

TEST_F(Aggiudicazione, LaSconfittaPerTempoSoloSuSi) {
  Carica("4k3/4p3/8/8/8/8/8/4K3 w - - 0 1");
  InMoto = 1;
  for (int risposta : {IDNO, 0, -1}) {
    memoria::Azzera();
    memoria::AccodaRisposta(risposta);
    CadutaBandierina(BIANCO);
    UnaFinestra(PERSA_BIANCO, DOMANDA);
    Aperta();
  }
  EXPECT_EQ(Ridisegni, 0);
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  EXPECT_EQ(InMoto, 1u);
}

TEST_F(Aggiudicazione, BandierinaSenzaSchermoInstallato) {
  SchermoDellaPartita.mossa_corrente = nullptr;
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(BIANCO);
  StatoE("1/2-1/2", "time forfeit", "al bianco e' finito il tempo");
}

TEST_F(Aggiudicazione, EntrambeLeBandierineConTempoZero) {
  TempoRimasto[NERO] = 0;
  InMoto = 1;
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(BIANCO);
  ToniSono({{1000, 100}, {1000, 100}, {1000, 100}, {50000, 3}});
  UnaFinestra(ENTRAMBI, DOMANDA);
  StatoE("1/2-1/2", "both flags fallen", "Ad entrambi finisce il tempo");
  EXPECT_EQ(ChiamateFermaOrologio, 1);
  EXPECT_EQ(Ridisegni, 1);
}

TEST_F(Aggiudicazione, EntrambeLeBandierineConTempoNegativo) {
  // Even with material that wins, the other's spent time decides.
  Carica("4k3/8/8/8/8/8/8/R3K3 b - - 0 1");
  TempoRimasto[BIANCO] = -500;
  memoria::AccodaRisposta(0);
  CadutaBandierina(NERO);
  UnaFinestra(ENTRAMBI, DOMANDA);
  StatoE("1/2-1/2", "both flags fallen", "Ad entrambi finisce il tempo");
}

TEST_F(Aggiudicazione, EntrambeLeBandierineRifiutato) {
  TempoRimasto[NERO] = -1;
  InMoto = 1;
  memoria::AccodaRisposta(IDNO);
  CadutaBandierina(BIANCO);
  UnaFinestra(ENTRAMBI, DOMANDA);
  Aperta();
  EXPECT_EQ(Ridisegni, 0);
  EXPECT_EQ(InMoto, 1u);
}

TEST_F(Aggiudicazione, UnMillisecondoRimastoNonEEntrambe) {
  TempoRimasto[NERO] = 1;
  CadutaBandierina(BIANCO);
  UnaFinestra(PATTA_BIANCO, DOMANDA);
}

// ---------------------------------------------------------------------------
// Agreement and resignation.

TEST_F(Aggiudicazione, PattaDaccordoSi) {
  InMoto = 1;
  memoria::AccodaRisposta(IDYES);
  PattaDaccordo();
  UnaFinestra("Patta d'accordo, aggiudicare la partita (1/2-1/2)?", DOMANDA);
  StatoE("1/2-1/2", "By agreement", "Patta d'accordo");
  EXPECT_EQ(ChiamateFermaOrologio, 1);
  EXPECT_EQ(Ridisegni, 1);
  ToniSono({{1000, 100}, {50000, 3}});  // only the clock's, as it stops
}

TEST_F(Aggiudicazione, PattaDaccordoNo) {
  InMoto = 1;
  memoria::AccodaRisposta(IDNO);
  PattaDaccordo();
  UnaFinestra("Patta d'accordo, aggiudicare la partita (1/2-1/2)?", DOMANDA);
  Aperta();
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  EXPECT_EQ(InMoto, 1u);
  EXPECT_EQ(Ridisegni, 0);
}

TEST_F(Aggiudicazione, PattaDaccordoConFinestraFallita) {
  for (int risposta : {0, -1}) {
    RevocaAggiudicazione();
    memoria::AccodaRisposta(risposta);
    PattaDaccordo();
    StatoE("1/2-1/2", "By agreement", "Patta d'accordo");
  }
  EXPECT_EQ(Ridisegni, 2);
}

TEST_F(Aggiudicazione, AbbandonaIlBianco) {
  InMoto = 1;
  memoria::AccodaRisposta(IDYES);
  Abbandona(BIANCO);
  UnaFinestra("Il bianco abbandona, aggiudicare la partita (0-1)?", DOMANDA);
  StatoE("0-1", "Abandoned", "Il bianco abbandona");
  EXPECT_EQ(ChiamateFermaOrologio, 1);
  EXPECT_EQ(Ridisegni, 1);
}

TEST_F(Aggiudicazione, AbbandonaIlNero) {
  memoria::AccodaRisposta(IDYES);
  Abbandona(NERO);
  UnaFinestra("Il nero abbandona, aggiudicare la partita (1-0)?", DOMANDA);
  StatoE("1-0", "Abandoned", "Il nero abbandona");
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  EXPECT_EQ(Ridisegni, 1);
}

TEST_F(Aggiudicazione, AbbandonoRifiutato) {
  InMoto = 1;
  memoria::AccodaRisposta(IDNO);
  Abbandona(NERO);
  Aperta();
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  EXPECT_EQ(InMoto, 1u);
  EXPECT_EQ(Ridisegni, 0);
}

TEST_F(Aggiudicazione, AbbandonoConFinestraFallita) {
  memoria::AccodaRisposta(0);
  Abbandona(BIANCO);
  StatoE("0-1", "Abandoned", "Il bianco abbandona");
  memoria::AccodaRisposta(-1);
  Abbandona(NERO);
  StatoE("1-0", "Abandoned", "Il nero abbandona");
}

TEST_F(Aggiudicazione, UnaNuovaAggiudicazioneSovrascrive) {
  Aggiudica("checkmate", "scaccomatto", "1-0");
  memoria::AccodaRisposta(IDYES);
  PattaDaccordo();
  StatoE("1/2-1/2", "By agreement", "Patta d'accordo");
  memoria::AccodaRisposta(IDYES);
  Abbandona(BIANCO);
  StatoE("0-1", "Abandoned", "Il bianco abbandona");
}

TEST_F(Aggiudicazione, RifiutareSuPartitaAggiudicataLaLasciaCosi) {
  Aggiudica("checkmate", "scaccomatto", "1-0");
  memoria::AccodaRisposta(IDNO);
  memoria::AccodaRisposta(IDNO);
  PattaDaccordo();
  Abbandona(NERO);
  StatoE("1-0", "checkmate", "scaccomatto");
  EXPECT_EQ(memoria::Finestre().size(), 2u);
}

}  // namespace
