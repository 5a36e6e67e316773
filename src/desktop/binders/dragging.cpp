#include "desktop/binders/dragging.h"

#include "desktop/binders/binder.h"
#include "desktop/file_drops.h"
#include "desktop/qt_text.h"

#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMimeData>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <algorithm>

namespace zb {

namespace {

constexpr int kMostLines = 6;
constexpr int kMargin = 6;

QStringList linesOf(const QStringList& texts) {
    QStringList lines = texts.mid(0, kMostLines);
    if (texts.size() > kMostLines)
        lines << QStringLiteral("… %1 more").arg(texts.size() - kMostLines);
    return lines;
}

/// A frame around the widget that is the target of a drag.
class DropMark final : public QWidget {
public:
    explicit DropMark(QWidget& target) : QWidget(&target) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(target.rect());
        show();
        raise();
    }

    static DropMark* of(const QWidget& target) {
        for (QObject* child : target.children()) {
            if (auto* mark = dynamic_cast<DropMark*>(child))
                return mark;
        }
        return nullptr;
    }

private:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
};

void mark(QWidget& target, bool marked) {
    DropMark* shown = DropMark::of(target);
    if (marked && shown == nullptr)
        new DropMark(target); // the target owns it
    else if (!marked && shown != nullptr)
        delete shown;
}

constexpr char kTakenFormat[] = "application/x-zeltobench-drag";

bool takesPicture(const QWidget& target, const QMimeData& content) {
    return content.hasImage() && target.property("takesPictures").toBool();
}

QPixmap pictureOf(const QWidget& source, const QStringList& texts) {
    const QStringList lines = linesOf(texts);
    const QFontMetrics metrics = source.fontMetrics();
    const QSize size(dragTextWidth(metrics, lines) + 2 * kMargin,
                     metrics.lineSpacing() * static_cast<int>(lines.size()) + kMargin);
    const qreal ratio = source.devicePixelRatioF();
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(0.85);
    painter.setPen(source.palette().color(QPalette::Highlight));
    painter.setBrush(source.palette().color(QPalette::Base));
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    painter.setPen(source.palette().color(QPalette::Text));
    painter.setFont(source.font());
    int baseline = kMargin / 2 + metrics.ascent();
    for (const QString& line : lines) {
        painter.drawText(kMargin, baseline,
                         metrics.elidedText(line, Qt::ElideRight, size.width() - 2 * kMargin));
        baseline += metrics.lineSpacing();
    }
    return picture;
}

} // namespace

int dragTextWidth(const QFontMetrics& metrics, const QStringList& lines) {
    constexpr int kWidest = 400;
    int width = 0;
    // An advance is rounded, and a text that is wider by a fraction of a pixel would be elided.
    for (const QString& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line) + 1);
    return std::min(width, kWidest);
}

void runDrag(Binding& binding, QWidget& source, const DragData& data, const QStringList& texts) {
    runDrag(binding, source, data, texts.isEmpty() ? QPixmap() : pictureOf(source, texts));
}

void runDrag(Binding& binding, QWidget& source, const DragData& data, const QPixmap& picture) {
    binding.drag = data;
    // What the mouse drags is what was taken up last.
    binding.taken.reset();
    auto content = std::make_unique<QMimeData>();
    if (data.form == DragData::Form::Picture)
        content->setImageData(picture.toImage());
    else
        content->setText(toQt(data.text));
    QDrag drag(&source);
    drag.setMimeData(content.release()); // the drag owns it
    if (!picture.isNull())
        drag.setPixmap(picture);
    drag.exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
    binding.drag.reset();
}

DragData dragDataOf(const Binding& binding, const QDropEvent& event, const QWidget* target) {
    if (binding.drag)
        return *binding.drag;
    if (target != nullptr && takesPicture(*target, *event.mimeData()))
        return {{}, nullptr, DragData::Form::Picture};
    return {fromQt(event.mimeData()->text()), nullptr};
}

bool followDrag(const Binding& binding, QWidget& target, QEvent& event) {
    if (event.type() == QEvent::DragLeave) {
        mark(target, false);
        return false;
    }
    auto& drop = static_cast<QDropEvent&>(event);
    // A file of ours is meant for the window.
    const bool opens = !binding.drag && !droppedFile(*drop.mimeData()).empty() &&
                       qobject_cast<QMainWindow*>(target.window()) != nullptr;
    const bool takes =
        !opens && (binding.drag || drop.mimeData()->hasText() || takesPicture(target, *drop.mimeData()));
    if (takes)
        drop.acceptProposedAction();
    else
        drop.ignore();
    mark(target, takes && event.type() != QEvent::Drop);
    return takes;
}

void takeUp(Binding& binding, const std::optional<DragData>& data) {
    if (!data)
        return;
    binding.taken = data;
    binding.taken->copied = true;
    auto content = std::make_unique<QMimeData>();
    if (data->form == DragData::Form::Text)
        content->setText(toQt(data->text));
    content->setData(QLatin1String(kTakenFormat), {});
    QGuiApplication::clipboard()->setMimeData(content.release()); // the clipboard owns it
}

bool holdsTaken(const Binding& binding) {
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    return binding.taken && content != nullptr && content->hasFormat(QLatin1String(kTakenFormat));
}

std::optional<DragData> takenUp(const Binding& binding) {
    if (holdsTaken(binding))
        return binding.taken;
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    return content != nullptr && content->hasText()
               ? std::optional(DragData{fromQt(content->text()), nullptr})
               : std::nullopt;
}

} // namespace zb
