#include "platform/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

namespace zb {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kTurn{20};

/// Closes its descriptor.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }
    bool isOpen() const { return number_ >= 0; }
    void take(int number) {
        close();
        number_ = number;
    }
    void close() {
        if (isOpen())
            ::close(number_);
        number_ = -1;
    }

private:
    int number_;
};

/// The start state of the program: the pipe as its output, an empty input, its own group, and all signals as
/// in a program started by hand.
class SpawnSettings {
public:
    explicit SpawnSettings(int output) {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions_, output, STDERR_FILENO);
        ::posix_spawnattr_init(&attributes_);
        ::posix_spawnattr_setflags(&attributes_,
                                   POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
        ::posix_spawnattr_setpgroup(&attributes_, 0);
        sigset_t signals;
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes_, &signals);
        for (const int signal : {SIGPIPE, SIGINT, SIGTERM, SIGQUIT, SIGHUP, SIGCHLD, SIGXFSZ})
            ::sigaddset(&signals, signal);
        ::posix_spawnattr_setsigdefault(&attributes_, &signals);
    }
    ~SpawnSettings() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    /// The error number of the system, 0 for none.
    int start(pid_t& process, std::vector<std::string> arguments) const {
        std::vector<char*> words;
        words.reserve(arguments.size() + 1);
        for (std::string& argument : arguments)
            words.push_back(argument.data());
        words.push_back(nullptr);
        return ::posix_spawnp(&process, words.front(), &actions_, &attributes_, words.data(), environ);
    }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

/// Delays the signals that ask this process to end, so that the program that it runs, in its own group and
/// out of the terminal's reach, is ended first. They take effect when this object is destroyed.
class HeldSignals {
public:
    HeldSignals() {
        ::sigemptyset(&signals_);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
            struct sigaction action {};
            // An ignored signal, as in a run that outlives its terminal, stays ignored.
            if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN)
                ::sigaddset(&signals_, signal);
        }
        ::pthread_sigmask(SIG_BLOCK, &signals_, &before_);
    }
    ~HeldSignals() {
        ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
        if (taken_ > 0)
            ::raise(taken_);
    }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

    /// Whether one has come.
    bool hasCome() {
        constexpr timespec kNow{0, 0};
        if (taken_ <= 0)
            taken_ = ::sigtimedwait(&signals_, nullptr, &kNow);
        return taken_ > 0;
    }

private:
    sigset_t signals_{};
    sigset_t before_{};
    int taken_ = 0;
};

/// One run of a program, from its start until its result is known.
class Run {
public:
    Run(const ProcessLimits& limits, ProcessOutcome& outcome) : limits_(limits), outcome_(outcome) {}

    /// False when it could not be started; the outcome contains the reason.
    bool start(const std::vector<std::string>& arguments) {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            return failed(errno);
        output_.take(ends[0]);
        const Descriptor input(ends[1]);
        if (::fcntl(output_.number(), F_SETFL, O_NONBLOCK) != 0)
            return failed(errno);
        const int error = SpawnSettings(input.number()).start(process_, arguments);
        return error == 0 || failed(error);
    }

    void waitForEnd(const ProcessWatch& watch) {
        const auto last = Clock::now() + limits_.time;
        while (!hasEnded()) {
            timedOut_ = Clock::now() >= last;
            if (timedOut_ || stopped_ || signals_.hasCome()) {
                endGroup(watch);
                break;
            }
            turn(watch);
        }
        read();
        reap();
    }

private:
    bool failed(int error) {
        outcome_.end = ProcessOutcome::End::NotStarted;
        outcome_.number = error;
        return false;
    }

    /// Leaves the process unreaped, so that its number, and that of its group, stays in use.
    bool hasEnded() const {
        siginfo_t information{};
        const auto id = static_cast<id_t>(process_);
        return ::waitid(P_PID, id, &information, WEXITED | WNOHANG | WNOWAIT) != 0 ||
               information.si_pid == process_;
    }

    void turn(const ProcessWatch& watch) {
        pollfd watched{output_.number(), POLLIN, 0};
        ::poll(&watched, output_.isOpen() ? 1 : 0, static_cast<int>(kTurn.count()));
        read();
        if (watch && !watch(outcome_.output))
            stopped_ = true;
    }

    /// Reads the contents of the pipe, for a limited time: a program that writes without end must not block
    /// this one.
    void read() {
        constexpr int kMostReads = 64;
        std::array<char, 65536> buffer;
        for (int reads = 0; output_.isOpen() && reads < kMostReads; ++reads) {
            const ssize_t size = ::read(output_.number(), buffer.data(), buffer.size());
            if (size < 0 && errno == EINTR)
                continue;
            if (size < 0 && errno == EAGAIN)
                return;
            if (size <= 0)
                return output_.close();
            keep(buffer.data(), static_cast<std::size_t>(size));
        }
    }

    void keep(const char* bytes, std::size_t size) {
        const std::size_t room = limits_.outputBytes - outcome_.output.size();
        const std::size_t kept = std::min(room, size);
        outcome_.output.append(bytes, kept);
        outcome_.droppedBytes += size - kept;
    }

    void endGroup(const ProcessWatch& watch) {
        ::kill(-process_, SIGTERM);
        const auto last = Clock::now() + limits_.farewell;
        while (!hasEnded() && Clock::now() < last)
            turn(watch);
        ::kill(-process_, SIGKILL);
    }

    void reap() {
        int status = 0;
        while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
        }
        if (stopped_)
            outcome_.end = ProcessOutcome::End::Stopped;
        else if (timedOut_)
            outcome_.end = ProcessOutcome::End::TimedOut;
        else
            outcome_.end = WIFEXITED(status) ? ProcessOutcome::End::Exited : ProcessOutcome::End::Signalled;
        outcome_.number = WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status);
    }

    const ProcessLimits& limits_;
    ProcessOutcome& outcome_;
    HeldSignals signals_;
    Descriptor output_;
    pid_t process_ = -1;
    bool timedOut_ = false;
    bool stopped_ = false;
};

} // namespace

ProcessOutcome runProcess(const std::vector<std::string>& arguments, const ProcessLimits& limits,
                          const ProcessWatch& watch) {
    ProcessOutcome outcome;
    outcome.number = ENOENT;
    if (arguments.empty() || arguments.front().empty())
        return outcome;
    Run run(limits, outcome);
    if (run.start(arguments))
        run.waitForEnd(watch);
    return outcome;
}

std::string describeSignal(int signal) {
    const char* words = ::strsignal(signal);
    return std::to_string(signal) + (words == nullptr ? "" : " (" + std::string(words) + ")");
}

} // namespace zb
