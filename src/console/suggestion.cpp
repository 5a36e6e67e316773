#include "console/suggestion.h"

#include "platform/text.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace zb {

namespace {

/// The optimal string alignment distance, over bytes.
std::size_t editDistance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> beforeLast(to.size() + 1);
    std::vector<std::size_t> last(to.size() + 1);
    std::vector<std::size_t> row(to.size() + 1);
    for (std::size_t j = 0; j <= to.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= from.size(); ++i) {
        beforeLast = std::exchange(last, row);
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
    }
    return row.back();
}

std::string describe(const std::string& kind, const std::string& word,
                     const std::vector<std::string>& known) {
    const auto nearest = nearestWord(word, known);
    return "unknown " + kind + " \"" + word + "\"" +
           (nearest ? "; did you mean \"" + *nearest + "\"?" : std::string());
}

std::vector<std::string> verbsOf(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* verb : app.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(verb->get_name());
    return names;
}

std::vector<std::string> optionsOf(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_lnames())
            names.push_back("--" + name);
    }
    return names;
}

} // namespace

std::optional<std::string> nearestWord(std::string_view word, const std::vector<std::string>& words) {
    // No name is nearly as long; the distance of a long word would take long to find.
    constexpr std::size_t kLongest = 64;
    std::optional<std::string> nearest;
    std::size_t least = std::max<std::size_t>(word.size() / 3, 1) + 1;
    for (const std::string& candidate : words) {
        const std::size_t distance = word.size() > kLongest ? least : editDistance(word, candidate);
        if (distance < least) {
            least = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

std::optional<std::string> describeUnknownWord(const CLI::App& app) {
    const std::vector<std::string> unknown = app.remaining(true);
    const std::vector<const CLI::App*> given =
        app.get_subcommands([](const CLI::App* verb) { return verb->parsed(); });
    const auto option = std::find_if(unknown.begin(), unknown.end(),
                                     [](const std::string& word) { return word.starts_with("-"); });
    if (given.empty() && !unknown.empty() && option != unknown.begin())
        return describe("verb", unknown.front(), verbsOf(app));
    if (option == unknown.end())
        return std::nullopt;
    return describe("option", std::string(before(*option, "=")),
                    optionsOf(given.empty() ? app : *given.front()));
}

} // namespace zb
