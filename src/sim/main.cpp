// SPDX-License-Identifier: MIT
#include "sim/program.h"

int main(int count, char** arguments) {
    // Without a name there are no arguments either.
    const int skipped = count > 0 ? 1 : 0;
    return static_cast<int>(onudesk::sim::runSimulator(count - skipped, arguments + skipped));
}
