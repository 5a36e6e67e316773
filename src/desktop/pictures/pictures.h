#pragma once

#include <QIcon>

#include <string_view>

namespace zb {

/// The program's own pictures: drawings that are sharp at any size and take their lines from the palette, so
/// that they can be read on light and on dark.
class Pictures {
public:
    Pictures();

    /// The picture of that name; the empty icon when there is none.
    QIcon icon(std::string_view name) const;
    static bool has(std::string_view name);
};

} // namespace zb
