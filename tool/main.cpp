#include "commands.h"
#include "orloentry.h"
#include "orlologger.h" // makes the loggers of the process

int runEntry(int argumentCount, const char16_t* const* arguments)
{
    return taven::runTool({argumentCount, arguments});
}
