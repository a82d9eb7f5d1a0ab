#!/usr/bin/python3
"""What a blind user hears: the real program read aloud by a real screen
reader (fenrir, lettore_schermo.py), its speech written down with the time.

Usage: ascolto.py <pendrino binary> [--misura]

In a fresh folder with the default settings:
 1. the start is spoken (the credits line);
 2. the move e4 typed with Enter is heard, and so is the move e5 after it;
 3. a text that is no move ("x") opens a box whose sentence is heard;
 4. with the clock running (Ctrl+X, then Enter), the running time is heard
    at each tick, and each hearing is written down with its time.
The transcript, with the time of each utterance from the start, is printed
at the end. With --misura, instead: the delay from Enter to hearing the
move, over five moves with the clock running, with the automatic time
display on and then off.

Skipped (77, with the reason) where fenrir or tmux is missing.
"""

import os
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from lettore_schermo import LettoreSchermo, manca  # noqa: E402
from terminale_pty import scrivi_impostazioni  # noqa: E402

SALTA = 77
# Generous: fenrir and the program share two cores with the build.
ATTESA = 30.0
CTRL_X = "\x18"
# The move played, as the half-move line says it (the command field shows
# the typed text as well).
PRIMA_DELLA_MOSSA = "ultima "


def salta(motivo):
    barra = "!" * 72
    sys.stderr.write(f"\n{barra}\nSKIPPED: the screen-reader test cannot run: {motivo}\n"
                     f"{barra}\n\n")
    sys.exit(SALTA)


class Ascolto:
    def __init__(self, lettore):
        self.l = lettore
        self.errori = []

    def controlla(self, condizione, messaggio):
        if not condizione:
            self.errori.append(messaggio)
            print("FAILED: " + messaggio, flush=True)

    def digita(self, testo):
        """Types `testo` a key at a time, as a person does, then Enter."""
        for c in testo:
            self.l.premi(c)
            time.sleep(0.12)
        self.l.premi("\r")

    def avvia_orologio(self):
        self.l.premi([CTRL_X, "\r"], pausa=0.3)

    def esegui(self):
        l = self.l
        self.controlla(l.attendi_parola("Pendrino 1.0", ATTESA) is not None,
                       "the start screen is not spoken")
        # The first key stops the long reading of the start screen.
        time.sleep(1.0)
        for mossa in ("e4", "e5"):
            self.digita(mossa)
            self.controlla(l.sentito_entro(mossa, 10.0, PRIMA_DELLA_MOSSA),
                           f"the move {mossa} is not heard within 10 s of Enter")
            print(f"{mossa}: heard {l.ritardo(mossa, PRIMA_DELLA_MOSSA)} s after Enter",
                  flush=True)
        self.digita("x")
        frase = "non e' un comando valido"
        self.controlla(l.sentito_entro(frase, 10.0), f"the box {frase!r} is not heard")
        l.premi("\r")
        l.quiete(1.0)
        self.avvia_orologio()
        inizio = time.time()
        time.sleep(4.5)
        tempi = [(t, testo) for t, testo in l.trascrizione(inizio)
                 if any(c.isdigit() for c in testo) and ":" in testo]
        self.controlla(len(tempi) >= 2,
                       "fewer than two readings of the running time in 4.5 s: "
                       f"{l.trascrizione(inizio)}")
        for t, testo in tempi:
            print("time heard at +%.2f s: %r" % (t - inizio, testo.strip()), flush=True)


def misura(binario):
    """The delay from Enter to hearing the move, automatic display on and off."""
    for automatico in (1, 0):
        with tempfile.TemporaryDirectory(prefix="pendrino-ascolto-") as cartella:
            scrivi_impostazioni(cartella, aggiornamento_automatico_a_schermo=automatico)
            with LettoreSchermo(binario, cartella) as l:
                prova = Ascolto(l)
                l.attendi_parola("Comando", ATTESA)
                time.sleep(1.0)
                prova.avvia_orologio()
                time.sleep(2.5)
                ritardi = []
                for mossa in ("e4", "e5", "Nf3", "Nc6", "Bb5"):
                    prova.digita(mossa)
                    sentito = l.sentito_entro(mossa, 8.0, PRIMA_DELLA_MOSSA)
                    ritardi.append(l.ritardo(mossa, PRIMA_DELLA_MOSSA) if sentito else None)
                    time.sleep(1.0)
                testo = ", ".join("%s %s" % (m, "not heard" if r is None else "%.2f s" % r)
                                  for m, r in zip(("e4", "e5", "Nf3", "Nc6", "Bb5"), ritardi))
                print(f"automatic time display {automatico}: {testo}")
                print(l.mostra_trascrizione())


def main():
    if len(sys.argv) not in (2, 3):
        sys.stderr.write(__doc__)
        return 2
    binario = os.path.abspath(sys.argv[1])
    motivo = manca()
    if motivo:
        salta(motivo)
    if sys.argv[2:] == ["--misura"]:
        misura(binario)
        return 0
    with tempfile.TemporaryDirectory(prefix="pendrino-ascolto-") as cartella:
        scrivi_impostazioni(cartella)
        with LettoreSchermo(binario, cartella) as lettore:
            prova = Ascolto(lettore)
            try:
                prova.esegui()
            finally:
                print("transcript:\n" + lettore.mostra_trascrizione(), flush=True)
                if prova.errori:
                    print("screen:\n" + lettore.schermo())
    if prova.errori:
        print("%d checks failed" % len(prova.errori))
        return 1
    print("OK: Pendrino heard through fenrir")
    return 0


if __name__ == "__main__":
    sys.exit(main())
