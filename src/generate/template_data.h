#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zb::generate {

/// What a template is filled with: named texts, and named lists of the same. Names are those of string
/// literals; they are not copied.
class TemplateData {
public:
    void set(std::string_view name, std::string text) { texts_.emplace_back(name, std::move(text)); }
    /// A name that is only asked for by "if": true is the text "true", false an empty text.
    void setFlag(std::string_view name, bool flag) { set(name, flag ? "true" : ""); }
    /// Appends an element to a list, which is created by its first element. The reference is valid until the
    /// next element of the same list is added.
    TemplateData& add(std::string_view listName);
    /// The element of a list that was added last. There is one.
    TemplateData& last(std::string_view listName);
    /// Creates an empty list, so that a template may ask for it.
    void addList(std::string_view name);

    /// Null when there is none of this name.
    /// @{
    const std::string* text(std::string_view name) const;
    const std::deque<TemplateData>* list(std::string_view name) const;
    /// @}

private:
    std::vector<std::pair<std::string_view, std::string>> texts_;
    std::vector<std::pair<std::string_view, std::deque<TemplateData>>> lists_;
};

} // namespace zb::generate
