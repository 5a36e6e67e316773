#pragma once

#include "controls/desktop.h"
#include "fake_windows.h"
#include "script/program.h"

#include <map>
#include <memory>
#include <string>

namespace zb {

/// A program of two windows, made only for the script language.
class FakeProgram final : public ScriptedProgram {
public:
    FakeProgram(Screen& screen, std::string applicationFolder)
        : screen_(screen), applicationFolder_(std::move(applicationFolder)) {}

    void start(const std::string& commandLine) override;
    bool running() const override { return running_; }
    Desktop& desktop() override;
    std::optional<PropertyValue> property(std::string_view name) override;
    std::vector<std::string> propertyNames() const override;
    std::string setting(std::string_view name) override { return settings_[std::string(name)]; }
    void setSetting(std::string_view name, const std::string& value) override {
        settings_[std::string(name)] = value;
    }
    void setGeneratorAnswer(const std::string& text) override { generatorAnswer_ = text; }
    CodePage codePage() override;

private:
    struct Windows {
        explicit Windows(Screen& screen) : desktop(screen), frmTest(desktop), frmDialog(desktop) {}
        Desktop desktop;
        TestWindow frmTest;
        TestDialog frmDialog;
    };

    void make();
    void connect();

    Screen& screen_;
    std::string applicationFolder_;
    std::unique_ptr<Windows> windows_;
    bool running_ = false;
    std::string commandLine_;
    std::string generatorAnswer_;
    std::map<std::string, std::string> settings_;
};

} // namespace zb
