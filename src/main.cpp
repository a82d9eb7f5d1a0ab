#include "console/avvio.h"
#include "console/politica_interfaccia.h"

int main(int argc, char** argv) {
  InstallaPoliticaInterfaccia();
  return pendrino_main(argc, argv);
}
