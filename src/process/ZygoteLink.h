#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "process/OwnedDescriptor.h"
#include "process/SharedMemory.h"

namespace kx {

/// The application's connection to a zygote, the process that workers are forked from. There is one
/// for each program of workers; it lives as long as the application. A zygote that was killed is
/// replaced at the next worker. Any thread may use it.
class ZygoteLink {
  public:
    /// The link to the zygote of `program`, which has to call itself `version`.
    static ZygoteLink& of(std::string const& program, std::string const& version);

    /// A worker's channel memory, wake pipe and control socket. Where `shared` is not null the
    /// worker has that memory too; a worker without it starts sooner. Throws std::system_error or
    /// std::runtime_error where there can be none.
    std::vector<OwnedDescriptor> takeWorker(SharedMemory const* shared);

  private:
    ZygoteLink(std::string program, std::string version);

    void start();
    bool ask(SharedMemory const* shared, std::vector<OwnedDescriptor>& descriptors);

    std::string program_;
    std::string version_;
    std::mutex mutex_;
    OwnedDescriptor socket_;
};

}  // namespace kx
