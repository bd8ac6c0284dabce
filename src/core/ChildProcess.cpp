#include "core/ChildProcess.h"

#include <QFile>
#include <QStandardPaths>

#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

#include <array>
#include <cerrno>
#include <csignal>
#include <vector>

extern char** environ;

// The child is started with fork and exec rather than QProcess: it needs no Qt
// thread on the calling side, and ThreadSanitizer follows a fork, while after
// QProcess's start (a clone sharing the parent's memory) it loses track of the
// parent's locks and misses races.

namespace {

// A pipe whose ends are closed when it goes away; both ends are closed on exec.
class Pipe {
public:
    Pipe() { mOpen = ::pipe2(mEnds.data(), O_CLOEXEC) == 0; }
    ~Pipe()
    {
        closeReadEnd();
        closeWriteEnd();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    bool isOpen() const { return mOpen; }
    int readEnd() const { return mEnds[0]; }
    int writeEnd() const { return mEnds[1]; }
    void closeReadEnd() { closeEnd(0); }
    void closeWriteEnd() { closeEnd(1); }

private:
    void closeEnd(int end)
    {
        if (mEnds[end] >= 0)
            ::close(mEnds[end]);
        mEnds[end] = -1;
    }

    std::array<int, 2> mEnds{-1, -1};
    bool mOpen = false;
};

// Everything the child needs, prepared before the fork: between fork and exec
// the child may only make async-signal-safe calls.
struct ChildSetup {
    QByteArray path;
    std::vector<char*> argv;
    pid_t parent;
    int standardOutput;
    int standardError;
    int execError; // receives errno when the exec fails
};

[[noreturn]] void startChild(const ChildSetup& setup)
{
#ifdef Q_OS_LINUX
    // A child outliving a killed program would go on writing work files that
    // the next run has already made anew: it ends with the program.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != setup.parent)
        ::_exit(127);
#endif
    const int nullDevice = ::open("/dev/null", O_RDONLY);
    if (nullDevice < 0 || ::dup2(nullDevice, STDIN_FILENO) < 0 || ::dup2(setup.standardOutput, STDOUT_FILENO) < 0 ||
        ::dup2(setup.standardError, STDERR_FILENO) < 0)
        ::_exit(127);

    // The program starts with the default action for every signal we catch or
    // ignore a broken pipe for, and with none blocked.
    struct sigaction defaultAction {};
    defaultAction.sa_handler = SIG_DFL;
    for (int signal = 1; signal < NSIG; ++signal) {
        struct sigaction current {};
        if (::sigaction(signal, nullptr, &current) != 0 || current.sa_handler == SIG_DFL)
            continue;
        if (current.sa_handler != SIG_IGN || signal == SIGPIPE)
            ::sigaction(signal, &defaultAction, nullptr);
    }
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);

    ::execve(setup.path.constData(), setup.argv.data(), environ);
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(setup.execError, &error, sizeof error);
    ::_exit(127);
}

// Reads both pipes until both are closed, so that a child filling one of them
// never waits on us while we wait on the other.
void readUntilClosed(int out, int err, QByteArray& standardOutput, QByteArray& standardError)
{
    std::array<pollfd, 2> fds{{{out, POLLIN, 0}, {err, POLLIN, 0}}};
    const std::array<QByteArray*, 2> sinks{&standardOutput, &standardError};
    int stillOpen = 2;
    std::array<char, 65536> buffer;
    while (stillOpen > 0) {
        if (::poll(fds.data(), fds.size(), -1) < 0) {
            if (errno == EINTR)
                continue;
            return;
        }
        for (std::size_t i = 0; i < fds.size(); ++i) {
            if (fds[i].fd < 0 || fds[i].revents == 0)
                continue;
            const ssize_t count = ::read(fds[i].fd, buffer.data(), buffer.size());
            if (count > 0) {
                sinks[i]->append(buffer.data(), qsizetype(count));
            } else if (count == 0 || errno != EINTR) {
                fds[i].fd = -1;
                --stillOpen;
            }
        }
    }
}

int waitForExit(pid_t pid)
{
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR)
            return -1;
    }
    return status;
}

} // namespace

ProcessResult ChildProcess::run(const QString& program, const QStringList& arguments)
{
    ProcessResult result;
    const QString found = program.contains(u'/') ? program : QStandardPaths::findExecutable(program);
    if (found.isEmpty())
        return result;
    std::vector<QByteArray> words{QFile::encodeName(program)};
    for (const QString& argument : arguments)
        words.push_back(QFile::encodeName(argument));

    Pipe out;
    Pipe err;
    Pipe execError;
    if (!out.isOpen() || !err.isOpen() || !execError.isOpen())
        return result;
    ChildSetup setup{QFile::encodeName(found), {}, ::getpid(), out.writeEnd(), err.writeEnd(), execError.writeEnd()};
    for (QByteArray& word : words)
        setup.argv.push_back(word.data());
    setup.argv.push_back(nullptr);

    // No signal handler of ours may run in the child before its exec.
    sigset_t all;
    sigfillset(&all);
    sigset_t previous;
    ::pthread_sigmask(SIG_SETMASK, &all, &previous);
    const pid_t pid = ::fork();
    if (pid == 0)
        startChild(setup);
    ::pthread_sigmask(SIG_SETMASK, &previous, nullptr);
    if (pid < 0)
        return result;

    out.closeWriteEnd();
    err.closeWriteEnd();
    execError.closeWriteEnd();
    int error = 0;
    ssize_t count = 0;
    do {
        count = ::read(execError.readEnd(), &error, sizeof error);
    } while (count < 0 && errno == EINTR);
    if (count == sizeof error) {
        waitForExit(pid);
        return result;
    }

    result.started = true;
    readUntilClosed(out.readEnd(), err.readEnd(), result.standardOutput, result.standardError);
    const int status = waitForExit(pid);
    result.crashed = status >= 0 && WIFSIGNALED(status);
    result.exitCode = status >= 0 && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}
