#pragma once

#include "console/console_screen.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "shell/application.h"

#include <string>

namespace zb {

struct LoadedProject;

/// The whole program with one project open and nobody at its screen. Its settings are its own: what it does
/// leaves no trace in the user's.
class HeadlessProgram {
public:
    /// Opens the project that was read from `path`; nothing is written, and no folder is made. A file whose
    /// name is not that of a project can be built, too, though not saved.
    HeadlessProgram(const std::string& path, const LoadedProject& project, Generator& generator);

    /// Whether the program's project file is the one that was opened.
    bool canSave() const { return canSave_; }

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
    bool canSave_ = false;
};

/// The generator where none can be asked for.
class NoGenerator final : public Generator {
public:
    std::string generate(const std::string& /*projectFile*/) override { return {}; }
};

} // namespace zb
