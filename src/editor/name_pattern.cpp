#include "editor/name_pattern.h"

#include "platform/text.h"

#include <array>
#include <utility>

namespace zb {

std::optional<std::string> nameByPattern(std::string_view pattern, const NameParts& parts) {
    const std::array<std::pair<std::string_view, std::string>, 6> words{{{"name", parts.name},
                                                                         {"upper", upper(parts.name)},
                                                                         {"lower", lower(parts.name)},
                                                                         {"stream", parts.stream},
                                                                         {"function", parts.function},
                                                                         {"type", parts.type}}};
    std::string made;
    while (!pattern.empty()) {
        const std::size_t brace = pattern.find_first_of("{}");
        made += pattern.substr(0, brace);
        if (brace == std::string_view::npos)
            return made;
        const std::size_t end = pattern.find('}', brace);
        if (pattern[brace] == '}' || end == std::string_view::npos)
            return std::nullopt;
        const std::string_view word = pattern.substr(brace + 1, end - brace - 1);
        bool known = false;
        for (const auto& [name, text] : words) {
            if (name != word)
                continue;
            made += text;
            known = true;
        }
        if (!known)
            return std::nullopt;
        pattern.remove_prefix(end + 1);
    }
    return made;
}

} // namespace zb
