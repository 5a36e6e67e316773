// Small messages are decoded and dispatched faster than any link carries them: more than a million a second
// on one core.
#include "equipment/ZeltoPlugIn/cpp/plug_in.h"

#include <cstdio>
#include <ctime>

namespace {

class Tool final : public etcher::PlugIn {
public:
    using PlugIn::PlugIn;
    long received = 0;

protected:
    void onReceived(const zelto::Report&) override { ++received; }
};

} // namespace

int main() {
    constexpr long kMessages = 2'000'000;
    constexpr double kLeast = 1'000'000;
    zelto::Loopback loopback;
    Tool tool(loopback.equipment());
    const std::string body = etcher::messages::EventReportAck().encode();
    const zelto::Header header{0, 6, 12, false, 1};
    const std::clock_t start = std::clock(); // processor time, so that a busy machine changes little
    for (long count = 0; count < kMessages; ++count)
        loopback.equipment().receive(header, body);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    const double rate = static_cast<double>(tool.received) / seconds;
    std::printf("%.0f messages a second\n", rate);
    return tool.received == kMessages && rate > kLeast ? 0 : 1;
}
