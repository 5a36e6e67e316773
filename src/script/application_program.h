#pragma once

#include "outputs/generator.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "script/program.h"
#include "shell/application.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zb {

/// The generator of a script: it returns the text that the script has set, and records its runs.
class ScriptedGenerator final : public Generator {
public:
    std::string generate(const std::string& projectFile) override;
    void setAnswer(std::string answer) { answer_ = std::move(answer); }

    /// The project file of the last run.
    const std::string& path() const { return path_; }
    long long runs() const { return runs_; }

private:
    std::string answer_;
    std::string path_;
    long long runs_ = 0;
};

/// The whole program for one script, with its own settings, which touch no file.
class ApplicationProgram final : public ScriptedProgram {
public:
    ApplicationProgram(Screen& screen, std::string applicationFolder);

    /// A screen that shows the windows receives each application before it starts.
    std::function<void(Application& application)> onMade;

    void start(const std::string& commandLine) override;
    bool running() const override;
    Desktop& desktop() override;
    std::optional<PropertyValue> property(std::string_view name) override;
    std::vector<std::string> propertyNames() const override;
    std::string setting(std::string_view name) override;
    void setSetting(std::string_view name, const std::string& value) override;
    void setGeneratorAnswer(const std::string& text) override { generator_.setAnswer(text); }
    CodePage codePage() override;

private:
    Application& application();
    void makeApplication();

    Screen& screen_;
    std::string applicationFolder_;
    SettingsStore settings_ = SettingsStore::inMemory();
    SystemFileLayer files_;
    ScriptedGenerator generator_;
    std::unique_ptr<Application> application_;
    bool started_ = false;
};

} // namespace zb
