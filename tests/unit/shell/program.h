#pragma once

#include "outputs/generator.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "shell/application.h"
#include "support/silent_screen.h"
#include "support/temporary_folder.h"

#include <string>

namespace zb::test {

class FixedGenerator final : public Generator {
public:
    std::string generate(const std::string& /*projectFile*/) override { return "done"; }
};

// A separate whole program, over a file layer of the test's choice.
struct Program {
    explicit Program(FileLayer& files, const std::string& stateFolder = {})
        : application(screen, settings, files, generator, {"/", stateFolder}) {}

    SilentScreen screen;
    SettingsStore settings = SettingsStore::inMemory();
    FixedGenerator generator;
    Application application;
};

} // namespace zb::test
