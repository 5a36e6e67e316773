#include "workbench/notice_bar.h"

#include "controls/desktop.h"
#include "controls/window.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace zb {

namespace {

using namespace std::chrono_literals;

// Long enough to read a line, and longer where there is something to decide.
constexpr std::chrono::milliseconds kToRead = 8s;
constexpr std::chrono::milliseconds kToDecide = 30s;

// Texts of files may bring lines of their own.
std::string inOneLine(std::string text) {
    const auto isControl = [](char character) {
        return static_cast<unsigned char>(character) < 0x20 || character == 0x7f;
    };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

} // namespace

NoticeBar::NoticeBar(Window& window)
    : lblNotice(window, "lblNotice"), cmdNotice{Button(window, "cmdNotice[1]", {}),
                                                Button(window, "cmdNotice[2]", {}),
                                                Button(window, "cmdNotice[3]", {})},
      cmdCloseNotice(window, "cmdCloseNotice", {}), desktop_(window.desktop()) {
    for (std::size_t i = 0; i < cmdNotice.size(); ++i) {
        cmdNotice[i].setLeavesFocus();
        cmdNotice[i].onClick = [this, i] { runAction(i); };
    }
    cmdCloseNotice.setLeavesFocus();
    cmdCloseNotice.setToolTip("Close the notice");
    cmdCloseNotice.onClick = [this] {
        if (!notices_.empty())
            remove(notices_.back().number);
    };
    show();
}

void NoticeBar::post(Notice notice) {
    notice.text = inOneLine(std::move(notice.text));
    if (!notice.topic.empty())
        std::erase_if(notices_, [&](const Shown& other) { return other.notice.topic == notice.topic; });
    const int number = ++posted_;
    if (notice.stays == Notice::Stays::SomeSeconds)
        desktop_.screen().callLater(notice.actions.empty() ? kToRead : kToDecide,
                                    [this, number] { remove(number); });
    notices_.push_back({number, std::move(notice)});
    show();
    fire(onPosted, desktop_.screen().timeOfDay(), lblNotice.text());
    fire(onNews);
}

void NoticeBar::withdraw(std::string_view topic) {
    if (std::erase_if(notices_, [&](const Shown& other) { return other.notice.topic == topic; }) > 0)
        show();
}

void NoticeBar::remove(int number) {
    if (std::erase_if(notices_, [&](const Shown& shown) { return shown.number == number; }) > 0)
        show();
}

std::vector<NoticeBar::Waiting> NoticeBar::waiting() const {
    std::vector<Waiting> waiting;
    for (const auto& [number, notice] : notices_) {
        if (notice.stays != Notice::Stays::UntilClosed || notice.actions.empty())
            continue;
        waiting.push_back({number, notice.text, {}});
        for (const NoticeAction& action : notice.actions)
            waiting.back().actions.push_back(action.caption);
    }
    std::sort(waiting.begin(), waiting.end(),
              [](const Waiting& left, const Waiting& right) { return left.number < right.number; });
    return waiting;
}

bool NoticeBar::turnTo(int number) {
    const auto found = std::find_if(notices_.begin(), notices_.end(),
                                    [&](const Shown& shown) { return shown.number == number; });
    if (found == notices_.end())
        return false;
    std::rotate(found, found + 1, notices_.end());
    show();
    return true;
}

void NoticeBar::runAction(std::size_t position) {
    if (notices_.empty() || position >= notices_.back().notice.actions.size())
        return;
    const std::function<void()> run = notices_.back().notice.actions[position].run;
    remove(notices_.back().number);
    fire(run);
}

void NoticeBar::show() {
    const Notice none;
    const Notice& notice = notices_.empty() ? none : notices_.back().notice;
    lblNotice.setText(notice.text);
    lblNotice.setToolTip(notice.text);
    for (std::size_t i = 0; i < cmdNotice.size(); ++i) {
        const bool used = i < notice.actions.size();
        cmdNotice[i].setCaption(used ? notice.actions[i].caption : std::string());
        cmdNotice[i].setVisible(used);
    }
    cmdCloseNotice.setVisible(!notices_.empty());
    fire(onChanged);
}

} // namespace zb
