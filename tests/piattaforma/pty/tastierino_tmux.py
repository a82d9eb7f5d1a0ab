#!/usr/bin/python3
"""The keypad through a real terminal: the test program runs inside tmux and
tmux's own keys (send-keys KP1, C-KP1, M-KP1...) reach it as tmux sends them,
with the terminal descriptions a tmux pane is commonly given. Keypad digits
with Num Lock on must arrive as VK_NUMPAD records with their digit, with Ctrl,
Ctrl+Shift and Alt as they were held, and the cursor block must stay
navigation.

Usage: tastierino_tmux.py <prova_terminale>"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

SALTA = 77  # CTest SKIP_RETURN_CODE

if shutil.which("tmux") is None:  # pragma: no cover - depends on the machine
    barra = "!" * 72
    sys.stderr.write(f"\n{barra}\nSKIPPED: the keypad test needs tmux.\n"
                     f"Install it with: apt-get install tmux\n{barra}\n\n")
    sys.exit(SALTA)

PROGRAMMA = os.path.abspath(sys.argv[1])
FALLIMENTI = []


def controlla(condizione, descrizione):
    if not condizione:
        FALLIMENTI.append(descrizione)
        print("FALLITO: " + descrizione, flush=True)


class Tmux:
    def __init__(self, cartella, terminale):
        self.presa = os.path.join(cartella, "presa")
        self.comando("-f", "/dev/null", "new-session", "-d", "-x", "80", "-y", "44",
                     "env TERM=%s LANG=C.UTF-8 %s" % (terminale, PROGRAMMA))

    def comando(self, *argomenti):
        return subprocess.run(["tmux", "-S", self.presa] + list(argomenti), capture_output=True,
                              text=True, timeout=10).stdout

    def riga(self, y):
        righe = self.comando("capture-pane", "-p").split("\n")
        return righe[y] if y < len(righe) else ""

    def chiudi(self):
        self.comando("kill-server")


def numero_tasti(riga):
    m = re.match(r"tasto (\d+):", riga)
    return int(m.group(1)) if m else 0


def attendi(condizione, secondi=5.0):
    fine = time.time() + secondi
    while time.time() < fine:
        if condizione():
            return True
        time.sleep(0.03)
    return condizione()


def prova(terminale):
    with tempfile.TemporaryDirectory(prefix="pendrino-tmux-") as cartella:
        t = Tmux(cartella, terminale)
        try:
            if not attendi(lambda: "Pendrino prova" in t.riga(0)):
                controlla(False, "%s: the program did not start" % terminale)
                return
            # Every request the program makes at start (keypad, modified
            # keys) has reached tmux once the screen is drawn.
            time.sleep(0.2)
            casi = [("KP%d" % i, "vk=%02X stato=0000 car=%d" % (0x60 + i, 48 + i))
                    for i in range(10)]
            casi += [
                ("C-KP1", "vk=61 stato=0008"),
                ("C-KP2", "vk=62 stato=0008"),
                ("C-S-KP1", "vk=61 stato=0018"),
                ("C-S-KP2", "vk=62 stato=0018"),
            ]
            casi += [("M-KP%d" % i, "vk=%02X stato=0002 car=%d" % (0x60 + i, 48 + i))
                     for i in range(1, 6)]
            casi += [
                ("1", "vk=31 stato=0000 car=49"),
                ("Home", "vk=24 stato=0000"),
                ("End", "vk=23 stato=0000"),
                ("Up", "vk=26 stato=0000"),
                ("Down", "vk=28 stato=0000"),
                ("Left", "vk=25 stato=0000"),
                ("Right", "vk=27 stato=0000"),
                ("PageUp", "vk=21 stato=0000"),
            ]
            for chiave, atteso in casi:
                prima = numero_tasti(t.riga(2))
                t.comando("send-keys", chiave)
                if not attendi(lambda: numero_tasti(t.riga(2)) == prima + 1):
                    controlla(False, "%s: %s: no key record (%r)" % (terminale, chiave,
                                                                      t.riga(2).rstrip()))
                    continue
                time.sleep(0.05)  # nothing more behind it
                riga = t.riga(2)
                controlla(numero_tasti(riga) == prima + 1 and atteso in riga,
                          "%s: %s: expected %r, got %r" % (terminale, chiave, atteso,
                                                           riga.rstrip()))
            t.comando("send-keys", "q")
        finally:
            t.chiudi()


def main():
    for terminale in ("xterm-256color", "tmux-256color", "screen"):
        prova(terminale)
    if FALLIMENTI:
        print("%d checks failed" % len(FALLIMENTI))
        return 1
    print("all checks passed")
    return 0


if __name__ == "__main__":
    sys.exit(main())
