#include "messages/libraries/published_layouts.h"

#include "messages/libraries/library_texts.h"

#include <cassert>
#include <charconv>
#include <utility>

namespace zb {

namespace {

using Fields = std::vector<std::string_view>;

/// An empty field of a table.
constexpr std::string_view kNothing = "-";

Fields fieldsOf(std::string_view text, std::string_view separator) {
    Fields fields;
    std::size_t end = text.find(separator);
    while (end != std::string_view::npos) {
        fields.push_back(text.substr(0, end));
        text.remove_prefix(end + separator.size());
        end = text.find(separator);
    }
    fields.push_back(text);
    return fields;
}

/// The rows of a table without its headings, each of so many columns.
std::vector<Fields> rowsOf(std::string_view table, std::size_t columns) {
    std::vector<Fields> rows;
    for (const std::string_view line : fieldsOf(table, "\n")) {
        rows.push_back(fieldsOf(line, "\t"));
        assert(rows.back().size() == columns && "a row of a table of published layouts has a wrong length");
        rows.back().resize(columns);
    }
    rows.erase(rows.begin());
    return rows;
}

int numberOf(std::string_view text) {
    int number = 0; // also of an empty field
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

PublishedLayout::Reply replyOf(std::string_view word) {
    if (word == "yes")
        return PublishedLayout::Reply::Yes;
    return word == "optional" ? PublishedLayout::Reply::Optional : PublishedLayout::Reply::No;
}

} // namespace

std::vector<PublishedLayout> publishedLayouts() {
    enum Column { Stream, Function, Title, Direction, Reply, MultiBlock, Structure, Count };
    std::vector<PublishedLayout> layouts;
    for (const Fields& row : rowsOf(libraries::kLayouts.front(), Count))
        layouts.push_back({numberOf(row[Stream]), numberOf(row[Function]), row[Title], row[Direction],
                           replyOf(row[Reply]), fieldsOf(row[Structure], " | ")});
    return layouts;
}

PublishedItems publishedItems() {
    enum Column { Name, Formats, Meaning, Longest, Codes, Count };
    PublishedItems items;
    for (const Fields& row : rowsOf(libraries::kItems.front(), Count)) {
        PublishedItem item{fieldsOf(row[Formats], "/"), row[Meaning], numberOf(row[Longest]), {}};
        if (row[Codes] != kNothing)
            item.codes = fieldsOf(row[Codes], "; ");
        items.emplace(row[Name], std::move(item));
    }
    return items;
}

PublishedFormats publishedFormats() {
    PublishedFormats formats;
    for (auto& [name, item] : publishedItems())
        formats.emplace(name, item.formats);
    return formats;
}

} // namespace zb
