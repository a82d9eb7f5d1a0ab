// Process-wide console state of the Windows backend, set by ApriConsole.
#pragma once

#include "piattaforma/tasti.h"

extern HANDLE hStdin;         // console input buffer
extern HANDLE hStdout;        // console screen buffer
extern HWND hWindow;          // console window, owner of every message box
extern DWORD fdwSaveOldMode;  // input mode found at start, restored on exit
