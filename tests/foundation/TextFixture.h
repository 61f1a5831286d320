// What the suites over string classes have in common.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>

template <class T>
class TextFixture : public testing::Test {
protected:
    using String = T;
    using Char = std::remove_cv_t<std::remove_pointer_t<decltype(std::declval<T>().GetBuffer(0))>>;

    static String Make(std::string_view ascii)
    {
        const std::basic_string<Char> wide(ascii.begin(), ascii.end());
        return String(wide.data(), static_cast<int>(wide.size()));
    }
    static const Char* Characters(const String& text) { return text; }
    static std::string Ascii(const String& text)
    {
        return std::string(Characters(text), Characters(text) + text.GetLength());
    }
};
