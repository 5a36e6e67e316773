#include "screen/x11/neighbour.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>

#include <stdexcept>

namespace zb::test {

namespace {

constexpr int kLongestAnswer = 10000; // ms

} // namespace

Neighbour::~Neighbour() {
    if (process_.state() == QProcess::NotRunning)
        return;
    process_.closeWriteChannel();
    process_.waitForFinished(kLongestAnswer);
}

// The program goes on meanwhile: the neighbour may ask it for what it drags or copies.
QByteArray Neighbour::readLine() {
    const QDeadlineTimer deadline(kLongestAnswer);
    while (!process_.canReadLine()) {
        if (deadline.hasExpired() || process_.state() == QProcess::NotRunning)
            throw std::runtime_error("the program beside the windows does not answer");
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return process_.readLine().trimmed();
}

QByteArray Neighbour::ask(const char* command, std::string_view text) {
    if (process_.state() == QProcess::NotRunning) {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(QDir(QCoreApplication::applicationDirPath()).filePath("zeltobench-screen-neighbour"),
                       {});
    }
    const QByteArray bytes(text.data(), static_cast<qsizetype>(text.size()));
    process_.write(QByteArray(command) + ' ' + bytes.toHex() + '\n');
    return readLine();
}

void Neighbour::copy(std::string_view text) {
    ask("copy", text);
}

void Neighbour::select(std::string_view text) {
    ask("select", text);
}

QPoint Neighbour::placeIn(const QByteArray& line) {
    const QList<QByteArray> place = line.split(' ');
    return {place.value(0).toInt(), place.value(1).toInt()};
}

QPoint Neighbour::offer(std::string_view text) {
    return placeIn(ask("offer", text));
}

QPoint Neighbour::offerPicture() {
    return placeIn(ask("picture", {}));
}

QPoint Neighbour::offerFiles(std::string_view paths) {
    return placeIn(ask("files", paths));
}

void Neighbour::await(const char* report) {
    const QByteArray line = readLine();
    if (line != report)
        throw std::runtime_error("the program beside the windows reports " + line.toStdString() + ", not " +
                                 report);
}

void Neighbour::awaitDrag() {
    await("drag");
}

void Neighbour::awaitAnswer() {
    await("answered");
}

void Neighbour::awaitDrop() {
    await("over");
}

} // namespace zb::test
