#include "modeler/sequence_table.h"

#include "modeler/project_lines.h"
#include "modeler/sequence_rows.h"
#include "platform/stores/list.h"
#include "platform/text.h"
#include "platform/text_file.h"

namespace zb {

namespace {

constexpr std::string_view kSeparator = "\u00FF";

// A line break inside a name would end its row's line, and all rows behind it would be lost.
void appendField(std::string& text, std::string_view field) {
    for (const char character : field)
        text += character == '\r' || character == '\n' ? ' ' : character;
}

void appendRow(std::string& text, const ListRow& row) {
    appendField(text, row.image());
    for (std::size_t column = 0; column < 3; ++column) {
        text += kSeparator;
        appendField(text, row.cell(column));
    }
    text += "\r\n";
}

} // namespace

void saveSequenceTable(std::string& projectText, const List& list) {
    projectText += "\r\n\r\n\r\n";
    projectText += kSequenceMarker;
    projectText += "\r\n";
    for (const auto& row : list.rows())
        appendRow(projectText, *row);
}

void loadSequenceTable(std::string_view projectText, List& list) {
    LineReader lines(projectText);
    auto line = lines.next();
    while (line && *line != kSequenceMarker)
        line = lines.next();
    if (!line)
        return;
    while ((line = lines.next())) {
        const std::string_view row = trimmed(*line);
        if (!row.empty() && !parseSequenceLine(list, row))
            return;
    }
}

bool parseSequenceLine(List& list, std::string_view line) {
    const std::vector<std::string> fields = split(line, kSeparator);
    if (fields.size() < 2)
        return false;
    ListRow& row = list.add(trim(fields[1]));
    row.setImage(trim(fields[0]));
    for (std::size_t column = 1; column < 3; ++column) {
        if (fields.size() <= column + 1)
            return false;
        row.setCell(column, trim(fields[column + 1]));
    }
    if (isSequenceHead(row))
        row.setBold(true);
    return true;
}

} // namespace zb
