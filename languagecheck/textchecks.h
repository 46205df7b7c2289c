// What can be told of texts as the program would show them: where aliases lead, and whether keys
// and places are those of a reference.
#pragma once

#include "languagetree.h"
#include "orlostringtemplate.h"
#include "report.h"

#include <map>

namespace orlo::languagecheck {

// The texts of a language, by their keys and as the program has them before it fills their places.
using languageTexts = std::map<string, stringTemplate>;

struct language {
    languageTree tree;
    languageTexts texts; // without the keys that lead to none
};

// Reads a language file and all below it, and asks the library for the text of each key.
language readLanguage(const namedFile& root, report& findings);

// Reports the keys whose text is another key that is not there, or that refer to each other.
void checkAliases(const language& of, report& findings);

// Compares keys and places with those of the reference. A key that another text leads to needs
// none.
void compareTexts(const language& of, const language& reference, report& findings);

} // namespace orlo::languagecheck
