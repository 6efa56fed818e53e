#include "cli/commands/DocsIndex.h"

#include <string_view>

#include "cli/formula/Catalogue.h"

namespace kx {
namespace {

// The styles of the functions' pages, which the index is one of.
constexpr std::u16string_view kHead =
    u"<!doctype html>\n"
    "<html>\n"
    "\t<head>\n"
    "\t\t<meta charset='utf-8'>\n"
    "\t\t<title>KxJsParser functions</title>\n"
    "\t\t<style>\n"
    "\t\t\th1{color: #006;}\n"
    "\t\t\t.divSection{background-color:#EEEEFF;border:2px solid #CCCCCC;padding:0px 10px;"
    "padding-bottom:10px;margin-bottom:10px;}\n"
    "\t\t\t.titreBlock{color: #006;border-bottom:2px dashed white;}\n"
    "\t\t\tdd{background-color:#F5F5FF;padding:7px;border:2px groove white;}\n"
    "\t\t</style>\n"
    "\t</head>\n"
    "\t<body>\n"
    "\t<h1>KxJsParser functions</h1>\n";
constexpr std::u16string_view kFoot = u"\t</body>\n</html>\n";

/// The catalogue's texts are HTML; they need no escapes.
std::u16string entry(KxJsFunction const& function) {
    return u"\t\t\t<dt><b><a href='" + docsPageFile(function.getName()) + u"'>" +
           signatureOf(function) + u"</a></b></dt>\n" +  //
           u"\t\t\t<dd>" + function.getDescription() + u"</dd>\n";
}

}  // namespace

std::u16string docsPageFile(std::u16string const& name) { return name + u".html"; }

std::u16string docsIndexPage(std::vector<Catalogue> const& catalogues) {
    std::u16string page(kHead);
    for (Catalogue const& catalogue : catalogues) {
        page += u"\t<div class='divSection'>\n\t\t<h3 class='titreBlock'>" + catalogue.title +
                u"</h3>\n\t\t<dl>\n";
        for (KxJsFunction const& function : catalogue.functions) {
            // Other functions have no page.
            if (function.isComplete()) page += entry(function);
        }
        page += u"\t\t</dl>\n\t</div>\n";
    }
    page += kFoot;
    return page;
}

std::u16string docsDocument(std::vector<Catalogue> const& catalogues, bool isStandalone,
                            bool hasExamples) {
    std::u16string document(isStandalone ? kHead : u"");
    for (Catalogue const& catalogue : catalogues) {
        for (KxJsFunction const& function : catalogue.functions) {
            document += function.toHtmlFragment(hasExamples);
        }
    }
    document += isStandalone ? kFoot : u"";
    return document;
}

}  // namespace kx
