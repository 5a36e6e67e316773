#pragma once

#include "compare/part_form.h"
#include "project/project.h"

#include <array>
#include <memory>
#include <string>

namespace zb {

/// A project as the parts that are compared. The project must outlive it.
class ProjectParts {
public:
    /// In the order in which differences are listed.
    enum Section { Foreign, Messages, Model, SequenceTable };
    static constexpr std::size_t kSections = 4;

    explicit ProjectParts(const Project& project);
    ProjectParts(const ProjectParts&) = delete;
    ProjectParts& operator=(const ProjectParts&) = delete;

    const Project& project() const { return project_; }
    const Blocks& blocks(std::size_t section) const { return blocks_[section]; }
    static const PartForm& form(std::size_t section);
    static Section sectionOf(PartKind kind);

private:
    const Project& project_;
    std::string foreign_;
    std::string model_;
    std::string sequences_;
    std::array<Blocks, kSections> blocks_;
};

/// "host" or "equipment".
std::string wordOf(Side side);

} // namespace zb
