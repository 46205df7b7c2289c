#include "runtool.h"

#include <filesystem>
#include <thread>

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

std::string bytesOf(const std::u16string& text)
{
    return std::filesystem::path(text).string();
}

// With its standard input at the end, a report of the tool needs no answer; it goes to our
// standard error.
bool start(std::vector<std::string>& words, pid_t& process)
{
    std::vector<char*> values;
    for (std::string& word : words) values.push_back(word.data());
    values.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    const int failure =
        ::posix_spawn(&process, values[0], &actions, nullptr, values.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    return failure == 0;
}

// A signal gives a code that no program returns here by itself, as shells count.
int codeOf(int status)
{
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace

ended runProgram(const std::u16string& program, const std::vector<std::u16string>& arguments,
                 std::chrono::seconds limit)
{
    std::vector<std::string> words{bytesOf(program)};
    for (const std::u16string& argument : arguments) words.push_back(bytesOf(argument));
    pid_t process = 0;
    if (!start(words, process)) return {};

    const auto end = std::chrono::steady_clock::now() + limit;
    int status = 0;
    while (::waitpid(process, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > end) {
            ::kill(process, SIGKILL);
            ::waitpid(process, &status, 0);
            return {ended::how::afterTheLimit};
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return {ended::how::byItself, codeOf(status)};
}
