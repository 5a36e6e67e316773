#include "model/sequence_lines.h"

#include "model/project_lines.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <array>

namespace zb {

SequenceLine SequenceLine::parse(std::string_view line) {
    const std::vector<std::string> pieces = split(line, kSequenceSeparator);
    SequenceLine row;
    const std::array fields{&row.picture, &row.text, &row.direction, &row.transactionName};
    row.fieldCount = std::min(pieces.size(), fields.size());
    for (std::size_t field = 0; field < row.fieldCount; ++field)
        *fields[field] = trim(pieces[field]);
    return row;
}

std::vector<SequenceLine> SequenceLine::readAll(std::string_view projectText) {
    LineReader lines(projectText);
    auto line = lines.next();
    while (line && *line != kSequenceMarker)
        line = lines.next();
    std::vector<SequenceLine> rows;
    while (line && (line = lines.next())) {
        if (isBlank(*line))
            continue;
        const SequenceLine row = parse(trimmed(*line));
        if (row.fieldCount > 1)
            rows.push_back(row);
        if (!row.whole())
            break;
    }
    return rows;
}

} // namespace zb
