#pragma once

#include "platform/finding.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace zb {

/// The place of a silencing that means a message itself, and not its items.
inline constexpr std::string_view kMessageItself = ".";

/// What is not to be reported.
struct Silencing {
    /// The place of one finding.
    static Silencing placeOf(const Finding& finding);
    /// Everything that the finding's rule reports.
    static Silencing kindOf(const Finding& finding) { return {finding.id, {}, {}}; }

    std::string selector; ///< the id of a rule, its start up to a point, or a category
    std::string message;  ///< a message, TR message or sequence; empty for all
    std::string item;     ///< as in a finding's place, or kMessageItself; empty for all of the message

    bool operator==(const Silencing&) const = default;
};

/// The silencings of a project, in the lines of the file PROJECT.zbcheck:
///
///     # a comment
///     std.direction
///     std.item.length AlarmReport
///     std.item.length AlarmReport 1/3
///     tr.condition.unreachable "LIMIT PRESSURE" .
///
/// A word with blanks or quotation marks is between quotation marks, with the escapes of JSON. Lines that
/// cannot be understood are kept and silence nothing. The line "check standard" asks for the rules of the
/// standards check.
class Silencings {
public:
    static Silencings parse(std::string_view text);
    /// The text of the file, with LF. Lines that were not added or removed are unchanged.
    std::string text() const;

    bool silences(const Finding& finding) const;
    /// No effect when it is there already.
    void add(const Silencing& silencing);
    /// Removes each line that says the same.
    void remove(const Silencing& silencing);
    /// In the order of the file.
    std::vector<Silencing> all() const;
    /// Those that silence the finding.
    std::vector<Silencing> of(const Finding& finding) const;

    /// Whether the project asks for the rules of the standards check.
    /// @{
    bool asksForStandard() const;
    void askForStandard(bool ask);
    /// @}

private:
    /// What the lines with one selector silence.
    struct Selected {
        bool all = false;
        std::unordered_set<std::string> messages;
        std::unordered_set<std::string> places; ///< message and item
    };
    /// False when it is there already.
    bool insert(const Silencing& silencing);

    std::vector<std::string> lines_;
    std::map<std::string, Selected, std::less<>> selected_; ///< by selector, of the lines that are understood
};

/// The path of the file for a project file: the same, with the ending ".zbcheck".
std::string silencingsPath(const std::string& projectPath);

} // namespace zb
