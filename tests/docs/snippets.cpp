#include "snippets.h"

#include <exception>
#include <sstream>

namespace {

/// Keeps what is written to std::cout, until it is destroyed.
class CapturedOutput {
  public:
    CapturedOutput() : usual_(std::cout.rdbuf(stream_.rdbuf())) {}
    ~CapturedOutput() { std::cout.rdbuf(usual_); }
    CapturedOutput(CapturedOutput const&) = delete;
    CapturedOutput& operator=(CapturedOutput const&) = delete;

    /// With line feeds alone: error texts end their lines in carriage returns too.
    std::string text() const {
        std::string text = stream_.str();
        std::erase(text, '\r');
        return text;
    }

  private:
    std::ostringstream stream_;
    std::streambuf* usual_;
};

std::string outputOf(Snippet const& snippet) {
    CapturedOutput const output;
    try {
        if (int const status = snippet.run(); status != 0) {
            return output.text() + "exit status " + std::to_string(status) + '\n';
        }
    } catch (std::exception const& error) {
        return output.text() + "exception: " + error.what() + '\n';
    }
    return output.text();
}

}  // namespace

int runSnippets(std::string const& document, std::vector<Snippet> const& snippets) {
    int status = 0;
    for (Snippet const& snippet : snippets) {
        std::string const output = outputOf(snippet);
        if (output == snippet.expected) continue;
        status = 1;
        std::cout << document << ':' << snippet.line << " prints\n"
                  << output << "but the document says\n"
                  << snippet.expected << '\n';
    }
    return status;
}
