// Every request of memory of the two commands is refused in turn. What is left must be a state
// that the command goes through anyway.
#include "faults/commandruns.h"
#include "faults/rounds.h"
#include "platform/platform.h"

#include <algorithm>

namespace commandmemoryTest {

using namespace orlo::tests;
using namespace taven::tests;

namespace {

const std::string bom = "\xEF\xBB\xBF";

// The states of the folders in the order in which the command goes through them.
std::vector<std::string> slicingStates()
{
    slicing::prepare();
    machine& here = machine::current();
    std::vector<std::string> states{diskText()};
    const auto gone = [&](const char16_t* path) {
        ASSERT_TRUE(orlo::platform::removeFile(path));
        states.push_back(diskText());
    };
    gone(u"C:\\taven\\P1.xml");
    gone(u"C:\\taven\\P1.bmp");
    gone(u"C:\\taven\\MeasuringData_P1.xml");
    here.addFile(u"C:\\taven\\P1.xml", slicing::description);
    states.push_back(diskText());
    here.addFile(u"C:\\taven\\P1.png", slicing::picture);
    states.push_back(diskText());
    return states;
}

// The answers with these titles and messages. Where no memory was left for the value of a
// parameter, its place stays open.
std::vector<std::string> answersWith(const std::vector<std::string>& titles,
                                     const std::vector<std::string>& messages)
{
    std::vector<std::string> answers;
    for (const std::string& title : titles)
        for (const std::string& message : messages)
            answers.push_back(asking::answer(title, message));
    return answers;
}

const std::vector<std::string> defaultMessages = {
    measuredMessage(measuredAt),
    measuredMessage("[datetime]"),
    "Measured data for platform &quot;[platform]&quot; found!&quot;\nPlatform measured on " +
        measuredAt,
};

// Runs the command once for each request until none fails, and gives the number of requests.
// `judge` gets the exit code, or -1 if the failure passed.
template <class Prepare, class Run, class Judge>
std::size_t refuseEach(const Prepare& prepare, const Run& run, const Judge& judge,
                       allocationFault::lasting how)
{
    for (std::size_t nth = 1;; ++nth) {
        prepare();
        std::int32_t code = -1;
        outcome got = outcome::done;
        bool happened = false;
        {
            const allocationFault fault(nth, how);
            got = outcomeOf([&] { code = run(); });
            happened = fault.hasHappened();
        }
        SCOPED_TRACE("request " + std::to_string(nth));
        EXPECT_EQ(machine::current().openHandles(), 0u);
        judge(got, code);
        if (!happened) return nth - 1;
    }
}

// One result only, and the older one until the new one is made.
void judgeResult(outcome got, std::int32_t code, const std::vector<std::string>& answers)
{
    const std::string result = machine::current().content(asking::resultPath);
    EXPECT_EQ(machine::current().content(asking::measuringPath), asking::measured);
    EXPECT_EQ(machine::current().content(u"C:\\taven\\other.txt"), "of somebody else");
    if (got != outcome::done) {
        EXPECT_TRUE(result == asking::older || !machine::current().hasFile(asking::resultPath))
            << result;
        EXPECT_TRUE(machine::current().boxes.empty());
    } else if (code == 0) {
        EXPECT_EQ(onlyBox(),
                  orlo::string(u"Error parsing file \"") + asking::measuringPath + u"\" ");
        EXPECT_EQ(result, asking::older);
    } else {
        EXPECT_EQ(code, 1);
        EXPECT_NE(std::find(answers.begin(), answers.end(), result), answers.end()) << result;
        EXPECT_TRUE(machine::current().boxes.empty());
    }
}

} // namespace

TEST(slistatMemory, stopsBetweenTwoOfItsStepsByTheFailure)
{
    const std::vector<std::string> states = slicingStates();
    slicing::prepare();
    ASSERT_EQ(slicing::run(), 1);
    ASSERT_EQ(diskText(), states.back());

    const auto judge = [&states](outcome got, std::int32_t code) {
        if (got == outcome::done) {
            EXPECT_EQ(code, 1);
            EXPECT_EQ(diskText(), states.back());
        } else {
            EXPECT_EQ(got, outcome::badAlloc);
            EXPECT_NE(std::find(states.begin(), states.end(), diskText()), states.end())
                << diskText();
        }
        EXPECT_TRUE(machine::current().boxes.empty());
    };
    const auto run = [] { return slicing::run(); };
    EXPECT_GT(refuseEach(slicing::prepare, run, judge, allocationFault::lasting::once), 10u);
    EXPECT_GT(refuseEach(slicing::prepare, run, judge, allocationFault::lasting::forGood), 10u);
}

TEST(slistatMemory, reportsAlsoWhereNoMemoryIsLeft)
{
    const auto judge = [](outcome got, std::int32_t code) {
        if (got != outcome::done) return;
        EXPECT_EQ(code, 0);
        EXPECT_EQ(taven::tests::boxes(),
                  (std::vector<orlo::string>{u"Status message: \"ended_success\"",
                                             u"Taven folder \"C:\\none\\\" not found"}));
    };
    const auto run = [] { return slicing::run({u"-tavenfldr:C:\\none", u"-debug"}); };
    refuseEach(slicing::prepare, run, judge, allocationFault::lasting::once);
}

TEST(getncsMemory, answersWhollyOrReportsOrLeavesByTheFailure)
{
    asking::prepare();
    ASSERT_EQ(asking::run(), 1);
    ASSERT_EQ(machine::current().content(asking::resultPath), asking::defaultAnswer);

    bool reported = false;
    bool passed = false;
    const auto judge = [&](outcome got, std::int32_t code) {
        reported = reported || code == 0;
        passed = passed || got == outcome::badAlloc;
        EXPECT_TRUE(got == outcome::done || got == outcome::badAlloc) << got;
        judgeResult(got, code, answersWith({"taven-kolve Morrel"}, defaultMessages));
    };
    const auto run = [] { return asking::run(); };
    EXPECT_GT(refuseEach(asking::prepare, run, judge, allocationFault::lasting::once), 50u);
    EXPECT_TRUE(reported) << "a failure while the file is loaded is told to the user";
    EXPECT_TRUE(passed) << "all others end the process";
    refuseEach(asking::prepare, run, judge, allocationFault::lasting::forGood);
}

// A language file that can't be read in full leaves the default texts.
TEST(getncsMemory, usesDefaultTextsWhereTheLanguageFileCannotBeRead)
{
    static std::int64_t time = 1'800'000'000;
    const auto prepare = [] {
        asking::prepare();
        machine::current().addFile(
            asking::languagePath,
            bom + "brx_msgTitle A title of some length\n"
                  "brx_measureFound Found [platform], [datetime], and that is all\n");
        machine::current().setModificationTime(asking::languagePath, ++time);
    };
    std::vector<std::string> messages = {"Found P1, " + measuredAt + ", and that is all",
                                         "Found P1, [datetime], and that is all",
                                         "Found [platform], " + measuredAt + ", and that is all"};
    messages.insert(messages.end(), defaultMessages.begin(), defaultMessages.end());
    const std::vector<std::string> answers =
        answersWith({"A title of some length", "taven-kolve Morrel"}, messages);

    // What is made but once for the process is there before the first failure.
    prepare();
    ASSERT_EQ(asking::run(), 1);

    bool usedDefault = false;
    const auto judge = [&](outcome got, std::int32_t code) {
        judgeResult(got, code, answers);
        const std::string result = machine::current().content(asking::resultPath);
        usedDefault = usedDefault ||
                      result == asking::answer("A title of some length", defaultMessages[0]) ||
                      result == asking::answer("taven-kolve Morrel", messages[0]);
    };
    refuseEach(
        prepare, [] { return asking::run(); }, judge, allocationFault::lasting::once);
    EXPECT_TRUE(usedDefault);
    EXPECT_EQ(machine::current().content(asking::resultPath), answers[0])
        << "the last run, in which nothing failed";
}

} // namespace commandmemoryTest
