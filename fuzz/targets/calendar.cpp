// The texts of dates and times, and spans of days.
#include "orlodate.h"
#include "orlotime.h"

#include "input.h"
#include "support/machine.h"

#include <array>
#include <optional>

namespace orlo::fuzz {

namespace {

using typeconvert::convert;
using text = std::u16string;

// Days before this one since the start of year 0; exact for all calendar dates.
std::int64_t serial(const date& day)
{
    static constexpr int before[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    const std::int64_t year = day.getYear();
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    const std::int64_t leapYearsBefore = (year + 3) / 4 - (year + 99) / 100 + (year + 399) / 400;
    const int leapDay = leap && day.getMonth() > 2 ? 1 : 0;
    return year * 365 + leapYearsBefore + before[day.getMonth() - 1] + leapDay + day.getDay() - 1;
}

bool isCalendarDate(const date& day)
{
    return day.getMonth() >= 1 && day.getMonth() <= 12 && day.getDay() >= 1 &&
           day.getDay() <= date::daysInMonth(day.getMonth(), day.getYear());
}

bool readNumber(const text& part, std::uint32_t& number)
{
    return convert(number, string(part));
}

std::optional<date> judgedDate(const text& whole, char16_t delimiter)
{
    // The machine's clock stands at 2024-03-05.
    if (lowered(whole) == u"today") return date(2024, 3, 5);
    if (lowered(whole) == u"tomorrow") return date(2024, 3, 6);
    text bare = whole;
    if (!bare.empty() && (bare[0] == u'"' || bare[0] == u'\'')) {
        const auto isTrimmed = [](char16_t unit) {
            return unit == u'"' || unit == u'\'' || unit == u' ';
        };
        while (!bare.empty() && isTrimmed(bare.front())) bare.erase(0, 1);
        while (!bare.empty() && isTrimmed(bare.back())) bare.pop_back();
    }
    const std::vector<text> parts = piecesOf(bare, text(1, delimiter));
    std::array<std::uint32_t, 3> numbers{};
    if (parts.size() != 3) return std::nullopt;
    for (std::size_t i = 0; i < 3; ++i)
        if (!readNumber(parts[i], numbers[i])) return std::nullopt;
    if (numbers[1] < 1 || numbers[1] > 12 || numbers[2] < 1 || numbers[2] > 31) return std::nullopt;
    return date(numbers[0], numbers[1], numbers[2]);
}

struct judgedTime {
    std::uint32_t seconds = 0;
    std::uint32_t fraction = 0;
};

judgedTime judge(std::uint32_t h, std::uint32_t m, std::uint32_t s, std::uint32_t ms)
{
    if (h == 24 && m == 0 && s == 0 && ms == 0) return {86400, 0};
    const std::uint32_t hours = (h + m / 60 + s / 3600 + ms / 3600000) % 24;
    return {3600 * hours + 60 * (m % 60 + (s % 3600) / 60 + (ms % 3600000) / 60000) + s % 60 +
                (ms % 60000) / 1000,
            ms % 1000 % 256};
}

void expectTime(const time& is, const judgedTime& wanted)
{
    expect(is.getHour() == wanted.seconds / 3600 && is.getMinute() == wanted.seconds % 3600 / 60 &&
               is.getSecond() == wanted.seconds % 60 && is.getFraction() == wanted.fraction,
           "a time is the carried sum of its parts");
}

void expectTimeText(const text& whole)
{
    static constexpr std::uint32_t limits[] = {24, 59, 59, 999};
    std::array<std::uint32_t, 4> values{};
    bool readable = !whole.empty();
    const std::vector<text> parts = piecesOf(whole, u":");
    for (std::size_t i = 0; i < parts.size() && i < 4 && readable; ++i)
        readable = readNumber(parts[i], values[i]) && values[i] <= limits[i];
    time read(1, 2, 3, 4);
    expect(convert(read, string(whole)) == readable,
           "a text is read as a time where its parts are in range");
    if (!readable) return expectTime(read, judge(1, 2, 3, 4));
    expectTime(read, judge(values[0] % 24, values[1], parts.size() > 3 ? values[3] : values[2], 0));
}

void expectDateText(const text& whole)
{
    std::optional<date> wanted = judgedDate(whole, u'/');
    if (!wanted) wanted = judgedDate(whole, u'-');
    date read(1, 2, 3);
    expect(convert(read, string(whole)) == wanted.has_value(),
           "a text is read as a date where one of its forms stands");
    expect(read == wanted.value_or(date(1, 2, 3)),
           "what is read is its date, and a text that fails changes nothing");
}

void expectSpan(const date& start, std::uint32_t count)
{
    if (!isCalendarDate(start)) return;
    const date end = start + days(count);
    const std::int64_t wanted = serial(start) + count;
    if (wanted > serial(date(65535, 12, 31)))
        return expect(end == date(65535, 1, 1), "beyond the last year");
    expect(isCalendarDate(end) && serial(end) == wanted, "a span is added exactly");
    date back = start;
    days(count).subtractFrom(back);
    const bool sameYear = start.dayOfYear() > count;
    if (sameYear && isCalendarDate(back))
        expect(serial(back) == serial(start) - count, "and taken off within a year");
}

} // namespace

void calendar(bytes given)
{
    tests::machine::renew();
    const text whole = textOf(given);
    expectDateText(whole);
    expectTimeText(whole);

    input numbers(given);
    const auto take = [&numbers] { return numbers.take<std::uint32_t>(); };
    const std::uint32_t year = take() % 70000;
    const std::uint32_t month = numbers.byte() % 16;
    const std::uint32_t day = numbers.byte() % 40;
    const date start(year, month, day);
    if (year <= 65535 && month >= 1 && day >= 1) {
        string written;
        date read;
        expect(convert(written, start) && convert(read, written),
               "the text of a date is read again");
        expect(read == start && isCalendarDate(start), "as the same date");
    }
    expectSpan(start, numbers.byte() % 2 != 0 ? take() : take() % 1000);

    const std::uint32_t h = take(), m = take(), s = take(), ms = take();
    const time made(h, m, s, ms);
    expectTime(made, judge(h, m, s, ms));
    string stamp;
    string dateText;
    string timeText;
    convert(stamp, timestamp(start, made));
    convert(dateText, start);
    convert(timeText, made);
    expect(stamp == dateText + u" " + timeText, "a timestamp is written as its date and its time");
}

} // namespace orlo::fuzz
