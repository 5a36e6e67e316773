#pragma once

#include "compare/difference.h"
#include "compare/entry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// A part of a project as the lines of its section. Parts are compared by these lines first, and read only
/// where they differ, so that equal projects cost no more than reading them.
struct Block {
    std::string name; ///< empty for lines that belong to no part
    std::string_view text;
};
using Blocks = std::vector<Block>;

/// How the parts of one section are cut out, read and written.
class PartForm {
public:
    virtual ~PartForm() = default;

    virtual PartKind kind() const = 0;
    virtual PartKind itemKind() const = 0;
    virtual Blocks split(std::string_view section) const = 0;
    virtual Entry read(std::string_view block) const = 0;
    virtual std::string write(const Entry& entry) const = 0;

    /// Parts of which only one is known by a name have the same key.
    virtual std::string nameKey(std::string_view name) const { return std::string(name); }
    /// Whether items are found by their names.
    virtual bool itemsHaveNames() const { return true; }
    /// A part can be a renamed one of the same group only. An empty group: it is never recognised.
    virtual std::string likenessGroup(std::string_view block) const = 0;
    /// Whether the line says what the part is, besides its name and its group.
    virtual bool isTellingLine(std::string_view line) const = 0;
    /// Brings the fields of versions of one part into a form in which they can be compared one by one.
    virtual void align(const std::vector<Entry*>& /*versions*/) const {}
    /// The text of an item for people.
    virtual std::string shownItem(std::string_view text) const { return std::string(text); }
    /// The line that a part begins with, for people.
    virtual std::string shownHead(const Entry& entry) const { return entry.name; }
};

/// The section `## [EDIT SMD]`.
const PartForm& messageForm();
/// The section of the transaction model.
const PartForm& trMessageForm();
/// The sequence table.
const PartForm& sequenceForm();
/// The sections of other programs.
const PartForm& foreignForm();

/// The lines of a block for people: LF, and no line end after the last one.
std::string shownBlock(std::string_view block);
/// A TR item for people: its name, and its fields with one a line.
std::string shownPart(const Entry& part);

/// Values of TR messages in conflicts: with nothing left out, so that they can be read again, in the lines of
/// a project file with LF.
/// @{
std::string writtenField(const EntryField& field);
void setWrittenField(EntryField& field, const std::string& written);
/// A TR item; nothing is read from lines that are no TR item.
std::string writtenPart(const Entry& part);
std::optional<Entry> readPart(std::string_view written);
/// The data block with its items; none for a message without one.
std::optional<std::string> writtenDataBlock(const Entry& message);
void setWrittenDataBlock(Entry& message, const std::optional<std::string>& written);
/// @}
/// Puts the data block of the other TR message in place of the message's own.
void takeDataBlock(Entry& message, const Entry& other);

} // namespace zb
