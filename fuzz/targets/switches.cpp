// The switches of the command line.
#include "switches.h"

#include "input.h"

#include <array>
#include <map>

namespace orlo::fuzz {

namespace {

// Some are the beginning of another.
constexpr std::array<const char16_t*, 6> literals{u"-out:", u"-o",        u"-platform:",
                                                  u"-",     u"-zoffset:", u"-debug"};

// The value of the last argument for each literal, where the first literal that fits takes it.
std::map<string, string> judgedSwitches(const std::vector<string>& arguments)
{
    std::map<string, string> values;
    for (const char16_t* literal : literals) values[literal] = u"start";
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        for (const char16_t* literal : literals) {
            const std::size_t length = string(literal).size();
            if (arguments[i].substr(0, length) != literal) continue;
            values[literal] = arguments[i].substr(length);
            break;
        }
    }
    return values;
}

} // namespace

// The parts are the arguments, the program's name first.
void switches(bytes given)
{
    std::vector<string> arguments;
    for (const bytes part : cut(given)) arguments.emplace_back(textOf(part).c_str());
    std::vector<const char16_t*> values;
    for (const string& each : arguments) values.push_back(each.c_str());

    std::array<string, literals.size()> read;
    read.fill(u"start");
    taven::readSwitches({static_cast<int>(values.size()), values.data()},
                        {{literals[0], &read[0]},
                         {literals[1], &read[1]},
                         {literals[2], &read[2]},
                         {literals[3], &read[3]},
                         {literals[4], &read[4]},
                         {literals[5], &read[5]}});
    std::map<string, string> wanted = judgedSwitches(arguments);
    for (std::size_t i = 0; i < literals.size(); ++i)
        expect(read[i] == wanted[literals[i]], "the last argument of a switch gives its value");

    for (const string& argument : arguments) {
        const char16_t* const value = taven::switchValue(argument.c_str(), literals[0]);
        const bool carries = argument.starts_with(literals[0]);
        expect(value == (carries ? argument.c_str() + 5 : nullptr),
               "the value is the rest behind the literal");
    }
}

} // namespace orlo::fuzz
