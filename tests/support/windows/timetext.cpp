// Prints a time as the runtime library shows it to the user of this machine: the judge for the
// date in a result document.
//
//     timetext SECONDS-SINCE-1970
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <ctime>

int main(int count, char** values)
{
    if (count != 2) return 2;
    const std::time_t seconds = std::strtoll(values[1], nullptr, 10);
    std::setlocale(LC_TIME, "");
    char text[128] = "";
    const std::tm* local = std::localtime(&seconds);
    if (!local || std::strftime(text, sizeof text, "%c", local) == 0) return 1;
    return std::fputs(text, stdout) < 0;
}
