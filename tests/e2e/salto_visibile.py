#!/usr/bin/python3
"""A terminal test whose Python lacks pyte must be reported as skipped, with
its reason, and never as passed.

Usage: salto_visibile.py --ctest CTEST --nascondi DIR --riassunto SCRIPT
                         <ctest folder>=<test name> ...

Each named test is run again by a nested ctest in its own build folder, with
DIR (where a pyte.py that refuses to load lives) leading PYTHONPATH. Checked:
ctest's status line says Skipped and not Passed, its closing list names the
test as (Skipped), its JUnit file records the skip with the script's reason,
and the summary that `make test` ends with shows it as a skipped test with
that reason.
"""

import argparse
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET


def controlla(cartella, test, argomenti):
    errori = []
    ambiente = dict(os.environ)
    ambiente["PYTHONPATH"] = os.pathsep.join(
        p for p in (argomenti.nascondi, os.environ.get("PYTHONPATH", "")) if p)
    with tempfile.TemporaryDirectory(prefix="pendrino_salto_") as temporanea:
        junit = os.path.join(temporanea, "junit.xml")
        esito = subprocess.run(
            [argomenti.ctest, "--test-dir", cartella, "-R", f"^{re.escape(test)}$",
             "--output-junit", junit],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, env=ambiente,
            timeout=100)
        uscita = esito.stdout
        print(f"--- nested ctest for {test}, pyte hidden ---\n{uscita}---")
        nome = re.escape(test)
        if esito.returncode != 0:
            errori.append(f"ctest ended with {esito.returncode}")
        if "out of 1\n" not in uscita:
            errori.append("ctest did not run exactly one test")
        if not re.search(rf"Test +#\d+: {nome} \.+\*\*\*Skipped", uscita):
            errori.append("the status line does not say Skipped")
        if re.search(rf"Test +#\d+: {nome} \.+ +Passed", uscita):
            errori.append("the status line says Passed")
        if not re.search(rf"The following tests did not run:\n\s+\d+ - {nome} \(Skipped\)", uscita):
            errori.append("the closing list does not name the test as (Skipped)")

        motivo = ""
        if not os.path.isfile(junit):
            errori.append("no JUnit file")
        else:
            casi = [c for c in ET.parse(junit).getroot().iter("testcase") if c.get("name") == test]
            if len(casi) != 1 or casi[0].find("skipped") is None:
                errori.append("the JUnit file does not record the skip")
            else:
                testo = casi[0].findtext("system-out") or ""
                motivo = next((r for r in testo.splitlines() if r.startswith("SKIPPED:")), "")
                if "pyte" not in motivo:
                    errori.append(f"no reason naming pyte in the output: {testo!r}")
            riassunto = subprocess.run([sys.executable, argomenti.riassunto, f"prova={junit}"],
                                       stdout=subprocess.PIPE, text=True).stdout
            print(riassunto)
            if not re.search(rf"^SKIPPED: {nome} \(prova\): .*pyte", riassunto, re.MULTILINE):
                errori.append("the summary of `make test` does not show the skip and its reason")
    for e in errori:
        print(f"FAILED ({test}): {e}")
    if not errori:
        print(f"OK: {test} is reported as skipped: {motivo}")
    return not errori


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--ctest", required=True)
    parser.add_argument("--nascondi", required=True)
    parser.add_argument("--riassunto", required=True)
    parser.add_argument("prove", nargs="+", metavar="CARTELLA=TEST")
    argomenti = parser.parse_args()
    esiti = [controlla(*p.split("=", 1), argomenti) for p in argomenti.prove]
    return 0 if all(esiti) else 1


if __name__ == "__main__":
    sys.exit(main())
