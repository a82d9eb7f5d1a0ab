#!/usr/bin/env python3
"""The layer check refuses an include that reaches up or sideways: a copy of
the sources with one planted include must fail it, naming the file, and the
same copy without it must pass.

  prova_strati.py CONTROLLO SRC STRATI
"""
import os
import shutil
import subprocess
import sys
import tempfile

controllo, sorgenti, strati = sys.argv[1:4]


def esegui(radice):
    return subprocess.run([sys.executable, controllo, radice, strati],
                          capture_output=True, text=True)


PIANTATI = [
    # The board reaching up to the console, the moves to the clock, and a
    # backend's private header used by the game.
    ("board/piantato.cpp", '#include "console/avvio.h"\n', "does not link console"),
    ("moves/piantato.h", '#include "clock/orologio.h"\n', "does not link clock"),
    ("diagnostics/piantato.cpp", '#include "console/schermo.h"\n', "does not link console"),
    ("game/piantato.cpp", '#include "piattaforma/posix/terminale.h"\n',
     "does not link piattaforma/posix"),
]

with tempfile.TemporaryDirectory() as cartella:
    copia = os.path.join(cartella, "src")
    shutil.copytree(sorgenti, copia)
    pulito = esegui(copia)
    if pulito.returncode != 0:
        sys.exit("the untouched sources fail the check:\n" + pulito.stdout + pulito.stderr)
    for nome, riga, atteso in PIANTATI:
        percorso = os.path.join(copia, nome)
        os.makedirs(os.path.dirname(percorso), exist_ok=True)
        with open(percorso, "w") as f:
            f.write("// planted\n" + riga)
        esito = esegui(copia)
        os.remove(percorso)
        if esito.returncode == 0:
            sys.exit(f"the planted include in {nome} passed the check:\n{esito.stdout}")
        if nome not in esito.stdout or atteso not in esito.stdout:
            sys.exit(f"the check failed without naming {nome} ({atteso}):\n{esito.stdout}")
        print(f"refused as it should: {esito.stdout.splitlines()[0]}")
print("every planted include was refused")
