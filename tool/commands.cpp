#include "commands.h"

#include "getncs.h"
#include "orlolanguagetable.h"
#include "orloreport.h"
#include "slistat.h"

namespace taven {

namespace {

struct commonSwitches {
    orlo::string command;
    orlo::string language = u"english";
    bool debug = false;
};

bool hasDebugSwitch(const arguments& given)
{
    for (int index = 1; index < given.count; ++index) {
        if (switchValue(given.values[index], u"-debug")) return true;
    }
    return false;
}

commonSwitches readCommonSwitches(const arguments& given)
{
    commonSwitches common;
    readSwitches(given, {{u"-cmd:", &common.command}, {u"-language:", &common.language}});
    common.debug = hasDebugSwitch(given);
    return common;
}

} // namespace

std::int32_t runTool(const arguments& given)
{
    commonSwitches common = readCommonSwitches(given);
    orlo::languageTable::instance().setLanguage(common.language.c_str());

    common.command.toLower();
    if (common.command == u"slistat") return slistat(common.debug, given.count, given.values);
    if (common.command == u"getncs") return getncs(common.debug, given.count, given.values);

    // Callers depend on 0 here: the job was not carried out.
    orlo::reportMessage(u"tavenMorrel.exe: Invalid command \"%s\"", common.command);
    return 0;
}

} // namespace taven
