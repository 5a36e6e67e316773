#pragma once

#include <QObject>

#include <string>

class QMimeData;
class QWidget;

namespace zb {

class StartPage;
struct Binding;

/// A file of ours that is dragged from a file manager: its path; empty when there is none.
std::string droppedFile(const QMimeData& data);

/// Opens files that are dropped on the main window, wherever they fall: a project in place of the open one,
/// after the question that the command Open asks, and a file of definitions as the library.
class FileDrops final : public QObject {
public:
    FileDrops(QWidget& mainWindow, StartPage& start, Binding& binding);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void open(const std::string& path);

    StartPage& start_;
    Binding& binding_;
};

} // namespace zb
