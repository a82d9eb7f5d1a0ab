#include "console/guida.h"

#include <cstdint>
#include <initializer_list>

#include "console/comandi.h"
#include "piattaforma/piattaforma.h"

const char* const NomeFileGuida = "leggimi.html";

const char* const RigaDeiCrediti = "Pendrino 1.0 - il team di Pendrino";

// Note 3's accented letter is the byte of the Windows code page; the page
// declares no character set.
const char* const Nota[NUMERO_NOTE] = {
    "Pendrino si utilizza esclusivamente da tastiera.",
    "Per spostarvi tra le righe del programma utilizzate le frecce su e giu'.",
    "Per specificare un valore od una mossa si pu\xF2"
    " digitare, ovunque si trovi, il focus si spostera' automaticamente nel campo comando.",
    "Per aggiungere o sottrarre tempo ad uno dei giocatori, specificare il valore in minuti, "
    "posizionarsi con le frecce sul tempo del colore desiderato e poi premere il comando "
    "corrispondente.",
    "Per impostare la cadenza di gioco, l'aggiornamento automatico e gli allarmi, specificare il "
    "valore desiderato e poi premere il relativo comando, oppure editare il file pendrino.ini.",
    "Per disattivare un allarme, impostare il suo valore a 0 o ad un valore superiore al tempo "
    "totale.",
    "Le modifiche apportate alla cadenza di gioco e al file pendrino.ini saranno effettive solo "
    "dopo il comando 'Nuova partita' o dopo il riavvio del programma.",
    "Le modifiche all'aggiornamento automatico e agli allarmi, effettuate tramite i comandi del "
    "programma, avranno effetto immediato.",
    "Per gli utilizzatori di lettori di schermo, visto che Pendrino aggiorna il tempo del orologio "
    "in moto ogni secondo,<br />con Jaws potete impostare il riscontro a schermo su nessuno "
    "premendo insert + s, <br /> con NVDA potete disattivare l'aggiornamento automatico a schermo "
    "del tempo in moto premendo il relativo comando oppure editando il file pendrino.ini",
    "Per segnalazioni e suggerimenti consultate il file README.md del progetto Pendrino.",
    "",
    "",
    "",
    "",
    "",
    "",
};

namespace {

// Appends to a fixed buffer, always zero-terminated; what does not fit is
// counted but not written, so the caller learns the whole length.
class Composizione {
 public:
  Composizione(char* testo, size_t capienza) : testo_(testo), capienza_(capienza) {
    if (capienza_ > 0) testo_[0] = 0;
  }
  // The pieces of a format "prima%sdopo": the value between.
  void Testo(const char* prima, const char* valore = "", const char* dopo = "") {
    for (const char* parte : {prima, valore, dopo})
      for (const char* c = parte; *c; ++c) Carattere(*c);
  }
  size_t Lunghezza() const { return usati_; }

 private:
  void Carattere(char c) {
    if (usati_ + 1 < capienza_) {
      testo_[usati_] = c;
      testo_[usati_ + 1] = 0;
    }
    ++usati_;
  }

  char* testo_;
  size_t capienza_;
  size_t usati_ = 0;
};

// The page with the longest section a platform supplies, with room to spare.
char TestoDellaGuida[1 << 14];

}  // namespace

size_t TestoElencoComandi(char* testo, size_t capienza) {
  Composizione c(testo, capienza);
  c.Testo("<html><head>");
  c.Testo("<title>", "Guida di Pendrino1.0", "</title>");
  c.Testo(
      "<style type='text/css'> td, th { padding-left: 50px; text-align: left; } "
      "</style></head><body>");
  c.Testo("<h1>", "Pendrino1.0");
  c.Testo(" - ", "Orologio per gli scacchi", "</h1>");
  c.Testo("<h2>", RigaDeiCrediti, "</h2>");
  c.Testo("<h3>", "Comandi", "</h3><table>");
  c.Testo("<tr><th scope='column'>", "comando", "</th>");
  c.Testo("<th scope='column'>", "funzione", "</th></tr>");
  for (const RigaComando& riga : Comandi) {
    c.Testo("<tr><td scope='row'>", riga.tasti, "</td>");
    // The closing tag lacks its '>' on purpose: the page is kept as it is
    // known, and browsers read it.
    c.Testo("<td>", riga.descrizione, "</td</tr>");
  }
  c.Testo("</table><br /><br />");
  c.Testo("<hr><h3>", "Note", "</h3><p>");
  for (int i = 0; i < NOTE_USATE; ++i) c.Testo("", Nota[i], "<br />");
  c.Testo("</p><hr>");
  if (const char* sezione = piattaforma::SezioneTastiAlternativi()) c.Testo(sezione);
  c.Testo("</body></html>");
  return c.Lunghezza();
}

void ScriviElencoComandi() {
  const size_t lunghezza = TestoElencoComandi(TestoDellaGuida, sizeof TestoDellaGuida);
  // A page cut short would lose keys: the old one stays.
  if (lunghezza >= sizeof TestoDellaGuida) return;
  (void)piattaforma::SostituisciFileDiTesto(NomeFileGuida, TestoDellaGuida, lunghezza);
}
