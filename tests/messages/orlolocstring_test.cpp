#include "orlolocstring.h"

#include "support/languagefile.h"

#include <memory>

namespace orlolocstringTest {

using orlo::genericValue;
using orlo::iLocString;
using orlo::iLocStringId;
using orlo::languageTable;
using orlo::locString;
using orlo::locStringId;
using orlo::string;
using orlo::tests::addLanguageFile;
using orlo::tests::languageTest;

namespace {

class localisedText : public languageTest {};

string keyOf(const iLocStringId& id)
{
    string key(u"left over");
    id.getKey(key);
    return key;
}

// A default text with one parameter named "a" filled in.
string filled(const char16_t* text, const genericValue& value)
{
    locString message(u"missing", text);
    message.setParam(value, u"a");
    return message.getText();
}

// A holder that fits but has no value.
class emptyHolder final : public genericValue::holder<string> {
public:
    [[nodiscard]] genericValue::holderbase* clone() const override { return new emptyHolder; }
    bool copyTo(genericValue::holderbase&) const override { return false; }
    bool copyFrom(const genericValue::holderbase&) override { return false; }
    [[nodiscard]] const std::type_info& typeInfo() const override { return typeid(string); }
    [[nodiscard]] void* valuePointer() override { return nullptr; }
    [[nodiscard]] const void* constValuePointer() const override { return nullptr; }
    [[nodiscard]] bool isNull() const override { return true; }
    [[nodiscard]] string* getValue() override { return nullptr; }
    [[nodiscard]] const string* getConstValue() const override { return nullptr; }
    void setValue(const string&) override {}
};

// Memory for a clone; the clone ends with it.
template <class T>
struct cloneRoom {
    ~cloneRoom()
    {
        if (made) made->~T();
    }
    alignas(T) unsigned char memory[sizeof(T)];
    T* made = nullptr;
};

const char16_t* const noFile = nullptr;

} // namespace

TEST_F(localisedText, addressNamesKeyDefaultTextAndFiles)
{
    const struct {
        locStringId id;
        const char16_t* key;
    } rows[] = {
        {locStringId(u"k", u"x"), u"k|x|"},
        {locStringId(u"k", u"x", noFile), u"k|x|"},
        {locStringId(u"k", u""), u"k||"},
        {locStringId(u"k", u"x", u"language.loc"), u"k|x|,language.loc"},
        {locStringId(u"k", u"x", u"language.loc", noFile), u"k|x|,language.loc"},
        {locStringId(u"k", u"x", u"a.loc", u"b.loc"), u"k|x|,a.loc,b.loc"},
        {locStringId(u"k", u"x", u"a.loc", u"", u"b.loc"), u"k|x|,a.loc,b.loc"},
        {locStringId(u"k", u"x", u"a.loc", noFile, u"b.loc"), u"k|x|,a.loc"},
        {locStringId(u"k", u"x|y", u"a.loc"), u"k|x|y|,a.loc"},
        {locStringId(u"", u"x", u"a.loc"), u""},
        {locStringId(), u""},
    };
    for (const auto& row : rows) EXPECT_EQ(keyOf(row.id), string(row.key));
}

TEST_F(localisedText, addressGivesKeyAndDefaultText)
{
    const locStringId id(u"key", u"E:default", u"a.loc");
    EXPECT_EQ(string(id.getId()), string(u"key"));
    EXPECT_EQ(string(id.getDefaultText()), string(u"E:default"));
    const locStringId none;
    EXPECT_EQ(string(none.getId()), string());
    EXPECT_EQ(string(none.getDefaultText()), string());
}

TEST_F(localisedText, addressIsClonedIntoGivenMemory)
{
    const locStringId id(u"key", u"text", u"a.loc");
    cloneRoom<locStringId> room;
    iLocStringId* clone = id.clone(room.memory);
    room.made = static_cast<locStringId*>(clone);
    EXPECT_EQ(static_cast<void*>(room.made), static_cast<void*>(room.memory));
    EXPECT_EQ(keyOf(*clone), string(u"key|text|,a.loc"));
}

TEST_F(localisedText, isEmptyByDefault)
{
    locString text;
    EXPECT_EQ(keyOf(text.getLocStringId()), string());
    EXPECT_EQ(text.renderedText(), string());
    EXPECT_EQ(string(text.getText()), string());
    EXPECT_FALSE(text.hasText());
}

TEST_F(localisedText, isTheDefaultTextWithoutALanguageFile)
{
    locString text(u"key", u"words", u"language.loc");
    EXPECT_EQ(text.renderedText(), string());
    EXPECT_EQ(string(text.getText()), string(u"words"));
    EXPECT_EQ(text.renderedText(), string(u"words"));
    EXPECT_FALSE(text.hasText());
}

TEST_F(localisedText, comesFromTheLanguageFileThatHoldsTheKey)
{
    languageTable::instance().setLanguage(u"english");
    addLanguageFile(u"C:\\tool\\config\\Language\\english\\language.loc", u"key from the file\n");
    locString text(u"key", u"default", u"language.loc");
    EXPECT_TRUE(text.hasText());
    EXPECT_EQ(string(text.getText()), string(u"from the file"));
    locString other(u"other", u"default", u"language.loc");
    EXPECT_FALSE(other.hasText());
    EXPECT_EQ(string(other.getText()), string(u"default"));
}

TEST_F(localisedText, withoutAKeyIsAlwaysTheDefaultText)
{
    addLanguageFile(u"C:\\tool\\bin\\language.loc", u"key from the file\n");
    EXPECT_EQ(string(locString(u"", u"default", u"language.loc").getText()), string(u"default"));
}

TEST_F(localisedText, withABarInItsDefaultTextFindsNoFileAndIsShownWhole)
{
    addLanguageFile(u"C:\\tool\\bin\\language.loc", u"key from the file\n");
    locString text(u"key", u"this | that", u"language.loc");
    EXPECT_FALSE(text.hasText());
    EXPECT_EQ(string(text.getText()), string(u"this | that"));
}

TEST_F(localisedText, honoursTheSeverityOfADefaultText)
{
    EXPECT_EQ(string(locString(u"key", u"E:  Disk full").getText()), string(u"Disk full"));
}

TEST_F(localisedText, hasItsParametersFilledIn)
{
    locString text(u"key", u"[what] of [whom]!");
    text.setParam(u"Word", u"what");
    text.setParam(string(u"mouth"), u"whom");
    EXPECT_EQ(string(text.getText()), string(u"Word of mouth!"));
}

TEST_F(localisedText, hasOnlyTheFirstOfTwoEqualPlacesFilled)
{
    locString text(u"key", u"[a] and [a]");
    text.setParam(u"x", u"a");
    EXPECT_EQ(string(text.getText()), string(u"x and [a]"));
}

TEST_F(localisedText, takesANullTextAsTheEmptyText)
{
    locString text(u"key", u"<<[a]>>");
    text.setParam(static_cast<const char16_t*>(nullptr), u"a");
    EXPECT_EQ(string(text.getText()), string(u"<<>>"));
}

TEST_F(localisedText, keepsTheLaterOfTwoValuesAtThePlaceOfTheFirst)
{
    // The value of the first parameter brings the place of the second, so the order shows.
    locString text(u"key", u"[a]");
    text.setParam(u"nothing", u"a");
    text.setParam(u"end", u"b");
    text.setParam(u"[b]", u"a");
    EXPECT_EQ(string(text.getText()), string(u"end"));
}

TEST_F(localisedText, tellsParameterNamesApartByCase)
{
    locString text(u"key", u"[a][A]");
    text.setParam(u"small", u"a");
    text.setParam(u"large", u"A");
    EXPECT_EQ(string(text.getText()), string(u"smalllarge"));
}

TEST_F(localisedText, takesItsOwnParameterAsAValue)
{
    locString text(u"key", u"[a]");
    const genericValue value = genericValue::of(string(u"x"));
    text.setParam(value, u"a");
    text.setParam(value, u"a");
    EXPECT_EQ(string(text.getText()), string(u"x"));
}

TEST_F(localisedText, fillsInEachTypeThatATemplateTakes)
{
    const struct {
        genericValue value;
        const char16_t* text;
    } rows[] = {
        {genericValue::of(string(u"words")), u"words"},
        {genericValue::of(u'A'), u"65"},
        {genericValue::of(true), u"True"},
        {genericValue::of(false), u"False"},
        {genericValue::of(static_cast<short>(-7)), u"-7"},
        {genericValue::of(42), u"42"},
        {genericValue::of(70000L), u"70000"},
        {genericValue::of(1.5), u"1.500000"},
        {genericValue::of(locString(u"missing", u"inner")), u"inner"},
    };
    for (const auto& row : rows) EXPECT_EQ(filled(u"[a]", row.value), string(row.text));
}

TEST_F(localisedText, fillsInByTheConversionOfThePlace)
{
    EXPECT_EQ(filled(u"[a:%03d]", genericValue::of(7)), string(u"007"));
    EXPECT_EQ(filled(u"[a:%c]", genericValue::of(u'A')), string(u"A"));
    EXPECT_EQ(filled(u"[a:%-4s]|", genericValue::of(string(u"ab"))), string(u"ab  |"));
}

TEST_F(localisedText, passesOverValuesThatATemplateDoesNotTake)
{
    EXPECT_EQ(filled(u"[a]", genericValue()), string(u"[a]"));
    EXPECT_EQ(filled(u"[a]", genericValue::of(1.5F)), string(u"[a]"));
    EXPECT_EQ(filled(u"[a]", genericValue::of(7U)), string(u"[a]"));
    EXPECT_EQ(filled(u"[a]", genericValue(new emptyHolder)), string(u"[a]"));
}

TEST_F(localisedText, fillsABracketlessTextByTheEmptyName)
{
    locString text(u"key", u"%d files");
    text.setParam(genericValue::of(3), u"");
    EXPECT_EQ(string(text.getText()), string(u"3 files"));
    locString bracket(u"key", u"[] files");
    bracket.setParam(genericValue::of(3), u"");
    EXPECT_EQ(string(bracket.getText()), string(u"3 files"));
}

TEST_F(localisedText, searchesInsertedTextForLaterPlaces)
{
    locString text(u"key", u"[a]");
    text.setParam(u"-> [b]", u"a");
    text.setParam(u"there", u"b");
    EXPECT_EQ(string(text.getText()), string(u"-> there"));
}

TEST_F(localisedText, rendersAnInnerTextInTheLanguageOfTheOuterOne)
{
    languageTable::instance().setLanguage(u"english");
    addLanguageFile(u"C:\\tool\\bin\\english\\inner.loc", u"outer the [a]\ninner house [n]\n");
    addLanguageFile(u"C:\\tool\\bin\\german\\inner.loc", u"outer das [a]\ninner Haus [n]\n");
    locString inner(u"inner", u"", u"inner.loc");
    inner.setParam(genericValue::of(5), u"n");
    locString outer(u"outer", u"", u"inner.loc");
    outer.setParam(genericValue::of(inner), u"a");
    EXPECT_EQ(string(outer.getText()), string(u"the house 5"));
    EXPECT_EQ(string(outer.getText(u"german")), string(u"das Haus 5"));
}

TEST_F(localisedText, isRenderedAnewEachTime)
{
    locString text(u"key", u"[a], [b]");
    text.setParam(u"1", u"a");
    EXPECT_EQ(string(text.getText()), string(u"1, [b]"));
    EXPECT_EQ(string(text.getText()), string(u"1, [b]"));
    text.setParam(u"2", u"a");
    text.setParam(u"3", u"b");
    EXPECT_EQ(string(text.getText()), string(u"2, 3"));
}

TEST_F(localisedText, leavesTheScratchListAlone)
{
    locString text(u"key", u"[a]");
    text.setParam(genericValue::of(locString(u"missing", u"inner")), u"a");
    std::vector<string> scratch{u"kept"};
    EXPECT_EQ(string(text.getText(nullptr, &scratch)), string(u"inner"));
    ASSERT_EQ(scratch.size(), 1U);
    EXPECT_EQ(scratch[0], string(u"kept"));
}

TEST_F(localisedText, keepsTheRawTextWhenAskedWhetherThereIsOne)
{
    addLanguageFile(u"C:\\tool\\bin\\raw.loc", u"key raw [a]\n");
    locString text(u"key", u"default", u"raw.loc");
    text.setParam(u"x", u"a");
    EXPECT_EQ(string(text.getText()), string(u"raw x"));
    EXPECT_TRUE(text.hasText());
    EXPECT_EQ(text.renderedText(), string(u"raw [a]"));
}

TEST_F(localisedText, keepsItsRenderedTextWhereThereIsNoRawOne)
{
    locString text(u"key", u"default [a]", u"absent.loc");
    text.setParam(u"x", u"a");
    EXPECT_EQ(string(text.getText()), string(u"default x"));
    EXPECT_FALSE(text.hasText());
    EXPECT_EQ(text.renderedText(), string(u"default x"));
    // Also where the file is there, and only its key is missing.
    addLanguageFile(u"C:\\tool\\bin\\absent.loc", u"other raw\n");
    EXPECT_FALSE(text.hasText());
    EXPECT_EQ(text.renderedText(), string(u"default x"));
}

TEST_F(localisedText, takesNullKeyTextAndNameAsEmptyOnes)
{
    locString text(noFile, noFile, u"a.loc");
    EXPECT_EQ(keyOf(text.getLocStringId()), string());
    EXPECT_EQ(string(text.getText()), string());
    EXPECT_EQ(keyOf(locStringId(u"key", noFile)), string(u"key||"));
    EXPECT_EQ(keyOf(locStringId(noFile, u"default", u"a.loc")), string());

    locString unnamed(u"key", u"[] files of [a]");
    unnamed.setParam(u"x", u"a");
    unnamed.setParam(genericValue::of(3), nullptr);
    EXPECT_EQ(string(unnamed.getText()), string(u"3 files of x"));
    unnamed.setParam(string(u"four"), nullptr);
    EXPECT_EQ(string(unnamed.getText()), string(u"four files of x"));
    unnamed.setParam(u"five", u"");
    EXPECT_EQ(string(unnamed.getText()), string(u"five files of x")) << "it is one parameter";
}

TEST_F(localisedText, isCopiedWithoutItsRenderedText)
{
    locString text(u"key", u"[a]", u"a.loc");
    text.setParam(u"x", u"a");
    text.getText();
    const locString copy(text);
    locString assigned(u"other", u"other");
    assigned.getText();
    assigned = text;
    for (const locString* each : {&copy, static_cast<const locString*>(&assigned)}) {
        EXPECT_EQ(each->renderedText(), string());
        EXPECT_EQ(keyOf(each->getLocStringId()), string(u"key|[a]|,a.loc"));
        EXPECT_EQ(string(each->getText()), string(u"x"));
    }
    EXPECT_EQ(text.renderedText(), string(u"x"));
}

TEST_F(localisedText, copiesHaveParametersOfTheirOwn)
{
    locString text(u"key", u"[a]");
    text.setParam(u"x", u"a");
    const locString copy(text);
    text.setParam(u"y", u"a");
    EXPECT_EQ(string(copy.getText()), string(u"x"));
    EXPECT_EQ(string(text.getText()), string(u"y"));
}

TEST_F(localisedText, staysWholeWhenAssignedToItself)
{
    locString text(u"key", u"[a]");
    text.setParam(u"x", u"a");
    const locString& same = text;
    text = same;
    EXPECT_EQ(string(text.getText()), string(u"x"));
}

TEST_F(localisedText, isClonedIntoGivenMemory)
{
    locString text(u"key", u"[a]");
    text.setParam(u"x", u"a");
    text.getText();
    cloneRoom<locString> room;
    iLocString* clone = text.clone(room.memory);
    room.made = static_cast<locString*>(clone);
    EXPECT_EQ(static_cast<void*>(room.made), static_cast<void*>(room.memory));
    EXPECT_EQ(room.made->renderedText(), string());
    EXPECT_EQ(string(clone->getText()), string(u"x"));
}

} // namespace orlolocstringTest
