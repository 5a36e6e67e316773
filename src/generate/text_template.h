#pragma once

#include "generate/template_data.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zb::generate {

/// A template is wrong in itself, or asks for a name that its data does not have.
class TemplateFault : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// A text with places to fill. "${name}" is replaced by a text. Lines whose first word is "//%" are
/// instructions and leave no trace:
///
///     //% each NAME     the lines up to "//% end", once for each element of a list
///     //% if NAME       the lines up to "//% else" or "//% end", when there is a text, or a list with
///     elements
///
/// In an element of a list the names of the data around it can be used as well, and "more" is a text in all
/// elements but the last.
class TextTemplate {
public:
    /// Throws TemplateFault.
    explicit TextTemplate(std::string_view text);

    /// Throws TemplateFault.
    void append(std::string& to, const TemplateData& data) const;

private:
    struct Part {
        enum class Kind { Text, Field, Each, If };
        Kind kind = Kind::Text;
        std::string text; // or the name
        std::vector<Part> parts;
        std::vector<Part> otherwise;
    };
    using Scopes = std::vector<const TemplateData*>;

    static std::vector<Part> parse(const std::vector<std::string_view>& lines, std::size_t& at,
                                   bool isNested);
    static void parseBlock(const std::vector<std::string_view>& lines, std::size_t& at, Part& part);
    static void parseLine(std::string_view line, std::vector<Part>& parts);
    static void append(std::string& to, const std::vector<Part>& parts, Scopes& scopes);
    static void appendEach(std::string& to, const Part& part, Scopes& scopes);
    static bool isTrue(const std::string& name, const Scopes& scopes);

    std::vector<Part> parts_;
};

} // namespace zb::generate
