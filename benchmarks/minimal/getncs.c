/* The bound of getncs for a measured platform: a static program that makes only the calls that
   the job needs, and knows nothing but this job. Takes the paths of the measuring file, the
   language file and the result, and the platform.

   With ALL_CALLS it also makes the calls that the tool's promises cost, one for each question that
   another one has not just answered: whether folders and files are there, where a language file
   lies and whether it was edited meanwhile, whether the result can be written. It takes further
   the folders of the result and of the measuring file, and the three places in which a language
   file is looked for in vain. */
#define _GNU_SOURCE
#include <fcntl.h>
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#ifdef ALL_CALLS
enum { argumentCount = 10 };

static void expect(int holds)
{
    if (!holds) exit(2);
}

static int isThere(const char *path)
{
    struct stat found;
    return stat(path, &found) == 0;
}

static void askForFolders(char **arguments)
{
    char self[4096];
    expect(readlink("/proc/self/exe", self, sizeof self) > 0);
    expect(access(arguments[5], F_OK) == 0);
    expect(access(arguments[6], F_OK) == 0);
}

/* Once for the choice of the answer, and once more when it is read, which also gives the size. */
static void askForMeasuring(char **arguments)
{
    expect(isThere(arguments[1]));
    expect(isThere(arguments[1]));
}

static void searchLanguage(char **arguments)
{
    for (int place = 7; place < 10; ++place) expect(!isThere(arguments[place]));
    expect(isThere(arguments[2]));
}

/* The time of the file is asked for at each text. */
static void askForTime(char **arguments)
{
    expect(isThere(arguments[2]));
}

/* A file is made and removed again, to learn whether the place can be written. */
static void tryResult(const char *path)
{
    expect(access(path, W_OK) != 0);
    expect(!isThere(path));
    int file = open(path, O_RDWR | O_CREAT | O_EXCL, 0666);
    expect(file >= 0 && close(file) == 0);
    expect(isThere(path));
    expect(unlink(path) == 0);
}
#else
enum { argumentCount = 5 };
#endif

static char *readWhole(const char *path, char *buffer, size_t room)
{
    int file = open(path, O_RDONLY);
    ssize_t length = file < 0 ? -1 : read(file, buffer, room - 1);
    if (length < 0) exit(2);
    close(file);
    buffer[length] = 0;
    return buffer;
}

/* The value behind `name="`, without its end. */
static const char *behind(const char *text, const char *mark)
{
    const char *found = strstr(text, mark);
    if (!found) exit(2);
    return found + strlen(mark);
}

static void number(char **out, double value, char end)
{
    char *last = *out + sprintf(*out, "%.8f", value);
    while (last[-1] == '0') --last;
    if (last[-1] == '.') --last;
    if (end) *last++ = end;
    *out = last;
}

static void triple(char **out, const char *name, double x, double y, double z)
{
    *out += sprintf(*out, " %s=\"", name);
    number(out, x, ',');
    number(out, y, ',');
    number(out, z, '"');
}

static void cross(const double *u, const double *v, double *out)
{
    out[0] = u[1] * v[2] - u[2] * v[1];
    out[1] = u[2] * v[0] - u[0] * v[2];
    out[2] = u[0] * v[1] - u[1] * v[0];
}

static void normalize(double *v)
{
    double length = sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
    for (int i = 0; i < 3; ++i) v[i] /= length;
}

/* Adds the text of a key with its two places filled. */
static void text(char **out, const char *language, const char *key, const char *platform, const char *date)
{
    const char *from = behind(language, key) + 1;
    while (*from != '\n') {
        if (strncmp(from, "[platform]", 10) == 0) {
            *out = stpcpy(*out, platform);
            from += 10;
        } else if (strncmp(from, "[datetime]", 10) == 0) {
            *out = stpcpy(*out, date);
            from += 10;
        } else if (*from == '"') {
            *out = stpcpy(*out, "&quot;");
            ++from;
        } else if (from[0] == '\\' && from[1] == 'n') {
            *(*out)++ = '\n';
            from += 2;
        } else {
            *(*out)++ = *from++;
        }
    }
}

int main(int count, char **arguments)
{
    static char measured[65536], language[65536], result[65536];
    char date[128];
    double p[4][3];
    if (count != argumentCount) return 2;

#ifdef ALL_CALLS
    askForFolders(arguments);
    askForMeasuring(arguments);
#endif
    const char *at = readWhole(arguments[1], measured, sizeof measured);
    struct tm universal = {0};
    int year = 0;
    sscanf(behind(at, "CreationDate=\""), "%d-%d-%d", &year, &universal.tm_mon, &universal.tm_mday);
    sscanf(behind(at, "CreationTime=\""), "%d:%d:%d", &universal.tm_hour, &universal.tm_min, &universal.tm_sec);
    universal.tm_year = year - 1900;
    time_t seconds = timegm(&universal);
    strftime(date, sizeof date, "%c", localtime(&seconds));
    for (int point = 0; point < 4; ++point) {
        at = behind(at, "<MeasuringPoint");
        for (int axis = 0; axis < 3; ++axis) {
            at = strchr(behind(at, "<Axis Name=\""), '>') + 1;
            p[point][axis] = strtod(at, NULL);
        }
    }

    double o[3], x[3], y[3], z[3], a[3], b[3], n[3];
    for (int i = 0; i < 3; ++i) {
        o[i] = (p[0][i] + p[1][i] + p[2][i] + p[3][i]) / 4;
        x[i] = p[1][i] - p[0][i] + p[2][i] - p[3][i];
    }
    for (int i = 0; i < 3; ++i) a[i] = p[2][i] - p[3][i], b[i] = p[0][i] - p[3][i];
    cross(a, b, z);
    for (int i = 0; i < 3; ++i) a[i] = p[0][i] - p[1][i], b[i] = p[2][i] - p[1][i];
    cross(a, b, n);
    for (int i = 0; i < 3; ++i) z[i] += n[i];
    normalize(x);
    normalize(z);
    cross(z, x, y);
    normalize(y);
    cross(y, z, x);
    normalize(x);

#ifdef ALL_CALLS
    searchLanguage(arguments);
    expect(access(arguments[2], R_OK) == 0);
    /* The lines that include other files are read before all the others. */
    readWhole(arguments[2], language, sizeof language);
    askForTime(arguments);
#endif
    readWhole(arguments[2], language, sizeof language);
    char *out = stpcpy(result, "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<getNCSResult>\n"
                               "   <message type=\"confirm\" title=\"");
    text(&out, language, "brx_msgTitle", arguments[4], date);
    out = stpcpy(out, "\">");
#ifdef ALL_CALLS
    searchLanguage(arguments);
    askForTime(arguments);
#endif
    text(&out, language, "brx_measureFound", arguments[4], date);
    out = stpcpy(out, "</message>\n   <ncs");
    triple(&out, "o", -(x[0] * o[0] + x[1] * o[1] + x[2] * o[2]), -(y[0] * o[0] + y[1] * o[1] + y[2] * o[2]),
           -(z[0] * o[0] + z[1] * o[1] + z[2] * o[2]));
    triple(&out, "x", x[0], y[0], z[0]);
    triple(&out, "y", x[1], y[1], z[1]);
    triple(&out, "z", x[2], y[2], z[2]);
    out = stpcpy(out, "/>\n   <cs");
    triple(&out, "o", o[0], o[1], o[2]);
    triple(&out, "x", x[0], x[1], x[2]);
    triple(&out, "y", y[0], y[1], y[2]);
    triple(&out, "z", z[0], z[1], z[2]);
    out = stpcpy(out, "/>\n</getNCSResult>\n");

#ifdef ALL_CALLS
    if (isThere(arguments[3])) unlink(arguments[3]);
    tryResult(arguments[3]);
#else
    unlink(arguments[3]);
#endif
    int file = open(arguments[3], O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (file < 0 || write(file, result, (size_t)(out - result)) != out - result || close(file) != 0) return 2;
    return 1;
}
