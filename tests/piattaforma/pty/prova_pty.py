#!/usr/bin/python3
"""The terminal backend in a pseudo-terminal of 80 x 44, seen through pyte:
keys as the terminal sends them, the message box and the walk of its lines,
the size check, tones of the prefixes kept off the screen, idle CPU,
suspension with Ctrl+Z, the pager and the terminal given back on exit and on
a fatal signal.

Usage: prova_pty.py <prova_terminale>"""

import os
import re
import signal
import subprocess
import sys
import tempfile
import termios
import time

SALTA = 77  # CTest SKIP_RETURN_CODE

try:
    import pexpect
    import pyte
except ImportError as errore:  # pragma: no cover - depends on the machine
    barra = "!" * 72
    sys.stderr.write(
        f"\n{barra}\n"
        f"SKIPPED: the terminal backend test needs pyte and pexpect ({errore}).\n"
        f"Interpreter: {sys.executable}\n"
        "Install them with: apt-get install python3-pyte python3-pexpect\n"
        f"{barra}\n\n")
    sys.exit(SALTA)

PROGRAMMA = os.path.abspath(sys.argv[1])
FALLIMENTI = []


def controlla(condizione, descrizione):
    if not condizione:
        FALLIMENTI.append(descrizione)
        print("FALLITO: " + descrizione, flush=True)


class Terminale:
    def __init__(self, comando, argomenti, righe=44, colonne=80, ambiente=None):
        env = {
            "PATH": "/usr/bin:/bin",
            "TERM": "xterm-256color",
            "LANG": "C.UTF-8",
            "HOME": tempfile.gettempdir(),
        }
        env.update(ambiente or {})
        self.schermo = pyte.Screen(colonne, righe)
        self.flusso = pyte.ByteStream(self.schermo)
        self.grezzo = b""
        self.figlio = pexpect.spawn(comando, argomenti, dimensions=(righe, colonne), env=env)

    def leggi(self, secondi=0.05):
        fine = time.time() + secondi
        while True:
            try:
                dati = self.figlio.read_nonblocking(65536, timeout=0.02)
                self.grezzo += dati
                self.flusso.feed(dati)
            except pexpect.TIMEOUT:
                pass
            except pexpect.EOF:
                return
            if time.time() >= fine:
                return

    def attendi(self, condizione, descrizione, secondi=5.0):
        fine = time.time() + secondi
        while time.time() < fine:
            self.leggi(0.03)
            if condizione():
                return True
        controlla(False, descrizione + "\n" + self.testo())
        return False

    def riga(self, y):
        return self.schermo.display[y]

    def testo(self):
        return "\n".join("%2d|%s" % (i, r.rstrip()) for i, r in enumerate(self.schermo.display))

    def contiene(self, parte):
        return any(parte in r for r in self.schermo.display)

    def invia(self, dati):
        self.figlio.send(dati)

    def ridimensiona(self, righe, colonne):
        self.schermo.resize(righe, colonne)
        self.figlio.setwinsize(righe, colonne)


def numero_tasti(t):
    m = re.match(r"tasto (\d+):", t.riga(2))
    return int(m.group(1)) if m else 0


def tasto(t, dati, atteso, descrizione, pausa=0.0):
    prima = numero_tasti(t)
    if isinstance(dati, (list, tuple)):
        for pezzo in dati:
            t.invia(pezzo)
            time.sleep(pausa)
    else:
        t.invia(dati)
    ok = t.attendi(lambda: numero_tasti(t) == prima + 1, descrizione + ": no key record")
    if ok:
        riga = t.riga(2)
        controlla(atteso in riga, "%s: expected %r, got %r" % (descrizione, atteso, riga.rstrip()))


def prova_tasti_e_riquadro(file_da_vedere):
    t = Terminale(PROGRAMMA, [file_da_vedere], ambiente={"PAGER": "less", "LESS": ""})
    t.attendi(lambda: "Pendrino prova" in t.riga(0) and "ultima riga" in t.riga(43),
              "the screen is drawn")
    controlla(b"\x1b[>4;2m" in t.grezzo, "modifyOtherKeys requested")
    controlla(b"\x1b[8;44;80t" in t.grezzo, "80 x 44 requested")
    controlla(b"\x1b]2;Prova1.0\x07" in t.grezzo, "title set")

    # Chords in the forms terminals send them.
    casi = [
        ("\x1b[13;5u", "vk=0D stato=0008", "Ctrl+Enter CSI-u"),
        ("\x1b[27;6;13~", "vk=0D stato=0018", "Ctrl+Shift+Enter modifyOtherKeys"),
        ("\x1b[49;5u", "vk=31 stato=0008", "Ctrl+1"),
        ("\x1b[33;6u", "vk=31 stato=0018", "Ctrl+Shift+1"),
        ("\x1b[50;5u", "vk=32 stato=0008", "Ctrl+2"),
        ("\x1b[109;5u", "vk=4D stato=0008", "Ctrl+M"),
        ("\x1b[43;5u", "vk=BB stato=0018", "Ctrl+plus"),
        ("\x1b[45;5u", "vk=BD stato=0008", "Ctrl+minus"),
        ("\x1b[3;5~", "vk=2E stato=0008", "Ctrl+Delete (kDC5)"),
        ("\x1b[1;3S", "vk=73 stato=0002", "Alt+F4 (kf52)"),
        ("\x1bOS", "vk=73 stato=0000", "F4"),
        ("\x1bn", "vk=4E stato=0002 car=110", "Alt+N as ESC n"),
        ("\x1bs", "vk=53 stato=0002", "Alt+S as ESC s"),
        ("\x1b3", "vk=33 stato=0002", "Alt+3 as ESC 3"),
        ("\x03", "vk=43 stato=0008", "Ctrl+C is a key"),
        ("\x01", "vk=41 stato=0008", "Ctrl+A"),
        ("\x10", "vk=50 stato=0008", "Ctrl+P"),
        ("\x1f", "vk=BD stato=0008", "Ctrl+minus as 0x1F"),
        ("\x00", "vk=32 stato=0008", "Ctrl+2 as NUL"),
        ("t", "vk=54 stato=0000 car=116", "t"),
        ("T", "vk=54 stato=0010 car=84", "T"),
        ("7", "vk=37 stato=0000 car=55", "7"),
        ("+", "vk=BB stato=0010 car=43", "+"),
        ("\r", "vk=0D stato=0000 car=13", "Enter"),
        ("\x7f", "vk=08 stato=0000", "Backspace"),
        ("\x1b[H", "vk=24 stato=0000", "Home"),
        ("\x1b[F", "vk=23 stato=0000", "End"),
        ("\x1b[A", "vk=26 stato=0000", "Up"),
        ("\x1bOP", "vk=70 stato=0000", "F1"),
        ("\x1b[24~", "vk=7B stato=0000", "F12"),
        ("\x1b[15;2~", "vk=74 stato=0010", "Shift+F5"),
        # The keypad in application mode (Num Lock on): its digits, which
        # xterm's terminfo also names as the corners of a cursor pad.
        ("\x1bOq", "vk=61 stato=0000 car=49", "keypad 1"),
        ("\x1bOr", "vk=62 stato=0000 car=50", "keypad 2"),
        ("\x1bOs", "vk=63 stato=0000 car=51", "keypad 3"),
        ("\x1bOu", "vk=65 stato=0000 car=53", "keypad 5"),
        ("\x1bOw", "vk=67 stato=0000 car=55", "keypad 7"),
        ("\x1bOy", "vk=69 stato=0000 car=57", "keypad 9"),
        ("\x1bOp", "vk=60 stato=0000 car=48", "keypad 0"),
        ("\x1bO5q", "vk=61 stato=0008", "Ctrl+keypad 1 (xterm)"),
        ("\x1bO6r", "vk=62 stato=0018", "Ctrl+Shift+keypad 2 (xterm)"),
        ("\x1b[1106358;5u", "vk=61 stato=0008", "Ctrl+keypad 1 (tmux)"),
        ("\x1b[1106359;6u", "vk=62 stato=0018", "Ctrl+Shift+keypad 2 (tmux)"),
        ("\x1b\x1bOq", "vk=61 stato=0002 car=49", "Alt+keypad 1"),
        ("\x1b\x1bOu", "vk=65 stato=0002 car=53", "Alt+keypad 5"),
        # The cursor block in application mode stays navigation.
        ("\x1bOH", "vk=24 stato=0000", "Home (SS3)"),
        ("\x1bOF", "vk=23 stato=0000", "End (SS3)"),
        ("\x1bOB", "vk=28 stato=0000", "Down (SS3)"),
    ]
    for dati, atteso, descrizione in casi:
        tasto(t, dati, atteso, descrizione)

    # A key held down: one record per repeat the terminal sends.
    prima = numero_tasti(t)
    t.invia("ttt")
    t.attendi(lambda: numero_tasti(t) == prima + 3, "three records for three repeats")

    # The sticky prefixes, each with a pause as a person would type them.
    prefissi = [
        (["\x1b", "\x1bOS"], "vk=73 stato=0002", "Esc then F4 = Alt+F4"),
        (["\x1b", "n"], "vk=4E stato=0002", "Esc then n = Alt+N"),
        (["\x18", "\r"], "vk=0D stato=0008", "Ctrl+X Enter = Ctrl+Enter"),
        (["\x18", "\x18", "\r"], "vk=0D stato=0018", "Ctrl+X twice Enter = Ctrl+Shift+Enter"),
        (["\x18", "1"], "vk=31 stato=0008", "Ctrl+X 1 = Ctrl+1"),
        (["\x18", "\x18", "1"], "vk=31 stato=0018", "Ctrl+X twice 1 = Ctrl+Shift+1"),
        (["\x18", "2"], "vk=32 stato=0008", "Ctrl+X 2 = Ctrl+2"),
        (["\x18", "\x18", "2"], "vk=32 stato=0018", "Ctrl+X twice 2 = Ctrl+Shift+2"),
        (["\x18", "m"], "vk=4D stato=0008", "Ctrl+X m = Ctrl+M"),
        (["\x18", "+"], "vk=BB stato=0018", "Ctrl+X + = Ctrl+plus"),
        (["\x18", "-"], "vk=BD stato=0008", "Ctrl+X - = Ctrl+minus"),
        (["\x18", "\x7f"], "vk=2E stato=0008", "Ctrl+X Backspace = Ctrl+Delete"),
        (["\x18", "\x1b[3~"], "vk=2E stato=0008", "Ctrl+X Delete = Ctrl+Delete"),
        (["\x1b", "\x1b", "n"], "vk=4E stato=0000", "Esc twice cancels"),
    ]
    for dati, atteso, descrizione in prefissi:
        tasto(t, dati, atteso, descrizione, pausa=0.15)

    # A sequence nobody knows does not type its bytes.
    tasto(t, ["\x1b[200~", "a"], "vk=41 stato=0000", "unknown sequence swallowed", pausa=0.1)

    # Yes/No/Cancel box.
    risposte = [("s", 6), ("y", 6), ("n", 7), ("a", 2), ("\x1b", 2), ("\r", 6)]
    for chiave, attesa in risposte:
        t.invia("b")
        if not t.attendi(lambda: t.contiene("Attenzione!"), "box shown"):
            break
        testo = t.testo()
        controlla("Prima riga del testo" in testo and "Seconda riga" in testo, "box text")
        controlla("[ Sì ]" in testo and "[ No ]" in testo and "[ Annulla ]" in testo,
                  "box buttons\n" + testo)
        riga_testo = next(i for i, r in enumerate(t.schermo.display) if "Prima riga" in r)
        colonna_testo = t.riga(riga_testo).index("Prima riga")
        controlla((t.schermo.cursor.x, t.schermo.cursor.y) == (colonna_testo, riga_testo),
                  "cursor at the start of the text: %r" % ((t.schermo.cursor.x, t.schermo.cursor.y),))
        controlla("Attenzione!" in t.riga(riga_testo - 2), "title two lines above the text")
        # Whole lines: nothing of the "sfondo" lines under the box is left
        # beside it, where a screen reader would read it with the box.
        for y, sola in [(riga_testo - 2, "Attenzione!"), (riga_testo - 1, ""),
                          (riga_testo, "Prima riga del testo"), (riga_testo + 1, "Seconda riga"),
                          (riga_testo + 2, ""), (riga_testo + 3, "[ Sì ]   [ No ]   [ Annulla ]"),
                          (riga_testo + 4, "")]:
            controlla(t.riga(y).strip() == sola,
                      "box line %d reads %r, expected only %r" % (y, t.riga(y), sola))
        numero = numero_tasti(t)
        t.invia("x")  # no answer
        t.leggi(0.2)
        controlla(t.contiene("Attenzione!"), "x does not answer")
        t.invia(chiave)
        t.attendi(lambda: ("risposta %d: %d" % (numero, attesa)) in t.riga(3),
                  "answer %r -> %d" % (chiave, attesa))
        t.attendi(lambda: not t.contiene("Attenzione!"), "box closed")
        controlla(all(t.riga(y).startswith("sfondo %02d ....." % y) for y in range(10, 30)),
                  "screen restored under the box\n" + t.testo())
        controlla((t.schermo.cursor.x, t.schermo.cursor.y) == (5, 5), "cursor back")

    # Keys typed before a box is shown do not answer it: they wait, in
    # order, and reach the program once the box is closed by a key pressed
    # while it was on the screen.
    numero = numero_tasti(t) + 1
    t.invia("bn")  # the answer sent together with the key that opens the box
    t.attendi(lambda: t.contiene("Attenzione!"), "box opened with a key typed ahead")
    t.leggi(0.5)
    controlla(t.contiene("Attenzione!") and not t.contiene("risposta %d:" % numero),
              "a key typed together with the box's own does not answer it")
    t.invia("s")
    t.attendi(lambda: ("risposta %d: 6" % numero) in t.riga(3),
              "the box answered by the key pressed while it is shown")
    t.attendi(lambda: ("tasto %d: vk=4E" % (numero + 1)) in t.riga(2),
              "the key typed ahead reaches the program after the box")
    numero = numero_tasti(t) + 1
    t.invia("l")  # work first, then the box
    time.sleep(0.15)
    t.invia("\r\x1bn")  # Enter (Sì), then Alt+N, while the program is busy
    t.attendi(lambda: t.contiene("Attenzione!"), "box after the work")
    t.leggi(0.5)
    controlla(t.contiene("Attenzione!") and not t.contiene("risposta %d:" % numero),
              "keys typed while the program was busy do not answer the box")
    t.invia("a")
    t.attendi(lambda: ("risposta %d: 2" % numero) in t.riga(3), "the busy box answered Annulla")
    t.attendi(lambda: ("tasto %d: vk=4E stato=0002" % (numero + 2)) in t.riga(2),
              "the keys typed while busy reach the program after the box, in order")
    controlla(not t.contiene("Attenzione!"), "no box left open by the keys typed ahead")

    # OK box: Enter or Esc.
    for chiave in ["\r", "\x1b"]:
        t.invia("o")
        t.attendi(lambda: t.contiene("Partita salvata.") and t.contiene("[ OK ]"), "OK box")
        numero = numero_tasti(t)
        t.invia(chiave)
        t.attendi(lambda: ("risposta %d: 1" % numero) in t.riga(3), "OK answered")

    # Too small, then large enough again: everything redrawn.
    t.ridimensiona(20, 60)
    t.attendi(lambda: "Prova: 80 colonne e 44 righe, ora 60 x 20." in t.riga(10), "size line")
    controlla(not t.contiene("Pendrino prova"), "screen hidden while too small")
    t.ridimensiona(44, 80)
    t.attendi(lambda: "Pendrino prova" in t.riga(0) and "ultima riga" in t.riga(43)
              and "sfondo 20" in t.riga(20), "redrawn when large enough")
    # While too small, keys other than Alt+F4 do not reach the program.
    numero = numero_tasti(t)
    t.ridimensiona(30, 80)
    t.attendi(lambda: t.contiene("80 colonne e 44 righe"), "size line again")
    for dati in ["b", "s", "\r", "\x1b[13;5u", "\x1bOS", "\x1bn"]:
        t.invia(dati)
        t.leggi(0.2)
    t.invia("\x1b[1;3S")
    t.leggi(0.3)
    controlla(not t.contiene("Attenzione!"), "no box opened by keys while too small")
    t.ridimensiona(44, 80)
    t.attendi(lambda: "Pendrino prova" in t.riga(0), "redrawn after the keys while too small")
    controlla("tasto %d: vk=73 stato=0002" % (numero + 1) in t.riga(2),
              "only Alt+F4 reached the program while too small: %r" % t.riga(2))
    controlla((t.schermo.cursor.x, t.schermo.cursor.y) == (5, 5), "cursor back after growing")

    # A box open when the terminal shrinks stays, alone in its middle, and
    # can be answered.
    numero = numero_tasti(t) + 1
    t.invia("b")
    t.attendi(lambda: t.contiene("Attenzione!"), "box before shrinking")
    t.ridimensiona(24, 60)
    t.attendi(lambda: t.contiene("Attenzione!") and not t.contiene("sfondo"),
              "box alone on the small terminal")
    lette = [r.strip() for r in t.schermo.display]
    attese = ["Attenzione!", "", "Prima riga del testo", "Seconda riga", "",
              "[ Sì ]   [ No ]   [ Annulla ]", ""]
    inizio = (24 - len(attese)) // 2
    controlla(lette == [""] * inizio + attese + [""] * (24 - inizio - len(attese)),
              "box alone on the small terminal\n" + t.testo())
    x, y = t.schermo.cursor.x, t.schermo.cursor.y
    controlla(t.riga(y)[x:].startswith("Prima riga del testo"),
              "cursor at the box text on the small terminal: %r" % ((x, y),))
    t.invia("n")
    t.attendi(lambda: t.contiene("Prova: 80 colonne e 44 righe"),
              "size line after the box answered")
    t.ridimensiona(44, 80)
    t.attendi(lambda: ("risposta %d: 7" % numero) in t.riga(3), "box answered while small")

    # A box with no room for it waits, unanswered, for the terminal to grow.
    numero = numero_tasti(t) + 1
    t.invia("b")
    t.attendi(lambda: t.contiene("Attenzione!"), "box before shrinking")
    t.ridimensiona(5, 80)
    t.attendi(lambda: t.contiene("80 colonne e 44 righe"), "size line, no room for the box")
    t.invia("s")
    t.leggi(0.3)
    controlla(not t.contiene("Attenzione!"), "box hidden with no room for it")
    t.ridimensiona(44, 80)
    t.attendi(lambda: t.contiene("Attenzione!"), "box shown after growing")
    controlla(not t.contiene("risposta %d" % numero), "hidden box not answered")
    t.invia("n")
    t.attendi(lambda: ("risposta %d: 7" % numero) in t.riga(3), "box answered after growing")

    # Idle: the wait blocks in the kernel.
    with open("/proc/%d/stat" % t.figlio.pid) as f:
        campi = f.read().rsplit(")", 1)[1].split()
    prima = int(campi[11]) + int(campi[12])
    time.sleep(3)
    with open("/proc/%d/stat" % t.figlio.pid) as f:
        campi = f.read().rsplit(")", 1)[1].split()
    dopo = int(campi[11]) + int(campi[12])
    cpu = (dopo - prima) / os.sysconf("SC_CLK_TCK")
    print("CPU while waiting 3 s: %.3f s" % cpu, flush=True)
    controlla(cpu < 0.05, "idle CPU %.3f s in 3 s" % cpu)

    # The pager in the terminal, then the screen redrawn and the title set
    # again (the pager or the shell may have changed it meanwhile).
    t.invia("v")
    t.attendi(lambda: t.contiene("contenuto da vedere"), "pager shows the file")
    t.grezzo = b""
    t.invia("q")
    t.attendi(lambda: "Pendrino prova" in t.riga(0) and t.contiene("visto"), "redrawn after pager")
    controlla(b"\x1b]2;Prova1.0\x07" in t.grezzo, "title set again after the pager")

    # Stopped and continued from outside: the title set again.
    t.leggi(0.2)
    os.kill(t.figlio.pid, signal.SIGSTOP)
    time.sleep(0.2)
    t.grezzo = b""
    os.kill(t.figlio.pid, signal.SIGCONT)
    t.attendi(lambda: b"\x1b]2;Prova1.0\x07" in t.grezzo, "title set again after SIGCONT")
    tasto(t, "\x1b[13;5u", "vk=0D stato=0008", "extended keys again after the pager")

    # Leaving: the terminal handed back.
    t.grezzo = b""
    t.invia("q")
    t.figlio.expect(pexpect.EOF, timeout=5)
    t.flusso.feed(t.figlio.before or b"")
    t.grezzo += t.figlio.before or b""
    t.figlio.close()
    controlla(t.figlio.exitstatus == 0, "exit code 0, got %r" % t.figlio.exitstatus)
    controlla(b"\x1b[>4;0m" in t.grezzo, "modifyOtherKeys reset on exit")
    controlla(b"\x1b[?1049l" in t.grezzo, "alternate screen left on exit")


def prova_righe_del_riquadro():
    """The arrows, Home and End walk the lines of an open box (each text line,
    then the buttons) without answering it, so that a screen reader that
    follows the cursor reads each line."""
    t = Terminale(PROGRAMMA, [])
    t.attendi(lambda: "Pendrino prova" in t.riga(0), "started")
    numero = numero_tasti(t) + 1
    t.invia("b")
    if not t.attendi(lambda: t.contiene("Attenzione!"), "box shown"):
        return
    riga_testo = next(i for i, r in enumerate(t.schermo.display) if "Prima riga" in r)
    colonna_testo = t.riga(riga_testo).index("Prima riga")
    colonna_pulsanti = t.riga(riga_testo + 3).index("[ S")

    def cursore_su(y, x, descrizione):
        return t.attendi(lambda: (t.schermo.cursor.x, t.schermo.cursor.y) == (x, y),
                         "%s: cursor at %r" % (descrizione, (x, y)))

    cursore_su(riga_testo, colonna_testo, "the box opens on its first line")
    passi = [("\x1b[B", riga_testo + 1, colonna_testo, "Down: second line"),
             ("\x1b[B", riga_testo + 3, colonna_pulsanti, "Down: the buttons"),
             ("\x1b[B", riga_testo + 3, colonna_pulsanti, "Down on the last line stays"),
             ("\x1b[A", riga_testo + 1, colonna_testo, "Up: second line"),
             ("\x1b[H", riga_testo, colonna_testo, "Home: first line"),
             ("\x1b[A", riga_testo, colonna_testo, "Up on the first line stays"),
             ("\x1b[F", riga_testo + 3, colonna_pulsanti, "End: the buttons"),
             ("\x1bOA", riga_testo + 1, colonna_testo, "Up (SS3): second line")]
    for tasti, y, x, descrizione in passi:
        t.invia(tasti)
        cursore_su(y, x, descrizione)
        controlla(t.contiene("Attenzione!") and not t.contiene("risposta %d:" % numero),
                  descrizione + ": the box is still open, unanswered")
    t.invia("n")
    t.attendi(lambda: ("risposta %d: 7" % numero) in t.riga(3), "the box answered after walking")
    t.invia("q")
    t.figlio.expect(pexpect.EOF, timeout=5)
    t.figlio.close()


def prova_segnale_fatale():
    t = Terminale(PROGRAMMA, [])
    t.attendi(lambda: "Pendrino prova" in t.riga(0), "started")
    modi = termios.tcgetattr(t.figlio.child_fd)
    controlla(not (modi[3] & termios.ICANON) and not (modi[3] & termios.ECHO), "raw mode while running")
    t.grezzo = b""
    os.kill(t.figlio.pid, signal.SIGTERM)
    t.leggi(0.5)
    modi = termios.tcgetattr(t.figlio.child_fd)
    controlla(modi[3] & termios.ICANON and modi[3] & termios.ECHO, "cooked mode after SIGTERM")
    controlla(b"\x1b[>4;0m" in t.grezzo and b"\x1b[?1049l" in t.grezzo,
              "terminal strings written on SIGTERM: %r" % t.grezzo[-80:])
    t.figlio.expect(pexpect.EOF, timeout=5)
    t.figlio.close()
    controlla(t.figlio.signalstatus == signal.SIGTERM, "ended by SIGTERM: %r" % t.figlio.signalstatus)


def prova_sospensione():
    t = Terminale("/bin/bash", ["--norc", "--noprofile", "-i"], ambiente={"PS1": "PRONTO$ "})
    t.attendi(lambda: t.contiene("PRONTO$"), "shell prompt")
    t.invia(PROGRAMMA + "\r")
    t.attendi(lambda: "Pendrino prova" in t.riga(0), "program started in the shell")
    tasto(t, "k", "vk=4B stato=0000", "key before suspension")
    t.invia("\x1a")
    t.attendi(lambda: t.contiene("Stopped") and t.contiene("PRONTO$"), "stopped with Ctrl+Z")
    t.invia("stty -a | grep -o -- ' -\\?icanon'\r")
    t.attendi(lambda: t.contiene(" icanon"), "shell has its cooked terminal back")
    t.grezzo = b""
    t.invia("fg\r")
    t.attendi(lambda: "Pendrino prova" in t.riga(0) and "sfondo 20" in t.riga(20),
              "redrawn after fg")
    t.attendi(lambda: b"\x1b]2;Prova1.0\x07" in t.grezzo, "title set again after fg")
    tasto(t, "\x1b[49;5u", "vk=31 stato=0008", "keys after fg")
    t.invia("q")
    t.attendi(lambda: t.contiene("PRONTO$"), "back to the shell")
    t.invia("exit\r")
    t.figlio.expect(pexpect.EOF, timeout=5)
    t.figlio.close()


def prova_senza_terminale():
    esito = subprocess.run([PROGRAMMA], stdin=subprocess.DEVNULL, capture_output=True, timeout=10)
    controlla(esito.returncode == 1, "no terminal: exit code %r" % esito.returncode)
    controlla(b"Prova: nessun terminale adatto" in esito.stderr,
              "no terminal: said so: %r" % esito.stderr)


def main():
    with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as f:
        f.write("contenuto da vedere\n")
        nome = f.name
    try:
        prova_tasti_e_riquadro(nome)
        prova_righe_del_riquadro()
        prova_segnale_fatale()
        prova_sospensione()
        prova_senza_terminale()
    finally:
        os.unlink(nome)
    if FALLIMENTI:
        print("%d checks failed" % len(FALLIMENTI))
        return 1
    print("all checks passed")
    return 0


if __name__ == "__main__":
    sys.exit(main())
