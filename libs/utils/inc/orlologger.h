// Named loggers: they stand ready, and nothing is written through them.
#pragma once

#include "orlorefptr.h"
#include "orlostring.h"

#include <cstdint>

namespace orlolog {

// A logger of a name and a level. It lives on the heap until its last reference goes.
class logger : public orlo::iRefObj, public virtual orlo::refObj {
public:
    logger(const orlo::string& name, bool flag, std::uint32_t level);
    // A new logger, with this one reference.
    static orlo::refptr<logger> create(const orlo::string& name, bool flag, std::uint32_t level);

    [[nodiscard]] std::uint32_t getRefCount() override;
    std::uint32_t addRef() override;
    std::uint32_t release() override;
    void deleteThis() override;

    [[nodiscard]] const orlo::string& name() const { return m_name; }
    [[nodiscard]] bool flag() const { return m_flag; }
    [[nodiscard]] std::uint32_t level() const { return m_level; }

private:
    orlo::string m_name;
    std::uint32_t m_level;
    bool m_flag;
};

// The loggers of every program that includes this header, however the library is linked, made
// before the program's entry: one without a name, and the one named "root".
inline orlo::refptr<logger> unnamedLogger = logger::create(orlo::string(), false, 0);
inline orlo::refptr<logger> rootLogger = logger::create(u"root", false, 0);

// What a line of a log would look like; nothing reads it yet.
inline const orlo::string defaultLineFormat(u"<%s> [PID %p] [TID %t] (%l) {%f, L %r, %c} - %m %o");

} // namespace orlolog
