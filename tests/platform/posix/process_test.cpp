// What a process shows and how it ends, seen from a parent.
#include "platform/platform.h"

#include "support/tempfolder.h"

#include <csignal>
#include <cstdlib>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace orlo;
using namespace orlo::tests;

namespace {

struct ending {
    int status = 0;
    std::string output; // standard output
    std::string errors; // standard error
    std::string unread; // what was left of standard input
};

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

// Runs `work` in a process of its own with `input` on its standard input.
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

void show(const char16_t* text)
{
    platform::showMessageBox(nullptr, text, u"Velmora", platform::taskModal);
}

} // namespace

TEST(messageBoxSystem, showsTitleAndTextOnStandardErrorAndWaitsForALine)
{
    const ending end = runApart("ok\nnext\n", [] { show(u"Pr\u00FCf \"x\"\nsecond line"); });
    EXPECT_EQ(end.errors, "Velmora\nPr\xC3\xBC"
                          "f \"x\"\nsecond line\n");
    EXPECT_EQ(end.output, "");
    EXPECT_EQ(end.unread, "next\n");
    EXPECT_EQ(end.status, 0);
}

TEST(messageBoxSystem, isAnsweredByTheEndOfTheInput)
{
    for (const char* input : {"", "half a line"}) {
        const ending end = runApart(input, [] { show(u"text"); });
        EXPECT_EQ(end.errors, "Velmora\ntext\n");
        EXPECT_EQ(end.status, 0);
    }
}

TEST(messageBoxSystem, takesOneLineForEachBox)
{
    const ending end = runApart("1\n2\n3\n", [] {
        show(u"first");
        show(u"second");
    });
    EXPECT_EQ(end.errors, "Velmora\nfirst\nVelmora\nsecond\n");
    EXPECT_EQ(end.unread, "3\n");
}

TEST(messageBoxSystem, showsTheBytesOfForeignNames)
{
    const ending end = runApart("", [] { show(u"a\xDCFF\xDC5C"); });
    EXPECT_EQ(end.errors, "Velmora\na\xFF\\\n");
}

TEST(messageBoxSystem, comesBackWithoutAnyInput)
{
    const ending end = runApart("", [] {
        ::close(STDIN_FILENO);
        show(u"text");
    });
    EXPECT_EQ(end.errors, "Velmora\ntext\n");
    EXPECT_EQ(end.status, 0);
}

TEST(messageBoxSystem, hasNoWindowToBelongTo)
{
    EXPECT_TRUE(platform::enumerateWindows([](platform::window, void*) { return false; }, nullptr));
    EXPECT_EQ(platform::windowProcess(nullptr), 0u);
    EXPECT_EQ(platform::parentWindow(nullptr), nullptr);
    EXPECT_EQ(platform::lastActivePopup(nullptr), nullptr);
}

TEST(endAbnormallySystem, abortsWithoutAWord)
{
    const ending end = runApart("", [] { platform::endAbnormally(); });
    ASSERT_TRUE(WIFSIGNALED(end.status));
    EXPECT_EQ(WTERMSIG(end.status), SIGABRT);
    EXPECT_EQ(end.output, "");
    EXPECT_EQ(end.errors, "");
}

using copyFailureTest = systemTest;

TEST_F(copyFailureTest, leavesNoHalfFile)
{
    put("source", std::string(1000000, 's'));
    put("existing", "old");
    for (const char* name : {"new", "existing"}) {
        const string source = path("source");
        const string target = path(name);
        const ending end = runApart("", [&] {
            ::signal(SIGXFSZ, SIG_IGN);
            const rlimit small = {500000, 500000};
            ::setrlimit(RLIMIT_FSIZE, &small);
            ::_exit(platform::copyFile(source, target, false) ? 1 : 0);
        });
        EXPECT_EQ(end.status, 0) << "the copy worked";
        EXPECT_FALSE(isThere(name)) << name;
    }
}

TEST(localeSystem, tellsTheSeparatorOfTheEnvironment)
{
    // A locale that is not installed counts as "C".
    for (const char* name : {"C", "POSIX", "no_such_LOCALE"}) {
        const ending end = runApart("", [name] {
            ::setenv("LC_ALL", name, 1);
            string user;
            string system;
            const bool told =
                platform::userDecimalSeparator(user) && platform::systemDecimalSeparator(system);
            ::_exit(told && user == u"." && system == u"." ? 0 : 1);
        });
        EXPECT_EQ(end.status, 0) << name;
    }
}

TEST(localTimeSystem, followsTheTimeZoneOfTheEnvironment)
{
    const ending end = runApart("", [] {
        for (const char* zone : {"UTC0", "EST5"}) {
            ::setenv("TZ", zone, 1);
            std::tm local{};
            if (!platform::localTime(1709640000, local)) ::_exit(1);
            const std::string text = std::to_string(local.tm_hour) + "\n";
            if (::write(STDOUT_FILENO, text.data(), text.size()) < 0) ::_exit(1);
        }
    });
    EXPECT_EQ(end.output, "12\n7\n");
    EXPECT_EQ(end.status, 0);
}
