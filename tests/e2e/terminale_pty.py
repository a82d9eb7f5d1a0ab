"""The program in a pseudo-terminal of 80 x 44, seen through pyte.

Every byte the program writes is kept (to check what it sends at exit) and
fed to a pyte screen (to check what a user would see).
"""

import os
import shlex
import subprocess
import sys
import tempfile
import time

SALTA = 77  # CTest SKIP_RETURN_CODE

try:
    import pexpect
    import pyte
except ImportError as errore:  # pragma: no cover - depends on the machine
    barra = "!" * 72
    sys.stderr.write(
        f"\n{barra}\n"
        f"SKIPPED: the end-to-end screen tests need pyte and pexpect ({errore}).\n"
        f"Interpreter: {sys.executable}\n"
        "Install them with: apt-get install python3-pyte python3-pexpect\n"
        f"{barra}\n\n")
    sys.exit(SALTA)

RIGHE = 44
COLONNE = 80


def capacita(terminale, nome):
    """A terminfo string capability of `terminale`, as bytes (b"" if absent)."""
    uscita = subprocess.run(["tput", "-T", terminale, nome], capture_output=True)
    return uscita.stdout if uscita.returncode == 0 else b""


class Fallito(Exception):
    pass


def tasti_del_terminale(terminale):
    """The bytes of each key the test uses, as `terminale` sends them."""
    funzione = {nome: capacita(terminale, cap) for nome, cap in
                (("su", "kcuu1"), ("giu", "kcud1"), ("fine", "kend"), ("f4", "kf4"),
                 ("f8", "kf8"))}
    if terminale == "linux":
        # No modified keys on the console: the prefixes stand in for them.
        ctrl_x = b"\x18"
        tasti = {
            "ctrl_invio": [ctrl_x + b"\r"],
            "ctrl_shift_invio": [ctrl_x + ctrl_x + b"\r"],
            "ctrl_1": [ctrl_x + b"1"],
            "ctrl_piu": [ctrl_x + b"+"],
            # Esc, let go, then F4: the pause outlasts the wait for a
            # following byte, so Esc acts as a prefix of its own.
            "alt_f4": [b"\x1b", funzione["f4"]],
        }
    else:
        # Both modified-key forms the program asks for are in use: xterm's
        # modifyOtherKeys and the CSI-u that tmux forwards.
        alt_f4 = capacita(terminale, "kf52") or b"\x1b" + funzione["f4"]
        tasti = {
            "ctrl_invio": [b"\x1b[27;5;13~"],
            "ctrl_shift_invio": [b"\x1b[13;6u"],
            "ctrl_1": [b"\x1b[49;5u"],
            "ctrl_piu": [b"\x1b[27;6;43~"],
            "alt_f4": [alt_f4],
        }
    for nome in ("su", "giu", "fine", "f4", "f8"):
        if not funzione[nome]:
            raise Fallito(f"terminfo for {terminale} has no {nome}")
        tasti[nome] = [funzione[nome]]
    return tasti


class Terminale:
    def __init__(self, comando, argomenti, terminale, cartella):
        ambiente = dict(os.environ)
        ambiente["TERM"] = terminale
        ambiente.pop("DISPLAY", None)
        ambiente.pop("WAYLAND_DISPLAY", None)
        ambiente["LANG"] = ambiente.get("LANG") or "C.UTF-8"
        self.schermo = pyte.Screen(COLONNE, RIGHE)
        self.flusso = pyte.ByteStream(self.schermo)
        self.ricevuto = bytearray()
        self.figlio = pexpect.spawn(comando, argomenti, env=ambiente, cwd=cartella,
                                    dimensions=(RIGHE, COLONNE))
        self.finito = False

    # -- reading ---------------------------------------------------------
    def leggi(self, attesa=0.05):
        """Feeds whatever the program wrote within `attesa` seconds."""
        if self.finito:
            return False
        try:
            dati = self.figlio.read_nonblocking(65536, timeout=attesa)
        except pexpect.TIMEOUT:
            return False
        except pexpect.EOF:
            self.finito = True
            return False
        self.ricevuto += dati
        self.flusso.feed(dati)
        return True

    def attendi(self, condizione, descrizione, secondi=10.0):
        scadenza = time.monotonic() + secondi
        while True:
            self.leggi()
            if condizione():
                return
            if time.monotonic() > scadenza or self.finito:
                raise Fallito(f"timed out waiting for: {descrizione}\n{self.mostra()}")

    def quiete(self, secondi=0.3):
        """Reads until the program has been silent for `secondi`."""
        silenzio = time.monotonic() + secondi
        while time.monotonic() < silenzio:
            if self.leggi():
                silenzio = time.monotonic() + secondi

    def attendi_fine(self, secondi=10.0):
        scadenza = time.monotonic() + secondi
        while not self.finito:
            self.leggi(0.1)
            if time.monotonic() > scadenza:
                raise Fallito("the program did not end\n" + self.mostra())
        self.figlio.close()
        return self.figlio.exitstatus, self.figlio.signalstatus

    # -- the screen ------------------------------------------------------
    def riga(self, y):
        return self.schermo.display[y]

    def cursore(self):
        return self.schermo.cursor.x, self.schermo.cursor.y

    def fotografia(self):
        return list(self.schermo.display), self.cursore()

    def contiene(self, testo):
        return any(testo in riga for riga in self.schermo.display)

    def mostra(self):
        righe = [f"{y:2d}|{riga}|" for y, riga in enumerate(self.schermo.display)]
        x, y = self.cursore()
        return "\n".join(righe) + f"\ncursor: column {x}, line {y}"

    # -- keys ------------------------------------------------------------
    def invia(self, dati):
        self.figlio.send(dati)

    def premi(self, pezzi):
        """One key of tasti_del_terminale(): its pieces apart, as a person types
        a prefix and then the key."""
        for i, pezzo in enumerate(pezzi):
            if i:
                self.quiete(0.3)  # longer than the wait for a byte following Esc
            self.invia(pezzo)

    def ridimensiona(self, righe, colonne):
        """The terminal window resized: the program gets SIGWINCH."""
        self.schermo.resize(righe, colonne)
        self.figlio.setwinsize(righe, colonne)

    def termina(self):
        if not self.finito and self.figlio.isalive():
            self.figlio.terminate(force=True)


# The settings rows: key, description, unit, default, minimum, maximum.
PARAMETRI = [
    ("periodi", "periodi", "periodi", 1, 1, 2),
    ("mosse_primo_periodo", "mosse primo periodo", "mosse", 40, 10, 100),
    ("tempo_primo_periodo", "tempo primo periodo", "minuti", 120, 1, 720),
    ("incremento_primo_periodo", "incremento primo periodo", "secondi", 0, 0, 600),
    ("tempo_secondo_periodo", "tempo secondo periodo", "minuti", 30, 1, 720),
    ("incremento_secondo_periodo", "incremento secondo periodo", "secondi", 0, 0, 600),
    ("aggiornamento_automatico_a_schermo",
     "Aggiornamento automatico a schermo del tempo in moto", "valore booleano", 1, 0, 1),
    ("allarme1", "primo allarme", "minuti", 15, 0, 720),
    ("allarme2", "secondo allarme", "minuti", 30, 0, 720),
    ("allarme3", "terzo allarme", "minuti", 60, 0, 720),
    ("allarme4", "quarto allarme", "minuti", 90, 0, 720),
    ("allarme5", "quinto allarme", "minuti", 120, 0, 720),
]


def testo_impostazioni(**valori):
    """pendrino.ini as the program writes it, with `valori` by key."""
    testo = ""
    for chiave, descrizione, unita, default, minimo, massimo in PARAMETRI:
        testo += (f"\n{descrizione} ({unita}) min: {minimo} max: {massimo} default: {default}\n"
                  f"$\t{chiave}\t{valori.get(chiave, default)}\n")
    return testo


def testo_preferenze(lettore_di_schermo=0, voce=0):
    """preferenze.ini as the program writes it."""
    return ("\nlettore di schermo (valore booleano) min: 0 max: 1 default: 0\n"
            f"$\tlettore_di_schermo\t{lettore_di_schermo}\n"
            "\nvoce del programma (valore booleano) min: 0 max: 1 default: 0\n"
            f"$\tvoce\t{voce}\n")


def scrivi_impostazioni(cartella, preferenze=None, **valori):
    """Both settings files in the program's working folder, so that it starts
    quietly; `preferenze` the values of preferenze.ini by key."""
    with open(os.path.join(cartella, "pendrino.ini"), "w", newline="\n") as f:
        f.write(testo_impostazioni(**valori))
    with open(os.path.join(cartella, "preferenze.ini"), "w", newline="\n") as f:
        f.write(testo_preferenze(**(preferenze or {})))


def esegui_classe(classe, binario, terminale):
    """Runs a test written as a class (`classe(binario, terminale, cartella)`
    with `esegui()`, `errori` and the Terminale `t`) in a fresh folder; its
    errors, and the last screen to show when there are any."""
    with tempfile.TemporaryDirectory(prefix="pendrino-e2e-") as cartella:
        prova = classe(binario, terminale, cartella)
        try:
            prova.esegui()
        except Fallito as e:
            prova.errori.append(str(e))
    schermo = prova.t.mostra() if prova.errori and prova.t is not None else None
    return prova.errori, schermo


def principale(documento, prova):
    """The command line of every screen test: `<program> <TERM>`.
    `prova(binario, terminale)` returns the errors and the screen to show on
    failure (or None). Exit status 0, 1 for a failure, 2 for a wrong call."""
    if len(sys.argv) != 3:
        sys.stderr.write(documento)
        return 2
    binario, terminale = os.path.abspath(sys.argv[1]), sys.argv[2]
    inizio = time.monotonic()
    errori, schermo = prova(binario, terminale)
    durata = time.monotonic() - inizio
    if errori:
        print(f"FAILED with TERM={terminale} ({shlex.quote(binario)}) after {durata:.1f} s:")
        for e in errori:
            print(" -", e)
        if schermo:
            print(schermo)
        return 1
    print(f"OK with TERM={terminale} in {durata:.1f} s")
    return 0


def rispondi_riquadro(t, testo, risposta, passo, attesa):
    """Waits for the box that shows `testo`, checks that the cursor stands at
    the start of its text (where a screen reader starts) and that it has its
    title, answers it with the bytes `risposta` and waits for it to close.
    The problems seen, as messages."""
    problemi = []
    t.attendi(lambda: t.contiene(testo), f"{passo}: the box {testo!r}", attesa)
    t.quiete(0.2)
    x, y = t.cursore()
    if not t.riga(y)[x:].startswith(testo):
        problemi.append(f"{passo}: cursor ({x}, {y}) not at the start of {testo!r}: {t.riga(y)!r}")
    if not t.contiene("Attenzione!"):
        problemi.append(f"{passo}: the box has no title 'Attenzione!'")
    t.invia(risposta)
    t.attendi(lambda: not t.contiene(testo), f"{passo}: the box to close", attesa)
    return problemi
