// Whole random games typed on the keyboard. Each move is typed by its
// coordinates and confirmed with Enter; then it is taken back with
// Ctrl+Delete and typed again as the record wrote it, key by key with the
// punctuation a player types ("O-O", "exd8=Q+", which the key table drops
// on the way), and must be the same move: same position key, same text,
// same boxes. The game-end questions get scripted answers; take-backs and
// new games (Alt+N with each answer) are mixed in; each game is saved with
// Alt+S and pgn-extract reads all of them.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "moves/genera.h"
#include "moves/tavole.h"
#include "partita_da_tastiera.h"
#include "supporto/partite_a_caso.h"
#include "verifiche/pgn_extract.h"

namespace {

using partite_a_caso::Coordinate;

constexpr int PARTITE = 200;

const std::string DOMANDA_CINQUANTA =
    "Aggiudicare la patta per la regola delle 50 mosse? [" + std::to_string(MB_YESNO) + "]";
const std::string DOMANDA_TRIPLICE =
    "Triplice ripetizione: aggiudicare la patta? [" + std::to_string(MB_YESNO) + "]";

class PartiteDigitate : public PartitaDaTastiera, protected partite_a_caso::Dado {
 protected:
  // The saved games, one after another, for pgn-extract.
  std::string file_partite;
  int partite_salvate = 0;

  enum {
    MATTI,
    STALLI,
    MATERIALE,
    CINQUANTA,
    CINQUANTA_ACCOLTE,
    TRIPLICI,
    SETTANTACINQUE,
    QUINTUPLE,
    RITIRI,
    ARROCCHI_CON_LETTERE,
    PROMOZIONI,
    NUOVE_ANNULLATE,
    NUOVE_SALVATE,
    NUOVE_SENZA_SALVARE,
    SEMIMOSSE,
    LIMITE,
    CONTATORI
  };
  int conta[CONTATORI] = {};

  // The record's text as a player may type it: castling with zeros or
  // letters, with or without the hyphens.
  std::string ComeDigitata(const std::string& scritta) {
    if (scritta == "0-0" || scritta == "0-0+" || scritta == "0-0#") {
      static const char* const corto[] = {"0-0", "O-O", "o-o", "00", "OO"};
      const std::string t = corto[Caso(5)];
      if (t[0] != '0') ++conta[ARROCCHI_CON_LETTERE];
      return t + scritta.substr(3);
    }
    if (scritta.rfind("0-0-0", 0) == 0) {
      static const char* const lungo[] = {"0-0-0", "O-O-O", "000", "ooo"};
      const std::string t = lungo[Caso(4)];
      if (t[0] != '0') ++conta[ARROCCHI_CON_LETTERE];
      return t + scritta.substr(5);
    }
    return scritta;
  }

  // Answers Yes to the revocation question that a change of an adjudicated
  // game asks first.
  static void RevocaSeAggiudicata() {
    if (PartitaAggiudicata()) memoria::AccodaRisposta(IDYES);
  }

  void Ritira() {
    RevocaSeAggiudicata();
    PartitaDaTastiera::Ritira();
    chiavi.pop_back();
    ASSERT_EQ(ContatoreMosse, chiavi.size() - 1);
    ASSERT_EQ(ChiaveHash, chiavi.back());
    ASSERT_FALSE(PartitaAggiudicata());
    ++conta[RITIRI];
  }

  // Plies back to the last capture or pawn move, read from the record's
  // texts: an 'x', or a pawn's file letter first.
  uint64_t ReversibiliDalRegistro() {
    uint64_t n = 0;
    for (uint64_t k = ContatoreMosse; k >= 1; --k, ++n) {
      const std::string t = Registro(k);
      if (t.find('x') != std::string::npos || (t[0] >= 'a' && t[0] <= 'h')) break;
    }
    return n;
  }

  // One ply, typed twice. False when the game is over.
  bool GiocaUnaMossa() {
    const uint64_t n = ContatoreMosse;
    const uint64_t mossa = Scegli();
    const bool era_aggiudicata = PartitaAggiudicata();

    // By the coordinates.
    RevocaSeAggiudicata();
    size_t finestre = memoria::Finestre().size() + (era_aggiudicata ? 1 : 0);
    Mossa(Coordinate(mossa));
    EXPECT_EQ(ContatoreMosse, n + 1) << Coordinate(mossa);
    if (ContatoreMosse != n + 1) return false;
    EXPECT_EQ(ElencoMosse[n + 1], mossa);
    const std::string scritta = Registro(n + 1);
    const uint64_t chiave = ChiaveHash;
    const std::vector<std::string> prime = FinestreDa(finestre);
    const bool nessuna = FineMosseGenerate == BufferMosseGenerate;
    if (TipoPromozioneMossa[TipoMossa(mossa)] != 255) ++conta[PROMOZIONI];
    // The panel shows what the record holds.
    EXPECT_NE(memoria::Riga(y_semimosse).find("ultima " + scritta + ","), std::string::npos)
        << scritta;

    // The fifty-move question exactly when the half-move clock reached
    // 100, unless the move ended the game at once.
    const bool cinquanta = std::find(prime.begin(), prime.end(), DOMANDA_CINQUANTA) != prime.end();
    chiavi.push_back(ChiaveHash);
    // Drawn without a claim: 150 half-moves since the last capture or pawn
    // move, as the record's texts show them, or a fifth occurrence.
    const bool automatica = ReversibiliDalRegistro() >= 150 || Occorrenze() >= 4;
    chiavi.pop_back();
    const bool finita_subito =
        nessuna || (!PuoVincereIl_bianco() && !PuoVincereIl_nero()) || automatica;
    EXPECT_EQ(cinquanta, Semimosse(InfoPosizione) == 100 && !finita_subito)
        << "ply " << n + 1 << " " << scritta;
    // The threefold question when the position stood twice before.
    chiavi.push_back(ChiaveHash);
    const bool triplice = std::find(prime.begin(), prime.end(), DOMANDA_TRIPLICE) != prime.end();
    EXPECT_EQ(triplice, !finita_subito && Occorrenze() >= 2) << "ply " << n + 1 << " " << scritta;
    chiavi.pop_back();

    // Taken back with Ctrl+Delete.
    RevocaSeAggiudicata();
    PartitaDaTastiera::Ritira();
    EXPECT_EQ(ContatoreMosse, n);
    EXPECT_EQ(ChiaveHash, chiavi.back());
    EXPECT_FALSE(PartitaAggiudicata());

    // Typed again as written; sometimes the fifty-move claim is accepted.
    std::vector<std::string> attese = prime;
    if (cinquanta && Caso(3) == 0) {
      memoria::AccodaRisposta(IDYES);
      attese = {DOMANDA_CINQUANTA};
      ++conta[CINQUANTA_ACCOLTE];
    }
    finestre = memoria::Finestre().size();
    const std::string digitata = ComeDigitata(scritta);
    Mossa(digitata);
    EXPECT_EQ(ContatoreMosse, n + 1) << digitata;
    if (ContatoreMosse != n + 1) return false;
    EXPECT_EQ(ElencoMosse[n + 1], mossa) << digitata;
    EXPECT_EQ(ChiaveHash, chiave) << digitata;
    EXPECT_EQ(Registro(n + 1), scritta) << digitata;
    EXPECT_EQ(FinestreDa(finestre), attese) << digitata;
    EXPECT_EQ(CharatteriInComando, 0u);
    chiavi.push_back(ChiaveHash);
    ++conta[SEMIMOSSE];
    if (cinquanta) ++conta[CINQUANTA];
    if (::testing::Test::HasFailure()) return false;

    if (!PartitaAggiudicata()) return true;
    // An ending: the game stops, or the arbiter goes on (a take-back, or
    // the next move after a Yes to the revocation question).
    if (nessuna) {
      ++conta[std::string(Termination) == "Checkmate" ? MATTI : STALLI];
      if (!fino_al_limite && Caso(3) != 0) return false;
      Ritira();
      return !::testing::Test::HasFailure();
    }
    if (std::string(Termination) == "insufficient material") ++conta[MATERIALE];
    if (std::string(Termination) == "threefold repetition") ++conta[TRIPLICI];
    if (std::string(Termination) == "75-move rule") ++conta[SETTANTACINQUE];
    if (std::string(Termination) == "fivefold repetition") ++conta[QUINTUPLE];
    return fino_al_limite || Caso(2) == 0;
  }

  // Alt+N in the middle of a game, with one of its three answers.
  bool NuovaPartitaACaso() {
    const int risposta = int(Caso(3));
    const std::string pgn = PgnAtteso();
    if (risposta == 0) {
      const uint64_t contatore = ContatoreMosse, chiave = ChiaveHash;
      memoria::AccodaRisposta(IDCANCEL);
      Tasto('N', LEFT_ALT_PRESSED);
      EXPECT_EQ(ContatoreMosse, contatore);
      EXPECT_EQ(ChiaveHash, chiave);
      ++conta[NUOVE_ANNULLATE];
      return true;
    }
    memoria::RimuoviFile("partita.pgn");
    memoria::AccodaRisposta(risposta == 1 ? IDYES : IDNO);
    Tasto('N', LEFT_ALT_PRESSED);
    EXPECT_EQ(ContatoreMosse, 0u);
    EXPECT_FALSE(PartitaAggiudicata());
    if (risposta == 1) {
      EXPECT_EQ(memoria::ContenutoFile("partita.pgn"), pgn);
      ++conta[NUOVE_SALVATE];
    } else {
      EXPECT_FALSE(memoria::EsisteFile("partita.pgn"));
      ++conta[NUOVE_SENZA_SALVARE];
    }
    // The abandoned game is read as well.
    file_partite += pgn;
    ++partite_salvate;
    return false;
  }

  void GiocaPartita(uint64_t seme) {
    caso.seed(seme);
    // A fresh backend keeps the recorded output short; the program goes on
    // with a new game from the keyboard.
    memoria::Azzera();
    piattaforma::ApriConsole();
    memoria::AccodaRisposta(IDNO);
    Tasto('N', LEFT_ALT_PRESSED);
    ASSERT_EQ(ContatoreMosse, 0u);
    chiavi.assign(1, ChiaveHash);
    // Every tenth game runs up to the record's last ply.
    fino_al_limite = seme % 10 == 0;
    const uint64_t tetto = fino_al_limite ? ULTIMA_SEMIMOSSA : 150 + Caso(250);
    while (ContatoreMosse < tetto) {
      if (!fino_al_limite && Caso(400) == 0) {
        if (!NuovaPartitaACaso()) return;
        continue;
      }
      if (RitiriACaso([this] { Ritira(); }, HasFatalFailure)) {
        if (HasFatalFailure()) return;
        continue;
      }
      if (!GiocaUnaMossa()) break;
    }
    if (HasFailure()) return;
    if (PartitaCompleta() && FineMosseGenerate != BufferMosseGenerate) {
      // One more move is refused with the notice, the game untouched.
      const uint64_t chiave = ChiaveHash;
      RevocaSeAggiudicata();
      Mossa(Coordinate(BufferMosseGenerate[0]));
      EXPECT_EQ(memoria::Finestre().back().testo, TestoPartitaCompleta);
      EXPECT_EQ(ContatoreMosse, ULTIMA_SEMIMOSSA);
      EXPECT_EQ(ChiaveHash, chiave);
      ++conta[LIMITE];
    }
    // Saved with Alt+S: the file is the game as it stands.
    memoria::RimuoviFile("partita.pgn");
    Tasto('S', LEFT_ALT_PRESSED);
    const std::string pgn = memoria::ContenutoFile("partita.pgn");
    EXPECT_EQ(pgn, PgnAtteso());
    file_partite += pgn;
    ++partite_salvate;
  }
};

TEST_F(PartiteDigitate, DuecentoPartiteDigitateTastoPerTasto) {
  for (uint64_t seme = 1; seme <= PARTITE; ++seme) {
    GiocaPartita(seme);
    ASSERT_FALSE(HasFailure()) << "seme " << seme << ", ply " << ContatoreMosse;
  }
  EXPECT_GE(partite_salvate, PARTITE);
  // The endings and the commands were all met.
  for (int c : {MATTI, MATERIALE, CINQUANTA, CINQUANTA_ACCOLTE, TRIPLICI, RITIRI, LIMITE,
                ARROCCHI_CON_LETTERE, PROMOZIONI, NUOVE_SALVATE, NUOVE_SENZA_SALVARE})
    EXPECT_GT(conta[c], 0) << c;
  std::printf(
      "partite %d, semimosse %d, matti %d, stalli %d, materiale %d, cinquanta %d (accolte %d), "
      "triplici %d, ritiri %d, arrocchi con lettere %d, promozioni %d, alt+n annullato %d, "
      "salvato %d, senza salvare %d, ultima semimossa %d, settantacinque %d, quintuple %d\n",
      partite_salvate, conta[SEMIMOSSE], conta[MATTI], conta[STALLI], conta[MATERIALE],
      conta[CINQUANTA], conta[CINQUANTA_ACCOLTE], conta[TRIPLICI], conta[RITIRI],
      conta[ARROCCHI_CON_LETTERE], conta[PROMOZIONI], conta[NUOVE_ANNULLATE], conta[NUOVE_SALVATE],
      conta[NUOVE_SENZA_SALVARE], conta[LIMITE], conta[SETTANTACINQUE], conta[QUINTUPLE]);
  pgn_extract::LettePartite(file_partite, partite_salvate);
}

}  // namespace
