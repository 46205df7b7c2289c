// Every call that the two commands make of the machine fails in turn. What must come of it
// follows from the call alone.
#include "faults/commandruns.h"
#include "faults/rounds.h"
#include "platform/platform.h"
#include "support/languagefile.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace commandcallsTest {

using namespace orlo::tests;
using orlo::narrow;
using orlo::string;
using namespace taven::tests;

namespace {

// What a run shows to the world.
struct traces {
    std::int32_t code = -1;
    outcome left = outcome::done;
    std::vector<string> boxes;
    std::string disk;
    bool operator==(const traces&) const = default;
};

std::ostream& operator<<(std::ostream& out, const traces& shown)
{
    out << "exit code " << shown.code << ", left by " << shown.left << "\n";
    for (const string& text : shown.boxes) out << "box: " << narrow(text) << "\n";
    return out << shown.disk;
}

// The machine's files as they are now, with what a run gave.
traces tracesNow(std::int32_t code, std::vector<string> boxes = {}, outcome left = outcome::done)
{
    return {code, left, std::move(boxes), diskText()};
}

traces tracesOf(const std::function<std::int32_t()>& run)
{
    std::int32_t code = -1;
    const outcome left = outcomeOf([&] { code = run(); });
    return tracesNow(code, machine::current().boxTexts(), left);
}

// One call of a run: which one, and how many like it went before.
struct madeCall {
    std::string operation;
    std::string subject;
    std::size_t nth = 0; // of this operation and subject, from 1
};

std::vector<madeCall> callsOf(const std::function<void()>& prepare,
                              const std::function<std::int32_t()>& run)
{
    prepare();
    machine::current().calls.clear();
    run();
    std::vector<madeCall> made;
    for (const auto& call : machine::current().calls) {
        const auto same = std::count_if(made.begin(), made.end(), [&call](const madeCall& other) {
            return other.operation == call.operation &&
                   other.subject == narrow(string(call.subject));
        });
        made.push_back({call.operation, narrow(call.subject), static_cast<std::size_t>(same) + 1});
    }
    return made;
}

// Runs with each call failing and compares with what `expected` tells of this call; it works on
// a machine that is prepared anew.
void failEach(const std::function<void()>& prepare, const std::function<std::int32_t()>& run,
              const std::function<traces(const madeCall&)>& expected)
{
    prepare();
    run(); // what is made but once for the process is made before
    const std::vector<madeCall> calls = callsOf(prepare, run);
    ASSERT_GT(calls.size(), 5u);
    for (const bool shortened : {false, true}) {
        for (std::size_t nth = 1; nth <= calls.size(); ++nth) {
            const madeCall& call = calls[nth - 1];
            prepare();
            machine::current().shortTransfers = shortened;
            const traces wanted = expected(call);
            prepare();
            machine::current().shortTransfers = shortened;
            machine::current().failCall("", nth);
            EXPECT_EQ(tracesOf(run), wanted)
                << nth << ": " << call.operation << " " << call.subject;
            EXPECT_EQ(machine::current().openHandles(), 0u)
                << nth << ": " << call.operation << " " << call.subject;
        }
    }
}

bool isOneOf(const std::string& text, std::initializer_list<const char*> set)
{
    return std::find(set.begin(), set.end(), text) != set.end();
}

const char16_t* const description = u"C:\\taven\\P1.xml";
const char16_t* const oldPicture = u"C:\\taven\\P1.bmp";
const char16_t* const newPicture = u"C:\\taven\\P1.png";
const char16_t* const measuring = u"C:\\taven\\MeasuringData_P1.xml";

void drop(const char16_t* path)
{
    ASSERT_TRUE(orlo::platform::removeFile(path));
}

void dropAllOfThePlatform()
{
    drop(description);
    drop(oldPicture);
    drop(measuring);
}

void bringIn()
{
    machine::current().addFile(description, slicing::description);
    machine::current().addFile(newPicture, slicing::picture);
}

} // namespace

namespace {

traces afterSlicing(const madeCall& call, const std::vector<string>& boxes)
{
    const bool question = isOneOf(call.operation, {"access", "queryStatus"});
    if (question && call.subject == "C:\\taven\\") {
        std::vector<string> told = boxes;
        if (!told.empty()) told.emplace_back(u"Taven folder \"C:\\taven\\\" not found");
        return tracesNow(0, told);
    }
    if (call.operation == "findFirst" && call.subject == "C:\\taven\\P1.*") {
        drop(measuring);
        bringIn(); // over the old description
        return tracesNow(1, boxes);
    }
    dropAllOfThePlatform();
    if (question && call.subject == "C:\\slices\\") {
        std::vector<string> told = boxes;
        if (!told.empty()) told.emplace_back(u"Slicing output folder \"C:\\slices\\\" not found");
        return tracesNow(0, told);
    }
    if (question && call.subject == "C:\\slices\\P1.xml") return tracesNow(0, boxes);
    bringIn();
    const bool removes = question || call.operation == "removeFile";
    if (removes && call.subject == narrow(oldPicture))
        machine::current().addFile(oldPicture, "old picture");
    if (removes && call.subject == narrow(measuring))
        machine::current().addFile(measuring, "measured");
    if (call.operation == "copyFile" && call.subject == "C:\\slices\\P1.xml") drop(description);
    if (call.operation == "copyFile" && call.subject == "C:\\slices\\screen.png") drop(newPicture);
    if (call.operation == "findFirst" && call.subject == "C:\\slices\\screen.*") drop(newPicture);
    if (call.operation == "findNext") {
        // In the taven folder the hits come one by one: "P1.xml", "P1.bmp", and the end. In the
        // other one "screen.txt" comes first, and "screen.png" ends the search.
        if (call.nth == 1) machine::current().addFile(oldPicture, "old picture");
        if (call.nth == 3) {
            drop(newPicture);
            machine::current().addFile(u"C:\\taven\\P1.txt", "no picture");
        }
    }
    return tracesNow(1, boxes);
}

} // namespace

TEST(slistatCalls, eachFailureHasTheOutcomeThatItsStepTells)
{
    failEach(
        slicing::prepare, [] { return slicing::run(); },
        [](const madeCall& call) { return afterSlicing(call, {}); });
}

TEST(slistatCalls, reportsUnderTheDebugSwitchWhateverFails)
{
    failEach(
        slicing::prepare, [] { return slicing::run({u"-debug"}); },
        [](const madeCall& call) {
            const bool lost = call.operation == "showMessageBox";
            traces wanted = afterSlicing(call, {u"Status message: \"ended_success\""});
            if (lost) wanted.boxes.clear();
            return wanted;
        });
}

namespace {

constexpr const char16_t* tavenFolder = u"C:\\taven\\";

// What a question is answered by: with the time of the measuring, and where it can't be told.
struct answers {
    std::string title;
    std::string whole;
    std::string timeless;
};
const answers defaultAnswers{defaultTitle, asking::defaultAnswer,
                             asking::answer(defaultTitle, measuredMessage(""))};
bool asksFor(const madeCall& call, const string& path)
{
    return isOneOf(call.operation, {"access", "queryStatus"}) && call.subject == narrow(path);
}

traces answered(const std::string& answer)
{
    machine::current().addFile(asking::resultPath, answer);
    return tracesNow(1);
}

// The old answer goes just before the new one is saved, if the call belongs to the saving.
std::optional<traces> whereSavingFails(const madeCall& call, const std::string& answer)
{
    machine& here = machine::current();
    const bool saves = call.operation == "openFile" && call.subject == narrow(asking::resultPath);
    if (saves || call.operation == "encodeUtf8" || call.operation == "createFile") {
        const outcome left =
            call.operation == "encodeUtf8" ? outcome::plainFalse : outcome::libraryFailure;
        drop(asking::resultPath);
        return tracesNow(-1, {}, left);
    }
    if (call.operation == "writeFile") {
        const std::size_t written = here.shortTransfers ? answer.size() / 2 : 0;
        here.addFile(asking::resultPath, answer.substr(0, written));
        return tracesNow(-1, {}, outcome::libraryFailure);
    }
    // The second removal is that of the probe, whether the place can be written. Before it the
    // file is asked for the third time whether it exists, after the first removal and the probe.
    const bool asksForProbe = call.operation == "queryStatus" && call.nth == 3 &&
                              call.subject == narrow(asking::resultPath);
    if (asksForProbe || (call.operation == "removeFile" && call.nth == 2)) {
        here.addFile(asking::resultPath, "");
        return tracesNow(-1, {}, outcome::libraryFailure);
    }
    return std::nullopt;
}

traces afterAsking(const madeCall& call, const answers& given)
{
    const string unusable = string(u"Error parsing file \"") + asking::measuringPath + u"\" ";
    const string dataMissing = string(u"File \"") + asking::measuringPath +
                               u"\" doesn't contain data from platform \"P1\"";

    if (asksFor(call, u"C:\\out\\") || asksFor(call, tavenFolder)) return tracesNow(0);
    // Asked for existence, by the load once more, and for its size, without which it is empty.
    if (asksFor(call, asking::measuringPath)) {
        if (call.nth == 1) return answered(errorDocument(given.title, measureNotFoundText));
        return tracesNow(0, {call.nth == 2 ? unusable : dataMissing});
    }
    const bool loads =
        call.operation == "openFile" && call.subject == narrow(asking::measuringPath);
    if (loads || call.operation == "readFile") return tracesNow(0, {unusable});
    if (const auto unsaved = whereSavingFails(call, given.whole)) return *unsaved;
    const bool timeIsLost = isOneOf(call.operation, {"secondsOf", "localTime", "formatTime"});
    return answered(timeIsLost ? given.timeless : given.whole);
}

} // namespace

TEST(getncsCalls, eachFailureHasTheOutcomeThatItsStepTells)
{
    failEach(
        asking::prepare, [] { return asking::run(); },
        [](const madeCall& call) { return afterAsking(call, defaultAnswers); });
}

TEST(getncsCalls, anUnmeasuredPlatformIsToldWhateverFails)
{
    const auto prepare = [] {
        asking::prepare();
        drop(asking::measuringPath);
    };
    failEach(
        prepare, [] { return asking::run(); },
        [](const madeCall& call) {
            if (asksFor(call, u"C:\\out\\") || asksFor(call, tavenFolder)) return tracesNow(0);
            const std::string answer =
                errorDocument("taven-kolve Morrel",
                              asksFor(call, description) ? infoNotFoundText : measureNotFoundText);
            const auto unsaved = whereSavingFails(call, answer);
            return unsaved ? *unsaved : answered(answer);
        });
}

// A text whose look-up fails is the default one; the next look-up tries again.
TEST(getncsCalls, textsOfALanguageFileThatFailsAreTheDefaultOnes)
{
    const auto addTexts = [] {
        asking::prepare();
        addLanguageFile(asking::languagePath,
                        u"brx_msgTitle A title\nbrx_measureFound Found [platform], [datetime]\n");
    };
    const auto prepare = [&] {
        addTexts();
        asking::run(); // the language table remembers what the run before has left
        addTexts();
    };
    const answers given{"A title", asking::answer("A title", "Found P1, Tue Mar  5 12:30:15 2024"),
                        asking::answer("A title", "Found P1, ")};
    const std::string withDefaultTitle =
        asking::answer("taven-kolve Morrel", "Found P1, Tue Mar  5 12:30:15 2024");
    const std::string withDefaultMessage =
        asking::answer("A title", measuredMessage("Tue Mar  5 12:30:15 2024"));
    failEach(
        prepare, [] { return asking::run(); },
        [&](const madeCall& call) {
            const bool opens =
                call.operation == "openFile" && call.subject == narrow(asking::languagePath);
            const bool reads =
                call.operation == "decode" || (call.operation == "readFile" && call.nth == 2);
            // The title stands in the half that a short read gives.
            const bool half = call.operation == "readFile" && machine::current().shortTransfers;
            // For each text it is searched, and then asked for its time and size: once more if that
            // is not told.
            const bool asks = asksFor(call, asking::languagePath);
            if ((reads && half) || (asks && call.nth == 3)) return answered(withDefaultMessage);
            if (opens || reads || (asks && call.nth == 1)) return answered(withDefaultTitle);
            if (asks) return answered(given.whole);
            return afterAsking(call, given);
        });
}

} // namespace commandcallsTest
