#include "aiuti.h"

#include <algorithm>

#include "board/fen.h"
#include "board/geometria.h"
#include "board/mossa.h"
#include "diagnostics/perft.h"
#include "moves/genera.h"
#include "moves/registro.h"
#include "moves/tavole.h"
#include "supporto/tabelle.h"

bool Carica(const char* fen) {
  InizializzaTabelleUnaVolta();
  SvuotaScacchiera();
  return CaricaPosizioneDaStringaFen(fen) == 1;
}

std::vector<uint64_t> GeneraCon(Generatore genera) {
  uint64_t buffer[DIMENSIONE_BUFFER_MOSSE];
  uint64_t* fine = genera(buffer);
  return std::vector<uint64_t>(buffer, fine);
}

std::vector<uint64_t> Candidate() { return GeneraCon(genera_mosse_del[AlTratto()]); }

int Fai(uint64_t mossa) {
  SalvaParolePosizione();
  return fai_mossa[AlTratto()][TipoMossa(mossa)](mossa);
}

void Ritira() {
  const uint64_t mossa = ElencoMosse[ContatoreMosse];
  // The last move was made by the side not to move.
  ritira_mossa[~AlTratto()][TipoMossa(mossa)](mossa);
}

std::string Coordinate(uint64_t mossa) {
  char testo[8];
  ScriviMossaCoordinate(mossa, testo);
  return testo;
}

uint64_t Trova(const std::string& coordinate) {
  for (uint64_t m : Candidate())
    if (Coordinate(m) == coordinate) return m;
  return 0;
}

bool Gioca(const std::string& coordinate) {
  const uint64_t m = Trova(coordinate);
  return m != 0 && Fai(m) == 1;
}

std::vector<uint64_t> Legali() {
  std::vector<uint64_t> legali;
  for (uint64_t m : Candidate()) {
    if (Fai(m)) {
      legali.push_back(m);
      Ritira();
    }
  }
  return legali;
}

uint64_t ScacchiDaZero() {
  const Colore c = AlTratto(), n = ~c;
  const uint64_t re = casa_re[c];
  const uint64_t occ = btm_occupazione;
  return (btm_pezzi[n][PEDONE] & MscBersagliPedone_da[c][re]) |
         (btm_pezzi[n][CAVALLO] & MascheraMobilita_cavallo_in[re]) |
         ((btm_pezzi[n][ALFIERE] | btm_pezzi[n][DONNA]) & AttacchiAlfiere(re, occ)) |
         ((btm_pezzi[n][TORRE] | btm_pezzi[n][DONNA]) & AttacchiTorre(re, occ));
}

std::string ControllaScacchi() {
  const uint64_t primo = PrimoScacco(InfoPosizione), secondo = SecondoScacco(InfoPosizione);
  uint64_t campi = 0;
  if (primo != NESSUNA_CASA) campi |= 1ull << primo;
  if (secondo != NESSUNA_CASA) campi |= 1ull << secondo;
  const uint64_t veri = ScacchiDaZero();
  if (primo != NESSUNA_CASA && primo == secondo)
    return "the same checker in both fields: " + std::to_string(primo);
  if ((primo != NESSUNA_CASA && primo > 63) || (secondo != NESSUNA_CASA && secondo > 63))
    return "a checker field out of range";
  if (campi != veri)
    return "fields " + std::to_string(primo) + "," + std::to_string(secondo) + " but checkers " +
           std::to_string(veri);
  return "";
}

std::string ControllaCoerenza() {
  std::string errori;
  uint64_t viste[2] = {0, 0};
  for (int c = 0; c < 2; ++c) {
    for (int k = 0; k < 5; ++k) {
      const uint64_t* lista = ListaDi(c, k);
      const uint64_t n = NumeroPezzi(materiale[c], k);
      if (n > uint64_t(CapienzaLista[k])) {
        errori += "count over capacity; ";
        continue;
      }
      uint64_t insieme = 0;
      for (uint64_t i = 0; i < n; ++i) {
        const uint64_t s = lista[i];
        if (s > 63 || PezzoIn[s] != CodicePezzo(TipoPezzo(k), Colore(c), i))
          errori += "slot " + std::to_string(i) + " of kind " + std::to_string(k) + "; ";
        else
          insieme |= 1ull << s;
      }
      if (insieme != btm_pezzi[c][k]) errori += "bitboard of kind " + std::to_string(k) + "; ";
      viste[c] |= insieme;
    }
    if (PezzoIn[casa_re[c]] != CodicePezzo(RE, Colore(c), 0)) errori += "king code; ";
    viste[c] |= 1ull << casa_re[c];
    if (viste[c] != btm_colore[c]) errori += "colour bitboard; ";
  }
  if ((viste[0] | viste[1]) != btm_occupazione) errori += "occupancy; ";
  for (int s = 0; s < 64; ++s)
    if (PezzoIn[s] != CASA_VUOTA && !(btm_occupazione >> s & 1)) errori += "stray code; ";
  if (PezzoIn[64] != CASA_VUOTA) errori += "sentinel; ";
  const uint64_t m = materiale[0], n = materiale[1];
  for (uint64_t w : {m, n}) {
    const uint64_t minori = NumeroPezzi(w, CAVALLO) + NumeroPezzi(w, ALFIERE);
    const uint64_t pesanti = NumeroPezzi(w, TORRE) + 2 * NumeroPezzi(w, DONNA);
    const uint64_t punti = 3 * minori + 5 * NumeroPezzi(w, TORRE) + 9 * NumeroPezzi(w, DONNA);
    if (((w >> 40) & 0xFF) != minori || ((w >> 48) & 0xFF) != pesanti || (w >> 56) != punti)
      errori += "material bytes; ";
  }
  return errori;
}
