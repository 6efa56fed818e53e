#pragma once

#include <cstdint>
#include <memory>

namespace kx::c {

/// What a handle stands for.
enum class Kind : std::uint64_t {
    text = 1,
    texts,
    host,
    variable,
    columns,
    translator,
    findings,
    functions
};

/// The objects behind all handles of the process. A handle holds the number of a slot, the kind of
/// its object and how often the slot was used, so that a wrong handle is told without following it:
/// it leads nowhere, whatever number it is.
///
/// Finding takes no lock. Threads: any, except that a handle may not be removed while another
/// thread finds it, as kxjsparser.h says.
/// @{
/// Throws std::bad_alloc, also where there are 2^28 objects.
std::uint64_t addHandle(Kind kind, std::shared_ptr<void> object);
/// Null for a handle that is not in the table. The reference is valid until the handle is removed.
std::shared_ptr<void> const* findHandle(Kind kind, std::uint64_t handle) noexcept;
/// Takes the handle out of the table; null where it is not there.
std::shared_ptr<void> removeHandle(Kind kind, std::uint64_t handle) noexcept;
/// @}

}  // namespace kx::c
