#include "fake_program.h"

#include "platform/text.h"

namespace zb {

void FakeProgram::start(const std::string& commandLine) {
    make();
    commandLine_ = commandLine;
    running_ = true;
    windows_->frmTest.show();
}

Desktop& FakeProgram::desktop() {
    if (!windows_)
        make();
    return windows_->desktop;
}

void FakeProgram::make() {
    windows_.reset();
    windows_ = std::make_unique<Windows>(screen_);
    connect();
}

void FakeProgram::connect() {
    TestWindow& window = windows_->frmTest;
    TestDialog& dialog = windows_->frmDialog;
    window.onClose = [this, &window] {
        if (window.txtName.text() == "stay")
            return;
        running_ = false;
        window.hide();
    };
    const auto ask = [&window, &dialog] {
        dialog.showModal();
        window.log("value:" + dialog.txtValue.text());
    };
    window.cmdDialog.onClick = ask;
    window.mnuDialog.onClick = ask;
}

std::vector<std::string> FakeProgram::propertyNames() const {
    return {"ProjectName", "GeneratorRuns", "Generator", "Folder"};
}

std::optional<PropertyValue> FakeProgram::property(std::string_view name) {
    if (name == "ProjectName")
        return commandLine_;
    if (name == "GeneratorRuns")
        return 2LL;
    if (name == "Generator")
        return generatorAnswer_;
    if (name == "Folder")
        return applicationFolder_;
    return std::nullopt;
}

CodePage FakeProgram::codePage() {
    return chooseCodePage(settings_["AnsiCodePage"], "en_US.UTF-8");
}

} // namespace zb
