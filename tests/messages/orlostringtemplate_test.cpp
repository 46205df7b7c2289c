#include "orlostringtemplate.h"

#include "orloexception.h"
#include "support/allocations.h"
#include "support/machine.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <type_traits>

namespace orlostringtemplateTest {

using orlo::conversionSpec;
using orlo::string;
using orlo::stringTemplate;

namespace {

constexpr const char16_t* nextPlace = nullptr;

// The text after one insertion.
template <class Value>
string filled(const char16_t* text, Value value, const char16_t* name)
{
    stringTemplate made(text);
    made.insertValue(value, name);
    return made.text();
}

constexpr int absent = -1;

int severityOf(const stringTemplate& text)
{
    return text.severity() != nullptr ? static_cast<int>(*text.severity()) : absent;
}

// --- Raw texts -------------------------------------------------------------------------------

TEST(stringTemplate, isPlain)
{
    EXPECT_FALSE(std::is_polymorphic_v<stringTemplate>);
    EXPECT_EQ(stringTemplate().text(), u"");
    EXPECT_EQ(severityOf(stringTemplate()), absent);
}

TEST(stringTemplate, takesSeverityAndLeadingBlanksOffARawText)
{
    static const struct {
        const char16_t* raw;
        int severity;
        const char16_t* text;
    } rows[] = {
        {u"E:  Disk full", 3, u"Disk full"},
        {u"E:x", 3, u"x"},
        {u"e:x", 3, u"x"},
        {u"W:x", 2, u"x"},
        {u"w:x", 2, u"x"},
        {u"I:x", 1, u"x"},
        {u"i:x", 1, u"x"},
        {u"x:", 0, u""},
        {u":", absent, u":"},
        {u"::x", 0, u"x"},
        {u"C:\\temp", 0, u"\\temp"},
        {u"plain", absent, u"plain"},
        {u"  two  ", absent, u"two  "},
        {u" E:x", absent, u"E:x"},
        {u"\tx", absent, u"\tx"},
        {u"E: \t x", 3, u"\t x"},
        {u"E:E:x", 3, u"E:x"},
        {u"", absent, u""},
        {u"\0:x", absent, u""},
        {u"   ", absent, u""},
        {nullptr, absent, u""},
    };
    for (const auto& row : rows) {
        const stringTemplate made(row.raw);
        const string raw = row.raw != nullptr ? row.raw : u"(null)";
        EXPECT_EQ(made.text(), row.text) << orlo::narrow(raw);
        EXPECT_EQ(severityOf(made), row.severity) << orlo::narrow(raw);
    }
}

TEST(stringTemplate, keepsItsSeverityUntilAKnownLetterComes)
{
    stringTemplate text(u"E:first");
    for (const char16_t* raw : {u"second", u"x:third", u""}) {
        text.setText(raw);
        EXPECT_EQ(severityOf(text), 3) << orlo::narrow(raw);
    }
    text.setText(nullptr);
    EXPECT_EQ(severityOf(text), 3);
    text.setText(u"W:fourth");
    EXPECT_EQ(severityOf(text), 2);
}

TEST(stringTemplate, takesItsOwnTextAgain)
{
    stringTemplate text(u"E:I:a text that is too long to lie inside of the object");
    text.setText(text.text().c_str());
    EXPECT_EQ(text.text(), u"a text that is too long to lie inside of the object");
    EXPECT_EQ(severityOf(text), 1);
}

TEST(stringTemplate, copiesTextSeverityAndCount)
{
    stringTemplate original(u"E:$1 $2");
    original.insertValue(u"a", nextPlace);
    stringTemplate copy(original);
    original.setText(u"W:other");
    EXPECT_EQ(copy.text(), u"a $2");
    EXPECT_EQ(severityOf(copy), 3);
    EXPECT_TRUE(copy.insertValue(u"b", nextPlace));
    EXPECT_EQ(copy.text(), u"a b");

    stringTemplate counted(u"$1 $2 $3");
    counted.insertValue(u"a", nextPlace);
    counted.insertValue(u"b", nextPlace);
    const stringTemplate constructed(counted);
    EXPECT_EQ(constructed.nextPosition(), 2);
    stringTemplate assigned;
    assigned = counted;
    EXPECT_EQ(assigned.nextPosition(), 2);
    EXPECT_TRUE(assigned.insertValue(u"c", nextPlace));
    EXPECT_EQ(assigned.text(), u"a b c");

    copy = stringTemplate(u"plain");
    EXPECT_EQ(copy.text(), u"plain");
    EXPECT_EQ(severityOf(copy), absent);
    copy = original;
    EXPECT_EQ(severityOf(copy), 2);
    EXPECT_NE(copy.severity(), original.severity());
}

TEST(stringTemplate, assignedToItselfStaysAsItIs)
{
    stringTemplate text(u"E:[x]");
    const stringTemplate& alias = text;
    text = alias;
    EXPECT_EQ(text.text(), u"[x]");
    EXPECT_EQ(severityOf(text), 3);
}

TEST(stringTemplate, reportsThatNoMemoryIsLeftForTheSeverity)
{
    orlo::tests::machine::renew();
    stringTemplate text(u"before");
    try {
        const orlo::tests::allocationFault fault(1);
        text.setText(u"E:x");
        ADD_FAILURE() << "no failure raised";
    } catch (orlo::outOfMemoryException& failure) {
        EXPECT_EQ(string(failure.m_message.getLocStringId().getId()), u"Msg_EOutOfMem");
        EXPECT_EQ(string(failure.m_message.getText()), u"Out of memory");
    }
    EXPECT_EQ(severityOf(text), absent);
    text.setText(u"E:x");
    EXPECT_EQ(severityOf(text), 3);
}

TEST(stringTemplate, needsNoMemoryForASeverityThatIsThere)
{
    stringTemplate text(u"E:x");
    const orlo::tests::allocationFault fault(1);
    text.setText(u"W:y");
    EXPECT_EQ(severityOf(text), 2);
    EXPECT_FALSE(fault.hasHappened());
}

TEST(stringTemplate, copiesWithoutTheSeverityWhereNoMemoryIsLeftForIt)
{
    const stringTemplate original(u"E:$1");
    stringTemplate assigned(u"W:y");
    {
        const orlo::tests::allocationFault fault(1);
        const stringTemplate copy(original);
        EXPECT_TRUE(fault.hasHappened());
        EXPECT_EQ(copy.text(), u"$1");
        EXPECT_EQ(severityOf(copy), absent);
    }
    {
        const orlo::tests::allocationFault fault(1);
        assigned = original;
        EXPECT_TRUE(fault.hasHappened());
    }
    EXPECT_EQ(assigned.text(), u"$1");
    EXPECT_EQ(severityOf(assigned), absent);
}

// --- Collecting a conversion -----------------------------------------------------------------

conversionSpec formatOf(std::u16string_view units)
{
    conversionSpec format;
    for (const char16_t unit : units) format.addChar(unit);
    return format;
}

TEST(conversionSpec, isClassedByItsLetter)
{
    using valueClass = conversionSpec::valueClass;
    static const struct {
        const char16_t* letters;
        valueClass type;
    } rows[] = {
        {u"c", valueClass::character},
        {u"dioux"
         u"X",
         valueClass::integer},
        {u"eEfgG", valueClass::floating},
        {u"s", valueClass::text},
        {u"CS", valueClass::empty},
        {u"%-+ #0123.hlLFaApn]$", valueClass::none},
    };
    for (const auto& row : rows) {
        for (const char16_t* letter = row.letters; *letter != 0; ++letter) {
            const conversionSpec format = formatOf(string(u"%") + string(*letter));
            EXPECT_EQ(format.type(), row.type) << orlo::narrow(string(*letter));
            EXPECT_EQ(format.isComplete(), row.type != valueClass::none)
                << orlo::narrow(string(*letter));
        }
    }
    EXPECT_EQ(static_cast<int>(valueClass::empty), 5);
    EXPECT_EQ(static_cast<int>(valueClass::character), 1);
}

TEST(conversionSpec, recordsTheSizeByTheUnitBefore)
{
    static const struct {
        const char16_t* units;
        std::uint32_t size;
    } rows[] = {
        {u"%", 1},    {u"%d", 1},   {u"%hd", 0}, {u"%ld", 2},
        {u"%lld", 2}, {u"%l5d", 1}, {u"%l5", 2}, {u"h", 1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(formatOf(row.units).size(), row.size) << orlo::narrow(row.units);
}

TEST(conversionSpec, refusesUnitsBeyond15)
{
    conversionSpec format = formatOf(u"%00000000000005");
    EXPECT_EQ(string(format.conversion()), u"%00000000000005");
    format.addChar(u'd');
    EXPECT_FALSE(format.isComplete());
    EXPECT_EQ(string(format.conversion()), u"%00000000000005");

    format = formatOf(u"%0000000000005d");
    EXPECT_TRUE(format.isComplete());
    EXPECT_EQ(string(format.conversion()).size(), conversionSpec::maxLength);
}

TEST(conversionSpec, keepsItsClassWhenOtherUnitsFollow)
{
    EXPECT_EQ(formatOf(u"%d5").type(), conversionSpec::valueClass::integer);
    EXPECT_EQ(formatOf(u"%ds").type(), conversionSpec::valueClass::text);
}

// --- Places by name --------------------------------------------------------------------------

TEST(stringTemplate, fillsThePlaceOfAName)
{
    static const struct {
        const char16_t* text;
        const char16_t* expected;
    } rows[] = {
        {u"[x]", u"V"},
        {u"ab[x]cd", u"abVcd"},
        {u"[x] [x]", u"V [x]"},
        {u"[y] [x]", u"[y] V"},
        {u"xx[x]", u"xxV"},
        {u"x[x]", u"x[x]"},
        {u"x[x] [x]", u"x[x] V"},
        {u"\\[x]", u"\\[x]"},
        {u"ab\\[x]", u"ab\\[x]"},
        {u"\\[x] [x]", u"\\[x] V"},
        {u"[X]", u"[X]"},
        {u"[x", u"[x"},
        {u"ab[x", u"ab[x"},
        {u"x]", u"x]"},
        {u"[", u"["},
        {u"", u""},
        {u"[xy]", u"[xy]"},
        {u"[xy][x]", u"[xy]V"},
        {u"[ x]", u"[ x]"},
        {u"[[x]", u"[[x]"}, // the second bracket is the unit that differs
        {u"[a[x]", u"[aV"},
        {u"[x:%s]", u"V"},
        {u"[x:%3s]", u"  V"},
        {u"[x:]", u"V"},
        {u"[x:y]", u"V"},
        {u"[x:a:b]", u"[x:a:b]"}, // the name ends at the last colon
    };
    for (const auto& row : rows)
        EXPECT_EQ(filled(row.text, u"V", u"x"), row.expected) << orlo::narrow(row.text);
}

TEST(stringTemplate, takesNamesWithColonsOnlyInFrontOfAnother)
{
    EXPECT_EQ(filled(u"[a:b]", u"V", u"a:b"), u"[a:b]");
    EXPECT_EQ(filled(u"[a:b:]", u"V", u"a:b"), u"V");
    EXPECT_EQ(filled(u"[a:b:%4s]", u"V", u"a:b"), u"   V");
}

TEST(stringTemplate, takesTheValueOfANamedPlace)
{
    EXPECT_EQ(
        filled(u"Unexpected error occurred ([Details])", string(u"no disk").c_str(), u"Details"),
        u"Unexpected error occurred (no disk)");
    EXPECT_EQ(filled(u"[Count:%03d]", 7, u"Count"), u"007");
    EXPECT_EQ(filled(u"\\[Details]", u"V", u"Details"), u"\\[Details]");
    EXPECT_EQ(filled(u"x[Details]", u"V", u"Details"), u"x[Details]");
    EXPECT_EQ(filled(u"xx[Details]", u"V", u"Details"), u"xxV");
    EXPECT_EQ(filled(u"[Name:%-10s]|", 5, u"Name"), u"5         |");
}

TEST(stringTemplate, dropsTheValueWhereThePlaceHasAnotherName)
{
    stringTemplate text(u"[Detailed] %d");
    EXPECT_TRUE(text.insertValue(5, u"Detail"));
    EXPECT_EQ(text.text(), u"[Detailed] %d");
    EXPECT_FALSE(text.insertValue(u"V", u"Detail"));
    EXPECT_EQ(text.text(), u"[Detailed] %d");
}

TEST(stringTemplate, looksForAConversionInsideThePlaceOfAnotherName)
{
    EXPECT_EQ(filled(u"%d [Detailed:%d]", 5, u"Detail"), u"%d [Detailed:5]");
    EXPECT_EQ(filled(u"[Detailed:%d] [Detailing:%d]", 5, u"Detail"),
              u"[Detailed:%d] [Detailing:5]");
    EXPECT_EQ(filled(u"[Detailed:%0] 3d", 5, u"Detail"), u"[Detailed: 3d");
}

TEST(stringTemplate, looksForAConversionNowhereButInAPlaceThatWasFound)
{
    EXPECT_EQ(filled(u"[x] %d", 1.5, u"x"), u"1.500000 %d");
    EXPECT_EQ(filled(u"%d [x]", 1.5, u"x"), u"%d 1.500000");
    EXPECT_EQ(filled(u"[x:%s] %d", 1.5, u"x"), u"1.500000 %d");
}

TEST(stringTemplate, looksForAConversionAnywhereWhereNoBracketCameSoFar)
{
    EXPECT_EQ(filled(u"[Other] %d", 5, u"x"), u"[Other] 5");
    EXPECT_EQ(filled(u"[x %d", 5, u"x"), u"[x 5");
    EXPECT_EQ(filled(u"[Det] %d", 5, u"Detail"), u"[Det] 5");
}

TEST(stringTemplate, takesTheEmptyNameForEmptyBracketsOrTheFirstConversion)
{
    EXPECT_EQ(filled(u"a []", u"V", u""), u"a V");
    EXPECT_EQ(filled(u"a [:%3s]", u"V", u""), u"a   V");
    EXPECT_EQ(filled(u"a %s %s", u"V", u""), u"a V %s");
    EXPECT_EQ(filled(u"a [b] %s", u"V", u""), u"a [b] %s");
}

TEST(stringTemplate, runsOnBehindABracketThatLacksTheLetter)
{
    // The place goes as a whole, and what was collected behind it is printed with the value.
    EXPECT_EQ(filled(u"[x:%]d", 5, u"x"), u"dd");
    EXPECT_EQ(filled(u"[x:%] 99", u"V", u"x"), u" 99V 99");
    EXPECT_EQ(filled(u"[x:%]", u"V", u"x"), u"V");
}

// --- Numbered places and plain conversions ---------------------------------------------------

TEST(stringTemplate, fillsNumberedPlacesOneAfterTheOther)
{
    stringTemplate text(u"$2 of $1");
    EXPECT_TRUE(text.insertValue(7, nextPlace));
    EXPECT_EQ(text.text(), u"$2 of 7");
    EXPECT_TRUE(text.insertValue(9, nextPlace));
    EXPECT_EQ(text.text(), u"9 of 7");
    text.setText(u"$1");
    EXPECT_TRUE(text.insertValue(1, nextPlace));
    EXPECT_EQ(text.text(), u"1");
}

TEST(stringTemplate, findsANumberByItsShortestReading)
{
    static const struct {
        const char16_t* text;
        const char16_t* expected;
    } rows[] = {
        {u"$1", u"V"},  {u"a$1b", u"aVb"},   {u"$12", u"V2"},     {u"$ 1", u"V"},
        {u"$+1", u"V"}, {u"$ +1", u"V"},     {u"$+ 1", u"$+ 1"},  {u"$-1", u"$-1"},
        {u"$01", u"V"}, {u"$21", u"$21"},    {u"$$1", u"$V"},     {u"$", u"$"},
        {u"a$", u"a$"}, {u"$a1", u"$a1"},    {u"$2 $1", u"$2 V"}, {u"$\t\n1", u"V"},
        {u"1", u"1"},   {u"$1 $1", u"V $1"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(filled(row.text, u"V", nextPlace), row.expected) << orlo::narrow(row.text);
}

TEST(stringTemplate, readsANumberWithin63Units)
{
    const auto behindBlanks = [](std::size_t count) {
        return string(u"$") + string(std::u16string(count, u' ')) + u"1";
    };
    EXPECT_EQ(filled(behindBlanks(62).c_str(), u"V", nextPlace), u"V");
    EXPECT_EQ(filled(behindBlanks(63).c_str(), u"V", nextPlace), behindBlanks(63));
}

TEST(stringTemplate, countsNamelessValuesThatFoundNoPlace)
{
    stringTemplate text(u"$2");
    EXPECT_FALSE(text.insertValue(u"first", nextPlace));
    EXPECT_TRUE(text.insertValue(u"second", nextPlace));
    EXPECT_EQ(text.text(), u"second");
}

TEST(stringTemplate, doesNotCountNamelessValuesOfAnEmptyText)
{
    stringTemplate text(u"$1");
    EXPECT_EQ(text.nextPosition(), 0);
    EXPECT_TRUE(text.insertValue(u"", nextPlace));
    ASSERT_EQ(text.text(), u"");
    EXPECT_EQ(text.nextPosition(), 1);
    EXPECT_FALSE(text.insertValue(u"dropped", nextPlace));
    EXPECT_TRUE(text.insertValue(5, nextPlace));
    EXPECT_TRUE(text.insertValue(1.5, nextPlace));
    EXPECT_EQ(text.text(), u"");
    EXPECT_EQ(text.nextPosition(), 1);
    text.setText(u"[x]");
    EXPECT_EQ(text.nextPosition(), 0);
    text.insertValue(5, u"x");
    EXPECT_EQ(text.nextPosition(), 0) << "a name is no position";
}

TEST(stringTemplate, usesTheConversionWithinANumberedPlaceOnly)
{
    EXPECT_EQ(filled(u"$1 %d", 5, nextPlace), u"5 %d");
}

TEST(stringTemplate, fillsPlainConversionsOneAfterTheOther)
{
    stringTemplate text(u"Value %d of %d");
    EXPECT_TRUE(text.insertValue(3, nextPlace));
    EXPECT_EQ(text.text(), u"Value 3 of %d");
    EXPECT_TRUE(text.insertValue(8, nextPlace));
    EXPECT_EQ(text.text(), u"Value 3 of 8");
    EXPECT_TRUE(text.insertValue(9, nextPlace));
    EXPECT_EQ(text.text(), u"Value 3 of 8");
}

TEST(stringTemplate, takesAnyPercentSignForAConversion)
{
    static const struct {
        const char16_t* text;
        int value;
        const char16_t* expected;
    } rows[] = {
        {u"50% off", 8, u"5010ff"}, {u"%%d", 5, u"%5"},    {u"%%%d", 5, u"%%5"},
        {u"%%", 5, u"%%"},          {u"50%", 5, u"50%"},   {u"%", 5, u"%"},
        {u"%d%%", 5, u"5%%"},       {u"%5d", 5, u"    5"}, {u"100 %\u00e4", 5, u"100 %\u00e4"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(filled(row.text, row.value, nextPlace), row.expected) << orlo::narrow(row.text);
}

TEST(stringTemplate, insertsTextThatLaterInsertionsSearch)
{
    stringTemplate text(u"[a] [b]");
    text.insertValue(u"<[b]>", u"a");
    text.insertValue(u"V", u"b");
    EXPECT_EQ(text.text(), u"<[b]> V"); // index 1 opens no place
    text.setText(u"[a] [b]");
    text.insertValue(u"see [b]", u"a");
    text.insertValue(u"V", u"b");
    EXPECT_EQ(text.text(), u"see V [b]");
}

TEST(stringTemplate, takesAValueOutOfItsOwnText)
{
    stringTemplate text(u"[x] and more that makes the text grow beyond the inline room");
    EXPECT_TRUE(text.insertValue(text.text().c_str(), u"x"));
    EXPECT_EQ(text.text(), u"[x] and more that makes the text grow beyond the inline room"
                           u" and more that makes the text grow beyond the inline room");
}

// --- The text of each kind of value ----------------------------------------------------------

template <class Value>
struct formatRow {
    const char16_t* text;
    Value value;
    const char16_t* expected;
};

template <class Value, std::size_t count>
void expectFilled(const formatRow<Value> (&rows)[count])
{
    for (const auto& row : rows)
        EXPECT_EQ(filled(row.text, row.value, u"x"), row.expected) << orlo::narrow(row.text);
}

TEST(stringTemplate, formatsWholeNumbersByClass)
{
    static const formatRow<short> shorts[] = {
        {u"[x]", -7, u"-7"},      {u"[x:%5s]", -7, u"   -7"},   {u"[x:%.1s]", 71, u"7"},
        {u"[x:%d]", -7, u"-7"},   {u"[x:%x]", -1, u"ffffffff"}, {u"[x:%hx]", -1, u"ffff"},
        {u"[x:%.1f]", 3, u"3.0"}, {u"[x:%c]", 65, u"A"},        {u"[x:%c]", -56, u"\uffc8"},
    };
    expectFilled(shorts);
    static const formatRow<int> ints[] = {
        {u"[x]", -70000, u"-70000"},     {u"[x:%-7s]|", 12, u"12     |"},
        {u"[x:%hd]", 65536 + 5, u"5"},   {u"[x:%u]", -1, u"4294967295"},
        {u"[x:%e]", 3, u"3.000000e+00"}, {u"[x:%c]", 200, u"\uffc8"},
        {u"[x:%c]", 256 + 65, u"A"},     {u"[x:%lld]", -5, u"-5"},
        {u"[x:%*d]", 5, u"5"},           {u"[x:%i]", 5, u"5"},
        {u"[x:%o]", 8, u"10"},           {u"[x:%#X]", 255, u"0XFF"},
    };
    expectFilled(ints);
    static const formatRow<long> longs[] = {
        {u"[x]", -70000L, u"-70000"}, {u"[x:%ld]", 5L, u"5"},   {u"[x:%g]", 5L, u"5"},
        {u"[x:%c]", 321L, u"A"},      {u"[x:%3s]", 5L, u"  5"},
    };
    expectFilled(longs);
    // Where the platform's own is wider, its low 32 bits count.
    const auto wide = static_cast<long>(0x100000005);
    static const formatRow<long> wides[] = {
        {u"[x]", wide, u"5"},
        {u"[x:%d]", wide, u"5"},
        {u"[x:%ld]", wide, u"5"},
        {u"[x:%lld]", wide, u"5"},
        {u"[x:%llx]", wide, u"5"},
        {u"[x:%f]", wide, u"5.000000"},
        {u"[x]", static_cast<long>(0xFFFFFFFB), u"-5"},
    };
    expectFilled(wides);
}

TEST(stringTemplate, formatsDoublesByClass)
{
    static const formatRow<double> rows[] = {
        {u"[x]", 1.5, u"1.500000"},
        {u"[x]", 2.0, u"2.000000"},
        {u"[x:%.3s]", 1.5, u"1.5"},
        {u"[x:%10s]", 1.5, u"  1.500000"},
        {u"[x:%.2f]", 1.005, u"1.00"},
        {u"[x:%lf]", 1.5, u"1.500000"},
        {u"[x:%G]", 1e20, u"1E+20"},
        {u"[x:%d]", -1.9, u"-1"},
        {u"[x:%d]", 4294967301.0, u"5"},
        {u"[x:%x]", -1.0, u"ffffffff"},
        {u"[x:%c]", 65.9, u"A"},
        {u"[x:%c]", 200.0, u"\u00c8"},
        {u"[x:%c]", 321.0, u"A"},
        {u"[x:%c]", 4294967296.0 + 65, u"A"},
        {u"[x:%c]", -191.0, u"A"},
        {u"[x]", std::numeric_limits<double>::infinity(), u"inf"},
        {u"[x:%d]", std::numeric_limits<double>::quiet_NaN(), u"0"},
    };
    expectFilled(rows);
    EXPECT_EQ(filled(u"[x]", std::numeric_limits<double>::lowest(), u"x").size(), 1 + 309 + 1 + 6u);
}

TEST(stringTemplate, formatsTextsByClass)
{
    static const formatRow<const char16_t*> rows[] = {
        {u"[x]", u"text", u"text"},
        {u"[x:%6s]|", u"text", u"  text|"},
        {u"[x:%c]", u"text", u"t"},
        {u"[x:%d]", u" 12abc", u"12"},
        {u"[x:%d]", u"99999999999", u"2147483647"},
        {u"[x:%.1f]", u"1.25e1mm", u"12.5"},
        {u"[x:%ls]", u"text", u"text"},
        {u"[x:%c]|", u"", u"|"},
        {u"[x]|", u"", u"|"},
    };
    expectFilled(rows);
}

TEST(stringTemplate, printsSomeNumberForATextThatIsNone)
{
    EXPECT_EQ(filled(u"[x:%d]", u"abc", u"x"), u"0");
    EXPECT_EQ(filled(u"[x:%.1f]", u"abc", u"x"), u"0.0");
}

TEST(stringTemplate, formatsBoolsByClass)
{
    static const formatRow<bool> rows[] = {
        {u"[x]", true, u"True"},       {u"[x]", false, u"False"},    {u"[x:%d]", true, u"1"},
        {u"[x:%d]", false, u"0"},      {u"[x:%.1f]", true, u"1.0"},  {u"[x:%.1f]", false, u"0.0"},
        {u"[x:%6s]", true, u"  True"}, {u"[x:%c]", true, u"\u0001"}, {u"[x:%3c]|", false, u"  |"},
        {u"[x:%c]|", false, u"|"},
    };
    expectFilled(rows);
}

TEST(stringTemplate, formatsAUnitAsItsNumber)
{
    static const formatRow<char16_t> rows[] = {
        {u"[x]", u'A', u"65"},
        {u"[x:%4s]", u'A', u"  65"},
        {u"[x:%d]", u'\uffff', u"65535"},
        {u"[x:%c]", u'A', u"A"},
        {u"[x:%c]", u'\u00c8', u"\uffc8"},
        {u"[x:%.1f]", u'A', u"65.0"},
        {u"[x:%c]", u'\u2041', u"A"},
    };
    expectFilled(rows);
}

TEST(stringTemplate, givesNothingForANullTextInEveryClass)
{
    for (const char16_t* text :
         {u"<<[x]>>", u"<<[x:%5s]>>", u"<<[x:%d]>>", u"<<[x:%f]>>", u"<<[x:%c]>>", u"<<[x:%S]>>"}) {
        stringTemplate made(text);
        EXPECT_TRUE(made.insertValue(static_cast<const char16_t*>(nullptr), u"x"))
            << orlo::narrow(text);
        EXPECT_EQ(made.text(), u"<<>>") << orlo::narrow(text);
    }
}

TEST(stringTemplate, keepsValuesOfUpTo256UnitsOffTheHeap)
{
    const string value(std::u16string(256, u'v'));
    const string room(std::u16string(300, u'r'));
    stringTemplate text((room + u"[x]").c_str());
    text.setText(u"[x]"); // the room stays
    const orlo::tests::allocationFault fault(1);
    EXPECT_TRUE(text.insertValue(value.c_str(), u"x"));
    EXPECT_FALSE(fault.hasHappened());
    EXPECT_EQ(text.text(), value);
}

TEST(stringTemplate, insertsLongTextsAndWideFields)
{
    for (const std::size_t length : {255u, 256u, 257u, 511u, 512u, 513u, 5000u}) {
        const string value(std::u16string(length, u'v'));
        EXPECT_EQ(filled(u"<<[x]>>", value.c_str(), u"x"), string(u"<<") + value + u">>") << length;
    }
    EXPECT_EQ(filled(u"[x:%3000d]", 5, u"x").size(), 3000u);
}

// --- Results and empty texts -----------------------------------------------------------------

TEST(stringTemplate, tellsOnlyForATextThatNoPlaceWasFound)
{
    stringTemplate text(u"no place");
    EXPECT_FALSE(text.insertValue(u"V", u"x"));
    EXPECT_TRUE(text.insertValue(short{5}, u"x"));
    EXPECT_TRUE(text.insertValue(5, u"x"));
    EXPECT_TRUE(text.insertValue(5L, u"x"));
    EXPECT_TRUE(text.insertValue(1.5, u"x"));
    EXPECT_TRUE(text.insertValue(true, u"x"));
    EXPECT_TRUE(text.insertValue(u'x', u"x"));
    EXPECT_EQ(text.text(), u"no place");
}

// A text, and what each kind of value leaves of it where the printed value is empty.
struct emptyRow {
    const char16_t* text;
    const char16_t* afterInt;
    const char16_t* afterText;
    const char16_t* afterOthers;
};

TEST(stringTemplate, leavesAPlaceOpenForAnIntWhoseTextIsEmpty)
{
    static const emptyRow rows[] = {
        {u"<<[x:%C]>>", u"<<[x:%C]>>", u"<<>>", u"<<>>"},
        {u"<<[x:%S]>>", u"<<[x:%S]>>", u"<<>>", u"<<>>"},
        {u"<<%S>>", u"<<%S>>", u"<<>>", u"<<>>"},
        // More than 15 units never become a conversion, and there is no room for "%s" either.
        {u"<<[x:%000000000000005d]>>", u"<<[x:%000000000000005d]>>", u"<<[x:%000000000000005d]>>",
         u"<<>>"},
        {u"<<%000000000000005d>>", u"<<%000000000000005d>>", u"<<%000000000000005d>>",
         u"<<%000000000000005d>>"},
        // Conversions without their letters are collected one behind the other, to the end of the
        // text each.
        {u"[x:%1 %2 %3 %4]", u"[x:%1 %2 %3 %4]", u"[x:%1 %2 %3 %4]", u""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(filled(row.text, 5, u"x"), row.afterInt) << orlo::narrow(row.text);
        EXPECT_EQ(filled(row.text, u"V", u"x"), row.afterText) << orlo::narrow(row.text);
        EXPECT_EQ(filled(row.text, short{5}, u"x"), row.afterOthers) << orlo::narrow(row.text);
        EXPECT_EQ(filled(row.text, 5L, u"x"), row.afterOthers) << orlo::narrow(row.text);
        EXPECT_EQ(filled(row.text, 1.5, u"x"), row.afterOthers) << orlo::narrow(row.text);
        EXPECT_EQ(filled(row.text, true, u"x"), row.afterOthers) << orlo::narrow(row.text);
        EXPECT_EQ(filled(row.text, u'V', u"x"), row.afterOthers) << orlo::narrow(row.text);
    }
}

TEST(stringTemplate, answersFalseForATextWhoseConversionIsTooLong)
{
    stringTemplate text(u"[x:%000000000000005d]");
    EXPECT_FALSE(text.insertValue(u"V", u"x"));
    EXPECT_TRUE(text.insertValue(5, u"x"));
    EXPECT_EQ(text.text(), u"[x:%000000000000005d]");
    EXPECT_TRUE(text.insertValue(1.5, u"x"));
    EXPECT_EQ(text.text(), u"");
}

TEST(stringTemplate, leavesTheZeroUnitOpenForAnIntAlone)
{
    EXPECT_EQ(filled(u"<<[x:%c]>>", 0, u"x"), u"<<[x:%c]>>");
    EXPECT_EQ(filled(u"<<[x:%c]>>", short{0}, u"x"), u"<<>>");
    EXPECT_EQ(filled(u"<<[x:%c]>>", u'\0', u"x"), u"<<>>");
    EXPECT_EQ(filled(u"<<[x:%.0d]>>", 0, u"x"), u"<<[x:%.0d]>>");
}

// --- Anything at all -------------------------------------------------------------------------

TEST(stringTemplate, survivesRandomTexts)
{
    constexpr unsigned seed = 20240305;
    RecordProperty("seed", static_cast<int>(seed));
    std::mt19937 random(seed);
    static const std::u16string units = u"[[[]]]:::xx%%%%$$$112\\ *n.-+#0hlLdioxcsCSefgGE\u00e4";
    for (int round = 0; round < 20000; ++round) {
        string raw;
        for (std::size_t length = random() % 30; length > 0; --length)
            raw.push_back(units[random() % units.size()]);
        stringTemplate text(raw.c_str());
        const char16_t* const name = random() % 3 == 0 ? nullptr : u"x";
        const string before = text.text();
        const bool placed = text.insertValue(u"V", name);
        ASSERT_TRUE(placed || text.text() == before) << orlo::narrow(raw) << " seed " << seed;
        text.insertValue(1.5, name);
        text.insertValue(-7, name);
        text.insertValue(short{300}, name);
        text.insertValue(70000L, name);
        text.insertValue(true, name);
        text.insertValue(u'V', name);
        ASSERT_EQ(text.text().find(u'\0'), string::npos) << orlo::narrow(raw) << " seed " << seed;
    }
}

// --- Conversions, and what 32 and 8 bits hold --------------------------------------------------

TEST(stringTemplate, looksForAConversionWithinTheFoundPlaceAlone)
{
    EXPECT_EQ(filled(u"[x] %d", 1.5, u"x"), u"1.500000 %d");
    EXPECT_EQ(filled(u"%d [x]", 1.5, u"x"), u"%d 1.500000");
}

TEST(stringTemplate, givesTheLow8BitsOfANumberAsACharacter)
{
    EXPECT_EQ(filled(u"[x:%c]", 321.0, u"x"), u"A");
    EXPECT_EQ(filled(u"[x:%c]", 65.9, u"x"), u"A");
    EXPECT_EQ(filled(u"[x:%c]", 321, u"x"), u"A");
    EXPECT_EQ(filled(u"[x:%c]", 321L, u"x"), u"A");
    EXPECT_EQ(filled(u"[x:%c]", static_cast<short>(321), u"x"), u"A");
    EXPECT_EQ(filled(u"[x:%c]", u'\u0141', u"x"), u"A");
    EXPECT_EQ(filled(u"[x:%c]", 200, u"x"), u"\uffc8") << "extended with their sign";
    EXPECT_EQ(filled(u"[x:%c]", 200.0, u"x"), u"\u00c8") << "but not those of a double";
    EXPECT_EQ(filled(u"[x:%c]", u"\u4e00", u"x"), u"\u4e00") << "the first unit of a text";
}

TEST(stringTemplate, takes32BitsOfALong)
{
    const long value = static_cast<long>(0x100000005LL);
    EXPECT_EQ(filled(u"[x]", value, u"x"), u"5");
    EXPECT_EQ(filled(u"[x:%d]", value, u"x"), u"5");
    EXPECT_EQ(filled(u"[x:%lld]", value, u"x"), u"5");
    EXPECT_EQ(filled(u"[x:%.1f]", value, u"x"), u"5.0");
}

TEST(stringTemplate, readsNoArgumentForAStarThatATextHolds)
{
    EXPECT_EQ(filled(u"[x:%*d]", 7, u"x"), u"7");
    EXPECT_EQ(filled(u"[x:%*.*s]", u"abc", u"x"), u"abc");
}

} // namespace

} // namespace orlostringtemplateTest
