#include "cli/prompt/Prompt.h"

#include <optional>
#include <string>
#include <unistd.h>

#include "cli/formula/FormulaSource.h"
#include "cli/io/Output.h"
#include "cli/prompt/HistoryFile.h"
#include "cli/prompt/InterruptWatch.h"
#include "cli/prompt/LineEditor.h"
#include "cli/prompt/NameCompletion.h"
#include "cli/prompt/ReplSession.h"
#include "text/Utf8.h"

namespace kx {
namespace {

constexpr char16_t const* kPrompt = u"kxjs> ";
constexpr std::size_t kPromptWidth = 6;

/// Runs a line. A usage error in it is reported and does not end the session.
bool runLine(ReplSession& session, std::u16string const& line) {
    try {
        bool const isGood = session.run(line);
        flushOutput();
        return isGood;
    } catch (UsageError const& error) {
        reportError(error.what());
        return false;
    }
}

/// The lines of this session and of earlier ones. The prompt works without a history file, so an
/// error there is reported once and ends only the recording.
class History {
  public:
    explicit History(LineEditor& editor) : editor_(editor) {
        auto const path = historyPath();
        if (!path) return;
        guard([&] {
            file_.emplace(*path);
            for (std::string const& line : file_->lines()) remember(line);
        });
    }

    void add(std::u16string const& line) {
        if (line.find_first_not_of(u" \t") == std::u16string::npos || line == last_) return;
        last_ = line;
        editor_.remember(line);
        if (file_) guard([&] { file_->add(utf8FromUtf16(line)); });
    }

  private:
    void remember(std::string const& line) {
        try {
            last_ = utf16FromUtf8(line);
            editor_.remember(last_);
        } catch (InvalidUtf8 const&) {
            // The prompt writes UTF-8 only. Another program wrote this line; it is left out.
        }
    }

    template <class Action>
    void guard(Action const& action) {
        try {
            action();
        } catch (WorkError const& error) {
            file_.reset();
            reportError("lines are not kept for the next session: " + std::string(error.what()));
        }
    }

    LineEditor& editor_;
    std::optional<HistoryFile> file_;
    std::u16string last_;
};

ExitStatus runAtTerminal(Limits const& limits, LanguageOptions const& language) {
    InterruptWatch interrupts;
    ReplSession session(kPromptWidth, limits, language);
    interrupts.watch(session.parser());
    LineEditor editor(kPrompt, [&](std::u16string const& beforeCursor) {
        return completeName(beforeCursor, session.variables(), cataloguesOf(language.isTranslated));
    });
    History history(editor);
    printLine(u":help explains this prompt, :quit leaves it.");
    flushOutput();
    while (!session.hasEnded()) {
        auto const line = editor.readLine();
        if (!line) break;
        history.add(*line);
        interrupts.beginRun();
        runLine(session, *line);
    }
    // The user has seen the failures. Only lines that come from a file set the status.
    return ExitStatus::ok;
}

ExitStatus runOnLines(Limits const& limits, LanguageOptions const& language) {
    ReplSession session(0, limits, language);
    bool hasFailed = false;
    forEachFormula({}, [&](Formula const& line) {
        if (!session.hasEnded() && !runLine(session, line.text)) hasFailed = true;
    });
    return hasFailed ? ExitStatus::failed : ExitStatus::ok;
}

}  // namespace

ExitStatus runPrompt(Limits const& limits, LanguageOptions const& language) {
    bool const isAtTerminal = ::isatty(STDIN_FILENO) == 1 && ::isatty(STDOUT_FILENO) == 1;
    return isAtTerminal ? runAtTerminal(limits, language) : runOnLines(limits, language);
}

}  // namespace kx
