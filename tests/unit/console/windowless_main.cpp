#include "console/command_line.h"

#include <iostream>

// zbc with all verbs but `script`: the test of its symbols proves that they need no window.
int main(int argc, char** argv) {
    return zb::runConsole(zb::makeVerbs(), {argv + 1, argv + argc}, {std::cout, std::cerr});
}
