#include <cstdint>
#include <limits>

#include "ambiente_orologio.h"

namespace {

class OrologioAttesa : public AmbienteOrologio {};

TEST_F(OrologioAttesa, SecondiArrotondatiPerEccesso) {
  EXPECT_EQ(SecondiInMillisecondi(1), 1);
  EXPECT_EQ(SecondiInMillisecondi(0), 0);
  EXPECT_EQ(SecondiInMillisecondi(-999), 0);
  EXPECT_EQ(SecondiInMillisecondi(-1000), -1);
  EXPECT_EQ(SecondiInMillisecondi(-1), 0);
  EXPECT_EQ(SecondiInMillisecondi(-1001), -1);
  EXPECT_EQ(SecondiInMillisecondi(-1999), -1);
  EXPECT_EQ(SecondiInMillisecondi(-2000), -2);
  EXPECT_EQ(SecondiInMillisecondi(999), 1);
  EXPECT_EQ(SecondiInMillisecondi(1000), 1);
  EXPECT_EQ(SecondiInMillisecondi(1001), 2);
  EXPECT_EQ(SecondiInMillisecondi(5400000), 5400);
  EXPECT_EQ(SecondiInMillisecondi(std::numeric_limits<int32_t>::max()), 2147484);
  EXPECT_EQ(SecondiInMillisecondi(std::numeric_limits<int32_t>::min()), -2147483);
}

TEST_F(OrologioAttesa, FermoSiAttendeSoloLaTastiera) {
  InMoto = 0;
  TempoRimasto[0] = 1234;
  EXPECT_EQ(AttesaProssimoSecondo(), -1);
}

TEST_F(OrologioAttesa, InMotoSiAttendeFinoAlCambioDelSecondoMostrato) {
  memoria::ImpostaMillisecondi(77777);
  InMoto = 1;
  InizioTempo = Adesso();
  struct Caso {
    int32_t rimasto;
    int64_t attesa;
  } casi[] = {
      {90500, 500}, {90000, 1000}, {90001, 1},    {1, 1},       {0, 1000},
      {-1, 999},    {-999, 1},     {-1000, 1000}, {-1500, 500}, {5400000, 1000},
  };
  for (const Caso& c : casi) {
    TempoRimasto[0] = c.rimasto;
    EXPECT_EQ(AttesaProssimoSecondo(), c.attesa) << c.rimasto;
    // After exactly that wait the shown second is a different one, and one
    // millisecond earlier it was still the same.
    const int32_t s = SecondiInMillisecondi(c.rimasto);
    EXPECT_NE(SecondiInMillisecondi(int32_t(c.rimasto - c.attesa)), s) << c.rimasto;
    EXPECT_EQ(SecondiInMillisecondi(int32_t(c.rimasto - c.attesa + 1)), s) << c.rimasto;
  }
}

TEST_F(OrologioAttesa, IlTempoCheScorreAccorciaLAttesa) {
  memoria::ImpostaMillisecondi(10000);
  InMoto = 1;
  InizioTempo = Adesso();
  TempoRimasto[0] = 60000;
  EXPECT_EQ(AttesaProssimoSecondo(), 1000);
  memoria::AvanzaMillisecondi(250);
  EXPECT_EQ(TempoRimastoInMoto(0), 59750);
  EXPECT_EQ(AttesaProssimoSecondo(), 750);
  memoria::AvanzaMillisecondi(750);
  EXPECT_EQ(AttesaProssimoSecondo(), 1000);
}

TEST_F(OrologioAttesa, ContaIlLatoAlTratto) {
  memoria::ImpostaMillisecondi(0);
  InMoto = 1;
  InizioTempo = Adesso();
  TempoRimasto[0] = 60000;
  TempoRimasto[1] = 30300;
  PortaAllaSemimossa(0);
  EXPECT_EQ(AttesaProssimoSecondo(), 1000);
  PortaAllaSemimossa(7);
  EXPECT_EQ(AttesaProssimoSecondo(), 300);
}

TEST_F(OrologioAttesa, LoScavalcoDeiTrentaduebitNonDisturba) {
  // The 32-bit millisecond count wraps about every 49.7 days.
  memoria::ImpostaMillisecondi(0xFFFFFF00ull);
  InMoto = 1;
  InizioTempo = Adesso();
  TempoRimasto[0] = 10000;
  memoria::AvanzaMillisecondi(0x100 + 200);  // past the wrap
  EXPECT_EQ(TempoRimastoInMoto(0), 10000 - 0x100 - 200);
  EXPECT_EQ(AttesaProssimoSecondo(), (10000 - 0x100 - 200) % 1000);
}

}  // namespace
