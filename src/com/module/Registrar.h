#pragma once

#include <windows.h>

namespace kx {

struct IRegistrar;

enum class RegistryMode { enter, remove };

/// Runs this module's registry scripts with the system's script interpreter.
///
///     Registrar registrar;
///     HRESULT outcome = registrar.open();
///     if (SUCCEEDED(outcome)) outcome = registrar.runResource(2001, RegistryMode::enter);
///
/// "%MODULE%" in a script stands for this module's path.
class Registrar {
  public:
    Registrar() = default;
    ~Registrar();
    Registrar(Registrar const&) = delete;
    Registrar& operator=(Registrar const&) = delete;

    HRESULT open();
    /// Lets "%`name`%" in scripts stand for `value`.
    HRESULT replace(wchar_t const* name, wchar_t const* value);
    /// Runs the REGISTRY resource `id` of this module.
    HRESULT runResource(UINT id, RegistryMode mode);
    HRESULT runText(wchar_t const* script, RegistryMode mode);

  private:
    IRegistrar* registrar_ = nullptr;
};

}  // namespace kx
