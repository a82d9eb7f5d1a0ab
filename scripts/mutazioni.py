#!/usr/bin/python3
"""Mutation run: do the unit tests notice small deliberate bugs?

Usage: scripts/mutazioni.py [--solo NOME ...] [--verifica] [--sanitizzatori] [--jobs N]
                            [--elenco FILE]

Each line of scripts/mutazioni.tsv names a file, an exact fragment of it, its
replacement, the test programs that should notice (optionally with a
GoogleTest filter) and a description. The tracked files are copied once into
build/mutazioni/albero (later runs copy only what changed), built in one
incremental folder beside it, and then, one mutation at a time: the fragment
is replaced, only the listed test programs are rebuilt and run, and the file
is put back. Each mutation is KILLED (some test failed), SURVIVED (every test
passed: a hole in the tests), NOT APPLIED (the fragment is not in the file,
or not once: fix the list), or NOT BUILT (the mutated code does not compile:
fix the list). Anything but KILLED makes the exit status 1.

--verifica only looks for the fragments, without building: after code has
moved, it says which lines of the list need a new file or fragment.
"""

import argparse
import os
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

RADICE = Path(__file__).resolve().parent.parent
ELENCO = RADICE / "scripts" / "mutazioni.tsv"
LAVORO = RADICE / "build" / "mutazioni"
ALBERO = LAVORO / "albero"
ESECUZIONE = LAVORO / "esecuzione"
TEMPO_MASSIMO_PROVA = 600


TONI = "src/messaggi/toni.h"


def RigaDelTono(nome):
    """The row of the table of tones that names Tono::nome, or None."""
    for riga in Leggi(RADICE / TONI).splitlines():
        if re.search(r"//\s*" + re.escape(nome) + r"\s*$", riga) and "{" in riga:
            return riga
    return None


class Mutazione:
    def __init__(self, riga, campi):
        self.riga = riga
        self.nome, self.file, originale, sostituto, prove, self.descrizione = campi
        self.originale = Decodifica(originale)
        self.sostituto = Decodifica(sostituto)
        if self.file.startswith("tono:"):
            # The named tone's row, with the number changed.
            riga_tono = RigaDelTono(self.file[len("tono:"):]) or ""
            self.file = TONI
            self.sostituto = riga_tono.replace(self.originale, self.sostituto, 1)
            self.originale = riga_tono if self.originale in riga_tono else "\0" + self.originale
        # "test_moves:FaiMossa.*" -> ("test_moves", "FaiMossa.*")
        self.prove = [tuple(p.split(":", 1)) if ":" in p else (p, None) for p in prove.split()]
        self.esito = ""
        self.dettaglio = ""
        self.secondi = 0.0


def Decodifica(testo):
    sostituzioni = {"n": "\n", "t": "\t", "\\": "\\"}
    return re.sub(r"\\(.)", lambda m: sostituzioni.get(m.group(1), m.group(0)), testo)


def LeggiElenco():
    mutazioni = []
    intestazione = True
    for numero, riga in enumerate(Leggi(ELENCO).splitlines(), 1):
        if not riga.strip() or riga.startswith("#"):
            continue
        campi = riga.split("\t")
        if intestazione:
            intestazione = False
            if campi[0] == "nome":
                continue
        if len(campi) != 6 or not campi[4].split():
            sys.exit(f"{ELENCO}:{numero}: six tab-separated fields and at least one test program")
        mutazioni.append(Mutazione(numero, campi))
    nomi = [m.nome for m in mutazioni]
    doppi = sorted({n for n in nomi if nomi.count(n) > 1})
    if doppi:
        sys.exit(f"{ELENCO}: names used twice: {', '.join(doppi)}")
    return mutazioni


def Esegui(comando, **opzioni):
    return subprocess.run(comando, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace", **opzioni)


def SincronizzaAlbero():
    """Tracked (and new, not ignored) files into ALBERO; unchanged files keep
    their times so that the build stays incremental."""
    elenco = Esegui(["git", "-C", str(RADICE), "ls-files", "-z", "--cached", "--others",
                     "--exclude-standard"])
    if elenco.returncode != 0:
        sys.exit("git ls-files failed:\n" + elenco.stdout)
    voluti = {p for p in elenco.stdout.split("\0") if p and (RADICE / p).is_file()}
    copiati = 0
    for percorso in sorted(voluti):
        sorgente, destinazione = RADICE / percorso, ALBERO / percorso
        dati = sorgente.read_bytes()
        if destinazione.is_file() and destinazione.read_bytes() == dati:
            continue
        destinazione.parent.mkdir(parents=True, exist_ok=True)
        destinazione.write_bytes(dati)
        shutil.copymode(sorgente, destinazione)
        copiati += 1
    tolti = 0
    for file in [p for p in ALBERO.rglob("*") if p.is_file()]:
        if file.relative_to(ALBERO).as_posix() not in voluti:
            file.unlink()
            tolti += 1
    return copiati, tolti


def DoveSiTrova(frammento):
    """Source files of ALBERO holding the fragment, for a line whose file lost it."""
    trovati = []
    for cartella in ("src", "tests", "tools"):
        for file in sorted((ALBERO / cartella).rglob("*")):
            if file.suffix in (".cpp", ".h", ".inc") and frammento in Leggi(file):
                trovati.append(file.relative_to(ALBERO).as_posix())
    return trovati


def Verifica(m):
    """Empty when the fragment occurs exactly once in its file; otherwise why not."""
    file = ALBERO / m.file
    if not file.is_file():
        altrove = DoveSiTrova(m.originale)
        return f"file {m.file} does not exist" + (f"; fragment found in {', '.join(altrove)}"
                                                  if altrove else "; fragment found nowhere")
    volte = Leggi(file).count(m.originale)
    if volte == 1:
        return ""
    if volte > 1:
        return f"fragment occurs {volte} times in {m.file}: make it longer"
    altrove = DoveSiTrova(m.originale)
    return f"fragment not in {m.file}" + (f"; found in {', '.join(altrove)}" if altrove
                                          else "; found nowhere")


# Bytes as they are: no line-end translation.
def Leggi(file):
    return file.read_bytes().decode("utf-8", errors="surrogateescape")


def Durata(secondi):
    return f"{int(secondi // 60)}m{secondi % 60:04.1f}s" if secondi >= 60 else f"{secondi:.1f}s"


class Costruzione:
    def __init__(self, cartella, sanitizzatori, jobs):
        self.cartella = cartella
        self.jobs = jobs
        self.sanitizzatori = sanitizzatori
        self.programmi = {}

    def Configura(self):
        comando = ["cmake", "-S", str(ALBERO), "-B", str(self.cartella), "-DCMAKE_BUILD_TYPE=Debug",
                   "-DPENDRINO_WERROR=OFF", "-DPENDRINO_TESTS=ON",
                   "-DPENDRINO_SANITIZE=" + ("ON" if self.sanitizzatori else "OFF")]
        uscita = Esegui(comando)
        if uscita.returncode != 0:
            sys.exit("cmake configure failed:\n" + uscita.stdout[-4000:])

    def Costruisci(self, bersagli):
        comando = ["cmake", "--build", str(self.cartella), "-j", str(self.jobs), "--target",
                   *sorted(bersagli)]
        uscita = Esegui(comando)
        return uscita.returncode == 0, uscita.stdout

    def Programma(self, nome):
        if nome not in self.programmi:
            candidati = [p for p in (self.cartella / "tests").rglob(nome)
                         if p.is_file() and os.access(p, os.X_OK)]
            if not candidati:
                sys.exit(f"test program {nome} not found under {self.cartella}/tests")
            self.programmi[nome] = candidati[0]
        return self.programmi[nome]

    def Prova(self, nome, filtro):
        """(passed, what failed) for one test program."""
        comando = [str(self.Programma(nome))]
        if filtro:
            comando.append("--gtest_filter=" + filtro)
        ambiente = dict(os.environ, ASAN_OPTIONS="detect_leaks=1",
                        UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1")
        ESECUZIONE.mkdir(parents=True, exist_ok=True)
        try:
            uscita = Esegui(comando, cwd=ESECUZIONE, env=ambiente, timeout=TEMPO_MASSIMO_PROVA)
        except subprocess.TimeoutExpired:
            return False, f"{nome}: timed out after {TEMPO_MASSIMO_PROVA} s"
        if uscita.returncode == 0:
            return True, ""
        falliti = []
        for riga in uscita.stdout.splitlines():
            trovato = re.match(r"\[  FAILED  \] (\S+)", riga)
            # "[  FAILED  ] 2 tests, listed below:" is gtest's count, not a test.
            if trovato and "." in trovato.group(1) and trovato.group(1) not in falliti:
                falliti.append(trovato.group(1))
        if falliti:
            altri = f" and {len(falliti) - 3} more" if len(falliti) > 3 else ""
            return False, f"{nome}: {', '.join(falliti[:3])}{altri}"
        return False, f"{nome}: exit status {uscita.returncode} (crash or sanitizer report)"


def main():
    global ELENCO
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--solo", nargs="+", metavar="NOME", help="only these mutations")
    parser.add_argument("--verifica", action="store_true", help="only look for the fragments")
    parser.add_argument("--sanitizzatori", action="store_true",
                        help="build with AddressSanitizer and UBSan (slower)")
    parser.add_argument("--jobs", type=int, default=int(os.environ.get("JOBS", "2")))
    parser.add_argument("--elenco", type=Path, default=ELENCO, help="another list of mutations")
    argomenti = parser.parse_args()
    ELENCO = argomenti.elenco.resolve()

    inizio = time.monotonic()
    mutazioni = LeggiElenco()
    if argomenti.solo:
        sconosciute = set(argomenti.solo) - {m.nome for m in mutazioni}
        if sconosciute:
            sys.exit(f"unknown mutations: {', '.join(sorted(sconosciute))}")
        mutazioni = [m for m in mutazioni if m.nome in argomenti.solo]

    ALBERO.mkdir(parents=True, exist_ok=True)
    copiati, tolti = SincronizzaAlbero()
    print(f"Scratch tree {ALBERO.relative_to(RADICE)}: {copiati} files copied, {tolti} removed",
          flush=True)

    da_provare = []
    for m in mutazioni:
        problema = Verifica(m)
        if problema:
            m.esito, m.dettaglio = "NOT APPLIED", problema
        else:
            da_provare.append(m)

    if not argomenti.verifica and da_provare:
        cartella = LAVORO / ("costruzione-san" if argomenti.sanitizzatori else "costruzione")
        costruzione = Costruzione(cartella, argomenti.sanitizzatori, argomenti.jobs)
        t = time.monotonic()
        costruzione.Configura()
        tutti = {nome for m in da_provare for nome, _ in m.prove}
        riuscita, testo = costruzione.Costruisci(tutti)
        if not riuscita:
            sys.exit("the unmutated tree does not build:\n" + testo[-4000:])
        # Every test must pass before any mutation, or a kill proves nothing.
        for nome, filtro in sorted({p for m in da_provare for p in m.prove}, key=str):
            passata, perche = costruzione.Prova(nome, filtro)
            if not passata:
                sys.exit(f"the unmutated tree fails its tests: {perche}")
        print(f"Unmutated build and tests: {Durata(time.monotonic() - t)}", flush=True)

        for i, m in enumerate(da_provare, 1):
            t = time.monotonic()
            file = ALBERO / m.file
            originale = file.read_bytes()
            try:
                file.write_bytes(Leggi(file).replace(m.originale, m.sostituto, 1).encode())
                riuscita, testo = costruzione.Costruisci({nome for nome, _ in m.prove})
                if not riuscita:
                    errori = [r for r in testo.splitlines() if "error" in r][:2]
                    m.esito, m.dettaglio = "NOT BUILT", " | ".join(errori)
                else:
                    m.esito, m.dettaglio = "SURVIVED", "every listed test passed"
                    for nome, filtro in m.prove:
                        passata, perche = costruzione.Prova(nome, filtro)
                        if not passata:
                            m.esito, m.dettaglio = "KILLED", perche
                            break
            finally:
                file.write_bytes(originale)
            m.secondi = time.monotonic() - t
            print(f"[{i:2}/{len(da_provare)}] {m.esito:<11} {m.nome} ({Durata(m.secondi)})",
                  flush=True)

    print()
    print("Mutation report")
    larghezza = max(len(m.nome) for m in mutazioni)
    for m in mutazioni:
        tempo = f"{Durata(m.secondi):>8}" if m.secondi else " " * 8
        print(f"  {m.esito or 'FOUND':<11} {m.nome:<{larghezza}} {tempo}  {m.file}: {m.descrizione}")
        if m.dettaglio and m.esito != "SURVIVED":
            print(f"  {'':<11} {'':<{larghezza}} {'':8}  -> {m.dettaglio}")
    conteggio = {e: sum(m.esito == e for m in mutazioni)
                 for e in ("KILLED", "SURVIVED", "NOT APPLIED", "NOT BUILT")}
    print()
    non_applicate = [m for m in mutazioni if m.esito == "NOT APPLIED"]
    if non_applicate:
        # Loud: after code has moved, these lines of the list need fixing.
        print("!" * 72)
        for m in non_applicate:
            print(f"NOT APPLIED: {ELENCO.name} line {m.riga} ({m.nome}): {m.dettaglio}")
        print("!" * 72)
    print(f"Mutations: {len(mutazioni)}; killed {conteggio['KILLED']}, "
          f"survived {conteggio['SURVIVED']}, not applied {conteggio['NOT APPLIED']}, "
          f"not built {conteggio['NOT BUILT']}; {Durata(time.monotonic() - inizio)}")
    if argomenti.verifica:
        return 1 if conteggio["NOT APPLIED"] else 0
    return 0 if conteggio["KILLED"] == len(mutazioni) else 1


if __name__ == "__main__":
    sys.exit(main())
