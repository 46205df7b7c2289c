// Text and paths between the project's units and the bytes of this system.
//
// The one drive is C: C:\data\taven is /data/taven. Bytes that are no UTF-8 stand in texts as
// the lone units U+DC80 to U+DCFF, and a backslash inside a file name as the lone unit U+DC5C,
// since it must not read as a separator. Both go out as the same bytes again, so that every
// file name survives.
#pragma once

#include "orlostring.h"

#include <string>
#include <string_view>

namespace orlo::platform {

// Writes the bytes for a text, at most three a unit, and returns their end.
char* writeNative(std::u16string_view text, char* bytes);
// Bytes for a text.
std::string nativeText(std::u16string_view text);
// The system's path for path text, up to the first zero unit. Empty, which names nothing and
// is refused by every call, where the path can't exist: another drive or a network path.
std::string nativePath(const string& path);

// Text of an argument or a variable; backslashes stay what they are.
string textOf(std::string_view bytes);
// Replaces `name` by the text of a single file name.
void nameOf(std::string_view bytes, string& name);
// Path text of an absolute path of the system.
string pathTextOf(std::string_view bytes);

} // namespace orlo::platform
