#include "board/fen.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "board/mossa.h"
#include "board/posizione.h"
#include "supporto/riferimento.h"
#include "supporto/verifica_posizione.h"

namespace {

constexpr uint64_t Casa(const char* nome) {
  return uint64_t((nome[0] - 'a') + 8 * ('8' - nome[1]));
}

// Loads from an exactly sized heap copy, so that reading one byte past the
// terminator is an AddressSanitizer error. The king squares start from known
// values: a text without a king keeps whatever was there.
int Carica(const std::string& testo, uint64_t re_bianco = 60, uint64_t re_nero = 4) {
  std::unique_ptr<char[]> copia(new char[testo.size() + 1]);
  std::memcpy(copia.get(), testo.c_str(), testo.size() + 1);
  SvuotaScacchiera();
  casa_re_bianco = re_bianco;
  casa_re_nero = re_nero;
  return CaricaPosizioneDaStringaFen(copia.get());
}

// ---------------------------------------------------------------------------

TEST(Fen, PosizioneIniziale) {
  ASSERT_EQ(Carica(FenIniziale), 1);
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, MASCHERA_DIRITTI);
  EXPECT_EQ(InfoPosizione & PERMESSO_ENPASSANT, 0u);
  EXPECT_EQ(Semimosse(InfoPosizione), 0u);
  EXPECT_EQ(PrimoScacco(InfoPosizione), 64u);
  EXPECT_EQ(SecondoScacco(InfoPosizione), 64u);
  EXPECT_EQ(InfoPosizione, NESSUNO_SCACCO | MASCHERA_DIRITTI);
  EXPECT_EQ(TurnoIniziale, 0u);
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_EQ(ElencoMosse[0], 0u);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
  EXPECT_EQ(HashPedoni, CalcolaHashPedoni());
  EXPECT_STREQ(FenIniziale, "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1");
}

TEST(Fen, OgniLetteraDiventaIlSuoPezzo) {
  ASSERT_EQ(Carica(FenIniziale), 1);
  const riferimento::Griglia g = riferimento::DaFen(FenIniziale);
  for (int s = 0; s < 64; ++s) {
    if (g.casa[s] == '.') {
      EXPECT_EQ(PezzoIn[s], CASA_VUOTA);
      continue;
    }
    const uint64_t codice = PezzoIn[s];
    ASSERT_NE(codice, CASA_VUOTA) << s;
    EXPECT_EQ(CaratterePezzo[TipoDelCodice(codice)], riferimento::Minuscola(g.casa[s])) << s;
    EXPECT_EQ(ColoreDelCodice(codice), riferimento::Bianco(g.casa[s]) ? BIANCO : NERO) << s;
  }
  EXPECT_EQ(casa_re_bianco, Casa("e1"));
  EXPECT_EQ(casa_re_nero, Casa("e8"));
  EXPECT_EQ(materiale_del_bianco, materiale_del_nero);
  EXPECT_EQ(materiale_del_bianco >> 56, 31u);
}

TEST(Fen, DueCampiDeduconoIDirittiDalleCase) {
  // No black king: its stale square is set first, far from e1.
  ASSERT_EQ(Carica("8/8/8/8/8/8/8/R3K2R w", 60, Casa("e8")), 1);
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, ARROCCO_CORTO_BIANCO | ARROCCO_LUNGO_BIANCO);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
  EXPECT_EQ(InfoPosizione, NESSUNO_SCACCO | ARROCCO_CORTO_BIANCO | ARROCCO_LUNGO_BIANCO);
}

TEST(Fen, DueCampiDeduconoSoloCioCheLeCaseDanno) {
  ASSERT_EQ(Carica("r3k3/8/8/8/8/8/8/4K1R1 b"), 1);
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, ARROCCO_LUNGO_NERO);
  ASSERT_EQ(Carica("r3k2r/8/8/8/8/8/8/R2K3R w"), 1);
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, ARROCCO_CORTO_NERO | ARROCCO_LUNGO_NERO);
  // A black rook in the corner is not a white rook.
  ASSERT_EQ(Carica("4k3/8/8/8/8/8/8/r3K3 w"), 1);
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, 0u);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
}

TEST(Fen, LaCasaStantiaDelReMancanteDecide) {
  // The same text without a black king is rejected when the stale black king
  // square touches the white king.
  EXPECT_EQ(Carica("8/8/8/8/8/8/8/R3K2R w", 60, Casa("d2")), 0);
  EXPECT_EQ(Carica("8/8/8/8/8/8/8/R3K2R w", 60, Casa("c3")), 1);
}

TEST(Fen, ILettereDegliArrocchiSonoCreduteSullaParola) {
  ASSERT_EQ(Carica("4k3/8/8/8/8/8/8/4K2R w KQkq -"), 1);
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, MASCHERA_DIRITTI);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
}

TEST(Fen, UnaLetteraRipetutaTogliDiNuovoLaChiave) {
  ASSERT_EQ(Carica("4k3/8/8/8/8/8/8/4K2R w KK - 0 1"), 1);
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, ARROCCO_CORTO_BIANCO);
  // Both XORs of the key cancel: the key is that of the pieces alone.
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash() ^ HASH_ARROCCO_CORTO_BIANCO);
  ASSERT_EQ(Carica("4k3/8/8/8/8/8/8/4K2R w KqK - 0 1"), 1);
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, ARROCCO_CORTO_BIANCO | ARROCCO_LUNGO_NERO);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash() ^ HASH_ARROCCO_CORTO_BIANCO);
}

TEST(Fen, EnpassantConCatturaPossibile) {
  ASSERT_EQ(Carica("rnbqkbnr/ppp1pppp/8/3pP3/8/8/PPPP1PPP/RNBQKBNR w KQkq d6 0 2"), 1);
  EXPECT_NE(InfoPosizione & PERMESSO_ENPASSANT, 0u);
  EXPECT_EQ(ElencoMosse[0], Mossa(Casa("d7"), Casa("d5"), PEDONE_AVANZA2));
  EXPECT_EQ(ContatoreMosse, 0u);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
  EXPECT_NE(ChiaveHash, CalcolaChiaveHash() ^ HashPermessoEnpassantIn[Casa("d5")]);
}

TEST(Fen, EnpassantSenzaCatturaPossibileVieneIgnorato) {
  ASSERT_EQ(Carica("rnbqkbnr/ppp1pppp/8/3p4/4P3/8/PPPP1PPP/RNBQKBNR w KQkq d6 0 2"), 1);
  EXPECT_EQ(InfoPosizione & PERMESSO_ENPASSANT, 0u);
  EXPECT_EQ(ElencoMosse[0], 0u);
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
}

TEST(Fen, EnpassantColNeroAlTratto) {
  ElencoMosse[1] = 0x1234;  // whatever an earlier game left there
  ASSERT_EQ(Carica("rnbqkbnr/pppp1ppp/8/8/3Pp3/8/PPP1PPPP/RNBQKBNR b KQkq d3 0 2"), 1);
  EXPECT_EQ(ContatoreMosse, 1u);
  EXPECT_EQ(TurnoIniziale, 1u);
  EXPECT_NE(InfoPosizione & PERMESSO_ENPASSANT, 0u);
  EXPECT_EQ(ElencoMosse[1], Mossa(Casa("d2"), Casa("d4"), PEDONE_AVANZA2));
  EXPECT_EQ(ChiaveHash, CalcolaChiaveHash());
  // Without a capturer the last move reads as none.
  ElencoMosse[1] = 0x1234;
  ASSERT_EQ(Carica("rnbqkbnr/pppp1ppp/8/8/3P4/4p3/PPP1PPPP/RNBQKBNR b KQkq d3 0 2"), 1);
  EXPECT_EQ(InfoPosizione & PERMESSO_ENPASSANT, 0u);
  EXPECT_EQ(ElencoMosse[1], 0u);
}

TEST(Fen, EnpassantSulBordoGuardaUnSoloLato) {
  ASSERT_EQ(Carica("4k3/8/8/Pp6/8/8/8/4K3 w - b6"), 1);
  EXPECT_NE(InfoPosizione & PERMESSO_ENPASSANT, 0u);
  ASSERT_EQ(Carica("4k3/8/8/pP6/8/8/8/4K3 w - a6"), 1);
  EXPECT_NE(InfoPosizione & PERMESSO_ENPASSANT, 0u);
  ASSERT_EQ(Carica("4k3/8/8/p6P/8/8/8/4K3 w - a6"), 1);
  EXPECT_EQ(InfoPosizione & PERMESSO_ENPASSANT, 0u);
}

TEST(Fen, Semimosse) {
  ASSERT_EQ(Carica("4k3/8/8/8/8/8/8/4K3 w - - 99 80"), 1);
  EXPECT_EQ(Semimosse(InfoPosizione), 99u);
  EXPECT_EQ(Carica("4k3/8/8/8/8/8/8/4K3 w - - 100 80"), 0);
  ASSERT_EQ(Carica("4k3/8/8/8/8/8/8/4K3 w - - 07"), 1);
  EXPECT_EQ(Semimosse(InfoPosizione), 7u);
}

TEST(Fen, ReAccostatiSonoRifiutati) {
  EXPECT_EQ(Carica("8/8/8/8/8/8/4k3/4K3 w - - 0 1"), 0);
  EXPECT_EQ(Carica("8/8/8/8/8/8/5k2/4K3 b - - 0 1"), 0);
  EXPECT_EQ(Carica("8/8/8/8/8/8/6k1/4K3 w - - 0 1"), 1);
}

TEST(Fen, ReSullaStessaCasaSonoRifiutati) {
  // Only the distance rule sees kings on one square: a king does not attack
  // its own square, so the check rules let such a text through.
  EXPECT_EQ(Carica("8/8/8/8/8/8/8/8 w - - 0 1", Casa("e4"), Casa("e4")), 0);
  EXPECT_EQ(Carica("8/8/8/8/8/8/8/8 b - - 0 1", Casa("a8"), Casa("a8")), 0);
  EXPECT_EQ(Carica("8/8/8/8/8/8/8/4K3 w - - 0 1", 60, Casa("e1")), 0);
  EXPECT_EQ(Carica("4k3/8/8/8/8/8/8/8 b - - 0 1", Casa("e8"), 4), 0);
  EXPECT_EQ(Carica("8/8/8/8/8/8/8/4K3 w - - 0 1", 60, Casa("e3")), 1);
  EXPECT_EQ(Carica("8/8/8/8/8/8/8/8 w - - 0 1", Casa("e4"), Casa("e6")), 1);
}

TEST(Fen, IlLatoCheNonMuoveNonPuoEssereSottoScacco) {
  EXPECT_EQ(Carica("4k3/8/8/8/8/8/8/4RK2 w - - 0 1"), 0);
  EXPECT_EQ(Carica("4k3/8/8/8/8/8/8/4RK2 b - - 0 1"), 1);
  EXPECT_EQ(Carica("4k3/4r3/8/8/8/8/8/4K3 b - - 0 1"), 0);
  EXPECT_EQ(Carica("4k3/4r3/8/8/8/8/8/4K3 w - - 0 1"), 1);
}

TEST(Fen, UnoScaccoVaNelPrimoCampo) {
  ASSERT_EQ(Carica("4k3/8/8/8/8/8/3p4/4K3 w - - 0 1"), 1);
  EXPECT_EQ(PrimoScacco(InfoPosizione), Casa("d2"));
  EXPECT_EQ(SecondoScacco(InfoPosizione), 64u);
  ASSERT_EQ(Carica("4k3/8/3N4/8/8/8/8/4K3 b - - 0 1"), 1);
  EXPECT_EQ(PrimoScacco(InfoPosizione), Casa("d6"));
  EXPECT_EQ(SecondoScacco(InfoPosizione), 64u);
  EXPECT_LT(InfoPosizione, NESSUNO_SCACCO);
}

TEST(Fen, DoppioScaccoInOrdineDiCasa) {
  ASSERT_EQ(Carica("7k/4r3/3n4/8/4K3/8/8/8 w - - 0 1"), 1);
  EXPECT_EQ(PrimoScacco(InfoPosizione), Casa("e7"));
  EXPECT_EQ(SecondoScacco(InfoPosizione), Casa("d6"));
  ASSERT_EQ(Carica("4k3/8/8/1B6/8/8/4Q3/K7 b - - 0 1"), 1);
  EXPECT_EQ(PrimoScacco(InfoPosizione), Casa("b5"));
  EXPECT_EQ(SecondoScacco(InfoPosizione), Casa("e2"));
}

TEST(Fen, TreScacchiSonoRifiutati) {
  EXPECT_EQ(Carica("7k/1b2r3/3n4/8/4K3/8/8/8 w - - 0 1"), 0);
  EXPECT_EQ(Carica("7k/4r3/3n4/8/4K3/8/8/8 w - - 0 1"), 1);
}

TEST(Fen, CifreNoveEZeroEDTraversePiuLunghe) {
  EXPECT_EQ(Carica("rnbqkbnr/pppppppp/9/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"), 0);
  EXPECT_EQ(Carica("rnbqkbnr/pppppppp/08/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"), 0);
  EXPECT_EQ(Carica("rnbqkbnr/pppppppp/53/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"), 1);
  EXPECT_EQ(Carica("rnbqkbnr/pppppppp/54/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"), 0);
  EXPECT_EQ(Carica("rnbqkbnr/ppppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"), 0);
  EXPECT_EQ(Carica("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR1 w KQkq - 0 1"), 0);
}

TEST(Fen, IReNonSonoContati) {
  // Two white kings: the square list keeps the last one.
  ASSERT_EQ(Carica("4k3/8/8/8/8/8/8/K3K3 w - - 0 1"), 1);
  EXPECT_EQ(casa_re_bianco, Casa("e1"));
  EXPECT_EQ(PezzoIn[Casa("a1")], CODICE_RE_BIANCO);
  // No kings at all: both stale squares stay as they were.
  ASSERT_EQ(Carica("8/8/8/8/8/8/8/8 w - - 0 1", Casa("a1"), Casa("h8")), 1);
  EXPECT_EQ(casa_re_bianco, Casa("a1"));
  EXPECT_EQ(casa_re_nero, Casa("h8"));
  EXPECT_EQ(btm_occupazione, 0u);
}

TEST(Fen, ParentesiSpaziECampiInPiu) {
  ASSERT_EQ(Carica(" \t\n[4k3/8/8/8/8/8/8/4K3 b - - 12 40] tutto il resto"), 1);
  EXPECT_EQ(Semimosse(InfoPosizione), 12u);
  EXPECT_EQ(TurnoIniziale, 1u);
  ASSERT_EQ(Carica("[[4k3/8/8/8/8/8/8/4K3   w\t-  -  3  x  settimo ottavo"), 1);
  EXPECT_EQ(Semimosse(InfoPosizione), 3u);
  // "]" ends the text even inside the fields.
  ASSERT_EQ(Carica("4k3/8/8/8/8/8/8/4K3 w]KQkq"), 1);
  EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, 0u);
  ASSERT_EQ(Carica("4k3/8/8/8/8/8/8/4K2R w K -]5"), 1);
  EXPECT_EQ(Semimosse(InfoPosizione), 0u);
}

TEST(Fen, ListePieneAlLimiteSonoAccettate) {
  // Eight pawns, ten knights, bishops and rooks, nine queens each fit.
  EXPECT_EQ(Carica("4k3/pppppppp/8/8/8/8/PPPPPPPP/4K3 w - - 0 1"), 1);
  EXPECT_EQ(Carica("k7/8/8/8/8/NNNNNNNN/NN6/4K3 w - - 0 1"), 1);
  EXPECT_EQ(Carica("k7/8/8/8/8/BBBBBBBB/BB6/4K3 b - - 0 1"), 1);
  EXPECT_EQ(Carica("k7/8/rrrrrrrr/rr6/8/8/8/7K w - - 0 1"), 1);
  EXPECT_EQ(Carica("7k/6pp/8/8/8/8/QQQQQQQQ/Q6K w - - 0 1"), 1);
  EXPECT_EQ(NumeroPezzi(materiale_del_bianco, DONNA), 9u);
  EXPECT_EQ(Carica("k6q/qqqqqqqq/8/8/8/8/PP6/K7 b - - 0 1"), 1);
  EXPECT_EQ(NumeroPezzi(materiale_del_nero, DONNA), 9u);
  // One more of a kind has no slot left.
  EXPECT_EQ(Carica("7k/6pp/8/8/8/7Q/QQQQQQQQ/Q6K w - - 0 1"), 0);
  EXPECT_EQ(Carica("k6q/qqqqqqqq/q7/8/8/8/PP6/K7 b - - 0 1"), 0);
  EXPECT_EQ(Carica("4k3/pppppppp/8/8/8/8/PPPPPPPP/P3K3 w - - 0 1"), 0);
}

TEST(Fen, LaVerificaDiCoerenzaVedeOgniGuasto) {
  const char* fen = "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w Qk - 0 1";
  ASSERT_EQ(Carica(fen), 1);
  EXPECT_TRUE(PosizioneCoerente());
  uint64_t* guasti[] = {&ChiaveHash,
                        &HashPedoni,
                        &btm_occupazione,
                        &btm_nero,
                        &btm_pezzi[BIANCO][CAVALLO],
                        &materiale_del_bianco,
                        &casa_torre_nero[1],
                        &PezzoIn[Casa("e4")],
                        &PezzoIn[Casa("e5")]};
  for (size_t i = 0; i < std::size(guasti); ++i) {
    uint64_t* guasto = guasti[i];
    ASSERT_EQ(Carica(fen), 1);
    *guasto ^= 1;
    EXPECT_FALSE(PosizioneCoerente()) << i;
  }
  ASSERT_EQ(Carica(fen), 1);
  InfoPosizione ^= 1ull << 40;
  EXPECT_FALSE(PosizioneCoerente());
  // A castling key without its right.
  ASSERT_EQ(Carica(fen), 1);
  ChiaveHash ^= HASH_ARROCCO_CORTO_BIANCO;
  EXPECT_FALSE(PosizioneCoerente());
}

// ---------------------------------------------------------------------------
// Malformed and illegal texts: each is rejected, none reads past its end.

std::string Ripeti(const std::string& pezzo, size_t volte) {
  std::string s;
  for (size_t i = 0; i < volte; ++i) s += pezzo;
  return s;
}

std::vector<std::string> TestiCattivi() {
  const std::string base = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR";
  return {
      "",
      " ",
      "          \t\t\n\r  ",
      "[",
      "[[  [",
      "]",
      "  [ ]",
      Ripeti("8/", 5000),
      Ripeti("p", 10000),
      Ripeti(" ", 9999) + "]",
      "4k3/8/8/8/8/8/8/4K3" + Ripeti("1", 9980) + " w",
      base,
      base + " ",
      base + "]",
      base + std::string(1, '\0') + " w KQkq",  // the text ends at the NUL
      "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBN\xe9 w KQkq - 0 1",
      base + " \xff KQkq - 0 1",
      base + " w KQk\x80 - 0 1",
      base +
          " w KQkq \xe5"
          "6 0 1",
      base + " w KQkq - \xb9",
      "\x81\x82\x83\xfe\xff",
      "rnbqkbnr/pppppppp/9/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
      "rnbqkbnr/pppppppp/0/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
      "rnbqkbnr/pppppppp/54/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
      "rnbqkbnr/ppppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
      "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBN w KQkq - 0 1",
      "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR/ w KQkq - 0 1",
      "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR/8 w KQkq - 0 1",
      "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP w KQkq - 0 1",
      "rnbqkbnr/pppxpppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
      "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR W KQkq - 0 1",
      base + " ww KQkq - 0 1",
      base + " - KQkq - 0 1",
      base + " x",
      base + " w KQkqK - 0 1",
      base + " w KX - 0 1",
      base + " w -- - 0 1",
      base + " w kq i6 0 1",
      base + " w kq E6 0 1",
      base + " w kq e3 0 1",
      "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR b KQkq e6 0 1",
      base + " w kq e 0 1",
      base + " w kq -6 0 1",
      base + " w KQkq - 100 1",
      base + " w KQkq - 999 1",
      base + " w KQkq - 1x 1",
      base + " w KQkq - -1 1",
      base + " w KQkq - a 1",
      "8/8/8/8/8/8/4k3/4K3 w - - 0 1",
      "8/8/8/8/8/8/3k4/4K3 b",
      "4k3/8/8/8/8/8/8/4RK2 w - - 0 1",
      "4k3/4r3/8/8/8/8/8/4K3 b - - 0 1",
      "7k/1b2r3/3n4/8/4K3/8/8/8 w - - 0 1",
      "4k3/pppppppp/p7/8/8/8/8/4K3 w - - 0 1",
      "4k3/8/8/8/8/8/PPPPPPPP/P3K3 w - - 0 1",
      "k7/8/8/8/8/NNNNNNNN/NNN5/4K3 w - - 0 1",
      "k7/8/8/8/8/bbbbbbbb/bbb5/4K3 w - - 0 1",
      "k7/8/RRRRRRRR/RRR5/8/8/8/7K b - - 0 1",
      "K7/8/8/8/qqqqqqqq/qq6/8/7k b - - 0 1",
      "K7/8/8/8/QQQQQQQQ/QQ6/8/7k b - - 0 1",
      Ripeti("n", 64) + " w",
      Ripeti("Q", 64) + " b",
  };
}

TEST(Fen, TestiCattiviSonoRifiutati) {
  const std::vector<std::string> testi = TestiCattivi();
  EXPECT_GE(testi.size(), 40u);
  for (size_t i = 0; i < testi.size(); ++i)
    EXPECT_EQ(Carica(testi[i]), 0) << "text " << i << ": " << testi[i].substr(0, 80);
}

TEST(Fen, TestiCattiviSonoRifiutatiQualunqueSiaLaCasaStantiaDeiRe) {
  ASSERT_GE(TestiCattivi().size(), 40u);
  for (const std::string& testo : TestiCattivi())
    for (uint64_t re = 0; re < 64; re += 9)
      EXPECT_EQ(Carica(testo, re, 63 - re), 0) << testo.substr(0, 80);
}

// ---------------------------------------------------------------------------
// The published reference positions.

TEST(Fen, PosizioniDiRiferimento) {
  std::ifstream file(PENDRINO_DATI_CONDIVISI "/perft-reference.tsv");
  ASSERT_TRUE(file.is_open());
  std::set<std::string> viste;
  std::string riga;
  std::getline(file, riga);  // header
  while (std::getline(file, riga)) {
    std::istringstream campi(riga);
    std::string nome, fen;
    std::getline(campi, nome, '\t');
    std::getline(campi, fen, '\t');
    if (!viste.insert(fen).second) continue;

    std::istringstream parti(fen);
    std::string posa, tratto, arrocchi, enpassant, semimosse;
    parti >> posa >> tratto >> arrocchi >> enpassant >> semimosse;
    ASSERT_EQ(Carica(fen), 1) << nome;

    const bool bianco = tratto == "w";
    EXPECT_EQ(TurnoIniziale, bianco ? 0u : 1u) << nome;
    EXPECT_EQ(ContatoreMosse, TurnoIniziale) << nome;

    uint64_t diritti = 0;
    for (char c : arrocchi) {
      if (c == 'K') diritti |= ARROCCO_CORTO_BIANCO;
      if (c == 'Q') diritti |= ARROCCO_LUNGO_BIANCO;
      if (c == 'k') diritti |= ARROCCO_CORTO_NERO;
      if (c == 'q') diritti |= ARROCCO_LUNGO_NERO;
    }
    EXPECT_EQ(InfoPosizione & MASCHERA_DIRITTI, diritti) << nome;

    const riferimento::Griglia g = riferimento::DaFen(fen);
    bool permesso = false;
    if (enpassant != "-") {
      const int bersaglio = (enpassant[0] - 'a') + 8 * ('8' - enpassant[1]);
      permesso = riferimento::Attaccanti(g, bersaglio, bianco) & [&] {
        uint64_t pedoni = 0;
        for (int s = 0; s < 64; ++s)
          if (g.casa[s] == (bianco ? 'P' : 'p')) pedoni |= 1ull << s;
        return pedoni;
      }();
    }
    EXPECT_EQ((InfoPosizione & PERMESSO_ENPASSANT) != 0, permesso) << nome;

    uint64_t scacchi = riferimento::Attaccanti(g, riferimento::CasaRe(g, bianco), !bianco);
    const uint64_t primo = scacchi ? uint64_t(std::countr_zero(scacchi)) : 64;
    scacchi &= scacchi - 1;
    const uint64_t secondo = scacchi ? uint64_t(std::countr_zero(scacchi)) : 64;
    EXPECT_EQ(PrimoScacco(InfoPosizione), primo) << nome;
    EXPECT_EQ(SecondoScacco(InfoPosizione), secondo) << nome;

    EXPECT_EQ(Semimosse(InfoPosizione), uint64_t(std::stoi(semimosse))) << nome;
    EXPECT_EQ(InfoPosizione >> BIT_INFO, 0u) << nome;
    EXPECT_EQ(ChiaveHash, CalcolaChiaveHash()) << nome;
    EXPECT_EQ(HashPedoni, CalcolaHashPedoni()) << nome;
  }
  EXPECT_GE(viste.size(), 7u);
}

}  // namespace
