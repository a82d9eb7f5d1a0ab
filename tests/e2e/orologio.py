#!/usr/bin/python3
"""The chess clock on a real terminal, and where the cursor stands for a screen reader.

Usage: orologio.py <pendrino binary> <TERM>

In a fresh temporary directory with the default pendrino.ini:
 1. 5, Ctrl+1 and Sì set the first period to 5 minutes in pendrino.ini; the
    screen keeps the old time control until the next start; Alt+F4 and No.
 2. Started again, both times read 00:05:00. For each focus position 0 to 8
    (End, then Up eight times, then Down back) the cursor stands on its line
    and every panel line holds its whole sentence.
 3. Ctrl+Enter starts the clock: White's time counts down second by second
    with the cursor left on the focus line (the command field, then line 21); Ctrl+Shift+Enter stops it and
    the shown time stays put; 2, Up, Ctrl+plus and Sì give Black 2 minutes;
    F8 and Sì adjudicate the game to Black; Alt+F4 and No leave.
After every step each panel line is compared whole, padding included.

With TERM=linux every chord is typed as the prefixes any terminal can send:
Ctrl+X then a key, Ctrl+X twice then a key, Esc then a key.
"""

import os
import re
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from terminale_pty import (esegui_classe, principale, rispondi_riquadro,  # noqa: E402
                           COLONNE, PARAMETRI, Fallito, Terminale,
                           scrivi_impostazioni, tasti_del_terminale)

# Generous: the machine may be busy with builds; waits end as soon as met.
ATTESA = 15.0


def centrata(testo):
    margine = (COLONNE - len(testo)) // 2
    return (" " * margine + testo).ljust(COLONNE)


def riga_tempo(etichetta, tempo):
    return (" " * 27 + etichetta).ljust(43) + tempo.ljust(COLONNE - 43)


def hms(secondi):
    return f" {secondi // 3600:02d}:{secondi // 60 % 60:02d}:{secondi % 60:02d}"


def secondi_di(testo):
    """The seconds of " hh:mm:ss"; -1 if it is not that."""
    if not re.fullmatch(r" \d\d:[0-5]\d:[0-5]\d", testo):
        return -1
    return int(testo[1:3]) * 3600 + int(testo[4:6]) * 60 + int(testo[7:9])


class Pannello:
    """What each line of the panel must read, word for word."""

    def __init__(self, minuti):
        self.cadenza = f"Cadenza di gioco: {minuti * 60}"
        self.stato = "Mossa 1, tratto al bianco, orologio fermo"
        self.tempi = [hms(minuti * 60), hms(minuti * 60)]
        self.campo = ""

    def righe(self, t):
        # None: a running time, any well-formed value (checked apart).
        tempi = [tempo if tempo is not None else
                 t.riga(y)[43:52] if secondi_di(t.riga(y)[43:52]) >= 0 else " hh:mm:ss"
                 for tempo, y in zip(self.tempi, (37, 38))]
        # Line 15 is the announcement line: each step's own sentence, checked
        # by the screen-reader tests.
        return {
            17: centrata(self.cadenza),
            18: centrata("La posizione corrente e' quella iniziale"),
            19: centrata("Diritti d'arrocco: bianco entrambi, nero entrambi"),
            20: centrata("Semimosse: reversibili 0, totali 0"),
            21: centrata(self.stato),
            37: riga_tempo("Bianco:", tempi[0]),
            38: riga_tempo("Nero:", tempi[1]),
            40: (" " * 27 + "Comando =>").ljust(44) + self.campo.ljust(COLONNE - 44),
        }

    def differenze(self, t):
        return [f"line {y}: {t.riga(y)!r}\n      expected {atteso!r}"
                for y, atteso in self.righe(t).items() if t.riga(y) != atteso]


# Where the cursor stands for each focus position (0 is the command field).
POSTO_FUOCO = [(44, 40), (0, 38), (0, 37), (0, 21), (0, 20), (0, 19), (0, 18), (0, 17), (0, 15)]


class Prova:
    def __init__(self, binario, terminale, cartella):
        self.binario = binario
        self.terminale = terminale
        self.cartella = cartella
        self.tasti = tasti_del_terminale(terminale)
        self.errori = []
        self.t = None

    def controlla(self, condizione, messaggio):
        if not condizione:
            self.errori.append(messaggio)

    # -- keys and waits --------------------------------------------------
    def premi(self, nome):
        for i, pezzo in enumerate(self.tasti[nome]):
            if i:
                self.t.quiete(0.3)
            self.t.invia(pezzo)

    def attendi_pannello(self, pannello, cursore, passo):
        """Waits for the panel and the cursor; on a timeout, records what differs."""
        t = self.t
        try:
            t.attendi(lambda: not pannello.differenze(t) and t.cursore() == cursore, passo, ATTESA)
        except Fallito:
            pass
        t.quiete(0.2)
        diverse = pannello.differenze(t)
        self.controlla(not diverse, f"{passo}: panel lines differ:\n    " + "\n    ".join(diverse))
        self.controlla(t.cursore() == cursore, f"{passo}: cursor at {t.cursore()}, expected {cursore}")

    def rispondi_domanda(self, domanda, risposta, passo):
        self.errori += rispondi_riquadro(self.t, domanda, risposta, passo, ATTESA)

    def avvia(self):
        self.t = Terminale(self.binario, [], self.terminale, self.cartella)
        self.t.attendi(lambda: self.t.riga(40)[27:37] == "Comando =>" and self.t.cursore() == (44, 40),
                       "the main screen with the cursor on the command field", ATTESA)

    def esci(self, passo):
        t = self.t
        self.premi("alt_f4")
        self.rispondi_domanda("Salvare la partita prima di uscire?", b"n", passo)
        stato, segnale = t.attendi_fine(ATTESA)
        self.controlla(stato == 0 and segnale is None,
                       f"{passo}: the program ended with {stato}/{segnale}")

    # -- the steps -------------------------------------------------------
    def imposta_cinque_minuti(self):
        t = self.t
        pannello = Pannello(120)
        self.attendi_pannello(pannello, (44, 40), "first start")
        t.invia(b"5")
        pannello.campo = "5"
        self.attendi_pannello(pannello, (45, 40), "5 typed")
        self.premi("ctrl_1")
        self.rispondi_domanda("Impostare 'tempo primo periodo' 5 minuti?", b"s", "Ctrl+1")
        # The file first: the question is answered once it is written.
        ini = os.path.join(self.cartella, "pendrino.ini")
        scadenza = time.monotonic() + ATTESA
        while "$\ttempo_primo_periodo\t5\n" not in open(ini).read():
            if time.monotonic() > scadenza:
                self.errori.append(f"pendrino.ini without the new time:\n{open(ini).read()}")
                break
            t.leggi(0.1)
        attesi = {chiave: str(default) for chiave, _, _, default, _, _ in PARAMETRI}
        attesi["tempo_primo_periodo"] = "5"
        letti = dict(r.split("\t")[1:3] for r in open(ini).read().splitlines()
                     if r.startswith("$\t") and r.count("\t") == 2)
        self.controlla(letti == attesi, f"pendrino.ini values {letti}, expected {attesi}")
        # Takes effect at the next start: the screen keeps 2 hours.
        pannello.campo = ""
        self.attendi_pannello(pannello, (44, 40), "after Sì to Ctrl+1")
        self.esci("exit after setting the time")

    def percorri_fuoco(self, pannello):
        """End, Up to the top line, Down back: the cursor follows each step."""
        self.premi("fine")
        self.attendi_pannello(pannello, POSTO_FUOCO[0], "focus 0 after End")
        for fuoco in range(1, 9):
            self.premi("su")
            self.attendi_pannello(pannello, POSTO_FUOCO[fuoco], f"focus {fuoco} after Up")
        self.premi("su")  # already at the top: only a tone
        self.attendi_pannello(pannello, POSTO_FUOCO[8], "Up at the top")
        for fuoco in range(7, -1, -1):
            self.premi("giu")
            self.attendi_pannello(pannello, POSTO_FUOCO[fuoco], f"focus {fuoco} after Down")

    def attendi_secondo(self, cursore, motivo):
        """The next second on White's line, the cursor back where it was."""
        t = self.t
        prima = t.riga(37)
        t.attendi(lambda: t.riga(37) != prima, f"White's time to change from {prima[43:52]!r}",
                  ATTESA)
        t.quiete(0.15)
        mostrato = t.riga(37)[43:52]
        self.controlla(mostrato == hms(secondi_di(prima[43:52]) - 1),
                       f"White's time went from {prima[43:52]!r} to {mostrato!r}")
        self.controlla(t.cursore() == cursore,
                       f"the cursor left {motivo} when White's time showed {mostrato!r}: "
                       f"{t.cursore()}, expected {cursore}")
        self.controlla(t.riga(38)[43:52] == " 00:05:00",
                       f"Black's time moved while White is to play: {t.riga(38)!r}")
        return mostrato

    def osserva_conto_alla_rovescia(self, pannello):
        """Three successive seconds on White's line; the cursor stays on the focus line."""
        for _ in range(2):
            self.attendi_secondo((44, 40), "the command field")
        # A reader on another line must not be pulled away by the clock.
        for _ in range(3):
            self.premi("su")
        self.attendi_pannello(pannello, POSTO_FUOCO[3], "focus 3 with the clock running")
        self.attendi_secondo(POSTO_FUOCO[3], "line 21")
        self.premi("fine")
        self.attendi_pannello(pannello, POSTO_FUOCO[0], "End with the clock running")

    def partita(self):
        t = self.t
        pannello = Pannello(5)
        self.attendi_pannello(pannello, (44, 40), "second start")
        self.percorri_fuoco(pannello)

        self.premi("ctrl_invio")
        pannello.stato = "Mossa 1, tratto al bianco, orologio in moto"
        t.attendi(lambda: t.riga(21) == centrata(pannello.stato), "the clock running", ATTESA)
        self.controlla(t.riga(37)[43:52] in (" 00:05:00", " 00:04:59"),
                       f"White's time at the start: {t.riga(37)!r}")
        pannello.tempi[0] = None
        self.attendi_pannello(pannello, (44, 40), "after Ctrl+Enter")
        self.osserva_conto_alla_rovescia(pannello)

        ultimo = t.riga(37)[43:52]
        self.premi("ctrl_shift_invio")
        pannello.stato = "Mossa 1, tratto al bianco, orologio fermo"
        t.attendi(lambda: t.riga(21) == centrata(pannello.stato), "the clock stopped", ATTESA)
        t.quiete(0.2)
        fermo = t.riga(37)[43:52]
        # Stopped between two seconds: the last shown one, or the next.
        self.controlla(fermo in (ultimo, hms(secondi_di(ultimo) - 1)),
                       f"stopped at {fermo!r} after {ultimo!r} was shown")
        pannello.tempi[0] = fermo
        self.attendi_pannello(pannello, (44, 40), "after Ctrl+Shift+Enter")
        fine = time.monotonic() + 2.0
        while time.monotonic() < fine:
            t.leggi(0.1)
            if t.riga(37)[43:52] != fermo:
                self.errori.append(f"the stopped clock moved: {fermo!r} became {t.riga(37)!r}")
                break
        self.attendi_pannello(pannello, (44, 40), "2 s after Ctrl+Shift+Enter")

        t.invia(b"2")
        pannello.campo = "2"
        self.attendi_pannello(pannello, (45, 40), "2 typed")
        self.premi("su")
        self.attendi_pannello(pannello, (0, 38), "Up to Black's time")
        self.premi("ctrl_piu")
        self.rispondi_domanda("Aggiungere al nero 2 minuti?", b"y", "Ctrl+plus")
        pannello.campo = ""
        pannello.tempi[1] = " 00:07:00"
        self.attendi_pannello(pannello, (0, 38), "after Sì to Ctrl+plus")

        self.premi("f8")
        self.rispondi_domanda("Il bianco abbandona, aggiudicare la partita (0-1)?", b"s", "F8")
        pannello.stato = "Il bianco abbandona: partita aggiudicata ( 0-1 )"
        self.attendi_pannello(pannello, (0, 38), "after Sì to F8")
        self.esci("exit after the game")

    def esegui(self):
        scrivi_impostazioni(self.cartella)
        for passo in (self.imposta_cinque_minuti, self.partita):
            self.avvia()
            try:
                passo()
            except Fallito as e:
                self.errori.append(str(e))
                return
            finally:
                self.t.termina()


def main():
    return principale(__doc__, lambda binario, terminale: esegui_classe(Prova, binario, terminale))


if __name__ == "__main__":
    sys.exit(main())
