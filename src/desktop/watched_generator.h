#pragma once

#include "outputs/zelto_generator.h"

#include <QElapsedTimer>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

class QWidget;

namespace zb {

class GeneratorDialog;
class SettingsStore;

/// The generator in the windows: while it runs, a dialog shows what it writes, with a button that stops it. A
/// run that ends within a moment shows none.
class WatchedGenerator final : public Generator {
public:
    /// `programs` is the folder of the running program; `parent` gives the window that the dialog is over.
    WatchedGenerator(const SettingsStore& settings, std::filesystem::path programs,
                     std::function<QWidget*()> parent);
    ~WatchedGenerator() override;

    std::string generate(const std::string& projectFile) override;

private:
    bool goOn(const std::string& lines);

    ZeltoGenerator generator_;
    std::function<QWidget*()> parent_;
    QElapsedTimer running_;
    std::string output_; // until there is a dialog
    std::unique_ptr<GeneratorDialog> dialog_;
};

} // namespace zb
