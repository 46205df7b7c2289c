// The process-wide table through which every text goes.
#pragma once

#include "orlostring.h"

namespace orlo {

class iLocStringId;
class stringTemplate;

// Knows the current language, where language files lie, and the files already in use. Files
// are searched in the folder of the executable and in config/Language beside it, first as
// they are named, then in the folder of the language. Made on first use, alive until the
// process ends; one recursive lock guards everything.
class languageTable {
public:
    using listener = void (*)(const char16_t* oldLanguage, const char16_t* newLanguage);

    static languageTable& instance();
    languageTable(const languageTable&) = delete;
    languageTable& operator=(const languageTable&) = delete;

    // The language from now on, taken as written; null counts as the empty text. Listeners are
    // told of a change, under the lock. No file is read.
    void setLanguage(const char16_t* language);
    // The text of an address, from the first language file found for it. False, with `text` as
    // it was, if there is no file or no entry. A null language is the current one.
    bool lookup(const iLocStringId& id, stringTemplate& text, const char16_t* language);

    // File for texts without a file list; empty, as at the start, for none.
    void setDefaultFile(const string& name);
    // With a prefix P, the file P_name beside a language file overrides it, from the next file
    // on that comes into use.
    void setOverridePrefix(const string& prefix);
    // Each listener is told once, whatever the number of calls; null is none.
    void addListener(listener told);
    void removeListener(listener told);

private:
    struct record;
    languageTable();
    record& checked() const;

    record* m_record; // null where no memory was left: every call throws the plain bool false
};

} // namespace orlo
