// Checks the generated code itself: every message is what its bytes say.
#include "plug_in.h"

#include <cstdio>

namespace {

int faults = 0;

void expect(bool isTrue, const char* message, const char* what) {
    if (isTrue)
        return;
    ++faults;
    std::printf("%s: %s\n", message, what);
}

template<typename Message>
void check(const Message& message, const char* name) {
    const std::string bytes = message.encode();
    const auto decoded = Message::decode(bytes);
    expect(decoded.has_value(), name, "its own bytes are refused");
    expect(decoded && decoded->encode() == bytes, name, "its bytes change");
    expect(decoded && decoded->toSml() == message.toSml(), name, "its items change");
    expect(!Message::decode(bytes + '\0'), name, "a byte too many is taken");
    expect(bytes.empty() || !Message::decode(bytes.substr(0, bytes.size() - 1)), name, "a missing byte is taken");
    expect(message.toSml().empty() == bytes.empty(), name, "its items are not written");
}

} // namespace

int main() {
//% each types
//% if isDecodable
    check(${package}::messages::${type}(), ${nameLiteral});
//% end
//% end
//% each sentTypes
//% if isDecodable
    check(${package}::transactions::${type}::message(), ${package}::transactions::${type}::kName);
//% end
//% end
    zelto::Loopback loopback;
    ${package}::PlugIn plugIn(loopback.${sideEnd}());
    // A message of a stream that nobody defines, for which an equipment has an answer.
    loopback.${otherEnd}().send({0, 127, 1, false, 1}, {});
    expect(loopback.deliver() == 1U + ${strayAnswers}, "stream 127", "the answer is not the one of this side");
    std::printf("%d faults\n", faults);
    return faults == 0 ? 0 : 1;
}
