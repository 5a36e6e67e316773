#include "unit/compare/random_project.h"

#include "project/project_text.h"

namespace zb::test {

namespace {

void appendItems(std::string& text, const std::vector<RandomItem>& items, std::size_t depth,
                 bool endsMessage) {
    for (std::size_t at = 0; at < items.size(); ++at) {
        const RandomItem& item = items[at];
        const bool isList = item.type == "L";
        text.append(depth * 4, ' ').append(item.type).append(" ");
        if (isList)
            text.append(item.value.empty() ? std::to_string(item.items.size()) : item.value);
        else
            text.append(item.type == "A" ? "20V" : "1");
        if (!item.name.empty())
            text.append(" ").append(item.name);
        if (!isList)
            text.append(item.type == "A" ? " '" + item.value + "'" : " " + item.value);
        const bool isLast = endsMessage && at + 1 == items.size();
        text.append(isLast && item.items.empty() ? ".\r\n" : "\r\n");
        appendItems(text, item.items, depth + 1, isLast);
    }
}

std::string textOf(const RandomMessage& message) {
    std::string text = "* " + message.description + "\r\n" + message.name + ": S" +
                       std::to_string(message.stream) + " F" + std::to_string(message.function) +
                       (message.wait ? " W " : " ") + message.direction;
    text.append(message.items.empty() ? ".\r\n" : "\r\n");
    appendItems(text, message.items, 1, true);
    return text;
}

std::string textOf(const RandomTrMessage& message) {
    std::string text = "## [TR MESSAGE] " + message.name + "\r\n  SECSMessage " + message.message + "\r\n";
    if (!message.condition.empty())
        text += "  Condition " + message.condition + "\r\n";
    text += "  Report False\r\n  Direction " + std::to_string(message.direction) + "\r\n";
    if (message.hasBlock)
        text += "  DataBlock " + message.message + ": S1 F1 H->E\r\n";
    for (const std::string& item : message.blockItems)
        text += "    Item 1 " + item + "\r\n";
    for (const auto& [name, value] : message.items)
        text.append("  TRItem ")
            .append(name)
            .append("\r\n    Type STRING\r\n    Value ")
            .append(value)
            .append("\r\n  EndTRItem\r\n");
    return text + "EndTRMessage\r\n";
}

} // namespace

RandomProject::RandomProject(unsigned seed, std::size_t count) : random_(seed), mark_("b") {
    for (std::size_t at = 0; at < count; ++at)
        messages.push_back(makeMessage());
    for (std::size_t at = 0; at < count / 2; ++at)
        model.push_back(makeTrMessage());
    for (std::size_t at = 0; at < count / 3; ++at) {
        sequences.push_back({fresh("Sequence"), {}});
        for (std::size_t row = below(6); row > 0; --row)
            sequences.back().rows.push_back(fresh("Row"));
    }
    for (std::size_t at = below(3); at > 0; --at)
        foreign.emplace_back("###[" + fresh("OTHER") + "]", fresh("line"));
    isEquipment = below(2) == 0;
}

std::size_t RandomProject::below(std::size_t limit) {
    return limit == 0 ? 0 : random_() % limit;
}

std::string RandomProject::fresh(const std::string& word) {
    return word + mark_ + std::to_string(++number_);
}

RandomItem RandomProject::makeItem(int depth) {
    RandomItem item;
    const std::size_t kind = below(depth < 3 ? 5 : 3);
    if (below(3) != 0)
        item.name = fresh("N");
    if (kind == 0) {
        item.type = "A";
        item.value = fresh("text ");
    } else if (kind < 3) {
        item.type = kind == 1 ? "U4" : "I2";
        item.value = std::to_string(below(1000));
    } else {
        item.type = "L";
        if (below(4) == 0) {
            item.value = std::to_string(below(9) + 1) + "V";
            item.items.push_back(makeItem(depth + 1));
        } else {
            for (std::size_t at = below(4); at > 0; --at)
                item.items.push_back(makeItem(depth + 1));
        }
    }
    return item;
}

RandomMessage RandomProject::makeMessage() {
    RandomMessage message;
    message.name = fresh("Message");
    message.description = fresh("Description ");
    message.stream = static_cast<int>(below(20)) + 1;
    message.function = static_cast<int>(below(40)) + 1;
    message.wait = below(2) == 0;
    constexpr const char* kDirections[] = {"H->E", "H<-E", "H<->E"};
    message.direction = kDirections[below(3)];
    for (std::size_t at = below(5); at > 0; --at)
        message.items.push_back(makeItem(1));
    return message;
}

RandomTrMessage RandomProject::makeTrMessage() {
    RandomTrMessage message;
    message.name = fresh("Tr");
    message.message = messages.empty() ? "NONE" : messages[below(messages.size())].name;
    message.hasBlock = below(3) == 0;
    message.direction = message.hasBlock ? 2 : 1;
    if (message.hasBlock) {
        for (std::size_t at = below(4); at > 0; --at)
            message.blockItems.push_back("U4 1 " + fresh("D") + " 7");
    } else {
        message.condition = below(2) == 0 ? "" : "({X} == " + fresh("1") + ")";
        for (std::size_t at = below(4); at > 0; --at)
            message.items.emplace_back(fresh("Item"), fresh("SOURCE"));
    }
    return message;
}

void RandomProject::edit(unsigned seed, std::size_t edits, const std::string& mark) {
    random_.seed(seed);
    mark_ = mark;
    for (; edits > 0; --edits) {
        const auto place = [this](const auto& list) {
            return list.begin() + static_cast<std::ptrdiff_t>(below(list.size()));
        };
        switch (below(12)) {
        case 0:
            messages.insert(messages.begin() + static_cast<std::ptrdiff_t>(below(messages.size() + 1)),
                            makeMessage());
            break;
        case 1:
            if (messages.size() > 1)
                messages.erase(place(messages));
            break;
        case 2:
            if (messages.size() > 1) {
                const auto from = place(messages);
                RandomMessage moved = *from;
                messages.erase(from);
                messages.insert(messages.begin() + static_cast<std::ptrdiff_t>(below(messages.size() + 1)),
                                std::move(moved));
            }
            break;
        case 3:
            if (!model.empty() && below(2) == 0)
                model.erase(place(model));
            else
                model.push_back(makeTrMessage());
            break;
        case 4:
        case 5:
            if (!model.empty())
                editTrMessage(model[below(model.size())]);
            break;
        case 6:
            if (!sequences.empty())
                editSequence(sequences[below(sequences.size())]);
            break;
        case 7:
            if (below(5) == 0)
                isEquipment = !isEquipment;
            else if (!foreign.empty())
                foreign[below(foreign.size())].second = fresh("line");
            break;
        default:
            if (!messages.empty())
                editMessage(messages[below(messages.size())]);
            break;
        }
    }
}

void RandomProject::editMessage(RandomMessage& message) {
    switch (below(6)) {
    case 0:
        message.name = fresh("Renamed");
        break;
    case 1:
        message.description = fresh("Said ");
        break;
    case 2:
        message.wait = !message.wait;
        break;
    default:
        editItems(message.items);
        break;
    }
}

void RandomProject::editItems(std::vector<RandomItem>& items) {
    if (items.empty() || below(4) == 0) {
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(below(items.size() + 1)), makeItem(2));
        return;
    }
    const std::size_t at = below(items.size());
    RandomItem& item = items[at];
    if (item.type == "L" && item.value.empty() && below(2) == 0)
        return editItems(item.items);
    switch (below(4)) {
    case 0:
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(at));
        break;
    case 1:
        item.name = fresh("R");
        break;
    case 2:
        std::swap(items[at], items[below(items.size())]);
        break;
    default:
        if (item.type == "A")
            item.value = fresh("new ");
        else if (item.type != "L")
            item.value = std::to_string(below(100000));
        break;
    }
}

void RandomProject::editTrMessage(RandomTrMessage& message) {
    if (message.hasBlock)
        return message.blockItems.push_back("A 9 " + fresh("E") + " 'x'");
    if (message.items.empty() || below(3) == 0)
        return message.items.emplace_back(fresh("Item"), fresh("SOURCE")), void();
    if (below(3) == 0)
        message.condition = "({Y} == " + fresh("2") + ")";
    else if (below(2) == 0)
        message.items[below(message.items.size())].second = fresh("CHANGED");
    else
        message.items.erase(message.items.begin() + static_cast<std::ptrdiff_t>(below(message.items.size())));
}

void RandomProject::editSequence(RandomSequence& sequence) {
    if (sequence.rows.empty() || below(2) == 0)
        sequence.rows.insert(sequence.rows.begin() +
                                 static_cast<std::ptrdiff_t>(below(sequence.rows.size() + 1)),
                             fresh("Row"));
    else
        sequence.rows.erase(sequence.rows.begin() + static_cast<std::ptrdiff_t>(below(sequence.rows.size())));
}

std::string RandomProject::text() const {
    std::string text = "\r\n###[PROJECT INFORMATION]\r\nProjectType=";
    text.append(isEquipment ? "2" : "1").append("\r\n## [EDIT SMD]\r\n");
    for (const RandomMessage& message : messages)
        text += textOf(message);
    for (const auto& [header, line] : foreign)
        text.append(header).append("\r\n").append(line).append("\r\n");
    if (!model.empty())
        text += "###[TRANSACTION MODEL] 1\r\n";
    for (const RandomTrMessage& message : model)
        text += textOf(message);
    text += "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\n";
    for (const RandomSequence& sequence : sequences) {
        text += "SeqName\u00FF" + sequence.name + "\u00FF\u00FF\r\n";
        for (std::size_t row = 0; row < sequence.rows.size(); ++row)
            text += "SeqItem\u00FF" + std::to_string(row + 1) + "\u00FFToHost\u00FF" + sequence.rows[row] +
                    "\r\n";
    }
    return text;
}

Project RandomProject::project() const {
    return parseProject(text());
}

} // namespace zb::test
