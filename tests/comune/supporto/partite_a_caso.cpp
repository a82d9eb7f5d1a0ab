#include "supporto/partite_a_caso.h"

#include "board/attacchi.h"
#include "board/mossa.h"
#include "board/posizione.h"
#include "moves/genera.h"
#include "moves/tavole.h"

namespace partite_a_caso {

bool SottoScacco() {
  const Colore lato = AlTratto();
  return lato == BIANCO ? attaccano_pezzi<NERO>(casa_re[BIANCO])
                        : attaccano_pezzi<BIANCO>(casa_re[NERO]);
}

std::string NotazioneAttesa(uint64_t mossa) {
  const uint64_t tipo = TipoMossa(mossa);
  if (tipo == ARROCCO_CORTO) return "0-0";
  if (tipo == ARROCCO_LUNGO) return "0-0-0";
  const uint64_t o = OrigineMossa(mossa), d = DestinazioneMossa(mossa);
  const uint32_t pezzo = TipoPezzoMossa[tipo];
  const bool cattura = PezzoIn[d] != CASA_VUOTA || tipo == CATTURA_ENPASSANT;
  const std::string partenza = Coordinate(mossa).substr(0, 2);
  const std::string arrivo = Coordinate(mossa).substr(2, 2);
  std::string t;
  if (pezzo == PEDONE) {
    if (cattura) t = partenza.substr(0, 1) + "x";
  } else if (pezzo == RE) {
    t = cattura ? "Kx" : "K";
  } else {
    bool altre = false, stessa_colonna = false, stessa_traversa = false;
    for (const uint64_t* p = BufferMosseGenerate; p < FineMosseGenerate; ++p) {
      const uint64_t a = OrigineMossa(*p);
      if (a == o || DestinazioneMossa(*p) != d || TipoPezzoMossa[TipoMossa(*p)] != pezzo) continue;
      altre = true;
      stessa_colonna |= (a & 7) == (o & 7);
      stessa_traversa |= (a >> 3) == (o >> 3);
    }
    if (!altre)
      t = std::string(1, "PNBRQK"[pezzo]);
    else if (!stessa_colonna)
      t = std::string(1, "PNBRQK"[pezzo]) + partenza[0];
    else if (!stessa_traversa)
      t = std::string(1, "PNBRQK"[pezzo]) + partenza[1];
    else
      t = partenza;
    if (cattura) t += 'x';
  }
  t += arrivo;
  const uint32_t promozione = TipoPromozioneMossa[tipo];
  if (promozione != 255) t += std::string("=") + "PNBRQK"[promozione];
  return t;
}

int Dado::Occorrenze() const {
  int n = 0;
  for (size_t k = chiavi.size() - 1; k >= 2;) {
    k -= 2;
    if (chiavi[k] == ChiaveHash) ++n;
  }
  return n;
}

uint64_t Dado::Scegli() {
  return ScegliMossa([this](uint64_t n) { return Caso(n); }, 0);
}

bool Dado::RitiriACaso(const std::function<void()>& ritira, bool (*fallito)()) {
  if (ContatoreMosse == 0 || Caso(20) != 0) return false;
  for (uint64_t r = 1 + Caso(3); r > 0 && ContatoreMosse > 0; --r) {
    ritira();
    if (fallito()) break;
  }
  return true;
}

}  // namespace partite_a_caso
