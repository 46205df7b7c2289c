#include "support/posix/apart.h"

#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orlo::tests {

namespace {

std::string drain(int from)
{
    std::string all;
    char block[4096];
    for (ssize_t got = ::read(from, block, sizeof block); got > 0;
         got = ::read(from, block, sizeof block)) {
        all.append(block, static_cast<std::size_t>(got));
    }
    ::close(from);
    return all;
}

} // namespace

ending runApart(const std::string& input, const std::function<void()>& work)
{
    int in[2];
    int out[2];
    int err[2];
    if (::pipe(in) != 0 || ::pipe(out) != 0 || ::pipe(err) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit noCore = {0, 0};
        ::setrlimit(RLIMIT_CORE, &noCore);
        ::dup2(in[0], STDIN_FILENO);
        ::dup2(out[1], STDOUT_FILENO);
        ::dup2(err[1], STDERR_FILENO);
        for (const int end : {in[0], in[1], out[0], out[1], err[0], err[1]}) ::close(end);
        work();
        ::_exit(0);
    }
    ::close(out[1]);
    ::close(err[1]);
    if (::write(in[1], input.data(), input.size()) < 0) throw std::runtime_error("no input");
    ::close(in[1]);
    ending end;
    end.output = drain(out[0]);
    end.errors = drain(err[0]);
    ::waitpid(child, &end.status, 0);
    end.unread = drain(in[0]);
    return end;
}

} // namespace orlo::tests
