// Edits a project as a user does, and keeps the unsaved work, for the test that kills it:
// work_writer PROJECT STATE write adds messages and prints after each keeping how many are kept;
// work_writer PROJECT STATE recover recovers what a killed one has left and prints how many messages there
// are.

#include "controls/user_hands.h"
#include "platform/file_layer.h"
#include "platform/process_signals.h"
#include "platform/settings.h"
#include "shell/application.h"
#include "support/silent_screen.h"

#include <iostream>
#include <string>
#include <string_view>
#include <utility>

namespace {

class NoGenerator final : public zb::Generator {
public:
    std::string generate(const std::string& /*projectFile*/) override { return {}; }
};

constexpr int kMostMessages = 20000;
constexpr int kMessagesOfOneLook = 3;

int messagesOf(zb::Application& application) {
    int count = 0;
    for (const zb::Node* node = application.frmSECSEditor.liveTree().firstRoot(); node != nullptr;
         node = node->next())
        count += zb::isMessageNode(*node) ? 1 : 0;
    return count;
}

void add(zb::Application& application, int number) {
    zb::UserHands hands(application.desktop);
    auto& editor = application.frmSECSEditor;
    // Replies, of which no other message is added.
    hands.paste(editor.txtStream, std::to_string(number / 100 % 100 + 1));
    hands.paste(editor.txtFunction, std::to_string(number % 100 * 2 + 2));
    hands.paste(editor.txtMsgName, "Made" + std::to_string(number));
    hands.click(zb::Target::whole(editor.cmdMsgAdd));
}

// Half a minute passes; what was being written is kept then.
void look(zb::test::SilentScreen& screen, zb::Application& application) {
    const auto later = std::exchange(screen.later, {});
    for (const auto& call : later) {
        if (call.delay == zb::WorkKeeper::kInterval)
            call.run();
    }
    const int written = messagesOf(application);
    application.work.finishWriting();
    std::cout << written << std::endl;
}

int write(zb::test::SilentScreen& screen, zb::Application& application) {
    for (int number = 0; number < kMostMessages; ++number) {
        add(application, number);
        if (number % kMessagesOfOneLook == 0)
            look(screen, application);
    }
    return 0;
}

int recover(zb::test::SilentScreen& screen, zb::Application& application) {
    zb::Button& button = application.frmWorkbench.notices.cmdNotice[0];
    if (button.visible() && button.caption() == "Recover")
        zb::UserHands(application.desktop).click(zb::Target::whole(button));
    std::cout << messagesOf(application) << std::endl;
    return screen.boxes.empty() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "work_writer PROJECT STATE write|recover\n";
        return 2;
    }
    zb::letLargeWritesFail();
    zb::test::SilentScreen screen;
    zb::SettingsStore settings = zb::SettingsStore::inMemory();
    zb::SystemFileLayer files;
    NoGenerator generator;
    zb::Application application(screen, settings, files, generator, {"/", argv[2]});
    application.start(argv[1]);
    return argv[3] == std::string_view("write") ? write(screen, application) : recover(screen, application);
}
