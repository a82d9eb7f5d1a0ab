// Why a file call failed on Windows: the system's error codes in the
// program's terms (a full disk cannot be made here, so its codes are
// checked one by one).
#include <gtest/gtest.h>

#include "piattaforma/piattaforma.h"
#include "piattaforma/windows/file.h"

namespace {

using namespace piattaforma;

TEST(ErroreFileWindows, CodiciDErroreDelSistema) {
  EXPECT_EQ(ErroreDaCodice(ERROR_ACCESS_DENIED, false), ErroreFile::Permesso);
  EXPECT_EQ(ErroreDaCodice(ERROR_ACCESS_DENIED, true), ErroreFile::NonUnFile);
  EXPECT_EQ(ErroreDaCodice(ERROR_WRITE_PROTECT, false), ErroreFile::Permesso);
  EXPECT_EQ(ErroreDaCodice(ERROR_DISK_FULL, false), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaCodice(ERROR_HANDLE_DISK_FULL, false), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaCodice(ERROR_FILE_TOO_LARGE, false), ErroreFile::DiscoPieno);
  EXPECT_EQ(ErroreDaCodice(1295, false), ErroreFile::DiscoPieno);  // quota exceeded
  EXPECT_EQ(ErroreDaCodice(ERROR_ALREADY_EXISTS, true), ErroreFile::NonUnFile);
  EXPECT_EQ(ErroreDaCodice(ERROR_ALREADY_EXISTS, false), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaCodice(ERROR_FILE_NOT_FOUND, false), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaCodice(ERROR_PATH_NOT_FOUND, false), ErroreFile::Altro);
  EXPECT_EQ(ErroreDaCodice(ERROR_SHARING_VIOLATION, false), ErroreFile::Altro);
}

}  // namespace
