#pragma once

#include <QObject>

class QSplitter;

namespace zb {

/// Gives the first part of a splitter its share of the space at any size, until the user moves the handle or
/// has moved it in an earlier run.
class SharedSplitter final : public QObject {
public:
    SharedSplitter(QSplitter& splitter, int percentOfFirst);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    QSplitter& splitter_;
    int percent_;
    bool moved_ = false;
};

} // namespace zb
