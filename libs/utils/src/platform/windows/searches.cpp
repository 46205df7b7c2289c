#include "platform/platform.h"
#include "platform/windows/wide.h"

#include <io.h>
#include <wchar.h>

namespace orlo::platform {

namespace {

void takeHit(const _wfinddata64i32_t& found, searchHit& hit)
{
    hit.name = units(found.name);
    hit.attributes = found.attrib;
}

} // namespace

searchHandle findFirst(const string& pattern, std::uint32_t, searchHit& hit)
{
    _wfinddata64i32_t found;
    const searchHandle search = ::_wfindfirst64i32(wide(pattern), &found);
    if (search != noSearch) takeHit(found, hit);
    return search;
}

bool findNext(searchHandle search, searchHit& hit)
{
    _wfinddata64i32_t found;
    if (search == noSearch || ::_wfindnext64i32(search, &found) != 0) return false;
    takeHit(found, hit);
    return true;
}

void findClose(searchHandle search)
{
    if (search != noSearch) ::_findclose(search);
}

} // namespace orlo::platform
