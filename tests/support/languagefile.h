// Language files on the machine in memory, and a language table in its first state.
#pragma once

#include "orlolanguagetable.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

namespace orlo::tests {

// Puts the bytes of a language file on the machine. Each call gives its file a time of its
// own: the language table outlives the machine, and it reads a file again only when the time
// has changed.
inline void addLanguageBytes(const string& path, const std::string& bytes)
{
    static std::int64_t time = 1'700'000'000;
    machine::current().addFile(path, bytes);
    machine::current().setModificationTime(path, ++time);
}

// The same with a text, in UTF-8 with its mark.
inline void addLanguageFile(const string& path, const string& text)
{
    addLanguageBytes(path, "\xEF\xBB\xBF" + narrow(text));
}

// A new machine, and a language table without language, default file and override prefix.
class languageTest : public ::testing::Test {
protected:
    languageTest()
    {
        machine::renew();
        languageTable::instance().setLanguage(u"");
        languageTable::instance().setDefaultFile(u"");
        languageTable::instance().setOverridePrefix(u"");
    }
    ~languageTest() override
    {
        languageTable::instance().setLanguage(u"");
        languageTable::instance().setDefaultFile(u"");
        languageTable::instance().setOverridePrefix(u"");
    }
};

} // namespace orlo::tests
