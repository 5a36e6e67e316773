#pragma once

#include "generate/text_template.h"

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace zb::generate {

/// A file of a language's folder, as it was when the program was built.
struct TemplateFile {
    std::string_view path; ///< within the folder of templates: "cpp/plug_in.h"
    std::string_view text;
};
/// All of them, in the order of their paths.
std::span<const TemplateFile> templateFiles();

/// The type of a data item in a language. In patterns "{}" is the place of a literal.
struct TypeWords {
    std::string one;         ///< the type of a single value
    std::string boxed;       ///< the same as the parameter of a generic type
    std::string many;        ///< the type of several values
    std::string literal;     ///< pattern of one value
    std::string manyLiteral; ///< pattern of several values, with commas between them
    std::string sized;       ///< pattern of several zeros: their number
    std::string call;        ///< what reads or writes a single value
    std::string callMany;    ///< what reads or writes several
};

/// A language that plug-ins are written in: a folder of templates with a file "language.json".
class Language {
public:
    /// The names of the folders.
    static std::vector<std::string> folders();
    /// Throws TemplateFault when there is no folder of this name.
    explicit Language(std::string_view folder);

    const std::string& folder() const { return folder_; }
    const std::string& title() const { return title_; }
    const TypeWords& type(const std::string& format) const { return types_.at(format); }
    const std::unordered_set<std::string>& reservedWords() const { return reserved_; }
    bool hasUpperFields() const { return upperFields_; }
    bool hasSignedU8() const { return signedU8_; }
    const std::string& word(const std::string& name) const { return words_.at(name); }

    /// A text as a literal, with its quotation marks. The bytes are characters of Latin 1.
    std::string textLiteral(std::string_view bytes) const;

    /// A file to write: once, or once for each element of a list.
    struct Output {
        TextTemplate text;
        std::string list; ///< empty for a file that is written once
        TextTemplate path;
    };
    const std::vector<Output>& outputs() const { return outputs_; }

private:
    std::string folder_;
    std::string title_;
    std::map<std::string, TypeWords> types_;
    std::map<std::string, std::string> words_;
    std::unordered_set<std::string> reserved_;
    std::vector<Output> outputs_;
    bool upperFields_ = false;
    bool signedU8_ = false;
    bool octalEscapes_ = true;
};

/// A pattern with its "{}" replaced.
std::string filled(std::string_view pattern, std::string_view text);

} // namespace zb::generate
