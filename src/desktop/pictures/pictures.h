#pragma once

#include <QIcon>

#include <string_view>

namespace zb {

/// The program's own pictures: vector drawings that take their lines from the palette, so that they are
/// readable on light and on dark backgrounds.
class Pictures {
public:
    Pictures();

    /// The picture with that name; the empty icon when there is none.
    QIcon icon(std::string_view name) const;
    static bool has(std::string_view name);
};

} // namespace zb
