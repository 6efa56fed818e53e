#include <cstdlib>
#include <new>

// The module allocates without exceptions only. The runtime's own functions for that would call
// the throwing ones and catch what they throw, which brings all of the exception handling into
// the module, and needs memory at the moment when there is none.

void* operator new(std::size_t size, std::nothrow_t const&) noexcept { return std::malloc(size); }

void* operator new[](std::size_t size, std::nothrow_t const&) noexcept { return std::malloc(size); }

// The throwing forms of operator new are never called.
// NOLINTBEGIN(misc-new-delete-overloads)

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

void operator delete[](void* memory) noexcept { std::free(memory); }

void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

// NOLINTEND(misc-new-delete-overloads)
