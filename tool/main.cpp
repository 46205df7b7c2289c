#include "commands.h"
#include "platform/entry.h"

int runEntry(int argumentCount, const char16_t* const* arguments)
{
    return taven::runTool({argumentCount, arguments});
}
