#include "game/file_partita.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <string>

#include "board/posizione.h"
#include "clock/cadenza.h"
#include "clock/orologio.h"
#include "game/aggiudicazione.h"
#include "game/partita.h"
#include "piattaforma/memoria/memoria.h"
#include "settings/parametri.h"
#include "supporto/stati.h"
#include "supporto/testo.h"
#include "verifiche/pgn_extract.h"

namespace {

// The expected files are written out in full below, independent of the code;
// only the line ends follow the platform (SulDisco), as the files are text.

// The tag section as the game leaves it, up to the PlyCount tag.
std::string Etichette(const std::string& termination, const std::string& result,
                      const std::string& ora, const std::string& data, const std::string& cadenza,
                      int semimosse) {
  return "\n"
         "[Event \"?\"]\n"
         "[White \"?\"]\n"
         "[Black \"?\"]\n"
         "[WhiteHelo \"?\"]\n"
         "[BlackHelo \"?\"]\n"
         "[Termination \"" +
         termination +
         "\"]\n"
         "[Result \"" +
         result +
         "\"]\n"
         "[UTCTime \"" +
         ora +
         "\"]\n"
         "[UTCDate \"" +
         data +
         "\"]\n"
         "[TimeControl \"" +
         cadenza +
         "\"]\n"
         "[Mode \"TC\"]\n"
         "[PlyCount \"" +
         std::to_string(semimosse) +
         "\"]\n"
         "[Annotator \"Pendrino1.0\"]\n";
}

class FilePartita : public ::testing::Test {
 protected:
  void SetUp() override { Ricomincia(); }

  static void Ricomincia() {
    memoria::Azzera();
    SegnaOrologioInMoto(false);
    RevocaAggiudicazione();
    AzzeraTempoUTC();
    DefaultIni();
    DefaultTabella(TabellaPreferenze);
    ImpostaCadenzaPartita(CadenzaDaiParametri());
    PortaAllaSemimossa(0);
    std::memset(ElencoStringaMossa, 0, sizeof ElencoStringaMossa);
  }

  // The moves as the notation writes them, one slot a ply from slot 1.
  static void Gioca(std::initializer_list<const char*> mosse) {
    for (const char* mossa : mosse) {
      PortaAllaSemimossa(ContatoreMosse + 1);
      const size_t lunghezza = std::min(std::strlen(mossa), size_t(LUNGHEZZA_STRINGA_MOSSA - 1));
      std::memcpy(ElencoStringaMossa[ContatoreMosse], mossa, lunghezza);
      ElencoStringaMossa[ContatoreMosse][lunghezza] = 0;
    }
  }

  static void Salva() {
    SalvaPartita();
    ScriviElencoMosse();
  }
  static std::string Pgn() { return memoria::ContenutoFile("partita.pgn"); }
  static std::string Elenco() { return memoria::ContenutoFile("ListaMosse.txt"); }

  // Saving is silent: no box, no tone, nothing on the screen.
  static void NessunSegno() {
    EXPECT_TRUE(memoria::Finestre().empty());
    EXPECT_TRUE(memoria::Toni().empty());
    EXPECT_TRUE(memoria::Scritto().empty());
  }
};

// ---------------------------------------------------------------------------
// Names.

TEST_F(FilePartita, NomiDeiFileEAnnotatore) {
  EXPECT_STREQ(NomeFilePartita, "partita.pgn");
  EXPECT_STREQ(NomeFileListaMosse, "ListaMosse.txt");
  EXPECT_STREQ(NomeAnnotatore, "Pendrino1.0");
}

TEST_F(FilePartita, INomiNelleEtichetteSitoETurnoSoloSeDati) {
  ImpostaNome(NOME_BIANCO, "Rossi, Mario");
  ImpostaNome(NOME_NERO, "Anna \"la rossa\" Bianchi \\ 2");
  Gioca({"e4"});
  Salva();
  const std::string pgn = Pgn();
  EXPECT_NE(pgn.find(SulDisco("\n[Event \"?\"]\n[White \"Rossi, Mario\"]\n"
                              "[Black \"Anna \\\"la rossa\\\" Bianchi \\\\ 2\"]\n")),
            std::string::npos)
      << pgn;
  EXPECT_EQ(pgn.find("[Site "), std::string::npos);
  EXPECT_EQ(pgn.find("[Round "), std::string::npos);
  ImpostaNome(NOME_EVENTO, "Open di Roma");
  ImpostaNome(NOME_LUOGO, "Roma");
  ImpostaNome(NOME_TURNO, "5");
  Salva();
  EXPECT_NE(Pgn().find(SulDisco("\n[Event \"Open di Roma\"]\n[Site \"Roma\"]\n[Round \"5\"]\n"
                                "[White \"Rossi, Mario\"]\n")),
            std::string::npos)
      << Pgn();
}

// ---------------------------------------------------------------------------
// Whole files.

TEST_F(FilePartita, NoveMosseLaNonaApreLaSecondaRiga) {
  memoria::ImpostaOraUTC({2026, 11, 23, 9, 5, 0});
  StampaTempoUTC();
  Gioca({"e4", "e5", "Nf3", "Nc6", "Bb5", "a6", "Ba4", "Nf6", "0-0", "Be7", "Re1", "b5", "Bb3",
         "d6", "c3", "0-0", "h3", "Nb8"});
  Salva();
  EXPECT_EQ(Pgn(),
            SulDisco(Etichette("?", "*", "09:05:00", "2026.11.23", "7200", 18) +
                     "\n"
                     " 1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Ba4 Nf6 5. 0-0 Be7 6. Re1 b5 7. Bb3 d6 "
                     "8. c3 0-0\n"
                     " 9. h3 Nb8\n"
                     "*\n"));
  EXPECT_EQ(Elenco(), SulDisco("\n"
                               " 1. e4 e5\n"
                               " 2. Nf3 Nc6\n"
                               " 3. Bb5 a6\n"
                               " 4. Ba4 Nf6\n"
                               " 5. 0-0 Be7\n"
                               " 6. Re1 b5\n"
                               " 7. Bb3 d6\n"
                               " 8. c3 0-0\n"
                               " 9. h3 Nb8\n"));
  NessunSegno();
}

TEST_F(FilePartita, PartitaCheFinisceSullaMossaDelBianco) {
  ImpostaParametro(PARAMETRO_PERIODI, 2);
  ImpostaParametro(PARAMETRO_MOSSE_PRIMO_PERIODO, 40);
  ImpostaParametro(PARAMETRO_TEMPO_PRIMO_PERIODO, 120);
  ImpostaParametro(PARAMETRO_TEMPO_SECONDO_PERIODO, 30);
  ImpostaCadenzaPartita(CadenzaDaiParametri());
  Gioca({"d4", "d5", "c4", "e6", "Nc3", "Nf6", "Bg5", "Be7", "e3", "0-0", "Nf3", "Nbd7", "Rc1",
         "c6", "Bd3", "dxc4", "Bxc4"});
  Aggiudica("Abandoned", "Il nero abbandona", "1-0");
  Salva();
  EXPECT_EQ(Pgn(),
            SulDisco(Etichette("Abandoned", "1-0", "?", "?", "40/7200:1800", 17) +
                     "\n"
                     " 1. d4 d5 2. c4 e6 3. Nc3 Nf6 4. Bg5 Be7 5. e3 0-0 6. Nf3 Nbd7 7. Rc1 c6 "
                     "8. Bd3 dxc4\n"
                     " 9. Bxc4\n"
                     "{Il nero abbandona} 1-0\n"));
  EXPECT_EQ(Elenco(), SulDisco("\n"
                               " 1. d4 d5\n"
                               " 2. c4 e6\n"
                               " 3. Nc3 Nf6\n"
                               " 4. Bg5 Be7\n"
                               " 5. e3 0-0\n"
                               " 6. Nf3 Nbd7\n"
                               " 7. Rc1 c6\n"
                               " 8. Bd3 dxc4\n"
                               " 9. Bxc4\n"));
}

TEST_F(FilePartita, ArrocchiEnPassantESottopromozione) {
  Gioca({"e4", "d5", "e5", "f5", "exf6", "Nc6", "fxg7", "Be6", "gxh8=N", "Qd7", "Nf3", "0-0-0",
         "Be2", "d4", "0-0", "h5"});
  Salva();
  EXPECT_EQ(Pgn(), SulDisco(Etichette("?", "*", "?", "?", "7200", 16) +
                            "\n"
                            " 1. e4 d5 2. e5 f5 3. exf6 Nc6 4. fxg7 Be6 5. gxh8=N Qd7 6. Nf3 0-0-0 "
                            "7. Be2 d4 8. 0-0 h5\n"
                            "*\n"));
  EXPECT_EQ(Elenco(), SulDisco("\n"
                               " 1. e4 d5\n"
                               " 2. e5 f5\n"
                               " 3. exf6 Nc6\n"
                               " 4. fxg7 Be6\n"
                               " 5. gxh8=N Qd7\n"
                               " 6. Nf3 0-0-0\n"
                               " 7. Be2 d4\n"
                               " 8. 0-0 h5\n"));
}

TEST_F(FilePartita, MattoInDueConIlCommentoDelRisultato) {
  Gioca({"f3", "e5", "g4", "Qh4#"});
  Aggiudica("Checkmate", "scaccomatto", "0-1");
  Salva();
  EXPECT_EQ(Pgn(),
            SulDisco(Etichette("Checkmate", "0-1", "?", "?", "7200", 4) + "\n"
                                                                          " 1. f3 e5 2. g4 Qh4#\n"
                                                                          "{scaccomatto} 0-1\n"));
  EXPECT_EQ(Elenco(), SulDisco("\n"
                               " 1. f3 e5\n"
                               " 2. g4 Qh4#\n"));
}

TEST_F(FilePartita, PartitaVuotaSoloLAsterisco) {
  Salva();
  EXPECT_EQ(Pgn(), SulDisco(Etichette("?", "*", "?", "?", "7200", 0) + "\n"
                                                                       "*\n"));
  EXPECT_EQ(Elenco(), SulDisco("\n"));
  NessunSegno();
}

TEST_F(FilePartita, PlyCountContaLeSemimosse) {
  Gioca({"e4"});
  Salva();
  EXPECT_EQ(Pgn(), SulDisco(Etichette("?", "*", "?", "?", "7200", 1) + "\n"
                                                                       " 1. e4\n"
                                                                       "*\n"));
  EXPECT_EQ(Elenco(), SulDisco("\n"
                               " 1. e4\n"));
}

TEST_F(FilePartita, PrimaCheLOrologioPartaOraEDataSonoPuntiDiDomanda) {
  Gioca({"e4", "c5"});
  memoria::ImpostaOraUTC({2026, 1, 2, 3, 4, 5});
  Salva();
  EXPECT_NE(Pgn().find(SulDisco("[UTCTime \"?\"]\n[UTCDate \"?\"]\n")), std::string::npos);

  // Once stamped, the stamp stays through later saves; a new game clears it.
  StampaTempoUTC();
  memoria::ImpostaOraUTC({2027, 12, 31, 23, 59, 59});
  Salva();
  EXPECT_NE(Pgn().find(SulDisco("[UTCTime \"03:04:05\"]\n[UTCDate \"2026.01.02\"]\n")),
            std::string::npos);
  AzzeraTempoUTC();
  Salva();
  EXPECT_NE(Pgn().find(SulDisco("[UTCTime \"?\"]\n[UTCDate \"?\"]\n")), std::string::npos);
}

TEST_F(FilePartita, AggiudicazioneRevocataScriveUnaPartitaAperta) {
  Gioca({"f3", "e5", "g4", "Qh4#"});
  Aggiudica("Checkmate", "scaccomatto", "0-1");
  RevocaAggiudicazione();
  Salva();
  EXPECT_EQ(Pgn(), SulDisco(Etichette("?", "*", "?", "?", "7200", 4) + "\n"
                                                                       " 1. f3 e5 2. g4 Qh4#\n"
                                                                       "*\n"));
  EXPECT_EQ(Pgn().find('{'), std::string::npos);
}

TEST_F(FilePartita, OgniTerminazioneComeLAggiudicazioneLaScrive) {
  Gioca({"e4", "e5"});
  Aggiudica("time forfeit", "al bianco e' finito il tempo", "0-1");
  Salva();
  EXPECT_EQ(Pgn(), SulDisco(Etichette("time forfeit", "0-1", "?", "?", "7200", 2) +
                            "\n"
                            " 1. e4 e5\n"
                            "{al bianco e' finito il tempo} 0-1\n"));
  Aggiudica("By agreement", "Patta d'accordo", "1/2-1/2");
  Salva();
  EXPECT_EQ(Pgn(), SulDisco(Etichette("By agreement", "1/2-1/2", "?", "?", "7200", 2) +
                            "\n"
                            " 1. e4 e5\n"
                            "{Patta d'accordo} 1/2-1/2\n"));
}

TEST_F(FilePartita, SedicesimaMossaChiudeLaSecondaRigaLaDiciassettesimaApreLaTerza) {
  for (int m = 0; m < 9; ++m) Gioca({"Nf3", "Nf6", "Ng1", "Ng8"});
  PortaAllaSemimossa(33);  // 17 full moves less Black's last
  Salva();
  EXPECT_EQ(Pgn(),
            SulDisco(Etichette("?", "*", "?", "?", "7200", 33) +
                     "\n"
                     " 1. Nf3 Nf6 2. Ng1 Ng8 3. Nf3 Nf6 4. Ng1 Ng8 5. Nf3 Nf6 6. Ng1 Ng8 "
                     "7. Nf3 Nf6 8. Ng1 Ng8\n"
                     " 9. Nf3 Nf6 10. Ng1 Ng8 11. Nf3 Nf6 12. Ng1 Ng8 13. Nf3 Nf6 14. Ng1 Ng8 "
                     "15. Nf3 Nf6 16. Ng1 Ng8\n"
                     " 17. Nf3\n"
                     "*\n"));
}

TEST_F(FilePartita, UnFileEsistenteVieneSostituitoPerIntero) {
  memoria::ImpostaFile("partita.pgn", std::string(20000, 'x'));
  memoria::ImpostaFile("ListaMosse.txt", std::string(20000, 'y'));
  Gioca({"e4"});
  Salva();
  EXPECT_EQ(Elenco(), SulDisco("\n 1. e4\n"));
  EXPECT_EQ(Pgn().find('x'), std::string::npos);
  EXPECT_EQ(memoria::ScrittureFile(), 2u);
}

// ---------------------------------------------------------------------------
// Files that cannot be written: nothing reported, the old file whole.

TEST_F(FilePartita, DiscoDiSolaLetturaLasciaIlVecchioFile) {
  memoria::ImpostaFile("partita.pgn", "vecchia partita\n");
  memoria::ImpostaFile("ListaMosse.txt", "vecchio elenco\n");
  memoria::ImpostaSolaLettura(true);
  Gioca({"f3", "e5", "g4", "Qh4#"});
  Aggiudica("Checkmate", "scaccomatto", "0-1");
  Salva();
  EXPECT_EQ(Pgn(), "vecchia partita\n");
  EXPECT_EQ(Elenco(), "vecchio elenco\n");
  EXPECT_EQ(memoria::ScrittureFile(), 2u);
  NessunSegno();
}

TEST_F(FilePartita, DiscoDiSolaLetturaSenzaFileNonNeCreaUno) {
  memoria::ImpostaSolaLettura(true);
  Salva();
  EXPECT_FALSE(memoria::EsisteFile("partita.pgn"));
  EXPECT_FALSE(memoria::EsisteFile("ListaMosse.txt"));
  NessunSegno();
}

TEST_F(FilePartita, DiscoPienoLasciaIlVecchioFile) {
  const std::string vecchia = "vecchia partita\n";
  const std::string vecchio = "vecchio elenco\n";
  memoria::ImpostaFile("partita.pgn", vecchia);
  memoria::ImpostaFile("ListaMosse.txt", vecchio);
  // Room for the old files and a few bytes: neither new text fits beside them.
  memoria::ImpostaCapienzaFile(vecchia.size() + vecchio.size() + 8);
  Gioca({"e4", "e5", "Nf3"});
  Salva();
  EXPECT_EQ(Pgn(), vecchia);
  EXPECT_EQ(Elenco(), vecchio);
  NessunSegno();

  // With room again the same save goes through.
  memoria::ImpostaCapienzaFile(size_t(1) << 20);
  Salva();
  EXPECT_EQ(Elenco(), SulDisco("\n 1. e4 e5\n 2. Nf3\n"));
}

// ---------------------------------------------------------------------------
// The texts.

TEST_F(FilePartita, TestoTagliatoDaLaLunghezzaIntera) {
  Gioca({"e4", "e5"});
  char intero[1024];
  const size_t lunghezza = TestoPartita(intero, sizeof intero);
  ASSERT_LT(lunghezza, sizeof intero);
  EXPECT_EQ(std::strlen(intero), lunghezza);

  char corto[10];
  EXPECT_EQ(TestoPartita(corto, sizeof corto), lunghezza);
  EXPECT_EQ(std::string(corto), std::string(intero, sizeof corto - 1));
  EXPECT_EQ(TestoPartita(nullptr, 0), lunghezza);

  char elenco[8];
  EXPECT_EQ(TestoElencoMosse(elenco, sizeof elenco), std::strlen("\n 1. e4 e5\n"));
  EXPECT_STREQ(elenco, "\n 1. e4");
}

TEST_F(FilePartita, RecordPienoScrittoPerIntero) {
  // Every slot of the record with the longest text a move can have.
  while (ContatoreMosse < uint64_t(MAX_SEMIMOSSE - 1)) Gioca({"exd8=Q+"});
  Aggiudica("insufficient material", "materiale insufficente", "1/2-1/2");
  Salva();
  const std::string pgn = Pgn();
  EXPECT_NE(pgn.find(SulDisco(" 256. exd8=Q+\n{materiale insufficente} 1/2-1/2\n")),
            std::string::npos);
  EXPECT_NE(pgn.find(SulDisco("[PlyCount \"511\"]\n")), std::string::npos);
  const std::string elenco = Elenco();
  EXPECT_EQ(elenco.substr(elenco.size() - SulDisco(" 256. exd8=Q+\n").size()),
            SulDisco(" 256. exd8=Q+\n"));
}

// ---------------------------------------------------------------------------
// Another program reads the files: pgn-extract, every game with no error.

// pgn-extract is a Linux program: the Windows build, run under wine, has
// nothing to ask it, so these tests are not part of that build at all.
#ifndef _WIN32
class PgnExtract : public FilePartita {
 protected:
  void SetUp() override {
    FilePartita::SetUp();
    RICHIEDE_PGN_EXTRACT();
  }
  static std::string Salvata() {
    SalvaPartita();
    return Pgn();
  }
};

TEST_F(PgnExtract, LeggeLePartiteDeiTest) {
  std::string tutte;
  int partite = 0;
  auto verifica = [&](const char* nome) {
    const std::string pgn = Salvata();
    EXPECT_TRUE(pgn_extract::TestoLettoSenzaErrori(pgn, 1)) << nome;
    tutte += pgn;
    ++partite;
    Ricomincia();
  };

  Gioca({"e4", "e5", "Nf3", "Nc6", "Bb5", "a6", "Ba4", "Nf6", "0-0", "Be7", "Re1", "b5", "Bb3",
         "d6", "c3", "0-0", "h3", "Nb8"});
  memoria::ImpostaOraUTC({2026, 11, 23, 9, 5, 0});
  StampaTempoUTC();
  verifica("nine moves");

  Gioca({"d4", "d5", "c4", "e6", "Nc3", "Nf6", "Bg5", "Be7", "e3", "0-0", "Nf3", "Nbd7", "Rc1",
         "c6", "Bd3", "dxc4", "Bxc4"});
  Aggiudica("Abandoned", "Il nero abbandona", "1-0");
  verifica("ends on White's move");

  Gioca({"e4", "d5", "e5", "f5", "exf6", "Nc6", "fxg7", "Be6", "gxh8=N", "Qd7", "Nf3", "0-0-0",
         "Be2", "d4", "0-0", "h5"});
  verifica("castling, en passant, under-promotion");

  Gioca({"f3", "e5", "g4", "Qh4#"});
  Aggiudica("Checkmate", "scaccomatto", "0-1");
  verifica("mate");

  verifica("empty");

  Gioca({"e4"});
  verifica("one ply");

  // A revoked resignation; pgn-extract rightly warns about "*" after a mate
  // on the board, which only an arbiter's revocation writes.
  Gioca({"e4", "e5", "Nf3"});
  Aggiudica("Abandoned", "Il nero abbandona", "1-0");
  RevocaAggiudicazione();
  verifica("revoked");

  // Names in every tag, a quote among them.
  ImpostaNome(NOME_BIANCO, "Rossi, Mario");
  ImpostaNome(NOME_NERO, "Anna \"la rossa\" Bianchi");
  ImpostaNome(NOME_EVENTO, "Torneo di Natale");
  ImpostaNome(NOME_LUOGO, "Roma");
  ImpostaNome(NOME_TURNO, "3");
  Gioca({"e4", "e5"});
  verifica("names");

  // All of them in one file, as a reader of many games meets them.
  EXPECT_TRUE(pgn_extract::TestoLettoSenzaErrori(tutte, partite));
}

// The check is not empty: it refuses a wrong move and a wrong count.
TEST_F(PgnExtract, RifiutaUnaMossaIllegaleEUnConteggioSbagliato) {
  Gioca({"e4", "e5", "Ke3"});
  const std::string illegale = Salvata();
  EXPECT_FALSE(pgn_extract::TestoLettoSenzaErrori(illegale, 1));

  Ricomincia();
  Gioca({"e4", "e5"});
  const std::string buona = Salvata();
  EXPECT_TRUE(pgn_extract::TestoLettoSenzaErrori(buona, 1));
  EXPECT_FALSE(pgn_extract::TestoLettoSenzaErrori(buona, 2));
  EXPECT_FALSE(pgn_extract::TestoLettoSenzaErrori(buona + illegale, 2));
  // A game cut before its result.
  EXPECT_FALSE(pgn_extract::TestoLettoSenzaErrori(buona.substr(0, buona.size() - 2), 1));
}

#endif  // _WIN32

}  // namespace
