#!/usr/bin/env python3
"""Ownership check: a global that a folder of src/ declares in its headers
(`extern`, not const, or an `inline` reference that names a part of one, as
btm_bianco names btm_colore[BIANCO]) is written only by that folder's own
sources, and by
the tests of that folder (tests/<folder>/), which may set up the state they
test. Any other file, in src/, in another folder of tests/, in bench/, fuzz/
or tools/, changes it only through the owner's functions.

One writer outside its folder is allowed by name: the make and unmake
functions of src/moves (fai.cpp, ritira.cpp) are the position's own
transitions, the tables of moves name them, and they write the position of
src/board.

  controlla_proprieta.py ROOT

ROOT is the repository. A write is an assignment (=, +=, ++ ...) to the name,
to an element or field of it, a non-const reference bound to it, or the name
as the destination of a copying call (CopiaLimitata, memcpy, snprintf ...).
Prints one line per write found outside the owner and exits 1 when there is
any.
"""
import os
import re
import sys

CARTELLE_ESTERNE = ("tests", "bench", "fuzz", "tools")
ESTENSIONI = (".h", ".cpp", ".inc")

# An inline non-const reference to a part of a global: "inline uint64_t&
# btm_bianco = ...", "inline uint64_t (&casa_re_nero)[10] = ...".
ALIAS = re.compile(r'^\s*inline\s+(?!const\b)[\w:]+\s*(?:&|\(\s*&)\s*([A-Za-z_]\w*)', re.M)
EXTERN = re.compile(r'^\s*extern\s+(?!"C")([^;()]*?)\b([A-Za-z_]\w*)\s*((?:\[[^\]]*\])*)\s*;', re.M)
COMMENTO = re.compile(r'//[^\n]*|/\*.*?\*/', re.S)
STRINGA = re.compile(r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'')
COPIE = ("CopiaLimitata", "memcpy", "memmove", "memset", "strcpy", "strncpy", "snprintf",
         "sprintf", "strcat")


def pulisci(testo):
    """The text without comments and string contents, line breaks kept."""
    testo = COMMENTO.sub(lambda m: "\n" * m.group(0).count("\n"), testo)
    return STRINGA.sub('""', testo)


def sorgenti(radice, cartella):
    for base, _, file in os.walk(os.path.join(radice, cartella)):
        for nome in sorted(file):
            if nome.endswith(ESTENSIONI):
                yield os.path.join(base, nome)


# File -> the folder whose globals it may write besides its own.
TRANSIZIONI = {
    "src/moves/fai.cpp": "board",
    "src/moves/ritira.cpp": "board",
}


def proprietario(relativo):
    """The src folder a file belongs to: its first folder under src/, or the
    folder of src/ its tests mirror under tests/; None for the rest."""
    parti = relativo.split("/")
    if len(parti) > 2 and parti[0] in ("src", "tests"):
        return parti[1]
    return None


def globali(radice):
    """Name -> owning folder, for every non-const extern (and inline reference
    to one) of src's headers."""
    trovati = {}
    for percorso in sorgenti(radice, "src"):
        if not percorso.endswith(".h"):
            continue
        relativo = os.path.relpath(percorso, radice).replace(os.sep, "/")
        with open(percorso, encoding="utf-8", errors="replace") as f:
            testo = pulisci(f.read())
        for nome in ALIAS.findall(testo):
            trovati[nome] = proprietario(relativo)
        for tipo, nome, _ in EXTERN.findall(testo):
            parole = tipo.split()
            # "const char* const X" and "const T X": nothing to write.
            if "const" in parole and (tipo.rstrip().endswith("const") or "*" not in tipo):
                continue
            trovati[nome] = proprietario(relativo)
    return trovati


DICHIARAZIONE = re.compile(
    r'^\s*(?:(?:const|constexpr|static|inline|thread_local|volatile|unsigned|signed|struct)\s+)*'
    r'(?!return\b|else\b|case\b|delete\b|throw\b|new\b|goto\b|using\b|extern\b)'
    r'[A-Za-z_][\w:]*(?:<[^;]*?>)?[\s*&]+([A-Za-z_]\w*)\s*(?:\[[^\]]*\])*\s*'
    r'(?:=|\{|,|:|\(|$)(.*)$', re.S)


def dichiarati(testo):
    """The names a file declares itself (locals, members, parameters' like):
    a global of the same name is hidden there, and its writes are not the
    global's."""
    nomi = set()
    for istruzione in re.split(r'[;{}()]', testo):
        m = DICHIARAZIONE.match(istruzione)
        if not m:
            continue
        nomi.add(m.group(1))
        # The rest of a list: "int a = 0, b = 0, c".
        for altro in re.findall(r',\s*[*&]?\s*([A-Za-z_]\w*)\s*(?:\[[^\]]*\])*\s*(?==|,|$)',
                                m.group(2)):
            nomi.add(altro)
    return nomi


def scritture(testo, nomi):
    """(line, name) of every write to one of `nomi` in a cleaned text."""
    if not nomi:
        return []
    gruppo = "|".join(sorted(map(re.escape, nomi), key=len, reverse=True))
    accesso = r'(?:\s*\[[^\]\n]*\]|\s*\.\s*\w+|\s*->\s*\w+)*'
    schemi = [
        # Assignment, compound assignment, increment after.
        re.compile(r'(?<![\w.>:])(' + gruppo + r')\b' + accesso +
                   r'\s*(?:(?:[-+*/%&|^]|<<|>>)?=(?!=)|\+\+|--)'),
        # Increment before.
        re.compile(r'(?:\+\+|--)\s*(' + gruppo + r')\b'),
        # A non-const reference bound to it.
        re.compile(r'(?<!const)\s[\w:<>]+\s*&\s*\w+\s*=\s*(' + gruppo + r')\b'),
        # The destination of a copy.
        re.compile(r'\b(?:std::)?(?:' + "|".join(COPIE) + r')\s*\(\s*&?\s*(' + gruppo + r')\b'),
    ]
    trovate = []
    for schema in schemi:
        for m in schema.finditer(testo):
            trovate.append((testo.count("\n", 0, m.start()) + 1, m.group(1)))
    return sorted(set(trovate))


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    radice = sys.argv[1]
    proprieta = globali(radice)
    if not proprieta:
        sys.exit("controlla_proprieta: no global found under " + os.path.join(radice, "src"))
    errori, controllati = [], 0
    for cartella in ("src",) + CARTELLE_ESTERNE:
        for percorso in sorgenti(radice, cartella):
            relativo = os.path.relpath(percorso, radice).replace(os.sep, "/")
            mia = proprietario(relativo)
            ammesse = {mia, TRANSIZIONI.get(relativo)}
            altrui = [n for n, p in proprieta.items() if p not in ammesse]
            with open(percorso, encoding="utf-8", errors="replace") as f:
                testo = pulisci(f.read())
            nascosti = dichiarati(testo)
            altrui = [n for n in altrui if n not in nascosti]
            controllati += 1
            for riga, nome in scritture(testo, altrui):
                errori.append(f"{relativo}:{riga}: writes {nome}, which src/{proprieta[nome]} owns")
    for e in errori:
        print(e)
    print(f"controlla_proprieta: {len(proprieta)} globals, {controllati} files, "
          f"{len(errori)} writes outside their owner")
    sys.exit(1 if errori else 0)


if __name__ == "__main__":
    main()
