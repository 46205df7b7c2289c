/* The bound of a wipe: reads a directory and unlinks what begins with a prefix, with no other
   call. Takes the directory and the prefix. */
#define _GNU_SOURCE
#include <dirent.h>
#include <fcntl.h>
#include <string.h>
#include <unistd.h>

int main(int count, char **arguments)
{
    static char block[32768];
    if (count != 3 || chdir(arguments[1]) != 0) return 2;
    const int directory = open(".", O_RDONLY | O_DIRECTORY);
    const size_t length = strlen(arguments[2]);
    for (ssize_t filled; (filled = getdents64(directory, block, sizeof block)) > 0;) {
        for (ssize_t at = 0; at < filled;) {
            const struct dirent64 *entry = (const struct dirent64 *)(block + at);
            if (strncmp(entry->d_name, arguments[2], length) == 0) unlink(entry->d_name);
            at += entry->d_reclen;
        }
    }
    return 0;
}
