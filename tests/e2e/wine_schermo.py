#!/usr/bin/python3
"""The Windows program's start screen under wine, in an 80 x 44 pseudo-terminal.

Usage: wine_schermo.py <pendrino.exe>

Wine writes a console program's output as terminal codes only when its
standard handles are a terminal, so the program runs in a pseudo-terminal
and its output is read through pyte, as the POSIX screen tests do. Checked:
the console title, the header (knight, banner, "Orologio per gli scacchi"
and a centred credit line), the panel lines of a new game, the board, both
times, the command field with the cursor on it; then "e4" and Enter reach
the program as key records and the board and half-move line follow.

Without a display wine's message boxes cannot be answered, so the program
is not asked to leave: it is killed at the end. WINEPREFIX comes from the
environment (the Makefile's) or is build/wine beside the build folder.
Exit 77 (a skip) with the reason when wine, the program or pyte is missing.
"""

import os
import shutil
import signal
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from terminale_pty import (COLONNE, SALTA, Fallito, Terminale,  # noqa: E402
                           scrivi_impostazioni)

# Wine's console writes slowly (a few kilobytes a second): the whole screen
# takes about 15 s, a new prefix about 10 s more.
ATTESA = 45.0
TITOLO = b"\x1b]0;Pendrino1.0\x07"


def salta(motivo):
    barra = "!" * 72
    sys.stdout.write(f"SKIPPED: {motivo}\n{barra}\n")
    sys.exit(SALTA)


def centrata(testo):
    margine = (COLONNE - len(testo)) // 2
    return (" " * margine + testo).ljust(COLONNE)


def scacchiera(righe):
    return {24 + r: (" " * 27 + str(8 - r)).ljust(30) +
            "".join(f" {c} " if c != "-" else " - " for c in riga).ljust(COLONNE - 30)
            for r, riga in enumerate(righe)}


INIZIALE = ["rnbqkbnr", "pppppppp", "--------", "--------",
            "--------", "--------", "PPPPPPPP", "RNBQKBNR"]
DOPO_E4 = INIZIALE[:4] + ["----P---", "--------", "PPPP-PPP", "RNBQKBNR"]


def righe_attese(partita_iniziata):
    righe = {
        17: centrata("Cadenza di gioco: 7200"),
        18: centrata("La posizione corrente " +
                     ("non si e' mai verificata prima" if partita_iniziata else "e' quella iniziale")),
        19: centrata("Diritti d'arrocco: bianco entrambi, nero entrambi"),
        20: centrata("Semimosse: ultima e4, reversibili 0, totali 1" if partita_iniziata
                     else "Semimosse: reversibili 0, totali 0"),
        21: centrata("Mossa 1, tratto al nero, orologio fermo" if partita_iniziata
                     else "Mossa 1, tratto al bianco, orologio fermo"),
        34: " " * 30 + " A  B  C  D  E  F  G  H".ljust(COLONNE - 30),
        37: (" " * 27 + "Bianco:").ljust(43) + " 02:00:00".ljust(COLONNE - 43),
        38: (" " * 27 + "Nero:").ljust(43) + " 02:00:00".ljust(COLONNE - 43),
        40: (" " * 27 + "Comando =>").ljust(COLONNE),
        42: "  " + "-" * 76 + "  ",
    }
    righe.update(scacchiera(DOPO_E4 if partita_iniziata else INIZIALE))
    return righe


def differenze(t, righe):
    return [f"line {y}: {t.riga(y)!r}\n      expected {attesa!r}"
            for y, attesa in righe.items() if t.riga(y) != attesa]


def attendi_schermo(t, righe, cursore, passo, errori):
    try:
        t.attendi(lambda: not differenze(t, righe) and t.cursore() == cursore, passo, ATTESA)
    except Fallito:
        pass
    t.quiete(0.5)
    diverse = differenze(t, righe)
    if diverse:
        errori.append(f"{passo}: lines differ:\n    " + "\n    ".join(diverse))
    if t.cursore() != cursore:
        errori.append(f"{passo}: cursor at {t.cursore()}, expected {cursore}")
    return not diverse


def prova(exe, cartella):
    errori = []
    scrivi_impostazioni(cartella)
    t = Terminale(shutil.which("wine"), [exe], "xterm-256color", cartella)
    try:
        if not attendi_schermo(t, righe_attese(False), (44, 40), "the start screen", errori):
            return errori, t
        if TITOLO not in t.ricevuto:
            errori.append(f"the console title {TITOLO!r} was not set")
        if t.riga(11)[35:59] != "Orologio per gli scacchi":
            errori.append(f"line 11: {t.riga(11)!r}")
        for y, inizio in ((2, "    /\\^__"), (12, "  ============"), (14, "  " + "-" * 76)):
            if not t.riga(y).startswith(inizio):
                errori.append(f"line {y}: {t.riga(y)!r} should start with {inizio!r}")
        insegna = [t.riga(y)[15:79] for y in range(4, 9)]
        if not all(riga[x:x + 2] in ("||", "//", "\\\\", "  ") for riga in insegna
                   for x in range(0, 64, 2)) or not any(r.strip() for r in insegna):
            errori.append("the banner is not made of strokes:\n" + "\n".join(insegna))
        credito = t.riga(12)[15:].strip()
        if not credito or t.riga(12).index(credito) != (64 - len(credito)) // 2 + 15:
            errori.append(f"the credit line is missing or not centred: {t.riga(12)!r}")

        # Keys reach the program through the console input.
        for c in b"e4":
            t.invia(bytes([c]))
        campo = (" " * 27 + "Comando =>").ljust(44) + "e4".ljust(COLONNE - 44)
        righe = righe_attese(False)
        righe[40] = campo
        attendi_schermo(t, righe, (46, 40), "e4 typed", errori)
        t.invia(b"\r")
        attendi_schermo(t, righe_attese(True), (44, 40), "e4 played", errori)
    except Fallito as e:
        errori.append(str(e))
    return errori, t


def prova_in_una_cartella(exe):
    t = None
    with tempfile.TemporaryDirectory(prefix="pendrino-wine-") as cartella:
        try:
            errori, t = prova(exe, cartella)
        finally:
            if t is not None and t.figlio.isalive():
                # The whole group: the wine loader and what it started here.
                try:
                    os.killpg(t.figlio.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
                t.termina()
    return errori, t


def main():
    if len(sys.argv) != 2:
        sys.stderr.write(__doc__)
        return 2
    exe = os.path.abspath(sys.argv[1])
    if shutil.which("wine") is None:
        salta("wine is not installed (apt-get install wine64 wine)")
    if not os.path.isfile(exe):
        salta(f"{exe} has not been built (make test-windows)")
    os.environ.setdefault("WINEPREFIX",
                          os.path.join(os.path.dirname(os.path.dirname(exe)), "wine"))
    os.makedirs(os.environ["WINEPREFIX"], exist_ok=True)
    os.environ["WINEDEBUG"] = "-all"
    os.environ.setdefault("WINEDLLOVERRIDES", "mscoree,mshtml=")
    inizio = time.monotonic()
    errori, t = prova_in_una_cartella(exe)
    if errori and not t.ricevuto:
        # wine has now and then ended a program at once without a byte; the
        # second start decides, and the output says that there was one.
        print("wine ended the program without writing anything: running it once more")
        errori, t = prova_in_una_cartella(exe)
    durata = time.monotonic() - inizio
    if errori:
        print(f"FAILED under wine ({exe}) after {durata:.1f} s:")
        for e in errori:
            print(" -", e)
        if t is not None:
            print(t.mostra())
        return 1
    print(f"OK under wine in {durata:.1f} s")
    return 0


if __name__ == "__main__":
    sys.exit(main())
