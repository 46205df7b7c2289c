// Language files on the machine in memory, and what the checker says of them.
#pragma once

#include "check.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orlo::tests {

inline constexpr const char* utf8Mark = "\xEF\xBB\xBF";

// Runs the checker as its process would, in C:\work.
inline languagecheck::answer check(const std::vector<string>& arguments)
{
    std::vector<const char16_t*> values{u"orloLanguageCheck"};
    for (const string& each : arguments) values.push_back(each.c_str());
    return languagecheck::run(static_cast<int>(values.size()), values.data());
}

// A language file of this text, in UTF-8 with its mark.
inline void addText(const string& name, const string& text)
{
    machine::current().addFile(u"C:\\work\\" + name, utf8Mark + narrow(text));
}

// What the checker says of one file "t" with this text.
inline std::string findingsIn(const string& text)
{
    addText(u"t", text);
    return check({u"t"}).output;
}

// What it says of it against a reference with that text.
inline std::string findingsAgainst(const string& reference, const string& text)
{
    addText(u"reference", reference);
    addText(u"t", text);
    return check({u"--reference", u"reference", u"t"}).output;
}

class languageCheckTest : public ::testing::Test {
protected:
    languageCheckTest() { machine::renew(); }
};

} // namespace orlo::tests
