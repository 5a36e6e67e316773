#pragma once

#include "messages/item_record.h"

#include <cstddef>
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

/// One SECS message, filled from the Text of a MessageNode or from SMD text.
class SECSMessageRecord {
public:
    const std::string& getName() const { return name_; }
    /// The name again, under the name used by the editor window and the dialogs.
    const std::string& MessageName() const { return name_; }
    const std::string& getDescription() const { return description_; }
    /// A stream or function that is not numeric reads as -1.
    int getStream() const;
    int getFunction() const;
    /// The words after "S" and "F".
    const std::string& getStreamText() const { return streamText_; }
    const std::string& getFunctionText() const { return functionText_; }
    /// "H->E", "H<-E" or "H<->E".
    const std::string& getDirection() const { return direction_; }
    bool getWait() const { return wait_; }
    bool getReply() const { return reply_; }
    /// The same flag, under the name used by the dialogs.
    bool autoreply() const { return reply_; }
    bool getNoLogging() const { return noLogging_; }
    /// The MessageNode Text.
    const std::string& getNodeText() const { return nodeText_; }
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
    static SECSMessageRecord fromParts(SECSMessageHead head, std::string description, std::string bodyText);
    /// In tree order, with their levels.
    std::vector<SECSItemRecord> getItems() const;

    /// The SMD text that `parseSmd` was given.
    const std::string& sourceText() const { return source_; }

    /// The MessageNode Text of the parts, whatever separated its words in the source.
    std::string composeNodeText() const;

private:
    friend class SECSMessageStore;
    enum class BodyCheck { None, Full };
    std::string takeSmd(std::string_view text, BodyCheck check);
    std::string takeHead();
    std::string takeMark(std::string_view word);
    template<typename Visit>
    void visitItems(Visit visit) const;

    std::string name_;
    std::string description_;
    std::string nodeText_;
    std::string streamText_;
    std::string functionText_;
    std::string direction_;
    std::string source_;
    std::size_t bodyStart_ = 0; ///< in `source_`; items are parsed on request
    std::size_t bodyLength_ = 0;
    bool bodyIsNumbered_ = false; ///< in the form of `getBodyText`
    bool wait_ = false;
    bool reply_ = false;
    bool noLogging_ = false;
};

} // namespace zb
