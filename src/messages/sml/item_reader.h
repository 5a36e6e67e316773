#pragma once

#include "messages/sml/body.h"
#include "messages/sml/scanner.h"
#include "messages/sml/text_value.h"
#include "messages/sml/value.h"

#include <map>
#include <string>

namespace zb::sml {

/// The numbers of "#define" directives.
using Defines = std::map<std::string, std::size_t, std::less<>>;

/// Reads one root item with its subtree.
class ItemReader {
public:
    enum class Outcome {
        Closed,   // up to and with its ">"
        CutShort, // the message ended before it; an error is reported, and all lists are closed
        Broken,   // cannot be read; an error is reported
    };

    ItemReader(Scanner& scanner, FindingCollector& findings, Body& body, const Defines& defines,
               const CodePage& codePage)
        : scanner_(scanner), findings_(findings), body_(body), defines_(defines), value_(codePage) {}

    /// Starts a message.
    void clear();
    /// The scanner is at the "<".
    Outcome read();
    /// Skips "= Name" after the item that was closed last; false with an error when no name follows.
    bool passGivenName();
    /// Skips white space and comments; a comment after an item on its line belongs to it.
    void skip() {
        scanner_.skip();
        for (const Comment& comment : scanner_.comments())
            attachComment(comment);
    }
    /// One finding for all comments that cannot be used.
    void reportComments();

private:
    enum class Step { Next, Closed, CutShort, Broken };

    Step stepInList();
    Step stepAtPoint();
    Step openItem();
    Step openUntypedItem(std::size_t offset, std::string_view word);
    Step openItemByContent(std::size_t offset);
    Step readBrackets(std::size_t index);
    std::optional<std::size_t> passPlainCount();
    Step readBracket(std::size_t index);
    bool applyBound(Item& item, std::string_view words);
    bool applyRange(Item& item, std::string_view words, std::size_t offset);
    Step readValues(std::size_t index);
    Step stepInValues(std::size_t index);
    Step readString(std::size_t index);
    bool passString(char quote);
    bool isQuoteWithin(std::size_t offset) const;
    bool isEscapedQuote(std::size_t offset) const;
    bool headFollows(std::size_t offset) const;
    Step applyQuotedWords(std::size_t index, std::size_t offset);
    Step applyValue(std::size_t index, std::string_view word, std::size_t offset);
    void reportValue(ItemType type, std::string_view word, ValueFault fault, const std::string& read,
                     std::size_t offset);
    Step readNumber(std::size_t index);
    Step readWord(std::size_t index);
    Step applyCharacterCode(std::string_view word, std::size_t offset);
    void endValues(std::size_t index);
    Step addBareVariable();
    std::string_view passName();
    std::string_view passIndexedName();
    void giveName(std::size_t index, std::string_view name, std::size_t offset);
    void attachComment(const Comment& comment);
    bool attachNameAlone(const Comment& comment);
    bool atNextMessage() const;
    Step fail(const std::string& expected);
    Step cutShort();

    Scanner& scanner_;
    FindingCollector& findings_;
    Body& body_;
    const Defines& defines_;
    TextValue value_;
    std::size_t valueBegin_ = 0; // of the current item, among all values
    std::size_t valueCount_ = 0;
    std::size_t lastItem_ = 0;
    bool hasLastItem_ = false;
    std::size_t lostComments_ = 0;
    std::size_t firstLostComment_ = 0;
};

} // namespace zb::sml
