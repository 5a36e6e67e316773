#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// A button of a notice: what it says, and what it does. The notice goes before it runs.
struct NoticeAction {
    std::string caption;
    std::function<void()> run;
};

/// Something to know that needs no answer, such as "Saved". The text is plain text of one line; texts of
/// files may be in it.
struct Notice {
    enum class Stays { SomeSeconds, UntilClosed };

    std::string text;
    std::vector<NoticeAction> actions = {}; ///< at most three; the screen has no room for more
    /// What it is about, such as "disk": a later notice of the same topic takes its place. Empty for none.
    std::string topic = {};
    Stays stays = Stays::SomeSeconds;
};

/// The place where notices are shown. Every room posts them through `Desktop::post`.
class Notices {
public:
    virtual ~Notices() = default;
    virtual void post(Notice notice) = 0;
    virtual void withdraw(std::string_view topic) = 0;
};

} // namespace zb
