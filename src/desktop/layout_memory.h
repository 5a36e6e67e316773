#pragma once

#include <QSettings>

#include <memory>
#include <string>

class QWidget;

namespace zb {

/// Properties of widgets: whether a window or splitter was restored from an earlier run, and the widths that
/// the user gave the columns of a list, by their texts.
/// @{
inline constexpr char kRemembered[] = "remembered";
inline constexpr char kColumnWidths[] = "columnWidths";
/// @}

/// Stores the size and position of windows, their splitters and the widths of their columns in a separate
/// file.
class LayoutMemory {
public:
    /// The empty path stores nothing.
    void open(const std::string& file);
    void restore(QWidget& form) const;
    void remember(QWidget& form);
    /// The height that the user gave a part, in pixels; 0 when there is none.
    /// @{
    int height(const QString& part) const;
    void rememberHeight(const QString& part, int height);
    /// @}

private:
    std::unique_ptr<QSettings> settings_;
};

} // namespace zb
