#include "desktop/system_clipboard.h"

#include "desktop/qt_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace zb {

namespace {

constexpr QLatin1String kNodes("application/x-zeltobench-nodes");
constexpr QLatin1String kSml("text/x-sml");

QByteArray bytesOf(const std::string& text) {
    return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

void putOnSystemClipboard(const SharedClipboard& contents) {
    auto* mime = new QMimeData; // the clipboard takes it
    mime->setText(toQt(contents.text));
    mime->setData(kSml, bytesOf(contents.text));
    if (!contents.nodes.empty())
        mime->setData(kNodes, bytesOf(contents.nodes));
    QGuiApplication::clipboard()->setMimeData(mime);
}

SharedClipboard systemClipboard() {
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    if (mime == nullptr)
        return {};
    return {fromQt(mime->text()), mime->data(kNodes).toStdString()};
}

} // namespace zb
