// An outside reader of the game files: Debian's pgn-extract must read every
// game of a PGN file with no error and no warning. It exits 0 whatever it
// found, so its words are read instead: once silent (-r -s, checking only:
// anything it says is a problem), once with its summary (-r: "N games
// matched out of M.", M the games read, N those read without error).
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace pgn_extract {

// Why pgn-extract cannot run here (a Windows build, the program missing);
// empty when it can.
std::string MotivoAssenza();

// The file holds exactly `partite` games and pgn-extract reads each of them
// without a word of complaint. The failure message quotes what it said.
::testing::AssertionResult LeggeSenzaErrori(const std::string& file, int partite);

// The same for a text, written first to a file of its own in a fresh
// temporary folder (removed afterwards).
::testing::AssertionResult TestoLettoSenzaErrori(const std::string& testo, int partite);

// pgn-extract reads the `partite` games of the text `file_partite` without a
// word of complaint; where it cannot run, the reason is printed instead.
void LettePartite(const std::string& file_partite, int partite);

}  // namespace pgn_extract

// Skips the test, with the reason, where pgn-extract cannot run.
#define RICHIEDE_PGN_EXTRACT()                                        \
  do {                                                                \
    const std::string motivo_assenza_ = pgn_extract::MotivoAssenza(); \
    if (!motivo_assenza_.empty()) GTEST_SKIP() << motivo_assenza_;    \
  } while (0)
