#!/usr/bin/python3
"""Every screen update reaches the terminal as one write that leaves the
cursor where it belongs.

Usage: una_scrittura.py <pendrino binary> <TERM>

A screen reader reads the terminal after each write it sees: a cursor left
for an instant on another line (the time line, say) makes it read that line
and drop what it was about to say. The program runs under strace in an
80 x 44 pseudo-terminal; every write() to the terminal is replayed, one by
one, into a terminal emulator (pyte). Checked, with the clock stopped: each
typed character, a move and its Enter, a box opened by a move that is not
legal, the walk of its lines with Down and its closing, and the whole
screen redrawn when the pager showing the help page (F1) closes, each reach
the terminal as exactly one write; then with the clock running, each tick of
the time is one write. After every write the cursor stands on the command field
(or on the box's line the user is on).

Skipped (77, with the reason) without pyte, pexpect or strace, or where
strace may not trace a program.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from terminale_pty import (SALTA, Fallito, Terminale, capacita, pyte,  # noqa: E402
                           principale, scrivi_impostazioni, tasti_del_terminale)

ATTESA = 15.0
PAGER = "the terminal handed to the pager"
CAMPO = (44, 40)  # the command field: column 44 of line 40, before any character
RIGA_BIANCO = 37


def salta(motivo):
    barra = "!" * 72
    sys.stderr.write(f"\n{barra}\nSKIPPED: {motivo}\n{barra}\n\n")
    sys.exit(SALTA)


def controlla_strace():
    strace = shutil.which("strace")
    if strace is None:
        salta("the one-write test needs strace (apt-get install strace)")
    prova = subprocess.run([strace, "-o", os.devnull, "true"], capture_output=True)
    if prova.returncode != 0:
        salta("strace may not trace a program here: "
              + prova.stderr.decode("utf-8", "replace").strip())
    return strace


# strace -f -tt -y -xx: "PID HH:MM:SS.us call(FD<path>, "\xNN...", N) = R",
# a call cut by another thread's as "<unfinished ...>" then "<... call resumed>".
RIGA = re.compile(r'^(\d+)\s+(\d+):(\d+):([\d.]+)\s+(.*)$')
CHIAMATA = re.compile(r'^(read|write)\((\d+)<([^>]*)>, "((?:\\x[0-9a-f]{2})*)"(?:\.\.\.)?, \d+\)'
                      r'\s+=\s+(-?\d+)')


def esadecimale(testo):
    """The bytes of strace's "\\xNN" text (-xx writes paths that way too)."""
    return re.sub(rb"\\x([0-9a-f]{2})", lambda m: bytes([int(m.group(1), 16)]),
                  testo.encode("ascii"))


def eventi_del_terminale(registro):
    """The program's reads from and writes to the terminal, in order (not
    those of the programs it starts): (seconds, kind, bytes), kind "in" for
    a read and "out" for a write."""
    eventi, sospese, programma = [], {}, None
    with open(registro, encoding="ascii", errors="replace") as f:
        for riga in f:
            m = RIGA.match(riga.rstrip("\n"))
            if not m:
                continue
            pid, ore, minuti, secondi, resto = m.groups()
            programma = programma or pid
            istante = int(ore) * 3600 + int(minuti) * 60 + float(secondi)
            if resto.endswith("<unfinished ...>"):
                sospese[pid] = resto[:-len("<unfinished ...>")].rstrip()
                continue
            ripresa = re.match(r'^<\.\.\. \w+ resumed>(.*)$', resto)
            if ripresa:
                resto = sospese.pop(pid, "") + ripresa.group(1)
            c = CHIAMATA.match(resto)
            if not c or not esadecimale(c.group(3)).startswith(b"/dev/pts/") or pid != programma:
                continue
            chiamata, _, _, dati, esito = c.groups()
            if int(esito) <= 0:
                continue
            byte = esadecimale(dati)
            eventi.append((istante, "in" if chiamata == "read" else "out", byte))
    return eventi


class Prova:
    def __init__(self, binario, terminale, cartella, strace):
        self.binario = binario
        self.terminale = terminale
        self.cartella = cartella
        self.strace = strace
        self.registro = os.path.join(cartella, "strace.log")
        self.tasti = tasti_del_terminale(terminale)
        self.errori = []
        self.t = None
        # What each update is, in order, to name it in a failure.
        self.passi = []

    def controlla(self, condizione, messaggio):
        if not condizione:
            self.errori.append(messaggio)

    def premi(self, nome, *passi, attendi=0.8):
        """Sends a key (its pieces apart, as a person types a prefix and then
        the key) and lets the program answer. `passi` names the updates the
        key brings, in order, apart in time; the last name stands for any
        further one."""
        for i, pezzo in enumerate(self.tasti[nome] if nome in self.tasti else [nome]):
            if i:
                self.t.quiete(0.3)
            self.passi.append((list(passi), len(pezzo)))
            self.t.invia(pezzo)
        self.t.quiete(attendi)

    def esegui(self):
        argomenti = ["-f", "-tt", "-y", "-xx", "-s", "1000000", "-e", "trace=read,write",
                     "-o", self.registro, self.binario]
        self.t = Terminale(self.strace, argomenti, self.terminale, self.cartella)
        t = self.t
        t.attendi(lambda: t.riga(40)[27:37] == "Comando =>" and t.cursore() == CAMPO,
                  "the main screen with the cursor on the command field", ATTESA)
        t.quiete(1.0)
        for c in "e4":
            self.premi(c.encode(), f"the character {c!r} typed")
        self.premi(b"\r", "the move e4 played")
        self.premi(b"x", "the character 'x' typed")
        self.premi(b"\r", "the box of a move that is not legal")
        t.attendi(lambda: t.contiene("Attenzione!"), "the box", ATTESA)
        self.premi(self.tasti["giu"][0], "Down in the box")
        self.premi(b"\r", "the box closed")
        t.attendi(lambda: not t.contiene("Attenzione!"), "the box closed", ATTESA)
        # The help page in the pager, and back: the whole screen redrawn.
        self.premi(capacita(self.terminale, "kf1"), PAGER, "the screen redrawn after the pager")
        t.attendi(lambda: t.contiene("<html>"), "the help page in the pager", ATTESA)
        t.invia(b"q")
        t.attendi(lambda: t.riga(40)[27:37] == "Comando =>", "back from the pager", ATTESA)
        t.quiete(0.8)
        self.premi("ctrl_invio", "the clock started", "a tick of the clock", attendi=0.2)
        t.quiete(0.2)
        inizio_tic = time.monotonic()
        while time.monotonic() - inizio_tic < 3.6:
            t.leggi(0.1)
        t.termina()
        t.attendi_fine(ATTESA)
        self.verifica(eventi_del_terminale(self.registro))

    def verifica(self, eventi):
        if not any(tipo == "in" for _, tipo, _ in eventi):
            raise Fallito("strace recorded no key read from the terminal")
        schermo = pyte.Screen(80, 44)
        flusso = pyte.ByteStream(schermo)
        # The key each byte read belongs to: the program reads a sequence
        # byte by byte.
        fine_pezzo, somma = [], 0
        for _, lunghezza in self.passi:
            somma += lunghezza
            fine_pezzo.append(somma)
        # Updates: the writes after each key, and apart, the ticks.
        aggiornamenti = []  # [passo, [writes], instant of the last, key]
        letti = 0
        for istante, tipo, byte in eventi:
            if tipo == "in":
                letti += len(byte)
                continue
            flusso.feed(byte)
            if letti == 0:
                continue  # the start: title, requests and the first screen
            tasto = next((i for i, f in enumerate(fine_pezzo) if letti <= f), len(self.passi))
            nomi = self.passi[tasto][0] if tasto < len(self.passi) else ["after the keys"]
            ultimo = aggiornamenti[-1] if aggiornamenti else None
            # Writes of one update come together; the next tick is a second away.
            if ultimo and ultimo[3] == tasto and istante - ultimo[2] < 0.3:
                ultimo[1].append(byte)
                ultimo[2] = istante
            else:
                dopo = sum(1 for a in aggiornamenti if a[3] == tasto)
                aggiornamenti.append([nomi[min(dopo, len(nomi) - 1)], [byte], istante, tasto])
            passo = aggiornamenti[-1][0]
            if passo == PAGER:
                continue  # the terminal handed over: no screen of ours
            x, y = schermo.cursor.x, schermo.cursor.y
            riga = schermo.display[y]
            nel_riquadro = any("Attenzione!" in r for r in schermo.display)
            if nel_riquadro:
                giusto = riga.strip() != "" and "Attenzione!" not in riga
            else:
                giusto = y == CAMPO[1] and x >= CAMPO[0]
            self.controlla(giusto, f"{passo}: a write left the cursor at ({x}, {y}), on "
                                   f"{riga.rstrip()!r}; bytes {byte[-60:]!r}")
        contati = {}
        for passo, scritture, _, _ in aggiornamenti:
            contati.setdefault(passo, []).append(len(scritture))
            if passo == PAGER:
                continue
            self.controlla(len(scritture) == 1,
                           f"{passo}: {len(scritture)} writes ({[len(s) for s in scritture]} "
                           f"bytes, the last ending {scritture[-1][-40:]!r}) instead of one")
        tic = contati.get("a tick of the clock", [])
        self.controlla(len(tic) >= 2, f"fewer than two ticks of the clock seen: {contati}")
        for passo in ("the move e4 played", "the box of a move that is not legal",
                      "Down in the box", "the box closed", "the screen redrawn after the pager"):
            self.controlla(passo in contati, f"no update seen for {passo}: {contati}")
        print("writes per update: " + "; ".join(f"{p}: {n}" for p, n in contati.items()))


def prova(binario, terminale):
    strace = controlla_strace()
    with tempfile.TemporaryDirectory(prefix="pendrino-e2e-") as cartella:
        scrivi_impostazioni(cartella)
        p = Prova(binario, terminale, cartella, strace)
        try:
            p.esegui()
        except Fallito as e:
            p.errori.append(str(e))
        schermo = p.t.mostra() if p.errori and p.t is not None else None
        if p.t is not None:
            p.t.termina()
        return p.errori, schermo


if __name__ == "__main__":
    sys.exit(principale(__doc__, prova))
