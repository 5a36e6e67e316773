#include "platform/end_requests.h"

#include <gtest/gtest.h>

#include <csignal>

#include <poll.h>

namespace zb::test {
namespace {

bool isRequested(const EndRequests& requests) {
    pollfd waiting{requests.descriptor(), POLLIN, 0};
    return ::poll(&waiting, 1, 0) == 1;
}

TEST(EndRequests, ARequestWaitsUntilItIsObeyed) {
    const EndRequests requests;
    EXPECT_FALSE(isRequested(requests));
    std::raise(SIGTERM);
    EXPECT_TRUE(isRequested(requests));
}

TEST(EndRequests, ObeyEndsTheProcessAsTheSignalWouldHave) {
    for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
        EXPECT_EXIT(
            {
                EndRequests requests;
                std::raise(number);
                requests.obey();
            },
            ::testing::KilledBySignal(number), "");
    }
}

TEST(EndRequests, WithoutARequestTheProgramGoesOn) {
    EndRequests requests;
    requests.obey();
    EXPECT_FALSE(isRequested(requests));
}

TEST(EndRequests, AnIgnoredSignalStaysIgnored) {
    std::signal(SIGHUP, SIG_IGN);
    {
        const EndRequests requests;
        std::raise(SIGHUP);
        EXPECT_FALSE(isRequested(requests));
    }
    EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
}

} // namespace
} // namespace zb::test
