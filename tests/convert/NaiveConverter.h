#pragma once

#include <memory>
#include <string>
#include <string_view>

/// A second implementation of the conversion, to compare the library with. Its rules are JavaScript
/// regular expressions that were typed anew (data/naive-converter.js). V8 runs them.
class NaiveConverter {
  public:
    enum class Pass { operators, math, misc, strings, spelling, fold };
    static constexpr int passCount = 6;

    NaiveConverter();
    ~NaiveConverter();

    std::u16string apply(Pass pass, std::u16string_view text);
    std::u16string replaceOperator(std::u16string_view text, std::u16string_view op,
                                   std::u16string_view replacement);

    /// The result of String.prototype.replace with a regular expression of flags "gi".
    std::u16string replace(std::u16string_view text, std::u16string_view pattern,
                           std::u16string_view replacement);

    /// Every pass in order.
    std::u16string convert(std::u16string_view text);

  private:
    struct Engine;
    std::unique_ptr<Engine> engine_;
};
