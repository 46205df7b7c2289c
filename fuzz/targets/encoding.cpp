// The encoding that a document declares.
#include "orloxmldocument.h"
#include "xmltarget.h"

namespace orlo::fuzz {

namespace {

// No value where the process ends.
std::optional<bool> find(bytes given, std::string& encoding)
{
    try {
        return findDeclaredEncoding(given.data(), given.size(), encoding);
    } catch (const tests::machine::ended&) {
        return std::nullopt;
    }
}

} // namespace

void encoding(bytes given)
{
    std::optional<std::string> wanted;
    const bool goesOn = judged([&] { wanted = judgeDeclaredEncoding(given); }).has_value();
    std::string found;
    const std::optional<bool> came = find(given, found);
    expect(came.has_value() == goesOn,
           "the process ends at a value that fills the buffer, and nowhere else");
    if (!came) return;
    expect(*came == wanted.has_value(), "a declared encoding is found where the rules tell");
    expect(!*came || found == *wanted, "the name is the one that the scanner collects");
}

} // namespace orlo::fuzz
