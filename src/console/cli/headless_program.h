#pragma once

#include "console/cli/console_screen.h"
#include "platform/code_page.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "shell/application.h"

#include <string>

namespace zb {

/// The whole program with one project open and nobody at its screen. Its settings are its own: what it does
/// leaves no trace in the user's.
class HeadlessProgram {
public:
    /// Reads the project's messages and its model; nothing is written, and no folder is made.
    HeadlessProgram(const std::string& projectPath, const CodePage& codePage, Generator& generator);

    /// Fills the store of SECS messages, faulty ones too, without a look at the values.
    void fillMessageStore();

    Application& application() { return application_; }
    SettingsStore& settings() { return settings_; }
    const ConsoleScreen& screen() const { return screen_; }

private:
    ConsoleScreen screen_;
    SettingsStore settings_ = SettingsStore::inMemory();
    SystemFileLayer files_;
    Application application_;
};

/// The generator where none can be asked for.
class NoGenerator final : public Generator {
public:
    std::string generate(const std::string& /*projectFile*/) override { return {}; }
};

} // namespace zb
