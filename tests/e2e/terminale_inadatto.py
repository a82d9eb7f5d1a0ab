#!/usr/bin/python3
"""A terminal that cannot place the cursor is refused before it is touched.

Usage: terminale_inadatto.py <pendrino binary>

The program runs on a pseudo-terminal (standard input and output) with
TERM=dumb, TERM=nonesiste-xyz, TERM empty and TERM unset, its standard error
on a pipe apart. Each time: a non-zero status, one Italian sentence on
standard error naming the problem, not a byte on the terminal, and the
terminal's modes as they were.
"""

import os
import select
import shlex
import subprocess
import sys
import termios
import time

SERVE = "Pendrino ha bisogno di un terminale che sappia spostare il cursore, ma "
CASI = [
    ("dumb", SERVE + "TERM=dumb non sa farlo."),
    ("nonesiste-xyz", SERVE + "il terminale TERM=nonesiste-xyz non è conosciuto."),
    ("", SERVE + "la variabile TERM non è impostata."),
    (None, SERVE + "la variabile TERM non è impostata."),
]


def scritto_sul_terminale(master, secondi=0.3):
    dati = b""
    fine = time.monotonic() + secondi
    while time.monotonic() < fine:
        pronti, _, _ = select.select([master], [], [], 0.05)
        if not pronti:
            continue
        try:
            pezzo = os.read(master, 4096)
        except OSError:  # the other side closed
            break
        if not pezzo:
            break
        dati += pezzo
    return dati


def prova(binario, tipo, frase):
    errori = []
    nome = "TERM unset" if tipo is None else f"TERM={tipo!r}"
    ambiente = {k: v for k, v in os.environ.items() if k != "TERM"}
    ambiente["LANG"] = ambiente.get("LANG") or "C.UTF-8"
    if tipo is not None:
        ambiente["TERM"] = tipo
    master, schiavo = os.openpty()
    try:
        modi_prima = termios.tcgetattr(schiavo)
        try:
            esito = subprocess.run([binario], stdin=schiavo, stdout=schiavo, stderr=subprocess.PIPE,
                                   env=ambiente, timeout=20)
        except subprocess.TimeoutExpired:
            return [f"{nome}: the program did not end"]
        modi_dopo = termios.tcgetattr(schiavo)
        scritto = scritto_sul_terminale(master)
    finally:
        os.close(schiavo)
        os.close(master)
    errore = esito.stderr.decode("utf-8", "replace")
    if esito.returncode == 0:
        errori.append(f"{nome}: exit status 0")
    if errore != frase + "\n":
        errori.append(f"{nome}: standard error {errore!r}, expected {frase!r}")
    if scritto:
        errori.append(f"{nome}: written to the terminal: {scritto!r}")
    if modi_dopo != modi_prima:
        errori.append(f"{nome}: terminal modes changed: {modi_prima} -> {modi_dopo}")
    return errori


def main():
    if len(sys.argv) != 2:
        sys.stderr.write(__doc__)
        return 2
    binario = os.path.abspath(sys.argv[1])
    errori = []
    for tipo, frase in CASI:
        errori += prova(binario, tipo, frase)
    if errori:
        print(f"FAILED ({shlex.quote(binario)}):")
        for e in errori:
            print(" -", e)
        return 1
    print("OK: every terminal without cursor addressing refused untouched")
    return 0


if __name__ == "__main__":
    sys.exit(main())
