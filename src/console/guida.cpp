#include "console/guida.h"

#include <cstdint>
#include <initializer_list>

#include "console/comandi.h"
#include "console/schermo.h"
#include "piattaforma/piattaforma.h"
#include "testo/composizione.h"

const char* const NomeFileGuida = "leggimi.html";

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

// Where the platform lets prefixes stand in for the chords its keyboard may
// not deliver (a terminal): how to type each command. Key names as the
// command table writes them.
const char SezioneTastiAlternativi[] =
    "<h3>Tasti alternativi nel terminale</h3><p>"
    "Nei terminali che non trasmettono le combinazioni di tasti:<br />"
    "esc, poi un tasto, vale come alt + quel tasto;<br />"
    "ctrl + x, poi un tasto, vale come ctrl + quel tasto;<br />"
    "ctrl + x due volte, poi un tasto, vale come ctrl + shift + quel tasto.<br />"
    "Un breve tono conferma ogni prefisso; esc, o ctrl + x una terza volta, annulla il prefisso "
    "in attesa.</p><table>"
    "<tr><th scope='column'>comando</th><th scope='column'>alternativa</th></tr>"
    "<tr><td scope='row'>ctrl + invio</td><td>ctrl + x, poi invio</td></tr>"
    "<tr><td scope='row'>ctrl + shift + invio</td><td>ctrl + x due volte, poi invio</td></tr>"
    "<tr><td scope='row'>ctrl + tasto piu'</td><td>ctrl + x, poi + o =</td></tr>"
    "<tr><td scope='row'>ctrl + tasto meno</td><td>ctrl + x, poi -</td></tr>"
    "<tr><td scope='row'>ctrl + canc</td><td>ctrl + x, poi canc o backspace</td></tr>"
    "<tr><td scope='row'>ctrl + 1 o 2</td><td>ctrl + x, poi 1 o 2</td></tr>"
    "<tr><td scope='row'>ctrl + shift + 1 o 2</td>"
    "<td>ctrl + x due volte, poi 1 o 2; oppure ctrl + x, poi ! o @</td></tr>"
    "<tr><td scope='row'>ctrl + m</td><td>ctrl + x, poi m</td></tr>"
    "<tr><td scope='row'>alt + numero da 1 a 5</td><td>esc, poi il numero da 1 a 5</td></tr>"
    "<tr><td scope='row'>alt + n</td><td>esc, poi n</td></tr>"
    "<tr><td scope='row'>alt + s</td><td>esc, poi s</td></tr>"
    "<tr><td scope='row'>alt + f4</td><td>esc, poi f4</td></tr>"
    "</table><p>"
    "Nei terminali che trasmettono le combinazioni (xterm, tmux e la maggior parte dei terminali "
    "grafici) valgono anche i tasti della tabella dei comandi.<br />"
    "ctrl + z sospende Pendrino; il comando fg lo riprende.</p><hr>";

// The pieces of a format "prima%sdopo": the value between.
void Parti(Composizione& c, const char* prima, const char* valore = "", const char* dopo = "") {
  c.Testo(prima);
  c.Testo(valore);
  c.Testo(dopo);
}

// The keys for screen-reader users, the announcement line and the profile:
// on every platform, after the notes.
void ParteLettoreDiSchermo(Composizione& c) {
  Parti(c, "<h3>", "Con un lettore di schermo", "</h3><p>");
  Parti(c,
        "Dopo ogni comando la riga degli annunci, in cima ai pannelli, dice con una frase che "
        "cosa e' successo, cominciando dalla notizia; il tasto home la rilegge.</p><table>");
  Parti(c, "<tr><th scope='column'>", "comando", "</th>");
  Parti(c, "<th scope='column'>", "funzione", "</th></tr>");
  for (const RigaComando& riga : TastiPerIlLettore) {
    Parti(c, "<tr><td scope='row'>", riga.tasti, "</td>");
    Parti(c, "<td>", riga.descrizione, "</td></tr>");
  }
  Parti(c, "</table><p>");
  Parti(c,
        "Nel file preferenze.ini il valore 1 di lettore_di_schermo toglie dallo schermo il "
        "disegno iniziale, la scacchiera e il tempo in moto aggiornato ogni secondo, che un "
        "lettore di schermo leggerebbe come rumore: li danno i tasti qui sopra.</p><hr>");
}

// The page with every section, with room to spare.
char TestoDellaGuida[1 << 14];

}  // namespace

size_t TestoElencoComandi(char* testo, size_t capienza) {
  Composizione c(testo, capienza);
  Parti(c, "<html><head>");
  Parti(c, "<title>", "Guida di Pendrino1.0", "</title>");
  Parti(c,
        "<style type='text/css'> td, th { padding-left: 50px; text-align: left; } "
        "</style></head><body>");
  Parti(c, "<h1>", "Pendrino1.0");
  Parti(c, " - ", "Orologio per gli scacchi", "</h1>");
  Parti(c, "<h2>", RigaDeiCrediti, "</h2>");
  Parti(c, "<h3>", "Comandi", "</h3><table>");
  Parti(c, "<tr><th scope='column'>", "comando", "</th>");
  Parti(c, "<th scope='column'>", "funzione", "</th></tr>");
  for (const RigaComando& riga : Comandi) {
    Parti(c, "<tr><td scope='row'>", riga.tasti, "</td>");
    // The closing tag lacks its '>' on purpose: the page is kept as it is
    // known, and browsers read it.
    Parti(c, "<td>", riga.descrizione, "</td</tr>");
  }
  Parti(c, "</table><br /><br />");
  Parti(c, "<hr><h3>", "Note", "</h3><p>");
  for (int i = 0; i < NOTE_USATE; ++i) Parti(c, "", Nota[i], "<br />");
  Parti(c, "</p><hr>");
  ParteLettoreDiSchermo(c);
  if (piattaforma::TastiConPrefissi()) Parti(c, SezioneTastiAlternativi);
  Parti(c, "</body></html>");
  return c.Lunghezza();
}

void ScriviElencoComandi() {
  const size_t lunghezza = TestoElencoComandi(TestoDellaGuida, sizeof TestoDellaGuida);
  // A page cut short would lose keys: the old one stays.
  if (lunghezza >= sizeof TestoDellaGuida) return;
  (void)piattaforma::SostituisciFileDiTesto(NomeFileGuida, TestoDellaGuida, lunghezza);
}
