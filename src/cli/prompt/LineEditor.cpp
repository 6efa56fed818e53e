#include "cli/prompt/LineEditor.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cwchar>
#include <histedit.h>
#include <string_view>
#include <utility>

#include "cli/io/DisplayWidth.h"
#include "cli/io/Errors.h"
#include "cli/io/Output.h"
#include "cli/io/Terminal.h"
#include "text/Surrogates.h"
#include "text/Utf8.h"

namespace kx {
namespace {

constexpr int kRememberedLines = 1000;

// libedit's wide characters are code points.
std::u16string utf16FromWide(std::wstring_view text) {
    std::u16string result;
    for (wchar_t const wide : text) appendCharacter(result, static_cast<char32_t>(wide));
    return result;
}

std::wstring wideFromUtf16(std::u16string_view text) {
    std::wstring result;
    for (std::size_t at = 0; at < text.size();) {
        result += static_cast<wchar_t>(nextCharacter(text, at));
    }
    return result;
}

std::u16string commonStart(std::vector<std::u16string> const& texts) {
    std::u16string start = texts.front();
    for (std::u16string const& text : texts) {
        auto const [end, ignored] =
            std::mismatch(start.begin(), start.end(), text.begin(), text.end());
        start.erase(end, start.end());
    }
    return start;
}

void printCandidates(std::vector<std::u16string> const& candidates) {
    std::u16string row;
    for (std::u16string const& candidate : candidates) {
        row += (row.empty() ? u"" : u"  ") + candidate;
    }
    printLine(u"\n" + wrap(row, 0, outputWidth()));
    flushOutput();
}

}  // namespace

struct LineEditor::State {
    EditLine* editor = nullptr;
    HistoryW* history = nullptr;
    std::wstring prompt;
    Completer completer;

    static State& of(EditLine* editor) {
        void* data = nullptr;
        ::el_wget(editor, EL_CLIENTDATA, &data);
        return *static_cast<State*>(data);
    }

    static wchar_t* promptOf(EditLine* editor) { return of(editor).prompt.data(); }

    static unsigned char clear(EditLine* editor, [[maybe_unused]] wint_t key) {
        LineInfoW const* const line = ::el_wline(editor);
        auto const length = static_cast<int>(line->lastchar - line->buffer);
        ::el_cursor(editor, static_cast<int>(line->lastchar - line->cursor));
        ::el_deletestr(editor, length);
        return CC_REFRESH;
    }

    static unsigned char suspend([[maybe_unused]] EditLine* editor, [[maybe_unused]] wint_t key) {
        std::raise(SIGTSTP);  // libedit's handler restores the terminal first
        return CC_REDISPLAY;
    }

    static unsigned char complete(EditLine* editor, [[maybe_unused]] wint_t key) {
        LineInfoW const* const line = ::el_wline(editor);
        std::u16string const before = utf16FromWide(
            std::wstring_view(line->buffer, static_cast<std::size_t>(line->cursor - line->buffer)));
        Completion const found = of(editor).completer(before);
        if (found.candidates.empty()) return CC_ERROR;
        std::u16string const text = commonStart(found.candidates);
        std::u16string const word = before.substr(before.size() - found.wordLength);
        if (text.size() >= word.size() && text != word) {
            ::el_deletestr(editor, static_cast<int>(found.wordLength));
            ::el_winsertstr(editor, wideFromUtf16(text).c_str());
            return CC_REFRESH;
        }
        if (found.candidates.size() == 1) return CC_ERROR;
        printCandidates(found.candidates);
        return CC_REDISPLAY;
    }
};

LineEditor::LineEditor(std::u16string const& prompt, Completer completer)
    : state_(std::make_unique<State>()) {
    useUtf8();
    state_->prompt = wideFromUtf16(prompt);
    state_->completer = std::move(completer);
    state_->history = ::history_winit();
    state_->editor = ::el_init("kxjs", stdin, stdout, stderr);
    if (state_->editor == nullptr || state_->history == nullptr) {
        throw WorkError("the terminal cannot be used for editing lines");
    }
    HistEventW event;
    ::history_w(state_->history, &event, H_SETSIZE, kRememberedLines);
    ::history_w(state_->history, &event, H_SETUNIQUE, 1);

    EditLine* const editor = state_->editor;
    ::el_wset(editor, EL_CLIENTDATA, state_.get());
    ::el_wset(editor, EL_PROMPT, &State::promptOf);
    ::el_wset(editor, EL_EDITOR, L"emacs");
    ::el_wset(editor, EL_SIGNAL, 1);  // handle suspending and resizing
    ::el_wset(editor, EL_HIST, &::history_w, state_->history);
    ::el_wset(editor, EL_ADDFN, L"kxjs-complete", L"Complete a name", &State::complete);
    ::el_wset(editor, EL_ADDFN, L"kxjs-clear", L"Empty the line", &State::clear);
    ::el_wset(editor, EL_ADDFN, L"kxjs-suspend", L"Suspend the program", &State::suspend);
    ::el_wset(editor, EL_BIND, L"^I", L"kxjs-complete", nullptr);
    ::el_wset(editor, EL_BIND, L"^R", L"em-inc-search-prev", nullptr);
    // While a line is edited, Ctrl-C and Ctrl-Z are ordinary keys.
    ::el_wset(editor, EL_SETTY, L"-d", L"-isig", nullptr);
    ::el_wset(editor, EL_BIND, L"^C", L"kxjs-clear", nullptr);
    ::el_wset(editor, EL_BIND, L"^Z", L"kxjs-suspend", nullptr);
}

LineEditor::~LineEditor() {
    if (state_->editor != nullptr) ::el_end(state_->editor);
    if (state_->history != nullptr) ::history_wend(state_->history);
}

std::optional<std::u16string> LineEditor::readLine() {
    int count = 0;
    wchar_t const* const text = ::el_wgets(state_->editor, &count);
    if (text == nullptr || count <= 0) {
        std::fputc('\n', stdout);  // the shell's prompt starts on a new line
        return std::nullopt;
    }
    std::wstring_view line(text, static_cast<std::size_t>(count));
    while (line.ends_with(L'\n') || line.ends_with(L'\r')) line.remove_suffix(1);
    return utf16FromWide(line);
}

void LineEditor::remember(std::u16string const& line) {
    HistEventW event;
    ::history_w(state_->history, &event, H_ENTER, wideFromUtf16(line).c_str());
}

}  // namespace kx
