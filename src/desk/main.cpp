// SPDX-License-Identifier: MIT
#include "desk/program.h"

int main(int argc, char** argv) {
    return onudesk::desk::runProgram(argc, argv);
}
