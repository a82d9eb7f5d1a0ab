#!/usr/bin/python3
"""The keypad in a real terminal: Pendrino runs inside tmux and the keys are
tmux's own (send-keys KP1, C-KP1, M-KP3...). With Num Lock on the keypad's
digits type into the command field; Ctrl+keypad 1 and 2 (with Shift, the
increments) and Alt+keypad 1 to 5 ask for the settings as Ctrl+1, Ctrl+2 and
Alt+1 to Alt+5 do; the cursor block's Home and End still move the focus.

Usage: tastierino.py <pendrino> <TERM inside tmux>"""

import os
import shutil
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from terminale_pty import SALTA, Fallito, principale, scrivi_impostazioni  # noqa: E402

if shutil.which("tmux") is None:  # pragma: no cover - depends on the machine
    barra = "!" * 72
    sys.stderr.write(f"\n{barra}\nSKIPPED: the keypad test needs tmux.\n"
                     f"Install it with: apt-get install tmux\n{barra}\n\n")
    sys.exit(SALTA)


class Tmux:
    def __init__(self, binario, terminale, cartella):
        self.presa = os.path.join(cartella, ".presa")
        self.comando("-f", "/dev/null", "new-session", "-d", "-x", "80", "-y", "44", "-c",
                     cartella, "env TERM=%s LANG=C.UTF-8 %s" % (terminale, binario))

    def comando(self, *argomenti):
        return subprocess.run(["tmux", "-S", self.presa] + list(argomenti), capture_output=True,
                              text=True, timeout=10).stdout

    def righe(self):
        return self.comando("capture-pane", "-p").split("\n")

    def riga(self, y):
        righe = self.righe()
        return righe[y] if y < len(righe) else ""

    def contiene(self, testo):
        return any(testo in r for r in self.righe())

    def cursore(self):
        x, y = self.comando("display", "-p", "#{cursor_x} #{cursor_y}").split()
        return int(x), int(y)

    def premi(self, *tasti):
        for tasto in tasti:
            self.comando("send-keys", tasto)

    def attendi(self, condizione, descrizione, secondi=10.0):
        fine = time.time() + secondi
        while time.time() < fine:
            if condizione():
                return
            time.sleep(0.05)
        if not condizione():
            raise Fallito(descrizione + "\n" + "\n".join(
                "%2d|%s" % (i, r.rstrip()) for i, r in enumerate(self.righe())))

    def chiudi(self):
        self.comando("kill-server")


def campo(t):
    return t.riga(40)[44:52].rstrip()


def domanda(t, tasti, testo, errori):
    t.premi(*tasti)
    try:
        t.attendi(lambda: t.contiene(testo), f"{' '.join(tasti)}: the question {testo!r}")
        t.premi("n")
        t.attendi(lambda: not t.contiene(testo) and t.cursore() == (44, 40),
                  f"{' '.join(tasti)}: the question to close")
    except Fallito as e:
        errori.append(str(e))
        t.premi("Escape")
        time.sleep(0.3)


def prova(binario, terminale):
    errori = []
    with tempfile.TemporaryDirectory(prefix="pendrino-e2e-") as cartella:
        scrivi_impostazioni(cartella)
        t = Tmux(binario, terminale, cartella)
        try:
            t.attendi(lambda: t.riga(40)[27:37] == "Comando =>" and t.cursore() == (44, 40),
                      "the main screen with the cursor on the command field")
            # Keypad digits type.
            t.premi("KP1", "KP2")
            t.attendi(lambda: campo(t) == "12", "KP1 KP2 typed into the command field")
            domanda(t, ["C-KP1"], "Impostare 'tempo primo periodo' 12 minuti?", errori)
            domanda(t, ["KP5", "C-S-KP1"], "Impostare 'incremento primo periodo' 5 secondi?",
                    errori)
            domanda(t, ["KP4", "KP0", "C-KP2"], "Impostare 'tempo secondo periodo' 40 minuti?",
                    errori)
            domanda(t, ["KP9", "C-S-KP2"], "Impostare 'incremento secondo periodo' 9 secondi?",
                    errori)
            for n, nome in enumerate(["primo", "secondo", "terzo", "quarto", "quinto"], 1):
                domanda(t, ["KP%d" % (n + 2), "M-KP%d" % n],
                        f"Impostare '{nome} allarme' {n + 2} minuti?", errori)
            # Every digit of the keypad.
            t.premi(*["KP%d" % i for i in (3, 4, 5, 6, 7, 8, 9, 0)])
            t.attendi(lambda: campo(t) == "34567890", "the keypad's digits typed")
            for _ in range(8):
                t.premi("BSpace")
            t.attendi(lambda: campo(t) == "", "the field erased")
            # The cursor block (the keypad with Num Lock off sends the same)
            # still moves the focus.
            t.premi("Home")
            t.attendi(lambda: t.cursore()[1] != 40, "Home moves the focus off the command field")
            t.premi("End")
            t.attendi(lambda: t.cursore() == (44, 40), "End brings the focus back")
            t.premi("Up")
            t.attendi(lambda: t.cursore()[1] < 40, "Up moves the focus")
            t.premi("Down")
            t.attendi(lambda: t.cursore() == (44, 40), "Down brings the focus back")
            t.premi("KP1")
            t.attendi(lambda: campo(t) == "1", "a keypad digit after the navigation")
        except Fallito as e:
            errori.append(str(e))
        finally:
            t.chiudi()
    return errori, None


def main():
    return principale(__doc__, prova)


if __name__ == "__main__":
    sys.exit(main())
