#include "desktop/keep_painting.h"
#include "outputs/zelto_generator.h"
#include "platform/setting_names.h"
#include "platform/settings.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

#include <memory>

namespace zb::test {
namespace {

// A window that counts its events.
class Counting final : public QWidget {
public:
    Counting() { layout_.addWidget(&field); }

    QLineEdit field;
    int paints = 0;
    int closes = 0;
    int activations = 0;

protected:
    void paintEvent(QPaintEvent* /*event*/) override { ++paints; }
    void closeEvent(QCloseEvent* event) override {
        ++closes;
        event->accept();
    }
    bool event(QEvent* event) override {
        activations += event->type() == QEvent::WindowActivate ? 1 : 0;
        return QWidget::event(event);
    }

private:
    QVBoxLayout layout_{this};
};

struct KeepPainting : ::testing::Test {
    KeepPainting() {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
        window.paints = window.activations = 0;
    }
    Counting window;
};

TEST_F(KeepPainting, PaintsWhatHasChanged) {
    window.update();
    keepPainting();
    EXPECT_GT(window.paints, 0);
}

TEST_F(KeepPainting, ClosesNoWindow) {
    QCoreApplication::postEvent(&window, std::make_unique<QCloseEvent>().release());
    keepPainting();
    EXPECT_EQ(window.closes, 0);
    EXPECT_TRUE(window.isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(window.closes, 0);
}

TEST_F(KeepPainting, MovesNoFocus) {
    QCoreApplication::postEvent(&window, std::make_unique<QEvent>(QEvent::WindowActivate).release());
    keepPainting();
    EXPECT_EQ(window.activations, 0);
}

TEST_F(KeepPainting, LeavesTheWindowsAsTheyWereAfterwards) {
    keepPainting();
    window.close();
    EXPECT_EQ(window.closes, 1);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(KeepPainting, GoesOnWhileAGeneratorRuns) {
    SettingsStore settings = SettingsStore::inMemory();
    settings.writeRegValue(kSettingsKey, kGeneratorCommand, "/bin/sh -c \"sleep 0.3; echo done\"");
    ZeltoGenerator generator(settings, [this](const std::string& /*lines*/) {
        window.update();
        keepPainting();
        return true;
    });
    EXPECT_EQ(generator.generate("/p/Line.zbp"), "done");
    EXPECT_GT(window.paints, 3);
}

} // namespace
} // namespace zb::test
