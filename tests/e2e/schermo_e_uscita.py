#!/usr/bin/python3
"""Start-up screen, the exit question and the way out, on a real terminal.

Usage: schermo_e_uscita.py <pendrino binary> <TERM>

The program runs in a fresh temporary directory inside an 80 x 44
pseudo-terminal. Checked: header and fixed labels where they belong, the
cursor on the command field, Alt+F4 opening the exit question with the cursor
on its text, Annulla leaving the screen exactly as it was, Alt+F4 and No
ending the program with status 0, and the terminal given back (alternate
screen left, modified-key reporting reset, cooked mode restored).
"""

import os
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from terminale_pty import (Fallito, Terminale, capacita, principale,  # noqa: E402
                           scrivi_impostazioni)

CAVALLO = [
    "    /\\^__",
    "   //    \\",
    "   |   0  \\_",
    "   |    \\__| ",
    "   |     \\",
    "   |      |",
    "   |     /",
    "   |     \\",
    "   |      \\",
    "   |       \\",
    "  ============",
    "  /          \\",
    "  " + "-" * 76,
]
DOMANDA = "Salvare la partita prima di uscire?"
MODIFY_OTHER_KEYS_ON = b"\x1b[>4;2m"
MODIFY_OTHER_KEYS_OFF = (b"\x1b[>4;0m", b"\x1b[>4m")

# After the program ends, the wrapper shell reports the terminal modes and
# the program's status.
INVOLUCRO = '"$0"; s=$?; echo; echo "MODI: $(stty -a | tr "\\n" " ")"; echo "USCITA: $s"'


def controlla(condizione, messaggio, errori):
    if not condizione:
        errori.append(messaggio)


def controlla_schermata_iniziale(t, errori):
    for i, atteso in enumerate(CAVALLO):
        y = 2 + i
        controlla(t.riga(y).startswith(atteso), f"line {y}: {t.riga(y)!r} should start with {atteso!r}",
                  errori)
    for y in range(4, 9):
        insegna = t.riga(y)[15:]
        tratti = [insegna[x:x + 2] for x in range(0, 64, 2)]
        controlla(all(s in ("||", "//", "\\\\", "  ") for s in tratti) and insegna[64:].strip() == "",
                  f"banner line {y} is not made of strokes: {insegna!r}", errori)
        controlla(t.riga(y)[:15].rstrip() == CAVALLO[y - 2].rstrip(),
                  f"line {y} left of the banner: {t.riga(y)[:15]!r}", errori)
    controlla(t.riga(11)[35:59] == "Orologio per gli scacchi",
              f"line 11: {t.riga(11)!r}", errori)
    credito = t.riga(12)[15:].strip()
    controlla(credito != "" and t.riga(12).index(credito) == (64 - len(credito)) // 2 + 15,
              f"line 12 not centred: {t.riga(12)!r}", errori)
    for r in range(8):
        controlla(t.riga(24 + r)[27] == str(8 - r), f"rank number on line {24 + r}: {t.riga(24 + r)!r}",
                  errori)
    controlla(t.riga(34)[30:53] == " A  B  C  D  E  F  G  H", f"line 34: {t.riga(34)!r}", errori)
    controlla(t.riga(37)[27:34] == "Bianco:", f"line 37: {t.riga(37)!r}", errori)
    controlla(t.riga(38)[27:32] == "Nero:", f"line 38: {t.riga(38)!r}", errori)
    controlla(t.riga(40)[27:37] == "Comando =>", f"line 40: {t.riga(40)!r}", errori)
    controlla(t.riga(42)[2:78] == "-" * 76, f"line 42: {t.riga(42)!r}", errori)
    controlla(t.cursore() == (44, 40), f"cursor at {t.cursore()}, expected (44, 40)", errori)


def modi_di_alt_f4(terminale):
    """The ways Alt+F4 can reach the program on this terminal, by name.

    A terminal without modified function keys sends Esc then F4 at once; a
    terminal with them has its own sequence (kf52 in terminfo); and where
    neither works the user presses Esc, lets it go, then F4.
    """
    f4 = capacita(terminale, "kf4")
    modi = [("Esc+F4 sent together", [b"\x1b" + f4])]
    alt_f4 = capacita(terminale, "kf52")
    if alt_f4:
        modi.append(("the terminal's Alt+F4 sequence", [alt_f4]))
    modi.append(("Esc, a pause, then F4", [b"\x1b", f4]))
    return modi


def apri_domanda(t, tasti):
    for i, pezzo in enumerate(tasti):
        if i:
            t.quiete(0.3)  # longer than the wait for a following byte after Esc
        t.invia(pezzo)
    t.attendi(lambda: t.contiene(DOMANDA), "the exit question")
    t.quiete()


def controlla_domanda(t, errori):
    x, y = t.cursore()
    controlla(t.riga(y)[x:].startswith(DOMANDA),
              f"the cursor ({x}, {y}) is not at the start of the question: {t.riga(y)!r}", errori)
    controlla(t.contiene("Attenzione!"), "the box has no title 'Attenzione!'", errori)


def prova(binario, terminale):
    errori = []
    with tempfile.TemporaryDirectory(prefix="pendrino-e2e-") as cartella:
        scrivi_impostazioni(cartella)
        t = Terminale("/bin/sh", ["-c", INVOLUCRO, binario], terminale, cartella)
        try:
            t.attendi(lambda: t.riga(40)[27:37] == "Comando =>" and t.cursore() == (44, 40),
                      "the main screen with the cursor on the command field")
            t.quiete()
            controlla_schermata_iniziale(t, errori)
            prima = t.fotografia()

            modi = modi_di_alt_f4(terminale)
            # Each way opens the question; Annulla (A, then Esc, in turn)
            # must give back the screen exactly as it was.
            for n, (nome, tasti) in enumerate(modi):
                apri_domanda(t, tasti)
                controlla_domanda(t, errori)
                t.invia(b"a" if n % 2 == 0 else b"\x1b")
                try:
                    t.attendi(lambda: t.fotografia() == prima, f"the screen as before ({nome})", 5)
                except Fallito as e:
                    errori.append(f"Annulla after {nome} did not give back the screen:\n{e}")
                t.quiete()
                controlla(t.fotografia() == prima, f"the screen changed after Annulla ({nome})",
                          errori)

            # Typed ahead: a key sent together with the keys that open the
            # box does not answer it, since nobody has seen the question
            # yet. The box waits for a key pressed while it is shown, and
            # the key typed ahead then reaches the command field.
            t.invia(modi[0][1][0] + b"a")
            t.attendi(lambda: t.contiene(DOMANDA), "the exit question with a key typed ahead")
            t.quiete(1.0)
            controlla(t.contiene(DOMANDA), "a key typed ahead answered the exit question", errori)
            controlla_domanda(t, errori)
            t.invia(b"\x1b")  # Annulla, pressed while the question is shown
            t.attendi(lambda: not t.contiene(DOMANDA) and t.riga(40)[44:46] == "a ",
                      "the key typed ahead in the command field after the question")
            t.invia(b"\x7f")
            t.attendi(lambda: t.fotografia() == prima, "the screen as before after Backspace")
            t.quiete()

            apri_domanda(t, modi[0][1])
            controlla_domanda(t, errori)
            inizio_uscita = len(t.ricevuto)
            t.invia(b"n")  # No: leave without saving
            stato, segnale = t.attendi_fine()
            uscita = bytes(t.ricevuto[inizio_uscita:])
            tutto = bytes(t.ricevuto)
            testo = tutto.decode("utf-8", "replace")

            controlla(stato == 0 and segnale is None, f"wrapper ended with {stato}/{segnale}", errori)
            riga_uscita = [r for r in testo.splitlines() if r.startswith("USCITA: ")]
            controlla(riga_uscita and riga_uscita[-1].strip() == "USCITA: 0",
                      f"program status: {riga_uscita}", errori)
            righe_modi = [r for r in testo.splitlines() if r.startswith("MODI: ")]
            if not righe_modi:
                errori.append("the terminal modes after exit were not reported")
            else:
                voci = righe_modi[-1].split()
                # Cooked mode back, as the program found it.
                for voce in ("icanon", "echo", "isig", "icrnl", "opost", "onlcr", "ixon"):
                    controlla(voce in voci, f"terminal left without {voce}: {righe_modi[-1]}", errori)
            smcup, rmcup = capacita(terminale, "smcup"), capacita(terminale, "rmcup")
            if smcup and smcup in tutto:
                controlla(rmcup in uscita, f"alternate screen not left at exit: {uscita!r}", errori)
            if MODIFY_OTHER_KEYS_ON in tutto:
                controlla(any(s in uscita for s in MODIFY_OTHER_KEYS_OFF),
                          f"modifyOtherKeys not reset at exit: {uscita!r}", errori)
        except Fallito as e:
            errori.append(str(e))
        finally:
            t.termina()
    return errori


def main():
    return principale(__doc__, lambda binario, terminale: (prova(binario, terminale), None))


if __name__ == "__main__":
    sys.exit(main())
