// A plug-in at work: it prints what passes, over a loopback in place of a link.
#include "plug_in.h"

#include <cstdio>

namespace {

class Handlers final : public ${package}::PlugIn {
public:
    using PlugIn::PlugIn;

protected:
    void onReceived(const zelto::Report& report) override {
        std::printf("%s (%s)\n", report.transaction, report.message);
        for (const zelto::TransactionItem& item : report.items)
            std::printf("    %s = %s\n", item.name, item.isMissing ? "(missing)" : item.text.c_str());
    }
    void onDeviation(const zelto::Deviation& deviation) override {
        std::printf("    %s %s\n", deviation.transaction.c_str(),
                    deviation.restarts ? "begins its sequence again" : "is out of sequence");
    }
    void onUnknown(const zelto::Header& header, std::string_view, zelto::Finding) override {
        std::printf("S%dF%d is no transaction\n", header.stream, header.function);
    }
};

void printSent(bool toHost, const zelto::Header& header, std::string_view body) {
    std::printf("%s S%dF%d%s, %zu bytes\n", toHost ? "H<-E" : "H->E", header.stream, header.function,
                header.wait ? " W" : "", body.size());
}

} // namespace

int main() {
    zelto::Loopback loopback;
    loopback.onSend = printSent;
    Handlers plugIn(loopback.${sideEnd}());
//% each sentTypes
//% if isPrimary
    plugIn.send${type}();
//% end
//% end
//% each examples
    loopback.${otherEnd}().send({0, ${stream}, ${function}, ${wait}, ${number}},
                                ${package}::messages::${type}().encode());
//% end
    loopback.deliver();
    std::printf("%zu replies are open\n", plugIn.openTransactions());
    return 0;
}
