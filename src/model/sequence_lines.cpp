#include "model/sequence_lines.h"

#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <array>
#include <vector>

namespace zb {

namespace {

constexpr std::string_view kSeparator = "\u00FF";
constexpr std::size_t kFieldCount = 4;

SequenceRow rowOf(const std::vector<std::string>& pieces) {
    SequenceRow row;
    const std::array<std::string*, kFieldCount> fields{&row.picture, &row.text, &row.direction,
                                                       &row.transactionName};
    for (std::size_t field = 0; field < std::min(pieces.size(), kFieldCount); ++field)
        *fields[field] = trim(pieces[field]);
    row.isWhole = pieces.size() >= kFieldCount;
    return row;
}

// A line break inside a name would end its row's line, and all rows after it would be lost.
void appendField(std::string& text, std::string_view field) {
    for (const char character : field)
        text += character == '\r' || character == '\n' ? ' ' : character;
}

void appendRow(std::string& text, const SequenceRow& row) {
    appendField(text, row.picture);
    for (const std::string* field : {&row.text, &row.direction, &row.transactionName}) {
        text += kSeparator;
        appendField(text, *field);
    }
    text += "\r\n";
}

} // namespace

Sequences readSequences(std::string_view rows) {
    LineReader lines(rows);
    Sequences sequences;
    while (const auto line = lines.next()) {
        if (isBlank(*line))
            continue;
        const std::vector<std::string> pieces = split(trimmed(*line), kSeparator);
        if (pieces.size() > 1)
            sequences.append(rowOf(pieces));
        if (pieces.size() < kFieldCount)
            break;
    }
    return sequences;
}

void appendSequences(std::string& text, const Sequences& sequences) {
    for (const SequenceRow& row : sequences.rows())
        appendRow(text, row);
}

} // namespace zb
