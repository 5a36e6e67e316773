#pragma once

#include "messages/sml/head.h"
#include "messages/sml/item_reader.h"
#include "messages/sml/sml.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb::sml {

/// A message while it is read. The name is the one that its file gives it; empty when there is none.
struct ReadMessage {
    SmlMessage message;
    std::string name;
    std::string description;
    std::size_t offset = 0;
};

/// A copy of the text in the memory of `texts`.
std::string_view keepText(std::pmr::memory_resource& texts, std::string_view text);

/// Reads a whole text, message by message.
class Reader {
public:
    Reader(std::string_view text, const CodePage& codePage)
        : findings_(text), scanner_(text, findings_), items_(scanner_, findings_, body_, defines_, codePage) {
    }

    SmlLibrary read(const Progress& progress);

private:
    /// Between the messages.
    void skipBetween();
    void applyTrailingComment(const Comment& comment);
    void gatherComment(const Comment& comment);
    void readTopLevel();
    bool headFollows() const;
    bool passTitle();
    void passDefine();
    void passDirective();
    void passRule();
    bool passParenthesis();
    void passUnknown();
    void passToNextHead();

    /// Within a message.
    enum class Step { Next, Body, Ended, Broken };
    void readMessage(const Head& head);
    bool checkNumbers(const Head& head);
    Step readMarks(ReadMessage& read);
    Step readMark(ReadMessage& read);
    Step readMarkWord(ReadMessage& read);
    Step readBracketedWait(ReadMessage& read);
    bool passArrow(ReadMessage& read);
    void applyHeadComment(ReadMessage& read, const Comment& comment);
    bool readBody(bool bracketedHead);
    Step readRoot();
    Step stepPastRoot(std::size_t& roots, bool& closerExpected);
    Step endWithoutPoint();
    void passBroken();
    void finish(ReadMessage& read);
    std::string_view kept(std::string_view text) { return keepText(*texts_, text); }
    void makeRoom(std::size_t offset);

    FindingCollector findings_;
    Scanner scanner_;
    Defines defines_;
    Body body_;
    ItemReader items_;
    std::unique_ptr<std::pmr::memory_resource> texts_ =
        std::make_unique<std::pmr::monotonic_buffer_resource>();
    std::vector<SmlMessage> messages_;
    std::vector<std::size_t> offsets_; // of the messages
    std::size_t unread_ = 0;           // messages with a fault
    std::string title_;
    std::string leadingComment_; // the comment before the next message
    std::size_t leadingOffset_ = 0;
    bool lastWasRead_ = false; // the last message, which owns a comment on its last line
};

/// Takes the direction and the marks that SML lacks, "<R>" and "<NL>", from the words of a comment; false,
/// and nothing taken, when it contains anything else.
bool applyMarks(SmlMessage& message, std::string_view words);

/// Gives every message a name that no other has: first those that have one in the file, then the rest by
/// stream and function. What a name or a description cannot hold is replaced.
void nameMessages(std::vector<SmlMessage>& messages, const std::vector<std::size_t>& offsets,
                  std::pmr::memory_resource& texts, FindingCollector& findings);

} // namespace zb::sml
