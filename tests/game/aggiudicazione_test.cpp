#include "game/aggiudicazione.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "board/fen.h"
#include "board/geometria.h"
#include "board/posizione.h"
#include "clock/orologio.h"
#include "messaggi/messaggi.h"
#include "piattaforma/memoria/memoria.h"
#include "supporto/stati.h"
#include "supporto/tabelle.h"
#include "verifiche/aggiudicazione.h"
#include "verifiche/toni.h"

using namespace piattaforma::win32;

namespace {

// Read during dynamic initialisation, before any test can adjudicate: the
// buffers are constant-initialised.
const std::string ResultIniziale = Result;
const std::string TerminationIniziale = Termination;
const std::string CommentoIniziale = CommentoRisultato;

constexpr unsigned DOMANDA = MB_YESNO;
constexpr unsigned AVVISO = MB_OK | MB_ICONINFORMATION;

using verifiche::ChiamateFermaOrologio;
using verifiche::MINUTO;

class Aggiudicazione : public verifiche::AmbienteAggiudicazione {};

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
  SegnaOrologioInMoto(true);
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
// What a fallen flag leaves to decide, and the adjudications agreed to.

TEST_F(Aggiudicazione, LaCadutaValutaIlMaterialeEIlTempoDellAltro) {
  Carica("4k3/4p3/8/8/8/8/8/4K3 w - - 0 1");
  EXPECT_EQ(ValutaCaduta(BIANCO), DecisioneCaduta::Sconfitta);
  EXPECT_EQ(ValutaCaduta(NERO), DecisioneCaduta::Patta);
  CambiaOrologio([](StatoOrologio& s) { s.tempo[NERO] = 1; });
  EXPECT_EQ(ValutaCaduta(BIANCO), DecisioneCaduta::Sconfitta);
  CambiaOrologio([](StatoOrologio& s) { s.tempo[NERO] = 0; });
  EXPECT_EQ(ValutaCaduta(BIANCO), DecisioneCaduta::EntrambeLeBandierine);
  CambiaOrologio([](StatoOrologio& s) { s.tempo[NERO] = -500; });
  EXPECT_EQ(ValutaCaduta(BIANCO), DecisioneCaduta::EntrambeLeBandierine);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(Aggiudicazione, LeAggiudicazioniDellaCaduta) {
  AggiudicaCaduta(BIANCO, DecisioneCaduta::Sconfitta);
  StatoE("0-1", "time forfeit", "al bianco e' finito il tempo");
  AggiudicaCaduta(NERO, DecisioneCaduta::Sconfitta);
  StatoE("1-0", "time forfeit", "al nero e' finito il tempo");
  AggiudicaCaduta(NERO, DecisioneCaduta::Patta);
  StatoE("1/2-1/2", "time forfeit", "al nero e' finito il tempo");
  SegnaOrologioInMoto(true);
  AggiudicaCaduta(BIANCO, DecisioneCaduta::EntrambeLeBandierine);
  StatoE("1/2-1/2", "both flags fallen", "Ad entrambi finisce il tempo");
  EXPECT_EQ(InMoto, 0u);
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Aggiudicazione, AbbandonoEPattaDaccordo) {
  AggiudicaAbbandono(BIANCO);
  StatoE("0-1", "Abandoned", "Il bianco abbandona");
  AggiudicaAbbandono(NERO);
  StatoE("1-0", "Abandoned", "Il nero abbandona");
  AggiudicaPattaDaccordo();
  StatoE("1/2-1/2", "By agreement", "Patta d'accordo");
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Aggiudicazione, FotografiaERipristino) {
  Aggiudica("Abandoned", "Il nero abbandona", "1-0");
  const StatoAggiudicazione prima = FotografiaAggiudicazione();
  RevocaAggiudicazione();
  EXPECT_FALSE(prima == FotografiaAggiudicazione());
  RipristinaAggiudicazione(prima);
  StatoE("1-0", "Abandoned", "Il nero abbandona");
  EXPECT_EQ(FotografiaAggiudicazione(), prima);
}

}  // namespace
