/* The bound of a copy: within the kernel, with no other call. Takes source and target. */
#define _GNU_SOURCE
#include <fcntl.h>
#include <unistd.h>

int main(int count, char **arguments)
{
    if (count != 3) return 2;
    const int from = open(arguments[1], O_RDONLY);
    const int to = open(arguments[2], O_WRONLY | O_CREAT | O_TRUNC, 0666);
    ssize_t moved;
    while ((moved = copy_file_range(from, NULL, to, NULL, 1 << 30, 0)) > 0) continue;
    return moved == 0 && close(to) == 0 ? 0 : 2;
}
