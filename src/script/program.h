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

/// The value of a property: a text, a number or a flag.
using PropertyValue = std::variant<std::string, long long, bool>;

/// The program as a script sees it, with its settings, which outlive it. The only screen that it knows is the
/// one that it was created with.
class ScriptedProgram {
public:
    virtual ~ScriptedProgram() = default;

    /// Starts again with the text as its command line. Only called while it does not run.
    virtual void start(const std::string& commandLine) = 0;
    /// Whether it was started and has not ended since.
    virtual bool running() const = 0;
    /// All windows, including those of the program that ran last. Before the first start they are hidden.
    virtual Desktop& desktop() = 0;
    /// A property of the program itself ("ProjectName"); nothing for an unknown name.
    virtual std::optional<PropertyValue> property(std::string_view name) = 0;
    /// The names of all its properties.
    virtual std::vector<std::string> propertyNames() const = 0;

    /// Settings by their names, without their location; "" when never written.
    virtual std::string setting(std::string_view name) = 0;
    virtual void setSetting(std::string_view name, const std::string& value) = 0;
    /// The text that the generator returns from now on instead of running.
    virtual void setGeneratorAnswer(const std::string& text) = 0;
    /// The encoding of files without a mark that are not UTF-8.
    virtual CodePage codePage() = 0;
};

/// Creates the program of one script. `applicationFolder` is its application folder.
using ProgramFactory =
    std::function<std::unique_ptr<ScriptedProgram>(Screen& screen, const std::string& applicationFolder)>;

} // namespace zb
