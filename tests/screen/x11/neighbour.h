#pragma once

#include <QPoint>
#include <QProcess>

#include <string_view>

namespace zb::test {

/// Another program on the display, in a process of its own: the owner of the clipboard, and what texts and
/// files are dragged from. It is started when it is needed first.
class Neighbour {
public:
    ~Neighbour();

    /// The clipboard is its own from then on.
    void copy(std::string_view text);
    /// The selection, which the middle button pastes, is its own from then on.
    void select(std::string_view text);
    /// The place to drag this text from, or a picture, or the files with these paths, one a line.
    QPoint offer(std::string_view text);
    QPoint offerPicture();
    QPoint offerFiles(std::string_view paths);
    /// Its drag has begun; was accepted or refused at the place to which the pointer has moved; is over.
    void awaitDrag();
    void awaitAnswer();
    void awaitDrop();

private:
    static QPoint placeIn(const QByteArray& line);
    QByteArray ask(const char* command, std::string_view text);
    void await(const char* report);
    QByteArray readLine();

    QProcess process_;
};

} // namespace zb::test
