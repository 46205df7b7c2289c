// The address of a text: a key, a default text, and the files that may hold the key.
#pragma once

#include "orloscstring.h"
#include "orlostring.h"

#include <concepts>
#include <initializer_list>
#include <vector>

namespace orlo {

// The address of a text.
class iLocStringId {
public:
    [[nodiscard]] virtual const char16_t* getDefaultText() const = 0;
    [[nodiscard]] virtual const char16_t* getId() const = 0;
    // Copy-constructs the object into memory of the caller and returns it.
    virtual iLocStringId* clone(void* memory) const = 0;
    // The whole address in one text: key|default text|,file,file; empty for an empty key. A
    // "|" in the default text is not marked, so that such a text finds no language file.
    virtual void getKey(string& out) const = 0;
    virtual ~iLocStringId() = default;
};

// Key, default text and the names of the language files that may hold the key.
class locStringId : public iLocStringId {
public:
    locStringId() = default;
    // File names follow the default text; the list ends at the first null and may be empty. A
    // null `id` or `text` counts as the empty text.
    template <std::convertible_to<const char16_t*>... Files>
    locStringId(const char16_t* id, const char16_t* text, Files... files)
        : locStringId(id, text, {static_cast<const char16_t*>(files)...})
    {}

    [[nodiscard]] const char16_t* getDefaultText() const override { return m_default.c_str(); }
    [[nodiscard]] const char16_t* getId() const override { return m_id.c_str(); }
    iLocStringId* clone(void* memory) const override;
    void getKey(string& out) const override;

private:
    using fileNames = std::initializer_list<const char16_t*>;
    locStringId(const char16_t* id, const char16_t* text, fileNames files);

    std::vector<scstring> m_files;
    string m_id;
    string m_default;
};

} // namespace orlo
