#include "modeler/sequence_rows.h"

#include "controls/list.h"

namespace zb {

bool isSequenceHead(const ListRow& row) {
    return row.image() == kSequenceHead;
}

ListRow* sequenceRow(const List& list, int position) {
    if (position < 1 || static_cast<std::size_t>(position) > list.count())
        return nullptr;
    return list.rows()[static_cast<std::size_t>(position) - 1].get();
}

int findSequenceHead(const List& list, int position) {
    for (; position > 0; --position) {
        const ListRow* row = sequenceRow(list, position);
        if (row != nullptr && isSequenceHead(*row))
            return position;
    }
    return 0;
}

void renumberSequence(List& list, int head) {
    for (int ordinal = 1; ListRow* row = sequenceRow(list, head + ordinal); ++ordinal) {
        if (isSequenceHead(*row))
            return;
        row->setCell(0, std::to_string(ordinal));
    }
}

void addSequenceHead(List& list, std::string name) {
    ListRow& row = list.add(std::move(name));
    row.setImage(kSequenceHead);
    row.setBold(true);
    list.select(&row);
}

void insertSequenceItem(List& list, ListRow& behind, std::string direction, std::string_view message) {
    const int position = list.positionOf(&behind);
    ListRow& row = list.insert(static_cast<std::size_t>(position), "");
    row.setImage(kSequenceItem);
    row.setCell(1, std::move(direction));
    row.setCell(2, std::string(message));
    list.select(&row);
    renumberSequence(list, findSequenceHead(list, position));
}

void deleteSequenceRow(List& list, ListRow& row) {
    const int position = list.positionOf(&row);
    if (isSequenceHead(row)) {
        for (ListRow* item = sequenceRow(list, position + 1); item != nullptr && !isSequenceHead(*item);
             item = sequenceRow(list, position + 1))
            list.remove(*item);
        list.remove(row);
        return;
    }
    list.remove(row);
    if (const int head = findSequenceHead(list, position - 1); head > 0)
        renumberSequence(list, head);
}

} // namespace zb
