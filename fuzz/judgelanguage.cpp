#include "judgelanguage.h"

#include "input.h"
#include "orlofile.h"
#include "orlopath.h"
#include "platform/platform.h"
#include "support/machine.h"

#include <algorithm>

namespace orlo::fuzz {

namespace {

using text = std::u16string;

void trimLeft(text& line, std::u16string_view set)
{
    while (!line.empty() && set.find(line.front()) != set.npos) line.erase(0, 1);
}

void trimRight(text& line, std::u16string_view set)
{
    while (!line.empty() && set.find(line.back()) != set.npos) line.pop_back();
}

void trimKey(text& line)
{
    trimLeft(line, u" \t");
    trimRight(line, u"\r\n");
    trimRight(line, u" \t");
}

bool isThere(const string& path)
{
    const file entry(path);
    return !path.empty() && entry.exists();
}

text decodedFile(const string& path)
{
    const std::string bytes = tests::machine::current().content(path);
    text units(bytes.size() + 1, u'\0');
    std::size_t count = 0;
    if (bytes.starts_with("\xFF\xFE")) {
        for (std::size_t at = 2; at + 1 < bytes.size(); at += 2)
            units[count++] = static_cast<char16_t>(static_cast<unsigned char>(bytes[at]) |
                                                   static_cast<unsigned char>(bytes[at + 1]) << 8);
    } else {
        const bool marked = bytes.starts_with("\xEF\xBB\xBF");
        const std::string body = bytes.substr(marked ? 3 : 0);
        const auto how = marked ? platform::encoding::utf8 : platform::encoding::unmarked;
        if (!body.empty()) count = platform::decode(how, body.data(), body.size(), units.data());
    }
    units.resize(count);
    replaceEach(units, u"\r\n", u"\n");
    return units;
}

// Line by line, as one read of at most 1023 units gives them, each up to its first zero.
std::vector<text> linesOf(const string& path)
{
    std::vector<text> lines;
    text line;
    for (const char16_t unit : decodedFile(path)) {
        line.push_back(unit);
        if (unit != u'\n' && line.size() < 1023) continue;
        lines.push_back(line.c_str());
        line.clear();
    }
    if (!line.empty()) lines.push_back(line.c_str());
    return lines;
}

bool includedName(text line, text& name)
{
    line = line.substr(0, line.rfind(u';'));
    if (line.empty()) return false;
    trimKey(line);
    if (line.find(u"#include") == text::npos) return false;
    line.erase(0, line.find_first_of(u"#include") + 8);
    trimLeft(line, u" \t");
    name = line;
    return true;
}

// The value of a line, without quotes or comment.
void takeValue(text& value)
{
    if (value.starts_with(u'"')) {
        value.erase(0, 1);
        value = value.substr(0, value.rfind(u'"'));
    } else if (const std::size_t comment = value.rfind(u';'); comment != text::npos) {
        value.erase(comment);
        trimRight(value, u" \t");
    }
}

text shown(text value)
{
    if (value.size() >= 2 && value[1] == u':') value.erase(0, 2);
    trimLeft(value, u" ");
    return value;
}

} // namespace

judgedLanguageFile::judgedLanguageFile(const string& path, std::vector<string> outer) : m_path(path)
{
    m_time = file(path).modificationTime();
    if (!isThere(path) || !file(path).isReadable()) return;
    outer.push_back(path.lowerCopy());
    std::vector<string> seen;
    for (const text& line : linesOf(path)) {
        text name;
        if (!includedName(line, name)) continue;
        const string included = combinePath(pathDirectory(path), string(name), false);
        if (!isThere(included) || !file(included).isReadable()) continue;
        const string folded = included.lowerCopy();
        if (std::find(outer.begin(), outer.end(), folded) != outer.end()) throw includesItself();
        if (std::find(seen.begin(), seen.end(), folded) != seen.end()) continue;
        seen.push_back(folded);
        m_includes.emplace_back(included, outer);
    }
}

void judgedLanguageFile::setOverride(const string& path)
{
    m_overridePath = path;
    m_entries.clear();
}

std::optional<std::u16string> judgedLanguageFile::lookup(std::u16string key)
{
    trimKey(key);
    std::vector<std::u16string> walked;
    return search(key, walked);
}

std::optional<std::u16string> judgedLanguageFile::search(const text& key, std::vector<text>& walked)
{
    const bool overridden = isThere(m_overridePath);
    const bool stale = m_entries.empty() || file(m_path).modificationTime() != m_time ||
                       (overridden && file(m_overridePath).modificationTime() != m_overrideTime) ||
                       (!overridden && m_overrideTime != 0);
    if (stale && !load()) return std::nullopt;

    const auto entry = m_entries.find(key);
    if (entry != m_entries.end()) {
        const text& value = entry->second;
        if (!value.starts_with(u"$$")) return shown(value);
        walked.push_back(key);
        const text target = value.substr(2);
        if (std::find(walked.begin(), walked.end(), target) != walked.end()) return shown(value);
        return search(target, walked);
    }
    for (judgedLanguageFile& included : m_includes)
        if (const auto found = included.lookup(key)) return found;
    return std::nullopt;
}

bool judgedLanguageFile::load()
{
    m_time = file(m_path).modificationTime();
    m_entries.clear();
    const bool loaded = isThere(m_path);
    if (loaded) {
        const std::vector<text> lines = linesOf(m_path);
        readCommands(lines);
        readEntries(lines);
    }
    applyCommands(m_entries);
    loadOverride();
    return loaded;
}

void judgedLanguageFile::readCommands(const std::vector<text>& lines)
{
    for (text line : lines) {
        trimLeft(line, u" \t");
        const std::size_t mark = line.find(u";;cmd(");
        if (mark == text::npos) continue;
        trimRight(line, u"\r\n");
        trimRight(line, u" \t");
        trimRight(line, u")");
        m_commands.push_back(line.substr(mark + 6));
    }
}

void judgedLanguageFile::readEntries(const std::vector<text>& lines)
{
    m_open.reset();
    for (text line : lines) {
        if (line.empty()) continue;
        trimKey(line);
        std::replace(line.begin(), line.end(), u'\t', u' ');
        if (!line.empty()) takeLine(line);
    }
}

void judgedLanguageFile::takeLine(text line)
{
    const bool goesOn = line.back() == u'\\';
    if (goesOn) line.pop_back();
    if (!m_open) {
        const std::size_t blank = line.find(u' ');
        if (blank == text::npos || line.substr(0, blank).find(u';') != text::npos) return;
        text value = line.substr(blank);
        trimLeft(value, u" \t");
        takeValue(value);
        m_open.emplace(line.substr(0, blank), value);
    } else {
        takeValue(line);
        m_open->second += line;
    }
    if (goesOn) return;
    replaceEach(m_open->second, u"\\n", u"\n");
    m_entries.emplace(m_open->first, m_open->second);
    m_open.reset();
}

void judgedLanguageFile::applyCommands(textMap& entries) const
{
    for (const text& command : m_commands) {
        const std::vector<text> parts = piecesOf(command, u":::");
        if (parts.size() < 3 || parts[0] != u"replace") continue;
        for (auto& [key, value] : entries) replaceEach(value, parts[1], parts[2]);
    }
}

void judgedLanguageFile::loadOverride()
{
    m_overrideTime = 0;
    if (!isThere(m_overridePath)) return;
    m_overrideTime = file(m_overridePath).modificationTime();
    judgedLanguageFile overriding(m_overridePath);
    overriding.load();
    for (const auto& [key, value] : overriding.m_entries) m_entries.insert_or_assign(key, value);
    overriding.applyCommands(m_entries);
}

} // namespace orlo::fuzz
