// The journal of the game in progress: its records as written, the game
// rebuilt from them, damaged and cut-short journals, and a disk that refuses.
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "ambiente_partita.h"
#include "clock/cadenza.h"
#include "game/giornale.h"
#include "settings/parametri.h"

namespace {

const char* const GIORNALE = "giornale.txt";

// The line as the journal writes it: payload, " *", FNV-1a in hex, "\n".
std::string Riga(const std::string& carico) {
  uint32_t h = 2166136261u;
  for (unsigned char c : carico) {
    h ^= c;
    h *= 16777619u;
  }
  char coda[16];
  std::snprintf(coda, sizeof coda, " *%08X\n", unsigned(h));
  return carico + coda;
}

std::vector<std::string> Righe(const std::string& testo) {
  std::vector<std::string> righe;
  std::istringstream in(testo);
  for (std::string r; std::getline(in, r);) righe.push_back(r);
  return righe;
}

// Everything a rebuilt game must have as the played one had it.
struct Partita {
  Istantanea posizione;
  std::vector<std::string> testi;
  std::vector<int32_t> tempi_mossa;  // the mover's time after each ply
  std::vector<uint64_t> legali;
  uint32_t ripetizioni, ripetuta[2];
  std::string stato;
  int32_t tempo[2];
  uint32_t in_moto, prima_volta;
  std::string data, ora;
  CadenzaDiGioco cadenza;
  bool operator==(const Partita&) const = default;
};

Partita Fotografia() {
  Partita p{Fotografa(),
            {},
            {},
            ParoleLegali(),
            Ripetizioni,
            {PosizioneRipetuta[0], PosizioneRipetuta[1]},
            Stato(),
            {TempoRimasto[0], TempoRimasto[1]},
            InMoto,
            PrimaVoltaInMoto,
            DataUTC,
            OraUTC,
            CadenzaPartita};
  for (uint64_t n = 1; n <= ContatoreMosse; ++n) {
    p.testi.push_back(ElencoStringaMossa[n]);
    p.tempi_mossa.push_back(TempoDopoMossa[n]);
  }
  return p;
}

class Giornale : public AmbientePartita {
 protected:
  void SetUp() override {
    AmbientePartita::SetUp();
    SospendiGiornale();
    DefaultIni();
    Orologio();
    memoria::ImpostaOraUTC({2026, 11, 23, 9, 5, 7});
  }
  void TearDown() override { SospendiGiornale(); }

  static void Orologio() { CaricaTempoDaiParametri(); }

  // The fresh game the console starts before it reads a journal.
  static void Riparti() {
    SospendiGiornale();
    DefaultIni();
    Orologio();
    Nuova(FenIniziale);
  }

  // Moves as typed, each followed by the journal's look at the game.
  static void Mosse(const std::vector<const char*>& testi) {
    for (const char* t : testi) {
      ASSERT_NE(Gioca(t), "") << t;
      AggiornaGiornale();
    }
  }

  static std::string Contenuto() { return memoria::ContenutoFile(GIORNALE); }

  // The game as it stands comes back whole from its journal after a fresh
  // start, without one box.
  static void SiRicostruisceInSilenzio() {
    const Partita giocata = Fotografia();
    const std::string testo = Contenuto();
    Riparti();
    memoria::Azzera();
    LeggiGiornale(testo.data(), testo.size(), true);
    EXPECT_EQ(Fotografia(), giocata);
    EXPECT_TRUE(memoria::Finestre().empty());
  }
};

// ---------------------------------------------------------------------------
// The records.

TEST_F(Giornale, UnaNuovaPartitaScriveInizioCadenzaEOrologio) {
  AvviaGiornale();
  EXPECT_EQ(Contenuto(), Riga("I 20261123T090507Z 2") + Riga("C 20261123T090507Z 1 40 120 0 30 0") +
                             Riga("T 20261123T090507Z 0 0 7200000 7200000 ? ?"));
}

TEST_F(Giornale, OgniMossaAccodaIlSuoRecordConCoordinateETesto) {
  AvviaGiornale();
  Mosse({"e4", "d5", "exd5"});
  const auto righe = Righe(Contenuto());
  ASSERT_EQ(righe.size(), 6u);
  EXPECT_EQ(righe[3] + "\n", Riga("M 20261123T090507Z 1 e2 e4 - e4"));
  EXPECT_EQ(righe[4] + "\n", Riga("M 20261123T090507Z 2 d7 d5 - d5"));
  EXPECT_EQ(righe[5] + "\n", Riga("M 20261123T090507Z 3 e4 d5 - exd5"));
}

TEST_F(Giornale, NienteCambiatoNienteScritto) {
  AvviaGiornale();
  const std::string prima = Contenuto();
  const size_t scritture = memoria::ScrittureFile();
  AggiornaGiornale();
  AggiornaGiornale();
  EXPECT_EQ(Contenuto(), prima);
  EXPECT_EQ(memoria::ScrittureFile(), scritture);
}

TEST_F(Giornale, RitiroEsitoERevocaHannoIlLoroRecordLeImpostazioniNo) {
  AvviaGiornale();
  Mosse({"e4", "e5"});
  RitiraUltimaMossa();
  AggiornaGiornale();
  Aggiudica("By agreement", "Patta d'accordo", "1/2-1/2");
  AggiornaGiornale();
  RevocaAggiudicazione();
  AggiornaGiornale();
  // A setting changed during the game is the next game's: nothing to keep.
  ImpostaParametro(PARAMETRO_PERIODI, 2);
  AggiornaGiornale();
  const auto righe = Righe(Contenuto());
  ASSERT_EQ(righe.size(), 8u);
  EXPECT_EQ(righe[5] + "\n", Riga("R 20261123T090507Z 1"));
  EXPECT_EQ(righe[6] + "\n", Riga("E 20261123T090507Z 1/2-1/2|By agreement|Patta d'accordo"));
  EXPECT_EQ(righe[7] + "\n", Riga("E 20261123T090507Z *|?|"));
  ImpostaParametro(PARAMETRO_PERIODI, 1);
}

TEST_F(Giornale, LaPromozioneScriveLaSuaLettera) {
  AvviaGiornale();
  Mosse({"a4", "b5", "axb5", "a6", "bxa6", "Bb7", "axb7", "Nc6", "bxa8N"});
  EXPECT_EQ(Righe(Contenuto()).back() + "\n", Riga("M 20261123T090507Z 9 b7 a8 N bxa8=N"));
}

TEST_F(Giornale, OrologioInMotoUnRecordPerSecondoMostrato) {
  AvviaGiornale();
  OrologioInMoto();
  AggiornaGiornale();
  EXPECT_EQ(Righe(Contenuto()).back() + "\n",
            Riga("T 20261123T090507Z 1 1 7200000 7200000 2026.11.23 09:05:07"));
  const size_t righe = Righe(Contenuto()).size();
  memoria::AvanzaMillisecondi(400);
  AggiornaGiornale();  // still the same shown second
  EXPECT_EQ(Righe(Contenuto()).size(), righe);
  memoria::AvanzaMillisecondi(600);
  AggiornaGiornale();
  EXPECT_EQ(Righe(Contenuto()).back() + "\n",
            Riga("T 20261123T090507Z 1 1 7199000 7200000 2026.11.23 09:05:07"));
  for (int s = 0; s < 5; ++s) {
    memoria::AvanzaMillisecondi(1000);
    AggiornaGiornale();
  }
  EXPECT_EQ(Righe(Contenuto()).size(), righe + 6);
  EXPECT_EQ(Righe(Contenuto()).back() + "\n",
            Riga("T 20261123T090507Z 1 1 7194000 7200000 2026.11.23 09:05:07"));
}

// The clock at each move: what the arbiter retraces a game with.
TEST_F(Giornale, IlTempoDopoOgniMossaTornaDalGiornale) {
  AvviaGiornale();
  OrologioInMoto();
  AggiornaGiornale();
  int32_t attesi[5] = {};
  const char* mosse[] = {"e4", "e5", "Nf3", "Nc6"};
  for (int i = 0; i < 4; ++i) {
    memoria::AvanzaMillisecondi(3000 + 1000 * i);
    Mosse({mosse[i]});
    attesi[i + 1] = TempoRimasto[i & 1];
  }
  EXPECT_EQ(TempoDopoMossa[1], 7197000);
  EXPECT_EQ(TempoDopoMossa[4], 7190000);
  for (int p = 1; p <= 4; ++p) EXPECT_EQ(TempoDopoMossa[p], attesi[p]) << p;
  FermaOrologio();
  AggiornaGiornale();
  SiRicostruisceInSilenzio();
}

TEST_F(Giornale, RiscrittoPerInteroIlTempoDiOgniMossaResta) {
  AvviaGiornale();
  OrologioInMoto();
  memoria::AvanzaMillisecondi(2500);
  Mosse({"d4"});
  memoria::AvanzaMillisecondi(4500);
  Mosse({"d5"});
  memoria::AvanzaMillisecondi(1500);
  Mosse({"c4"});
  FermaOrologio();
  // The whole file anew, as after a start that took the game up again.
  AvviaGiornale();
  const auto righe = Righe(Contenuto());
  // I, C, then each move with the time record that fixes its time; the last
  // one's is the clock's own record.
  ASSERT_EQ(righe.size(), 8u) << Contenuto();
  EXPECT_EQ(righe[2] + "\n", Riga("M 20261123T090507Z 1 d2 d4 - d4"));
  EXPECT_EQ(righe[3] + "\n", Riga("T 20261123T090507Z 0 1 7197500 7200000 2026.11.23 09:05:07"));
  EXPECT_EQ(righe[5] + "\n", Riga("T 20261123T090507Z 0 1 7197500 7195500 2026.11.23 09:05:07"));
  SiRicostruisceInSilenzio();
  EXPECT_EQ(TempoDopoMossa[2], 7195500);
}

TEST_F(Giornale, UnTempoCambiatoDopoLaMossaNonELaSuaOra) {
  AvviaGiornale();
  Mosse({"e4"});
  const std::string dopo_la_mossa = Contenuto();
  // Clock stopped: the move needs no record of its own time.
  EXPECT_EQ(Righe(dopo_la_mossa).size(), 4u);
  ModificaTempo(0, 5);
  AggiornaGiornale();
  // The move's own time first, then the arbiter's change.
  const auto righe = Righe(Contenuto());
  ASSERT_EQ(righe.size(), 6u) << Contenuto();
  EXPECT_EQ(righe[4] + "\n", Riga("T 20261123T090507Z 0 0 7200000 7200000 ? ?"));
  EXPECT_EQ(righe[5] + "\n", Riga("T 20261123T090507Z 0 0 7500000 7200000 ? ?"));
  SiRicostruisceInSilenzio();
  EXPECT_EQ(TempoDopoMossa[1], 7200000);
}

TEST_F(Giornale, UnaNuovaPartitaRicominciaIlFile) {
  AvviaGiornale();
  Mosse({"e4", "e5"});
  Nuova(FenIniziale);
  AggiornaGiornale();
  EXPECT_EQ(Righe(Contenuto()).size(), 3u);
  EXPECT_EQ(Contenuto().rfind(Riga("I 20261123T090507Z 2"), 0), 0u);
}

TEST_F(Giornale, LUscitaChiudeIlGiornale) {
  AvviaGiornale();
  Mosse({"e4"});
  EXPECT_FALSE(LeggiFileGiornale(false).chiuso);
  ChiudiGiornale();
  EXPECT_EQ(Righe(Contenuto()).back() + "\n", Riga("F 20261123T090507Z"));
  EXPECT_TRUE(LeggiFileGiornale(false).chiuso);
  EXPECT_FALSE(GiornaleAttivo());
}

// ---------------------------------------------------------------------------
// Reading a line.

TEST_F(Giornale, LaCadenzaDellaPartitaSiRicostruisceLaTabellaResta) {
  ImpostaCadenzaPartita({2, 30, 90, 10, 15, 5});
  AvviaGiornale();
  Mosse({"e4", "e5"});
  EXPECT_EQ(Righe(Contenuto())[1] + "\n", Riga("C 20261123T090507Z 2 30 90 10 15 5"));
  SiRicostruisceInSilenzio();
  EXPECT_STREQ(Cadenza, "30/5400+10:900+5");
  // The settings table is the user's, for the next game.
  EXPECT_EQ(CadenzaDaiParametri(), (CadenzaDiGioco{1, 40, 120, 0, 30, 0}));
}

TEST_F(Giornale, UnGiornaleDelPrimoFormatoPrendeLaCadenzaDalPrimoRecordDiImpostazioni) {
  const std::string testo = Riga("I 20261123T090507Z 1") +
                            Riga("P 20261123T090507Z 2 30 90 10 15 5 1 15 30 60 90 120") +
                            Riga("M 20261123T090507Z 1 e2 e4 - e4") +
                            Riga("P 20261123T090507Z 1 40 120 0 30 0 0 15 30 60 90 120") +
                            Riga("T 20261123T090507Z 0 0 7100000 7200000 ? ?");
  Riparti();
  const EsitoGiornale esito = LeggiGiornale(testo.data(), testo.size(), true);
  EXPECT_FALSE(esito.danneggiato);
  EXPECT_EQ(esito.record, 5u);
  EXPECT_EQ(CadenzaPartita, (CadenzaDiGioco{2, 30, 90, 10, 15, 5}));
  EXPECT_STREQ(Cadenza, "30/5400+10:900+5");
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_EQ(TempoRimasto[0], 7100000);
  EXPECT_EQ(Parametro(PARAMETRO_PERIODI), 1);
  EXPECT_EQ(Parametro(PARAMETRO_AGGIORNAMENTO_AUTOMATICO), 1);
}

TEST_F(Giornale, IRecordDiCadenzaEImpostazioniNonSiMescolanoTraFormati) {
  const std::string c = Riga("C 20261123T090507Z 1 40 120 0 30 0");
  const std::string p = Riga("P 20261123T090507Z 1 40 120 0 30 0 1 15 30 60 90 120");
  const std::string m = Riga("M 20261123T090507Z 1 e2 e4 - e4");
  for (const std::string& testo :
       {Riga("I 20261123T090507Z 1") + c + m, Riga("I 20261123T090507Z 2") + p + m}) {
    Riparti();
    const EsitoGiornale esito = LeggiGiornale(testo.data(), testo.size(), true);
    EXPECT_TRUE(esito.danneggiato) << testo;
    EXPECT_EQ(esito.record, 1u) << testo;
    EXPECT_EQ(ContatoreMosse, 0u) << testo;
  }
}

TEST_F(Giornale, UnaRigaAlterataOSenzaControlloNonSiLegge) {
  RecordGiornale r;
  std::string riga = Riga("M 20261123T090507Z 1 e2 e4 - e4");
  riga.pop_back();
  ASSERT_TRUE(LeggiRigaGiornale(riga.data(), riga.size(), r));
  EXPECT_EQ(r.tipo, 'M');
  EXPECT_EQ(r.colonna[0], 4);
  EXPECT_EQ(r.riga[0], 6);
  EXPECT_STREQ(r.testo, "e4");
  const std::string crlf = riga + "\r";
  EXPECT_TRUE(LeggiRigaGiornale(crlf.data(), crlf.size(), r));
  std::string alterata = riga;
  alterata[21] = 'd';
  EXPECT_FALSE(LeggiRigaGiornale(alterata.data(), alterata.size(), r));
  const std::string senza = "M 20261123T090507Z 1 e2 e4 - e4";
  EXPECT_FALSE(LeggiRigaGiornale(senza.data(), senza.size(), r));
  for (const char* carico :
       {"M 20261123T090507Z 1 e2 e9 - e4", "M 20261123T090507Z 1 e2 e4 K e4",
        "P 20261123T090507Z 3 40 120 0 30 0 1 5 0 0 0 0", "T 20261123T090507Z 2 0 1 1 ? ?",
        "T 20261123T090507Z 0 0 1 1 2026-11-23 ?", "E 20261123T090507Z 2-0|x|y",
        "C 20261123T090507Z 3 40 120 0 30 0", "C 20261123T090507Z 1 40 120 0 30",
        "C 20261123T090507Z 1 40 0 0 30 0", "I 20261123T090507Z 3", "I 20261123T090507Z 0",
        "X 20261123T090507Z", "F 2026112T090507Z", "F 20261123T090507Z 1"}) {
    const std::string r2 = Riga(carico);
    EXPECT_FALSE(LeggiRigaGiornale(r2.data(), r2.size() - 1, r)) << carico;
  }
}

// ---------------------------------------------------------------------------
// Rebuilding.

TEST_F(Giornale, LaPartitaRicostruitaEUgualeAQuellaGiocata) {
  AvviaGiornale();
  OrologioInMoto();
  AggiornaGiornale();
  Mosse({"e4", "e5", "Nf3", "Nc6", "Ng1", "Nb8", "Nf3", "Nc6", "Bc4", "Nf6"});
  memoria::AvanzaMillisecondi(12345);
  FermaOrologio();
  AggiornaGiornale();
  RitiraUltimaMossa();
  AggiornaGiornale();
  Mosse({"Nd4", "Nxe5", "Qg5"});
  ModificaTempo(1, 3);
  AggiornaGiornale();
  Aggiudica("Abandoned", "Il bianco abbandona", "0-1");
  AggiornaGiornale();
  const Partita giocata = Fotografia();
  ASSERT_EQ(giocata.testi.size(), 12u);
  const std::string testo = Contenuto();

  Riparti();
  memoria::Azzera();
  memoria::ImpostaFile(GIORNALE, testo);
  const EsitoGiornale esito = LeggiFileGiornale(true);
  EXPECT_TRUE(esito.inizio);
  EXPECT_FALSE(esito.chiuso);
  EXPECT_FALSE(esito.danneggiato);
  EXPECT_FALSE(esito.troncato);
  EXPECT_EQ(esito.semimossa, 12u);
  const Partita ripresa = Fotografia();
  EXPECT_EQ(ripresa.posizione, giocata.posizione)
      << Differenze(giocata.posizione, ripresa.posizione);
  EXPECT_EQ(ripresa.testi, giocata.testi);
  EXPECT_EQ(ripresa, giocata);
  EXPECT_TRUE(memoria::Finestre().empty());
  EXPECT_TRUE(memoria::Toni().empty());
}

TEST_F(Giornale, RipetizioniEPromozioneSiRicostruiscono) {
  AvviaGiornale();
  Mosse({"Nf3", "Nf6", "Ng1", "Ng8", "Nf3", "Nf6", "Ng1", "Ng8", "a4", "b5", "axb5", "a6", "bxa6",
         "Bb7", "axb7", "Nc6", "bxa8N"});
  RitiraUltimaMossa();
  RitiraUltimaMossa();
  AggiornaGiornale();
  Mosse({"Nc6", "bxa8R"});
  const Partita giocata = Fotografia();
  const std::string testo = Contenuto();
  Riparti();
  const EsitoGiornale esito = LeggiGiornale(testo.data(), testo.size(), true);
  EXPECT_FALSE(esito.danneggiato);
  EXPECT_EQ(Fotografia(), giocata);
}

TEST_F(Giornale, LeRipetizioniDelPannelloTornanoUguali) {
  // The last move makes the position seen twice before: asked live,
  // answered in silence on the way back.
  AvviaGiornale();
  Mosse({"Nf3", "Nf6", "Ng1", "Ng8", "Nf3", "Nf6", "Ng1", "Ng8"});
  ASSERT_EQ(Ripetizioni, 2u);
  SiRicostruisceInSilenzio();
}

TEST_F(Giornale, UnMattoSiRicostruisceSenzaDomande) {
  AvviaGiornale();
  Mosse({"f3", "e5", "g4", "Qh4"});
  ASSERT_TRUE(PartitaAggiudicata());
  SiRicostruisceInSilenzio();
}

TEST_F(Giornale, UnaRigaTroncataInFondoSiLasciaInSilenzio) {
  AvviaGiornale();
  Mosse({"e4", "e5", "Nf3"});
  std::string testo = Contenuto();
  testo.resize(testo.size() - 7);  // the last move cut short
  Riparti();
  const EsitoGiornale esito = LeggiGiornale(testo.data(), testo.size(), true);
  EXPECT_TRUE(esito.troncato);
  EXPECT_FALSE(esito.danneggiato);
  EXPECT_EQ(esito.semimossa, 2u);
  EXPECT_EQ(ContatoreMosse, 2u);
  EXPECT_STREQ(ElencoStringaMossa[2], "e5");
}

TEST_F(Giornale, RigheIncomprensibiliFermanoLaRicostruzione) {
  AvviaGiornale();
  Mosse({"e4", "e5", "Nf3", "Nc6"});
  const auto righe = Righe(Contenuto());
  for (const std::string& guasto : {std::string("spazzatura"), std::string(""),
                                    std::string(5000, 'x'), std::string("\0\1\2", 3)}) {
    std::string testo;
    for (size_t i = 0; i < righe.size(); ++i) {
      if (i == 5) testo += guasto + "\n";
      testo += righe[i] + "\n";
    }
    Riparti();
    const EsitoGiornale esito = LeggiGiornale(testo.data(), testo.size(), true);
    EXPECT_TRUE(esito.danneggiato);
    EXPECT_EQ(esito.semimossa, 2u);
    EXPECT_EQ(ContatoreMosse, 2u);
  }
}

TEST_F(Giornale, UnaMossaIllegaleFermaLaRicostruzioneAllUltimaBuona) {
  const std::string testo = Riga("I 20261123T090507Z 1") + Riga("M 20261123T090507Z 1 e2 e4 - e4") +
                            Riga("M 20261123T090507Z 2 e7 e5 - e5") +
                            Riga("M 20261123T090507Z 3 e4 e5 - e5") +
                            Riga("M 20261123T090507Z 4 d7 d5 - d5");
  const EsitoGiornale esito = LeggiGiornale(testo.data(), testo.size(), true);
  EXPECT_TRUE(esito.danneggiato);
  EXPECT_EQ(esito.semimossa, 2u);
  EXPECT_EQ(ContatoreMosse, 2u);
  // Checking alone does not know the position: it goes on.
  Riparti();
  EXPECT_FALSE(LeggiGiornale(testo.data(), testo.size(), false).danneggiato);
}

TEST_F(Giornale, UnTestoDiversoDaQuelloDellaMossaFermaLaRicostruzione) {
  const std::string testo = Riga("I 20261123T090507Z 1") + Riga("M 20261123T090507Z 1 e2 e4 - e4") +
                            Riga("M 20261123T090507Z 2 g8 f6 - Ng6");
  const Istantanea prima = [] {
    Gioca("e4");
    const Istantanea i = Fotografa();
    RitiraUltimaMossa();
    return i;
  }();
  const EsitoGiornale esito = LeggiGiornale(testo.data(), testo.size(), true);
  EXPECT_TRUE(esito.danneggiato);
  EXPECT_EQ(esito.semimossa, 1u);
  EXPECT_EQ(Fotografa(), prima);
}

TEST_F(Giornale, SenzaInizioNonCeNullaDaRiprendere) {
  for (const std::string& testo :
       {std::string(), std::string("ciao\n"), Riga("M 20261123T090507Z 1 e2 e4 - e4"),
        Riga("F 20261123T090507Z")}) {
    const EsitoGiornale esito = LeggiGiornale(testo.data(), testo.size(), false);
    EXPECT_FALSE(esito.inizio);
    EXPECT_FALSE(esito.danneggiato);
  }
}

TEST_F(Giornale, FineRigaDiWindowsSiLegge) {
  AvviaGiornale();
  Mosse({"e4", "e5"});
  std::string testo;
  for (const std::string& r : Righe(Contenuto())) testo += r + "\r\n";
  const EsitoGiornale esito = LeggiGiornale(testo.data(), testo.size(), false);
  EXPECT_FALSE(esito.danneggiato);
  EXPECT_EQ(esito.record, 5u);
}

// ---------------------------------------------------------------------------
// A disk that refuses.

TEST_F(Giornale, DiscoInSolaLetturaUnSoloAvvisoPerPartitaELaPartitaResta) {
  memoria::ImpostaSolaLettura(true);
  AvviaGiornale();
  Mosse({"e4", "e5"});
  OrologioInMoto();
  for (int s = 0; s < 3; ++s) {
    memoria::AvanzaMillisecondi(1000);
    AggiornaGiornale();
  }
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(memoria::Finestre()[0].testo, TestoGiornaleNonScrivibile);
  EXPECT_EQ(memoria::Finestre()[0].stile, unsigned(MB_OK | MB_ICONINFORMATION));
  EXPECT_EQ(std::string(TestoGiornaleNonScrivibile),
            "Impossibile scrivere il giornale: la partita in corso non e' protetta da "
            "un'interruzione improvvisa.");
  EXPECT_EQ(ContatoreMosse, 2u);
  EXPECT_FALSE(memoria::EsisteFile(GIORNALE));
  // The next game says it once again.
  FermaOrologio();
  Nuova(FenIniziale);
  AggiornaGiornale();
  AggiornaGiornale();
  EXPECT_EQ(memoria::Finestre().size(), 2u);
}

TEST_F(Giornale, UnBattitoNonAvvisaMaLAvvisoArrivaDopo) {
  memoria::ImpostaSolaLettura(true);
  AvviaGiornale();
  ASSERT_EQ(memoria::Finestre().size(), 1u);
  Nuova(FenIniziale);
  AggiornaGiornale(false);
  EXPECT_EQ(memoria::Finestre().size(), 1u);
  AggiornaGiornale();
  EXPECT_EQ(memoria::Finestre().size(), 2u);
}

TEST_F(Giornale, DiscoPienoPoiLiberoIlGiornaleTornaIntero) {
  AvviaGiornale();
  Mosse({"e4"});
  memoria::ImpostaCapienzaFile(Contenuto().size() + 10);  // half a record fits
  Mosse({"e5", "Nf3"});
  EXPECT_EQ(memoria::Finestre().size(), 1u);
  EXPECT_EQ(ContatoreMosse, 3u);
  memoria::ImpostaCapienzaFile(size_t(-1));
  Mosse({"Nc6"});
  EXPECT_EQ(memoria::Finestre().size(), 1u);
  const Partita giocata = Fotografia();
  const std::string testo = Contenuto();
  Riparti();
  const EsitoGiornale esito = LeggiGiornale(testo.data(), testo.size(), true);
  EXPECT_FALSE(esito.danneggiato);
  EXPECT_FALSE(esito.troncato);
  EXPECT_EQ(Fotografia().testi, giocata.testi);
  EXPECT_EQ(Fotografia().posizione, giocata.posizione);
}

TEST_F(Giornale, FileGrandeLettoAPezzi) {
  AvviaGiornale();
  OrologioInMoto();
  for (int s = 0; s < 2000; ++s) {
    memoria::AvanzaMillisecondi(1000);
    AggiornaGiornale();
  }
  Mosse({"e4"});
  ASSERT_GT(Contenuto().size(), 100000u);
  const int32_t tempo = TempoRimastoInMoto(1);
  Riparti();
  const EsitoGiornale esito = LeggiFileGiornale(true);
  EXPECT_FALSE(esito.danneggiato);
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_EQ(TempoRimasto[1], tempo);
  EXPECT_EQ(TempoRimasto[0], 7200000 - 2000 * 1000);
  EXPECT_EQ(InMoto, 0u);  // taken up with the clock stopped
}

}  // namespace
