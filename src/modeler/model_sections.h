#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// What stands behind the SECS messages of a project file beside the transaction model: sections that this
/// program does not know, and the sequence table. Lines are kept as they stand, so that a save writes back
/// what was read.
class ModelSections {
public:
    /// Takes the sections out of a project file's whole text.
    static ModelSections parse(std::string_view projectText);

    const std::vector<std::string>& foreignLines() const { return foreign_; }
    const std::vector<std::string>& sequenceLines() const { return sequences_; }
    void clear();

    /// The unknown sections, the model's own text, and behind three blank lines and its marker the sequence
    /// table; with CR LF.
    std::string compose(std::string_view modelText) const;

private:
    std::vector<std::string> foreign_;
    std::vector<std::string> sequences_;
};

} // namespace zb
