#!/usr/bin/env python3
"""Include roots check: in every source file of the project that a build
compiles, a header name can resolve in one place only.

  controlla_radici.py COMPILE_COMMANDS ROOT

COMPILE_COMMANDS is a build's compile_commands.json, ROOT the repository.
For each file it lists under ROOT, the include roots are its -I, -iquote and
-isystem folders inside ROOT, and, for a quoted name, the folder of the file
that names it. Two rules, each a failure:

  - two roots of one file hold the same top-level name with headers under it
    (a folder or a header): a name that starts there could mean either, as
    "board/x.h" under both src/ and tests/;
  - an #include (in the file or in a header of the project it reaches) finds
    its name under more than one root.

Every #include line counts, whatever preprocessor branch it stands in.
Prints one line per failure and exits 1 when there is any.
"""
import json
import os
import re
import shlex
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)
INTESTAZIONI = (".h", ".hpp", ".inc")
CARTELLE = ("src", "tests", "bench", "fuzz", "tools")


def dentro(percorso, radice):
    return percorso == radice or percorso.startswith(radice + os.sep)


def radici_del_comando(voce, radice):
    """The include folders of one compile command that lie inside `radice`."""
    if "arguments" in voce:
        argomenti = list(voce["arguments"])
    else:
        argomenti = shlex.split(voce["command"])
    cartella = voce.get("directory", ".")
    trovate = []
    i = 0
    while i < len(argomenti):
        a = argomenti[i]
        valore = None
        for opzione in ("-iquote", "-isystem", "-idirafter", "-I"):
            if a == opzione and i + 1 < len(argomenti):
                i += 1
                valore = argomenti[i]
                break
            if a.startswith(opzione) and len(a) > len(opzione):
                valore = a[len(opzione):]
                break
        i += 1
        if valore is None:
            continue
        percorso = os.path.realpath(os.path.join(cartella, valore))
        if dentro(percorso, radice) and percorso not in trovate:
            trovate.append(percorso)
    return trovate


_nomi = {}


def nomi_con_intestazioni(cartella):
    """The top-level names of `cartella` that hold headers: header files, and
    folders with a header somewhere below."""
    if cartella in _nomi:
        return _nomi[cartella]
    nomi = set()
    try:
        voci = os.listdir(cartella)
    except OSError:
        voci = []
    for nome in voci:
        percorso = os.path.join(cartella, nome)
        if os.path.isfile(percorso) and nome.endswith(INTESTAZIONI):
            nomi.add(nome)
        elif os.path.isdir(percorso) and not nome.startswith("."):
            if any(f.endswith(INTESTAZIONI) for _, _, file in os.walk(percorso) for f in file):
                nomi.add(nome + "/")
    _nomi[cartella] = nomi
    return nomi


_testi = {}


def inclusioni(percorso):
    """(line, quoted, name) of every #include of a file."""
    if percorso not in _testi:
        try:
            with open(percorso, encoding="utf-8", errors="replace") as f:
                testo = f.read()
        except OSError:
            testo = ""
        _testi[percorso] = [(testo.count("\n", 0, m.start()) + 1, m.group(1) == '"', m.group(2))
                            for m in INCLUDE.finditer(testo)]
    return _testi[percorso]


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    with open(sys.argv[1], encoding="utf-8") as f:
        comandi = json.load(f)
    radice = os.path.realpath(sys.argv[2])
    progetto = [os.path.join(radice, c) for c in CARTELLE]

    def del_progetto(percorso):
        return any(dentro(percorso, p) for p in progetto)

    errori = set()
    # (root, root) -> the names both hold, and the files compiled with both.
    sovrapposte = {}
    visti = set()
    controllati = 0
    for voce in comandi:
        file = os.path.realpath(os.path.join(voce.get("directory", "."), voce["file"]))
        if not del_progetto(file):
            continue
        controllati += 1
        radici = radici_del_comando(voce, radice)
        relativo = lambda p: os.path.relpath(p, radice).replace(os.sep, "/")

        # Roots that share a top-level name.
        tutte = [os.path.dirname(file)] + [r for r in radici if r != os.path.dirname(file)]
        for i, a in enumerate(tutte):
            for b in tutte[i + 1:]:
                comuni = nomi_con_intestazioni(a) & nomi_con_intestazioni(b)
                if comuni:
                    nomi, file_con = sovrapposte.setdefault((a, b), (set(), []))
                    nomi.update(comuni)
                    file_con.append(relativo(file))

        # Every include of the file and of the project headers it reaches.
        coda = [file]
        while coda:
            corrente = coda.pop()
            chiave = (corrente, tuple(radici))
            if chiave in visti:
                continue
            visti.add(chiave)
            for riga, virgolette, nome in inclusioni(corrente):
                candidate = ([os.path.dirname(corrente)] if virgolette else []) + radici
                trovati = []
                for c in candidate:
                    percorso = os.path.realpath(os.path.join(c, nome))
                    if os.path.isfile(percorso) and percorso not in trovati:
                        trovati.append(percorso)
                if len(trovati) > 1:
                    dove = " and ".join(relativo(t) for t in trovati)
                    errori.add(f"{relativo(corrente)}:{riga}: \"{nome}\" resolves to {dove}")
                if trovati and del_progetto(trovati[0]):
                    coda.append(trovati[0])
    for (a, b), (nomi, file_con) in sovrapposte.items():
        altri = f" and {len(file_con) - 1} more" if len(file_con) > 1 else ""
        errori.add(f"{file_con[0]}{altri}: the roots {relativo(a)}/ and {relativo(b)}/ "
                   f"both hold {', '.join(sorted(nomi))}")
    for e in sorted(errori):
        print(e)
    print(f"controlla_radici: {controllati} files compiled, {len(errori)} ambiguous names or roots")
    sys.exit(1 if errori else 0)


if __name__ == "__main__":
    main()
