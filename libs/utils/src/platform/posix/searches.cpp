#include "platform/platform.h"
#include "platform/posix/namepattern.h"
#include "platform/posix/nativetext.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

namespace orlo::platform {

namespace {

struct directoryCloser {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

struct runningSearch {
    std::unique_ptr<DIR, directoryCloser> directory;
    namePattern pattern;
    std::uint32_t wanted;
};

bool isDotName(std::string_view name)
{
    return name == "." || name == "..";
}

constexpr std::uint32_t attributeIf(bool set, entryAttributes attribute)
{
    return set ? attribute : 0U;
}

// The directory mostly tells what an entry is; only links, file systems that don't say and
// the question for permissions cost a call.
std::uint32_t typeAttributes(const runningSearch& search, const dirent& entry)
{
    const bool told = entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK;
    if (told && (search.wanted & attributeReadOnly) == 0)
        return attributeIf(entry.d_type == DT_DIR, attributeSubdirectory);

    struct stat found;
    if (::fstatat(::dirfd(search.directory.get()), entry.d_name, &found, 0) != 0) return 0;
    return attributeIf((found.st_mode & 0222) == 0, attributeReadOnly) |
           attributeIf(S_ISDIR(found.st_mode), attributeSubdirectory);
}

std::uint32_t attributesOf(const runningSearch& search, const dirent& entry)
{
    const bool isHidden = entry.d_name[0] == '.' && !isDotName(entry.d_name);
    return typeAttributes(search, entry) | attributeIf(isHidden, attributeHidden);
}

bool advance(const runningSearch& search, searchHit& hit)
{
    while (const dirent* entry = ::readdir(search.directory.get())) {
        nameOf(entry->d_name, hit.name);
        if (!search.pattern.matches(hit.name)) continue;
        hit.attributes = attributesOf(search, *entry);
        return true;
    }
    return false;
}

// Where the name's pattern begins: behind the last separator or the drive.
std::size_t patternStart(const string& path)
{
    const std::size_t separator = path.find_last_of(u"\\/");
    if (separator != string::npos) return separator + 1;
    return path.size() >= 2 && path[1] == u':' ? 2 : 0;
}

runningSearch* searchOf(searchHandle search)
{
    return reinterpret_cast<runningSearch*>(search);
}

} // namespace

searchHandle findFirst(const string& pattern, std::uint32_t wanted, searchHit& hit)
{
    const string path(pattern.c_str());
    const std::size_t start = patternStart(path);
    if (start == path.size()) return noSearch;
    const std::string where = start == 0 ? "." : nativePath(path.substr(0, start));
    std::unique_ptr<DIR, directoryCloser> directory(::opendir(where.c_str()));
    if (!directory) return noSearch;

    auto search = std::make_unique<runningSearch>(runningSearch{
        std::move(directory), namePattern(std::u16string_view(path).substr(start)), wanted});
    if (!advance(*search, hit)) return noSearch;
    return reinterpret_cast<searchHandle>(search.release());
}

bool findNext(searchHandle search, searchHit& hit)
{
    return search != noSearch && advance(*searchOf(search), hit);
}

void findClose(searchHandle search)
{
    if (search != noSearch) delete searchOf(search);
}

} // namespace orlo::platform
