#pragma once

#include "desktop/binders/binder.h"

#include <functional>
#include <string>

class QFileSystemModel;
class QTreeView;

namespace zb {

class FolderField;

/// A folder field as a browser of the machine's folders: the folder that is clicked, or reached by keys, is
/// the field's value. A button of the form that is named after the field, with "_Browse", asks for one.
class FolderFieldBinder final : public Binder {
public:
    FolderFieldBinder(FolderField& field, QTreeView& view, Binding& binding);

    /// Asks for a folder, beginning at one; empty for none.
    std::function<std::string(const std::string& start)> pickFolder;

private:
    void browse();
    void show(Change change) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool keyPressed(QKeyEvent& event) override;
    void openBrowser();
    void showFolder();
    void keepInView();

    FolderField& field_;
    QTreeView& view_;
    QFileSystemModel* folders_ = nullptr;
    bool isSought_ = false; // until the user navigates
};

} // namespace zb
