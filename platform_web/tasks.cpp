// Tasks over Emscripten's fibers. Between two events no task runs: each has ended or waits.
#include "platform_web/tasks.h"

#include <array>
#include <emscripten/fiber.h>
#include <memory>
#include <vector>

namespace {

/// Where a stack is put away while another runs. Only frames between the event and the wait lie there.
using PutAway = std::array<char, 16 << 10>;

struct Task {
    emscripten_fiber_t Fiber;
    PutAway Frames;
    alignas(16) std::array<char, 128 << 10> Stack;
    std::function<void()> Work;
    /// What the task waits for; nothing while it runs and when it has ended.
    std::function<bool()> Condition;
};

std::vector<std::unique_ptr<Task>> Waiting;
Task* Running = nullptr;

/// The stack on which the page calls us.
emscripten_fiber_t* Page() {
    static emscripten_fiber_t fiber;
    static PutAway frames;
    if (!fiber.stack_base) emscripten_fiber_init_from_current_context(&fiber, frames.data(), frames.size());
    return &fiber;
}

void Enter(void*) {
    Running->Work();
    emscripten_fiber_swap(&Running->Fiber, Page());
}

/// Runs the task until it ends or waits.
void Resume(std::unique_ptr<Task> task) {
    Running = task.get();
    Running->Condition = nullptr;
    emscripten_fiber_swap(Page(), &task->Fiber);
    if (task->Condition) Waiting.push_back(std::move(task));
}

} // namespace

void RunTask(std::function<void()> work) {
    std::unique_ptr<Task> task(new Task);
    task->Work = std::move(work);
    emscripten_fiber_init(&task->Fiber, Enter, nullptr, task->Stack.data(), task->Stack.size(),
                          task->Frames.data(), task->Frames.size());
    Resume(std::move(task));
    ResumeTasks();
}

void WaitUntil(std::function<bool()> condition) {
    if (condition()) return;
    Running->Condition = std::move(condition);
    emscripten_fiber_swap(&Running->Fiber, Page());
}

void ResumeTasks() {
    while (!Waiting.empty() && Waiting.back()->Condition()) {
        std::unique_ptr<Task> last = std::move(Waiting.back());
        Waiting.pop_back();
        Resume(std::move(last));
    }
}
