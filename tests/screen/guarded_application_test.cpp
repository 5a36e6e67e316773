#include "desktop/guarded_application.h"

#include <gmock/gmock.h>

#include <QMetaObject>

#include <new>

namespace zb::test {
namespace {

struct GuardedEvents : ::testing::Test {
    ~GuardedEvents() override { application().onOutOfMemory = nullptr; }

    // The application of this test program is one of this kind.
    static GuardedApplication& application() {
        return *static_cast<GuardedApplication*>(QCoreApplication::instance());
    }
    static void runOutOfMemory() {
        QMetaObject::invokeMethod(
            &application(), [] { throw std::bad_alloc(); }, Qt::QueuedConnection);
        QCoreApplication::processEvents();
    }

    int reports = 0;
};

TEST_F(GuardedEvents, AHandlerThatRunsOutOfMemoryIsReportedAndTheProgramGoesOn) {
    application().onOutOfMemory = [this] { ++reports; };
    runOutOfMemory();
    EXPECT_EQ(reports, 1);
    runOutOfMemory();
    EXPECT_EQ(reports, 2);
}

TEST_F(GuardedEvents, AReportThatRunsOutOfMemoryItselfEndsOnlyItself) {
    application().onOutOfMemory = [this] {
        ++reports;
        runOutOfMemory();
        throw std::bad_alloc();
    };
    runOutOfMemory();
    EXPECT_EQ(reports, 1);
    runOutOfMemory();
    EXPECT_EQ(reports, 2);
}

} // namespace
} // namespace zb::test
