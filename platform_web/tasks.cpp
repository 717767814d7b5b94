// Tasks over Emscripten's fibers. Between two events no task runs: each has ended or waits.
#include "platform_web/tasks.h"

#include <array>
#include <emscripten/fiber.h>
#include <memory>
#include <utility>
#include <vector>

namespace {

/// Where a stack is put away while another runs. Only frames between the event and the wait lie there.
using PutAway = std::array<char, 16 << 10>;

struct Task {
    emscripten_fiber_t Fiber;
    std::function<void()> Work;
    std::function<bool()> Condition;
    PutAway Frames;
    alignas(16) std::array<char, 128 << 10> Stack;
};

/// The stack on which the page calls us.
struct PageStack {
    emscripten_fiber_t Fiber;
    PutAway Frames;
    PageStack() { emscripten_fiber_init_from_current_context(&Fiber, Frames.data(), Frames.size()); }
};

std::vector<std::unique_ptr<Task>> Idle;
std::vector<std::unique_ptr<Task>> Waiting;
std::unique_ptr<Task> Running;

PageStack& Page() {
    static PageStack page;
    return page;
}

void Enter(void*) {
    Running->Work();
    emscripten_fiber_t& own = Running->Fiber;
    Idle.push_back(std::move(Running));
    emscripten_fiber_swap(&own, &Page().Fiber);
}

void Resume(std::unique_ptr<Task> task) {
    emscripten_fiber_t& fiber = task->Fiber;
    Running = std::move(task);
    emscripten_fiber_swap(&Page().Fiber, &fiber);
}

std::unique_ptr<Task> TakeLast(std::vector<std::unique_ptr<Task>>& tasks) {
    std::unique_ptr<Task> last = std::move(tasks.back());
    tasks.pop_back();
    return last;
}

} // namespace

void RunTask(std::function<void()> work) {
    std::unique_ptr<Task> task = Idle.empty() ? std::make_unique<Task>() : TakeLast(Idle);
    task->Work = std::move(work);
    emscripten_fiber_init(&task->Fiber, Enter, nullptr, task->Stack.data(), task->Stack.size(),
                          task->Frames.data(), task->Frames.size());
    Resume(std::move(task));
    ResumeTasks();
}

void WaitUntil(std::function<bool()> condition) {
    if (condition()) return;
    emscripten_fiber_t& own = Running->Fiber;
    Running->Condition = std::move(condition);
    Waiting.push_back(std::move(Running));
    emscripten_fiber_swap(&own, &Page().Fiber);
}

void ResumeTasks() {
    while (!Waiting.empty() && Waiting.back()->Condition()) Resume(TakeLast(Waiting));
}
