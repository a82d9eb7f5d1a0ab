#!/usr/bin/env python3
"""The include roots check refuses a name that can resolve in two places: a
copy of the tree, compiled as the build's compile_commands.json says, must
pass it; with one planted header, or one planted root, it must fail, naming
what was planted.

  prova_radici.py CONTROLLO RADICE COMPILE_COMMANDS
"""
import json
import os
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True  # nothing written into the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from copia_albero import CopiaSorgenti  # noqa: E402

controllo, radice, comandi = sys.argv[1:4]
radice = os.path.realpath(radice)


def esegui(cartella, file_comandi):
    return subprocess.run([sys.executable, controllo, file_comandi, cartella],
                          capture_output=True, text=True)


def scrivi(percorso, testo):
    os.makedirs(os.path.dirname(percorso), exist_ok=True)
    with open(percorso, "w") as f:
        f.write(testo)


# A header, planted under a folder of the copy, with the name an existing
# include uses; the line the check must print contains the expected text.
PIANTATI = [
    # A source header with the shared support's name: "supporto/stati.h"
    # would resolve under src/ and under tests/comune/.
    ("src/supporto/stati.h", '"supporto/stati.h" resolves to'),
    # A header at the top of src/ named like a test's own: the game tests'
    # "ambiente_partita.h" would resolve beside them and under src/.
    ("src/ambiente_partita.h", '"ambiente_partita.h" resolves to'),
    # A folder of the support libraries' root named like a layer's.
    ("tests/comune/board/posizione.h", "both hold board/"),
]

with tempfile.TemporaryDirectory() as cartella:
    CopiaSorgenti(radice, cartella)
    copia = os.path.realpath(cartella)
    # The same commands, on the copy.
    with open(comandi, encoding="utf-8") as f:
        voci = json.load(f)
    for voce in voci:
        for campo in ("file", "command"):
            if campo in voce:
                voce[campo] = voce[campo].replace(radice + "/", copia + "/")
        if "arguments" in voce:
            voce["arguments"] = [a.replace(radice + "/", copia + "/") for a in voce["arguments"]]
    file_comandi = os.path.join(copia, "compile_commands.json")
    with open(file_comandi, "w", encoding="utf-8") as f:
        json.dump(voci, f)

    pulito = esegui(copia, file_comandi)
    if pulito.returncode != 0:
        sys.exit("the untouched copy fails the check:\n" + pulito.stdout + pulito.stderr)

    for nome, atteso in PIANTATI:
        percorso = os.path.join(copia, nome)
        scrivi(percorso, "// planted\n#pragma once\n")
        esito = esegui(copia, file_comandi)
        os.remove(percorso)
        righe = [r for r in esito.stdout.splitlines() if atteso in r]
        if esito.returncode == 0 or not righe:
            sys.exit(f"the planted header {nome} was not refused:\n{esito.stdout[:4000]}{esito.stderr}")
        print(f"refused as it should ({nome}): {righe[0]}")

    # The root that the tests once had: tests/ beside src/, whose folders
    # mirror src's.
    for voce in voci:
        if "/tests/" in voce["file"]:
            if "arguments" in voce:
                voce["arguments"].insert(1, "-I" + os.path.join(copia, "tests"))
            else:
                primo, resto = voce["command"].split(" ", 1)
                voce["command"] = f"{primo} -I{os.path.join(copia, 'tests')} {resto}"
    with open(file_comandi, "w", encoding="utf-8") as f:
        json.dump(voci, f)
    esito = esegui(copia, file_comandi)
    righe = [r for r in esito.stdout.splitlines()
             if "the roots tests/ and src/ both hold" in r and "clock/" in r]
    if esito.returncode == 0 or not righe:
        sys.exit(f"the tests/ root beside src/ was not refused:\n{esito.stdout[:4000]}{esito.stderr}")
    print(f"refused as it should (tests/ as a root): {righe[0]}")
print("every planted header and root was refused, and the untouched copy passed")
