// A folder of the real file system that vanishes with its test.
#pragma once

#include "orlostring.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <type_traits>

namespace orlo::tests {

// Path text of a path as the standard library has it; where paths begin with "/", drive C is
// the root.
inline string pathText(const std::filesystem::path& path)
{
    string text(path.u16string().c_str());
    if (!text.empty() && text[0] == u'/') text.insert(0, u"C:");
    return text.replaceChar(u'/', u'\\');
}

// The system tells paths apart by drives and keeps attributes for hidden files.
constexpr bool hasDrives = std::is_same_v<std::filesystem::path::value_type, wchar_t>;

class systemTest : public testing::Test {
protected:
    systemTest()
    {
        static int number = 0;
        const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
        m_folder = std::filesystem::temp_directory_path() /
                   ("orlo-" + std::to_string(ticks) + "-" + std::to_string(++number));
        std::filesystem::create_directories(m_folder);
    }
    ~systemTest() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    [[nodiscard]] std::filesystem::path native(const std::filesystem::path& name) const
    {
        return m_folder / name;
    }
    // Path text of an entry of the folder.
    [[nodiscard]] string path(const std::filesystem::path& name) const
    {
        return pathText(native(name));
    }

    void put(const std::filesystem::path& name, const std::string& bytes) const
    {
        std::ofstream(native(name), std::ios::binary) << bytes;
    }
    void makeFolder(const std::filesystem::path& name) const
    {
        std::filesystem::create_directory(native(name));
    }
    [[nodiscard]] bool isThere(const std::filesystem::path& name) const
    {
        return std::filesystem::exists(std::filesystem::symlink_status(native(name)));
    }
    [[nodiscard]] std::string content(const std::filesystem::path& name) const
    {
        std::ifstream in(native(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

private:
    std::filesystem::path m_folder;
};

} // namespace orlo::tests
