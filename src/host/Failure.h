#pragma once

#include <cstddef>
#include <string>

#include <v8.h>

#include "host/KxJsFailure.h"

namespace kx {

/// How many calls V8 notes for an exception.
constexpr int kFrameLimit = 32;

/// A script as its caller wrote it: the text behind a prologue of `prologueLength` code units.
struct CallerSource {
    int scriptId;
    std::size_t prologueLength;
};

/// Puts into `failure`, whose kind says what failed, where `message` happened in the caller's
/// source, and its frames. Runs no script.
void locateFailure(v8::Isolate* isolate, v8::Local<v8::Context> context,
                   v8::Local<v8::Message> message, CallerSource const& source,
                   KxJsFailure& failure);

}  // namespace kx
