#include "run_grubtool.h"

// Commands report every failure themselves; what still escapes is a mistake in here, and shall end loudly.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) { return grub::runGrubtool({argv + 1, argv + argc}); }
