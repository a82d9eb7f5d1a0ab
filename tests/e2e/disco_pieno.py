#!/usr/bin/env python3
"""A full disk under the real program: the game goes on, the journal notice
comes once, the game file asked for with Alt+S is said not to be written,
and the journal is whole again as soon as there is room.

Usage: disco_pieno.py <program> <TERM>

The working folder is a tmpfs of 64 KiB filled up after pendrino.ini is
written; mounting needs root, so elsewhere the test is skipped (exit 77).
"""

import os
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from terminale_pty import (SALTA, Fallito, Terminale, principale,  # noqa: E402
                           scrivi_impostazioni, tasti_del_terminale)

AVVISO = "Impossibile scrivere il giornale"
NON_SALVATA = "Impossibile scrivere il file partita.pgn"
ATTESA = 10.0


def riempi(cartella):
    """Writes a filler file until the disk refuses a byte more."""
    with open(os.path.join(cartella, "riempitivo"), "wb", buffering=0) as f:
        try:
            while True:
                f.write(b"\0" * 4096)
        except OSError:
            pass
        try:
            while True:
                f.write(b"\0")
        except OSError:
            pass


def digita(t, testo):
    for c in testo:
        t.invia(c.encode())
    t.invia(b"\r")


def giornale(cartella):
    percorso = os.path.join(cartella, "giornale.txt")
    if not os.path.exists(percorso):
        return []
    with open(percorso, encoding="ascii", errors="replace") as f:
        return f.read().splitlines()


def partita(t, tasti, cartella, errori):
    t.attendi(lambda: t.contiene(AVVISO), "the journal notice at start-up", ATTESA)
    t.quiete()
    x, y = t.cursore()
    if "Impossibile" not in t.riga(y):
        errori.append(f"the cursor is not on the notice: line {y} reads {t.riga(y)!r}")
    t.invia(b"\r")
    t.attendi(lambda: not t.contiene(AVVISO), "the notice closed", ATTESA)

    digita(t, "e4")
    t.attendi(lambda: "tratto al nero" in t.riga(21), "1. e4 played", ATTESA)
    digita(t, "e5")
    t.attendi(lambda: "Mossa 2, tratto al bianco" in t.riga(21), "1... e5 played", ATTESA)
    t.premi(tasti["alt_s"])
    t.attendi(lambda: t.contiene(NON_SALVATA), "the notice of the game file not saved", ATTESA)
    t.quiete()
    t.invia(b"\r")
    t.attendi(lambda: not t.contiene(NON_SALVATA), "the save notice closed", ATTESA)
    t.quiete(0.5)
    if t.contiene(AVVISO):
        errori.append("the journal notice came a second time in the same game")
    if os.path.exists(os.path.join(cartella, "partita.pgn")):
        errori.append("partita.pgn exists although the disk was full")
    lasciati = sorted(set(os.listdir(cartella)) - {"pendrino.ini", "preferenze.ini", "riempitivo",
                                                  "giornale.txt", "pendrino.blocco"})
    if lasciati:
        errori.append(f"files left behind on the full disk: {lasciati}")

    # Room again: the next event writes the journal whole.
    os.remove(os.path.join(cartella, "riempitivo"))
    digita(t, "Nf3")
    t.attendi(lambda: "Mossa 2, tratto al nero" in t.riga(21), "2. Nf3 played", ATTESA)
    t.quiete()
    mosse = [r.split()[6] for r in giornale(cartella) if r.startswith("M ")]
    if mosse != ["e4", "e5", "Nf3"]:
        errori.append(f"the journal after the disk freed up holds the moves {mosse}")
    if t.contiene(AVVISO):
        errori.append("the journal notice came again once the disk had room")

    t.premi(tasti["alt_f4"])
    t.attendi(lambda: t.contiene("Salvare la partita prima di uscire?"), "the exit question",
              ATTESA)
    t.invia(b"n")
    t.attendi_fine(ATTESA)
    if not giornale(cartella) or not giornale(cartella)[-1].startswith("F "):
        errori.append("the journal does not end with the exit record")


def prova(binario, terminale):
    errori = []
    tasti = tasti_del_terminale(terminale)
    # Alt+S: Esc then S on the console, the Meta byte pair elsewhere.
    tasti["alt_s"] = [b"\x1b", b"s"] if terminale == "linux" else [b"\x1bs"]
    with tempfile.TemporaryDirectory(prefix="pendrino-e2e-") as cartella:
        montato = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", cartella],
                                 capture_output=True)
        if montato.returncode != 0:
            print("SKIPPED: a full disk needs a tmpfs, which only root can mount here "
                  f"({montato.stderr.decode().strip()})")
            sys.exit(SALTA)
        try:
            scrivi_impostazioni(cartella)
            riempi(cartella)
            t = Terminale(binario, [], terminale, cartella)
            try:
                partita(t, tasti, cartella, errori)
            except Fallito as e:
                errori.append(f"{e}\n{t.mostra()}")
            finally:
                t.termina()
        finally:
            subprocess.run(["umount", cartella])
    return errori


def main():
    return principale(__doc__, lambda binario, terminale: (prova(binario, terminale), None))


if __name__ == "__main__":
    sys.exit(main())
