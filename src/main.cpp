#include "console/avvio.h"

int main(int argc, char** argv) { return pendrino_main(argc, argv); }
