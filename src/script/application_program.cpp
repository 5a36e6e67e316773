#include "script/application_program.h"

#include "platform/user_folders.h"
#include "shell/option_settings.h"

#include <filesystem>
#include <utility>

namespace zb {

namespace {

/// Scripts run alike on every machine, so the locale does not choose the code page.
constexpr std::string_view kNoLocale;

} // namespace

std::string ScriptedGenerator::generate(const std::string& projectFile) {
    path_ = projectFile;
    ++runs_;
    return answer_;
}

ApplicationProgram::ApplicationProgram(Screen& screen, std::string applicationFolder)
    : screen_(screen), applicationFolder_(std::move(applicationFolder)) {}

void ApplicationProgram::start(const std::string& commandLine) {
    makeApplication();
    started_ = true;
    application_->start(commandLine);
}

bool ApplicationProgram::running() const {
    return started_ && !application_->ended();
}

Desktop& ApplicationProgram::desktop() {
    // A script sees what a user sees who waits a moment.
    application().frmWorkbench.problems.finish();
    application().frmRehearsal.finish();
    return application().desktop;
}

Application& ApplicationProgram::application() {
    if (!application_)
        makeApplication();
    return *application_;
}

void ApplicationProgram::makeApplication() {
    // The old one is destroyed first: both would show the same screen.
    application_.reset();
    application_ = std::make_unique<Application>(
        screen_, settings_, files_, generator_,
        ApplicationFolders{applicationFolder_, stateFolder().string(),
                           // A script's own folders go when it ends.
                           std::filesystem::path(applicationFolder_).parent_path().string()});
    application_->codePage = codePage();
    if (onMade)
        onMade(*application_);
}

std::vector<std::string> ApplicationProgram::propertyNames() const {
    return {"ProjectName", "ProjectPath", "ProjectType", "GeneratorPath", "GeneratorRuns"};
}

std::optional<PropertyValue> ApplicationProgram::property(std::string_view name) {
    if (name == "ProjectName")
        return application().ProjectName;
    if (name == "ProjectPath")
        return application().ProjectPath;
    if (name == "ProjectType")
        return static_cast<long long>(application().ProjectType);
    if (name == "GeneratorPath")
        return generator_.path();
    if (name == "GeneratorRuns")
        return generator_.runs();
    return std::nullopt;
}

std::string ApplicationProgram::setting(std::string_view name) {
    const auto stored =
        name == kMessageFormat ? settings_.storedOption(name) : settings_.stored(kSettingsKey, name);
    return stored.value_or(std::string());
}

void ApplicationProgram::setSetting(std::string_view name, const std::string& value) {
    if (name == kMessageFormat)
        settings_.setOption(name, value);
    else
        settings_.writeRegValue(kSettingsKey, name, value);
    if (name != kAnsiCodePage)
        return;
    settings_.setCodePage(codePage());
    if (application_)
        application_->codePage = codePage();
}

CodePage ApplicationProgram::codePage() {
    return chooseCodePage(setting(kAnsiCodePage), kNoLocale);
}

} // namespace zb
