#pragma once

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

/// A text and the text that a function makes of it.
struct Case {
    std::u16string text;
    std::u16string expected;
};

template <class Function>
void expectAll(Function&& function, std::initializer_list<Case> cases) {
    for (Case const& line : cases) {
        EXPECT_EQ(function(line.text), line.expected)
            << "from " << testing::PrintToString(line.text);
    }
}

template <class Function>
void expectUnchanged(Function&& function, std::initializer_list<std::u16string> texts) {
    for (std::u16string const& text : texts) EXPECT_EQ(function(text), text);
}
