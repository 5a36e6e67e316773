#pragma once

#include <QSettings>

#include <memory>
#include <string>

class QWidget;

namespace zb {

/// Remembers the size and place of windows, their splitters and the widths of their columns in a file of its
/// own.
class LayoutMemory {
public:
    /// The empty path remembers nothing.
    void open(const std::string& file);
    void restore(QWidget& form) const;
    void remember(QWidget& form);

private:
    std::unique_ptr<QSettings> settings_;
};

} // namespace zb
