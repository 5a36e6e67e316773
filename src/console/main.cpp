#include "console/command_line.h"
#include "console/script_verb.h"
#include "platform/printable.h"
#include "platform/process_signals.h"
#include "platform/standard_descriptors.h"
#include "platform/terminal.h"

#include <exception>
#include <iostream>
#include <new>

int main(int argc, char** argv) {
    zb::fillStandardDescriptors();
    zb::letLargeWritesFail();
    const zb::ConsoleStreams streams{std::cout, std::cerr, zb::wantsColours()};
    try {
        zb::Verbs verbs = zb::makeVerbs();
        verbs.push_back(zb::makeScriptVerb());
        const int status = zb::runConsole(verbs, {argv + 1, argv + argc}, streams);
        if (std::cout.flush())
            return status;
        std::cerr << "zbc: standard output cannot be written\n";
        return zb::kExitFileFault;
    } catch (const std::bad_alloc&) {
        std::cerr << "zbc: there is not enough memory for this\n";
        return zb::kExitFileFault;
    } catch (const std::exception& fault) {
        std::cerr << "zbc: " << zb::printable(fault.what()) << '\n';
        return zb::kExitFileFault;
    }
}
