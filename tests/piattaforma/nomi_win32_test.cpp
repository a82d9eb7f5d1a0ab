// Outside Windows the console's Win32 names stay in their own namespace, so
// the same names remain free at global scope. Were they declared there, this
// file would not compile.
#include <gtest/gtest.h>

#include <type_traits>

#include "console/politica_interfaccia.h"
#include "piattaforma/memoria/memoria.h"
#include "piattaforma/piattaforma.h"
#include "piattaforma/tasti.h"
#include "piattaforma/testo.h"

#ifndef _WIN32

struct WORD {};
using DWORD = double;
struct INPUT_RECORD {};
struct KEY_EVENT_RECORD {};
constexpr int VK_RETURN = 99;
constexpr int MB_YESNO = 99;
constexpr int IDYES = 99;

namespace {

TEST(NomiWin32, FuoriDaWindowsRestanoNelLoroSpazio) {
  static_assert(!std::is_same_v<::DWORD, piattaforma::win32::DWORD>);
  static_assert(!std::is_same_v<::INPUT_RECORD, piattaforma::win32::INPUT_RECORD>);
  EXPECT_EQ(VK_RETURN, 99);
  EXPECT_EQ(piattaforma::win32::VK_RETURN, 0x0D);
  EXPECT_EQ(piattaforma::win32::IDYES, 6);
  const piattaforma::win32::WORD codice = piattaforma::win32::VK_F4;
  EXPECT_EQ(codice, 0x73);
  // Code inside the platform's namespace sees them unqualified.
  EXPECT_EQ(piattaforma::RispostaPredefinita(piattaforma::win32::MB_YESNO),
            piattaforma::win32::IDNO);
}

}  // namespace

#endif
