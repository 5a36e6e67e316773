#include "desktop/watched_generator.h"
#include "platform/setting_names.h"
#include "platform/settings.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

#include <filesystem>
#include <functional>

namespace zb::test {
namespace {

struct WatchedRun : ::testing::Test {
    std::string run(const std::string& script) {
        const std::filesystem::path path = folder / "generator";
        writeFile(path, "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        settings.writeRegValue(kSettingsKey, kGeneratorCommand, path.string());
        return generator.generate("/p/Line.zbp");
    }
    static QWidget* dialog() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == QLatin1String("generator") && widget->isVisible())
                return widget;
        }
        return nullptr;
    }
    /// Looks again and again while the generator runs.
    void watch(const std::function<void(QWidget& dialog)>& look) {
        QObject::connect(&looking, &QTimer::timeout, [look] {
            if (QWidget* shown = dialog(); shown != nullptr)
                look(*shown);
        });
        looking.start(10);
    }

    TemporaryFolder folder;
    SettingsStore settings = SettingsStore::inMemory();
    WatchedGenerator generator{settings, {}, [] { return nullptr; }};
    QTimer looking;
};

TEST_F(WatchedRun, ShowsTheOutputWhileItRuns) {
    QString seen;
    watch([&seen](QWidget& shown) {
        seen = shown.findChild<QPlainTextEdit*>(QStringLiteral("generatorOutput"))->toPlainText();
    });
    EXPECT_EQ(run("echo one; sleep 0.6; echo '<b>two</b>'; sleep 0.6"), "one\r\n<b>two</b>");
    EXPECT_EQ(seen, QStringLiteral("one\n<b>two</b>"));
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(WatchedRun, IsStoppedByTheButton) {
    watch([](QWidget& shown) {
        if (auto* stop = shown.findChild<QPushButton*>(QStringLiteral("generatorStop")); stop->isEnabled())
            stop->click();
    });
    EXPECT_EQ(run("echo started; sleep 60; echo done"), "started\r\nThe generator was stopped.");
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(WatchedRun, IsStoppedByClosingTheDialog) {
    watch([](QWidget& shown) { shown.close(); });
    EXPECT_EQ(run("sleep 60"), "The generator was stopped.");
}

TEST_F(WatchedRun, ThatIsShortShowsNoDialog) {
    bool shown = false;
    watch([&shown](QWidget& /*dialog*/) { shown = true; });
    EXPECT_EQ(run("echo quick"), "quick");
    EXPECT_FALSE(shown);
}

} // namespace
} // namespace zb::test
