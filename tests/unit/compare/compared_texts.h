#pragma once

#include "compare/difference.h"
#include "project/project_text.h"

#include <sstream>
#include <string>

namespace zb::test {

/// A project with these messages, whose lines end in LF.
inline Project projectOf(const std::string& messages, const std::string& rest = {}) {
    std::string text = "\n###[PROJECT INFORMATION]\nProjectType=1\n## [EDIT SMD]\n" + messages + rest;
    std::string crlf;
    for (const char character : text)
        crlf.append(character == '\n' ? "\r" : "").append(1, character);
    return parseProject(crlf);
}

/// One line a difference: kind, change, place before, place, field, values.
inline std::string linesOf(const Differences& differences) {
    std::ostringstream out;
    const auto place = [](const DifferencePlace& where) {
        return where.name + (where.path.empty() ? "" : "@" + where.path);
    };
    const auto value = [](const std::optional<std::string>& text) { return text ? "'" + *text + "'" : "-"; };
    for (const Difference& difference : differences) {
        out << wordOf(difference.kind) << ' ' << wordOf(difference.change) << ' ';
        if (!(difference.place == difference.placeBefore))
            out << place(difference.placeBefore) << " => ";
        out << place(difference.place) << ' ' << difference.field << ": " << value(difference.before)
            << " -> " << value(difference.after) << '\n';
    }
    return out.str();
}

} // namespace zb::test
