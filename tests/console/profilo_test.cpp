// The screen reader's profile (preferenze.ini, lettore_di_schermo 1): no
// drawing, no board and no running time on the screen, which a screen
// reader would read as noise; the readouts give them on request. With 0 the
// screen is the usual one.
#include <string>

#include "ambiente_console.h"
#include "board/fen.h"
#include "console/avvio.h"
#include "settings/lettore_ini.h"
#include "settings/parametri.h"

using namespace piattaforma::win32;

namespace {

constexpr DWORD CTRL = LEFT_CTRL_PRESSED;

class ProfiloLettore : public AmbienteConsole {
 protected:
  static void Avvia(int lettore) {
    memoria::ImpostaFile("preferenze.ini",
                         "$ lettore_di_schermo " + std::to_string(lettore) + "\n$ voce 0\n");
    inizializza();
    NuovaPartita(FenIniziale);
  }
  static void Digita(const std::string& testo) {
    for (char c : testo) memoria::AccodaTasto(WORD(c >= 'a' ? c - 'a' + 'A' : c), 0, c);
    memoria::AccodaTasto(VK_RETURN);
    while (memoria::TastiInCoda() > 0) TurnoCiclo();
  }
  static void Tasto(WORD codice, DWORD stato = 0) {
    memoria::AccodaTasto(codice, stato);
    TurnoCiclo();
  }
  static bool Vuota(int y) { return memoria::Riga(y) == std::string(80, ' '); }
};

TEST_F(ProfiloLettore, SenzaDisegnoNeScacchiera) {
  Avvia(1);
  EXPECT_TRUE(memoria::Finestre().empty());
  for (int y = 0; y < 11; ++y) EXPECT_TRUE(Vuota(y)) << y << ": " << memoria::Riga(y);
  EXPECT_NE(memoria::Riga(11).find("Orologio per gli scacchi"), std::string::npos);
  EXPECT_TRUE(Vuota(13));
  EXPECT_TRUE(Vuota(14)) << "the rule";
  for (int y = y_scacchiera; y <= 34; ++y) EXPECT_TRUE(Vuota(y)) << y << ": " << memoria::Riga(y);
  EXPECT_TRUE(Vuota(42)) << "the rule";
  // The words stay: the panels, the labels, the times, the field.
  EXPECT_NE(memoria::Riga(y_mossa_corrente).find("Mossa 1, tratto al bianco"), std::string::npos);
  EXPECT_EQ(memoria::Riga(y_tempo[0]).substr(27, 7), "Bianco:");
  EXPECT_EQ(memoria::Riga(y_tempo[0]).substr(43, 9), " 02:00:00");
  EXPECT_EQ(memoria::Riga(y_comando).substr(27, 10), "Comando =>");
  Digita("e4");
  EXPECT_EQ(ContatoreMosse, 1u);
  for (int y = y_scacchiera; y < y_scacchiera + 8; ++y) EXPECT_TRUE(Vuota(y)) << y;
  EXPECT_EQ(Annuncio(), "e4: pedone da e2 in e4.");
}

TEST_F(ProfiloLettore, IlTempoInMotoNonSiRidisegnaMaSiLegge) {
  Avvia(1);
  Tasto(VK_RETURN, CTRL);
  for (int s = 0; s < 5; ++s) TurnoCiclo();
  EXPECT_EQ(memoria::Riga(y_tempo[0]).substr(43, 9), " 02:00:00");
  Tasto('O', CTRL);
  EXPECT_EQ(Annuncio(), "Bianco: un'ora, 59 minuti e 55 secondi; nero: 2 ore; tratto al bianco.");
  // The T key shows it once, as with the automatic display off.
  Tasto('T');
  EXPECT_EQ(memoria::Riga(y_tempo[0]).substr(43, 9), " 01:59:55");
}

TEST_F(ProfiloLettore, ConZeroLoSchermoDiSempre) {
  Avvia(0);
  EXPECT_EQ(memoria::Riga(2).substr(0, 9), "    /\\^__");
  EXPECT_EQ(memoria::Riga(y_scacchiera).substr(30, 24), " r  n  b  q  k  b  n  r ");
  EXPECT_EQ(memoria::Riga(14).substr(2, 5), "-----");
  Tasto(VK_RETURN, CTRL);
  // Each turn shows the second the last one waited for.
  for (int s = 0; s < 5; ++s) TurnoCiclo();
  EXPECT_EQ(memoria::Riga(y_tempo[0]).substr(43, 9), " 01:59:56");
}

}  // namespace
