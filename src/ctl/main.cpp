// SPDX-License-Identifier: MIT
#include "ctl/program.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    return onudesk::ctl::runProgram(std::vector<std::string>(argv + 1, argv + argc), std::cout,
                                    std::cerr);
}
