#include <CLI/App.hpp>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cli/commands/Commands.h"
#include "cli/commands/CommonOptions.h"
#include "cli/commands/DocsIndex.h"
#include "cli/io/AtomicFile.h"
#include "cli/io/Output.h"
#include "host/KxJsParser.h"
#include "text/Utf8.h"
#include "translate/KxJsTranslator.h"

namespace kx {
namespace {

struct DocsOptions {
    bool hasExamples = false;
    bool isFragment = false;
    bool isTranslated = false;
    std::string file;       ///< empty: standard output
    std::string directory;  ///< not empty: one page for each function there
};

// The documents do not name their encoding; browsers recognise a file as UTF-8 by this mark. A
// fragment has none, since it becomes part of another page. Standard output has none either: its
// reader expects UTF-8 from this program.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The contents of a file for browsers.
std::string fileText(std::u16string const& document) {
    return std::string(kByteOrderMark) + utf8FromUtf16(document);
}

std::vector<std::pair<std::u16string, std::u16string>> translatedPages() {
    std::vector<std::pair<std::u16string, std::u16string>> pages;
    for (KxJsFunction const& function : KxJsTranslator::functions()) {
        pages.emplace_back(function.getName(), function.toHtmlPage());
    }
    return pages;
}

void writePages(std::string const& directory, bool isTranslated) {
    std::vector<NamedFile> files;
    auto const pages = isTranslated ? translatedPages() : KxJsParser::_getUserDocumentation();
    files.reserve(pages.size() + 1);
    for (auto const& [name, page] : pages) {
        files.push_back({utf8FromUtf16(docsPageFile(name)), fileText(page)});
    }
    files.push_back({"index.html", fileText(docsIndexPage(cataloguesOf(isTranslated)))});
    replaceFiles(directory, files);
}

ExitStatus runDocs(DocsOptions const& options) {
    if (!options.directory.empty()) {
        writePages(options.directory, options.isTranslated);
        return ExitStatus::ok;
    }
    bool const standalone = !options.isFragment;
    std::u16string const document =
        options.isTranslated ? docsDocument(cataloguesOf(true), standalone, options.hasExamples)
                             : KxJsParser::_getUserDocumentation(standalone, options.hasExamples);
    if (options.file.empty() || options.file == "-" || isStandardOutput(options.file)) {
        print(document);
        flushOutput();
    } else {
        replaceFile(options.file, standalone ? fileText(document) : utf8FromUtf16(document));
    }
    return ExitStatus::ok;
}

}  // namespace

void addDocs(CLI::App& app, Command& chosen) {
    CLI::App* const docs =
        app.add_subcommand("docs", "Write the HTML documentation of the built-in functions");
    auto const options = std::make_shared<DocsOptions>();
    CLI::Option* const examples =
        docs->add_flag("--examples", options->hasExamples, "Include the examples");
    CLI::Option* const fragment = docs->add_flag(
        "--fragment", options->isFragment, "Leave out head and body, to embed the text in a page");
    docs->add_flag("--translated", options->isTranslated,
                   "The functions that translated formulas call");
    CLI::Option* const file =
        docs->add_option("-o", options->file, "File to write; default: standard output")
            ->type_name("FILE");
    CLI::Option* const pages =
        docs->add_option("--pages", options->directory,
                         "Write one page for each function and an index.html into DIR");
    pages->type_name("DIR")->excludes(examples)->excludes(fragment)->excludes(file);
    docs->footer("Example: kxjs docs --examples -o functions.html");
    docs->callback([=, &chosen] {
        chosen = [=] {
            requireValue(*file, "file");
            requireValue(*pages, "directory");
            return runDocs(*options);
        };
    });
}

}  // namespace kx
