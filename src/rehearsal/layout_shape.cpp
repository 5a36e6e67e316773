#include "rehearsal/layout_shape.h"

namespace zb::rehearsal {

namespace {

LayoutShape parseShape(std::string_view& rest) {
    LayoutShape shape;
    const auto passBlanks = [&rest] {
        while (rest.starts_with(' ') || rest.starts_with(','))
            rest.remove_prefix(1);
    };
    passBlanks();
    if (!rest.starts_with("L[") && !rest.starts_with("L*[")) {
        const std::size_t end = std::min(rest.find_first_of(",]"), rest.size());
        shape.name = rest.substr(0, end) == "-" ? std::string_view() : rest.substr(0, end);
        rest.remove_prefix(end);
        return shape;
    }
    shape.kind = rest[1] == '*' ? LayoutShape::Kind::Repeated : LayoutShape::Kind::Fixed;
    rest.remove_prefix(rest.find('[') + 1);
    for (passBlanks(); !rest.empty() && rest.front() != ']'; passBlanks())
        shape.members.push_back(parseShape(rest));
    rest.remove_prefix(rest.empty() ? 0 : 1);
    return shape;
}

} // namespace

std::string LayoutShape::firstName() const {
    if (kind == Kind::Item || members.empty())
        return name;
    return members.front().firstName();
}

LayoutShape parseLayout(std::string_view form) {
    return parseShape(form);
}

} // namespace zb::rehearsal
