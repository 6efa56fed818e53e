#include <string>
#include <string_view>
#include <vector>

#include "cli/commands/Commands.h"
#include "cli/commands/DocsIndex.h"
#include "cli/io/AtomicFile.h"
#include "cli/io/Output.h"
#include "cli/io/Utf8.h"
#include "host/KxJsParser.h"

namespace kx {
namespace {

// The documents name no character set; a browser that opens a file takes it from this mark. A
// fragment gets none, since it becomes part of another page, and neither does standard output,
// whose reader knows that everything here is UTF-8.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// What a file holds that a browser opens.
std::string fileText(std::u16string const& document) {
    return std::string(kByteOrderMark) + utf8FromUtf16(document);
}

void writePages(std::string const& directory) {
    std::vector<NamedFile> files;
    for (auto const& [name, page] : KxJsParser::_getUserDocumentation()) {
        files.push_back({utf8FromUtf16(docsPageFile(name)), fileText(page)});
    }
    files.push_back({"index.html", fileText(docsIndexPage())});
    replaceFiles(directory, files);
}

}  // namespace

ExitStatus runDocs(DocsOptions const& options) {
    if (!options.directory.empty()) {
        writePages(options.directory);
        return EXIT_STATUS_OK;
    }
    bool const standalone = !options.fragment;
    std::u16string const document = KxJsParser::_getUserDocumentation(standalone, options.examples);
    if (options.file.empty() || options.file == "-" || isStandardOutput(options.file)) {
        print(document);
        flushOutput();
    } else {
        replaceFile(options.file, standalone ? fileText(document) : utf8FromUtf16(document));
    }
    return EXIT_STATUS_OK;
}

}  // namespace kx
