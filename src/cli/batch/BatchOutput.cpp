#include "cli/batch/BatchOutput.h"

#include <algorithm>
#include <cstddef>

#include "cli/batch/CsvText.h"
#include "cli/io/Output.h"
#include "text/Utf8.h"

namespace kx {

BatchOutput::BatchOutput(std::string const& path, char delimiter) : delimiter_(delimiter) {
    if (!path.empty() && !kx::isStandardOutput(path)) file_.emplace(path);
}

void BatchOutput::writeHeader(std::vector<std::string> const& header, std::string const& resultName,
                              CsvReader const& reader) {
    headerCells_ = header.size();
    lineEnd_ = reader.lineEnd();
    std::string line = reader.hasByteOrderMark() ? "\xEF\xBB\xBF" : "";
    for (std::string const& name : header) {
        appendCell(line, name, delimiter_);
        line += delimiter_;
    }
    appendCell(line, resultName, delimiter_);
    write(line + lineEnd_);
}

void BatchOutput::writeRecords(CsvBlock const& block, std::vector<std::size_t> const& evaluated,
                               std::vector<std::u16string> const& results) {
    std::string text;
    std::size_t next = 0;
    for (std::size_t record = 0; record < block.size(); ++record) {
        std::size_t const cells = std::max(block.cellCount(record), headerCells_);
        for (std::size_t i = 0; i < cells; ++i) {
            appendCell(text, block.cell(record, i), delimiter_);
            text += delimiter_;
        }
        if (next < evaluated.size() && evaluated[next] == record) {
            appendCell(text, utf8FromUtf16(results[next++]), delimiter_);
        }
        text += lineEnd_;
    }
    write(text);
}

void BatchOutput::write(std::string_view bytes) {
    if (file_) {
        file_->write(bytes);
    } else {
        printBytes(bytes);
        flushOutput();
    }
}

void BatchOutput::commit() {
    if (file_) file_->commit();
}

}  // namespace kx
