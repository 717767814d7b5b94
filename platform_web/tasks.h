// Handlers of the game on stacks of their own: one may wait in the middle of its work while another runs.
#pragma once

#include <functional>

/// Runs the work until it ends or waits, then goes on with what was waiting for it. Called by the page alone,
/// never from within a task.
void RunTask(std::function<void()> work);

/// Holds the task that calls it until the condition holds; the page goes on meanwhile.
void WaitUntil(std::function<bool()> condition);

/// Goes on with the tasks that wait for nothing any more. The youngest comes first, and an older one never
/// before it, as if the older one had called it.
void ResumeTasks();
