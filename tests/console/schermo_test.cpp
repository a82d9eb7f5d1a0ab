#include <cstring>
#include <limits>
#include <string>

#include "ambiente_console.h"

namespace {

class Schermo : public AmbienteConsole {};

const char* const LineeCavallo[13] = {
    "    /\\^__",
    "   //    \\",
    "   |   0  \\_",
    "   |    \\__| ",
    "   |     \\",
    "   |      |",
    "   |     /",
    "   |     \\",
    "   |      \\",
    "   |       \\",
    "  ============",
    "  /          \\",
    "  ----------------------------------------------------------------------------",
};

TEST_F(Schermo, IntestazioneDisegnaIlCavalloSulleRigheDa2A14) {
  DisegnaIntestazione();
  for (int i = 0; i < 13; ++i) {
    const int y = 2 + i;
    const std::string riga = memoria::Riga(y);
    const std::string atteso = LineeCavallo[i];
    EXPECT_EQ(riga.substr(0, atteso.size()), atteso) << "line " << y;
    // Up to column 15, where the banner starts, nothing but the knight.
    const size_t fine = y >= 4 && y <= 8 ? 15 : 80;
    if (y != 11 && y != 12) {
      EXPECT_EQ(riga.substr(atteso.size(), fine - atteso.size()),
                std::string(fine - atteso.size(), ' '))
          << "line " << y;
    }
  }
  EXPECT_EQ(std::string(LineeCavallo[12]).size(), 78u);
  EXPECT_EQ(memoria::Riga(0), std::string(80, ' '));
  EXPECT_EQ(memoria::Riga(1), std::string(80, ' '));
  EXPECT_EQ(memoria::Riga(15), std::string(80, ' '));
}

TEST_F(Schermo, IntestazioneDimensionaLaFinestraEScriveLInsegnaSoloATratti) {
  ASSERT_FALSE(memoria::FinestraDimensionata());
  DisegnaIntestazione();
  EXPECT_TRUE(memoria::FinestraDimensionata());
  for (int y = 4; y <= 8; ++y) {
    const std::string riga = memoria::Riga(y);
    // From column 15 on: two-column strokes only, within 64 columns.
    const std::string insegna = riga.substr(15);
    EXPECT_EQ(insegna.find_last_not_of(' ') < 64, true) << "line " << y;
    int tratti_pieni = 0;
    for (size_t x = 0; x + 1 < insegna.size(); x += 2) {
      const std::string tratto = insegna.substr(x, 2);
      EXPECT_TRUE(tratto == "||" || tratto == "//" || tratto == "\\\\" || tratto == "  ")
          << "line " << y << " column " << 15 + x << ": '" << tratto << "'";
      tratti_pieni += tratto != "  ";
    }
    EXPECT_GT(tratti_pieni, 8) << "line " << y;
  }
  // No stroke column is empty from top to bottom inside a letter: the
  // eight letters are eight groups of columns separated by blank gaps.
  int lettere = 0;
  bool dentro = false;
  for (int x = 15; x < 80; x += 2) {
    bool piena = false;
    for (int y = 4; y <= 8; ++y) piena |= memoria::Cella(x, y) != ' ';
    if (piena && !dentro) ++lettere;
    dentro = piena;
  }
  EXPECT_EQ(lettere, 8);
}

TEST_F(Schermo, LInsegnaIniziaAllaColonnaQuindici) {
  DisegnaIntestazione();
  // The first letter's strokes stand at column 15, none of the banner before.
  bool in_quindici = false;
  for (int y = 4; y <= 8; ++y) {
    for (int x = 13; x < 15; ++x) EXPECT_EQ(memoria::Cella(x, y), ' ') << x << " " << y;
    in_quindici |= memoria::Cella(15, y) != ' ';
  }
  EXPECT_TRUE(in_quindici);
  // Nothing of the banner above or below its five lines.
  for (int y : {3, 9, 10})
    EXPECT_EQ(memoria::Riga(y).substr(15), std::string(80 - 15, ' ')) << "line " << y;
}

TEST_F(Schermo, IntestazioneCentraLeDueRigheNelleSessantaquattroColonne) {
  DisegnaIntestazione();
  const std::string riga11 = memoria::Riga(11);
  EXPECT_EQ(riga11.substr(35, 24), "Orologio per gli scacchi");
  EXPECT_EQ(riga11.substr(59), std::string(80 - 59, ' '));
  EXPECT_EQ(riga11.substr(15, 20), std::string(20, ' '));

  const std::string riga12 = memoria::Riga(12);
  const size_t inizio = riga12.find_first_not_of(' ', 15);
  const size_t fine = riga12.find_last_not_of(' ') + 1;
  ASSERT_NE(inizio, std::string::npos);
  const size_t lunghezza = fine - inizio;
  EXPECT_GT(lunghezza, 0u);
  EXPECT_LE(lunghezza, 64u);
  EXPECT_EQ(inizio, (64 - lunghezza) / 2 + 15);
  EXPECT_NE(riga12.find("Pendrino"), std::string::npos);
}

TEST_F(Schermo, PannelloPrincipaleScriveLeEtichetteAlloroPosto) {
  StampaPannelloPrincipale();
  for (int r = 0; r < 8; ++r)
    EXPECT_EQ(memoria::Riga(24 + r), RigaCon(27, std::string(1, char('8' - r)))) << r;
  EXPECT_EQ(memoria::Riga(32), std::string(80, ' '));
  EXPECT_EQ(memoria::Riga(33), std::string(80, ' '));
  EXPECT_EQ(memoria::Riga(34), RigaCon(30, " A  B  C  D  E  F  G  H"));
  EXPECT_EQ(memoria::Riga(37), RigaCon(27, "Bianco:"));
  EXPECT_EQ(memoria::Riga(38), RigaCon(27, "Nero:"));
  EXPECT_EQ(memoria::Riga(40), RigaCon(27, "Comando =>"));
  EXPECT_EQ(memoria::Riga(42), RigaCon(2, std::string(76, '-')));
  for (int y : {35, 36, 39, 41, 43}) EXPECT_EQ(memoria::Riga(y), std::string(80, ' ')) << y;
}

TEST_F(Schermo, GotoxyPortaIlCursore) {
  gotoxy(44, 40);
  EXPECT_EQ(memoria::CursoreX(), 44);
  EXPECT_EQ(memoria::CursoreY(), 40);
  gotoxy(0, 0);
  EXPECT_EQ(memoria::CursoreX(), 0);
  EXPECT_EQ(memoria::CursoreY(), 0);
}

// ---------------------------------------------------------------------------

TEST_F(Schermo, MessaggioCentratoConLunghezzaPari) {
  ComponiMessaggio("abcd");
  StampaMessaggioCentrato(21);
  EXPECT_EQ(memoria::Riga(21), std::string(38, ' ') + "Abcd" + std::string(38, ' '));
}

TEST_F(Schermo, MessaggioCentratoDispariLasciaUnoSpazioInPiuADestra) {
  ComponiMessaggio("mossa 1, tratto al bianco, orologio fermo");  // 41 characters
  ASSERT_EQ(InMessaggio, 41u);
  StampaMessaggioCentrato(21);
  const std::string riga = memoria::Riga(21);
  EXPECT_EQ(riga, std::string(19, ' ') + "Mossa 1, tratto al bianco, orologio fermo" +
                      std::string(20, ' '));
}

TEST_F(Schermo, MessaggioCentratoAlzaSoloLaPrimaLettera) {
  ComponiMessaggio("diritti d'arrocco: bianco entrambi");
  StampaMessaggioCentrato(19);
  EXPECT_NE(memoria::Riga(19).find("Diritti d'arrocco: bianco entrambi"), std::string::npos);
  // A first character that is not a lower-case letter stays as it is.
  ComponiMessaggio("'e4' x");
  StampaMessaggioCentrato(19);
  EXPECT_EQ(memoria::Riga(19), std::string(37, ' ') + "'e4' x" + std::string(37, ' '));
  // The buffer itself is not changed.
  EXPECT_EQ(std::string(messaggio), "'e4' x");
}

TEST_F(Schermo, MessaggioCortoCancellaIlLungoPrecedente) {
  ComponiMessaggio("la posizione corrente e' identica a quella iniziale e quella dopo 12. Nf3");
  StampaMessaggioCentrato(18);
  ComponiMessaggio("x");
  StampaMessaggioCentrato(18);
  EXPECT_EQ(memoria::Riga(18), std::string(39, ' ') + "X" + std::string(40, ' '));
  EXPECT_EQ(memoria::Riga(17), std::string(80, ' '));
  EXPECT_EQ(memoria::Riga(19), std::string(80, ' '));
}

TEST_F(Schermo, MessaggioVuotoPulisceLaRiga) {
  ComponiMessaggio("qualcosa");
  StampaMessaggioCentrato(20);
  SvuotaMessaggio();
  StampaMessaggioCentrato(20);
  EXPECT_EQ(memoria::Riga(20), std::string(80, ' '));
}

TEST_F(Schermo, MessaggioDiOttantaCaratteriRiempieLaRiga) {
  const std::string testo(80, 'z');
  ComponiMessaggio(testo.c_str());
  StampaMessaggioCentrato(20);
  EXPECT_EQ(memoria::Riga(20), "Z" + std::string(79, 'z'));
}

TEST_F(Schermo, MessaggioOltreOttantaCaratteriStampatoInteroSenzaMargini) {
  std::string testo;
  for (int i = 0; i < 10; ++i) testo += "parola " + std::to_string(i) + " ";  // 90 characters
  ASSERT_EQ(testo.size(), 90u);
  ComponiMessaggio(testo.c_str());
  gotoxy(0, 21);
  StampaTesto("riga sotto");
  StampaMessaggioCentrato(20);
  // No padding on either side: the text goes on at the start of the next line.
  const std::string atteso = "P" + testo.substr(1);
  EXPECT_EQ(memoria::Riga(20), atteso.substr(0, 80));
  EXPECT_EQ(memoria::Riga(21).substr(0, 10), atteso.substr(80));
  EXPECT_EQ(memoria::Riga(19), std::string(80, ' '));
  const std::string scritto = memoria::Scritto();
  EXPECT_NE(scritto.find(atteso), std::string::npos) << "printed whole, in one piece";
}

// ---------------------------------------------------------------------------

TEST_F(Schermo, MessaggioSiComponePezzoPerPezzo) {
  SvuotaMessaggio();
  EXPECT_EQ(InMessaggio, 0u);
  EXPECT_EQ(messaggio[0], 0);
  AggiungiTesto("Sottrarre al ");
  AggiungiTesto(StringaColore[1]);
  AggiungiCarattere(' ');
  AggiungiNumero(5);
  AggiungiTesto(" minuti?");
  EXPECT_EQ(std::string(messaggio), "Sottrarre al nero 5 minuti?");
  EXPECT_EQ(InMessaggio, std::strlen(messaggio));
}

TEST_F(Schermo, NumeriNelMessaggio) {
  for (int64_t n : {int64_t(0), int64_t(7), int64_t(-75), int64_t(1234567890123),
                    std::numeric_limits<int64_t>::max(), std::numeric_limits<int64_t>::min()}) {
    SvuotaMessaggio();
    AggiungiNumero(n);
    EXPECT_EQ(std::string(messaggio), std::to_string(n));
  }
}

TEST_F(Schermo, IlMessaggioNonTraboccaMai) {
  SvuotaMessaggio();
  const std::string pezzo(300, 'k');
  for (int i = 0; i < 10; ++i) {
    AggiungiTesto(pezzo.c_str());
    AggiungiNumero(-123456789);
    AggiungiCarattere('!');
  }
  EXPECT_EQ(InMessaggio, uint32_t(DIMENSIONE_MESSAGGIO - 1));
  EXPECT_EQ(messaggio[DIMENSIONE_MESSAGGIO - 1], 0);
  EXPECT_EQ(std::strlen(messaggio), size_t(DIMENSIONE_MESSAGGIO - 1));
  // Still full after more is added, and printed whole without padding.
  AggiungiTesto("altro");
  EXPECT_EQ(InMessaggio, uint32_t(DIMENSIONE_MESSAGGIO - 1));
  StampaMessaggioCentrato(30);
  const std::string atteso = "K" + std::string(messaggio + 1);
  EXPECT_NE(memoria::Scritto().find(atteso), std::string::npos);
}

}  // namespace
