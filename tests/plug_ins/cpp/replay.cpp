// Gives recorded messages to the plug-in of the etcher and prints what it makes of each: on a line the
// message, the transaction and the items, separated by tabs. Standard input has the bytes of one message a
// line, in hex.
#include "equipment/ZeltoPlugIn/cpp/plug_in.h"

#include <cstdio>
#include <iostream>

namespace {

class Tool final : public etcher::PlugIn {
public:
    using PlugIn::PlugIn;
    std::string line;

protected:
    void onReceived(const zelto::Report& report) override {
        line = std::string(report.message) + "\t" + report.transaction;
        for (const zelto::TransactionItem& item : report.items)
            line += std::string("\t") + item.name + "=" + (item.isMissing ? "(missing)" : item.text);
    }
    void onUnknown(const zelto::Header&, std::string_view, zelto::Finding finding) override {
        line = finding == zelto::Finding::NoTransaction ? "no transaction" : "no message";
    }
};

std::string bytesOf(const std::string& hex) {
    std::string bytes;
    for (std::size_t at = 0; at + 1 < hex.size(); at += 2)
        bytes += static_cast<char>(std::stoi(hex.substr(at, 2), nullptr, 16));
    return bytes;
}

} // namespace

int main() {
    zelto::Loopback loopback;
    Tool tool(loopback.equipment());
    tool.setDeviceId(1);
    for (std::string hex; std::getline(std::cin, hex);) {
        const std::string bytes = bytesOf(hex);
        const auto header = zelto::Header::fromBytes(bytes);
        if (!header)
            return 1;
        tool.line.clear();
        loopback.equipment().receive(*header, std::string_view(bytes).substr(10));
        std::cout << tool.line << '\n';
    }
    return 0;
}
