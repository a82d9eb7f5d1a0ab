// The voice on Windows: the running screen reader's own where it offers one
// (NVDA's controller client, loaded at run time), otherwise SAPI with an
// Italian voice when one is installed; with neither, the program goes on
// with its tones. Texts arrive in UTF-8 and are said in UTF-16.
#include <windows.h>
// clang-format off
#include <initguid.h>
#include <sapi.h>
// clang-format on

#include <cstddef>

#include "piattaforma/piattaforma.h"

namespace piattaforma {

namespace {

using FunzioneNvda = unsigned long(__stdcall*)();
using FunzioneNvdaTesto = unsigned long(__stdcall*)(const wchar_t*);

struct Voce {
  bool aperta = false;
  // NVDA.
  HMODULE nvda = nullptr;
  FunzioneNvdaTesto nvda_di = nullptr;
  FunzioneNvda nvda_zitto = nullptr;
  // SAPI.
  bool com = false;
  ISpVoice* sapi = nullptr;
};
Voce voce;

bool ApriNvda() {
  voce.nvda = LoadLibraryW(L"nvdaControllerClient64.dll");
  if (!voce.nvda) voce.nvda = LoadLibraryW(L"nvdaControllerClient.dll");
  if (!voce.nvda) return false;
  auto gira = reinterpret_cast<FunzioneNvda>(
      reinterpret_cast<void*>(GetProcAddress(voce.nvda, "nvdaController_testIfRunning")));
  voce.nvda_di = reinterpret_cast<FunzioneNvdaTesto>(
      reinterpret_cast<void*>(GetProcAddress(voce.nvda, "nvdaController_speakText")));
  voce.nvda_zitto = reinterpret_cast<FunzioneNvda>(
      reinterpret_cast<void*>(GetProcAddress(voce.nvda, "nvdaController_cancelSpeech")));
  // 0: NVDA runs and answers.
  if (gira && voce.nvda_di && voce.nvda_zitto && gira() == 0) return true;
  FreeLibrary(voce.nvda);
  voce.nvda = nullptr;
  return false;
}

// An Italian voice (language 410) for `sapi`; false when none is installed.
bool VoceItaliana(ISpVoice* sapi) {
  ISpObjectTokenCategory* categoria = nullptr;
  if (FAILED(CoCreateInstance(CLSID_SpObjectTokenCategory, nullptr, CLSCTX_ALL,
                              IID_ISpObjectTokenCategory, reinterpret_cast<void**>(&categoria))))
    return false;
  bool trovata = false;
  IEnumSpObjectTokens* elenco = nullptr;
  if (SUCCEEDED(categoria->SetId(SPCAT_VOICES, FALSE)) &&
      SUCCEEDED(categoria->EnumTokens(L"Language=410", nullptr, &elenco)) && elenco) {
    ISpObjectToken* segno = nullptr;
    if (elenco->Next(1, &segno, nullptr) == S_OK && segno) {
      trovata = SUCCEEDED(sapi->SetVoice(segno));
      segno->Release();
    }
    elenco->Release();
  }
  categoria->Release();
  return trovata;
}

bool ApriSapi() {
  const HRESULT inizio = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  voce.com = SUCCEEDED(inizio);
  if (FAILED(CoCreateInstance(CLSID_SpVoice, nullptr, CLSCTX_ALL, IID_ISpVoice,
                              reinterpret_cast<void**>(&voce.sapi))))
    voce.sapi = nullptr;
  // A voice that cannot speak at all (wine answers E_NOTIMPL) is no voice.
  if (voce.sapi && VoceItaliana(voce.sapi) &&
      SUCCEEDED(voce.sapi->Speak(L"", SPF_ASYNC | SPF_IS_NOT_XML, nullptr)))
    return true;
  if (voce.sapi) voce.sapi->Release();
  voce.sapi = nullptr;
  if (voce.com) CoUninitialize();
  voce.com = false;
  return false;
}

// `testo` in UTF-16 into `uscita` (room for `capienza` characters).
bool InUtf16(const char* testo, wchar_t* uscita, int capienza) {
  return MultiByteToWideChar(CP_UTF8, 0, testo, -1, uscita, capienza) > 0;
}

}  // namespace

bool ApriVoce() {
  if (voce.aperta) return true;
  voce.aperta = ApriNvda() || ApriSapi();
  return voce.aperta;
}

void Parla(const char* testo, PrioritaVoce priorita) {
  if (!voce.aperta || !testo) return;
  static wchar_t largo[4096];
  if (!InUtf16(testo, largo, int(sizeof largo / sizeof largo[0]))) return;
  const bool interrompe = priorita != PrioritaVoce::Messaggio;
  if (voce.nvda) {
    if (interrompe) voce.nvda_zitto();
    voce.nvda_di(largo);
    return;
  }
  DWORD modo = SPF_ASYNC | SPF_IS_NOT_XML;
  if (interrompe) modo |= SPF_PURGEBEFORESPEAK;
  voce.sapi->Speak(largo, modo, nullptr);
}

void ZittisciVoce() {
  if (!voce.aperta) return;
  if (voce.nvda)
    voce.nvda_zitto();
  else
    voce.sapi->Speak(nullptr, SPF_PURGEBEFORESPEAK, nullptr);
}

void ChiudiVoce() {
  if (!voce.aperta) return;
  if (voce.nvda) FreeLibrary(voce.nvda);
  if (voce.sapi) voce.sapi->Release();
  if (voce.com) CoUninitialize();
  voce = Voce{};
}

}  // namespace piattaforma
