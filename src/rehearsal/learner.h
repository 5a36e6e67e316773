#pragma once

#include "messages/libraries/published_layouts.h"
#include "messages/message_record.h"
#include "rehearsal/learned_item.h"
#include "rehearsal/recorded_message.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace zb::rehearsal {

/// Derives definitions from recorded messages: one for each distinct structure of a stream and function, with
/// variable counts where they varied, and the names of the published layouts.
class Learner {
public:
    Learner();

    /// Messages without readable data and control messages are passed over.
    void add(const RecordedMessage& message);
    /// The definitions in the order of stream and function.
    std::vector<SECSMessageRecord> records() const;
    /// Messages whose structure was one more than kMostStructures of its stream and function.
    std::size_t leftOut() const { return leftOut_; }

    static constexpr std::size_t kMostStructures = 500;

private:
    struct Structure {
        std::optional<LearnedItem> root;
        bool toHost = false;
        bool toEquip = false;
    };
    struct Key {
        int stream = 0;
        int function = 0;
        bool wait = false;
        auto operator<=>(const Key&) const = default; // NOLINT(modernize-use-nullptr): a false finding
    };
    struct Layout {
        PublishedLayout published;
        std::vector<LayoutShape> shapes;
    };
    const Layout* layoutOf(const Key& key) const;
    static const LayoutShape* shapeOf(const Layout* layout, const LearnedItem& item);
    static bool unite(Structure& structure, const std::optional<LearnedItem>& root, const Layout* layout);
    SECSMessageRecord recordOf(const Key& key, const Structure& structure,
                               std::set<std::string>& names) const;

    std::map<std::pair<int, int>, Layout> layouts_;
    std::map<Key, std::vector<Structure>> structures_;
    std::size_t leftOut_ = 0;
};

} // namespace zb::rehearsal
