#!/usr/bin/python3
"""A whole game typed on a real terminal, and the two game files it leaves.

Usage: partita.py <pendrino binary> <TERM>

In a fresh temporary directory with its own pendrino.ini (two periods,
10 moves in 5 minutes with 3 seconds a move, then 2 minutes):
 1. e4 and d6 are played with the clock stopped; Ctrl+Delete (Ctrl+X then
    Delete on the linux console) takes d6 back.
 2. Ctrl+Enter starts the clock once; then a short game is typed move by
    move with Enter: captures, a promotion typed "bxa8=Q", castling typed
    "O-O" by Black and "0-0" by White, a knight move that needs its file,
    checks, and a mate. After every move the board, the castling, half-move
    and move lines read as the position says, both times are well formed and
    the cursor is back on the command field.
 3. The mate notice is answered; the clock is stopped and both times stay.
 4. Alt+S saves partita.pgn, F5 writes ListaMosse.txt (shown by PAGER=cat),
    Alt+F4 and Sì save again and leave with status 0.
Both files are compared byte for byte with the texts the game must give;
only the UTC time and date of the clock's first start are read from the
file, and they must fall within the seconds around Ctrl+Enter.
"""

import datetime
import os
import re
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from terminale_pty import (esegui_classe, principale, rispondi_riquadro,  # noqa: E402
                           COLONNE, Fallito, Terminale, capacita,
                           scrivi_impostazioni, tasti_del_terminale)

ATTESA = 15.0

IMPOSTAZIONI = dict(periodi=2, mosse_primo_periodo=10, tempo_primo_periodo=5,
                    incremento_primo_periodo=3, tempo_secondo_periodo=2)
CADENZA = "10/300+3:120"

# The game: what is typed, the move as the record writes it, and its squares
# (castling as the king's move; a fifth letter is the promoted piece).
PARTITA = [
    ("e4", "e4", "e2e4"),
    ("d5", "d5", "d7d5"),
    ("exd5", "exd5", "e4d5"),
    ("c6", "c6", "c7c6"),
    ("dxc6", "dxc6", "d5c6"),
    ("e6", "e6", "e7e6"),
    ("cxb7", "cxb7", "c6b7"),
    ("Bd6", "Bd6", "f8d6"),
    ("bxa8=Q", "bxa8=Q", "b7a8q"),
    ("Ne7", "Ne7", "g8e7"),
    ("Nf3", "Nf3", "g1f3"),
    ("O-O", "0-0", "e8g8"),
    ("Bd3", "Bd3", "f1d3"),
    ("Nbc6", "Nbc6", "b8c6"),  # the knight on e7 could go there too
    ("0-0", "0-0", "e1g1"),
    ("Ba6", "Ba6", "c8a6"),
    ("Bxh7+", "Bxh7+", "d3h7"),
    ("Kxh7", "Kxh7", "g8h7"),
    ("Ng5+", "Ng5+", "f3g5"),
    ("Kg8", "Kg8", "h7g8"),
    ("Qh5", "Qh5", "d1h5"),
    ("Qxa8", "Qxa8", "d8a8"),
    ("Qh7", "Qh7#", "h5h7"),
]

PGN_ATTESO = (
    "\n"
    "[Event \"?\"]\n"
    "[White \"?\"]\n"
    "[Black \"?\"]\n"
    "[WhiteHelo \"?\"]\n"
    "[BlackHelo \"?\"]\n"
    "[Termination \"Checkmate\"]\n"
    "[Result \"1-0\"]\n"
    "[UTCTime \"{ora}\"]\n"
    "[UTCDate \"{data}\"]\n"
    f"[TimeControl \"{CADENZA}\"]\n"
    "[Mode \"TC\"]\n"
    "[PlyCount \"23\"]\n"
    "[Annotator \"Pendrino1.0\"]\n"
    "\n"
    " 1. e4 d5 2. exd5 c6 3. dxc6 e6 4. cxb7 Bd6 5. bxa8=Q Ne7 6. Nf3 0-0 7. Bd3 Nbc6 8. 0-0 Ba6\n"
    " 9. Bxh7+ Kxh7 10. Ng5+ Kg8 11. Qh5 Qxa8 12. Qh7#\n"
    "{scaccomatto} 1-0\n")

LISTA_ATTESA = (
    "\n"
    " 1. e4 d5\n"
    " 2. exd5 c6\n"
    " 3. dxc6 e6\n"
    " 4. cxb7 Bd6\n"
    " 5. bxa8=Q Ne7\n"
    " 6. Nf3 0-0\n"
    " 7. Bd3 Nbc6\n"
    " 8. 0-0 Ba6\n"
    " 9. Bxh7+ Kxh7\n"
    " 10. Ng5+ Kg8\n"
    " 11. Qh5 Qxa8\n"
    " 12. Qh7#\n")

NOTIZIA_MATTO = "scaccomatto, partita aggiudicata ( 1-0 )."
DOMANDA_USCITA = "Salvare la partita prima di uscire?"
DIRITTI = ["nessuno", "solo corto", "solo lungo", "entrambi"]
COLORE = ["bianco", "nero"]


def centrata(testo):
    margine = (COLONNE - len(testo)) // 2
    return (" " * margine + testo[0].upper() + testo[1:]).ljust(COLONNE)


def ben_formato(tempo):
    return re.fullmatch(r" \d\d:[0-5]\d:[0-5]\d", tempo) is not None


class Posizione:
    """Just enough chess to know what the panels must show after each move."""

    def __init__(self):
        self.casa = {}
        for c, pezzo in enumerate("rnbqkbnr"):
            self.casa[(c, 0)] = pezzo
            self.casa[(c, 1)] = "p"
            self.casa[(c, 6)] = "P"
            self.casa[(c, 7)] = pezzo.upper()
        self.diritti = {"K": True, "Q": True, "k": True, "q": True}
        self.reversibili = 0
        self.giocate = []

    @staticmethod
    def coordinate(testo):
        return ord(testo[0]) - ord("a"), 8 - int(testo[1])  # row 0 is rank 8

    def gioca(self, san, mossa):
        da, a = self.coordinate(mossa[:2]), self.coordinate(mossa[2:4])
        pezzo = self.casa.pop(da)
        presa = self.casa.get(a)
        self.casa[a] = mossa[4].upper() if len(mossa) == 5 and pezzo.isupper() else (
            mossa[4] if len(mossa) == 5 else pezzo)
        if pezzo in "Kk" and abs(a[0] - da[0]) == 2:
            torre_da, torre_a = ((7, da[1]), (5, da[1])) if a[0] == 6 else ((0, da[1]), (3, da[1]))
            self.casa[torre_a] = self.casa.pop(torre_da)
        # A right goes when its king or rook moves or the rook is taken.
        for casa, diritti in (((4, 7), "KQ"), ((7, 7), "K"), ((0, 7), "Q"),
                              ((4, 0), "kq"), ((7, 0), "k"), ((0, 0), "q")):
            if casa in (da, a):
                for d in diritti:
                    self.diritti[d] = False
        self.reversibili = 0 if pezzo in "Pp" or presa else self.reversibili + 1
        self.giocate.append(san)

    def ritira(self, san, mossa, prima):
        """Back to the state saved in `prima` (take-back of a plain move)."""
        self.casa, self.diritti, self.reversibili, self.giocate = prima

    def copia(self):
        return dict(self.casa), dict(self.diritti), self.reversibili, list(self.giocate)

    def righe_scacchiera(self):
        return ["".join(f" {self.casa[(c, r)]} " if (c, r) in self.casa else " - "
                        for c in range(8)) for r in range(8)]

    def riga_diritti(self):
        def voce(re, donna):
            return DIRITTI[2 * self.diritti[donna] + self.diritti[re]]
        return f"diritti d'arrocco: bianco {voce('K', 'Q')}, nero {voce('k', 'q')}"

    def riga_semimosse(self, totali):
        ultima = f"ultima {self.giocate[totali - 1]}, " if totali else ""
        return f"semimosse: {ultima}reversibili {self.reversibili}, totali {totali}"


class Prova:
    def __init__(self, binario, terminale, cartella):
        self.binario = binario
        self.terminale = terminale
        self.cartella = cartella
        self.tasti = tasti_del_terminale(terminale)
        if terminale == "linux":
            self.tasti["ctrl_canc"] = [b"\x18", capacita(terminale, "kdch1")]
            self.tasti["alt_s"] = [b"\x1b", b"s"]
        else:
            self.tasti["ctrl_canc"] = [capacita(terminale, "kDC5") or b"\x1b[3;5~"]
            self.tasti["alt_s"] = [b"\x1bs"]
        self.tasti["f5"] = [capacita(terminale, "kf5")]
        self.errori = []
        self.t = None
        self.posizione = Posizione()
        self.totali = 0  # plies played
        self.in_moto = False

    def controlla(self, condizione, messaggio):
        if not condizione:
            self.errori.append(messaggio)

    def premi(self, nome):
        self.t.premi(self.tasti[nome])

    # -- the panels ------------------------------------------------------
    def righe_attese(self):
        p = self.posizione
        righe = {y: centrata(testo) for y, testo in (
            (17, f"cadenza di gioco: {CADENZA}"),
            (18, "la posizione corrente " + ("e' quella iniziale" if not p.giocate
                                             else "non si e' mai verificata prima")),
            (19, p.riga_diritti()),
            (20, p.riga_semimosse(self.totali)),
            (21, f"mossa {self.totali // 2 + 1}, tratto al {COLORE[self.totali % 2]}, "
                 f"orologio {'in moto' if self.in_moto else 'fermo'}"),
        )}
        for r, testo in enumerate(p.righe_scacchiera()):
            righe[24 + r] = (" " * 27 + str(8 - r)).ljust(30) + testo.ljust(COLONNE - 30)
        righe[40] = (" " * 27 + "Comando =>").ljust(COLONNE)
        return righe

    def differenze(self, righe):
        return [f"line {y}: {self.t.riga(y)!r}\n      expected {attesa!r}"
                for y, attesa in righe.items() if self.t.riga(y) != attesa]

    def attendi_pannelli(self, passo, righe=None):
        t = self.t
        righe = righe or self.righe_attese()
        try:
            t.attendi(lambda: not self.differenze(righe) and t.cursore() == (44, 40), passo,
                      ATTESA)
        except Fallito:
            pass
        t.quiete(0.1)
        diverse = self.differenze(righe)
        self.controlla(not diverse, f"{passo}: lines differ:\n    " + "\n    ".join(diverse))
        self.controlla(t.cursore() == (44, 40),
                       f"{passo}: cursor at {t.cursore()}, expected the command field (44, 40)")
        for y in (37, 38):
            self.controlla(ben_formato(t.riga(y)[43:52]), f"{passo}: time line {y}: {t.riga(y)!r}")

    def rispondi(self, testo, risposta, passo):
        self.errori += rispondi_riquadro(self.t, testo, risposta, passo, ATTESA)

    # -- moves -----------------------------------------------------------
    def digita(self, testo, passo):
        """Types a move key by key; the field shows what it keeps."""
        t = self.t
        for c in testo:
            t.invia(c.encode())
        campo = "".join(c for c in testo if c.isalnum())
        riga = (" " * 27 + "Comando =>").ljust(44) + campo.ljust(COLONNE - 44)
        try:
            t.attendi(lambda: t.riga(40) == riga and t.cursore() == (44 + len(campo), 40),
                      f"{passo}: the field to read {campo!r}", ATTESA)
        except Fallito as e:
            self.errori.append(str(e))
        t.invia(b"\r")

    def gioca(self, scritto, san, mossa):
        passo = f"ply {self.totali + 1} ({scritto})"
        self.digita(scritto, passo)
        self.posizione.gioca(san, mossa)
        self.totali += 1
        if san.endswith("#"):
            return
        self.attendi_pannelli(passo)

    # -- the whole test --------------------------------------------------
    def esegui(self):
        scrivi_impostazioni(self.cartella, **IMPOSTAZIONI)
        self.t = Terminale(self.binario, [], self.terminale, self.cartella)
        t = self.t
        try:
            t.attendi(lambda: t.riga(40)[27:37] == "Comando =>" and t.cursore() == (44, 40),
                      "the main screen", ATTESA)
            self.attendi_pannelli("start")

            # A wrong reply, taken back with the clock stopped.
            self.gioca(*PARTITA[0])
            prima = self.posizione.copia()
            self.gioca("d6", "d6", "d7d6")
            self.premi("ctrl_canc")
            self.posizione.ritira("d6", "d7d6", prima)
            self.totali -= 1
            self.attendi_pannelli("take-back of d6")

            inizio = datetime.datetime.now(datetime.timezone.utc).replace(microsecond=0)
            self.premi("ctrl_invio")
            self.in_moto = True
            self.attendi_pannelli("clock started")
            fine = datetime.datetime.now(datetime.timezone.utc)

            # Black's time runs, White's stays as it was.
            bianco = t.riga(37)[43:52]
            nero = t.riga(38)[43:52]
            t.attendi(lambda: t.riga(38)[43:52] != nero, "Black's time to run", ATTESA)
            self.controlla(t.riga(37)[43:52] == bianco,
                           f"White's time moved with Black to play: {bianco!r} -> {t.riga(37)!r}")

            for scritto, san, mossa in PARTITA[1:]:
                self.gioca(scritto, san, mossa)

            self.rispondi(NOTIZIA_MATTO, b"\r", "the mate notice")
            self.in_moto = False
            righe = self.righe_attese()
            righe[21] = centrata("scaccomatto: partita aggiudicata ( 1-0 )")
            self.attendi_pannelli("after the mate", righe)
            tempi = t.riga(37)[43:52], t.riga(38)[43:52]
            scadenza = time.monotonic() + 1.5
            while time.monotonic() < scadenza:
                t.leggi(0.1)
            self.controlla((t.riga(37)[43:52], t.riga(38)[43:52]) == tempi,
                           f"a time moved after the mate: {tempi} -> "
                           f"{t.riga(37)[43:52]!r}, {t.riga(38)[43:52]!r}")

            pgn = os.path.join(self.cartella, "partita.pgn")
            lista = os.path.join(self.cartella, "ListaMosse.txt")
            self.premi("alt_s")
            self.attendi_file(pgn, "Alt+S")
            self.controlla_pgn(pgn, inizio, fine, "after Alt+S")
            salvato = open(pgn, "rb").read()

            self.premi("f5")
            self.attendi_file(lista, "F5")
            t.quiete(0.5)
            self.attendi_pannelli("back from the move list", righe)
            self.controlla_lista(lista)

            self.premi("alt_f4")
            self.rispondi(DOMANDA_USCITA, b"s", "exit")
            stato, segnale = t.attendi_fine(ATTESA)
            self.controlla(stato == 0 and segnale is None,
                           f"the program ended with {stato}/{segnale}")
            self.controlla(open(pgn, "rb").read() == salvato,
                           "partita.pgn saved at the exit differs from the one Alt+S saved")
        except Fallito as e:
            self.errori.append(str(e))
        finally:
            t.termina()

    def attendi_file(self, nome, passo):
        scadenza = time.monotonic() + ATTESA
        while not os.path.exists(nome):
            if time.monotonic() > scadenza:
                raise Fallito(f"{passo}: {os.path.basename(nome)} was not written")
            self.t.leggi(0.1)
        self.t.quiete(0.3)

    def controlla_pgn(self, nome, inizio, fine, passo):
        testo = open(nome, "rb").read().decode("utf-8", "replace")
        ora = re.search(r'^\[UTCTime "(\d\d:\d\d:\d\d)"\]$', testo, re.M)
        data = re.search(r'^\[UTCDate "(\d{4}\.\d\d\.\d\d)"\]$', testo, re.M)
        if not ora or not data:
            self.errori.append(f"{passo}: no UTC time or date in partita.pgn:\n{testo}")
            return
        atteso = PGN_ATTESO.replace("{ora}", ora.group(1)).replace("{data}", data.group(1))
        self.controlla(testo == atteso,
                       f"{passo}: partita.pgn differs:\n--- read\n{testo!r}\n--- expected\n{atteso!r}")
        stampa = datetime.datetime.strptime(f"{data.group(1)} {ora.group(1)}", "%Y.%m.%d %H:%M:%S")
        stampa = stampa.replace(tzinfo=datetime.timezone.utc)
        self.controlla(inizio - datetime.timedelta(seconds=1) <= stampa <= fine,
                       f"{passo}: the UTC stamp {stampa} is not the clock's start "
                       f"(between {inizio} and {fine})")

    def controlla_lista(self, nome):
        testo = open(nome, "rb").read().decode("utf-8", "replace")
        self.controlla(testo == LISTA_ATTESA,
                       f"ListaMosse.txt differs:\n--- read\n{testo!r}\n--- expected\n{LISTA_ATTESA!r}")


def main():
    # F5 shows the move list with the pager: cat returns at once.
    os.environ["PAGER"] = "cat"
    return principale(__doc__, lambda binario, terminale: esegui_classe(Prova, binario, terminale))


if __name__ == "__main__":
    sys.exit(main())
