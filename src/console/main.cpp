#include "console/cli/command_line.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    const zb::ConsoleStreams streams{std::cout, std::cerr};
    try {
        return zb::runConsole({argv + 1, argv + argc}, streams);
    } catch (const std::exception& fault) {
        std::cerr << "zbc: " << fault.what() << '\n';
        return zb::kExitFileFault;
    }
}
