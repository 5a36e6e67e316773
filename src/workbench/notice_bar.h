#pragma once

#include "controls/notices.h"
#include "controls/simple_controls.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace zb {

class Desktop;
class Window;

/// The notices in the strip of the workbench. The latest one is shown, with its buttons; when it goes, the
/// one before it is shown again, until its time is over too.
class NoticeBar final : public Notices {
public:
    /// The stores become part of the window.
    explicit NoticeBar(Window& window);

    void post(Notice notice) override;
    void withdraw(std::string_view topic) override;

    /// A notice that stays until it is closed, with the captions of its buttons.
    struct Waiting {
        int number;
        std::string text;
        std::vector<std::string> actions;
    };
    /// What waits for a decision of the user: notices that stay and have buttons, the first one first.
    std::vector<Waiting> waiting() const;
    /// Shows the notice in place of the latest one; false when it has gone.
    bool turnTo(int number);
    /// Called when a new notice is shown.
    std::function<void()> onNews;
    /// Called when notices come, go or change their places.
    std::function<void()> onChanged;

    /// Called for each notice, with the local time ("19:46") and the text as it is shown.
    std::function<void(const std::string& time, const std::string& text)> onPosted;

    Label lblNotice;
    std::array<Button, 3> cmdNotice; ///< `cmdNotice[1]` to `cmdNotice[3]`
    Button cmdCloseNotice;

private:
    struct Shown {
        int number;
        Notice notice;
    };

    void remove(int number);
    void runAction(std::size_t position);
    void show();

    Desktop& desktop_;
    std::vector<Shown> notices_; // the latest is at the end
    int posted_ = 0;
};

} // namespace zb
