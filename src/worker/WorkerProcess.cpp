#include "worker/WorkerProcess.h"

#include <chrono>
#include <csignal>
#include <pthread.h>
#include <sys/prctl.h>
#include <thread>
#include <unistd.h>

#include "process/Handover.h"
#include "worker/Sandbox.h"
#include "worker/WorkerEnd.h"
#include "worker/WorkerService.h"

namespace kx {

namespace {

/// The only descriptor of a worker, beside 0 to 2, which lead nowhere.
constexpr int kWakePipe = 3;

/// Ends this process with its parent.
void endWith(pid_t zygote) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != zygote) _exit(0);
}

void keepOnly(int wakePipe) {
    if (wakePipe != kWakePipe) dup2(wakePipe, kWakePipe);
    closefrom(kWakePipe + 1);
}

void defaultSignals() {
    signal(SIGCHLD, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

/// What the thread that waits for interrupts knows.
struct Interrupts {
    WorkerService& service;
    WorkerEnd& end;
};

void* serveInterrupts(void* known) {
    auto const& interrupts = *static_cast<Interrupts*>(known);
    while (true) {
        std::uint32_t const call = interrupts.end.awaitInterrupt();
        // A request can come before the work has begun: then it holds nevertheless.
        while (!interrupts.end.hasAnswered(call)) {
            if (interrupts.end.isServing(call)) interrupts.service.interrupt();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
}

void startInterruptThread(Interrupts& interrupts) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::size_t{128} * 1024);
    pthread_t thread{};
    if (pthread_create(&thread, &attributes, serveInterrupts, &interrupts) != 0) _exit(1);
    pthread_attr_destroy(&attributes);
}

}  // namespace

void runWorker(WorkerService& service, WorkerMemory memory, int wakePipe, pid_t zygote) {
    endWith(zygote);
    keepOnly(wakePipe);
    defaultSignals();
    service.prepareWorker();
    SandboxPieces const pieces = enterSandbox(kWakePipe);
    WorkerEnd end(memory, kWakePipe);
    Interrupts interrupts{service, end};
    startInterruptThread(interrupts);
    end.send(packetOf(pieces));
    service.serve(end);
    _exit(0);
}

}  // namespace kx
