// SPDX-License-Identifier: MIT
#include "sim/program.h"

#include <algorithm>

int main(int count, char** arguments) {
    // Without a name there are no arguments either.
    return static_cast<int>(
        onudesk::sim::runSimulator({arguments + std::min(count, 1), arguments + count}));
}
