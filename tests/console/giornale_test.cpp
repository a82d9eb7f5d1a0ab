// The journal seen from the console: every key's change on disk before the
// next key, the running time once a second in the loop and while a box
// waits, the question at start-up and the game taken up again, the exit
// command, a journal that cannot be written.
#include <sstream>
#include <string>
#include <vector>

#include "ambiente_console.h"
#include "board/fen.h"
#include "clock/cadenza.h"
#include "console/avvio.h"
#include "game/partita.h"
#include "moves/genera.h"
#include "supporto/istantanea.h"
#include "supporto/stati.h"

using namespace piattaforma::win32;

namespace {

const char* const GIORNALE = "giornale.txt";
const char* const DOMANDA =
    "La partita precedente non e' stata chiusa con il comando di uscita: riprenderla?";
constexpr DWORD CTRL = LEFT_CTRL_PRESSED;
constexpr DWORD ALT = LEFT_ALT_PRESSED;

std::vector<std::string> Righe(const std::string& testo) {
  std::vector<std::string> righe;
  std::istringstream in(testo);
  for (std::string r; std::getline(in, r);) righe.push_back(r);
  return righe;
}

// The letters of each record, "ICTMMT".
std::string Tipi() {
  std::string t;
  for (const std::string& r : Righe(memoria::ContenutoFile(GIORNALE))) t += r.empty() ? '?' : r[0];
  return t;
}

class GiornaleConsole : public AmbienteConsole {
 protected:
  void TearDown() override {
    SospendiGiornale();
    InstallaPrimaDellaFinestra(nullptr);
  }

  // Start-up as pendrino_main does it, up to the loop.
  static void Avvia() {
    inizializza();
    NuovaPartita(FenIniziale);
    RiprendiDalGiornale();
  }
  static void Digita(const std::string& testo) {
    for (char c : testo) {
      const char maiuscolo = (c >= 'a' && c <= 'z') ? char(c - 'a' + 'A') : c;
      memoria::AccodaTasto(WORD(maiuscolo), 0, c);
    }
  }
  static void Mossa(const std::string& testo) {
    Digita(testo);
    memoria::AccodaTasto(VK_RETURN);
    TurnoCiclo();
  }
  static void Tasto(WORD codice, DWORD stato = 0) {
    memoria::AccodaTasto(codice, stato);
    TurnoCiclo();
  }
  static std::string Ultima() { return Righe(memoria::ContenutoFile(GIORNALE)).back(); }

  // The game as it stands, to compare with the one taken up again.
  struct Partita {
    Istantanea posizione;
    std::vector<std::string> testi;
    uint32_t ripetizioni;
    std::string stato;
    int32_t tempo[2];
    uint32_t prima_volta;
    std::string data, ora;
    bool operator==(const Partita&) const = default;
  };
  static Partita Fotografia() {
    Partita p{Fotografa(),
              {},
              Ripetizioni,
              std::string(Result) + "|" + Termination + "|" + CommentoRisultato,
              {TempoRimasto[0], TempoRimasto[1]},
              PrimaVoltaInMoto,
              DataUTC,
              OraUTC};
    for (uint64_t n = 1; n <= ContatoreMosse; ++n) p.testi.push_back(ElencoStringaMossa[n]);
    return p;
  }

  // A crash: the program's memory gone, the files left.
  static void Interrompi() {
    SospendiGiornale();
    const std::string giornale = memoria::ContenutoFile(GIORNALE);
    const std::string ini = memoria::ContenutoFile("pendrino.ini");
    const std::string preferenze = memoria::ContenutoFile("preferenze.ini");
    memoria::Azzera();
    memoria::ImpostaFile(GIORNALE, giornale);
    memoria::ImpostaFile("pendrino.ini", ini);
    memoria::ImpostaFile("preferenze.ini", preferenze);
    fuoco = FUOCO_COMANDO;
    CharatteriInComando = 0;
    SegnaOrologioInMoto(false);
    DefaultIni();
    RevocaAggiudicazione();
  }
};

// ---------------------------------------------------------------------------
// Every change on disk before the next key.

TEST_F(GiornaleConsole, AllAvvioIlGiornaleHaLaPartitaNuova) {
  Avvia();
  EXPECT_EQ(Tipi(), "ICT");
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(GiornaleConsole, OgniEventoDellaPartitaEScrittoPrimaDelTastoSeguente) {
  Avvia();
  Mossa("e4");
  EXPECT_EQ(Tipi(), "ICTM");
  Mossa("e5");
  EXPECT_EQ(Tipi(), "ICTMM");
  Tasto(VK_DELETE, CTRL);  // take-back
  EXPECT_EQ(Tipi(), "ICTMMR");
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_F12);  // draw by agreement
  EXPECT_EQ(Tipi(), "ICTMMRE");
  EXPECT_NE(Ultima().find("1/2-1/2|By agreement|Patta d'accordo"), std::string::npos);
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_RETURN, CTRL);  // clock started, the adjudication revoked
  EXPECT_EQ(Tipi(), "ICTMMREET");
  EXPECT_EQ(Ultima().substr(0, 23).substr(19), "1 1 ");
  Tasto(VK_RETURN, CTRL | SHIFT_PRESSED);  // stopped
  EXPECT_EQ(Tipi(), "ICTMMREETT");
  Digita("2");
  memoria::AccodaTasto(VK_UP);
  memoria::AccodaTasto(VK_UP);  // White's time line
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_ADD, CTRL);  // two minutes more
  EXPECT_EQ(Tipi(), "ICTMMREETTT");
  EXPECT_NE(Ultima().find(" 0 1 7320000 7200000 "), std::string::npos);
  Digita("2");
  memoria::AccodaRisposta(IDYES);
  Tasto('P', CTRL);  // two periods: the next game's, nothing to journal
  EXPECT_EQ(Tipi(), "ICTMMREETTT");
  memoria::AccodaRisposta(IDNO);
  Tasto('N', ALT);  // new game, not saved
  EXPECT_EQ(Tipi(), "ICT");
  EXPECT_TRUE(LeggiFileGiornale(false).inizio);
}

TEST_F(GiornaleConsole, LaMossaEGiaSulDiscoQuandoSiApreLaFinestraSeguente) {
  Avvia();
  // A move and the draw offer read in one go: when the offer's box waits,
  // the move is already journaled.
  static std::string visto;
  piattaforma::ImpostaBattito([] { visto = memoria::ContenutoFile(GIORNALE); });
  Digita("e4");
  memoria::AccodaTasto(VK_RETURN);
  memoria::AccodaTasto(VK_F12);
  memoria::AccodaRisposta(IDNO, 1);
  TurnoCiclo();
  EXPECT_EQ(Righe(visto).size(), 4u);
  EXPECT_EQ(Righe(visto).back()[0], 'M');
}

TEST_F(GiornaleConsole, LaMossaDellaTriplaRipetizioneEScrittaPrimaCheSiApraLaDomanda) {
  Avvia();
  for (const char* m : {"Nf3", "Nf6", "Ng1", "Ng8", "Nf3", "Nf6", "Ng1"}) Mossa(m);
  // The heartbeat here only looks: what it sees was written as the box
  // opened.
  static std::string visto;
  piattaforma::ImpostaBattito([] { visto = memoria::ContenutoFile(GIORNALE); });
  memoria::AccodaRisposta(IDYES, 1);
  Mossa("Ng8");
  ASSERT_EQ(memoria::Finestre().back().testo, "Triplice ripetizione: aggiudicare la patta?");
  EXPECT_NE(Righe(visto).back().find(" 8 f6 g8 - Ng8 "), std::string::npos) << visto;
  EXPECT_EQ(Ultima()[0], 'E');
}

TEST_F(GiornaleConsole, IlBattitoScriveLaMossaSeLaFinestraSiApreAltrove) {
  Avvia();
  for (const char* m : {"Nf3", "Nf6", "Ng1", "Ng8", "Nf3", "Nf6", "Ng1"}) Mossa(m);
  InstallaPrimaDellaFinestra(nullptr);
  static std::string visto;
  static void (*battito)() = memoria::BattitoInstallato();
  ASSERT_NE(battito, nullptr);
  piattaforma::ImpostaBattito([] {
    battito();
    visto = memoria::ContenutoFile(GIORNALE);
  });
  memoria::AccodaRisposta(IDYES, 1);
  Mossa("Ng8");
  EXPECT_NE(Righe(visto).back().find(" 8 f6 g8 - Ng8 "), std::string::npos) << visto;
}

TEST_F(GiornaleConsole, OrologioInMotoUnRecordOgniSecondoNelCiclo) {
  Avvia();
  Tasto(VK_RETURN, CTRL);
  const size_t righe = Righe(memoria::ContenutoFile(GIORNALE)).size();
  // Each turn writes the second just shown, then waits for the next one.
  for (int s = 0; s < 5; ++s) TurnoCiclo();
  EXPECT_EQ(Righe(memoria::ContenutoFile(GIORNALE)).size(), righe + 4);
  EXPECT_NE(Ultima().find(" 1 1 7196000 7200000 "), std::string::npos);
  EXPECT_EQ(memoria::Attese().back(), 1000);
  TurnoCiclo();
  EXPECT_EQ(Righe(memoria::ContenutoFile(GIORNALE)).size(), righe + 5);
  EXPECT_NE(Ultima().find(" 1 1 7195000 7200000 "), std::string::npos);
}

TEST_F(GiornaleConsole, OrologioInMotoUnRecordOgniSecondoMentreUnaFinestraAspetta) {
  Avvia();
  Tasto(VK_RETURN, CTRL);
  const size_t righe = Righe(memoria::ContenutoFile(GIORNALE)).size();
  memoria::AccodaRisposta(IDNO, 4);
  Tasto(VK_F12);
  EXPECT_EQ(memoria::BattitiEseguiti(), 4u);
  EXPECT_EQ(Righe(memoria::ContenutoFile(GIORNALE)).size(), righe + 4);
  EXPECT_NE(Ultima().find(" 1 1 7196000 7200000 "), std::string::npos);
}

// ---------------------------------------------------------------------------
// The question at start-up.

TEST_F(GiornaleConsole, LaPartitaInterrottaSiRiprendeUgualeEFerma) {
  memoria::ImpostaOraUTC({2026, 11, 23, 9, 5, 7});
  Avvia();
  for (const char* m : {"e4", "e5", "Nf3", "Nc6", "Bb5"}) Mossa(m);
  Tasto(VK_RETURN, CTRL);
  TurnoCiclo();
  TurnoCiclo();
  Mossa("a6");
  for (int s = 0; s < 3; ++s) TurnoCiclo();
  const Partita giocata = Fotografia();
  ASSERT_EQ(giocata.testi.size(), 6u);
  const int32_t bianco = TempoRimastoInMoto(0);
  Interrompi();

  memoria::AccodaRisposta(IDYES);
  Avvia();
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, DOMANDA);
  EXPECT_EQ(memoria::Finestre()[0].titolo, "Attenzione!");
  EXPECT_EQ(memoria::Finestre()[0].stile, unsigned(MB_YESNO));
  Partita ripresa = Fotografia();
  EXPECT_EQ(ripresa.posizione, giocata.posizione)
      << Differenze(giocata.posizione, ripresa.posizione);
  ripresa.tempo[0] = giocata.tempo[0];  // White's ran on: recorded at its last second
  EXPECT_EQ(ripresa, giocata);
  // At most the second not yet shown is lost.
  EXPECT_EQ(TempoRimasto[0], bianco + 1000);
  EXPECT_EQ(InMoto, 0u);
  // Drawn: the board, the panels, the times, the focus on the field.
  EXPECT_EQ(memoria::Riga(24).substr(30, 24), " r  -  b  q  k  b  n  r ");
  EXPECT_NE(memoria::Riga(21).find("Mossa 4, tratto al bianco, orologio fermo"), std::string::npos)
      << memoria::Riga(21);
  EXPECT_NE(memoria::Riga(20).find("ultima a6"), std::string::npos) << memoria::Riga(20);
  EXPECT_EQ(memoria::Riga(37).substr(43, 9), " 01:59:58");
  EXPECT_EQ(memoria::CursoreX(), 44);
  EXPECT_EQ(memoria::CursoreY(), 40);
  // No clock press, no game-end question: the only tone-free start.
  EXPECT_TRUE(memoria::Toni().empty());
  // The journal goes on, whole, from the game taken up.
  EXPECT_EQ(Tipi(), "ICMMMMMMT");
  Mossa("Ba4");
  EXPECT_EQ(Tipi(), "ICMMMMMMTM");
}

TEST_F(GiornaleConsole, LaPartitaRipresaTieneLaSuaCadenzaEIlFileLeImpostazioniDellUtente) {
  Avvia();
  Mossa("e4");
  // During the game: a 5-second increment, for the next game.
  memoria::AccodaRisposta(IDYES);
  Digita("5");
  Tasto('1', CTRL | SHIFT_PRESSED);
  ASSERT_EQ(Parametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO), 5);
  Interrompi();

  memoria::AccodaRisposta(IDYES);
  Avvia();
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_STREQ(Cadenza, "7200");
  EXPECT_NE(memoria::Riga(y_cadenza).find("Cadenza di gioco: 7200 "), std::string::npos)
      << memoria::Riga(y_cadenza);
  EXPECT_EQ(Parametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO), 5);
  EXPECT_NE(memoria::ContenutoFile("pendrino.ini").find("incremento_primo_periodo\t5"),
            std::string::npos);
  // The next game has the user's settings.
  memoria::AccodaRisposta(IDNO);
  Tasto('N', ALT);
  EXPECT_STREQ(Cadenza, "7200+5");
}

TEST_F(GiornaleConsole, UnaPartitaAggiudicataRipresaDueVolteTieneIlRisultato) {
  Avvia();
  for (const char* m : {"f3", "e5", "g4", "Qh4"}) Mossa(m);
  ASSERT_STREQ(Result, "0-1");
  for (int volta = 0; volta < 2; ++volta) {
    SCOPED_TRACE(volta);
    Interrompi();
    memoria::AccodaRisposta(IDYES);
    Avvia();
    EXPECT_EQ(ContatoreMosse, 4u);
    EXPECT_STREQ(Result, "0-1");
    EXPECT_STREQ(Termination, "Checkmate");
    EXPECT_STREQ(CommentoRisultato, "scaccomatto");
    EXPECT_NE(memoria::Riga(y_mossa_corrente).find("Scaccomatto: partita aggiudicata ( 0-1 )"),
              std::string::npos);
  }
}

TEST_F(GiornaleConsole, UnaPromozioneADonnaSiRiprende) {
  Avvia();
  for (const char* m : {"a4", "b5", "axb5", "a6", "bxa6", "Bb7", "axb7", "Nc6", "bxa8"}) Mossa(m);
  ASSERT_STREQ(ElencoStringaMossa[9], "bxa8=Q");
  const Partita giocata = Fotografia();
  Interrompi();
  memoria::AccodaRisposta(IDYES);
  Avvia();
  EXPECT_EQ(Fotografia(), giocata);
  EXPECT_EQ(memoria::Riga(24).substr(30, 3), " Q ");
  EXPECT_NE(Righe(memoria::ContenutoFile(GIORNALE))[10].find(" 9 b7 a8 Q bxa8=Q "),
            std::string::npos);
}

TEST_F(GiornaleConsole, DopoLaRipresaEntrambeLeRigheDelTempo) {
  Avvia();
  Tasto(VK_RETURN, CTRL);
  TurnoCiclo();
  TurnoCiclo();  // White: 2 s
  Mossa("e4");
  for (int s = 0; s < 5; ++s) TurnoCiclo();  // Black: 5 s
  Mossa("e5");
  for (int s = 0; s < 3; ++s) TurnoCiclo();
  Interrompi();
  memoria::AccodaRisposta(IDYES);
  Avvia();
  // White's at its last journaled second, Black's as its press left it.
  EXPECT_EQ(TempoRimasto[0], 7200000 - 2000 - 2000);
  EXPECT_EQ(TempoRimasto[1], 7200000 - 5000);
  EXPECT_EQ(memoria::Riga(y_tempo[0]).substr(43, 9), " 01:59:56");
  EXPECT_EQ(memoria::Riga(y_tempo[1]).substr(43, 9), " 01:59:55");
}

TEST_F(GiornaleConsole, NoConservaIlGiornaleVecchioEIniziaUnaPartitaNuova) {
  Avvia();
  Mossa("e4");
  const std::string vecchio = memoria::ContenutoFile(GIORNALE);
  Interrompi();
  memoria::ImpostaFile("giornale_precedente.txt", "piu' vecchio");
  memoria::AccodaRisposta(IDNO);
  Avvia();
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, DOMANDA);
  EXPECT_EQ(memoria::ContenutoFile("giornale_precedente.txt"), vecchio);
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_EQ(Tipi(), "ICT");
}

TEST_F(GiornaleConsole, DopoLUscitaColComandoNonSiChiedeNulla) {
  Avvia();
  Mossa("e4");
  memoria::AccodaRisposta(IDNO);
  Esce([] { Tasto(VK_F4, ALT); });
  EXPECT_EQ(Ultima()[0], 'F');
  Interrompi();
  Avvia();
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_EQ(Tipi(), "ICT");
}

TEST_F(GiornaleConsole, ancheUscendoConSalvataggioNonSiChiedeNulla) {
  Avvia();
  Mossa("e4");
  memoria::AccodaRisposta(IDYES);
  Esce([] { Tasto(VK_F4, ALT); });
  Interrompi();
  Avvia();
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(GiornaleConsole, UnGiornaleDanneggiatoSiRiprendeFinoAlPuntoBuono) {
  Avvia();
  for (const char* m : {"e4", "e5", "Nf3"}) Mossa(m);
  std::string testo = memoria::ContenutoFile(GIORNALE);
  testo.insert(testo.rfind("M "), "guasto\n");  // before the third move
  Interrompi();
  memoria::ImpostaFile(GIORNALE, testo);
  memoria::AccodaRisposta(IDYES);
  Avvia();
  ASSERT_EQ(memoria::Finestre().size(), 2u);
  EXPECT_EQ(memoria::Finestre()[1].testo,
            "Il giornale e' danneggiato dopo la semimossa 2: la partita e' stata ripresa fino a "
            "quel punto.");
  EXPECT_EQ(ContatoreMosse, 2u);
  // Written afresh: the damage is gone.
  EXPECT_FALSE(LeggiFileGiornale(false).danneggiato);
  EXPECT_EQ(Tipi(), "ICMMT");
}

TEST_F(GiornaleConsole, GiornaleNonScrivibileUnSoloAvvisoELaPartitaVaAvanti) {
  memoria::ImpostaSolaLettura(true);
  Avvia();
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo,
            "Impossibile scrivere il giornale: la partita in corso non e' protetta da "
            "un'interruzione improvvisa.");
  for (const char* m : {"e4", "e5", "Nf3"}) Mossa(m);
  Tasto(VK_RETURN, CTRL);
  for (int s = 0; s < 3; ++s) TurnoCiclo();
  EXPECT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(ContatoreMosse, 3u);
  EXPECT_STREQ(ElencoStringaMossa[3], "Nf3");
  EXPECT_FALSE(memoria::EsisteFile(GIORNALE));
}

}  // namespace
