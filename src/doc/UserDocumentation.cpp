#include "doc/UserDocumentation.h"

#include "doc/Template.h"
#include "library/Catalogues.h"

namespace kx {
namespace {

constexpr std::u16string_view kDocumentTemplate =
    uR"html(
<!doctype html>
<html>
	<head>
		<title>Documentation for KxJSParser functions</title>
	</head>
	<body>
{{functions}}
	</body>
</html>)html";

constexpr std::u16string_view kFunctionsTemplate =
    uR"html(
	<h1>Mathematical functions</h1>
{{mathematical}}
	<h1>String functions</h1>
{{string}}
	<h1>Miscellaneous functions</h1>
{{miscellaneous}}
)html";

std::u16string fragments(std::vector<KxJsFunction> const& catalogue, bool withExample) {
    std::u16string html;
    for (KxJsFunction const& function : catalogue) {
        if (function.isComplete()) html += function.toHtmlFragment(withExample);
    }
    return html;
}

Catalogues builtInCatalogues() {
    return {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()};
}

}  // namespace

std::u16string userDocumentation(bool standalone, bool withExample) {
    return userDocumentation(builtInCatalogues(), standalone, withExample);
}

std::vector<std::pair<std::u16string, std::u16string>> userDocumentationPages() {
    return userDocumentationPages(builtInCatalogues());
}

std::u16string userDocumentation(Catalogues const& catalogues, bool standalone, bool withExample) {
    std::u16string functions =
        fill(kFunctionsTemplate,
             {
                 {u"mathematical", fragments(catalogues.mathematical, withExample)},
                 {u"string", fragments(catalogues.string, withExample)},
                 {u"miscellaneous", fragments(catalogues.miscellaneous, withExample)},
             });
    return standalone ? fill(kDocumentTemplate, {{u"functions", functions}}) : functions;
}

std::vector<std::pair<std::u16string, std::u16string>> userDocumentationPages(
    Catalogues const& catalogues) {
    std::vector<std::pair<std::u16string, std::u16string>> pages;
    for (auto const* catalogue :
         {&catalogues.mathematical, &catalogues.string, &catalogues.miscellaneous}) {
        for (KxJsFunction const& function : *catalogue) {
            if (function.isComplete()) {
                pages.emplace_back(function.getName(), function.toHtmlPage());
            }
        }
    }
    return pages;
}

}  // namespace kx
