// Uses the installed library as any other program would: reads an XML file, renders a text in
// German, converts numbers. It compares what it got with what it must get, and ends with 0
// only if all is right.
#include <orlodate.h>
#include <orlodirectory.h>
#include <orloexception.h>
#include <orlogeopoint.h>
#include <orlolanguagetable.h>
#include <orlomodule.h>
#include <orloxmldocument.h>

#include <cstdio>

namespace {

using orlo::typeconvert::convert;

bool allRight = true;

void check(const char* what, bool right)
{
    std::printf("%-7s%s\n", right ? "ok" : "WRONG", what);
    allRight = allRight && right;
}

orlo::file besideTheProgram(const char16_t* name)
{
    orlo::directory home;
    orlo::getModuleDirectory(u"", home);
    return {home, name};
}

// One coordinate of a part; 0 for what is missing or no number.
double coordinate(const orlo::xmlNode& part, const char16_t* name)
{
    orlo::string text;
    double value = 0;
    if (part.getAttribute(name, text)) convert(value, text);
    return value;
}

orloGeo::point3d middleOf(const orlo::xmlNode& parts)
{
    orloGeo::point3d sum;
    for (const auto& part : parts.children)
        sum = sum + orloGeo::point3d(coordinate(*part, u"x"), coordinate(*part, u"y"),
                                     coordinate(*part, u"z"));
    return sum / static_cast<double>(parts.children.size());
}

void readParts()
{
    const auto parts = orlo::xmlDocument::createDocument();
    parts->load(besideTheProgram(u"parts.xml"), false);
    check("the root is known by its name", parts->name == u"parts");
    check("both parts are there", parts->children.size() == 2);
    check("a part has its text", parts->children.at(1)->text == u"layers: 96");

    orlo::string platform;
    check("the platform is named", parts->getAttribute(u"platform", platform));
    orlo::string centre;
    check("a point has a text", convert(centre, middleOf(*parts)));

    orlo::locString found(u"partsFound", u"[count] parts on [platform] around [centre]",
                          u"parts.loc");
    found.setParam(platform, u"platform");
    found.setParam(orlo::genericValue::of<int>(static_cast<int>(parts->children.size())), u"count");
    found.setParam(centre, u"centre");
    check("the text is there in German", found.hasText());
    const orlo::string german(found.getText());
    check("it is filled in",
          german ==
              u"Plattform P7: 02 Teile f\u00fcr den Bau,\nihre Mitte liegt bei 12.25 21 30.5");

    orlo::languageTable::instance().setLanguage(u"atlantean");
    const orlo::string fallback(found.getText());
    check("a language without a file gets the default text",
          fallback == u"2 parts on P7 around 12.25 21 30.5");
}

void convertNumbers()
{
    double number = 0;
    check("a comma is a decimal point", convert(number, orlo::string(u"0,125")) && number == 0.125);
    orlo::string text;
    check("a number is written with a point", convert(text, number) && text == u"0.125");
    text.clear();
    check("and in hexadecimal",
          convert(text, 255, orlo::typeconvert::formatGiven, orlo::typeconvert::hexUpper) &&
              text == u"FF");
    short narrow = 0;
    check("what is too large becomes the limit", !convert(narrow, 70000) && narrow == 32767);
    bool truth = false;
    check("double goes to bool by way of text", convert(truth, 1.5) && truth);
    orlo::date day;
    check("a date is read", convert(day, orlo::string(u"2024-02-28")));
    check("and counts its days", day + orlo::days(2) == orlo::date(2024, 3, 1));
}

void missAFile()
{
    bool told = false;
    try {
        orlo::xmlDocument::createDocument()->load(besideTheProgram(u"no such file.xml"), false);
    } catch (const orlo::fileNotFoundException&) {
        told = true;
    }
    check("a missing file is told by its exception", told);
}

} // namespace

int main()
{
    orlo::languageTable::instance().setLanguage(u"german");
    readParts();
    convertNumbers();
    missAFile();
    return allRight ? 0 : 1;
}
