#include "desktop/message_boxes.h"

#include "desktop/qt_text.h"
#include "desktop/shown_text.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QStandardPaths>

namespace zb {

namespace {

QMessageBox::Icon iconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case BoxButtons::OK:
        break;
    }
    return QMessageBox::Ok;
}

// "Text(*.zbp)|*.zbp" becomes "Text(*.zbp)", from which Qt reads the pattern itself.
QStringList filtersOf(const QString& filter) {
    QStringList filters;
    const QStringList parts = filter.split(QLatin1Char('|'));
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = QStringLiteral("(%1)").arg(parts[i + 1]);
        filters << (parts[i].endsWith(pattern) ? parts[i] : parts[i] + QLatin1Char(' ') + pattern);
    }
    return filters;
}

} // namespace

std::unique_ptr<QMessageBox> makeBox(const Box& box, QWidget* parent) {
    auto shown = std::make_unique<QMessageBox>(iconOf(box.icon), shownTitle(box.title), shownInBox(box.text),
                                               buttonsOf(box.buttons), parent);
    shown->setTextFormat(Qt::PlainText);
    return shown;
}

Answer answerOf(const QMessageBox& /*box*/, int button) {
    switch (button) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return Answer::OK;
    }
}

Answer askBox(const Box& box, QWidget* parent) {
    const auto shown = makeBox(box, parent);
    return answerOf(*shown, shown->exec());
}

std::string askFile(const FileDialog& dialog, QWidget* parent) {
    QFileDialog shown(parent, toQt(dialog.title), toQt(dialog.folder));
    shown.setFileMode(dialog.saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (dialog.saves)
        shown.setAcceptMode(QFileDialog::AcceptSave);
    shown.setNameFilters(filtersOf(toQt(dialog.filter)));
    shown.setDefaultSuffix(toQt(dialog.extension));
    if (shown.exec() != QDialog::Accepted || shown.selectedFiles().isEmpty())
        return {};
    return fromQt(shown.selectedFiles().constFirst());
}

std::string askFolder(const QString& title, const QString& button, QWidget* parent, const QString& start) {
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    const QString usual = documents.exists() ? documents.path() : QDir::homePath();
    QFileDialog shown(parent, title, !start.isEmpty() && QDir(start).exists() ? start : usual);
    shown.setFileMode(QFileDialog::Directory);
    shown.setOption(QFileDialog::ShowDirsOnly);
    shown.setLabelText(QFileDialog::Accept, button);
    if (shown.exec() != QDialog::Accepted || shown.selectedFiles().isEmpty())
        return {};
    return fromQt(shown.selectedFiles().constFirst());
}

} // namespace zb
