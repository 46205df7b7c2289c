#include "orlotime.h"

#include "orlotextformat.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

namespace orlo {

namespace {

enum timePlace : std::size_t { hourPlace, minutePlace, secondPlace, placeCount };

// What a part of a time's text stands for, and its largest value. The fourth replaces the
// seconds, although a fraction is written there: it is meant so, and no fraction is ever read.
struct textPart {
    timePlace stands;
    std::uint32_t limit;
};
constexpr textPart textParts[] = {
    {hourPlace, 24}, {minutePlace, 59}, {secondPlace, 59}, {secondPlace, 999}};

void appendTime(string& out, const time& from)
{
    formatText(out, u"%02d:%02d:%02d:%02d",
               std::initializer_list<formatArgument>{from.getHour(), from.getMinute(),
                                                     from.getSecond(), from.getFraction()});
}

bool timeToText(string& to, const time& from, unsigned, const typeconvert::argumentList&)
{
    string text;
    appendTime(text, from);
    to.swap(text);
    return true;
}

bool textToTime(time& to, const string& from, unsigned, const typeconvert::argumentList&)
{
    std::vector<string> parts;
    if (!from.split(u":", parts)) return false;

    std::array<std::uint32_t, placeCount> values{};
    const std::size_t count = std::min(parts.size(), std::size(textParts));
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t& value = values[textParts[i].stands];
        if (!typeconvert::convert(value, parts[i]) || value > textParts[i].limit) return false;
    }
    to = time(values[hourPlace] % 24, values[minutePlace], values[secondPlace], 0);
    return true;
}

bool timestampToText(string& to, const timestamp& from, unsigned, const typeconvert::argumentList&)
{
    string text;
    typeconvert::convert(text, from.getDate());
    text += u' ';
    appendTime(text, from.getTime());
    to.swap(text);
    return true;
}

} // namespace

time::time(std::uint32_t hour, std::uint32_t minute, std::uint32_t second,
           std::uint32_t millisecond)
{
    if (hour == 24 && minute == 0 && second == 0 && millisecond == 0) {
        m_word = 86400u << secondsShift;
        return;
    }
    // Only hours take part in the carry; a sum beyond 32 bits wraps.
    const std::uint32_t hours = (hour + minute / 60 + second / 3600 + millisecond / 3600000) % 24;
    const std::uint32_t minutes = minute % 60 + second % 3600 / 60 + millisecond % 3600000 / 60000;
    const std::uint32_t seconds = second % 60 + millisecond % 60000 / 1000;
    // Eight bits are all the room that there is.
    const std::uint32_t fraction = millisecond % 1000 % 256;
    m_word = (3600 * hours + 60 * minutes + seconds) << secondsShift | fraction;
}

typeconvert::converterList detail::timeConverters()
{
    static constexpr typeconvert::typeConverter<time, string> timeText(timeToText);
    static constexpr typeconvert::typeConverter<string, time> timeFromText(textToTime);
    static constexpr typeconvert::typeConverter<timestamp, string> timestampText(timestampToText);
    // The text of a timestamp reads as a date, so that this pair stands here once more.
    static constexpr typeconvert::typeConverter<string, date> dateFromText(detail::textToDate);
    static constexpr const typeconvert::typeConverterBase* all[] = {&timeText, &timeFromText,
                                                                    &timestampText, &dateFromText};
    return all;
}

} // namespace orlo
