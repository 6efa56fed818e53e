// Ends formulas that run for ever or use too much memory: a time limit, a memory limit, and a
// "Cancel" button, which ends a formula from another thread.

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>

#include "convert/Converter.h"
#include "host/KxJsParser.h"

namespace {

using namespace std::chrono_literals;

constexpr std::size_t kMebibyte = std::size_t{1024} * 1024;

std::string utf8(std::u16string const& text) { return std::filesystem::path(text).string(); }

/// Compiles and runs `source`, and prints the result or the error.
void evaluate(KxJsParser& parser, std::u16string const& source) {
    std::u16string error;
    std::u16string result;
    std::int32_t const script = parser.parse(source, error);
    if (script >= 0) result = parser.execute(script, error);
    std::cout << "  " << (error.empty() ? utf8(result) : utf8(error)) << '\n';
}

/// A user who presses "Cancel" every 20 ms. terminate() ends the current run. It does nothing where
/// no formula runs, and it never ends a later run.
class CancelButton {
  public:
    explicit CancelButton(KxJsParser& parser)
        : user_([this, &parser] {
              while (!finished_) {
                  std::this_thread::sleep_for(20ms);
                  parser.terminate();
              }
          }) {}
    /// Ends the thread. The host must not be destroyed before.
    ~CancelButton() {
        finished_ = true;
        user_.join();
    }
    CancelButton(CancelButton const&) = delete;
    CancelButton& operator=(CancelButton const&) = delete;

  private:
    std::atomic<bool> finished_ = false;
    std::thread user_;
};

}  // namespace

int main() {
    KxJsParser parser;
    parser.initialize();

    std::cout << "time limit\n";
    parser.setTimeLimit(200ms);
    evaluate(parser, u"while (true) {}");
    evaluate(parser, u"/(a+)+b/.test('a'.repeat(100))");
    evaluate(parser, Converter::_convert(u"UPPER('the host works on')"));
    parser.setTimeLimit(0ms);

    std::cout << "memory limit\n";
    parser.setMemoryLimit(64 * kMebibyte);
    evaluate(parser, u"for (var all = [];;) all.push([1, 2, 3])");
    evaluate(parser, u"new Uint8Array(1e9).length");
    // The formula has kept its array in a global variable. This frees the memory.
    evaluate(parser, u"all = null; 'the host works on'");

    std::cout << "cancel button\n";
    {
        CancelButton const button(parser);
        evaluate(parser, u"for (;;) Math.random()");
    }
    evaluate(parser, u"'the host works on'");
}
