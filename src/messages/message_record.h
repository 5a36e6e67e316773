#pragma once

#include "messages/item_record.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// Format codes of definition texts.
inline constexpr int kFormatGem = 1001;
inline constexpr int kFormatSemi = 1002;
inline constexpr int kFormatSmd = 1003;
inline constexpr int kFormatMdf = 1004;
inline constexpr int kFormatSml = 1005;

/// The words of a message head.
struct SECSMessageHead {
    std::string name;
    int stream = 0;
    int function = 0;
    bool wait = false;
    bool reply = false;
    bool noLogging = false;
    std::string direction = "H<->E"; ///< or "H->E", "H<-E"
};

/// One SECS message, filled from the Text of a MessageNode or from SMD text. The views that it returns are
/// valid until the record is changed, moved or destroyed.
class SECSMessageRecord {
public:
    std::string_view getName() const { return part(name_); }
    /// The name again, under the name used by the editor window and the dialogs.
    std::string_view MessageName() const { return getName(); }
    std::string_view getDescription() const { return part(description_); }
    /// A stream or function that is not numeric reads as -1.
    int getStream() const;
    int getFunction() const;
    /// The words after "S" and "F".
    std::string_view getStreamText() const { return part(stream_); }
    std::string_view getFunctionText() const { return part(function_); }
    /// Both of them: "S1F13", or "S1 F13" with a blank as the separator.
    std::string getNumbersText(std::string_view separator = {}) const;
    /// "H->E", "H<-E" or "H<->E", valid for the life of the program.
    std::string_view getDirection() const;
    bool getWait() const { return wait_; }
    bool getReply() const { return reply_; }
    /// The same flag, under the name used by the dialogs.
    bool autoreply() const { return reply_; }
    bool getNoLogging() const { return noLogging_; }
    /// The MessageNode Text.
    std::string_view getNodeText() const { return part(nodeText_); }
    /// Description, CR LF, MessageNode Text.
    std::string getHeadText() const;
    /// One line per item: depth number, blank, item Text.
    std::string getBodyText() const;
    /// Reads one message in project form or build form, including comment lines. The status is empty on
    /// success and otherwise describes the fault; the record takes as much as possible.
    std::string parseSmd(std::string_view text, int formatCode);
    /// From the Texts of a MessageNode and of the description node before it. The record takes as much as
    /// possible.
    std::string parseNodeText(std::string_view nodeText, std::string_view description);
    /// From texts in the form of `getHeadText` and `getBodyText`.
    std::string parseTexts(std::string_view nodeText, std::string_view description,
                           std::string_view bodyText);
    /// From parts that a reader has already parsed. `bodyText` has the form of `getBodyText`.
    static SECSMessageRecord fromParts(const SECSMessageHead& head, std::string_view description,
                                       std::string_view bodyText);
    /// In tree order, with their levels.
    std::vector<SECSItemRecord> getItems() const;

    /// The SMD text that `parseSmd` was given.
    std::string_view sourceText() const { return text_; }

    /// The MessageNode Text of the parts, whatever separated its words in the source.
    std::string composeNodeText() const;

private:
    friend class SECSMessageStore;
    enum class BodyCheck { None, Full };
    enum class Direction : std::uint8_t { Both, ToEquipment, ToHost };
    /// A piece of `text_`. A library has very many records, and no message has 4 GiB.
    struct Part {
        std::uint32_t begin = 0;
        std::uint32_t length = 0;
    };
    static Direction directionOf(std::string_view word);
    std::string_view part(Part part) const { return std::string_view(text_).substr(part.begin, part.length); }
    /// `view` is within `text_`.
    Part partOf(std::string_view view) const;
    Part append(std::string_view text);
    std::string takeSmd(std::string_view text, BodyCheck check);
    std::string takeHead();
    std::string takeMark(std::string_view word);
    /// The words of a node text after the numbers, each with the blank before it.
    std::string marks() const;
    template<typename Visit>
    void visitItems(Visit visit) const;

    /// All texts of the record in one allocation: the SMD text, or the parts one after the other.
    std::string text_;
    Part nodeText_; ///< contains the name, the stream and the function
    Part name_;
    Part stream_;
    Part function_;
    Part description_;
    Part body_;                   ///< its items are parsed on request
    bool bodyIsNumbered_ = false; ///< in the form of `getBodyText`
    bool wait_ = false;
    bool reply_ = false;
    bool noLogging_ = false;
    Direction direction_ = Direction::Both;
};

} // namespace zb
