#include "console/difference_json.h"

#include "platform/printable.h"

#include <ostream>

namespace zb {

using Json = nlohmann::ordered_json;

Json jsonOf(const Difference& difference) {
    return {{"kind", wordOf(difference.kind)},  {"change", wordOf(difference.change)},
            {"name", difference.place.name},    {"path", difference.place.path},
            {"field", difference.field},        {"before", jsonOf(difference.before)},
            {"after", jsonOf(difference.after)}};
}

Json jsonOf(const std::optional<std::string>& text) {
    return text ? Json(*text) : Json(nullptr);
}

void printJsonLine(std::ostream& out, const Json& line) {
    out << printableJson(line.dump(-1, ' ', false, Json::error_handler_t::replace)) << '\n';
}

} // namespace zb
