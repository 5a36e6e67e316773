#include "model/data_item_address.h"

#include "messages/message_record.h"
#include "platform/text.h"

namespace zb {

std::string DataItemAddress::name() const {
    return trim(before(text_, "["));
}

std::vector<std::string> DataItemAddress::indexes() const {
    const std::string_view text = trimmed(text_);
    const std::size_t opening = text.find('[');
    if (opening == std::string_view::npos || text.back() != ']')
        return {};
    return split(text.substr(opening + 1, text.size() - opening - 2), ";");
}

namespace {

/// The lists without a count around the current item of a walk.
class OpenLists {
public:
    void pass(const SECSItemRecord& item) {
        if (item.getType() != "L" || item.isFixed())
            return;
        const int level = item.getLevel();
        if (level > lastLevel_) {
            ++depth_;
            names_.emplace_back();
        } else if (level < lastLevel_) {
            --depth_;
            if (!names_.empty())
                names_.pop_back();
        }
        if (!names_.empty())
            names_.back() = item.getName();
        lastLevel_ = level;
    }

    int depth() const { return depth_; }
    const std::vector<std::string>& names() const { return names_; }

private:
    int depth_ = 0;
    int lastLevel_ = 0;
    std::vector<std::string> names_;
};

} // namespace

int checkDimension(const SECSMessageRecord& message, std::string_view name) {
    int result = 0;
    OpenLists lists;
    for (const SECSItemRecord& item : message.getItems()) {
        lists.pass(item);
        if (item.getName() == name)
            result = lists.depth();
    }
    return result;
}

std::vector<std::string> listsAround(const SECSMessageRecord& message, std::string_view name) {
    std::vector<std::string> names;
    OpenLists lists;
    for (const SECSItemRecord& item : message.getItems()) {
        lists.pass(item);
        if (item.getName() == name)
            names = lists.names();
    }
    return names;
}

} // namespace zb
