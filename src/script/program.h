#pragma once

#include "platform/code_page.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zb {

class Desktop;
class Screen;

/// What a property reads as: a text, a number or a flag.
using PropertyValue = std::variant<std::string, long long, bool>;

/// The program as a script sees it, with its settings, which outlive it. It knows no screen but the one that
/// it was made with.
class ScriptedProgram {
public:
    virtual ~ScriptedProgram() = default;

    /// Starts afresh with the text as its command line. Called only while it does not run.
    virtual void start(const std::string& commandLine) = 0;
    /// Whether it was started and has not ended since.
    virtual bool running() const = 0;
    /// All windows, those of the program that ran last included. Before the first start they stand hidden.
    virtual Desktop& desktop() = 0;
    /// A property of the program itself ("ProjectName"); nothing for a name that it does not have.
    virtual std::optional<PropertyValue> property(std::string_view name) = 0;
    /// The names of all its properties.
    virtual std::vector<std::string> propertyNames() const = 0;

    /// Settings by their bare names, without the place where they are kept; "" when never written.
    virtual std::string setting(std::string_view name) = 0;
    virtual void setSetting(std::string_view name, const std::string& value) = 0;
    /// What the generator answers from now on instead of running.
    virtual void setGeneratorAnswer(const std::string& text) = 0;
    /// How files without a mark are read, when they are not UTF-8.
    virtual CodePage codePage() = 0;
};

/// Makes the program of one script. `applicationFolder` is what it takes for its own folder.
using ProgramFactory =
    std::function<std::unique_ptr<ScriptedProgram>(Screen& screen, const std::string& applicationFolder)>;

} // namespace zb
