// Files: whole replacement through a temporary file and a rename, appends
// that reach the disk before the call returns.
#include "piattaforma/posix/file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>

#include "piattaforma/errore_file.h"
#include "piattaforma/piattaforma.h"

namespace piattaforma {

ErroreFile ErroreDaErrno(int numero) {
  switch (numero) {
    case EACCES:
    case EPERM:
    case EROFS:
      return ErroreFile::Permesso;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:  // past the size the system lets a file of ours grow to
      return ErroreFile::DiscoPieno;
    case EISDIR:
      return ErroreFile::NonUnFile;
    default:
      return ErroreFile::Altro;
  }
}

namespace {

bool NomeValido(const char* nome) { return nome != nullptr && nome[0] != 0; }

// A failed call's answer, with the reason errno gives.
bool FallitoPerErrno() { return EsitoFile(false, ErroreDaErrno(errno)); }

int Apri(const char* nome, int modo) {
  int fd;
  do {
    fd = open(nome, modo | O_CLOEXEC, 0666);
  } while (fd < 0 && errno == EINTR);
  return fd;
}

void Chiudi(int fd) {
  // Retrying close after EINTR could close a descriptor another thread just
  // received; the data were already synced when it matters.
  if (fd >= 0) close(fd);
}

// Writes every byte, through interruptions and short writes; false on the
// first error (the bytes before it stay written).
bool ScriviTutto(int fd, const char* dati, size_t lunghezza) {
  while (lunghezza > 0) {
    const size_t passo = lunghezza < (size_t{1} << 30) ? lunghezza : (size_t{1} << 30);
    const ssize_t scritti = write(fd, dati, passo);
    if (scritti < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    if (scritti == 0) {  // no room and no error: nothing would ever move
      errno = ENOSPC;
      return false;
    }
    dati += scritti;
    lunghezza -= static_cast<size_t>(scritti);
  }
  return true;
}

bool Sincronizza(int fd, bool solo_dati) {
  int esito;
  do {
#ifdef __APPLE__
    (void)solo_dati;
    esito = fsync(fd);
#else
    esito = solo_dati ? fdatasync(fd) : fsync(fd);
#endif
  } while (esito != 0 && errno == EINTR);
  return esito == 0;
}

std::string CartellaDi(const char* nome) {
  const char* barra = std::strrchr(nome, '/');
  if (barra == nullptr) return ".";
  if (barra == nome) return "/";
  return std::string(nome, static_cast<size_t>(barra - nome));
}

// Makes a created, renamed or removed name durable. Some file systems refuse
// fsync on a folder; the change itself has happened by then, so the answer
// is not turned into a failure.
void SincronizzaCartella(const std::string& cartella) {
  const int fd = Apri(cartella.c_str(), O_RDONLY | O_DIRECTORY);
  if (fd < 0) return;
  Sincronizza(fd, false);
  Chiudi(fd);
}

// The file a name stands for. A symbolic link is followed, link after link,
// to the file it names, so that a save replaces that file and the links
// stay as the user made them; a link to a file that does not exist yet
// names the file to make. Empty when the links go round in a ring (or too
// deep to follow): no file is meant, and the call fails.
std::string FileVero(const char* nome) {
  constexpr int MASSIMO_COLLEGAMENTI = 40;  // as the kernel's own limit
  std::string percorso = nome;
  for (int salti = 0; salti <= MASSIMO_COLLEGAMENTI; ++salti) {
    struct stat stato {};
    if (lstat(percorso.c_str(), &stato) != 0 || !S_ISLNK(stato.st_mode)) return percorso;
    std::string bersaglio(stato.st_size > 0 ? static_cast<size_t>(stato.st_size) + 1 : 256, 0);
    const ssize_t n = readlink(percorso.c_str(), bersaglio.data(), bersaglio.size());
    // Unreadable, or changed under us: no file can be named with certainty.
    if (n <= 0 || static_cast<size_t>(n) >= bersaglio.size()) return std::string();
    bersaglio.resize(static_cast<size_t>(n));
    if (bersaglio[0] != '/') {
      const std::string cartella = CartellaDi(percorso.c_str());
      if (cartella != ".") bersaglio = (cartella == "/" ? "" : cartella) + "/" + bersaglio;
    }
    percorso = bersaglio;
  }
  return std::string();
}

}  // namespace

bool SostituisciFile(const char* nome_dato, const char* dati, size_t lunghezza) {
  if (!NomeValido(nome_dato) || (dati == nullptr && lunghezza > 0))
    return EsitoFile(false, ErroreFile::Altro);
  const std::string vero = FileVero(nome_dato);
  if (vero.empty()) return EsitoFile(false, ErroreFile::Altro);
  const char* nome = vero.c_str();
  const std::string temporaneo = vero + ".tmp";
  // A leftover of an interrupted save goes; a link in its place is removed,
  // never followed, and anything else there (a folder) makes the save fail.
  const int rimosso = unlink(temporaneo.c_str()) == 0 ? 0 : errno;
  const int fd = Apri(temporaneo.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW);
  if (fd < 0) {
    if (errno != EEXIST) return FallitoPerErrno();
    // Still there after the unlink: a folder, or a file the folder's
    // permissions keep.
    struct stat resto {};
    if (lstat(temporaneo.c_str(), &resto) == 0 && S_ISREG(resto.st_mode))
      return EsitoFile(false, ErroreDaErrno(rimosso));
    return EsitoFile(false, ErroreFile::NonUnFile);
  }
  // The new file keeps the old one's permissions.
  struct stat vecchio {};
  if (stat(nome, &vecchio) == 0 && S_ISREG(vecchio.st_mode)) fchmod(fd, vecchio.st_mode & 07777);
  bool riuscito = ScriviTutto(fd, dati, lunghezza) && Sincronizza(fd, false);
  int errore = riuscito ? 0 : errno;
  // Some file systems report a failed write only at close.
  if (close(fd) != 0 && errno != EINTR && riuscito) {
    riuscito = false;
    errore = errno;
  }
  if (riuscito && rename(temporaneo.c_str(), nome) != 0) {
    riuscito = false;
    errore = errno;
  }
  if (!riuscito) {
    unlink(temporaneo.c_str());
    return EsitoFile(false, ErroreDaErrno(errore));
  }
  SincronizzaCartella(CartellaDi(nome));
  return EsitoFile(true, ErroreFile::Nessuno);
}

int64_t LeggiFile(const char* nome, uint64_t inizio, char* destinazione, size_t capienza) {
  if (!NomeValido(nome) || (destinazione == nullptr && capienza > 0)) {
    ImpostaErroreFile(ErroreFile::Altro);
    return -1;
  }
  const int fd = Apri(nome, O_RDONLY);
  if (fd < 0) {
    FallitoPerErrno();
    return -1;
  }
  ImpostaErroreFile(ErroreFile::Nessuno);
  // No file can reach an offset beyond off_t: that is past its end.
  if (inizio > static_cast<uint64_t>(std::numeric_limits<off_t>::max())) {
    Chiudi(fd);
    return 0;
  }
  if (capienza > static_cast<size_t>(std::numeric_limits<int64_t>::max()))
    capienza = static_cast<size_t>(std::numeric_limits<int64_t>::max());
  size_t letti = 0;
  while (letti < capienza) {
    const size_t resto = capienza - letti;
    const size_t passo = resto < (size_t{1} << 30) ? resto : (size_t{1} << 30);
    const uint64_t posizione = inizio + letti;
    if (posizione > static_cast<uint64_t>(std::numeric_limits<off_t>::max())) break;
    const ssize_t n = pread(fd, destinazione + letti, passo, static_cast<off_t>(posizione));
    if (n < 0) {
      if (errno == EINTR) continue;
      FallitoPerErrno();
      Chiudi(fd);
      return -1;
    }
    if (n == 0) break;
    letti += static_cast<size_t>(n);
  }
  Chiudi(fd);
  return static_cast<int64_t>(letti);
}

bool AccodaAlFile(const char* nome_dato, const char* dati, size_t lunghezza) {
  if (!NomeValido(nome_dato) || (dati == nullptr && lunghezza > 0))
    return EsitoFile(false, ErroreFile::Altro);
  const std::string vero = FileVero(nome_dato);
  if (vero.empty()) return EsitoFile(false, ErroreFile::Altro);
  const char* nome = vero.c_str();
  bool creato = false;
  int fd = Apri(nome, O_WRONLY | O_APPEND);
  if (fd < 0 && errno == ENOENT) {
    fd = Apri(nome, O_WRONLY | O_APPEND | O_CREAT);
    creato = fd >= 0;
  }
  if (fd < 0) return FallitoPerErrno();
  bool riuscito = ScriviTutto(fd, dati, lunghezza) && Sincronizza(fd, true);
  int errore = riuscito ? 0 : errno;
  if (close(fd) != 0 && errno != EINTR && riuscito) {
    riuscito = false;
    errore = errno;
  }
  if (creato) SincronizzaCartella(CartellaDi(nome));
  return EsitoFile(riuscito, ErroreDaErrno(errore));
}

bool RinominaFile(const char* vecchio_dato, const char* nuovo_dato) {
  if (!NomeValido(vecchio_dato) || !NomeValido(nuovo_dato))
    return EsitoFile(false, ErroreFile::Altro);
  // The file moves from where one link points to where the other does.
  const std::string vero_vecchio = FileVero(vecchio_dato), vero_nuovo = FileVero(nuovo_dato);
  if (vero_vecchio.empty() || vero_nuovo.empty()) return EsitoFile(false, ErroreFile::Altro);
  const char *vecchio = vero_vecchio.c_str(), *nuovo = vero_nuovo.c_str();
  if (rename(vecchio, nuovo) != 0) return FallitoPerErrno();
  const std::string cartella_nuovo = CartellaDi(nuovo), cartella_vecchio = CartellaDi(vecchio);
  SincronizzaCartella(cartella_nuovo);
  if (cartella_vecchio != cartella_nuovo) SincronizzaCartella(cartella_vecchio);
  return EsitoFile(true, ErroreFile::Nessuno);
}

bool EliminaFile(const char* nome_dato) {
  if (!NomeValido(nome_dato)) return EsitoFile(false, ErroreFile::Altro);
  // A link stays, to name the file made next.
  const std::string vero = FileVero(nome_dato);
  if (vero.empty()) return EsitoFile(false, ErroreFile::Altro);
  const char* nome = vero.c_str();
  // unlink never removes a folder, as a file call should not.
  if (unlink(nome) != 0) return FallitoPerErrno();
  SincronizzaCartella(CartellaDi(nome));
  return EsitoFile(true, ErroreFile::Nessuno);
}

namespace {

// The files locked by this process, by identity, so that a second call on
// the same file (by any name) does not meet our own lock. Their descriptors
// stay open until the process ends: closing one would let its lock go.
struct FileBloccato {
  dev_t dispositivo;
  ino_t nodo;
};
constexpr int MASSIMO_BLOCCHI = 8;
FileBloccato bloccati[MASSIMO_BLOCCHI];
int numero_bloccati = 0;

bool GiaBloccato(const struct stat& stato) {
  for (int i = 0; i < numero_bloccati; ++i)
    if (bloccati[i].dispositivo == stato.st_dev && bloccati[i].nodo == stato.st_ino) return true;
  return false;
}

}  // namespace

bool BloccaFile(const char* nome) {
  if (!NomeValido(nome)) return true;
  // flock rather than fcntl locks: they belong to this descriptor, not to
  // the process, so no other open or close of the same file here lets them
  // go. The descriptor is closed on exec (Apri), so a viewer or pager that
  // outlives us does not keep the folder locked.
  int fd = Apri(nome, O_RDWR | O_CREAT | O_NOCTTY);
  if (fd < 0 && (errno == EACCES || errno == EROFS || errno == EPERM))
    fd = Apri(nome, O_RDONLY | O_NOCTTY);  // a lock needs no writing
  if (fd < 0) return true;
  struct stat stato {};
  if (fstat(fd, &stato) == 0 && GiaBloccato(stato)) {
    Chiudi(fd);
    return true;
  }
  int esito;
  do {
    esito = flock(fd, LOCK_EX | LOCK_NB);
  } while (esito != 0 && errno == EINTR);
  if (esito != 0) {
    const bool altrui = errno == EWOULDBLOCK;
    Chiudi(fd);
    return !altrui;
  }
  if (numero_bloccati < MASSIMO_BLOCCHI) bloccati[numero_bloccati++] = {stato.st_dev, stato.st_ino};
  return true;
}

}  // namespace piattaforma
