#include "csv/PlainCsv.h"

namespace kx::fuzz {

namespace {

class Scanner {
  public:
    Scanner(std::string_view bytes, char delimiter) : bytes_(bytes), delimiter_(delimiter) {}

    PlainFile read() {
        if (bytes_.starts_with("\xEF\xBB\xBF")) bytes_.remove_prefix(3);
        while (!isAtEnd() && file_.isCsv) {
            PlainRecord const blank{{""}, line_};
            if (!skipLineEnd()) {
                readRecord();
            } else if (hasOneColumn()) {
                file_.records.push_back(blank);  // in a file of one column, this is an empty cell
            }
        }
        return file_;
    }

  private:
    bool isAtEnd() const { return at_ == bytes_.size(); }
    char next() const { return bytes_[at_]; }
    bool isAtLineEnd() const { return next() == '\n' || next() == '\r'; }

    bool hasOneColumn() const {
        return !file_.records.empty() && file_.records.front().cells.size() == 1;
    }

    /// CR LF is one line end.
    bool skipLineEnd() {
        if (isAtEnd() || !isAtLineEnd()) return false;
        bool const isCr = bytes_[at_++] == '\r';
        if (isCr && !isAtEnd() && next() == '\n') ++at_;
        ++line_;
        return true;
    }

    void readRecord() {
        PlainRecord record{{}, line_};
        for (;;) {
            record.cells.push_back(!isAtEnd() && next() == '"' ? quotedCell() : plainCell());
            if (!file_.isCsv) return;
            if (isAtEnd() || next() != delimiter_) break;
            ++at_;
        }
        skipLineEnd();
        file_.records.push_back(record);
    }

    std::string plainCell() {
        std::string cell;
        while (!isAtEnd() && next() != delimiter_ && !isAtLineEnd()) {
            if (next() == '"') {
                file_.isCsv = false;
                break;
            }
            cell += bytes_[at_++];
        }
        return cell;
    }

    std::string quotedCell() {
        std::string cell;
        ++at_;
        while (!isAtEnd()) {
            if (next() != '"') {
                std::size_t const begin = at_;
                if (!skipLineEnd()) ++at_;
                cell += bytes_.substr(begin, at_ - begin);
                continue;
            }
            ++at_;
            if (isAtEnd() || next() == delimiter_ || isAtLineEnd()) return cell;
            if (next() != '"') break;
            cell += bytes_[at_++];
        }
        file_.isCsv = false;
        return cell;
    }

    std::string_view bytes_;
    char delimiter_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
    PlainFile file_;
};

}  // namespace

PlainFile readPlainly(std::string_view bytes, char delimiter) {
    return Scanner(bytes, delimiter).read();
}

}  // namespace kx::fuzz
