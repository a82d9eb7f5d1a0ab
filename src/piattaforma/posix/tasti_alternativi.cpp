// The help page's section on the terminal's key prefixes: many terminals
// never send Ctrl or Alt with some keys, and the decoder lets Esc and Ctrl+X
// stand in for them. Key names as the command table writes them.
#include "piattaforma/piattaforma.h"

namespace piattaforma {

namespace {

const char SezioneTerminale[] =
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

}  // namespace

const char* SezioneTastiAlternativi() { return SezioneTerminale; }

}  // namespace piattaforma
