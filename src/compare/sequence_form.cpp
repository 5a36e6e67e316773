#include "compare/part_form.h"

#include "model/sequences.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>

namespace zb {

namespace {

constexpr std::string_view kSeparator = "\u00FF";

/// A line of the table, which always has four fields when it is composed.
struct RowFields {
    explicit RowFields(std::string_view line) : fields(split(line, kSeparator)) { fields.resize(4); }

    bool isHead() const { return fields[0] == kSequenceHead; }
    std::string line() const { return join(fields, kSeparator); }

    std::vector<std::string> fields; ///< picture, text, direction, name of the TR message
};

/// A row is an item of the sequence. Its ordinal is left out when it is its position.
class SequenceForm final : public PartForm {
public:
    PartKind kind() const override { return PartKind::Sequence; }
    PartKind itemKind() const override { return PartKind::Sequence; }
    bool itemsHaveNames() const override { return false; }

    Blocks split(std::string_view section) const override {
        Blocks blocks;
        LineReader lines(section);
        while (const auto line = lines.next()) {
            const RowFields row(*line);
            if (!row.isHead() && !blocks.empty())
                continue;
            const auto at = static_cast<std::size_t>(line->data() - section.data());
            if (!blocks.empty())
                blocks.back().text.remove_suffix(section.size() - at);
            blocks.push_back({row.isHead() ? row.fields[1] : std::string(), section.substr(at)});
        }
        return blocks;
    }

    Entry read(std::string_view block) const override {
        Entry entry;
        entry.set("head", {});
        std::size_t position = 0;
        LineReader lines(block);
        while (const auto line = lines.next()) {
            RowFields row(*line);
            if (row.isHead()) {
                entry.name = row.fields[1];
                row.fields[1].clear();
                entry.fields[0] = {"head", shownItem(row.line()), row.line()};
                continue;
            }
            if (row.fields[1] == std::to_string(++position))
                row.fields[1].clear();
            entry.items.add(ItemTree::kRoot, row.line());
        }
        return entry;
    }

    std::string write(const Entry& entry) const override {
        std::string text;
        if (const std::string_view head = entry.stored("head"); !head.empty()) {
            RowFields row(head);
            row.fields[1] = entry.name;
            text.append(row.line()).append("\r\n");
        }
        for (std::size_t node = 1; node < entry.items.count(); ++node) {
            RowFields row(entry.items.at(node).text);
            if (row.fields[1].empty())
                row.fields[1] = std::to_string(node);
            text.append(row.line()).append("\r\n");
        }
        return text;
    }

    std::string likenessGroup(std::string_view /*block*/) const override { return "sequence"; }
    bool isTellingLine(std::string_view line) const override { return !RowFields(line).isHead(); }

    std::string shownItem(std::string_view text) const override {
        RowFields row(text);
        if (row.isHead() || row.fields[0] == kSequenceItem)
            row.fields[0].clear();
        std::erase_if(row.fields, [](const std::string& field) { return field.empty(); });
        return join(row.fields, " ");
    }
};

/// A section is one text: only its own program knows what its lines mean.
class ForeignForm final : public PartForm {
public:
    PartKind kind() const override { return PartKind::Project; }
    PartKind itemKind() const override { return PartKind::Project; }

    Blocks split(std::string_view section) const override {
        Blocks blocks;
        LineReader lines(section);
        while (const auto line = lines.next()) {
            if (!line->starts_with("##") && !blocks.empty())
                continue;
            const auto at = static_cast<std::size_t>(line->data() - section.data());
            if (!blocks.empty())
                blocks.back().text.remove_suffix(section.size() - at);
            blocks.push_back({std::string(*line), section.substr(at)});
        }
        return blocks;
    }

    Entry read(std::string_view block) const override {
        Entry entry;
        LineReader lines(block);
        entry.name = lines.next().value_or(std::string_view());
        const std::size_t lineEnd = block.find('\n');
        const std::string_view rest =
            lineEnd == std::string_view::npos ? std::string_view() : block.substr(lineEnd + 1);
        // Blank lines before the next section are no content.
        const std::string shown = shownBlock(rest);
        entry.setStored("section", shown, shown.empty() ? shown : replaceAll(shown, "\n", "\r\n") + "\r\n");
        return entry;
    }

    std::string write(const Entry& entry) const override {
        return entry.name + "\r\n" + std::string(entry.stored("section"));
    }

    std::string likenessGroup(std::string_view /*block*/) const override { return {}; }
    bool isTellingLine(std::string_view /*line*/) const override { return false; }
};

} // namespace

const PartForm& sequenceForm() {
    static const SequenceForm kForm;
    return kForm;
}

const PartForm& foreignForm() {
    static const ForeignForm kForm;
    return kForm;
}

} // namespace zb
