#include "plug_in.h"

#include <utility>

namespace ${package} {

namespace {

const std::vector<zelto::Sequence> kSequences{
//% each sequences
    {${nameLiteral},
     {
//% each steps
         ${step},
//% end
     }},
//% end
};

} // namespace

PlugIn::PlugIn(zelto::Transport& transport) : Link(transport, zelto::Side::${side}, kSequences) {}

//% each sentTypes
//% if isPrimary
std::uint32_t PlugIn::send${type}(const messages::${message}& message) {
    return sendPrimary(messages::${message}::kHead, message.encode(), transactions::${type}::kName);
}
//% else
void PlugIn::send${type}(const zelto::Header& primary, const messages::${message}& message) {
    sendReply(primary, messages::${message}::kHead, message.encode(), transactions::${type}::kName);
}
//% end

//% end
zelto::Finding PlugIn::dispatch(const zelto::Header& header, [[maybe_unused]] std::string_view body) {
    switch (zelto::functionCode(header.stream, header.function)) {
//% each functions
    case zelto::functionCode(${stream}, ${function}): {
//% each candidates
        if (auto message = messages::${message}::decode(body))
            return take(header, std::move(*message));
//% end
        return zelto::Finding::IllegalData;
    }
//% end
    default:
        break;
    }
    switch (header.stream) {
//% each streams
    case ${stream}:
//% end
//% if streams
        return zelto::Finding::UnknownFunction;
//% end
    default:
        return zelto::Finding::UnknownStream;
    }
}

//% each chains
zelto::Finding PlugIn::take([[maybe_unused]] const zelto::Header& header, [[maybe_unused]] messages::${message}&& message) {
//% if isAnswered
    setAnswerable(${nameLiteral});
//% end
//% each chain
    if (transactions::${type}::applies(message)) {
        const transactions::${type} received(header, std::move(message));
        tell(received, ${nameLiteral});
        on${type}(received);
        return zelto::Finding::Taken;
    }
//% end
    return zelto::Finding::NoTransaction;
}

//% end
template<typename Transaction>
void PlugIn::tell(const Transaction& received, const char* message) {
    track(Transaction::kName);
    onReceived({received.header, message, Transaction::kName, received.items, Transaction::kIsReported});
}

bool PlugIn::answer([[maybe_unused]] const zelto::Header& primary, [[maybe_unused]] std::string_view message) {
//% each answers
    if (message == ${nameLiteral}) {
        sendReply(primary, messages::${reply}::kHead, messages::${reply}().encode(), {});
        return true;
    }
//% end
    return false;
}

} // namespace ${package}
