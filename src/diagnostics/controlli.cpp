#include "diagnostics/controlli.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "board/arrocco.h"
#include "board/mossa.h"
#include "diagnostics/stampa.h"
#include "diagnostics/uscita.h"
#include "moves/tavole.h"

RecordControlloPosizione ReportControlloPosizione;

namespace {

// The helpers' names are part of their report lines.
const char* const NomeControllo[2][6] = {
    {"ControllaPosizione_pedone_bianco", "ControllaPosizione_cavallo_bianco",
     "ControllaPosizione_alfiere_bianco", "ControllaPosizione_torre_bianco",
     "ControllaPosizione_donna_bianco", "ControllaPosizione_re_bianco"},
    {"ControllaPosizione_pedone_nero", "ControllaPosizione_cavallo_nero",
     "ControllaPosizione_alfiere_nero", "ControllaPosizione_torre_nero",
     "ControllaPosizione_donna_nero", "ControllaPosizione_re_nero"}};

// A corrupted list may hold anything; the report must still be printable.
const char* TestoCasa(uint64_t casa) { return casa < 64 ? StringaCasa[casa] : "??"; }

const char* NomeTipo(uint64_t mossa) {
  uint64_t tipo = TipoMossa(mossa);
  return tipo < NUMERO_TIPI_MOSSA ? StringaTipoMossa[tipo] : "??";
}

// Appends to the report, dropping what does not fit.
[[gnu::format(printf, 1, 2)]] void AggiungiAlReport(const char* formato, ...) {
  RecordControlloPosizione& r = ReportControlloPosizione;
  size_t resto = sizeof r.testo - r.LunghezzaTesto;
  if (resto <= 1) return;
  va_list argomenti;
  va_start(argomenti, formato);
  int scritti = vsnprintf(r.testo + r.LunghezzaTesto, resto, formato, argomenti);
  va_end(argomenti);
  if (scritti > 0) r.LunghezzaTesto += uint32_t(std::min(size_t(scritti), resto - 1));
}

// The label of each castling whose piece keys disagree with its constant,
// [colour][0 king side, 1 queen side].
const char* const EtichettaArrocco[2][2] = {{"errore11", "errore12"}, {"errore13", "errore14"}};

}  // namespace

const TabelleChiavi TabelleChiaviDelProgramma = {hash_in, HashSpostaPedone_in, HashSpostaPedone2In,
                                                 HashCatturaEnpassantIn};

void ControllaChiaviHash(const TabelleChiavi& tabelle) {
  const uint64_t* bianco = tabelle.base[BIANCO][PEDONE];
  const uint64_t* nero = tabelle.base[NERO][PEDONE];
  const uint64_t* sposta2 = tabelle.sposta_pedone2;
  const uint64_t* enpassant = tabelle.cattura_enpassant;
  for (int t = 32; t <= 39; ++t) {
    if (sposta2[t] != (bianco[t] ^ bianco[t + 16])) ScriviDiagnostica("errore1\n");
    if (enpassant[t] != (nero[t + 8] ^ bianco[t])) ScriviDiagnostica("errore2\n");
  }
  for (int t = 24; t <= 31; ++t) {
    if (sposta2[t] != (nero[t] ^ nero[t - 16])) ScriviDiagnostica("errore3\n");
    if (enpassant[t] != (bianco[t - 8] ^ nero[t])) ScriviDiagnostica("errore4\n");
  }
  for (int t = 8; t <= 47; ++t)
    if (tabelle.sposta_pedone[BIANCO][t] != (bianco[t] ^ bianco[t + 8]))
      ScriviDiagnostica("errore5\n");
  for (int t = 16; t <= 55; ++t)
    if (tabelle.sposta_pedone[NERO][t] != (nero[t] ^ nero[t - 8])) ScriviDiagnostica("errore6\n");
  for (int c = 0; c < 2; ++c)
    for (int lungo = 0; lungo < 2; ++lungo) {
      const Arrocco& a = Arrocchi[c][lungo];
      const uint64_t* re = tabelle.base[c][RE];
      const uint64_t* torre = tabelle.base[c][TORRE];
      if ((re[a.re] ^ re[a.re_arrivo] ^ torre[a.torre] ^ torre[a.torre_arrivo]) != a.chiave_pezzi)
        ScriviDiagnostica("%s\n", EtichettaArrocco[c][lungo]);
    }
}

template <Colore C, TipoPezzo K>
void ControllaPosizione_pezzo() {
  RecordControlloPosizione& r = ReportControlloPosizione;
  const char* nome = NomeControllo[C][K];
  if constexpr (K == RE) {
    constexpr uint64_t codice = CodicePezzo(RE, C, 0);
    uint64_t casa = casa_re[C];
    if (PezzoIn[std::min<uint64_t>(casa, 64)] != codice)
      AggiungiAlReport("(PezzoIn[CasaMioRe] != MioRe) - %s in %s\n", nome, TestoCasa(casa));
    if (casa >= 64 || !(btm_colore[C] & (1ull << casa)))
      AggiungiAlReport("(!(BitmapMieiPezzi & (1ull<<CasaMioRe))) %s in %s\n", nome,
                       TestoCasa(casa));
    if (casa < 64) {
      r.ChiaveRicalcolata ^= hash_in[C][RE][casa];
      r.CaseViste ^= 1ull << casa;
    }
    r.ChiaveRicalcolata ^= ChiaveDiritti(InfoPosizione & DirittiDel(C));
  } else {
    const uint64_t* lista = casa_di<K>(C);
    uint64_t n = NumeroPezzi(materiale[C], K);
    if (n > uint64_t(CapienzaLista[K])) {
      AggiungiAlReport("(NumeroPezzi > CapienzaLista) %s\n", nome);
      n = CapienzaLista[K];
    }
    uint64_t insieme = 0, ultima = 0;
    for (uint64_t i = 0; i < n; ++i) {
      uint64_t casa = lista[i];
      ultima = casa;
      if (casa >= 64) {
        AggiungiAlReport("%s in %s\n", nome, TestoCasa(casa));
        continue;
      }
      insieme |= 1ull << casa;
      if (PezzoIn[casa] != CodicePezzo(K, C, i))
        AggiungiAlReport("%s in %s\n", nome, TestoCasa(casa));
      uint64_t chiave = hash_in[C][K][casa];
      r.ChiaveRicalcolata ^= chiave;
      r.CaseViste ^= 1ull << casa;
      if constexpr (K == PEDONE) r.HashPedoniRicalcolata ^= chiave;
    }
    if (btm_pezzi[C][K] != insieme)
      AggiungiAlReport("(BitmapMioPezzo != btm) %s in %s\n", nome, TestoCasa(ultima));
    if ((btm_colore[C] & insieme) != insieme)
      AggiungiAlReport("((BitmapMieiPezzi&btm) != btm) %s in %s\n", nome, TestoCasa(ultima));
  }
}

void ControllaPosizione_pedone_bianco() { ControllaPosizione_pezzo<BIANCO, PEDONE>(); }
void ControllaPosizione_cavallo_bianco() { ControllaPosizione_pezzo<BIANCO, CAVALLO>(); }
void ControllaPosizione_alfiere_bianco() { ControllaPosizione_pezzo<BIANCO, ALFIERE>(); }
void ControllaPosizione_torre_bianco() { ControllaPosizione_pezzo<BIANCO, TORRE>(); }
void ControllaPosizione_donna_bianco() { ControllaPosizione_pezzo<BIANCO, DONNA>(); }
void ControllaPosizione_re_bianco() { ControllaPosizione_pezzo<BIANCO, RE>(); }
void ControllaPosizione_pedone_nero() { ControllaPosizione_pezzo<NERO, PEDONE>(); }
void ControllaPosizione_cavallo_nero() { ControllaPosizione_pezzo<NERO, CAVALLO>(); }
void ControllaPosizione_alfiere_nero() { ControllaPosizione_pezzo<NERO, ALFIERE>(); }
void ControllaPosizione_torre_nero() { ControllaPosizione_pezzo<NERO, TORRE>(); }
void ControllaPosizione_donna_nero() { ControllaPosizione_pezzo<NERO, DONNA>(); }
void ControllaPosizione_re_nero() { ControllaPosizione_pezzo<NERO, RE>(); }

void ControllaPosizione(int dopo_ritira) {
  RecordControlloPosizione& r = ReportControlloPosizione;
  memset(&r, 0, sizeof r);
  ControllaPosizione_pedone_bianco();
  ControllaPosizione_cavallo_bianco();
  ControllaPosizione_alfiere_bianco();
  ControllaPosizione_torre_bianco();
  ControllaPosizione_donna_bianco();
  ControllaPosizione_re_bianco();
  ControllaPosizione_pedone_nero();
  ControllaPosizione_cavallo_nero();
  ControllaPosizione_alfiere_nero();
  ControllaPosizione_torre_nero();
  ControllaPosizione_donna_nero();
  ControllaPosizione_re_nero();

  // A corrupted counter must not index past the record.
  if (ContatoreMosse < MAX_SEMIMOSSE) r.ChiaveRicalcolata ^= ChiavePermessoEnpassant(InfoPosizione);

  if (r.ChiaveRicalcolata != ChiaveHash) AggiungiAlReport("chiave hash scorretta\n");
  if (r.HashPedoniRicalcolata != HashPedoni) AggiungiAlReport("hash pedoni scorretta\n");
  for (uint64_t casa = 0; casa < 64; ++casa)
    if (!(r.CaseViste & (1ull << casa)) && PezzoIn[casa] != CASA_VUOTA)
      AggiungiAlReport("nella casa %s non dovrebbe esserci %d\n", StringaCasa[casa],
                       int(TipoDelCodice(PezzoIn[casa])));

  if (r.LunghezzaTesto == 0) return;
  ScriviDiagnostica("Errore!\n %s\n", r.testo);
  // After an unmake the move just taken back lies one entry beyond the counter.
  uint64_t semimossa = dopo_ritira ? ContatoreMosse + 1 : ContatoreMosse;
  if (dopo_ritira)
    ScriviDiagnostica("DopoRitiraMossa %d ", int(semimossa));
  else
    ScriviDiagnostica("DopoFaiLaMossa %d ", int(semimossa));
  uint64_t mossa = semimossa < MAX_SEMIMOSSE ? ElencoMosse[semimossa] : MOSSA_NULLA;
  ScriviDiagnostica("%s, %s%s\n", NomeTipo(mossa), StringaCasa[OrigineMossa(mossa)],
                    StringaCasa[DestinazioneMossa(mossa)]);
  DisegnaScacchieraDiagnostica();
}
