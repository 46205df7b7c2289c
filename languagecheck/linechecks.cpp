// A line that is too long comes to the reader in pieces, which make little sense: beside its
// length nothing is said of it.
#include "linechecks.h"

#include "messages/languageentries.h"
#include "orlounit.h"

#include <map>
#include <set>
#include <string_view>
#include <vector>

namespace orlo::languagecheck {

namespace {

using view = std::u16string_view;
using lineSet = std::set<std::size_t>;

bool isBlank(view text)
{
    return text.find_first_not_of(blanks) == text.npos;
}

lineSet checkLengths(const source& from, report& findings)
{
    lineSet tooLong;
    languageLines lines(from.text);
    std::size_t last = 0;
    std::size_t length = 0;
    for (view line; lines.next(line); last = lines.number()) {
        if (line.ends_with(u'\n')) line.remove_suffix(1);
        length = line.size() + (lines.number() == last ? length : 0);
        if (length <= languageLines::maxLine || !tooLong.insert(lines.number()).second) continue;
        findings.error({from.shown, lines.number()},
                       u"the line has more than %d units: what follows counts as a further line",
                       {static_cast<long>(languageLines::maxLine)});
    }
    return tooLong;
}

// --- Single lines ----------------------------------------------------------------------------

void checkComment(const position& at, const languageStep& step, report& findings)
{
    if (step.key.starts_with(u';')) return;
    findings.warning(at, u"a \";\" in the first word makes the whole line a comment");
}

void checkKeyAlone(const position& at, const languageStep& step, report& findings)
{
    if (step.key.starts_with(includeMark)) return;
    findings.error(at, u"\"%s\" is a key alone, without a text", {string(step.key)});
}

// A comment that was meant stands behind a blank, or is empty: then its ";" closes the text.
void checkCommentBehind(const position& at, view line, const languageValue& value, report& findings)
{
    const view before = line.substr(0, line.size() - value.dropped.size() - 1);
    if (isBlank(before)) {
        findings.warning(at, u"nothing but a comment stands where a text should: if it is meant to "
                             u"be empty, write \"\"");
    } else if (!isBlank(value.dropped) && !isBlank(before.substr(before.size() - 1))) {
        findings.warning(at,
                         u"the last \";\" begins a comment, \"%s\": quote the text, or close it "
                         u"by a further \";\"",
                         {string(value.dropped)});
    }
}

void checkQuotes(const position& at, const languageStep& step, const languageValue& value,
                 report& findings)
{
    const auto first = value.dropped.find_first_not_of(blanks);
    if (!value.closed && !step.goesOn)
        findings.warning(at, u"the quotation mark in front of the text is not closed");
    else if (first != view::npos && value.dropped[first] != u';')
        findings.error(at, u"what stands behind the last quotation mark is lost: \"%s\"",
                       {string(value.dropped.substr(first))});
}

void checkText(const position& at, const languageStep& step, report& findings)
{
    const languageValue value = readLanguageValue(step.value);
    if (value.quoted) checkQuotes(at, step, value, findings);
    if (value.comment) checkCommentBehind(at, step.value, value, findings);
}

void checkStep(const position& at, const languageStep& step, report& findings)
{
    switch (step.what) {
    case languageStep::kind::comment: checkComment(at, step, findings); break;
    case languageStep::kind::keyAlone: checkKeyAlone(at, step, findings); break;
    case languageStep::kind::begins:
    case languageStep::kind::continues: checkText(at, step, findings); break;
    }
}

bool holdsText(const languageStep& step)
{
    return step.what == languageStep::kind::begins || step.what == languageStep::kind::continues;
}

void checkSteps(const source& from, const lineSet& tooLong, report& findings)
{
    languageSteps steps(from.text);
    string key;
    position begin{from.shown};
    bool open = false;
    for (languageStep step; steps.next(step);) {
        if (step.what == languageStep::kind::begins) {
            key = string(step.key);
            begin.line = step.line;
        }
        open = step.goesOn && holdsText(step);
        if (!tooLong.contains(step.line)) checkStep({from.shown, step.line}, step, findings);
    }
    if (open)
        findings.error(begin, u"the text of \"%s\" goes on behind the end of the file, and is lost",
                       {key});
}

// --- Entries ---------------------------------------------------------------------------------

void checkKeyTwice(const position& at, const string& key, std::map<string, std::size_t>& known,
                   report& findings)
{
    const auto [first, isNew] = known.try_emplace(key, at.line);
    if (isNew || key == includeMark) return;
    findings.error(at, u"the key \"%s\" stands on line %d already, whose text counts",
                   {key, static_cast<long>(first->second)});
}

void checkSeverity(const position& at, const languageEntry& entry, report& findings)
{
    const string& text = entry.value;
    if (text.size() < 2 || text[1] != u':') return;
    if (view(u"EWI").find(upperUnit(text[0])) != view::npos) return;
    findings.error(at,
                   u"\"%s\" in front of the text is taken for a severity, and is lost: quote "
                   u"the text with a blank in front",
                   {text.substr(0, 2)});
}

void checkEntries(const source& from, const lineSet& tooLong, report& findings)
{
    std::map<string, std::size_t> known;
    languageEntries entries(from.text);
    for (languageEntry entry; entries.next(entry);) {
        if (tooLong.contains(entry.line)) continue;
        const position at{from.shown, entry.line};
        checkKeyTwice(at, entry.key, known, findings);
        checkSeverity(at, entry, findings);
    }
}

// --- Commands --------------------------------------------------------------------------------

void checkCommand(const position& at, const string& command, report& findings)
{
    std::vector<string> parts;
    command.split(u":::", parts);
    if (parts.empty() || parts[0] != u"replace")
        findings.error(at, u"the command \"%s\" is not known",
                       {parts.empty() ? command : parts[0]});
    else if (parts.size() < 3)
        findings.error(at, u"the command \"replace\" needs two texts: replace:::old:::new");
}

void checkCommands(const source& from, const lineSet& tooLong, report& findings)
{
    languageLines lines(from.text);
    for (view line; lines.next(line);) {
        std::vector<string> commands;
        readCommands(line, commands);
        if (tooLong.contains(lines.number())) continue;
        for (const string& command : commands)
            checkCommand({from.shown, lines.number()}, command, findings);
    }
}

} // namespace

void checkLines(const source& from, report& findings)
{
    const lineSet tooLong = checkLengths(from, findings);
    checkSteps(from, tooLong, findings);
    checkEntries(from, tooLong, findings);
    checkCommands(from, tooLong, findings);
}

} // namespace orlo::languagecheck
