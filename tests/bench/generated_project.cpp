#include "bench/generated_project.h"

#include <malloc.h>
#include <sstream>
#include <sys/resource.h>

namespace zb::bench {

std::string messageName(std::size_t number) {
    return "Message" + std::to_string(number);
}

std::string projectText(std::size_t messages) {
    std::ostringstream text;
    text << "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n";
    for (std::size_t number = 1; number <= messages; ++number) {
        text << "* Report " << number << " of the equipment\r\n"
             << messageName(number) << ": S" << number % 20 + 1 << " F" << number % 120 * 2 + 1
             << " W H<-E\r\n    U4 1 DATAID 0\r\n    U4 1 CEID " << number << "\r\n    L 3\r\n";
        for (int report = 1; report <= 3; ++report)
            text << "        L 5\r\n            U4 1 RPTID" << report << ' ' << report
                 << "\r\n            A 16V PPID" << report << " 'RECIPE-1'\r\n            F4 1 PRESSURE"
                 << report << " 12.5\r\n            BOOLEAN 1 DOOR" << report
                 << " True\r\n            U2 3 SLOTS" << report << " 1 2 3\r\n";
        text << "    A 6 MDLN 'HLVFAB'.\r\n";
    }
    return text.str();
}

std::string changedText(std::size_t messages, std::size_t first) {
    std::string text = projectText(messages);
    const std::size_t step = messages / 100;
    for (std::size_t change = 0; change < 100; ++change) {
        const std::string number = std::to_string(first + change * step);
        const std::size_t head = text.find("* Report " + number + " of");
        switch (change % 4) {
        case 0:
            text.insert(head + 2, "A ");
            break;
        case 1:
            text.insert(text.find("PRESSURE1 12.5", head) + 13, "7");
            break;
        case 2:
            text.insert(text.find("    U4 1 CEID", head), "    U1 1 NEW 0\r\n");
            break;
        default:
            text.erase(head, text.find("* Report", head + 1) - head);
            break;
        }
    }
    return text;
}

std::size_t peakMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

std::size_t allocatedMemory() {
    const struct mallinfo2 use = mallinfo2();
    return use.uordblks + use.hblkhd;
}

} // namespace zb::bench
