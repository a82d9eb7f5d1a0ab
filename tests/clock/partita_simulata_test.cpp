// A whole game as the program plays it: 40 moves in 120 minutes with 30 s a
// move, then 30 minutes with 10 s a move. White spends 180 s on each of its
// first 39 moves and runs short later; Black always spends 60 s. The clock
// starts 2.5 hours before the 32-bit millisecond count wraps.
#include <gmock/gmock.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ambiente_orologio.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PartitaSimulata : public AmbienteOrologio {
 protected:
  void SetUp() override {
    AmbienteOrologio::SetUp();
    ImpostaParametro(PARAMETRO_INCREMENTO_PRIMO_PERIODO, 30);
    ImpostaParametro(PARAMETRO_INCREMENTO_SECONDO_PERIODO, 10);
    ImpostaParametro(PARAMETRO_ALLARME1, 20);
    ImpostaParametro(PARAMETRO_ALLARME1 + 1, 5);
    ImpostaParametro(PARAMETRO_ALLARME1 + 2, 1);
    ImpostaParametro(PARAMETRO_ALLARME1 + 3, 1);    // shares a minute: sounds once
    ImpostaParametro(PARAMETRO_ALLARME1 + 4, 200);  // more than anybody ever has
    NuovaPartita();
    memoria::ImpostaMillisecondi(0x100000000ull - 9000000);
    OrologioInMoto();
    Diario.clear();
    toni_visti = memoria::Toni().size();
  }

  // What sounded or fell, in order, with the mover's remaining time:
  // "bianco 1200 s, 1200000 ms: 1000/100 1000/100",
  // "nero 40a mossa: 3000/5 1000/100 3000/5", "bianco 0 s, 0 ms: bandierina".
  std::vector<std::string> Diario;
  size_t toni_visti = 0;

  void Annota(const std::string& quando) {
    const std::vector<std::string> nuovi = Toni(toni_visti);
    toni_visti = memoria::Toni().size();
    if (nuovi.empty()) return;
    std::string riga = quando + ":";
    for (const std::string& tono : nuovi) riga += " " + tono;
    Diario.push_back(riga);
  }

  // The loop's turns while the side to move thinks for `millisecondi`.
  void Pensa(int64_t millisecondi) {
    const int colore = int(ContatoreMosse & 1);
    while (millisecondi > 0) {
      const int64_t passo = std::min<int64_t>(AttesaProssimoSecondo(), millisecondi);
      memoria::AvanzaMillisecondi(uint64_t(passo));
      millisecondi -= passo;
      const bool caduta = AggiornaTempoVisualizzato(colore);
      const int32_t rimasto = TempoRimastoInMoto(colore);
      const std::string quando = std::string(StringaColore[colore]) + " " +
                                 std::to_string(SecondiInMillisecondi(rimasto)) + " s, " +
                                 std::to_string(rimasto) + " ms";
      Annota(quando);
      if (caduta) Diario.push_back(quando + ": bandierina");
    }
  }

  // Thinks, moves and presses; what the press asked the display to show.
  std::vector<std::string> Mossa(int64_t millisecondi) {
    Pensa(millisecondi);
    const int colore = int(ContatoreMosse & 1);
    Disegni.clear();
    Muovi();
    const uint64_t numero = (ContatoreMosse + 1) >> 1;
    Annota(std::string(StringaColore[colore]) + " " + std::to_string(numero) + "a mossa");
    return Disegni;
  }
};

TEST_F(PartitaSimulata, DuePeriodiConIncrementiFinoAllaCadutaDellaBandierina) {
  EXPECT_STREQ(Cadenza, "40/7200+30:1800+10");
  const uint32_t partenza = Adesso();

  // First period: each side gains its 30 s after every move, and the press
  // shows the mover's new time and the other side's as it starts to run.
  for (int n = 1; n <= 38; ++n) {
    EXPECT_THAT(Mossa(180000), ElementsAre("tempo 0 " + std::to_string(7200 - n * 150),
                                           "tempo 1 " + std::to_string(7200 - (n - 1) * 30)))
        << n;
    EXPECT_THAT(Mossa(60000), ElementsAre("tempo 1 " + std::to_string(7200 - n * 30),
                                          "tempo 0 " + std::to_string(7200 - n * 150)))
        << n;
  }
  EXPECT_THAT(Mossa(180000), ElementsAre("tempo 0 1350", "tempo 1 6060"));  // White's 39th
  EXPECT_EQ(TempoRimasto[0], 1350000);
  EXPECT_THAT(Mossa(60000), ElementsAre("tempo 1 6030", "tempo 0 1350"));
  EXPECT_EQ(TempoRimasto[1], 6030000);
  EXPECT_THAT(Diario, IsEmpty());

  // The 40th move of each side brings the second period and its 30 minutes;
  // the 40th move itself still earns the first increment.
  EXPECT_THAT(Mossa(200000), ElementsAre("tempo 0 2980", "tempo 1 6030"));  // 1150 + 30 + 1800
  EXPECT_EQ(TempoRimasto[0], 2980000);
  EXPECT_THAT(Mossa(60000), ElementsAre("tempo 1 7800", "tempo 0 2980"));  // 5970 + 30 + 1800
  EXPECT_EQ(TempoRimasto[1], 7800000);

  // From the 41st move on, 10 s a move.
  EXPECT_THAT(Mossa(100000), ElementsAre("tempo 0 2890", "tempo 1 7800"));
  EXPECT_THAT(Mossa(60000), ElementsAre("tempo 1 7750", "tempo 0 2890"));
  EXPECT_THAT(Mossa(2605000), ElementsAre("tempo 0 295", "tempo 1 7750"));
  EXPECT_THAT(Mossa(60000), ElementsAre("tempo 1 7700", "tempo 0 295"));
  EXPECT_EQ(TempoRimasto[0], 295000);
  EXPECT_EQ(TempoRimasto[1], 7700000);

  // White's 43rd move never comes: the flag falls, the arbiter lets the
  // game go on, and White's time runs into the negative.
  Pensa(295000 + 2500);
  EXPECT_EQ(TempoRimastoInMoto(0), -2500);
  EXPECT_EQ(TempoVisualizzato[0], -2);
  EXPECT_EQ(TempoRimasto[1], 7700000);
  EXPECT_LT(Adesso(), partenza);  // the count wrapped on the way

  const std::string DOPPIO = ": " + BIP + " " + BIP;
  const std::string CAMBIO = ": " + PERIODO + " " + BIP + " " + PERIODO;
  EXPECT_THAT(Diario, ElementsAre("bianco 1200 s, 1200000 ms" + DOPPIO,  // in the 40th move
                                  "bianco 40a mossa" + CAMBIO,           //
                                  "nero 40a mossa" + CAMBIO,             //
                                  "bianco 1200 s, 1200000 ms" + DOPPIO,  // ahead again
                                  "bianco 300 s, 300000 ms" + DOPPIO,    //
                                  "bianco 60 s, 60000 ms" + DOPPIO,      // two alarms, one sound
                                  "bianco 3 s, 3000 ms: " + BIP,         //
                                  "bianco 2 s, 2000 ms: " + BIP,         //
                                  "bianco 1 s, 1000 ms: " + BIP,         //
                                  "bianco 0 s, 0 ms: bandierina"));
}

TEST_F(PartitaSimulata, IlBiancoScorreSecondoPerSecondoEIlNeroFermo) {
  Disegni.clear();
  Pensa(3500);
  EXPECT_THAT(Disegni, ElementsAre("tempo 0 7199", "tempo 0 7198", "tempo 0 7197"));
  Disegni.clear();
  Muovi();
  // 7196.5 s + 30 s, rounded up; Black's as it starts.
  EXPECT_THAT(Disegni, ElementsAre("tempo 0 7227", "tempo 1 7200"));
  Disegni.clear();
  Pensa(1000);
  EXPECT_THAT(Disegni, ElementsAre("tempo 1 7199"));
  EXPECT_EQ(TempoRimasto[0], 7226500);
}

}  // namespace
