// The soak run of the game record (tests/comune/supporto/rodaggio.h) as a program: prints the
// figures and exits 1 on any unexpected report or broken rule.
//
//   pendrino_rodaggio [GAMES [SEED]]     10000 games from seed 1 by default
#include <cstdio>
#include <cstdlib>

#include "supporto/rodaggio.h"

int main(int argc, char** argv) {
  const unsigned long long partite = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 10000;
  const unsigned long long seme = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
  const EsitoRodaggio esito = Rodaggio(partite, seme);
  std::fputs(DescriviRodaggio(esito).c_str(), stdout);
  if (esito.guasti) {
    std::puts("FAILED: unexpected reports or broken rules");
    return 1;
  }
  return 0;
}
