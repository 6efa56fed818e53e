// A complete application: computes the shipping costs of orders by a formula that the user writes.
// It is built against the installed library, with CMake (CMakeLists.txt) or make (Makefile).
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

// The library's texts are UTF-16. std::filesystem::path converts well-formed texts.
std::string utf8(std::u16string const& text) { return std::filesystem::path(text).string(); }
std::u16string utf16(char const* text) { return std::filesystem::path(text).u16string(); }

/// Binds the order's fields as variables of their types.
void bind(KxJsParser& parser, Order const& order) {
    parser.addSetVariable(KxJsVariable(u"WEIGHT", order.weight));
    parser.addSetVariable(KxJsVariable(u"EXPRESS", order.express));
    parser.addSetVariable(KxJsVariable(u"COUNTRY", order.country));
}

/// Prints the cost of each order; returns false when the formula failed.
bool printCosts(std::u16string const& formula) {
    std::array<Order, 3> const orders = {
        {{1.2, false, u"DE"}, {1.2, true, u"DE"}, {14.0, false, u"FR"}}};

    KxJsParser parser;
    parser.initialize();  // adds the built-in functions, such as IIF and ROUND

    // parse() binds the variables that exist at that moment, so they are set first.
    bind(parser, orders.front());
    std::u16string error;
    std::int32_t const script = parser.parse(Converter::_convert(formula.c_str()), error);
    if (script < 0) {
        std::cerr << utf8(error);
        return false;
    }

    for (Order const& order : orders) {
        bind(parser, order);
        error.clear();  // a run that succeeds leaves it alone
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
        std::cerr << failure.what() << '\n';  // for example, an argument that is not UTF-8
        return EXIT_FAILURE;
    }
}
