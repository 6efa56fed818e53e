// The library's columns, and what its users do without them.
#include <cstdlib>
#include <stdexcept>

#include "columns/ColumnPeer.h"
#include "columns/KxJsColumns.h"
#include "convert/Converter.h"
#include "host/KxJsParser.h"

namespace bench {

namespace {

std::u16string wide(std::string const& ascii) { return {ascii.begin(), ascii.end()}; }

std::shared_ptr<KxJsParser> host() {
    auto host = std::make_shared<KxJsParser>();
    host->initialize();
    return host;
}

void check(std::u16string const& error) {
    if (!error.empty()) throw std::runtime_error(std::string(error.begin(), error.end()));
}

}  // namespace

ColumnWork columnsOfLibrary(ColumnFormula const& formula, ColumnData& data) {
    auto const parser = host();
    std::shared_ptr<KxJsColumns> const columns(new KxJsColumns(*parser),
                                               [parser](KxJsColumns* old) { delete old; });
    if (formula.isText) {
        columns->bind(u"NAME", data.wideNames.data());
    } else {
        columns->bind(u"A", data.a.data());
        columns->bind(u"B", data.b.data());
    }
    std::u16string error;
    columns->compile(Converter::_convert(wide(formula.library).c_str()), error);
    check(error);
    return [&data, columns, isText = formula.isText] {
        std::size_t const count = data.a.size();
        auto const outcome = isText ? columns->evaluate(count, data.wideTexts.data())
                                    : columns->evaluate(count, data.numbers.data());
        check(outcome.error);
    };
}

ColumnWork oneByOneOfLibrary(ColumnFormula const& formula, ColumnData& data) {
    auto const parser = host();
    parser->addSetVariable({u"A", 0.0});
    parser->addSetVariable({u"B", 0.0});
    parser->addSetVariable({u"NAME", u""});
    std::u16string error;
    std::int32_t const script =
        parser->parse(Converter::_convert(wide(formula.library).c_str()), error);
    check(error);
    return [&data, parser, script, isText = formula.isText] {
        std::u16string failure;
        for (std::size_t i = 0; i < data.a.size(); ++i) {
            if (isText) {
                parser->addSetVariable({u"NAME", data.wideNames[i]});
                data.wideTexts[i] = parser->execute(script, failure);
                continue;
            }
            parser->addSetVariable({u"A", data.a[i]});
            parser->addSetVariable({u"B", data.b[i]});
            std::u16string const text = parser->execute(script, failure);
            data.numbers[i] = std::strtod(std::string(text.begin(), text.end()).c_str(), nullptr);
        }
        check(failure);
    };
}

}  // namespace bench
