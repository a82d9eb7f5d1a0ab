#include "console/letture.h"

#include "board/mossa.h"
#include "board/posizione.h"
#include "clock/cadenza.h"
#include "clock/orologio.h"
#include "console/annuncio.h"
#include "console/comandi.h"
#include "console/parole.h"
#include "game/aggiudicazione.h"
#include "game/partita.h"
#include "messaggi/messaggi.h"
#include "messaggi/toni.h"

namespace {

// The ply the score sheet's walk last read (0: none yet), and the record it
// belongs to: a move played or taken back starts the walk afresh.
uint64_t PlyLetto = 0;
uint64_t ContatoreLetto = 0;
uint32_t PartitaLetta = 0;

bool WalkValido() {
  return PlyLetto != 0 && ContatoreLetto == ContatoreMosse && PartitaLetta == PartiteIniziate;
}

// "<colore>: <words of the move>", with its check: the record's ply p.
void MossaDelPly(Composizione& c, uint64_t p, const char* const (&colori)[2]) {
  c.Testo(colori[(p - 1) & 1]);
  c.Testo(": ");
  c.Testo(ElencoStringaMossa[p]);
  c.Testo(", ");
  MossaInParole(c, ElencoMosse[p]);
  ScaccoInParole(c, ElencoStringaMossa[p]);
}

void LeggiPly(uint64_t p) {
  Composizione& c = NuovoAnnuncio();
  c.Numero(int64_t(((p - 1) >> 1) + 1));
  c.Testo(". ");
  MossaDelPly(c, p, NomeColore);
  c.Carattere('.');
  Annuncia();
  PlyLetto = p;
  ContatoreLetto = ContatoreMosse;
  PartitaLetta = PartiteIniziate;
}

// The side's time now: the running side's as it runs.
int32_t SecondiDi(int colore) {
  const bool corre = InMoto && int(ContatoreMosse & 1) == colore;
  return SecondiInMillisecondi(corre ? TempoRimastoInMoto(colore) : TempoRimasto[colore]);
}

}  // namespace

void comando_LeggiTempi() {
  Composizione& c = NuovoAnnuncio();
  for (int colore = 0; colore < 2; ++colore) {
    if (colore) c.Testo("; ");
    c.Testo(colore ? NomeColore[colore] : NomeColoreMaiuscolo[colore]);
    c.Testo(": ");
    TempoInParole(c, SecondiDi(colore));
  }
  const int lato = int(ContatoreMosse & 1);
  c.Testo("; tratto al ");
  c.Testo(NomeColore[lato]);
  // The moves the side to move has left in the first period.
  if (CadenzaPartita.periodi != 1) {
    const int64_t fatte = lato == 0 ? int64_t(ContatoreMosse + 1) / 2 : int64_t(ContatoreMosse) / 2;
    const int64_t mancano = CadenzaPartita.mosse_primo_periodo - fatte;
    if (mancano > 0) {
      c.Testo(", ");
      c.Numero(mancano);
      c.Testo(mancano == 1 ? " mossa al secondo periodo" : " mosse al secondo periodo");
    } else {
      c.Testo(", secondo periodo");
    }
  }
  c.Carattere('.');
  Annuncia();
}

void comando_LeggiUltimaMossa() {
  if (ContatoreMosse <= TurnoIniziale) {
    Annuncia("Nessuna mossa giocata.");
    return;
  }
  Composizione& c = NuovoAnnuncio();
  MossaDelPly(c, ContatoreMosse, NomeColoreMaiuscolo);
  c.Carattere('.');
  Annuncia();
}

void comando_LeggiPezzi(int colore) {
  if (colore < 0 || colore > 1) return;
  Composizione& c = NuovoAnnuncio();
  c.Testo(NomeColoreMaiuscolo[colore]);
  c.Testo(":");
  // The king first, the pawns last; each kind's squares file by file, from
  // the first rank up.
  static constexpr int Ordine[6] = {RE, DONNA, TORRE, ALFIERE, CAVALLO, PEDONE};
  bool primo_tipo = true;
  for (int tipo : Ordine) {
    uint64_t case_del_tipo[16];
    int quante = 0;
    for (int colonna = 0; colonna < 8; ++colonna)
      for (int riga = 7; riga >= 0; --riga) {
        const uint64_t casa = uint64_t(riga * 8 + colonna);
        const uint64_t codice = PezzoIn[casa];
        if (CodiceDiPezzo(codice) && TipoDelCodice(codice) == tipo &&
            ColoreDelCodice(codice) == colore && quante < 16)
          case_del_tipo[quante++] = casa;
      }
    if (quante == 0) continue;
    c.Testo(primo_tipo ? " " : "; ");
    primo_tipo = false;
    c.Testo(quante == 1 ? NomePezzo[tipo] : NomePezzoPlurale[tipo]);
    c.Testo(" in ");
    for (int i = 0; i < quante; ++i) {
      if (i > 0) c.Testo(i == quante - 1 ? " e " : ", ");
      c.Testo(NomeCasa(case_del_tipo[i]).testo);
    }
  }
  c.Carattere('.');
  Annuncia();
}

void comando_LeggiCasa() {
  const bool casa_scritta = CharatteriInComando == 2 && comando[0] >= 'a' && comando[0] <= 'h' &&
                            comando[1] >= '1' && comando[1] <= '8';
  if (!casa_scritta) {
    Annuncia("Per sapere che cosa c'e' in una casa scriverla, per esempio e4, poi ctrl + e.");
    return;
  }
  const uint64_t casa = uint64_t(comando[0] - 'a') + 8 * uint64_t('8' - comando[1]);
  SvuotaCampoComando();
  Composizione& c = NuovoAnnuncio();
  c.Testo(NomeCasa(casa).testo);
  c.Testo(": ");
  PezzoInParole(c, uint8_t(PezzoIn[casa]));
  c.Carattere('.');
  Annuncia();
}

void comando_FormularioIndietro() {
  if (ContatoreMosse <= TurnoIniziale) {
    Annuncia("Nessuna mossa nel formulario.");
    return;
  }
  if (!WalkValido()) {
    LeggiPly(ContatoreMosse);
    return;
  }
  if (PlyLetto <= TurnoIniziale + 1) {
    Suona(Tono::Pausa);
    LeggiPly(PlyLetto);
    return;
  }
  LeggiPly(PlyLetto - 1);
}

void comando_FormularioAvanti() {
  if (ContatoreMosse <= TurnoIniziale) {
    Annuncia("Nessuna mossa nel formulario.");
    return;
  }
  if (!WalkValido()) {
    LeggiPly(ContatoreMosse);
    return;
  }
  if (PlyLetto >= ContatoreMosse) {
    Suona(Tono::Fondo);
    LeggiPly(PlyLetto);
    return;
  }
  LeggiPly(PlyLetto + 1);
}
