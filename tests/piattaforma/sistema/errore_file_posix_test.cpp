// Why a file call failed on a POSIX system: the system's error numbers in
// the program's terms, and a folder the user may not write (as another user
// when the test runs as root, who may write anywhere).
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "cartella_prova.h"
#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/file.h"

namespace {

using namespace piattaforma;
using namespace prova;

TEST(ErroreFilePosix, NumeriDErroreDelSistema) {
  EXPECT_EQ(ErroreDaErrno(EACCES), ErroreFile::Permesso);
  EXPECT_EQ(ErroreDaErrno(EPERM), ErroreFile::Permesso);
  EXPECT_EQ(ErroreDaErrno(EROFS), ErroreFile::Permesso);
  EXPECT_EQ(ErroreDaErrno(ENOSPC), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaErrno(EDQUOT), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaErrno(EFBIG), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaErrno(EISDIR), ErroreFile::NonUnFile);
  EXPECT_EQ(ErroreDaErrno(ENOENT), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaErrno(ENOTDIR), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaErrno(ELOOP), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaErrno(EIO), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaErrno(0), ErroreFile::Altro);
}

// What each call answers in `cartella`, a folder this process may not
// write into: a digit per call, 1 for Permesso.
std::string PermessiNegati(const CartellaProva& cartella) {
  const std::string nome = cartella.Nome("partita.pgn");
  std::string esiti;
  auto annota = [&](bool riuscito) {
    esiti += !riuscito && UltimoErroreFile() == ErroreFile::Permesso ? '1' : '0';
  };
  annota(SostituisciFile(nome.c_str(), "nuova", 5));
  annota(AccodaAlFile(cartella.Nome("giornale.txt").c_str(), "x", 1));
  annota(RinominaFile(nome.c_str(), cartella.Nome("altra.pgn").c_str()));
  annota(EliminaFile(nome.c_str()));
  return esiti;
}

TEST(ErroreFilePosix, CartellaSenzaPermessoDiScrittura) {
  CartellaProva cartella;
  prova::Scrivi(cartella.Nome("partita.pgn"), "vecchia");
  if (geteuid() != 0) {
    ASSERT_EQ(chmod(cartella.Percorso().c_str(), 0555), 0);
    EXPECT_EQ(PermessiNegati(cartella), "1111");
    chmod(cartella.Percorso().c_str(), 0755);
    return;
  }
  // Root writes anywhere: a child that has become nobody meets the folder's
  // permissions (root's, 0755).
  ASSERT_EQ(chmod(cartella.Percorso().c_str(), 0755), 0);
  int tubo[2];
  ASSERT_EQ(pipe(tubo), 0);
  const pid_t figlio = fork();
  ASSERT_GE(figlio, 0);
  if (figlio == 0) {
    close(tubo[0]);
    const std::string esiti =
        setgid(65534) == 0 && setuid(65534) == 0 ? PermessiNegati(cartella) : std::string("salta");
    [[maybe_unused]] const ssize_t scritti = write(tubo[1], esiti.data(), esiti.size());
    _exit(0);
  }
  close(tubo[1]);
  char letto[16] = {};
  const ssize_t n = read(tubo[0], letto, sizeof letto - 1);
  close(tubo[0]);
  int stato = 0;
  waitpid(figlio, &stato, 0);
  ASSERT_GT(n, 0);
  if (std::string(letto) == "salta") GTEST_SKIP() << "this process cannot become another user";
  EXPECT_EQ(std::string(letto), "1111");
  EXPECT_EQ(Contenuto(cartella.Nome("partita.pgn")), "vecchia");
}

}  // namespace
