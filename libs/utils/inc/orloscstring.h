// Handles to interned texts.
#pragma once

#include "orlostring.h"

namespace orlo {

// A handle to a shared, immutable text that lives as long as the process; two handles of
// equal text hold the same pointer. The null handle stands for the empty text. A null
// argument, and a text for which no memory is left, fail an assertion. If not even the pool
// of the texts can be made, the plain bool false is thrown.
class scstring {
public:
    scstring() = default;
    explicit scstring(const char16_t* text);

    [[nodiscard]] const string& text() const { return m_text ? *m_text : string::emptyString(); }
    [[nodiscard]] const char16_t* c_str() const { return text().c_str(); }
    friend bool operator==(const scstring& a, const scstring& b) { return a.m_text == b.m_text; }

private:
    const string* m_text = nullptr;
};

} // namespace orlo
