#!/usr/bin/env python3
"""The Windows tests' wine launcher (scripts/wine_riprova.sh) and the summary
that lists its retries (scripts/riassunto_test.py), with a stand-in for wine.

Usage: prova_wine_riprova.py <wine_riprova.sh> <riassunto_test.py>
"""

import os
import subprocess
import sys
import tempfile
from pathlib import Path

# The stand-in: counts its calls, then behaves as its first argument says.
FINTO_WINE = """#!/bin/bash
echo x >> "$CONTEGGIO"
chiamate=$(wc -l < "$CONTEGGIO")
case "$1" in
  passa) echo "[  PASSED  ] 1 test."; exit 0 ;;
  asserzione) echo "[  FAILED  ] Posizione.Qualcosa"; exit 1 ;;
  avvio_mancato)
    if [ "$chiamate" -eq 1 ]; then printf 'wine: could not start\r\n' >&2; exit 3; fi
    echo "[  PASSED  ] 1 test."; exit 0 ;;
  sempre) echo "wine: could not start" >&2; exit 5 ;;
  muto)
    if [ "$chiamate" -eq 1 ]; then exit 1; fi
    echo "1686"; exit 0 ;;
  elenco) echo "Posizione."; echo "  Vuota"; echo "rumore" >&2; exit 0 ;;
esac
exit 9
"""

errori = []


def controlla(condizione, testo):
    if not condizione:
        errori.append(testo)


def esegui(lanciatore, cartella, modo, opzione="--gtest_filter=X"):
    conteggio = cartella / f"conteggio_{modo}{opzione}"
    riprove = cartella / f"riprove_{modo}{opzione}"
    ambiente = dict(os.environ, PENDRINO_WINE=str(cartella / "wine"), CONTEGGIO=str(conteggio),
                    PENDRINO_RIPROVE=str(riprove))
    r = subprocess.run(["bash", lanciatore, modo, opzione], env=ambiente,
                       capture_output=True, text=True, timeout=30)
    chiamate = len(conteggio.read_text().splitlines()) if conteggio.exists() else 0
    righe = riprove.read_text().splitlines() if riprove.exists() else []
    return r, chiamate, righe


def main():
    if len(sys.argv) != 3:
        sys.stderr.write(__doc__)
        return 2
    lanciatore, riassunto = sys.argv[1], sys.argv[2]
    with tempfile.TemporaryDirectory() as nome:
        cartella = Path(nome)
        (cartella / "wine").write_text(FINTO_WINE)
        (cartella / "wine").chmod(0o755)

        r, chiamate, righe = esegui(lanciatore, cartella, "passa")
        controlla(r.returncode == 0 and chiamate == 1 and not righe,
                  f"a passing run: exit {r.returncode}, {chiamate} runs, retries {righe}")

        r, chiamate, righe = esegui(lanciatore, cartella, "asserzione")
        controlla(r.returncode == 1 and chiamate == 1 and not righe,
                  f"a failed assertion must fail at once: exit {r.returncode}, {chiamate} runs")
        controlla("[  FAILED  ] Posizione.Qualcosa" in r.stdout, "the failure line must reach ctest")

        r, chiamate, righe = esegui(lanciatore, cartella, "avvio_mancato")
        controlla(r.returncode == 0 and chiamate == 2,
                  f"a failed start then a pass: exit {r.returncode}, {chiamate} runs")
        controlla(len(righe) == 1 and "first run: exit 3, last line: wine: could not start |" in righe[0]
                  and "second run: exit 0" in righe[0] and "--gtest_filter=X" in righe[0],
                  f"the retry must be recorded with both exits: {righe}")
        controlla("wine: could not start" in r.stderr, "the first run's output must reach ctest")

        r, chiamate, righe = esegui(lanciatore, cartella, "sempre")
        controlla(r.returncode == 5 and chiamate == 2 and len(righe) == 1,
                  f"two failed starts must fail: exit {r.returncode}, {chiamate} runs, {righe}")

        # A program that is not a GoogleTest run (the perft tool, whose exit
        # status is what its tests check) runs once, whatever its exit.
        r, chiamate, righe = esegui(lanciatore, cartella, "sempre", "--suite")
        controlla(r.returncode == 5 and chiamate == 1 and not righe,
                  f"a program outside GoogleTest must run once: exit {r.returncode}, {chiamate} runs")

        # ... unless wine ended it without a word: then it runs once more.
        r, chiamate, righe = esegui(lanciatore, cartella, "muto", "3")
        controlla(r.returncode == 0 and chiamate == 2 and r.stdout == "1686\n" and len(righe) == 1
                  and "first run: exit 1, last line: (no output) | second run: exit 0" in righe[0],
                  f"a silent failure outside GoogleTest: exit {r.returncode}, {chiamate} runs, {righe}")

        r, chiamate, righe = esegui(lanciatore, cartella, "elenco", "--gtest_list_tests")
        controlla(r.stdout == "Posizione.\n  Vuota\n" and "rumore" in r.stderr,
                  f"test discovery reads standard output alone: {r.stdout!r}")

        # The summary names each retry.
        junit = cartella / "ctest-junit.xml"
        junit.write_text('<testsuite><testcase name="Posizione.Vuota" status="run"/></testsuite>\n')
        Path(str(junit) + ".riprove").write_text("test_board.exe --gtest_filter=Posizione.Vuota | "
                                                 "first run: exit 3 | second run: exit 0\n")
        s = subprocess.run([sys.executable, riassunto, f"build/windows={junit}"],
                           capture_output=True, text=True, timeout=30)
        controlla(s.returncode == 0 and "build/windows: 1 tests: 1 passed, 0 failed, 0 skipped" in s.stdout,
                  f"summary: {s.stdout}")
        controlla("RETRIED: test_board.exe --gtest_filter=Posizione.Vuota | first run: exit 3 | "
                  "second run: exit 0 (build/windows)" in s.stdout, f"the summary must name the retry: {s.stdout}")

    for e in errori:
        print("FAIL:", e)
    print("wine launcher:", "ok" if not errori else f"{len(errori)} problems")
    return 1 if errori else 0


if __name__ == "__main__":
    sys.exit(main())
