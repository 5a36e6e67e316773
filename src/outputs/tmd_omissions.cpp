#include "outputs/tmd_omissions.h"

#include "project/project_view.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zb {

namespace {

// The sections of the document, in their order.
constexpr std::size_t kDispatch = 0;
constexpr std::size_t kReceived = 1;
constexpr std::size_t kSent = 2;
constexpr std::size_t kSequences = 3;

std::size_t childrenOfChildren(const XmlElement& section) {
    std::size_t count = 0;
    for (const XmlElement& child : section.children())
        count += child.children().size();
    return count;
}

// The items of a received message are in its only child.
std::size_t itemsIn(const XmlElement& received) {
    std::size_t count = 0;
    for (const XmlElement& message : received.children())
        count += childrenOfChildren(message);
    return count;
}

class Omissions {
public:
    void compare(std::size_t held, std::size_t all, const std::string& what) {
        if (held < all)
            texts_.push_back(std::to_string(held) + " of " + std::to_string(all) + " " + what);
    }
    std::vector<std::string> take() { return std::move(texts_); }

private:
    std::vector<std::string> texts_;
};

struct ModelCount {
    std::size_t received = 0;
    std::size_t sent = 0;
    std::size_t dispatched = 0;
    std::size_t items = 0; ///< of the received messages that the document holds
};

// A section ends at the first record that it cannot hold, so the document holds the first ones.
ModelCount countOf(const TRModelStore& model, int projectType, std::size_t receivedInDocument) {
    const int received = projectType == 1 ? kToHost : kToEquip;
    const int sent = projectType == 1 ? kToEquip : kToHost;
    ModelCount count;
    for (const auto& record : model.TRMessages()) {
        if (record->Direction() != sent)
            ++count.dispatched;
        else
            ++count.sent;
        if (record->Direction() != received)
            continue;
        if (count.received++ < receivedInDocument)
            count.items += record->TRItems().size();
    }
    return count;
}

} // namespace

std::vector<std::string> omissionsOf(const XmlElement& document, const ProjectView& project) {
    const auto& sections = document.children();
    const XmlElement& received = sections[kReceived];
    const ModelCount model = countOf(*project.model, projectTypeOf(project.side), received.children().size());
    const auto& rows = project.sequences.rows();
    const auto heads = static_cast<std::size_t>(
        std::count_if(rows.begin(), rows.end(), [](const SequenceRow& row) { return row.isHead(); }));

    Omissions omissions;
    omissions.compare(received.children().size(), model.received, "received messages");
    omissions.compare(sections[kSent].children().size(), model.sent, "sent messages");
    omissions.compare(childrenOfChildren(sections[kDispatch]), model.dispatched, "dispatch statements");
    omissions.compare(itemsIn(received), model.items, "items of received messages");
    omissions.compare(sections[kSequences].children().size(), heads, "sequences");
    omissions.compare(childrenOfChildren(sections[kSequences]), rows.size() - heads, "rows of sequences");
    return omissions.take();
}

} // namespace zb
