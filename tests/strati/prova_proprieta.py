#!/usr/bin/env python3
"""The ownership check refuses a write to a global from outside its owner: a
copy of the tree with one planted write must fail it, naming the file and
the global, and the copy without it must not name that file.

  prova_proprieta.py CONTROLLO RADICE
"""
import os
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True  # nothing written into the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from copia_albero import CopiaSorgenti  # noqa: E402

controllo, radice = sys.argv[1:3]

PIANTATI = [
    # The console resetting the clock, the journal writing the settings, a
    # test of the game setting the clock, a benchmark setting the board.
    ("src/console/piantato.cpp", "void F() { InMoto = 0; }\n", "writes InMoto, which src/clock owns"),
    ("src/game/piantato.cpp", "void F() { ParametroIni[0].valore = 2; }\n",
     "writes ParametroIni, which src/settings owns"),
    ("tests/game/piantato_test.cpp", "void F() { TempoRimasto[1] -= 5; }\n",
     "writes TempoRimasto, which src/clock owns"),
    ("bench/piantato.cpp", "void F() { ++ContatoreMosse; }\n",
     "writes ContatoreMosse, which src/board owns"),
    ("fuzz/piantato.cpp", "void F() { CopiaLimitata(Result, 8, \"1-0\"); }\n",
     "writes Result, which src/game owns"),
    # The board's inline names for a part of its tables, from a fuzzer and
    # from the shared test support.
    ("fuzz/alias_piantato.cpp", "void F() { casa_re_nero = 4; }\n",
     "writes casa_re_nero, which src/board owns"),
    ("tests/comune/supporto/piantato.cpp", "void F() { btm_bianco ^= 1ull << 60; }\n",
     "writes btm_bianco, which src/board owns"),
]


def esegui(cartella):
    return subprocess.run([sys.executable, controllo, cartella], capture_output=True, text=True)


with tempfile.TemporaryDirectory() as cartella:
    CopiaSorgenti(radice, cartella)
    for nome, testo, atteso in PIANTATI:
        percorso = os.path.join(cartella, nome)
        with open(percorso, "w") as f:
            f.write("// planted\n" + testo)
        esito = esegui(cartella)
        os.remove(percorso)
        righe = [r for r in esito.stdout.splitlines() if r.startswith(nome + ":")]
        if esito.returncode == 0 or not any(atteso in r for r in righe):
            sys.exit(f"the planted write in {nome} was not refused:\n{esito.stdout}")
        print(f"refused as it should: {righe[0]}")
    # The owner itself may write, and a name declared locally is not the global.
    permessi = [
        ("src/clock/piantato.cpp", "void F() { InMoto = 0; }\n"),
        ("tests/clock/piantato_test.cpp", "void F() { TempoRimasto[0] = 1; }\n"),
        ("tests/board/alias_test.cpp", "void F() { materiale_del_nero += 1; }\n"),
        ("src/moves/fai.cpp", None),
        ("tests/game/locale_test.cpp", "void F() { int InMoto = 0; InMoto = 1; }\n"),
    ]
    for nome, testo in permessi:
        percorso = os.path.join(cartella, nome)
        if testo is not None:
            with open(percorso, "w") as f:
                f.write("// planted\n" + testo)
        esito = esegui(cartella)
        if testo is not None:
            os.remove(percorso)
        if any(r.startswith(nome + ":") for r in esito.stdout.splitlines()):
            sys.exit(f"a write the check must allow in {nome} was refused:\n{esito.stdout}")
print("every planted write was refused, and the allowed ones passed")
