// The game commands from the keyboard: moves typed and confirmed with Enter,
// take-backs, a new game, saving and leaving, the viewers, the panel lines
// of the position, the endings as the console shows them, the record's last
// ply, and the terminal's prefix keys that stand in for the chords.
#include <cstdint>
#include <string>
#include <vector>

#include "partita_da_tastiera.h"
#include "piattaforma/terminale/decodifica.h"
#include "supporto/istantanea.h"

namespace {

constexpr unsigned AVVISO = MB_OK | MB_ICONINFORMATION;
constexpr DWORD CTRL = LEFT_CTRL_PRESSED;
constexpr DWORD ALT = LEFT_ALT_PRESSED;

const char* const RIGA_INIZIALE = " R  N  B  Q  K  B  N  R ";

class PartitaConsole : public PartitaDaTastiera {
 protected:
  static std::string Traversa(int rango) {
    return memoria::Riga(y_scacchiera + 8 - rango).substr(30, 24);
  }
  static std::vector<std::pair<uint32_t, uint32_t>> ToniDa(size_t da) {
    std::vector<std::pair<uint32_t, uint32_t>> t;
    for (size_t i = da; i < memoria::Toni().size(); ++i)
      t.push_back({memoria::Toni()[i].frequenza, memoria::Toni()[i].durata});
    return t;
  }
  using Toni = std::vector<std::pair<uint32_t, uint32_t>>;
  static void CursoreAlCampo() {
    EXPECT_EQ(memoria::CursoreX(), x_comando + int(CharatteriInComando));
    EXPECT_EQ(memoria::CursoreY(), y_comando);
  }
  static std::string PgnDiTreSemimosse() {
    return SulDisco(
        "\n[Event \"?\"]\n[White \"?\"]\n[Black \"?\"]\n[WhiteHelo \"?\"]\n[BlackHelo \"?\"]\n"
        "[Termination \"?\"]\n[Result \"*\"]\n[UTCTime \"?\"]\n[UTCDate \"?\"]\n"
        "[TimeControl \"7200\"]\n[Mode \"TC\"]\n[PlyCount \"3\"]\n[Annotator \"Pendrino1.0\"]\n"
        "\n 1. e4 e5 2. Nf3\n*\n");
  }
};

// ---------------------------------------------------------------------------
// Enter and the interpreter.

TEST_F(PartitaConsole, InvioGiocaLaMossaDigitata) {
  Digita("e4");
  EXPECT_EQ(Campo(), "e4");
  Invio();
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_EQ(Registro(1), "e4");
  EXPECT_EQ(Traversa(4), " -  -  -  -  P  -  -  - ");
  EXPECT_EQ(Traversa(2), " P  P  P  P  -  P  P  P ");
  EXPECT_EQ(memoria::Riga(y_semimosse), Centrata("Semimosse: ultima e4, reversibili 0, totali 1"));
  EXPECT_EQ(memoria::Riga(y_mossa_corrente), Centrata("Mossa 1, tratto al nero, orologio fermo"));
  EXPECT_EQ(memoria::Riga(y_ripetizioni),
            Centrata("La posizione corrente non si e' mai verificata prima"));
  // The field is empty again, on screen too, and the cursor waits in it.
  EXPECT_EQ(CharatteriInComando, 0u);
  EXPECT_EQ(memoria::Riga(y_comando).substr(x_comando, 8), std::string(8, ' '));
  CursoreAlCampo();
  EXPECT_EQ(fuoco, FUOCO_COMANDO);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_EQ(ToniDa(0), (Toni{{1500, 4}, {1500, 4}, {3000, 5}}));
}

TEST_F(PartitaConsole, ShiftInvioSenzaCtrlEInvio) {
  Digita("Nf3");
  Tasto(VK_RETURN, SHIFT_PRESSED);
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_EQ(Registro(1), "Nf3");
  EXPECT_FALSE(InMoto);
}

TEST_F(PartitaConsole, InvioACampoVuotoNonFaNulla) {
  Mossa("e4");
  memoria::Azzera();
  StampaPosizione();
  const std::string prima = Schermo();
  fuoco = 5;
  ImpostaFocus();
  Invio();
  EXPECT_EQ(Schermo(), prima);
  EXPECT_EQ(fuoco, 5u);
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(PartitaConsole, MossaIllegaleAvvisaColTestoDelCampo) {
  Mossa("e4");
  const Istantanea prima = Fotografa();
  const std::string schermo = Schermo();
  Mossa("Ke3");
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, "'Ke3' - non e' una mossa legale");
  EXPECT_EQ(memoria::Finestre()[0].titolo, "Attenzione!");
  EXPECT_EQ(memoria::Finestre()[0].stile, AVVISO);
  EXPECT_EQ(Fotografa(), prima);
  EXPECT_EQ(Schermo(), schermo);
  EXPECT_EQ(ContatoreMosse, 1u);
  // An ambiguous text is the same failure; punctuation keys never reach
  // the field, so the notice quotes what the field held.
  Mosse({"e5", "Nc3", "d6"});
  Mossa("N-e2");
  ASSERT_EQ(memoria::Finestre().size(), 2u);
  EXPECT_EQ(memoria::Finestre()[1].testo, "'Ne2' - non e' una mossa legale");
  EXPECT_EQ(ContatoreMosse, 4u);
}

TEST_F(PartitaConsole, UnTestoCheNonEMossaAvvisaNonComandoValido) {
  const std::string schermo = Schermo();
  for (const char* testo : {"Pe4", "abc", "e9", "zz"}) {
    Mossa(testo);
    ASSERT_FALSE(memoria::Finestre().empty());
    EXPECT_EQ(memoria::Finestre().back().testo,
              std::string("'") + testo + "' - non e' un comando valido");
    EXPECT_EQ(memoria::Finestre().back().stile, AVVISO);
  }
  EXPECT_EQ(memoria::Finestre().size(), 4u);
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_EQ(Schermo(), schermo);
}

TEST_F(PartitaConsole, CsScriveIChiariEGliScuriMaCSNo) {
  Mossa("e4");
  const Istantanea prima = Fotografa();
  Mossa("cs");
  EXPECT_TRUE(memoria::Finestre().empty());
  const std::string file = memoria::ContenutoFile("ChiaroScuro.txt");
  EXPECT_NE(file.find(SulDisco("\n    #define BtmCaseChiare aa55aa55aa55aa55\n")),
            std::string::npos);
  EXPECT_NE(file.find(SulDisco("\n    #define BtmCaseScure 55aa55aa55aa55aa\n")),
            std::string::npos);
  EXPECT_EQ(Fotografa(), prima);
  EXPECT_EQ(ContatoreMosse, 1u);

  // Upper case is no hidden command and no move either.
  memoria::RimuoviFile("ChiaroScuro.txt");
  Mossa("CS");
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, "'CS' - non e' un comando valido");
  EXPECT_FALSE(memoria::EsisteFile("ChiaroScuro.txt"));
  Mossa("cS");
  ASSERT_EQ(memoria::Finestre().size(), 2u);
  EXPECT_EQ(memoria::Finestre()[1].testo, "'cS' - non e' un comando valido");
  EXPECT_FALSE(memoria::EsisteFile("ChiaroScuro.txt"));
  EXPECT_EQ(Fotografa(), prima);
}

TEST_F(PartitaConsole, MossaSuPartitaAggiudicataChiedeDiRevocare) {
  Mosse({"f3", "e5", "g4", "Qh4"});
  ASSERT_STREQ(Result, "0-1");
  memoria::Azzera();
  // The question comes before the move is looked for: White, mated, has
  // no move at all.
  Mossa("Kf2");
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo,
            "scaccomatto, partita aggiudicata ( 0-1 ).\n"
            "Revocare l'aggiudicazione e modificare la partita comunque?");
  EXPECT_EQ(memoria::Finestre()[0].stile, unsigned(MB_YESNO));
  EXPECT_STREQ(Result, "0-1");
  // Yes revokes even though no move follows: the question comes first.
  memoria::AccodaRisposta(IDYES);
  Mossa("Kf2");
  ASSERT_EQ(memoria::Finestre().size(), 3u);
  EXPECT_EQ(memoria::Finestre()[2].testo, "'Kf2' - non e' una mossa legale");
  EXPECT_STREQ(Result, "*");
  EXPECT_EQ(ContatoreMosse, 4u);
}

TEST_F(PartitaConsole, LaRevocaSiVedeSubitoAncheSeLaMossaERifiutata) {
  Mosse({"f3", "e5", "g4", "Qh4"});
  ASSERT_NE(memoria::Riga(y_mossa_corrente).find("Scaccomatto: partita aggiudicata ( 0-1 )"),
            std::string::npos);
  memoria::AccodaRisposta(IDYES);
  Mossa("Kf2");
  EXPECT_STREQ(Result, "*");
  // The line no longer states the revoked result, and the notice came
  // after it was drawn.
  EXPECT_NE(memoria::Riga(y_mossa_corrente).find("Mossa 3, tratto al bianco, orologio fermo"),
            std::string::npos)
      << memoria::Riga(y_mossa_corrente);
  CursoreAlCampo();
}

TEST_F(PartitaConsole, LaRevocaSiVedeSubitoAncheConIlRitiro) {
  Mosse({"f3", "e5", "g4", "Qh4"});
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_DELETE, CTRL);
  EXPECT_NE(memoria::Riga(y_mossa_corrente).find("Mossa 2, tratto al nero, orologio fermo"),
            std::string::npos)
      << memoria::Riga(y_mossa_corrente);
}

// ---------------------------------------------------------------------------
// Taking a move back: Ctrl+Delete and Ctrl+Break.

TEST_F(PartitaConsole, CtrlCancAllInizioAvvisaESoloQuello) {
  const std::string schermo = Schermo();
  Ritira();
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo,
            "La posizione e' quella iniziale: Non c'e' alcuna mossa da ritirare.");
  EXPECT_EQ(memoria::Finestre()[0].stile, AVVISO);
  EXPECT_TRUE(memoria::Toni().empty());
  EXPECT_EQ(Schermo(), schermo);
}

TEST_F(PartitaConsole, CtrlCancConIlNeroAlTrattoDallInizioAvvisa) {
  // A game from a position with Black to move starts at ply 1: nothing of
  // it to take back there either, and no tone of a take-back.
  NuovaPartita("4k3/8/8/8/8/8/8/R3K3 b - - 0 1");
  ASSERT_EQ(ContatoreMosse, 1u);
  const Istantanea inizio = Fotografa();
  const std::string schermo = Schermo();
  Ritira();
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo,
            "La posizione e' quella iniziale: Non c'e' alcuna mossa da ritirare.");
  EXPECT_TRUE(memoria::Toni().empty());
  EXPECT_EQ(Fotografa(), inizio);
  EXPECT_EQ(Schermo(), schermo);
  Mossa("Kd7");
  Ritira();
  EXPECT_EQ(Fotografa(), inizio);
  Ritira();
  EXPECT_EQ(memoria::Finestre().size(), 2u);
  EXPECT_EQ(Fotografa(), inizio);
}

TEST_F(PartitaConsole, CtrlCancRitiraLUltimaSemimossa) {
  Mosse({"e4", "e5"});
  const Istantanea dopo_e5 = Fotografa();
  const std::string schermo = Schermo();
  Mossa("Nf3");
  const size_t toni = memoria::Toni().size();
  Ritira();
  EXPECT_EQ(ContatoreMosse, 2u);
  EXPECT_EQ(Fotografa(), dopo_e5);
  EXPECT_EQ(Schermo(), schermo);
  CursoreAlCampo();
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_EQ(ToniDa(toni), (Toni{{3000, 5}, {50000, 3}, {3000, 5}}));
  // The taken-back ply plays again.
  Mossa("Nc3");
  EXPECT_EQ(Registro(3), "Nc3");
}

TEST_F(PartitaConsole, CtrlInterruzioneRitiraComeCtrlCanc) {
  Mosse({"d4", "d5"});
  Tasto(VK_CANCEL, CTRL);
  EXPECT_EQ(ContatoreMosse, 1u);
  Tasto(VK_CANCEL, RIGHT_CTRL_PRESSED);
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_EQ(Traversa(2), " P  P  P  P  P  P  P  P ");
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(PartitaConsole, CtrlCNonRitiraNulla) {
  Mossa("e4");
  const std::string schermo = Schermo();
  memoria::AccodaTasto('C', CTRL, 0x03);
  Tasto(VK_DELETE);  // Delete without Ctrl is no command either
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_EQ(Schermo(), schermo);
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(PartitaConsole, RitiroConLOrologioInMotoRifiutato) {
  Mossa("e4");
  Tasto(VK_RETURN, CTRL);
  ASSERT_TRUE(InMoto);
  const Istantanea prima = Fotografa();
  const int32_t tempo[2] = {TempoRimasto[0], TempoRimasto[1]};
  Ritira();
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo,
            "Per modificare la posizione e' prima necessario fermare l'orologio.");
  EXPECT_EQ(Fotografa(), prima);
  // Stopped, the take-back goes through and leaves the times alone.
  Tasto(VK_RETURN, CTRL | SHIFT_PRESSED);
  ASSERT_FALSE(InMoto);
  const int32_t fermo[2] = {TempoRimasto[0], TempoRimasto[1]};
  EXPECT_EQ(fermo[0], tempo[0]);
  Ritira();
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_EQ(TempoRimasto[0], fermo[0]);
  EXPECT_EQ(TempoRimasto[1], fermo[1]);
}

TEST_F(PartitaConsole, RitiroDiUnaPartitaAggiudicataChiedeDiRevocare) {
  Mosse({"f3", "e5", "g4", "Qh4"});
  const Istantanea matto = Fotografa();
  const size_t prima = memoria::Finestre().size();
  Ritira();  // answered No
  ASSERT_EQ(FinestreDa(prima),
            std::vector<std::string>{Box("scaccomatto, partita aggiudicata ( 0-1 ).\nRevocare "
                                         "l'aggiudicazione e modificare la partita comunque?",
                                         MB_YESNO)});
  EXPECT_EQ(Fotografa(), matto);
  EXPECT_STREQ(Result, "0-1");
  memoria::AccodaRisposta(IDYES);
  Ritira();
  EXPECT_EQ(ContatoreMosse, 3u);
  EXPECT_STREQ(Result, "*");
  EXPECT_STREQ(Termination, "?");
  EXPECT_STREQ(CommentoRisultato, "");
  EXPECT_EQ(memoria::Riga(y_mossa_corrente), Centrata("Mossa 2, tratto al nero, orologio fermo"));
}

TEST_F(PartitaConsole, IlRitiroLasciaLaRigaDelleRipetizioni) {
  Mosse({"Nf3", "Nf6", "Ng1", "Ng8"});
  const std::string riga = Centrata("La posizione corrente e' identica a quella iniziale");
  EXPECT_EQ(memoria::Riga(y_ripetizioni), riga);
  Ritira();
  EXPECT_EQ(memoria::Riga(y_ripetizioni), riga);
  EXPECT_EQ(memoria::Riga(y_semimosse), Centrata("Semimosse: ultima Ng1, reversibili 3, totali 3"));
  EXPECT_EQ(Traversa(6), " -  -  -  -  -  n  -  - ");
}

// ---------------------------------------------------------------------------
// A new game, saving, leaving, the viewers.

TEST_F(PartitaConsole, AltNAnnullaNonCambiaNulla) {
  Mosse({"e4", "e5"});
  Digita("Nf");
  const Istantanea prima = Fotografa();
  const std::string schermo = Schermo();
  memoria::AccodaRisposta(IDCANCEL);
  Tasto('N', ALT);
  ASSERT_EQ(FinestreDa(0),
            std::vector<std::string>{Box("Salvare la partita corrente?", MB_YESNOCANCEL)});
  EXPECT_EQ(Fotografa(), prima);
  EXPECT_EQ(Schermo(), schermo);
  EXPECT_EQ(Campo(), "Nf");
  EXPECT_FALSE(memoria::EsisteFile("partita.pgn"));
}

TEST_F(PartitaConsole, AltNNoRicominciaSenzaSalvare) {
  const std::string iniziale = Schermo();
  const Istantanea posizione_iniziale = Fotografa();
  Mosse({"Nf3", "Nf6", "Ng1", "Ng8"});
  Tasto(VK_RETURN, CTRL);  // the clock runs
  Tasto(VK_F12);           // and an adjudication, refused: the box says No
  Digita("Nf");
  fuoco = 4;
  memoria::AccodaRisposta(IDNO);
  Tasto('N', ALT);
  EXPECT_FALSE(memoria::EsisteFile("partita.pgn"));
  EXPECT_EQ(Fotografa(), posizione_iniziale);
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_FALSE(InMoto);
  EXPECT_EQ(Ripetizioni, 0u);
  EXPECT_STREQ(Result, "*");
  EXPECT_EQ(CharatteriInComando, 0u);
  EXPECT_EQ(fuoco, FUOCO_COMANDO);
  // The very screen of a fresh start: board, panels, times, empty field.
  EXPECT_EQ(Schermo(), iniziale);
  CursoreAlCampo();
}

TEST_F(PartitaConsole, AltNSiSalvaLaPartitaSuonaERicomincia) {
  Mosse({"e4", "e5", "Nf3"});
  const size_t toni = memoria::Toni().size();
  memoria::AccodaRisposta(IDYES);
  Tasto('N', ALT);
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), PgnDiTreSemimosse());
  EXPECT_EQ(ToniDa(toni), (Toni{{3000, 5}}));
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_EQ(Traversa(1), RIGA_INIZIALE);
}

TEST_F(PartitaConsole, AltSSalvaLaPartitaESuona) {
  Mosse({"e4", "e5", "Nf3"});
  const std::string schermo = Schermo();
  const size_t toni = memoria::Toni().size();
  Tasto('S', ALT);
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), PgnDiTreSemimosse());
  EXPECT_EQ(ToniDa(toni), (Toni{{3000, 5}}));
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_EQ(Schermo(), schermo);
  EXPECT_TRUE(memoria::ComandiVisualizzatore().empty());

  // An adjudicated game is saved with its result and comment.
  Mosse({"Nc6", "Bb5", "a6", "Ba4", "Nf6", "0-0", "Be7", "Re1", "b5", "Bb3", "d6", "c3", "0-0",
         "h3"});
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_F8);
  Tasto('S', ALT);
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), PgnAtteso());
  EXPECT_NE(memoria::ContenutoFile("partita.pgn")
                .find(SulDisco("\n 1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Ba4 Nf6 5. 0-0 Be7 6. Re1 b5 "
                               "7. Bb3 d6 8. c3 0-0\n 9. h3\n{Il bianco abbandona} 0-1\n")),
            std::string::npos);
}

TEST_F(PartitaConsole, AltF4SiSalvaLaPartitaEdEsce) {
  Mosse({"e4", "e5", "Nf3"});
  memoria::AccodaTasto(VK_F4, ALT);
  memoria::AccodaRisposta(IDYES);
  Esce([] { TurnoCiclo(); });
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), PgnDiTreSemimosse());
  EXPECT_FALSE(memoria::ConsoleAperta());
  ASSERT_FALSE(memoria::Toni().empty());
  EXPECT_EQ(memoria::Toni().back().frequenza, 3000u);
}

TEST_F(PartitaConsole, AltF4NoEsceSenzaSalvareLaPartita) {
  Mosse({"e4", "e5"});
  memoria::AccodaTasto(VK_F4, ALT);
  memoria::AccodaRisposta(IDNO);
  Esce([] { TurnoCiclo(); });
  EXPECT_FALSE(memoria::EsisteFile("partita.pgn"));
}

TEST_F(PartitaConsole, F5ScriveLElencoDelleMosseEPoiLoApre) {
  Mosse({"e4", "e5", "Nf3", "Nc6", "Bb5", "a6", "0-0"});
  const std::string schermo = Schermo();
  Tasto(VK_F5);
  EXPECT_EQ(memoria::ContenutoFile("ListaMosse.txt"),
            SulDisco("\n 1. e4 e5\n 2. Nf3 Nc6\n 3. Bb5 a6\n 4. 0-0\n"));
  EXPECT_EQ(memoria::ComandiVisualizzatore(), std::vector<std::string>{"start ListaMosse.txt"});
  EXPECT_FALSE(memoria::EsisteFile("partita.pgn"));
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_EQ(Schermo(), schermo);
  // Rewritten at each press, with the game as it stands.
  Ritira();
  Tasto(VK_F5);
  EXPECT_EQ(memoria::ContenutoFile("ListaMosse.txt"),
            SulDisco("\n 1. e4 e5\n 2. Nf3 Nc6\n 3. Bb5 a6\n"));
  EXPECT_EQ(memoria::ComandiVisualizzatore().size(), 2u);
}

TEST_F(PartitaConsole, F9SalvaLaPartitaEPoiLaApre) {
  Mosse({"e4", "e5", "Nf3"});
  const size_t toni = memoria::Toni().size();
  Tasto(VK_F9);
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), PgnDiTreSemimosse());
  EXPECT_EQ(memoria::ComandiVisualizzatore(), std::vector<std::string>{"start partita.pgn"});
  EXPECT_FALSE(memoria::EsisteFile("ListaMosse.txt"));
  // Unlike alt + s, no tone.
  EXPECT_TRUE(ToniDa(toni).empty());
  EXPECT_TRUE(memoria::Finestre().empty());
}

// ---------------------------------------------------------------------------
// A file the user asked for that cannot be written is said.

const char* const PGN_NON_SCRITTO =
    "Impossibile scrivere il file partita.pgn: la partita non e' stata salvata.";

TEST_F(PartitaConsole, AltSConFileNonScrivibileLoDice) {
  Mosse({"e4", "e5"});
  memoria::ImpostaSolaLettura(true);
  const size_t toni = memoria::Toni().size();
  Tasto('S', ALT);
  EXPECT_EQ(FinestreDa(0), std::vector<std::string>{Box(PGN_NON_SCRITTO, AVVISO)});
  EXPECT_TRUE(ToniDa(toni).empty());
  CursoreAlCampo();
}

TEST_F(PartitaConsole, F9ConFileNonScrivibileLoDiceENonApreNulla) {
  Mosse({"e4"});
  memoria::ImpostaFile("partita.pgn", "una partita vecchia");
  memoria::ImpostaSolaLettura(true);
  Tasto(VK_F9);
  EXPECT_EQ(FinestreDa(0), std::vector<std::string>{Box(PGN_NON_SCRITTO, AVVISO)});
  EXPECT_TRUE(memoria::ComandiVisualizzatore().empty());
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), "una partita vecchia");
}

TEST_F(PartitaConsole, F5ConFileNonScrivibileLoDiceENonApreNulla) {
  Mosse({"e4"});
  memoria::ImpostaSolaLettura(true);
  Tasto(VK_F5);
  EXPECT_EQ(FinestreDa(0),
            std::vector<std::string>{Box("Impossibile scrivere il file ListaMosse.txt: l'elenco "
                                         "delle mosse non e' stato aggiornato.",
                                         AVVISO)});
  EXPECT_TRUE(memoria::ComandiVisualizzatore().empty());
}

TEST_F(PartitaConsole, AltNSiConFileNonScrivibileTieneLaPartita) {
  Mosse({"e4", "e5"});
  memoria::ImpostaSolaLettura(true);
  memoria::AccodaRisposta(IDYES);
  Tasto('N', ALT);
  ASSERT_EQ(memoria::Finestre().size(), 2u);
  EXPECT_EQ(memoria::Finestre()[1].testo, PGN_NON_SCRITTO);
  EXPECT_EQ(ContatoreMosse, 2u);
  EXPECT_EQ(Registro(2), "e5");
}

TEST_F(PartitaConsole, AltF4SiConFileNonScrivibileRestaAperto) {
  Mosse({"e4", "e5"});
  memoria::ImpostaSolaLettura(true);
  memoria::AccodaTasto(VK_F4, ALT);
  memoria::AccodaRisposta(IDYES);
  TurnoCiclo();
  EXPECT_TRUE(memoria::ConsoleAperta());
  ASSERT_EQ(memoria::Finestre().size(), 2u);
  EXPECT_EQ(memoria::Finestre()[1].testo, PGN_NON_SCRITTO);
  EXPECT_EQ(ContatoreMosse, 2u);
  // Once the folder can be written again, the same answer saves and leaves.
  memoria::ImpostaSolaLettura(false);
  memoria::AccodaTasto(VK_F4, ALT);
  memoria::AccodaRisposta(IDYES);
  Esce([] { TurnoCiclo(); });
  EXPECT_TRUE(memoria::EsisteFile("partita.pgn"));
}

TEST_F(PartitaConsole, F1ApreLaGuidaScrittaAllAvvio) {
  const std::string guida = memoria::ContenutoFile("leggimi.html");
  ASSERT_FALSE(guida.empty());
  const size_t scritture = memoria::ScrittureFile();
  memoria::RimuoviFile("leggimi.html");
  Tasto(VK_F1);
  EXPECT_EQ(memoria::ComandiVisualizzatore(), std::vector<std::string>{"start leggimi.html"});
  // F1 only opens the page written at start-up.
  EXPECT_EQ(memoria::ScrittureFile(), scritture);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_TRUE(memoria::Toni().empty());
}

// ---------------------------------------------------------------------------
// The panel lines of the position.

TEST_F(PartitaConsole, RigaDelleSemimosseSenzaMosse) {
  EXPECT_EQ(memoria::Riga(y_semimosse), Centrata("Semimosse: reversibili 0, totali 0"));
  EXPECT_EQ(memoria::Riga(y_ripetizioni), Centrata("La posizione corrente e' quella iniziale"));
}

TEST_F(PartitaConsole, RigaDelleSemimosseContaLeReversibili) {
  Mosse({"e4", "Nf6", "Nf3"});
  EXPECT_EQ(memoria::Riga(y_semimosse), Centrata("Semimosse: ultima Nf3, reversibili 2, totali 3"));
  Mossa("Nxe4");
  EXPECT_EQ(memoria::Riga(y_semimosse),
            Centrata("Semimosse: ultima Nxe4, reversibili 0, totali 4"));
}

TEST_F(PartitaConsole, RigaDelleRipetizioniPerOgniCaso) {
  Mosse({"e4", "e5", "Nf3", "Nc6", "Ng1", "Nb8"});
  EXPECT_EQ(memoria::Riga(y_ripetizioni),
            Centrata("La posizione corrente e' identica a quella dopo 1.e5"));
  Mossa("Nf3");
  EXPECT_EQ(memoria::Riga(y_ripetizioni),
            Centrata("La posizione corrente e' identica a quella dopo 2.Nf3"));
  Mosse({"Nc6", "Ng1"});
  const size_t prima = memoria::Finestre().size();
  Mossa("Nb8");
  EXPECT_EQ(memoria::Riga(y_ripetizioni),
            Centrata("La posizione corrente e' identica a quelle dopo 1.e5 e 3.Nb8"));
  EXPECT_EQ(FinestreDa(prima),
            std::vector<std::string>{Box("Triplice ripetizione: aggiudicare la patta?", MB_YESNO)});
}

TEST_F(PartitaConsole, StampaPosizioneRidisegnaEPortaIlCursoreAlFuoco) {
  Mosse({"e4", "e5", "Nf3", "Nc6", "Bc4", "Bc5"});
  // Castling typed with letters and a hyphen reaches the field as "OO".
  Mossa("O-O");
  EXPECT_EQ(Registro(7), "0-0");
  EXPECT_EQ(Traversa(1), " R  N  B  Q  -  R  K  - ");
  EXPECT_EQ(memoria::Riga(y_diritti_arrocco),
            Centrata("Diritti d'arrocco: bianco nessuno, nero entrambi"));
  // Redrawn from scratch on a blank screen, with the focus on a panel line.
  memoria::Azzera();
  fuoco = 3;
  StampaPosizione();
  EXPECT_EQ(memoria::Riga(y_diritti_arrocco),
            Centrata("Diritti d'arrocco: bianco nessuno, nero entrambi"));
  EXPECT_EQ(memoria::Riga(y_semimosse), Centrata("Semimosse: ultima 0-0, reversibili 5, totali 7"));
  EXPECT_EQ(memoria::Riga(y_ripetizioni),
            Centrata("La posizione corrente non si e' mai verificata prima"));
  EXPECT_EQ(memoria::Riga(y_mossa_corrente), Centrata("Mossa 4, tratto al nero, orologio fermo"));
  EXPECT_EQ(Traversa(8), " r  -  b  q  k  -  n  r ");
  EXPECT_EQ(memoria::CursoreX(), 0);
  EXPECT_EQ(memoria::CursoreY(), y_mossa_corrente);
  // Nothing else is drawn: the cadence line belongs to the clock.
  EXPECT_EQ(memoria::Riga(y_cadenza), std::string(80, ' '));
  EXPECT_TRUE(memoria::Finestre().empty());
}

// ---------------------------------------------------------------------------
// The endings as the console shows them.

TEST_F(PartitaConsole, IlMattoSiAnnunciaDopoLaMossa) {
  Mosse({"f3", "e5", "g4"});
  const size_t toni = memoria::Toni().size();
  Mossa("Qh4");
  EXPECT_EQ(Registro(4), "Qh4#");
  EXPECT_EQ(FinestreDa(0),
            std::vector<std::string>{Box("scaccomatto, partita aggiudicata ( 0-1 ).", AVVISO)});
  EXPECT_EQ(memoria::Riga(y_mossa_corrente), Centrata("Scaccomatto: partita aggiudicata ( 0-1 )"));
  EXPECT_EQ(memoria::Riga(y_semimosse),
            Centrata("Semimosse: ultima Qh4#, reversibili 1, totali 4"));
  // The typed letters, then the move's tone after the notice.
  EXPECT_EQ(ToniDa(toni), (Toni{{1500, 4}, {1500, 4}, {1500, 4}, {3000, 5}}));
  CursoreAlCampo();
}

TEST_F(PartitaConsole, LoStalloSiAnnuncia) {
  NuovaPartita("k7/8/1Q6/8/8/8/8/7K w - - 0 1");
  Mossa("Qc7");
  EXPECT_EQ(Registro(1), "Qc7");
  EXPECT_EQ(FinestreDa(0),
            std::vector<std::string>{Box("stallo, partita aggiudicata ( 1/2-1/2 ).", AVVISO)});
  EXPECT_EQ(memoria::Riga(y_mossa_corrente), Centrata("Stallo: partita aggiudicata ( 1/2-1/2 )"));
  EXPECT_STREQ(Termination, "stalemate");
}

TEST_F(PartitaConsole, IlMaterialeInsufficienteSiAnnuncia) {
  NuovaPartita("4k3/8/8/8/8/8/3p4/4K3 w - - 0 1");
  Mossa("Kd2");
  EXPECT_EQ(Registro(1), "Kxd2");
  EXPECT_EQ(FinestreDa(0),
            std::vector<std::string>{
                Box("materiale insufficente, partita aggiudicata ( 1/2-1/2 ).", AVVISO)});
  EXPECT_EQ(memoria::Riga(y_mossa_corrente),
            Centrata("Materiale insufficente: partita aggiudicata ( 1/2-1/2 )"));
  EXPECT_STREQ(Termination, "insufficient material");
}

TEST_F(PartitaConsole, LeCinquantaMosseSiChiedonoAllaCentesimaSemimossa) {
  const std::string domanda = Box("Aggiudicare la patta per la regola delle 50 mosse?", MB_YESNO);
  NuovaPartita("4k3/8/8/8/8/8/8/R3K3 w - - 98 60");
  Mossa("Ra2");  // 99
  EXPECT_TRUE(memoria::Finestre().empty());
  Mossa("Kd7");  // 100: asked, and No keeps the game open
  EXPECT_EQ(FinestreDa(0), std::vector<std::string>{domanda});
  EXPECT_STREQ(Result, "*");
  Mossa("Ra3");  // 101: not asked again
  Mossa("Kc7");  // 102
  EXPECT_EQ(memoria::Finestre().size(), 1u);
  // Taken back to 99 and played again: 100 asks again, Yes adjudicates
  // without a notice.
  Ritira();
  Ritira();
  Ritira();
  ASSERT_EQ(ContatoreMosse, 1u);
  memoria::AccodaRisposta(IDYES);
  Mossa("Ke7");
  EXPECT_EQ(FinestreDa(1), std::vector<std::string>{domanda});
  EXPECT_STREQ(Result, "1/2-1/2");
  EXPECT_STREQ(Termination, "Fifty-move rule");
  EXPECT_STREQ(CommentoRisultato, "regola delle 50 mosse");
  EXPECT_EQ(memoria::Riga(y_mossa_corrente),
            Centrata("Regola delle 50 mosse: partita aggiudicata ( 1/2-1/2 )"));
}

TEST_F(PartitaConsole, LaTriplicePerFinoColNoAggiudicaLaPatta) {
  for (int risposta : {IDNO, IDYES}) {
    memoria::AccodaRisposta(IDNO);
    Tasto('N', ALT);
    const size_t prima = memoria::Finestre().size();
    Mosse({"Nf3", "Nf6", "Ng1", "Ng8", "Nf3", "Nf6", "Ng1"});
    memoria::AccodaRisposta(risposta);
    Mossa("Ng8");
    EXPECT_EQ(FinestreDa(prima), std::vector<std::string>{
                                     Box("Triplice ripetizione: aggiudicare la patta?", MB_YESNO)});
    EXPECT_STREQ(Result, "1/2-1/2") << risposta;
    EXPECT_STREQ(Termination, "threefold repetition");
    EXPECT_STREQ(CommentoRisultato, "triplice ripetizione");
    EXPECT_EQ(memoria::Riga(y_mossa_corrente),
              Centrata("Triplice ripetizione: partita aggiudicata ( 1/2-1/2 )"));
    EXPECT_EQ(memoria::Riga(y_ripetizioni),
              Centrata("La posizione corrente e' identica a quella iniziale e quella dopo 2.Ng8"));
  }
}

// ---------------------------------------------------------------------------
// The record's last ply.

TEST_F(PartitaConsole, DopoLUltimaSemimossaLaMossaERifiutataConAvviso) {
  // Knights to and fro, the repetitions revoked as the arbiter would, with a
  // Yes to the question before each move; four pawn moves at the end leave
  // the game open.
  const char* giro[4] = {"Nf3", "Nf6", "Ng1", "Ng8"};
  for (uint64_t p = 0; p < ULTIMA_SEMIMOSSA - 4; ++p) {
    if (PartitaAggiudicata()) memoria::AccodaRisposta(IDYES);
    Mossa(giro[p % 4]);
    ASSERT_EQ(ContatoreMosse, p + 1);
  }
  if (PartitaAggiudicata()) memoria::AccodaRisposta(IDYES);
  Mosse({"e4", "e5", "d4", "d5"});
  ASSERT_EQ(ContatoreMosse, ULTIMA_SEMIMOSSA);
  ASSERT_TRUE(PartitaCompleta());
  ASSERT_STREQ(Result, "*");
  Tasto(VK_F9);
  Tasto(VK_F5);
  const std::string pgn = memoria::ContenutoFile("partita.pgn");
  const std::string elenco = memoria::ContenutoFile("ListaMosse.txt");
  ASSERT_EQ(pgn, PgnAtteso());
  ASSERT_NE(pgn.find(SulDisco(" 254. e4 e5 255. d4 d5\n*\n")), std::string::npos);
  std::vector<std::string> registro;
  for (uint64_t p = 0; p < MAX_SEMIMOSSE; ++p) registro.push_back(Registro(p));
  const Istantanea prima = Fotografa();
  const std::string schermo = Schermo();
  const size_t finestre = memoria::Finestre().size();
  const size_t toni = memoria::Toni().size();

  Mossa("Ng1");  // legal on the board, but the record is full
  EXPECT_EQ(FinestreDa(finestre),
            std::vector<std::string>{Box("La partita ha raggiunto il numero massimo di semimosse "
                                         "registrabili: non si possono giocare altre mosse.",
                                         AVVISO)});
  EXPECT_EQ(ContatoreMosse, ULTIMA_SEMIMOSSA);
  EXPECT_EQ(Fotografa(), prima);
  EXPECT_STREQ(Result, "*");
  for (uint64_t p = 0; p < MAX_SEMIMOSSE; ++p) EXPECT_EQ(Registro(p), registro[p]) << p;
  EXPECT_EQ(Schermo(), schermo);
  // Only the typed letters sounded.
  EXPECT_EQ(ToniDa(toni), (Toni{{1500, 4}, {1500, 4}, {1500, 4}}));
  Tasto(VK_F9);
  Tasto(VK_F5);
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), pgn);
  EXPECT_EQ(memoria::ContenutoFile("ListaMosse.txt"), elenco);

  // A take-back makes room again.
  Ritira();
  EXPECT_EQ(ContatoreMosse, ULTIMA_SEMIMOSSA - 1);
  Mossa("d5");
  EXPECT_EQ(ContatoreMosse, ULTIMA_SEMIMOSSA);
  EXPECT_EQ(Registro(ULTIMA_SEMIMOSSA), "d5");
}

// ---------------------------------------------------------------------------
// The terminal's prefixes: Esc for Alt, Ctrl+X for Ctrl, decoded as the
// terminal backend decodes them, then through the key table.

class TastiDelTerminale : public PartitaConsole {
 protected:
  using Ingresso = piattaforma::terminale::Ingresso;
  piattaforma::terminale::StatoDecodifica stato;

  void Premi(std::initializer_list<Ingresso> ingressi) {
    for (const Ingresso& ingresso : ingressi) {
      INPUT_RECORD evento{};
      if (piattaforma::terminale::Decodifica(stato, ingresso, evento) ==
          piattaforma::terminale::Esito::Evento)
        memoria::AccodaEvento(evento);
    }
    Esegui();
  }
  static Ingresso Carattere(uint32_t c) { return {Ingresso::Carattere, c, nullptr, false}; }
  static Ingresso Nome(const char* nome) { return {Ingresso::Nome, 0, nome, false}; }
  static constexpr uint32_t ESC = 27, CTRL_X = 0x18, BACKSPACE = 0x7F;
};

TEST_F(TastiDelTerminale, CtrlXPoiBackspaceOCancRitira) {
  Premi({Carattere('e'), Carattere('4'), Carattere('\r')});
  Premi({Carattere('e'), Carattere('5'), Carattere('\r')});
  ASSERT_EQ(ContatoreMosse, 2u);
  Premi({Carattere(CTRL_X), Carattere(BACKSPACE)});
  EXPECT_EQ(ContatoreMosse, 1u);
  Premi({Carattere(CTRL_X), Nome("KEY_DC")});
  EXPECT_EQ(ContatoreMosse, 0u);
  // Backspace alone edits the field and takes nothing back.
  Premi({Carattere('d'), Carattere('4'), Carattere('\r'), Carattere('d'), Carattere(BACKSPACE)});
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_EQ(Campo(), "");
  Premi({Carattere(CTRL_X), Carattere(8)});
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(TastiDelTerminale, EscPoiNSOF4) {
  Premi({Carattere('e'), Carattere('4'), Carattere('\r')});
  Premi({Carattere(ESC), Carattere('s')});
  EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), PgnAtteso());
  memoria::AccodaRisposta(IDCANCEL);
  Premi({Carattere(ESC), Carattere('n')});
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, "Salvare la partita corrente?");
  EXPECT_EQ(ContatoreMosse, 1u);
  memoria::AccodaRisposta(IDNO);
  Premi({Carattere(ESC), Carattere('n')});
  EXPECT_EQ(ContatoreMosse, 0u);
  // A plain n is a letter for the field.
  Premi({Carattere('n')});
  EXPECT_EQ(Campo(), "n");
  memoria::AccodaRisposta(IDCANCEL);
  Premi({Carattere(ESC), Nome("KEY_F(4)")});
  EXPECT_EQ(memoria::Finestre().back().testo, "Salvare la partita prima di uscire?");
  EXPECT_TRUE(memoria::ConsoleAperta());
}

}  // namespace
