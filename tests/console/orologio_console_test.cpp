// The clock at work from the keyboard: start-up with the settings, the panel
// lines, starting and stopping, setting parameters, changing a side's time,
// the manual display key, resignation, agreement and the flag fall, all on
// the in-memory backend with its settable clock.
#include <string>
#include <tuple>
#include <vector>

#include "ambiente_console.h"
#include "board/fen.h"
#include "clock/cadenza.h"
#include "console/avvio.h"
#include "game/aggiudicazione.h"
#include "settings/parametri.h"
#include "supporto/stati.h"

using namespace piattaforma::win32;

namespace {

// Text files carry the system's line ends.
#ifdef _WIN32
constexpr const char* FINE_RIGA = "\r\n";
#else
constexpr const char* FINE_RIGA = "\n";
#endif

constexpr DWORD CTRL = LEFT_CTRL_PRESSED;
constexpr DWORD ALT = LEFT_ALT_PRESSED;

class OrologioConsole : public AmbienteConsole {
 protected:
  // Start-up as the program does it, with the settings file as it stands.
  static void Avvia() {
    inizializza();
    NuovaPartita(FenIniziale);
  }

  // A centred panel line as it must read: the sentence with a capital first
  // letter, padded to 80 columns.
  static std::string Centrata(const std::string& frase) {
    const size_t margine = (80 - frase.size()) / 2;
    return std::string(margine, ' ') + frase + std::string(80 - margine - frase.size(), ' ');
  }

  // Letters and digits as keys; other characters as a national layout's
  // shifted digit would bring them.
  static void Digita(const std::string& testo) {
    for (char c : testo) {
      if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
        const char maiuscolo = (c >= 'a' && c <= 'z') ? char(c - 'a' + 'A') : c;
        memoria::AccodaTasto(WORD(maiuscolo), 0, c);
      } else {
        memoria::AccodaTasto(WORD('0'), SHIFT_PRESSED, c);
      }
    }
    TurnoCiclo();
  }
  // With the clock running and no key waiting, a turn of the loop waits for
  // the next shown second: one turn is one second.
  static void Secondi(int n) {
    for (int i = 0; i < n; ++i) TurnoCiclo();
  }
  static void Tasto(WORD codice, DWORD stato = 0) {
    memoria::AccodaTasto(codice, stato);
    TurnoCiclo();
  }
  static std::string Tempo(int colore) { return memoria::Riga(y_tempo[colore]).substr(43, 9); }
  static std::string Campo() { return memoria::Riga(y_comando).substr(x_comando, 8); }
  static size_t Finestre() { return memoria::Finestre().size(); }
  static const memoria::Finestra& UltimaFinestra() { return memoria::Finestre().back(); }
  static std::vector<std::pair<uint32_t, uint32_t>> ToniDa(size_t inizio) {
    std::vector<std::pair<uint32_t, uint32_t>> toni;
    for (size_t i = inizio; i < memoria::Toni().size(); ++i)
      toni.push_back({memoria::Toni()[i].frequenza, memoria::Toni()[i].durata});
    return toni;
  }
  using Toni = std::vector<std::pair<uint32_t, uint32_t>>;
};

// ---------------------------------------------------------------------------
// Start-up.

TEST_F(OrologioConsole, AvvioSenzaImpostazioniAvvisaEScriveIValoriDefault) {
  memoria::RimuoviFile("pendrino.ini");
  Avvia();
  ASSERT_EQ(Finestre(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo,
            "Non ho trovato pendrino.ini.\nVerranno ripristinati i valori default.");
  EXPECT_EQ(memoria::Finestre()[0].titolo, "Attenzione!");
  EXPECT_EQ(memoria::Finestre()[0].stile, MB_OK | MB_ICONINFORMATION);
  EXPECT_TRUE(memoria::EsisteFile("pendrino.ini"));
  EXPECT_NE(memoria::ContenutoFile("pendrino.ini")
                .find(std::string("$\ttempo_primo_periodo\t120") + FINE_RIGA),
            std::string::npos);
}

TEST_F(OrologioConsole, AvvioDisegnaScacchieraEPannelli) {
  Avvia();
  EXPECT_EQ(Finestre(), 0u);
  EXPECT_EQ(memoria::Riga(17), Centrata("Cadenza di gioco: 7200"));
  EXPECT_EQ(memoria::Riga(19), Centrata("Diritti d'arrocco: bianco entrambi, nero entrambi"));
  EXPECT_EQ(memoria::Riga(21), Centrata("Mossa 1, tratto al bianco, orologio fermo"));
  EXPECT_EQ(memoria::Riga(37),
            RigaCon(27, "Bianco:").substr(0, 43) + " 02:00:00" + std::string(80 - 52, ' '));
  EXPECT_EQ(Tempo(1), " 02:00:00");
  EXPECT_EQ(memoria::Riga(24).substr(30, 24), " r  n  b  q  k  b  n  r ");
  EXPECT_EQ(memoria::Riga(31).substr(30, 24), " R  N  B  Q  K  B  N  R ");
  EXPECT_EQ(memoria::CursoreX(), 44);
  EXPECT_EQ(memoria::CursoreY(), 40);
}

TEST_F(OrologioConsole, LeImpostazioniLetteAllAvvioValgonoPerLaPartita) {
  ImpostaParametro(PARAMETRO_PERIODI, 2);
  ImpostaParametro(PARAMETRO_TEMPO_PRIMO_PERIODO, 5);
  ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 3);
  ScriviIni();
  DefaultIni();  // the table forgets; the file remembers
  Avvia();
  EXPECT_EQ(Tempo(0), " 00:05:00");
  EXPECT_EQ(Tempo(1), " 00:05:00");
  EXPECT_EQ(memoria::Riga(17), Centrata("Cadenza di gioco: 40/300+3:1800"));
}

TEST_F(OrologioConsole, UnaFenRifiutataStampaLErroreEParteDallaPosizioneIniziale) {
  Avvia();
  gotoxy(0, 0);
  NuovaPartita("8/8/8/8/8/8/8/8 x");
  EXPECT_NE(memoria::Scritto().find(
                "errore in CaricaPosizioneDaStringaFen\nstringa fen: 8/8/8/8/8/8/8/8 x\n"),
            std::string::npos);
  EXPECT_EQ(memoria::Riga(31).substr(30, 24), " R  N  B  Q  K  B  N  R ");
  EXPECT_EQ(ContatoreMosse, 0u);
}

// ---------------------------------------------------------------------------
// Starting and stopping.

TEST_F(OrologioConsole, CtrlInvioAvviaLOrologio) {
  memoria::ImpostaOraUTC({2026, 11, 23, 9, 5, 7});
  Avvia();
  const size_t toni = memoria::Toni().size();
  Tasto(VK_RETURN, CTRL);
  EXPECT_EQ(InMoto, 1u);
  EXPECT_EQ(ToniDa(toni), (Toni{{50000, 3}, {1000, 100}}));
  EXPECT_EQ(memoria::Riga(21), Centrata("Mossa 1, tratto al bianco, orologio in moto"));
  EXPECT_STREQ(DataUTC, "2026.11.23");
  EXPECT_STREQ(OraUTC, "09:05:07");
  EXPECT_EQ(memoria::CursoreY(), 40) << "the cursor stays on the focused line";

  Tasto(VK_RETURN, CTRL);
  ASSERT_EQ(Finestre(), 1u);
  EXPECT_EQ(UltimaFinestra().testo, "L'orologio e' gia in moto.");
  EXPECT_EQ(UltimaFinestra().stile, MB_OK | MB_ICONINFORMATION);
}

TEST_F(OrologioConsole, IlTempoScorreSullaRigaDelBiancoOgniSecondo) {
  ImpostaParametro(PARAMETRO_TEMPO_PRIMO_PERIODO, 5);
  ScriviIni();
  Avvia();
  memoria::ImpostaMillisecondi(1000000);
  Tasto(VK_RETURN, CTRL);
  memoria::AvanzaMillisecondi(999);
  TurnoCiclo();
  EXPECT_EQ(Tempo(0), " 00:05:00") << "299.001 s still show as 300";
  EXPECT_EQ(memoria::Attese().back(), 1) << "the wait ends as the shown second changes";
  TurnoCiclo();
  EXPECT_EQ(Tempo(0), " 00:04:59");
  Secondi(60);
  EXPECT_EQ(Tempo(0), " 00:03:59");
  EXPECT_EQ(Tempo(1), " 00:05:00");
  EXPECT_EQ(memoria::CursoreX(), 44);
  EXPECT_EQ(memoria::CursoreY(), 40);
}

TEST_F(OrologioConsole, CtrlShiftInvioFermaEAddebitaIlTempo) {
  Avvia();
  memoria::ImpostaMillisecondi(5000);
  Tasto(VK_RETURN, CTRL);
  memoria::AvanzaMillisecondi(2500);
  const size_t toni = memoria::Toni().size();
  Tasto(VK_RETURN, CTRL | SHIFT_PRESSED);
  EXPECT_EQ(InMoto, 0u);
  EXPECT_EQ(TempoRimasto[0], 120 * 60000 - 2500);
  EXPECT_EQ(Tempo(0), " 01:59:58");
  EXPECT_EQ(ToniDa(toni), (Toni{{1000, 100}, {50000, 3}}));
  EXPECT_EQ(memoria::Riga(21), Centrata("Mossa 1, tratto al bianco, orologio fermo"));

  Tasto(VK_RETURN, CTRL | SHIFT_PRESSED);
  ASSERT_EQ(Finestre(), 1u);
  EXPECT_EQ(UltimaFinestra().testo, "L'orologio e' gia fermo.");
}

// ---------------------------------------------------------------------------
// Parameters.

TEST_F(OrologioConsole, ImpostaParametroConSiScriveIlFileESuona) {
  Avvia();
  Digita("90");
  memoria::AccodaRisposta(IDYES);
  const size_t toni = memoria::Toni().size();
  Tasto('1', CTRL);
  ASSERT_EQ(Finestre(), 1u);
  EXPECT_EQ(UltimaFinestra().testo, "Impostare 'tempo primo periodo' 90 minuti?");
  EXPECT_EQ(UltimaFinestra().stile, unsigned(MB_YESNO));
  EXPECT_EQ(ParametroIni[PARAMETRO_TEMPO_PRIMO_PERIODO].valore, 90);
  EXPECT_NE(memoria::ContenutoFile("pendrino.ini")
                .find(std::string("$\ttempo_primo_periodo\t90") + FINE_RIGA),
            std::string::npos);
  EXPECT_EQ(ToniDa(toni), (Toni{{3000, 5}}));
  EXPECT_EQ(Campo(), "        ");
  EXPECT_EQ(CharatteriInComando, 0u);
  // The time control of this game changes only at the next new game.
  EXPECT_EQ(Tempo(0), " 02:00:00");
}

TEST_F(OrologioConsole, UnaCadenzaCambiataInPartitaValeDallaPartitaSeguente) {
  Avvia();
  // A 5-second increment and two periods, set before the clock first runs.
  for (auto [valore, tasto, stato] :
       {std::tuple{"5", WORD('1'), CTRL | SHIFT_PRESSED}, std::tuple{"2", WORD('P'), CTRL}}) {
    Digita(valore);
    memoria::AccodaRisposta(IDYES);
    Tasto(tasto, stato);
  }
  ASSERT_EQ(Parametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO), 5);
  ASSERT_EQ(Parametro(PARAMETRO_PERIODI), 2);
  EXPECT_EQ(memoria::Riga(17), Centrata("Cadenza di gioco: 7200"));
  Tasto(VK_RETURN, CTRL);
  Secondi(2);
  Digita("e4");
  Tasto(VK_RETURN);
  // No increment: White has used 2 s of the game's own control.
  EXPECT_EQ(TempoRimasto[0], 7198000);
  EXPECT_EQ(Tempo(0), " 01:59:58");
  Tasto(VK_RETURN, CTRL | SHIFT_PRESSED);
  Tasto('S', ALT);
  EXPECT_NE(memoria::ContenutoFile("partita.pgn").find("[TimeControl \"7200\"]"),
            std::string::npos);
  memoria::AccodaRisposta(IDNO);
  Tasto('N', ALT);
  EXPECT_EQ(memoria::Riga(17), Centrata("Cadenza di gioco: 40/7200+5:1800"));
}

TEST_F(OrologioConsole, AggiornamentoAutomaticoEAllarmiValgonoSubito) {
  Avvia();
  Digita("0");
  memoria::AccodaRisposta(IDYES);
  Tasto('A', CTRL);
  Digita("119");
  memoria::AccodaRisposta(IDYES);
  Tasto('1', ALT);
  Tasto(VK_RETURN, CTRL);
  const size_t toni = memoria::Toni().size();
  Secondi(61);
  // The line stays; the alarm at 119 minutes sounds in this very game.
  EXPECT_EQ(Tempo(0), " 02:00:00");
  EXPECT_EQ(ToniDa(toni), (Toni{{1000, 100}, {1000, 100}}));
  Tasto(VK_RETURN, CTRL | SHIFT_PRESSED);
  Digita("1");
  memoria::AccodaRisposta(IDYES);
  Tasto('A', CTRL);
  Tasto(VK_RETURN, CTRL);
  Secondi(2);
  EXPECT_EQ(Tempo(0), " 01:58:58");
}

TEST_F(OrologioConsole, ImpostaParametroConNoNonCambiaNulla) {
  Avvia();
  const std::string file = memoria::ContenutoFile("pendrino.ini");
  Digita("2");
  memoria::AccodaRisposta(IDNO);
  Tasto('P', CTRL);
  ASSERT_EQ(Finestre(), 1u);
  EXPECT_EQ(UltimaFinestra().testo, "Impostare 'periodi' 2 periodi?");
  EXPECT_EQ(ParametroIni[PARAMETRO_PERIODI].valore, 1);
  EXPECT_EQ(memoria::ContenutoFile("pendrino.ini"), file);
  EXPECT_EQ(Campo(), "        ") << "the field is cleared before the question";
}

TEST_F(OrologioConsole, ImpostaParametroSenzaValore) {
  Avvia();
  Tasto('P', CTRL);
  ASSERT_EQ(Finestre(), 1u);
  EXPECT_EQ(UltimaFinestra().testo,
            "Nessun valore specificato per 'periodi'\n"
            "i valori ammessi sono compresi nell'intervallo ( 1 - 2).\n");
  EXPECT_EQ(UltimaFinestra().stile, MB_OK | MB_ICONINFORMATION);
}

TEST_F(OrologioConsole, ImpostaParametroFuoriIntervalloDopoAverSvuotatoIlCampo) {
  Avvia();
  for (const char* testo : {"3", "0", "abc", "-1", "+"}) {
    SCOPED_TRACE(testo);
    Digita(testo);
    Tasto('P', CTRL);
    EXPECT_EQ(UltimaFinestra().testo,
              "Valore non valido per 'periodi'\n"
              "i valori ammessi sono compresi nell'intervallo ( 1 - 2).\n");
    EXPECT_EQ(Campo(), "        ");
    EXPECT_EQ(ParametroIni[PARAMETRO_PERIODI].valore, 1);
  }
  Digita("9");
  Tasto('M', CTRL);
  EXPECT_EQ(UltimaFinestra().testo,
            "Valore non valido per 'mosse primo periodo'\n"
            "i valori ammessi sono compresi nell'intervallo ( 10 - 100).\n");
}

TEST_F(OrologioConsole, OgniTastoDeiParametriHaLaSuaRiga) {
  Avvia();
  struct Caso {
    WORD codice;
    DWORD stato;
    const char* descrizione;
  };
  const Caso casi[] = {
      {'1', CTRL, "tempo primo periodo"},
      {'1', CTRL | SHIFT_PRESSED, "incremento primo periodo"},
      {'2', CTRL, "tempo secondo periodo"},
      {'2', CTRL | SHIFT_PRESSED, "incremento secondo periodo"},
      {'A', CTRL, "Aggiornamento automatico a schermo del tempo in moto"},
      {'P', CTRL, "periodi"},
      {'M', CTRL, "mosse primo periodo"},
      {'1', ALT, "primo allarme"},
      {'2', ALT, "secondo allarme"},
      {'3', ALT, "terzo allarme"},
      {'4', ALT, "quarto allarme"},
      {'5', ALT, "quinto allarme"},
  };
  for (const Caso& c : casi) {
    Tasto(c.codice, c.stato);
    EXPECT_EQ(UltimaFinestra().testo.substr(0, 31 + std::string(c.descrizione).size()),
              std::string("Nessun valore specificato per '") + c.descrizione)
        << c.descrizione;
  }
  EXPECT_EQ(Finestre(), std::size(casi));
}

TEST_F(OrologioConsole, ParametriRifiutatiConLOrologioInMotoAncheUnAllarme) {
  Avvia();
  Tasto(VK_RETURN, CTRL);
  Digita("10");
  Tasto('3', ALT);
  ASSERT_EQ(Finestre(), 1u);
  EXPECT_EQ(UltimaFinestra().testo,
            "Per modificare i parametri relativi al tempo si deve prima fermare l'orologio.");
  EXPECT_EQ(ParametroIni[PARAMETRO_ALLARME1 + 2].valore, 60);
  Tasto('1', CTRL);
  EXPECT_EQ(UltimaFinestra().testo,
            "Per modificare i parametri relativi al tempo si deve prima fermare l'orologio.");
}

// ---------------------------------------------------------------------------
// A side's time by hand.

TEST_F(OrologioConsole, AggiungereMinutiAlNeroScelto) {
  Avvia();
  Digita("2");
  Tasto(VK_UP);  // focus 1: Black's time
  ASSERT_EQ(fuoco, 1u);
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_ADD, CTRL);
  ASSERT_EQ(Finestre(), 1u);
  EXPECT_EQ(UltimaFinestra().testo, "Aggiungere al nero 2 minuti?");
  EXPECT_EQ(UltimaFinestra().stile, unsigned(MB_YESNO));
  EXPECT_EQ(TempoRimasto[1], 122 * 60000);
  EXPECT_EQ(Tempo(1), " 02:02:00");
  EXPECT_EQ(Tempo(0), " 02:00:00");
  EXPECT_EQ(memoria::CursoreY(), y_tempo[1]) << "the cursor back on Black's line";
}

TEST_F(OrologioConsole, SottrarreMinutiAlBiancoConNoNonCambia) {
  Avvia();
  Digita("5");
  Tasto(VK_UP);
  Tasto(VK_UP);  // focus 2: White's time
  memoria::AccodaRisposta(IDNO);
  Tasto(VK_OEM_MINUS, CTRL);
  EXPECT_EQ(UltimaFinestra().testo, "Sottrarre al bianco 5 minuti?");
  EXPECT_EQ(TempoRimasto[0], 120 * 60000);
  Digita("5");
  Tasto(VK_UP);
  Tasto(VK_UP);
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_SUBTRACT, CTRL);
  EXPECT_EQ(TempoRimasto[0], 115 * 60000);
  EXPECT_EQ(Tempo(0), " 01:55:00");
}

TEST_F(OrologioConsole, ModificaTempoRifiuti) {
  Avvia();
  Tasto(VK_ADD, CTRL);
  EXPECT_EQ(UltimaFinestra().testo,
            "Nessun valore specificato per i minuti.\nI valori ammessi sono compresi da 1 a 30.");
  for (const char* testo : {"31", "0", "x"}) {
    Digita(testo);
    Tasto(VK_UP);
    Tasto(VK_ADD, CTRL);
    EXPECT_EQ(UltimaFinestra().testo,
              "Il valore specificato per i minuti non e' valido.\n"
              "I valori ammessi sono compresi da 1 a 30.")
        << testo;
  }
  // With the focus on the field: refused after the field has been cleared.
  Digita("3");
  Tasto(VK_ADD, CTRL);
  EXPECT_EQ(UltimaFinestra().testo,
            "Per modificare il tempo e' necessario selezionare prima il colore a cui intendi "
            "aplicare la modifica.");
  EXPECT_EQ(Campo(), "        ");
  EXPECT_EQ(CharatteriInComando, 0u);
  Tasto(VK_RETURN, CTRL);
  Digita("3");
  Tasto(VK_UP);
  Tasto(VK_ADD, CTRL);
  EXPECT_EQ(UltimaFinestra().testo,
            "Per modificare i parametri relativi al tempo si deve prima fermare l'orologio.");
}

// ---------------------------------------------------------------------------
// The manual display key.

TEST_F(OrologioConsole, TastoTConAggiornamentoSpentoMostraUnaVoltaEPortaIlFuoco) {
  ImpostaParametro(PARAMETRO_AGGIORNAMENTO_AUTOMATICO, 0);
  ScriviIni();
  Avvia();
  memoria::ImpostaMillisecondi(0);
  Tasto(VK_RETURN, CTRL);
  Secondi(3);
  EXPECT_EQ(Tempo(0), " 02:00:00") << "the line does not move by itself";
  EXPECT_EQ(TempoRimastoInMoto(0), 120 * 60000 - 3000);
  Tasto('T');
  EXPECT_EQ(Tempo(0), " 01:59:57");
  EXPECT_EQ(fuoco, 2u);
  EXPECT_EQ(memoria::CursoreY(), y_tempo[0]);
  EXPECT_EQ(ParametroIni[PARAMETRO_AGGIORNAMENTO_AUTOMATICO].valore, 0);
  // Black to move lands one line above Black's time: the current-move line.
  PortaAllaSemimossa(1);
  memoria::AvanzaMillisecondi(2000);
  Tasto('T');
  EXPECT_EQ(fuoco, 3u);
  EXPECT_EQ(memoria::CursoreY(), y_mossa_corrente);
}

TEST_F(OrologioConsole, TastoTNonFaNullaAOrologioFermoOConAggiornamentoAcceso) {
  Avvia();
  const std::string prima = Schermo();
  Tasto('T');
  EXPECT_EQ(Schermo(), prima);
  EXPECT_EQ(fuoco, 0u);
  Tasto(VK_RETURN, CTRL);
  const uint32_t fuoco_prima = fuoco;
  Tasto('T');
  EXPECT_EQ(fuoco, fuoco_prima);
}

// ---------------------------------------------------------------------------
// Resignation, agreement, flag fall.

TEST_F(OrologioConsole, F8IlBiancoAbbandona) {
  Avvia();
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_F8);
  ASSERT_EQ(Finestre(), 1u);
  EXPECT_EQ(UltimaFinestra().testo, "Il bianco abbandona, aggiudicare la partita (0-1)?");
  EXPECT_STREQ(Result, "0-1");
  EXPECT_EQ(memoria::Riga(21), Centrata("Il bianco abbandona: partita aggiudicata ( 0-1 )"));
}

TEST_F(OrologioConsole, F4IlNeroAbbandonaEF12PattaDAccordo) {
  Avvia();
  memoria::AccodaRisposta(IDNO);
  Tasto(VK_F4);
  EXPECT_EQ(UltimaFinestra().testo, "Il nero abbandona, aggiudicare la partita (1-0)?");
  EXPECT_STREQ(Result, "*");
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_F12);
  EXPECT_EQ(UltimaFinestra().testo, "Patta d'accordo, aggiudicare la partita (1/2-1/2)?");
  EXPECT_STREQ(Result, "1/2-1/2");
  EXPECT_EQ(memoria::Riga(21), Centrata("Patta d'accordo: partita aggiudicata ( 1/2-1/2 )"));
}

TEST_F(OrologioConsole, AvviareUnaPartitaAggiudicataChiedeDiRevocare) {
  Avvia();
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_F12);
  memoria::AccodaRisposta(IDNO);
  Tasto(VK_RETURN, CTRL);
  EXPECT_EQ(UltimaFinestra().testo,
            "Patta d'accordo, partita aggiudicata ( 1/2-1/2 ).\n"
            "Revocare l'aggiudicazione ed impostare comunque l'orologio in moto?");
  EXPECT_EQ(InMoto, 0u);
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_RETURN, CTRL);
  EXPECT_EQ(InMoto, 1u);
  EXPECT_STREQ(Result, "*");
  EXPECT_EQ(memoria::Riga(21), Centrata("Mossa 1, tratto al bianco, orologio in moto"));
}

TEST_F(OrologioConsole, CadutaDellaBandierinaDalCiclo) {
  ImpostaParametro(PARAMETRO_TEMPO_PRIMO_PERIODO, 1);
  ScriviIni();
  Avvia();
  memoria::ImpostaMillisecondi(0);
  Tasto(VK_RETURN, CTRL);
  memoria::AvanzaMillisecondi(59000);
  TurnoCiclo();
  EXPECT_EQ(Tempo(0), " 00:00:01");
  const size_t toni = memoria::Toni().size();
  memoria::AccodaRisposta(IDYES);
  TurnoCiclo();
  EXPECT_EQ(Tempo(0), " 00:00:00");
  ASSERT_EQ(Finestre(), 1u);
  EXPECT_EQ(UltimaFinestra().testo,
            "al bianco e' finito il tempo: Aggiudicare la partita ( 0-1 )?");
  // The flag's two tones, then the clock's as the adjudication stops it.
  EXPECT_EQ(ToniDa(toni), (Toni{{1000, 100}, {1000, 100}, {1000, 100}, {50000, 3}}));
  EXPECT_STREQ(Result, "0-1");
  EXPECT_STREQ(Termination, "time forfeit");
  EXPECT_EQ(InMoto, 0u);
  EXPECT_EQ(memoria::Riga(21),
            Centrata("Al bianco e' finito il tempo: partita aggiudicata ( 0-1 )"));
}

// ---------------------------------------------------------------------------
// What a screen reader meets at every focus position.

TEST_F(OrologioConsole, OgniPosizioneDelFuocoPortaIlCursoreSullaSuaFrase) {
  Avvia();
  struct Attesa {
    int riga;
    std::string frase;
  };
  const Attesa attese[9] = {
      {40, "Comando =>"}, {38, "Nero:"},
      {37, "Bianco:"},    {21, "Mossa 1, tratto al bianco, orologio fermo"},
      {20, ""},           {19, "Diritti d'arrocco: bianco entrambi, nero entrambi"},
      {18, ""},           {17, "Cadenza di gioco: 7200"},
      {15, ""},
  };
  Tasto(VK_END);
  for (uint32_t f = 0; f <= 8; ++f) {
    SCOPED_TRACE(f);
    ASSERT_EQ(fuoco, f);
    EXPECT_EQ(memoria::CursoreY(), attese[f].riga);
    EXPECT_EQ(memoria::CursoreX(), f == 0 ? 44 : 0);
    const std::string riga = memoria::Riga(attese[f].riga);
    if (!attese[f].frase.empty()) {
      EXPECT_NE(riga.find(attese[f].frase), std::string::npos) << riga;
    }
    if (f == 1 || f == 2) {
      EXPECT_EQ(riga.substr(43, 9), " 02:00:00");
    }
    Tasto(VK_UP);
  }
}

}  // namespace
