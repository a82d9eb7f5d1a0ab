#!/usr/bin/python3
"""A game killed at a random moment, then taken up again from the journal.

Usage: interruzione.py <pendrino binary> <TERM> [--volte N] [--seme S]

Each run, in a fresh temporary directory with its own pendrino.ini:
 1. The program starts; on a steady schedule the fifth alarm is set to 3
    minutes (pendrino.ini rewritten), the clock is started, and a short game
    is typed move by move with Enter, Alt+S saving partita.pgn after every
    Black move; the mate notice is answered and the game saved once more.
 2. At a random moment of that schedule, or in half of the runs a few
    milliseconds after a key that writes a file (a move, which the journal
    takes, the alarm's Sì, Alt+S), the program gets SIGKILL. What the screen last
    showed is kept: the board, the panel lines and both times (a line under
    a message box keeps its last value seen without one).
 3. Each file the program replaces whole is, if present, one of its valid
    versions: pendrino.ini with the old or the new alarm, partita.pgn as
    saved after some number of half-moves; never a mix.
 4. Started again, the program asks whether to take the game up; Sì. The
    board and the panel lines read as before the kill (with the clock
    stopped), each time within one second of what was shown; Alt+S writes
    partita.pgn with exactly the half-moves that were on the screen and the
    clock's first start; Alt+F4 and No leave with status 0. The one latitude:
    a move whose Enter was sent may be journaled and not yet shown; then the
    game comes back with that move too (its side's time with the increment).

Every run has its own seed, printed; a failure names it, and
`--seme S --volte 1` plays that run again. Skipped (77), with the reason,
when the program has no journal.
"""

import argparse
import datetime
import os
import random
import re
import shlex
import signal
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from terminale_pty import (COLONNE, SALTA, Fallito, Terminale,  # noqa: E402
                           scrivi_impostazioni, tasti_del_terminale, testo_impostazioni)
from partita import (CADENZA, COLORE, IMPOSTAZIONI, PARTITA, Posizione,  # noqa: E402
                     centrata)

ATTESA = 15.0
DOMANDA = "La partita precedente non e' stata chiusa con il comando di uscita: riprenderla?"
GIORNALE = "giornale.txt"
NOTIZIA_MATTO = "scaccomatto, partita aggiudicata ( 1-0 )."
# The lines compared before and after: time control, repetitions, castling,
# half-moves, current move, the board.
RIGHE_PANNELLO = [17, 18, 19, 20, 21] + list(range(24, 32))
RIGHE_TEMPO = (37, 38)

# The schedule, in seconds from the first key.
PASSO_MOSSA = 0.3
INIZIO_MOSSE = 1.4
# What a move can add to its side's time: the increment, and the second
# period's time after the tenth move.
INCREMENTO = IMPOSTAZIONI["incremento_primo_periodo"]
SECONDO_PERIODO = IMPOSTAZIONI["tempo_secondo_periodo"] * 60
MOSSE_PRIMO_PERIODO = IMPOSTAZIONI["mosse_primo_periodo"]


def pgn_atteso(semimosse, ora="?", data="?"):
    """partita.pgn after `semimosse` plies of the game."""
    matto = semimosse == len(PARTITA)
    testo = ("\n[Event \"?\"]\n[White \"?\"]\n[Black \"?\"]\n[WhiteHelo \"?\"]\n[BlackHelo \"?\"]\n"
             f"[Termination \"{'Checkmate' if matto else '?'}\"]\n"
             f"[Result \"{'1-0' if matto else '*'}\"]\n"
             f"[UTCTime \"{ora}\"]\n[UTCDate \"{data}\"]\n[TimeControl \"{CADENZA}\"]\n"
             f"[Mode \"TC\"]\n[PlyCount \"{semimosse}\"]\n[Annotator \"Pendrino1.0\"]\n")
    for p, (_, san, _) in enumerate(PARTITA[:semimosse]):
        if p % 2 == 0:
            m = p // 2 + 1
            if m % 8 == 1:
                testo += "\n"
            testo += f" {m}."
        testo += " " + san
    testo += "\n"
    testo += "{scaccomatto} 1-0\n" if matto else "*\n"
    return testo


def secondi(tempo):
    """Seconds of " hh:mm:ss" (a minus sign in front allowed), None if not a time."""
    m = re.fullmatch(r"([ -])(\d\d):([0-5]\d):([0-5]\d)", tempo)
    if not m:
        return None
    s = int(m.group(2)) * 3600 + int(m.group(3)) * 60 + int(m.group(4))
    return -s if m.group(1) == "-" else s


def contiene_domanda(t):
    """The question, wherever the box breaks its lines."""
    return DOMANDA in " ".join(r.strip() for r in t.schermo.display if r.strip())


def righe_con_inverso(t):
    return {y for y in range(len(t.schermo.display))
            if any(t.schermo.buffer[y][x].reverse for x in range(COLONNE))}


class Esecuzione:
    """One run: play, kill, look at the files, resume, compare."""

    def __init__(self, binario, terminale, seme):
        self.binario = binario
        self.terminale = terminale
        self.seme = seme
        self.caso = random.Random(seme)
        self.tasti = tasti_del_terminale(terminale)
        if terminale == "linux":
            self.tasti["alt_s"] = [b"\x1b", b"s"]
            self.tasti["alt_5"] = [b"\x1b", b"5"]
        else:
            self.tasti["alt_s"] = [b"\x1bs"]
            self.tasti["alt_5"] = [b"\x1b5"]
        self.errori = []
        self.t = None
        self.ultime = {}  # line -> last text seen without a box over it
        self.descrizione = ""
        self.tmp_lasciati = []

    def controlla(self, condizione, messaggio):
        if not condizione:
            self.errori.append(messaggio)

    # -- the schedule ----------------------------------------------------
    def programma(self):
        """(time, key pieces, name, writes a file) in order."""
        p = [(0.0, [b"3"], "3", False),
             (0.2, self.tasti["alt_5"], "Alt+5", False),
             (0.6, [b"s"], "Si to the alarm", True),
             (1.0, self.tasti["ctrl_invio"], "Ctrl+Enter", False)]
        for i, (scritto, _, _) in enumerate(PARTITA):
            quando = INIZIO_MOSSE + PASSO_MOSSA * i
            # A move is appended to the journal: a write too.
            p.append((quando, [scritto.encode() + b"\r"], f"ply {i + 1} {scritto}", True))
            if i % 2 == 1:
                p.append((quando + PASSO_MOSSA / 2, self.tasti["alt_s"], f"Alt+S after ply {i + 1}",
                          True))
        fine = INIZIO_MOSSE + PASSO_MOSSA * len(PARTITA)
        p.append((fine + 0.3, [b"\r"], "Enter on the mate notice", False))
        p.append((fine + 0.7, self.tasti["alt_s"], "Alt+S after the mate", True))
        p.append((fine + 1.2, [], "end of the schedule", False))
        return p

    def scegli_uccisione(self, programma):
        if self.caso.random() < 0.5:
            scritture = [(q, nome) for q, _, nome, scrive in programma if scrive]
            quando, nome = self.caso.choice(scritture)
            ritardo = self.caso.uniform(0.0, 0.015)
            self.descrizione = f"{ritardo * 1000:.1f} ms after {nome}"
            return quando + ritardo
        quando = self.caso.uniform(0.0, programma[-1][0])
        self.descrizione = f"at {quando:.3f} s of the schedule"
        return quando

    # -- the screen ------------------------------------------------------
    def ricorda(self):
        inversi = righe_con_inverso(self.t)
        for y in RIGHE_PANNELLO + list(RIGHE_TEMPO):
            if y not in inversi:
                self.ultime[y] = self.t.riga(y)

    def leggi_fino(self, istante, zero):
        t = self.t
        while True:
            resto = istante - (time.monotonic() - zero)
            if resto <= 0:
                return
            if t.leggi(min(resto, 0.02)):
                self.ricorda()

    # -- the run ---------------------------------------------------------
    def avvia(self, cartella, domanda=False):
        self.t = Terminale(self.binario, [], self.terminale, cartella)
        t = self.t
        if domanda:
            t.attendi(lambda: contiene_domanda(t), "the question to take the game up", ATTESA)
        else:
            t.attendi(lambda: t.riga(40)[27:37] == "Comando =>" and t.cursore() == (44, 40)
                      and not t.contiene("Attenzione!"), "the main screen", ATTESA)

    def gioca_e_uccidi(self, cartella):
        self.avvia(cartella)
        t = self.t
        # The journal of this game exists before the first key.
        scadenza = time.monotonic() + ATTESA
        while not os.path.exists(os.path.join(cartella, GIORNALE)):
            if time.monotonic() > scadenza:
                raise Fallito("giornale.txt was not written at the start")
            t.leggi(0.05)
        t.quiete(0.2)
        self.ricorda()
        programma = self.programma()
        uccisione = self.scegli_uccisione(programma)
        zero = time.monotonic()
        self.avvio_orologio = None
        self.inviate = 0  # plies whose Enter was sent
        for quando, pezzi, nome, _ in programma:
            if quando >= uccisione:
                break
            if nome.startswith("ply "):
                self.inviate += 1
            self.leggi_fino(quando, zero)
            for i, pezzo in enumerate(pezzi):
                if i:
                    self.leggi_fino(time.monotonic() - zero + 0.3, zero)
                t.invia(pezzo)
            if nome == "Ctrl+Enter":
                self.avvio_orologio = datetime.datetime.now(datetime.timezone.utc)
        self.leggi_fino(uccisione, zero)
        os.kill(t.figlio.pid, signal.SIGKILL)
        self.prima_uccisione = datetime.datetime.now(datetime.timezone.utc)
        # All it wrote before dying is still to be read.
        while not t.finito:
            if t.leggi(0.1):
                self.ricorda()
        t.figlio.close()
        self.schermo_ucciso = t.mostra()

    def controlla_file(self, cartella):
        """Every file replaced whole is one of its versions, never a mix."""
        self.tmp_lasciati = sorted(f for f in os.listdir(cartella) if f.endswith(".tmp"))
        ini = open(os.path.join(cartella, "pendrino.ini"), "rb").read().decode("utf-8", "replace")
        validi = (testo_impostazioni(**IMPOSTAZIONI),
                  testo_impostazioni(**IMPOSTAZIONI, allarme5=3))
        self.controlla(ini in validi, f"pendrino.ini after the kill is no version of it:\n{ini!r}")
        self.ini_nuovo = ini == validi[1]
        pgn = os.path.join(cartella, "partita.pgn")
        if os.path.exists(pgn):
            testo = open(pgn, "rb").read().decode("utf-8", "replace")
            senza_utc = re.sub(r'^\[(UTCTime|UTCDate) "[^"]*"\]$', r'[\1 "?"]', testo, flags=re.M)
            if not any(senza_utc == pgn_atteso(n) for n in range(len(PARTITA) + 1)):
                self.errori.append(f"partita.pgn after the kill is no saved version:\n{testo!r}")

    def attesi_dopo(self):
        """The remembered lines as the resumed game must show them."""
        attese = {y: self.ultime.get(y) for y in RIGHE_PANNELLO}
        if attese[21] is not None:
            attese[21] = attese[21].replace("orologio in moto", "orologio fermo")
            attese[21] = centrata(attese[21].strip())
        return attese

    def righe_modello(self, n):
        """The panel lines of the game after n plies, clock stopped."""
        p = Posizione()
        for _, san, mossa in PARTITA[:n]:
            p.gioca(san, mossa)
        righe = {
            17: self.ultime.get(17),
            18: centrata("la posizione corrente " + ("e' quella iniziale" if n == 0
                                                     else "non si e' mai verificata prima")),
            19: centrata(p.riga_diritti()),
            20: centrata(p.riga_semimosse(n)),
            21: centrata("scaccomatto: partita aggiudicata ( 1-0 )" if n == len(PARTITA) else
                         f"mossa {n // 2 + 1}, tratto al {COLORE[n % 2]}, orologio fermo"),
        }
        for r, riga in enumerate(p.righe_scacchiera()):
            righe[24 + r] = (" " * 27 + str(8 - r)).ljust(30) + riga.ljust(COLONNE - 30)
        return righe

    def riprendi(self, cartella):
        self.avvia(cartella, domanda=True)
        t = self.t
        t.quiete(0.2)
        x, y = t.cursore()
        self.controlla(DOMANDA.startswith(t.riga(y)[x:].rstrip()) and t.riga(y)[x:].strip(),
                       f"the cursor ({x}, {y}) is not on the question: {t.riga(y)!r}")
        t.invia(b"s")
        t.attendi(lambda: not t.contiene("Attenzione!"), "the question to close", ATTESA)
        t.quiete(0.3)
        # The journal may be one ply ahead of the screen: a move whose Enter
        # was sent, made and journaled, killed before the screen showed it.
        # Never behind.
        n = self.semimosse
        ripresa = re.search(r"totali (\d+)", t.riga(20))
        self.ripresa = int(ripresa.group(1)) if ripresa else None
        self.avanti = self.ripresa == n + 1 and n + 1 <= self.inviate
        if self.avanti:
            attese = self.righe_modello(n + 1)
        else:
            self.controlla(self.ripresa == n, f"the game was taken up with {self.ripresa} plies, "
                                              f"the screen showed {n}")
            attese = self.attesi_dopo()

        def uguali():
            return all(a is None or t.riga(y) == a for y, a in attese.items())
        try:
            t.attendi(lambda: uguali() and t.cursore() == (44, 40), "the game taken up", ATTESA)
        except Fallito:
            pass
        t.quiete(0.3)
        for y, a in attese.items():
            if a is not None and t.riga(y) != a:
                self.errori.append(f"line {y} after the resume: {t.riga(y)!r}\n"
                                   f"      before the kill:   {a!r}")
        self.controlla(t.cursore() == (44, 40), f"cursor at {t.cursore()} after the resume")
        for lato, y in enumerate(RIGHE_TEMPO):
            prima = secondi(self.ultime.get(y, "")[43:52])
            dopo = secondi(t.riga(y)[43:52])
            aggiunta = 0
            if self.avanti and n % 2 == lato:
                # The ply ahead pressed its side's clock.
                mosse = n // 2 + 1
                aggiunta = INCREMENTO + (SECONDO_PERIODO if mosse == MOSSE_PRIMO_PERIODO else 0)
            self.controlla(prima is not None and dopo is not None and
                           -1 <= dopo - prima <= 1 + aggiunta,
                           f"time line {y}: {t.riga(y)!r} after the resume, "
                           f"{self.ultime.get(y)!r} before the kill")

    def semimosse_mostrate(self):
        riga = self.ultime.get(20, "")
        m = re.search(r"totali (\d+)", riga)
        if not m:
            raise Fallito(f"no half-move count on line 20 before the kill: {riga!r}")
        return int(m.group(1))

    def controlla_partita(self, cartella, n, n_ripresa):
        # The board shown is the game's after n plies.
        posizione = Posizione()
        for _, san, mossa in PARTITA[:n]:
            posizione.gioca(san, mossa)
        for r, riga in enumerate(posizione.righe_scacchiera()):
            self.controlla(self.ultime.get(24 + r, "")[30:54] == riga,
                           f"board line {24 + r} before the kill: {self.ultime.get(24 + r)!r}, "
                           f"expected {riga!r} after {n} plies")
        t = self.t
        pgn = os.path.join(cartella, "partita.pgn")
        prima = os.stat(pgn).st_mtime_ns if os.path.exists(pgn) else None
        t.premi(self.tasti["alt_s"])
        scadenza = time.monotonic() + ATTESA
        while not os.path.exists(pgn) or os.stat(pgn).st_mtime_ns == prima:
            if time.monotonic() > scadenza:
                raise Fallito("Alt+S after the resume wrote no partita.pgn")
            t.leggi(0.05)
        t.quiete(0.2)
        testo = open(pgn, "rb").read().decode("utf-8", "replace")
        ora = re.search(r'^\[UTCTime "([^"]*)"\]$', testo, re.M)
        data = re.search(r'^\[UTCDate "([^"]*)"\]$', testo, re.M)
        ora, data = (ora.group(1) if ora else "!"), (data.group(1) if data else "!")
        atteso = pgn_atteso(n_ripresa, ora, data)
        self.controlla(testo == atteso, f"partita.pgn after the resume:\n--- read\n{testo!r}\n"
                                        f"--- expected\n{atteso!r}")
        orologio_partito = n > 0 or "in moto" in self.ultime.get(21, "")
        if ora == "?" and data == "?":
            self.controlla(not orologio_partito,
                           "the resumed game lost the clock's first start (UTC \"?\")")
        else:
            try:
                stampa = datetime.datetime.strptime(f"{data} {ora}", "%Y.%m.%d %H:%M:%S").replace(
                    tzinfo=datetime.timezone.utc)
                self.controlla(self.avvio_orologio is not None and
                               self.avvio_orologio - datetime.timedelta(seconds=1) <= stampa <=
                               self.prima_uccisione,
                               f"UTC stamp {stampa} is not the first run's clock start "
                               f"({self.avvio_orologio})")
            except ValueError:
                self.errori.append(f"UTC stamp not a date and time: {data!r} {ora!r}")

    def esci(self):
        t = self.t
        t.premi(self.tasti["alt_f4"])
        t.attendi(lambda: t.contiene("Salvare la partita prima di uscire?"), "the exit question",
                  ATTESA)
        t.invia(b"n")
        stato, segnale = t.attendi_fine(ATTESA)
        self.controlla(stato == 0 and segnale is None, f"the program ended with {stato}/{segnale}")

    def esegui(self):
        with tempfile.TemporaryDirectory(prefix="pendrino-kill-") as cartella:
            scrivi_impostazioni(cartella, **IMPOSTAZIONI)
            try:
                self.gioca_e_uccidi(cartella)
                self.controlla_file(cartella)
                self.semimosse = self.semimosse_mostrate()
                self.riprendi(cartella)
                self.controlla_partita(cartella, self.semimosse,
                                       self.semimosse + 1 if self.avanti else self.semimosse)
                self.esci()
            except Fallito as e:
                self.errori.append(str(e))
            finally:
                if self.t is not None:
                    self.t.termina()
        return not self.errori


def main():
    argomenti = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    argomenti.add_argument("binario")
    argomenti.add_argument("terminale")
    argomenti.add_argument("--volte", type=int, default=5)
    argomenti.add_argument("--seme", type=int, default=None)
    a = argomenti.parse_args()
    binario = os.path.abspath(a.binario)
    if b"riprenderla?" not in open(binario, "rb").read():
        print("SKIPPED: this pendrino has no game journal yet (no resume question in the binary)")
        return SALTA
    seme = a.seme if a.seme is not None else random.SystemRandom().randrange(1, 10**9)
    print(f"{a.volte} runs, seeds {seme} to {seme + a.volte - 1}, TERM={a.terminale}", flush=True)
    inizio = time.monotonic()
    falliti, con_tmp, per_n, avanti = [], 0, {}, 0
    for i in range(a.volte):
        e = Esecuzione(binario, a.terminale, seme + i)
        riuscito = e.esegui()
        n = getattr(e, "semimosse", None)
        per_n[n] = per_n.get(n, 0) + 1
        con_tmp += bool(e.tmp_lasciati)
        avanti += bool(getattr(e, "avanti", False))
        stato = "ok" if riuscito else "FAILED"
        print(f"  seed {seme + i}: kill {e.descrizione}; {n} plies shown{' (one more journaled)' if getattr(e, 'avanti', False) else ''}"
              f"{'; left ' + ', '.join(e.tmp_lasciati) if e.tmp_lasciati else ''}: {stato}",
              flush=True)
        if not riuscito:
            falliti.append(e)
            for errore in e.errori:
                print("    -", errore.replace("\n", "\n      "))
            print("    screen at the kill:\n" + getattr(e, "schermo_ucciso", "(none)"))
            if e.t is not None:
                print("    screen at the end:\n" + e.t.mostra())
    durata = time.monotonic() - inizio
    print(f"{a.volte} runs in {durata:.1f} s, {len(falliti)} failed; "
          f"{con_tmp} kills landed inside a file replacement (a .tmp left); "
          f"{avanti} journals one ply ahead of the screen; "
          f"plies shown at the kill: {dict(sorted(per_n.items(), key=lambda v: (v[0] is None, v[0] or 0)))}")
    if falliti:
        print("FAILED seeds: " + " ".join(str(e.seme) for e in falliti) +
              f" (again with: {shlex.quote(sys.argv[0])} BINARY {a.terminale} --seme S --volte 1)")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
