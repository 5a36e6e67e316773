#include "modeler/sequence_table.h"

#include "controls/list.h"
#include "model/project_lines.h"
#include "model/sequence_lines.h"

namespace zb {

namespace {

// A line break inside a name would end its row's line, and all rows behind it would be lost.
void appendField(std::string& text, std::string_view field) {
    for (const char character : field)
        text += character == '\r' || character == '\n' ? ' ' : character;
}

void appendRow(std::string& text, const ListRow& row) {
    appendField(text, row.image());
    for (std::size_t column = 0; column < 3; ++column) {
        text += kSequenceSeparator;
        appendField(text, row.cell(column));
    }
    text += "\r\n";
}

void addRow(List& list, const SequenceLine& line) {
    ListRow& row = list.add(line.text);
    row.setImage(line.picture);
    row.setCell(1, line.direction);
    row.setCell(2, line.transactionName);
    if (line.whole() && line.isHead())
        row.setBold(true);
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
    for (const SequenceLine& line : SequenceLine::readAll(projectText))
        addRow(list, line);
}

} // namespace zb
