#include "generate/template_data.h"

#include <algorithm>

namespace zb::generate {

TemplateData& TemplateData::add(std::string_view listName) {
    addList(listName);
    for (auto& [name, list] : lists_) {
        if (name == listName)
            return list.emplace_back();
    }
    return lists_.back().second.emplace_back();
}

TemplateData& TemplateData::last(std::string_view listName) {
    const auto list = std::find_if(lists_.begin(), lists_.end(),
                                   [listName](const auto& named) { return named.first == listName; });
    return list->second.back();
}

void TemplateData::addList(std::string_view name) {
    if (list(name) == nullptr)
        lists_.emplace_back(name, std::deque<TemplateData>());
}

const std::string* TemplateData::text(std::string_view name) const {
    for (const auto& [ownName, text] : texts_) {
        if (ownName == name)
            return &text;
    }
    return nullptr;
}

const std::deque<TemplateData>* TemplateData::list(std::string_view name) const {
    for (const auto& [ownName, list] : lists_) {
        if (ownName == name)
            return &list;
    }
    return nullptr;
}

} // namespace zb::generate
