// The rules of the XML reader and writer once more, taken literally and slowly: what the fast
// code is held against. Nothing here shares code with it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace orlo::tests {

using judgedBytes = std::span<const std::uint8_t>;

// Thrown where the rules say that the reader never comes to an end, or ends the process. Such
// an input is not given to it.
struct neverEnds {};
struct endsProcess {};
// Thrown where the reader throws the failure of malformed text, or the plain bool false.
struct malformed {};
struct noText {};

struct judgedNode {
    std::u16string name;
    std::u16string text;
    std::vector<std::pair<std::u16string, std::u16string>> attributes;
    std::vector<judgedNode> children;

    bool operator==(const judgedNode&) const = default;
};

void judgeDecodeEntities(std::u16string& text);
void judgeEncodeEntities(std::u16string& text);

// The declared encoding; no value if there is none.
std::optional<std::string> judgeDeclaredEncoding(judgedBytes given);

// Where the caller goes on; no value if the text ended first. `text` has no zero unit: where
// the text ends, the input ends.
std::optional<std::size_t> judgeParse(judgedNode& node, const std::u16string& text,
                                      bool keepWhitespace);
void judgeParseBuffer(judgedNode& document, judgedBytes given, bool keepWhitespace);

void judgeWrite(std::u16string& out, const judgedNode& node, const std::u16string& indent);
std::size_t judgeEstimate(const judgedNode& node, std::size_t width);

} // namespace orlo::tests
