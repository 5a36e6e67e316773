#pragma once

#include <QPlainTextEdit>

#include <functional>

namespace zb {

/// A field of several lines that takes plain text only. The widget of Qt reads the first format of what is
/// pasted without asking whether there is one: a click of the middle button where nothing is selected, or a
/// paste from a clipboard whose owner does not answer, ended the program.
class LinesEdit final : public QPlainTextEdit {
public:
    using QPlainTextEdit::QPlainTextEdit;

    /// Whether so many characters may be pasted or dropped. Unset takes any number.
    std::function<bool(qsizetype characters)> takes;

protected:
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
};

} // namespace zb
