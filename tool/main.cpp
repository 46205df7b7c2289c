#include "commands.h"
#include "orloentry.h"

int runEntry(int argumentCount, const char16_t* const* arguments)
{
    return taven::runTool({argumentCount, arguments});
}
