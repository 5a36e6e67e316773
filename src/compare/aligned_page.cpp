#include "compare/aligned_page.h"

#include "compare/html_text.h"

#include <cstddef>

namespace zb {

namespace {

using Role = AlignedRow::Role;
using Rows = std::vector<AlignedRow>;

constexpr std::size_t kPartLevel = 1;

char signOf(const AlignedRow& row) {
    if (!row.texts[0])
        return '+';
    if (!row.texts[1])
        return '-';
    return row.differences[0].empty() ? ' ' : '~';
}

std::string indented(const AlignedRow& row, char sign, const std::string& text) {
    return std::string(1, sign) + " " + std::string((row.level - kPartLevel) * 2, ' ') + htmlText(text);
}

void appendRow(std::string& html, const AlignedRow& row) {
    const char sign = signOf(row);
    if (sign == ' ' && row.texts[0] == row.texts[1]) {
        html += "<tr><td colspan=\"2\">" + indented(row, ' ', *row.texts[0]) + "</td></tr>\n";
        return;
    }
    html += "<tr>";
    for (const std::size_t version : {std::size_t{0}, std::size_t{1}}) {
        if (!row.texts[version]) {
            html += "<td></td>";
            continue;
        }
        html += version == 0 ? "<td class=\"before\">" : "<td class=\"after\">";
        html += indented(row, sign, *row.texts[version]) + "</td>";
    }
    html += "</tr>\n";
}

std::size_t endOfPart(const Rows& rows, std::size_t first) {
    std::size_t end = first + 1;
    while (end < rows.size() && rows[end].level > kPartLevel)
        ++end;
    return end;
}

bool differs(const Rows& rows, std::size_t first, std::size_t end) {
    for (std::size_t at = first; at < end; ++at) {
        if (rows[at].differsFrom(0))
            return true;
    }
    return false;
}

void appendPart(std::string& html, const Rows& rows, std::size_t first, std::size_t end) {
    const AlignedRow& head = rows[first];
    const bool isOpen = differs(rows, first, end);
    const char sign = isOpen && signOf(head) == ' ' ? '~' : signOf(head);
    html += isOpen ? "<details open><summary>" : "<details><summary>";
    html += std::string(1, sign) + " " + htmlText(head.texts[1] ? *head.texts[1] : *head.texts[0]);
    html += "</summary>\n<table>\n";
    for (std::size_t at = first; at < end; ++at)
        appendRow(html, rows[at]);
    html += "</table>\n</details>\n";
}

/// Equal parts that follow one another are one line until it is opened.
void appendEqualParts(std::string& html, const Rows& rows, const std::vector<std::size_t>& parts) {
    if (parts.size() > 1)
        html += "<details><summary>" + std::to_string(parts.size()) + " equal parts</summary>\n";
    for (const std::size_t part : parts)
        appendPart(html, rows, part, endOfPart(rows, part));
    if (parts.size() > 1)
        html += "</details>\n";
}

} // namespace

void appendAligned(std::string& html, const AlignedProjects& projects) {
    const Rows& rows = projects.rows;
    std::vector<std::size_t> equal;
    const auto closeEqual = [&] {
        appendEqualParts(html, rows, equal);
        equal.clear();
    };
    for (std::size_t at = 0; at < rows.size();) {
        if (rows[at].role == Role::Section) {
            closeEqual();
            const bool isEmpty = at + 1 == rows.size() || rows[at + 1].role == Role::Section;
            if (!isEmpty)
                html += "<h3>" + htmlText(*rows[at].texts[0]) + "</h3>\n";
            ++at;
            continue;
        }
        const std::size_t end = endOfPart(rows, at);
        if (differs(rows, at, end)) {
            closeEqual();
            appendPart(html, rows, at, end);
        } else {
            equal.push_back(at);
        }
        at = end;
    }
    closeEqual();
}

} // namespace zb
