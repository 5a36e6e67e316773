#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The sections of a project file that stand behind the SECS messages: the transaction model and the sequence
/// table. Lines are kept as they stand, also those that this program does not know, so that a save writes
/// back what was read.
class ModelSections {
public:
    /// Takes the sections out of a project file's whole text.
    static ModelSections parse(std::string_view projectText);

    const std::vector<std::string>& modelLines() const { return model_; }
    const std::vector<std::string>& sequenceLines() const { return sequences_; }
    void clear();

    /// The text of both sections, with CR LF; the sequence table stands behind three blank lines and its
    /// marker.
    std::string compose() const;

private:
    std::vector<std::string> model_;
    std::vector<std::string> sequences_;
};

} // namespace zb
