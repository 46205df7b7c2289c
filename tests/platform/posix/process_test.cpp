// What a process shows and how it ends, seen from a parent.
#include "platform/platform.h"

#include "orlorefptr.h"
#include "orloreport.h"
#include "support/allocations.h"
#include "support/posix/apart.h"
#include "support/tempfolder.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace posixProcessTest {

using namespace orlo;
using namespace orlo::tests;

namespace {

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

namespace {

struct pipeEnds {
    pipeEnds()
    {
        int both[2];
        if (::pipe(both) != 0) ::_exit(90);
        out = both[0];
        in = both[1];
    }
    int out;
    int in;
};

void setNonBlocking(int end)
{
    if (::fcntl(end, F_SETFL, O_NONBLOCK) != 0) ::_exit(91);
}

// Standard error becomes a pipe that nobody reads.
void breakErrors()
{
    const pipeEnds broken;
    ::dup2(broken.in, STDERR_FILENO);
    ::close(broken.in);
    ::close(broken.out);
}

bool isPending(int signal)
{
    sigset_t pending;
    return ::sigpending(&pending) == 0 && ::sigismember(&pending, signal) == 1;
}

void block(int signal)
{
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, signal);
    ::sigprocmask(SIG_BLOCK, &blocked, nullptr);
}

// The standard input of this process, which answers after a while.
class lateAnswer {
public:
    explicit lateAnswer(void (*before)(pthread_t asking))
    {
        ::dup2(m_pipe.out, STDIN_FILENO);
        m_thread = std::thread([this, before, asking = ::pthread_self()] {
            for (int round = 0; round < 20; ++round) {
                before(asking);
                ::usleep(2000);
            }
            m_given = true;
            if (::write(m_pipe.in, "\n", 1) != 1) ::_exit(92);
        });
    }
    ~lateAnswer() { m_thread.join(); }
    [[nodiscard]] bool isGiven() const { return m_given; }

private:
    pipeEnds m_pipe;
    std::atomic<bool> m_given = false;
    std::thread m_thread;
};

} // namespace

TEST(messageBoxSystem, isNotNoticedToFailWhereNobodyReadsIt)
{
    const ending end = runApart("\n", [] {
        breakErrors();
        show(u"unseen");
        show(u"neither");
        ::_exit(7);
    });
    ASSERT_TRUE(WIFEXITED(end.status)) << WTERMSIG(end.status);
    EXPECT_EQ(WEXITSTATUS(end.status), 7);
}

TEST(messageBoxSystem, leavesTheSignalsOfTheProcessAsTheyWere)
{
    const ending end = runApart("\n", [] {
        breakErrors();
        struct sigaction before;
        struct sigaction after;
        ::sigaction(SIGPIPE, nullptr, &before);
        show(u"unseen");
        ::sigaction(SIGPIPE, nullptr, &after);
        sigset_t blocked;
        ::sigprocmask(SIG_BLOCK, nullptr, &blocked);
        if (before.sa_handler != after.sa_handler || ::sigismember(&blocked, SIGPIPE) == 1)
            ::_exit(1);
        block(SIGPIPE);
        show(u"unseen");
        if (isPending(SIGPIPE)) ::_exit(2);
        ::raise(SIGPIPE);
        show(u"unseen");
        if (!isPending(SIGPIPE)) ::_exit(3);
    });
    EXPECT_EQ(end.status, 0);
}

namespace {

using outputSystemTest = systemTest;

} // namespace

// A name in the file system may be that of a pipe too.
TEST_F(outputSystemTest, toAPipeThatNobodyReadsAnyMoreFailsAndEndsNothing)
{
    const std::string name = native("pipe");
    ASSERT_EQ(::mkfifo(name.c_str(), 0600), 0);
    const string told = path("pipe");
    const ending end = runApart("", [&] {
        const int reader = ::open(name.c_str(), O_RDONLY | O_NONBLOCK);
        const platform::fileHandle out = platform::openFile(told, platform::openMode::write);
        if (platform::writeFile(out, "read", 4) != 4) ::_exit(1);
        char got[4];
        if (::read(reader, got, 4) != 4 || std::string_view(got, 4) != "read") ::_exit(2);
        ::close(reader);
        if (platform::writeFile(out, "lost", 4) != 0) ::_exit(3);
        ::_exit(7);
    });
    ASSERT_TRUE(WIFEXITED(end.status)) << WTERMSIG(end.status);
    EXPECT_EQ(WEXITSTATUS(end.status), 7);
}

TEST(messageBoxSystem, waitsForAnAnswerAlsoAtAnInputThatDoesNotWait)
{
    const ending end = runApart("", [] {
        const lateAnswer answer([](pthread_t) {});
        setNonBlocking(STDIN_FILENO);
        show(u"text");
        if (!answer.isGiven()) ::_exit(1);
    });
    EXPECT_EQ(end.errors, "Velmora\ntext\n");
    EXPECT_EQ(end.status, 0);
}

TEST(messageBoxSystem, waitsForAnAnswerAlsoWhenItIsInterrupted)
{
    for (const bool waits : {true, false}) {
        const ending end = runApart("", [waits] {
            struct sigaction noted {};
            noted.sa_handler = [](int) {};
            ::sigaction(SIGUSR1, &noted, nullptr);
            const lateAnswer answer([](pthread_t asking) { ::pthread_kill(asking, SIGUSR1); });
            if (!waits) setNonBlocking(STDIN_FILENO);
            show(u"text");
            if (!answer.isGiven()) ::_exit(1);
        });
        EXPECT_EQ(end.status, 0) << waits;
    }
}

TEST(messageBoxSystem, isShownWholeWhereTheOutputDoesNotWait)
{
    const ending end = runApart("", [] {
        const pipeEnds errors;
        ::dup2(errors.in, STDERR_FILENO);
        setNonBlocking(errors.in);
        const std::string full(65536, 'x');
        const ssize_t filled = ::write(errors.in, full.data(), full.size());
        if (filled <= 0) ::_exit(1);
        std::string read(static_cast<std::size_t>(filled) + 13, '\0');
        std::thread reader([&] {
            ::usleep(20000);
            for (std::size_t done = 0; done < read.size();) {
                const ssize_t got = ::read(errors.out, read.data() + done, read.size() - done);
                if (got <= 0) ::_exit(2);
                done += static_cast<std::size_t>(got);
            }
        });
        show(u"text");
        reader.join();
        if (!read.ends_with("xVelmora\ntext\n")) ::_exit(3);
    });
    EXPECT_EQ(end.status, 0);
}

TEST(messageBoxSystem, takesNoMemory)
{
    const ending end = runApart("", [] {
        const allocationFault fault(1, allocationFault::lasting::forGood);
        reportMessage(u"%s: %d", u"a file with a rather long name", 7);
        try {
            static_cast<void>(*refptr<refObj>());
        } catch (bool value) {
            ::_exit(value ? 1 : 7);
        }
    });
    EXPECT_EQ(end.errors, "Velmora\na file with a rather long name: 7\n"
                          "Velmora\nAssertion failed:\nm_p != NULL\n\n"
                          "File: libs/utils/inc/orlorefptr\nLine: 315\n");
    ASSERT_TRUE(WIFEXITED(end.status));
    EXPECT_EQ(WEXITSTATUS(end.status), 7);
}

TEST(messageBoxSystem, showsTheLongestTextWhole)
{
    const std::u16string text(platform::longestBoxText, u'\u8A9E');
    const ending end = runApart("", [&text] { show(text.c_str()); });
    std::string expected = "Velmora\n";
    for (std::size_t i = 0; i < text.size(); ++i) expected += "\xE8\xAA\x9E";
    EXPECT_EQ(end.errors, expected + "\n");
}

TEST(processSystem, hasTheNumberOfTheProcess)
{
    EXPECT_EQ(platform::processId(), static_cast<std::uint32_t>(::getpid()));
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

} // namespace posixProcessTest
