#include "convert/Rewriting.h"

namespace kx {

std::size_t Rewriting::finish() {
    if (first_ == kNowhere) return kNowhere;
    copyRest(work_.text.size());
    work_.steps += work_.rewritten.size() + work_.rewrittenCalls.size();
    work_.text.swap(work_.rewritten);
    work_.calls.swap(work_.rewrittenCalls);
    return first_;
}

void Rewriting::replace(std::size_t start, std::size_t end) {
    if (first_ == kNowhere) {
        first_ = start;
        work_.rewritten.clear();
        work_.rewritten.reserve(work_.text.capacity());
        work_.rewrittenCalls.clear();
    }
    copyRest(start);
    for (Replacement::Piece const& piece : rule_.replacement.pieces()) {
        std::size_t const begin = work_.rewritten.size();
        work_.rewritten.append(piece.literal);
        if (index_ != nullptr) {
            for (Call const& call : piece.calls) addCall(call, 0, begin);
        }
        if (piece.group != 0) {
            copy(matcher_.groupBegin(piece.group), matcher_.groupEnd(piece.group));
        }
    }
    copied_ = end;
}

/// Appends a part of the text with its calls. Returns the number of the first call behind it.
std::size_t Rewriting::copy(std::size_t from, std::size_t to) {
    std::size_t const begin = work_.rewritten.size();
    work_.rewritten.append(work_.text, from, to - from);
    if (index_ == nullptr) return 0;
    std::size_t next = nextCall_;
    while (next < work_.calls.size() && work_.calls[next].parenthesis < from) ++next;
    for (; next < work_.calls.size() && work_.calls[next].parenthesis < to; ++next) {
        addCall(work_.calls[next], from, begin);
    }
    return next;
}

/// Adds a call of a text that was copied to `begin`, from its position `from` on.
void Rewriting::addCall(Call const& call, std::size_t from, std::size_t begin) {
    std::size_t const parenthesis = call.parenthesis - from + begin;
    // The unit before the name was copied as well, or there is none.
    bool const isStillTrue = call.nameBegin > from || (from == 0 && begin == 0);
    if (isStillTrue) {
        work_.rewrittenCalls.push_back({parenthesis, call.nameBegin - from + begin, call.rules});
    } else {
        work_.rewrittenCalls.push_back(index_->callAt(work_.rewritten, parenthesis, work_.steps));
    }
}

std::size_t applyEverywhere(Rule const& rule, CallIndex const* index, Workspace& work) {
    Rewriting rewriting(rule, index, work);
    std::u16string_view const text = work.text;
    work.steps += text.size();
    StartFilter const& starts = rule.starts;
    std::size_t const end = text.size() < starts.length() ? 0 : text.size() - starts.length() + 1;
    for (std::size_t i = 0; i < end; ++i) {
        if (starts.mayStartAt(text, i)) rewriting.offer(i);
    }
    return rewriting.finish();
}

}  // namespace kx
