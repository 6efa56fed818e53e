// Computes a column for the rows of an SQLite database. Each field becomes a variable with the
// field's name and type. The formula is compiled once and runs for every row.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <limits>
#include <memory>
#include <sqlite3.h>
#include <stdexcept>
#include <string>

#include "convert/Converter.h"
#include "host/KxJsParser.h"
#include "host/KxJsVariable.h"

namespace {

constexpr char const* kProducts =
    "CREATE TABLE product (NAME TEXT, PRICE REAL, STOCK INTEGER, SOLD INTEGER);"
    "INSERT INTO product VALUES"
    " ('Bolt M8', 0.19, 12000, 48000000000), ('Crème brûlée', 3.4, 12, 60),"
    " ('Lathe', 18950.0, 1, NULL), ('O''Ring', 0.07, NULL, 900);";

// A formula of the older language: which products to order.
constexpr char16_t const* kFormula =
    u"IIF(STOCK*50<SOLD .AND. PRICE<>0,'order '+ALLTRIM(NAME),'keep '+ROUND(PRICE*STOCK,2))";

std::string utf8(std::u16string const& text) { return std::filesystem::path(text).string(); }

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

void require(bool holds, sqlite3* database) {
    if (!holds) throw std::runtime_error(sqlite3_errmsg(database));
}

Database openProducts() {
    sqlite3* opened = nullptr;
    int const status = sqlite3_open(":memory:", &opened);
    Database database(opened);
    require(status == SQLITE_OK, database.get());
    require(sqlite3_exec(opened, kProducts, nullptr, nullptr, nullptr) == SQLITE_OK, opened);
    return database;
}

Statement prepare(sqlite3* database, char const* query) {
    sqlite3_stmt* prepared = nullptr;
    int const status = sqlite3_prepare_v2(database, query, -1, &prepared, nullptr);
    Statement statement(prepared);
    require(status == SQLITE_OK, database);
    return statement;
}

/// The field as a variable. NULL becomes 0, as formulas of that language expect.
KxJsVariable fieldOf(sqlite3_stmt* row, int column) {
    std::u16string const name = static_cast<char16_t const*>(sqlite3_column_name16(row, column));
    switch (sqlite3_column_type(row, column)) {
        case SQLITE_NULL:
            return {name, std::int32_t{0}};
        case SQLITE_TEXT:
            return {name, static_cast<char16_t const*>(sqlite3_column_text16(row, column))};
        case SQLITE_INTEGER: {
            sqlite3_int64 const value = sqlite3_column_int64(row, column);
            auto const whole = static_cast<std::int32_t>(value);
            // Variables hold whole numbers of 32 bits; a double holds larger ones.
            if (whole == value) return {name, whole};
            return {name, static_cast<double>(value)};
        }
        default:
            return {name, sqlite3_column_double(row, column)};
    }
}

void bind(KxJsParser& parser, sqlite3_stmt* row) {
    for (int column = 0; column < sqlite3_column_count(row); ++column) {
        parser.addSetVariable(fieldOf(row, column));
    }
}

void computeColumn(sqlite3* database) {
    KxJsParser parser;
    parser.initialize();
    Statement const row = prepare(database, "SELECT * FROM product");
    std::u16string const javaScript = Converter::_convert(kFormula);
    std::int32_t script = -1;
    int status = 0;
    while ((status = sqlite3_step(row.get())) == SQLITE_ROW) {
        bind(parser, row.get());
        std::u16string error;
        // parse() needs the variables, so the first row is bound before it. Later rows change
        // values.
        if (script < 0) script = parser.parse(javaScript, error);
        if (script < 0) throw std::runtime_error(utf8(error));
        std::u16string const result = parser.execute(script, error);
        std::cout << utf8(error.empty() ? result : error) << '\n';
    }
    require(status == SQLITE_DONE, database);
}

}  // namespace

int main() {
    try {
        Database const database = openProducts();
        computeColumn(database.get());
    } catch (std::exception const& failure) {
        std::cerr << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
