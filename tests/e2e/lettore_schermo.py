#!/usr/bin/python3
"""A real screen reader in front of the program: fenrir in its terminal mode.

fenrir (Debian's package) runs inside an 80 x 44 tmux window and starts the
program, in a folder of the test's choosing, in a pseudo-terminal of its
own, exactly as a blind user's terminal does. What it says goes to a speech
command of ours that writes each utterance, with the time, to a transcript
and then stays as long as a voice would speak it (0.2 s + 0.036 s a
character: espeak-ng in Italian at fenrir's default rate), so that fenrir
interrupts it as it would interrupt a voice: by ending the command. Keys go
to fenrir through tmux, as typed: fenrir stops speaking at each key
(interruptOnKeyPress), as most users set it, and passes the key on.

    with LettoreSchermo(programma, cartella) as lettore:
        lettore.attendi_parola("Comando")
        lettore.premi("e4\\r")
        assert lettore.sentito_entro("e4", 3.0, preceduto_da="ultima ")
        print(lettore.trascrizione())   # [(seconds, text), ...]

Times are seconds of time.time(). fenrir gives the program TERM=linux: no
modified keys, the prefixes stand in for them (Ctrl+X, then Enter starts the
clock). In its terminal key layout fenrir keeps a lone Esc, F1, F5 and F8
for itself; Alt+key sent as one sequence (ESC and the key together) passes.

Usable where fenrir and tmux are installed (manca() names what is missing).
"""

import json
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import time

IMPOSTAZIONI_FENRIR = "/etc/fenrirscreenreader/settings/settings.conf"
PYTHON = "/usr/bin/python3" if os.path.exists("/usr/bin/python3") else sys.executable

# The speech command: fenrir runs it once per utterance, as
#   voce.py <transcript> <rate> <text>
# It appends {"t", "testo", "durata"} to the transcript, then sleeps as long
# as the voice would speak; fenrir ends it with SIGTERM to interrupt it, and
# the interruption is written down as {"t", "interrotto"}.
VOCE = r'''
import json, signal, sys, time
adesso = time.time()
registro, testo = sys.argv[1], sys.argv[3] if len(sys.argv) > 3 else ""
durata = 0.2 + 0.036 * len(testo)

def scrivi(voce):
    with open(registro, "a", encoding="utf-8") as f:
        f.write(json.dumps(voce, ensure_ascii=False) + "\n")

def interrotto(*_):
    scrivi({"t": time.time(), "interrotto": True})
    sys.exit(0)

signal.signal(signal.SIGTERM, interrotto)
scrivi({"t": adesso, "testo": testo, "durata": durata})
time.sleep(durata)
'''


def manca():
    """What keeps the screen reader from running here, or None."""
    for programma in ("fenrir", "tmux"):
        if shutil.which(programma) is None:
            return f"{programma} is not installed (apt-get install fenrir tmux)"
    if not os.path.exists(IMPOSTAZIONI_FENRIR):
        return f"fenrir's settings {IMPOSTAZIONI_FENRIR} are missing"
    esito = subprocess.run([PYTHON, "-c", "import pyte"], capture_output=True)
    if esito.returncode != 0:
        return "fenrir needs python3-pyte"
    return None


def impostazioni(originale, cambi):
    """The text of an INI file with `cambi` ({section: {key: value}}) applied:
    keys replaced where they are, added at the end of their section when
    missing."""
    righe, sezione, viste = [], None, set()

    def chiudi_sezione():
        for chiave, valore in cambi.get(sezione, {}).items():
            if (sezione, chiave) not in viste:
                righe.append(f"{chiave}={valore}")

    for riga in originale.splitlines():
        m = re.match(r"^\s*\[([^\]]+)\]\s*$", riga)
        if m:
            chiudi_sezione()
            sezione = m.group(1)
            righe.append(riga)
            continue
        chiave = riga.split("=", 1)[0].strip() if "=" in riga and not riga.lstrip().startswith("#") \
            else None
        if chiave is not None and chiave in cambi.get(sezione, {}):
            righe.append(f"{chiave}={cambi[sezione][chiave]}")
            viste.add((sezione, chiave))
        else:
            righe.append(riga)
    chiudi_sezione()
    for nuova, valori in cambi.items():
        if not any(re.match(rf"^\s*\[{re.escape(nuova)}\]", r) for r in righe):
            righe.append(f"[{nuova}]")
            righe += [f"{k}={v}" for k, v in valori.items()]
    return "\n".join(righe) + "\n"


class LettoreSchermo:
    """fenrir reading `programma` (a path; `argomenti` its arguments) started
    in `cartella`. `interrompi_ai_tasti` is fenrir's interruptOnKeyPress;
    `diario` keeps fenrir's own log of every event (fenrir.log in
    self.lavoro, which then stays after the end) for an investigation."""

    def __init__(self, programma, cartella, argomenti=(), interrompi_ai_tasti=True,
                 righe=44, colonne=80, ambiente=None, diario=False):
        self.programma = os.path.abspath(programma)
        self.cartella = cartella
        self.argomenti = list(argomenti)
        self.righe, self.colonne = righe, colonne
        self.ambiente = dict(ambiente or {})
        self.lavoro = tempfile.mkdtemp(prefix="pendrino-lettore-")
        self.registro = os.path.join(self.lavoro, "parlato.jsonl")
        self.diario_fenrir = os.path.join(self.lavoro, "fenrir.log")
        self.impostazioni = os.path.join(self.lavoro, "settings.conf")
        self.socket = "pendrino-lettore-%d" % os.getpid()
        self.sessione = "lettore"
        self.interrompi_ai_tasti = interrompi_ai_tasti
        self.diario = diario
        self.ultimo_tasto = None  # time.time() of the last key sent
        self.avviato = False

    # -- start and end ---------------------------------------------------
    def _scrivi_file(self):
        voce = os.path.join(self.lavoro, "voce.py")
        with open(voce, "w", encoding="utf-8") as f:
            f.write(VOCE)
        avvio = os.path.join(self.lavoro, "avvia.sh")
        ambiente = "".join(f"export {k}={shlex.quote(v)}\n" for k, v in self.ambiente.items())
        with open(avvio, "w", encoding="utf-8") as f:
            f.write("#!/bin/sh\n" + ambiente +
                    f"cd {shlex.quote(self.cartella)} || exit 1\n"
                    f"exec {shlex.join([self.programma] + self.argomenti)}\n")
        os.chmod(avvio, 0o755)
        with open(IMPOSTAZIONI_FENRIR, encoding="utf-8") as f:
            originale = f.read()
        comando_voce = f'{PYTHON} {voce} {self.registro} fenrirRate "fenrirText"'
        cambi = {
            "screen": {"driver": "ptyDriver"},
            "keyboard": {"driver": "ptyDriver", "keyboardLayout": "pty",
                         "interruptOnKeyPress": str(self.interrompi_ai_tasti)},
            "speech": {"enabled": "True", "driver": "genericDriver",
                       "genericSpeechCommand": comando_voce},
            # No sound device is needed: the sound icons only log.
            "sound": {"enabled": "False", "genericPlayFileCommand": "true",
                      "genericFrequencyCommand": "true"},
            # The spelling check would say that its module is missing.
            "general": {"shell": avvio, "debugLevel": "3" if self.diario else "0",
                        "debugMode": "File",
                        "debugFile": self.diario_fenrir, "autoSpellCheck": "False"},
            "remote": {"enable": "False"},
            "promote": {"enabled": "False"},
            "time": {"enabled": "False"},
        }
        with open(self.impostazioni, "w", encoding="utf-8") as f:
            f.write(impostazioni(originale, cambi))

    def _tmux(self, *argomenti, **opzioni):
        return subprocess.run(["tmux", "-L", self.socket, "-f", os.devnull] + list(argomenti),
                              capture_output=True, **opzioni)

    def avvia(self):
        self._scrivi_file()
        open(self.registro, "w").close()
        comando = shlex.join(["fenrir", "-s", self.impostazioni])
        esito = self._tmux("new-session", "-d", "-s", self.sessione, "-x", str(self.colonne),
                           "-y", str(self.righe), comando)
        if esito.returncode != 0:
            raise RuntimeError("tmux could not start fenrir: " +
                               esito.stderr.decode("utf-8", "replace"))
        self._tmux("set-option", "-t", self.sessione, "remain-on-exit", "on")
        self.avviato = True
        self.inizio = time.time()
        return self

    def chiudi(self):
        if self.avviato:
            self._tmux("kill-server")
            self.avviato = False

    def __enter__(self):
        return self.avvia()

    def __exit__(self, *_):
        self.chiudi()
        if not self.diario:
            shutil.rmtree(self.lavoro, ignore_errors=True)

    # -- keys ------------------------------------------------------------
    def premi(self, dati, pausa=0.0):
        """Sends bytes (or text) as the terminal would; each byte string of a
        list apart, `pausa` seconds between them."""
        pezzi = dati if isinstance(dati, (list, tuple)) else [dati]
        for i, pezzo in enumerate(pezzi):
            if i and pausa:
                time.sleep(pausa)
            if isinstance(pezzo, str):
                pezzo = pezzo.encode("utf-8")
            self.ultimo_tasto = time.time()
            self._tmux("send-keys", "-t", self.sessione, "-H", *("%02x" % b for b in pezzo))

    # -- what was heard --------------------------------------------------
    def voci(self):
        """Every utterance so far: dicts with t, testo, durata, and the time
        it was cut short (interrotta_a) or None when it was heard whole."""
        voci = []
        try:
            with open(self.registro, encoding="utf-8") as f:
                for riga in f:
                    try:
                        voce = json.loads(riga)
                    except ValueError:
                        continue
                    if "interrotto" in voce:
                        if voci and voci[-1]["interrotta_a"] is None:
                            voci[-1]["interrotta_a"] = voce["t"]
                        continue
                    voce["interrotta_a"] = None
                    voci.append(voce)
        except FileNotFoundError:
            pass
        return voci

    def trascrizione(self, dal=None):
        """[(time, text)] of every utterance (since `dal`, a time.time())."""
        return [(v["t"], v["testo"]) for v in self.voci() if dal is None or v["t"] >= dal]

    def parola_detta(self, testo, dal=None, al=None):
        """The first utterance holding `testo` (case-insensitive) that started
        between `dal` and `al`, or None."""
        for voce in self.voci():
            if dal is not None and voce["t"] < dal:
                continue
            if al is not None and voce["t"] > al:
                continue
            if testo.lower() in voce["testo"].lower():
                return voce
        return None

    def quando_sentito(self, testo, dal=None, preceduto_da=""):
        """When a voice has spoken `testo` (right after `preceduto_da`, when
        given: "ultima " before a move is the half-move line, not the command
        field): the time its utterance started plus the speaking time of
        what comes before it in that utterance (the first utterance since
        `dal` that reaches it before being cut short); None while no
        utterance has reached it yet."""
        adesso = time.time()
        cercato = (preceduto_da + testo).lower()
        for voce in self.voci():
            if dal is not None and voce["t"] < dal:
                continue
            posto = voce["testo"].lower().find(cercato)
            if posto < 0:
                continue
            istante = voce["t"] + 0.2 + 0.036 * (posto + len(preceduto_da))
            tagliata = voce["interrotta_a"] is not None and voce["interrotta_a"] < istante
            if not tagliata and istante <= adesso:
                return istante
        return None

    def attendi(self, condizione, secondi):
        fine = time.time() + secondi
        while time.time() < fine:
            if condizione():
                return True
            time.sleep(0.05)
        return condizione()

    def attendi_parola(self, testo, secondi=30.0, dal=None):
        """Waits until an utterance holding `testo` has started; its voce or None."""
        self.attendi(lambda: self.parola_detta(testo, dal) is not None, secondi)
        return self.parola_detta(testo, dal)

    def sentito_entro(self, testo, secondi_dopo_il_tasto, preceduto_da=""):
        """Whether `testo` is heard (spoken, its utterance not cut short
        before it) at most `secondi_dopo_il_tasto` seconds after the last key
        sent; waits for it until then."""
        tasto = self.ultimo_tasto if self.ultimo_tasto is not None else self.inizio
        resto = tasto + secondi_dopo_il_tasto + 0.1 - time.time()
        self.attendi(lambda: self.quando_sentito(testo, tasto, preceduto_da) is not None,
                     max(resto, 0.0))
        istante = self.quando_sentito(testo, tasto, preceduto_da)
        return istante is not None and istante - tasto <= secondi_dopo_il_tasto

    def ritardo(self, testo, preceduto_da=""):
        """Seconds from the last key to when `testo` is heard, or None."""
        tasto = self.ultimo_tasto if self.ultimo_tasto is not None else self.inizio
        istante = self.quando_sentito(testo, tasto, preceduto_da)
        return None if istante is None else istante - tasto

    def quiete(self, secondi):
        """Waits until nothing new has been said for `secondi`."""
        ultimo, quanti = time.time(), len(self.voci())
        while time.time() - ultimo < secondi:
            time.sleep(0.05)
            adesso = len(self.voci())
            if adesso != quanti:
                quanti, ultimo = adesso, time.time()

    def schermo(self):
        """The tmux window as text, for a failure's report."""
        esito = self._tmux("capture-pane", "-p", "-t", self.sessione)
        return esito.stdout.decode("utf-8", "replace")

    def mostra_trascrizione(self, dal=None):
        base = dal if dal is not None else self.inizio
        righe = []
        for voce in self.voci():
            if voce["t"] < base:
                continue
            taglio = "" if voce["interrotta_a"] is None else \
                "  [cut at +%.2f]" % (voce["interrotta_a"] - base)
            righe.append("+%6.2f s  %r%s" % (voce["t"] - base, voce["testo"], taglio))
        return "\n".join(righe)
