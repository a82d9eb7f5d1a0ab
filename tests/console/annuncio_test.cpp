// The announcement line: every action says what it did, in one sentence
// whose first word is the news, at the top of the panels.
#include <string>
#include <utility>

#include "partita_da_tastiera.h"
#include "verifiche/toni.h"

namespace {

constexpr DWORD CTRL = LEFT_CTRL_PRESSED;
constexpr DWORD ALT = LEFT_ALT_PRESSED;

class AnnuncioDellAzione : public PartitaDaTastiera {
 protected:
  static void CursoreAlCampo() {
    EXPECT_EQ(memoria::CursoreX(), x_comando + int(CharatteriInComando));
    EXPECT_EQ(memoria::CursoreY(), y_comando);
  }
};

TEST_F(AnnuncioDellAzione, AllAvvioNuovaPartita) { EXPECT_EQ(Annuncio(), "Nuova partita."); }

TEST_F(AnnuncioDellAzione, LaMossaPrimaColSuoTestoPoiInParole) {
  Mossa("e4");
  EXPECT_EQ(Annuncio(), "e4: pedone da e2 in e4.");
  EXPECT_EQ(UltimoAnnuncio(), std::string("e4: pedone da e2 in e4."));
  CursoreAlCampo();
  Mosse({"e5", "Nf3", "Nc6", "Bc4", "Nf6"});
  EXPECT_EQ(Annuncio(), "Nf6: cavallo da g8 in f6.");
  Mosse({"Ng5", "d5", "exd5", "Nxd5"});
  Mossa("Nxf7");
  EXPECT_EQ(Annuncio(), "Nxf7: cavallo da g5 in f7, cattura pedone.");
  Mossa("Kxf7");
  Mossa("Qf3");
  EXPECT_EQ(Annuncio(), "Qf3+: donna da d1 in f3, scacco.");
}

TEST_F(AnnuncioDellAzione, IlMattoELaSuaNotizia) {
  Mosse({"f3", "e5", "g4"});
  Mossa("Qh4");
  // The sentence comes before the notice box: the box finds it on screen.
  EXPECT_EQ(Annuncio(), "Qh4#: donna da d8 in h4, scaccomatto.");
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, "scaccomatto, partita aggiudicata ( 0-1 ).");
}

TEST_F(AnnuncioDellAzione, UnaMossaRifiutataEUnTestoNonValido) {
  Mossa("Ke3");
  EXPECT_EQ(Annuncio(), "Mossa non legale: Ke3.");
  Mossa("zz");
  EXPECT_EQ(Annuncio(), "Comando non valido: zz.");
  EXPECT_EQ(memoria::Finestre().size(), 2u);
}

TEST_F(AnnuncioDellAzione, IlRitiroDiceLaMossaRitirata) {
  Mosse({"e4", "e5", "Nf3"});
  Ritira();
  EXPECT_EQ(Annuncio(), "Ritirata: Nf3, cavallo da g1 in f3.");
  CursoreAlCampo();
}

TEST_F(AnnuncioDellAzione, LOrologioInMotoEFermo) {
  Tasto(VK_RETURN, CTRL);
  EXPECT_EQ(Annuncio(), "Orologio in moto.");
  Tasto(VK_RETURN, CTRL | SHIFT_PRESSED);
  EXPECT_EQ(Annuncio(), "Orologio fermo.");
}

TEST_F(AnnuncioDellAzione, UnaImpostazioneDellaCadenzaValeDallaProssimaPartita) {
  Digita("90");
  memoria::AccodaRisposta(IDYES);
  Tasto('1', CTRL);
  EXPECT_EQ(Annuncio(), "Impostato: tempo primo periodo 90 minuti, dalla prossima partita.");
  Digita("10");
  memoria::AccodaRisposta(IDYES);
  Tasto('1', ALT);
  EXPECT_EQ(Annuncio(), "Impostato: primo allarme 10 minuti.");
  // Refused by the arbiter: nothing said, the line as it was.
  Digita("20");
  memoria::AccodaRisposta(IDNO);
  Tasto('2', ALT);
  EXPECT_EQ(Annuncio(), "Impostato: primo allarme 10 minuti.");
}

TEST_F(AnnuncioDellAzione, UnTempoCambiatoDiceIlNuovoTempo) {
  Digita("5");
  Tasto(VK_UP);  // Black's time
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_ADD, CTRL);
  EXPECT_EQ(Annuncio(), "Aggiunti 5 minuti al nero: 2 ore e 5 minuti.");
  Digita("1");
  Tasto(VK_UP);
  Tasto(VK_UP);  // White's time
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_SUBTRACT, CTRL);
  EXPECT_EQ(Annuncio(), "Tolti 1 minuto al bianco: un'ora e 59 minuti.");
}

TEST_F(AnnuncioDellAzione, IlSalvataggioEIlSuoFallimento) {
  Mossa("e4");
  Tasto('S', ALT);
  EXPECT_EQ(Annuncio(), "Salvata: partita.pgn.");
  Tasto(VK_F5);
  EXPECT_EQ(Annuncio(), "Scritto: ListaMosse.txt.");
  memoria::ImpostaSolaLettura(true);
  Tasto('S', ALT);
  EXPECT_EQ(Annuncio(), "Non salvata: partita.pgn, scrittura non permessa.");
  Tasto(VK_F5);
  EXPECT_EQ(Annuncio(), "Non scritto: ListaMosse.txt, scrittura non permessa.");
}

TEST_F(AnnuncioDellAzione, IlPercheDelSalvataggioMancato) {
  Mossa("e4");
  const std::pair<piattaforma::ErroreFile, const char*> casi[] = {
      {piattaforma::ErroreFile::DiscoPieno, "Non salvata: partita.pgn, disco pieno."},
      {piattaforma::ErroreFile::NonUnFile,
       "Non salvata: partita.pgn, al suo posto c'e' una cartella."},
      {piattaforma::ErroreFile::Altro, "Non salvata: partita.pgn, impossibile scriverlo."},
      {piattaforma::ErroreFile::Permesso, "Non salvata: partita.pgn, scrittura non permessa."}};
  for (const auto& [motivo, frase] : casi) {
    memoria::ImpostaGuastoFile("partita.pgn", motivo);
    Tasto('S', ALT);
    EXPECT_EQ(Annuncio(), frase);
  }
  memoria::ImpostaGuastoFile("partita.pgn", piattaforma::ErroreFile::Nessuno);
  Tasto('S', ALT);
  EXPECT_EQ(Annuncio(), "Salvata: partita.pgn.");
}

TEST_F(AnnuncioDellAzione, AggiudicazioneERevoca) {
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_F8);
  EXPECT_EQ(Annuncio(), "Aggiudicata: Il bianco abbandona, 0-1.");
  memoria::AccodaRisposta(IDYES);
  Mossa("e4");
  // Revoked, then the move: the move is the last news.
  EXPECT_EQ(Annuncio(), "e4: pedone da e2 in e4.");
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_F12);
  memoria::AccodaRisposta(IDYES);
  Tasto(VK_RETURN, CTRL);
  EXPECT_EQ(Annuncio(), "Orologio in moto.");
}

TEST_F(AnnuncioDellAzione, UnaNuovaPartita) {
  Mossa("e4");
  memoria::AccodaRisposta(IDNO);
  Tasto('N', ALT);
  EXPECT_EQ(Annuncio(), "Nuova partita.");
}

TEST_F(AnnuncioDellAzione, UnaFraseLungaVaACapoSuUnoSpazio) {
  Annuncia(
      "Una frase lunga che non sta in una riga sola dello schermo, perche' ha piu' di ottanta "
      "caratteri in tutto.");
  const std::string prima =
      "Una frase lunga che non sta in una riga sola dello schermo, perche' ha piu' di";
  EXPECT_EQ(memoria::Riga(y_bordo_superiore), prima + std::string(80 - prima.size(), ' '));
  EXPECT_EQ(memoria::Riga(y_bordo_superiore + 1).substr(0, 31), "ottanta caratteri in tutto.    ");
  // A short one blanks both lines' rest.
  Annuncia("Breve.");
  EXPECT_EQ(memoria::Riga(y_bordo_superiore), "Breve." + std::string(74, ' '));
  EXPECT_EQ(memoria::Riga(y_bordo_superiore + 1), std::string(80, ' '));
  CursoreAlCampo();
}

TEST_F(AnnuncioDellAzione, LaCimaDelFuocoRileggeLAnnuncio) {
  Mossa("e4");
  Tasto(VK_HOME);
  EXPECT_EQ(memoria::CursoreX(), 0);
  EXPECT_EQ(memoria::CursoreY(), y_bordo_superiore);
  EXPECT_EQ(memoria::Riga(y_bordo_superiore).substr(0, 23), "e4: pedone da e2 in e4.");
}

}  // namespace
