#!/usr/bin/env python3
"""The last lines of `make test`: how many tests ran, passed, failed and were
skipped in each build, and one line per skipped test with its reason.

Usage: scripts/riassunto_test.py <build>=<ctest JUnit file> ...

The JUnit files come from `ctest --output-junit`. A skipped test's reason is
the line its output starts with "SKIPPED:" (the terminal and screen tests print
one), else GoogleTest's skip message, else what CTest recorded. A missing file
means that ctest did not run for that build; `<file>.saltato`, when present,
says why; `<file>.riprove`, when present, lists the test programs that wine
had to start twice (scripts/wine_riprova.sh), each printed with the summary.
Only the standard library is used.
"""

import sys
import xml.etree.ElementTree as ET
from pathlib import Path


def Motivo(uscita, messaggio):
    righe = [r.strip() for r in uscita.splitlines()]
    motivo = next((r[len("SKIPPED:"):].strip() for r in righe if r.startswith("SKIPPED:")), "")
    if motivo:
        interprete = next((r for r in righe if r.startswith("Interpreter:")), "")
        return f"{motivo} {interprete}".strip()
    # GoogleTest: "file:line: Skipped", then the message, then "[  SKIPPED ] ...".
    for i, riga in enumerate(righe):
        if riga.endswith(": Skipped"):
            messaggio_gtest = []
            for seguente in righe[i + 1:]:
                if not seguente or seguente.startswith("["):
                    break
                messaggio_gtest.append(seguente)
            return " ".join(messaggio_gtest) or "GTEST_SKIP without a message"
    ultima = next((r for r in reversed(righe) if r), "")
    return f"{messaggio}; last output line: {ultima}" if ultima else messaggio or "no reason given"


def main():
    if len(sys.argv) < 2:
        sys.stderr.write(__doc__)
        return 2
    saltati, falliti, righe, riprove = [], [], [], []
    for argomento in sys.argv[1:]:
        nome, _, percorso = argomento.partition("=")
        file = Path(percorso)
        elenco_riprove = Path(percorso + ".riprove")
        if elenco_riprove.is_file():
            riprove += [f"RETRIED: {r} ({nome})" for r in elenco_riprove.read_text().splitlines() if r]
        if not file.is_file():
            perche = Path(percorso + ".saltato")
            motivo = perche.read_text().strip() if perche.is_file() else "ctest did not run"
            righe.append(f"  {nome}: no results ({motivo})")
            if perche.is_file():
                saltati.append(f"SKIPPED: every test of {nome}: {motivo}")
            continue
        casi = ET.parse(file).getroot().iter("testcase")
        passati = 0
        totale = 0
        for caso in casi:
            totale += 1
            test = caso.get("name")
            uscita = caso.findtext("system-out") or ""
            salto = caso.find("skipped")
            if caso.get("status") == "fail" or caso.find("failure") is not None:
                falliti.append(f"FAILED: {test} ({nome})")
            elif salto is not None or caso.get("status") in ("notrun", "disabled"):
                messaggio = salto.get("message", "") if salto is not None else caso.get("status")
                saltati.append(f"SKIPPED: {test} ({nome}): {Motivo(uscita, messaggio)}")
            else:
                passati += 1
        righe.append(f"  {nome}: {totale} tests: {passati} passed, "
                     f"{sum(f.endswith(f'({nome})') for f in falliti)} failed, "
                     f"{sum(f'({nome})' in s for s in saltati)} skipped")
    print()
    print("Test summary")
    for riga in righe:
        print(riga)
    for riga in falliti:
        print(riga)
    if riprove:
        print(f"Run twice because wine failed them without a test failure: {len(riprove)}")
        for riga in riprove:
            print(riga)
    if saltati:
        print(f"Skipped tests: {len(saltati)}, each with its reason:")
        for riga in saltati:
            print(riga)
    else:
        print("Skipped tests: none.")
    return 0


if __name__ == "__main__":
    sys.exit(main())
