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

int checkDimension(const SECSMessageRecord& message, std::string_view name) {
    int result = 0;
    int depth = 0;
    int lastLevel = 0;
    for (const SECSItemRecord& item : message.getItems()) {
        if (item.getType() == "L" && !item.isFixed()) {
            const int level = item.getLevel();
            if (level > lastLevel)
                ++depth;
            else if (level < lastLevel)
                --depth;
            lastLevel = level;
        }
        if (item.getName() == name)
            result = depth;
    }
    return result;
}

} // namespace zb
