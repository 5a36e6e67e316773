#include "script/prepared_answers.h"

#include "platform/printable.h"
#include "platform/text.h"
#include "script/matching.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <ostream>
#include <utility>

namespace zb {

namespace {

// No command of a person shows more boxes than this.
constexpr int kMostBoxes = 2000;

constexpr std::array<std::pair<Answer, std::string_view>, 4> kAnswers{
    {{Answer::OK, "OK"}, {Answer::Cancel, "Cancel"}, {Answer::Yes, "Yes"}, {Answer::No, "No"}}};

void print(std::ostream& out, const nlohmann::ordered_json& line) {
    out << printableJson(line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)) << '\n'
        << std::flush;
}

template<typename Shown>
std::optional<Shown> takeFirst(std::deque<Shown>& shown) {
    if (shown.empty())
        return std::nullopt;
    std::optional<Shown> first = std::move(shown.front());
    shown.pop_front();
    return first;
}

} // namespace

void PreparedAnswers::sayDuring(std::string window, const ScriptCommand& during) {
    durings_.push_back({std::move(window), &during});
}

Answer PreparedAnswers::answerBox(const Box& box) {
    count();
    Answer answer = Answer::OK;
    const auto buttons = buttonNames(box.buttons);
    if (buttons.size() > 1) {
        if (answers_.empty())
            fail("an answer said beforehand",
                 "the box " + quote(box.text) + " with the buttons " + join(buttons, ","));
        const auto said = answers_.front();
        answers_.pop_front();
        answer = said.what;
        if (std::find(buttons.begin(), buttons.end(), answerName(answer)) == buttons.end())
            fail("a box with the button " + std::string(answerName(answer)) + " (answer of line " +
                     std::to_string(said.line) + ")",
                 "the box " + quote(box.text) + " with the buttons " + join(buttons, ","));
    }
    boxes_.push_back(box);
    print(out_, {{"box", box.text},
                 {"title", box.title},
                 {"icon", iconName(box.icon)},
                 {"buttons", buttons},
                 {"answer", answerName(answer)}});
    return answer;
}

std::string PreparedAnswers::answerDialog(const FileDialog& dialog) {
    count();
    if (picks_.empty())
        fail("a file picked beforehand", "the file dialog " + quote(dialog.title));
    std::string path = std::move(picks_.front().what);
    picks_.pop_front();
    dialogs_.push_back(dialog);
    print(out_, {{"dialog", dialog.title},
                 {"filter", dialog.filter},
                 {"extension", dialog.extension},
                 {"folder", dialog.folder},
                 {"answer", path}});
    return path;
}

const ScriptCommand& PreparedAnswers::takeDuring(const std::string& window) {
    count();
    const auto found = std::find_if(durings_.begin(), durings_.end(),
                                    [&](const During& during) { return during.window == window; });
    if (found == durings_.end())
        fail("\"during " + window + "\" said beforehand", window + " shown modally");
    const ScriptCommand& during = *found->command;
    durings_.erase(found);
    return during;
}

std::optional<Box> PreparedAnswers::lookAtBox() {
    return takeFirst(boxes_);
}

std::optional<FileDialog> PreparedAnswers::lookAtDialog() {
    return takeFirst(dialogs_);
}

std::optional<PreparedAnswers::Unused> PreparedAnswers::firstUnused() const {
    std::optional<Unused> first;
    const auto offer = [&](std::size_t line, const std::string& what) {
        if (!first || line < first->line)
            first = Unused{line, what};
    };
    if (!answers_.empty())
        offer(answers_.front().line, "\"answer " + std::string(answerName(answers_.front().what)) + "\"");
    if (!picks_.empty())
        offer(picks_.front().line, "\"pick " + picks_.front().what + "\"");
    if (!durings_.empty())
        offer(durings_.front().command->line, "\"during " + durings_.front().window + "\"");
    return first;
}

void PreparedAnswers::count() {
    if (++shown_ > kMostBoxes)
        fail("at most " + std::to_string(kMostBoxes) + " boxes and dialogs after one command",
             "more of them");
}

void PreparedAnswers::fail(const std::string& expected, const std::string& found) {
    ScriptFailure failure(expected, found);
    if (!failure_)
        failure_ = failure;
    throw failure;
}

std::string_view iconName(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Critical:
        return "critical";
    case BoxIcon::Question:
        return "question";
    case BoxIcon::Exclamation:
        return "exclamation";
    case BoxIcon::Information:
        return "information";
    case BoxIcon::None:
        break;
    }
    return "none";
}

std::vector<std::string> buttonNames(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::YesNo:
        return {"Yes", "No"};
    case BoxButtons::YesNoCancel:
        return {"Yes", "No", "Cancel"};
    case BoxButtons::OK:
        break;
    }
    return {"OK"};
}

std::string_view answerName(Answer answer) {
    const auto found = std::find_if(kAnswers.begin(), kAnswers.end(),
                                    [&](const auto& candidate) { return candidate.first == answer; });
    return found->second;
}

std::optional<Answer> answerOf(std::string_view name) {
    const auto found = std::find_if(kAnswers.begin(), kAnswers.end(),
                                    [&](const auto& candidate) { return candidate.second == name; });
    return found == kAnswers.end() ? std::nullopt : std::optional(found->first);
}

} // namespace zb
