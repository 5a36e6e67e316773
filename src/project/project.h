#pragma once

#include "model/sequences.h"
#include "model/tr_model_store.h"
#include "project/foreign_sections.h"
#include "project/project_messages.h"

#include <memory>

namespace zb {

/// The side that a project describes.
enum class Side { Host, Equipment };

/// The number of a side in project files and in the windows: 1 is a host, 2 an equipment.
constexpr int projectTypeOf(Side side) {
    return side == Side::Equipment ? 2 : 1;
}
constexpr Side sideOf(int projectType) {
    return projectType == 1 ? Side::Host : Side::Equipment;
}

/// All that a project file holds.
struct Project {
    Side side = Side::Host;
    ProjectMessages messages;
    /// Never null; its type is that of the side.
    std::unique_ptr<TRModelStore> model = std::make_unique<TRModelStore>();
    Sequences sequences;
    ForeignSections foreign;
};

} // namespace zb
