#!/usr/bin/python3
"""A message box on whole lines, as a screen reader reads them.

Usage: riquadro_intero.py <pendrino binary> <TERM>

A screen reader reads the whole line under the cursor, so a box line that
still showed pieces of the panel under it would be read with them. Two boxes
of the program, each over lines of the panel, are checked: the exit question
(Alt+F4) and the notice that Ctrl+plus gives with an empty command field.
For each, every line the box occupies reads only the box's own text (its
title, a line of its text, its buttons, or nothing), the box keeps its block
in reverse video with nothing in reverse video around it, the cursor stands
at the start of its text, and once the box closes the screen, its attributes
and the cursor are exactly as before.
"""

import os
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from terminale_pty import (principale, COLONNE, RIGHE, Fallito, Terminale,  # noqa: E402
                           scrivi_impostazioni, tasti_del_terminale)

ATTESA = 15.0
TITOLO = "Attenzione!"

# Each box: the key that opens it, its lines as read with the blanks at both
# ends stripped, and the key that closes it.
RIQUADRI = [
    ("the exit question", "alt_f4",
     [TITOLO, "", "Salvare la partita prima di uscire?", "", "[ Sì ]   [ No ]   [ Annulla ]", ""],
     b"a"),
    ("the minutes notice", "ctrl_piu",
     [TITOLO, "", "Nessun valore specificato per i minuti.",
      "I valori ammessi sono compresi da 1 a 30.", "", "[ OK ]", ""],
     b"\r"),
]


def inversi(t, y):
    """The columns of line y shown in reverse video."""
    return [x for x in range(COLONNE) if t.schermo.buffer[y][x].reverse]


def fotografia(t):
    """What is shown, with the reverse-video cells and the cursor."""
    return list(t.schermo.display), [inversi(t, y) for y in range(RIGHE)], t.cursore()


def controlla_righe_intere(t, nome, attese, errori):
    righe = [y for y in range(RIGHE) if inversi(t, y)]
    if not righe or righe != list(range(righe[0], righe[0] + len(attese))):
        errori.append(f"{nome}: lines in reverse video {righe}, expected {len(attese)} "
                      f"lines in a row\n{t.mostra()}")
        return
    sinistra = min(inversi(t, righe[0]))
    destra = max(inversi(t, righe[0]))
    for y, attesa in zip(righe, attese):
        riga = t.riga(y)
        # The whole line, as a screen reader reads it.
        if riga.strip() != attesa:
            errori.append(f"{nome}: line {y} reads {riga!r}, expected only {attesa!r}")
        scritti = [x for x, c in enumerate(riga) if c != " "]
        if scritti and (scritti[0] < sinistra or scritti[-1] > destra):
            errori.append(f"{nome}: line {y} has text outside the box "
                          f"(columns {sinistra}-{destra}): {riga!r}")
        colonne = inversi(t, y)
        # The first button is in normal video: only the ends must match.
        if min(colonne) != sinistra or max(colonne) != destra:
            errori.append(f"{nome}: line {y} in reverse video from {min(colonne)} to "
                          f"{max(colonne)}, the box from {sinistra} to {destra}")
    x, y = t.cursore()
    testo = attese[2]
    if not (y == righe[2] and t.riga(y)[x:].startswith(testo)):
        errori.append(f"{nome}: cursor at ({x}, {y}), not at the start of {testo!r}")


def prova(binario, terminale):
    errori = []
    tasti = tasti_del_terminale(terminale)
    with tempfile.TemporaryDirectory(prefix="pendrino-e2e-") as cartella:
        scrivi_impostazioni(cartella)
        t = Terminale(binario, [], terminale, cartella)
        try:
            t.attendi(lambda: t.riga(40)[27:37] == "Comando =>" and t.cursore() == (44, 40),
                      "the main screen with the cursor on the command field", ATTESA)
            t.quiete()
            prima = fotografia(t)
            for nome, tasto, attese, chiusura in RIQUADRI:
                t.premi(tasti[tasto])
                t.attendi(lambda: t.contiene(attese[2]), f"{nome} shown", ATTESA)
                t.quiete()
                controlla_righe_intere(t, nome, attese, errori)
                t.invia(chiusura)
                try:
                    t.attendi(lambda: fotografia(t) == prima, f"the screen as before {nome}",
                              ATTESA)
                except Fallito as e:
                    errori.append(f"{nome}: the screen did not come back: {e}")
                t.quiete()
                if fotografia(t) != prima:
                    errori.append(f"{nome}: the screen changed after it closed\n{t.mostra()}")
        except Fallito as e:
            errori.append(str(e))
        finally:
            t.termina()
    return errori


def main():
    return principale(__doc__, lambda binario, terminale: (prova(binario, terminale), None))


if __name__ == "__main__":
    sys.exit(main())
