#include "desktop/system_information.h"

#include <QProcess>
#include <QStandardPaths>

namespace zb {

bool startSystemInformation() {
    for (const char* tool : {"kinfocenter", "hardinfo", "gnome-control-center", "msinfo32"}) {
        const QString program = QStandardPaths::findExecutable(QLatin1String(tool));
        if (!program.isEmpty())
            return QProcess::startDetached(program, {});
    }
    return false;
}

} // namespace zb
