// Path text: the normal form, joining and taking apart. Plain work on text by the rules of
// Windows paths on every system; nothing is looked up on disk.
#pragma once

#include "orlostring.h"

#include <cstdint>

namespace orlo {

// Bits of the flags of pathExtension, pathName and pathDirectory; 0 asks for the defaults.
enum pathFlags : std::uint32_t {
    withoutRoot = 1,      // pathDirectory: no root, unless withRoot is set as well
    withoutExtension = 2, // pathName: no extension, unless withExtension is set as well
    extensionAtFirstDot = 4,
    withRoot = 8,
    withDirectory = 16,
    withName = 32,
    withExtension = 64,
};

// The absolute form of a path text: one %NAME% expanded, a quoted text unquoted, "/" turned
// into "\", "." and ".." and doubled separators resolved. Ends in one backslash if `trailing`
// is set, else in none. The empty text stays empty. Never fails.
//
//   normalizePath(u"C:/a/./b/../c.txt", false)     C:\a\c.txt
//   normalizePath(u"C:", true)                     C:\    .
string normalizePath(const string& text, bool trailing);

// The value of an environment variable; false, with an empty value, if it is unset or empty.
bool getEnvironmentVariable(const char16_t* name, string& value);

// `base` and `relative` joined, in the normal form. An empty base gives an empty result, and
// an absolute `relative` is appended like any other.
string combinePath(const string& base, const string& relative, bool trailing);

// Ends a path that is not empty in exactly one backslash; a path of nothing but backslashes
// gains one more.
void ensureTrailingSeparator(string& path);

// Takes a path apart:
//
//   C:\a\b.tar.gz       root C:      directory \a\       name b.tar   extension gz
//   \\srv\share\x.y     root \\srv   directory \share\   name x       extension y
//
// The extension begins at the last dot, or at the first if `lastDot` is false. A path without
// a separator behind its root loses the first character of its name. A path of one character
// raises std::out_of_range, "invalid string position"; so do the five functions below.
void splitPath(const string& path, string& root, string& directory, string& name, string& extension,
               bool lastDot);

string pathRoot(const string& path);
// Upper-case drive letter, or a blank if the path has no drive.
char16_t pathDriveLetter(const string& path);
// The extension, without its dot.
string pathExtension(const string& path, std::uint32_t flags = 0);
// Name, dot and extension.
string pathName(const string& path, std::uint32_t flags = 0);
// Root and directory, ending in a backslash.
string pathDirectory(const string& path, std::uint32_t flags = 0);

} // namespace orlo
