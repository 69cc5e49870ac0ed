// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <thread>

namespace foundation {

//     auto thread = startThreadWithoutSignals([] { readAhead(); });
//     if (thread) thread->join();
//
// Starts a thread in which every signal is blocked, because signals belong to the host's threads.
// Nothing when the system has no thread or no memory left.
std::optional<std::thread> startThreadWithoutSignals(std::function<void()> work);

}  // namespace foundation
