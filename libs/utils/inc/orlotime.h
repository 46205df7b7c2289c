// Times of day, and timestamps of a date and a time.
#pragma once

#include "orlodate.h"

#include <cstdint>

namespace orlo {

// A time of day in one 32-bit word: whole seconds, and a fraction of 8 bits. Times are plain
// values; the default one is midnight.
//
// Its text reads 07:30:15:00 - hour, minute, second, fraction - and goes through
// typeconvert::convert both ways. Missing parts are read as 0 and 24 as hour 0. A fourth part
// of up to 999 is read as the seconds, in place of the third: a fraction is never read.
class time {
public:
    time() = default;
    // Carries what is too large upwards, hours modulo 24; minutes that come from carried seconds
    // are added without a further carry. 24:00:00 alone stays as it is, the end of a day. The
    // fraction is the low 8 bits of the milliseconds that are left.
    //
    //   time(0, 90, 0, 0)      01:30:00:00
    //   time(0, 0, 0, 1500)    00:00:01:244
    time(std::uint32_t hour, std::uint32_t minute, std::uint32_t second, std::uint32_t millisecond);

    [[nodiscard]] std::uint32_t getHour() const { return seconds() / 3600; }
    [[nodiscard]] std::uint32_t getMinute() const { return seconds() % 3600 / 60; }
    [[nodiscard]] std::uint32_t getSecond() const { return seconds() % 60; }
    [[nodiscard]] std::uint32_t getFraction() const { return m_word & 0xff; }

private:
    static constexpr unsigned secondsShift = 8;

    [[nodiscard]] std::uint32_t seconds() const { return m_word >> secondsShift; }

    std::uint32_t m_word = 0;
};

// A date and a time of that day. Its text, 2024/02/29 12:30:15:00, is only written: there is no
// way from text to a timestamp.
class timestamp {
public:
    timestamp() = default;
    timestamp(const date& day, const time& timeOfDay) : m_date(day), m_time(timeOfDay) {}

    [[nodiscard]] const date& getDate() const { return m_date; }
    [[nodiscard]] const time& getTime() const { return m_time; }

private:
    date m_date;
    time m_time;
};

namespace detail {
typeconvert::converterList timeConverters();
inline typeconvert::converterGroup timeConverterGroup{timeConverters()};
} // namespace detail

} // namespace orlo
