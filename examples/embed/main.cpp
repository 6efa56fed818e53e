// The whole of an application that lets its users write a formula: an order's shipping cost. It is
// built against the installed library, by CMake (CMakeLists.txt) or by make (Makefile).
//
//     embed ["FORMULA"]     the formula may use WEIGHT, EXPRESS and COUNTRY

#include <array>
#include <convert/Converter.h>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <host/KxJsParser.h>
#include <host/KxJsVariable.h>
#include <iostream>
#include <string>

namespace {

struct Order {
    double weight;
    bool express;
    char16_t const* country;
};

// The library's texts are UTF-16. The standard library's paths convert well-formed ones.
std::string utf8(std::u16string const& text) { return std::filesystem::path(text).string(); }
std::u16string utf16(char const* text) { return std::filesystem::path(text).u16string(); }

/// Hands the order's fields to the formula, each by the type that it has.
void bind(KxJsParser& parser, Order const& order) {
    parser.addSetVariable(KxJsVariable(u"WEIGHT", order.weight));
    parser.addSetVariable(KxJsVariable(u"EXPRESS", order.express));
    parser.addSetVariable(KxJsVariable(u"COUNTRY", order.country));
}

/// Prints what each order costs; false when the formula failed.
bool printCosts(std::u16string const& formula) {
    std::array<Order, 3> const orders = {
        {{1.2, false, u"DE"}, {1.2, true, u"DE"}, {14.0, false, u"FR"}}};

    KxJsParser parser;
    parser.initialize();  // the built-in functions, such as IIF and ROUND

    // A script sees the variables that were bound when it was compiled, so they are bound first.
    bind(parser, orders.front());
    std::u16string error;
    std::int32_t const script = parser.parse(Converter::_convert(formula.c_str()), error);
    if (script < 0) {
        std::cerr << utf8(error);
        return false;
    }

    for (Order const& order : orders) {
        bind(parser, order);
        std::u16string const cost = parser.execute(script, error);
        if (!error.empty()) {
            std::cerr << utf8(error);
            return false;
        }
        std::cout << utf8(order.country) << ": " << utf8(cost) << '\n';
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        std::u16string const formula =
            argc > 1 ? utf16(argv[1])
                     : u"ROUND(IIF(COUNTRY='DE' .AND. WEIGHT<2,3.9,7.5)+IIF(EXPRESS,6,0),2)";
        return printCosts(formula) ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (std::exception const& failure) {
        std::cerr << failure.what() << '\n';  // an argument that is no UTF-8, say
        return EXIT_FAILURE;
    }
}
