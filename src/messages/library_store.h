#pragma once

#include "messages/message_record.h"
#include "platform/code_page.h"
#include "platform/finding.h"
#include "platform/progress.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zb {

/// The messages of one library: a built-in one, or a file of another project, driver or equipment maker.
class SECSLibraryStore {
public:
    using Records = std::vector<const SECSMessageRecord*>;

    /// The code page decodes files that are not Unicode, and measures the texts of SML.
    explicit SECSLibraryStore(CodePage codePage) : codePage_(std::move(codePage)) {}

    /// All messages of a stream and function, given as "S1 F13"; empty when there are none.
    Records getByStreamFunction(std::string_view text) const;
    /// One row per message: name, stream, function and description, joined by "\".
    std::vector<std::string> getRows() const;
    /// Adds the messages of a library's text (for the formats 1001 and 1002) or of a file (1003 to 1005). The
    /// status is blank when at least one message was read; everything else is in `findings`. A store whose
    /// loading was cancelled is of no use any more.
    std::string load(const std::string& textOrPath, int formatCode, const Progress& progress = {});
    /// Adds the messages of a text of SML.
    void loadSml(std::string_view text, const Progress& progress = {});
    /// The same for the bytes of a file (1003 to 1005).
    std::string loadBytes(std::string bytes, int formatCode, const Progress& progress = {});

    /// In the order in which they were loaded.
    Records getMessages() const;
    /// Of all loads, in the order of the text, with their lines; those of SML with their columns, too.
    const Findings& findings() const { return findings_; }
    /// The number of messages that could not be read, of all loads of SMD and SML.
    std::size_t unread() const { return unread_; }

private:
    std::string loadText(std::string_view text, int formatCode, const Progress& progress);
    void loadSmd(std::string_view text, const Progress& progress);
    void loadMdf(std::string_view text, const Progress& progress);
    void add(SECSMessageRecord record);

    CodePage codePage_;
    std::deque<SECSMessageRecord> records_; ///< which keeps their addresses
    std::unordered_map<std::uint64_t, Records> byStreamFunction_;
    Findings findings_;
    std::size_t unread_ = 0;
};

} // namespace zb
