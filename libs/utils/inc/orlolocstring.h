// Texts that a user may read: a key, a default text, and values for the open places.
#pragma once

#include "orlogenericvalue.h"
#include "orlolocstringid.h"
#include "orlostringtemplate.h"

#include <concepts>
#include <vector>

namespace orlo {

// A text that can be rendered.
class iLocString {
public:
    [[nodiscard]] virtual const iLocStringId& getLocStringId() const = 0;
    // The rendered text, valid until the next call on the object. A null language is the
    // current one. `scratch` has no reader.
    virtual const char16_t* getText(const char16_t* language = nullptr,
                                    std::vector<string>* scratch = nullptr) const = 0;
    virtual iLocString* clone(void* memory) const = 0;
    // The key was found in a language file.
    virtual bool hasText(const char16_t* language = nullptr) const = 0;

protected:
    ~iLocString() = default;
};

// An address with named parameters. Every rendering starts again from the raw text: that of
// the language file, else the default text. Copies keep address and parameters and start
// with an empty rendered text. Rendering writes into the object although it is const: not to
// be rendered by two threads at once.
//
//   locString text(u"wiped", u"[count] files of [folder] wiped", u"language.loc");
//   text.setParam(genericValue::of(12), u"count");
//   text.setParam(u"C:\\exchange", u"folder");
//   text.getText();                                    12 files of C:\exchange wiped
class locString : public iLocString {
public:
    locString() = default;
    template <std::convertible_to<const char16_t*>... Files>
    locString(const char16_t* id, const char16_t* text, Files... files)
        : m_locStringId(id, text, files...)
    {}
    locString(const locString& other);
    locString& operator=(const locString& other);
    virtual ~locString() = default;

    // Sets the parameter of this name; a second value takes the place of the first. A null
    // text and a null name count as the empty text.
    void setParam(const char16_t* value, const char16_t* name);
    void setParam(const string& value, const char16_t* name);
    void setParam(const genericValue& value, const char16_t* name);

    [[nodiscard]] const iLocStringId& getLocStringId() const override { return m_locStringId; }
    const char16_t* getText(const char16_t* language = nullptr,
                            std::vector<string>* scratch = nullptr) const override;
    iLocString* clone(void* memory) const override;
    // Leaves the raw text of the language file, its places open, as the rendered text.
    bool hasText(const char16_t* language = nullptr) const override;

    // The text of the last rendering; empty before the first.
    [[nodiscard]] const string& renderedText() const { return m_text.text(); }

private:
    struct param {
        string name;
        genericValue value;
    };
    void insertParam(const param& entry, const char16_t* language,
                     std::vector<string>* scratch) const;

    locStringId m_locStringId;
    std::vector<param> m_params;
    mutable stringTemplate m_text; // derived from the other two by each rendering
};

} // namespace orlo
