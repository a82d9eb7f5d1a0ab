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
    # Two modules of one folder that include each other, and a ring of three.
    ("clock/cadenza_piantata.cpp", '#include "clock/orologio.h"\n', None),
    ("settings/parametri_piantato.cpp", '#include "settings/lettore_ini.h"\n', None),
]

# A planted source joins a module of its own; these make it a ring.
ANELLI = {
    "clock/cadenza_piantata.cpp": ("clock/orologio.h", "cadenza_piantata",
                                   "clock: the modules include each other in a ring"),
    "settings/parametri_piantato.cpp": ("settings/lettore_ini.h", "parametri_piantato",
                                        "settings: the modules include each other in a ring"),
}

with tempfile.TemporaryDirectory() as cartella:
    copia = os.path.join(cartella, "src")
    shutil.copytree(sorgenti, copia)
    pulito = esegui(copia)
    if pulito.returncode != 0:
        sys.exit("the untouched sources fail the check:\n" + pulito.stdout + pulito.stderr)
    for nome, riga, atteso in PIANTATI:
        percorso = os.path.join(copia, nome)
        os.makedirs(os.path.dirname(percorso), exist_ok=True)
        ritocco = None
        if nome in ANELLI:
            # The included module's header includes the planted one back.
            intestazione, piantato, atteso = ANELLI[nome]
            ritocco = os.path.join(copia, intestazione)
            with open(ritocco) as f:
                originale = f.read()
            with open(ritocco, "a") as f:
                f.write(f'#include "{os.path.dirname(nome)}/{piantato}.h"\n')
            with open(os.path.join(copia, os.path.dirname(nome), piantato + ".h"), "w") as f:
                f.write("// planted\n")
            nome_atteso = piantato
        else:
            nome_atteso = nome
        with open(percorso, "w") as f:
            f.write("// planted\n" + riga)
        esito = esegui(copia)
        os.remove(percorso)
        if ritocco:
            with open(ritocco, "w") as f:
                f.write(originale)
            os.remove(os.path.join(copia, os.path.dirname(nome), piantato + ".h"))
        if esito.returncode == 0:
            sys.exit(f"the planted include in {nome} passed the check:\n{esito.stdout}")
        if nome_atteso not in esito.stdout or atteso not in esito.stdout:
            sys.exit(f"the check failed without naming {nome_atteso} ({atteso}):\n{esito.stdout}")
        print(f"refused as it should: {esito.stdout.splitlines()[0]}")
    if esegui(copia).returncode != 0:
        sys.exit("the sources fail the check once the planted files are gone")
print("every planted include and ring was refused")
