// The arbiter's boxes: the notices and questions of adjudication, the flag
// fall, resignation and draw by agreement, with their tones and the line
// that states the result.
#include "console/arbitro.h"

#include <gtest/gtest.h>

#include <string>

#include "ambiente_console.h"
#include "board/fen.h"
#include "board/posizione.h"
#include "clock/orologio.h"
#include "game/aggiudicazione.h"
#include "game/partita.h"
#include "messaggi/messaggi.h"
#include "piattaforma/memoria/memoria.h"
#include "supporto/stati.h"
#include "supporto/tabelle.h"
#include "verifiche/aggiudicazione.h"
#include "verifiche/toni.h"

using namespace piattaforma::win32;

namespace {

constexpr unsigned DOMANDA = MB_YESNO;
constexpr unsigned AVVISO = MB_OK | MB_ICONINFORMATION;

using verifiche::ChiamateFermaOrologio;
using verifiche::MINUTO;

class Arbitro : public verifiche::AmbienteAggiudicazione {
 protected:
  void SetUp() override {
    AmbienteAggiudicazione::SetUp();
    fuoco = FUOCO_COMANDO;
    CharatteriInComando = 0;
  }

  // The current-move line, without the spaces that centre it.
  static std::string RigaMossaCorrente() {
    std::string riga = memoria::Riga(y_mossa_corrente);
    const size_t inizio = riga.find_first_not_of(' ');
    if (inizio == std::string::npos) return "";
    return riga.substr(inizio, riga.find_last_not_of(' ') - inizio + 1);
  }
  // The line states the result just adjudicated, with the cursor back on
  // the focus.
  static void RigaDelRisultato() {
    std::string commento = CommentoRisultato;
    commento[0] =
        char(commento[0] >= 'a' && commento[0] <= 'z' ? commento[0] - 'a' + 'A' : commento[0]);
    EXPECT_EQ(RigaMossaCorrente(),
              commento + ": partita aggiudicata ( " + std::string(Result) + " )");
    EXPECT_EQ(memoria::CursoreY(), y_comando);
  }
};

TEST_F(Arbitro, TestiDeiTasti) {
  EXPECT_STREQ(TestoAbbandona[BIANCO], "Il bianco abbandona, aggiudicare la partita (0-1)");
  EXPECT_STREQ(TestoAbbandona[NERO], "Il nero abbandona, aggiudicare la partita (1-0)");
  EXPECT_STREQ(TestoPattaDaccordo, "Patta d'accordo, aggiudicare la partita (1/2-1/2)");
}

TEST_F(Arbitro, AvvisoDellAggiudicazione) {
  Aggiudica("checkmate", "scaccomatto", "1-0");
  avisa_aggiudicazione();
  UnaFinestra("scaccomatto, partita aggiudicata ( 1-0 ).", AVVISO);
}

// ---------------------------------------------------------------------------
// The revocation questions: the callers revoke, the questions only ask.

TEST_F(Arbitro, DomandaRevocaPerModificare) {
  Aggiudica("By agreement", "Patta d'accordo", "1/2-1/2");
  memoria::AccodaRisposta(IDYES);
  EXPECT_EQ(dom_AggiudicataModificaCMQ(), IDYES);
  UnaFinestra(
      "Patta d'accordo, partita aggiudicata ( 1/2-1/2 ).\n"
      "Revocare l'aggiudicazione e modificare la partita comunque?",
      DOMANDA);
  StatoE("1/2-1/2", "By agreement", "Patta d'accordo");
}

TEST_F(Arbitro, DomandaRevocaPerMettereInMoto) {
  Aggiudica("Abandoned", "Il nero abbandona", "1-0");
  memoria::AccodaRisposta(IDNO);
  EXPECT_EQ(dom_AggiudicataInMotoCMQ(), IDNO);
  UnaFinestra(
      "Il nero abbandona, partita aggiudicata ( 1-0 ).\n"
      "Revocare l'aggiudicazione ed impostare comunque l'orologio in moto?",
      DOMANDA);
  StatoE("1-0", "Abandoned", "Il nero abbandona");
}

TEST_F(Arbitro, LeDomandeDiRevocaRestituisconoAncheUnaFinestraFallita) {
  Aggiudica("checkmate", "scaccomatto", "0-1");
  memoria::AccodaRisposta(0);
  memoria::AccodaRisposta(-1);
  EXPECT_EQ(dom_AggiudicataModificaCMQ(), 0);
  EXPECT_EQ(dom_AggiudicataInMotoCMQ(), -1);
  StatoE("0-1", "checkmate", "scaccomatto");
}

TEST_F(Arbitro, DomandaSconfittaPerTempo) {
  memoria::AccodaRisposta(IDYES);
  EXPECT_EQ(dom_AggiudicaPerTempo(BIANCO), IDYES);
  UnaFinestra("al bianco e' finito il tempo: Aggiudicare la partita ( 0-1 )?", DOMANDA);
  memoria::Azzera();
  EXPECT_EQ(dom_AggiudicaPerTempo(NERO), IDNO);
  UnaFinestra("al nero e' finito il tempo: Aggiudicare la partita ( 1-0 )?", DOMANDA);
  Aperta();
}

TEST_F(Arbitro, DomandaPattaPerTempo) {
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

TEST_F(Arbitro, BandierinaSuonaDueVolte) {
  CadutaBandierina(BIANCO);
  ToniSono({{1000, 100}, {1000, 100}});
}

TEST_F(Arbitro, BandierinaDelBiancoControReNudoChiedeLaPatta) {
  Carica("4k3/8/8/8/8/8/8/3QK3 w - - 0 1");
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(BIANCO);
  ToniSono({{1000, 100}, {1000, 100}});
  UnaFinestra(PATTA_BIANCO, DOMANDA);
  StatoE("1/2-1/2", "time forfeit", "al bianco e' finito il tempo");
  RigaDelRisultato();
}

TEST_F(Arbitro, BandierinaPattaRifiutataLasciaTutto) {
  SegnaOrologioInMoto(true);
  memoria::AccodaRisposta(IDNO);
  CadutaBandierina(BIANCO);
  UnaFinestra(PATTA_BIANCO, DOMANDA);
  Aperta();
  EXPECT_EQ(RigaMossaCorrente(), "");
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  EXPECT_EQ(InMoto, 1u);
}

TEST_F(Arbitro, BandierinaPattaConFinestraFallitaAggiudica) {
  for (int risposta : {0, -1}) {
    memoria::Azzera();
    RevocaAggiudicazione();
    memoria::AccodaRisposta(risposta);
    CadutaBandierina(BIANCO);
    UnaFinestra(PATTA_BIANCO, DOMANDA);
    StatoE("1/2-1/2", "time forfeit", "al bianco e' finito il tempo");
  }
  RigaDelRisultato();
}

TEST_F(Arbitro, BandierinaDelNeroControReNudoChiedeLaPatta) {
  Carica("3qk3/8/8/8/8/8/8/4K3 b - - 0 1");
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(NERO);
  UnaFinestra(
      "al nero e' finito il tempo, il bianco non puo' vincere.\n"
      "Aggiudicare la partita ( 1/2-1/2 )?",
      DOMANDA);
  StatoE("1/2-1/2", "time forfeit", "al nero e' finito il tempo");
}

TEST_F(Arbitro, BandierinaDelBiancoConIlNeroCheVinceAssegnaLaSconfitta) {
  Carica("4k3/4p3/8/8/8/8/8/4K3 w - - 0 1");
  SegnaOrologioInMoto(true);
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(BIANCO);
  // The flag's two tones, then the clock's as it stops.
  ToniSono({{1000, 100}, {1000, 100}, {1000, 100}, {50000, 3}});
  UnaFinestra(PERSA_BIANCO, DOMANDA);
  StatoE("0-1", "time forfeit", "al bianco e' finito il tempo");
  EXPECT_EQ(ChiamateFermaOrologio, 1);
  EXPECT_EQ(InMoto, 0u);
  RigaDelRisultato();
}

TEST_F(Arbitro, BandierinaDelNeroConIlBiancoCheVinceAssegnaLaSconfitta) {
  Carica("4k3/8/8/8/8/8/8/R3K3 b - - 0 1");
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(NERO);
  UnaFinestra(PERSA_NERO, DOMANDA);
  StatoE("1-0", "time forfeit", "al nero e' finito il tempo");
  RigaDelRisultato();
}

TEST_F(Arbitro, LaSconfittaPerTempoSoloSuSi) {
  Carica("4k3/4p3/8/8/8/8/8/4K3 w - - 0 1");
  SegnaOrologioInMoto(true);
  for (int risposta : {IDNO, 0, -1}) {
    memoria::Azzera();
    memoria::AccodaRisposta(risposta);
    CadutaBandierina(BIANCO);
    UnaFinestra(PERSA_BIANCO, DOMANDA);
    Aperta();
  }
  EXPECT_EQ(RigaMossaCorrente(), "");
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  EXPECT_EQ(InMoto, 1u);
}

TEST_F(Arbitro, BandierinaSenzaSchermoInstallato) {
  InstallaSchermoOrologio({});
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(BIANCO);
  StatoE("1/2-1/2", "time forfeit", "al bianco e' finito il tempo");
}

TEST_F(Arbitro, EntrambeLeBandierineConTempoZero) {
  CambiaOrologio([](StatoOrologio& s) { s.tempo[NERO] = 0; });
  SegnaOrologioInMoto(true);
  memoria::AccodaRisposta(IDYES);
  CadutaBandierina(BIANCO);
  ToniSono({{1000, 100}, {1000, 100}, {1000, 100}, {50000, 3}});
  UnaFinestra(ENTRAMBI, DOMANDA);
  StatoE("1/2-1/2", "both flags fallen", "Ad entrambi finisce il tempo");
  EXPECT_EQ(ChiamateFermaOrologio, 1);
  RigaDelRisultato();
}

TEST_F(Arbitro, EntrambeLeBandierineConTempoNegativo) {
  // Even with material that wins, the other's spent time decides.
  Carica("4k3/8/8/8/8/8/8/R3K3 b - - 0 1");
  CambiaOrologio([](StatoOrologio& s) { s.tempo[BIANCO] = -500; });
  memoria::AccodaRisposta(0);
  CadutaBandierina(NERO);
  UnaFinestra(ENTRAMBI, DOMANDA);
  StatoE("1/2-1/2", "both flags fallen", "Ad entrambi finisce il tempo");
}

TEST_F(Arbitro, EntrambeLeBandierineRifiutato) {
  CambiaOrologio([](StatoOrologio& s) { s.tempo[NERO] = -1; });
  SegnaOrologioInMoto(true);
  memoria::AccodaRisposta(IDNO);
  CadutaBandierina(BIANCO);
  UnaFinestra(ENTRAMBI, DOMANDA);
  Aperta();
  EXPECT_EQ(RigaMossaCorrente(), "");
  EXPECT_EQ(InMoto, 1u);
}

TEST_F(Arbitro, UnMillisecondoRimastoNonEEntrambe) {
  CambiaOrologio([](StatoOrologio& s) { s.tempo[NERO] = 1; });
  CadutaBandierina(BIANCO);
  UnaFinestra(PATTA_BIANCO, DOMANDA);
}

// ---------------------------------------------------------------------------
// Agreement and resignation.

TEST_F(Arbitro, PattaDaccordoSi) {
  SegnaOrologioInMoto(true);
  memoria::AccodaRisposta(IDYES);
  PattaDaccordo();
  UnaFinestra("Patta d'accordo, aggiudicare la partita (1/2-1/2)?", DOMANDA);
  StatoE("1/2-1/2", "By agreement", "Patta d'accordo");
  EXPECT_EQ(ChiamateFermaOrologio, 1);
  RigaDelRisultato();
  ToniSono({{1000, 100}, {50000, 3}});  // only the clock's, as it stops
}

TEST_F(Arbitro, PattaDaccordoNo) {
  SegnaOrologioInMoto(true);
  memoria::AccodaRisposta(IDNO);
  PattaDaccordo();
  UnaFinestra("Patta d'accordo, aggiudicare la partita (1/2-1/2)?", DOMANDA);
  Aperta();
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  EXPECT_EQ(InMoto, 1u);
  EXPECT_EQ(RigaMossaCorrente(), "");
}

TEST_F(Arbitro, PattaDaccordoConFinestraFallita) {
  for (int risposta : {0, -1}) {
    RevocaAggiudicazione();
    memoria::AccodaRisposta(risposta);
    PattaDaccordo();
    StatoE("1/2-1/2", "By agreement", "Patta d'accordo");
  }
  RigaDelRisultato();
}

TEST_F(Arbitro, AbbandonaIlBianco) {
  SegnaOrologioInMoto(true);
  memoria::AccodaRisposta(IDYES);
  Abbandona(BIANCO);
  UnaFinestra("Il bianco abbandona, aggiudicare la partita (0-1)?", DOMANDA);
  StatoE("0-1", "Abandoned", "Il bianco abbandona");
  EXPECT_EQ(ChiamateFermaOrologio, 1);
  RigaDelRisultato();
}

TEST_F(Arbitro, AbbandonaIlNero) {
  memoria::AccodaRisposta(IDYES);
  Abbandona(NERO);
  UnaFinestra("Il nero abbandona, aggiudicare la partita (1-0)?", DOMANDA);
  StatoE("1-0", "Abandoned", "Il nero abbandona");
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  RigaDelRisultato();
}

TEST_F(Arbitro, AbbandonoRifiutato) {
  SegnaOrologioInMoto(true);
  memoria::AccodaRisposta(IDNO);
  Abbandona(NERO);
  Aperta();
  EXPECT_EQ(ChiamateFermaOrologio, 0);
  EXPECT_EQ(InMoto, 1u);
  EXPECT_EQ(RigaMossaCorrente(), "");
}

TEST_F(Arbitro, AbbandonoConFinestraFallita) {
  memoria::AccodaRisposta(0);
  Abbandona(BIANCO);
  StatoE("0-1", "Abandoned", "Il bianco abbandona");
  memoria::AccodaRisposta(-1);
  Abbandona(NERO);
  StatoE("1-0", "Abandoned", "Il nero abbandona");
}

TEST_F(Arbitro, UnaNuovaAggiudicazioneSovrascrive) {
  Aggiudica("checkmate", "scaccomatto", "1-0");
  memoria::AccodaRisposta(IDYES);
  PattaDaccordo();
  StatoE("1/2-1/2", "By agreement", "Patta d'accordo");
  memoria::AccodaRisposta(IDYES);
  Abbandona(BIANCO);
  StatoE("0-1", "Abandoned", "Il bianco abbandona");
}

TEST_F(Arbitro, RifiutareSuPartitaAggiudicataLaLasciaCosi) {
  Aggiudica("checkmate", "scaccomatto", "1-0");
  memoria::AccodaRisposta(IDNO);
  memoria::AccodaRisposta(IDNO);
  PattaDaccordo();
  Abbandona(NERO);
  StatoE("1-0", "checkmate", "scaccomatto");
  EXPECT_EQ(memoria::Finestre().size(), 2u);
}

// ---------------------------------------------------------------------------
// A move's outcome turned into boxes.

const char* const TRIPLICE = "Triplice ripetizione: aggiudicare la patta?";
const char* const CINQUANTA = "Aggiudicare la patta per la regola delle 50 mosse?";

class EsitoDellaMossa : public Arbitro {
 protected:
  void SetUp() override {
    Arbitro::SetUp();
    Nuova("4k3/8/8/8/8/8/8/R3K3 w - - 0 1");
  }
  static void Nuova(const char* fen) {
    Carica(fen);
    RevocaAggiudicazione();
    AzzeraPartita();
  }
  // Typed, played, annotated and shown as the console does.
  static void Gioca(const char* testo) {
    ASSERT_EQ(LeggiDettagliMossaDaComando(testo), 1) << testo;
    const uint64_t mossa = FaiMossaInComando();
    ASSERT_NE(mossa, 0u) << testo;
    PresentaMossa(AnnotaMossa(mossa));
  }
  // Up to the move before the third occurrence, the boxes forgotten.
  static void QuasiTriplice() {
    for (const char* m : {"Ra2", "Ke7", "Ra1", "Ke8", "Ra2", "Ke7", "Ra1"}) Gioca(m);
    ASSERT_TRUE(memoria::Finestre().empty());
  }
};

TEST_F(EsitoDellaMossa, IlNoAllaTripliceAggiudicaComunque) {
  QuasiTriplice();
  memoria::AccodaRisposta(IDNO);
  Gioca("Ke8");
  UnaFinestra(TRIPLICE, DOMANDA);
  StatoE("1/2-1/2", "threefold repetition", "triplice ripetizione");
}

TEST_F(EsitoDellaMossa, IlSiAllaTripliceAggiudicaSenzaAvviso) {
  QuasiTriplice();
  memoria::AccodaRisposta(IDYES);
  Gioca("Ke8");
  UnaFinestra(TRIPLICE, DOMANDA);
  StatoE("1/2-1/2", "threefold repetition", "triplice ripetizione");
}

TEST_F(EsitoDellaMossa, SoloUnaFinestraFallitaLasciaLaPartitaAperta) {
  QuasiTriplice();
  memoria::AccodaRisposta(0);
  Gioca("Ke8");
  EXPECT_EQ(Ripetizioni, 2u);
  Aperta();
  memoria::Azzera();
  // A box that could not be shown answers -1: that is not 0.
  Nuova("4k3/8/8/8/8/8/8/R3K3 w - - 0 1");
  QuasiTriplice();
  memoria::AccodaRisposta(-1);
  Gioca("Ke8");
  StatoE("1/2-1/2", "threefold repetition", "triplice ripetizione");
}

TEST_F(EsitoDellaMossa, LeCinquantaMosseSiChiedonoESoloIlSiAggiudica) {
  Nuova("4k3/8/8/8/8/8/8/R3K3 w - - 99 1");
  memoria::AccodaRisposta(IDYES);
  Gioca("Ra2");
  UnaFinestra(CINQUANTA, DOMANDA);
  StatoE("1/2-1/2", "Fifty-move rule", "regola delle 50 mosse");
  memoria::Azzera();
  Nuova("4k3/8/8/8/8/8/8/R3K3 w - - 99 1");
  memoria::AccodaRisposta(IDNO);
  Gioca("Ra2");
  UnaFinestra(CINQUANTA, DOMANDA);
  Aperta();
}

TEST_F(EsitoDellaMossa, LeCinquantaMosseRifiutatePoiLaTriplice) {
  // The eighth ply brings the clock to 100 and the third occurrence at once.
  Nuova("4k3/8/8/8/8/8/8/R3K3 w - - 92 1");
  QuasiTriplice();
  memoria::AccodaRisposta(IDNO);
  memoria::AccodaRisposta(IDNO);
  Gioca("Ke8");
  ASSERT_EQ(memoria::Finestre().size(), 2u);
  EXPECT_EQ(memoria::Finestre()[0].testo, CINQUANTA);
  EXPECT_EQ(memoria::Finestre()[1].testo, TRIPLICE);
  StatoE("1/2-1/2", "threefold repetition", "triplice ripetizione");
}

TEST_F(EsitoDellaMossa, IlMattoSiAvvisaDopoLaMossaEPoiSuona) {
  Nuova("6k1/5ppp/8/8/8/8/8/R3K3 w - - 0 1");
  Gioca("Ra8");
  UnaFinestra("scaccomatto, partita aggiudicata ( 1-0 ).", AVVISO);
  RigaDelRisultato();
  ToniSono({{3000, 5}});
}

TEST_F(EsitoDellaMossa, LErroreDiDisambiguaSiAvvisa) {
  PresentaMossa({0, false, FineDellaPartita::Nessuna, DomandaAllArbitro::Nessuna, true});
  UnaFinestra("Errore in disambigua mossa pezzo!", AVVISO);
}

}  // namespace
