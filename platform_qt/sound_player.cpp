// The media service: commands in words, and the sound library that carries them out on a thread of its own.
// A library call may hang for as long as the sound server is silent; nobody but that thread ever waits for
// it.
#include "platform/desktop.h"

#include <canberra.h>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <dlfcn.h>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

namespace {
using Clock = std::chrono::steady_clock;

/// A cue that comes later than this is worse than none, and a worker that is busy for longer gets no more.
constexpr auto Patience = std::chrono::seconds(2);

/// The wave file to play; without a path, all sounds are to be closed.
struct Order {
    std::string Path;
    Clock::time_point Given = Clock::now();
};

/// What the game and the worker share, all of it under the lock.
struct Desk {
    std::mutex Lock;
    std::condition_variable Filled;
    std::deque<Order> Orders;
    std::optional<Clock::time_point> BusySince;
    bool HasWorker = false;
};

/// Never destroyed: the worker waits there until the process is gone.
Desk& TheDesk = *new Desk;

/// The sound library as the worker has it; without Play it has not been found.
struct Library {
    decltype(&ca_context_create) Create = nullptr;
    decltype(&ca_context_change_props) ChangeProperties = nullptr;
    decltype(&ca_context_open) Open = nullptr;
    decltype(&ca_context_play) Play = nullptr;
    decltype(&ca_context_destroy) Destroy = nullptr;
    ca_context* Context = nullptr;
};

bool Load(Library& library) {
    if (library.Play != nullptr) return true;
    void* handle = dlopen("libcanberra.so.0", RTLD_NOW | RTLD_LOCAL);
    const auto find = [&]<typename Function>(const char* name, Function& function) {
        function = reinterpret_cast<Function>(dlsym(handle, name));
        return function != nullptr;
    };
    return handle != nullptr && find("ca_context_create", library.Create)
           && find("ca_context_change_props", library.ChangeProperties)
           && find("ca_context_open", library.Open) && find("ca_context_destroy", library.Destroy)
           && find("ca_context_play", library.Play);
}

/// Silences every sound and leaves the sound server.
void Close(Library& library) {
    if (library.Context != nullptr) library.Destroy(library.Context);
    library.Context = nullptr;
}

bool Connect(Library& library) {
    if (library.Context != nullptr) return true;
    if (!Load(library) || library.Create(&library.Context) != CA_SUCCESS) return false;
    library.ChangeProperties(library.Context, CA_PROP_APPLICATION_NAME, "Quillets", nullptr);
    if (library.Open(library.Context) == CA_SUCCESS) return true;
    Close(library);
    return false;
}

void Play(Library& library, const Order& order) {
    // Asked after connecting, which alone may take until the cue is stale.
    if (!Connect(library) || Clock::now() - order.Given > Patience) return;
    const int result = library.Play(library.Context, 0, CA_PROP_MEDIA_FILENAME, order.Path.c_str(),
                                    CA_PROP_MEDIA_ROLE, "game", nullptr);
    // A server that went away does not come back to the same context.
    if (result != CA_SUCCESS && result != CA_ERROR_NOTFOUND) Close(library);
}

Order NextOrder() {
    std::unique_lock lock(TheDesk.Lock);
    TheDesk.BusySince.reset();
    TheDesk.Filled.wait(lock, [&] { return !TheDesk.Orders.empty(); });
    Order order = std::move(TheDesk.Orders.front());
    TheDesk.Orders.pop_front();
    TheDesk.BusySince = Clock::now();
    return order;
}

[[noreturn]] void Work() {
    Library library;
    for (;;) {
        const Order order = NextOrder();
        if (order.Path.empty())
            Close(library);
        else
            Play(library, order);
    }
}

bool StartWorker() {
    try {
        std::thread(Work).detach();
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

void OrderCue(const std::string& path) {
    const std::lock_guard lock(TheDesk.Lock);
    if (!TheDesk.HasWorker) TheDesk.HasWorker = StartWorker();
    const bool hangs = TheDesk.BusySince && Clock::now() - *TheDesk.BusySince > Patience;
    if (!TheDesk.HasWorker || hangs) return;
    TheDesk.Orders.push_back({path});
    TheDesk.Filled.notify_one();
}

void OrderClose() {
    const std::lock_guard lock(TheDesk.Lock);
    if (!TheDesk.HasWorker) return;
    TheDesk.Orders.assign(1, Order{});
    TheDesk.Filled.notify_one();
}
} // namespace

std::int32_t mciSendStringA(const std::string& command, std::string& returnString,
                            [[maybe_unused]] std::int32_t returnLength, [[maybe_unused]] void* callback) {
    constexpr std::int32_t Taken = 0;
    constexpr std::int32_t UnknownCommand = 1;
    const std::string play = "play ";
    returnString.clear();
    if (command.starts_with(play) && command.size() > play.size())
        OrderCue(command.substr(play.size()));
    else if (command == "close all")
        OrderClose();
    else if (!command.starts_with("stop ")) // no sound bears a name, so there is nothing to stop
        return UnknownCommand;
    return Taken;
}
