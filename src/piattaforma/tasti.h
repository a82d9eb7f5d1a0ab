// Console input records and key codes in the Windows console's own form.
// On Windows they come from the system headers; elsewhere the same names and
// values are defined here, so one key table serves every platform.
//
// Elsewhere they live in namespace piattaforma::win32, not at global scope,
// so that they cannot clash with other libraries' names. Code inside
// namespace piattaforma sees them as they are; other code opens them with
// `using namespace piattaforma::win32;` in its source files and names the
// types as piattaforma::win32::WORD and so on in its headers. On Windows the
// same lines compile: the types are also reachable through that namespace,
// while the constants are the system's macros.
#pragma once

#include <cstdint>

#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace piattaforma::win32 {
using ::BOOL;
using ::CHAR;
using ::DWORD;
using ::INPUT_RECORD;
using ::KEY_EVENT_RECORD;
using ::WORD;
}  // namespace piattaforma::win32

#else

namespace piattaforma::win32 {

using WORD = uint16_t;
using DWORD = uint32_t;
using BOOL = int;
using CHAR = char;

struct KEY_EVENT_RECORD {
  BOOL bKeyDown;
  WORD wRepeatCount;
  WORD wVirtualKeyCode;
  WORD wVirtualScanCode;
  union {
    wchar_t UnicodeChar;
    CHAR AsciiChar;
  } uChar;
  DWORD dwControlKeyState;
};

struct INPUT_RECORD {
  WORD EventType;
  union {
    KEY_EVENT_RECORD KeyEvent;
  } Event;
};

constexpr WORD KEY_EVENT = 0x0001;
constexpr WORD MOUSE_EVENT = 0x0002;
constexpr WORD WINDOW_BUFFER_SIZE_EVENT = 0x0004;
constexpr WORD FOCUS_EVENT = 0x0010;

constexpr DWORD RIGHT_ALT_PRESSED = 0x0001;
constexpr DWORD LEFT_ALT_PRESSED = 0x0002;
constexpr DWORD RIGHT_CTRL_PRESSED = 0x0004;
constexpr DWORD LEFT_CTRL_PRESSED = 0x0008;
constexpr DWORD SHIFT_PRESSED = 0x0010;
constexpr DWORD NUMLOCK_ON = 0x0020;
constexpr DWORD ENHANCED_KEY = 0x0100;

constexpr WORD VK_CANCEL = 0x03;
constexpr WORD VK_BACK = 0x08;
constexpr WORD VK_TAB = 0x09;
constexpr WORD VK_RETURN = 0x0D;
constexpr WORD VK_SHIFT = 0x10;
constexpr WORD VK_CONTROL = 0x11;
constexpr WORD VK_MENU = 0x12;
constexpr WORD VK_ESCAPE = 0x1B;
constexpr WORD VK_SPACE = 0x20;
constexpr WORD VK_PRIOR = 0x21;
constexpr WORD VK_NEXT = 0x22;
constexpr WORD VK_END = 0x23;
constexpr WORD VK_HOME = 0x24;
constexpr WORD VK_LEFT = 0x25;
constexpr WORD VK_UP = 0x26;
constexpr WORD VK_RIGHT = 0x27;
constexpr WORD VK_DOWN = 0x28;
constexpr WORD VK_INSERT = 0x2D;
constexpr WORD VK_DELETE = 0x2E;
constexpr WORD VK_NUMPAD0 = 0x60;
constexpr WORD VK_NUMPAD1 = 0x61;
constexpr WORD VK_NUMPAD2 = 0x62;
constexpr WORD VK_NUMPAD3 = 0x63;
constexpr WORD VK_NUMPAD4 = 0x64;
constexpr WORD VK_NUMPAD5 = 0x65;
constexpr WORD VK_NUMPAD9 = 0x69;
constexpr WORD VK_MULTIPLY = 0x6A;
constexpr WORD VK_ADD = 0x6B;
constexpr WORD VK_SUBTRACT = 0x6D;
constexpr WORD VK_DECIMAL = 0x6E;
constexpr WORD VK_DIVIDE = 0x6F;
constexpr WORD VK_F1 = 0x70;
constexpr WORD VK_F2 = 0x71;
constexpr WORD VK_F3 = 0x72;
constexpr WORD VK_F4 = 0x73;
constexpr WORD VK_F5 = 0x74;
constexpr WORD VK_F6 = 0x75;
constexpr WORD VK_F7 = 0x76;
constexpr WORD VK_F8 = 0x77;
constexpr WORD VK_F9 = 0x78;
constexpr WORD VK_F10 = 0x79;
constexpr WORD VK_F11 = 0x7A;
constexpr WORD VK_F12 = 0x7B;
constexpr WORD VK_OEM_1 = 0xBA;       // ;:
constexpr WORD VK_OEM_PLUS = 0xBB;    // =+
constexpr WORD VK_OEM_COMMA = 0xBC;   // ,<
constexpr WORD VK_OEM_MINUS = 0xBD;   // -_
constexpr WORD VK_OEM_PERIOD = 0xBE;  // .>
constexpr WORD VK_OEM_2 = 0xBF;       // /?
constexpr WORD VK_OEM_3 = 0xC0;       // `~
constexpr WORD VK_OEM_4 = 0xDB;       // [{
constexpr WORD VK_OEM_5 = 0xDC;       // \|
constexpr WORD VK_OEM_6 = 0xDD;       // ]}
constexpr WORD VK_OEM_7 = 0xDE;       // '"

// Message-box styles and answers.
constexpr unsigned MB_OK = 0x0;
constexpr unsigned MB_OKCANCEL = 0x1;
constexpr unsigned MB_YESNOCANCEL = 0x3;
constexpr unsigned MB_YESNO = 0x4;
constexpr unsigned MB_TYPEMASK = 0xF;
constexpr unsigned MB_ICONERROR = 0x10;
constexpr unsigned MB_ICONQUESTION = 0x20;
constexpr unsigned MB_ICONWARNING = 0x30;
constexpr unsigned MB_ICONINFORMATION = 0x40;
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDYES = 6;
constexpr int IDNO = 7;

}  // namespace piattaforma::win32

#endif

namespace piattaforma::win32 {
constexpr DWORD MASCHERA_CTRL = LEFT_CTRL_PRESSED | RIGHT_CTRL_PRESSED;  // 0x000C
constexpr DWORD MASCHERA_ALT = LEFT_ALT_PRESSED | RIGHT_ALT_PRESSED;     // 0x0003
}  // namespace piattaforma::win32

namespace piattaforma {
using namespace win32;
}  // namespace piattaforma
