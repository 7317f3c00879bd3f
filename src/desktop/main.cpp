#include "desktop/run_halvern.h"

// The program takes no command line; what stands there is passed over.
int main(int /*argc*/, char** argv) { return halvern::RunHalvern(argv[0]); }
