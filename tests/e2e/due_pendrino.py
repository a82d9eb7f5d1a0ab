#!/usr/bin/env python3
"""Two Pendrino in one folder: the second says so in one sentence and ends
with status 1 without touching a file; once the first is killed (kill -9), a
new start takes the folder again and offers to resume the game.

Usage: due_pendrino.py <program> <TERM>
"""

import os
import signal
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from terminale_pty import (Fallito, Terminale, principale,  # noqa: E402
                           scrivi_impostazioni)

ATTESA = 10.0
IN_USO = "Pendrino e' gia' aperto in questa cartella"
RIPRENDERE = "La partita precedente non e' stata chiusa"


def istantanea(cartella):
    """Every file of the folder with its bytes and its modification time."""
    stato = {}
    for nome in sorted(os.listdir(cartella)):
        percorso = os.path.join(cartella, nome)
        with open(percorso, "rb") as f:
            stato[nome] = (f.read(), os.stat(percorso).st_mtime_ns)
    return stato


def prova(binario, terminale):
    errori = []
    with tempfile.TemporaryDirectory(prefix="pendrino-e2e-") as cartella:
        scrivi_impostazioni(cartella)
        primo = Terminale(binario, [], terminale, cartella)
        secondo = terzo = None
        try:
            primo.attendi(lambda: "Comando =>" in primo.riga(40), "the first program's screen",
                          ATTESA)
            for c in "e4\r":
                primo.invia(c.encode())
            primo.attendi(lambda: "tratto al nero" in primo.riga(21), "1. e4 played", ATTESA)
            primo.quiete()
            prima = istantanea(cartella)

            secondo = Terminale(binario, [], terminale, cartella)
            secondo.attendi(lambda: secondo.contiene(IN_USO), "the second program's sentence",
                            ATTESA)
            secondo.quiete()
            secondo.invia(b"\r")
            stato, _ = secondo.attendi_fine(ATTESA)
            if stato != 1:
                errori.append(f"the second program ended with status {stato}, not 1")
            dopo = istantanea(cartella)
            if dopo != prima:
                cambiati = sorted(n for n in set(prima) | set(dopo) if prima.get(n) != dopo.get(n))
                errori.append(f"the second program touched files: {cambiati}")
            if primo.finito:
                errori.append("the first program ended")

            # A lock dies with its process.
            os.kill(primo.figlio.pid, signal.SIGKILL)
            primo.attendi_fine(ATTESA)
            terzo = Terminale(binario, [], terminale, cartella)
            terzo.attendi(lambda: terzo.contiene(RIPRENDERE), "the resume question after kill -9",
                          ATTESA)
            if terzo.contiene(IN_USO):
                errori.append("the killed program still keeps the folder")
        except Fallito as e:
            errori.append(str(e))
        finally:
            for t in (primo, secondo, terzo):
                if t is not None:
                    t.termina()
    return errori, None


def main():
    return principale(__doc__, prova)


if __name__ == "__main__":
    sys.exit(main())
