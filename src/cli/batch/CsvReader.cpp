#include "cli/batch/CsvReader.h"

#include <array>
#include <cerrno>
#include <csv.h>
#include <new>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "cli/io/Errors.h"

namespace kx {
namespace {

constexpr std::size_t kChunkBytes = std::size_t{1} << 16;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

int isNoBlank(unsigned char) { return 0; }

}  // namespace

struct CsvReader::State {
    csv_parser parser{};
    int descriptor;
    std::string name;
    CsvBlock* block = nullptr;
    CsvBlock unfinished;              // cells that belong to the next block
    std::size_t firstUnfinished = 0;  // its first cell of a record that has not ended
    std::size_t line = 1;             // the parser's line
    std::size_t recordLine = 1;       // the first line of the current record
    std::size_t recordCell = 0;       // the first cell of the current record
    std::size_t headerCells = 0;      // 0 before the header
    bool isAfterCr = false;
    bool isAtEnd = false;
    std::size_t bytesRead = 0;
    bool hasByteOrderMark = false;
    std::string_view lineEnd = "\n";
    bool isAfterHeader = false;  // no cell was read after it

    void addCell(std::string_view cell) {
        block->bytes_ += cell;
        block->ends_.push_back(block->bytes_.size());
        isAfterCr = false;
        isAfterHeader = false;
        for (std::size_t i = 0; i < cell.size(); ++i) {
            bool const isCrOfCrLf = cell[i] == '\r' && i + 1 < cell.size() && cell[i + 1] == '\n';
            if ((cell[i] == '\n' || cell[i] == '\r') && !isCrOfCrLf) ++line;
        }
    }

    void endRecord(int terminator) {
        // The LF of CR LF does not end another line.
        bool const isLine = terminator != '\n' || !isAfterCr;
        if (!isLine && isAfterHeader) lineEnd = "\r\n";
        // In a file of one column, a blank line is an empty cell.
        bool const isBlank = block->ends_.size() == recordCell;
        if (isBlank && isLine && headerCells == 1) block->ends_.push_back(block->bytes_.size());
        std::size_t const cells = block->ends_.size() - recordCell;
        if (cells > 0) block->records_.push_back({recordCell, cells, recordLine});
        isAfterHeader = headerCells == 0 && cells > 0;
        if (headerCells == 0) headerCells = cells;
        recordCell = block->ends_.size();
        if (isLine) ++line;
        isAfterCr = terminator == '\r';
        recordLine = line;
    }

    std::string_view withoutMark(std::string_view bytes) {
        if (bytesRead == 0 && bytes.starts_with(kByteOrderMark)) {
            hasByteOrderMark = true;
            bytes.remove_prefix(kByteOrderMark.size());
        }
        return bytes;
    }

    /// Moves the cells of a record that has not ended to the next block.
    void keepUnfinished() {
        std::size_t const begin = recordCell == 0 ? 0 : block->ends_[recordCell - 1];
        for (std::size_t i = recordCell; i < block->ends_.size(); ++i) {
            unfinished.ends_.push_back(block->ends_[i] - begin);
        }
        unfinished.bytes_ = block->bytes_.substr(begin);
        block->bytes_.resize(begin);
        block->ends_.resize(recordCell);
    }

    [[noreturn]] void refuse(std::string const& what) const {
        throw WorkError(name + ", line " + std::to_string(line) + ": " + what);
    }

    static void onCell(void* cell, std::size_t size, void* state) {
        static_cast<State*>(state)->addCell({static_cast<char const*>(cell), size});
    }
    static void onEnd(int terminator, void* state) {
        static_cast<State*>(state)->endRecord(terminator);
    }

    void check(bool isFine) {
        if (isFine) return;
        if (csv_error(&parser) == CSV_ENOMEM) throw std::bad_alloc();
        refuse("not CSV: a quote that is not closed, or one inside a cell that is not quoted");
    }

    /// Reads once into `chunk`; returns false at the end.
    bool fill(std::array<char, kChunkBytes>& chunk, std::string_view& bytes) const {
        std::size_t size = 0;
        // The first read returns at least a whole byte order mark.
        while (size < kByteOrderMark.size() || bytesRead > 0) {
            ssize_t const count = ::read(descriptor, chunk.data() + size, chunk.size() - size);
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) {
                throw WorkError("cannot read " + name + ": " +
                                std::generic_category().message(errno));
            }
            size += static_cast<std::size_t>(count);
            if (count == 0 || bytesRead > 0) break;
        }
        bytes = {chunk.data(), size};
        return size > 0;
    }

    void parse(std::string_view bytes) {
        if (bytes.find('\0') != std::string_view::npos) refuse("a zero byte here or further on");
        check(csv_parse(&parser, bytes.data(), bytes.size(), onCell, onEnd, this) == bytes.size());
    }
};

std::string_view CsvBlock::cell(std::size_t record, std::size_t index) const {
    Record const& of = records_[record];
    if (index >= of.cells) return {};
    std::size_t const position = of.firstCell + index;
    std::size_t const start = position == 0 ? 0 : ends_[position - 1];
    return std::string_view(bytes_).substr(start, ends_[position] - start);
}

CsvReader::CsvReader(int descriptor, std::string name, char delimiter)
    : state_(std::make_unique<State>()) {
    state_->descriptor = descriptor;
    state_->name = std::move(name);
    csv_parser* const parser = &state_->parser;
    // The parser reports every line end; lines are counted by them.
    if (csv_init(parser, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL) != 0) {
        throw std::bad_alloc();
    }
    csv_set_delim(parser, static_cast<unsigned char>(delimiter));
    csv_set_space_func(parser, isNoBlank);
}

CsvReader::~CsvReader() { csv_free(&state_->parser); }

void CsvReader::readHeader(std::vector<std::string>& cells) {
    CsvBlock block = next(1);
    cells.clear();
    if (block.empty()) return;
    for (std::size_t i = 0; i < block.cellCount(0); ++i) cells.emplace_back(block.cell(0, i));
    // The other records go to next(), before the unfinished one.
    block.records_.erase(block.records_.begin());
    CsvBlock rest = std::exchange(state_->unfinished, {});
    std::size_t const size = block.bytes_.size();
    block.bytes_ += rest.bytes_;
    for (std::size_t const end : rest.ends_) block.ends_.push_back(size + end);
    state_->unfinished = std::move(block);
    state_->firstUnfinished = state_->unfinished.ends_.size() - rest.ends_.size();
}

CsvBlock CsvReader::next(std::size_t bytes) {
    State& state = *state_;
    CsvBlock block = std::exchange(state.unfinished, {});
    state.block = &block;
    state.recordCell = std::exchange(state.firstUnfinished, 0);
    std::array<char, kChunkBytes> chunk;
    std::size_t const goal = state.bytesRead + bytes;
    // A single record may be longer than `bytes`.
    while (!state.isAtEnd && (state.bytesRead < goal || block.empty())) {
        std::string_view read;
        if (!state.fill(chunk, read)) {
            state.isAtEnd = true;
            state.check(csv_fini(&state.parser, State::onCell, State::onEnd, &state) == 0);
            break;
        }
        std::string_view const content = state.withoutMark(read);
        state.bytesRead += read.size();
        state.parse(content);
    }
    state.keepUnfinished();
    return block;
}

std::size_t CsvReader::bytesRead() const { return state_->bytesRead; }
bool CsvReader::hasByteOrderMark() const { return state_->hasByteOrderMark; }
std::string_view CsvReader::lineEnd() const { return state_->lineEnd; }

}  // namespace kx
