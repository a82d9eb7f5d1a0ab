// The in-memory backend behaves as the contract says, since every other
// test relies on it.
#include "piattaforma/memoria/memoria.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace piattaforma;

class Memoria : public ::testing::Test {
 protected:
  void SetUp() override { memoria::Azzera(); }
  static void Scrivi(const std::string& testo) { piattaforma::Scrivi(testo.data(), testo.size()); }
};

TEST_F(Memoria, SchermoVuotoDopoAzzera) {
  Scrivi("abc");
  memoria::Azzera();
  EXPECT_EQ(memoria::Riga(0), std::string(80, ' '));
  EXPECT_EQ(memoria::CursoreX(), 0);
  EXPECT_EQ(memoria::CursoreY(), 0);
  EXPECT_EQ(memoria::Scritto(), "");
  EXPECT_EQ(Millisecondi(), 0u);
}

TEST_F(Memoria, ScriveAlCursoreCheAvanza) {
  PosizionaCursore(10, 5);
  Scrivi("Pendrino");
  EXPECT_EQ(memoria::Riga(5).substr(10, 8), "Pendrino");
  EXPECT_EQ(memoria::Cella(10, 5), 'P');
  EXPECT_EQ(memoria::CursoreX(), 18);
  EXPECT_EQ(memoria::CursoreY(), 5);
  EXPECT_EQ(memoria::Scritto(), "Pendrino");
}

TEST_F(Memoria, BackspaceTornaIndietroSenzaCancellare) {
  PosizionaCursore(3, 1);
  Scrivi("ab\b");
  EXPECT_EQ(memoria::CursoreX(), 4);
  EXPECT_EQ(memoria::Cella(4, 1), 'b');
  Scrivi("c");
  EXPECT_EQ(memoria::Riga(1).substr(3, 2), "ac");
  // Back-space, space, back-space clears the last character, as the
  // command field does.
  Scrivi("\b \b");
  EXPECT_EQ(memoria::Cella(4, 1), ' ');
  EXPECT_EQ(memoria::CursoreX(), 4);
}

TEST_F(Memoria, BackspaceAlMargineNonEsce) {
  PosizionaCursore(0, 2);
  Scrivi("\b\b");
  EXPECT_EQ(memoria::CursoreX(), 0);
  EXPECT_EQ(memoria::CursoreY(), 2);
}

TEST_F(Memoria, ACapoERitornoCarrello) {
  PosizionaCursore(5, 3);
  Scrivi("x\ny");
  EXPECT_EQ(memoria::Cella(5, 3), 'x');
  EXPECT_EQ(memoria::Cella(0, 4), 'y');
  Scrivi("\rz");
  EXPECT_EQ(memoria::Cella(0, 4), 'z');
  EXPECT_EQ(memoria::CursoreX(), 1);
}

TEST_F(Memoria, TabulazioneAlMultiploDiOtto) {
  PosizionaCursore(3, 0);
  Scrivi("\tq");
  EXPECT_EQ(memoria::Cella(8, 0), 'q');
  EXPECT_EQ(memoria::Cella(4, 0), ' ');
}

TEST_F(Memoria, OltreLUltimaColonnaContinuaSottoEInFondoScorre) {
  PosizionaCursore(78, 0);
  Scrivi("abc");
  EXPECT_EQ(memoria::Cella(78, 0), 'a');
  EXPECT_EQ(memoria::Cella(79, 0), 'b');
  EXPECT_EQ(memoria::Cella(0, 1), 'c');

  memoria::Azzera();
  PosizionaCursore(0, 0);
  Scrivi("prima");
  PosizionaCursore(0, 43);
  Scrivi("ultima\nnuova");
  EXPECT_EQ(memoria::Riga(42).substr(0, 6), "ultima");
  EXPECT_EQ(memoria::Riga(43).substr(0, 5), "nuova");
  EXPECT_EQ(memoria::Riga(0), std::string(80, ' '));
  EXPECT_EQ(memoria::CursoreY(), 43);
}

TEST_F(Memoria, CursoreFuoriSchermoRifiutato) {
  PosizionaCursore(4, 4);
  PosizionaCursore(80, 0);
  PosizionaCursore(0, 44);
  PosizionaCursore(-1, 3);
  EXPECT_EQ(memoria::CursoreX(), 4);
  EXPECT_EQ(memoria::CursoreY(), 4);
  EXPECT_EQ(memoria::Cella(80, 0), 0);
  EXPECT_EQ(memoria::Cella(-1, 0), 0);
  EXPECT_EQ(memoria::Riga(44), "");
}

TEST_F(Memoria, CaratteriNonAsciiOccupanoUnaCella) {
  Scrivi("S\xC3\xAC!");  // UTF-8 "Sì!"
  Scrivi("\xF2");        // Latin-1 'ò', not UTF-8
  EXPECT_EQ(memoria::Cella(1, 0), '\xEC');
  EXPECT_EQ(memoria::Cella(2, 0), '!');
  EXPECT_EQ(memoria::Cella(3, 0), '\xF2');
  EXPECT_EQ(memoria::CursoreX(), 4);
  EXPECT_EQ(memoria::Riga(0).substr(0, 6), "S\xC3\xAC!\xC3\xB2");
}

TEST_F(Memoria, ControlliIgnoratiETestoNulloInnocuo) {
  Scrivi(
      std::string("a\x01\x07\x1b"
                  "b",
                  5));
  EXPECT_EQ(memoria::Riga(0).substr(0, 3), "ab ");
  piattaforma::Scrivi(nullptr, 5);
  EXPECT_EQ(memoria::CursoreX(), 2);
}

TEST_F(Memoria, ConsoleTitoloEFinestra) {
  EXPECT_FALSE(memoria::ConsoleAperta());
  ApriConsole();
  EXPECT_TRUE(memoria::ConsoleAperta());
  ImpostaTitolo("Pendrino1.0");
  EXPECT_EQ(memoria::Titolo(), "Pendrino1.0");
  EXPECT_FALSE(memoria::FinestraDimensionata());
  DimensionaFinestra();
  EXPECT_TRUE(memoria::FinestraDimensionata());
  ChiudiConsole();
  EXPECT_FALSE(memoria::ConsoleAperta());
}

TEST_F(Memoria, TastiConsegnatiInOrdine) {
  memoria::AccodaTasto('N', SHIFT_PRESSED, 'N');
  memoria::AccodaTasto(VK_RETURN, LEFT_CTRL_PRESSED, '\n', false);
  memoria::AccodaTasto('T', 0, 't', true, 3);
  ASSERT_EQ(EventiInAttesa(), 3u);
  INPUT_RECORD letti[2];
  ASSERT_EQ(LeggiEventi(letti, 2), 2u);
  EXPECT_EQ(letti[0].EventType, KEY_EVENT);
  EXPECT_EQ(letti[0].Event.KeyEvent.wVirtualKeyCode, 'N');
  EXPECT_EQ(letti[0].Event.KeyEvent.dwControlKeyState, SHIFT_PRESSED);
  EXPECT_EQ(letti[0].Event.KeyEvent.uChar.AsciiChar, 'N');
  EXPECT_TRUE(letti[0].Event.KeyEvent.bKeyDown);
  EXPECT_EQ(letti[0].Event.KeyEvent.wRepeatCount, 1);
  EXPECT_FALSE(letti[1].Event.KeyEvent.bKeyDown);
  EXPECT_EQ(memoria::TastiInCoda(), 1u);
  EXPECT_EQ(LeggiEventi(nullptr, 2), 0u);
  ASSERT_EQ(LeggiEventi(letti, 2), 1u);
  EXPECT_EQ(letti[0].Event.KeyEvent.wRepeatCount, 3);
  EXPECT_EQ(LeggiEventi(letti, 2), 0u);
}

TEST_F(Memoria, EventiNonTastiera) {
  INPUT_RECORD fuoco{};
  fuoco.EventType = FOCUS_EVENT;
  memoria::AccodaEvento(fuoco);
  INPUT_RECORD letto{};
  ASSERT_EQ(LeggiEventi(&letto, 1), 1u);
  EXPECT_EQ(letto.EventType, FOCUS_EVENT);
}

TEST_F(Memoria, AttesaSenzaTastiAvanzaLOrologio) {
  memoria::ImpostaMillisecondi(1000);
  AttendiEventi(250);
  EXPECT_EQ(Millisecondi(), 1250u);
  memoria::AccodaTasto('A', 0, 'a');
  AttendiEventi(250);
  EXPECT_EQ(Millisecondi(), 1250u);
  LeggiEventi(nullptr, 0);
  INPUT_RECORD r;
  LeggiEventi(&r, 1);
  AttendiEventi(-1);
  EXPECT_EQ(Millisecondi(), 1250u);
  EXPECT_EQ(memoria::Attese(), (std::vector<int64_t>{250, 250, -1}));
  memoria::AvanzaMillisecondi(5);
  EXPECT_EQ(Millisecondi(), 1255u);
}

TEST_F(Memoria, FinestreRegistrateConRisposteOPredefinite) {
  memoria::AccodaRisposta(IDYES);
  EXPECT_EQ(FinestraMessaggio("Salvare?", "Attenzione!", MB_YESNO), IDYES);
  EXPECT_EQ(FinestraMessaggio("Uscire?", "Attenzione!", MB_YESNO), IDNO);
  EXPECT_EQ(FinestraMessaggio("Fatto.", "Attenzione!", MB_OK | MB_ICONINFORMATION), IDOK);
  EXPECT_EQ(FinestraMessaggio("Salvare\nprima?", "Attenzione!", MB_YESNOCANCEL), IDCANCEL);
  const auto& f = memoria::Finestre();
  ASSERT_EQ(f.size(), 4u);
  EXPECT_EQ(f[0].testo, "Salvare?");
  EXPECT_EQ(f[0].titolo, "Attenzione!");
  EXPECT_EQ(f[0].stile, MB_YESNO);
  EXPECT_EQ(f[0].risposta, IDYES);
  EXPECT_EQ(f[1].risposta, IDNO);
  EXPECT_EQ(f[2].stile, MB_OK | MB_ICONINFORMATION);
  EXPECT_EQ(f[3].testo, "Salvare\nprima?");
  EXPECT_EQ(f[3].risposta, IDCANCEL);
}

TEST_F(Memoria, UnaRispostaConBattitiFaPassareISecondiEChiamaIlBattito) {
  static std::vector<uint64_t> visti;
  visti.clear();
  EXPECT_EQ(memoria::BattitoInstallato(), nullptr);
  // Without a heartbeat the seconds pass all the same.
  memoria::AccodaRisposta(IDYES, 2);
  EXPECT_EQ(FinestraMessaggio("Salvare?", "Attenzione!", MB_YESNO), IDYES);
  EXPECT_EQ(Millisecondi(), 2000u);
  EXPECT_EQ(memoria::BattitiEseguiti(), 0u);
  ImpostaBattito([] { visti.push_back(Millisecondi()); });
  memoria::AccodaRisposta(IDNO, 3);
  EXPECT_EQ(FinestraMessaggio("Uscire?", "Attenzione!", MB_YESNO), IDNO);
  EXPECT_EQ(visti, (std::vector<uint64_t>{3000, 4000, 5000}));
  EXPECT_EQ(memoria::BattitiEseguiti(), 3u);
  // A box answered at once: no heartbeat.
  FinestraMessaggio("Fatto.", "Attenzione!", MB_OK);
  EXPECT_EQ(memoria::BattitiEseguiti(), 3u);
  memoria::Azzera();
  EXPECT_EQ(memoria::BattitoInstallato(), nullptr);
}

TEST_F(Memoria, RispostaPredefinitaPerStile) {
  EXPECT_EQ(RispostaPredefinita(MB_OK), IDOK);
  EXPECT_EQ(RispostaPredefinita(MB_OK | MB_ICONINFORMATION), IDOK);
  EXPECT_EQ(RispostaPredefinita(MB_YESNO | MB_ICONQUESTION), IDNO);
  EXPECT_EQ(RispostaPredefinita(MB_YESNOCANCEL), IDCANCEL);
  EXPECT_EQ(RispostaPredefinita(MB_OKCANCEL), IDCANCEL);
}

TEST_F(Memoria, ToniRegistratiSenzaMuovereLOrologio) {
  Suona(3000, 5);
  Suona(30000, 200);
  ASSERT_EQ(memoria::Toni().size(), 2u);
  EXPECT_EQ(memoria::Toni()[0].frequenza, 3000u);
  EXPECT_EQ(memoria::Toni()[0].durata, 5u);
  EXPECT_EQ(memoria::Toni()[1].frequenza, 30000u);
  EXPECT_EQ(Millisecondi(), 0u);
}

TEST_F(Memoria, OraUTCImpostabile) {
  memoria::ImpostaOraUTC({2024, 2, 29, 23, 59, 58});
  const DataOraUTC ora = OraUTC();
  EXPECT_EQ(ora.anno, 2024);
  EXPECT_EQ(ora.mese, 2);
  EXPECT_EQ(ora.giorno, 29);
  EXPECT_EQ(ora.ora, 23);
  EXPECT_EQ(ora.minuto, 59);
  EXPECT_EQ(ora.secondo, 58);
}

TEST_F(Memoria, ComandiDelVisualizzatore) {
  char comando[64];
  ComponiComandoVisualizzatore(comando, sizeof comando, "leggimi.html");
  EXPECT_STREQ(comando, "start leggimi.html");
  EseguiComandoVisualizzatore(comando);
  EseguiComandoVisualizzatore("");
  ASSERT_EQ(memoria::ComandiVisualizzatore().size(), 1u);
  EXPECT_EQ(memoria::ComandiVisualizzatore()[0], "start leggimi.html");
  char corto[8];
  ComponiComandoVisualizzatore(corto, sizeof corto, "partita.pgn");
  EXPECT_STREQ(corto, "");
}

TEST_F(Memoria, TerminaProcessoLanciaUscita) {
  try {
    TerminaProcesso(3);
    FAIL() << "TerminaProcesso returned";
  } catch (const memoria::UscitaProcesso& uscita) {
    EXPECT_EQ(uscita.codice, 3u);
  }
}

}  // namespace
