// Files: whole replacement through a temporary file and MoveFileEx, appends
// flushed to the disk before the call returns; symbolic links kept.
#include "piattaforma/windows/file.h"

#include <string>

#include "piattaforma/errore_file.h"
#include "piattaforma/piattaforma.h"
#include "piattaforma/tasti.h"

namespace piattaforma {

ErroreFile ErroreDaCodice(DWORD codice, bool cartella) {
  // ERROR_DISK_QUOTA_EXCEEDED, which mingw-w64's headers leave out.
  constexpr DWORD QUOTA_SUPERATA = 1295;
  if (codice == QUOTA_SUPERATA) return ErroreFile::DiscoPieno;
  switch (codice) {
    case ERROR_ACCESS_DENIED:
      return cartella ? ErroreFile::NonUnFile : ErroreFile::Permesso;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return cartella ? ErroreFile::NonUnFile : ErroreFile::Altro;
    case ERROR_WRITE_PROTECT:
      return ErroreFile::Permesso;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_FILE_TOO_LARGE:
      return ErroreFile::DiscoPieno;
    default:
      return ErroreFile::Altro;
  }
}

namespace {

bool NomeValido(const char* nome) { return nome != nullptr && nome[0] != 0; }

bool Cartella(const char* nome) {
  const DWORD attributi = GetFileAttributesA(nome);
  return attributi != INVALID_FILE_ATTRIBUTES && (attributi & FILE_ATTRIBUTE_DIRECTORY);
}

// A failed call's answer, with the reason of `codice` at `nome`.
bool Fallito(DWORD codice, const char* nome) {
  return EsitoFile(false, ErroreDaCodice(codice, Cartella(nome)));
}

// WriteFile takes a DWORD: large buffers go in pieces.
constexpr size_t PASSO = size_t{1} << 30;

bool ScriviTutto(HANDLE file, const char* dati, size_t lunghezza) {
  while (lunghezza > 0) {
    const DWORD passo = static_cast<DWORD>(lunghezza < PASSO ? lunghezza : PASSO);
    DWORD scritti = 0;
    if (!WriteFile(file, dati, passo, &scritti, nullptr) || scritti == 0) return false;
    dati += scritti;
    lunghezza -= scritti;
  }
  return true;
}

// The file a name stands for: a symbolic link is followed to the file it
// names, so that a save replaces that file and the link stays. A link whose
// file is missing cannot be followed from here (the system resolves a link
// only by opening what it names) and is then replaced like a file.
std::string FileVero(const char* nome) {
  const DWORD attributi = GetFileAttributesA(nome);
  if (attributi == INVALID_FILE_ATTRIBUTES || !(attributi & FILE_ATTRIBUTE_REPARSE_POINT))
    return nome;
  HANDLE file = CreateFileA(nome, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                            nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return nome;
  char percorso[4 * MAX_PATH];
  const DWORD n = GetFinalPathNameByHandleA(file, percorso, sizeof percorso,
                                            FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
  CloseHandle(file);
  if (n == 0 || n >= sizeof percorso) return nome;
  // "\\?\C:\..." and "\\?\UNC\server\..." back to their ordinary forms.
  std::string vero = percorso;
  if (vero.rfind(R"(\\?\UNC\)", 0) == 0)
    vero = R"(\\)" + vero.substr(8);
  else if (vero.rfind(R"(\\?\)", 0) == 0)
    vero = vero.substr(4);
  return vero;
}

}  // namespace

bool SostituisciFile(const char* nome_dato, const char* dati, size_t lunghezza) {
  if (!NomeValido(nome_dato) || (dati == nullptr && lunghezza > 0))
    return EsitoFile(false, ErroreFile::Altro);
  const std::string vero = FileVero(nome_dato);
  const char* nome = vero.c_str();
  const std::string temporaneo = vero + ".tmp";
  HANDLE file = CreateFileA(temporaneo.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return Fallito(GetLastError(), temporaneo.c_str());
  bool riuscito = ScriviTutto(file, dati, lunghezza) && FlushFileBuffers(file);
  DWORD errore = riuscito ? 0 : GetLastError();
  if (!CloseHandle(file) && riuscito) {
    riuscito = false;
    errore = GetLastError();
  }
  if (riuscito &&
      !MoveFileExA(temporaneo.c_str(), nome, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
    riuscito = false;
    errore = GetLastError();
  }
  if (!riuscito) {
    DeleteFileA(temporaneo.c_str());
    return Fallito(errore, nome);
  }
  return EsitoFile(true, ErroreFile::Nessuno);
}

int64_t LeggiFile(const char* nome, uint64_t inizio, char* destinazione, size_t capienza) {
  if (!NomeValido(nome) || (destinazione == nullptr && capienza > 0)) {
    ImpostaErroreFile(ErroreFile::Altro);
    return -1;
  }
  // Shared with writers and renames, so that reading never blocks a save.
  HANDLE file =
      CreateFileA(nome, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    Fallito(GetLastError(), nome);
    return -1;
  }
  if (capienza > static_cast<size_t>(INT64_MAX)) capienza = static_cast<size_t>(INT64_MAX);
  size_t letti = 0;
  DWORD errore = 0;
  while (letti < capienza) {
    const uint64_t posizione = inizio + letti;
    if (posizione > static_cast<uint64_t>(INT64_MAX)) break;  // past any file's end
    const size_t resto = capienza - letti;
    const DWORD passo = static_cast<DWORD>(resto < PASSO ? resto : PASSO);
    OVERLAPPED da{};
    da.Offset = static_cast<DWORD>(posizione);
    da.OffsetHigh = static_cast<DWORD>(posizione >> 32);
    DWORD n = 0;
    if (!ReadFile(file, destinazione + letti, passo, &n, &da)) {
      if (GetLastError() != ERROR_HANDLE_EOF) errore = GetLastError();
      break;
    }
    if (n == 0) break;
    letti += n;
  }
  CloseHandle(file);
  if (errore) {
    Fallito(errore, nome);
    return -1;
  }
  ImpostaErroreFile(ErroreFile::Nessuno);
  return static_cast<int64_t>(letti);
}

bool AccodaAlFile(const char* nome, const char* dati, size_t lunghezza) {
  if (!NomeValido(nome) || (dati == nullptr && lunghezza > 0))
    return EsitoFile(false, ErroreFile::Altro);
  HANDLE file = CreateFileA(nome, FILE_APPEND_DATA, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return Fallito(GetLastError(), nome);
  bool riuscito = ScriviTutto(file, dati, lunghezza) && FlushFileBuffers(file);
  DWORD errore = riuscito ? 0 : GetLastError();
  if (!CloseHandle(file) && riuscito) {
    riuscito = false;
    errore = GetLastError();
  }
  return riuscito ? EsitoFile(true, ErroreFile::Nessuno) : Fallito(errore, nome);
}

bool RinominaFile(const char* vecchio, const char* nuovo) {
  if (!NomeValido(vecchio) || !NomeValido(nuovo)) return EsitoFile(false, ErroreFile::Altro);
  const std::string vero_nuovo = FileVero(nuovo);
  if (!MoveFileExA(FileVero(vecchio).c_str(), vero_nuovo.c_str(),
                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
    return Fallito(GetLastError(), vero_nuovo.c_str());
  return EsitoFile(true, ErroreFile::Nessuno);
}

bool EliminaFile(const char* nome) {
  if (!NomeValido(nome)) return EsitoFile(false, ErroreFile::Altro);
  const std::string vero = FileVero(nome);
  if (!DeleteFileA(vero.c_str())) return Fallito(GetLastError(), vero.c_str());
  return EsitoFile(true, ErroreFile::Nessuno);
}

namespace {

// The files locked by this process, by identity, so that a second call on
// the same file does not meet our own lock; their handles stay open until
// the process ends, when the system lets the locks go.
struct FileBloccato {
  DWORD volume, indice_alto, indice_basso;
};
constexpr int MASSIMO_BLOCCHI = 8;
FileBloccato bloccati[MASSIMO_BLOCCHI];
int numero_bloccati = 0;

}  // namespace

bool BloccaFile(const char* nome) {
  if (!NomeValido(nome)) return true;
  // Not inheritable (no security attributes): a viewer started with the
  // system's own command does not keep the lock.
  constexpr DWORD CONDIVISO = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  HANDLE file = CreateFileA(nome, GENERIC_READ | GENERIC_WRITE, CONDIVISO, nullptr, OPEN_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE)
    file = CreateFileA(nome, GENERIC_READ, CONDIVISO, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
  if (file == INVALID_HANDLE_VALUE) return true;
  BY_HANDLE_FILE_INFORMATION informazioni{};
  const bool identificato = GetFileInformationByHandle(file, &informazioni) != 0;
  const FileBloccato questo{informazioni.dwVolumeSerialNumber, informazioni.nFileIndexHigh,
                            informazioni.nFileIndexLow};
  for (int i = 0; identificato && i < numero_bloccati; ++i) {
    if (bloccati[i].volume == questo.volume && bloccati[i].indice_alto == questo.indice_alto &&
        bloccati[i].indice_basso == questo.indice_basso) {
      CloseHandle(file);
      return true;
    }
  }
  // One byte far past any data: a lock on a range stops others reading it,
  // and the file must stay readable.
  OVERLAPPED da{};
  da.OffsetHigh = 0x7FFFFFFF;
  if (!LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &da)) {
    const bool altrui = GetLastError() == ERROR_LOCK_VIOLATION;
    CloseHandle(file);
    return !altrui;
  }
  if (identificato && numero_bloccati < MASSIMO_BLOCCHI) bloccati[numero_bloccati++] = questo;
  return true;
}

}  // namespace piattaforma
