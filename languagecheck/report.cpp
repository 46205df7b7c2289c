#include "report.h"

#include "platform/platform.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <tuple>

namespace orlo::languagecheck {

void report::error(const position& where, const char16_t* text, arguments values)
{
    add(severity::error, where, text, values);
}

void report::warning(const position& where, const char16_t* text, arguments values)
{
    add(severity::warning, where, text, values);
}

void report::add(severity how, const position& where, const char16_t* text, arguments values)
{
    finding added{where, how, {}};
    formatText(added.text, text, std::span(values.begin(), values.size()));
    m_findings.push_back(std::move(added));
}

bool report::hasErrors() const
{
    return std::any_of(m_findings.begin(), m_findings.end(),
                       [](const finding& each) { return each.how == severity::error; });
}

std::vector<finding> report::sorted() const
{
    std::map<string, std::size_t> order;
    std::set<std::tuple<string, std::size_t, string>> known;
    std::vector<finding> found;
    for (const finding& each : m_findings) {
        order.try_emplace(each.where.file, order.size());
        if (known.emplace(each.where.file, each.where.line, each.text).second)
            found.push_back(each);
    }
    const auto place = [&order](const finding& each) {
        return std::pair(order.at(each.where.file), each.where.line);
    };
    std::stable_sort(found.begin(), found.end(),
                     [&place](const finding& a, const finding& b) { return place(a) < place(b); });
    return found;
}

std::string report::text() const
{
    std::string text;
    for (const finding& each : sorted()) {
        const bool isError = each.how == severity::error;
        text += utf8(each.where.file) + ':' + std::to_string(each.where.line) +
                (isError ? ": error: " : ": warning: ") + utf8(each.text) + '\n';
    }
    return text;
}

std::string utf8(std::u16string_view text)
{
    std::string bytes(text.size() * 3, '\0');
    if (!text.empty()) bytes.resize(platform::encodeUtf8(text.data(), text.size(), bytes.data()));
    return bytes;
}

} // namespace orlo::languagecheck
