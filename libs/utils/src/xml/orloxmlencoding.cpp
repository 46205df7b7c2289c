#include "orloxmlencoding.h"

#include "platform/platform.h"
#include "text/lowerbyte.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace orlo {

namespace {

// Collects the word `encoding=` and then its value from the bytes of a declaration. It knows
// no grammar: a word is a run of the letters of "encoding=" that begins with an "e", and an
// "e" inside the value begins one too, so that other names come out damaged. Only "utf-8" and
// "utf-16" matter, and they have none.
class declarationScanner {
public:
    // False when the value is complete.
    bool take(unsigned char byte);
    [[nodiscard]] bool hasValue() const { return m_inValue; }
    [[nodiscard]] std::string value() const
    {
        return {m_buffer.begin(), std::find(m_buffer.begin(), m_buffer.end(), '\0')};
    }

private:
    void store(unsigned char byte);
    void endWord(unsigned char byte);
    bool endValue();

    std::array<char, 128> m_buffer{};
    std::size_t m_written = 0;
    bool m_inWord = false;
    bool m_inValue = false;
};

bool isLetterOfWord(char lower)
{
    return std::string_view("=cdgino").find(lower) != std::string_view::npos;
}

bool declarationScanner::take(unsigned char byte)
{
    const char lower = lowerByte(static_cast<char>(byte));
    if (lower == 'e') {
        m_inWord = true;
        store(byte);
    } else if (m_inWord && isLetterOfWord(lower)) {
        store(byte);
    } else if (m_inWord) {
        endWord(byte);
    } else if (m_inValue) {
        if (byte == '"') return endValue();
        store(byte);
    }
    return true;
}

void declarationScanner::store(unsigned char byte)
{
    if (m_written < m_buffer.size()) m_buffer[m_written++] = static_cast<char>(byte);
}

// The buffer keeps what it held: the next word is written over it.
void declarationScanner::endWord(unsigned char byte)
{
    m_inWord = false;
    m_written = 0;
    std::string word = value();
    std::transform(word.begin(), word.end(), word.begin(), lowerByte);
    if (byte != '"' || word != "encoding=") return;
    m_inValue = true;
    m_buffer.fill('\0');
}

// A value that fills the buffer has always ended the process at its closing quote.
bool declarationScanner::endValue()
{
    if (m_written == m_buffer.size()) platform::endAbnormally();
    return false;
}

} // namespace

bool findDeclaredEncoding(const void* bytes, std::size_t length, std::string& encoding)
{
    const std::string_view text(static_cast<const char*>(bytes), length);
    if (length < 3 || !text.starts_with("<?")) return false;

    declarationScanner scanner;
    for (std::size_t at = 2; at < length; ++at) {
        if (text.substr(at, 2) == "?>") break;
        if (!scanner.take(static_cast<unsigned char>(text[at]))) break;
    }
    if (!scanner.hasValue()) return false;
    encoding = scanner.value();
    return true;
}

} // namespace orlo
