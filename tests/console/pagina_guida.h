// The help page as the program must write it, byte for byte, up to the end
// of the notes and of the section for screen-reader users; the section on
// the alternative keys (where the platform has them) and FINE_GUIDA follow.
#pragma once

#include <string>

// clang-format off
inline const std::string INIZIO_GUIDA =
    "<html><head><title>Guida di Pendrino1.0</title>"
    "<style type='text/css'> td, th { padding-left: 50px; text-align: left; } </style></head><body>"
    "<h1>Pendrino1.0 - Orologio per gli scacchi</h1>"
    "<h2>Pendrino 1.0 - il team di Pendrino</h2>"
    "<h3>Comandi</h3><table>"
    "<tr><th scope='column'>comando</th><th scope='column'>funzione</th></tr>"
    "<tr><td scope='row'>invio</td><td>Esegue la mossa specificata e preme l'orologio se in moto.</td</tr>"
    "<tr><td scope='row'>ctrl + invio</td><td>Orologio in moto.</td</tr>"
    "<tr><td scope='row'>ctrl + shift + invio</td><td>Ferma l'orologio.</td</tr>"
    "<tr><td scope='row'>ctrl + tasto piu' o meno</td><td>Aggiunge / sottrae al colore selezionato i minuti specificati.</td</tr>"
    "<tr><td scope='row'>ctrl + canc</td><td>Ritira l'ultima semimossa.</td</tr>"
    "<tr><td scope='row'>ctrl + A</td><td>Imposta l'aggiornamento automatico a schermo del tempo in moto al valore booleano specificato (0 disattivo, 1 attivo).</td</tr>"
    "<tr><td scope='row'>ctrl + p</td><td>Imposta il numero dei periodi al valore specificato (1 o 2).</td</tr>"
    "<tr><td scope='row'>ctrl + m</td><td>Imposta il numero delle mosse per il primo periodo al valore specificato.</td</tr>"
    "<tr><td scope='row'>ctrl + 1 o 2</td><td>Imposta il tempo del relativo periodo al valore specificato in minuti.</td</tr>"
    "<tr><td scope='row'>ctrl + shift + 1 o 2</td><td>Imposta l'incremento del relativo periodo al valore specificato in secondi.</td</tr>"
    "<tr><td scope='row'>alt + numero da 1 a 5</td><td>Imposta il relativo allarme al valore specificato in minuti</td</tr>"
    "<tr><td scope='row'>alt + n</td><td>Nuova partita.</td</tr>"
    "<tr><td scope='row'>alt + s</td><td>Salva la partita.</td</tr>"
    "<tr><td scope='row'>alt + f4</td><td>Esce da Pendrino</td</tr>"
    "<tr><td scope='row'>tasto T</td><td>Aggiorna manualmente a schermo il tempo del colore in moto se l'aggiornamento automatico e' disattivo</td</tr>"
    "<tr><td scope='row'>f1</td><td>Visualizza questa guida.</td</tr>"
    "<tr><td scope='row'>f5</td><td>Visualizza l'elenco delle mosse.</td</tr>"
    "<tr><td scope='row'>f9</td><td>Visualizza il file  partita.pgn.</td</tr>"
    "<tr><td scope='row'>f4</td><td>Il nero abbandona, aggiudicare la partita (1-0)</td</tr>"
    "<tr><td scope='row'>f8</td><td>Il bianco abbandona, aggiudicare la partita (0-1)</td</tr>"
    "<tr><td scope='row'>f12</td><td>Patta d'accordo, aggiudicare la partita (1/2-1/2)</td</tr>"
    "</table><br /><br />"
    "<hr><h3>Note</h3><p>"
    "Pendrino si utilizza esclusivamente da tastiera.<br />"
    "Per spostarvi tra le righe del programma utilizzate le frecce su e giu'.<br />"
    "Per specificare un valore od una mossa si pu\xF2" " digitare, ovunque si trovi, il focus si spostera' automaticamente nel campo comando.<br />"
    "Per aggiungere o sottrarre tempo ad uno dei giocatori, specificare il valore in minuti, posizionarsi con le frecce sul tempo del colore desiderato e poi premere il comando corrispondente.<br />"
    "Per impostare la cadenza di gioco, l'aggiornamento automatico e gli allarmi, specificare il valore desiderato e poi premere il relativo comando, oppure editare il file pendrino.ini.<br />"
    "Per disattivare un allarme, impostare il suo valore a 0 o ad un valore superiore al tempo totale.<br />"
    "Le modifiche apportate alla cadenza di gioco e al file pendrino.ini saranno effettive solo dopo il comando 'Nuova partita' o dopo il riavvio del programma.<br />"
    "Le modifiche all'aggiornamento automatico e agli allarmi, effettuate tramite i comandi del programma, avranno effetto immediato.<br />"
    "Per gli utilizzatori di lettori di schermo, visto che Pendrino aggiorna il tempo del orologio in moto ogni secondo,<br />con Jaws potete impostare il riscontro a schermo su nessuno premendo insert + s, <br /> con NVDA potete disattivare l'aggiornamento automatico a schermo del tempo in moto premendo il relativo comando oppure editando il file pendrino.ini<br />"
    "Per segnalazioni e suggerimenti consultate il file README.md del progetto Pendrino.<br />"
    "</p><hr>"
    "<h3>Con un lettore di schermo</h3><p>"
    "Dopo ogni comando la riga degli annunci, in cima ai pannelli, dice con una frase che cosa e' successo, cominciando dalla notizia; il tasto home la rilegge.</p><table>"
    "<tr><th scope='column'>comando</th><th scope='column'>funzione</th></tr>"
    "<tr><td scope='row'>ctrl + o</td><td>Legge il tempo di entrambi i colori, chi ha il tratto e le mosse che mancano al secondo periodo.</td></tr>"
    "<tr><td scope='row'>ctrl + u</td><td>Legge l'ultima mossa.</td></tr>"
    "<tr><td scope='row'>ctrl + b</td><td>Legge i pezzi del bianco e le loro case.</td></tr>"
    "<tr><td scope='row'>ctrl + n</td><td>Legge i pezzi del nero e le loro case.</td></tr>"
    "<tr><td scope='row'>ctrl + e</td><td>Legge che cosa c'e' nella casa scritta nel campo comando, per esempio e4.</td></tr>"
    "<tr><td scope='row'>pagina su, pagina giu'</td><td>Leggono il formulario una mossa alla volta, indietro e avanti, dall'ultima mossa.</td></tr>"
    "<tr><td scope='row'>ctrl + f, poi un numero da 1 a 9 o lo 0</td><td>Vale come il tasto funzione da f1 a f10; ctrl + f, poi - o =, vale come f11 o f12.</td></tr>"
    "<tr><td scope='row'>ctrl + f due volte, poi un numero</td><td>Vale come alt con il tasto funzione: ctrl + f due volte, poi 4, vale come alt + f4.</td></tr>"
    "</table><p>"
    "Nel file preferenze.ini il valore 1 di lettore_di_schermo toglie dallo schermo il disegno iniziale, la scacchiera e il tempo in moto aggiornato ogni secondo, che un lettore di schermo leggerebbe come rumore: li danno i tasti qui sopra.</p><hr>";

// The section on the keys that stand in for the chords, where the platform
// has them (TastiConPrefissi).
inline const std::string SEZIONE_TASTI_ALTERNATIVI =
    "<h3>Tasti alternativi nel terminale</h3><p>"
    "Nei terminali che non trasmettono le combinazioni di tasti:<br />"
    "esc, poi un tasto, vale come alt + quel tasto;<br />"
    "ctrl + x, poi un tasto, vale come ctrl + quel tasto;<br />"
    "ctrl + x due volte, poi un tasto, vale come ctrl + shift + quel tasto.<br />"
    "Un breve tono conferma ogni prefisso; esc, o ctrl + x una terza volta, annulla il prefisso in attesa.</p>"
    "<table><tr><th scope='column'>comando</th><th scope='column'>alternativa</th></tr>"
    "<tr><td scope='row'>ctrl + invio</td><td>ctrl + x, poi invio</td></tr>"
    "<tr><td scope='row'>ctrl + shift + invio</td><td>ctrl + x due volte, poi invio</td></tr>"
    "<tr><td scope='row'>ctrl + tasto piu'</td><td>ctrl + x, poi + o =</td></tr>"
    "<tr><td scope='row'>ctrl + tasto meno</td><td>ctrl + x, poi -</td></tr>"
    "<tr><td scope='row'>ctrl + canc</td><td>ctrl + x, poi canc o backspace</td></tr>"
    "<tr><td scope='row'>ctrl + 1 o 2</td><td>ctrl + x, poi 1 o 2</td></tr>"
    "<tr><td scope='row'>ctrl + shift + 1 o 2</td><td>ctrl + x due volte, poi 1 o 2; oppure ctrl + x, poi ! o @</td></tr>"
    "<tr><td scope='row'>ctrl + m</td><td>ctrl + x, poi m</td></tr>"
    "<tr><td scope='row'>alt + numero da 1 a 5</td><td>esc, poi il numero da 1 a 5</td></tr>"
    "<tr><td scope='row'>alt + n</td><td>esc, poi n</td></tr>"
    "<tr><td scope='row'>alt + s</td><td>esc, poi s</td></tr>"
    "<tr><td scope='row'>alt + f4</td><td>esc, poi f4</td></tr>"
    "</table><p>"
    "Nei terminali che trasmettono le combinazioni (xterm, tmux e la maggior parte dei terminali grafici) valgono anche i tasti della tabella dei comandi.<br />"
    "ctrl + z sospende Pendrino; il comando fg lo riprende.</p><hr>";
// clang-format on

inline const std::string FINE_GUIDA = "</body></html>";
