#!/usr/bin/env python3
"""Layer check: every #include "a/b.h" under src/ must name a header of the
including file's own folder or of a folder that its library links (directly
or through the libraries it links); and inside one folder, the modules (a
header with its source, by file name) must not include each other in a ring.

  controlla_strati.py SRC STRATI

SRC is the source folder; STRATI the file the build writes (build/*/strati.txt),
one line per library folder: "folder: linked folder ...". Files of src/ outside
every library folder (the program's main) may include anything. Prints one
line per refused include or ring and exits 1 when there is any.
"""
import os
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.M)


def leggi_strati(percorso):
    strati = {}
    with open(percorso, encoding="utf-8") as f:
        for riga in f:
            if ":" not in riga:
                continue
            cartella, dipendenze = riga.split(":", 1)
            strati[cartella.strip()] = dipendenze.split()
    return strati


def chiusura(strati):
    """Each folder with every folder it reaches through its libraries."""
    raggiunte = {}

    def visita(cartella, in_corso):
        if cartella in raggiunte:
            return raggiunte[cartella]
        if cartella in in_corso:
            raise SystemExit(f"controlla_strati: the libraries link in a circle at {cartella}")
        in_corso.add(cartella)
        tutte = {cartella}
        for d in strati.get(cartella, []):
            tutte |= visita(d, in_corso)
        in_corso.discard(cartella)
        raggiunte[cartella] = tutte
        return tutte

    for c in strati:
        visita(c, set())
    return raggiunte


def cartella_di(relativo, cartelle):
    """The deepest library folder holding the file, or None."""
    migliore = None
    for c in cartelle:
        if relativo.startswith(c + "/") and (migliore is None or len(c) > len(migliore)):
            migliore = c
    return migliore


def modulo(nome):
    """The module a file belongs to: its name without the extension."""
    return os.path.splitext(os.path.basename(nome))[0]


def anelli(inclusioni):
    """The rings of a folder's module graph, each once, as lists of modules
    that start and end with the same one. `inclusioni` maps a module to the
    modules of the same folder it includes."""
    trovati, visti = [], set()
    stato = {}  # 1 on the current path, 2 done

    def visita(m, percorso):
        stato[m] = 1
        percorso.append(m)
        for n in sorted(inclusioni.get(m, ())):
            if stato.get(n) == 1:
                anello = percorso[percorso.index(n):] + [n]
                chiave = frozenset(anello)
                if chiave not in visti:
                    visti.add(chiave)
                    trovati.append(anello)
            elif n not in stato:
                visita(n, percorso)
        percorso.pop()
        stato[m] = 2

    for m in sorted(inclusioni):
        if m not in stato:
            visita(m, [])
    return trovati


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    radice, strati = sys.argv[1], leggi_strati(sys.argv[2])
    permesse = chiusura(strati)
    errori = []
    controllati = 0
    # Per folder: module -> modules of the same folder it includes.
    moduli = {}
    for base, _, file in os.walk(radice):
        for nome in sorted(file):
            if not nome.endswith((".h", ".cpp", ".inc")):
                continue
            percorso = os.path.join(base, nome)
            relativo = os.path.relpath(percorso, radice).replace(os.sep, "/")
            mia = cartella_di(relativo, permesse)
            if mia is None:
                continue
            controllati += 1
            with open(percorso, encoding="utf-8", errors="replace") as f:
                testo = f.read()
            for incluso in INCLUDE.findall(testo):
                sua = cartella_di(incluso, permesse)
                if sua == mia and os.path.dirname(incluso) == mia and \
                        modulo(incluso) != modulo(nome):
                    moduli.setdefault(mia, {}).setdefault(modulo(nome), set()).add(
                        modulo(incluso))
                if sua is None:
                    errori.append(f"{relativo}: includes {incluso}, which is in no layer")
                elif sua not in permesse[mia]:
                    errori.append(f"{relativo}: includes {incluso}, but the {mia} library "
                                  f"does not link {sua}")
    for cartella in sorted(moduli):
        for anello in anelli(moduli[cartella]):
            errori.append(f"{cartella}: the modules include each other in a ring: "
                          + " -> ".join(anello))
    for e in errori:
        print(e)
    if controllati == 0:
        sys.exit("controlla_strati: no source file found under " + radice)
    print(f"controlla_strati: {controllati} files, {len(errori)} refused includes or rings")
    sys.exit(1 if errori else 0)


if __name__ == "__main__":
    main()
