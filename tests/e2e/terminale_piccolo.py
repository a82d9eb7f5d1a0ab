#!/usr/bin/python3
"""A terminal that becomes too small, and large enough again.

Usage: terminale_piccolo.py <pendrino binary> <TERM>

 1. At 80 x 44, "e" typed into the command field.
 2. The terminal shrunk to 70 x 30: one centred notice asks for 80 x 44 and
    is the only thing on the screen, with the cursor on it.
 3. Keys typed meanwhile (letters, Backspace, Enter, Up, F4, F8, Ctrl+plus)
    are not acted on: no box opens and, once the terminal is large enough,
    neither the command field nor the focus has changed.
 4. Alt+F4 still opens the exit question, shown alone on whole lines in the
    middle of the small terminal with the cursor on its text; Annulla
    brings the notice back.
 5. Grown to 80 x 44: the screen is exactly as before the shrink, the cursor
    on the same spot; keys act again (Backspace empties the field).
 6. With the clock running, a shrink of about three seconds: the clock kept
    time meanwhile. Then Alt+F4 and No leave with status 0.
"""

import os
import re
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from terminale_pty import (principale, COLONNE, RIGHE, Fallito, Terminale,  # noqa: E402
                           scrivi_impostazioni, tasti_del_terminale)

ATTESA = 15.0
AVVISO = "Servono almeno 80 colonne e 44 righe."
DOMANDA = "Salvare la partita prima di uscire?"
PICCOLO = (30, 70)  # lines, columns


def campo_comando(t):
    return t.riga(40)[44:].rstrip()


def secondi_bianco(t):
    m = re.fullmatch(r" (\d\d):([0-5]\d):([0-5]\d)", t.riga(37)[43:52])
    return int(m[1]) * 3600 + int(m[2]) * 60 + int(m[3]) if m else -1


class Prova:
    def __init__(self, binario, terminale, cartella):
        self.tasti = tasti_del_terminale(terminale)
        self.t = Terminale(binario, [], terminale, cartella)
        self.errori = []

    def controlla(self, condizione, messaggio):
        if not condizione:
            self.errori.append(f"{messaggio}\n{self.t.mostra()}")

    def restringi(self):
        t = self.t
        t.ridimensiona(*PICCOLO)
        t.attendi(lambda: t.contiene(AVVISO), "the notice on the small terminal", ATTESA)
        t.quiete()

    def controlla_solo_avviso(self, passo):
        t = self.t
        righe, colonne = PICCOLO
        y = righe // 2
        x = (colonne - len(AVVISO)) // 2
        atteso = [" " * colonne] * righe
        atteso[y] = (" " * x + AVVISO).ljust(colonne)
        self.controlla(list(t.schermo.display) == atteso, f"{passo}: not only the notice")
        self.controlla(t.cursore() == (x, y),
                       f"{passo}: cursor at {t.cursore()}, not on the notice")

    def controlla_domanda_da_sola(self):
        t = self.t
        righe, colonne = PICCOLO
        attese = ["Attenzione!", "", DOMANDA, "", "[ Sì ]   [ No ]   [ Annulla ]", ""]
        inizio = (righe - len(attese)) // 2
        lette = [r.strip() for r in t.schermo.display]
        self.controlla(lette == [""] * inizio + attese + [""] * (righe - inizio - len(attese)),
                       "the exit question is not alone on the small terminal")
        x, y = t.cursore()
        self.controlla(y == inizio + 2 and t.riga(y)[x:].startswith(DOMANDA),
                       f"cursor at ({x}, {y}), not at the start of the question")

    def nascosti(self):
        t = self.t
        t.attendi(lambda: t.riga(40)[27:37] == "Comando =>" and t.cursore() == (44, 40),
                  "the main screen with the cursor on the command field", ATTESA)
        t.invia(b"e")
        t.attendi(lambda: campo_comando(t) == "e" and t.cursore() == (45, 40), "e typed", ATTESA)
        t.quiete()
        prima = t.fotografia()

        self.restringi()
        self.controlla_solo_avviso("shrunk")
        for tasto in [[b"xyz"], [b"\x7f"], [b"\r"], self.tasti["su"], self.tasti["f4"],
                      self.tasti["f8"], self.tasti["ctrl_piu"], [b"5"]]:
            t.premi(tasto)
            t.quiete(0.3)
        t.quiete(0.5)
        self.controlla_solo_avviso("keys typed while too small")

        t.premi(self.tasti["alt_f4"])
        t.attendi(lambda: t.contiene(DOMANDA), "the exit question on the small terminal", ATTESA)
        t.quiete()
        self.controlla_domanda_da_sola()
        t.invia(b"a")
        t.attendi(lambda: t.contiene(AVVISO), "the notice back after Annulla", ATTESA)
        t.quiete()
        self.controlla_solo_avviso("after Annulla")

        t.ridimensiona(RIGHE, COLONNE)
        try:
            t.attendi(lambda: t.fotografia() == prima, "the screen as before the shrink", ATTESA)
        except Fallito as e:
            self.errori.append(f"grown again: {e}")
        t.quiete()
        self.controlla(t.fotografia() == prima, "grown again: the screen is not as before")
        t.invia(b"\x7f")
        t.attendi(lambda: campo_comando(t) == "" and t.cursore() == (44, 40),
                  "Backspace acting again", ATTESA)

    def orologio(self):
        t = self.t
        t.premi(self.tasti["ctrl_invio"])
        partenza = secondi_bianco(t)
        t.attendi(lambda: 0 <= secondi_bianco(t) < partenza, "the clock running", ATTESA)
        t.quiete(0.2)
        prima, inizio = secondi_bianco(t), time.monotonic()
        self.restringi()
        time.sleep(3)
        t.ridimensiona(RIGHE, COLONNE)
        t.attendi(lambda: secondi_bianco(t) >= 0, "the clock shown again", ATTESA)
        t.quiete(0.2)
        passati = time.monotonic() - inizio
        scesi = prima - secondi_bianco(t)
        # Whole seconds against a real interval read on both sides of it.
        self.controlla(passati - 2 <= scesi <= passati + 1,
                       f"the clock went down {scesi} s in {passati:.1f} s while too small")

    def esci(self):
        t = self.t
        t.premi(self.tasti["alt_f4"])
        t.attendi(lambda: t.contiene(DOMANDA), "the exit question", ATTESA)
        t.quiete(0.2)
        t.invia(b"n")
        stato, segnale = t.attendi_fine(ATTESA)
        self.controlla(stato == 0 and segnale is None, f"the program ended with {stato}/{segnale}")


def prova(binario, terminale):
    with tempfile.TemporaryDirectory(prefix="pendrino-e2e-") as cartella:
        scrivi_impostazioni(cartella)
        p = Prova(binario, terminale, cartella)
        try:
            p.nascosti()
            p.orologio()
            p.esci()
        except Fallito as e:
            p.errori.append(str(e))
        finally:
            p.t.termina()
    return p.errori


def main():
    return principale(__doc__, lambda binario, terminale: (prova(binario, terminale), None))


if __name__ == "__main__":
    sys.exit(main())
