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
    std::string manyItem;    ///< pattern of one among several
    std::string manyLiteral; ///< pattern of several values, with commas between them
    std::string sized;       ///< pattern of several zeros: their number
    std::string call;        ///< pattern of what reads or writes a single value; "{count}" is its count
    std::string callMany;    ///< the same of several
    std::string value;       ///< pattern of what makes a field comparable
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
    /// Names that no package may have, since a plug-in's package is beside them.
    const std::unordered_set<std::string>& reservedPackages() const { return reservedPackages_; }
    bool hasUpperFields() const { return upperFields_; }
    bool hasSignedU8() const { return signedU8_; }
    /// Whether names of packages have no capitals.
    bool hasLowerPackages() const { return lowerPackages_; }
    /// Whether files import the types that they use.
    bool importsNames() const { return importsNames_; }
    /// Whether the brace of a block has a line of its own.
    bool opensBlocksOnOwnLines() const { return opensBlocksOnOwnLines_; }
    /// Whether comments are markup, in which "<" begins a tag.
    bool hasMarkupComments() const { return markupComments_; }
    const std::string& word(const std::string& name) const { return words_.at(name); }

    /// A text as a literal, with its quotation marks. The bytes are characters of Latin 1.
    std::string textLiteral(std::string_view bytes) const;
    /// The same of a text in UTF-8 that no message carries, such as a name.
    std::string shownLiteral(std::string_view text) const;

    /// A file to write: once, or once for each element of a list.
    struct Output {
        TextTemplate text;
        std::string list; ///< empty for a file that is written once
        TextTemplate path;
    };
    const std::vector<Output>& outputs() const { return outputs_; }

private:
    void appendEscaped(std::string& literal, unsigned char code) const;

    std::string folder_;
    std::string title_;
    std::map<std::string, TypeWords> types_;
    std::map<std::string, std::string> words_;
    std::unordered_set<std::string> reserved_;
    std::unordered_set<std::string> reservedPackages_;
    std::vector<Output> outputs_;
    bool upperFields_ = false;
    bool signedU8_ = false;
    bool octalEscapes_ = true;
    bool unicodeEscapes_ = false;
    bool lowerPackages_ = false;
    bool markupComments_ = false;
    bool importsNames_ = false;
    bool opensBlocksOnOwnLines_ = false;
    std::size_t longestText_ = 0; ///< of one literal; 0 without a limit
};

/// A pattern with its "{}" replaced.
std::string filled(std::string_view pattern, std::string_view text);

} // namespace zb::generate
