#include "desktop/program_folders.h"

#include "desktop/qt_text.h"
#include "platform/user_folders.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace zb {

ApplicationFolders programFolders() {
    QString folder = QCoreApplication::applicationDirPath();
    if (!QFileInfo(folder).isWritable())
        folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return {fromQt(folder), stateFolder().string()};
}

} // namespace zb
