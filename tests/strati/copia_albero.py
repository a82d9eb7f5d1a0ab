"""The source folders of a repository copied into a scratch folder, where the
checks' own tests plant what the checks must refuse."""
import os
import shutil

CARTELLE = ("src", "tests", "bench", "fuzz", "tools")


def CopiaSorgenti(radice, destinazione):
    for parte in CARTELLE:
        sorgente = os.path.join(radice, parte)
        if os.path.isdir(sorgente):
            shutil.copytree(sorgente, os.path.join(destinazione, parte),
                            ignore=shutil.ignore_patterns("__pycache__", "corpus"))
