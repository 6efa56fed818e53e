#pragma once

namespace kx {

/// Sets a flag for the life of the object.
class FlagScope {
  public:
    explicit FlagScope(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagScope() { flag_ = false; }
    FlagScope(FlagScope const&) = delete;
    FlagScope& operator=(FlagScope const&) = delete;

  private:
    bool& flag_;
};

}  // namespace kx
