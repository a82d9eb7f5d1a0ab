#include "console/guida.h"

#include <cstring>
#include <string>

#include "ambiente_console.h"
#include "console/avvio.h"
#include "pagina_guida.h"

namespace {

class Guida : public AmbienteConsole {
 protected:
  void TearDown() override { memoria::ImpostaTastiConPrefissi(false); }

  static std::string Pagina() { return memoria::ContenutoFile("leggimi.html"); }

  static size_t Conta(const std::string& testo, const std::string& cercato) {
    size_t n = 0;
    for (size_t i = testo.find(cercato); i != std::string::npos; i = testo.find(cercato, i + 1))
      ++n;
    return n;
  }
};

// A platform where every chord arrives (Windows): the page exactly as
// known, with no line break anywhere.
TEST_F(Guida, SenzaPrefissiLaPaginaEsatta) {
  ScriviElencoComandi();
  EXPECT_EQ(Pagina(), INIZIO_GUIDA + FINE_GUIDA);
  EXPECT_EQ(Pagina().find('\n'), std::string::npos);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_TRUE(memoria::Toni().empty());
  EXPECT_TRUE(memoria::Scritto().empty());
}

// A terminal, where prefixes stand in for the chords: their section follows
// the notes.
TEST_F(Guida, ConIPrefissiLaLoroSezioneSegueLeNote) {
  memoria::ImpostaTastiConPrefissi(true);
  ScriviElencoComandi();
  EXPECT_EQ(Pagina(), INIZIO_GUIDA + SEZIONE_TASTI_ALTERNATIVI + FINE_GUIDA);
  EXPECT_EQ(Pagina().find('\n'), std::string::npos);
}

TEST_F(Guida, VentunoComandiEDieciNote) {
  ScriviElencoComandi();
  const std::string pagina = Pagina();
  EXPECT_EQ(NUMERO_COMANDI, 21);
  // The table of commands; the screen reader's keys follow the notes.
  const std::string comandi = pagina.substr(0, pagina.find("<h3>Note</h3>"));
  EXPECT_EQ(Conta(comandi, "<tr><td scope='row'>"), 21u);
  EXPECT_EQ(Conta(comandi, "</td</tr>"), 21u);
  EXPECT_EQ(Conta(comandi, "<tr>"), 22u);  // the heading row and the data rows
  EXPECT_EQ(Conta(pagina, "</td</tr>"), 21u);

  EXPECT_EQ(NOTE_USATE, 10);
  EXPECT_EQ(NUMERO_NOTE, 16);
  for (int i = 0; i < NUMERO_NOTE; ++i)
    EXPECT_EQ(std::strlen(Nota[i]) > 0, i < NOTE_USATE) << "note " << i + 1;
  const size_t inizio = pagina.find("<h3>Note</h3><p>") + std::strlen("<h3>Note</h3><p>");
  const size_t fine = pagina.find("</p><hr>", inizio);
  ASSERT_NE(fine, std::string::npos);
  std::string note;
  for (int i = 0; i < NOTE_USATE; ++i) note += std::string(Nota[i]) + "<br />";
  EXPECT_EQ(pagina.substr(inizio, fine - inizio), note);
  // Ten line-break tags ending the notes, two more inside note 9.
  EXPECT_EQ(Conta(note, "<br />"), 12u);
}

TEST_F(Guida, NotaTreHaIlByteDelCodicePaginaDiWindows) {
  ScriviElencoComandi();
  const std::string pagina = Pagina();
  EXPECT_NE(pagina.find("si pu\xF2 digitare"), std::string::npos);
  EXPECT_EQ(pagina.find("\xC3\xB2"), std::string::npos);
  EXPECT_EQ(Conta(pagina, "\xF2"), 1u);
  // No control character, no line break: one line of text.
  for (char c : pagina) {
    if (c != '\xF2') {
      EXPECT_GE(static_cast<unsigned char>(c), 0x20u);
      EXPECT_LT(static_cast<unsigned char>(c), 0x7Fu);
    }
  }
}

TEST_F(Guida, LaRigaDeiCreditiEQuellaDellaSchermataIniziale) {
  EXPECT_STREQ(RigaDeiCrediti, "Pendrino 1.0 - il team di Pendrino");
  DisegnaIntestazione();
  const std::string crediti = "Pendrino 1.0 - il team di Pendrino";
  // Centred over the 64 columns of the banner, right of the horse.
  EXPECT_EQ(memoria::Riga(12).substr(15),
            RigaCon(int(64 - crediti.size()) / 2 + 15, crediti).substr(15));
  ScriviElencoComandi();
  EXPECT_NE(Pagina().find("<h2>" + crediti + "</h2>"), std::string::npos);
}

TEST_F(Guida, RiscrittaAOgniAvvio) {
  memoria::ImpostaFile("leggimi.html", "<html>una guida vecchia, modificata a mano</html>");
  inizializza();
  EXPECT_EQ(Pagina(), INIZIO_GUIDA + FINE_GUIDA);

  memoria::ImpostaFile("leggimi.html", std::string(50000, 'x'));
  inizializza();
  EXPECT_EQ(Pagina(), INIZIO_GUIDA + FINE_GUIDA);
}

TEST_F(Guida, DiscoDiSolaLetturaLasciaLaVecchiaPaginaSenzaAvvisi) {
  memoria::ImpostaFile("leggimi.html", "vecchia");
  memoria::ImpostaSolaLettura(true);
  ScriviElencoComandi();
  EXPECT_EQ(Pagina(), "vecchia");
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_TRUE(memoria::Scritto().empty());
}

TEST_F(Guida, DiscoPienoLasciaLaVecchiaPaginaSenzaAvvisi) {
  memoria::ImpostaFile("leggimi.html", "vecchia");
  memoria::ImpostaCapienzaFile(memoria::ContenutoFile("pendrino.ini").size() + 100);
  ScriviElencoComandi();
  EXPECT_EQ(Pagina(), "vecchia");
  EXPECT_TRUE(memoria::Finestre().empty());
}

TEST_F(Guida, TestoTagliatoDaLaLunghezzaIntera) {
  const size_t lunghezza = (INIZIO_GUIDA + FINE_GUIDA).size();
  char corto[16];
  EXPECT_EQ(TestoElencoComandi(corto, sizeof corto), lunghezza);
  EXPECT_STREQ(corto, "<html><head><ti");
  EXPECT_EQ(TestoElencoComandi(nullptr, 0), lunghezza);
}

}  // namespace
