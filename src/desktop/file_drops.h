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
/// after the question that the command Open asks, a file of definitions as the library, and a recording in
/// the document Rehearsal. A file in SML is a recording when it falls on that document.
class FileDrops final : public QObject {
public:
    FileDrops(QWidget& mainWindow, StartPage& start, Binding& binding);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void open(const std::string& path, bool onRehearsal);

    StartPage& start_;
    Binding& binding_;
};

} // namespace zb
