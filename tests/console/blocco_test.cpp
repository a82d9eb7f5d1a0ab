// One Pendrino per folder: the lock taken at start-up, and a second program
// that says so and leaves without writing a file.
#include <string>

#include "ambiente_console.h"
#include "console/avvio.h"

using namespace piattaforma::win32;

namespace {

class Blocco : public AmbienteConsole {};

TEST_F(Blocco, LAvvioPrendeIlBloccoPrimaDiScrivereLaGuida) {
  memoria::RimuoviFile("pendrino.ini");
  inizializza();
  EXPECT_TRUE(memoria::BloccoPreso(NomeFileBlocco));
  EXPECT_STREQ(NomeFileBlocco, "pendrino.blocco");
  EXPECT_TRUE(memoria::EsisteFile("leggimi.html"));
}

TEST_F(Blocco, UnSecondoPendrinoLoDiceEdEsceSenzaToccareFile) {
  memoria::ImpostaFileBloccato(NomeFileBlocco, true);
  memoria::RimuoviFile("pendrino.ini");
  const size_t scritture = memoria::ScrittureFile();
  try {
    inizializza();
    ADD_FAILURE() << "the second program did not end";
  } catch (const memoria::UscitaProcesso& uscita) {
    EXPECT_EQ(uscita.codice, 1u);
  }
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo,
            "Pendrino e' gia' aperto in questa cartella: chiudere l'altro Pendrino prima di "
            "avviarne un altro qui.");
  EXPECT_EQ(memoria::Finestre()[0].stile, unsigned(MB_OK | MB_ICONINFORMATION));
  EXPECT_EQ(memoria::ScrittureFile(), scritture);
  EXPECT_FALSE(memoria::EsisteFile("leggimi.html"));
  EXPECT_FALSE(memoria::EsisteFile("pendrino.ini"));
  EXPECT_FALSE(memoria::EsisteFile("giornale.txt"));
  EXPECT_FALSE(memoria::ConsoleAperta());
}

}  // namespace
